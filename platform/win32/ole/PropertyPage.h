// A property page: a dialog whose fields stand for properties of the objects that are shown.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/win32/ole/AutomationTypes.h"
#include "platform/win32/ole/OleObject.h"

namespace veygrid {

// What stays the same for all pages of a class.
struct PageClass {
    UINT dialogId;
    UINT titleId;  // string resource
    const wchar_t* helpText;
    const wchar_t* helpFile;
};

// One walk over the fields of a page; `control` is a field's number in the dialog.
class PageExchange {
  public:
    virtual ~PageExchange() = default;

    virtual void Text(int control, const wchar_t* property, std::wstring& member) = 0;
    virtual void Check(int control, const wchar_t* property, bool& member) = 0;
};

class COlePropertyPage : public OleObject {
  public:
    // Null while the page is not activated.
    HWND Window() const { return m_window; }

    // Marks a field as changed or not; only changed ones are applied.
    void SetControlStatus(int control, bool changed);
    bool ControlStatus(int control) const { return m_changed.contains(control); }
    // Tells the frame, which lights its button for applying.
    void SetModifiedFlag(bool modified = true);

  protected:
    COlePropertyPage(IUnknown* outer, const PageClass& pageClass);

    // Names each field with its property and its member, in the order of exchange.
    virtual void DoDataExchange(PageExchange& exchange) = 0;
    // A button of the page that stands for no property was clicked.
    virtual void OnButton(int control) = 0;

    void OnFinalRelease() override;

  private:
    class PagePart final : public Part<IPropertyPage2, COlePropertyPage> {
      public:
        using Part::Part;
        STDMETHODIMP SetPageSite(IPropertyPageSite* site) override;
        STDMETHODIMP Activate(HWND parent, LPCRECT place, BOOL modal) override;
        STDMETHODIMP Deactivate() override;
        STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) override;
        STDMETHODIMP SetObjects(ULONG count, IUnknown** objects) override;
        STDMETHODIMP Show(UINT command) override;
        STDMETHODIMP Move(LPCRECT place) override;
        STDMETHODIMP IsPageDirty() override;
        STDMETHODIMP Apply() override;
        STDMETHODIMP Help(LPCOLESTR folder) override;
        STDMETHODIMP TranslateAccelerator(MSG* message) override;
        STDMETHODIMP EditProperty(DISPID id) override;
    };
    class Loader;
    class Saver;
    class Finder;

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    IUnknown* FindInterface(REFIID iid) override;
    void Make(HWND parent);
    void Destroy();
    void Move(const RECT& place);
    void Load();
    HRESULT Apply();
    void OnCommand(int control, int notification);
    SIZE Size() const;

    const PageClass& m_class;
    PagePart m_page{*this};
    ComPtr<IPropertyPageSite> m_site;
    std::vector<ComPtr<IDispatch>> m_objects;
    std::set<int> m_changed;
    HWND m_window = nullptr;
    bool m_modified = false;
    bool m_isLoading = false;
};

}  // namespace veygrid
