// Insertion, deletion, clearing and moving, with every way in which rows and columns differ.
#include "grid/RowColumnOperations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "SheetRecorder.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::int32_t IntMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t IntMax = std::numeric_limits<std::int32_t>::max();

constexpr std::int16_t ClearAll = 0;
constexpr std::int16_t ClearFormats = 1;
constexpr std::int16_t ClearTexts = 2;

class RowColumnOperationsTest : public SheetTest {
  protected:
    // Fills column 1 of the rows with their numbers.
    void FillRows(std::int32_t last) {
        for (std::int32_t row = 1; row <= last; ++row) {
            store.SetCellText(row, 1, std::to_string(row));
        }
    }
    void BindQuery() {
        store.Properties.DataSource = "SELECT T.A FROM T";
        store.QueryBound = true;
    }
    // The texts of column 1, "-" for an empty cell.
    std::string Column(std::int32_t last) const {
        std::string texts;
        for (std::int32_t row = 1; row <= last; ++row) {
            const std::string text = store.CellText(row, 1);
            texts += text.empty() ? "-" : text;
        }
        return texts;
    }
};

TEST_F(RowColumnOperationsTest, OnANewSheetInsertColsDoesNothingUntilACellIsWritten) {
    EXPECT_THAT(CallsOf([&] { operations.InsertCols(1, 1); }), IsEmpty());
    EXPECT_EQ(store.Properties.MaxCol, 20);
    store.SetCellText(1, 1, "x");
    operations.InsertCols(1, 1);
    EXPECT_EQ(store.Properties.MaxCol, 21);
    EXPECT_EQ(store.Properties.LastCol, 1);
    EXPECT_THAT(KeysOf(store.CellTextMap), ElementsAre(CellPos{1, 2}));
}

TEST_F(RowColumnOperationsTest, InsertRowsAtMaxRowPlusOneIsAllowedAndPlusTwoIgnored) {
    EXPECT_THAT(CallsOf([&] { operations.InsertRows(52, 1); }), IsEmpty());
    EXPECT_EQ(store.Properties.MaxRow, 50);
    operations.InsertRows(51, 1);
    EXPECT_EQ(store.Properties.MaxRow, 51);
    EXPECT_EQ(store.Properties.LastRow, 1);
    EXPECT_EQ(store.ActiveRow, 51);
}

TEST_F(RowColumnOperationsTest, StartsBelowOneAreIgnored) {
    store.SetCellText(3, 3, "x");
    const Lines calls = CallsOf([&] {
        for (const std::int32_t start : {0, -1, IntMin}) {
            operations.InsertRows(start, 1);
            operations.DeleteRows(start, 1);
            operations.InsertCols(start, 1);
            operations.DeleteCols(start, 1);
        }
    });
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(RowColumnOperationsTest, StartsBeyondLastRowOrLastColAreIgnored) {
    store.SetCellText(3, 3, "x");
    const Lines calls = CallsOf([&] {
        operations.DeleteRows(4, 1);
        operations.InsertCols(4, 1);
        operations.DeleteCols(4, 1);
    });
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_EQ(store.Properties.MaxRow, 50);
}

TEST_F(RowColumnOperationsTest, InsertRowsThatWouldPass65535LeavesMaxRowThere) {
    store.Properties.MaxRow = 65530;
    store.Properties.LastRow = 65534;
    operations.InsertRows(1, 10);
    EXPECT_EQ(store.Properties.MaxRow, 65535);
    EXPECT_EQ(store.Properties.LastRow, 65535);
    store.Properties.MaxRow = 100000;
    operations.InsertRows(1, 1);
    EXPECT_EQ(store.Properties.MaxRow, 65535);
}

TEST_F(RowColumnOperationsTest, InsertColsPassesTheLimitOnceAndThenGrowsNoMore) {
    store.SetCellText(1, 1, "x");
    store.Properties.MaxCol = 65534;
    operations.InsertCols(1, 10);
    EXPECT_EQ(store.Properties.MaxCol, 65544);
    operations.InsertCols(1, 10);
    EXPECT_EQ(store.Properties.MaxCol, 65544);
    store.Properties.MaxCol = 65535;
    operations.InsertCols(1, 10);
    EXPECT_EQ(store.Properties.MaxCol, 65535);
}

TEST_F(RowColumnOperationsTest, DeleteRowsOfFiveLowersMaxRowByOneAndMovesTheContentUpByFive) {
    FillRows(9);
    operations.DeleteRows(2, 5);
    EXPECT_EQ(store.Properties.MaxRow, 49);
    EXPECT_EQ(store.Properties.LastRow, 9);
    EXPECT_EQ(Column(9), "1789-----");
}

TEST_F(RowColumnOperationsTest, DeleteColsLowersMaxRowByOneAndLeavesMaxColAlone) {
    store.SetCellText(1, 1, "a");
    store.SetCellText(1, 5, "e");
    operations.DeleteCols(2, 3);
    EXPECT_EQ(store.Properties.MaxRow, 49);
    EXPECT_EQ(store.Properties.MaxCol, 20);
    EXPECT_EQ(store.CellText(1, 2), "e");
    EXPECT_EQ(store.Properties.LastCol, 5);
}

TEST_F(RowColumnOperationsTest, CountersAtZeroOrBelowAreNotLowered) {
    FillRows(2);
    store.Properties.MaxRow = 0;
    operations.DeleteRows(1, 1);
    EXPECT_EQ(store.Properties.MaxRow, 0);
    store.Properties.MaxCol = 0;
    operations.DeleteCols(1, 1);
    EXPECT_EQ(store.Properties.MaxRow, 0);
    store.Properties.MaxCol = 1;
    store.Properties.MaxRow = IntMin;
    operations.DeleteCols(1, 1);
    EXPECT_EQ(store.Properties.MaxRow, IntMax);
}

TEST_F(RowColumnOperationsTest, ARowHeaderStaysAndAColumnHeaderFollows) {
    store.SetRowHeader(3, "row");
    store.SetColHeader(3, "col");
    operations.InsertRows(1, 2);
    operations.InsertCols(1, 2);
    EXPECT_EQ(store.RowHeader(3), "row");
    EXPECT_EQ(store.ColHeader(3), "C");
    EXPECT_EQ(store.ColHeader(5), "col");
    operations.DeleteRows(1, 2);
    operations.DeleteCols(1, 2);
    EXPECT_EQ(store.RowHeader(3), "row");
    EXPECT_EQ(store.ColHeader(3), "col");
}

TEST_F(RowColumnOperationsTest, RowOperationsRenumberTheirOwnMapsOnly) {
    store.SetRowHeight(3, 30);
    store.SetRowName(3, "name");
    store.RowInfoMap.Set({3, 0}, "info");
    store.SetColWidth(3, 40);
    store.SetColName(3, "col");
    store.SetColType(3, 1);
    operations.InsertRows(2, 1);
    EXPECT_THAT(KeysOf(store.RowHeightMap), ElementsAre(CellPos{4, 0}));
    EXPECT_THAT(KeysOf(store.RowNameMap), ElementsAre(CellPos{4, 0}));
    EXPECT_THAT(KeysOf(store.RowInfoMap), ElementsAre(CellPos{4, 0}));
    EXPECT_THAT(KeysOf(store.ColWidthMap), ElementsAre(CellPos{0, 3}));
    EXPECT_THAT(KeysOf(store.ColNameMap), ElementsAre(CellPos{0, 3}));
    EXPECT_THAT(KeysOf(store.ColInfoMap), ElementsAre(CellPos{0, 3}));
    EXPECT_THAT(KeysOf(store.CellFormatMap), ElementsAre(CellPos{0, 3}));
}

TEST_F(RowColumnOperationsTest, ColumnOperationsRenumberTheirOwnMapsOnly) {
    store.SetRowHeight(3, 30);
    store.SetRowName(3, "name");
    store.RowInfoMap.Set({3, 0}, "info");
    store.SetColWidth(3, 40);
    store.SetColName(3, "col");
    store.SetColType(3, 1);
    operations.InsertCols(2, 1);
    EXPECT_THAT(KeysOf(store.RowHeightMap), ElementsAre(CellPos{3, 0}));
    EXPECT_THAT(KeysOf(store.RowNameMap), ElementsAre(CellPos{3, 0}));
    EXPECT_THAT(KeysOf(store.RowInfoMap), ElementsAre(CellPos{3, 0}));
    EXPECT_THAT(KeysOf(store.ColWidthMap), ElementsAre(CellPos{0, 4}));
    EXPECT_THAT(KeysOf(store.ColNameMap), ElementsAre(CellPos{0, 4}));
    EXPECT_THAT(KeysOf(store.ColInfoMap), ElementsAre(CellPos{0, 4}));
    EXPECT_THAT(KeysOf(store.CellFormatMap), ElementsAre(CellPos{0, 4}));
}

TEST_F(RowColumnOperationsTest, KeysOfTheOtherAxisAndOfTheSheetStay) {
    const CCellFormat format;
    store.StoreCellFormat(0, 0, format);
    store.StoreCellFormat(0, 2, format);
    store.StoreCellFormat(2, 0, format);
    operations.InsertRows(1, 3);
    EXPECT_THAT(KeysOf(store.CellFormatMap),
                UnorderedElementsAre(CellPos{0, 0}, CellPos{0, 2}, CellPos{5, 0}));
    operations.DeleteCols(1, 2);
    EXPECT_THAT(KeysOf(store.CellFormatMap), UnorderedElementsAre(CellPos{0, 0}, CellPos{5, 0}));
}

TEST_F(RowColumnOperationsTest, InsertRowsMovesTheActiveCellFirstAndRepaintsLast) {
    recorder.hasWindow = true;
    store.ActiveCol = 0;
    EXPECT_THAT(
        CallsOf([&] { operations.InsertRows(2, 1); }),
        ElementsAre("CellSelChanging 2,1 1", "SendCellSelChange 2,1", "PostCellSelChange 2,1",
                    "InvalidateActiveCellAreas 1,0", "InvalidateActiveCellAreas 2,1",
                    "CellSelChanged", "InvalidateHeaderCorner", "InvalidateControl"));
}

TEST_F(RowColumnOperationsTest, ARefusedActiveCellDoesNotStopTheInsertion) {
    recorder.hasWindow = true;
    recorder.allowChange = 0;
    FillRows(2);
    operations.InsertRows(2, 1);
    EXPECT_EQ(store.ActiveRow, 1);
    EXPECT_EQ(Column(3), "1-2");
}

TEST_F(RowColumnOperationsTest, TheOtherOperationsOnlyRepaintAndNoneNotifies) {
    FillRows(9);
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }), ElementsAre("InvalidateControl"));
    EXPECT_THAT(CallsOf([&] { operations.InsertCols(1, 1); }), ElementsAre("InvalidateControl"));
    EXPECT_THAT(CallsOf([&] { operations.DeleteCols(1, 1); }), ElementsAre("InvalidateControl"));
}

TEST_F(RowColumnOperationsTest, DeleteColsRebuildsTheStatementAndRunsTheQueryBeforeTheRepaint) {
    store.SetCellText(1, 1, "x");
    store.Properties.DataSource = "SELECT T.A FROM T";
    EXPECT_THAT(CallsOf([&] { operations.DeleteCols(1, 1); }),
                ElementsAre("RebuildDataSource", "RunQuery 0", "InvalidateControl"));
}

TEST_F(RowColumnOperationsTest, InsertColsLogsEachNewColumnAtTheActiveRow) {
    store.Properties.ModifiedLog = 3;
    store.SetCellText(4, 4, "x");
    store.ActiveRow = 7;
    store.LogModification(7, 3, ModifiedType::Update);
    operations.InsertCols(2, 2);
    EXPECT_THAT(KeysOf(store.Log.ModifiedLogMap),
                ElementsAre(CellPos{7, 3}, CellPos{7, 2}, CellPos{7, 5}));
    EXPECT_EQ(*store.Log.ModifiedLogMap.Find({7, 5}), 2);
    EXPECT_EQ(*store.Log.ModifiedLogMap.Find({7, 2}), 3);
}

TEST_F(RowColumnOperationsTest, AModeThatLogsNothingStillRenumbersTheLog) {
    store.Properties.ModifiedLog = 3;
    FillRows(5);
    store.LogModification(4, 1, ModifiedType::Insert);
    store.Properties.ModifiedLog = 9;
    operations.InsertRows(1, 1);
    EXPECT_THAT(KeysOf(store.Log.ModifiedLogMap), ElementsAre(CellPos{5, 1}));
    store.Properties.ModifiedLog = 0;
    operations.InsertRows(1, 1);
    operations.DeleteCols(1, 1);
    EXPECT_THAT(KeysOf(store.Log.ModifiedLogMap), ElementsAre(CellPos{5, 1}));
}

TEST_F(RowColumnOperationsTest, CheckedRowsFollowInRowModeOnly) {
    FillRows(9);
    selection.CheckedRowList = {6, 2, 4, 9};
    operations.InsertRows(4, 2);
    EXPECT_THAT(selection.CheckedRowList, ElementsAre(6, 2, 4, 9));
    store.Properties.RowMode = true;
    operations.InsertRows(4, 2);
    EXPECT_THAT(selection.CheckedRowList, ElementsAre(8, 2, 6, 11));
    operations.DeleteRows(5, 3);
    EXPECT_THAT(selection.CheckedRowList, ElementsAre(5, 2, 8));
    operations.InsertCols(1, 1);
    operations.DeleteCols(1, 1);
    EXPECT_THAT(selection.CheckedRowList, ElementsAre(5, 2, 8));
}

TEST_F(RowColumnOperationsTest, TheSelectionKeepsItsNumbers) {
    FillRows(9);
    selection.SelectionList = {{3, 3, 4, 4}};
    operations.InsertRows(1, 5);
    operations.DeleteRows(2, 1);
    operations.InsertCols(1, 5);
    operations.DeleteCols(1, 1);
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{3, 3, 4, 4}));
}

// Bound queries, and what is told when the database refuses.

TEST_F(RowColumnOperationsTest, DeleteRowsOfABoundQueryThatCannotBeWrittenLeavesTheStateUnchanged) {
    FillRows(3);
    BindQuery();
    selection.SelectionList = {{1, 0, 1, 0}};
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("ShowMessage 16 您不能修改表数据!"));
    EXPECT_EQ(Column(3), "123");
    EXPECT_EQ(store.Properties.MaxRow, 50);
    EXPECT_EQ(selection.SelectionList.size(), 1U);
}

TEST_F(RowColumnOperationsTest, DeletingWithoutARowKeyLeavesTheSheetUntouched) {
    FillRows(3);
    BindQuery();
    store.Switches.CanWriteTable = true;
    store.Properties.ModifiedLog = 1;
    store.LogModification(1, 1, ModifiedType::Update);
    recorder.deletion = RecordDeletion::MissingKey;
    EXPECT_THAT(
        CallsOf([&] { operations.DeleteRows(1, 1); }),
        ElementsAre("DeleteBoundRecord", "ShowMessage 16 删除记录缺少行唯一标志,操作失败!"));
    EXPECT_EQ(Column(3), "123");
    EXPECT_FALSE(store.Log.IsEmpty());
}

TEST_F(RowColumnOperationsTest, AFailedDeletionLeavesTheSheetUntouched) {
    FillRows(3);
    BindQuery();
    store.Switches.CanWriteTable = true;
    recorder.deletion = RecordDeletion::Failed;
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("DeleteBoundRecord", "ShowMessage 16 删除记录失败!"));
    EXPECT_EQ(Column(3), "123");
}

TEST_F(RowColumnOperationsTest, ADeletedRecordEmptiesTheSelectionAndTheLog) {
    FillRows(3);
    BindQuery();
    store.Switches.CanWriteTable = true;
    store.Properties.ModifiedLog = 1;
    store.LogModification(3, 1, ModifiedType::Update);
    selection.SelectionList = {{1, 0, 1, 0}};
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("DeleteBoundRecord", "InvalidateControl"));
    EXPECT_EQ(Column(3), "23-");
    EXPECT_TRUE(selection.SelectionList.empty());
    EXPECT_TRUE(store.Log.IsEmpty());
}

TEST_F(RowColumnOperationsTest, WithoutABoundQueryTheDatabaseIsNotLookedAt) {
    FillRows(3);
    store.QueryBound = true;
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }), ElementsAre("InvalidateControl"));
    store.QueryBound = false;
    store.Properties.DataSource = "SELECT T.A FROM T";
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }), ElementsAre("InvalidateControl"));
}

TEST_F(RowColumnOperationsTest, AStartOutsideItsBoundIsNotReportedInABoundQueryEither) {
    BindQuery();
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }), IsEmpty());
}

// Clearing.

TEST_F(RowColumnOperationsTest, ClearRangeOfWholeRowsTakesTheirCellsAndTheirRowFormat) {
    FillRows(5);
    store.SetCellText(3, 9, "x");
    store.StoreCellFormat(2, 0, CCellFormat{});
    store.StoreCellFormat(0, 1, CCellFormat{});
    EXPECT_THAT(CallsOf([&] { operations.ClearRange(2, 0, 3, 0, ClearAll); }),
                ElementsAre("InvalidateControl"));
    EXPECT_EQ(Column(5), "1--45");
    EXPECT_EQ(store.CellText(3, 9), "");
    EXPECT_THAT(KeysOf(store.CellFormatMap), ElementsAre(CellPos{0, 1}));
}

TEST_F(RowColumnOperationsTest, ClearRangeOfABlockLeavesTheRowFormat) {
    store.StoreCellFormat(2, 0, CCellFormat{});
    store.StoreCellFormat(0, 1, CCellFormat{});
    store.StoreCellFormat(0, 0, CCellFormat{});
    store.StoreCellFormat(2, 1, CCellFormat{});
    operations.ClearRange(2, 1, 3, 5, ClearFormats);
    EXPECT_THAT(KeysOf(store.CellFormatMap),
                UnorderedElementsAre(CellPos{2, 0}, CellPos{0, 1}, CellPos{0, 0}));
}

TEST_F(RowColumnOperationsTest, ClearRangeOfWholeColumnsTakesTheirColumnFormat) {
    store.StoreCellFormat(0, 2, CCellFormat{});
    store.StoreCellFormat(9, 2, CCellFormat{});
    store.StoreCellFormat(9, 0, CCellFormat{});
    operations.ClearRange(0, 2, 0, 2, ClearFormats);
    EXPECT_THAT(KeysOf(store.CellFormatMap), ElementsAre(CellPos{9, 0}));
}

TEST_F(RowColumnOperationsTest, ClearRangeTypesChooseTheMaps) {
    const auto fill = [&] {
        store.SetCellText(1, 1, "x");
        store.StoreCellFormat(1, 1, CCellFormat{});
    };
    fill();
    operations.ClearRange(1, 1, 1, 1, ClearFormats);
    EXPECT_EQ(store.CellTextMap.Count(), 1U);
    EXPECT_TRUE(store.CellFormatMap.IsEmpty());
    fill();
    operations.ClearRange(1, 1, 1, 1, ClearTexts);
    EXPECT_TRUE(store.CellTextMap.IsEmpty());
    EXPECT_EQ(store.CellFormatMap.Count(), 1U);
    fill();
    operations.ClearRange(1, 1, 1, 1, ClearAll);
    EXPECT_TRUE(store.CellTextMap.IsEmpty());
    EXPECT_TRUE(store.CellFormatMap.IsEmpty());
}

TEST_F(RowColumnOperationsTest, ClearRangeOfTypeThreeRemovesNothingAndStillRepaints) {
    FillRows(2);
    EXPECT_THAT(CallsOf([&] { operations.ClearRange(-1, -1, -1, -1, 3); }),
                ElementsAre("InvalidateControl"));
    EXPECT_THAT(CallsOf([&] { operations.ClearRange(1, 1, 2, 2, -1); }),
                ElementsAre("InvalidateControl"));
    EXPECT_EQ(Column(2), "12");
}

TEST_F(RowColumnOperationsTest, ClearRangeOfFourTimesMinusOneEmptiesTheMaps) {
    FillRows(2);
    store.SetCellText(0, 0, "sheet");
    store.SetCellText(-5, -5, "odd");
    store.StoreCellFormat(0, 0, CCellFormat{});
    operations.ClearRange(-1, -1, -1, -1, ClearAll);
    EXPECT_TRUE(store.CellTextMap.IsEmpty());
    EXPECT_TRUE(store.CellFormatMap.IsEmpty());
}

TEST_F(RowColumnOperationsTest, ClearRangeWithReversedBoundsMatchesNothing) {
    FillRows(5);
    operations.ClearRange(4, 1, 2, 1, ClearTexts);
    operations.ClearRange(4, 0, 2, 0, ClearTexts);
    operations.ClearRange(1, 2, 5, 1, ClearTexts);
    EXPECT_EQ(Column(5), "12345");
}

// Both ways of finding the entries, by position and by walking, take the same ones.
TEST_F(RowColumnOperationsTest, ClearRangeOfAHugeBlockTakesWhatIsInside) {
    FillRows(5);
    store.SetCellText(-3, 1, "above");
    store.SetCellText(0, 1, "column");
    operations.ClearRange(2, 1, IntMax, IntMax, ClearTexts);
    EXPECT_EQ(Column(5), "1----");
    operations.ClearRange(IntMin, IntMin, IntMax, IntMax, ClearTexts);
    EXPECT_TRUE(store.CellTextMap.IsEmpty());
}

// Moving.

TEST_F(RowColumnOperationsTest, ARowDraggedDownToRowFiveLetsTheRowsItPassesCloseTheGap) {
    FillRows(6);
    operations.MoveCells({2, 0, 2, 0}, 5, 0, false);
    EXPECT_EQ(Column(6), "134526");
}

TEST_F(RowColumnOperationsTest, RowsDraggedUpPushTheRowsTheyPassDown) {
    FillRows(7);
    operations.MoveCells({5, 0, 6, 0}, 2, 0, false);
    EXPECT_EQ(Column(7), "1562347");
}

TEST_F(RowColumnOperationsTest, RowsCopiedDownAreInsertedAtTheTarget) {
    FillRows(6);
    operations.MoveCells({2, 0, 3, 0}, 5, 0, true);
    EXPECT_EQ(Column(9), "12342356-");
    EXPECT_EQ(store.Properties.LastRow, 8);
}

TEST_F(RowColumnOperationsTest, MovingRowsTakesTheirHeightsAndNamesButNotTheirHeaders) {
    store.SetRowHeight(2, 30);
    store.SetRowName(2, "name");
    store.SetRowHeader(2, "header");
    store.RowInfoMap.Set({2, 0}, "info");
    store.StoreCellFormat(2, 0, CCellFormat{});
    operations.MoveCells({2, 0, 2, 0}, 5, 0, false);
    EXPECT_THAT(KeysOf(store.RowHeightMap), ElementsAre(CellPos{5, 0}));
    EXPECT_THAT(KeysOf(store.RowNameMap), ElementsAre(CellPos{5, 0}));
    EXPECT_THAT(KeysOf(store.RowInfoMap), ElementsAre(CellPos{5, 0}));
    EXPECT_THAT(KeysOf(store.CellFormatMap), ElementsAre(CellPos{5, 0}));
    EXPECT_THAT(KeysOf(store.RowHeaderMap), ElementsAre(CellPos{2, 0}));
}

TEST_F(RowColumnOperationsTest, MovingColumnsTakesTheirHeadersAndRebuildsTheStatement) {
    store.SetColHeader(2, "header");
    store.SetColWidth(2, 30);
    store.SetColName(2, "name");
    store.SetColType(2, 1);
    store.Properties.DataSource = "SELECT T.A FROM T";
    EXPECT_THAT(CallsOf([&] {
                    operations.MoveCells({0, 2, 0, 2}, 0, 4, false);
                }),
                ElementsAre("RebuildDataSource", "RunQuery 0", "InvalidateControl"));
    EXPECT_THAT(KeysOf(store.ColHeaderMap), ElementsAre(CellPos{0, 4}));
    EXPECT_THAT(KeysOf(store.ColWidthMap), ElementsAre(CellPos{0, 4}));
    EXPECT_THAT(KeysOf(store.ColNameMap), ElementsAre(CellPos{0, 4}));
    EXPECT_THAT(KeysOf(store.ColInfoMap), ElementsAre(CellPos{0, 4}));
    EXPECT_THAT(KeysOf(store.CellFormatMap), ElementsAre(CellPos{0, 4}));
    EXPECT_EQ(store.Properties.LastCol, 4);
    EXPECT_EQ(store.Properties.LastRow, 0);
}

TEST_F(RowColumnOperationsTest, CopiedColumnsInFrontOfTheLastOneMakeLastColGrow) {
    store.SetCellText(1, 9, "x");
    operations.MoveCells({0, 2, 0, 3}, 0, 5, true);
    EXPECT_EQ(store.Properties.LastCol, 11);
    operations.MoveCells({0, 2, 0, 2}, 0, 11, true);
    EXPECT_EQ(store.Properties.LastCol, 11);
    operations.MoveCells({0, 2, 0, 3}, 0, 5, false);
    EXPECT_EQ(store.Properties.LastCol, 11);
}

TEST_F(RowColumnOperationsTest, ABlockMovedOverwritesItsTargetAndLeavesItsSourceEmpty) {
    FillRows(4);
    operations.MoveCells({1, 1, 2, 1}, 4, 1, false);
    EXPECT_EQ(Column(6), "--312-");
    EXPECT_EQ(store.Properties.LastRow, 5);
    EXPECT_EQ(store.Properties.LastCol, 1);
}

TEST_F(RowColumnOperationsTest, ABlockDraggedWithCtrlStandsInSourceAndTarget) {
    FillRows(2);
    store.StoreCellFormat(1, 1, CCellFormat{});
    operations.MoveCells({1, 1, 2, 1}, 4, 3, true);
    EXPECT_EQ(Column(3), "12-");
    EXPECT_EQ(store.CellText(4, 3), "1");
    EXPECT_EQ(store.CellText(5, 3), "2");
    EXPECT_THAT(KeysOf(store.CellFormatMap), ElementsAre(CellPos{4, 3}, CellPos{1, 1}));
}

// What a position holds when its turn comes is moved, so the first entry runs through.
TEST_F(RowColumnOperationsTest, ABlockMovedDownOverItselfKeepsItsFirstEntry) {
    FillRows(4);
    operations.MoveCells({1, 1, 3, 1}, 2, 1, false);
    EXPECT_EQ(Column(5), "---1-");
    FillRows(4);
    operations.MoveCells({1, 1, 3, 1}, 2, 1, true);
    EXPECT_EQ(Column(5), "1111-");
    FillRows(4);
    operations.MoveCells({2, 1, 4, 1}, 1, 1, false);
    EXPECT_EQ(Column(5), "234--");
}

TEST_F(RowColumnOperationsTest, AMoveToItsOwnTopLeftDoesNothing) {
    FillRows(2);
    EXPECT_THAT(CallsOf([&] { operations.MoveCells({1, 1, 2, 2}, 1, 1, true); }), IsEmpty());
    EXPECT_THAT(CallsOf([&] { operations.MoveCells({2, 0, 2, 0}, 2, 0, true); }), IsEmpty());
}

// The pointer names a column even when whole rows are dragged.
TEST_F(RowColumnOperationsTest, RowsDroppedOnTheirOwnRowBesideTheHeaderOnlyRaiseLastCol) {
    FillRows(2);
    EXPECT_THAT(CallsOf([&] {
                    operations.MoveCells({2, 0, 2, 0}, 2, 5, false);
                }),
                ElementsAre("InvalidateControl"));
    EXPECT_EQ(Column(3), "12-");
    EXPECT_EQ(store.Properties.LastCol, 5);
}

TEST_F(RowColumnOperationsTest, ARangeOfAnotherKindMovesNothingAndStillRaisesAndRepaints) {
    FillRows(2);
    EXPECT_THAT(CallsOf([&] { operations.MoveCells(CellRange::WholeSheet(), 7, 8, false); }),
                ElementsAre("InvalidateControl"));
    EXPECT_EQ(Column(3), "12-");
    EXPECT_EQ(store.Properties.LastRow, 7);
    EXPECT_EQ(store.Properties.LastCol, 8);
}

TEST_F(RowColumnOperationsTest, MoveCellsMovesTheLogWhenThereIsAMode) {
    store.Properties.ModifiedLog = 3;
    store.ModifyCellText(1, 1, "x");
    operations.MoveCells({1, 1, 1, 1}, 3, 3, false);
    EXPECT_THAT(KeysOf(store.Log.ModifiedLogMap), ElementsAre(CellPos{3, 3}));
    store.Properties.ModifiedLog = 0;
    operations.MoveCells({3, 3, 3, 3}, 4, 4, false);
    EXPECT_THAT(KeysOf(store.Log.ModifiedLogMap), ElementsAre(CellPos{3, 3}));
}

TEST_F(RowColumnOperationsTest, MoveCellsLeavesTheCheckedRowsAlone) {
    FillRows(5);
    store.Properties.RowMode = true;
    selection.CheckedRowList = {2};
    operations.MoveCells({2, 0, 2, 0}, 4, 0, false);
    EXPECT_THAT(selection.CheckedRowList, ElementsAre(2));
}

// The commands.

TEST_F(RowColumnOperationsTest, WithoutASelectionTheCommandsTakeTheActiveCell) {
    FillRows(3);
    store.ActiveRow = 2;
    operations.InsertRowCommand();
    EXPECT_EQ(Column(4), "1-23");
    operations.DeleteRowCommand();
    EXPECT_EQ(Column(4), "123-");
    operations.InsertColCommand();
    EXPECT_EQ(store.CellText(1, 2), "1");
    operations.DeleteColCommand();
    EXPECT_EQ(store.CellText(1, 1), "1");
}

TEST_F(RowColumnOperationsTest, InsertRowWithTheActiveRowZeroTakesRowOne) {
    FillRows(2);
    store.ActiveRow = 0;
    operations.InsertRowCommand();
    EXPECT_EQ(Column(3), "-12");
}

TEST_F(RowColumnOperationsTest, DeleteRowNeedsAnActiveRowOfOneOrMore) {
    FillRows(2);
    store.ActiveRow = 0;
    operations.DeleteRowCommand();
    EXPECT_EQ(Column(2), "12");
    EXPECT_EQ(store.Properties.MaxRow, 50);
}

TEST_F(RowColumnOperationsTest, TheCommandsTakeTheFirstRecordNormalised) {
    FillRows(6);
    selection.SelectionList = {{4, 0, 3, 0}, {1, 0, 1, 0}};
    operations.InsertRowCommand();
    EXPECT_EQ(Column(8), "12--3456");
    operations.DeleteRowCommand();
    EXPECT_EQ(Column(8), "123456--");
    store.SetCellText(1, 3, "c");
    selection.SelectionList = {{0, 3, 0, 2}};
    operations.InsertColCommand();
    EXPECT_EQ(store.CellText(1, 5), "c");
    operations.DeleteColCommand();
    EXPECT_EQ(store.CellText(1, 3), "c");
}

TEST_F(RowColumnOperationsTest, ASelectionOfTheOtherAxisStartsAtZeroAndIsIgnored) {
    FillRows(3);
    selection.SelectionList = {{0, 1, 0, 1}};
    operations.InsertRowCommand();
    operations.DeleteRowCommand();
    selection.SelectionList = {{1, 0, 1, 0}};
    operations.InsertColCommand();
    operations.DeleteColCommand();
    EXPECT_EQ(Column(3), "123");
    EXPECT_EQ(store.Properties.MaxRow, 50);
    EXPECT_EQ(store.Properties.MaxCol, 20);
}

TEST_F(RowColumnOperationsTest, OnTheWholeSheetEachCommandClearsInstead) {
    using Command = void (RowColumnOperations::*)();
    for (const Command command :
         {&RowColumnOperations::InsertRowCommand, &RowColumnOperations::DeleteRowCommand,
          &RowColumnOperations::InsertColCommand, &RowColumnOperations::DeleteColCommand}) {
        FillRows(3);
        store.StoreCellFormat(0, 1, CCellFormat{});
        selection.SelectionList = {CellRange::WholeSheet()};
        (operations.*command)();
        EXPECT_TRUE(store.CellTextMap.IsEmpty());
        EXPECT_TRUE(store.CellFormatMap.IsEmpty());
        EXPECT_EQ(store.Properties.MaxRow, 50);
        EXPECT_EQ(store.Properties.MaxCol, 20);
    }
}

TEST_F(RowColumnOperationsTest, AfterTheRowCommandsTheHandlerRunsWithTheActiveCell) {
    FillRows(5);
    selection.SelectionList = {{3, 0, 3, 0}};
    store.ActiveCol = 4;
    EXPECT_THAT(
        CallsOf([&] { operations.InsertRowCommand(); }),
        ElementsAre("InvalidateActiveCellAreas 1,4", "InvalidateActiveCellAreas 3,4",
                    "InvalidateHeaderCorner", "InvalidateControl", "PostCellSelChange 3,4"));
    EXPECT_THAT(CallsOf([&] { operations.DeleteRowCommand(); }),
                ElementsAre("InvalidateControl", "PostCellSelChange 3,4"));
    EXPECT_THAT(CallsOf([&] { operations.InsertColCommand(); }), IsEmpty());
    selection.SelectionList.clear();
    EXPECT_THAT(CallsOf([&] { operations.DeleteColCommand(); }), IsEmpty());
}

TEST_F(RowColumnOperationsTest, TheRowCommandsOfABoundQueryThatCannotBeWrittenEndWithAMessage) {
    FillRows(5);
    BindQuery();
    selection.SelectionList = {{3, 0, 3, 0}};
    const auto refused = ElementsAre("ShowMessage 16 您不能修改表数据!");
    EXPECT_THAT(CallsOf([&] { operations.InsertRowCommand(); }), refused);
    EXPECT_THAT(CallsOf([&] { operations.DeleteRowCommand(); }), refused);
    EXPECT_EQ(Column(5), "12345");
    EXPECT_EQ(selection.SelectionList.size(), 1U);
}

TEST_F(RowColumnOperationsTest, TheRowCommandsOfABoundQueryEmptyTheSelectionAndTakeTheActiveRow) {
    FillRows(5);
    BindQuery();
    store.Switches.CanWriteTable = true;
    store.ActiveRow = 4;
    selection.SelectionList = {CellRange::WholeSheet()};
    operations.InsertRowCommand();
    EXPECT_EQ(Column(6), "123-45");
    EXPECT_TRUE(selection.SelectionList.empty());
    selection.SelectionList = {{1, 0, 2, 0}};
    operations.DeleteRowCommand();
    EXPECT_EQ(Column(6), "12345-");
}

TEST_F(RowColumnOperationsTest, TheColumnCommandsDoNotLookAtTheQuery) {
    store.SetCellText(1, 2, "x");
    BindQuery();
    store.ActiveCol = 1;
    EXPECT_THAT(CallsOf([&] { operations.InsertColCommand(); }), ElementsAre("InvalidateControl"));
    EXPECT_EQ(store.CellText(1, 3), "x");
}

// Absurd numbers.

TEST_F(RowColumnOperationsTest, AHugeInsertionNeitherHangsNorExhaustsMemory) {
    store.Properties.ModifiedLog = 3;
    FillRows(2);
    operations.InsertRows(2, IntMax);
    EXPECT_EQ(store.Properties.MaxRow, 65535);
    EXPECT_EQ(store.Log.ModifiedLogMap.Count(),
              static_cast<std::size_t>(RowColumnOperations::MaxLoggedLines));
    EXPECT_THAT(KeysOf(store.CellTextMap),
                UnorderedElementsAre(CellPos{1, 1}, CellPos{IntMin + 1, 1}));
}

TEST_F(RowColumnOperationsTest, ADeletionToTheEndOfAllNumbersDropsEverythingBehindItsStart) {
    FillRows(5);
    store.SetCellText(IntMax, 1, "last");
    operations.DeleteRows(3, IntMax);
    EXPECT_EQ(Column(5), "12---");
    EXPECT_EQ(store.CellTextMap.Count(), 2U);
}

TEST_F(RowColumnOperationsTest, ANegativeCountMovesTheOtherWayFromTheStartOn) {
    FillRows(5);
    operations.InsertRows(4, -2);
    EXPECT_EQ(Column(5), "123--");
    EXPECT_EQ(store.Properties.MaxRow, 48);
    EXPECT_EQ(store.Properties.LastRow, 3);
    FillRows(5);
    operations.DeleteRows(4, -2);
    EXPECT_EQ(Column(7), "123--45");
    EXPECT_EQ(store.Properties.MaxRow, 47);
}

TEST_F(RowColumnOperationsTest, EveryCombinationOfAbsurdNumbersIsSurvived) {
    for (const std::int32_t a : {IntMin, -1, 0, 1, 2, IntMax}) {
        for (const std::int32_t b : {IntMin, -2, 0, 1, 3, IntMax}) {
            FillRows(3);
            store.SetCellText(IntMax, IntMax, "far");
            store.SetCellText(IntMin, IntMin, "odd");
            store.Properties.RowMode = true;
            selection.CheckedRowList = {1, IntMax, IntMin};
            operations.InsertRows(a, b);
            operations.DeleteRows(a, b);
            operations.InsertCols(a, b);
            operations.DeleteCols(a, b);
            for (const bool copy : {false, true}) {
                operations.MoveCells({a, 0, b, 0}, b, a, copy);
                operations.MoveCells({0, a, 0, b}, b, a, copy);
                operations.MoveCells({1, 1, 3, IntMax}, a, b, copy && a != 1);
                operations.MoveCells({a, b, b, a}, 1, 2, copy && a > 1000);
            }
            operations.ClearRange(a, b, b, a, ClearAll);
            selection.SelectionList = {{a, b, b, a}};
            operations.InsertRowCommand();
            operations.DeleteRowCommand();
            operations.InsertColCommand();
            operations.DeleteColCommand();
            EXPECT_TRUE(store.CellTextMap.Check());
        }
    }
}

}  // namespace
}  // namespace veygrid
