// Texts that are measured to find their place in a box.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Surface.h"

namespace veygrid {

// Pixels by which the box is higher than the text; 0 or below when the text fills it. The text is
// measured with its line breaks but never with word break, so that a wrapped text counts as it was
// typed.
inline std::int32_t RoomAbove(Surface& surface, std::string_view text, const Rect& box) {
    Rect measured = box;
    surface.DrawText(text, measured, DtCalcRect);
    return WrapSub(box.Height(), measured.Height());
}

inline void MoveToMiddle(Surface& surface, std::string_view text, Rect& box) {
    const std::int32_t room = RoomAbove(surface, text, box);
    if (room > 0) {
        box.top = WrapAdd(box.top, room / 2);
    }
}

inline void MoveToBottom(Surface& surface, std::string_view text, Rect& box) {
    const std::int32_t room = RoomAbove(surface, text, box);
    if (room > 0) {
        box.top = WrapAdd(box.top, room);
    }
}

}  // namespace veygrid
