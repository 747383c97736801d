// The control's window as benchmarks use it: 1600 by 1000 pixels, wholly on the screen.
#pragma once

#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "bench/Ratio.h"
#include "control/ClassIds.h"
#include "tests/control/Container.h"

namespace veygrid::bench {

inline constexpr int Width = 1600;
inline constexpr int Height = 1000;

// Until everything drawn is on the screen.
inline void Flush() {
    ::GdiFlush();
}

// What is hidden costs nothing to paint.
inline void RequireWholeOnScreen(HWND window) {
    RECT client{};
    RECT seen{};
    ::GetClientRect(window, &client);
    const HDC target = ::GetDC(window);
    const int kind = ::GetClipBox(target, &seen);
    ::ReleaseDC(window, target);
    if (kind != SIMPLEREGION || !::EqualRect(&seen, &client)) {
        std::printf(
            "the screen is too small for two windows of 1600 by 1000, one below the other\n");
        std::exit(1);
    }
}

inline void FullRepaint(HWND window) {
    ::InvalidateRect(window, nullptr, TRUE);
    ::UpdateWindow(window);
    Flush();
}

// Seconds of one of them.
inline double Repaints(HWND window, int count) {
    return Seconds([&] {
               for (int i = 0; i < count; ++i) {
                   FullRepaint(window);
               }
           }) /
           count;
}

// Until the queue of the thread is empty.
inline void Pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

// The control in the upper left of the screen.
class SheetWindow {
  public:
    SheetWindow(int rows, int cols) {
        ::SetWindowPos(m_container.Window(), nullptr, 0, 0, Width, Height,
                       SWP_NOZORDER | SWP_NOACTIVATE);
        m_grid.Put(L"MaxRow", {rows});
        m_grid.Put(L"MaxCol", {cols});
        m_container.Show(m_control);
        m_window = Container::WindowOf(m_control);
        ::SetWindowPos(m_window, nullptr, 0, 0, Width, Height, SWP_NOZORDER | SWP_NOACTIVATE);
        ::UpdateWindow(m_window);
        RequireWholeOnScreen(m_window);
    }

    const Late& Grid() const { return m_grid; }
    HWND Window() const { return m_window; }

  private:
    Container m_container;
    ComPtr<IUnknown> m_control = Ocx::Make(VeyGridClassId);
    Late m_grid{m_control};
    HWND m_window = nullptr;
};

// A tool window of that size below the control's, for a peer to stand in.
inline HWND MakePeerWindow() {
    return ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"peer", WS_POPUP | WS_VISIBLE, 0, Height,
                             Width, Height, nullptr, nullptr, nullptr, nullptr);
}

}  // namespace veygrid::bench
