// The scroll bars of the control's window, as the scrolling logic moves them.
#pragma once

#include <cstdint>

#include "platform/Geometry.h"

namespace veygrid {

enum class ScrollBar : std::int32_t { Horz = 0, Vert = 1, Both = 3 };

// Requests of the two scroll messages; left and right for the horizontal bar.
enum class ScrollRequest : std::int32_t {
    LineUp = 0,
    LineDown = 1,
    PageUp = 2,
    PageDown = 3,
    ThumbPosition = 4,
    ThumbTrack = 5,
    Top = 6,
    Bottom = 7,
    EndScroll = 8,
};

struct ScrollRange {
    std::int32_t min = 0;
    std::int32_t max = 0;

    friend constexpr bool operator==(const ScrollRange&, const ScrollRange&) = default;
};

// The operations bear the platform's names and do what the platform's do. Without a window they do
// nothing and answer zeroes.
class ScrollBars {
  public:
    virtual ~ScrollBars() = default;

    virtual ScrollRange GetScrollRange(ScrollBar bar) const = 0;
    virtual void SetScrollRange(ScrollBar bar, ScrollRange range) = 0;
    virtual std::int32_t GetScrollPos(ScrollBar bar) const = 0;
    virtual void SetScrollPos(ScrollBar bar, std::int32_t position) = 0;
    virtual void ShowScrollBar(ScrollBar bar, bool show) = 0;
    virtual Rect GetClientRect() const = 0;
};

}  // namespace veygrid
