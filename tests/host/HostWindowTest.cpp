// VeyHost's window: its menu commands, its status line, and its answers to what controls ask.
#include "WindowDesk.h"

#include "apps/host/AmbientProperties.h"
#include "apps/host/MainMenu.h"
#include "apps/host/Picture.h"

namespace veygrid {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using HostWindowTest = WindowDesk;

TEST_F(HostWindowTest, StatusLineTellsTheActiveCell) {
    EXPECT_EQ(StatusPart(0), L"第 1 行 第 1 列");
    MoveTo(12, 7);
    EXPECT_EQ(StatusPart(0), L"第 12 行 第 7 列");
}

TEST_F(HostWindowTest, StatusLineTellsTheShownAndTheStoredText) {
    Grid().Put(L"CellShowFormat", Variant::Of(L"M/YY"), {Variant::Of(2L), Variant::Of(3L)});
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

// While it lives, the calls of the methods with one argument are noted that reach an object of the
// class of `object`, before they are answered: Invoke of the class's table of methods is replaced.
class CallsNoted {
  public:
    struct Call {
        DISPID id;
        Variant argument;
    };

    explicit CallsNoted(IDispatch* object) : m_methods(*reinterpret_cast<Method***>(object)) {
        calls.clear();
        former = reinterpret_cast<InvokeMethod*>(m_methods[InvokeIndex]);
        Set(reinterpret_cast<Method*>(Note));
    }
    CallsNoted(const CallsNoted&) = delete;
    CallsNoted& operator=(const CallsNoted&) = delete;
    ~CallsNoted() { Set(reinterpret_cast<Method*>(former)); }

    static inline std::vector<Call> calls;

  private:
    using Method = void();
    using InvokeMethod = HRESULT STDMETHODCALLTYPE(IDispatch*, DISPID, REFIID, LCID, WORD,
                                                   DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*);
    // Behind the three of IUnknown and the three that tell of types and names.
    static constexpr std::size_t InvokeIndex = 6;

    static HRESULT STDMETHODCALLTYPE Note(IDispatch* object, DISPID id, REFIID iid, LCID locale,
                                          WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                          EXCEPINFO* exception, UINT* argumentInError) {
        if ((flags & DISPATCH_METHOD) != 0 && parameters->cArgs == 1) {
            Variant argument;
            VariantCopy(&argument, parameters->rgvarg);
            calls.push_back({id, std::move(argument)});
        }
        return former(object, id, iid, locale, flags, parameters, result, exception,
                      argumentInError);
    }
    void Set(Method* method) {
        DWORD before = 0;
        VirtualProtect(m_methods + InvokeIndex, sizeof method, PAGE_READWRITE, &before);
        m_methods[InvokeIndex] = method;
        VirtualProtect(m_methods + InvokeIndex, sizeof method, before, &before);
    }

    static inline InvokeMethod* former = nullptr;
    Method** m_methods;
};

TEST_F(HostWindowTest, PrintAndPreviewAreAskedOfTheControlAndTheSheetStays) {
    const DialogsNoted noted;
    PutText(1, 1, L"x");
    const CallsNoted asked(Grid().Object());
    Choose(CommandPrint);
    ASSERT_THAT(CallsNoted::calls, SizeIs(1));
    EXPECT_EQ(CallsNoted::calls[0].id, Grid().IdOf(L"Print"));
    EXPECT_TRUE(CallsNoted::calls[0].argument.Truth());
    Choose(CommandPreview);
    ASSERT_THAT(CallsNoted::calls, SizeIs(2));
    EXPECT_EQ(CallsNoted::calls[1].id, Grid().IdOf(L"Preview"));
    EXPECT_EQ(CallsNoted::calls[1].argument.Number(),
              static_cast<long>(reinterpret_cast<LONG_PTR>(window.Window())));
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
    Grid().Put(L"Param", Variant::Of(L"人民币\x0B美元 |~"), {Variant::Of(L"币种")});
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
