// The scroll messages, the bars, and making a cell visible.
#include "screen/Scrolling.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "SheetLayout.h"

namespace veygrid {
namespace {

using Lines = std::vector<std::string>;

std::string Text(ScrollBar bar) {
    return bar == ScrollBar::Horz ? "horz" : bar == ScrollBar::Vert ? "vert" : "both";
}

// Bars as the system keeps them; each change is a line.
class RecordedBars final : public ScrollBars {
  public:
    explicit RecordedBars(Lines& lines) : m_lines(lines) {}

    ScrollRange GetScrollRange(ScrollBar bar) const override { return StateOf(bar).range; }
    void SetScrollRange(ScrollBar bar, ScrollRange range) override {
        StateOf(bar).range = range;
        m_lines.push_back("range " + Text(bar) + " " + std::to_string(range.min) + ".." +
                          std::to_string(range.max));
    }
    std::int32_t GetScrollPos(ScrollBar bar) const override { return StateOf(bar).position; }
    void SetScrollPos(ScrollBar bar, std::int32_t position) override {
        StateOf(bar).position = position;
        m_lines.push_back("pos " + Text(bar) + " " + std::to_string(position));
    }
    void ShowScrollBar(ScrollBar bar, bool show) override {
        m_lines.push_back((show ? "show " : "hide ") + Text(bar));
    }
    Rect GetClientRect() const override { return client; }

    Rect client{0, 0, 400, 300};

  private:
    struct State {
        ScrollRange range;
        std::int32_t position = 0;
    };
    State& StateOf(ScrollBar bar) { return bar == ScrollBar::Horz ? m_horz : m_vert; }
    const State& StateOf(ScrollBar bar) const { return bar == ScrollBar::Horz ? m_horz : m_vert; }

    Lines& m_lines;
    State m_horz;
    State m_vert;
};

class RecordedHost final : public ScrollingHost {
  public:
    RecordedHost(Lines& lines, GridProperties& properties)
        : m_lines(lines), m_properties(properties) {}

    void SetFocus() override { m_lines.emplace_back("SetFocus"); }
    bool InEdit() const override { return inEdit; }
    void InvalidateControl() override { m_lines.emplace_back("InvalidateControl"); }
    bool HasMoreRecords() const override { return moreRecords; }
    bool AppendNextRecords() override {
        m_lines.emplace_back("AppendNextRecords");
        m_properties.MaxRow += nextRecords;
        return nextRecords > 0;
    }
    Rect VisibleFormWindows() const override { return forms; }
    void MoveFormWindows(std::int32_t dx, std::int32_t dy) override {
        m_lines.push_back("MoveFormWindows " + std::to_string(dx) + "," + std::to_string(dy));
    }

    bool inEdit = false;
    bool moreRecords = false;
    std::int32_t nextRecords = 0;
    Rect forms;

  private:
    Lines& m_lines;
    GridProperties& m_properties;
};

class ScrollingTest : public SheetLayoutTest {
  protected:
    ScrollingTest() {
        layout.m_nLastDrawnRow = 16;
        layout.m_nLastDrawnCol = 6;
        scrolling.UpdateScrollBars();
        m_lines.clear();
    }

    template <class Action>
    Lines CallsOf(Action action) {
        m_lines.clear();
        action();
        return std::exchange(m_lines, {});
    }
    Lines H(ScrollRequest request, std::int32_t thumb = 0) {
        return CallsOf([=, this] { EXPECT_TRUE(scrolling.OnHScroll(request, thumb)); });
    }
    Lines V(ScrollRequest request, std::int32_t thumb = 0) {
        return CallsOf([=, this] { EXPECT_TRUE(scrolling.OnVScroll(request, thumb)); });
    }
    std::int32_t RowAfter(ScrollRequest request, std::int32_t thumb = 0) {
        V(request, thumb);
        return layout.FirstVisibleRow;
    }
    std::int32_t ColAfter(ScrollRequest request, std::int32_t thumb = 0) {
        H(request, thumb);
        return layout.FirstVisibleCol;
    }

  private:
    Lines m_lines;

  protected:
    RecordedBars bars{m_lines};
    RecordedHost host{m_lines, properties};
    Scrolling scrolling{store, layout, bars, host};
};

using enum ScrollRequest;

// --- The ends of the ranges

TEST_F(ScrollingTest, With40000RowsTheRangeIsCappedAndTheThumbsEndsAreTheFirstAndTheLastRow) {
    properties.MaxRow = 40'000;
    scrolling.UpdateScrollBars();
    EXPECT_EQ(bars.GetScrollRange(ScrollBar::Vert), (ScrollRange{1, 32767}));
    EXPECT_EQ(RowAfter(ThumbTrack, 32767), 40'000);
    EXPECT_EQ(RowAfter(ThumbTrack, 1), 1);
    // In between the thumb is a share: 40000 / 32767 * 20000.
    EXPECT_EQ(RowAfter(ThumbPosition, 20'000), 24'414);
    EXPECT_EQ(bars.GetScrollPos(ScrollBar::Vert), 19'999);
}

TEST_F(ScrollingTest, PageDownAtTheLastColumnAndPageLeftAtTheFirstStay) {
    layout.FirstVisibleCol = 20;
    EXPECT_EQ(ColAfter(PageDown), 20);
    layout.FirstVisibleCol = 1;
    EXPECT_EQ(ColAfter(PageUp), 1);
    layout.FirstVisibleRow = 50;
    EXPECT_EQ(RowAfter(PageDown), 50);
    layout.FirstVisibleRow = 1;
    EXPECT_EQ(RowAfter(PageUp), 1);
}

TEST_F(ScrollingTest, MakeCellVisibleForACellOnViewInvalidatesNothing) {
    EXPECT_EQ(CallsOf([this] { scrolling.MakeCellVisible(16, 6); }), Lines{});
    EXPECT_EQ(CallsOf([this] { scrolling.MakeCellVisible(1, 1); }), Lines{});
    EXPECT_EQ(layout.FirstVisibleRow, 1);
}

// --- Scrolling the sheet

TEST_F(ScrollingTest, ALineMovesByOneAndStaysInsideTheSheet) {
    EXPECT_EQ(ColAfter(LineDown), 2);
    EXPECT_EQ(ColAfter(LineUp), 1);
    EXPECT_EQ(ColAfter(LineUp), 1);
    layout.FirstVisibleCol = 20;
    EXPECT_EQ(ColAfter(LineDown), 20);
    EXPECT_EQ(RowAfter(LineDown), 2);
    EXPECT_EQ(RowAfter(LineUp), 1);
}

TEST_F(ScrollingTest, APageIsTheNumberOfWholeLinesOnView) {
    EXPECT_EQ(RowAfter(PageDown), 16);
    EXPECT_EQ(RowAfter(PageDown), 31);
    EXPECT_EQ(RowAfter(PageUp), 16);
    EXPECT_EQ(ColAfter(PageDown), 6);
    EXPECT_EQ(ColAfter(PageUp), 1);
}

TEST_F(ScrollingTest, WhereNoWholeLineFitsAPageIsOneLine) {
    layout.m_rcClient = {0, 0, 400, 30};
    EXPECT_EQ(RowAfter(PageDown), 2);
    EXPECT_EQ(RowAfter(PageUp), 1);
}

TEST_F(ScrollingTest, TopAndBottomAreTheFirstAndTheLastLine) {
    EXPECT_EQ(RowAfter(Bottom), 50);
    EXPECT_EQ(RowAfter(Top), 1);
    EXPECT_EQ(ColAfter(Bottom), 20);
    EXPECT_EQ(ColAfter(Top), 1);
}

TEST_F(ScrollingTest, BothThumbMessagesGoToTheThumbsRow) {
    EXPECT_EQ(RowAfter(ThumbTrack, 7), 7);
    EXPECT_EQ(RowAfter(ThumbPosition, 9), 9);
    EXPECT_EQ(ColAfter(ThumbTrack, 20), 20);
    EXPECT_EQ(ColAfter(ThumbTrack, 1), 1);
}

TEST_F(ScrollingTest, AThumbBeforeTheRangeIsTheFirstLine) {
    layout.FirstVisibleRow = 9;
    EXPECT_EQ(RowAfter(ThumbTrack, 0), 1);
    EXPECT_EQ(RowAfter(ThumbTrack, -20'000), 1);
}

TEST_F(ScrollingTest, OtherRequestsMoveNothing) {
    EXPECT_EQ(V(EndScroll), (Lines{"SetFocus", "pos vert 1"}));
    EXPECT_EQ(V(EndScroll), (Lines{"SetFocus"}));
    EXPECT_EQ(H(static_cast<ScrollRequest>(99)), (Lines{"SetFocus"}));
}

TEST_F(ScrollingTest, ScrollingPlacesTheThumbThenInvalidates) {
    EXPECT_EQ(H(LineDown), (Lines{"SetFocus", "pos horz 2", "InvalidateControl"}));
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "pos vert 2", "InvalidateControl"}));
}

TEST_F(ScrollingTest, TheHorizontalThumbIs0AtTheFirstColumnTheVerticalOneIsNotAtTheFirstRow) {
    EXPECT_EQ(H(LineDown), (Lines{"SetFocus", "pos horz 2", "InvalidateControl"}));
    EXPECT_EQ(H(LineUp), (Lines{"SetFocus", "pos horz 0", "InvalidateControl"}));
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "pos vert 2", "InvalidateControl"}));
    EXPECT_EQ(V(LineUp), (Lines{"SetFocus", "pos vert 1", "InvalidateControl"}));
}

TEST_F(ScrollingTest, AThumbThatStandsRightIsLeftAlone) {
    properties.MaxRow = 100'000;
    scrolling.UpdateScrollBars();
    V(ThumbTrack, 30'000);
    EXPECT_EQ(layout.FirstVisibleRow, 91'555);
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "pos vert 30000", "InvalidateControl"}));
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "InvalidateControl"}));
}

TEST_F(ScrollingTest, NothingScrollsWhileAnEditStaysOpen) {
    host.inEdit = true;
    EXPECT_EQ(CallsOf([this] { EXPECT_FALSE(scrolling.OnVScroll(LineDown, 0)); }),
              (Lines{"SetFocus"}));
    EXPECT_EQ(CallsOf([this] { EXPECT_FALSE(scrolling.OnHScroll(LineDown, 0)); }),
              (Lines{"SetFocus"}));
    properties.GuiMode = true;
    EXPECT_EQ(CallsOf([this] { EXPECT_FALSE(scrolling.OnHScroll(LineDown, 0)); }),
              (Lines{"SetFocus"}));
    EXPECT_EQ(layout.FirstVisibleRow, 1);
}

TEST_F(ScrollingTest, AtTheEndOfTheSheetTheNextRecordsAreFetchedAndTheBarsFollow) {
    host.moreRecords = true;
    host.nextRecords = 100;
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "pos vert 2", "InvalidateControl"}));
    layout.FirstVisibleRow = 34;
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "pos vert 35", "AppendNextRecords", "hide both",
                                  "range vert 1..150", "range horz 1..20", "show horz", "show vert",
                                  "InvalidateControl"}));
    EXPECT_EQ(properties.MaxRow, 150);
}

TEST_F(ScrollingTest, AFetchThatBringsNothingLeavesTheBarsAlone) {
    host.moreRecords = true;
    layout.FirstVisibleRow = 34;
    EXPECT_EQ(V(LineDown),
              (Lines{"SetFocus", "pos vert 35", "AppendNextRecords", "InvalidateControl"}));
    EXPECT_EQ(properties.MaxRow, 50);
}

TEST_F(ScrollingTest, AtTheEndOfTheSourceNothingIsFetched) {
    layout.FirstVisibleRow = 49;
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "pos vert 50", "InvalidateControl"}));
    EXPECT_EQ(properties.MaxRow, 50);
}

TEST_F(ScrollingTest, ScrollingSidewaysFetchesNothing) {
    host.moreRecords = true;
    layout.FirstVisibleRow = 50;
    EXPECT_EQ(H(LineDown), (Lines{"SetFocus", "pos horz 2", "InvalidateControl"}));
}

TEST_F(ScrollingTest, NoNumberBreaksTheArithmetic) {
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    properties.MaxRow = Most;
    scrolling.UpdateScrollBars();
    EXPECT_EQ(RowAfter(Bottom), Most);
    EXPECT_EQ(RowAfter(LineDown), Most);
    EXPECT_EQ(RowAfter(PageDown), Most);
    EXPECT_EQ(RowAfter(ThumbTrack, Most), Most);
    properties.MaxRow = 0;
    bars.SetScrollRange(ScrollBar::Vert, {0, 0});
    EXPECT_EQ(RowAfter(ThumbTrack, 5), 1);
    EXPECT_EQ(RowAfter(Bottom), 0);
    properties.MaxRow = -5;
    EXPECT_EQ(RowAfter(PageDown), -5);
    layout.FirstVisibleRow = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(RowAfter(PageUp), 1);
}

// --- Scrolling in GUI mode

class FormScrollingTest : public ScrollingTest {
  protected:
    FormScrollingTest() {
        properties.GuiMode = true;
        bars.SetScrollRange(ScrollBar::Horz, {1, 500});
        bars.SetScrollRange(ScrollBar::Vert, {1, 100});
    }
};

TEST_F(FormScrollingTest, LinesAndPagesMoveBy22PixelsAndTheViewStays) {
    EXPECT_EQ(H(LineDown), (Lines{"SetFocus", "pos horz 22", "MoveFormWindows -22,0"}));
    EXPECT_EQ(H(PageDown), (Lines{"SetFocus", "pos horz 44", "MoveFormWindows -44,0"}));
    EXPECT_EQ(V(PageDown), (Lines{"SetFocus", "pos vert 22", "MoveFormWindows -44,-22"}));
    EXPECT_EQ(H(PageUp), (Lines{"SetFocus", "pos horz 22", "MoveFormWindows -22,-22"}));
    EXPECT_EQ(layout.FirstVisibleRow, 1);
    EXPECT_EQ(layout.FirstVisibleCol, 1);
}

TEST_F(FormScrollingTest, ThePositionStaysFrom0ToTheMaximum) {
    EXPECT_EQ(V(LineUp), (Lines{"SetFocus", "pos vert 0", "MoveFormWindows 0,0"}));
    bars.SetScrollPos(ScrollBar::Vert, 5);
    EXPECT_EQ(V(LineUp), (Lines{"SetFocus", "pos vert 0", "MoveFormWindows 0,0"}));
    bars.SetScrollPos(ScrollBar::Vert, 95);
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "pos vert 100", "MoveFormWindows 0,-100"}));
    EXPECT_EQ(V(LineDown), (Lines{"SetFocus", "pos vert 100", "MoveFormWindows 0,-100"}));
}

TEST_F(FormScrollingTest, TheThumbsPositionIsTakenAndClamped) {
    EXPECT_EQ(H(ThumbTrack, 77), (Lines{"SetFocus", "pos horz 77", "MoveFormWindows -77,0"}));
    EXPECT_EQ(H(ThumbPosition, 900), (Lines{"SetFocus", "pos horz 500", "MoveFormWindows -500,0"}));
    EXPECT_EQ(H(ThumbPosition, -3), (Lines{"SetFocus", "pos horz 0", "MoveFormWindows 0,0"}));
}

TEST_F(FormScrollingTest, OtherRequestsKeepThePosition) {
    bars.SetScrollPos(ScrollBar::Horz, 30);
    EXPECT_EQ(H(Top), (Lines{"SetFocus", "pos horz 30", "MoveFormWindows -30,0"}));
    EXPECT_EQ(H(Bottom), (Lines{"SetFocus", "pos horz 30", "MoveFormWindows -30,0"}));
}

// --- UpdateScrollBars

TEST_F(ScrollingTest, BarsShowWhereTheSheetIsLargerThanTheView) {
    EXPECT_EQ(
        CallsOf([this] { scrolling.UpdateScrollBars(); }),
        (Lines{"hide both", "range vert 1..50", "range horz 1..20", "show horz", "show vert"}));
}

TEST_F(ScrollingTest, BarsStayHiddenWhereTheWholeSheetIsOnView) {
    properties.MaxRow = 10;
    properties.MaxCol = 4;
    EXPECT_EQ(CallsOf([this] { scrolling.UpdateScrollBars(); }),
              (Lines{"hide both", "range vert 1..10", "range horz 1..4"}));
    layout.FirstVisibleRow = 2;
    layout.FirstVisibleCol = 2;
    EXPECT_EQ(
        CallsOf([this] { scrolling.UpdateScrollBars(); }),
        (Lines{"hide both", "range vert 1..10", "range horz 1..4", "show horz", "show vert"}));
}

TEST_F(ScrollingTest, BarsThatAreSwitchedOffStayHidden) {
    properties.ShowHScrollBar = false;
    EXPECT_EQ(CallsOf([this] { scrolling.UpdateScrollBars(); }).back(), "show vert");
    properties.ShowVScrollBar = false;
    EXPECT_EQ(CallsOf([this] { scrolling.UpdateScrollBars(); }).back(), "range horz 1..20");
}

TEST_F(ScrollingTest, BeforeTheFirstPaintBothBarsShow) {
    layout.m_rcClient = {};
    properties.MaxRow = 1;
    properties.MaxCol = 1;
    EXPECT_EQ(CallsOf([this] { scrolling.UpdateScrollBars(); }),
              (Lines{"hide both", "range vert 1..1", "range horz 1..1", "show horz", "show vert"}));
}

TEST_F(FormScrollingTest, BarsOfAFormShowWhereAWindowLeavesTheClient) {
    host.forms = {10, 10, 390, 290};
    EXPECT_EQ(CallsOf([this] { scrolling.UpdateScrollBars(); }), (Lines{"hide both"}));
    host.forms = {-10, 10, 390, 290};
    EXPECT_EQ(CallsOf([this] { scrolling.UpdateScrollBars(); }),
              (Lines{"hide both", "range horz 1..400", "show horz"}));
    host.forms = {10, 10, 401, 290};
    EXPECT_EQ(CallsOf([this] { scrolling.UpdateScrollBars(); }),
              (Lines{"hide both", "range horz 1..391", "show horz"}));
}

TEST_F(FormScrollingTest, TheHeightOfAFormGoesToTheHorizontalRange) {
    host.forms = {10, 10, 500, 600};
    EXPECT_EQ(
        CallsOf([this] { scrolling.UpdateScrollBars(); }),
        (Lines{"hide both", "range horz 1..490", "show horz", "range horz 1..590", "show vert"}));
    properties.ShowVScrollBar = false;
    properties.ShowHScrollBar = false;
    EXPECT_EQ(CallsOf([this] { scrolling.UpdateScrollBars(); }), (Lines{"hide both"}));
}

// --- MakeCellVisible

TEST_F(ScrollingTest, ARowJustBelowTheViewGoesToTheTop) {
    EXPECT_EQ(CallsOf([this] { scrolling.MakeCellVisible(17, 3); }), (Lines{"InvalidateControl"}));
    EXPECT_EQ(layout.FirstVisibleRow, 17);
    EXPECT_EQ(layout.FirstVisibleCol, 1);
}

TEST_F(ScrollingTest, AColumnOffTheViewGoesToTheLeft) {
    EXPECT_EQ(CallsOf([this] { scrolling.MakeCellVisible(3, 7); }), (Lines{"InvalidateControl"}));
    EXPECT_EQ(layout.FirstVisibleRow, 1);
    EXPECT_EQ(layout.FirstVisibleCol, 7);
}

TEST_F(ScrollingTest, ACellAboveAndLeftOfTheViewMovesBothWithOneRepaint) {
    layout.FirstVisibleRow = 10;
    layout.FirstVisibleCol = 10;
    EXPECT_EQ(CallsOf([this] { scrolling.MakeCellVisible(2, 3); }), (Lines{"InvalidateControl"}));
    EXPECT_EQ(layout.FirstVisibleRow, 2);
    EXPECT_EQ(layout.FirstVisibleCol, 3);
}

TEST_F(ScrollingTest, CellsBeyondTheSheetAreNotGoneTo) {
    EXPECT_EQ(CallsOf([this] { scrolling.MakeCellVisible(51, 21); }), Lines{});
    EXPECT_EQ(CallsOf([this] { scrolling.MakeCellVisible(20, 21); }), (Lines{"InvalidateControl"}));
    EXPECT_EQ(layout.FirstVisibleRow, 20);
    EXPECT_EQ(layout.FirstVisibleCol, 1);
}

TEST_F(ScrollingTest, MakeCellVisibleDoesNotCheckAgainst1) {
    scrolling.MakeCellVisible(-4, 0);
    EXPECT_EQ(layout.FirstVisibleRow, -4);
    EXPECT_EQ(layout.FirstVisibleCol, 0);
}

TEST_F(ScrollingTest, MakeCellVisibleLeavesTheThumbs) {
    scrolling.MakeCellVisible(30, 10);
    EXPECT_EQ(bars.GetScrollPos(ScrollBar::Vert), 0);
    V(EndScroll);
    EXPECT_EQ(bars.GetScrollPos(ScrollBar::Vert), 30);
}

// --- Points of the screen

TEST_F(ScrollingTest, APointOutsideTheWindowLeavesRowAndColumnAlone) {
    std::int32_t row = 7;
    std::int32_t col = 8;
    EXPECT_FALSE(scrolling.PointToRC({400, 10}, row, col));
    EXPECT_FALSE(scrolling.PointToRC({-1, 10}, row, col));
    EXPECT_EQ(row, 7);
    EXPECT_EQ(col, 8);
}

TEST_F(ScrollingTest, APointInTheWindowGivesRowAndColumnWhichMayBe0) {
    std::int32_t row = 7;
    std::int32_t col = 8;
    EXPECT_TRUE(scrolling.PointToRC({60, 45}, row, col));
    EXPECT_EQ(row, 2);
    EXPECT_EQ(col, 1);
    EXPECT_TRUE(scrolling.PointToRC({10, 10}, row, col));
    EXPECT_EQ(row, 0);
    EXPECT_EQ(col, 0);
    // The window may have grown since the last paint.
    bars.client = {0, 0, 800, 300};
    EXPECT_TRUE(scrolling.PointToRC({700, 45}, row, col));
    EXPECT_EQ(row, 0);
}

}  // namespace
}  // namespace veygrid
