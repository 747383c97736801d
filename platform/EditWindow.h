// The edit window that is laid over a cell.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Geometry.h"

// The system's headers make these names macros.
#undef GetWindowText
#undef SetWindowText

namespace veygrid {

// The operations bear the platform's names and do what the platform's do. All but Create and
// HasWindow need a window. Texts are in code page 936.
class EditWindow {
  public:
    virtual ~EditWindow() = default;

    // Makes the window, a child of the control, in client pixels of the control. False when the
    // platform makes none.
    virtual bool Create(std::uint32_t style, const Rect& rect, std::int32_t childId) = 0;
    // False again as soon as the window is gone, whoever destroyed it.
    virtual bool HasWindow() const = 0;
    virtual void SetFocus() = 0;

    // Clears the answer of GetModify.
    virtual void SetWindowText(std::string_view text) = 0;
    // Nothing when the text holds a character that code page 936 lacks.
    virtual std::optional<std::string> GetWindowText() const = 0;
    // Makes text of a composition that an input method has open here.
    virtual void FinishComposition() = 0;
    // Whether the user changed the text since it was set.
    virtual bool GetModify() const = 0;

    // The answer of EM_CHARFROMPOS as it stands, for a point in client pixels of the control.
    virtual std::int32_t CharFromPos(Point point) const = 0;
    virtual void SetSel(std::int32_t start, std::int32_t end) = 0;
    virtual void ScrollCaret() = 0;

    // Sends WM_CLOSE, which destroys the window.
    virtual void Close() = 0;
};

}  // namespace veygrid
