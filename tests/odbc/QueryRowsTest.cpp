// The rows of any SELECT, found by their number.
#include "tests/odbc/DatabaseDesk.h"

namespace veygrid {
namespace {

class QueryRowsTest : public DatabaseTest {
  protected:
    // n rows of a key with gaps and a name.
    void Fill(int rows) {
        Run(u"CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT, half INTEGER)");
        Conn()->Begin();
        for (int i = 1; i <= rows; ++i) {
            Run(u"INSERT INTO t(id, name, half) VALUES (" + Utf16(std::to_string(i * 3)) +
                    u", ?, " + Utf16(std::to_string(i / 2)) + u")",
                {u"名" + Utf16(std::to_string(i))});
        }
        Conn()->Commit();
    }
    std::unique_ptr<QueryRows> Open(std::u16string_view text) {
        return std::make_unique<QueryRows>(Conn(), text);
    }
    // Every row of the query, read in a random order, against the plain statement.
    void ExpectWhole(std::u16string_view text, bool keyed, std::u16string_view order = u"") {
        const std::vector<Record> expected =
            Table(FormOf(text, GetParam()).body + std::u16string(order));
        const auto rows = Open(text);
        EXPECT_EQ(rows->Keyed(), keyed);
        ASSERT_EQ(rows->RowCount(), static_cast<long>(expected.size()));
        std::vector<long> places(expected.size());
        std::iota(places.begin(), places.end(), 1L);
        std::shuffle(places.begin(), places.end(), std::mt19937(7));
        for (const long row : places) {
            ASSERT_EQ(rows->At(row), expected[static_cast<std::size_t>(row - 1)]) << row;
        }
    }
};
EACH_DATABASE(QueryRowsTest);
class QueryRowsOnServerTest : public QueryRowsTest {};
EACH_SERVER(QueryRowsOnServerTest);

TEST_P(QueryRowsTest, ATableIsReadByItsKeyInAnyOrderOfRows) {
    Fill(1000);
    ExpectWhole(u"SELECT id, name FROM t", true);
    ExpectWhole(u"SELECT name FROM t WHERE half > 100 -- the end", true);
    ExpectWhole(u"SELECT v.*, id + 1 FROM t AS v;", true);
}

TEST_P(QueryRowsTest, AnyOtherSelectGivesItsRowsInItsOwnOrder) {
    Fill(700);
    ExpectWhole(u"SELECT DISTINCT half FROM t ORDER BY half DESC", false);
    ExpectWhole(u"SELECT half, COUNT(*) AS n FROM t GROUP BY half ORDER BY 2, 1", false);
    ExpectWhole(u"SELECT name FROM t ORDER BY half, name", false);
    ExpectWhole(u"SELECT id FROM t ORDER BY id LIMIT 300 OFFSET 5;;", false);
    ExpectWhole(u"SELECT a.id, b.id FROM t a JOIN t b ON a.id = b.id + 3 ORDER BY 1 /* end */",
                false);
    ExpectWhole(
        u"SELECT id FROM t WHERE id < 9 UNION ALL SELECT -id FROM t WHERE id < 9 ORDER BY 1",
        false);
    ExpectWhole(u"WITH v AS (SELECT id FROM t) SELECT * FROM v ORDER BY id DESC", false);
    ExpectWhole(u"SELECT COUNT(*) AS n FROM t", false);
}

TEST_P(QueryRowsTest, SeveralColumnsMakeOneKey) {
    Run(u"CREATE TABLE t(a TEXT, b INTEGER, c TEXT, PRIMARY KEY(a, b))" +
        For(u" WITHOUT ROWID", u""));
    for (int i = 0; i < 600; ++i) {
        Run(u"INSERT INTO t(a, b) VALUES (?, " + Utf16(std::to_string(i)) + u")",
            {Utf16(std::string(1, static_cast<char>('a' + i % 7)))});
    }
    ExpectWhole(u"SELECT b, a FROM t", !SQLite(), u" ORDER BY a, b");
}

TEST_P(QueryRowsTest, DuplicateColumnNamesKeepTheirOwnTexts) {
    Run(u"CREATE TABLE t(a TEXT, b TEXT)");
    Run(u"INSERT INTO t VALUES ('1', '2')");
    for (const char16_t* text :
         {u"SELECT a AS x, b AS x FROM t", u"SELECT a AS x, b AS x FROM t ORDER BY 1"}) {
        const auto rows = Open(text);
        EXPECT_EQ(rows->At(1), (Record{u"1", u"2"}));
        EXPECT_EQ(rows->Columns()[0].name, u"x");
        EXPECT_EQ(rows->Columns()[1].name, u"x");
        EXPECT_EQ(rows->Columns()[1].base, u"b");
    }
}

TEST_P(QueryRowsTest, ZeroRowsAreNoRows) {
    Fill(0);
    EXPECT_EQ(Open(u"SELECT * FROM t")->RowCount(), 0);
    EXPECT_EQ(Open(u"SELECT * FROM t")->Columns().size(), 3u);
    EXPECT_EQ(Open(u"SELECT half FROM t GROUP BY half")->RowCount(), 0);
}

TEST_P(QueryRowsTest, AStatementThatIsNoSelectIsCarriedOutAndHasNoColumns) {
    Fill(1);
    const auto rows = Open(u"DELETE FROM t;");
    EXPECT_TRUE(rows->Columns().empty());
    EXPECT_EQ(rows->RowCount(), 0);
    EXPECT_EQ(Conn()->Single(u"SELECT COUNT(*) FROM t"), CellValue(u"0"));
    Run(u"INSERT INTO t(id) VALUES (1)");
    rows->Reload();
    EXPECT_EQ(Conn()->Single(u"SELECT COUNT(*) FROM t"), CellValue(u"1"));
    EXPECT_TRUE(Open(u"")->Columns().empty());
}

TEST_P(QueryRowsTest, StatementErrorsAreTheDriversOwn) {
    Fill(1);
    for (const char16_t* text :
         {u"SELECT nothing FROM t", u"SELECT FROM FROM", u"SELECT * FROM nowhere",
          u"SELECT 1; DROP TABLE t", u"NONSENSE"}) {
        try {
            Open(text);
            FAIL() << "no error";
        } catch (const OdbcError& error) {
            EXPECT_FALSE(error.Text().empty());
        }
    }
    EXPECT_EQ(Conn()->Single(u"SELECT COUNT(*) FROM t"), CellValue(u"1"));
}

TEST_P(QueryRowsTest, DateMarksOfTheStatementAreConverted) {
    Run(u"CREATE TABLE t(d DATE)");
    Run(u"INSERT INTO t VALUES ('2003-08-14')");
    EXPECT_EQ(Open(u"SELECT d FROM t WHERE d=%{2003-8-14}%")->RowCount(), 1);
    EXPECT_EQ(Open(u"SELECT d FROM t WHERE d=%{2003-8-15}%")->RowCount(), 0);
}

TEST_P(QueryRowsTest, ReloadSeesWhatOthersWrote) {
    Fill(300);
    for (const char16_t* text : {u"SELECT id FROM t", u"SELECT id FROM t ORDER BY 1"}) {
        const auto rows = Open(text);
        EXPECT_EQ(rows->At(1)[0], CellValue(u"3"));
        Desk().Connect()->Execute({u"UPDATE t SET id = 1 WHERE id = 3", {}});
        EXPECT_EQ(rows->At(1)[0], CellValue(u"3"));
        rows->Reload();
        EXPECT_EQ(rows->At(1)[0], CellValue(u"1"));
        Run(u"UPDATE t SET id = 3 WHERE id = 1");
    }
}

TEST_P(QueryRowsTest, RowsThatWentMeanwhileReadAsNull) {
    Fill(300);
    const auto rows = Open(u"SELECT id, name FROM t");
    Desk().Connect()->Execute({u"DELETE FROM t", {}});
    EXPECT_EQ(rows->RowCount(), 300);
    EXPECT_EQ(rows->At(200), Record(2));
}

TEST_P(QueryRowsTest, WhatIsKeptDoesNotGrowWithTheRowsScrolledPast) {
    Fill(static_cast<int>(RowWindows::RowsOfWindow) * 80);
    const auto rows = Open(u"SELECT id, name FROM t");
    std::size_t most = 0;
    std::size_t bytes = 0;
    for (long row = 1; row <= rows->RowCount(); ++row) {
        rows->At(row);
        most = std::max(most, rows->Windows()->WindowCount());
        bytes = std::max(bytes, rows->Windows()->Bytes());
    }
    EXPECT_EQ(most, RowWindows::WindowLimit);
    EXPECT_LE(bytes, RowWindows::ByteLimit);
}

TEST_P(QueryRowsOnServerTest, ALostConnectionIsToldAsSuch) {
    Fill(300);
    const auto victim = Desk().Connect();
    QueryRows rows(victim, u"SELECT id FROM t");
    EXPECT_EQ(rows.At(1)[0], CellValue(u"3"));
    const CellValue number = victim->Single(u"SELECT pg_backend_pid()");
    Conn()->Single(u"SELECT pg_terminate_backend(" + *number + u")");
    try {
        rows.At(299);
        FAIL() << "no error";
    } catch (const OdbcError& error) {
        EXPECT_TRUE(error.ConnectionLost());
    }
    EXPECT_FALSE(victim->Alive());
}

}  // namespace
}  // namespace veygrid
