// Points, rectangles and colours as the platform has them.
#pragma once

#include <algorithm>
#include <cstdint>

#include "grid/CellPos.h"

namespace veygrid {

// 0x00BBGGRR.
using Color = std::uint32_t;

inline constexpr Color Black = 0;
inline constexpr Color White = 0xFFFFFF;

struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend constexpr bool operator==(const Point&, const Point&) = default;
};

// Pixels; right and bottom lie outside. Hosts hand in any size, so the arithmetic wraps.
struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    friend constexpr bool operator==(const Rect&, const Rect&) = default;

    constexpr std::int32_t Width() const { return WrapSub(right, left); }
    constexpr std::int32_t Height() const { return WrapSub(bottom, top); }
    // True also for a reversed rectangle.
    constexpr bool IsRectEmpty() const { return right <= left || bottom <= top; }
    constexpr bool IsRectNull() const { return *this == Rect{}; }
    constexpr bool PtInRect(Point point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    // Grown by dx and dy on every side; negative values shrink it.
    constexpr Rect Inflated(std::int32_t dx, std::int32_t dy) const {
        return {WrapSub(left, dx), WrapSub(top, dy), WrapAdd(right, dx), WrapAdd(bottom, dy)};
    }
    constexpr Rect Offset(std::int32_t dx, std::int32_t dy) const {
        return {WrapAdd(left, dx), WrapAdd(top, dy), WrapAdd(right, dx), WrapAdd(bottom, dy)};
    }
};

// An empty rectangle takes no part, and the union of two is all zero.
constexpr Rect UnionRect(const Rect& a, const Rect& b) {
    if (a.IsRectEmpty()) {
        return b.IsRectEmpty() ? Rect{} : b;
    }
    if (b.IsRectEmpty()) {
        return a;
    }
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

// All zero when the two share no pixel.
constexpr Rect IntersectRect(const Rect& a, const Rect& b) {
    const Rect shared{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                      std::min(a.bottom, b.bottom)};
    return shared.IsRectEmpty() ? Rect{} : shared;
}

}  // namespace veygrid
