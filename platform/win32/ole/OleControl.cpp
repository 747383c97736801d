// The base of an OLE control: interfaces, container, stock properties and drawing.
#include "platform/win32/ole/OleControl.h"

#include <algorithm>
#include <array>

#include "platform/win32/ole/ControlFont.h"
#include "platform/win32/ole/Guard.h"

namespace veygrid {

std::int16_t CVeyOleControl::ShiftState() {
    const auto bit = [](int key, int value) { return ::GetKeyState(key) < 0 ? value : 0; };
    return static_cast<std::int16_t>(bit(VK_SHIFT, 1) | bit(VK_CONTROL, 2) | bit(VK_MENU, 4));
}

CVeyOleControl::CVeyOleControl(IUnknown* outer, const ControlClass& controlClass, void* handled)
    : OleObject(outer),
      m_class(controlClass),
      m_automation(*this, controlClass.automation, handled),
      m_connections(*this, *controlClass.automation.events) {}

IUnknown* CVeyOleControl::FindInterface(REFIID iid) {
    struct Entry {
        const IID& iid;
        IUnknown* (*find)(CVeyOleControl&);
    };
    using Control = CVeyOleControl;
    static const auto ofView = [](Control& c) -> IUnknown* { return &c.m_view; };
    static const auto ofInPlace = [](Control& c) -> IUnknown* { return &c.m_inPlaceObject; };
    static const auto ofStream = [](Control& c) -> IUnknown* { return &c.m_stream; };
    static const std::array entries{
        Entry{IID_IOleObject, [](Control& c) -> IUnknown* { return &c.m_oleObject; }},
        Entry{IID_IOleControl, [](Control& c) -> IUnknown* { return &c.m_oleControl; }},
        Entry{IID_IOleInPlaceObject, ofInPlace},
        Entry{IID_IOleWindow, ofInPlace},
        Entry{IID_IOleInPlaceActiveObject,
              [](Control& c) -> IUnknown* { return &c.m_activeObject; }},
        Entry{IID_IQuickActivate, [](Control& c) -> IUnknown* { return &c.m_quickActivate; }},
        Entry{IID_IViewObject, ofView},
        Entry{IID_IViewObject2, ofView},
        Entry{IID_IViewObjectEx, ofView},
        Entry{IID_IDataObject, [](Control& c) -> IUnknown* { return &c.m_data; }},
        Entry{IID_IPersist, ofStream},
        Entry{IID_IPersistStreamInit, ofStream},
        Entry{IID_IPersistStorage, [](Control& c) -> IUnknown* { return &c.m_storage; }},
        Entry{IID_IPersistPropertyBag, [](Control& c) -> IUnknown* { return &c.m_bag; }},
        Entry{IID_IPersistMemory, [](Control& c) -> IUnknown* { return &c.m_memory; }},
        Entry{IID_IConnectionPointContainer,
              [](Control& c) -> IUnknown* { return &c.m_connections; }},
        Entry{IID_ISpecifyPropertyPages, [](Control& c) -> IUnknown* { return &c.m_pages; }},
        Entry{IID_IPerPropertyBrowsing, [](Control& c) -> IUnknown* { return &c.m_browsing; }},
    };
    if (IUnknown* const found = m_automation.Find(iid)) {
        return found;
    }
    const auto entry = std::ranges::find_if(entries, [&](const Entry& e) { return e.iid == iid; });
    return entry == entries.end() ? nullptr : entry->find(*this);
}

// A host may let go of a control without closing it.
void CVeyOleControl::OnFinalRelease() {
    InPlaceDeactivate();
    if (m_window != nullptr) {
        ::DestroyWindow(m_window);
    }
    m_connections.Events().Clear();
    m_connections.Properties().Clear();
}

template <class Value>
void CVeyOleControl::ChangeStock(DISPID id, Value& member, Value value) {
    const KeepAlive keep(*this);
    bool mayChange = true;
    m_connections.Properties().ForEach<IPropertyNotifySink>([&](IPropertyNotifySink& sink) {
        mayChange = sink.OnRequestEdit(id) != S_FALSE && mayChange;
    });
    if (!mayChange) {
        return;
    }
    member = value;
    SetModifiedFlag();
    m_connections.Properties().ForEach<IPropertyNotifySink>(
        [&](IPropertyNotifySink& sink) { sink.OnChanged(id); });
    InvalidateControl();
}

void CVeyOleControl::SetForeColor(std::uint32_t color) {
    ChangeStock(DISPID_FORECOLOR, Stock().ForeColor, color);
}

void CVeyOleControl::SetBackColor(std::uint32_t color) {
    ChangeStock(DISPID_BACKCOLOR, StockBackColor(), color);
}

void CVeyOleControl::SetBorderStyle(std::int16_t style) {
    ChangeStock(DISPID_BORDERSTYLE, Stock().BorderStyle, style);
    ApplyBorder();
}

void CVeyOleControl::SetEnabled(bool enabled) {
    ChangeStock(DISPID_ENABLED, Stock().Enabled, enabled);
    if (m_window != nullptr) {
        ::EnableWindow(m_window, enabled);
    }
}

ComPtr<IDispatch> CVeyOleControl::FontObject() {
    if (m_font != nullptr) {
        return m_font;
    }
    if (Stock().Font.lfWeight != AmbientFontWeight) {
        m_font = FontFromRecord(Stock().Font);
        return m_font;
    }
    OwnedVariant ambient;
    return GetAmbient(DISPID_AMBIENT_FONT, VT_DISPATCH, ambient)
               ? ComPtr<IDispatch>(ambient->pdispVal)
               : DefaultFont();
}

void CVeyOleControl::SetFontObject(IDispatch* font) {
    ComPtr<IFont> access;
    if (font != nullptr && FAILED(font->QueryInterface(IID_IFont, &access))) {
        return;  // no font; were it this control itself, it would never be let go
    }
    m_font = font;
    ChangeStock(DISPID_FONT, Stock().Font, RecordFromFont(font));
}

void CVeyOleControl::SetClientSite(IOleClientSite* site) {
    if (site == nullptr) {
        InPlaceDeactivate();
    }
    m_site = site;
    m_ambient = nullptr;
    if (site != nullptr) {
        site->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(m_ambient.GetAddressOf()));
    }
    ReadUIDead();
}

bool CVeyOleControl::GetAmbient(DISPID id, VARTYPE type, OwnedVariant& value) {
    const ComPtr<IDispatch> ambient = m_ambient;
    DISPPARAMS none{};
    OwnedVariant given;
    return ambient != nullptr &&
           SUCCEEDED(ambient->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                     &given, nullptr, nullptr)) &&
           SUCCEEDED(::VariantChangeType(&value, &given, 0, type)) &&
           (type != VT_DISPATCH || value->pdispVal != nullptr);
}

LCID CVeyOleControl::AmbientLocale() {
    OwnedVariant locale;
    return GetAmbient(DISPID_AMBIENT_LOCALEID, VT_I4, locale) ? static_cast<LCID>(locale->lVal)
                                                              : LOCALE_USER_DEFAULT;
}

void CVeyOleControl::ReadUIDead() {
    OwnedVariant dead;
    m_uiDead = GetAmbient(DISPID_AMBIENT_UIDEAD, VT_BOOL, dead) && dead->boolVal != VARIANT_FALSE;
}

void CVeyOleControl::OnAmbientPropertyChange(DISPID id) {
    if (id == DISPID_AMBIENT_UIDEAD || id == DISPID_UNKNOWN) {
        ReadUIDead();
    }
    if (id != DISPID_AMBIENT_UIDEAD) {
        InvalidateControl();
    }
}

HRESULT CVeyOleControl::TranslateInContainer(MSG& message) {
    ComPtr<IOleControlSite> site;
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    return isKey && m_site != nullptr && SUCCEEDED(m_site.As(&site))
               ? site->TranslateAccelerator(&message, static_cast<DWORD>(ShiftState()))
               : S_FALSE;
}

SIZEL CVeyOleControl::Extent() {
    return {Stock().ExtentWidth, Stock().ExtentHeight};
}

void CVeyOleControl::SetExtent(SIZEL extent) {
    Stock().ExtentWidth = extent.cx;
    Stock().ExtentHeight = extent.cy;
    InvalidateControl();
}

void CVeyOleControl::InvalidateControl(const RECT* area) {
    const KeepAlive keep(*this);
    if (m_window != nullptr) {
        ::InvalidateRect(m_window, area, TRUE);
    }
    m_view.Changed();
    if (m_dataAdvise != nullptr) {
        m_dataAdvise->SendOnDataChange(&m_data, 0, 0);
    }
}

void CVeyOleControl::Draw(HDC target, const RECT& bounds) {
    OnDraw(target, bounds, bounds);
}

void CVeyOleControl::Freeze(bool freeze) {
    m_freezeCount = std::max(m_freezeCount + (freeze ? 1 : -1), 0);
}

IOleAdviseHolder& CVeyOleControl::OleAdvise() {
    if (m_oleAdvise == nullptr) {
        Require(::CreateOleAdviseHolder(&m_oleAdvise));
    }
    return *m_oleAdvise.Get();
}

IDataAdviseHolder& CVeyOleControl::DataAdvise() {
    if (m_dataAdvise == nullptr) {
        Require(::CreateDataAdviseHolder(&m_dataAdvise));
    }
    return *m_dataAdvise.Get();
}

void CVeyOleControl::Reset() {
    OnResetState();
    OwnedVariant color;
    if (GetAmbient(DISPID_AMBIENT_FORECOLOR, VT_I8, color)) {
        Stock().ForeColor = static_cast<std::uint32_t>(color->llVal);
    }
    Loaded();
}

// A loaded state is the container's own, so that nothing waits to be saved.
void CVeyOleControl::Loaded() {
    m_modified = false;
    m_font = nullptr;
    ApplyBorder();
    InvalidateControl();
}

}  // namespace veygrid
