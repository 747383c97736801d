// The control's own window, as the mouse, the keyboard and the editor use it.
#include "platform/win32/Win32ControlWindow.h"

#include "platform/win32/GdiSurface.h"

namespace veygrid {

namespace {

RECT ToRECT(const Rect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

Rect FromRECT(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// The client area of a window; a context in memory, which nobody sees, where there is none.
class ClientDc {
  public:
    explicit ClientDc(HWND window)
        : m_window(window),
          m_dc(window == nullptr ? ::CreateCompatibleDC(nullptr) : ::GetDC(window)) {}
    ClientDc(const ClientDc&) = delete;
    ClientDc& operator=(const ClientDc&) = delete;
    ~ClientDc() {
        if (m_window == nullptr) {
            ::DeleteDC(m_dc);
        } else {
            ::ReleaseDC(m_window, m_dc);
        }
    }

    HDC Get() const { return m_dc; }

  private:
    HWND m_window;
    HDC m_dc;
};

// The context is a base, so that it goes behind the surface that draws on it.
class ClientSurface final : private ClientDc, public GdiSurface {
  public:
    ClientSurface(HWND window, GdiFonts& fonts)
        : ClientDc(window), GdiSurface(ClientDc::Get(), nullptr, fonts) {}
};

}  // namespace

void Win32ControlWindow::SetFocus() {
    if (m_window != nullptr) {
        ::SetFocus(m_window);
    }
}

Rect Win32ControlWindow::GetClientRect() {
    RECT client{};
    if (m_window != nullptr) {
        ::GetClientRect(m_window, &client);
    }
    return FromRECT(client);
}

Rect Win32ControlWindow::ClientToScreen(const Rect& rect) {
    POINT origin{};
    if (m_window != nullptr) {
        ::ClientToScreen(m_window, &origin);
    }
    return rect.Offset(origin.x, origin.y);
}

void Win32ControlWindow::InvalidateRect(const Rect& rect) {
    if (m_window != nullptr) {
        const RECT area = ToRECT(rect);
        ::InvalidateRect(m_window, &area, TRUE);
    }
}

std::unique_ptr<Surface> Win32ControlWindow::GetDC() {
    return std::make_unique<ClientSurface>(m_window, m_fonts);
}

void Win32ControlWindow::SendScroll(ScrollBar bar, ScrollRequest request) {
    if (m_window != nullptr) {
        ::SendMessageW(m_window, bar == ScrollBar::Horz ? WM_HSCROLL : WM_VSCROLL,
                       static_cast<WPARAM>(request), 0);
    }
}

void Win32ControlWindow::PostCtrlKeyDown(std::uint32_t key, std::int32_t keyData) {
    if (m_window != nullptr) {
        ::PostMessageW(m_window, m_ctrlKeyDown, key, keyData);
    }
}

std::int16_t Win32ControlWindow::GetKeyState(std::int32_t virtualKey) {
    return ::GetKeyState(virtualKey);
}

std::uint32_t Win32ControlWindow::GetTickCount() {
    return ::GetTickCount();
}

void Win32ControlWindow::SetCursor(CursorId cursor) {
    ::SetCursor(m_cursors.Find(cursor));
}

void Win32ControlWindow::ClipCursor(const Rect* rect) {
    const RECT area = rect == nullptr ? RECT{} : ToRECT(*rect);
    ::ClipCursor(rect == nullptr ? nullptr : &area);
}

void Win32ControlWindow::MessageBeep() {
    ::MessageBeep(MB_OK);
}

}  // namespace veygrid
