// Keys, input methods and the mouse as the system sends them, and hosts that misbehave meanwhile.
#include <gmock/gmock.h>

#include <array>
#include <map>

#include "tests/control/Handles.h"
#include "tests/control/SheetDesk.h"

// Behind the system's types, which it needs.
#include <imm.h>

namespace veygrid {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Counts the paints of a window while it lives.
class Paints {
  public:
    explicit Paints(HWND window) : m_window(window) {
        count = 0;
        former = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    Paints(const Paints&) = delete;
    Paints& operator=(const Paints&) = delete;
    ~Paints() { ::SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former)); }

    static inline int count = 0;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        count += message == WM_PAINT ? 1 : 0;
        return ::CallWindowProcW(former, window, message, wParam, lParam);
    }

    static inline WNDPROC former = nullptr;
    HWND m_window;
};

class Input : public ::testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(Ocx::CanUnload()); }
};

class InputInEveryLoop : public ::testing::TestWithParam<LoopKind> {};
INSTANTIATE_TEST_SUITE_P(Input, InputInEveryLoop, ::testing::ValuesIn(Loops),
                         [](const auto& info) { return info.param.name; });

TEST_P(InputInEveryLoop, ATypedValueIsCommittedByEnterAndTheCellMoves) {
    SheetDesk desk(GetParam());
    desk.Type(u"ab");
    EXPECT_EQ(desk.EditText(), "ab");
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.Edit(), nullptr);
    EXPECT_EQ(desk.Cell(1, 1), "ab");
    EXPECT_EQ(desk.ActiveCell(), std::pair(2L, 1L));
    EXPECT_EQ(::GetFocus(), desk.window);
    EXPECT_EQ(DialogWindow::pressed, 0);
}

TEST_P(InputInEveryLoop, TabAndArrowsMoveTheCellAndNotTheFocusOfTheDialog) {
    SheetDesk desk(GetParam());
    desk.Key(VK_TAB);
    EXPECT_EQ(desk.ActiveCell(), std::pair(1L, 2L));
    desk.Key(VK_DOWN);
    desk.Key(VK_LEFT);
    EXPECT_EQ(desk.ActiveCell(), std::pair(2L, 1L));
    EXPECT_EQ(::GetFocus(), desk.window);
}

// Ctrl held down, as the thread sees it, while this lives.
class HeldCtrl {
  public:
    HeldCtrl() { Set(0x80); }
    HeldCtrl(const HeldCtrl&) = delete;
    HeldCtrl& operator=(const HeldCtrl&) = delete;
    ~HeldCtrl() { Set(0); }

  private:
    static void Set(BYTE state) {
        BYTE keys[256] = {};
        ::GetKeyboardState(keys);
        keys[VK_CONTROL] = keys[VK_LCONTROL] = state;
        ::SetKeyboardState(keys);
    }
};

TEST_P(InputInEveryLoop, WithCtrlEnterAndTabWriteALineAndATabAndLeaveNothing) {
    SheetDesk desk(GetParam());
    desk.Type(u"a");
    {
        const HeldCtrl ctrl;
        desk.Key(VK_RETURN);
        desk.Key(VK_TAB);
    }
    EXPECT_EQ(desk.EditText(), "a\r\n\t");
    EXPECT_EQ(::GetFocus(), desk.Edit());
    EXPECT_EQ(desk.ActiveCell(), std::pair(1L, 1L));
    EXPECT_EQ(DialogWindow::pressed, 0);
}

TEST_F(Input, TheEditorIsAPlainUnicodeWindowOfSeveralLinesInTheCell) {
    SheetDesk desk;
    EXPECT_EQ(desk.grid.Number(L"StartEdit"), 1);
    ASSERT_NE(desk.Edit(), nullptr);
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(desk.Edit(), GWL_STYLE));
    EXPECT_EQ(style & 0xFFFFU, 0x00C4U);
    EXPECT_EQ(style & (WS_VISIBLE | WS_CHILD | WS_BORDER), WS_VISIBLE | WS_CHILD);
    EXPECT_TRUE(::IsWindowUnicode(desk.Edit()));
    EXPECT_EQ(::SendMessageW(desk.Edit(), WM_GETFONT, 0, 0), 0);
    RECT place{};
    ::GetWindowRect(desk.Edit(), &place);
    ::MapWindowPoints(nullptr, desk.window, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, 50);
    EXPECT_EQ(place.top, 20);
    EXPECT_EQ(::GetFocus(), desk.Edit());
    EXPECT_EQ(desk.grid.Number(L"EndEdit"), 1);
    EXPECT_EQ(desk.Edit(), nullptr);
}

TEST_F(Input, WithoutAWindowNoEditorOpens) {
    const Late grid(Ocx::Make(VeyGridClassId));
    EXPECT_EQ(grid.Number(L"StartEdit"), 0);
    EXPECT_EQ(grid.Number(L"EndEdit"), 1);
}

TEST_F(Input, AnEditorThatIsDestroyedFromOutsideLeavesNoEditBehind) {
    SheetDesk desk;
    desk.Type(u"x");
    ::DestroyWindow(desk.Edit());
    desk.Run();
    EXPECT_EQ(desk.grid.Number(L"EndEdit"), 1);
    EXPECT_EQ(desk.grid.Number(L"StartEdit"), 1);
}

TEST_F(Input, CtrlKeyMsgTakesTheKeysOfTheSheet) {
    SheetDesk desk;
    const UINT message = MessageNumber(L"VeynorGrid_CtrlKeyMsg");
    EXPECT_EQ(desk.Send(message, VK_DOWN, 1), 1);
    EXPECT_EQ(desk.ActiveCell(), std::pair(1L, 1L)) << "posted, not sent";
    desk.Run();
    EXPECT_EQ(desk.ActiveCell(), std::pair(2L, 1L));
    EXPECT_EQ(desk.Send(message, VK_F5, 1), 0);
}

TEST_F(Input, CtrlKeyDownAnswersZeroWhenAnOpenEditIsRefused) {
    SheetDesk desk;
    EventSink sink(VetoEndEdit);
    const Connected connected(desk.control, VeyGridEventsId, &sink);
    desk.Type(u"x");
    const OpenDialog box(IsMessageBox,
                         [](HWND shown) { ::PostMessageW(shown, WM_COMMAND, IDOK, 0); });
    EXPECT_EQ(desk.Send(MessageNumber(L"VeynorGrid_CtrlKeyDown"), VK_RETURN, 1), 0);
    EXPECT_TRUE(box.WasSeen());
    EXPECT_EQ(desk.ActiveCell(), std::pair(1L, 1L));
}

TEST_F(Input, AScrollIsDroppedWhileAnEditIsRefused) {
    SheetDesk desk;
    EventSink sink(VetoEndEdit);
    const Connected connected(desk.control, VeyGridEventsId, &sink);
    desk.Type(u"x");
    const OpenDialog box(IsMessageBox,
                         [](HWND shown) { ::PostMessageW(shown, WM_COMMAND, IDOK, 0); });
    desk.Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_TRUE(box.WasSeen());
    EXPECT_EQ(::GetScrollPos(desk.window, SB_VERT), 1);
    EXPECT_EQ(::GetFocus(), desk.Edit());
}

TEST_F(Input, ACellOffTheViewAtTheTopIsEditedInAWindowWithoutSize) {
    SheetDesk desk;
    desk.grid.Call(L"MakeCellVisible", {15, 1});
    desk.Run();
    desk.Type(u"up");
    RECT client{};
    ::GetClientRect(desk.Edit(), &client);
    EXPECT_TRUE(::IsRectEmpty(&client));
    EXPECT_EQ(::GetFocus(), desk.Edit());
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.Cell(1, 1), "up");
}

TEST_F(Input, AnUntouchedEditFiresNothingAndLeavesTheControlUnmodified) {
    SheetDesk desk;
    desk.grid.Put(L"CellText", {1, 1, L"same"});
    desk.grid.Put(L"Modified", {false});
    std::vector<DISPID> events;
    EventSink sink([&events](DISPID id, DISPPARAMS&) {
        if (id != event::RequestCellFormat) {
            events.push_back(id);
        }
    });
    const Connected connected(desk.control, VeyGridEventsId, &sink);
    EXPECT_EQ(desk.grid.Number(L"StartEdit"), 1);
    ::SetFocus(desk.window);
    EXPECT_EQ(desk.Edit(), nullptr);
    EXPECT_THAT(events, ElementsAre(event::StartingEdit));
    EXPECT_EQ(desk.grid.Number(L"Modified"), 0);
}

// What an input method sends.

TEST_F(Input, ACompositionOpensTheEditorAndItsCharactersAreKept) {
    SheetDesk desk;
    desk.grid.Put(L"CellText", {1, 1, L"old"});
    desk.Send(WM_IME_STARTCOMPOSITION);
    ASSERT_NE(desk.Edit(), nullptr);
    EXPECT_EQ(desk.EditText(), "old");
    desk.Send(WM_IME_CHAR, u'中', 1);
    desk.Send(WM_IME_CHAR, u'文', 1);
    desk.Run();
    desk.Send(WM_IME_ENDCOMPOSITION);
    EXPECT_EQ(desk.EditText(), CodePage936FromUtf8("中文"));
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.Cell(1, 1), CodePage936FromUtf8("中文"));
}

TEST_F(Input, TheCompositionWindowStandsInTheEditor) {
    SheetDesk desk;
    desk.grid.Call(L"SetActiveCell", {3, 2});
    desk.Send(WM_IME_STARTCOMPOSITION);
    ASSERT_NE(desk.Edit(), nullptr);
    const HIMC context = ::ImmGetContext(desk.Edit());
    ASSERT_NE(context, nullptr);
    COMPOSITIONFORM form{};
    EXPECT_TRUE(::ImmGetCompositionWindow(context, &form));
    ::ImmReleaseContext(desk.Edit(), context);
    RECT client{};
    ::GetClientRect(desk.Edit(), &client);
    EXPECT_NE(form.dwStyle & CFS_POINT, 0U);
    EXPECT_TRUE(::PtInRect(&client, form.ptCurrentPos));
}

TEST_F(Input, EnterThatEndsACompositionDoesNotMoveTheCell) {
    SheetDesk desk;
    desk.Send(WM_IME_STARTCOMPOSITION);
    desk.Key(VK_RETURN);
    EXPECT_NE(desk.Edit(), nullptr);
    EXPECT_EQ(desk.ActiveCell(), std::pair(1L, 1L));
    desk.Send(WM_IME_CHAR, u'龘', 1);
    desk.Run();
    desk.Send(WM_IME_ENDCOMPOSITION);
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.Edit(), nullptr);
    EXPECT_EQ(desk.ActiveCell(), std::pair(2L, 1L));
}

TEST_F(Input, ACompositionThatIsGivenUpLeavesTheEditorAsItWas) {
    SheetDesk desk;
    desk.grid.Put(L"CellText", {1, 1, L"old"});
    int ends = 0;
    EventSink sink([&ends](DISPID id, DISPPARAMS&) { ends += id == event::EndEdit ? 1 : 0; });
    const Connected connected(desk.control, VeyGridEventsId, &sink);
    desk.Send(WM_IME_STARTCOMPOSITION);
    // What the system's window shows of the composition.
    ::SendMessageW(desk.Edit(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"ni hao"));
    ::SendMessageW(desk.Edit(), WM_IME_ENDCOMPOSITION, 0, 0);
    EXPECT_EQ(desk.EditText(), "old");
    EXPECT_FALSE(::SendMessageW(desk.Edit(), EM_GETMODIFY, 0, 0));
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.Cell(1, 1), "old");
    EXPECT_EQ(ends, 0);
}

TEST_F(Input, TheResultOfACompositionMayComeAfterItsEnd) {
    SheetDesk desk;
    desk.grid.Put(L"CellText", {1, 1, L"old"});
    desk.Send(WM_IME_STARTCOMPOSITION);
    ::SendMessageW(desk.Edit(), WM_IME_ENDCOMPOSITION, 0, 0);
    ::SendMessageW(desk.Edit(), WM_IME_CHAR, u'中', 1);
    ::SendMessageW(desk.Edit(), WM_IME_CHAR, u'文', 1);
    EXPECT_EQ(desk.EditText(), CodePage936FromUtf8("中文"));
}

TEST_F(Input, AStrayCompositionWithoutAResultLeavesTheCaretWhereItIs) {
    SheetDesk desk;
    desk.Send(WM_IME_STARTCOMPOSITION);
    for (const UINT message : {UINT{WM_IME_ENDCOMPOSITION}, UINT{WM_IME_COMPOSITION}}) {
        ::SendMessageW(desk.Edit(), WM_IME_CHAR, u'中', 1);
        ::SendMessageW(desk.Edit(), message, 0,
                       message == WM_IME_COMPOSITION ? GCS_COMPSTR | GCS_CURSORPOS : 0);
    }
    ::SendMessageW(desk.Edit(), WM_IME_CHAR, u'文', 1);
    EXPECT_EQ(desk.EditText(), CodePage936FromUtf8("中中文"));
}

TEST_F(Input, ACharacterOfAnInputMethodIsThereBeforeACommitThatFollowsAtOnce) {
    SheetDesk desk;
    desk.Send(WM_IME_CHAR, u'中', 1);
    EXPECT_EQ(desk.grid.Number(L"EndEdit"), 1);
    EXPECT_EQ(desk.Cell(1, 1), CodePage936FromUtf8("中"));
}

TEST_F(Input, APressElsewhereInTheMiddleOfACompositionCommitsWhatTheEditorShows) {
    SheetDesk desk;
    desk.Type(u"a");
    ::SendMessageW(desk.Edit(), WM_IME_STARTCOMPOSITION, 0, 0);
    desk.Press(200, 100);
    desk.Run();
    EXPECT_EQ(desk.Edit(), nullptr);
    EXPECT_EQ(desk.Cell(1, 1), "a");
    EXPECT_NE(desk.ActiveCell(), std::pair(1L, 1L));
}

TEST_F(Input, TheFirstCharacterOfAnInputMethodWithoutCompositionIsKept) {
    SheetDesk desk;
    desk.Send(WM_IME_CHAR, u'中', 1);
    desk.Run();
    EXPECT_EQ(desk.EditText(), CodePage936FromUtf8("中"));
}

TEST_F(Input, ACompositionWithAllowEditOffOpensNothing) {
    SheetDesk desk;
    desk.grid.Put(L"AllowEdit", {false});
    desk.Send(WM_IME_STARTCOMPOSITION);
    desk.Send(WM_IME_ENDCOMPOSITION);
    EXPECT_EQ(desk.Edit(), nullptr);
}

TEST_F(Input, ACharacterThatTheCodePageLacksOpensNothingAndChangesNothing) {
    SheetDesk desk;
    desk.grid.Put(L"CellText", {1, 1, L"old"});
    desk.Type(u"\u0E01");
    desk.Type(u"\U0001F600");
    desk.Send(WM_IME_CHAR, 0x0E01, 1);
    desk.Run();
    EXPECT_EQ(desk.Edit(), nullptr);
    EXPECT_EQ(desk.Cell(1, 1), "old");
}

TEST_F(Input, ACharacterOutsideTheBasicPlaneArrivesWholeInTheEditorAndIsRefusedThere) {
    SheetDesk desk;
    desk.Type(u"a\U0001F600");
    wchar_t text[8] = {};
    ::GetWindowTextW(desk.Edit(), text, 8);
    EXPECT_EQ(std::wstring(text), L"a\xD83D\xDE00");
    EXPECT_EQ(desk.grid.Number(L"EndEdit"), 0);
    EXPECT_EQ(desk.Cell(1, 1), "");
    ::SetWindowTextW(desk.Edit(), L"");
}

// Each character here has a letter, a brace or another sign as its second byte.
TEST_F(Input, CharactersWithTrailBytesThatLookLikeSignsArriveWhole) {
    const std::string bytes = "\x81\x7C\x95\x7E\x81\x41\x8B\x5C\x81\x7B\x81\x7D";
    SheetDesk desk;
    desk.Type(Utf16FromCodePage936(bytes));
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.Cell(1, 1), bytes);
}

// The mouse.

TEST_F(Input, ASelectionDragOverAFullWindowRepaintsNothing) {
    SheetDesk desk;
    for (int row = 1; row <= 10; ++row) {
        desk.grid.Put(L"CellText", {row, 1, L"full"});
    }
    const Paints paints(desk.window);
    desk.Press(80, 30);
    desk.Run();
    EXPECT_GT(Paints::count, 0);
    Paints::count = 0;
    for (int step = 0; step < 120; ++step) {
        desk.Move(80 + step, 30 + step);
        desk.Run();
    }
    EXPECT_EQ(Paints::count, 0);
    EXPECT_FALSE(::GetUpdateRect(desk.window, nullptr, FALSE));
    desk.Release(199, 149);
    EXPECT_EQ(desk.grid.Number(L"GetSelectionCount"), 1);
}

TEST_F(Input, EachRegionShowsACursorOfItsOwn) {
    SheetDesk desk;
    const std::pair<const char*, POINT> regions[] = {{"corner", {20, 10}},
                                                     {"row header", {20, 50}},
                                                     {"column header", {140, 10}},
                                                     {"row edge", {20, 59}},
                                                     {"column edge", {169, 10}}};
    std::map<HCURSOR, std::string> shown;
    for (const auto& [name, place] : regions) {
        POINT screen = place;
        ::ClientToScreen(desk.window, &screen);
        ::SetCursorPos(screen.x, screen.y);
        EXPECT_EQ(desk.Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(desk.window), HTCLIENT), TRUE)
            << name;
        EXPECT_TRUE(shown.emplace(::GetCursor(), name).second) << name;
        const HCURSOR first = ::GetCursor();
        desk.Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(desk.window), HTCLIENT);
        EXPECT_EQ(::GetCursor(), first) << name << ": loaded once";
    }
}

TEST_F(Input, ADragOfAnItemOverTheSheetIsAnsweredWithOne) {
    SheetDesk desk;
    const UINT message = MessageNumber(L"MSG_DRAGOVER");
    POINT over{80, 50};
    ::ClientToScreen(desk.window, &over);
    ::SetCursorPos(over.x, over.y);
    EXPECT_EQ(desk.Send(message, 32769), 1);
    EXPECT_EQ(desk.Send(message, 1), 0);
    ::SetCursorPos(over.x + 600, over.y);
    EXPECT_EQ(desk.Send(message, 32769), 0);
}

// Where the cursor may go: left, top, right, bottom on the screen.
using Area = std::array<LONG, 4>;

Area AreaOf(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}
Area CursorArea() {
    RECT area{};
    ::GetClipCursor(&area);
    return AreaOf(area);
}
Area ClientOnScreen(HWND window) {
    RECT client{};
    ::GetClientRect(window, &client);
    ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return AreaOf(client);
}

TEST_F(Input, ASizingThatLosesTheMouseChangesNothingAndLetsTheCursorGo) {
    SheetDesk desk;
    const Area before = CursorArea();
    desk.Press(20, 59);
    desk.Move(20, 90);
    EXPECT_EQ(CursorArea(), ClientOnScreen(desk.window));
    desk.Send(WM_CAPTURECHANGED);
    desk.Release(20, 90);
    EXPECT_EQ(CursorArea(), before);
    EXPECT_EQ(desk.grid.Number(L"RowHeight", {2}), 20);
}

// Hosts that misbehave.

TEST_F(Input, AHostThatDestroysTheControlUnderTheBoxOfARefusalHarmsNothing) {
    SheetDesk desk;
    EventSink sink(VetoEndEdit);
    {
        const Connected connected(desk.control, VeyGridEventsId, &sink);
        desk.Type(u"x");
        const OpenDialog box(IsMessageBox, [&desk](HWND shown) {
            desk.container.Close();
            ::PostMessageW(shown, WM_COMMAND, IDOK, 0);
        });
        desk.Key(VK_RETURN);
        EXPECT_TRUE(box.WasSeen());
    }
    EXPECT_FALSE(::IsWindow(desk.window));
    EXPECT_EQ(desk.grid.Number(L"EndEdit"), 1);
    EXPECT_EQ(sink.References, 1);
}

TEST_F(Input, FocusTornAwayInTheMiddleOfARefusalComesBack) {
    SheetDesk desk;
    EventSink sink(VetoEndEdit);
    const Connected connected(desk.control, VeyGridEventsId, &sink);
    desk.Type(u"x");
    int boxes = 0;
    {
        const OpenDialog box(IsMessageBox, [&](HWND shown) {
            ++boxes;
            ::SetFocus(::GetDlgItem(desk.dialog.Window(), IDOK));
            ::SetFocus(desk.window);
            ::PostMessageW(shown, WM_COMMAND, IDOK, 0);
        });
        desk.Press(200, 100);
        EXPECT_TRUE(box.WasSeen());
    }
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(desk.ActiveCell(), std::pair(1L, 1L));
    EXPECT_EQ(desk.EditText(), "x");
    EXPECT_EQ(::GetFocus(), desk.Edit());
}

TEST_F(Input, AControlThatIsClosedWithAnOpenEditCommitsIt) {
    SheetDesk desk;
    desk.Type(u"x");
    desk.container.Close();
    EXPECT_FALSE(::IsWindow(desk.window));
    EXPECT_EQ(desk.Cell(1, 1), "x");
}

TEST_F(Input, AControlThatIsClosedWithARefusedEditShowsNoBoxAndGoes) {
    SheetDesk desk;
    EventSink sink(VetoEndEdit);
    const Connected connected(desk.control, VeyGridEventsId, &sink);
    desk.Type(u"x");
    const OpenDialog box(IsMessageBox,
                         [](HWND shown) { ::PostMessageW(shown, WM_COMMAND, IDOK, 0); });
    desk.container.Close();
    EXPECT_FALSE(box.WasSeen());
    EXPECT_FALSE(::IsWindow(desk.window));
    EXPECT_EQ(desk.Cell(1, 1), "");
}

TEST_F(Input, AHostThatDestroysTheControlInsideEndEditHarmsNothing) {
    SheetDesk desk;
    EventSink sink([&desk](DISPID id, DISPPARAMS&) {
        if (id == event::EndEdit) {
            desk.container.Close();
        }
    });
    {
        const Connected connected(desk.control, VeyGridEventsId, &sink);
        desk.Type(u"x");
        desk.Key(VK_RETURN);
    }
    EXPECT_FALSE(::IsWindow(desk.window));
    EXPECT_EQ(desk.grid.Number(L"EndEdit"), 1);
}

TEST_F(Input, AHostThatDestroysTheControlUnderADragHarmsNothing) {
    SheetDesk desk;
    const Area before = CursorArea();
    desk.Press(20, 59);
    desk.Move(20, 90);
    EXPECT_EQ(CursorArea(), ClientOnScreen(desk.window));
    desk.container.Close();
    EXPECT_EQ(CursorArea(), before);
}

TEST_F(Input, OpeningAndClosingEditorsLeavesNothingBehind) {
    SheetDesk desk;
    const auto round = [&desk] {
        desk.Type(u"y");
        desk.Key(VK_RETURN);
        desk.grid.Call(L"SetActiveCell", {1, 1});
        desk.Press(80, 30);
        desk.Move(150, 70);
        desk.Release(150, 70);
        desk.Run();
    };
    round();
    const Handles before;
    for (int count = 0; count < 200; ++count) {
        round();
    }
    EXPECT_EQ(Handles(), before);
    EXPECT_EQ(desk.Cell(1, 1), "y");
}

}  // namespace

}  // namespace veygrid
