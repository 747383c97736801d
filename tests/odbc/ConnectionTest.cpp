// Connections, values both ways, and what drivers say of errors.
#include "tests/odbc/DatabaseDesk.h"

namespace veygrid {
namespace {

class ConnectionTest : public DatabaseTest {};
EACH_DATABASE(ConnectionTest);

TEST_P(ConnectionTest, KnowsItsDatabase) {
    EXPECT_EQ(Conn()->Kind(), GetParam());
    EXPECT_EQ(Conn()->ProductName().substr(0, 6), For(u"SQLite", u"Postgr"));
    EXPECT_TRUE(Conn()->Alive());
}

TEST_P(ConnectionTest, CarriesTextsOfAnyCharacterBothWays) {
    Run(u"CREATE TABLE t(a TEXT)");
    const std::vector<std::u16string> texts = {u"多福巷社区居委会",
                                               u"",
                                               u"'\"`[];--",
                                               u"\xD83D\xDE00 é ſ 㐀",
                                               std::u16string(100'000, u'长'),
                                               u"a\r\n\tb",
                                               u"{x}?",
                                               std::u16string(255, u'b'),
                                               std::u16string(256, u'c'),
                                               std::u16string(257, u'd'),
                                               u"\\x41 E'\\n'"};
    for (const std::u16string& text : texts) {
        Run(u"DELETE FROM t");
        EXPECT_EQ(Run(u"INSERT INTO t VALUES (?)", {text}), 1);
        EXPECT_EQ(Conn()->Single(u"SELECT a FROM t"), CellValue(text));
    }
}

TEST_P(ConnectionTest, CarriesChineseWithinStatements) {
    Run(u"CREATE TABLE 表(名 TEXT)");
    Run(u"INSERT INTO 表(名) VALUES ('多福巷')");
    EXPECT_EQ(Conn()->Single(u"SELECT 名 FROM 表 WHERE 名 LIKE '%福%'"), CellValue(u"多福巷"));
    EXPECT_EQ(Conn()->Describe(u"SELECT 名 FROM 表")[0].name, u"名");
}

TEST_P(ConnectionTest, NullIsNotEmptyText) {
    Run(u"CREATE TABLE t(a TEXT, b TEXT)");
    Run(u"INSERT INTO t VALUES (?, ?)", {std::nullopt, u""});
    const std::vector<Record> expected = {{std::nullopt, u""}};
    EXPECT_EQ(Table(u"SELECT a, b FROM t"), expected);
}

TEST_P(ConnectionTest, BinaryCellsReadAsTheMarkAndNull) {
    Run(For(u"CREATE TABLE t(a INTEGER, b BLOB)", u"CREATE TABLE t(a INTEGER, b BYTEA)"));
    Run(For(u"INSERT INTO t VALUES (1, x'0102'), (2, NULL)",
            u"INSERT INTO t VALUES (1, '\\x0102'), (2, NULL)"));
    const std::vector<Record> expected = {{u"1", std::u16string(BinaryMark)}, {u"2", std::nullopt}};
    EXPECT_EQ(Table(u"SELECT a, b FROM t ORDER BY a"), expected);
}

TEST_P(ConnectionTest, ErrorsCarryTheDriversOwnText) {
    try {
        Run(u"SELECT 1 FROM nowhere");
        FAIL() << "no error";
    } catch (const OdbcError& error) {
        EXPECT_NE(error.Text().find(u"nowhere"), std::u16string::npos);
        EXPECT_EQ(error.State().size(), 5u);
        EXPECT_FALSE(error.ConnectionLost());
    }
}

TEST_P(ConnectionTest, StringsThatConnectToNothingAreRefused) {
    for (const char16_t* text : {u"", u"Driver=NoSuchDriver", u"DSN=nothing", u";;;", u"=",
                                 u"Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=1;Database=x"}) {
        EXPECT_THROW(Connection{text}, OdbcError);
    }
}

TEST_P(ConnectionTest, TransactionsEndWholeOrNotAtAll) {
    Run(u"CREATE TABLE t(a INTEGER)");
    Conn()->Begin();
    EXPECT_TRUE(Conn()->InTransaction());
    Run(u"INSERT INTO t VALUES (1)");
    Conn()->Rollback();
    EXPECT_FALSE(Conn()->InTransaction());
    EXPECT_EQ(Conn()->Single(u"SELECT COUNT(*) FROM t"), CellValue(u"0"));
    Conn()->Begin();
    Run(u"INSERT INTO t VALUES (1)");
    Run(u"INSERT INTO t VALUES (1)");
    Conn()->Commit();
    EXPECT_EQ(Desk().Connect()->Single(u"SELECT COUNT(*) FROM t"), CellValue(u"2"));
}

TEST_P(ConnectionTest, AConnectionThatEndsRollsItsTransactionBack) {
    Run(u"CREATE TABLE t(a INTEGER)");
    {
        const auto other = Desk().Connect();
        other->Begin();
        other->Execute({u"INSERT INTO t VALUES (1)", {}});
    }
    EXPECT_EQ(Conn()->Single(u"SELECT COUNT(*) FROM t"), CellValue(u"0"));
}

TEST_P(ConnectionTest, CountsTheRowsThatAStatementTouched) {
    Run(u"CREATE TABLE t(a INTEGER)");
    EXPECT_EQ(Run(u"INSERT INTO t VALUES (1), (2), (2)"), 3);
    EXPECT_EQ(Run(u"UPDATE t SET a = 5 WHERE a = 2"), 2);
    EXPECT_EQ(Run(u"DELETE FROM t WHERE a = 7"), 0);
}

TEST_P(ConnectionTest, TellsThePrimaryKey) {
    Run(u"CREATE TABLE t(a INTEGER, b INTEGER, c TEXT, PRIMARY KEY(c, a))");
    const std::vector<std::u16string> expected = {u"a", u"c"};
    const std::u16string schema = For(u"", u"veygrid_test");
    std::vector<std::u16string> key = Conn()->PrimaryKey(schema, u"t");
    std::sort(key.begin(), key.end());
    EXPECT_EQ(key, expected);
    Run(u"CREATE TABLE u(a INTEGER)");
    EXPECT_TRUE(Conn()->PrimaryKey(schema, u"u").empty());
}

}  // namespace
}  // namespace veygrid
