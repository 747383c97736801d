// The active cell and the selection.
#include "grid/Selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "SheetRecorder.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t IntMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t IntMax = std::numeric_limits<std::int32_t>::max();

class SelectionTest : public SheetTest {
  protected:
    SelectionTest() { recorder.hasWindow = true; }

    CellPos Active() const {
        CellPos cell;
        selection.GetActiveCell(&cell.Row, &cell.Col);
        return cell;
    }
    CellRange At(std::int32_t index) const {
        CellRange range;
        EXPECT_TRUE(selection.GetSelection(index, range));
        return range;
    }
};

TEST_F(SelectionTest, TheActiveCellStartsAtOneOneAndEachPointerMayBeNull) {
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    std::int32_t row = 0;
    selection.GetActiveCell(&row, nullptr);
    EXPECT_EQ(row, 1);
    selection.GetActiveCell(nullptr, nullptr);
}

TEST_F(SelectionTest, ZeroZeroIsAccepted) {
    selection.SetActiveCell(0, 0);
    EXPECT_EQ(Active(), (CellPos{0, 0}));
}

TEST_F(SelectionTest, ACellBeyondTheSheetIsIgnoredWithoutAnyEvent) {
    const Lines calls = CallsOf([&] {
        selection.SetActiveCell(51, 1);
        selection.SetActiveCell(1, 21);
        selection.SetActiveCell(-1, 1);
        selection.SetActiveCell(1, -1);
        selection.SetActiveCell(IntMin, IntMax);
    });
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    selection.SetActiveCell(50, 20);
    EXPECT_EQ(Active(), (CellPos{50, 20}));
}

TEST_F(SelectionTest, SetActiveCellTellsInThisOrder) {
    EXPECT_THAT(
        CallsOf([&] { selection.SetActiveCell(3, 4); }),
        ElementsAre("CellSelChanging 3,4 1", "SendCellSelChange 3,4", "PostCellSelChange 3,4",
                    "InvalidateActiveCellAreas 1,1", "InvalidateActiveCellAreas 3,4",
                    "CellSelChanged", "InvalidateHeaderCorner"));
}

TEST_F(SelectionTest, WithoutAWindowNobodyIsAsked) {
    recorder.hasWindow = false;
    recorder.allowChange = 0;
    EXPECT_THAT(CallsOf([&] { selection.SetActiveCell(3, 4); }),
                ElementsAre("InvalidateActiveCellAreas 1,1", "InvalidateActiveCellAreas 3,4",
                            "InvalidateHeaderCorner"));
    EXPECT_EQ(Active(), (CellPos{3, 4}));
}

TEST_F(SelectionTest, InRowModeTheStripsOfBothRowsAreInvalidated) {
    store.Properties.RowMode = true;
    recorder.hasWindow = false;
    EXPECT_THAT(CallsOf([&] { selection.SetActiveCell(3, 4); }),
                ElementsAre("InvalidateActiveRowStrip 1", "InvalidateActiveRowStrip 3",
                            "InvalidateHeaderCorner"));
}

TEST_F(SelectionTest, AHostThatRefusesSeesNoCellSelChangedAndTheCellStays) {
    recorder.allowChange = 0;
    EXPECT_THAT(CallsOf([&] { selection.SetActiveCell(3, 4); }),
                ElementsAre("CellSelChanging 3,4 1"));
    EXPECT_EQ(Active(), (CellPos{1, 1}));
}

TEST_F(SelectionTest, OnlyZeroRefuses) {
    recorder.allowChange = -5;
    selection.SetActiveCell(3, 4);
    EXPECT_EQ(Active(), (CellPos{3, 4}));
}

TEST_F(SelectionTest, InGuiModeTheCellMovesWithoutCellSelChangedOrARepaint) {
    store.Properties.GuiMode = true;
    store.Properties.RowMode = true;
    EXPECT_THAT(
        CallsOf([&] { selection.SetActiveCell(3, 4); }),
        ElementsAre("CellSelChanging 3,4 1", "SendCellSelChange 3,4", "PostCellSelChange 3,4"));
    EXPECT_EQ(Active(), (CellPos{3, 4}));
}

TEST_F(SelectionTest, ARecordThatCannotBeSavedStopsTheMoveWithAMessage) {
    store.Properties.ModifiedLog = 1;
    store.Properties.DataSource = "SELECT A FROM T";
    store.ModifyCellText(1, 1, "x");
    recorder.saveAnswer = 7;
    EXPECT_THAT(CallsOf([&] { selection.SetActiveCell(2, 1); }),
                ElementsAre("CellSelChanging 2,1 1", "SendCellSelChange 2,1", "SaveRecord 2,0",
                            "ShowMessage 16 当前记录存盘失败!"));
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    EXPECT_FALSE(store.Log.IsEmpty());
}

TEST_F(SelectionTest, TheRecordIsSavedOnlyWhenTheRowChangesInAModifiedSheetWithADataSource) {
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(selection.OnCellSelChange(2, 1), 1); }),
                ElementsAre("PostCellSelChange 2,1"));
    store.Properties.ModifiedLog = 1;
    store.ModifyCellText(1, 1, "x");
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(selection.OnCellSelChange(2, 1), 1); }),
                ElementsAre("PostCellSelChange 2,1"));
    store.Properties.DataSource = "SELECT A FROM T";
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(selection.OnCellSelChange(1, 9), 1); }),
                ElementsAre("PostCellSelChange 1,9"));
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(selection.OnCellSelChange(2, 1), 1); }),
                ElementsAre("SaveRecord 2,0", "PostCellSelChange 2,1"));
    recorder.saveAnswer = 7;
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(selection.OnCellSelChange(2, 1), 7); }),
                ElementsAre("SaveRecord 2,0", "ShowMessage 16 当前记录存盘失败!"));
}

TEST_F(SelectionTest, SetActiveCellLeavesTheSelectionAlone) {
    selection.SetSelection(1, 1, 2, 2);
    selection.SetActiveCell(9, 9);
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{1, 1, 2, 2}));
}

TEST_F(SelectionTest, WithoutASelectionTheActiveCellCountsAsOne) {
    selection.SetActiveCell(3, 4);
    EXPECT_EQ(selection.GetSelectionCount(), 1);
    EXPECT_EQ(At(0), (CellRange{3, 4, 3, 4}));
}

TEST_F(SelectionTest, AnIndexBeyondTheListGivesTheActiveCellAndTrue) {
    selection.SetSelection(1, 1, 2, 2);
    selection.SetActiveCell(7, 8);
    EXPECT_EQ(selection.GetSelectionCount(), 1);
    EXPECT_EQ(At(0), (CellRange{1, 1, 2, 2}));
    EXPECT_EQ(At(5), (CellRange{7, 8, 7, 8}));
    EXPECT_EQ(At(-1), (CellRange{7, 8, 7, 8}));
    EXPECT_EQ(At(IntMin), (CellRange{7, 8, 7, 8}));
}

TEST_F(SelectionTest, AReversedSelectionReadsBackNormalised) {
    selection.SetSelection(5, 4, 2, 1);
    EXPECT_EQ(At(0), (CellRange{2, 1, 5, 4}));
}

TEST_F(SelectionTest, SetSelectionRepaintsAndMovesNothing) {
    selection.SelectionList = {{1, 1, 1, 1}, {2, 2, 2, 2}};
    EXPECT_THAT(CallsOf([&] { selection.SetSelection(3, 3, 4, 4); }),
                ElementsAre("InvalidateControl"));
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{3, 3, 4, 4}));
    EXPECT_EQ(Active(), (CellPos{1, 1}));
}

TEST_F(SelectionTest, NormalisingKeepsWholeSheetWholeRowsAndWholeColumns) {
    selection.SetSelection(-1, -1, -1, -1);
    EXPECT_TRUE(At(0).IsWholeSheet());
    selection.SetSelection(4, 0, 2, 0);
    EXPECT_EQ(RangeKind(At(0)), RangeKindOf::WholeRows);
    selection.SetSelection(0, 4, 0, 2);
    EXPECT_EQ(RangeKind(At(0)), RangeKindOf::WholeColumns);
}

TEST_F(SelectionTest, SelectionWorksWithAllowSelectionsOff) {
    store.Properties.AllowSelections = false;
    selection.SetSelection(2, 2, 3, 3);
    selection.SetActiveCell(5, 5);
    EXPECT_EQ(At(0), (CellRange{2, 2, 3, 3}));
    EXPECT_EQ(Active(), (CellPos{5, 5}));
}

TEST_F(SelectionTest, RangeKindsAreTestedInTheirOrder) {
    const auto kind = [](std::int32_t row1, std::int32_t col1, std::int32_t row2,
                         std::int32_t col2) {
        return RangeKind({row1, col1, row2, col2});
    };
    EXPECT_EQ(kind(3, 3, 3, 3), RangeKindOf::SingleCell);
    EXPECT_EQ(kind(3, 3, 4, 3), RangeKindOf::Block);
    EXPECT_EQ(kind(4, 4, 3, 3), RangeKindOf::Block);
    EXPECT_EQ(kind(0, 0, 0, 0), RangeKindOf::Empty);
    EXPECT_EQ(kind(2, 0, 5, 0), RangeKindOf::WholeRows);
    EXPECT_EQ(kind(-1, 0, -1, 0), RangeKindOf::WholeRows);
    EXPECT_EQ(kind(0, 2, 0, 5), RangeKindOf::WholeColumns);
    EXPECT_EQ(kind(-1, -1, -1, -1), RangeKindOf::WholeSheet);
    EXPECT_EQ(kind(2, 0, 5, 3), RangeKindOf::Other);
    EXPECT_EQ(kind(-1, 1, 1, 1), RangeKindOf::Other);
}

TEST_F(SelectionTest, ACellIsSelectedByABlockByWholeLinesOrByTheSheet) {
    selection.SelectionList = {{2, 2, 3, 3}, {7, 0, 8, 0}, {0, 9, 0, 9}};
    EXPECT_TRUE(selection.IsCellSelected(2, 3));
    EXPECT_FALSE(selection.IsCellSelected(2, 4));
    EXPECT_TRUE(selection.IsCellSelected(8, IntMax));
    EXPECT_FALSE(selection.IsCellSelected(6, 1));
    EXPECT_TRUE(selection.IsCellSelected(IntMax, 9));
    EXPECT_FALSE(selection.IsCellSelected(1, 8));
    selection.SelectionList = {CellRange::WholeSheet()};
    EXPECT_TRUE(selection.IsCellSelected(0, 0));
    EXPECT_TRUE(selection.IsCellSelected(IntMin, IntMax));
}

TEST_F(SelectionTest, TheDraggedRangeCountsAsSelectedWhileItExists) {
    EXPECT_FALSE(selection.IsCellSelected(0, 0));
    EXPECT_FALSE(selection.IsCellSelected(0, 5));
    selection.DragRange = {5, 4, 3, 2};
    EXPECT_TRUE(selection.IsCellSelected(4, 3));
    EXPECT_FALSE(selection.IsCellSelected(6, 3));
    EXPECT_EQ(selection.GetSelectionCount(), 1);
    selection.DragRange = {};
    EXPECT_FALSE(selection.IsCellSelected(4, 3));
}

TEST_F(SelectionTest, TickingARowTwiceTakesTheTickAway) {
    selection.ToggleCheckedRow(5);
    selection.ToggleCheckedRow(2);
    EXPECT_THAT(selection.CheckedRowList, ElementsAre(5, 2));
    EXPECT_TRUE(selection.IsRowChecked(5));
    selection.ToggleCheckedRow(5);
    EXPECT_THAT(selection.CheckedRowList, ElementsAre(2));
    EXPECT_FALSE(selection.IsRowChecked(5));
}

}  // namespace
}  // namespace veygrid
