// Rows fetched in batches and records deleted through a host's data-access object.
#include "binding/QueryBinding.h"

#include <gmock/gmock.h>

#include <map>

#include "Recorded.h"
#include "grid/Selection.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

using ::testing::ElementsAre;

class FakeCells final : public ResultCellMap {
  public:
    void Put(std::uint32_t row, std::uint32_t col, std::string text) {
        m_texts[row << 16U | col] = std::move(text);
    }
    const char* Find(std::uint32_t key) const override {
        const auto found = m_texts.find(key);
        return found == m_texts.end() ? nullptr : found->second.c_str();
    }

  private:
    std::map<std::uint32_t, std::string> m_texts;
};

class FakeAccess final : public DataAccess {
  public:
    explicit FakeAccess(Lines& lines) : m_lines(lines) { ResultCells = &cells; }

    std::int32_t FetchRows(std::int16_t count) override {
        m_lines.push_back("FetchRows " + std::to_string(count));
        return rows;
    }
    void RollbackTrans() override { m_lines.emplace_back("RollbackTrans"); }
    void CommitTrans() override { m_lines.emplace_back("CommitTrans"); }
    std::int32_t ExecuteSql(const char* statement) override {
        m_lines.emplace_back(statement);
        return failing == 0 || failing-- > 1 ? 1 : 0;
    }

    FakeCells cells;
    std::int32_t rows = 0;
    // The statement that fails, from 1; 0 for none.
    int failing = 0;

  private:
    Lines& m_lines;
};

class QueryBindingTest : public testing::Test, public RowColumnHost, public SelectionHost {
  protected:
    QueryBindingTest() {
        query.DataAccess = &access;
        store.Properties.DataSource = "SELECT T.ID,T.NAME FROM T";
    }

    template <class Action>
    Lines CallsOf(Action action) {
        m_lines.clear();
        action();
        return std::exchange(m_lines, {});
    }
    void Fill(std::uint32_t rows, std::uint32_t cols) {
        for (std::uint32_t row = 1; row <= rows; ++row) {
            for (std::uint32_t col = 1; col <= cols; ++col) {
                access.cells.Put(row, col, std::to_string(row * 10 + col));
            }
        }
        access.rows = static_cast<std::int32_t>(rows);
    }
    // A sheet of three records of the table T, keyed by its first column, in a bound query that may
    // be written.
    void BindRecords() {
        store.QueryBound = true;
        store.Switches.CanWriteTable = true;
        store.SetColName(1, "T.ID");
        store.SetColType(1, 2);
        store.SetKeyColumnFlag(1, 1);
        for (std::int32_t row = 1; row <= 3; ++row) {
            store.SetCellText(row, 1, std::to_string(row));
        }
    }

    bool HasWindow() override { return false; }
    void ShowMessage(std::string_view text, std::int32_t style) override {
        m_lines.push_back("ShowMessage " + std::to_string(style) + " " + Utf8FromCodePage936(text));
    }
    RecordDeletion DeleteBoundRecord() override { return query.DeleteBoundRecord(); }
    void RebuildDataSource() override {}
    void RunQuery(std::int16_t) override {}
    void FireCellSelChanging(std::int32_t, std::int32_t, std::int16_t&) override {}
    void FireCellSelChanged() override {}
    std::int32_t SendCellSelChange(std::int32_t, std::int32_t) override { return 1; }
    void InvalidateActiveRowStrip(std::int32_t) override {}
    void InvalidateActiveCellAreas(CellPos) override {}
    void InvalidateHeaderCorner() override {}
    std::int32_t SaveRecord(std::int32_t, std::int32_t) override { return 1; }

  private:
    Lines m_lines;

  protected:
    LinesWatcher watcher{m_lines};
    GridStore store{watcher};
    FakeAccess access{m_lines};
    QueryBinding query{store};
    Selection selection{store, *this};
    RowColumnOperations operations{store, selection, *this};
};

// --- The run at creation

TEST_F(QueryBindingTest, AQueryRunsAtCreationUnderFourConditionsOnly) {
    access.Connected = 1;
    EXPECT_TRUE(query.RunsQueryAtCreation());
    store.Switches.RunQueryAfterSerialize = false;
    EXPECT_FALSE(query.RunsQueryAtCreation());
    store.Switches.RunQueryAfterSerialize = true;
    access.Connected = 0;
    EXPECT_FALSE(query.RunsQueryAtCreation());
    access.Connected = -1;
    EXPECT_TRUE(query.RunsQueryAtCreation());
    store.Properties.DataSource = "";
    EXPECT_FALSE(query.RunsQueryAtCreation());
    store.Properties.DataSource = "x";
    query.DataAccess = nullptr;
    EXPECT_FALSE(query.RunsQueryAtCreation());
}

// --- Batches

TEST_F(QueryBindingTest, AFreshControlFetchesNothing) {
    EXPECT_TRUE(query.RowsComplete);
    EXPECT_EQ(query.FetchCount, -1);
    EXPECT_FALSE(store.QueryBound);
    EXPECT_FALSE(query.HasMoreRecords());
}

TEST_F(QueryBindingTest, WithoutADataAccessObjectThereIsNothingToFetch) {
    query.RowsComplete = false;
    EXPECT_TRUE(query.HasMoreRecords());
    query.DataAccess = nullptr;
    EXPECT_FALSE(query.HasMoreRecords());
}

TEST_F(QueryBindingTest, ABatchIsWrittenBehindTheLastRowColumnByColumn) {
    query.RowsComplete = false;
    Fill(2, 3);  // the statement has two columns
    EXPECT_THAT(CallsOf([&] { EXPECT_TRUE(query.AppendNextRecords()); }),
                ElementsAre("FetchRows -1", "SetModifiedFlag TRUE", "Modified",
                            "SetModifiedFlag TRUE", "Modified", "SetModifiedFlag TRUE", "Modified",
                            "SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.CellText(51, 1), "11");
    EXPECT_EQ(store.CellText(52, 2), "22");
    EXPECT_EQ(store.CellText(51, 3), "");
    EXPECT_EQ(store.Properties.MaxRow, 52);
    EXPECT_EQ(store.Properties.LastRow, 52);
    EXPECT_FALSE(query.RowsComplete);
}

TEST_F(QueryBindingTest, AMissingEntryLeavesItsCellUntouched) {
    store.SetCellText(51, 2, "kept");
    access.cells.Put(1, 1, "new");
    access.rows = 1;
    query.AppendNextRecords();
    EXPECT_EQ(store.CellText(51, 1), "new");
    EXPECT_EQ(store.CellText(51, 2), "kept");
}

TEST_F(QueryBindingTest, AnEmptyBatchSetsRowsCompleteAndChangesNothingElse) {
    for (const std::int32_t rows : {0, -1, -2147483647 - 1}) {
        query.RowsComplete = false;
        access.rows = rows;
        EXPECT_THAT(CallsOf([&] { EXPECT_FALSE(query.AppendNextRecords()); }),
                    ElementsAre("FetchRows -1"));
        EXPECT_TRUE(query.RowsComplete);
        EXPECT_EQ(store.Properties.MaxRow, 50);
    }
}

TEST_F(QueryBindingTest, FetchCountIsHandedOnAsItStands) {
    query.FetchCount = 25;
    EXPECT_THAT(CallsOf([&] { query.AppendNextRecords(); }), ElementsAre("FetchRows 25"));
}

TEST_F(QueryBindingTest, TheColumnCountIsTakenAgainAfterEachColumn) {
    Fill(1, 2);
    watcher.onModified = [&] { store.Properties.DataSource = "SELECT T.ID FROM T"; };
    query.AppendNextRecords();
    EXPECT_EQ(store.CellText(51, 1), "11");
    EXPECT_EQ(store.CellText(51, 2), "");
}

TEST_F(QueryBindingTest, ABatchOfAStatementWithoutColumnsGrowsTheSheetOnly) {
    store.Properties.DataSource = "";
    Fill(3, 2);
    EXPECT_THAT(CallsOf([&] { EXPECT_TRUE(query.AppendNextRecords()); }),
                ElementsAre("FetchRows -1"));
    EXPECT_EQ(store.Properties.MaxRow, 53);
}

TEST_F(QueryBindingTest, ABatchWithoutCellsGrowsTheSheetOnly) {
    access.ResultCells = nullptr;
    access.rows = 3;
    EXPECT_TRUE(query.AppendNextRecords());
    EXPECT_EQ(store.Properties.MaxRow, 53);
}

// --- Deleting records

TEST_F(QueryBindingTest, TheRecordOfTheActiveRowIsDeletedWhateverTheStartAndTheCount) {
    BindRecords();
    store.ActiveRow = 2;
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 2); }),
                ElementsAre("DELETE FROM T WHERE T.ID=2", "InvalidateControl"));
    EXPECT_EQ(store.CellText(1, 1), "3");
}

TEST_F(QueryBindingTest, AnEmptyKeyCellMakesDeleteRowsReportTheMissingKey) {
    BindRecords();
    store.SetCellText(1, 1, "");
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("ShowMessage 16 删除记录缺少行唯一标志,操作失败!"));
    EXPECT_EQ(store.CellText(2, 1), "2");
}

TEST_F(QueryBindingTest, WithQueryBoundClearDeleteRowsLooksAtNothingOfTheQuery) {
    BindRecords();
    store.QueryBound = false;
    store.Switches.CanWriteTable = false;
    store.Switches.AutoCommit = true;
    access.failing = 1;
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }), ElementsAre("InvalidateControl"));
}

TEST_F(QueryBindingTest, WithoutCanWriteTableDeleteRowsRefusesAndTouchesNothing) {
    BindRecords();
    store.Switches.CanWriteTable = false;
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("ShowMessage 16 您不能修改表数据!"));
    EXPECT_EQ(store.CellText(1, 1), "1");
}

TEST_F(QueryBindingTest, EachTableOfTheListHasItsStatementAsTheListHasIt) {
    BindRecords();
    store.Properties.DataSource = "SELECT T.ID FROM T, u WHERE x=1";
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("DELETE FROM T WHERE T.ID=1",
                            "DELETE FROM  u WHERE T.ID=", "InvalidateControl"));
}

TEST_F(QueryBindingTest, TheTablesEndAtTheFirstEmptyField) {
    BindRecords();
    store.Properties.DataSource = "SELECT T.ID FROM T,,u";
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("DELETE FROM T WHERE T.ID=1", "InvalidateControl"));
}

TEST_F(QueryBindingTest, AutoCommitCommitsOnceBehindTheLastTable) {
    BindRecords();
    store.Switches.AutoCommit = true;
    store.Properties.DataSource = "SELECT T.ID FROM T,t";
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("DELETE FROM T WHERE T.ID=1", "DELETE FROM t WHERE T.ID=1",
                            "CommitTrans", "InvalidateControl"));
}

TEST_F(QueryBindingTest, AFailedStatementIsRolledBackUnderAutoCommitAndThenReported) {
    BindRecords();
    store.Switches.AutoCommit = true;
    store.Properties.DataSource = "SELECT T.ID FROM T,t";
    access.failing = 2;
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("DELETE FROM T WHERE T.ID=1", "DELETE FROM t WHERE T.ID=1",
                            "RollbackTrans", "ShowMessage 16 删除记录失败!"));
    EXPECT_EQ(store.CellText(1, 1), "1");
}

TEST_F(QueryBindingTest, WithoutAutoCommitTheTransactionIsTheHosts) {
    BindRecords();
    access.failing = 1;
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("DELETE FROM T WHERE T.ID=1", "ShowMessage 16 删除记录失败!"));
}

TEST_F(QueryBindingTest, AMissingKeyOfALaterTableIsNotRolledBack) {
    BindRecords();
    store.Switches.AutoCommit = true;
    store.Properties.DataSource = "SELECT T.ID FROM u,T";
    store.SetCellText(1, 1, "");
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("DELETE FROM u WHERE T.ID=",
                            "ShowMessage 16 删除记录缺少行唯一标志,操作失败!"));
}

TEST_F(QueryBindingTest, AFailedDeletionKeepsSelectionAndLogAndASuccessfulOneEmptiesThem) {
    BindRecords();
    store.Properties.ModifiedLog = 3;
    store.LogModification(1, 1, ModifiedType::Update);
    selection.SelectionList = {{1, 0, 1, 0}};
    access.failing = 1;
    operations.DeleteRows(1, 1);
    EXPECT_EQ(selection.SelectionList.size(), 1U);
    EXPECT_FALSE(store.Log.IsEmpty());
    operations.DeleteRows(1, 1);
    EXPECT_TRUE(selection.SelectionList.empty());
    EXPECT_TRUE(store.Log.IsEmpty());
}

TEST_F(QueryBindingTest, ABoundQueryWithoutADataAccessObjectDeletesNothing) {
    BindRecords();
    store.Switches.AutoCommit = true;
    query.DataAccess = nullptr;
    EXPECT_THAT(CallsOf([&] { operations.DeleteRows(1, 1); }),
                ElementsAre("ShowMessage 16 删除记录失败!"));
    store.Properties.DataSource = "SELECT T.ID FROM  ";
    EXPECT_EQ(query.DeleteBoundRecord(), RecordDeletion::Deleted);
}

TEST_F(QueryBindingTest, AHandlerThatChangesTheStatementMeanwhileChangesNoTable) {
    BindRecords();
    store.Properties.DataSource = "SELECT T.ID FROM T,t";
    class Changing final : public DataAccess {
      public:
        explicit Changing(GridStore& sheet) : m_sheet(sheet) {}
        std::int32_t FetchRows(std::int16_t) override { return 0; }
        void RollbackTrans() override {}
        void CommitTrans() override {}
        std::int32_t ExecuteSql(const char* statement) override {
            statements.emplace_back(statement);
            m_sheet.Properties.DataSource = std::string(500, 'x');
            return 1;
        }
        Lines statements;

      private:
        GridStore& m_sheet;
    } changing(store);
    query.DataAccess = &changing;
    EXPECT_EQ(query.DeleteBoundRecord(), RecordDeletion::Deleted);
    EXPECT_THAT(changing.statements,
                ElementsAre("DELETE FROM T WHERE T.ID=1", "DELETE FROM t WHERE T.ID=1"));
}

}  // namespace
}  // namespace veygrid
