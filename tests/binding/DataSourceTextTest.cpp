// `DataSource` and `ColNameMap` of a sheet, each following the other.
#include "binding/DataSourceText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

// Notes each notification with the statement that stood at that moment.
class Recorder : public StoreWatcher {
  public:
    void SetModifiedFlag(bool modified) override {
        Lines.push_back(modified ? "SetModifiedFlag 1" : "SetModifiedFlag 0");
    }
    void FireModified() override { Lines.push_back("FireModified"); }
    void InvalidateControl() override { Lines.push_back("InvalidateControl"); }
    void InvalidateCell(CellPos) override { Lines.push_back("InvalidateCell"); }

    std::vector<std::string> Lines;
};

const std::vector<std::string> OneNotification = {"SetModifiedFlag 1", "FireModified"};

class DataSourceText : public testing::Test {
  protected:
    void Give(std::string_view statement) { m_store.Properties.DataSource = statement; }
    const std::string& Statement() const { return m_store.Properties.DataSource; }
    std::string Name(std::int32_t col) const {
        const std::string* name = m_store.ColNameMap.Find(ColKey(col));
        return name == nullptr ? "<none>" : *name;
    }
    void SetName(std::int32_t col, std::string name) {
        m_store.ColNameMap.Set(ColKey(col), std::move(name));
    }

    Recorder m_watcher;
    GridStore m_store{m_watcher};
};

// ---- What hosts read ----

TEST_F(DataSourceText, HostReadsColumnsTablesAndTail) {
    Give("SELECT a,b FROM t WHERE x=1 ORDER BY a");
    EXPECT_EQ(GetDSColumns(m_store), "a,b");
    EXPECT_EQ(GetDSTables(m_store), "t");
    EXPECT_EQ(GetDSWhere(m_store), "WHERE x=1 ORDER BY a");
}

TEST_F(DataSourceText, TablesForTheHostDoNotStopAtOrder) {
    Give("select a from t order by a");
    EXPECT_EQ(GetDSTables(m_store), "t order by a");
}

TEST_F(DataSourceText, EmptyDataSourceGivesNullColumnsAndTablesAndAnEmptyTail) {
    EXPECT_FALSE(GetDSColumns(m_store).has_value());
    EXPECT_FALSE(GetDSTables(m_store).has_value());
    EXPECT_EQ(GetDSWhere(m_store), "");
}

// ---- SetDSWhere ----

TEST_F(DataSourceText, SetDSWhereReplacesTheTail) {
    Give("SELECT a FROM t WHERE y=2");
    SetDSWhere(m_store, "x=1");
    EXPECT_EQ(Statement(), "SELECT a FROM t WHERE x=1");
    EXPECT_EQ(m_watcher.Lines, OneNotification);
}

TEST_F(DataSourceText, SetDSWhereTakesAnOrderClauseAsItStands) {
    Give("SELECT a FROM t WHERE y=2");
    SetDSWhere(m_store, "order by a");
    EXPECT_EQ(Statement(), "SELECT a FROM t order by a");
}

TEST_F(DataSourceText, SetDSWhereTakesAGroupOrWhereClauseAsItStands) {
    Give("SELECT a FROM t");
    SetDSWhere(m_store, "Group by a");
    EXPECT_EQ(Statement(), "SELECT a FROM t Group by a");
    Give("SELECT a FROM t");
    SetDSWhere(m_store, " \twhere x=1 ");
    EXPECT_EQ(Statement(), "SELECT a FROM t where x=1 ");
}

TEST_F(DataSourceText, SetDSWhereWithABlankTextEndsInWhereAndABlank) {
    Give("SELECT a FROM t WHERE y=2");
    SetDSWhere(m_store, "  \t ");
    EXPECT_EQ(Statement(), "SELECT a FROM t WHERE ");
    SetDSWhere(m_store, "");
    EXPECT_EQ(Statement(), "SELECT a FROM t WHERE ");
}

TEST_F(DataSourceText, SetDSWhereWithoutAValueLeavesTheTrailingBlank) {
    Give("SELECT a FROM t WHERE y=2");
    SetDSWhere(m_store, std::nullopt);
    EXPECT_EQ(Statement(), "SELECT a FROM t ");
    EXPECT_EQ(m_watcher.Lines, OneNotification);
}

TEST_F(DataSourceText, SetDSWhereNeedsTheKeywordAtTheStartWithItsBlank) {
    Give("SELECT a FROM t");
    SetDSWhere(m_store, "x=1 ORDER BY a");
    EXPECT_EQ(Statement(), "SELECT a FROM t WHERE x=1 ORDER BY a");
    Give("SELECT a FROM t");
    SetDSWhere(m_store, "where(x=1)");
    EXPECT_EQ(Statement(), "SELECT a FROM t WHERE where(x=1)");
    Give("SELECT a FROM t");
    SetDSWhere(m_store, "ORDER");
    EXPECT_EQ(Statement(), "SELECT a FROM t WHERE ORDER");
}

TEST_F(DataSourceText, SetDSWhereDoesNothingWithAnEmptyDataSource) {
    SetDSWhere(m_store, "x=1");
    EXPECT_EQ(Statement(), "");
    EXPECT_TRUE(m_watcher.Lines.empty());
}

TEST_F(DataSourceText, SetDSWhereLeavesTheColumnNamesAlone) {
    Give("SELECT a,b FROM t");
    SetName(1, "old");
    SetDSWhere(m_store, "x=1");
    EXPECT_EQ(Name(1), "old");
    EXPECT_EQ(Name(2), "<none>");
}

TEST_F(DataSourceText, SetDSWhereOnATextWithoutFromTakesItAsTheTableList) {
    Give("customers");
    SetDSWhere(m_store, "x=1");
    EXPECT_EQ(Statement(), "SELECT  FROM customers WHERE x=1");
}

TEST_F(DataSourceText, SetDSWhereKeepsChineseTextAndParameterMarkers) {
    Give(CodePage936FromUtf8("SELECT 姓名 FROM 学生"));
    SetDSWhere(m_store, CodePage936FromUtf8("班级='%<班级>%' AND 生日=%{2001-1-1}%"));
    EXPECT_EQ(
        Statement(),
        CodePage936FromUtf8("SELECT 姓名 FROM 学生 WHERE 班级='%<班级>%' AND 生日=%{2001-1-1}%"));
}

// ---- OnDataSourceChanged ----

TEST_F(DataSourceText, SelectListNamesTheColumns) {
    Give("SELECT T.A , f(b,c) AS d,'x,y' FROM T");
    OnDataSourceChanged(m_store);
    EXPECT_EQ(Name(1), "T.A");
    EXPECT_EQ(Name(2), "f(b,c) AS d");
    EXPECT_EQ(Name(3), "'x,y'");
    EXPECT_EQ(m_store.ColNameMap.Count(), 3U);
    EXPECT_EQ(m_watcher.Lines, OneNotification);
}

TEST_F(DataSourceText, SingleWordGivesNoColumnsAndEmptiesTheNames) {
    SetName(1, "a");
    SetName(7, "b");
    Give("customers");
    OnDataSourceChanged(m_store);
    EXPECT_TRUE(m_store.ColNameMap.IsEmpty());
    EXPECT_EQ(m_watcher.Lines, OneNotification);
}

TEST_F(DataSourceText, FormerNamesAreRemoved) {
    SetName(9, "old");
    Give("SELECT a FROM t");
    OnDataSourceChanged(m_store);
    EXPECT_EQ(Name(1), "a");
    EXPECT_EQ(Name(9), "<none>");
}

TEST_F(DataSourceText, EmptyExpressionsAreEmptyNames) {
    Give("SELECT ,a,, FROM t");
    OnDataSourceChanged(m_store);
    EXPECT_EQ(m_store.ColNameMap.Count(), 4U);
    EXPECT_EQ(Name(1), "");
    EXPECT_EQ(Name(2), "a");
    EXPECT_EQ(Name(3), "");
    EXPECT_EQ(Name(4), "");
}

TEST_F(DataSourceText, VerticalTabInTheListSplitsANameAndTheRestIsCutOff) {
    Give("SELECT a\vb,c FROM t");
    OnDataSourceChanged(m_store);
    EXPECT_EQ(m_store.ColNameMap.Count(), 2U);
    EXPECT_EQ(Name(1), "a");
    EXPECT_EQ(Name(2), "b");
}

TEST_F(DataSourceText, NamingDoesNotRaiseTheLastColumn) {
    Give("SELECT a,b,c FROM t");
    OnDataSourceChanged(m_store);
    EXPECT_EQ(m_store.Properties.LastCol, 0);
}

TEST_F(DataSourceText, CharactersWithOddSecondBytesStayWholeInNames) {
    Give("SELECT \x81\x7C,\x95\x7E ,\x8B\x5C,\x81\x7B FROM t");
    OnDataSourceChanged(m_store);
    EXPECT_EQ(Name(1), "\x81\x7C");
    EXPECT_EQ(Name(2), "\x95\x7E");
    EXPECT_EQ(Name(3), "\x8B\x5C");
    EXPECT_EQ(Name(4), "\x81\x7B");
}

TEST_F(DataSourceText, HundredThousandColumnsAreNamed) {
    std::string statement = "SELECT c1";
    for (int col = 2; col <= 100'000; ++col) {
        statement += ",c" + std::to_string(col);
    }
    Give(statement + " FROM t");
    OnDataSourceChanged(m_store);
    EXPECT_EQ(m_store.ColNameMap.Count(), 100'000U);
    EXPECT_EQ(Name(100'000), "c100000");
    RebuildDataSource(m_store);
    EXPECT_EQ(Statement(), statement + " FROM");
}

// ---- RebuildDataSource ----

TEST_F(DataSourceText, RebuildTakesNamesInColumnOrderAndTablesFromThem) {
    Give("SELECT A.X,A.Y,B.Z FROM A,B WHERE A.X=B.X");
    OnDataSourceChanged(m_store);
    SetName(1, "B.Z");
    SetName(3, "A.X");
    m_watcher.Lines.clear();
    RebuildDataSource(m_store);
    EXPECT_EQ(Statement(), "SELECT B.Z,A.Y,A.X FROM B,A WHERE A.X=B.X");
    EXPECT_TRUE(m_watcher.Lines.empty());
}

TEST_F(DataSourceText, RebuildLosesTheTablesOfUnqualifiedColumns) {
    Give("SELECT a,b FROM t WHERE x=1");
    OnDataSourceChanged(m_store);
    RebuildDataSource(m_store);
    EXPECT_EQ(Statement(), "SELECT a,b FROM  WHERE x=1");
}

TEST_F(DataSourceText, RebuildStopsAtTheFirstColumnWithoutAName) {
    Give("SELECT A.X FROM A");
    SetName(1, "A.X");
    SetName(2, "");
    SetName(4, "A.Z");
    RebuildDataSource(m_store);
    EXPECT_EQ(Statement(), "SELECT A.X, FROM A");
}

TEST_F(DataSourceText, RebuildTrimsTheRightEnd) {
    Give("SELECT a FROM t");
    RebuildDataSource(m_store);
    EXPECT_EQ(Statement(), "SELECT  FROM");
}

TEST_F(DataSourceText, RebuildDoesNothingWithAnEmptyDataSource) {
    SetName(1, "A.X");
    RebuildDataSource(m_store);
    EXPECT_EQ(Statement(), "");
}

TEST_F(DataSourceText, AStatementTypedOnTwoLinesIsStoredOnOneWithABlankAtTheJoint) {
    StoreTypedDataSource(m_store, "SELECT a\r\nFROM t");
    EXPECT_EQ(Statement(), "SELECT a FROM t");
    StoreTypedDataSource(m_store, "\r\na\r\n\r\nb\r\n");
    EXPECT_EQ(Statement(), " a  b ");
}

TEST_F(DataSourceText, ATypedStatementIsStoredWithoutNewColumnNamesAndWithoutANotification) {
    SetName(1, "old");
    Give("SELECT old FROM t");
    StoreTypedDataSource(m_store, "SELECT x,y FROM u");
    EXPECT_EQ(Name(1), "old");
    EXPECT_EQ(Name(2), "<none>");
    EXPECT_TRUE(m_watcher.Lines.empty());
}

TEST_F(DataSourceText, AnEmptyTypedStatementIsStored) {
    Give("SELECT a FROM t");
    StoreTypedDataSource(m_store, "");
    EXPECT_EQ(Statement(), "");
}

TEST_F(DataSourceText, LoneLineEndsAndTwoByteCharactersOfATypedStatementStay) {
    StoreTypedDataSource(m_store, "\ra\nb\r\x81\x41\r\n\x95\x7E\x81");
    EXPECT_EQ(Statement(), "\ra\nb\r\x81\x41 \x95\x7E\x81");
}

}  // namespace
}  // namespace veygrid
