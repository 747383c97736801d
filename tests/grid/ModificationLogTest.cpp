// The log of what the user changed, alone and through the sheet.
#include "grid/ModificationLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "SheetRecorder.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using LogEntry = std::tuple<std::int32_t, std::int32_t, std::int16_t>;

class ModificationLogTest : public SheetTest {
  protected:
    // As a host reads the log.
    std::vector<LogEntry> Read() const {
        std::vector<LogEntry> entries;
        std::int32_t pos = store.Log.GetFirstModifiedLogPos();
        while (pos != 0) {
            LogEntry entry;
            store.Log.GetNextModifiedLog(pos, &std::get<0>(entry), &std::get<1>(entry),
                                         &std::get<2>(entry));
            entries.push_back(entry);
        }
        return entries;
    }
};

TEST_F(ModificationLogTest, WithTheLogOffModifyCellTextChangesTheCellAlone) {
    store.ModifyCellText(1, 1, "x");
    EXPECT_EQ(store.CellText(1, 1), "x");
    EXPECT_EQ(store.Log.GetFirstModifiedLogPos(), 0);
}

TEST_F(ModificationLogTest, ByRowsTwoChangesInOneRowGiveOneEntry) {
    store.Properties.ModifiedLog = 1;
    store.ModifyCellText(5, 1, "x");
    store.ModifyCellText(5, 2, "y");
    EXPECT_EQ(store.Log.GetFirstModifiedLogPos(), -1);
    EXPECT_THAT(Read(), ElementsAre(LogEntry{5, 0, 3}));
}

TEST_F(ModificationLogTest, ByColumnsAChangeReadsBackWithRowZero) {
    store.Properties.ModifiedLog = 2;
    store.ModifyCellText(5, 3, "x");
    EXPECT_THAT(Read(), ElementsAre(LogEntry{0, 3, 3}));
}

TEST_F(ModificationLogTest, ByCellsTheFirstTypeOfACellStays) {
    store.Properties.ModifiedLog = 3;
    store.LogModification(2, 2, ModifiedType::Update);
    store.LogModification(2, 2, ModifiedType::Insert);
    EXPECT_THAT(Read(), ElementsAre(LogEntry{2, 2, 2}));
}

TEST_F(ModificationLogTest, OtherModesLogNothing) {
    for (const int mode : {-1, 4, 32767}) {
        store.Properties.ModifiedLog = static_cast<std::int16_t>(mode);
        store.ModifyCellText(1, 1, "x");
        EXPECT_TRUE(store.Log.IsEmpty());
    }
}

TEST_F(ModificationLogTest, AKeyOfTwoZeroesIsNotLogged) {
    store.Properties.ModifiedLog = 1;
    store.LogModification(0, 5, ModifiedType::Insert);
    store.Properties.ModifiedLog = 2;
    store.LogModification(5, 0, ModifiedType::Insert);
    store.Properties.ModifiedLog = 3;
    store.LogModification(0, 0, ModifiedType::Insert);
    EXPECT_THAT(Read(), IsEmpty());
    store.LogModification(0, 1, ModifiedType::Insert);
    EXPECT_THAT(Read(), ElementsAre(LogEntry{0, 1, 3}));
}

TEST_F(ModificationLogTest, RowsComeInGroupsOfSixteenNewestFirst) {
    store.Properties.ModifiedLog = 3;
    for (const std::int32_t row : {20, 3, 16, 1, 16 * 17}) {
        store.ModifyCellText(row, 1, "x");
    }
    EXPECT_THAT(Read(), ElementsAre(LogEntry{16 * 17, 1, 3}, LogEntry{1, 1, 3}, LogEntry{3, 1, 3},
                                    LogEntry{16, 1, 3}, LogEntry{20, 1, 3}));
}

TEST_F(ModificationLogTest, AfterAChangeOfModeKeysOfTwoFormsStand) {
    store.Properties.ModifiedLog = 1;
    store.ModifyCellText(2, 2, "x");
    store.Properties.ModifiedLog = 2;
    store.ModifyCellText(2, 2, "y");
    EXPECT_THAT(Read(), ElementsAre(LogEntry{0, 2, 3}, LogEntry{2, 0, 3}));
}

TEST_F(ModificationLogTest, ReadingAtTheEndOrOfAnEmptyLogWritesNothingButThePosition) {
    std::int32_t row = 77;
    std::int32_t pos = 0;
    store.Log.GetNextModifiedLog(pos, &row, nullptr, nullptr);
    EXPECT_EQ(pos, 0);
    for (const std::int32_t start : {-1, 5, -5}) {
        pos = start;
        store.Log.GetNextModifiedLog(pos, &row, nullptr, nullptr);
        EXPECT_EQ(pos, 0);
    }
    EXPECT_EQ(row, 77);
}

TEST_F(ModificationLogTest, TargetsMayBeNull) {
    store.Properties.ModifiedLog = 3;
    store.ModifyCellText(2, 3, "x");
    std::int32_t pos = -1;
    store.Log.GetNextModifiedLog(pos, nullptr, nullptr, nullptr);
    EXPECT_EQ(pos, 0);
}

TEST_F(ModificationLogTest, InsertRowsByCellsAddsEntriesAtTheActiveColumnAfterMovingTheOthers) {
    store.Properties.ModifiedLog = 3;
    store.ActiveCol = 4;
    store.ModifyCellText(2, 4, "x");
    store.Log.ResetModifiedLog();
    store.LogModification(2, 4, ModifiedType::Update);
    operations.InsertRows(2, 3);
    EXPECT_THAT(Read(), ElementsAre(LogEntry{4, 4, 3}, LogEntry{3, 4, 3}, LogEntry{2, 4, 3},
                                    LogEntry{5, 4, 2}));
}

TEST_F(ModificationLogTest, DeleteRowsRemovesTheEntriesOfItsRowsAndMovesTheOthersUp) {
    store.Properties.ModifiedLog = 3;
    for (const std::int32_t row : {1, 2, 3, 4, 5}) {
        store.ModifyCellText(row, 1, "x");
    }
    operations.DeleteRows(2, 2);
    EXPECT_THAT(Read(), testing::UnorderedElementsAre(LogEntry{1, 1, 3}, LogEntry{2, 1, 3},
                                                      LogEntry{3, 1, 3}));
}

TEST_F(ModificationLogTest, ResetOfAnEmptyLogIsHarmlessAndTellsNothing) {
    EXPECT_THAT(CallsOf([&] { store.Log.ResetModifiedLog(); }), IsEmpty());
    store.Properties.ModifiedLog = 1;
    store.ModifyCellText(1, 1, "x");
    EXPECT_THAT(CallsOf([&] { store.Log.ResetModifiedLog(); }), IsEmpty());
    EXPECT_EQ(store.Log.GetFirstModifiedLogPos(), 0);
}

TEST_F(ModificationLogTest, ModifyCellTextAtColumnZeroNeitherWritesNorLogs) {
    store.Properties.ModifiedLog = 1;
    store.ModifyCellText(1, 0, "x");
    EXPECT_TRUE(store.CellTextMap.IsEmpty());
    EXPECT_TRUE(store.Log.IsEmpty());
}

}  // namespace
}  // namespace veygrid
