// The clause that names a record by its key columns.
#include "binding/KeyClause.h"

#include <gtest/gtest.h>

#include "grid/StoreWatcher.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

constexpr std::int16_t StringType = 1;
constexpr std::int16_t NumberType = 2;
constexpr std::int16_t DateType = 3;

class KeyClauseTest : public testing::Test {
  protected:
    // A key column with a value in row 1.
    void Key(std::int32_t col, std::string_view name, std::int16_t type, std::string_view value) {
        store.SetColName(col, name);
        store.SetColType(col, type);
        store.SetKeyColumnFlag(col, 1);
        if (!value.empty()) {
            store.SetCellText(1, col, value);
        }
    }
    std::string Clause(std::string_view table, std::int32_t row = 1) const {
        return BuildKeyClause(store, table, row);
    }

    StoreWatcher watcher;
    GridStore store{watcher};
};

// --- The clause of a record

TEST_F(KeyClauseTest, ANumberAndAStringKeyGiveTId7AndTNameLi) {
    Key(1, "T.ID", NumberType, "7");
    Key(2, "T.NAME", StringType, "Li");
    EXPECT_EQ(Clause("T"), "T.ID=7 AND T.NAME='Li'");
}

TEST_F(KeyClauseTest, ADateKeyStandsBetweenMarkers) {
    Key(1, "T.D", DateType, "2003-08-14");
    EXPECT_EQ(Clause("T"), "T.D=%{2003-08-14}%");
}

TEST_F(KeyClauseTest, AnEmptyKeyCellGivesAnEmptyClause) {
    Key(1, "T.ID", NumberType, "7");
    Key(2, "T.NAME", StringType, "");
    EXPECT_EQ(Clause("T"), "");
}

// --- Which columns take part, and with what

TEST_F(KeyClauseTest, OnlyTheFlag1MarksAKeyColumn) {
    Key(1, "T.A", NumberType, "1");
    Key(2, "T.B", NumberType, "2");
    store.SetKeyColumnFlag(2, 4);
    store.SetColName(3, "T.C");  // no entry: its flag reads 4
    store.SetCellText(1, 3, "3");
    EXPECT_EQ(Clause("T"), "T.A=1");
}

TEST_F(KeyClauseTest, WithoutKeyColumnsTheClauseIsEmpty) {
    store.SetColName(1, "T.A");
    store.SetCellText(1, 1, "1");
    EXPECT_EQ(Clause("T"), "");
}

TEST_F(KeyClauseTest, AnUnqualifiedKeyColumnTakesNoPart) {
    Key(1, "ID", NumberType, "");
    Key(2, ".ID", NumberType, "");
    Key(3, "T.ID", NumberType, "7");
    EXPECT_EQ(Clause("T"), "T.ID=7");
}

TEST_F(KeyClauseTest, TheTableIsTheTextBeforeTheLastPointTrimmedAndWithoutRegardToCase) {
    Key(1, " s.t .ID", NumberType, "7");
    EXPECT_EQ(Clause("  S.T "), " s.t .ID=7");
    EXPECT_EQ(Clause("T"), " s.t .ID=");
}

TEST_F(KeyClauseTest, AKeyColumnOfAnotherTableKeepsTheValueOfTheKeyColumnBefore) {
    Key(1, "T.ID", NumberType, "7");
    Key(2, "U.ID", StringType, "other");
    Key(3, "T.NAME", StringType, "Li");
    Key(4, "U.NAME", NumberType, "");
    EXPECT_EQ(Clause("T"), "T.ID=7 AND U.ID=7 AND T.NAME='Li' AND U.NAME='Li'");
}

TEST_F(KeyClauseTest, AKeyColumnOfAnotherTableInFrontHasNothingForItsValue) {
    Key(1, "U.ID", NumberType, "9");
    Key(2, "T.ID", NumberType, "7");
    EXPECT_EQ(Clause("T"), "U.ID= AND T.ID=7");
}

TEST_F(KeyClauseTest, ValuesAreNotEscaped) {
    Key(1, "T.A", StringType, "O'Neill");
    Key(2, "T.B", DateType, "}% x");
    EXPECT_EQ(Clause("T"), "T.A='O'Neill' AND T.B=%{}% x}%");
}

TEST_F(KeyClauseTest, AnUnknownColumnTypeIsWrittenBare) {
    Key(1, "T.A", 4, "x");
    Key(2, "T.B", 0, "y");
    EXPECT_EQ(Clause("T"), "T.A=x AND T.B=y");
}

TEST_F(KeyClauseTest, ColumnsTakePartInTheirOrderUpToLastCol) {
    Key(3, "T.C", NumberType, "3");
    Key(1, "T.A", NumberType, "1");
    Key(2, "T.B", NumberType, "2");
    EXPECT_EQ(Clause("T"), "T.A=1 AND T.B=2 AND T.C=3");
    store.Properties.LastCol = 2;
    EXPECT_EQ(Clause("T"), "T.A=1 AND T.B=2");
    store.Properties.LastCol = 2147483647;
    EXPECT_EQ(Clause("T"), "T.A=1 AND T.B=2 AND T.C=3");
}

TEST_F(KeyClauseTest, RowZeroReadsTheActiveRow) {
    Key(1, "T.A", NumberType, "1");
    EXPECT_EQ(Clause("T", 0), "T.A=1");
}

TEST_F(KeyClauseTest, TwoByteCharactersPassWhateverTheirSecondByteIs) {
    // Trail bytes that are "|", "\\", "~", "A", "a" and braces.
    const std::string odd = "\x81\x7C\x8B\x5C\x95\x7E\x81\x41\x81\x61\x81\x7B\x81\x7D";
    Key(1, odd + "." + odd, StringType, odd);
    EXPECT_EQ(Clause(odd), odd + "." + odd + "='" + odd + "'");
    std::string capital = odd;
    capital[9] = 'A';
    EXPECT_EQ(Clause(capital), odd + "." + odd + "=");
    const std::string chinese = CodePage936FromUtf8("订单");
    Key(1, chinese + ".ID", NumberType, "7");
    EXPECT_EQ(Clause(chinese), chinese + ".ID=7");
}

}  // namespace
}  // namespace veygrid
