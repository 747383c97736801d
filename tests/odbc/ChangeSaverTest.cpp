// Saving against a runner that only writes down what it is asked to do.
#include "apps/host/odbc/ChangeSaver.h"

#include <gtest/gtest.h>

#include "apps/host/odbc/OdbcError.h"
#include "apps/host/odbc/SaveTexts.h"
#include "tests/odbc/TestSheet.h"

namespace veygrid {
namespace {

std::u16string Written(const BoundStatement& statement) {
    std::u16string text = statement.text;
    for (const CellView& value : statement.values) {
        text += u" <" + std::u16string(value.value_or(u"NULL")) + u">";
    }
    return text;
}

class Recorder final : public SqlRunner {
  public:
    std::vector<std::u16string> calls;
    std::int64_t touched = 1;
    int failAt = -1;  // the statement of that number, from 0
    bool failCommit = false;
    bool lost = false;
    bool open = false;

    bool InTransaction() const override { return open; }
    void Begin() override { calls.push_back(u"begin"); }
    void Commit() override {
        calls.push_back(u"commit");
        if (failCommit) {
            throw OdbcError(u"40000", u"no commit", lost);
        }
    }
    void Rollback() override { calls.push_back(u"rollback"); }
    std::int64_t Execute(const BoundStatement& statement) override {
        calls.push_back(Written(statement));
        if (failAt-- == 0) {
            throw OdbcError(u"23000", u"no such luck", lost);
        }
        return touched;
    }
};

class FixedRows final : public RecordSource {
  public:
    FixedRows(std::vector<ColumnInfo> columns, std::vector<Record> records)
        : m_columns(std::move(columns)), m_records(std::move(records)) {}
    const std::vector<ColumnInfo>& Columns() const override { return m_columns; }
    long RowCount() const override { return static_cast<long>(m_records.size()); }
    const Record& At(long row) override { return m_records[static_cast<std::size_t>(row - 1)]; }

  private:
    std::vector<ColumnInfo> m_columns;
    std::vector<Record> m_records;
};

ColumnInfo Column(std::u16string name, std::u16string type) {
    ColumnInfo column;
    column.name = name;
    column.base = name;
    column.table = u"t";
    column.declaredType = type;
    return column;
}

using Calls = std::vector<std::u16string>;

class ChangeSaverTest : public testing::Test {
  protected:
    ChangeSaverTest() {
        m_target.table = u"t";
        m_target.columns = m_source.Columns();
        m_target.primaryKey = {u"id"};
    }
    static std::vector<ColumnInfo> Columns() {
        std::vector<ColumnInfo> columns = {Column(u"id", u"INTEGER"), Column(u"name", u"TEXT"),
                                           Column(u"born", u"DATE"), Column(u"sum", u""),
                                           Column(u"photo", u"BLOB")};
        columns[3].base.clear();
        columns[4].binary = true;
        return columns;
    }
    SaveResult Save() { return ChangeSaver(runner, m_target, rows, sheet).Save(); }
    void ExpectRefused(long row, std::u16string_view part) {
        const std::size_t logged = sheet.log.size();
        const bool pending = rows.HasPending();
        const SaveResult result = Save();
        EXPECT_FALSE(result.saved);
        EXPECT_EQ(result.row, row);
        EXPECT_NE(result.reason.find(part), std::u16string::npos);
        if (row > 0) {
            EXPECT_TRUE(result.reason.starts_with(u"第 " + Text(row) + u" 行: "));
        }
        EXPECT_EQ(sheet.log.size(), logged);
        EXPECT_EQ(rows.HasPending(), pending);
    }
    static std::u16string Text(long number) {
        const std::string digits = std::to_string(number);
        return {digits.begin(), digits.end()};
    }

    UpdateTarget m_target;
    FixedRows m_source{Columns(),
                       {{u"1", u"赵", u"2003-08-14", u"5", std::nullopt},
                        {u"2", u"", std::nullopt, u"6", u"(二进制)"},
                        {u"3", u"ſ孙", u"2003-08-15", u"7", std::nullopt},
                        {std::nullopt, u"李", std::nullopt, u"8", std::nullopt}}};
    Recorder runner;
    PendingRows rows{m_source};
    TestSheet sheet;
};

constexpr char16_t UpdateName[] =
    u"UPDATE t SET \"name\" = ? WHERE \"id\" = ? AND CAST(\"name\" AS TEXT) = CAST(? AS TEXT) "
    u"COLLATE BINARY";

TEST_F(ChangeSaverTest, AnEmptyLogSavesWithoutATransaction) {
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(runner.calls, Calls());
}

TEST_F(ChangeSaverTest, ALoggedCellIsWrittenByItsKeyIfItStillReadsAsItDid) {
    sheet.Type(1, 2, u"钱");
    const SaveResult result = Save();
    EXPECT_TRUE(result.saved);
    EXPECT_EQ(result.updated, 1);
    EXPECT_EQ(runner.calls,
              (Calls{u"begin", std::u16string(UpdateName) + u" <钱> <1> <赵>", u"commit"}));
    EXPECT_TRUE(sheet.log.empty());
}

TEST_F(ChangeSaverTest, ALoggedRowWritesTheColumnsThatDiffer) {
    sheet.log = {{1, 0}};
    sheet.texts = {{{1, 1}, u"1"}, {{1, 2}, u"钱"}};
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(runner.calls[1], std::u16string(UpdateName) + u" <钱> <1> <赵>");
}

TEST_F(ChangeSaverTest, ALoggedRowNeverWritesCellsThatTheSheetHoldsNothingOf) {
    sheet.log = {{1, 0}};
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(runner.calls, Calls());
}

TEST_F(ChangeSaverTest, ALoggedRowWritesAnEmptiedCellThatIsPending) {
    sheet.log = {{1, 0}};
    rows.SetPending(1, 2, u"");
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(runner.calls[1], std::u16string(UpdateName) + u" <> <1> <赵>");
}

TEST_F(ChangeSaverTest, ALoggedColumnIsRefused) {
    sheet.log = {{0, 2}};
    ExpectRefused(0, SaveTexts::ColumnMode);
}

TEST_F(ChangeSaverTest, EntriesOutsideTheDatasetAreRefusedWithTheirRow) {
    for (const LogEntry entry : {LogEntry{9, 1}, LogEntry{5, 0}, LogEntry{1, 6}, LogEntry{1, -1},
                                 LogEntry{2147483647, 2147483647}}) {
        sheet.log = {entry};
        ExpectRefused(entry.row, SaveTexts::NoSuchCell);
    }
    EXPECT_EQ(runner.calls, Calls());
}

TEST_F(ChangeSaverTest, ACellThatReadsAsBeforeIsNotWritten) {
    sheet.Type(1, 2, u"赵");
    rows.SetPending(2, 3, u"");
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(runner.calls, Calls());
    EXPECT_FALSE(rows.HasPending());
}

TEST_F(ChangeSaverTest, AnUnchangedCellBeyondCodePage936IsNeverWrittenBack) {
    sheet.Type(3, 2, u"?孙");
    sheet.Type(3, 3, u"2003-08-16");
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(
        runner.calls[1],
        u"UPDATE t SET \"born\" = ? WHERE \"id\" = ? AND CAST(\"born\" AS TEXT) = CAST(? AS TEXT) "
        u"COLLATE BINARY <2003-08-16> <3> <2003-08-15>");
}

TEST_F(ChangeSaverTest, NullIsConditionedAsNullAndAnEmptiedDateBecomesNull) {
    sheet.Type(2, 3, u"2003-01-01");
    sheet.Type(1, 3, u"");
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(
        runner.calls[1],
        u"UPDATE t SET \"born\" = ? WHERE \"id\" = ? AND CAST(\"born\" AS TEXT) = CAST(? AS TEXT) "
        u"COLLATE BINARY <NULL> <1> <2003-08-14>");
    EXPECT_EQ(runner.calls[2],
              u"UPDATE t SET \"born\" = ? WHERE \"id\" = ? AND \"born\" IS NULL <2003-01-01> <2>");
}

TEST_F(ChangeSaverTest, AnAppendedRowIsInsertedWithTheCellsThatHoldSomething) {
    EXPECT_EQ(rows.AppendRow(), 5);
    rows.SetPending(5, 1, u"9");
    rows.SetPending(5, 3, u"");
    sheet.Type(5, 2, u"周");
    const SaveResult result = Save();
    EXPECT_TRUE(result.saved);
    EXPECT_EQ(result.inserted, 1);
    EXPECT_EQ(runner.calls[1], u"INSERT INTO t (\"id\", \"name\") VALUES (?, ?) <9> <周>");
}

TEST_F(ChangeSaverTest, AnAppendedRowWithoutContentIsDropped) {
    rows.AppendRow();
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(runner.calls, Calls());
    EXPECT_EQ(rows.RowCount(), 4);
}

TEST_F(ChangeSaverTest, InsertingAsksForNoKey) {
    m_target.primaryKey.clear();
    rows.SetPending(rows.AppendRow(), 2, u"周");
    EXPECT_TRUE(Save().saved);
}

TEST_F(ChangeSaverTest, ADeletedRowGoesByEverythingThatWasSeenOfIt) {
    rows.DeleteRow(2);
    const SaveResult result = Save();
    EXPECT_TRUE(result.saved);
    EXPECT_EQ(result.deleted, 1);
    EXPECT_EQ(
        runner.calls[1],
        u"DELETE FROM t WHERE \"id\" = ? AND CAST(\"id\" AS TEXT) = CAST(? AS TEXT) COLLATE BINARY"
        u" AND CAST(\"name\" AS TEXT) = CAST(? AS TEXT) COLLATE BINARY AND \"born\" IS NULL"
        u" <2> <2> <>");
}

TEST_F(ChangeSaverTest, RowsBelowADeletedOneKeepTheirRecords) {
    rows.SetPending(3, 2, u"吴");
    rows.DeleteRow(1);
    EXPECT_EQ(rows.Shown(2, 2), CellValue(u"吴"));
    EXPECT_EQ(rows.ChangedRows(), std::vector<long>{2});
    sheet.Type(2, 3, u"2004-01-01");
    EXPECT_TRUE(Save().saved);
    EXPECT_TRUE(runner.calls[1].starts_with(u"DELETE"));
    EXPECT_TRUE(runner.calls[2].ends_with(u" <吴> <2004-01-01> <3> <ſ孙> <2003-08-15>"));
}

TEST_F(ChangeSaverTest, FlaggedColumnsAreTheKeyBeforeThePrimaryKey) {
    sheet.keys = {2};
    sheet.Type(1, 1, u"8");
    EXPECT_TRUE(Save().saved);
    EXPECT_TRUE(runner.calls[1].starts_with(u"UPDATE t SET \"id\" = ? WHERE \"name\" = ? AND "));
    EXPECT_TRUE(runner.calls[1].ends_with(u" <8> <赵> <1>"));
}

TEST_F(ChangeSaverTest, WithoutAnyKeyARowIsRefused) {
    sheet.Type(1, 2, u"钱");
    m_target.primaryKey.clear();
    ExpectRefused(1, SaveTexts::NoKey);
    m_target.primaryKey = {u"id", u"line"};
    ExpectRefused(1, SaveTexts::KeyNotShown);
    EXPECT_EQ(runner.calls, Calls());
}

TEST_F(ChangeSaverTest, AnEmptyKeyIsRefused) {
    sheet.Type(4, 2, u"钱");
    ExpectRefused(4, SaveTexts::EmptyKey);
}

TEST_F(ChangeSaverTest, ColumnsThatAreNoneOfTheTableAreRefused) {
    sheet.Type(1, 4, u"9");
    ExpectRefused(1, SaveTexts::ReadOnlyColumn);
    sheet.log = {{1, 5}};
    sheet.texts = {{{1, 5}, u"x"}};
    ExpectRefused(1, SaveTexts::BinaryColumn);
}

TEST_F(ChangeSaverTest, AStatementOverSeveralTablesIsRefused) {
    m_target.table.clear();
    sheet.Type(2, 2, u"钱");
    ExpectRefused(2, SaveTexts::ReadOnly);
}

TEST_F(ChangeSaverTest, AConflictRollsBackAndNamesTheRow) {
    sheet.Type(3, 2, u"钱");
    runner.touched = 0;
    ExpectRefused(3, SaveTexts::Changed);
    EXPECT_EQ(runner.calls.back(), u"rollback");
    runner.touched = 2;
    ExpectRefused(3, SaveTexts::NotUnique);
}

TEST_F(ChangeSaverTest, ARefusedStatementRollsBackWithTheDriversText) {
    sheet.Type(1, 2, u"钱");
    sheet.Type(3, 2, u"钱");
    runner.failAt = 1;
    ExpectRefused(3, u"数据库拒绝保存: no such luck");
    EXPECT_EQ(runner.calls.back(), u"rollback");
}

TEST_F(ChangeSaverTest, ARefusedDeletionNamesTheRecordByItsKey) {
    rows.DeleteRow(3);
    runner.touched = 0;
    ExpectRefused(0, u"删除的记录 (id=3): ");
}

TEST_F(ChangeSaverTest, ARefusedCommitLosesNothing) {
    sheet.Type(1, 2, u"钱");
    runner.failCommit = true;
    ExpectRefused(0, u"提交失败: no commit");
    EXPECT_EQ(runner.calls.back(), u"rollback");
}

TEST_F(ChangeSaverTest, ALostConnectionIsToldAsSuch) {
    sheet.Type(1, 2, u"钱");
    runner.failAt = 0;
    runner.lost = true;
    const SaveResult result = Save();
    EXPECT_TRUE(result.connectionLost);
    EXPECT_NE(result.reason.find(SaveTexts::ConnectionLost), std::u16string::npos);
    EXPECT_EQ(sheet.log.size(), 1u);
}

TEST_F(ChangeSaverTest, AnOpenTransactionOfTheHostIsNotEnded) {
    sheet.Type(1, 2, u"钱");
    runner.open = true;
    ExpectRefused(0, SaveTexts::OpenTransaction);
    EXPECT_EQ(runner.calls, Calls());
}

TEST_F(ChangeSaverTest, DeletedThenChangedThenAppendedInTheOrderOfTheSheet) {
    rows.SetPending(rows.AppendRow(), 2, u"周");
    sheet.Type(3, 2, u"丙");
    sheet.Type(2, 2, u"乙");
    rows.DeleteRow(1);
    sheet.log = {{2, 2}, {1, 2}};
    sheet.texts = {{{2, 2}, u"丙"}, {{1, 2}, u"乙"}};
    EXPECT_TRUE(Save().saved);
    ASSERT_EQ(runner.calls.size(), 6u);
    EXPECT_TRUE(runner.calls[1].starts_with(u"DELETE"));
    EXPECT_TRUE(runner.calls[2].find(u"<乙> <2>") != std::u16string::npos);
    EXPECT_TRUE(runner.calls[3].find(u"<丙> <3>") != std::u16string::npos);
    EXPECT_TRUE(runner.calls[4].starts_with(u"INSERT"));
}

TEST_F(ChangeSaverTest, PostgreSqlTakesValuesByTheColumnsType) {
    m_target.database = Database::PostgreSQL;
    m_target.columns[0].declaredType = u"integer";
    m_target.columns[1].declaredType = u"json";
    sheet.Type(1, 2, u"{}");
    EXPECT_TRUE(Save().saved);
    EXPECT_EQ(
        runner.calls[1],
        u"UPDATE t SET \"name\" = CAST(CAST(? AS TEXT) AS json) WHERE \"id\" = CAST(CAST(? AS "
        u"TEXT) AS integer) AND CAST(\"name\" AS TEXT) = CAST(? AS TEXT) <{}> <1> <赵>");
}

}  // namespace
}  // namespace veygrid
