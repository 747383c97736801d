// The control's own window, as the mouse, the keyboard and the editor use it.
#pragma once

#include <windows.h>

#include <memory>

#include "platform/ControlWindow.h"
#include "platform/win32/GdiFonts.h"
#include "platform/win32/Win32Cursor.h"

namespace veygrid {

// Without a window every operation does nothing, and what is drawn is seen nowhere.
class Win32ControlWindow final : public ControlWindow {
  public:
    // `module` holds the cursors of the control; `ctrlKeyDown` is the number of the message
    // VeynorGrid_CtrlKeyDown.
    Win32ControlWindow(HINSTANCE module, UINT ctrlKeyDown)
        : m_cursors(module), m_ctrlKeyDown(ctrlKeyDown) {}

    // Null when the window goes.
    void Attach(HWND window) { m_window = window; }

    void SetFocus() override;
    Rect GetClientRect() override;
    Rect ClientToScreen(const Rect& rect) override;
    void InvalidateRect(const Rect& rect) override;
    std::unique_ptr<Surface> GetDC() override;
    void SendScroll(ScrollBar bar, ScrollRequest request) override;
    void PostCtrlKeyDown(std::uint32_t key, std::int32_t keyData) override;
    std::int16_t GetKeyState(std::int32_t virtualKey) override;
    std::uint32_t GetTickCount() override;
    void SetCursor(CursorId cursor) override;
    void ClipCursor(const Rect* rect) override;
    void MessageBeep() override;

  private:
    HWND m_window = nullptr;
    Win32Cursors m_cursors;
    UINT m_ctrlKeyDown;
    GdiFonts m_fonts;
};

}  // namespace veygrid
