// The control's own window, as the mouse, the keyboard and the editor use it.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Geometry.h"
#include "platform/ScrollBars.h"
#include "platform/Surface.h"

namespace veygrid {

// Cursors of the system, and those of the control by the number of their resource.
enum class CursorId : std::int32_t {
    ColHeader = 1026,
    RowHeader = 1027,
    Corner = 1028,
    Move = 30987,
    Arrow = 32512,   // IDC_ARROW
    SizeWE = 32644,  // IDC_SIZEWE
    SizeNS = 32645,  // IDC_SIZENS
};

// The operations bear the platform's names and do what the platform's do. Points and rectangles are
// client pixels unless said.
class ControlWindow {
  public:
    virtual ~ControlWindow() = default;

    // Takes the focus; an open editor that loses it commits before this returns.
    virtual void SetFocus() = 0;
    virtual Rect GetClientRect() = 0;
    virtual Rect ClientToScreen(const Rect& rect) = 0;
    virtual void InvalidateRect(const Rect& rect) = 0;
    // The client area, to draw on outside a paint; never null.
    virtual std::unique_ptr<Surface> GetDC() = 0;

    // Sends WM_HSCROLL or WM_VSCROLL to the window itself.
    virtual void SendScroll(ScrollBar bar, ScrollRequest request) = 0;
    // Posts VeynorGrid_CtrlKeyDown to the window itself.
    virtual void PostCtrlKeyDown(std::uint32_t key, std::int32_t keyData) = 0;

    // Negative while the key was down when the message at work was made.
    virtual std::int16_t GetKeyState(std::int32_t virtualKey) = 0;
    // Milliseconds; starts over after 2^32 of them.
    virtual std::uint32_t GetTickCount() = 0;
    virtual void SetCursor(CursorId cursor) = 0;
    // Screen pixels; null lets the cursor go.
    virtual void ClipCursor(const Rect* rect) = 0;
    virtual void MessageBeep() = 0;
};

}  // namespace veygrid
