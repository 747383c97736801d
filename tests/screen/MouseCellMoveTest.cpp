// Dragging the selected range by its frame.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EditDesk.h"

namespace veygrid {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class MouseCellMoveTest : public EditDeskTest {
  protected:
    // Selects a range, draws its frame, and presses on the frame's rim.
    void PressFrame(const CellRange& range, std::uint32_t flags = 0) {
        selection.SelectionList = {range};
        DrawFrame();
        const Point rim{std::max(layout.m_rcSelFrame.left + 1, 55),
                        std::max(layout.m_rcSelFrame.top + 1, 25)};
        ASSERT_EQ(layout.HitTest(rim), HitCode::HitSelFrame);
        Press(rim, flags);
    }
    void PressFrameOfActiveCell() {
        layout.m_rcSelFrame = layout.CellRect(store.ActiveRow, store.ActiveCol).Inflated(2, 2);
        Press({layout.m_rcSelFrame.left + 1, layout.m_rcSelFrame.top + 3});
    }
    // Two rows and two columns of letters from (2, 2) on.
    void FillBlock() {
        store.SetCellText(2, 2, "a");
        store.SetCellText(2, 3, "b");
        store.SetCellText(3, 2, "c");
        store.SetCellText(3, 3, "d");
    }
    static constexpr CellRange Block{2, 2, 3, 3};
};

TEST_F(MouseCellMoveTest, APressOnTheRimConfinesTheCursorToTheCellsShrunkBy2) {
    selection.SetActiveCell(3, 3);
    EXPECT_THAT(
        CallsOf([&] { PressFrameOfActiveCell(); }),
        ElementsAre("SetFocus", "ClipCursor 1052,522,1398,798", "InvalidateRect 168,54,231,75"));
    EXPECT_EQ(State(), MouseState::MouseMoveCells);
}

struct AllowRow {
    const char* name;
    CellRange range;
    bool GridProperties::*flag;  // null: no permission needed
};

class AllowMoveTest : public EditedSheet, public testing::TestWithParam<AllowRow> {};

TEST_P(AllowMoveTest, OnlyTheFittingFlagLetsTheFrameGo) {
    const AllowRow& row = GetParam();
    for (bool GridProperties::*const flag :
         {&GridProperties::AllowMoveCell, &GridProperties::AllowMoveRow,
          &GridProperties::AllowMoveCol}) {
        properties.AllowMoveCell = properties.AllowMoveRow = properties.AllowMoveCol = true;
        properties.*flag = false;
        selection.SelectionList = {row.range};
        layout.m_rcSelFrame = {100, 50, 200, 90};
        Press({101, 60});
        EXPECT_EQ(State(), flag == row.flag ? MouseState::MouseIdle : MouseState::MouseMoveCells);
        EXPECT_EQ(desk.confined.has_value(), flag != row.flag);
        mouse.CancelDrag();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, AllowMoveTest,
    testing::Values(AllowRow{"SingleCell", {2, 2, 2, 2}, &GridProperties::AllowMoveCell},
                    AllowRow{"Block", {2, 2, 4, 3}, &GridProperties::AllowMoveCell},
                    AllowRow{"WholeRows", {2, 0, 3, 0}, &GridProperties::AllowMoveRow},
                    AllowRow{"WholeColumns", {0, 2, 0, 3}, &GridProperties::AllowMoveCol},
                    AllowRow{"OddRange", {2, 0, 3, 4}, nullptr}),
    [](const auto& info) { return info.param.name; });

TEST_F(MouseCellMoveTest, WithAllowMoveCellOffTheRimStillShowsItsCursorAndAPressDoesNothing) {
    properties.AllowMoveCell = false;
    selection.SetActiveCell(3, 3);
    layout.m_rcSelFrame = layout.CellRect(3, 3).Inflated(2, 2);
    const Point rim{layout.m_rcSelFrame.left + 1, layout.m_rcSelFrame.top + 3};
    EXPECT_THAT(CallsOf([&] { EXPECT_TRUE(mouse.OnSetCursor(rim)); }),
                ElementsAre("SetCursor 30987"));
    Press(rim);
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_FALSE(desk.confined);
}

TEST_F(MouseCellMoveTest, TheFrameIsADoubleDottedLineThatIsErasedAndDrawn) {
    PressFrame(Block);
    EXPECT_THAT(CallsOf([&] { Drag(At(5, 3)); }),
                ElementsAre("DrawFocusRect 170,92,289,127", "DrawFocusRect 169,91,290,128"));
    EXPECT_EQ(mouse.MoveFrame(), (CellRange{5, 3, 6, 4}));
    EXPECT_THAT(CallsOf([&] { Drag({At(5, 3).x + 1, At(5, 3).y}); }), IsEmpty());
    EXPECT_THAT(CallsOf([&] { Drag(At(6, 3)); }),
                ElementsAre("DrawFocusRect 170,92,289,127", "DrawFocusRect 169,91,290,128",
                            "DrawFocusRect 170,110,289,145", "DrawFocusRect 169,109,290,146"));
}

TEST_F(MouseCellMoveTest, WholeRowsKeepTheirFormWhileLeftAndTopFollow) {
    PressFrame({2, 0, 3, 0});
    Drag(At(6, 4));
    EXPECT_EQ(mouse.MoveFrame(), (CellRange{6, 4, 7, 0}));
}

TEST_F(MouseCellMoveTest, WholeColumnsKeepTheirFormWhileLeftAndTopFollow) {
    PressFrame({0, 2, 0, 3});
    Drag(At(6, 4));
    EXPECT_EQ(mouse.MoveFrame(), (CellRange{6, 4, 0, 5}));
}

TEST_F(MouseCellMoveTest, WithAnEmptyListTheFrameIsOneCell) {
    selection.SetActiveCell(3, 3);
    PressFrameOfActiveCell();
    Drag(At(5, 4));
    EXPECT_EQ(mouse.MoveFrame(), (CellRange{5, 4, 5, 4}));
}

TEST_F(MouseCellMoveTest, APointOutsideTheSheetStandsForMaxRowAndMaxCol) {
    properties.MaxRow = 6;
    properties.MaxCol = 4;
    PressFrame(Block);
    Drag({395, 295});
    EXPECT_EQ(mouse.MoveFrame(), (CellRange{6, 4, 7, 5}));
}

// Release.

TEST_F(MouseCellMoveTest, AReleaseWithoutAFrameMovesNothing) {
    FillBlock();
    PressFrame(Block);
    EXPECT_THAT(CallsOf([&] { Release(At(2, 2)); }),
                ElementsAre("ClipCursor null", "DrawSelectionFrame"));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_EQ(store.CellText(2, 2), "a");
}

TEST_F(MouseCellMoveTest, AReleaseMovesTheBlockSelectsItAndGoesThere) {
    FillBlock();
    PressFrame(Block);
    Drag(At(5, 4));
    EXPECT_THAT(
        CallsOf([&] { Release(At(5, 4)); }),
        ElementsAre("ClipCursor null", "DrawFocusRect 230,92,349,127",
                    "DrawFocusRect 229,91,350,128", "InvalidateControl", "CellsMove 2",
                    "CellSelChanging 5,4 1", "SendCellSelChange 5,4", "PostCellSelChange 5,4",
                    "InvalidateActiveCellAreas 1,1", "InvalidateActiveCellAreas 5,4",
                    "CellSelChanged", "InvalidateHeaderCorner", "SetModifiedFlag TRUE", "Modified",
                    "DrawSelectionFrame"));
    EXPECT_EQ(store.CellText(5, 4), "a");
    EXPECT_EQ(store.CellText(6, 5), "d");
    EXPECT_EQ(store.CellText(2, 2), "");
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{5, 4, 6, 5}));
    EXPECT_EQ(Active(), (CellPos{5, 4}));
    EXPECT_TRUE(mouse.MoveFrame().IsEmpty());
    EXPECT_FALSE(desk.confined);
}

TEST_F(MouseCellMoveTest, WithAnEmptyListTheActiveCellMovesAndTheListStaysEmpty) {
    store.SetCellText(3, 3, "x");
    selection.SetActiveCell(3, 3);
    PressFrameOfActiveCell();
    Drag(At(5, 4));
    Release(At(5, 4));
    EXPECT_EQ(store.CellText(5, 4), "x");
    EXPECT_THAT(selection.SelectionList, IsEmpty());
    EXPECT_EQ(Active(), (CellPos{5, 4}));
}

TEST_F(MouseCellMoveTest, CtrlHeldAtTheReleaseAndNotAtThePressMakesACopy) {
    FillBlock();
    PressFrame(Block, MkControl);
    Drag(At(5, 4));
    Release(At(5, 4));
    EXPECT_EQ(store.CellText(2, 2), "");
    PressFrame({5, 4, 6, 5});
    Drag(At(8, 1));
    desk.ctrlDown = true;
    Release(At(8, 1));
    EXPECT_EQ(store.CellText(5, 4), "a");
    EXPECT_EQ(store.CellText(8, 1), "a");
}

TEST_F(MouseCellMoveTest, WholeRowsMoveAndTellType0) {
    store.SetCellText(2, 1, "two");
    store.SetCellText(3, 1, "three");
    PressFrame({2, 0, 2, 0});
    Drag(At(5, 4));
    const Lines calls = CallsOf([&] { Release(At(5, 4)); });
    EXPECT_THAT(calls, Contains("CellsMove 0"));
    EXPECT_EQ(store.CellText(5, 1), "two");
    EXPECT_EQ(store.CellText(2, 1), "three");
    // Rows stay whole: only the rows of the range follow.
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{5, 0, 5, 0}));
    EXPECT_EQ(Active(), (CellPos{5, 4}));
}

TEST_F(MouseCellMoveTest, WholeColumnsMoveAndTellType1) {
    store.SetCellText(1, 2, "two");
    PressFrame({0, 2, 0, 3});
    Drag(At(5, 4));
    const Lines calls = CallsOf([&] { Release(At(5, 4)); });
    EXPECT_THAT(calls, Contains("CellsMove 1"));
    EXPECT_EQ(store.CellText(1, 4), "two");
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{0, 4, 0, 5}));
}

TEST_F(MouseCellMoveTest, AnOddRangeTellsNothingAndStaysSelectedWhereItWas) {
    PressFrame({2, 0, 3, 4});
    Drag(At(6, 3));
    const Lines calls = CallsOf([&] { Release(At(6, 3)); });
    for (const char* const line : {"CellsMove 0", "CellsMove 1", "CellsMove 2"}) {
        EXPECT_THAT(calls, Not(Contains(line)));
    }
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{2, 0, 3, 4}));
    EXPECT_EQ(Active(), (CellPos{6, 3}));
}

TEST_F(MouseCellMoveTest, SeveralRecordsBecomeTheOneThatMoved) {
    PressFrame(Block);
    selection.SelectionList.push_back({7, 1, 7, 1});
    Drag(At(5, 4));
    Release(At(5, 4));
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{5, 4, 6, 5}));
}

TEST_F(MouseCellMoveTest, AMoveDroppedOutsideTheSheetGoesToMaxRowOrMaxCol) {
    properties.MaxRow = 6;
    properties.MaxCol = 4;
    FillBlock();
    PressFrame(Block);
    Drag({395, 295});
    Release({395, 295});
    EXPECT_EQ(store.CellText(6, 4), "a");
    EXPECT_EQ(store.CellText(7, 5), "d");
    EXPECT_EQ(Active(), (CellPos{6, 4}));
}

TEST_F(MouseCellMoveTest, AMoveDroppedOnItsOwnOriginLeavesTheDataAndCellsMoveFiresAllTheSame) {
    FillBlock();
    PressFrame(Block);
    Drag(At(5, 4));
    Drag(At(2, 2));
    EXPECT_THAT(CallsOf([&] { Release(At(2, 2)); }), Contains("CellsMove 2"));
    EXPECT_EQ(store.CellText(2, 2), "a");
    EXPECT_EQ(store.CellText(3, 3), "d");
}

TEST_F(MouseCellMoveTest, WithADatasetBoundTheColumnNamesAreReadAnewFirst) {
    class NoData final : public Dataset {
      public:
        std::string GetCellValue(std::int32_t, std::int32_t) override { return {}; }
        std::int32_t GetColCount() override { return 0; }
        std::int32_t GetRowCount() override { return 0; }
        std::int32_t SetColCaption(std::int32_t, std::string_view) override { return 0; }
        std::string GetColName(std::int32_t) override { return {}; }
    } dataset;
    PressFrame(Block);
    Drag(At(5, 4));
    store.BoundDataset = &dataset;
    const Lines calls = CallsOf([&] { Release(At(5, 4)); });
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[1], "RefreshColumnNames");
}

TEST_F(MouseCellMoveTest, ARefusedActiveCellStaysWhereItWasAndTheBlockHasMoved) {
    FillBlock();
    desk.allowChange = 0;
    PressFrame(Block);
    Drag(At(5, 4));
    Release(At(5, 4));
    EXPECT_EQ(store.CellText(5, 4), "a");
    EXPECT_EQ(Active(), (CellPos{1, 1}));
}

TEST_F(MouseCellMoveTest, AHostThatPressesAndReleasesInsideCellsMoveFindsAnIdleMouse) {
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::CellsMove) {
            EXPECT_EQ(State(), MouseState::MouseIdle);
            Click(At(9, 1), MkControl);
        }
    };
    PressFrame(Block);
    Drag(At(5, 4));
    Release(At(5, 4));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_TRUE(selection.DragRange.IsEmpty());
    EXPECT_THAT(selection.SelectionList, ElementsAre(CellRange{5, 4, 6, 5}));
}

TEST_F(MouseCellMoveTest, AnExceptionOfTheHostLeavesAnIdleMouse) {
    desk.onEvent = [&](DeskEvent) { throw std::runtime_error("host"); };
    PressFrame(Block);
    Drag(At(5, 4));
    EXPECT_THROW(Release(At(5, 4)), std::runtime_error);
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_TRUE(mouse.MoveFrame().IsEmpty());
    EXPECT_FALSE(desk.confined);
}

TEST_F(MouseCellMoveTest, ACancelledMoveForgetsItsFrame) {
    FillBlock();
    PressFrame(Block);
    Drag(At(5, 4));
    EXPECT_THAT(CallsOf([&] { mouse.CancelDrag(); }),
                ElementsAre("ClipCursor null", "InvalidateControl"));
    EXPECT_TRUE(mouse.MoveFrame().IsEmpty());
    EXPECT_EQ(store.CellText(2, 2), "a");
}

TEST_F(MouseCellMoveTest, AChangeToGuiModeDuringTheDragForgetsTheFrameAtTheRelease) {
    PressFrame(Block);
    Drag(At(5, 4));
    properties.GuiMode = true;
    Release(At(5, 4));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_TRUE(mouse.MoveFrame().IsEmpty());
    EXPECT_FALSE(desk.confined);
}

// Automatic scrolling.

class AutoScrollTest : public MouseCellMoveTest {
  protected:
    AutoScrollTest() { PressFrame(Block); }

    // Lines of a move to x after so many milliseconds, without those of the frame.
    Lines ScrollsAt(std::int32_t x, std::uint32_t pause) {
        desk.ticks += pause;
        Lines calls = CallsOf([&] { Drag({x, At(5, 1).y}); });
        std::erase_if(calls, [](const std::string& line) { return line.find("WM_") != 0; });
        return calls;
    }
};

TEST_F(AutoScrollTest, TheFirstMoveOnlyStartsTheClock) {
    EXPECT_THAT(ScrollsAt(395, 5000), IsEmpty());
    EXPECT_EQ(autoScrollTicks, desk.ticks);
}

TEST_F(AutoScrollTest, AtTheRightEdgeOneColumnAfterMoreThan200Milliseconds) {
    ScrollsAt(395, 0);
    EXPECT_THAT(ScrollsAt(395, 200), IsEmpty());
    EXPECT_THAT(ScrollsAt(395, 1), ElementsAre("WM_HSCROLL 1"));
    EXPECT_THAT(ScrollsAt(395, 200), IsEmpty());
    EXPECT_THAT(ScrollsAt(391, 1), ElementsAre("WM_HSCROLL 1"));
    EXPECT_THAT(ScrollsAt(390, 500), IsEmpty());
    EXPECT_EQ(layout.FirstVisibleCol, 3);
}

TEST_F(AutoScrollTest, AtTheRowHeaderOneColumnBackWhetherItIsShownOrNot) {
    layout.FirstVisibleCol = 5;
    ScrollsAt(59, 0);
    EXPECT_THAT(ScrollsAt(59, 201), ElementsAre("WM_HSCROLL 0"));
    EXPECT_THAT(ScrollsAt(60, 500), IsEmpty());
    properties.ShowRowHeaders = false;
    EXPECT_THAT(ScrollsAt(59, 500), ElementsAre("WM_HSCROLL 0"));
}

TEST_F(AutoScrollTest, TheClockMayStartOver) {
    desk.ticks = 0xFFFFFFFFU - 100;
    ScrollsAt(395, 0);
    EXPECT_THAT(ScrollsAt(395, 150), IsEmpty());
    EXPECT_THAT(ScrollsAt(395, 51), ElementsAre("WM_HSCROLL 1"));
}

TEST_F(AutoScrollTest, NothingScrollsVerticallyAndNoSelectionScrolls) {
    ScrollsAt(395, 0);
    desk.ticks += 1000;
    EXPECT_THAT(CallsOf([&] { Drag({200, 299}); }), Not(Contains(testing::HasSubstr("SCROLL"))));
    mouse.CancelDrag();
    layout.m_rcSelFrame = {};
    Press(At(2, 2));
    desk.ticks += 1000;
    EXPECT_THAT(CallsOf([&] { Drag({395, 100}); }), Not(Contains(testing::HasSubstr("SCROLL"))));
}

TEST(AutoScrollTicksTest, TheClockIsOneForAllControlsOfTheProcess) {
    EditedSheet one;
    MouseMachine other({one.store, one.selection, one.operations, one.layout, one.editor, one.desk,
                        one.desk, one.desk},
                       one.autoScrollTicks);
    one.layout.m_rcSelFrame = {100, 50, 200, 90};
    one.autoScrollTicks = 100;
    one.desk.ticks = 200;
    other.OnLButtonDown(MkLButton, {101, 60});
    other.OnMouseMove(MkLButton, {395, 60});
    EXPECT_EQ(one.layout.FirstVisibleCol, 1);
    one.desk.ticks = 301;
    other.OnMouseMove(MkLButton, {395, 60});
    EXPECT_EQ(one.layout.FirstVisibleCol, 2);
    EXPECT_EQ(one.autoScrollTicks, 301U);
}

}  // namespace
}  // namespace veygrid
