// What of the window's picture can be moved when the sheet scrolls, in place of painting it anew.
#include "screen/ScrolledPixels.h"

#include <algorithm>
#include <limits>

#include "screen/LineWalk.h"

namespace veygrid {

namespace {

// Pixels by which frames and marks reach over the edges of their cells, and a few more.
constexpr std::int32_t MarkReach = 4;

constexpr std::int64_t NoEdge = std::numeric_limits<std::int64_t>::max();

// One direction: lines that move from `begin` to `end` of the window.
struct Direction {
    Axis axis;
    std::int32_t begin;
    std::int32_t end;
};

// Pixels by which the lines move; 0 when they move out of the window.
std::int32_t Movement(const GridStore& store, const Direction& direction, std::int32_t shown,
                      std::int32_t first) {
    const std::int64_t room = std::int64_t{direction.end} - direction.begin;
    const WalkEnd between =
        WalkLines(store, direction.axis, std::min(shown, first), std::max(shown, first), 0, NoEdge);
    if (between.end <= 0 || between.end >= room) {
        return 0;
    }
    const auto pixels = static_cast<std::int32_t>(between.end);
    return first > shown ? -pixels : pixels;
}

// The frame goes around the two corners of the range that are on view. When the far one comes into
// view or leaves it, the frame changes all over.
bool FrameMoves(const Layout& layout, Axis axis, const Selection& selection, const Layout& before) {
    if (selection.SelectionList.size() > 1) {
        return true;
    }
    const CellRange range = selection.SelectionList.empty() ? selection.ActiveCellRange()
                                                            : selection.SelectionList.front();
    const std::int32_t last = LinesOf(range, axis).last;
    const auto isOnView = [axis, last](const Layout& view) {
        const Rect rect = axis == Axis::Rows ? view.CellRect(last, view.FirstVisibleCol)
                                             : view.CellRect(view.FirstVisibleRow, last);
        return !rect.IsRectNull() && (axis == Axis::Rows ? rect.top : rect.left) != OffView;
    };
    return last <= 0 || isOnView(layout) == isOnView(before);
}

// The band of the window between two positions of the direction.
Rect Band(const Layout& layout, Axis axis, std::int32_t begin, std::int32_t end) {
    const Rect& client = layout.m_rcClient;
    return axis == Axis::Rows ? Rect{0, begin, client.right, end}
                              : Rect{begin, 0, end, client.bottom};
}

}  // namespace

std::optional<ScrolledPixels> PixelsToMove(const GridStore& store, const Selection& selection,
                                           const Layout& layout, CellPos shown) {
    const bool movesRows = shown.Row != layout.FirstVisibleRow;
    if (movesRows == (shown.Col != layout.FirstVisibleCol)) {
        return std::nullopt;
    }
    const Direction direction =
        movesRows ? Direction{Axis::Rows, layout.OriginY(), layout.m_rcClient.bottom}
                  : Direction{Axis::Cols, layout.OriginX(), layout.m_rcClient.right};
    const std::int32_t first = movesRows ? layout.FirstVisibleRow : layout.FirstVisibleCol;
    const std::int32_t from = movesRows ? shown.Row : shown.Col;
    Layout before = layout;
    before.FirstVisibleRow = shown.Row;
    before.FirstVisibleCol = shown.Col;
    const std::int32_t movement = Movement(store, direction, from, first);
    if (movement == 0 || !FrameMoves(layout, direction.axis, selection, before)) {
        return std::nullopt;
    }
    // Frames of ranges that begin before the view, or lie there, stick to the first line.
    const auto bandOfFirst = [&](std::int32_t line, std::int32_t begin) {
        const std::int32_t size = std::clamp(SizeOf(store, direction.axis, line), 0, OffView);
        return Band(layout, direction.axis, begin - MarkReach, begin + size + MarkReach);
    };
    const std::int32_t exposedEnd =
        movement > 0 ? direction.begin + movement : direction.end + movement;
    ScrolledPixels pixels;
    pixels.area = Band(layout, direction.axis, direction.begin, direction.end);
    pixels.dx = movesRows ? 0 : movement;
    pixels.dy = movesRows ? movement : 0;
    pixels.stale = {
        bandOfFirst(first, direction.begin), bandOfFirst(from, direction.begin + movement),
        movement > 0 ? Band(layout, direction.axis, direction.begin, exposedEnd + MarkReach)
                     : Band(layout, direction.axis, exposedEnd - MarkReach, direction.end)};
    return pixels;
}

}  // namespace veygrid
