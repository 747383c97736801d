// The accessors of the sheet, what each setter tells, and where getters and setters differ.
#include "grid/GridStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "SheetRecorder.h"

namespace veygrid {
namespace {

using testing::ElementsAre;

constexpr std::int32_t IntMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t IntMax = std::numeric_limits<std::int32_t>::max();

class GridStoreTest : public SheetTest {};

class FakeDataset : public Dataset {
  public:
    std::string GetCellValue(std::int32_t row, std::int32_t col) override {
        if (row > 100) {
            throw std::runtime_error("the dataset failed");
        }
        return "value " + Text({row, col});
    }
    std::int32_t GetColCount() override { return 2; }
    std::int32_t GetRowCount() override { return 3; }
    std::int32_t SetColCaption(std::int32_t, std::string_view) override { return 0; }
    std::string GetColName(std::int32_t col) override { return "title " + std::to_string(col); }
};

TEST_F(GridStoreTest, ANewControlIsEmptyAndShowsTheDefaults) {
    EXPECT_EQ(store.CellText(1, 1), "");
    EXPECT_EQ(store.CellText(IntMax, IntMin), "");
    EXPECT_EQ(store.RowHeight(1), 18);
    EXPECT_EQ(store.ColWidth(1), 60);
    EXPECT_EQ(store.Properties.MaxRow, 50);
    EXPECT_EQ(store.RowHeight(50), 18);
    EXPECT_EQ(store.RowHeight(51), -1);
    EXPECT_EQ(store.RowHeight(0), -1);
    EXPECT_EQ(store.ColWidth(0), -1);
    EXPECT_EQ(store.ColWidth(20), 60);
    EXPECT_EQ(store.ColWidth(21), -1);
    EXPECT_TRUE(recorder.Take().empty());
}

TEST_F(GridStoreTest, ScalarMembersStartAtTheirDefaults) {
    EXPECT_EQ(store.Properties, GridProperties{});
    EXPECT_EQ(store.Properties.MaxCol, 20);
    EXPECT_EQ(store.Properties.LastRow, 0);
    EXPECT_EQ(store.Properties.LastCol, 0);
    EXPECT_EQ(store.Properties.FixedRow, 1);
    EXPECT_EQ(store.Properties.FixedCol, 1);
    EXPECT_EQ(store.Properties.FixedRows, 0);
    EXPECT_EQ(store.Properties.FixedCols, 0);
    EXPECT_TRUE(store.Properties.AutoMaxRC);
    EXPECT_EQ(store.ActiveRow, 1);
    EXPECT_EQ(store.ActiveCol, 1);
}

TEST_F(GridStoreTest, ReadingAtZeroGivesTheActiveCell) {
    store.SetCellText(3, 4, "active");
    store.ActiveRow = 3;
    store.ActiveCol = 4;
    EXPECT_EQ(store.CellText(0, 0), "active");
    EXPECT_EQ(store.CellText(0, 4), "active");
    EXPECT_EQ(store.CellText(3, 0), "active");
    EXPECT_EQ(store.CellText(-1, -1), "");
}

TEST_F(GridStoreTest, WritingAtZeroWritesTheKeyOfTwoZeroes) {
    store.SetCellText(0, 0, "sheet");
    EXPECT_THAT(KeysOf(store.CellTextMap), ElementsAre(CellPos{0, 0}));
    EXPECT_EQ(store.CellText(0, 0), "");
}

TEST_F(GridStoreTest, WritingAtMinusOneWritesTheActiveCell) {
    store.ActiveRow = 5;
    store.ActiveCol = 6;
    store.SetCellText(-1, -1, "active");
    EXPECT_THAT(KeysOf(store.CellTextMap), ElementsAre(CellPos{5, 6}));
    EXPECT_EQ(store.Properties.LastRow, 5);
    EXPECT_EQ(store.Properties.LastCol, 6);
    store.SetCellText(-1, 2, "row");
    EXPECT_EQ(store.CellText(5, 2), "row");
}

TEST_F(GridStoreTest, WritingBeyondTheSheetSucceedsAndLeavesMaxRowAndMaxColAlone) {
    store.SetCellText(100, 100, "far");
    EXPECT_EQ(store.CellText(100, 100), "far");
    EXPECT_EQ(store.Properties.LastRow, 100);
    EXPECT_EQ(store.Properties.LastCol, 100);
    EXPECT_EQ(store.Properties.MaxRow, 50);
    EXPECT_EQ(store.Properties.MaxCol, 20);
}

TEST_F(GridStoreTest, LastRowAndLastColOnlyMoveUp) {
    store.SetCellText(9, 9, "a");
    store.SetCellText(2, 3, "b");
    store.SetCellText(-7, -7, "c");
    EXPECT_EQ(store.Properties.LastRow, 9);
    EXPECT_EQ(store.Properties.LastCol, 9);
}

// The posted message names the active cell, not the cell written.
TEST_F(GridStoreTest, SettingACellTextRepaintsPostsAndNotifiesInThisOrder) {
    store.ActiveRow = 2;
    store.ActiveCol = 7;
    EXPECT_THAT(CallsOf([&] { store.SetCellText(4, 5, "x"); }),
                ElementsAre("InvalidateCell 4,5", "PostCellSelChange 2,7", "SetModifiedFlag TRUE",
                            "Modified"));
}

TEST_F(GridStoreTest, SettingACellTextDoesNotLog) {
    store.Properties.ModifiedLog = 3;
    store.SetCellText(1, 1, "x");
    EXPECT_TRUE(store.Log.IsEmpty());
}

TEST_F(GridStoreTest, SetModifiedAndNotifyFiresWhateverTheFlag) {
    EXPECT_THAT(CallsOf([&] { store.SetModifiedAndNotify(false); }),
                ElementsAre("SetModifiedFlag FALSE", "Modified"));
}

TEST_F(GridStoreTest, CellTextRefGivesTheTextInItsPlace) {
    store.SetCellText(1, 1, "a text that is too long to be held without an allocation");
    std::string buffer;
    EXPECT_EQ(store.CellTextRef(1, 1, buffer).data(), store.CellTextMap.Find({1, 1})->data());
    EXPECT_EQ(store.CellTextRef(0, 0, buffer), store.CellText(1, 1));
    EXPECT_EQ(store.CellTextRef(2, 1, buffer), "");
    EXPECT_TRUE(buffer.empty());
}

TEST_F(GridStoreTest, ABoundDatasetAnswersInPlaceOfTheMap) {
    FakeDataset dataset;
    store.SetCellText(2, 2, "hidden");
    store.BoundDataset = &dataset;
    EXPECT_EQ(store.CellText(2, 2), "value 2,2");
    EXPECT_EQ(store.CellText(0, 0), "value 1,1");
    std::string buffer;
    EXPECT_EQ(store.CellTextRef(2, 2, buffer), "value 2,2");
    store.BoundDataset = nullptr;
    EXPECT_EQ(store.CellText(2, 2), "hidden");
}

TEST_F(GridStoreTest, ABoundDatasetIsNotAskedForAColumnBelowOne) {
    FakeDataset dataset;
    store.BoundDataset = &dataset;
    EXPECT_EQ(store.CellText(1, -1), "");
    store.ActiveCol = 0;
    EXPECT_EQ(store.CellText(1, 0), "");
}

TEST_F(GridStoreTest, AFailureOfTheDatasetPassesThrough) {
    FakeDataset dataset;
    store.BoundDataset = &dataset;
    EXPECT_THROW(store.CellText(101, 1), std::runtime_error);
}

TEST_F(GridStoreTest, WritesDoNotGoToTheDataset) {
    FakeDataset dataset;
    store.BoundDataset = &dataset;
    store.SetCellText(1, 1, "mine");
    EXPECT_EQ(*store.CellTextMap.Find({1, 1}), "mine");
    EXPECT_EQ(store.CellText(1, 1), "value 1,1");
}

TEST_F(GridStoreTest, ModifyCellTextSetsAndLogs) {
    store.Properties.ModifiedLog = 3;
    store.ModifyCellText(4, 5, "x");
    EXPECT_EQ(store.CellText(4, 5), "x");
    EXPECT_EQ(*store.Log.ModifiedLogMap.Find({4, 5}), 3);
    store.QueryBound = true;
    store.ModifyCellText(4, 6, "y");
    EXPECT_EQ(*store.Log.ModifiedLogMap.Find({4, 6}), 2);
}

TEST_F(GridStoreTest, ModifyCellTextIgnoresRowsAndColumnsBelowOne) {
    store.Properties.ModifiedLog = 3;
    for (const CellPos& cell : {CellPos{0, 1}, CellPos{1, 0}, CellPos{-1, -1}, CellPos{-1, 1}}) {
        EXPECT_TRUE(CallsOf([&] { store.ModifyCellText(cell.Row, cell.Col, "x"); }).empty());
    }
    EXPECT_TRUE(store.CellTextMap.IsEmpty());
    EXPECT_TRUE(store.Log.IsEmpty());
}

TEST_F(GridStoreTest, ColumnNamesMatchWithoutRegardToCaseAndBlanks) {
    store.SetColName(3, "  T.Amount\t");
    store.ModifyCellTextByColName(2, "t.amount ", "7");
    EXPECT_EQ(store.CellText(2, 3), "7");
    EXPECT_EQ(store.GetCellTextByColName(2, " T.AMOUNT"), "7");
}

TEST_F(GridStoreTest, TheWholeColumnNameIsCompared) {
    store.SetColName(1, "T.A");
    store.SetCellText(1, 1, "x");
    EXPECT_EQ(store.GetCellTextByColName(1, "A"), "");
    EXPECT_TRUE(CallsOf([&] { store.ModifyCellTextByColName(1, "A", "y"); }).empty());
    EXPECT_EQ(store.CellText(1, 1), "x");
}

TEST_F(GridStoreTest, ColumnNamesCompareByCharactersNotByBytes) {
    // The second bytes are the letters a and A of two different characters.
    store.SetColName(1, "\x81\x61");
    store.SetCellText(1, 1, "x");
    EXPECT_EQ(store.GetCellTextByColName(1, "\x81\x41"), "");
    EXPECT_EQ(store.GetCellTextByColName(1, " \x81\x61 "), "x");
    const std::string amount = CodePage936FromUtf8("金额a");
    store.SetColName(2, amount);
    store.SetCellText(1, 2, "y");
    EXPECT_EQ(store.GetCellTextByColName(1, CodePage936FromUtf8("金额A")), "y");
}

// All columns stand in one chain, and the newest key comes first.
TEST_F(GridStoreTest, OfEqualColumnNamesTheIterationOrderDecides) {
    store.SetColName(5, "a");
    store.SetColName(2, "A");
    EXPECT_EQ(store.FindColumnByName("a"), 2);
    store.SetColName(5, "a");
    EXPECT_EQ(store.FindColumnByName("a"), 2);
}

TEST_F(GridStoreTest, AColumnNameOfColumnZeroEndsTheSearchWithoutEffect) {
    store.SetColName(4, "a");
    store.SetColName(0, "a");
    EXPECT_EQ(store.FindColumnByName("a"), 0);
    store.ModifyCellTextByColName(1, "a", "x");
    EXPECT_TRUE(store.CellTextMap.IsEmpty());
}

TEST_F(GridStoreTest, GetCellTextByColNameTakesRowZeroForTheActiveRow) {
    store.SetColName(1, "a");
    store.SetCellText(1, 1, "first");
    EXPECT_EQ(store.GetCellTextByColName(0, "a"), "first");
    EXPECT_EQ(store.GetCellTextByColName(1, "b"), "");
}

TEST_F(GridStoreTest, SetRowDataWritesTheRemainderBehindATrailingDelimiter) {
    store.SetCellText(2, 5, "old");
    store.SetRowData(2, 3, "a,b,", 44);
    EXPECT_EQ(store.CellText(2, 3), "a");
    EXPECT_EQ(store.CellText(2, 4), "b");
    ASSERT_NE(store.CellTextMap.Find({2, 5}), nullptr);
    EXPECT_EQ(store.CellText(2, 5), "");
    EXPECT_EQ(store.CellTextMap.Count(), 3U);
}

TEST_F(GridStoreTest, SetRowDataWritesEachFieldAsCellTextDoes) {
    EXPECT_THAT(CallsOf([&] { store.SetRowData(1, 1, "a|b", '|'); }),
                ElementsAre("InvalidateCell 1,1", "PostCellSelChange 1,1", "SetModifiedFlag TRUE",
                            "Modified", "InvalidateCell 1,2", "PostCellSelChange 1,1",
                            "SetModifiedFlag TRUE", "Modified"));
}

TEST_F(GridStoreTest, SetRowDataOfAnEmptyTextWritesOneEmptyCell) {
    store.SetRowData(1, 1, "", ',');
    EXPECT_THAT(KeysOf(store.CellTextMap), ElementsAre(CellPos{1, 1}));
}

TEST_F(GridStoreTest, SetRowDataDoesNotSplitATwoByteCharacter) {
    store.SetRowData(1, 1, "\x81\x7C|\x95\x7E|x", '|');
    EXPECT_EQ(store.CellText(1, 1), "\x81\x7C");
    EXPECT_EQ(store.CellText(1, 2), "\x95\x7E");
    EXPECT_EQ(store.CellText(1, 3), "x");
}

TEST_F(GridStoreTest, SetRowDataStoresFieldsOfAnyLength) {
    const std::string field(5000, 'x');
    store.SetRowData(1, 1, field + "," + field, ',');
    EXPECT_EQ(store.CellText(1, 1), field);
    EXPECT_EQ(store.CellText(1, 2), field);
}

TEST_F(GridStoreTest, SetRowDataWrapsBehindTheLastColumn) {
    store.SetRowData(IntMin, IntMax, "a,b", ',');
    EXPECT_EQ(*store.CellTextMap.Find({IntMin, IntMax}), "a");
    EXPECT_EQ(*store.CellTextMap.Find({IntMin, IntMin}), "b");
}

TEST_F(GridStoreTest, RowHeightsAndColumnWidthsAreStoredWithoutACheck) {
    store.SetRowHeight(51, 30);
    EXPECT_EQ(*store.RowHeightMap.Find({51, 0}), 30);
    EXPECT_EQ(store.RowHeight(51), -1);
    EXPECT_EQ(store.Properties.LastRow, 51);
    EXPECT_EQ(store.Properties.LastCol, 0);
    store.SetColWidth(3, 0);
    EXPECT_EQ(store.ColWidth(3), 0);
    EXPECT_EQ(store.Properties.LastCol, 3);
    store.SetRowHeight(2, -5);
    EXPECT_EQ(store.RowHeight(2), -5);
}

TEST_F(GridStoreTest, SettingASizeNotifiesAndThenUpdatesTheScrollBars) {
    const auto expected = ElementsAre("SetModifiedFlag TRUE", "Modified", "UpdateScrollBars");
    EXPECT_THAT(CallsOf([&] { store.SetRowHeight(1, 20); }), expected);
    EXPECT_THAT(CallsOf([&] { store.SetColWidth(1, 20); }), expected);
}

TEST_F(GridStoreTest, RowHeadersFallBackToTheNumber) {
    EXPECT_EQ(store.RowHeader(7), "7");
    EXPECT_EQ(store.RowHeader(-7), "-7");
    store.SetRowHeader(7, "sum");
    EXPECT_EQ(store.RowHeader(7), "sum");
    store.SetRowHeader(7, "");
    EXPECT_EQ(store.RowHeader(7), "");
    store.Properties.ShowDefRowHeader = false;
    EXPECT_EQ(store.RowHeader(8), "");
}

TEST_F(GridStoreTest, ColHeaderOfColumn27ReadsAAUnlessDefaultHeadersAreOff) {
    EXPECT_EQ(store.ColHeader(27), "AA");
    store.Properties.ShowDefColHeader = false;
    EXPECT_EQ(store.ColHeader(27), "");
    store.SetColHeader(27, "sum");
    EXPECT_EQ(store.ColHeader(27), "sum");
}

TEST_F(GridStoreTest, ColHeaderOfABoundDatasetIsItsTitle) {
    FakeDataset dataset;
    store.SetColHeader(1, "mine");
    store.BoundDataset = &dataset;
    EXPECT_EQ(store.ColHeader(1), "title 1");
}

TEST_F(GridStoreTest, SettingAHeaderRepaintsItsStripAndThenNotifies) {
    EXPECT_THAT(CallsOf([&] { store.SetRowHeader(3, "r"); }),
                ElementsAre("InvalidateRowHeaderStrip 3", "SetModifiedFlag TRUE", "Modified"));
    EXPECT_THAT(CallsOf([&] { store.SetColHeader(4, "c"); }),
                ElementsAre("InvalidateColHeaderStrip 4", "SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.Properties.LastRow, 3);
    EXPECT_EQ(store.Properties.LastCol, 4);
}

TEST_F(GridStoreTest, NamesAreStoredAndNothingIsRepainted) {
    EXPECT_EQ(store.RowName(1), "");
    EXPECT_EQ(store.ColName(1), "");
    const auto expected = ElementsAre("SetModifiedFlag TRUE", "Modified");
    EXPECT_THAT(CallsOf([&] { store.SetRowName(3, "r"); }), expected);
    EXPECT_THAT(CallsOf([&] { store.SetColName(4, "c"); }), expected);
    EXPECT_EQ(store.RowName(3), "r");
    EXPECT_EQ(store.ColName(4), "c");
    EXPECT_EQ(store.Properties.LastRow, 3);
    EXPECT_EQ(store.Properties.LastCol, 4);
}

TEST_F(GridStoreTest, AnUntouchedColumnReadsFourAsTypeAndAsKeyFlag) {
    EXPECT_EQ(store.ColType(1), 4);
    EXPECT_EQ(store.KeyColumnFlag(1), 4);
}

TEST_F(GridStoreTest, SettingColTypeThreeReplacesTheColumnFontByDefaults) {
    CCellFormat format;
    format.Font.lfWeight = 700;
    format.Foreground = 0xFF;
    store.SetCellFormat(0, 3, &format);
    store.SetColType(3, 3);
    CCellFormat expected;
    expected.Align = 1;
    expected.DataType = 3;
    expected.ShowFormat = "YYYY-MM-DD";
    EXPECT_EQ(*store.CellFormatMap.Find({0, 3}), expected);
}

TEST_F(GridStoreTest, EachColTypeHasItsFormat) {
    store.SetColType(1, 1);
    EXPECT_EQ(store.CellFormatMap.Find({0, 1})->Align, 1);
    EXPECT_EQ(store.CellFormatMap.Find({0, 1})->DataType, 4);
    store.SetColType(1, 2);
    EXPECT_EQ(store.CellFormatMap.Find({0, 1})->Align, 4);
    EXPECT_EQ(store.CellFormatMap.Find({0, 1})->DataType, 9);
    store.SetColType(1, 4);
    EXPECT_EQ(*store.CellFormatMap.Find({0, 1}), CCellFormat{});
    store.SetColType(1, -32768);
    EXPECT_EQ(*store.CellFormatMap.Find({0, 1}), CCellFormat{});
    EXPECT_EQ(store.ColType(1), -32768);
}

TEST_F(GridStoreTest, SettingColTypeOnlyNotifies) {
    EXPECT_THAT(CallsOf([&] { store.SetColType(6, 1); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.Properties.LastCol, 6);
    EXPECT_EQ(store.Properties.LastRow, 0);
}

TEST_F(GridStoreTest, AfterTheKeyFlagIsSetColTypeReadsZero) {
    EXPECT_THAT(CallsOf([&] { store.SetKeyColumnFlag(3, 1); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.KeyColumnFlag(3), 1);
    EXPECT_EQ(store.ColType(3), 0);
    EXPECT_EQ(*store.ColInfoMap.Find({0, 3}),
              "\x0B"
              "1\x0B");
    EXPECT_EQ(store.Properties.LastCol, 3);
}

TEST_F(GridStoreTest, AfterColTypeIsSetTheKeyFlagReadsZero) {
    store.SetColType(3, 2);
    EXPECT_EQ(store.ColType(3), 2);
    EXPECT_EQ(store.KeyColumnFlag(3), 0);
    EXPECT_EQ(*store.ColInfoMap.Find({0, 3}), "2\x0B");
}

TEST_F(GridStoreTest, ColumnInfoKeepsTheTextBehindItsTwoFields) {
    store.ColInfoMap.Set({0, 1},
                         "1\x0B"
                         "0\x0Bmore\x0Bstill");
    store.SetColType(1, 3);
    store.SetKeyColumnFlag(1, 1);
    EXPECT_EQ(*store.ColInfoMap.Find({0, 1}),
              "3\x0B"
              "1\x0Bmore\x0Bstill");
}

TEST_F(GridStoreTest, ColumnInfoWithoutADelimiterIsPadded) {
    store.ColInfoMap.Set({0, 1}, "2");
    EXPECT_EQ(store.KeyColumnFlag(1), 0);
    store.SetKeyColumnFlag(1, 1);
    EXPECT_EQ(*store.ColInfoMap.Find({0, 1}),
              "2\x0B"
              "1");
    store.ColInfoMap.Set({0, 2}, "2");
    store.SetColType(2, 1);
    EXPECT_EQ(*store.ColInfoMap.Find({0, 2}), "1\x0B");
}

TEST_F(GridStoreTest, ColumnInfoReadsNumbersAsFarAsTheyGo) {
    const auto typeOf = [&](const char* info) {
        store.ColInfoMap.Set({0, 1}, info);
        return store.ColType(1);
    };
    EXPECT_EQ(typeOf(" 3x\x0B"), 3);
    EXPECT_EQ(typeOf("-2\x0B"), -2);
    EXPECT_EQ(typeOf("+2\x0B"), 2);
    EXPECT_EQ(typeOf("+-2\x0B"), 0);
    EXPECT_EQ(typeOf("x\x0B"), 0);
    EXPECT_EQ(typeOf("99999999999999999999\x0B"), static_cast<std::int16_t>(IntMax));
    EXPECT_EQ(typeOf("-99999999999999999999\x0B"), static_cast<std::int16_t>(IntMin));
}

TEST_F(GridStoreTest, SettingAParamNotifies) {
    EXPECT_THAT(CallsOf([&] { store.SetParam("a", "1"); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.Params.GetParam("A"), "1");
    EXPECT_TRUE(CallsOf([&] { store.Params.RemoveParam("a"); }).empty());
}

TEST_F(GridStoreTest, AnyNumbersAreStoredWithoutComment) {
    for (const std::int32_t number : {IntMin, -2, 0, IntMax}) {
        store.SetCellText(number, number, "x");
        store.SetRowHeight(number, number);
        store.SetColWidth(number, number);
        store.SetRowHeader(number, "x");
        store.SetColHeader(number, "x");
        store.SetColType(number, 1);
        EXPECT_EQ(store.RowHeader(number), "x");
        EXPECT_EQ(store.ColHeader(number), "x");
    }
    EXPECT_EQ(store.Properties.LastRow, IntMax);
    EXPECT_EQ(store.Properties.LastCol, IntMax);
}

}  // namespace
}  // namespace veygrid
