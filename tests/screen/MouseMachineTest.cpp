// Cursors, double clicks, and the mouse in GUI mode and in design mode.
#include "screen/MouseMachine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EditDesk.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MouseMachineTest : public EditDeskTest {};

TEST_F(MouseMachineTest, TheStatesBearTheirNumbers) {
    EXPECT_EQ(static_cast<int>(MouseState::MouseIdle), 0);
    EXPECT_EQ(static_cast<int>(MouseState::MouseSelectAll), 1);
    EXPECT_EQ(static_cast<int>(MouseState::MouseSelectCols), 2);
    EXPECT_EQ(static_cast<int>(MouseState::MouseSelectRows), 3);
    EXPECT_EQ(static_cast<int>(MouseState::MouseSelectCells), 4);
    EXPECT_EQ(static_cast<int>(MouseState::MouseResizeRow), 7);
    EXPECT_EQ(static_cast<int>(MouseState::MouseResizeCol), 9);
    EXPECT_EQ(static_cast<int>(MouseState::MouseMoveObjects), 14);
    EXPECT_EQ(static_cast<int>(MouseState::MouseMoveCells), 23);
}

// Cursors.

struct CursorRow {
    const char* name;
    Point point;
    const char* call;  // null: the base class's handler
};

class CursorTest : public EditedSheet, public testing::TestWithParam<CursorRow> {};

TEST_P(CursorTest, OverTheSheet) {
    layout.m_rcSelFrame = {168, 54, 231, 75};
    const CursorRow& row = GetParam();
    const Lines calls =
        CallsOf([&] { EXPECT_EQ(mouse.OnSetCursor(row.point), row.call != nullptr); });
    EXPECT_EQ(calls, row.call == nullptr ? Lines{} : Lines{row.call});
}

INSTANTIATE_TEST_SUITE_P(Regions, CursorTest,
                         testing::Values(CursorRow{"RowEdge", {10, 54}, "SetCursor 32645"},
                                         CursorRow{"ColEdge", {168, 10}, "SetCursor 32644"},
                                         CursorRow{"RowHeader", {10, 47}, "SetCursor 1027"},
                                         CursorRow{"ColHeader", {140, 10}, "SetCursor 1026"},
                                         CursorRow{"Corner", {10, 10}, "SetCursor 1028"},
                                         CursorRow{"SelFrame", {169, 60}, "SetCursor 30987"},
                                         CursorRow{"Cell", {300, 200}, nullptr},
                                         CursorRow{"Seam", {49, 20}, nullptr},
                                         CursorRow{"Outside", {-1, 5}, nullptr}),
                         [](const auto& info) { return info.param.name; });

TEST_F(MouseMachineTest, DuringAResizeTheCursorIsThatOfTheResizeWhateverIsUnderIt) {
    Press({10, 54});
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_TRUE(mouse.OnSetCursor({300, 200}));
                }),
                ElementsAre("SetCursor 32645"));
    Release({10, 54});
    Press({168, 10});
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_TRUE(mouse.OnSetCursor({300, 200}));
                }),
                ElementsAre("SetCursor 32644"));
}

TEST_F(MouseMachineTest, DuringASelectionTheBaseSetsTheCursor) {
    Press(At(2, 2));
    EXPECT_THAT(CallsOf([&] { EXPECT_FALSE(mouse.OnSetCursor({10, 54})); }), IsEmpty());
}

TEST_F(MouseMachineTest, InGuiModeTheBaseSetsTheCursorAndInDesignModeTheFormLayer) {
    properties.GuiMode = true;
    EXPECT_THAT(CallsOf([&] { EXPECT_FALSE(mouse.OnSetCursor({10, 54})); }), IsEmpty());
    desk.designMode = true;
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_TRUE(mouse.OnSetCursor({10, 54}));
                }),
                ElementsAre("SetDesignCursor 10,54"));
    // Design mode alone leaves the sheet's cursors.
    properties.GuiMode = false;
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_TRUE(mouse.OnSetCursor({10, 54}));
                }),
                ElementsAre("SetCursor 32645"));
}

TEST_F(MouseMachineTest, AnItemDraggedOverTheSheetShowsTheArrow) {
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(mouse.OnDragOver(32769, At(3, 3)), 1); }),
                ElementsAre("SetCursor 32512"));
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_EQ(mouse.OnDragOver(32768, At(3, 3)), 0);
                    EXPECT_EQ(mouse.OnDragOver(32769, {-1, 5}), 0);
                }),
                IsEmpty());
}

// Double click.

TEST_F(MouseMachineTest, ADoubleClickFiresDblClickFirstInAllModes) {
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_FALSE(mouse.OnLButtonDblClk({10, 10}));
                }),
                ElementsAre("DblClick"));
    properties.GuiMode = true;
    EXPECT_THAT(CallsOf([&] { EXPECT_TRUE(mouse.OnLButtonDblClk(At(3, 3))); }),
                ElementsAre("DblClick"));
    desk.designMode = true;
    EXPECT_THAT(CallsOf([&] { EXPECT_TRUE(mouse.OnLButtonDblClk(At(3, 3))); }),
                ElementsAre("DblClick"));
    properties.GuiMode = false;
    EXPECT_THAT(CallsOf([&] { EXPECT_FALSE(mouse.OnLButtonDblClk(At(3, 3))); }),
                ElementsAre("DblClick"));
}

TEST_F(MouseMachineTest, ADoubleClickOnACellOpensTheEditWithTheCaretWhereTheClickWas) {
    Click(At(3, 3));
    edit.charFromPos = 2;
    EXPECT_THAT(CallsOf([&] { mouse.OnLButtonDblClk(At(3, 3)); }),
                ElementsAre("DblClick", "StartingEdit 3,3 1", "Create 268435652 170,56,229,73 1000",
                            "SetWindowText ", "Editor SetFocus", "CharFromPos 200,65", "SetSel 2,2",
                            "ScrollCaret"));
}

TEST_F(MouseMachineTest, ADoubleClickOnAReadOnlyCellOpensNoEditorAndSendsNoCaretMessage) {
    MakeReadOnly(3, 3);
    Click(At(3, 3));
    EXPECT_THAT(CallsOf([&] { mouse.OnLButtonDblClk(At(3, 3)); }), ElementsAre("DblClick"));
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(MouseMachineTest, WithAllowEditOffADoubleClickDoesNothing) {
    properties.AllowEdit = false;
    EXPECT_THAT(CallsOf([&] { mouse.OnLButtonDblClk(At(3, 3)); }), ElementsAre("DblClick"));
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(MouseMachineTest, WithAnEditOpenADoubleClickOnACellDoesNothing) {
    ASSERT_EQ(editor.StartEdit(), 1);
    EXPECT_THAT(CallsOf([&] { mouse.OnLButtonDblClk(At(3, 3)); }), ElementsAre("DblClick"));
    EXPECT_TRUE(editor.InEdit());
}

TEST_F(MouseMachineTest, ADoubleClickOnARowHeaderEditsItsTextInTheDialog) {
    properties.AllowEditHeader = false;
    desk.headerAnswer = CodePage936FromUtf8("行");
    EXPECT_THAT(CallsOf([&] {
                    mouse.OnLButtonDblClk({10, 47});
                }),
                ElementsAre("DblClick", "BeginLabelEdit 0,2 FALSE", "HeaderDialog 2",
                            "EndLabelEdit 0,2 行 FALSE", "InvalidateRowHeaderStrip 2",
                            "SetModifiedFlag TRUE", "Modified", "InvalidateControl"));
    EXPECT_EQ(store.RowHeader(2), CodePage936FromUtf8("行"));
}

TEST_F(MouseMachineTest, ADoubleClickOnAColumnHeaderEditsItsTextInTheDialog) {
    desk.headerAnswer = "\x81\x7C";
    const Lines calls = CallsOf([&] { mouse.OnLButtonDblClk({140, 10}); });
    ASSERT_GE(calls.size(), 3U);
    EXPECT_EQ(calls[1], "BeginLabelEdit 1,2 FALSE");
    EXPECT_EQ(calls[2], "HeaderDialog B");
    EXPECT_EQ(store.ColHeader(2), "\x81\x7C");
}

TEST_F(MouseMachineTest, AHeaderEditStopsAtEachRefusal) {
    desk.cancelBeginLabel = true;
    EXPECT_THAT(CallsOf([&] {
                    mouse.OnLButtonDblClk({10, 47});
                }),
                ElementsAre("DblClick", "BeginLabelEdit 0,2 FALSE"));
    desk.cancelBeginLabel = false;
    EXPECT_THAT(CallsOf([&] {
                    mouse.OnLButtonDblClk({10, 47});
                }),
                ElementsAre("DblClick", "BeginLabelEdit 0,2 FALSE", "HeaderDialog 2"));
    desk.headerAnswer = "x";
    desk.cancelEndLabel = true;
    EXPECT_THAT(CallsOf([&] {
                    mouse.OnLButtonDblClk({10, 47});
                }),
                ElementsAre("DblClick", "BeginLabelEdit 0,2 FALSE", "HeaderDialog 2",
                            "EndLabelEdit 0,2 x FALSE"));
    EXPECT_EQ(store.RowHeader(2), "2");
}

TEST_F(MouseMachineTest, TheEmptyEndsOfTheHeaderBandsHaveNoTextToEdit) {
    properties.MaxRow = 5;
    properties.MaxCol = 3;
    EXPECT_THAT(CallsOf([&] { mouse.OnLButtonDblClk({10, 280}); }), ElementsAre("DblClick"));
    EXPECT_THAT(CallsOf([&] { mouse.OnLButtonDblClk({390, 10}); }), ElementsAre("DblClick"));
}

class TitledData final : public Dataset {
  public:
    std::string GetCellValue(std::int32_t, std::int32_t) override { return {}; }
    std::int32_t GetColCount() override { return 3; }
    std::int32_t GetRowCount() override { return 3; }
    std::int32_t SetColCaption(std::int32_t col, std::string_view text) override {
        captions += std::to_string(col) + "=" + std::string(text) + ";";
        return answer;
    }
    std::string GetColName(std::int32_t) override { return "title"; }

    std::int32_t answer = 0;
    std::string captions;
};

TEST_F(MouseMachineTest, WithADatasetBoundTheNewTitleGoesToTheDataset) {
    TitledData data;
    store.BoundDataset = &data;
    desk.headerAnswer = "new";
    EXPECT_THAT(CallsOf([&] {
                    mouse.OnLButtonDblClk({140, 10});
                }),
                ElementsAre("DblClick", "BeginLabelEdit 1,2 FALSE", "HeaderDialog title",
                            "EndLabelEdit 1,2 new FALSE", "InvalidateControl"));
    EXPECT_EQ(data.captions, "2=new;");
    EXPECT_EQ(store.ColHeaderMap.Count(), 0U);
}

TEST_F(MouseMachineTest, ARefusedTitleShowsItsMessageWithTheStopIconAndRepaintsNothing) {
    TitledData data;
    data.answer = -12;
    store.BoundDataset = &data;
    desk.headerAnswer = "new";
    EXPECT_THAT(CallsOf([&] {
                    mouse.OnLButtonDblClk({140, 10});
                }),
                ElementsAre("DblClick", "BeginLabelEdit 1,2 FALSE", "HeaderDialog title",
                            "EndLabelEdit 1,2 new FALSE", "ShowMessage 16 text -12"));
}

TEST_F(MouseMachineTest, WithADatasetBoundARowHeaderStillGoesToTheSheet) {
    TitledData data;
    store.BoundDataset = &data;
    desk.headerAnswer = "new";
    mouse.OnLButtonDblClk({10, 47});
    EXPECT_EQ(store.RowHeader(2), "new");
    EXPECT_EQ(data.captions, "");
}

// GUI mode and design mode.

TEST_F(MouseMachineTest, InGuiModeOnlyTheBaseHandlersRun) {
    properties.GuiMode = true;
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_TRUE(mouse.OnLButtonDown(MkLButton, At(3, 3)));
                    mouse.OnMouseMove(MkLButton, At(4, 4));
                    mouse.OnLButtonUp(0, At(4, 4));
                }),
                IsEmpty());
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_EQ(Active(), (CellPos{1, 1}));
}

TEST_F(MouseMachineTest, InDesignModeThePressGoesToTheFormLayer) {
    properties.GuiMode = true;
    desk.designMode = true;
    desk.designPress = {.dragsObjects = true, .runsBase = true};
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_TRUE(mouse.OnLButtonDown(MkLButton | MkControl, {30, 40}));
                }),
                ElementsAre("DesignPress 9 30,40"));
    EXPECT_EQ(State(), MouseState::MouseMoveObjects);
    EXPECT_EQ(mouse.Track().m_ptPress, (Point{30, 40}));
    EXPECT_EQ(mouse.Track().m_ptLast, (Point{30, 40}));
}

TEST_F(MouseMachineTest, InDesignModeAPressOnNothingStaysIdleAndRunsNoBase) {
    desk.designMode = true;
    EXPECT_FALSE(mouse.OnLButtonDown(MkLButton, {30, 40}));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_THAT(CallsOf([&] { Drag({50, 60}); }), IsEmpty());
}

TEST_F(MouseMachineTest, InDesignModeTheObjectsFollowAndTheReleaseMovesThemUnlessCtrlIsHeld) {
    properties.GuiMode = true;
    desk.designMode = true;
    desk.designPress.dragsObjects = true;
    Press({30, 40});
    EXPECT_THAT(CallsOf([&] {
                    Drag({35, 48});
                }),
                ElementsAre("SetCursor 30987", "DrawDragRects 0,0", "DrawDragRects 5,8"));
    EXPECT_THAT(CallsOf([&] {
                    Drag({36, 48});
                }),
                ElementsAre("SetCursor 30987", "DrawDragRects 5,8", "DrawDragRects 6,8"));
    EXPECT_THAT(CallsOf([&] {
                    Release({36, 48});
                }),
                ElementsAre("MoveSelectedBy 6,8", "DrawSelectionFrame"));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    Press({30, 40});
    EXPECT_THAT(CallsOf([&] { Release({36, 48}, MkControl); }), ElementsAre("DrawSelectionFrame"));
}

TEST_F(MouseMachineTest, AbsurdPointsAreTaken) {
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    for (const Point press : {Point{10, 54}, Point{168, 10}, At(2, 2), Point{10, 10}}) {
        for (const Point to : {Point{Least, Most}, Point{Most, Least}, Point{Most, Most}}) {
            Press(press);
            Drag(to);
            Release(to);
            EXPECT_EQ(State(), MouseState::MouseIdle);
            store.RowHeightMap.RemoveAll();
            store.ColWidthMap.RemoveAll();
        }
    }
    desk.designMode = true;
    desk.designPress.dragsObjects = true;
    Press({Least, Least});
    Drag({Most, Most});
    Release({Most, Most});
    EXPECT_EQ(State(), MouseState::MouseIdle);
}

}  // namespace
}  // namespace veygrid
