// Saving into real databases: what arrives, what is refused, and random work against a literal
// model.
#include <numeric>
#include <optional>

#include "apps/host/odbc/OdbcError.h"
#include "apps/host/odbc/SaveTexts.h"
#include "tests/odbc/DatabaseDesk.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

// A query with its pending rows, as a host holds them.
struct Opened {
    Opened(std::shared_ptr<Connection> connection, std::u16string_view text)
        : query(connection, text), rows(query), runner(std::move(connection)) {}
    SaveResult Save() { return ChangeSaver(*runner, query.Target(), rows, sheet).Save(); }

    QueryRows query;
    PendingRows rows;
    TestSheet sheet;
    std::shared_ptr<Connection> runner;
};

class SavingTest : public DatabaseTest {
  protected:
    void Fill() {
        Run(u"CREATE TABLE t(id INTEGER PRIMARY KEY, name VARCHAR(20), n INTEGER, d DATE)");
        Run(u"INSERT INTO t VALUES (1, '赵', 10, '2003-08-14'), (2, '', NULL, NULL), "
            u"(3, NULL, 30, NULL)");
    }
    std::unique_ptr<Opened> Open(std::u16string_view text = u"SELECT * FROM t") {
        return std::make_unique<Opened>(Conn(), text);
    }
    std::vector<Record> Stored() { return Table(u"SELECT id, name, n, d FROM t ORDER BY id"); }
    void ExpectSaved(Opened& opened) {
        const SaveResult result = opened.Save();
        EXPECT_TRUE(result.saved) << CodePage936FromUtf16(result.reason);
        EXPECT_FALSE(opened.rows.HasPending());
        EXPECT_TRUE(opened.sheet.log.empty());
        EXPECT_FALSE(Conn()->InTransaction());
    }
    void ExpectRefused(Opened& opened, long row, std::u16string_view part) {
        const std::vector<Record> before = Stored();
        const bool pending = opened.rows.HasPending();
        const std::size_t logged = opened.sheet.log.size();
        const SaveResult result = opened.Save();
        EXPECT_FALSE(result.saved);
        EXPECT_EQ(result.row, row);
        EXPECT_NE(result.reason.find(part), std::u16string::npos);
        EXPECT_EQ(Stored(), before);
        EXPECT_EQ(opened.rows.HasPending(), pending);
        EXPECT_EQ(opened.sheet.log.size(), logged);
        EXPECT_FALSE(Conn()->InTransaction());
    }
};
EACH_DATABASE(SavingTest);
class SavingOnServerTest : public SavingTest {};
EACH_SERVER(SavingOnServerTest);

TEST_P(SavingTest, ChangedAppendedAndDeletedRowsArrive) {
    Fill();
    const auto opened = Open();
    opened->sheet.Type(1, 2, u"钱\xD83D\xDE00");
    opened->rows.SetPending(1, 3, u"");
    opened->rows.SetPending(2, 4, u"2004-02-29");
    opened->rows.DeleteRow(3);
    EXPECT_EQ(opened->rows.AppendRow(), 3);
    opened->rows.SetPending(3, 1, u"7");
    opened->rows.SetPending(3, 3, u"-5");
    ExpectSaved(*opened);
    const std::vector<Record> expected = {{u"1", u"钱\xD83D\xDE00", std::nullopt, u"2003-08-14"},
                                          {u"2", u"", std::nullopt, u"2004-02-29"},
                                          {u"7", std::nullopt, u"-5", std::nullopt}};
    EXPECT_EQ(Stored(), expected);
    opened->query.Reload();
    EXPECT_EQ(opened->rows.RowCount(), 3);
    EXPECT_EQ(opened->rows.Shown(3, 3), CellValue(u"-5"));
}

TEST_P(SavingTest, ARecordThatAnotherChangedIsAConflictAndNothingIsWritten) {
    Fill();
    const auto opened = Open();
    opened->sheet.Type(1, 2, u"甲");
    opened->sheet.Type(2, 2, u"乙");
    EXPECT_EQ(opened->rows.Shown(2, 2), CellValue(u""));
    Desk().Connect()->Execute({u"UPDATE t SET name = 'other' WHERE id = 2", {}});
    ExpectRefused(*opened, 2, SaveTexts::Changed);
    opened->query.Reload();
    ExpectSaved(*opened);
    EXPECT_EQ(Stored()[1][1], CellValue(u"乙"));
}

TEST_P(SavingTest, AnotherColumnThatAnotherChangedIsNoConflict) {
    Fill();
    const auto opened = Open();
    opened->sheet.Type(1, 2, u"甲");
    opened->rows.SourceRecord(1);
    Desk().Connect()->Execute({u"UPDATE t SET n = 11 WHERE id = 1", {}});
    ExpectSaved(*opened);
    EXPECT_EQ(Stored()[0], (Record{u"1", u"甲", u"11", u"2003-08-14"}));
}

TEST_P(SavingTest, ARecordThatAnotherDeletedIsAConflict) {
    Fill();
    const auto opened = Open();
    opened->rows.SetPending(1, 2, u"甲");
    opened->rows.DeleteRow(3);
    Desk().Connect()->Execute({u"DELETE FROM t WHERE id = 3", {}});
    ExpectRefused(*opened, 0, u"删除的记录 (id=3): ");
}

TEST_P(SavingTest, ARefusedStatementNamesItsRowWithTheDriversText) {
    Fill();
    const auto opened = Open();
    opened->rows.SetPending(1, 2, u"甲");
    opened->rows.SetPending(opened->rows.AppendRow(), 1, u"2");
    ExpectRefused(*opened, 4, SQLite() ? u"UNIQUE constraint failed" : u"t_pkey");
}

TEST_P(SavingTest, ALockedTableRefusesAndLosesNothing) {
    Fill();
    Run(For(u"PRAGMA busy_timeout = 50", u"SET lock_timeout = 50"));
    const auto opened = Open();
    opened->sheet.Type(1, 2, u"甲");
    const auto other = Desk().Connect();
    other->Begin();
    other->Execute({u"UPDATE t SET n = 99 WHERE id = 1", {}});
    const SaveResult result = opened->Save();
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.row, 1);
    EXPECT_EQ(opened->sheet.log.size(), 1u);
    other->Rollback();
    ExpectSaved(*opened);
}

TEST_P(SavingTest, ColumnsUnderOtherNamesAreWrittenToTheirOwn) {
    Fill();
    const auto opened = Open(u"SELECT v.name AS id, id AS name FROM t v WHERE id = 1;");
    opened->sheet.Type(1, 1, u"甲");
    ExpectSaved(*opened);
    EXPECT_EQ(Stored()[0][1], CellValue(u"甲"));
}

TEST_P(SavingTest, WhatCannotBeWrittenIsRefusedInClearWords) {
    Fill();
    struct Case {
        const char16_t* query;
        std::u16string_view reason;
    };
    for (const Case& wrong :
         {Case{u"SELECT id, name || '' AS name FROM t", SaveTexts::ReadOnlyColumn},
          Case{u"SELECT n, name FROM t", SaveTexts::KeyNotShown},
          Case{u"SELECT a.id, a.name FROM t a JOIN t b ON a.id = b.id", SaveTexts::ReadOnly},
          Case{u"SELECT id, name FROM t GROUP BY id, name", SaveTexts::ReadOnly},
          Case{u"SELECT DISTINCT id, name FROM t", SaveTexts::ReadOnly}}) {
        const auto opened = Open(wrong.query);
        opened->sheet.Type(1, 2, u"甲");
        ExpectRefused(*opened, 1, wrong.reason);
    }
}

TEST_P(SavingTest, ATableWithoutAPrimaryKeyTakesFlaggedColumns) {
    Fill();
    Run(u"CREATE TABLE u(code TEXT, name TEXT)");
    Run(u"INSERT INTO u VALUES ('007', 'x'), ('7', 'y'), ('8', 'z'), ('8', 'z')");
    const auto opened = Open(u"SELECT * FROM u ORDER BY code");
    opened->sheet.Type(1, 2, u"甲");
    ExpectRefused(*opened, 1, SaveTexts::NoKey);
    opened->sheet.keys = {1};
    ExpectSaved(*opened);
    EXPECT_EQ(Conn()->Single(u"SELECT name FROM u WHERE code = '007'"), CellValue(u"甲"));
    EXPECT_EQ(Conn()->Single(u"SELECT name FROM u WHERE code = '7'"), CellValue(u"y"));
    opened->sheet.Type(3, 2, u"乙");
    ExpectRefused(*opened, 3, SaveTexts::NotUnique);
}

TEST_P(SavingTest, EveryTypeIsReadChangedAndWritten) {
    Run(
        For(u"CREATE TABLE t(id INTEGER PRIMARY KEY, f DOUBLE, x NUMERIC(10,2), ts TIMESTAMP, b "
            u"BOOLEAN, "
            u"c CHAR(4), free, long TEXT)",
            u"CREATE TABLE t(id BIGINT PRIMARY KEY, f FLOAT8, x NUMERIC(10,2), ts TIMESTAMPTZ, b "
            u"BOOLEAN, "
            u"c CHAR(4), free JSON, long TEXT)"));
    Run(For(
        u"INSERT INTO t VALUES (1, 0.1 + 0.2, 12.5, '2003-08-14 01:02:03', 1, 'ab', 5, 'l')",
        u"INSERT INTO t VALUES (1, 0.1::float8 + 0.2::float8, 12.5, '2003-08-14 01:02:03.25+08', "
        u"true, 'ab', '{\"a\": 1}', 'l')"));
    const std::vector<std::u16string> typed = {
        u"1.5", u"99.25",          u"2004-01-02 03:04:05",       u"0",
        u"cd",  For(u"6", u"[2]"), std::u16string(50'000, u'文')};
    for (const bool back : {false, true}) {
        const auto opened = Open();
        for (int col = 2; col <= 8; ++col) {
            const std::u16string now = opened->rows.Shown(1, col).value_or(u"");
            opened->sheet.Type(
                1, col,
                back ? now + (col == 5 ? u"" : u" ") : typed[static_cast<std::size_t>(col - 2)]);
        }
        ExpectSaved(*opened);
    }
    EXPECT_EQ(Conn()->Single(u"SELECT f FROM t"), CellValue(u"1.5"));
    EXPECT_EQ(Conn()->Single(u"SELECT x FROM t"), CellValue(u"99.25"));
}

TEST_P(SavingTest, NamesThatWantQuotesWork) {
    Run(u"CREATE TABLE \"表 \"\"1\"\"\"(\"编 号\" INTEGER PRIMARY KEY, \"na\"\"me\" TEXT, "
        u"\"Select\" TEXT)");
    Run(u"INSERT INTO \"表 \"\"1\"\"\" VALUES (1, 'a', 'b')");
    const auto opened = Open(u"SELECT * FROM \"表 \"\"1\"\"\"");
    opened->sheet.Type(1, 2, u"x");
    opened->sheet.Type(1, 3, u"y");
    ExpectSaved(*opened);
    EXPECT_EQ(Table(u"SELECT * FROM \"表 \"\"1\"\"\"")[0], (Record{u"1", u"x", u"y"}));
}

TEST_P(SavingOnServerTest, AConnectionLostWhileSavingLosesNothing) {
    Fill();
    const auto victim = Desk().Connect();
    Opened opened(victim, u"SELECT * FROM t");
    opened.rows.SetPending(1, 2, u"甲");
    const CellValue number = victim->Single(u"SELECT pg_backend_pid()");
    Conn()->Single(u"SELECT pg_terminate_backend(" + *number + u")");
    const SaveResult result = opened.Save();
    EXPECT_FALSE(result.saved);
    EXPECT_TRUE(result.connectionLost);
    EXPECT_TRUE(opened.rows.HasPending());
    EXPECT_EQ(Stored()[0][1], CellValue(u"赵"));
}

// What the database must hold, as plain data; keys order it.
using Model = std::map<long, Record>;

long KeyOf(const Record& record) {
    return std::stol(std::string(record[0]->begin(), record[0]->end()));
}

class RandomSavingTest : public SavingTest {
  protected:
    void TearDown() override {
        m_opened.reset();
        SavingTest::TearDown();
    }
    std::size_t Random(std::size_t below) { return m_random() % below; }
    bool Chance(std::size_t of) { return Random(of) == 0; }
    std::u16string RandomText(int col) {
        static const std::vector<std::u16string> Names = {
            u"", u"赵", u"it's \"x\"", u"ſ", u"?", u"\xD83D\xDE00", u"a;--", u"丂乛", u"100%_"};
        static const std::vector<std::u16string> Dates = {u"", u"2003-08-14", u"1999-12-31"};
        switch (col) {
            case 1:
                return Utf16(std::to_string(1 + Random(40)));
            case 2:
                return Names[Random(Names.size())];
            case 3:
                return Chance(4) ? u"" : Utf16(std::to_string(Random(1000)));
            default:
                return Dates[Random(Dates.size())];
        }
    }

    void Begin() {
        Fill();
        m_stored.clear();
        for (const Record& record : Stored()) {
            m_stored[KeyOf(record)] = record;
        }
        m_opened = Open();
        Reread();
    }
    void Reread() {
        m_opened->rows.ClearPending();
        m_opened->sheet.log.clear();
        m_opened->sheet.texts.clear();
        m_opened->query.Reload();
        m_rows.clear();
        for (const auto& [key, record] : m_stored) {
            m_rows.push_back({record, {}});
        }
        m_deleted.clear();
        ExpectShown();
    }
    // The sheet shows the records as they were read with the pending texts over them.
    void ExpectShown() {
        ASSERT_EQ(m_opened->rows.RowCount(), static_cast<long>(m_rows.size()));
        for (long row = 1; row <= m_opened->rows.RowCount(); ++row) {
            for (int col = 1; col <= 4; ++col) {
                const Row& model = m_rows[static_cast<std::size_t>(row - 1)];
                const auto text = model.pending.find(col);
                const CellValue expected = text != model.pending.end() ? CellValue(text->second)
                                           : model.read
                                               ? (*model.read)[static_cast<std::size_t>(col - 1)]
                                               : CellValue();
                ASSERT_EQ(m_opened->rows.Shown(row, col), expected);
            }
        }
    }

    void Step() {
        const std::size_t rows = m_rows.size();
        switch (Random(8)) {
            case 0:
                Append();
                break;
            case 1:
                if (rows > 0) {
                    Delete(1 + Random(rows));
                }
                break;
            case 2:
                if (Chance(4)) {
                    Disturb();
                }
                break;
            case 3:
                Save();
                break;
            default:
                if (rows > 0) {
                    const int col = 1 + static_cast<int>(Random(4));
                    Edit(1 + Random(rows), col == 1 && !Chance(4) ? 2 : col);
                }
        }
    }
    void Edit(std::size_t row, int col) {
        const std::u16string text = RandomText(col);
        m_opened->sheet.log.push_back({static_cast<long>(row), col});
        m_opened->rows.SetPending(static_cast<long>(row), col, text);
        m_rows[row - 1].pending[col] = text;
    }
    void Append() {
        m_opened->rows.AppendRow();
        m_rows.push_back({});
        Edit(m_rows.size(), 1);
        Edit(m_rows.size(), 2);
    }
    void Delete(std::size_t row) {
        m_opened->rows.DeleteRow(static_cast<long>(row));
        auto& log = m_opened->sheet.log;
        std::erase_if(log, [&](const LogEntry& e) { return e.row == static_cast<long>(row); });
        for (LogEntry& entry : log) {
            entry.row -= entry.row > static_cast<long>(row) ? 1 : 0;
        }
        if (m_rows[row - 1].read) {
            m_deleted.push_back(*m_rows[row - 1].read);
        }
        m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(row - 1));
    }
    // Another user at work.
    void Disturb() {
        if (m_stored.empty()) {
            return;
        }
        const auto victim = std::next(m_stored.begin(), static_cast<long>(Random(m_stored.size())));
        const std::u16string key = *victim->second[0];
        const auto other = Desk().Connect();
        if (Chance(2)) {
            other->Execute({u"DELETE FROM t WHERE id = " + key, {}});
            m_stored.erase(victim);
        } else {
            other->Execute({u"UPDATE t SET name = 'other' WHERE id = " + key, {}});
            victim->second[1] = u"other";
        }
    }

    // As the sheet shows it.
    static std::u16string Shown(const CellValue& value) {
        return Utf16FromCodePage936(CodePage936FromUtf16(value.value_or(u"")));
    }
    // What saving must make of the stored records; nothing when it must refuse.
    std::optional<Model> Expected() const {
        Model model = m_stored;
        for (const Record& record : m_deleted) {
            const auto found = model.find(KeyOf(record));
            if (found == model.end() || found->second != record) {
                return std::nullopt;
            }
            model.erase(found);
        }
        for (const Row& row : m_rows) {
            if (row.read && !Change(model, row)) {
                return std::nullopt;
            }
        }
        for (const Row& row : m_rows) {
            if (!row.read && !Insert(model, row)) {
                return std::nullopt;
            }
        }
        return model;
    }

    struct Row {
        std::optional<Record> read;
        std::map<int, std::u16string> pending;
    };
    static CellValue Value(int col, const std::u16string& text) {
        return text.empty() && col != 2 ? CellValue() : CellValue(text);
    }
    static bool Change(Model& model, const Row& row) {
        std::map<int, std::u16string> changes;
        for (const auto& [col, text] : row.pending) {
            const CellValue& read = (*row.read)[static_cast<std::size_t>(col - 1)];
            if (read.value_or(u"") != text && Shown(read) != text) {
                changes[col] = text;
            }
        }
        if (changes.empty()) {
            return true;
        }
        const auto found = model.find(KeyOf(*row.read));
        if (found == model.end()) {
            return false;
        }
        Record record = found->second;
        for (const auto& [col, text] : changes) {
            const auto at = static_cast<std::size_t>(col - 1);
            if (record[at] != (*row.read)[at]) {
                return false;
            }
            record[at] = Value(col, text);
        }
        model.erase(found);
        return model.emplace(KeyOf(record), record).second;
    }
    static bool Insert(Model& model, const Row& row) {
        Record record(4);
        for (const auto& [col, text] : row.pending) {
            record[static_cast<std::size_t>(col - 1)] =
                text.empty() ? CellValue() : CellValue(text);
        }
        return model.emplace(KeyOf(record), record).second;
    }

    void Save() {
        const std::optional<Model> expected = Expected();
        const std::size_t logged = m_opened->sheet.log.size();
        const SaveResult result = m_opened->Save();
        ASSERT_EQ(result.saved, expected.has_value()) << CodePage936FromUtf16(result.reason);
        if (expected) {
            m_stored = *expected;
            ++m_saved;
        } else {
            ASSERT_EQ(m_opened->sheet.log.size(), logged);
            ASSERT_FALSE(result.reason.empty());
            ExpectShown();
            ++m_refused;
        }
        ExpectStored();
        if (expected || Chance(2)) {
            Reread();
        }
    }
    void ExpectStored() {
        std::vector<Record> records;
        for (const auto& [key, record] : m_stored) {
            records.push_back(record);
        }
        ASSERT_EQ(Stored(), records);
    }

    std::mt19937 m_random{20031114};
    std::unique_ptr<Opened> m_opened;
    Model m_stored;
    std::vector<Row> m_rows;
    std::vector<Record> m_deleted;
    int m_saved = 0;
    int m_refused = 0;
};
EACH_DATABASE(RandomSavingTest);

TEST_P(RandomSavingTest, TheDatabaseEqualsALiteralModelAfterEachSaveAndRefusal) {
    Begin();
    for (int i = 0; i < 4000 && !HasFatalFailure(); ++i) {
        Step();
    }
    EXPECT_GT(m_saved, 100);
    EXPECT_GT(m_refused, 100);
}

}  // namespace
}  // namespace veygrid
