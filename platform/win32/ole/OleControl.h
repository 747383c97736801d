// The base of an OLE control: what containers, scripts and property sheets expect of any control.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "grid/GridProperties.h"
#include "persist/ByteStream.h"
#include "persist/PropertyBag.h"
#include "platform/win32/ole/ActivationParts.h"
#include "platform/win32/ole/ClassFactory.h"
#include "platform/win32/ole/ConnectionParts.h"
#include "platform/win32/ole/DispatchPart.h"
#include "platform/win32/ole/OleObject.h"
#include "platform/win32/ole/PersistParts.h"
#include "platform/win32/ole/Platform.h"
#include "platform/win32/ole/PropertyParts.h"
#include "platform/win32/ole/ViewParts.h"

namespace veygrid {

// A page that the property browser shows for a control.
struct PageEntry {
    CLSID clsid;
    ObjectMaker make;  // null for a page of the platform, which the registry knows
};

// What stays the same for all controls of a class.
struct ControlClass {
    const AutomationClass& automation;
    DWORD miscStatus;     // OLEMISC bits
    UINT userTypeNameId;  // string resource
    std::span<const PageEntry> pages;
};

// A choice that a property browser offers.
struct PredefinedValue {
    std::wstring text;
    DWORD cookie;
};

class CVeyOleControl : public OleObject {
  public:
    const ControlClass& Class() const { return m_class; }
    AutomationParts& Automation() { return m_automation; }

    bool IsModified() const { return m_modified; }
    void SetModifiedFlag(bool modified = true) { m_modified = modified; }

    // Stock properties. A write asks and tells the listeners to property changes.
    std::uint32_t ForeColor() { return Stock().ForeColor; }
    std::uint32_t BackColor() { return StockBackColor(); }
    std::int16_t BorderStyle() { return Stock().BorderStyle; }
    bool Enabled() { return Stock().Enabled; }
    void SetForeColor(std::uint32_t color);
    void SetBackColor(std::uint32_t color);
    void SetBorderStyle(std::int16_t style);
    void SetEnabled(bool enabled);
    // Null while the control has no font of its own and the container offers none.
    ComPtr<IDispatch> FontObject();
    // Null gives the container's font back.
    void SetFontObject(IDispatch* font);

    // Container. The site may be null at any time.
    IOleClientSite* ClientSite() const { return m_site.Get(); }
    void SetClientSite(IOleClientSite* site);
    // The container's value of an ambient property, as the wanted type.
    bool GetAmbient(DISPID id, VARTYPE type, OwnedVariant& value);
    // The user's own where the container does not say.
    LCID AmbientLocale();
    // True while the container wants no input answered.
    bool IsUIDead() const { return m_uiDead; }
    // DISPID_UNKNOWN stands for all of them.
    void OnAmbientPropertyChange(DISPID id);
    // The container's answer to a key that the control leaves: S_OK when it was used up there.
    HRESULT TranslateInContainer(MSG& message);

    // HIMETRIC.
    SIZEL Extent();
    void SetExtent(SIZEL extent);

    // Activation in the container's window.
    HWND Window() const { return m_window; }
    // For the dialogs of the control; null when the module has no window at all.
    HWND DialogOwner() const { return m_window != nullptr ? m_window : module::MainWindow(); }
    bool IsInPlaceActive() const { return m_inPlaceSite != nullptr; }
    bool IsUIActive() const { return m_uiActive; }
    HRESULT DoVerb(LONG verb, HWND parent);
    HRESULT UIDeactivate();
    HRESULT InPlaceDeactivate();
    HRESULT Close(DWORD save);
    void SetObjectRects(const RECT& position, const RECT& clip);
    static std::vector<OLEVERB> Verbs();

    // Told when what is drawn has changed: repaints, and tells the advised sinks.
    void InvalidateControl(const RECT* area = nullptr);
    // Draws the control into any device context, bounds in its logical units.
    void Draw(HDC target, const RECT& bounds);

    void Freeze(bool freeze);
    ConnectionsPart& Connections() { return m_connections; }
    IOleAdviseHolder& OleAdvise();
    IDataAdviseHolder& DataAdvise();
    ViewPart& View() { return m_view; }

    // Whether an event would reach anybody.
    bool HasListeners() { return m_freezeCount == 0 && !m_connections.Events().IsEmpty(); }
    // A host whose handlers bring about their own event is told of it only so many times over, lest
    // the stack run out.
    static constexpr int MostNestedEvents = 64;
    template <class... Args>
    void FireEvent(DISPID id, Args... args) {
        if (HasListeners() && m_nestedEvents < MostNestedEvents) {
            const KeepAlive keep(*this);
            FireWith(id, EventArgument(args)...);
        }
    }

    // What persistence stores. Reading gives the number of bytes used.
    virtual void SaveState(ByteSink& sink) = 0;
    virtual std::uint64_t LoadState(ByteSource& source) = 0;
    virtual void SaveInBag(PropertyBag& bag) = 0;
    virtual void LoadFromBag(PropertyBag& bag) = 0;
    virtual void OnResetState() = 0;
    // Every property at its default; that of the text colour is the container's.
    void Reset();
    // After any of the loads: shows it.
    void Loaded();

    // An input message for the control's window or one inside it, once, before the host dispatches
    // it; true uses it up. It may be readdressed.
    virtual bool PreTranslateMessage(MSG&) { return false; }

    // The container begins or ends a modal state: windows of the control's own take no input in it.
    virtual void OnEnableModeless(bool) {}

    // Opens the property pages: the container's way, the platform's or a frame of our own.
    HRESULT OnProperties(HWND parent);
    virtual std::vector<PredefinedValue> OnGetPredefinedStrings(DISPID) { return {}; }
    // Page of a property; null for none in particular.
    virtual const CLSID* OnMapPropertyToPage(DISPID) { return nullptr; }

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);

  protected:
    // `handled` is the object as the handlers of the automation table take it.
    CVeyOleControl(IUnknown* outer, const ControlClass& controlClass, void* handled);

    // Where the values of the stock properties and the extent live.
    virtual StockProperties& Stock() = 0;
    virtual std::uint32_t& StockBackColor() = 0;

    // Pixels; the context is in its plain mapping, or a metafile's.
    virtual void OnDraw(HDC target, const RECT& bounds, const RECT& invalid) = 0;
    // A message of the control's window. Handlers of a derived class ask the base for the rest.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    IUnknown* FindInterface(REFIID iid) override;
    void OnFinalRelease() override;

  private:
    template <class... Arguments>
    void FireWith(DISPID id, Arguments... arguments) {
        struct Nested {
            explicit Nested(int& count) : m_count(count) { ++m_count; }
            ~Nested() { --m_count; }
            int& m_count;
        };
        const Nested nested(m_nestedEvents);
        veygrid::FireEvent(m_connections.Events(), id, {&arguments...});
    }
    template <class Value>
    void ChangeStock(DISPID id, Value& member, Value value);

    // Shift 1, control 2, alternate 4, as events and containers say it.
    static std::int16_t ShiftState();
    void ReadUIDead();
    std::vector<ComPtr<IPropertyPage>> MakePages() const;

    HRESULT InPlaceActivate(bool withUI, HWND parent);
    void EnterSite(IOleInPlaceSite& site, HWND parent);
    HRESULT UIActivate();
    void MakeWindow(HWND parent, const RECT& position);
    void Paint();
    void ApplyBorder();
    void FireMouse(DISPID id, WORD button, LPARAM position);
    bool FireKey(DISPID id, WPARAM& key);
    LRESULT OnButton(UINT message, WPARAM wParam, LPARAM lParam);
    void OnFocus(bool has);

    const ControlClass& m_class;
    AutomationParts m_automation;
    ConnectionsPart m_connections;
    OleObjectPart m_oleObject{*this};
    OleControlPart m_oleControl{*this};
    InPlaceObjectPart m_inPlaceObject{*this};
    ActiveObjectPart m_activeObject{*this};
    QuickActivatePart m_quickActivate{*this};
    ViewPart m_view{*this};
    DataPart m_data{*this};
    StreamPart m_stream{*this};
    StoragePart m_storage{*this};
    BagPart m_bag{*this};
    MemoryPart m_memory{*this};
    PagesPart m_pages{*this};
    BrowsingPart m_browsing{*this};

    ComPtr<IOleClientSite> m_site;
    ComPtr<IDispatch> m_ambient;
    ComPtr<IOleInPlaceSite> m_inPlaceSite;
    ComPtr<IOleInPlaceFrame> m_frame;
    ComPtr<IOleInPlaceUIWindow> m_document;
    ComPtr<IOleAdviseHolder> m_oleAdvise;
    ComPtr<IDataAdviseHolder> m_dataAdvise;
    ComPtr<IDispatch> m_font;
    HWND m_window = nullptr;
    bool m_uiActive = false;
    bool m_uiDead = false;
    bool m_modified = false;
    bool m_leftDown = false;
    int m_freezeCount = 0;
    int m_nestedEvents = 0;
};

}  // namespace veygrid
