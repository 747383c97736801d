// Moves the view over the sheet: scroll bars, their messages, and making a cell visible.
#include "screen/Scrolling.h"

#include <algorithm>
#include <cmath>

#include "screen/LineWalk.h"

namespace veygrid {

namespace {

ScrollBar BarOf(Axis axis) {
    return axis == Axis::Rows ? ScrollBar::Vert : ScrollBar::Horz;
}

// Without a fraction; 0 for what is no number.
std::int32_t Truncated(double value) {
    constexpr double Most = 2147483647.0;
    return std::isnan(value) ? 0 : static_cast<std::int32_t>(std::clamp(value, -Most, Most));
}

// Position on a scale of another length.
std::int32_t Scaled(std::int32_t to, std::int32_t from, std::int32_t position) {
    return Truncated(static_cast<double>(to) / from * position);
}

}  // namespace

std::int32_t& Scrolling::FirstVisible(Axis axis) const {
    return axis == Axis::Rows ? m_layout.FirstVisibleRow : m_layout.FirstVisibleCol;
}

bool Scrolling::MayScroll() {
    m_host.SetFocus();
    return !m_host.InEdit();
}

bool Scrolling::OnHScroll(ScrollRequest request, std::int32_t thumb) {
    if (!MayScroll()) {
        return false;
    }
    if (m_store.Properties.GuiMode) {
        ScrollForm(ScrollBar::Horz, request, thumb);
    } else {
        ScrollSheet(Axis::Cols, request, thumb);
    }
    return true;
}

bool Scrolling::OnVScroll(ScrollRequest request, std::int32_t thumb) {
    if (!MayScroll()) {
        return false;
    }
    if (m_store.Properties.GuiMode) {
        ScrollForm(ScrollBar::Vert, request, thumb);
    } else {
        ScrollSheet(Axis::Rows, request, thumb);
    }
    return true;
}

void Scrolling::ScrollSheet(Axis axis, ScrollRequest request, std::int32_t thumb) {
    std::int32_t& first = FirstVisible(axis);
    const std::int32_t before = first;
    first = LineFor(axis, request, thumb);
    PlaceThumb(axis);
    if (axis == Axis::Rows) {
        FetchAtEnd();
    }
    if (first != before) {
        m_host.InvalidateControl();
    }
}

// The line that a request brings to the edge of the view.
std::int32_t Scrolling::LineFor(Axis axis, ScrollRequest request, std::int32_t thumb) const {
    const std::int32_t first = FirstVisible(axis);
    const std::int32_t max = MaxLine(m_store, axis);
    const auto pageSize = [this, axis] {
        return LinesOf(m_layout.VisibleRange(true), axis).Count();
    };
    switch (request) {
        case ScrollRequest::LineUp:
            return first >= 2 ? first - 1 : first;
        case ScrollRequest::LineDown:
            return first < max ? first + 1 : first;
        case ScrollRequest::PageUp:
            return static_cast<std::int32_t>(std::max<std::int64_t>(first - pageSize(), 1));
        case ScrollRequest::PageDown:
            return static_cast<std::int32_t>(std::min<std::int64_t>(first + pageSize(), max));
        case ScrollRequest::ThumbPosition:
        case ScrollRequest::ThumbTrack: {
            const std::int32_t end = m_bars.GetScrollRange(BarOf(axis)).max;
            return thumb == 1 ? 1 : thumb == end ? max : std::max(Scaled(max, end, thumb), 1);
        }
        case ScrollRequest::Top:
            return 1;
        case ScrollRequest::Bottom:
            return max;
        default:
            return first;
    }
}

// Only the horizontal thumb goes to 0 at the first line; that is on purpose.
void Scrolling::PlaceThumb(Axis axis) {
    const ScrollBar bar = BarOf(axis);
    const std::int32_t first = FirstVisible(axis);
    const std::int32_t position =
        axis == Axis::Cols && first == 1
            ? 0
            : Scaled(m_bars.GetScrollRange(bar).max, MaxLine(m_store, axis), first);
    if (position != m_bars.GetScrollPos(bar)) {
        m_bars.SetScrollPos(bar, position);
    }
}

void Scrolling::FetchAtEnd() {
    if (m_host.HasMoreRecords() && m_layout.VisibleRange(false).Row2 >= m_store.Properties.MaxRow &&
        m_host.AppendNextRecords()) {
        UpdateScrollBars();
    }
}

void Scrolling::ScrollForm(ScrollBar bar, ScrollRequest request, std::int32_t thumb) {
    const std::int32_t max = m_bars.GetScrollRange(bar).max;
    std::int32_t position = m_bars.GetScrollPos(bar);
    switch (request) {
        case ScrollRequest::LineUp:
        case ScrollRequest::PageUp:
            position = position >= 1 ? position - FormStep : position;
            break;
        case ScrollRequest::LineDown:
        case ScrollRequest::PageDown:
            position = position < max ? WrapAdd(position, FormStep) : position;
            break;
        case ScrollRequest::ThumbPosition:
        case ScrollRequest::ThumbTrack:
            position = thumb;
            break;
        default:
            break;
    }
    m_bars.SetScrollPos(bar, std::max(std::min(position, max), 0));
    m_host.MoveFormWindows(WrapSub(0, m_bars.GetScrollPos(ScrollBar::Horz)),
                           WrapSub(0, m_bars.GetScrollPos(ScrollBar::Vert)));
}

void Scrolling::UpdateScrollBars() {
    m_bars.ShowScrollBar(ScrollBar::Both, false);
    if (m_store.Properties.GuiMode) {
        UpdateFormBars();
    } else {
        UpdateSheetBars();
    }
}

void Scrolling::UpdateSheetBars() {
    const GridProperties& properties = m_store.Properties;
    m_bars.SetScrollRange(ScrollBar::Vert, {1, std::min(properties.MaxRow, MaxScrollRange)});
    m_bars.SetScrollRange(ScrollBar::Horz, {1, std::min(properties.MaxCol, MaxScrollRange)});
    const CellRange range = m_layout.VisibleRange(true);
    if (properties.ShowHScrollBar && (range.Col1 != 1 || range.Col2 < properties.MaxCol)) {
        m_bars.ShowScrollBar(ScrollBar::Horz, true);
    }
    if (properties.ShowVScrollBar && !(range.Row1 == 1 && range.Row2 >= properties.MaxRow)) {
        m_bars.ShowScrollBar(ScrollBar::Vert, true);
    }
}

void Scrolling::UpdateFormBars() {
    const GridProperties& properties = m_store.Properties;
    const Rect forms = m_host.VisibleFormWindows();
    const Rect client = m_bars.GetClientRect();
    if (properties.ShowHScrollBar && (forms.left < 0 || forms.right > client.right)) {
        m_bars.SetScrollRange(ScrollBar::Horz, {1, forms.Width()});
        m_bars.ShowScrollBar(ScrollBar::Horz, true);
    }
    // The height too goes to the horizontal bar, on purpose: the vertical bar's range is never set
    // in this mode.
    if (properties.ShowVScrollBar && (forms.top < 0 || forms.bottom > client.bottom)) {
        m_bars.SetScrollRange(ScrollBar::Horz, {1, forms.Height()});
        m_bars.ShowScrollBar(ScrollBar::Vert, true);
    }
}

void Scrolling::MakeCellVisible(std::int32_t row, std::int32_t col) {
    bool changed = false;
    if ((row > m_layout.m_nLastDrawnRow || row < m_layout.FirstVisibleRow) &&
        row <= m_store.Properties.MaxRow) {
        m_layout.FirstVisibleRow = row;
        changed = true;
    }
    const bool colOnView = col >= m_layout.FirstVisibleCol && col <= m_layout.m_nLastDrawnCol;
    if (!colOnView && col <= m_store.Properties.MaxCol) {
        m_layout.FirstVisibleCol = col;
        changed = true;
    }
    if (changed) {
        m_host.InvalidateControl();
    }
}

bool Scrolling::PointToRC(Point point, std::int32_t& row, std::int32_t& col) const {
    if (!m_bars.GetClientRect().PtInRect(point)) {
        return false;
    }
    const CellPos cell = m_layout.PosToCell(point);
    row = cell.Row;
    col = cell.Col;
    return true;
}

}  // namespace veygrid
