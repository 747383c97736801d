// Selecting with the mouse: presses on headers, corner and cells, drags and releases.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EditDesk.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MouseSelectTest : public EditDeskTest {
  protected:
    const std::vector<CellRange>& List() const { return selection.SelectionList; }
    static CellRange Cell(std::int32_t row, std::int32_t col) { return {row, col, row, col}; }
};

// A press after an earlier one on (2, 2), on row 4 and column 3 of each region.
struct PressRow {
    const char* name;
    Point point;
    std::uint32_t flags;
    MouseState state;
    CellRange dragged;
    CellPos active;
    std::size_t records;  // of the one that was there
};

constexpr Point RowHeader4{10, 20 + 3 * 18 + 9};
constexpr Point ColHeader3{50 + 2 * 60 + 30, 10};
constexpr Point Corner{10, 10};
constexpr Point Cell43{50 + 2 * 60 + 30, 20 + 3 * 18 + 9};

const PressRow PressRows[] = {
    {"RowHeader", RowHeader4, 0, MouseState::MouseSelectRows, {4, 0, 4, 0}, {4, 2}, 0},
    {"RowHeaderShift", RowHeader4, MkShift, MouseState::MouseSelectRows, {2, 0, 4, 0}, {2, 2}, 1},
    {"RowHeaderCtrl", RowHeader4, MkControl, MouseState::MouseSelectRows, {4, 0, 4, 0}, {2, 2}, 1},
    {"RowHeaderBoth",
     RowHeader4,
     MkShift | MkControl,
     MouseState::MouseSelectRows,
     {2, 0, 4, 0},
     {2, 2},
     1},
    {"ColHeader", ColHeader3, 0, MouseState::MouseSelectCols, {0, 3, 0, 3}, {2, 3}, 0},
    {"ColHeaderShift", ColHeader3, MkShift, MouseState::MouseSelectCols, {0, 2, 0, 3}, {2, 2}, 1},
    {"ColHeaderCtrl", ColHeader3, MkControl, MouseState::MouseSelectCols, {0, 3, 0, 3}, {2, 2}, 1},
    {"ColHeaderBoth",
     ColHeader3,
     MkShift | MkControl,
     MouseState::MouseSelectCols,
     {0, 2, 0, 3},
     {2, 2},
     1},
    {"Corner", Corner, 0, MouseState::MouseSelectAll, {-1, -1, -1, -1}, {2, 2}, 0},
    {"CornerShift", Corner, MkShift, MouseState::MouseSelectAll, {-1, -1, -1, -1}, {2, 2}, 0},
    {"CornerCtrl", Corner, MkControl, MouseState::MouseSelectAll, {-1, -1, -1, -1}, {2, 2}, 0},
    {"Cell", Cell43, 0, MouseState::MouseSelectCells, {4, 3, 4, 3}, {4, 3}, 0},
    {"CellShift", Cell43, MkShift, MouseState::MouseSelectCells, {2, 2, 4, 3}, {2, 2}, 1},
    {"CellCtrl", Cell43, MkControl, MouseState::MouseSelectCells, {4, 3, 4, 3}, {2, 2}, 1},
    {"CellBoth",
     Cell43,
     MkShift | MkControl,
     MouseState::MouseSelectCells,
     {2, 2, 4, 3},
     {2, 2},
     1},
};

class PressTableTest : public EditedSheet, public testing::TestWithParam<PressRow> {
  protected:
    PressTableTest() {
        Click(At(2, 2));
        selection.SelectionList = {{7, 1, 8, 2}};
    }
};

TEST_P(PressTableTest, ThePressEntersItsStateWithItsRange) {
    const PressRow& row = GetParam();
    Press(row.point, row.flags);
    EXPECT_EQ(State(), row.state);
    EXPECT_EQ(selection.DragRange, row.dragged);
    EXPECT_EQ(Active(), row.active);
    EXPECT_EQ(selection.SelectionList.size(), row.records);
}

TEST_P(PressTableTest, WithAllowSelectionsOffNothingIsEnteredAndNothingMoves) {
    properties.AllowSelections = false;
    const PressRow& row = GetParam();
    EXPECT_THAT(CallsOf([&] { Press(row.point, row.flags); }), ElementsAre("SetFocus"));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_TRUE(selection.DragRange.IsEmpty());
    EXPECT_EQ(Active(), (CellPos{2, 2}));
    EXPECT_EQ(selection.SelectionList.size(), 1U);
}

TEST_P(PressTableTest, TheReleaseAppendsTheNormalisedRangeAndGoesIdle) {
    const PressRow& row = GetParam();
    Press(row.point, row.flags);
    Release(row.point, row.flags);
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_TRUE(selection.DragRange.IsEmpty());
    const bool plainCell = row.state == MouseState::MouseSelectCells && row.flags == 0;
    ASSERT_GE(selection.SelectionList.size(), row.records + (plainCell ? 0 : 1));
    if (!plainCell) {
        EXPECT_EQ(selection.SelectionList[row.records], row.dragged.Normalized());
    }
}

INSTANTIATE_TEST_SUITE_P(Regions, PressTableTest, testing::ValuesIn(PressRows),
                         [](const auto& info) { return info.param.name; });

TEST_F(MouseSelectTest, APlainHeaderPressInvertsClearsMovesAndInvertsAgain) {
    selection.SelectionList = {{7, 1, 8, 2}};
    EXPECT_THAT(CallsOf([&] { Press(RowHeader4); }),
                ElementsAre("SetFocus", "InvertSelection", "CellSelChanging 4,1 1",
                            "SendCellSelChange 4,1", "PostCellSelChange 4,1",
                            "InvalidateActiveCellAreas 1,1", "InvalidateActiveCellAreas 4,1",
                            "CellSelChanged", "InvalidateHeaderCorner", "InvertSelection"));
}

TEST_F(MouseSelectTest, ACornerPressMovesNoCell) {
    EXPECT_THAT(CallsOf([&] { Press(Corner); }),
                ElementsAre("SetFocus", "InvertSelection", "InvertSelection"));
}

TEST_F(MouseSelectTest, APlainCellPressInvertsNothingAndRepaintsOnlyWhenSomethingWasSelected) {
    const Lines moved{"SetFocus",
                      "CellSelChanging 4,3 1",
                      "SendCellSelChange 4,3",
                      "PostCellSelChange 4,3",
                      "InvalidateActiveCellAreas 1,1",
                      "InvalidateActiveCellAreas 4,3",
                      "CellSelChanged",
                      "InvalidateHeaderCorner"};
    EXPECT_EQ(CallsOf([&] { Press(Cell43); }), moved);
    Release(Cell43);
    selection.SelectionList = {{7, 1, 8, 2}};
    const Lines calls = CallsOf([&] { Press(Cell43); });
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[1], "InvalidateControl");
}

TEST_F(MouseSelectTest, AShiftPressInvertsTheChange) {
    EXPECT_THAT(CallsOf([&] { Press(Cell43, MkShift); }),
                ElementsAre("SetFocus", "InvertSelectionChange"));
    EXPECT_THAT(CallsOf([&] { Release(Cell43); }),
                ElementsAre("ClipCursor null", "DrawSelectionFrame"));
}

TEST_F(MouseSelectTest, ThePressInvalidatesTheOldFrameWhereThereIsOne) {
    layout.m_rcSelFrame = {100, 50, 200, 90};
    EXPECT_EQ(CallsOf([&] { Press(RowHeader4, MkControl); }).back(),
              "InvalidateRect 100,50,200,90");
    Release(RowHeader4);
    // The corner is outside the frame; a point of no region invalidates it too.
    EXPECT_THAT(CallsOf([&] {
                    Press({-5, -5});
                }),
                ElementsAre("SetFocus", "InvalidateRect 100,50,200,90"));
}

TEST_F(MouseSelectTest, ThePressOnTheEmptyEndOfARowHeaderBandTakesRow0) {
    properties.MaxRow = 5;
    Press({10, 280});
    EXPECT_EQ(State(), MouseState::MouseSelectRows);
    EXPECT_EQ(Active(), (CellPos{0, 1}));
    EXPECT_TRUE(selection.DragRange.IsEmpty());
    Release({10, 280});
    EXPECT_THAT(List(), IsEmpty());
}

TEST_F(MouseSelectTest, ThePressDoesNotRunTheBaseHandlerOnTheSheet) {
    EXPECT_FALSE(mouse.OnLButtonDown(MkLButton, Cell43));
}

TEST_F(MouseSelectTest, ShiftClickAnchorsAtThePreviousPressAndNotAtTheActiveCell) {
    Click(At(2, 2));
    selection.SetActiveCell(9, 4);
    Click(At(5, 3), MkShift);
    ASSERT_FALSE(List().empty());
    EXPECT_EQ(List()[0], (CellRange{2, 2, 5, 3}));
}

TEST_F(MouseSelectTest, ASecondShiftClickAnchorsAtTheFirstShiftClick) {
    Click(At(2, 2));
    Click(At(5, 3), MkShift);
    Click(At(7, 1), MkShift);
    ASSERT_EQ(List().size(), 2U);
    EXPECT_EQ(List()[1], (CellRange{5, 1, 7, 3}));
}

TEST_F(MouseSelectTest, TheFirstShiftClickOfANewControlAnchorsAtOneOne) {
    Click(At(3, 3), MkShift);
    ASSERT_EQ(List().size(), 1U);
    EXPECT_EQ(List()[0], (CellRange{1, 1, 3, 3}));
}

TEST_F(MouseSelectTest, AClickOnTheActiveCellAsASingleCellLeavesTheListEmpty) {
    Click(At(1, 1));
    EXPECT_THAT(List(), IsEmpty());
    Click(At(6, 4));
    EXPECT_THAT(List(), IsEmpty());
    EXPECT_EQ(Active(), (CellPos{6, 4}));
}

TEST_F(MouseSelectTest, CtrlClicksBuildAListInClickOrderAndTheActiveCellJoinsOnTheFirstRelease) {
    Click(At(2, 2));
    Click(At(5, 3), MkControl);
    EXPECT_THAT(List(), ElementsAre(Cell(5, 3), Cell(2, 2)));
    Click(At(1, 4), MkControl);
    Click(At(8, 1), MkControl);
    EXPECT_THAT(List(), ElementsAre(Cell(5, 3), Cell(2, 2), Cell(1, 4), Cell(8, 1)));
    EXPECT_EQ(Active(), (CellPos{2, 2}));
}

TEST_F(MouseSelectTest, ARefusedActiveCellLetsThePressGoOnFromTheOldOne) {
    desk.allowChange = 0;
    Press(At(4, 3));
    EXPECT_EQ(State(), MouseState::MouseSelectCells);
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    Release(At(4, 3));
    EXPECT_THAT(List(), ElementsAre(Cell(4, 3), Cell(1, 1)));
}

// Moves.

TEST_F(MouseSelectTest, ACellDragRedrawsOncePerChangeOfCellAndNeverPerPixel) {
    Press(At(2, 2));
    EXPECT_THAT(CallsOf([&] {
                    Drag({At(2, 2).x + 3, At(2, 2).y});
                    Drag({At(2, 2).x + 4, At(2, 2).y + 1});
                }),
                IsEmpty());
    EXPECT_THAT(CallsOf([&] { Drag(At(4, 3)); }), ElementsAre("InvertSelectionChange"));
    EXPECT_EQ(selection.DragRange, (CellRange{2, 2, 4, 3}));
    Drag(At(1, 1));
    EXPECT_EQ(selection.DragRange, (CellRange{2, 2, 1, 1}));
    Release(At(1, 1));
    EXPECT_THAT(List(), ElementsAre(CellRange{1, 1, 2, 2}));
}

TEST_F(MouseSelectTest, ADragOverTheWholeWindowAsksForNoPaintFromThePressToTheRelease) {
    for (const Point from : {At(2, 2), RowHeader4, ColHeader3}) {
        Press(from);
        const Lines calls = CallsOf([&] {
            for (std::int32_t y = 0; y < 300; y += 7) {
                for (std::int32_t x = 0; x < 400; x += 7) {
                    Drag({x, y});
                }
            }
            Release({399, 299});
        });
        EXPECT_THAT(calls, testing::Each(testing::AnyOf("InvertSelectionChange", "ClipCursor null",
                                                        "DrawSelectionFrame")));
    }
}

TEST_F(MouseSelectTest, ACellDragIntoTheEmptySpaceJumpsTo0) {
    properties.MaxRow = 5;
    Press(At(2, 2));
    Drag({At(2, 2).x, 280});
    EXPECT_EQ(selection.DragRange, (CellRange{2, 2, 0, 2}));
}

TEST_F(MouseSelectTest, AColumnDragWatchesColumnsOnly) {
    Press(ColHeader3);
    EXPECT_THAT(CallsOf([&] { Drag(At(5, 3)); }), IsEmpty());
    Drag(At(5, 5));
    EXPECT_EQ(selection.DragRange, (CellRange{0, 3, 0, 5}));
}

TEST_F(MouseSelectTest, ARowDragThatStaysOnTheHeadersKeepsWholeRows) {
    Press(RowHeader4);
    EXPECT_THAT(CallsOf([&] { Drag(At(6, 0)); }), ElementsAre("InvertSelectionChange"));
    EXPECT_EQ(selection.DragRange, (CellRange{4, 0, 6, 0}));
}

TEST_F(MouseSelectTest, ARowDragThatStraysOverTheCellsWidensToThem) {
    Press(RowHeader4);
    EXPECT_THAT(CallsOf([&] { Drag(At(6, 2)); }),
                ElementsAre("InvertSelectionChange", "InvertSelectionChange"));
    EXPECT_EQ(selection.DragRange, (CellRange{4, 0, 6, 2}));
}

TEST_F(MouseSelectTest, AWholeSheetDoesNotChangeByMoving) {
    Press(Corner);
    EXPECT_THAT(CallsOf([&] { Drag(At(6, 2)); }), IsEmpty());
    EXPECT_TRUE(selection.DragRange.IsWholeSheet());
    Release(At(6, 2));
    EXPECT_THAT(List(), ElementsAre(CellRange::WholeSheet()));
}

TEST_F(MouseSelectTest, AMoveWithoutTheButtonOnlyRemembersThePoint) {
    Press(At(2, 2));
    EXPECT_THAT(CallsOf([&] { mouse.OnMouseMove(0, At(5, 4)); }), IsEmpty());
    EXPECT_EQ(mouse.Track().m_ptLast, At(5, 4));
    EXPECT_EQ(selection.DragRange, Cell(2, 2));
}

TEST_F(MouseSelectTest, AMoveWithoutAPressDoesNothing) {
    EXPECT_THAT(CallsOf([&] { Drag(At(5, 4)); }), IsEmpty());
    EXPECT_EQ(State(), MouseState::MouseIdle);
}

TEST_F(MouseSelectTest, AReleaseWithoutAPressClearsDragRangeAndDrawsTheFrame) {
    selection.DragRange = {1, 1, 2, 2};
    EXPECT_THAT(CallsOf([&] { Release(At(5, 4)); }),
                ElementsAre("ClipCursor null", "DrawSelectionFrame"));
    EXPECT_TRUE(selection.DragRange.IsEmpty());
    EXPECT_THAT(List(), IsEmpty());
}

// Row marks.

TEST_F(MouseSelectTest, InRowModeWithAltThePressArmsMouseSelectCellsAndTheReleaseAppendsNothing) {
    properties.RowMode = true;
    desk.altDown = true;
    EXPECT_THAT(CallsOf([&] { Press(At(4, 3)); }),
                ElementsAre("SetFocus", "InvalidateRowHeaderStrip 4"));
    EXPECT_EQ(State(), MouseState::MouseSelectCells);
    EXPECT_TRUE(selection.DragRange.IsEmpty());
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    EXPECT_TRUE(selection.IsRowChecked(4));
    Release(At(4, 3));
    EXPECT_THAT(List(), IsEmpty());
    Click(At(4, 1));
    EXPECT_FALSE(selection.IsRowChecked(4));
}

TEST_F(MouseSelectTest, AltWithoutRowModeIsAPlainPress) {
    desk.altDown = true;
    Press(At(4, 3));
    EXPECT_EQ(Active(), (CellPos{4, 3}));
    EXPECT_FALSE(selection.IsRowChecked(4));
}

TEST_F(MouseSelectTest, AltWithCtrlSelectsAndMarksNoRow) {
    properties.RowMode = true;
    desk.altDown = true;
    Press(At(4, 3), MkControl);
    EXPECT_FALSE(selection.IsRowChecked(4));
    EXPECT_EQ(selection.DragRange, Cell(4, 3));
}

// Editing.

TEST_F(MouseSelectTest, ACellPressOpensAnEditWithAllowEditAndAlwaysOnEdit) {
    properties.AlwaysOnEdit = true;
    Press(At(4, 3));
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(editor.EditRow, 4);
    EXPECT_EQ(editor.EditCol, 3);
}

TEST_F(MouseSelectTest, WithAllowSelectionsOffAClickMovesTheActiveCellOnlyWhenItOpensAnEdit) {
    properties.AllowSelections = false;
    Click(At(4, 3));
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    properties.AlwaysOnEdit = true;
    Click(At(4, 3));
    EXPECT_EQ(Active(), (CellPos{4, 3}));
    EXPECT_TRUE(editor.InEdit());
}

TEST_F(MouseSelectTest, ACellPressOpensNoEditOnAReadOnlyCellOrWithAllowEditOff) {
    properties.AlwaysOnEdit = true;
    MakeReadOnly(4, 3);
    Click(At(4, 3));
    EXPECT_FALSE(editor.InEdit());
    properties.AllowEdit = false;
    Click(At(2, 2));
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(MouseSelectTest, APressCommitsAnOpenEdit) {
    ASSERT_EQ(editor.StartEdit(), 1);
    edit.Type("x");
    Press(At(4, 3));
    EXPECT_EQ(store.CellText(1, 1), "x");
    EXPECT_EQ(Active(), (CellPos{4, 3}));
}

TEST_F(MouseSelectTest, ARefusedCommitDropsTheWholePress) {
    desk.cancelEndEdit = 1;
    ASSERT_EQ(editor.StartEdit(), 1);
    edit.Type("x");
    EXPECT_THAT(CallsOf([&] { EXPECT_FALSE(mouse.OnLButtonDown(MkLButton, At(4, 3))); }),
                ElementsAre("SetFocus", "EN_KILLFOCUS", "EndEdit 1,1 x 0",
                            "ShowMessage 64 输入的数据非法!", "Editor SetFocus"));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    EXPECT_EQ(mouse.Track().m_nPressRow, 1);
}

// Hosts that call back, and releases that never come.

TEST_F(MouseSelectTest, AButtonThatComesUpInsideAnEventLeavesNothingDragged) {
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::CellSelChanging) {
            Release(At(4, 3));
        }
    };
    for (const Point point : {RowHeader4, ColHeader3, Cell43}) {
        Press(point);
        EXPECT_EQ(State(), MouseState::MouseIdle);
        EXPECT_TRUE(selection.DragRange.IsEmpty());
    }
}

TEST_F(MouseSelectTest, AHostThatMovesTheActiveCellInsideCellSelChangingKeepsAKnownState) {
    bool isInside = false;
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::CellSelChanging && !isInside) {
            isInside = true;
            selection.SetActiveCell(9, 2);
            isInside = false;
        }
    };
    Click(At(4, 3));
    EXPECT_EQ(Active(), (CellPos{4, 3}));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_THAT(List(), IsEmpty());
}

TEST_F(MouseSelectTest, APressWhoseReleaseWasLostIsForgottenAtTheNextPress) {
    Press(At(2, 2));
    Drag(At(5, 4));
    EXPECT_THAT(
        CallsOf([&] { Press(At(1, 1), MkControl); }),
        ElementsAre("ClipCursor null", "InvalidateControl", "SetFocus", "InvertSelectionChange"));
    Release(At(1, 1));
    EXPECT_THAT(List(), ElementsAre(Cell(1, 1), Cell(2, 2)));
}

TEST_F(MouseSelectTest, APlainPressWhoseReleaseWentToTheEditorCostsNoRepaint) {
    properties.AlwaysOnEdit = true;
    Press(At(2, 2));
    const Lines calls = CallsOf([&] { Press(At(3, 2)); });
    EXPECT_THAT(calls, testing::Not(testing::Contains("InvalidateControl")));
}

TEST_F(MouseSelectTest, ACancelledDragSelectsNothing) {
    Press(At(2, 2));
    Drag(At(5, 4));
    mouse.CancelDrag();
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_TRUE(selection.DragRange.IsEmpty());
    EXPECT_THAT(List(), IsEmpty());
    EXPECT_THAT(CallsOf([&] { mouse.CancelDrag(); }), IsEmpty());
}

}  // namespace
}  // namespace veygrid
