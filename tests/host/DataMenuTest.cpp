// The data menu and the data-access object of VeyHost's window, over a database in memory.
#include "WindowDesk.h"

#include "apps/host/MainMenu.h"

namespace veygrid {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr int DataMenuPlace = 2;

class DataMenuTest : public WindowDesk {
  protected:
    void ConnectAndQuery() {
        ASSERT_TRUE(window.Connect(InMemory));
        ASSERT_TRUE(window.RunQuery(L"CREATE TABLE 表 (号 INTEGER PRIMARY KEY, 名 TEXT NOT NULL)"));
        ASSERT_TRUE(window.RunQuery(L"INSERT INTO 表 VALUES (1, '甲'), (2, '乙')"));
        ASSERT_TRUE(window.RunQuery(Statement));
    }
    void Modify(long row, long column, const wchar_t* text) {
        Grid().Call(L"ModifyCellText", {Variant::Of(row), Variant::Of(column), Variant::Of(text)});
        window.Data().Settle();
    }
    void SetUnmodified() {
        Grid().Put(L"Modified", Variant::Of(false));
        window.Data().Settle();
    }
    std::wstring Text(long row, long column) const {
        return Grid().Get(L"CellText", {Variant::Of(row), Variant::Of(column)}).Text();
    }
    bool IsGrey(UINT command) const { return (StateOf(command, DataMenuPlace) & MF_GRAYED) != 0; }
    std::vector<bool> GreyItems() const {
        return {IsGrey(CommandConnect),      IsGrey(CommandRunQuery),    IsGrey(CommandAddRecord),
                IsGrey(CommandDeleteRecord), IsGrey(CommandSaveRecords), IsGrey(CommandRollBack)};
    }

    static constexpr const wchar_t* InMemory = L"Driver=SQLite3;Database=:memory:";
    static constexpr const wchar_t* Statement = L"SELECT 号, 名 FROM 表 ORDER BY 号";
};

TEST_F(DataMenuTest, WhatIsNotPossibleIsGrey) {
    EXPECT_THAT(GreyItems(), ElementsAre(false, true, true, true, true, true));
    ASSERT_TRUE(window.Connect(InMemory));
    EXPECT_THAT(GreyItems(), ElementsAre(false, false, true, true, true, true));
    ConnectAndQuery();
    EXPECT_THAT(GreyItems(), ElementsAre(false, false, false, false, true, true));
    Modify(1, 2, L"丙");
    EXPECT_THAT(GreyItems(), ElementsAre(false, false, false, false, false, false));
    Choose(CommandSaveRecords);
    EXPECT_THAT(GreyItems(), ElementsAre(false, false, false, false, true, true));
}

TEST_F(DataMenuTest, StatusLineTellsConnectionRecordsAndChanges) {
    EXPECT_EQ(StatusPart(5), L"");
    ConnectAndQuery();
    EXPECT_EQ(StatusPart(5), L"SQLite · 2 条记录");
    Modify(1, 2, L"丙");
    Choose(CommandAddRecord);
    EXPECT_EQ(StatusPart(5), L"SQLite · 3 条记录 · 2 处修改");
    Choose(CommandRollBack);
    EXPECT_EQ(StatusPart(5), L"SQLite · 2 条记录");
    EXPECT_EQ(Text(1, 2), L"甲");
}

TEST_F(DataMenuTest, AStatementWithoutRowsIsCarriedOutAndLeavesWhatIsOnView) {
    ConnectAndQuery();
    ASSERT_TRUE(window.RunQuery(L"INSERT INTO 表 VALUES (3, '丙')"));
    EXPECT_EQ(window.Data().RecordCount(), 2);
    EXPECT_EQ(Grid().Get(L"DataSource").Text(), Statement);
    ASSERT_TRUE(window.RunQuery(Statement));
    EXPECT_EQ(window.Data().RecordCount(), 3);
}

TEST_F(DataMenuTest, ANewSheetAsksAboutChangesAndLetsTheQueryGo) {
    ConnectAndQuery();
    SetUnmodified();
    Modify(1, 2, L"丙");
    boxes.QueueAnswer(L"cancel");
    Choose(CommandNew);
    EXPECT_THAT(boxes.Take(), ElementsAre(HasSubstr(L"1 处修改尚未保存到数据库")));
    EXPECT_EQ(Text(1, 2), L"丙");
    boxes.QueueAnswer(L"no");
    Choose(CommandNew);
    EXPECT_EQ(boxes.Take().size(), 1U);
    EXPECT_FALSE(window.Data().HasQuery());
    EXPECT_TRUE(window.Data().IsConnected());
    EXPECT_EQ(Grid().Get(L"MaxRow").Number(), 50);
}

TEST_F(DataMenuTest, TheSheetItselfIsModifiedByItsLayoutAndNotByRecords) {
    ConnectAndQuery();
    SetUnmodified();
    Modify(1, 2, L"丙");
    EXPECT_TRUE(window.Data().Save());
    EXPECT_FALSE(Grid().Get(L"Modified").Truth());
    Grid().Put(L"ColWidth", Variant::Of(99L), {Variant::Of(1L)});
    window.Data().Settle();
    Modify(1, 2, L"丁");
    EXPECT_TRUE(window.Data().Save());
    EXPECT_TRUE(Grid().Get(L"Modified").Truth());
}

TEST_F(DataMenuTest, AFailingCommandIsTold) {
    ConnectAndQuery();
    Choose(CommandDeleteRecord);
    Choose(CommandAddRecord);
    Modify(2, 1, L"9");
    Choose(CommandSaveRecords);
    EXPECT_THAT(boxes.Take(), ElementsAre(HasSubstr(L"第 2 行: 数据库拒绝保存")));
    EXPECT_EQ(window.Data().ChangeCount(), 2);
}

TEST_F(DataMenuTest, AskForIsAnsweredWithTheDataAccessObjectWhileConnected) {
    ASSERT_TRUE(window.Connect(InMemory));
    const LRESULT answer = Send(Registered().AskFor, 2, 0);
    ASSERT_NE(answer, 0);
    auto& access = *reinterpret_cast<DataAccess*>(answer);
    EXPECT_NE(access.Connected, 0);
    EXPECT_NE(access.ExecuteSql("CREATE TABLE t (a)"), 0);
    access.CommitTrans();
    EXPECT_EQ(access.ExecuteSql("nonsense"), 0);
    access.RollbackTrans();
    EXPECT_EQ(Send(Registered().AskFor, 1, 0), 0);
}

TEST_F(DataMenuTest, TheDataAccessObjectLivesOnWithAnotherConnection) {
    ASSERT_TRUE(window.Connect(InMemory));
    const LRESULT before = Send(Registered().AskFor, 2, 0);
    ASSERT_TRUE(window.Connect(InMemory));
    EXPECT_EQ(Send(Registered().AskFor, 2, 0), before);
    EXPECT_NE(reinterpret_cast<DataAccess*>(before)->ExecuteSql("CREATE TABLE t (a)"), 0);
}

TEST_F(DataMenuTest, ColumnsWithATypeOfTheirOwnKeepIt) {
    ASSERT_TRUE(window.Connect(InMemory));
    Grid().Put(L"ColType", Variant::Of(3L), {Variant::Of(2L)});
    ConnectAndQuery();
    EXPECT_EQ(Grid().Get(L"ColType", {Variant::Of(1L)}).Number(), 2);
    EXPECT_EQ(Grid().Get(L"ColType", {Variant::Of(2L)}).Number(), 3);
    EXPECT_EQ(Grid().Get(L"KeyColumnFlag", {Variant::Of(1L)}).Number(), 1);
}

TEST_F(DataMenuTest, AFormatThatTheAuthorGaveAColumnStays) {
    Grid().Put(L"ColType", Variant::Of(1L), {Variant::Of(9L)});
    const Variant format = Grid().Get(L"CellFormat", {Variant::Of(0L), Variant::Of(9L)});
    Automation(ComPtr<IDispatch>(format.pdispVal)).Put(L"Background", Variant::Of(0x00FF00L));
    Grid().Put(L"CellFormat", format, {Variant::Of(0L), Variant::Of(2L)});
    ConnectAndQuery();
    const Variant kept = Grid().Get(L"CellFormat", {Variant::Of(0L), Variant::Of(2L)});
    EXPECT_EQ(Automation(ComPtr<IDispatch>(kept.pdispVal)).Get(L"Background").Number(), 0x00FF00);
    EXPECT_EQ(Grid().Get(L"ColType", {Variant::Of(2L)}).Number(), 1);
    const Variant made = Grid().Get(L"CellFormat", {Variant::Of(0L), Variant::Of(1L)});
    EXPECT_EQ(Automation(ComPtr<IDispatch>(made.pdispVal)).Get(L"DataType").Number(), 1);
}

TEST_F(DataMenuTest, QueriesAndTheirEndKeepNoReferences) {
    ConnectAndQuery();
    Grid().Put(L"Modified", Variant::Of(false));
    for (int time = 0; time < 3; ++time) {
        ASSERT_TRUE(window.RunQuery(Statement));
        Modify(1, 2, L"丙");
        ASSERT_TRUE(window.Data().Save()) << "the former query's dataset may hold the table";
    }
    window.Data().LeaveQuery();
    EXPECT_EQ(Grid().Get(L"MaxCol").Number(), 20);
    EXPECT_THAT(boxes.Take(), IsEmpty());
    // Only without any statement left on it can a table go.
    EXPECT_TRUE(window.RunQuery(L"DROP TABLE 表"));
}

}  // namespace

}  // namespace veygrid
