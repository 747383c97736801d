// Cells as tabbed text, in both directions.
#include "persist/TabbedText.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "Support.h"

namespace veygrid {
namespace {

constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();

struct TabbedText : testing::Test {
    void FillSquare() {
        store.SetCellText(1, 1, "a");
        store.SetCellText(1, 2, "b");
        store.SetCellText(2, 1, "c");
        store.SetCellText(2, 2, "d");
    }

    Grid grid;
    GridStore& store = grid.Store;
};

TEST_F(TabbedText, ABlockIsItsHeaderRowAndThenItsRows) {
    FillSquare();
    EXPECT_EQ(GetRangeText(store, 1, 1, 2, 2), "A\tB\r\na\tb\r\nc\td");
}

TEST_F(TabbedText, ReversedBoundsGiveTheSame) {
    FillSquare();
    EXPECT_EQ(GetRangeText(store, 2, 2, 1, 1), GetRangeText(store, 1, 1, 2, 2));
}

TEST_F(TabbedText, OpenBoundsCoverRows1ToLastRowAndColumns1ToLastCol) {
    FillSquare();
    store.SetCellText(3, 1, "e");
    EXPECT_EQ(store.Properties.LastRow, 3);
    EXPECT_EQ(store.Properties.LastCol, 2);
    EXPECT_EQ(GetRangeText(store, 0, 0, 0, 0), "A\tB\r\na\tb\r\nc\td\r\ne\t");
    EXPECT_EQ(GetRangeText(store, -1, -1, -1, -1), GetRangeText(store, 0, 0, 0, 0));
    EXPECT_EQ(GetRangeText(store, Least, Least, Least, Least), GetRangeText(store, 0, 0, 0, 0));
}

TEST_F(TabbedText, AnEmptySheetReadsRow0AsTheActiveRow) {
    EXPECT_EQ(GetRangeText(store, 0, 0, 0, 0), "\tA\r\n\t\r\n\t");
    store.CellTextMap.Set({4, 6}, "active");
    store.ActiveRow = 4;
    store.ActiveCol = 6;
    EXPECT_EQ(GetRangeText(store, 0, 0, 0, 0), "\tA\r\nactive\t\r\n\t");
}

TEST_F(TabbedText, ALastRowBelowZeroIsSwappedLikeAnyOther) {
    store.Properties.LastRow = -1;
    store.Properties.LastCol = 1;
    store.CellTextMap.Set({-1, 1}, "below");
    store.CellTextMap.Set({1, 1}, "first");
    EXPECT_EQ(GetRangeText(store, 0, 0, 0, 0), "A\r\nbelow\r\nfirst\r\nfirst");
}

TEST_F(TabbedText, TheRangeMayLieBeyondMaxRowAndMaxCol) {
    store.SetCellText(60, 30, "far");
    EXPECT_EQ(GetRangeText(store, 60, 30, 60, 30), "AD\r\nfar");
    store.CellTextMap.Set({Most, Most}, "corner");
    store.Properties.ShowDefColHeader = false;
    EXPECT_EQ(GetRangeText(store, Most, Most, Most, Most), "\r\ncorner");
}

TEST_F(TabbedText, OwnHeadersStandInTheHeaderRow) {
    FillSquare();
    store.SetColHeader(2, Gbk(u8"金额"));
    EXPECT_EQ(GetRangeText(store, 1, 1, 1, 2), "A\t" + Gbk(u8"金额") + "\r\na\tb");
}

class NumberedDataset final : public Dataset {
  public:
    std::string GetCellValue(std::int32_t row, std::int32_t col) override {
        return std::to_string(row) + "." + std::to_string(col);
    }
    std::int32_t GetColCount() override { return 2; }
    std::int32_t GetRowCount() override { return 2; }
    std::int32_t SetColCaption(std::int32_t, std::string_view) override { return 0; }
    std::string GetColName(std::int32_t col) override { return "F" + std::to_string(col); }
};

TEST_F(TabbedText, WithADatasetBoundOpenBoundsGoToMaxRowAndMaxCol) {
    NumberedDataset dataset;
    store.BoundDataset = &dataset;
    store.Properties.MaxRow = 2;
    store.Properties.MaxCol = 2;
    store.Properties.LastRow = 9;
    store.Properties.LastCol = 9;
    EXPECT_EQ(GetRangeText(store, 0, 0, 0, 0), "F1\tF2\r\n1.1\t1.2\r\n2.1\t2.2");
}

TEST_F(TabbedText, ARangeWhoseTextCannotBeHeldIsRefusedBeforeAnythingIsAllocated) {
    EXPECT_THROW(GetRangeText(store, 1, 1, Most, Most), std::length_error);
    EXPECT_THROW(GetRangeText(store, 1, 1, Most, 1), std::length_error);
    EXPECT_THROW(GetRangeText(store, 1, 1, 1, Most), std::length_error);
    store.Properties.LastRow = Least;
    store.Properties.LastCol = Least;
    EXPECT_THROW(GetRangeText(store, Most, Most, 0, 0), std::length_error);
    EXPECT_THROW(GetRangeText(store, 1, 1, 65535, 65535), std::length_error);
}

TEST_F(TabbedText, SeparatorsAndTextsCountToTheBound) {
    FillSquare();
    const std::string text = GetRangeText(store, 1, 1, 2, 2);
    EXPECT_EQ(GetRangeText(store, 1, 1, 2, 2, text.size()), text);
    EXPECT_THROW(GetRangeText(store, 1, 1, 2, 2, text.size() - 1), std::length_error);
    EXPECT_THROW(GetRangeText(store, 1, 1, 2, 2, 6), std::length_error);
    EXPECT_EQ(GetRangeText(store, 9, 1, 8, 1, 5), "A\r\n\r\n");
    EXPECT_THROW(GetRangeText(store, 9, 1, 8, 1, 4), std::length_error);
}

TEST_F(TabbedText, WithNoSelectionTheActiveCellComesAloneWithoutTheHeader) {
    store.SetCellText(1, 1, "x");
    EXPECT_EQ(SelectionText(store, {}), "x");
}

TEST_F(TabbedText, OfSeveralRangesTheLastIsTaken) {
    FillSquare();
    const std::vector<CellRange> selection{{1, 1, 2, 2}, {2, 1, 2, 1}};
    EXPECT_EQ(SelectionText(store, selection), "A\r\nc");
}

TEST_F(TabbedText, WholeRowsColumnsAndTheSheetReachAsFarAsTheSheetHolds) {
    FillSquare();
    EXPECT_EQ(SelectionText(store, std::vector<CellRange>{{2, 0, 2, 0}}), "A\tB\r\nc\td");
    EXPECT_EQ(SelectionText(store, std::vector<CellRange>{{0, 2, 0, 2}}), "B\r\nb\r\nd");
    EXPECT_EQ(SelectionText(store, std::vector<CellRange>{CellRange::WholeSheet()}),
              "A\tB\r\na\tb\r\nc\td");
}

TEST_F(TabbedText, AShorterLineLeavesTheCellsBehindItAlone) {
    SetTabbedText(store, 1, 1, "a\tb\r\nc");
    EXPECT_EQ(store.CellText(1, 1), "a");
    EXPECT_EQ(store.CellText(1, 2), "b");
    EXPECT_EQ(store.CellText(2, 1), "c");
    EXPECT_EQ(store.CellTextMap.Find({2, 2}), nullptr);
    EXPECT_EQ(store.CellTextMap.Count(), 3U);
}

TEST_F(TabbedText, ALineEndOfLineFeedAloneWorksLikeBoth) {
    Grid other;
    SetTabbedText(store, 1, 1, "a\tb\nc\td");
    SetTabbedText(other.Store, 1, 1, "a\tb\r\nc\td");
    EXPECT_EQ(GetRangeText(store, 0, 0, 0, 0), GetRangeText(other.Store, 0, 0, 0, 0));
    EXPECT_EQ(store.CellText(2, 2), "d");
}

TEST_F(TabbedText, EveryCarriageReturnAtTheEndOfALineIsDroppedAndOthersStay) {
    SetTabbedText(store, 1, 1, "a\rb\r\r\r\nc\r");
    EXPECT_EQ(store.CellText(1, 1), "a\rb");
    EXPECT_EQ(store.CellText(2, 1), "c");
}

TEST_F(TabbedText, AnEmptyTextStoresAnEmptyStringAtTheStartCell) {
    store.SetCellText(3, 4, "old");
    SetTabbedText(store, 3, 4, "");
    ASSERT_NE(store.CellTextMap.Find({3, 4}), nullptr);
    EXPECT_EQ(*store.CellTextMap.Find({3, 4}), "");
}

TEST_F(TabbedText, ATextThatEndsInALineEndWritesOneMoreEmptyCell) {
    store.SetCellText(2, 1, "old");
    store.SetCellText(2, 2, "kept");
    SetTabbedText(store, 1, 1, "a\tb\r\n");
    EXPECT_EQ(store.CellText(2, 1), "");
    EXPECT_EQ(store.CellText(2, 2), "kept");
}

TEST_F(TabbedText, EmptyFieldsAreWritten) {
    store.SetCellText(1, 2, "old");
    SetTabbedText(store, 1, 1, "a\t\tc");
    EXPECT_EQ(store.CellText(1, 2), "");
    EXPECT_EQ(store.CellText(1, 3), "c");
}

TEST_F(TabbedText, PastingAtMaxRowATextOfThreeLinesStoresRowsPastMaxRow) {
    SetTabbedText(store, 50, 1, "x\r\ny\r\nz");
    EXPECT_EQ(store.CellText(52, 1), "z");
    EXPECT_EQ(store.Properties.LastRow, 52);
    EXPECT_EQ(store.Properties.MaxRow, 50);
}

TEST_F(TabbedText, ACellMarkedReadOnlyIsOverwrittenByAPasteAndNothingIsLogged) {
    CCellFormat format;
    format.SetReadOnly(true);
    store.StoreCellFormat(1, 1, format);
    store.Properties.ModifiedLog = 3;
    SetTabbedText(store, 1, 1, "new");
    EXPECT_EQ(store.CellText(1, 1), "new");
    EXPECT_TRUE(store.Log.IsEmpty());
}

TEST_F(TabbedText, TwoByteCharactersPassUnsplit) {
    // Trail bytes that are letters, a bar, braces, a backslash and a tilde.
    const std::string odd = "\x81\x41\x81\x7C\x81\x7B\x81\x7D\x8B\x5C\x95\x7E";
    SetTabbedText(store, 1, 1, odd + "\t" + odd + "\r\n" + odd);
    EXPECT_EQ(store.CellText(1, 1), odd);
    EXPECT_EQ(store.CellText(1, 2), odd);
    EXPECT_EQ(store.CellText(2, 1), odd);
    EXPECT_EQ(GetRangeText(store, 1, 1, 1, 2), "A\tB\r\n" + odd + "\t" + odd);
}

TEST_F(TabbedText, ABrokenLeadByteDoesNotSwallowATabOrALineEnd) {
    SetTabbedText(store, 1, 1, "a\x81\tb\x81\r\nc");
    EXPECT_EQ(store.CellText(1, 2), "b\x81");
    EXPECT_EQ(store.CellText(2, 1), "c");
}

TEST_F(TabbedText, APasteOfACopyBringsTheHeaderRowWithIt) {
    FillSquare();
    SetTabbedText(store, 5, 1, GetRangeText(store, 1, 1, 2, 2));
    EXPECT_EQ(store.CellText(5, 1), "A");
    EXPECT_EQ(store.CellText(6, 1), "a");
    EXPECT_EQ(store.CellText(7, 2), "d");
}

TEST_F(TabbedText, RowAndColumnMinusOneAreTheSettersActiveCell) {
    store.ActiveRow = 3;
    store.ActiveCol = 4;
    SetTabbedText(store, -1, -1, "x\ty\nz");
    EXPECT_EQ(store.CellText(3, 4), "x");
    EXPECT_EQ(*store.CellTextMap.Find({3, 0}), "y");
    EXPECT_EQ(*store.CellTextMap.Find({0, 4}), "z");
}

TEST_F(TabbedText, NumbersWrapAtTheFarEnd) {
    SetTabbedText(store, Most, Most, "a\tb\nc");
    EXPECT_EQ(*store.CellTextMap.Find({Most, Most}), "a");
    EXPECT_EQ(*store.CellTextMap.Find({Most, Least}), "b");
    EXPECT_EQ(*store.CellTextMap.Find({Least, Most}), "c");
}

TEST_F(TabbedText, EachCellGoesThroughTheSetterWithItsNotices) {
    struct Watcher : StoreWatcher {
        void FireModified() override { ++modified; }
        void InvalidateCell(CellPos cell) override { cells.push_back(cell); }
        int modified = 0;
        std::vector<CellPos> cells;
    } watcher;
    GridStore watched(watcher);
    SetTabbedText(watched, 2, 3, "a\tb\nc");
    EXPECT_EQ(watcher.modified, 3);
    EXPECT_EQ(watcher.cells, (std::vector<CellPos>{{2, 3}, {2, 4}, {3, 3}}));
}

}  // namespace
}  // namespace veygrid
