// The data-access object that a host hands out, as a data layer in the same program uses it:
// batches at the end of the sheet, records deleted, and the messages that tell of failures.
#include <gmock/gmock.h>

#include <functional>

#include "control/VeyGridCtrl.h"
#include "tests/control/Container.h"
#include "tests/control/OpenDialog.h"
#include "tests/control/OwnModule.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Access final : public DataAccess, public ResultCellMap {
  public:
    Access() { ResultCells = this; }

    std::int32_t FetchRows(std::int16_t count) override {
        calls.push_back("FetchRows " + std::to_string(count));
        const std::int32_t batch = std::min<std::int32_t>(left, 10);
        left -= batch;
        return batch;
    }
    void RollbackTrans() override { calls.emplace_back("RollbackTrans"); }
    void CommitTrans() override { calls.emplace_back("CommitTrans"); }
    std::int32_t ExecuteSql(const char* statement) override {
        calls.emplace_back(statement);
        return succeeds ? 1 : 0;
    }
    const char* Find(std::uint32_t key) const override {
        m_text = "r" + std::to_string(key >> 16U) + "c" + std::to_string(key & 0xFFFFU);
        return m_text.c_str();
    }

    std::vector<std::string> calls;
    std::int32_t left = 25;
    bool succeeds = true;

  private:
    mutable std::string m_text;
};

// Answers the question for the object, and nothing else.
class AnsweringParent {
  public:
    AnsweringParent(HWND window, DataAccess* access) : m_window(window) {
        handed = access;
        before = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
    }
    AnsweringParent(const AnsweringParent&) = delete;
    AnsweringParent& operator=(const AnsweringParent&) = delete;
    ~AnsweringParent() {
        ::SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before));
        onAsked = nullptr;
    }

    // Called before the answer, within the control's creation.
    static inline std::function<void()> onAsked;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        static const UINT askFor = ::RegisterWindowMessageW(L"VeynorGrid_AskFor");
        if (message == askFor && wParam == 2 && lParam == 0) {
            if (onAsked) {
                onAsked();
            }
            return reinterpret_cast<LRESULT>(handed);
        }
        return ::CallWindowProcW(before, window, message, wParam, lParam);
    }

    static inline DataAccess* handed = nullptr;
    static inline WNDPROC before = nullptr;
    HWND m_window;
};

// A message box that is answered, and what it said.
class BoxAnswered {
  public:
    const std::vector<std::string>& Told() const { return m_told; }
    HWND Owner() const { return m_owner; }

  private:
    void Answer(HWND box) {
        constexpr int TextOfBox = 0xFFFF;
        wchar_t text[100] = {};
        wchar_t caption[100] = {};
        ::GetDlgItemTextW(box, TextOfBox, text, 100);
        ::GetWindowTextW(box, caption, 100);
        m_told = {TextFromWide(caption), Utf8FromCodePage936(TextFromWide(text))};
        m_owner = ::GetWindow(box, GW_OWNER);
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    }

    std::vector<std::string> m_told;
    HWND m_owner = reinterpret_cast<HWND>(-1);
    OpenDialog m_dialog{[](HWND) { return true; }, [this](HWND box) { Answer(box); }};
};

// A control of this program in a window whose parent hands the object out.
class DataLayer : public testing::Test {
  protected:
    DataLayer() : made(*new CVeyGridCtrl(nullptr)), control(Adopt(made.Inner())), grid(control) {
        made.Store().Properties.DataSource = "SELECT T.ID,T.NAME FROM T";
        access.Connected = 1;
        EXPECT_EQ(container.Show(control), S_OK);
        window = Container::WindowOf(control);
        ::UpdateWindow(window);
    }
    void TearDown() override {
        container.Close();
        grid = Late(static_cast<IDispatch*>(nullptr));
        control = nullptr;
        EXPECT_FALSE(module::IsLocked());
    }

    void ScrollToEnd() const { ::SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0); }
    void BindRecords() {
        made.Store().QueryBound = true;
        grid.Put(L"ColName", {1, L"T.ID"});
        grid.Put(L"ColType", {1, 2});
        grid.Put(L"KeyColumnFlag", {1, 1});
        for (int row = 1; row <= 3; ++row) {
            grid.Put(L"CellText", {row, 1, std::to_wstring(row).c_str()});
        }
    }

    OwnModule own;
    Access access;
    Container container;
    AnsweringParent parent{container.Window(), &access};
    CVeyGridCtrl& made;
    ComPtr<IUnknown> control;
    Late grid;
    HWND window = nullptr;
};

// --- The object and its flags

TEST_F(DataLayer, TheParentsAnswerIsTheObjectAndAFreshControlTouchesItNoFurther) {
    EXPECT_EQ(made.Query().DataAccess, &access);
    EXPECT_TRUE(made.Query().RowsComplete);
    EXPECT_EQ(made.Query().FetchCount, -1);
    EXPECT_FALSE(made.Store().QueryBound);
    ScrollToEnd();
    EXPECT_THAT(access.calls, IsEmpty());
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
}

TEST(DataAccessOfAHost, AHostThatDoesNotAnswerAskForLeavesDataAccessNullAndNothingRuns) {
    const OwnModule own;
    Container container;
    CVeyGridCtrl& made = *new CVeyGridCtrl(nullptr);
    const ComPtr<IUnknown> control = Adopt(made.Inner());
    made.Store().Properties.DataSource = "SELECT a FROM t";
    // Whatever stood there before, the parent's answer decides.
    Access former;
    former.Connected = 1;
    made.Query().DataAccess = &former;
    ASSERT_EQ(container.Show(control), S_OK);
    EXPECT_EQ(made.Query().DataAccess, nullptr);
    EXPECT_FALSE(made.Query().RunsQueryAtCreation());
    made.Query().RowsComplete = false;
    ::SendMessageW(Container::WindowOf(control), WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_THAT(former.calls, IsEmpty());
    EXPECT_EQ(made.Store().Properties.MaxRow, 50);
}

TEST_F(DataLayer, WhileRowsCompleteStaysSetNothingOfTheObjectIsCalled) {
    const NoDialog box;
    ASSERT_TRUE(made.Query().RowsComplete);
    for (const int request : {SB_LINEDOWN, SB_PAGEDOWN, SB_BOTTOM, SB_LINEUP, SB_TOP}) {
        ::SendMessageW(window, WM_VSCROLL, static_cast<WPARAM>(request), 0);
    }
    grid.Put(L"CellText", {50, 1, L"x"});
    grid.Call(L"SetActiveCell", {50, 1});
    grid.Call(L"DeleteRows", {50, 1});
    grid.Put(L"DataSource", {L"SELECT T.ID FROM T"});
    grid.Number(L"RunQuery", {1});
    EXPECT_THAT(access.calls, IsEmpty());
    EXPECT_TRUE(made.Query().RowsComplete);
    // The same scroll does fetch once the flag is clear.
    made.Query().RowsComplete = false;
    ScrollToEnd();
    EXPECT_THAT(access.calls, ElementsAre("FetchRows -1"));
}

TEST_F(DataLayer, RunQueryWith0AndWith1LeavesEveryFlagAsItStands) {
    grid.Put(L"CellText", {2, 2, L"x"});
    for (const bool raised : {false, true}) {
        made.Query().RowsComplete = raised;
        made.Store().QueryBound = raised;
        grid.Put(L"Modified", {raised});
        for (const int all : {0, 1}) {
            EXPECT_EQ(grid.Number(L"RunQuery", {all}), 1);
            EXPECT_EQ(made.Query().RowsComplete, raised);
            EXPECT_EQ(made.Store().QueryBound, raised);
            EXPECT_EQ(grid.Number(L"Modified") != 0, raised);
        }
    }
    EXPECT_EQ(made.Query().FetchCount, -1);
    EXPECT_EQ(made.Query().DataAccess, &access);
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
    EXPECT_EQ(grid.Number(L"LastRow"), 2);
    EXPECT_EQ(grid.Number(L"LastCol"), 2);
    EXPECT_EQ(made.Store().CellTextMap.Count(), 1U);
    EXPECT_EQ(grid.Text(L"CellText", {2, 2}), "x");
    EXPECT_THAT(access.calls, IsEmpty());
}

TEST(DataAccessOfAHost, AtCreationTheParentIsAskedFirstAndTheRunSeesItsAnswer) {
    const OwnModule own;
    Container container;
    Access access;
    access.Connected = 1;
    CVeyGridCtrl& made = *new CVeyGridCtrl(nullptr);
    const ComPtr<IUnknown> control = Adopt(made.Inner());
    made.Store().Properties.DataSource = "SELECT a FROM t";
    AnsweringParent parent(container.Window(), &access);
    int asked = 0;
    parent.onAsked = [&] {
        ++asked;
        const HWND window = ::GetWindow(container.Window(), GW_CHILD);
        EXPECT_NE(window, nullptr);
        EXPECT_FALSE(made.Query().RunsQueryAtCreation());
        // The bars come behind the run.
        SCROLLINFO bar{sizeof bar, SIF_RANGE, 0, 0, 0, 0, 0};
        ::GetScrollInfo(window, SB_VERT, &bar);
        EXPECT_NE(bar.nMax, 50);
    };
    ASSERT_EQ(container.Show(control), S_OK);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(made.Query().RunsQueryAtCreation());
    SCROLLINFO bar{sizeof bar, SIF_RANGE, 0, 0, 0, 0, 0};
    ::GetScrollInfo(Container::WindowOf(control), SB_VERT, &bar);
    EXPECT_EQ(bar.nMax, 50);
    made.Store().Switches.RunQueryAfterSerialize = false;
    EXPECT_FALSE(made.Query().RunsQueryAtCreation());
}

TEST_F(DataLayer, TheRunAtCreationChangesNothing) {
    EXPECT_TRUE(made.Query().RunsQueryAtCreation());
    EXPECT_EQ(grid.Number(L"LastRow"), 0);
    EXPECT_THAT(access.calls, IsEmpty());
}

// --- Batches

TEST_F(DataLayer, TheEndOfTheSheetOnViewFetchesTheNextBatch) {
    made.Query().RowsComplete = false;
    ::SendMessageW(window, WM_VSCROLL, SB_LINEDOWN, 0);
    EXPECT_THAT(access.calls, IsEmpty());
    ScrollToEnd();
    EXPECT_THAT(access.calls, ElementsAre("FetchRows -1"));
    EXPECT_EQ(grid.Number(L"MaxRow"), 60);
    EXPECT_EQ(grid.Text(L"CellText", {51, 1}), "r1c1");
    EXPECT_EQ(grid.Text(L"CellText", {60, 2}), "r10c2");
    EXPECT_EQ(grid.Text(L"CellText", {60, 3}), "");
    SCROLLINFO bar{sizeof bar, SIF_RANGE, 0, 0, 0, 0, 0};
    ::GetScrollInfo(window, SB_VERT, &bar);
    EXPECT_EQ(bar.nMax, 60);
}

TEST_F(DataLayer, BatchesAreFetchedUntilThereAreNoMoreRows) {
    made.Query().RowsComplete = false;
    for (int i = 0; i < 6; ++i) {
        ScrollToEnd();
    }
    EXPECT_EQ(access.calls.size(), 4U);
    EXPECT_EQ(grid.Number(L"MaxRow"), 75);
    EXPECT_TRUE(made.Query().RowsComplete);
}

TEST_F(DataLayer, HorizontalScrollingAndAPlainRepaintFetchNothing) {
    made.Query().RowsComplete = false;
    grid.Call(L"MakeCellVisible", {50, 1});
    ::UpdateWindow(window);
    ::SendMessageW(window, WM_HSCROLL, SB_LINEDOWN, 0);
    EXPECT_THAT(access.calls, IsEmpty());
}

TEST_F(DataLayer, WithoutAnObjectNothingIsFetchedWhateverTheFlagSays) {
    made.Query().RowsComplete = false;
    made.Query().DataAccess = nullptr;
    ScrollToEnd();
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
}

// --- Deleting records

TEST_F(DataLayer, WithoutCanWriteTableTheDeletionIsRefusedInABoxWithoutAnOwner) {
    BindRecords();
    const BoxAnswered box;
    EXPECT_EQ(grid.Call(L"DeleteRows", {1, 1}), S_OK);
    EXPECT_THAT(box.Told(), ElementsAre("Veynor Grid Control", "您不能修改表数据!"));
    EXPECT_EQ(box.Owner(), nullptr);
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}), "1");
    EXPECT_THAT(access.calls, IsEmpty());
}

TEST_F(DataLayer, AnEmptyKeyCellIsReportedAndTheSheetStays) {
    BindRecords();
    grid.Put(L"CanWriteTable", {true});
    grid.Put(L"CellText", {1, 1, L""});
    const BoxAnswered box;
    grid.Call(L"DeleteRows", {1, 1});
    EXPECT_THAT(box.Told(), ElementsAre("Veynor Grid Control", "删除记录缺少行唯一标志,操作失败!"));
    EXPECT_EQ(grid.Text(L"CellText", {2, 1}), "2");
}

TEST_F(DataLayer, AFailedStatementIsRolledBackAndReported) {
    BindRecords();
    grid.Put(L"CanWriteTable", {true});
    grid.Put(L"AutoCommit", {true});
    access.succeeds = false;
    const BoxAnswered box;
    grid.Call(L"DeleteRows", {1, 1});
    EXPECT_THAT(box.Told(), ElementsAre("Veynor Grid Control", "删除记录失败!"));
    EXPECT_THAT(access.calls, ElementsAre("DELETE FROM T WHERE T.ID=1", "RollbackTrans"));
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}), "1");
}

TEST_F(DataLayer, TheCommandAndTheMessageDeleteTheActiveRecordAndCommit) {
    BindRecords();
    grid.Put(L"CanWriteTable", {true});
    grid.Put(L"AutoCommit", {true});
    grid.Call(L"SetActiveCell", {2, 1});
    grid.Call(L"SetSelection", {1, 0, 1, 0});
    ::SendMessageW(window, WM_COMMAND, 42304, 0);
    EXPECT_THAT(access.calls, ElementsAre("DELETE FROM T WHERE T.ID=2", "CommitTrans"));
    EXPECT_EQ(grid.Text(L"CellText", {2, 1}), "3");
    EXPECT_TRUE(made.Selected().SelectionList.empty());
    ::SendMessageW(window, ::RegisterWindowMessageW(L"VeynorGrid_DeleteeRecord"), 0, 0);
    EXPECT_EQ(access.calls[2], "DELETE FROM T WHERE T.ID=3");
}

TEST_F(DataLayer, WithQueryBoundClearNoneOfItIsLookedAt) {
    BindRecords();
    made.Store().QueryBound = false;
    grid.Put(L"AutoCommit", {true});
    EXPECT_EQ(grid.Call(L"DeleteRows", {1, 1}), S_OK);
    EXPECT_THAT(access.calls, IsEmpty());
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}), "2");
}

TEST_F(DataLayer, ARefusedInsertionIsToldToo) {
    BindRecords();
    const BoxAnswered box;
    ::SendMessageW(window, WM_COMMAND, 42303, 0);
    EXPECT_THAT(box.Told(), ElementsAre("Veynor Grid Control", "您不能修改表数据!"));
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
}

TEST_F(DataLayer, AChangeOfACellIsLoggedAsAnUpdateInABoundQuery) {
    grid.Put(L"ModifiedLog", {3});
    made.Store().QueryBound = true;
    grid.Call(L"ModifyCellText", {1, 1, L"x"});
    LONG position = grid.Number(L"GetFirstModifiedLogPos");
    LONG row = 0;
    LONG col = 0;
    VARIANT type{};
    grid.Call(L"GetNextModifiedLog", {Arg::Reference(&position), Arg::Reference(&row),
                                      Arg::Reference(&col), Arg::Reference(&type)});
    EXPECT_EQ(type.iVal, 2);
}

}  // namespace
}  // namespace veygrid
