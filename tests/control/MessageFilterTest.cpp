// The message filter in every kind of loop: each message once, what is used up reaches nobody.
#include <gmock/gmock.h>

#include <functional>

#include "control/AutomationTable.h"
#include "platform/win32/ole/MessageFilter.h"
#include "platform/win32/ole/Module.h"
#include "platform/win32/ole/OleControl.h"
#include "tests/control/MessageLoops.h"

namespace veygrid {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Filter = std::function<bool(MSG&)>;

// A control whose filter is the test's.
class FilteredControl final : public CVeyOleControl {
  public:
    FilteredControl() : CVeyOleControl(nullptr, Class(), this) {}

    bool PreTranslateMessage(MSG& message) override {
        if (message.message == WM_TIMER || message.message == WM_MOUSEMOVE) {
            return false;
        }
        shown.push_back(message.message);
        return filter && filter(message);
    }
    void SaveState(ByteSink&) override {}
    std::uint64_t LoadState(ByteSource&) override { return 0; }
    void SaveInBag(PropertyBag&) override {}
    void LoadFromBag(PropertyBag&) override {}
    void OnResetState() override {}

    Filter filter;
    std::vector<UINT> shown;    // to the filter
    std::vector<UINT> reached;  // the window

  private:
    static const ControlClass& Class() {
        static const ControlClass controlClass{VeyGridAutomation, 0, 1, {}};
        return controlClass;
    }
    StockProperties& Stock() override { return m_stock; }
    std::uint32_t& StockBackColor() override { return m_backColor; }
    void OnDraw(HDC, const RECT&, const RECT&) override {}
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message >= WM_KEYFIRST && message <= WM_KEYLAST) {
            reached.push_back(message);
        }
        return CVeyOleControl::OnMessage(message, wParam, lParam);
    }

    StockProperties m_stock;
    std::uint32_t m_backColor = 0;
};

// A control shown in a dialog.
struct Shown {
    explicit Shown(HWND dialog, RECT place = {0, 0, 300, 200}) : container(dialog) {
        module::Attach(::GetModuleHandleW(nullptr));
        container.Place = place;
        EXPECT_EQ(container.Show(unknown), S_OK);
        unknown.As(&active);
    }
    HWND Window() const { return control->Window(); }

    FilteredControl* control = new FilteredControl;
    ComPtr<IUnknown> unknown = Adopt(control->Inner());
    ComPtr<IOleInPlaceActiveObject> active;
    Container container;
};

class EveryLoop : public ::testing::TestWithParam<LoopKind> {
  protected:
    void SetUp() override { ::OleInitialize(nullptr); }
    void TearDown() override {
        EXPECT_FALSE(module::IsLocked());
        ::OleUninitialize();
    }
    // Sends what was posted through the loop.
    void Run(const Shown& shown) {
        MessageLoop(GetParam(), m_dialog.Window(), shown.active.Get()).Run();
    }
    static void PostKey(HWND window, WPARAM key) { ::PostMessageW(window, WM_KEYDOWN, key, 1); }

    DialogWindow m_dialog;
};

INSTANTIATE_TEST_SUITE_P(MessageFilter, EveryLoop, ::testing::ValuesIn(Loops),
                         [](const auto& info) { return info.param.name; });

TEST_P(EveryLoop, AMessageIsShownOnceAndReachesTheWindowOnce) {
    Shown shown(m_dialog.Window());
    PostKey(shown.Window(), VK_F5);
    Run(shown);
    EXPECT_THAT(shown.control->shown, ElementsAre(WM_KEYDOWN));
    EXPECT_THAT(shown.control->reached, ElementsAre(WM_KEYDOWN));
}

TEST_P(EveryLoop, EqualMessagesInARowAreShownOnceEach) {
    Shown shown(m_dialog.Window());
    for (int i = 0; i < 3; ++i) {
        PostKey(shown.Window(), VK_F5);
    }
    Run(shown);
    EXPECT_EQ(shown.control->shown.size(), 3U);
    EXPECT_EQ(shown.control->reached.size(), 3U);
}

TEST_P(EveryLoop, AKeyThatIsUsedUpReachesNeitherWindowNorDialog) {
    Shown shown(m_dialog.Window());
    shown.control->filter = [](MSG&) { return true; };
    for (const WPARAM key : {VK_RETURN, VK_TAB, VK_ESCAPE, VK_DOWN, 0x41}) {
        PostKey(shown.Window(), key);
    }
    Run(shown);
    EXPECT_EQ(shown.control->shown.size(), 5U);
    EXPECT_THAT(shown.control->reached, IsEmpty());
    EXPECT_EQ(DialogWindow::pressed, 0);
}

TEST_P(EveryLoop, EnterPressesTheDialogsButtonOnlyWhenTheFilterLeavesIt) {
    Shown shown(m_dialog.Window());
    PostKey(shown.Window(), VK_RETURN);
    Run(shown);
    EXPECT_EQ(DialogWindow::pressed, GetParam().asksDialog ? 1 : 0);
}

TEST_P(EveryLoop, AKeyThatIsUsedUpMakesNoCharacter) {
    Shown shown(m_dialog.Window());
    shown.control->filter = [](MSG& message) { return message.message == WM_KEYDOWN; };
    PostKey(shown.Window(), 'A');
    Run(shown);
    EXPECT_THAT(shown.control->shown, ElementsAre(WM_KEYDOWN));
}

TEST_P(EveryLoop, TwoControlsSeeTheirOwnMessagesWhicheverTheLoopAsks) {
    Shown one(m_dialog.Window(), {0, 0, 100, 100});
    Shown two(m_dialog.Window(), {150, 0, 250, 100});
    two.control->filter = [](MSG&) { return true; };
    PostKey(one.Window(), VK_F5);
    PostKey(two.Window(), VK_F6);
    PostKey(one.Window(), VK_F7);
    Run(one);
    EXPECT_EQ(one.control->shown.size(), 2U);
    EXPECT_EQ(one.control->reached.size(), 2U);
    EXPECT_EQ(two.control->shown.size(), 1U);
    EXPECT_THAT(two.control->reached, IsEmpty());
}

TEST_P(EveryLoop, AWindowInsideTheControlIsFilteredAndASiblingIsNot) {
    Shown shown(m_dialog.Window());
    const auto makeEdit = [](HWND parent) {
        return ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 50, 20, parent, nullptr, nullptr,
                                 nullptr);
    };
    const HWND inside = makeEdit(shown.Window());
    const HWND sibling = makeEdit(m_dialog.Window());
    shown.control->filter = [](MSG&) { return true; };
    ::PostMessageW(inside, WM_CHAR, 'x', 1);
    ::PostMessageW(sibling, WM_CHAR, 'x', 1);
    Run(shown);
    EXPECT_THAT(shown.control->shown, ElementsAre(WM_CHAR));
    EXPECT_EQ(::GetWindowTextLengthW(inside), 0);
    EXPECT_EQ(::GetWindowTextLengthW(sibling), 1);
}

TEST_P(EveryLoop, AReaddressedMessageReachesItsNewWindowAndIsNotShownAgain) {
    Shown shown(m_dialog.Window());
    const HWND inside = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 50, 20, shown.Window(),
                                          nullptr, nullptr, nullptr);
    shown.control->filter = [inside](MSG& message) {
        message.hwnd = inside;
        return false;
    };
    ::PostMessageW(shown.Window(), WM_CHAR, 'x', 1);
    Run(shown);
    EXPECT_THAT(shown.control->shown, ElementsAre(WM_CHAR));
    EXPECT_EQ(::GetWindowTextLengthW(inside), 1);
}

TEST_P(EveryLoop, MouseMessagesAreShownAndUsedUpLikeKeys) {
    Shown shown(m_dialog.Window());
    bool isUsed = false;
    shown.control->filter = [&](MSG&) { return isUsed; };
    int pressed = 0;
    EventSink sink([&](DISPID id, DISPPARAMS&) { pressed += id == DISPID_MOUSEDOWN ? 1 : 0; });
    const Connected connected(shown.unknown, *VeyGridAutomation.events, &sink);
    for (const bool used : {false, true}) {
        isUsed = used;
        ::PostMessageW(shown.Window(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
        Run(shown);
    }
    EXPECT_THAT(shown.control->shown, ElementsAre(WM_RBUTTONDOWN, WM_RBUTTONDOWN));
    EXPECT_EQ(pressed, 1);
}

TEST_P(EveryLoop, AFilterThatFailsLetsTheMessagePass) {
    Shown shown(m_dialog.Window());
    shown.control->filter = [](MSG&) -> bool { throw std::bad_alloc(); };
    PostKey(shown.Window(), VK_F5);
    Run(shown);
    EXPECT_THAT(shown.control->shown, ElementsAre(WM_KEYDOWN));
    EXPECT_THAT(shown.control->reached, ElementsAre(WM_KEYDOWN));
}

TEST_P(EveryLoop, AFilterMayEndItsControl) {
    Shown shown(m_dialog.Window());
    const HWND window = shown.Window();
    shown.control->filter = [&](MSG&) {
        shown.container.Close();
        return false;
    };
    PostKey(window, VK_F5);
    PostKey(m_dialog.Window(), VK_F6);
    Run(shown);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_THAT(shown.control->shown, ElementsAre(WM_KEYDOWN));
}

TEST_P(EveryLoop, AnEndedControlSeesNoMessagesWhileAnotherOneGoesOn) {
    Shown gone(m_dialog.Window(), {0, 0, 100, 100});
    Shown stays(m_dialog.Window(), {150, 0, 250, 100});
    gone.container.Close();
    PostKey(stays.Window(), VK_F5);
    PostKey(m_dialog.Window(), VK_F5);
    Run(stays);
    EXPECT_THAT(gone.control->shown, IsEmpty());
    EXPECT_THAT(stays.control->shown, ElementsAre(WM_KEYDOWN));
}

TEST_P(EveryLoop, AMessageLookedAtButNotTakenIsShownOnlyWhenItIsTaken) {
    Shown shown(m_dialog.Window());
    PostKey(shown.Window(), VK_F5);
    MSG message;
    EXPECT_TRUE(::PeekMessageW(&message, shown.Window(), WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE));
    EXPECT_THAT(shown.control->shown, IsEmpty());
    Run(shown);
    EXPECT_THAT(shown.control->shown, ElementsAre(WM_KEYDOWN));
}

TEST_P(EveryLoop, AModelessDialogOfTheControlGetsItsKeysAndNobodyElseDoes) {
    Shown shown(m_dialog.Window());
    shown.control->filter = [](MSG&) { return true; };
    const DialogWindow own;
    messagefilter::AddDialog(own.Window());
    PostKey(::GetDlgItem(own.Window(), IDOK), VK_RETURN);
    Run(shown);
    EXPECT_EQ(DialogWindow::pressed, 1);
    messagefilter::RemoveDialog(own.Window());
    PostKey(::GetDlgItem(own.Window(), IDOK), VK_RETURN);
    Run(shown);
    EXPECT_EQ(DialogWindow::pressed, 1);
    EXPECT_THAT(shown.control->shown, IsEmpty());
}

// A dialog that ends itself and a container at its first command.
class EndingDialog {
  public:
    EndingDialog(HWND owner, Container& container)
        : m_window(::CreateWindowExW(0, L"#32770", L"own", WS_POPUP, 0, 0, 10, 10, owner, nullptr,
                                     nullptr, nullptr)) {
        ended = &container;
        ::SetWindowLongPtrW(m_window, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(&Procedure));
        messagefilter::AddDialog(m_window);
    }
    HWND Window() const { return m_window; }

  private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM, LPARAM) {
        if (message == WM_COMMAND) {
            ::DestroyWindow(window);
            messagefilter::RemoveDialog(window);
            ended->Close();
        }
        return FALSE;
    }

    static inline Container* ended = nullptr;
    HWND m_window;
};

TEST_P(EveryLoop, AKeyMayEndItsModelessDialogAndTheControl) {
    Shown shown(m_dialog.Window());
    const EndingDialog own(m_dialog.Window(), shown.container);
    PostKey(own.Window(), VK_ESCAPE);
    Run(shown);
    EXPECT_FALSE(::IsWindow(own.Window()));
    EXPECT_EQ(shown.Window(), nullptr);
}

class MessageFilter : public ::testing::Test {
  protected:
    void SetUp() override { ::OleInitialize(nullptr); }
    void TearDown() override { ::OleUninitialize(); }

    DialogWindow m_dialog;
};

// A host may hand over messages that it has made itself.
TEST_F(MessageFilter, MessagesThatNeverWereInTheQueueAreShownEachTime) {
    Shown shown(m_dialog.Window());
    MSG message{shown.Window(), WM_KEYDOWN, VK_F5, 1, 0, {}};
    EXPECT_EQ(shown.active->TranslateAccelerator(&message), S_FALSE);
    shown.control->filter = [](MSG&) { return true; };
    EXPECT_EQ(shown.active->TranslateAccelerator(&message), S_OK);
    EXPECT_EQ(shown.control->shown.size(), 2U);
    EXPECT_EQ(shown.active->TranslateAccelerator(nullptr), E_POINTER);
}

TEST_F(MessageFilter, AKeyForAnotherWindowIsNotTheControlsThoughItIsAsked) {
    Shown shown(m_dialog.Window());
    shown.control->filter = [](MSG&) { return true; };
    MSG message{m_dialog.Window(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
    EXPECT_EQ(shown.active->TranslateAccelerator(&message), S_FALSE);
    EXPECT_THAT(shown.control->shown, IsEmpty());
}

// Comes when the menu is open.
void CALLBACK PostKeysOnce(HWND window, UINT, UINT_PTR timer, DWORD) {
    ::KillTimer(window, timer);
    ::PostMessageW(window, WM_KEYDOWN, VK_DOWN, 1);
    ::PostMessageW(window, WM_KEYDOWN, VK_RETURN, 1);
}

TEST_F(MessageFilter, AnOpenMenuKeepsItsKeys) {
    Shown shown(m_dialog.Window());
    shown.control->filter = [](MSG&) { return true; };
    const HMENU menu = ::CreatePopupMenu();
    ::AppendMenuW(menu, MF_STRING, 7, L"seven");
    ::SetTimer(shown.Window(), 1, 10, PostKeysOnce);
    const int chosen =
        ::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, 20, 20, 0, shown.Window(), nullptr);
    ::DestroyMenu(menu);
    EXPECT_EQ(chosen, 7);
    EXPECT_THAT(shown.control->shown, IsEmpty());
}

}  // namespace

}  // namespace veygrid
