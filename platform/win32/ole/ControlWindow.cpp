// The window of a control: activation in its container, and the messages that any control answers.
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/MessageFilter.h"
#include "platform/win32/ole/OleControl.h"

namespace veygrid {

namespace {

constexpr const wchar_t* WindowClassName = L"VeyGridControl";
constexpr LONG SecondVerb = 1;

// Registered by the module's handle, once. The class goes with the module.
const wchar_t* WindowClass() {
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    if (!::GetClassInfoExW(module::Instance(), WindowClassName, &known)) {
        WNDCLASSEXW made{};
        made.cbSize = sizeof made;
        made.style = CS_DBLCLKS;
        made.lpfnWndProc = CVeyOleControl::WindowProcedure;
        made.hInstance = module::Instance();
        made.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
        made.lpszClassName = WindowClassName;
        if (::RegisterClassExW(&made) == 0) {
            throw OleError{E_FAIL};
        }
    }
    return WindowClassName;
}

// The paint ends with it, whatever the host's code does to the painting or the window meanwhile.
class PaintDc {
  public:
    explicit PaintDc(HWND window) : m_window(window), m_dc(::BeginPaint(window, &m_paint)) {}
    PaintDc(const PaintDc&) = delete;
    PaintDc& operator=(const PaintDc&) = delete;
    ~PaintDc() { ::EndPaint(m_window, &m_paint); }

    HDC Get() const { return m_dc; }
    const RECT& Area() const { return m_paint.rcPaint; }

  private:
    PAINTSTRUCT m_paint{};
    HWND m_window;
    HDC m_dc;
};

bool IsUserInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}

}  // namespace

std::vector<OLEVERB> CVeyOleControl::Verbs() {
    static wchar_t edit[] = L"&Edit";
    static wchar_t properties[] = L"&Properties...";
    return {{OLEIVERB_PRIMARY, edit, 0, OLEVERBATTRIB_ONCONTAINERMENU},
            {SecondVerb, properties, 0, OLEVERBATTRIB_ONCONTAINERMENU}};
}

HRESULT CVeyOleControl::DoVerb(LONG verb, HWND parent) {
    switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_SHOW:
        case OLEIVERB_UIACTIVATE:
            return InPlaceActivate(true, parent);
        case OLEIVERB_INPLACEACTIVATE:
            return InPlaceActivate(false, parent);
        case OLEIVERB_HIDE:
            UIDeactivate();
            if (m_window != nullptr) {
                ::ShowWindow(m_window, SW_HIDE);
            }
            return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        case SecondVerb:
        case OLEIVERB_PROPERTIES:
            return OnProperties(parent);
        default:
            break;
    }
    if (verb < 0) {
        return E_NOTIMPL;
    }
    const HRESULT result = InPlaceActivate(true, parent);
    return FAILED(result) ? result : OLEOBJ_S_INVALIDVERB;
}

HRESULT CVeyOleControl::InPlaceActivate(bool withUI, HWND parent) {
    if (m_site == nullptr) {
        return E_UNEXPECTED;
    }
    if (m_inPlaceSite == nullptr) {
        ComPtr<IOleInPlaceSite> site;
        Require(m_site.As(&site));
        if (site->CanInPlaceActivate() != S_OK || m_site == nullptr) {
            return E_FAIL;
        }
        Require(site->OnInPlaceActivate());
        m_inPlaceSite = site;
        try {
            EnterSite(*site.Get(), parent);
        } catch (...) {
            InPlaceDeactivate();
            throw;
        }
    }
    if (m_window != nullptr) {
        ::ShowWindow(m_window, SW_SHOWNA);
    }
    return withUI ? UIActivate() : S_OK;
}

// The site may close the control in any of its answers.
void CVeyOleControl::EnterSite(IOleInPlaceSite& site, HWND parent) {
    HWND container = nullptr;
    RECT position{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    if (FAILED(site.GetWindow(&container)) || container == nullptr) {
        container = parent;
    }
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    Require(site.GetWindowContext(&frame, &document, &position, &clip, &info));
    const ComPtr<IOleClientSite> client = m_site;
    if (client == nullptr || m_inPlaceSite == nullptr) {
        throw OleError{E_FAIL};
    }
    m_frame = frame;
    m_document = document;
    MakeWindow(container, position);
    SetObjectRects(position, clip);
    client->ShowObject();
}

void CVeyOleControl::MakeWindow(HWND parent, const RECT& position) {
    DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    style |= Stock().BorderStyle != 0 ? WS_BORDER : 0U;
    style |= Stock().Enabled ? 0U : WS_DISABLED;
    ::CreateWindowExW(0, WindowClass(), L"", style, position.left, position.top,
                      position.right - position.left, position.bottom - position.top, parent,
                      nullptr, module::Instance(), this);
    if (m_window == nullptr) {
        throw OleError{E_FAIL};
    }
}

HRESULT CVeyOleControl::UIActivate() {
    if (m_uiActive || m_inPlaceSite == nullptr) {
        return m_inPlaceSite == nullptr ? E_FAIL : S_OK;
    }
    m_uiActive = true;
    const ComPtr<IOleInPlaceSite> site = m_inPlaceSite;
    const HRESULT allowed = site->OnUIActivate();
    if (FAILED(allowed) || m_inPlaceSite == nullptr) {
        m_uiActive = false;
        return FAILED(allowed) ? allowed : E_FAIL;
    }
    const ComPtr<IOleInPlaceFrame> frame = m_frame;
    const ComPtr<IOleInPlaceUIWindow> document = m_document;
    const std::wstring name = module::String(m_class.userTypeNameId);
    if (frame != nullptr) {
        frame->SetActiveObject(&m_activeObject, name.c_str());
        frame->SetBorderSpace(nullptr);
    }
    if (document != nullptr) {
        document->SetActiveObject(&m_activeObject, name.c_str());
        document->SetBorderSpace(nullptr);
    }
    if (m_window != nullptr && ::GetFocus() != m_window && !::IsChild(m_window, ::GetFocus())) {
        ::SetFocus(m_window);
    }
    return S_OK;
}

HRESULT CVeyOleControl::UIDeactivate() {
    if (!m_uiActive) {
        return S_OK;
    }
    m_uiActive = false;
    const ComPtr<IOleInPlaceFrame> frame = m_frame;
    const ComPtr<IOleInPlaceUIWindow> document = m_document;
    const ComPtr<IOleInPlaceSite> site = m_inPlaceSite;
    if (frame != nullptr) {
        frame->SetActiveObject(nullptr, nullptr);
    }
    if (document != nullptr) {
        document->SetActiveObject(nullptr, nullptr);
    }
    if (site != nullptr) {
        site->OnUIDeactivate(FALSE);
    }
    return S_OK;
}

HRESULT CVeyOleControl::InPlaceDeactivate() {
    if (m_inPlaceSite == nullptr) {
        return S_OK;
    }
    UIDeactivate();
    const ComPtr<IOleInPlaceSite> site = std::exchange(m_inPlaceSite, nullptr);
    if (m_window != nullptr) {
        ::DestroyWindow(m_window);
    }
    m_frame = nullptr;
    m_document = nullptr;
    if (site != nullptr) {
        site->OnInPlaceDeactivate();
    }
    return S_OK;
}

HRESULT CVeyOleControl::Close(DWORD save) {
    const ComPtr<IOleClientSite> site = m_site;
    if (save != OLECLOSE_NOSAVE && m_modified && site != nullptr) {
        site->SaveObject();
    }
    InPlaceDeactivate();
    if (m_oleAdvise != nullptr) {
        m_oleAdvise->SendOnClose();
    }
    return S_OK;
}

void CVeyOleControl::SetObjectRects(const RECT& position, const RECT& clip) {
    if (m_window == nullptr) {
        return;
    }
    RECT visible{};
    const bool isClipped =
        ::IntersectRect(&visible, &position, &clip) && !::EqualRect(&visible, &position);
    ::OffsetRect(&visible, -position.left, -position.top);
    ::SetWindowRgn(m_window, isClipped ? ::CreateRectRgnIndirect(&visible) : nullptr, TRUE);
    ::SetWindowPos(m_window, nullptr, position.left, position.top, position.right - position.left,
                   position.bottom - position.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CVeyOleControl::ApplyBorder() {
    if (m_window == nullptr) {
        return;
    }
    const LONG_PTR style = ::GetWindowLongPtrW(m_window, GWL_STYLE) & ~LONG_PTR{WS_BORDER};
    ::SetWindowLongPtrW(m_window, GWL_STYLE, style | (Stock().BorderStyle != 0 ? WS_BORDER : 0));
    ::SetWindowPos(m_window, nullptr, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

LRESULT CALLBACK CVeyOleControl::WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                                 LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* const made = static_cast<CVeyOleControl*>(
            reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        made->m_window = window;
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* const control =
        reinterpret_cast<CVeyOleControl*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (control == nullptr) {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    const KeepAlive keep(*control);
    if (control->IsUIDead() && IsUserInput(message)) {
        return 0;
    }
    try {
        return control->OnMessage(message, wParam, lParam);
    } catch (...) {
        // A window has no way to report a failure; the message counts as not handled.
        static_cast<void>(FailureOfCurrentException());
        return 0;
    }
}

LRESULT CVeyOleControl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            messagefilter::Add(*this);
            return 0;
        case WM_DESTROY:
            messagefilter::Remove(*this);
            return 0;
        case WM_NCDESTROY: {
            const HWND window = std::exchange(m_window, nullptr);
            ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            return ::DefWindowProcW(window, message, wParam, lParam);
        }
        case WM_PAINT:
            Paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            OnFocus(message == WM_SETFOCUS);
            return 0;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYUP: {
            const bool isDown = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
            if (!FireKey(isDown ? DISPID_KEYDOWN : DISPID_KEYUP, wParam)) {
                return 0;
            }
            break;
        }
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
        case WM_LBUTTONDBLCLK:
            return OnButton(message, wParam, lParam);
        default:
            break;
    }
    return m_window == nullptr ? 0 : ::DefWindowProcW(m_window, message, wParam, lParam);
}

void CVeyOleControl::Paint() {
    const PaintDc paint(m_window);
    if (paint.Get() != nullptr) {
        RECT client{};
        ::GetClientRect(m_window, &client);
        OnDraw(paint.Get(), client, paint.Area());
    }
}

void CVeyOleControl::OnFocus(bool has) {
    if (has) {
        UIActivate();
    }
    ComPtr<IOleControlSite> site;
    if (m_site != nullptr && SUCCEEDED(m_site.As(&site))) {
        site->OnFocus(has ? TRUE : FALSE);
    }
}

// False when the host has taken the key away by making it 0.
bool CVeyOleControl::FireKey(DISPID id, WPARAM& key) {
    auto code = static_cast<std::int16_t>(key);
    FireEvent(id, &code, ShiftState());
    key = static_cast<std::uint16_t>(code);
    return code != 0;
}

void CVeyOleControl::FireMouse(DISPID id, WORD button, LPARAM position) {
    FireEvent(id, static_cast<std::int16_t>(button), ShiftState(),
              static_cast<std::int32_t>(static_cast<short>(LOWORD(position))),
              static_cast<std::int32_t>(static_cast<short>(HIWORD(position))));
}

LRESULT CVeyOleControl::OnButton(UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr WORD Left = 1;
    constexpr WORD Right = 2;
    constexpr WORD Middle = 4;
    switch (message) {
        case WM_LBUTTONDOWN:
            UIActivate();
            m_leftDown = true;
            FireMouse(DISPID_MOUSEDOWN, Left, lParam);
            return 0;
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
            FireMouse(DISPID_MOUSEDOWN, message == WM_RBUTTONDOWN ? Right : Middle, lParam);
            return 0;
        case WM_LBUTTONUP:
            FireMouse(DISPID_MOUSEUP, Left, lParam);
            if (std::exchange(m_leftDown, false)) {
                FireEvent(DISPID_CLICK);
            }
            return 0;
        case WM_LBUTTONDBLCLK:
            FireEvent(DISPID_DBLCLICK);
            return 0;
        default:
            FireMouse(DISPID_MOUSEUP, message == WM_RBUTTONUP ? Right : Middle, lParam);
            // The rest opens the context menu.
            return m_window == nullptr ? 0 : ::DefWindowProcW(m_window, message, wParam, lParam);
    }
}

}  // namespace veygrid
