// Where cells and headers lie, what a pixel means, and what is on view.
#include "screen/Layout.h"

#include <limits>

#include "SheetLayout.h"

namespace veygrid {
namespace {

constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();

using LayoutTest = SheetLayoutTest;

// --- Seams, borders and places off the view

TEST_F(LayoutTest, BeforeTheFirstPaintHitTestIsOutsideAndPosToCellIsNoCell) {
    layout.m_rcClient = {};
    EXPECT_EQ(layout.HitTest({60, 30}), HitCode::HitOutside);
    EXPECT_EQ(layout.PosToCell({60, 30}), (CellPos{0, 0}));
}

TEST_F(LayoutTest, WithHeadersOffNoPointIsAHeaderAnEdgeOrTheCorner) {
    properties.ShowRowHeaders = false;
    properties.ShowColHeaders = false;
    for (std::int32_t y = 0; y < 300; ++y) {
        for (std::int32_t x = 0; x < 400; ++x) {
            const HitCode hit = layout.HitTest({x, y});
            ASSERT_TRUE(hit == HitCode::HitCell || hit == HitCode::HitNowhere) << x << "," << y;
        }
    }
    // Left of column 1 there is nothing: the cell area begins at the client's edge.
    EXPECT_EQ(layout.CellRect(1, 1), (Rect{0, 0, 59, 17}));
}

TEST_F(LayoutTest, TheTwoSeamsOfTheHeadersBelongToNobody) {
    EXPECT_EQ(layout.HitTest({49, 19}), HitCode::HitCorner);
    EXPECT_EQ(layout.HitTest({49, 20}), HitCode::HitNowhere);
    EXPECT_EQ(layout.HitTest({50, 19}), HitCode::HitNowhere);
    EXPECT_EQ(layout.HitTest({49, 21}), HitCode::HitRowEdge);
    EXPECT_EQ(layout.HitTest({51, 19}), HitCode::HitColEdge);
}

TEST_F(LayoutTest, TheBorderPixelsAboveTheCellsHaveRow0AndAreNowhere) {
    for (std::int32_t x = 51; x < 400; ++x) {
        EXPECT_EQ(layout.PosToCell({x, 20}).Row, 0);
        EXPECT_EQ(layout.HitTest({x, 20}), HitCode::HitNowhere);
    }
    EXPECT_EQ(layout.PosToCell({51, 21}), (CellPos{1, 1}));
}

TEST_F(LayoutTest, RightOfTheLastColumnIsNowhereBesideRowsAndAColumnHeaderInTheHeaderBand) {
    properties.MaxCol = 2;
    EXPECT_EQ(layout.PosToCell({300, 30}), (CellPos{1, 0}));
    EXPECT_EQ(layout.HitTest({300, 30}), HitCode::HitNowhere);
    EXPECT_EQ(layout.HitTest({300, 10}), HitCode::HitColHeader);
}

TEST_F(LayoutTest, CellRectBelowTheViewHas32767InTopAndBottomAndTrueColumns) {
    const Rect rect = layout.CellRect(40, 2);
    EXPECT_EQ(rect, (Rect{110, 32767, 169, 32767}));
    EXPECT_TRUE(rect.IsRectEmpty());
    EXPECT_EQ(layout.CellRect(2, 19), (Rect{32767, 38, 32767, 55}));
}

TEST_F(LayoutTest, CellRectOfRow0IsAllZero) {
    EXPECT_EQ(layout.CellRect(0, 3), Rect{});
    EXPECT_EQ(layout.CellRect(3, 0), Rect{});
}

TEST_F(LayoutTest, AnEmptySelectionFrameGivesHitCellEverywhere) {
    layout.m_rcSelFrame = {};
    for (std::int32_t y = 21; y < 300; ++y) {
        for (std::int32_t x = 51; x < 400; ++x) {
            ASSERT_EQ(layout.HitTest({x, y}), HitCode::HitCell);
        }
    }
}

TEST_F(LayoutTest, ARowOfHeight0NeverAnswersPosToCell) {
    store.RowHeightMap.Set(RowKey(2), 0);
    EXPECT_EQ(layout.PosToCell({60, 38}).Row, 1);  // the running bottom of both rows
    EXPECT_EQ(layout.PosToCell({60, 39}).Row, 3);
    EXPECT_EQ(layout.CellRect(2, 1), (Rect{50, 38, 109, 37}));
    for (std::int32_t y = 0; y < 300; ++y) {
        EXPECT_NE(layout.PosToCell({60, y}).Row, 2) << y;
    }
}

// --- The origin of the cell area

TEST_F(LayoutTest, WithHeadersTheOriginIsTheHeaderSizeWhereverTheClientLies) {
    layout.m_rcClient = {100, 200, 500, 600};
    EXPECT_EQ(layout.OriginX(), 50);
    EXPECT_EQ(layout.OriginY(), 20);
    properties.ShowRowHeaders = false;
    EXPECT_EQ(layout.OriginX(), 100);
    EXPECT_EQ(layout.OriginY(), 20);
    properties.ShowColHeaders = false;
    EXPECT_EQ(layout.OriginY(), 200);
}

// --- CellRect

TEST_F(LayoutTest, CellRectEndsOnePixelBeforeTheNextCell) {
    EXPECT_EQ(layout.CellRect(1, 1), (Rect{50, 20, 109, 37}));
    EXPECT_EQ(layout.CellRect(2, 3), (Rect{170, 38, 229, 55}));
}

TEST_F(LayoutTest, CellRectCountsFromTheFirstVisibleCell) {
    layout.FirstVisibleRow = 10;
    layout.FirstVisibleCol = 5;
    EXPECT_EQ(layout.CellRect(10, 5), (Rect{50, 20, 109, 37}));
    EXPECT_EQ(layout.CellRect(9, 5), Rect{});
    EXPECT_EQ(layout.CellRect(10, 4), Rect{});
}

TEST_F(LayoutTest, CellRectOutsideTheSheetOrWithoutAClientIsAllZero) {
    EXPECT_EQ(layout.CellRect(51, 1), Rect{});
    EXPECT_EQ(layout.CellRect(1, 21), Rect{});
    layout.m_rcClient = {10, 10, 10, 50};
    EXPECT_EQ(layout.CellRect(1, 1), Rect{});
}

TEST_F(LayoutTest, ACellThatBeginsInTheViewGetsItsWholeHeight) {
    // Row 16 begins at 290 of 300.
    EXPECT_EQ(layout.CellRect(16, 1), (Rect{50, 290, 109, 307}));
    EXPECT_EQ(layout.CellRect(17, 1).top, OffView);
}

TEST_F(LayoutTest, ACellThatBeginsAtTheClientsEdgeIsOffTheView) {
    layout.m_rcClient.bottom = 290;
    EXPECT_EQ(layout.CellRect(15, 1).top, 272);
    EXPECT_EQ(layout.CellRect(16, 1).top, OffView);
}

TEST_F(LayoutTest, StoredHeightsAndWidthsMoveTheCellsBehindThem) {
    store.RowHeightMap.Set(RowKey(2), 40);
    store.ColWidthMap.Set(ColKey(1), 10);
    EXPECT_EQ(layout.CellRect(3, 2), (Rect{60, 78, 119, 95}));
}

// --- PosToCell

TEST_F(LayoutTest, PosToCellTakesTheFirstLineWhoseRunningEndReachesThePoint) {
    EXPECT_EQ(layout.PosToCell({110, 38}), (CellPos{1, 1}));
    EXPECT_EQ(layout.PosToCell({111, 39}), (CellPos{2, 2}));
}

TEST_F(LayoutTest, PosToCellBelowTheLastRowIsRow0) {
    properties.MaxRow = 3;
    EXPECT_EQ(layout.PosToCell({60, 74}), (CellPos{3, 1}));
    EXPECT_EQ(layout.PosToCell({60, 75}), (CellPos{0, 1}));
}

TEST_F(LayoutTest, PosToCellOutsideTheClientIsNoCell) {
    EXPECT_EQ(layout.PosToCell({400, 30}), (CellPos{}));
    EXPECT_EQ(layout.PosToCell({60, 300}), (CellPos{}));
    EXPECT_EQ(layout.PosToCell({-1, 30}), (CellPos{}));
}

// --- HitTest

TEST_F(LayoutTest, TheGrabBandLiesOnBothSidesOfARowBorder) {
    // Row 2 is 38 to 55.
    const auto hit = [this](std::int32_t y) { return layout.HitTest({10, y}); };
    EXPECT_EQ(hit(34), HitCode::HitRowEdge);  // row 1 ends at 37
    EXPECT_EQ(hit(33), HitCode::HitRowHeader);
    EXPECT_EQ(hit(39), HitCode::HitRowEdge);
    EXPECT_EQ(hit(41), HitCode::HitRowEdge);
    EXPECT_EQ(hit(42), HitCode::HitRowHeader);
    EXPECT_EQ(hit(51), HitCode::HitRowHeader);
    EXPECT_EQ(hit(52), HitCode::HitRowEdge);
    EXPECT_EQ(hit(55), HitCode::HitRowEdge);
    // The pixel at the running end is row 2 still, one past its rectangle.
    EXPECT_EQ(hit(56), HitCode::HitRowHeader);
    EXPECT_EQ(hit(57), HitCode::HitRowEdge);
    // The top band of the first row belongs to the header's own size.
    EXPECT_EQ(hit(21), HitCode::HitRowEdge);
}

TEST_F(LayoutTest, TheGrabBandLiesOnBothSidesOfAColumnBorder) {
    const auto hit = [this](std::int32_t x) { return layout.HitTest({x, 10}); };
    EXPECT_EQ(hit(51), HitCode::HitColEdge);
    EXPECT_EQ(hit(53), HitCode::HitColEdge);
    EXPECT_EQ(hit(54), HitCode::HitColHeader);
    EXPECT_EQ(hit(105), HitCode::HitColHeader);
    EXPECT_EQ(hit(106), HitCode::HitColEdge);
    EXPECT_EQ(hit(109), HitCode::HitColEdge);
    EXPECT_EQ(hit(110), HitCode::HitColHeader);
    EXPECT_EQ(hit(111), HitCode::HitColEdge);
}

TEST_F(LayoutTest, TheResizeMarginIsTheBandsWidth) {
    layout.m_nResizeMargin = 0;
    EXPECT_EQ(layout.HitTest({10, 55}), HitCode::HitRowEdge);
    EXPECT_EQ(layout.HitTest({10, 54}), HitCode::HitRowHeader);
}

TEST_F(LayoutTest, BelowTheLastRowTheHeaderBandIsARowHeader) {
    properties.MaxRow = 2;
    EXPECT_EQ(layout.HitTest({10, 200}), HitCode::HitRowHeader);
    EXPECT_EQ(layout.HitTest({100, 200}), HitCode::HitNowhere);
}

TEST_F(LayoutTest, RowHeadersWithoutColumnHeadersBeginAtTheTop) {
    properties.ShowColHeaders = false;
    EXPECT_EQ(layout.HitTest({10, 0}), HitCode::HitRowHeader);
    EXPECT_EQ(layout.HitTest({10, 1}), HitCode::HitRowEdge);
    EXPECT_EQ(layout.HitTest({50, 10}), HitCode::HitNowhere);
}

TEST_F(LayoutTest, ColumnHeadersWithoutRowHeadersBeginAtTheLeft) {
    properties.ShowRowHeaders = false;
    EXPECT_EQ(layout.HitTest({0, 10}), HitCode::HitColHeader);
    EXPECT_EQ(layout.HitTest({1, 10}), HitCode::HitColEdge);
    EXPECT_EQ(layout.HitTest({0, 30}), HitCode::HitNowhere);
}

TEST_F(LayoutTest, TheRimOfTheSelectionFrameIsItsOuterFourPixelsOverCellsOnly) {
    layout.m_rcSelFrame = {40, 10, 120, 100};
    EXPECT_EQ(layout.HitTest({115, 50}), HitCode::HitCell);
    EXPECT_EQ(layout.HitTest({116, 50}), HitCode::HitSelFrame);
    EXPECT_EQ(layout.HitTest({119, 50}), HitCode::HitSelFrame);
    EXPECT_EQ(layout.HitTest({120, 50}), HitCode::HitCell);
    EXPECT_EQ(layout.HitTest({60, 96}), HitCode::HitSelFrame);
    EXPECT_EQ(layout.HitTest({60, 95}), HitCode::HitCell);
    EXPECT_EQ(layout.HitTest({42, 60}), HitCode::HitRowHeader);
    EXPECT_EQ(layout.HitTest({60, 12}), HitCode::HitColHeader);
}

// --- VisibleRange

TEST_F(LayoutTest, VisibleRangeCountsPartlyVisibleCells) {
    EXPECT_EQ(layout.VisibleRange(false), (CellRange{1, 1, 16, 6}));
    EXPECT_EQ(layout.VisibleRange(true), (CellRange{1, 1, 15, 5}));
}

TEST_F(LayoutTest, ACellThatEndsAtTheEdgeIsWholeAndIsTheLast) {
    layout.m_rcClient = {0, 0, 110, 38};
    EXPECT_EQ(layout.VisibleRange(true), (CellRange{1, 1, 1, 1}));
    EXPECT_EQ(layout.VisibleRange(false), (CellRange{1, 1, 1, 1}));
}

TEST_F(LayoutTest, AShortSheetIsVisibleToItsEnd) {
    properties.MaxRow = 3;
    properties.MaxCol = 2;
    EXPECT_EQ(layout.VisibleRange(true), (CellRange{1, 1, 3, 2}));
}

TEST_F(LayoutTest, NothingIsVisibleWithoutAClientOrInOneSmallerThanBothHeaders) {
    layout.m_rcClient = {};
    EXPECT_EQ(layout.VisibleRange(false), CellRange{});
    layout.m_rcClient = {0, 0, 40, 10};
    EXPECT_EQ(layout.VisibleRange(false), CellRange{});
}

TEST_F(LayoutTest, AControlTooNarrowButTallEnoughGoesOn) {
    layout.m_rcClient = {0, 0, 40, 300};
    EXPECT_EQ(layout.VisibleRange(false), (CellRange{1, 1, 16, 1}));
    EXPECT_EQ(layout.VisibleRange(true), CellRange{});
}

TEST_F(LayoutTest, WhereNoWholeRowFitsNoWholeCellIsVisible) {
    layout.m_rcClient = {0, 0, 400, 30};
    EXPECT_EQ(layout.VisibleRange(true), CellRange{});
    EXPECT_EQ(layout.VisibleRange(false), (CellRange{1, 1, 1, 6}));
}

TEST_F(LayoutTest, FirstLinesBeyondTheSheetShowNothingOfIt) {
    layout.FirstVisibleRow = 60;
    EXPECT_EQ(layout.VisibleRange(false), CellRange{});
    layout.FirstVisibleRow = 1;
    layout.FirstVisibleCol = 30;
    // Only the columns of a partly visible view may be reversed.
    EXPECT_EQ(layout.VisibleRange(false), (CellRange{1, 30, 16, 20}));
    EXPECT_EQ(layout.VisibleRange(true), CellRange{});
}

// --- CalcVisible

TEST_F(LayoutTest, CalcVisibleCountsThePartlyVisibleRowOnScreenAndNotOnPaper) {
    const Rect bounds{0, 0, 400, 300};
    EXPECT_EQ(layout.CalcVisible(bounds, false, 1, 1), (VisibleCounts{16, 6, 288, 360}));
    EXPECT_EQ(layout.CalcVisible(bounds, true, 1, 1), (VisibleCounts{15, 5, 270, 300}));
}

TEST_F(LayoutTest, OnPaperTheOnlyRowStaysThoughItIsCut) {
    const Rect bounds{0, 0, 60, 30};
    EXPECT_EQ(layout.CalcVisible(bounds, true, 4, 4), (VisibleCounts{1, 1, 18, 60}));
}

TEST_F(LayoutTest, OnPaperARowThatJustFitsGoesToTheNextPage) {
    const Rect bounds{0, 0, 400, 20 + 2 * 18};
    EXPECT_EQ(layout.CalcVisible(bounds, true, 1, 1).Rows, 1);
    EXPECT_EQ(layout.CalcVisible(bounds, false, 1, 1).Rows, 2);
}

TEST_F(LayoutTest, CalcVisibleDoesNotDependOnWhereTheBoundsLie) {
    layout.m_rcClient = {};
    const VisibleCounts here = layout.CalcVisible({0, 0, 400, 300}, false, 1, 1);
    EXPECT_EQ(layout.CalcVisible({1000, -500, 1400, -200}, false, 1, 1), here);
}

TEST_F(LayoutTest, CalcVisibleStopsAtTheSheetsEnd) {
    EXPECT_EQ(layout.CalcVisible({0, 0, 4000, 3000}, false, 49, 18),
              (VisibleCounts{2, 3, 36, 180}));
    EXPECT_EQ(layout.CalcVisible({0, 0, 4000, 3000}, false, 51, 21), (VisibleCounts{0, 0, 0, 0}));
}

TEST_F(LayoutTest, CalcVisibleAddsHeadersOnlyWhereTheyShow) {
    properties.ShowRowHeaders = false;
    properties.ShowColHeaders = false;
    EXPECT_EQ(layout.CalcVisible({0, 0, 120, 36}, false, 1, 1), (VisibleCounts{2, 2, 36, 120}));
}

// --- RangeRect

TEST_F(LayoutTest, RangeRectOfABlockIsTheUnionOfItsCorners) {
    EXPECT_EQ(layout.RangeRect({2, 2, 3, 4}), (Rect{110, 38, 289, 73}));
}

TEST_F(LayoutTest, RangeRectOfARangeThatLeavesTheViewEndsWithWhatIsOnIt) {
    layout.FirstVisibleRow = 5;
    EXPECT_EQ(layout.RangeRect({2, 1, 6, 1}), (Rect{50, 20, 109, 55}));
    // The far corner is below the view, so that only the near one counts.
    EXPECT_EQ(layout.RangeRect({6, 1, 40, 1}), (Rect{50, 38, 109, 55}));
}

TEST_F(LayoutTest, RangeRectOfWholeRowsReachesTheFarEdge) {
    EXPECT_EQ(layout.RangeRect({2, 0, 3, 0}), (Rect{49, 37, 2000, 74}));
}

TEST_F(LayoutTest, RangeRectOfWholeColumnsReachesTheFarEdge) {
    EXPECT_EQ(layout.RangeRect({0, 2, 0, 3}), (Rect{109, 19, 230, 2000}));
}

TEST_F(LayoutTest, RangeRectOfTheWholeSheetBeginsAtTheFirstVisibleCell) {
    EXPECT_EQ(layout.RangeRect(CellRange::WholeSheet()), (Rect{50, 20, 2000, 2000}));
}

// --- Any numbers

TEST_F(LayoutTest, TwoBillionHiddenRowsAnswerAtOnce) {
    properties.MaxRow = Most;
    properties.DefCellHeight = 0;
    EXPECT_EQ(layout.PosToCell({60, 100}), (CellPos{0, 1}));
    EXPECT_EQ(layout.CellRect(Most, 1), (Rect{50, 20, 109, 19}));
    EXPECT_EQ(layout.VisibleRange(true).Row2, Most);
    EXPECT_EQ(layout.CalcVisible({0, 0, 400, 300}, false, 1, 1),
              (VisibleCounts{Edge(Most), 6, 0, 360}));
    // One row among them shows.
    store.RowHeightMap.Set(RowKey(1'000'000'000), 30);
    EXPECT_EQ(layout.PosToCell({60, 21}).Row, 1'000'000'000);
    EXPECT_EQ(layout.CellRect(1'000'000'001, 1).top, 50);
}

TEST_F(LayoutTest, MoreHiddenRowsThanAScreenfulAreWalkedOver) {
    properties.MaxRow = 100'000;
    for (std::int32_t row = 1; row <= 60'000; ++row) {
        store.RowHeightMap.Set(RowKey(row), 0);
    }
    EXPECT_EQ(layout.PosToCell({60, 21}).Row, 60'001);
    EXPECT_EQ(layout.CellRect(60'002, 1), (Rect{50, 38, 109, 55}));
    EXPECT_EQ(layout.VisibleRange(false).Row2, 60'016);
}

TEST_F(LayoutTest, RowsHiddenByTheDefaultBetweenAFewStoredOnesAreStriddenOver) {
    properties.MaxRow = Most;
    properties.DefCellHeight = 0;
    for (std::int32_t i = 1; i <= 20; ++i) {
        store.RowHeightMap.Set(RowKey(i * 100'000'000), 18);
    }
    EXPECT_EQ(layout.PosToCell({60, 20 + 18 * 3 + 1}).Row, 400'000'000);
    EXPECT_EQ(layout.VisibleRange(false).Row2, 1'600'000'000);
    EXPECT_EQ(layout.CellRect(500'000'000, 1), (Rect{50, 92, 109, 109}));
}

TEST_F(LayoutTest, NegativeHeightsAreAddedAsTheyAre) {
    properties.MaxRow = Most;
    properties.DefCellHeight = -7;
    EXPECT_EQ(layout.CellRect(3, 1), (Rect{50, 6, 109, -2}));
    EXPECT_EQ(layout.PosToCell({60, 100}).Row, 0);
    EXPECT_EQ(layout.VisibleRange(false).Row2, Most);
    EXPECT_EQ(layout.CellRect(Most, 1).top, Edge(Least));
}

TEST_F(LayoutTest, TheHighestRowsStayOnTheirPlaceInsteadOfWrapping) {
    properties.DefCellHeight = Most;
    EXPECT_EQ(layout.CellRect(1, 1), (Rect{50, 20, 109, Edge(Most)}));
    EXPECT_EQ(layout.PosToCell({60, 299}).Row, 1);
    EXPECT_FALSE(layout.RangeRect({1, 1, 1, 1}).Inflated(2, 2).IsRectEmpty());
    EXPECT_EQ(layout.HitTest({10, 100}), HitCode::HitRowHeader);
}

TEST_F(LayoutTest, FirstLinesFarOutOfTheSheetAnswerAtOnce) {
    properties.MaxRow = Most;
    layout.FirstVisibleRow = Least;
    layout.FirstVisibleCol = Least;
    // Each line below 1 counts -1, so that two billion of them lie above the first row.
    EXPECT_EQ(layout.PosToCell({60, 100}), (CellPos{119'304'652, 0}));
    EXPECT_EQ(layout.CellRect(Least, Least), (Rect{50, 20, 48, 18}));
    EXPECT_TRUE(layout.CellRect(1, 1).IsRectEmpty());
    layout.FirstVisibleRow = Most;
    layout.FirstVisibleCol = Most;
    EXPECT_EQ(layout.PosToCell({60, 100}), (CellPos{0, 0}));
    EXPECT_EQ(layout.CellRect(1, 1), Rect{});
    EXPECT_EQ(layout.VisibleRange(true), CellRange{});
}

}  // namespace
}  // namespace veygrid
