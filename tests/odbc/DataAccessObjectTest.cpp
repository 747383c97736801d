// The data-access object: batches of rows, statements of the control, transactions.
#include "apps/host/odbc/DataAccessObject.h"

#include "tests/odbc/DatabaseDesk.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

class DataAccessObjectTest : public DatabaseTest {
  protected:
    void Fill() {
        Run(u"CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT, d DATE)");
        Conn()->Begin();
        for (int i = 1; i <= 250; ++i) {
            Run(u"INSERT INTO t VALUES (" + Utf16(std::to_string(i)) + u", '名', '2003-08-14')");
        }
        Conn()->Commit();
    }
    std::unique_ptr<DataAccessObject> Make() { return std::make_unique<DataAccessObject>(Conn()); }
    static std::string Cell(const DataAccess& access, std::uint32_t row, std::uint32_t col) {
        const char* const text = access.ResultCells->Find(row << 16 | col);
        return text == nullptr ? "none" : text;
    }
    CellValue Count() { return Desk().Connect()->Single(u"SELECT COUNT(*) FROM t"); }
};
EACH_DATABASE(DataAccessObjectTest);
class DataAccessObjectOnServerTest : public DataAccessObjectTest {};
EACH_SERVER(DataAccessObjectOnServerTest);

TEST_P(DataAccessObjectTest, FetchesBatchAfterBatchUntilNothingIsLeft) {
    Fill();
    const auto access = Make();
    EXPECT_EQ(access->Connected, 1);
    EXPECT_EQ(access->FetchRows(10), 0);
    ASSERT_TRUE(access->Open("SELECT id, name FROM t ORDER BY id"));
    EXPECT_EQ(access->FetchRows(-1), 100);
    EXPECT_EQ(Cell(*access, 1, 1), "1");
    EXPECT_EQ(Cell(*access, 100, 2), CodePage936FromUtf8("名"));
    EXPECT_EQ(Cell(*access, 101, 1), "none");
    EXPECT_EQ(Cell(*access, 1, 3), "none");
    EXPECT_EQ(access->FetchRows(140), 140);
    EXPECT_EQ(Cell(*access, 140, 1), "240");
    EXPECT_EQ(access->FetchRows(140), 10);
    EXPECT_EQ(access->FetchRows(140), 0);
    EXPECT_EQ(access->FetchRows(0), 0);
}

TEST_P(DataAccessObjectTest, StatementsOfTheControlWaitForTheirCommit) {
    Fill();
    const auto access = Make();
    EXPECT_NE(access->ExecuteSql("DELETE FROM t WHERE id=7 AND t.d=%{2003-08-14}%"), 0);
    EXPECT_TRUE(Conn()->InTransaction());
    EXPECT_EQ(Count(), CellValue(u"250"));
    access->CommitTrans();
    EXPECT_EQ(Count(), CellValue(u"249"));
    EXPECT_NE(access->ExecuteSql("DELETE FROM t WHERE id=8"), 0);
    access->RollbackTrans();
    EXPECT_EQ(Count(), CellValue(u"249"));
    EXPECT_FALSE(Conn()->InTransaction());
}

TEST_P(DataAccessObjectTest, FailuresAreAnsweredAndKept) {
    Fill();
    const auto access = Make();
    EXPECT_FALSE(access->Open("SELECT nothing FROM t"));
    ASSERT_NE(access->LastError(), nullptr);
    EXPECT_EQ(access->FetchRows(5), 0);
    EXPECT_EQ(access->ExecuteSql("DELETE FROM nowhere"), 0);
    EXPECT_NE(access->LastError()->Text().find(u"nowhere"), std::u16string::npos);
    EXPECT_EQ(access->Connected, 1);
    access->RollbackTrans();
    EXPECT_EQ(access->LastError(), nullptr);
    access->RollbackTrans();
    access->CommitTrans();
    EXPECT_EQ(access->LastError(), nullptr);
    const bool done = access->ExecuteSql(nullptr) != 0;
    EXPECT_EQ(done, access->LastError() == nullptr);
    access->RollbackTrans();
}

TEST_P(DataAccessObjectOnServerTest, ALostConnectionClearsConnected) {
    Fill();
    const auto victim = Desk().Connect();
    DataAccessObject access(victim);
    const CellValue number = victim->Single(u"SELECT pg_backend_pid()");
    Conn()->Single(u"SELECT pg_terminate_backend(" + *number + u")");
    EXPECT_EQ(access.ExecuteSql("DELETE FROM t"), 0);
    EXPECT_EQ(access.Connected, 0);
    EXPECT_EQ(Count(), CellValue(u"250"));
}

}  // namespace
}  // namespace veygrid
