// The in-cell editor: opening, commit by the loss of the focus, refusal, hosts that call back.
#include "screen/CellEditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EditDesk.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int16_t IntegerType = 1;
const std::string RefusedLine = "ShowMessage 64 输入的数据非法!";

class CellEditorTest : public EditDeskTest {
  protected:
    // As a user types: the whole text goes into the open editor.
    void OpenAndType(const std::string& text) {
        ASSERT_EQ(editor.StartEdit(), 1);
        edit.Type(text);
    }
};

TEST_F(CellEditorTest, StartEditOpensOnTheRectangleOfTheActiveCellAndTakesTheFocus) {
    store.SetCellText(2, 3, "abc");
    selection.SetActiveCell(2, 3);
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.StartEdit(), 1); }),
                ElementsAre("StartingEdit 2,3 1", "Create 268435652 170,38,229,55 1000",
                            "SetWindowText abc", "Editor SetFocus"));
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(editor.EditRow, 2);
    EXPECT_EQ(editor.EditCol, 3);
    EXPECT_EQ(desk.focus, Focus::Editor);
}

TEST_F(CellEditorTest, TheStyleIsVisibleMultilineAndScrollsByItself) {
    EXPECT_EQ(CellEditor::Style, 0x10000000U + 0x4U + 0x40U + 0x80U);
    EXPECT_EQ(CellEditor::ChildId, 1000);
}

TEST_F(CellEditorTest, AReadOnlyCellAtStartEditReturns0WithNoEventAndNoMessage) {
    MakeReadOnly(1, 1);
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.StartEdit(), 0); }), IsEmpty());
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(CellEditorTest, AHostThatSetsAllowEditTo0Returns0WithNoMessage) {
    desk.allowEdit = 0;
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.StartEdit(), 0); }),
                ElementsAre("StartingEdit 1,1 1"));
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(CellEditorTest, AWindowThatCannotBeMadeReturns0AndLeavesNoEdit) {
    edit.makesWindow = false;
    EXPECT_EQ(editor.StartEdit(), 0);
    EXPECT_FALSE(editor.InEdit());
    EXPECT_EQ(desk.focus, Focus::Control);
}

TEST_F(CellEditorTest, EndEditWithNoEditOpenReturns1) {
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.EndEdit(), 1); }), IsEmpty());
}

TEST_F(CellEditorTest, OpeningAndClosingWithNoChangeLeavesTextFlagAndLogAndFiresNoEvent) {
    store.SetCellText(1, 1, "old");
    properties.ModifiedLog = 3;
    ASSERT_EQ(editor.StartEdit(), 1);
    EXPECT_THAT(CallsOf([&] { desk.SetFocus(); }),
                ElementsAre("SetFocus", "EN_KILLFOCUS", "WM_CLOSE"));
    EXPECT_EQ(store.CellText(1, 1), "old");
    EXPECT_TRUE(store.Log.IsEmpty());
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(CellEditorTest, AnUntouchedTextIsNotValidated) {
    SetDataType(1, 1, IntegerType);
    store.SetCellText(1, 1, "no number");
    ASSERT_EQ(editor.StartEdit(), 1);
    EXPECT_EQ(editor.EndEdit(), 1);
}

TEST_F(CellEditorTest, RetypingTheSameTextCountsAsAChange) {
    store.SetCellText(1, 1, "x");
    properties.ModifiedLog = 3;
    ASSERT_EQ(editor.StartEdit(), 1);
    editor.EmptyText();
    edit.Type("x");
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.EndEdit(), 1); }),
                ElementsAre("EndEdit 1,1 x 0", "InvalidateCell 1,1", "PostCellSelChange 1,1",
                            "SetModifiedFlag TRUE", "Modified", "WM_CLOSE", "EN_KILLFOCUS"));
    EXPECT_FALSE(store.Log.IsEmpty());
}

TEST_F(CellEditorTest, RetypingTheSameTextRunsTheCheckTooAndIsRefusedWhereItNoLongerPasses) {
    store.SetCellText(1, 1, "no number");
    SetDataType(1, 1, IntegerType);
    properties.ModifiedLog = 3;
    ASSERT_EQ(editor.StartEdit(), 1);
    editor.EmptyText();
    edit.Type("no number");
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.EndEdit(), 0); }),
                ElementsAre("EndEdit 1,1 no number 0"));
    EXPECT_TRUE(editor.InEdit());
    EXPECT_TRUE(store.Log.IsEmpty());
    EXPECT_EQ(store.CellText(1, 1), "no number");
}

TEST_F(CellEditorTest, ACommitLogsType3OrType2InABoundQuery) {
    properties.ModifiedLog = 3;
    OpenAndType("a");
    EXPECT_EQ(editor.EndEdit(), 1);
    store.QueryBound = true;
    selection.SetActiveCell(2, 1);
    OpenAndType("b");
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(*store.Log.ModifiedLogMap.Find({1, 1}), 3);
    EXPECT_EQ(*store.Log.ModifiedLogMap.Find({2, 1}), 2);
}

TEST_F(CellEditorTest, TheEventNamesTheActiveCellWhileTheTextGoesToTheCellOfTheEdit) {
    OpenAndType("v");
    selection.SetActiveCell(4, 5);
    const Lines calls = CallsOf([&] { EXPECT_EQ(editor.EndEdit(), 1); });
    EXPECT_EQ(calls.front(), "EndEdit 4,5 v 0");
    EXPECT_EQ(store.CellText(1, 1), "v");
    EXPECT_EQ(store.CellText(4, 5), "");
}

TEST_F(CellEditorTest, ACellWhoseRawTextDiffersFromItsShownTextOpensWithTheRawText) {
    store.SetColType(1, 3);
    store.SetCellText(1, 1, "20030805");
    ASSERT_EQ(editor.StartEdit(), 1);
    EXPECT_EQ(edit.Content(), "20030805");
}

TEST_F(CellEditorTest, ATextThatPassesIsStoredAsTypedBlanksIncluded) {
    SetDataType(1, 1, IntegerType);
    OpenAndType(" 007 ");
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(store.CellText(1, 1), " 007 ");
}

TEST_F(CellEditorTest, ARefusedTextShowsOneMessageAndGivesTheFocusBack) {
    SetDataType(1, 1, IntegerType);
    store.SetCellText(1, 1, "5");
    OpenAndType("x");
    EXPECT_THAT(CallsOf([&] { desk.SetFocus(); }),
                ElementsAre("SetFocus", "EN_KILLFOCUS", "EndEdit 1,1 5x 0", RefusedLine,
                            "Editor SetFocus"));
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(desk.focus, Focus::Editor);
    EXPECT_EQ(edit.Content(), "5x");
    EXPECT_EQ(store.CellText(1, 1), "5");
}

TEST_F(CellEditorTest, AHostThatSetsCancelKeepsTheEditorAndTheSameMessageShows) {
    desk.cancelEndEdit = 1;
    OpenAndType("x");
    EXPECT_THAT(
        CallsOf([&] { desk.SetFocus(); }),
        ElementsAre("SetFocus", "EN_KILLFOCUS", "EndEdit 1,1 x 0", RefusedLine, "Editor SetFocus"));
    EXPECT_EQ(store.CellText(1, 1), "");
    desk.cancelEndEdit = 0;
    desk.SetFocus();
    EXPECT_EQ(store.CellText(1, 1), "x");
}

TEST_F(CellEditorTest, TheEndEditMethodRefusesWithoutAMessageAndKeepsTheFocus) {
    desk.cancelEndEdit = 1;
    OpenAndType("x");
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.EndEdit(), 0); }), ElementsAre("EndEdit 1,1 x 0"));
    EXPECT_EQ(desk.focus, Focus::Editor);
}

TEST_F(CellEditorTest, ATextWithACharacterThatTheCodePageLacksIsRefusedAndKept) {
    OpenAndType("x");
    edit.holdsForeign = true;
    EXPECT_THAT(CallsOf([&] { desk.SetFocus(); }),
                ElementsAre("SetFocus", "EN_KILLFOCUS", RefusedLine, "Editor SetFocus"));
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(edit.Content(), "x");
}

TEST_F(CellEditorTest, TwoByteTextsAreStoredUnaltered) {
    for (const std::string text :
         {"\x81\x7C", "\x95\x7E", "\x81\x41", "\x8B\x5C", "\x81\x7B", "\x81\x7D"}) {
        ASSERT_EQ(editor.StartEdit(), 1);
        editor.EmptyText();
        edit.Type(text);
        EXPECT_EQ(editor.EndEdit(), 1);
        EXPECT_EQ(store.CellText(1, 1), text);
    }
    const std::string chinese = CodePage936FromUtf8("合计金额");
    OpenAndType(chinese);
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(store.CellText(1, 1), "\x81\x7D" + chinese);
}

TEST_F(CellEditorTest, WithAllowEditOffAHostCallOfStartEditStillOpensAnEditor) {
    properties.AllowEdit = false;
    EXPECT_EQ(editor.StartEdit(), 1);
}

TEST_F(CellEditorTest, ACellBelowTheLastWholeRowOpensAfterOneLineOfScroll) {
    // 15 whole rows fit below the headers.
    selection.SetActiveCell(16, 1);
    const Rect painted = layout.m_rcClient;
    EXPECT_THAT(
        CallsOf([&] { EXPECT_EQ(editor.StartEdit(), 1); }),
        ElementsAre("StartingEdit 16,1 1", "WM_VSCROLL 1", "SetFocus", "InvalidateControl",
                    "Create 268435652 50,272,109,289 1000", "SetWindowText ", "Editor SetFocus"));
    EXPECT_EQ(layout.FirstVisibleRow, 2);
    EXPECT_EQ(layout.m_rcClient, painted);
}

TEST_F(CellEditorTest, TheScrollOfAnOpeningGoesByTheClientAreaOfTheLastPaintWhateverItIsNow) {
    selection.SetActiveCell(16, 1);
    const Rect painted = layout.m_rcClient;
    desk.client = {0, 0, 400, 100};
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.StartEdit(), 1); }),
                testing::Contains("Create 268435652 50,272,109,289 1000"));
    EXPECT_EQ(layout.m_rcClient, painted);
}

TEST_F(CellEditorTest, ACellRightOfTheLastWholeColumnOpensAfterOneColumnOfScroll) {
    selection.SetActiveCell(1, 6);
    EXPECT_THAT(
        CallsOf([&] { EXPECT_EQ(editor.StartEdit(), 1); }),
        ElementsAre("StartingEdit 1,6 1", "WM_HSCROLL 1", "SetFocus", "InvalidateControl",
                    "Create 268435652 290,20,349,37 1000", "SetWindowText ", "Editor SetFocus"));
    EXPECT_EQ(layout.FirstVisibleCol, 2);
}

TEST_F(CellEditorTest, ACellFurtherOffGetsOneLineInEachDirectionAndWhateverCellRectSays) {
    selection.SetActiveCell(40, 15);
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.StartEdit(), 1); }),
                ElementsAre("StartingEdit 40,15 1", "WM_VSCROLL 1", "SetFocus", "InvalidateControl",
                            "WM_HSCROLL 1", "SetFocus", "InvalidateControl",
                            "Create 268435652 32767,32767,32767,32767 1000", "SetWindowText ",
                            "Editor SetFocus"));
}

TEST_F(CellEditorTest, ACellOffTheViewAtTopOrLeftGetsAnEditorWithNoSizeThatTakesKeys) {
    layout.FirstVisibleRow = 5;
    const Lines calls = CallsOf([&] { EXPECT_EQ(editor.StartEdit(), 1); });
    EXPECT_THAT(calls, testing::Contains("Create 268435652 0,0,0,0 1000"));
    EXPECT_EQ(desk.focus, Focus::Editor);
    Type("k");
    EXPECT_EQ(edit.Content(), "k");
}

TEST_F(CellEditorTest, AScrollCannotMoveTheSheetUnderAnEditThatWasRefused) {
    desk.cancelEndEdit = 1;
    OpenAndType("x");
    EXPECT_FALSE(scrolling.OnVScroll(ScrollRequest::LineDown, 0));
    EXPECT_EQ(layout.FirstVisibleRow, 1);
    EXPECT_EQ(desk.focus, Focus::Editor);
}

TEST_F(CellEditorTest, AScrollCommitsAnOpenEdit) {
    OpenAndType("x");
    EXPECT_TRUE(scrolling.OnVScroll(ScrollRequest::LineDown, 0));
    EXPECT_EQ(store.CellText(1, 1), "x");
    EXPECT_EQ(layout.FirstVisibleRow, 2);
}

TEST_F(CellEditorTest, AProgrammaticMoveOfTheViewLeavesTheEditorWhereItWas) {
    OpenAndType("x");
    EXPECT_THAT(CallsOf([&] { scrolling.MakeCellVisible(30, 1); }),
                ElementsAre("InvalidateControl"));
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(store.CellText(1, 1), "x");
}

TEST_F(CellEditorTest, TheCaretGoesToTheCharacterOfThePointAndANegativeAnswerIsIgnored) {
    ASSERT_EQ(editor.StartEdit(), 1);
    edit.charFromPos = 4;
    EXPECT_THAT(CallsOf([&] {
                    editor.PlaceCaret({60, 30});
                }),
                ElementsAre("CharFromPos 60,30", "SetSel 4,4", "ScrollCaret"));
    edit.charFromPos = -1;
    EXPECT_THAT(CallsOf([&] { editor.PlaceCaret({60, 30}); }), ElementsAre("CharFromPos 60,30"));
}

TEST_F(CellEditorTest, StartEditWithAnEditOpenCommitsItFirst) {
    OpenAndType("one");
    selection.SetActiveCell(2, 2);
    EXPECT_EQ(editor.StartEdit(), 1);
    EXPECT_EQ(store.CellText(1, 1), "one");
    EXPECT_EQ(editor.EditRow, 2);
    EXPECT_EQ(edit.Content(), "");
}

TEST_F(CellEditorTest, StartEditWithARefusedEditOpenReturns0AndKeepsItsText) {
    desk.cancelEndEdit = 1;
    OpenAndType("one");
    selection.SetActiveCell(2, 2);
    EXPECT_EQ(editor.StartEdit(), 0);
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(editor.EditRow, 1);
    EXPECT_EQ(edit.Content(), "one");
}

TEST_F(CellEditorTest, AHostThatStartsAnEditInsideStartingEditOpensOne) {
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::StartingEdit) {
            EXPECT_EQ(editor.StartEdit(), 0);
        }
    };
    EXPECT_EQ(editor.StartEdit(), 1);
    EXPECT_TRUE(editor.InEdit());
}

TEST_F(CellEditorTest, AHostThatEndsTheEditInsideStartingEditFindsNoneOpenAndItOpens) {
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::StartingEdit) {
            EXPECT_EQ(editor.EndEdit(), 1);
        }
    };
    EXPECT_EQ(editor.StartEdit(), 1);
    EXPECT_TRUE(editor.InEdit());
}

TEST_F(CellEditorTest, AHostThatEndsTheEditInsideEndEditIsToldThatItIsOpenAndTheCommitGoesOn) {
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::EndEdit) {
            EXPECT_EQ(editor.EndEdit(), 0);
            EXPECT_EQ(editor.StartEdit(), 0);
        }
    };
    OpenAndType("x");
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_FALSE(editor.InEdit());
    EXPECT_EQ(store.CellText(1, 1), "x");
}

TEST_F(CellEditorTest, AHostThatDeletesRowsInsideEndEditGetsTheTextWhereTheEditWasOpened) {
    for (std::int32_t row = 1; row <= 5; ++row) {
        store.SetCellText(row, 1, std::to_string(row));
    }
    selection.SetActiveCell(4, 1);
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::EndEdit) {
            operations.DeleteRows(1, 2);
        }
    };
    OpenAndType("x");
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(store.CellText(4, 1), "4x");
    EXPECT_EQ(store.CellText(2, 1), "4");
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(CellEditorTest, AHostThatMovesTheActiveCellInsideStartingEditMovesTheEdit) {
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::StartingEdit) {
            selection.SetActiveCell(3, 2);
        }
    };
    EXPECT_EQ(editor.StartEdit(), 1);
    EXPECT_EQ(editor.EditRow, 3);
    EXPECT_EQ(editor.EditCol, 2);
}

TEST_F(CellEditorTest, AHostThatShowsABoxInsideEndEditFiresTheEventOnce) {
    std::int32_t events = 0;
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::EndEdit) {
            ++events;
            desk.ShowMessage("host", 0);
        }
    };
    OpenAndType("x");
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(events, 1);
    EXPECT_FALSE(editor.InEdit());
}

TEST_F(CellEditorTest, AHostThatTakesTheFocusInsideARefusingEndEditGivesItBack) {
    desk.cancelEndEdit = 1;
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::EndEdit) {
            desk.SetFocus();
        }
    };
    OpenAndType("x");
    EXPECT_EQ(editor.EndEdit(), 0);
    EXPECT_EQ(desk.focus, Focus::Editor);
}

TEST_F(CellEditorTest, ALossOfFocusWhileTheRefusalIsShownShowsNoSecondBox) {
    desk.cancelEndEdit = 1;
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::MessageBox) {
            edit.SetFocus();
            desk.SetFocus();
        }
    };
    OpenAndType("x");
    const Lines calls = CallsOf([&] { desk.SetFocus(); });
    EXPECT_EQ(std::count(calls.begin(), calls.end(), RefusedLine), 1);
    EXPECT_EQ(desk.focus, Focus::Editor);
}

TEST_F(CellEditorTest, AHostThatAcceptsWhileTheRefusalIsShownLeavesNoEdit) {
    desk.cancelEndEdit = 1;
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::MessageBox) {
            desk.cancelEndEdit = 0;
            EXPECT_EQ(editor.EndEdit(), 1);
        }
    };
    OpenAndType("x");
    desk.SetFocus();
    EXPECT_FALSE(editor.InEdit());
    EXPECT_NE(desk.focus, Focus::Editor);
    EXPECT_EQ(store.CellText(1, 1), "x");
}

TEST_F(CellEditorTest, AnExceptionOfTheHostLeavesTheEditorUsable) {
    desk.onEvent = [&](DeskEvent event) {
        if (event == DeskEvent::EndEdit || event == DeskEvent::StartingEdit) {
            throw std::runtime_error("host");
        }
    };
    EXPECT_THROW(editor.StartEdit(), std::runtime_error);
    desk.onEvent = nullptr;
    OpenAndType("x");
    desk.onEvent = [&](DeskEvent) { throw std::runtime_error("host"); };
    EXPECT_THROW(editor.EndEdit(), std::runtime_error);
    desk.onEvent = nullptr;
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(store.CellText(1, 1), "x");
}

TEST_F(CellEditorTest, AWindowThatIsGoneLeavesNoEditOpen) {
    OpenAndType("x");
    desk.editorExists = false;
    EXPECT_FALSE(editor.InEdit());
    EXPECT_EQ(editor.EndEdit(), 1);
    EXPECT_EQ(editor.StartEdit(), 1);
}

}  // namespace
}  // namespace veygrid
