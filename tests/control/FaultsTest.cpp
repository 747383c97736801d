// Dialogs that are up while the host takes the control away, and windows that take the focus in the
// middle of a refusal.
#include <functional>

#include "tests/control/Handles.h"
#include "tests/control/SheetDesk.h"

namespace veygrid {

namespace {

struct DialogCase {
    const char* name;
    // Brings the dialog up; returns when it is gone.
    std::function<void(SheetDesk&)> open;
};

void Command(SheetDesk& desk, int command) {
    desk.Send(WM_COMMAND, static_cast<WPARAM>(command));
}

const DialogCase Dialogs[] = {
    {"Font", [](SheetDesk& desk) { Command(desk, 42300); }},
    {"Align", [](SheetDesk& desk) { Command(desk, 42302); }},
    {"SaveFile", [](SheetDesk& desk) { Command(desk, 42318); }},
    {"OpenFile", [](SheetDesk& desk) { Command(desk, 42319); }},
    {"Header",
     [](SheetDesk& desk) { desk.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(80, 10)); }},
    {"PropertyPages", [](SheetDesk& desk) { Command(desk, 42320); }},
    {"About", [](SheetDesk& desk) { desk.grid.Call(L"AboutBox"); }},
    {"FontByTheMethod", [](SheetDesk& desk) { desk.grid.Call(L"ShowFontDlg"); }},
    {"AlignByTheMethod", [](SheetDesk& desk) { desk.grid.Call(L"ShowAlignDlg"); }},
};

// What the host does while the dialog is up, and how the dialog is answered then.
void OpenAndClose(SheetDesk& desk, const DialogCase& dialog, WPARAM answer,
                  const std::function<void()>& meanwhile) {
    const OpenDialog seen([&desk](HWND window) { return window != desk.dialog.Window(); },
                          [&](HWND window) {
                              meanwhile();
                              // A file dialog without a name would refuse to go by OK.
                              if (::IsWindow(window)) {
                                  ::PostMessageW(window, WM_COMMAND, answer, 0);
                                  ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
                              }
                          });
    dialog.open(desk);
    EXPECT_TRUE(seen.WasSeen());
    desk.Run();
}

class DialogOfTheControl : public ::testing::TestWithParam<DialogCase> {
  protected:
    void TearDown() override { EXPECT_TRUE(Ocx::CanUnload()); }
};

TEST_P(DialogOfTheControl, MayBeUpWhileTheHostClosesTheControlWhateverItsAnswer) {
    for (const WPARAM answer : {WPARAM{IDOK}, WPARAM{IDCANCEL}}) {
        SheetDesk desk;
        OpenAndClose(desk, GetParam(), answer, [&] { desk.container.Close(); });
        EXPECT_FALSE(::IsWindow(desk.window));
        // What is left of the control still answers.
        EXPECT_EQ(desk.grid.Put(L"CellText", {1, 1, L"x"}), S_OK);
        EXPECT_EQ(desk.Cell(1, 1), "x");
    }
}

TEST_P(DialogOfTheControl, MayBeUpWhileTheHostFreesTheControl) {
    SheetDesk desk;
    OpenAndClose(desk, GetParam(), IDOK, [&] {
        desk.container.Close();
        desk.LetGo();
    });
    EXPECT_FALSE(::IsWindow(desk.window));
}

TEST_P(DialogOfTheControl, LeavesNoHandleBehind) {
    SheetDesk desk;
    const auto round = [&] { OpenAndClose(desk, GetParam(), IDCANCEL, [] {}); };
    // The system keeps a few things of each kind of dialog.
    round();
    round();
    const Handles before;
    round();
    round();
    EXPECT_EQ(Handles(), before);
}

INSTANTIATE_TEST_SUITE_P(Faults, DialogOfTheControl, ::testing::ValuesIn(Dialogs),
                         [](const auto& info) { return std::string(info.param.name); });

class Refusal : public ::testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(Ocx::CanUnload()); }
};

// One of another program would be the same to the control: the focus is gone, and comes back.
TEST_F(Refusal, AnotherWindowThatIsActivatedWhileItsBoxStandsLosesNothing) {
    const HWND other =
        ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"other", WS_POPUP | WS_VISIBLE, 0, 0, 50,
                          50, nullptr, nullptr, nullptr, nullptr);
    SheetDesk desk;
    EventSink sink(VetoEndEdit);
    const Connected connected(desk.control, VeyGridEventsId, &sink);
    desk.Type(u"x");
    int boxes = 0;
    {
        const OpenDialog box(IsMessageBox, [&](HWND shown) {
            ++boxes;
            ::SetActiveWindow(other);
            ::SetForegroundWindow(other);
            ::SetFocus(other);
            ::PostMessageW(shown, WM_COMMAND, IDOK, 0);
        });
        desk.Press(200, 100);
        EXPECT_TRUE(box.WasSeen());
    }
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(desk.EditText(), "x");
    EXPECT_EQ(desk.Cell(1, 1), "");
    EXPECT_EQ(desk.ActiveCell(), std::pair(1L, 1L));
    EXPECT_EQ(::GetFocus(), desk.Edit());
    ::DestroyWindow(other);
}

TEST_F(Refusal, AWindowThatIsDestroyedUnderTheBoxLeavesNoHandle) {
    const auto round = [] {
        SheetDesk desk;
        EventSink sink(VetoEndEdit);
        const Connected connected(desk.control, VeyGridEventsId, &sink);
        desk.Type(u"x");
        const OpenDialog box(IsMessageBox, [&desk](HWND shown) {
            desk.container.Close();
            ::PostMessageW(shown, WM_COMMAND, IDOK, 0);
        });
        desk.Key(VK_RETURN);
        EXPECT_TRUE(box.WasSeen());
    };
    round();
    round();
    const Handles before;
    round();
    round();
    EXPECT_EQ(Handles(), before);
}

}  // namespace

}  // namespace veygrid
