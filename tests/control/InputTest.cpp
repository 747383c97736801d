// Keys, input methods and the mouse as the system sends them, and hosts that misbehave meanwhile.
#include <gmock/gmock.h>

#include <map>

#include "control/ClassIds.h"
#include "control/VeyGridEvents.h"
#include "tests/control/MessageLoops.h"
#include "tests/control/OpenDialog.h"
#include "valuetext/CodePage936.h"

// Behind the system's types, which it needs.
#include <imm.h>

namespace veygrid {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int EditId = 1000;

UINT MessageNumber(const wchar_t* name) {
    return ::RegisterWindowMessageW(name);
}

// The handler of a host that accepts no text.
void VetoEndEdit(DISPID id, DISPPARAMS& given) {
    if (id == event::EndEdit) {
        *given.rgvarg[0].piVal = 1;
    }
}

bool IsMessageBox(HWND window) {
    wchar_t caption[32] = {};
    ::GetWindowTextW(window, caption, 32);
    return std::wstring_view(caption) == L"Veynor Grid Control";
}

// A control with a sheet of 20 by 20 pixel rows and 60 pixel columns, in a dialog beside a button.
class Desk {
  public:
    explicit Desk(const LoopKind& kind = Loops[0]) : m_kind(kind) {
        control.As(&m_active);
        container.Place = {0, 0, 300, 200};
        EXPECT_EQ(container.Show(control), S_OK);
        window = Container::WindowOf(control);
        for (int line = 1; line <= 20; ++line) {
            grid.Put(L"RowHeight", {line, 20});
            grid.Put(L"ColWidth", {line, 60});
        }
        ::SetFocus(window);
        ::UpdateWindow(window);
        Run();
    }

    HWND Edit() const { return ::GetDlgItem(window, EditId); }
    std::string EditText() const {
        wchar_t text[100] = {};
        ::GetWindowTextW(Edit(), text, 100);
        return TextFromWide(text);
    }
    std::string Cell(int row, int col) const { return grid.Text(L"CellText", {row, col}); }
    std::pair<LONG, LONG> ActiveCell() const {
        std::pair<LONG, LONG> cell{};
        grid.Call(L"GetActiveCell", {Arg::Reference(&cell.first), Arg::Reference(&cell.second)});
        return cell;
    }
    void Run() { MessageLoop(m_kind, dialog.Window(), m_active.Get()).Run(); }
    // To whatever has the focus, as the system does.
    void Key(WPARAM key) {
        ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 1);
        Run();
    }
    void Type(std::u16string_view units) {
        for (const char16_t unit : units) {
            ::PostMessageW(::GetFocus(), WM_CHAR, unit, 1);
            Run();
        }
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(window, message, wParam, lParam);
    }
    void Press(int x, int y) const { Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    void Move(int x, int y) const { Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y)); }
    void Release(int x, int y) const { Send(WM_LBUTTONUP, 0, MAKELPARAM(x, y)); }

    DialogWindow dialog;
    ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late grid{control};
    Container container{dialog.Window()};
    HWND window = nullptr;

  private:
    const LoopKind& m_kind;
    ComPtr<IOleInPlaceActiveObject> m_active;
};

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
    Desk desk(GetParam());
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
    Desk desk(GetParam());
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
    Desk desk(GetParam());
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
    Desk desk;
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
    Desk desk;
    desk.Type(u"x");
    ::DestroyWindow(desk.Edit());
    desk.Run();
    EXPECT_EQ(desk.grid.Number(L"EndEdit"), 1);
    EXPECT_EQ(desk.grid.Number(L"StartEdit"), 1);
}

TEST_F(Input, CtrlKeyMsgTakesTheKeysOfTheSheet) {
    Desk desk;
    const UINT message = MessageNumber(L"VeynorGrid_CtrlKeyMsg");
    EXPECT_EQ(desk.Send(message, VK_DOWN, 1), 1);
    EXPECT_EQ(desk.ActiveCell(), std::pair(1L, 1L)) << "posted, not sent";
    desk.Run();
    EXPECT_EQ(desk.ActiveCell(), std::pair(2L, 1L));
    EXPECT_EQ(desk.Send(message, VK_F5, 1), 0);
}

TEST_F(Input, CtrlKeyDownAnswersZeroWhenAnOpenEditIsRefused) {
    Desk desk;
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
    Desk desk;
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
    Desk desk;
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
    Desk desk;
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
    Desk desk;
    desk.grid.Put(L"CellText", {1, 1, L"old"});
    desk.Send(WM_IME_STARTCOMPOSITION);
    ASSERT_NE(desk.Edit(), nullptr);
    EXPECT_EQ(desk.EditText(), "");
    desk.Send(WM_IME_CHAR, u'中', 1);
    desk.Send(WM_IME_CHAR, u'文', 1);
    desk.Run();
    desk.Send(WM_IME_ENDCOMPOSITION);
    EXPECT_EQ(desk.EditText(), CodePage936FromUtf8("中文"));
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.Cell(1, 1), CodePage936FromUtf8("中文"));
}

TEST_F(Input, TheCompositionWindowStandsInTheEditor) {
    Desk desk;
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
    Desk desk;
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

TEST_F(Input, TheFirstCharacterOfAnInputMethodWithoutCompositionIsKept) {
    Desk desk;
    desk.Send(WM_IME_CHAR, u'中', 1);
    desk.Run();
    EXPECT_EQ(desk.EditText(), CodePage936FromUtf8("中"));
}

TEST_F(Input, ACompositionWithAllowEditOffOpensNothing) {
    Desk desk;
    desk.grid.Put(L"AllowEdit", {false});
    desk.Send(WM_IME_STARTCOMPOSITION);
    desk.Send(WM_IME_ENDCOMPOSITION);
    EXPECT_EQ(desk.Edit(), nullptr);
}

TEST_F(Input, ACharacterThatTheCodePageLacksOpensNothingAndChangesNothing) {
    Desk desk;
    desk.grid.Put(L"CellText", {1, 1, L"old"});
    desk.Type(u"\u0E01");
    desk.Type(u"\U0001F600");
    desk.Send(WM_IME_CHAR, 0x0E01, 1);
    desk.Run();
    EXPECT_EQ(desk.Edit(), nullptr);
    EXPECT_EQ(desk.Cell(1, 1), "old");
}

TEST_F(Input, ACharacterOutsideTheBasicPlaneArrivesWholeInTheEditorAndIsRefusedThere) {
    Desk desk;
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
    Desk desk;
    desk.Type(Utf16FromCodePage936(bytes));
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.Cell(1, 1), bytes);
}

// The mouse.

TEST_F(Input, ASelectionDragOverAFullWindowRepaintsNothing) {
    Desk desk;
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
    Desk desk;
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
    Desk desk;
    const UINT message = MessageNumber(L"MSG_DRAGOVER");
    POINT over{80, 50};
    ::ClientToScreen(desk.window, &over);
    ::SetCursorPos(over.x, over.y);
    EXPECT_EQ(desk.Send(message, 32769), 1);
    EXPECT_EQ(desk.Send(message, 1), 0);
    ::SetCursorPos(over.x + 600, over.y);
    EXPECT_EQ(desk.Send(message, 32769), 0);
}

TEST_F(Input, ASizingThatLosesTheMouseChangesNothingAndLetsTheCursorGo) {
    Desk desk;
    RECT before{};
    ::GetClipCursor(&before);
    desk.Press(20, 59);
    desk.Move(20, 90);
    desk.Send(WM_CAPTURECHANGED);
    desk.Release(20, 90);
    RECT after{};
    ::GetClipCursor(&after);
    EXPECT_TRUE(::EqualRect(&before, &after));
    EXPECT_EQ(desk.grid.Number(L"RowHeight", {2}), 20);
}

// Hosts that misbehave.

TEST_F(Input, AHostThatDestroysTheControlUnderTheBoxOfARefusalHarmsNothing) {
    Desk desk;
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
    Desk desk;
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
    Desk desk;
    desk.Type(u"x");
    desk.container.Close();
    EXPECT_FALSE(::IsWindow(desk.window));
    EXPECT_EQ(desk.Cell(1, 1), "x");
}

TEST_F(Input, AControlThatIsClosedWithARefusedEditShowsNoBoxAndGoes) {
    Desk desk;
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
    Desk desk;
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
    Desk desk;
    RECT before{};
    ::GetClipCursor(&before);
    desk.Press(20, 59);
    desk.Move(20, 90);
    desk.container.Close();
    RECT after{};
    ::GetClipCursor(&after);
    EXPECT_TRUE(::EqualRect(&before, &after));
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

TEST_F(Input, OpeningAndClosingEditorsLeavesNoWindowBehind) {
    Desk desk;
    const DWORD before = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    for (int round = 0; round < 200; ++round) {
        desk.Type(u"y");
        desk.Key(VK_RETURN);
        desk.grid.Call(L"SetActiveCell", {1, 1});
        desk.Press(80, 30);
        desk.Move(150, 70);
        desk.Release(150, 70);
        desk.Run();
    }
    int windows = 0;
    ::EnumChildWindows(desk.window, CountWindow, reinterpret_cast<LPARAM>(&windows));
    EXPECT_EQ(windows, 0);
    EXPECT_LE(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), before + 2);
    EXPECT_EQ(desk.Cell(1, 1), "y");
}

}  // namespace

}  // namespace veygrid
