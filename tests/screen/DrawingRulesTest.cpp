// The rules of drawing one by one, and what a host may do to the sheet while it is drawn.
#include <gmock/gmock.h>

#include <random>

#include "DrawingTest.h"
#include "grid/Dataset.h"
#include "grid/RowColumnOperations.h"

namespace veygrid {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::UnorderedElementsAreArray;

using DrawingRules = DrawingTest;

// Cells whose background is painted show where each cell lies.
constexpr std::int32_t CellPaint = 0x00ABCD;

std::string Text(const Rect& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
}

class CountingDataset final : public Dataset {
  public:
    std::string GetCellValue(std::int32_t row, std::int32_t col) override {
        asked.push_back({row, col});
        if (onAsk) {
            onAsk();
        }
        return "v" + std::to_string(row);
    }
    std::int32_t GetColCount() override { return 2; }
    std::int32_t GetRowCount() override { return 3; }
    std::int32_t SetColCaption(std::int32_t, std::string_view) override { return 0; }
    std::string GetColName(std::int32_t col) override { return "T" + std::to_string(col); }

    std::vector<CellPos> asked;
    std::function<void()> onAsk;
};

TEST_F(DrawingRules, BoundSheetWithShowRowHeadersOffHasNoCornerBoxAndNoPositionText) {
    CountingDataset dataset;
    store.BoundDataset = &dataset;
    properties.ShowRowHeaders = false;
    const std::string dump = Draw();
    EXPECT_THAT(dump, Not(HasSubstr("R1C1")));
    EXPECT_THAT(LinesThatBegin(dump, "Draw3dRect 0,0,"), ElementsAre(HasSubstr("0,0,40,20")));
    EXPECT_THAT(dump, HasSubstr("DrawText \"T1\""));
}

TEST_F(DrawingRules, BackgroundMinusOneLeavesTheGridBackgroundAndIsDrawnTransparently) {
    store.SetCellText(1, 1, "a");
    const std::string dump = Draw();
    EXPECT_THAT(dump, HasSubstr("SetBkMode TRANSPARENT"));
    EXPECT_THAT(dump, Not(HasSubstr("FillSolidRect 30,20,69,37")));
}

TEST_F(DrawingRules, OwnBackgroundLeavesTheGridLinesAtTheCellsEdge) {
    Format(1, 1, [](CCellFormat& format) { format.Background = CellPaint; });
    const std::string dump = Draw();
    // The lines run along x 69 and y 37, just outside the filled rectangle.
    EXPECT_THAT(dump, HasSubstr("FillSolidRect 30,20,69,37 0x00ABCD"));
    EXPECT_THAT(dump, HasSubstr("MoveTo 30,37\nLineTo 110,37"));
    EXPECT_THAT(dump, HasSubstr("MoveTo 69,20\nLineTo 69,74"));
}

TEST_F(DrawingRules, GeneralAlignmentPutsANumberRightEvenInATextColumn) {
    Format(0, 1, [](CCellFormat& format) { format.DataType = 4; });
    store.SetCellText(1, 1, "42");
    EXPECT_THAT(DrawnCalls("DrawText \"42\""), ElementsAre(HasSubstr("RIGHT")));
}

TEST_F(DrawingRules, GeneralAlignmentGoesByTheTextAsItIsShown) {
    store.SetCellText(1, 1, "42");
    store.SetCellShowFormat(1, 1, "[RMB_UPPER]");
    EXPECT_THAT(DrawnCalls("DrawText \"" + Utf8FromCodePage936(Gbk(u8"肆十贰元")) + ""),
                ElementsAre(HasSubstr("LEFT")));
}

TEST_F(DrawingRules, AlignmentBitsAreTestedRightThenLeftThenCentre) {
    const auto drawnWith = [this](std::uint16_t align) {
        Format(1, 1, [align](CCellFormat& format) { format.Align = align; });
        store.SetCellText(1, 1, "w");
        return DrawnCalls("DrawText \"w\"").at(0);
    };
    EXPECT_THAT(drawnWith(7), HasSubstr("RIGHT"));
    EXPECT_THAT(drawnWith(6), HasSubstr("RIGHT"));
    EXPECT_THAT(drawnWith(3), HasSubstr("LEFT"));
    EXPECT_THAT(drawnWith(2), HasSubstr("CENTER"));
    EXPECT_THAT(drawnWith(8), HasSubstr("LEFT"));
    EXPECT_THAT(drawnWith(0x0301), HasSubstr("CALCRECT"));
}

TEST_F(DrawingRules, MiddleWinsOverBottom) {
    properties.DefCellHeight = 40;
    store.SetCellText(1, 1, "w");
    Format(1, 1, [](CCellFormat& format) { format.Align = 0x0301; });
    // 35 pixels of room, 12 of text: 11 above, the half pixel is dropped.
    EXPECT_THAT(Draw(), HasSubstr("DrawText \"w\" 32,33,67,57 LEFT"));
}

TEST_F(DrawingRules, WordBreakWithMiddleMeasuresWithoutItAsIfThereWereOneLine) {
    properties.DefCellHeight = 60;
    store.SetCellText(1, 1, "one two three");
    Format(1, 1, [](CCellFormat& format) {
        format.Flags = CCellFormat::WordWrapFlag;
        format.Align = 0x0101;
    });
    const Lines calls = DrawnCalls("DrawText \"one");
    ASSERT_THAT(calls, SizeIs(2));
    EXPECT_EQ(calls[0], "DrawText \"one two three\" 32,22,67,77 CALCRECT = 78x12");
    EXPECT_EQ(calls[1], "DrawText \"one two three\" 32,43,67,77 WORDBREAK");
}

TEST_F(DrawingRules, LineBreaksInTheTextTakeEffectAndCountInTheMeasure) {
    properties.DefCellHeight = 60;
    store.SetCellText(1, 1, "a\r\nb");
    Format(1, 1, [](CCellFormat& format) { format.Align = 0x0201; });
    const Lines calls = DrawnCalls("DrawText \"a");
    ASSERT_THAT(calls, SizeIs(2));
    EXPECT_EQ(calls[0], "DrawText \"a\\r\\nb\" 32,22,67,77 CALCRECT = 6x24");
    EXPECT_EQ(calls[1], "DrawText \"a\\r\\nb\" 32,53,67,77 LEFT");
}

TEST_F(DrawingRules, TextHigherThanItsCellStaysAtTheTop) {
    store.SetCellText(1, 1, "a\nb");
    for (const std::uint16_t align : {std::uint16_t{0x0101}, std::uint16_t{0x0201}}) {
        Format(1, 1, [align](CCellFormat& format) { format.Align = align; });
        EXPECT_THAT(Draw(), HasSubstr("DrawText \"a\\nb\" 32,22,67,35 LEFT"));
    }
}

TEST_F(DrawingRules, FlagsBesideWordWrapAreNoFormatBits) {
    store.SetCellText(1, 1, "w");
    Format(1, 1, [](CCellFormat& format) { format.Flags = 0xFE; });
    EXPECT_THAT(DrawnCalls("DrawText \"w\""), ElementsAre("DrawText \"w\" 32,22,67,35 LEFT"));
}

TEST_F(DrawingRules, FontRecordWithWeightMinusOneIsNoFontWhateverItsOtherFields) {
    store.SetCellText(1, 1, "w");
    Format(1, 1, [](CCellFormat& format) {
        format.Font.lfHeight = 40;
        format.Font.lfItalic = 1;
    });
    EXPECT_THAT(DrawnCalls("SelectFont"), IsEmpty());
}

TEST_F(DrawingRules, FontsAndColoursAreSelectedOnlyWhenTheyChange) {
    SetSize(3, 2);
    Format(2, 0, [](CCellFormat& format) {
        format.Font.lfWeight = 700;
        format.Foreground = 1;
    });
    for (std::int32_t row = 1; row <= 3; ++row) {
        store.SetCellText(row, 1, "a");
        store.SetCellText(row, 2, "b");
    }
    const std::string dump = Draw();
    EXPECT_THAT(LinesThatBegin(dump, "SelectFont"), SizeIs(1));
    // For the headers, for the cells, and behind the row with a font of its own.
    EXPECT_THAT(LinesThatBegin(dump, "SelectStockFont"), SizeIs(3));
    EXPECT_THAT(
        LinesThatBegin(dump, "SetTextColor"),
        ElementsAre("SetTextColor 0xCC0008", "SetTextColor 0x000001", "SetTextColor 0xCC0008"));
    EXPECT_THAT(LinesThatBegin(dump, "SelectPen"), SizeIs(1));
}

TEST_F(DrawingRules, FormerFontIsPutBackBehindHeadersAndCells) {
    store.SetCellText(3, 2, "a");
    Format(3, 2, [](CCellFormat& format) { format.Font.lfWeight = 700; });
    EXPECT_THAT(DrawnCalls("SelectFormerFont"), SizeIs(2));
    EXPECT_THAT(DrawnMarks(), Not(HasSubstr("SelectFormerFont")));
}

TEST_F(DrawingRules, ColumnFormatBeatsRowFormat) {
    Format(1, 0, [](CCellFormat& format) { format.Background = 1; });
    Format(0, 1, [](CCellFormat& format) { format.Background = 2; });
    EXPECT_THAT(DrawnCalls("FillSolidRect 30,20,69,37"),
                ElementsAre("FillSolidRect 30,20,69,37 0x000002"));
}

TEST_F(DrawingRules, ActiveCellIsLeftOutOfTheInversion) {
    selection.SelectionList = {{1, 1, 2, 2}};
    store.ActiveRow = 2;
    store.ActiveCol = 2;
    EXPECT_THAT(
        DrawnCalls("InvertRect"),
        ElementsAre("InvertRect 30,20,69,37", "InvertRect 30,38,69,55", "InvertRect 70,20,109,37"));
}

TEST_F(DrawingRules, WholeSheetSelectionInvertsEveryVisibleCellButHasNoFrame) {
    selection.SelectionList = {CellRange::WholeSheet()};
    const std::string marks = DrawnMarks();
    EXPECT_THAT(LinesThatBegin(marks, "InvertRect"), SizeIs(5));
    EXPECT_THAT(marks, Not(HasSubstr("0x000000")));
    EXPECT_TRUE(layout.m_rcSelFrame.IsRectNull());
}

TEST_F(DrawingRules, TwoSelectionsHaveNoFrameAndHitTestingNeverGivesHitSelFrame) {
    Draw();
    ASSERT_FALSE(layout.m_rcSelFrame.IsRectEmpty());
    selection.SelectionList = {{1, 1, 1, 1}, {3, 2, 3, 2}};
    EXPECT_THAT(DrawnMarks(), Not(HasSubstr("0xFFFFFF")));
    for (std::int32_t y = 0; y < 90; ++y) {
        for (std::int32_t x = 0; x < 150; ++x) {
            ASSERT_NE(layout.HitTest({x, y}), HitCode::HitSelFrame) << x << "," << y;
        }
    }
}

TEST_F(DrawingRules, TheDraggedRangeIsInvertedToo) {
    selection.DragRange = {3, 2, 2, 1};
    EXPECT_THAT(DrawnCalls("InvertRect"), SizeIs(4));
}

TEST_F(DrawingRules, PaperNeverGetsInversionFrameMarkOrPositionText) {
    isPrinting = true;
    selection.SelectionList = {{1, 1, 2, 2}};
    const std::string dump = Draw();
    EXPECT_THAT(dump, Not(HasSubstr("InvertRect")));
    EXPECT_THAT(dump, Not(HasSubstr("R1C1")));
    EXPECT_TRUE(dump.ends_with("SelectStockFont\nSelectFormerFont\n")) << dump;
}

TEST_F(DrawingRules, PaperGetsTheArrowOnTheActiveRowInRowMode) {
    isPrinting = true;
    properties.RowMode = true;
    EXPECT_THAT(DrawnCalls("DrawFrameControl"), ElementsAre("DrawFrameControl 0,20,30,38 3 3"));
}

TEST_F(DrawingRules, OnPaperAllHeaderBoxesAreRaised) {
    isPrinting = true;
    EXPECT_THAT(DrawnCalls("Draw3dRect"), Each(HasSubstr("0xCC0014 0xCC0015")));
}

TEST_F(DrawingRules, PaperShowsThePageAndLeavesTheViewThere) {
    SetSize(10, 2);
    layout.FirstVisibleRow = 2;
    layout.FirstVisibleCol = 2;
    isPrinting = true;
    host.firstRowOfPage = 4;
    Draw();
    EXPECT_EQ(layout.FirstVisibleRow, 4);
    EXPECT_EQ(layout.FirstVisibleCol, 1);
    EXPECT_EQ(layout.m_nLastDrawnRow, 6);
}

TEST_F(DrawingRules, PageWhoseRowsReachMaxRowIsTheLast) {
    isPrinting = true;
    SetSize(7, 2);
    host.firstRowOfPage = 4;
    EXPECT_THAT(DrawnCalls("CurrentPageIsLast"), SizeIs(1));
    SetSize(8, 2);
    EXPECT_THAT(DrawnCalls("CurrentPageIsLast"), IsEmpty());
}

TEST_F(DrawingRules, PageBehindTheSheetDrawsNoCell) {
    isPrinting = true;
    host.firstRowOfPage = -1;
    store.SetCellText(1, 1, "a");
    EXPECT_THAT(Draw(), Not(HasSubstr("DrawText \"\"")));
    EXPECT_EQ(layout.FirstVisibleRow, -1);
}

TEST_F(DrawingRules, WithoutAWindowThereIsNoActiveCellMark) {
    host.hasWindow = false;
    EXPECT_THAT(DrawnMarks(), Not(HasSubstr("0xCC0002")));
    EXPECT_THAT(DrawnMarks(), HasSubstr("PlaceFormObjects FALSE"));
}

TEST_F(DrawingRules, ActiveCellAboveOrLeftOfTheViewHasNoMark) {
    SetSize(50, 20);
    layout.FirstVisibleRow = 2;
    EXPECT_THAT(DrawnMarks(), Not(HasSubstr("0xCC0002")));
    layout.FirstVisibleRow = 1;
    layout.FirstVisibleCol = 2;
    EXPECT_THAT(DrawnMarks(), Not(HasSubstr("0xCC0002")));
}

TEST_F(DrawingRules, RowModeMarksTheActiveRowWhileAnEditIsOpen) {
    properties.RowMode = true;
    host.inEdit = true;
    EXPECT_THAT(DrawnCalls("LineTo 1030,"), SizeIs(2));
}

TEST_F(DrawingRules, RowModeAboveTheViewMarksNoRow) {
    SetSize(50, 20);
    properties.RowMode = true;
    layout.FirstVisibleRow = 2;
    EXPECT_THAT(DrawnCalls("SelectPen 0xFF0000"), IsEmpty());
}

TEST_F(DrawingRules, CheckMarksShowInRowModeOnly) {
    selection.CheckedRowList = {2};
    const std::string mark = "DrawText \"√\"";
    EXPECT_THAT(Draw(), Not(HasSubstr(mark)));
    properties.RowMode = true;
    EXPECT_THAT(DrawnCalls(mark),
                ElementsAre("DrawText \"√\" 0,38,30,56 CENTER VCENTER SINGLELINE"));
}

TEST_F(DrawingRules, ActiveColumnHeaderIsRaisedInRowMode) {
    properties.RowMode = true;
    EXPECT_THAT(DrawnCalls("Draw3dRect 30,0,70,20"),
                ElementsAre("Draw3dRect 30,0,70,20 0xCC0014 0xCC0015"));
}

TEST_F(DrawingRules, EmptyAreaIsFilledOnlyWhereItHasASize) {
    bounds = {0, 0, 111, 75};
    EXPECT_THAT(DrawnCalls("FillSolidRect"), Each(Not(HasSubstr("0xCC0001"))));
    bounds = {0, 0, 112, 75};
    EXPECT_THAT(DrawnCalls("FillSolidRect"), Contains("FillSolidRect 111,0,112,75 0xCC0001"));
}

TEST_F(DrawingRules, BoundsAreWhereTheSheetIsLaidOut) {
    bounds = {1, 2, 103, 104};
    Draw();
    EXPECT_EQ(layout.m_rcClient, bounds);
    EXPECT_EQ(layout.m_visible, (VisibleCounts{3, 2, 54, 80}));
}

TEST_F(DrawingRules, LastDrawnRowAndColumnAreThoseOnView) {
    SetSize(50, 20);
    Draw();
    EXPECT_EQ(layout.m_nLastDrawnRow, 4);
    EXPECT_EQ(layout.m_nLastDrawnCol, 3);
    SetSize(2, 1);
    Draw();
    EXPECT_EQ(layout.m_nLastDrawnRow, 2);
    EXPECT_EQ(layout.m_nLastDrawnCol, 1);
}

TEST_F(DrawingRules, LastDrawnRowCountsHiddenRowsAtTheEnd) {
    SetSize(5, 2);
    store.SetRowHeight(4, 0);
    store.SetRowHeight(5, 0);
    Draw();
    EXPECT_EQ(layout.m_nLastDrawnRow, 5);
}

TEST_F(DrawingRules, HiddenFirstRowLeavesTheLastDrawnColumnAtZero) {
    store.SetRowHeight(1, 0);
    Draw();
    EXPECT_EQ(layout.m_nLastDrawnRow, 3);
    EXPECT_EQ(layout.m_nLastDrawnCol, 0);
}

TEST_F(DrawingRules, EmptyBoundsDrawNoCell) {
    bounds = {};
    store.SetCellText(1, 1, "a");
    EXPECT_THAT(DrawnCalls("DrawText \"a\""), IsEmpty());
    EXPECT_EQ(layout.m_nLastDrawnCol, 0);
}

TEST_F(DrawingRules, CellsTooSmallForTheirMarginShowNoText) {
    store.SetColWidth(1, 5);
    store.SetCellText(1, 1, "a");
    EXPECT_THAT(DrawnCalls("DrawText \"a\""), IsEmpty());
    store.SetColWidth(1, 6);
    EXPECT_THAT(DrawnCalls("DrawText \"a\""), SizeIs(1));
}

TEST_F(DrawingRules, TextIsFetchedOnlyForCellsOnView) {
    CountingDataset dataset;
    store.BoundDataset = &dataset;
    SetSize(60000, 500);
    layout.FirstVisibleRow = 30000;
    Draw();
    ASSERT_THAT(dataset.asked, SizeIs(12));
    EXPECT_EQ(dataset.asked.front(), (CellPos{30000, 1}));
    EXPECT_EQ(dataset.asked.back(), (CellPos{30003, 3}));
}

TEST_F(DrawingRules, SheetOfHiddenRowsIsDrawnAtOnce) {
    SetSize(2000000000, 1);
    properties.DefCellHeight = 0;
    store.SetRowHeight(1000000, 18);
    store.SetCellText(1000000, 1, "seen");
    EXPECT_THAT(DrawnCalls("DrawText \"seen\""), ElementsAre(HasSubstr("32,22,67,35")));
    EXPECT_EQ(layout.m_nLastDrawnRow, 2000000000);
}

TEST_F(DrawingRules, AbsurdSizesAndPropertiesAreDrawnWithoutHarm) {
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    selection.SelectionList = {CellRange::WholeSheet()};
    for (const std::int32_t number : {Least, -1, 0, 1, Most}) {
        for (const std::int32_t size : {Least, -7, Most}) {
            properties.RowHeaderWidth = number;
            properties.ColHeaderHeight = number;
            store.SetRowHeight(2, size);
            store.SetColWidth(1, size);
            layout.FirstVisibleRow = number;
            store.ActiveRow = number;
            bounds = {Least, 0, Most, number};
            EXPECT_FALSE(Draw().empty());
        }
    }
}

TEST_F(DrawingRules, GuiModeDrawsTheBackgroundOnly) {
    properties.GuiMode = true;
    EXPECT_EQ(Draw(), "FillSolidRect 0,0,150,90 0xCC0005\n");
    EXPECT_EQ(layout.m_rcClient, bounds);
}

TEST_F(DrawingRules, GuiModeWithoutAWindowDrawsTheObjects) {
    properties.GuiMode = true;
    host.hasWindow = false;
    host.guiDesignMode = true;
    EXPECT_EQ(Draw(), "FillSolidRect 0,0,150,90 0xCC0005\nDrawObjectsWindowless\n");
}

TEST_F(DrawingRules, GuiDesignModeDrawsSnapGridAndTrackers) {
    properties.GuiMode = true;
    host.guiDesignMode = true;
    EXPECT_EQ(Draw(), "FillSolidRect 0,0,150,90 0xCC0005\nDrawSnapGrid\nDrawSelectionTrackers\n");
}

TEST_F(DrawingRules, GuiModeOnPaperPreparesThePageAndDrawsNoRow) {
    properties.GuiMode = true;
    isPrinting = true;
    EXPECT_EQ(Draw(), "OnPrepareDC\nFillSolidRect 0,0,150,90 0xCC0005\n");
}

TEST_F(DrawingRules, BackgroundImageIsNotDrawnInSheetMode) {
    bkImageBits = std::string(200, '\x28');
    EXPECT_THAT(Draw(), Not(HasSubstr("DIBitmap")));
}

TEST_F(DrawingRules, WithoutAHandlerTheFormatIsPaintedAsItStands) {
    store.SetCellText(1, 1, "a");
    Format(1, 1, [](CCellFormat& format) { format.Background = CellPaint; });
    const std::string plain = Draw();
    host.handler = [](std::int32_t, std::int32_t, CCellFormat&) {};
    std::string heard;
    for (const std::string& line : LinesThatBegin(Draw(), "")) {
        heard += line.starts_with("RequestCellFormat") ? "" : line + "\n";
    }
    EXPECT_EQ(heard, plain);
    EXPECT_THAT(plain, HasSubstr("0x00ABCD"));
}

TEST_F(DrawingRules, AlsoWithAHandlerTheTextIsShownThroughItsFormat) {
    store.SetCellText(1, 1, "20030814");
    store.SetCellShowFormat(1, 1, "YYYY-MM-DD");
    host.handler = [](std::int32_t, std::int32_t, CCellFormat&) {};
    EXPECT_THAT(DrawnCalls("DrawText \"2003"),
                ElementsAre("DrawText \"2003-08-14\" 32,22,67,35 RIGHT"));
}

TEST_F(DrawingRules, HandlerRunsOncePerCellAlsoForEmptyOnes) {
    host.handler = [](std::int32_t, std::int32_t, CCellFormat&) {};
    EXPECT_THAT(
        DrawnCalls("RequestCellFormat"),
        ElementsAre("RequestCellFormat 1,1", "RequestCellFormat 1,2", "RequestCellFormat 2,1",
                    "RequestCellFormat 2,2", "RequestCellFormat 3,1", "RequestCellFormat 3,2"));
}

TEST_F(DrawingRules, WhatAHandlerWritesLivesForOnePaintOnly) {
    Format(1, 1, [](CCellFormat& format) { format.Background = 1; });
    const CCellFormat before = store.EffectiveFormat(1, 1);
    host.handler = [](std::int32_t, std::int32_t, CCellFormat& format) {
        EXPECT_NE(format.Background, CellPaint);
        format.Background = CellPaint;
        format.ShowFormat = "[RMB_UPPER]";
    };
    EXPECT_THAT(DrawnCalls("FillSolidRect"), Contains(HasSubstr("0x00ABCD")));
    EXPECT_EQ(store.EffectiveFormat(1, 1), before);
    EXPECT_EQ(store.EffectiveFormat(2, 2), CCellFormat());
}

TEST_F(DrawingRules, TheTextIsFetchedBeforeTheHandlerRuns) {
    store.SetCellText(1, 1, "old and long enough to lie outside of the string itself");
    host.handler = [this](std::int32_t row, std::int32_t col, CCellFormat& format) {
        store.SetCellText(row, col, "new");
        store.CellTextMap.Remove({row, col});
        store.CellFormatMap.Remove({row, col});
        format.ShowFormat = "YYYY-MM-DD";
    };
    EXPECT_THAT(DrawnCalls("DrawText \"old and long"), SizeIs(1));
}

TEST_F(DrawingRules, HandlerThatDeletesRowsDoesNotBreakThePaint) {
    RowColumnOperations operations{store, selection, recorder};
    SetSize(50, 20);
    for (std::int32_t row = 1; row <= 50; ++row) {
        store.SetCellText(row, 1, std::string(40, 'x'));
        store.SetRowHeight(row, 18 + row % 3);
        Format(row, 1, [](CCellFormat& format) { format.Validity = std::string(40, 'v'); });
    }
    host.handler = [&](std::int32_t row, std::int32_t col, CCellFormat&) {
        if (col == 1) {
            operations.DeleteRows(row, 5);
        }
    };
    EXPECT_THAT(DrawnCalls("RequestCellFormat"), SizeIs(12));
    EXPECT_LT(properties.MaxRow, 50);
}

TEST_F(DrawingRules, HandlerThatEmptiesTheSheetDoesNotBreakThePaint) {
    store.SetCellText(3, 2, "last");
    host.handler = [this](std::int32_t, std::int32_t, CCellFormat&) {
        store.CellTextMap = TextMap();
        store.CellFormatMap = FormatMap();
        store.RowHeightMap = SizeMap();
        store.DefCellFormat = CCellFormat();
        selection.SelectionList.clear();
        properties.MaxRow = 0;
        properties.MaxCol = 0;
        properties.GuiMode = true;
        layout.FirstVisibleRow = 1000;
        host.handler = [](std::int32_t, std::int32_t, CCellFormat&) {};
    };
    const std::string dump = Draw();
    EXPECT_THAT(LinesThatBegin(dump, "RequestCellFormat"), SizeIs(6));
    EXPECT_THAT(dump, Not(HasSubstr("\"last\"")));
}

TEST_F(DrawingRules, HandlerThatPaintsTheSheetAgainDoesNotBreakThePaint) {
    store.SetCellText(1, 1, "a");
    bool isInside = false;
    host.handler = [&](std::int32_t, std::int32_t, CCellFormat& format) {
        if (!std::exchange(isInside, true)) {
            RecordingSurface inner;
            OnDraw(context, image, inner, {0, 0, 60, 40}, {});
            format.Background = CellPaint;
        }
    };
    EXPECT_THAT(DrawnCalls("FillSolidRect 30,20,69,37"), SizeIs(1));
}

TEST_F(DrawingRules, DatasetThatChangesTheSheetDoesNotBreakThePaint) {
    CountingDataset dataset;
    store.BoundDataset = &dataset;
    Format(1, 1, [](CCellFormat& format) { format.ShowFormat = std::string(40, 's'); });
    dataset.onAsk = [this] {
        store.CellFormatMap = FormatMap();
        store.DefCellFormat.ShowFormat = std::string(60, 'd');
    };
    EXPECT_THAT(DrawnCalls("DrawText \"v1\""), SizeIs(2));
    EXPECT_EQ(GetCellFormatText(store, 1, 1), "v1");
}

class OneCombo final : public ComboBoxes {
  public:
    bool ControlHasWindow() const override { return true; }
    std::size_t ObjectCount() const override { return 1; }
    std::optional<std::string> BindSourceOf(std::size_t) const override { return "C2"; }
    bool ObjectHasWindow(std::size_t) const override { return true; }
    std::string ItemText(std::size_t, std::string_view value) const override {
        return "item " + std::string(value);
    }
};

TEST_F(DrawingRules, ComboTextComesFromTheComboBoxOfTheColumn) {
    const OneCombo combos;
    for (const std::int32_t col : {1, 2}) {
        store.SetCellText(1, col, "5");
        store.SetCellShowFormat(1, col, "[CB_TEXT]");
    }
    EXPECT_THAT(DrawnCalls("DrawText \"item"), IsEmpty());
    host.combos = &combos;
    EXPECT_THAT(DrawnCalls("DrawText \"item"),
                ElementsAre("DrawText \"item 5\" 72,22,107,35 LEFT"));
}

// Random sheets, seen through the backgrounds of their cells.
class DrawingAgainstLayout : public DrawingTest {
  protected:
    std::int32_t Number(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution(low, high)(random);
    }
    void MakeSheet() {
        properties.ShowRowHeaders = Number(0, 1) != 0;
        properties.ShowColHeaders = Number(0, 1) != 0;
        SetSize(Number(1, 30), Number(1, 15));
        properties.DefCellHeight = Number(0, 4) == 0 ? 0 : Number(1, 30);
        store.RowHeightMap = SizeMap();
        store.ColWidthMap = SizeMap();
        for (std::int32_t i = Number(0, 20); i > 0; --i) {
            store.SetRowHeight(Number(1, 30), std::max(0, Number(-20, 40)));
            store.SetColWidth(Number(1, 15), std::max(0, Number(-20, 80)));
        }
        layout.FirstVisibleRow = Number(1, properties.MaxRow);
        layout.FirstVisibleCol = Number(1, properties.MaxCol);
        store.ActiveRow = Number(1, properties.MaxRow);
        store.ActiveCol = Number(1, properties.MaxCol);
        bounds = {Number(-20, 20), Number(-20, 20), Number(30, 300), Number(30, 200)};
        selection.SelectionList = {{Number(1, 5), Number(1, 5), Number(5, 30), Number(5, 15)}};
    }

    std::mt19937 random{20030814};
};

TEST_F(DrawingAgainstLayout, CellsLieWhereCellRectSaysAndNoCellOnViewIsLeftOut) {
    store.DefCellFormat.Background = CellPaint;
    for (int round = 0; round < 500; ++round) {
        MakeSheet();
        const Lines drawn = LinesThatBegin(Draw(), "FillSolidRect");
        Lines expected;
        for (std::int32_t row = layout.FirstVisibleRow; row <= properties.MaxRow; ++row) {
            for (std::int32_t col = layout.FirstVisibleCol; col <= properties.MaxCol; ++col) {
                const Rect rect = layout.CellRect(row, col);
                const bool isCounted = row < layout.FirstVisibleRow + layout.m_visible.Rows &&
                                       col < layout.FirstVisibleCol + layout.m_visible.Cols;
                if (isCounted && !rect.IsRectEmpty()) {
                    expected.push_back("FillSolidRect " + Text(rect) + " 0x00ABCD");
                }
            }
        }
        Lines cells;
        std::copy_if(drawn.begin(), drawn.end(), std::back_inserter(cells),
                     [](const std::string& line) { return line.ends_with("0x00ABCD"); });
        // Bounds that do not begin at 0 may stop the cells early; then all up to there are drawn.
        ASSERT_LE(cells.size(), expected.size());
        if (bounds.left >= 0 && bounds.top >= 0) {
            ASSERT_EQ(cells, expected);
        }
        for (const std::string& cell : cells) {
            ASSERT_THAT(expected, Contains(cell));
        }
    }
}

TEST_F(DrawingAgainstLayout, InversionCoversTheSelectedCellsOnView) {
    for (int round = 0; round < 500; ++round) {
        MakeSheet();
        Draw();
        RecordingSurface surface;
        InvertSelection(context, surface);
        Lines expected;
        const CellRange range = layout.VisibleRange(false);
        for (std::int32_t col = range.Col1; col <= range.Col2; ++col) {
            for (std::int32_t row = range.Row1; row <= range.Row2; ++row) {
                const Rect rect = layout.CellRect(row, col);
                const bool isActive = row == store.ActiveRow && col == store.ActiveCol;
                if (selection.IsCellSelected(row, col) && !isActive && !rect.IsRectEmpty()) {
                    expected.push_back("InvertRect " + Text(rect));
                }
            }
        }
        ASSERT_EQ(LinesThatBegin(surface.Dump(), "InvertRect"), expected);
    }
}

TEST_F(DrawingAgainstLayout, TheChangeOfADragInvertsWhatInvertingTwiceLeavesInverted) {
    const auto range = [this] {
        return CellRange{Number(0, 30), Number(0, 8), Number(0, 30), Number(0, 8)};
    };
    for (int round = 0; round < 500; ++round) {
        MakeSheet();
        Draw();
        const CellRange former = selection.DragRange = range();
        RecordingSurface twice;
        InvertSelection(context, twice);
        selection.DragRange = range();
        InvertSelection(context, twice);
        RecordingSurface once;
        InvertSelectionChange(context, once, former);
        const Lines inverted = LinesThatBegin(twice.Dump(), "InvertRect");
        Lines left;
        for (const std::string& line : inverted) {
            if (std::count(inverted.begin(), inverted.end(), line) == 1) {
                left.push_back(line);
            }
        }
        ASSERT_THAT(LinesThatBegin(once.Dump(), "InvertRect"), UnorderedElementsAreArray(left));
    }
}

}  // namespace
}  // namespace veygrid
