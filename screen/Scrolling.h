// Moves the view over the sheet: scroll bars, their messages, and making a cell visible.
#pragma once

#include <cstdint>

#include "grid/GridStore.h"
#include "platform/ScrollBars.h"
#include "screen/Layout.h"

namespace veygrid {

// What scrolling asks of the control.
class ScrollingHost {
  public:
    virtual ~ScrollingHost() = default;

    // Gives the control the focus, which commits an open cell edit.
    virtual void SetFocus() = 0;
    // Whether a cell edit is open still.
    virtual bool InEdit() const = 0;
    virtual void InvalidateControl() = 0;

    // Whether a bound query has records left to fetch.
    virtual bool HasMoreRecords() const = 0;
    // Fetches the next batch and writes it behind the last row, with which `MaxRow` grows; false
    // when there was none.
    virtual bool AppendNextRecords() = 0;

    // Union of the rectangles of all visible form windows, in client pixels as they stand.
    virtual Rect VisibleFormWindows() const = 0;
    // Moves each visible form window to its stored rectangle offset by this much, and repaints it.
    virtual void MoveFormWindows(std::int32_t dx, std::int32_t dy) = 0;
};

class Scrolling {
  public:
    // The bars' ranges end here, however long the sheet is; a thumb position is a share of it then.
    static constexpr std::int32_t MaxScrollRange = 32767;
    // Pixels of one step in GUI mode, for lines and pages alike.
    static constexpr std::int32_t FormStep = 22;

    // All must outlive it.
    Scrolling(GridStore& store, Layout& layout, ScrollBars& bars, ScrollingHost& host)
        : m_store(store), m_layout(layout), m_bars(bars), m_host(host) {}

    // Handlers of the scroll messages; `thumb` is the position that the message carries. Nothing
    // scrolls while a refused edit stays open. False when the base class's handler must not run.
    bool OnHScroll(ScrollRequest request, std::int32_t thumb);
    bool OnVScroll(ScrollRequest request, std::int32_t thumb);
    // Decides which bars are shown, and sets their ranges.
    void UpdateScrollBars();

    // The cell goes to the top left corner of the view unless it is drawn already. The thumbs
    // follow with the next scroll message. Rows and columns below 1 are taken as they are.
    void MakeCellVisible(std::int32_t row, std::int32_t col);
    // Row and column, 0 for none, of a point in client pixels. False, with both left alone, outside
    // the window.
    bool PointToRC(Point point, std::int32_t& row, std::int32_t& col) const;

  private:
    bool MayScroll();
    void ScrollSheet(Axis axis, ScrollRequest request, std::int32_t thumb);
    std::int32_t LineFor(Axis axis, ScrollRequest request, std::int32_t thumb) const;
    void PlaceThumb(Axis axis);
    void FetchAtEnd();
    void ScrollForm(ScrollBar bar, ScrollRequest request, std::int32_t thumb);
    void UpdateSheetBars();
    void UpdateFormBars();
    std::int32_t& FirstVisible(Axis axis) const;

    GridStore& m_store;
    Layout& m_layout;
    ScrollBars& m_bars;
    ScrollingHost& m_host;
};

}  // namespace veygrid
