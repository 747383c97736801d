// VeyHost's window: its menu commands, its status line, and its answers to what controls ask.
#include <gmock/gmock.h>

#include <windows.h>
// The common controls need the base types first.
#include <commctrl.h>

#include <algorithm>

#include "apps/host/AmbientProperties.h"
#include "apps/host/HostWindow.h"
#include "apps/host/MainMenu.h"
#include "apps/host/MessageBoxWatch.h"
#include "apps/host/Picture.h"
#include "apps/host/RegisteredMessages.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// OLE and the common controls for as long as a window stands.
class Session {
  public:
    Session() {
        OleInitialize(nullptr);
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES};
        InitCommonControlsEx(&controls);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { OleUninitialize(); }
};

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE &&
           message.message != WM_QUIT) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

class HostWindowTest : public ::testing::Test {
  protected:
    HostWindowTest() : window(module, LocaleNameToLCID(L"zh-CN", 0)) {
        window.SetScripted();
        window.Create({400, 300});
        window.Show();
        Pump();
    }
    ~HostWindowTest() override {
        window.Destroy();
        Pump();
    }

    const Automation& Grid() const { return window.Control().Grid(); }
    // A property with indexes; the value stands last.
    void PutIndexed(const wchar_t* name, std::vector<Variant> values) const {
        DISPID id = DISPID_UNKNOWN;
        DISPID put = DISPID_PROPERTYPUT;
        auto* text = const_cast<wchar_t*>(name);
        std::ranges::reverse(values);
        DISPPARAMS parameters{values.data(), &put, static_cast<UINT>(values.size()), 1};
        IDispatch* const grid = Grid().Object();
        ASSERT_EQ(grid->GetIDsOfNames(IID_NULL, &text, 1, 0, &id), S_OK);
        ASSERT_EQ(grid->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                               nullptr),
                  S_OK);
    }
    void PutText(long row, long column, const std::wstring& text) const {
        PutIndexed(L"CellText", {Variant::Of(row), Variant::Of(column), Variant::Of(text)});
    }
    void MoveTo(long row, long column) const {
        Grid().Call(L"SetActiveCell", {Variant::Of(row), Variant::Of(column)});
    }
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const {
        return SendMessageW(window.Window(), message, wParam, lParam);
    }
    void Choose(UINT command) const { Send(WM_COMMAND, command, 0); }
    std::wstring StatusPart(int part) const {
        Pump();
        const HWND line = FindWindowExW(window.Window(), nullptr, STATUSCLASSNAMEW, nullptr);
        const LRESULT length = SendMessageW(line, SB_GETTEXTLENGTHW, static_cast<WPARAM>(part), 0);
        std::wstring text(LOWORD(length) + 1U, L'\0');
        SendMessageW(line, SB_GETTEXTW, static_cast<WPARAM>(part),
                     reinterpret_cast<LPARAM>(text.data()));
        text.resize(LOWORD(length));
        return text;
    }
    // Whether the item of the view menu has its mark, once the menu is asked to come up.
    bool IsChecked(UINT command) const {
        const HMENU menu = GetSubMenu(GetMenu(window.Window()), 1);
        Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 1);
        return (GetMenuState(menu, command, MF_BYCOMMAND) & MF_CHECKED) != 0;
    }
    // The text that the host hands to a combo box for the key in code page 936.
    std::wstring FillFor(const char* key) const {
        const LRESULT answer =
            Send(Registered().ComboBoxAskForExternFill, 0, reinterpret_cast<LPARAM>(key));
        auto* const text = reinterpret_cast<BSTR>(answer);
        const std::wstring copy(TextOfBstr(text));
        SysFreeString(text);
        return copy;
    }

    const Session session;
    const ControlModule module;
    MessageBoxWatch boxes;
    HostWindow window;
};

TEST_F(HostWindowTest, StatusLineTellsTheActiveCell) {
    EXPECT_EQ(StatusPart(0), L"第 1 行 第 1 列");
    MoveTo(12, 7);
    EXPECT_EQ(StatusPart(0), L"第 12 行 第 7 列");
}

TEST_F(HostWindowTest, StatusLineTellsTheShownAndTheStoredText) {
    PutIndexed(L"CellShowFormat", {Variant::Of(2L), Variant::Of(3L), Variant::Of(L"M/YY")});
    PutText(2, 3, L"2024-05-06");
    MoveTo(2, 3);
    const std::wstring shown =
        Grid().Call(L"GetCellFormatText", {Variant::Of(2L), Variant::Of(3L)}).Text();
    EXPECT_NE(shown, L"2024-05-06");
    EXPECT_EQ(StatusPart(1), L"显示: " + shown);
    EXPECT_EQ(StatusPart(2), L"内容: 2024-05-06");
}

TEST_F(HostWindowTest, StatusLineShowsTheFirstLineOfATextOfSeveral) {
    PutText(1, 1, L"摘要\r\n借方");
    EXPECT_EQ(StatusPart(2), L"内容: 摘要");
}

TEST_F(HostWindowTest, StatusLineMarksAModifiedSheet) {
    EXPECT_EQ(StatusPart(3), L"");
    PutText(1, 1, L"x");
    EXPECT_EQ(StatusPart(3), L"已修改");
    Grid().Put(L"Modified", Variant::Of(false));
    EXPECT_EQ(StatusPart(3), L"");
}

TEST_F(HostWindowTest, StatusLineNamesTheLastEventWithItsArguments) {
    PutText(1, 1, L"x");
    EXPECT_EQ(StatusPart(4), L"Modified");
    Grid().Put(L"MaxRow", Variant::Of(3L));
    window.SetEventHandler(
        [](const std::wstring&, const std::wstring& event, DISPPARAMS& parameters) {
            if (event == L"CellSelChanging") {
                *parameters.rgvarg[0].piVal = 0;
            }
        });
    MoveTo(2, 2);
    EXPECT_EQ(StatusPart(4), L"CellSelChanging(2, 2, 1)");
}

TEST_F(HostWindowTest, FormViewIsSwitchedAndMarkedByItsCommand) {
    EXPECT_FALSE(IsChecked(CommandFormView));
    Choose(CommandFormView);
    EXPECT_TRUE(Grid().Get(L"GuiMode").Truth());
    EXPECT_TRUE(IsChecked(CommandFormView));
    Choose(CommandFormView);
    EXPECT_FALSE(Grid().Get(L"GuiMode").Truth());
    EXPECT_FALSE(IsChecked(CommandFormView));
}

TEST_F(HostWindowTest, DesignModeIsSwitchedAndMarkedByItsCommand) {
    Choose(CommandDesignMode);
    EXPECT_TRUE(Grid().Get(L"GuiDesignMode").Truth());
    EXPECT_TRUE(IsChecked(CommandDesignMode));
    Choose(CommandDesignMode);
    EXPECT_FALSE(Grid().Get(L"GuiDesignMode").Truth());
}

TEST_F(HostWindowTest, NewAsksAboutChangesAndGivesAnEmptySheet) {
    PutText(1, 1, L"x");
    boxes.QueueAnswer(L"cancel");
    Choose(CommandNew);
    EXPECT_EQ(boxes.Take().size(), 1U);
    EXPECT_EQ(Grid().Get(L"CellText", {Variant::Of(1L), Variant::Of(1L)}).Text(), L"x");
    boxes.QueueAnswer(L"no");
    Choose(CommandNew);
    EXPECT_EQ(Grid().Get(L"CellText", {Variant::Of(1L), Variant::Of(1L)}).Text(), L"");
    EXPECT_EQ(StatusPart(3), L"");
}

// While it lives, dialogs of the thread are noted by their captions and closed.
class DialogsNoted {
  public:
    DialogsNoted() : m_timer(SetTimer(nullptr, 0, 20, OnTimer)) { captions.clear(); }
    DialogsNoted(const DialogsNoted&) = delete;
    DialogsNoted& operator=(const DialogsNoted&) = delete;
    ~DialogsNoted() { KillTimer(nullptr, m_timer); }
    static inline std::vector<std::wstring> captions;

  private:
    static BOOL CALLBACK Note(HWND dialog, LPARAM) {
        wchar_t text[128] = {};
        GetClassNameW(dialog, text, 128);
        if (std::wstring(text) == L"#32770" && IsWindowVisible(dialog) != FALSE &&
            IsWindowEnabled(dialog) != FALSE) {
            GetWindowTextW(dialog, text, 128);
            captions.emplace_back(text);
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }
        return TRUE;
    }
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        EnumThreadWindows(GetCurrentThreadId(), Note, 0);
    }

    UINT_PTR m_timer;
};

TEST_F(HostWindowTest, AboutShowsTheControlsAboutBox) {
    const DialogsNoted noted;
    Choose(CommandAbout);
    EXPECT_THAT(DialogsNoted::captions, Contains(L"Veynor Grid Control"));
}

TEST_F(HostWindowTest, PrintAndPreviewAreAskedOfTheControlAndTheSheetStays) {
    const DialogsNoted noted;
    PutText(1, 1, L"x");
    Choose(CommandPrint);
    Choose(CommandPreview);
    EXPECT_EQ(Grid().Get(L"CellText", {Variant::Of(1L), Variant::Of(1L)}).Text(), L"x");
    EXPECT_NE(window.Control().Window(), nullptr);
}

TEST_F(HostWindowTest, CloseIsPostedAndOnlyKeptWhileScripted) {
    window.Messages().Take();
    Choose(CommandClose);
    Pump();
    EXPECT_THAT(window.Messages().Take(), ElementsAre(L"WM_CLOSE, 0, 0"));
    EXPECT_NE(IsWindow(window.Window()), FALSE);
}

TEST_F(HostWindowTest, SizeParentWindowPutsTheWindowWhereAFileSaysItWas) {
    Send(Registered().SizeParentWindow, MAKEWPARAM(30, 40), MAKELPARAM(520, 410));
    RECT place{};
    GetWindowRect(window.Window(), &place);
    EXPECT_EQ(place.left, 30);
    EXPECT_EQ(place.top, 40);
    EXPECT_EQ(place.right - place.left, 520);
    EXPECT_EQ(place.bottom - place.top, 410);
    EXPECT_THAT(window.Messages().Take(), Contains(HasSubstr(L"VeynorGrid_SizeParentWindow")));
    RECT client{};
    RECT control{};
    GetClientRect(window.Window(), &client);
    // With its scroll bars.
    GetWindowRect(window.Control().Window(), &control);
    EXPECT_EQ(control.right - control.left, client.right);
}

TEST_F(HostWindowTest, SizeParentWindowTakesPlacesLeftOfTheScreen) {
    Send(Registered().SizeParentWindow, MAKEWPARAM(static_cast<WORD>(-50), 10),
         MAKELPARAM(300, 200));
    RECT place{};
    GetWindowRect(window.Window(), &place);
    EXPECT_EQ(place.left, -50);
}

TEST_F(HostWindowTest, ComboBoxGetsTheParameterOfItsKey) {
    PutIndexed(L"Param", {Variant::Of(L"币种"), Variant::Of(L"人民币\x0B美元 |~")});
    EXPECT_EQ(FillFor(CodePage936FromUtf16(u"币种").c_str()), L"人民币\x0B美元 |~");
}

TEST_F(HostWindowTest, ComboBoxGetsNothingForAnUnknownKeyOrNone) {
    EXPECT_EQ(Send(Registered().ComboBoxAskForExternFill, 0, reinterpret_cast<LPARAM>("none")), 0);
    EXPECT_EQ(Send(Registered().ComboBoxAskForExternFill, 0, 0), 0);
}

TEST_F(HostWindowTest, AskForIsAnsweredWithNoDataAccess) {
    EXPECT_EQ(Send(Registered().AskFor, 2, 0), 0);
}

TEST_F(HostWindowTest, AShotIsThePictureOfTheControlAlone) {
    Grid().Put(L"BackColor", Variant::Of(0x302010L));
    const Picture picture = TakePicture(window.Control().Window());
    EXPECT_EQ(picture.width, 400);
    EXPECT_EQ(picture.height, 300);
    // Inside a cell, off its lines.
    EXPECT_EQ(PixelColor(picture, 300, 205), 0x302010);
}

TEST_F(HostWindowTest, TheControlFindsTheHostsLocaleAndItsOwnName) {
    Variant answer;
    AmbientProperties ambient(LocaleNameToLCID(L"zh-CN", 0));
    EXPECT_EQ(ambient.Get(DISPID_AMBIENT_LOCALEID, &answer), S_OK);
    EXPECT_EQ(answer.Number(), 0x804);
    EXPECT_EQ(ambient.Get(DISPID_AMBIENT_DISPLAYNAME, &answer), S_OK);
    EXPECT_EQ(answer.vt, VT_BSTR);
    EXPECT_EQ(answer.Text(), L"Grid");
}

}  // namespace

}  // namespace veygrid
