// The keys of the sheet: what is taken, what goes on, and where the active cell goes.
#include "screen/KeyboardMachine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "EditDesk.h"

namespace veygrid {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr std::uint32_t WmSysKeyDown = 0x0104;
constexpr std::uint32_t WmTimer = 0x0113;
constexpr std::uint32_t KeyA = 65;

constexpr std::uint32_t NavigationKeys[] = {VkPrior, VkNext, VkEnd,   VkHome,
                                            VkLeft,  VkUp,   VkRight, VkDown};

class KeyboardMachineTest : public EditDeskTest {
  protected:
    MessageRoad Road(std::uint32_t number, MessageTarget target = MessageTarget::Control,
                     std::uint32_t key = 0) {
        return keyboard.PreTranslateMessage(
            {.number = number, .target = target, .key = key, .keyData = 7});
    }
    void OpenRefusedEdit() {
        desk.cancelEndEdit = 1;
        ASSERT_EQ(editor.StartEdit(), 1);
        edit.Type("x");
    }
    void Select(const CellRange& range) { selection.SelectionList = {range}; }
    // A sheet of five rows and columns where each cell holds its place.
    void Fill() {
        for (std::int32_t row = 1; row <= 5; ++row) {
            for (std::int32_t col = 1; col <= 5; ++col) {
                store.SetCellText(row, col, std::to_string(10 * row + col));
            }
        }
    }
};

// The table of keys.

enum class Situation { Sheet, EditOpen, GuiMode, DesignMode };

struct KeyRow {
    const char* name;
    std::uint32_t key;
    bool ctrl;
    MessageRoad sheet;
    MessageRoad editOpen;
    MessageRoad guiMode;
    MessageRoad designMode;
};

constexpr MessageRoad Goes = MessageRoad::GoOn;
constexpr MessageRoad Used = MessageRoad::UsedUp;
constexpr MessageRoad Editor = MessageRoad::ToEditor;

// Keys stand with the window that has the focus.
const KeyRow KeyRows[] = {
    {"Enter", VkReturn, false, Used, Used, Used, Used},
    {"CtrlEnter", VkReturn, true, Used, Editor, Used, Used},
    {"Tab", VkTab, false, Used, Used, Used, Used},
    {"CtrlTab", VkTab, true, Used, Editor, Used, Used},
    {"Left", VkLeft, false, Used, Goes, Goes, Used},
    {"Up", VkUp, false, Used, Goes, Goes, Used},
    {"Right", VkRight, false, Used, Goes, Goes, Used},
    {"Down", VkDown, false, Used, Goes, Goes, Used},
    {"PageUp", VkPrior, false, Used, Goes, Goes, Used},
    {"PageDown", VkNext, false, Used, Goes, Goes, Used},
    {"Home", VkHome, false, Used, Goes, Goes, Used},
    {"End", VkEnd, false, Used, Goes, Goes, Used},
    {"Delete", VkDelete, false, Used, Used, Goes, Used},
    {"Letter", KeyA, false, Goes, Goes, Goes, Used},
    {"Escape", 27, false, Goes, Goes, Goes, Used},
};

class KeyTableTest : public EditedSheet, public testing::TestWithParam<KeyRow> {
  protected:
    MessageRoad RoadIn(Situation situation) {
        desk.movesFocus = true;
        properties.GuiMode = situation == Situation::GuiMode;
        desk.designMode = situation == Situation::DesignMode;
        desk.ctrlDown = GetParam().ctrl;
        if (situation == Situation::EditOpen) {
            EXPECT_EQ(editor.StartEdit(), 1);
        }
        return KeyDown(GetParam().key);
    }
};

TEST_P(KeyTableTest, OnTheSheetWithNoEdit) {
    EXPECT_EQ(RoadIn(Situation::Sheet), GetParam().sheet);
}
TEST_P(KeyTableTest, WithAnEditOpen) {
    EXPECT_EQ(RoadIn(Situation::EditOpen), GetParam().editOpen);
    EXPECT_TRUE(editor.InEdit());
}
TEST_P(KeyTableTest, InGuiMode) {
    EXPECT_EQ(RoadIn(Situation::GuiMode), GetParam().guiMode);
    EXPECT_THAT(desk.postedKeys, IsEmpty());
}
TEST_P(KeyTableTest, InDesignMode) {
    const Lines calls =
        CallsOf([&] { EXPECT_EQ(RoadIn(Situation::DesignMode), GetParam().designMode); });
    EXPECT_EQ(calls, GetParam().key == VkDelete ? Lines{"DeleteSelectedObjects"} : Lines{});
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyTableTest, testing::ValuesIn(KeyRows),
                         [](const auto& info) { return info.param.name; });

// PreTranslateMessage.

TEST_F(KeyboardMachineTest, WithTheToolboxOpenKeysGoOnAtOnceEvenInDesignMode) {
    desk.hasToolbox = true;
    desk.designMode = true;
    for (const std::uint32_t number : {WmKeyDown, WmKeyUp, WmChar}) {
        EXPECT_EQ(Road(number, MessageTarget::Control, VkDelete), MessageRoad::GoOn);
    }
    EXPECT_EQ(Road(WmLButtonDblClk), MessageRoad::UsedUp);
}

TEST_F(KeyboardMachineTest, DesignModeUsesUpTimersDoubleClicksAndKeys) {
    desk.designMode = true;
    for (const std::uint32_t number :
         {std::uint32_t{WmTimer}, std::uint32_t{WmLButtonDblClk}, std::uint32_t{WmKeyDown},
          std::uint32_t{WmKeyUp}, std::uint32_t{WmChar}, std::uint32_t{WmImeStartComposition}}) {
        for (const MessageTarget target : {MessageTarget::Control, MessageTarget::Descendant}) {
            EXPECT_EQ(Road(number, target, KeyA), MessageRoad::UsedUp);
        }
    }
}

TEST_F(KeyboardMachineTest, DesignModeGivesTheMouseOfFormWindowsToTheControl) {
    desk.designMode = true;
    for (const std::uint32_t number :
         {WmMouseMove, WmLButtonDown, WmLButtonUp, WmRButtonDown, WmRButtonUp}) {
        EXPECT_EQ(Road(number, MessageTarget::Descendant), MessageRoad::ToControl);
        EXPECT_EQ(Road(number, MessageTarget::Editor), MessageRoad::ToControl);
        EXPECT_EQ(Road(number, MessageTarget::Control), MessageRoad::GoOn);
        EXPECT_EQ(Road(number, MessageTarget::TabOrderCanvas), MessageRoad::GoOn);
        EXPECT_EQ(Road(number, MessageTarget::Elsewhere), MessageRoad::GoOn);
    }
}

TEST_F(KeyboardMachineTest, OnTheSheetMouseAndOtherMessagesGoOn) {
    for (const std::uint32_t number :
         {std::uint32_t{WmMouseMove}, std::uint32_t{WmLButtonDown}, std::uint32_t{WmTimer},
          std::uint32_t{WmKeyUp}, 0U, 0xFFFFFFFFU}) {
        EXPECT_EQ(Road(number), MessageRoad::GoOn);
    }
}

TEST_F(KeyboardMachineTest, TabAndEnterArePostedFromWhateverWindow) {
    for (const MessageTarget target :
         {MessageTarget::Control, MessageTarget::Editor, MessageTarget::Descendant}) {
        EXPECT_THAT(CallsOf([&] {
                        EXPECT_EQ(Road(WmKeyDown, target, VkTab), MessageRoad::UsedUp);
                        EXPECT_EQ(Road(WmKeyDown, target, VkReturn), MessageRoad::UsedUp);
                    }),
                    ElementsAre("PostCtrlKeyDown 9 7", "PostCtrlKeyDown 13 7"));
    }
}

TEST_F(KeyboardMachineTest, NavigationKeysArePostedOnlyWhenAddressedToTheControl) {
    for (const std::uint32_t key : NavigationKeys) {
        EXPECT_EQ(Road(WmKeyDown, MessageTarget::Control, key), MessageRoad::UsedUp);
        EXPECT_EQ(Road(WmKeyDown, MessageTarget::Editor, key), MessageRoad::GoOn);
        EXPECT_EQ(Road(WmKeyDown, MessageTarget::Descendant, key), MessageRoad::GoOn);
    }
    EXPECT_EQ(desk.postedKeys.size(), 8U);
}

TEST_F(KeyboardMachineTest, CtrlWithoutAnEditorChangesNothingForEnter) {
    desk.ctrlDown = true;
    EXPECT_EQ(Road(WmKeyDown, MessageTarget::Control, VkReturn), MessageRoad::UsedUp);
    EXPECT_EQ(desk.postedKeys.size(), 1U);
}

TEST_F(KeyboardMachineTest, KeysTypedWithTheAltKeyHeldAreNotSpecialCased) {
    desk.altDown = true;
    EXPECT_EQ(Road(WmKeyDown, MessageTarget::Control, VkDown), MessageRoad::UsedUp);
    EXPECT_EQ(Road(WmKeyDown, MessageTarget::Control, VkReturn), MessageRoad::UsedUp);
    EXPECT_EQ(Road(WmSysKeyDown, MessageTarget::Control, VkDown), MessageRoad::GoOn);
}

TEST_F(KeyboardMachineTest, InGuiModeTabGoesOnWhenTheFocusStayed) {
    properties.GuiMode = true;
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_EQ(Road(WmKeyDown, MessageTarget::Descendant, VkTab), MessageRoad::GoOn);
                    EXPECT_EQ(Road(WmKeyUp, MessageTarget::Descendant, VkTab), MessageRoad::GoOn);
                }),
                ElementsAre("FocusNextObject"));
}

TEST_F(KeyboardMachineTest, TwoFastKeysAreHandledInOrder) {
    KeyDown(VkDown);
    KeyDown(VkRight);
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    EXPECT_EQ(Pump(), 1);
    EXPECT_EQ(Active(), (CellPos{2, 2}));
}

// VeynorGrid_CtrlKeyMsg.

TEST_F(KeyboardMachineTest, CtrlKeyMsgPostsTheKeysOfTheSheetAndReturns1) {
    for (const std::uint32_t key : NavigationKeys) {
        EXPECT_EQ(keyboard.OnCtrlKeyMsg(key, 7), 1);
    }
    EXPECT_EQ(keyboard.OnCtrlKeyMsg(VkTab, 7), 1);
    EXPECT_EQ(keyboard.OnCtrlKeyMsg(VkReturn, 7), 1);
    EXPECT_EQ(desk.postedKeys.size(), 10U);
    for (const std::uint32_t key : {std::uint32_t{VkDelete}, KeyA, 0U, 32U, 41U, 0xFFFFFFFFU}) {
        EXPECT_EQ(keyboard.OnCtrlKeyMsg(key, 7), 0);
    }
    EXPECT_EQ(desk.postedKeys.size(), 10U);
}

TEST_F(KeyboardMachineTest, CtrlKeyMsgWithAnEditorAndCtrlHeldReturns0ForTabAndEnterOnly) {
    ASSERT_EQ(editor.StartEdit(), 1);
    desk.ctrlDown = true;
    EXPECT_EQ(keyboard.OnCtrlKeyMsg(VkTab, 7), 0);
    EXPECT_EQ(keyboard.OnCtrlKeyMsg(VkReturn, 7), 0);
    EXPECT_EQ(keyboard.OnCtrlKeyMsg(VkDown, 7), 1);
    EXPECT_EQ(desk.postedKeys.size(), 1U);
}

TEST_F(KeyboardMachineTest, CtrlKeyMsgInGuiModeReturnsTheResultOfFocusNextObject) {
    properties.GuiMode = true;
    EXPECT_EQ(keyboard.OnCtrlKeyMsg(KeyA, 7), 0);
    desk.movesFocus = true;
    EXPECT_EQ(keyboard.OnCtrlKeyMsg(KeyA, 7), 1);
    EXPECT_THAT(desk.postedKeys, IsEmpty());
}

// VeynorGrid_CtrlKeyDown.

TEST_F(KeyboardMachineTest, TheArrowsMoveTheActiveCell) {
    selection.SetActiveCell(5, 3);
    EXPECT_EQ(KeyStroke(VkLeft), 1);
    EXPECT_EQ(Active(), (CellPos{5, 2}));
    EXPECT_EQ(KeyStroke(VkUp), 1);
    EXPECT_EQ(Active(), (CellPos{4, 2}));
    EXPECT_EQ(KeyStroke(VkRight), 1);
    EXPECT_EQ(Active(), (CellPos{4, 3}));
    EXPECT_EQ(KeyStroke(VkDown), 1);
    EXPECT_EQ(Active(), (CellPos{5, 3}));
}

TEST_F(KeyboardMachineTest, HomeAndEndDoNothing) {
    selection.SetActiveCell(5, 3);
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(KeyStroke(VkHome), 1); }),
                ElementsAre("PostCtrlKeyDown 36 7"));
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(KeyStroke(VkEnd), 1); }),
                ElementsAre("PostCtrlKeyDown 35 7"));
}

TEST_F(KeyboardMachineTest, APageKeyMovesTheViewAndNotTheActiveCell) {
    EXPECT_THAT(
        CallsOf([&] { EXPECT_EQ(KeyStroke(VkNext), 1); }),
        ElementsAre("PostCtrlKeyDown 34 7", "WM_VSCROLL 3", "SetFocus", "InvalidateControl"));
    EXPECT_EQ(layout.FirstVisibleRow, 16);
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(KeyStroke(VkPrior), 1); }), Contains("WM_VSCROLL 2"));
    EXPECT_EQ(layout.FirstVisibleRow, 1);
}

TEST_F(KeyboardMachineTest, ShiftAndTheSelectionListArePassedBy) {
    Select({3, 3, 4, 4});
    KeyStroke(VkDown);
    EXPECT_EQ(Active(), (CellPos{2, 1}));
    EXPECT_EQ(selection.SelectionList.size(), 1U);
}

TEST_F(KeyboardMachineTest, EnterCommitsAnOpenEditAndMoves) {
    ASSERT_EQ(editor.StartEdit(), 1);
    edit.Type("x");
    EXPECT_EQ(KeyStroke(VkReturn), 1);
    EXPECT_EQ(store.CellText(1, 1), "x");
    EXPECT_EQ(Active(), (CellPos{2, 1}));
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(KeyboardMachineTest, TabCommitsAnOpenEditAndMovesRight) {
    ASSERT_EQ(editor.StartEdit(), 1);
    edit.Type("x");
    EXPECT_EQ(KeyStroke(VkTab), 1);
    EXPECT_EQ(store.CellText(1, 1), "x");
    EXPECT_EQ(Active(), (CellPos{1, 2}));
}

TEST_F(KeyboardMachineTest, MovingOffWithEnterOrTabOnARefusedTextKeepsTheActiveCellAndReturns0) {
    OpenRefusedEdit();
    EXPECT_EQ(KeyStroke(VkReturn), 0);
    EXPECT_EQ(KeyStroke(VkTab), 0);
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(desk.focus, Focus::Editor);
    EXPECT_EQ(edit.Content(), "x");
}

TEST_F(KeyboardMachineTest, WithAnEditOpenAPostedArrowDoesNothingAndReturns1) {
    ASSERT_EQ(editor.StartEdit(), 1);
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(keyboard.OnCtrlKeyDown(VkDown), 1); }), IsEmpty());
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(keyboard.OnCtrlKeyDown(VkNext), 1); }), IsEmpty());
}

TEST_F(KeyboardMachineTest, AnUnknownPostedKeyReturns1) {
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(keyboard.OnCtrlKeyDown(KeyA), 1); }), IsEmpty());
    EXPECT_EQ(keyboard.OnCtrlKeyDown(0xFFFFFFFFU), 1);
}

TEST_F(KeyboardMachineTest, InGuiModeUpAndDownMoveWithoutScrollOrEdit) {
    properties.GuiMode = true;
    properties.AlwaysOnEdit = true;
    EXPECT_THAT(
        CallsOf([&] { keyboard.OnCtrlKeyDown(VkDown); }),
        ElementsAre("CellSelChanging 2,1 1", "SendCellSelChange 2,1", "PostCellSelChange 2,1"));
    EXPECT_EQ(Active(), (CellPos{2, 1}));
    EXPECT_FALSE(editor.InEdit());
}

// MoveActiveCell.

struct MoveRow {
    const char* name;
    CellMovement movement;
    bool enterGoDown;
    CellPos from;
    CellPos to;
    bool goesOn;  // the rest of the function runs
};

class MoveTableTest : public EditedSheet, public testing::TestWithParam<MoveRow> {};

TEST_P(MoveTableTest, OnASheetOf50RowsAnd20Columns) {
    const MoveRow& row = GetParam();
    properties.EnterGoDown = row.enterGoDown;
    store.ActiveRow = row.from.Row;
    store.ActiveCol = row.from.Col;
    selection.DragRange = {1, 1, 2, 2};
    const Lines calls = CallsOf([&] { keyboard.MoveActiveCell(row.movement); });
    EXPECT_EQ(Active(), row.to);
    EXPECT_EQ(!calls.empty(), row.goesOn);
    EXPECT_TRUE(selection.DragRange.IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Codes, MoveTableTest,
    testing::Values(
        MoveRow{"EnterDown", CellMovement::Enter, true, {3, 4}, {4, 4}, true},
        MoveRow{"EnterDownAtTheEnd", CellMovement::Enter, true, {50, 4}, {50, 4}, true},
        MoveRow{"EnterDownBeyondTheEnd", CellMovement::Enter, true, {60, 4}, {60, 4}, true},
        MoveRow{"EnterRight", CellMovement::Enter, false, {3, 4}, {3, 5}, true},
        MoveRow{"EnterRightAtTheEnd", CellMovement::Enter, false, {3, 20}, {3, 20}, true},
        MoveRow{"Right", CellMovement::Right, true, {3, 4}, {3, 5}, true},
        MoveRow{"RightAtTheEnd", CellMovement::Right, true, {3, 20}, {3, 20}, false},
        MoveRow{"RightBeyondTheEnd", CellMovement::Right, true, {3, 21}, {3, 21}, false},
        MoveRow{"Up", CellMovement::Up, true, {3, 4}, {2, 4}, true},
        MoveRow{"UpAtTheTop", CellMovement::Up, true, {1, 4}, {1, 4}, false},
        MoveRow{"UpAtRow0", CellMovement::Up, true, {0, 4}, {0, 4}, false},
        MoveRow{"Down", CellMovement::Down, true, {3, 4}, {4, 4}, true},
        MoveRow{"DownAtTheEnd", CellMovement::Down, true, {50, 4}, {50, 4}, false},
        MoveRow{"Left", CellMovement::Left, true, {3, 4}, {3, 3}, true},
        MoveRow{"LeftAtTheStart", CellMovement::Left, true, {3, 1}, {3, 1}, false}),
    [](const auto& info) { return info.param.name; });

TEST_F(KeyboardMachineTest, EnterAtTheLastRowWithEnterGoDownDoesNotMoveAndReopensTheEdit) {
    properties.AlwaysOnEdit = true;
    properties.MaxRow = 3;
    selection.SetActiveCell(3, 2);
    EXPECT_EQ(KeyStroke(VkReturn), 1);
    EXPECT_EQ(Active(), (CellPos{3, 2}));
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(editor.EditRow, 3);
}

TEST_F(KeyboardMachineTest, RightAtTheLastColumnDoesNothingAndReopensNoEdit) {
    properties.AlwaysOnEdit = true;
    properties.MaxCol = 3;
    selection.SetActiveCell(2, 3);
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(keyboard.OnCtrlKeyDown(VkRight), 1); }), IsEmpty());
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(KeyboardMachineTest, TabAtTheLastColumnStaysThereWithNoWrap) {
    properties.MaxCol = 3;
    selection.SetActiveCell(2, 3);
    EXPECT_EQ(KeyStroke(VkTab), 1);
    EXPECT_EQ(Active(), (CellPos{2, 3}));
}

TEST_F(KeyboardMachineTest, RightSkipsReadOnlyCellsAndLeftDoesNot) {
    MakeReadOnly(2, 2);
    MakeReadOnly(0, 3);
    selection.SetActiveCell(2, 1);
    keyboard.MoveActiveCell(CellMovement::Right);
    EXPECT_EQ(Active(), (CellPos{2, 4}));
    keyboard.MoveActiveCell(CellMovement::Left);
    EXPECT_EQ(Active(), (CellPos{2, 3}));
}

TEST_F(KeyboardMachineTest, EnterToTheRightSkipsReadOnlyCells) {
    properties.EnterGoDown = false;
    MakeReadOnly(1, 2);
    KeyStroke(VkReturn);
    EXPECT_EQ(Active(), (CellPos{1, 3}));
}

TEST_F(KeyboardMachineTest, RightWithAllLaterColumnsReadOnlyLandsOnTheNextColumn) {
    store.DefCellFormat.SetReadOnly(true);
    keyboard.MoveActiveCell(CellMovement::Right);
    EXPECT_EQ(Active(), (CellPos{1, 2}));
}

TEST_F(KeyboardMachineTest, NextEditableColReturnsTheFirstOr0) {
    EXPECT_EQ(keyboard.NextEditableCol(1, 3), 3);
    EXPECT_EQ(keyboard.NextEditableCol(1, 20), 20);
    EXPECT_EQ(keyboard.NextEditableCol(1, 21), 0);
    MakeReadOnly(0, 3);
    EXPECT_EQ(keyboard.NextEditableCol(1, 3), 4);
    MakeReadOnly(1, 0);
    EXPECT_EQ(keyboard.NextEditableCol(1, 4), 0);
    EXPECT_EQ(keyboard.NextEditableCol(2, 4), 4);
    store.StoreCellFormat(1, 17, CCellFormat());
    store.StoreCellFormat(0, 12, CCellFormat());
    EXPECT_EQ(keyboard.NextEditableCol(1, 4), 12);
    EXPECT_EQ(keyboard.NextEditableCol(1, 13), 17);
}

TEST_F(KeyboardMachineTest, NextEditableColAgreesWithALookAtEachColumn) {
    std::uint32_t seed = 4711;
    const auto next = [&seed](std::uint32_t below) {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<std::int32_t>((seed >> 8U) % below);
    };
    for (std::int32_t round = 0; round < 500; ++round) {
        store.CellFormatMap.RemoveAll();
        store.DefCellFormat.SetReadOnly(next(3) != 0);
        for (std::int32_t records = next(6); records > 0; --records) {
            CCellFormat format;
            format.SetReadOnly(next(2) == 0);
            store.StoreCellFormat(next(3), next(24), format);
        }
        for (std::int32_t col = 1; col <= 21; ++col) {
            std::int32_t expected = 0;
            for (std::int32_t at = 20; at >= col; --at) {
                expected = store.EffectiveFormat(1, at).GetReadOnly() ? expected : at;
            }
            ASSERT_EQ(keyboard.NextEditableCol(1, col), expected) << round << " " << col;
        }
    }
}

TEST_F(KeyboardMachineTest, AReadOnlySheetOfAllColumnsThereAreIsNotWalked) {
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    properties.MaxCol = Most;
    store.DefCellFormat.SetReadOnly(true);
    EXPECT_EQ(keyboard.NextEditableCol(1, 2), 0);
    store.StoreCellFormat(0, Most, CCellFormat());
    EXPECT_EQ(keyboard.NextEditableCol(1, 2), Most);
    store.ActiveCol = Most - 1;
    keyboard.MoveActiveCell(CellMovement::Right);
    EXPECT_EQ(Active(), (CellPos{1, Most}));
}

TEST_F(KeyboardMachineTest, ARefusedMoveStillScrollsAndReopens) {
    properties.AlwaysOnEdit = true;
    desk.allowChange = 0;
    layout.FirstVisibleRow = 4;
    const Lines calls = CallsOf([&] { keyboard.MoveActiveCell(CellMovement::Down); });
    EXPECT_THAT(calls, Contains("WM_VSCROLL 0"));
    EXPECT_EQ(Active(), (CellPos{1, 1}));
    EXPECT_TRUE(editor.InEdit());
}

TEST_F(KeyboardMachineTest, OneLineInOneDirectionBringsTheActiveCellNearer) {
    const auto scrollsAt = [&](CellPos active, CellPos first) {
        store.ActiveRow = active.Row;
        store.ActiveCol = active.Col;
        layout.FirstVisibleRow = first.Row;
        layout.FirstVisibleCol = first.Col;
        Lines calls = CallsOf([&] { keyboard.MoveActiveCell(CellMovement::Enter); });
        std::erase_if(calls, [](const std::string& line) { return line.find("WM_") != 0; });
        return calls;
    };
    EXPECT_THAT(scrollsAt({3, 3}, {1, 1}), IsEmpty());
    EXPECT_THAT(scrollsAt({15, 9}, {1, 1}), ElementsAre("WM_VSCROLL 1"));
    EXPECT_THAT(scrollsAt({40, 9}, {1, 1}), ElementsAre("WM_VSCROLL 1"));
    EXPECT_THAT(scrollsAt({3, 3}, {9, 9}), ElementsAre("WM_VSCROLL 0"));
    EXPECT_THAT(scrollsAt({3, 6}, {1, 1}), ElementsAre("WM_HSCROLL 1"));
    EXPECT_THAT(scrollsAt({3, 3}, {1, 9}), ElementsAre("WM_HSCROLL 0"));
}

TEST_F(KeyboardMachineTest, AlwaysOnEditNeedsAllowEditToo) {
    properties.AlwaysOnEdit = true;
    properties.AllowEdit = false;
    keyboard.MoveActiveCell(CellMovement::Down);
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(KeyboardMachineTest, MoveActiveCellIgnoresNumbersThatAreNoCode) {
    EXPECT_THAT(CallsOf([&] { keyboard.MoveActiveCell(static_cast<CellMovement>(99)); }),
                IsEmpty());
}

// The Delete key.

TEST_F(KeyboardMachineTest, DeleteWithAnEmptyListClearsTextAndFormatOfTheActiveCell) {
    Fill();
    MakeReadOnly(2, 2);
    selection.SetActiveCell(2, 2);
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(KeyDown(VkDelete), MessageRoad::UsedUp); }),
                ElementsAre("InvalidateControl", "SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.CellText(2, 2), "");
    EXPECT_FALSE(store.EffectiveFormat(2, 2).GetReadOnly());
    EXPECT_EQ(store.CellText(2, 3), "23");
}

TEST_F(KeyboardMachineTest, DeleteWithAWholeSheetSelectionClearsTextAndFormatsButKeepsTheRows) {
    Fill();
    MakeReadOnly(0, 0);
    store.SetRowHeight(2, 40);
    Select(CellRange::WholeSheet());
    KeyDown(VkDelete);
    EXPECT_TRUE(store.CellTextMap.IsEmpty());
    EXPECT_TRUE(store.CellFormatMap.IsEmpty());
    EXPECT_EQ(store.RowHeight(2), 40);
    EXPECT_EQ(properties.MaxRow, 50);
}

TEST_F(KeyboardMachineTest, DeleteWithWholeRowsDeletesThemWithoutAQuestion) {
    Fill();
    Select({2, 0, 3, 0});
    EXPECT_THAT(CallsOf([&] { KeyDown(VkDelete); }),
                ElementsAre("InvalidateControl", "SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.CellText(2, 1), "41");
    EXPECT_EQ(properties.MaxRow, 49);
}

TEST_F(KeyboardMachineTest, DeleteWithWholeColumnsDeletesThem) {
    Fill();
    Select({0, 2, 0, 4});
    KeyDown(VkDelete);
    EXPECT_EQ(store.CellText(1, 2), "15");
    EXPECT_EQ(properties.MaxCol, 20);
}

TEST_F(KeyboardMachineTest, DeleteWithARangeThatTouchesColumn0DeletesItsRows) {
    Fill();
    Select({2, 0, 2, 4});
    KeyDown(VkDelete);
    EXPECT_EQ(store.CellText(2, 1), "31");
}

TEST_F(KeyboardMachineTest, DeleteWithABlockExchangesTheLastRowAndColumn) {
    Fill();
    // Rows 2 to 4 of column 1 are selected; rows 2 to 1 of columns 1 to 4 match nothing.
    Select({2, 1, 4, 1});
    KeyDown(VkDelete);
    EXPECT_EQ(store.CellTextMap.Count(), 25U);
    // Rows 1 to 2 of columns 1 to 4 are selected; rows 1 to 4 of columns 1 to 2 go.
    Select({1, 1, 2, 4});
    KeyDown(VkDelete);
    EXPECT_EQ(store.CellTextMap.Count(), 17U);
    EXPECT_EQ(store.CellText(4, 2), "");
    EXPECT_EQ(store.CellText(1, 3), "13");
}

TEST_F(KeyboardMachineTest, DeleteNormalisesTheFirstRecord) {
    Fill();
    Select({3, 0, 2, 0});
    KeyDown(VkDelete);
    EXPECT_EQ(store.CellText(2, 1), "41");
}

TEST_F(KeyboardMachineTest, DeleteWithSeveralSelectionRecordsTouchesOnlyTheFirst) {
    Fill();
    selection.SelectionList = {{1, 1, 1, 1}, {2, 2, 2, 2}, {3, 0, 3, 0}};
    KeyDown(VkDelete);
    EXPECT_EQ(store.CellText(1, 1), "");
    EXPECT_EQ(store.CellTextMap.Count(), 24U);
    EXPECT_EQ(selection.SelectionList.size(), 3U);
}

TEST_F(KeyboardMachineTest, DeleteWithAllowEditOffGoesOn) {
    properties.AllowEdit = false;
    Fill();
    EXPECT_EQ(KeyDown(VkDelete), MessageRoad::GoOn);
    EXPECT_EQ(store.CellTextMap.Count(), 25U);
}

TEST_F(KeyboardMachineTest, DeleteInAnOpenEditorClearsTheCellAndTheEditorStaysWithItsText) {
    Fill();
    ASSERT_EQ(editor.StartEdit(), 1);
    EXPECT_EQ(KeyDown(VkDelete), MessageRoad::UsedUp);
    EXPECT_EQ(store.CellText(1, 1), "");
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(edit.Content(), "11");
}

// Characters.

TEST_F(KeyboardMachineTest, ACharacterOpensAnEditAndReplacesTheText) {
    store.SetCellText(1, 1, "old");
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(Type("n"), MessageRoad::ToEditor); }),
                ElementsAre("StartingEdit 1,1 1", "Create 268435652 50,20,109,37 1000",
                            "SetWindowText old", "Editor SetFocus", "SetWindowText "));
    EXPECT_EQ(edit.Content(), "n");
    EXPECT_EQ(Type("e"), MessageRoad::GoOn);
    EXPECT_EQ(edit.Content(), "ne");
    EXPECT_EQ(KeyStroke(VkReturn), 1);
    EXPECT_EQ(store.CellText(1, 1), "ne");
}

TEST_F(KeyboardMachineTest, AKeyTypedOnAReadOnlyCellGoesToTheBaseHandlerAndTheTextIsNotTouched) {
    store.SetCellText(1, 1, "old");
    MakeReadOnly(1, 1);
    EXPECT_EQ(Type("n"), MessageRoad::GoOn);
    EXPECT_FALSE(editor.InEdit());
    EXPECT_EQ(store.CellText(1, 1), "old");
}

TEST_F(KeyboardMachineTest, AKeyThatTheHostRefusesGoesOn) {
    desk.allowEdit = 0;
    EXPECT_EQ(Type("n"), MessageRoad::GoOn);
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(KeyboardMachineTest, WithAllowEditOffACharacterGoesOnAndWithAnEditOpenItIsReaddressed) {
    properties.AllowEdit = false;
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(Type("n"), MessageRoad::GoOn); }), IsEmpty());
    ASSERT_EQ(editor.StartEdit(), 1);
    desk.focus = Focus::Control;
    EXPECT_EQ(Type("n"), MessageRoad::ToEditor);
    EXPECT_EQ(edit.Content(), "n");
}

TEST_F(KeyboardMachineTest, ACharacterForAnotherWindowGoesOn) {
    EXPECT_EQ(Pass({.number = WmChar, .target = MessageTarget::Descendant, .text = "n"}),
              MessageRoad::GoOn);
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(KeyboardMachineTest, InGuiModeACharacterGoesOn) {
    properties.GuiMode = true;
    EXPECT_EQ(Type("n"), MessageRoad::GoOn);
    EXPECT_EQ(Pass({.number = WmImeStartComposition}), MessageRoad::GoOn);
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(KeyboardMachineTest, AHostThatOpensAnEditInsideStartingEditAndRefusesOpensNone) {
    desk.allowEdit = 0;
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::StartingEdit) {
            editor.StartEdit();
        }
    };
    EXPECT_EQ(Type("n"), MessageRoad::GoOn);
    EXPECT_FALSE(editor.InEdit());
}

// Two-byte characters and input methods.

constexpr const char* TwoByteTexts[] = {"\x81\x7C", "\x95\x7E", "\x81\x41", "\x8B\x5C",
                                        "\x81\x7B", "\x81\x7D", "\xD6\xD0", "\xFE\xFE"};

TEST_F(KeyboardMachineTest, ATwoByteCharacterOpensTheEditAndIsKept) {
    for (const std::string text : TwoByteTexts) {
        EXPECT_EQ(Type(text), MessageRoad::ToEditor);
        EXPECT_EQ(edit.Content(), text);
        EXPECT_EQ(editor.EndEdit(), 1);
        EXPECT_EQ(store.CellText(1, 1), text);
    }
}

TEST_F(KeyboardMachineTest, ALeadByteAndItsTrailByteOneByOneBothReachTheEditor) {
    for (const std::string text : TwoByteTexts) {
        // Both were made while the control had the focus.
        const KeyboardMessage lead{.number = WmChar, .text = text.substr(0, 1)};
        const KeyboardMessage trail{.number = WmChar, .text = text.substr(1)};
        EXPECT_EQ(Pass(lead), MessageRoad::ToEditor);
        EXPECT_EQ(Pass(trail), MessageRoad::ToEditor);
        EXPECT_EQ(edit.Content(), text);
        EXPECT_EQ(editor.EndEdit(), 1);
        EXPECT_EQ(store.CellText(1, 1), text);
    }
}

TEST_F(KeyboardMachineTest,
       ACompositionThatStartsOnTheSheetOpensAnEditAndItsFirstCharacterReplacesTheText) {
    store.SetCellText(1, 1, "old");
    EXPECT_EQ(Pass({.number = WmImeStartComposition}), MessageRoad::ToEditor);
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(edit.Content(), "old");
    EXPECT_EQ(Pass({.number = WmImeComposition}), MessageRoad::ToEditor);
    // The first character and those behind it.
    EXPECT_EQ(Pass({.number = WmImeChar, .text = "\xD6\xD0"}), MessageRoad::ToEditor);
    EXPECT_EQ(Pass({.number = WmChar, .text = "\xB9\xFA"}), MessageRoad::ToEditor);
    EXPECT_EQ(Pass({.number = WmImeEndComposition}), MessageRoad::ToEditor);
    EXPECT_EQ(edit.Content(), "\xD6\xD0\xB9\xFA");
    EXPECT_EQ(KeyStroke(VkReturn), 1);
    EXPECT_EQ(store.CellText(1, 1), CodePage936FromUtf8("中国"));
}

TEST_F(KeyboardMachineTest, AnAbandonedCompositionLeavesTheCellAsItWas) {
    store.SetCellText(1, 1, "old");
    EXPECT_EQ(Pass({.number = WmImeStartComposition}), MessageRoad::ToEditor);
    EXPECT_EQ(Pass({.number = WmImeEndComposition}), MessageRoad::ToEditor);
    EXPECT_EQ(edit.Content(), "old");
    EXPECT_EQ(KeyStroke(VkReturn), 1);
    EXPECT_EQ(store.CellText(1, 1), "old");
}

TEST_F(KeyboardMachineTest, ACommitTakesAnOpenCompositionAlong) {
    ASSERT_EQ(editor.StartEdit(), 1);
    edit.Type("a");
    edit.composition = "ni";
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(store.CellText(1, 1), "ani");
}

TEST_F(KeyboardMachineTest, ACompositionThatIsRefusedGoesOnAsItWas) {
    MakeReadOnly(1, 1);
    EXPECT_EQ(Pass({.number = WmImeStartComposition}), MessageRoad::GoOn);
    EXPECT_EQ(Pass({.number = WmImeComposition}), MessageRoad::GoOn);
    EXPECT_EQ(Pass({.number = WmImeEndComposition}), MessageRoad::GoOn);
    selection.SetActiveCell(2, 2);
    properties.AllowEdit = false;
    EXPECT_EQ(Pass({.number = WmImeStartComposition}), MessageRoad::GoOn);
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(KeyboardMachineTest, ACompositionInTheEditorIsTheEditorsOwn) {
    ASSERT_EQ(editor.StartEdit(), 1);
    for (const std::uint32_t number :
         {WmImeStartComposition, WmImeComposition, WmImeEndComposition, WmImeChar}) {
        EXPECT_EQ(Road(number, MessageTarget::Editor), MessageRoad::GoOn);
    }
}

TEST_F(KeyboardMachineTest, ACharacterThatTheCodePageLacksIsRefusedWithABeepAndTouchesNothing) {
    store.SetCellText(1, 1, "old");
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_EQ(Pass({.number = WmChar, .text = TypedText(u'\u0E01')}),
                              MessageRoad::UsedUp);
                    EXPECT_EQ(Pass({.number = WmImeChar, .text = TypedText(u'\u0E01')}),
                              MessageRoad::UsedUp);
                }),
                ElementsAre("MessageBeep", "MessageBeep"));
    EXPECT_FALSE(editor.InEdit());
    EXPECT_EQ(store.CellText(1, 1), "old");
}

TEST_F(KeyboardMachineTest, ACharacterThatTheCodePageLacksGoesOnWhereNothingIsTyped) {
    properties.AllowEdit = false;
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(Type(""), MessageRoad::GoOn); }), IsEmpty());
}

TEST_F(KeyboardMachineTest, TypedTextGivesOneOrTwoBytesOrNothing) {
    EXPECT_EQ(TypedText(u'a'), "a");
    EXPECT_EQ(TypedText(u'\0'), std::string(1, '\0'));
    EXPECT_EQ(TypedText(u'中'), "\xD6\xD0");
    EXPECT_EQ(TypedText(u'?'), "?");
    EXPECT_EQ(TypedText(u'\u0E01'), "");
    // The halves of a pair, as they come one by one.
    EXPECT_EQ(TypedText(static_cast<char16_t>(0xD83D)), "");
    EXPECT_EQ(TypedText(static_cast<char16_t>(0xDE00)), "");
}

}  // namespace
}  // namespace veygrid
