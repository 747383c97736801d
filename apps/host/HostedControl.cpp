// One control in the host window, from creation to its end.
#include "apps/host/HostedControl.h"

#include <utility>

namespace veygrid {

namespace {

template <typename Interface>
ComPtr<Interface> Ask(IUnknown* object, std::wstring_view what) {
    ComPtr<Interface> found;
    Check(object->QueryInterface(__uuidof(Interface), &found), what);
    return found;
}

}  // namespace

HostedControl::HostedControl(const ControlModule& module, const Setting& setting,
                             EventHandler handler)
    : m_control(module.Create(VeyGridClass)),
      m_object(Ask<IOleObject>(m_control.Get(), L"IOleObject")),
      m_inPlace(Ask<IOleInPlaceObject>(m_control.Get(), L"IOleInPlaceObject")),
      m_site(MakeCom<ControlSite>(setting.window, setting.frame, setting.locale)),
      m_grid(Ask<IDispatch>(m_control.Get(), L"IDispatch")),
      m_parent(setting.window) {
    m_site->SetPlace(setting.place);
    m_site->SetObject(m_inPlace.Get());
    m_sink = EventSink::Connect(m_control.Get(), std::move(handler));
    Initialise(setting);
}

// The site comes before the first load for a control that asks for it so.
void HostedControl::Initialise(const Setting& setting) {
    DWORD status = 0;
    m_object->GetMiscStatus(DVASPECT_CONTENT, &status);
    const bool isSiteFirst = (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
    if (isSiteFirst) {
        Check(m_object->SetClientSite(m_site.Get()), L"SetClientSite");
    }
    Check(Ask<IPersistStreamInit>(m_control.Get(), L"IPersistStreamInit")->InitNew(), L"InitNew");
    if (!isSiteFirst) {
        Check(m_object->SetClientSite(m_site.Get()), L"SetClientSite");
    }
    m_object->SetHostNames(L"VeyHost", nullptr);
    SetExtent(setting.place);
    DoVerb(OLEIVERB_INPLACEACTIVATE);
    m_inPlace->SetObjectRects(&setting.place, &setting.place);
}

HostedControl::~HostedControl() {
    m_sink->Disconnect();
    m_site->SetObject(nullptr);
    m_object->Close(OLECLOSE_NOSAVE);
    m_object->SetClientSite(nullptr);
}

HWND HostedControl::Window() const {
    HWND window = nullptr;
    return SUCCEEDED(m_inPlace->GetWindow(&window)) ? window : nullptr;
}

bool HostedControl::HasFocus() const {
    const HWND window = Window();
    const HWND focus = GetFocus();
    return window != nullptr && focus != nullptr && (focus == window || IsChild(window, focus));
}

void HostedControl::Move(const RECT& place) {
    if (EqualRect(&place, &m_site->Place())) {
        return;
    }
    m_site->SetPlace(place);
    SetExtent(place);
    m_inPlace->SetObjectRects(&place, &place);
}

void HostedControl::TakeFocus() {
    DoVerb(OLEIVERB_UIACTIVATE);
}
void HostedControl::ShowProperties() {
    DoVerb(OLEIVERB_PROPERTIES);
}

void HostedControl::SetExtent(const RECT& place) {
    constexpr int HiMetricPerInch = 2540;
    const HDC screen = GetDC(nullptr);
    SIZEL extent{
        MulDiv(place.right - place.left, HiMetricPerInch, GetDeviceCaps(screen, LOGPIXELSX)),
        MulDiv(place.bottom - place.top, HiMetricPerInch, GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    m_object->SetExtent(DVASPECT_CONTENT, &extent);
}

void HostedControl::DoVerb(LONG verb) {
    RECT place = m_site->Place();
    Check(m_object->DoVerb(verb, nullptr, m_site.Get(), 0, m_parent, &place), L"DoVerb");
}

}  // namespace veygrid
