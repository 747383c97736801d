// The data dialogs as the system shows them, in the loops that hosts have and with hosts that
// misbehave.
#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "control/ClassIds.h"
#include "control/HeaderTextDialog.h"
#include "control/Translation.h"
#include "control/VeyGridEvents.h"
#include "platform/win32/ole/Module.h"
#include "tests/control/Handles.h"
#include "tests/control/MessageLoops.h"
#include "tests/control/OpenDialog.h"
#include "tests/control/Pixels.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int DataTypeList = 1014;
constexpr int ShowFormatField = 1018;
constexpr int ValidityField = 1020;
constexpr int HeaderField = 1003;
constexpr int NameField = 1030;
constexpr int ValueField = 1045;
constexpr int DeleteButton = 1001;
constexpr int StatementField = 1047;

const std::wstring FormatCaption = L"数据控制";
const std::wstring HeaderCaption = L"设置行列标题";
const std::wstring SourceCaption = L"查看/修改数据源";
const std::wstring ParamCaption = L"参数设置";
const std::wstring BoxCaption = L"Veynor Grid Control";

struct CaptionSearch {
    const std::wstring& caption;
    std::vector<HWND> found;
};

BOOL CALLBACK CompareCaption(HWND window, LPARAM target) {
    auto& search = *reinterpret_cast<CaptionSearch*>(target);
    if (::IsWindowVisible(window) && WindowText(window) == search.caption) {
        search.found.push_back(window);
    }
    return TRUE;
}

// Visible dialogs of the thread with the caption, the uppermost first.
std::vector<HWND> DialogsWith(const std::wstring& caption) {
    CaptionSearch search{caption, {}};
    ::EnumThreadWindows(::GetCurrentThreadId(), CompareCaption, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::function<bool(HWND)> HasCaption(const std::wstring& caption) {
    return [&caption](HWND window) { return WindowText(window) == caption; };
}

// Answers the control's message boxes while it lives, after `before`.
class Answering {
  public:
    explicit Answering(int answer, std::function<void()> before = {})
        : m_before(std::move(before)) {
        current = this;
        m_answer = answer;
        m_timer = ::SetTimer(nullptr, 0, 10, OnTimer);
    }
    Answering(const Answering&) = delete;
    Answering& operator=(const Answering&) = delete;
    ~Answering() {
        ::KillTimer(nullptr, m_timer);
        current = nullptr;
    }

    std::vector<std::wstring> Texts;

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        const std::vector<HWND> boxes = DialogsWith(BoxCaption);
        if (current == nullptr || boxes.empty() || boxes.front() == current->m_last) {
            return;
        }
        current->m_last = boxes.front();
        const HWND text = ::GetDlgItem(boxes.front(), 0xFFFF);
        current->Texts.push_back(text == nullptr ? L"" : WindowText(text));
        if (current->m_before) {
            current->m_before();
        }
        ::PostMessageW(boxes.front(), WM_COMMAND, static_cast<WPARAM>(current->m_answer), 0);
    }

    static inline Answering* current = nullptr;

    std::function<void()> m_before;
    int m_answer = IDNO;
    HWND m_last = nullptr;
    UINT_PTR m_timer = 0;
};

// A control in a dialog beside a button, and the loop that gives it its messages.
class Desk {
  public:
    explicit Desk(const LoopKind& kind = Loops[0]) : m_kind(kind) {
        control.As(&m_active);
        EXPECT_EQ(container.Show(control), S_OK);
        window = Container::WindowOf(control);
        ::SetFocus(window);
        Run();
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
    // The window of the data source that the command opens.
    HWND OpenSource() {
        grid.Call(L"SendCommand", {42311});
        Run();
        const std::vector<HWND> open = DialogsWith(SourceCaption);
        EXPECT_FALSE(open.empty());
        return open.empty() ? nullptr : open.front();
    }
    // Runs a command whose dialog has the caption, and acts in the dialog.
    void Command(int command, const std::wstring& caption, std::function<void(HWND)> act) {
        const OpenDialog open(HasCaption(caption), std::move(act));
        EXPECT_EQ(grid.Call(L"SendCommand", {command}), S_OK);
        EXPECT_TRUE(open.WasSeen());
    }
    std::string Source() const { return grid.Text(L"DataSource"); }
    std::string Params() const {
        std::string all;
        LONG pos = grid.Number(L"GetFirstParamPos");
        for (int left = 20; pos != 0 && left > 0; --left) {
            OwnedVariant name;
            OwnedVariant value;
            grid.Call(L"GetNextParam",
                      {Arg::Reference(&pos), Arg::Reference(&name), Arg::Reference(&value)});
            all += "[" + TakeBstr(name->bstrVal) + "=" + TakeBstr(value->bstrVal) + "]";
        }
        return all;
    }

    DialogWindow dialog;
    ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late grid{control};
    Container container{dialog.Window()};
    HWND window = nullptr;

  private:
    const LoopKind& m_kind;
    ComPtr<IOleInPlaceActiveObject> m_active;
};

// Notes the events of a control but those of painting.
class EventNotes {
  public:
    explicit EventNotes(const ComPtr<IUnknown>& control)
        : m_connected(control, VeyGridEventsId, &m_sink) {}

    std::vector<DISPID> Fired;

  private:
    struct Note {
        EventNotes& notes;
        void operator()(DISPID id, DISPPARAMS&) const {
            if (!IsOfPainting(id)) {
                notes.Fired.push_back(id);
            }
        }
    };
    EventSink<Note> m_sink{Note{*this}};
    Connected m_connected;
};

void Press(HWND dialog, int button) {
    ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

// What the user's typing into a field brings about.
void TypeInto(HWND field, std::u16string_view units) {
    const HWND edit =
        ::GetWindow(field, GW_CHILD) == nullptr ? field : ::GetWindow(field, GW_CHILD);
    ::SendMessageW(edit, EM_SETSEL, 0, -1);
    for (const char16_t unit : units) {
        ::SendMessageW(edit, WM_CHAR, unit, 1);
    }
}

std::wstring ItemText(HWND dialog, int id) {
    return WindowText(::GetDlgItem(dialog, id));
}

void Choose(HWND dialog, int list, int index) {
    const HWND field = ::GetDlgItem(dialog, list);
    ::SendMessageW(field, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(field));
}

std::vector<std::wstring> Items(HWND dialog, int list) {
    const HWND field = ::GetDlgItem(dialog, list);
    std::vector<std::wstring> items;
    const auto count = static_cast<int>(::SendMessageW(field, CB_GETCOUNT, 0, 0));
    for (int index = 0; index < count; ++index) {
        const auto at = static_cast<WPARAM>(index);
        std::wstring item(static_cast<std::size_t>(::SendMessageW(field, CB_GETLBTEXTLEN, at, 0)),
                          L'\0');
        ::SendMessageW(field, CB_GETLBTEXT, at, reinterpret_cast<LPARAM>(item.data()));
        items.push_back(item);
    }
    return items;
}

// Where a control of a dialog stands, and what the same place is of dialog units.
RECT PlaceOf(HWND dialog, int id) {
    RECT place{};
    ::GetWindowRect(::GetDlgItem(dialog, id), &place);
    ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}
POINT Units(HWND dialog, LONG x, LONG y) {
    RECT units{x, y, 0, 0};
    ::MapDialogRect(dialog, &units);
    return {units.left, units.top};
}
void ExpectAt(HWND dialog, int id, LONG x, LONG y) {
    const RECT place = PlaceOf(dialog, id);
    const POINT wanted = Units(dialog, x, y);
    EXPECT_EQ(place.left, wanted.x) << id;
    EXPECT_EQ(place.top, wanted.y) << id;
}
void ExpectSize(HWND dialog, LONG width, LONG height) {
    RECT client{};
    ::GetClientRect(dialog, &client);
    const POINT wanted = Units(dialog, width, height);
    EXPECT_EQ(client.right, wanted.x);
    EXPECT_EQ(client.bottom, wanted.y);
}

class DataDialog : public ::testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(Ocx::CanUnload()); }
};

class DataDialogInEveryLoop : public ::testing::TestWithParam<LoopKind> {
  protected:
    void TearDown() override { EXPECT_TRUE(Ocx::CanUnload()); }
};
INSTANTIATE_TEST_SUITE_P(DataDialog, DataDialogInEveryLoop, ::testing::ValuesIn(Loops),
                         [](const auto& info) { return info.param.name; });

// The data control dialog.

TEST_F(DataDialog, TheFormatDialogHasItsListsTextsAndPlaces) {
    Desk desk;
    desk.Command(42310, FormatCaption, [](HWND dialog) {
        EXPECT_THAT(Items(dialog, DataTypeList),
                    ElementsAre(L"自动", L"整数", L"浮点数", L"日期值", L"字符型"));
        EXPECT_THAT(Items(dialog, ShowFormatField),
                    ElementsAre(L"General", L"0", L"0.00", L"#,##0", L"#,##0.00", L"YYYY年MM月DD日",
                                L"YYYY年M月D日", L"YYYY-MM-DD", L"[CB_TEXT]", L"[RMB_UPPER]"));
        EXPECT_THAT(Items(dialog, ValidityField), IsEmpty());
        EXPECT_EQ(ItemText(dialog, IDOK), L"确  定");
        EXPECT_EQ(ItemText(dialog, IDCANCEL), L"取  消");
        ExpectSize(dialog, 180, 72);
        ExpectAt(dialog, DataTypeList, 51, 6);
        ExpectAt(dialog, ShowFormatField, 51, 27);
        ExpectAt(dialog, ValidityField, 51, 48);
        ExpectAt(dialog, IDOK, 129, 6);
        ExpectAt(dialog, IDCANCEL, 129, 23);
        const RECT validity = PlaceOf(dialog, ValidityField);
        EXPECT_EQ(validity.right - validity.left, Units(dialog, 120, 0).x);
        EXPECT_TRUE(::IsWindowUnicode(dialog));
        Press(dialog, IDCANCEL);
    });
}

TEST_F(DataDialog, ATypeThatTheListLacksShowsBlankAndIsStoredAs255) {
    Desk desk;
    const Late format = desk.grid.Object(L"CellFormat", {1, 1});
    format.Put(L"DataType", {9});
    desk.grid.Put(L"CellFormat", {1, 1, format.Object()});
    desk.Command(42310, FormatCaption, [](HWND dialog) {
        EXPECT_EQ(ItemText(dialog, DataTypeList), L"");
        Press(dialog, IDOK);
    });
    EXPECT_EQ(desk.grid.Object(L"CellFormat", {1, 1}).Number(L"DataType"), 255);
}

TEST_F(DataDialog,
       WithNoSelectionTheFormatDialogShowsTheActiveCellAndGivesItARecordOfTheSameValues) {
    Desk desk;
    desk.grid.Put(L"CellShowFormat", {0, 1, L"YYYY年M月D日"});
    EventNotes notes(desk.control);
    desk.Command(1011, FormatCaption, [](HWND dialog) {
        EXPECT_EQ(ItemText(dialog, DataTypeList), L"自动");
        EXPECT_EQ(ItemText(dialog, ShowFormatField), L"YYYY年M月D日");
        Press(dialog, IDOK);
    });
    EXPECT_THAT(notes.Fired, IsEmpty());
    desk.grid.Put(L"CellShowFormat", {0, 1, L"0"});
    EXPECT_EQ(desk.grid.Text(L"CellShowFormat", {1, 1}), CodePage936FromUtf8("YYYY年M月D日"));
}

TEST_F(DataDialog, OnlyNotificationsOfChangeMakeATextGoIntoEveryRecord) {
    Desk desk;
    desk.grid.Put(L"CellShowFormat", {1, 1, L"0"});
    desk.grid.Put(L"CellShowFormat", {1, 2, L"0.00"});
    desk.grid.Call(L"SetSelection", {1, 1, 1, 2});
    const auto formats = [&] {
        return desk.grid.Text(L"CellShowFormat", {1, 1}) + "," +
               desk.grid.Text(L"CellShowFormat", {1, 2});
    };
    desk.Command(1011, FormatCaption, [](HWND dialog) {
        EXPECT_EQ(ItemText(dialog, ShowFormatField), L"");
        Choose(dialog, DataTypeList, 2);
        Press(dialog, IDOK);
    });
    EXPECT_EQ(formats(), "0,0.00");
    desk.Command(1011, FormatCaption, [](HWND dialog) {
        TypeInto(::GetDlgItem(dialog, ShowFormatField), u"x\b");
        EXPECT_EQ(ItemText(dialog, ShowFormatField), L"");
        Press(dialog, IDOK);
    });
    EXPECT_EQ(formats(), ",");
    desk.Command(1011, FormatCaption, [](HWND dialog) {
        Choose(dialog, ShowFormatField, 9);
        Press(dialog, IDOK);
    });
    EXPECT_EQ(formats(), "[RMB_UPPER],[RMB_UPPER]");
}

TEST_F(DataDialog, TypedChineseAndCharactersThatTheCodePageLacksGoIntoTheRecord) {
    Desk desk;
    desk.Command(1011, FormatCaption, [](HWND dialog) {
        TypeInto(::GetDlgItem(dialog, ShowFormatField), u"YYYY年龘|\u00FF");
        Press(dialog, IDOK);
    });
    EXPECT_EQ(desk.grid.Text(L"CellShowFormat", {1, 1}), CodePage936FromUtf8("YYYY年龘|") + "?");
}

// The header text dialog.

TEST_F(DataDialog, TheHeaderDialogHasItsSizeItsFieldAndItsButtons) {
    module::Attach(reinterpret_cast<HINSTANCE>(Ocx::Handle()));
    const OpenDialog open(HasCaption(HeaderCaption), [](HWND dialog) {
        ExpectSize(dialog, 178, 80);
        EXPECT_EQ(LOWORD(::SendMessageW(dialog, DM_GETDEFID, 0, 0)), IDOK);
        TypeInto(::GetDlgItem(dialog, HeaderField), u"丂|龘\u00FF");
        Press(dialog, IDOK);
    });
    EXPECT_EQ(AskHeaderText(nullptr, "old"), CodePage936FromUtf8("丂|龘") + "?");
}

// The parameter dialog.

TEST_F(DataDialog, TheParamDialogHasItsTextsItsSizeAndTheNamesInTheirOrder) {
    Desk desk;
    for (const wchar_t* const name : {L"b", L"单位|龘", L"a"}) {
        desk.grid.Put(L"Param", {name, L"v"});
    }
    desk.Command(1017, ParamCaption, [](HWND dialog) {
        ExpectSize(dialog, 147, 84);
        EXPECT_THAT(Items(dialog, NameField), ElementsAre(L"b", L"单位|龘", L"a"));
        EXPECT_EQ(ItemText(dialog, IDCANCEL), L"退  出");
        EXPECT_EQ(ItemText(dialog, DeleteButton), L"删  除");
        EXPECT_EQ(LOWORD(::SendMessageW(dialog, DM_GETDEFID, 0, 0)), IDCANCEL);
        Press(dialog, IDCANCEL);
    });
}

TEST_F(DataDialog, TypingANewNameAndAnsweringYesAddsAParameterWhoseValueIsWhatStoodInTheField) {
    Desk desk;
    EventNotes notes(desk.control);
    Answering answer(IDYES);
    desk.Command(1017, ParamCaption, [](HWND dialog) {
        TypeInto(::GetDlgItem(dialog, NameField), u"税率");
        ::SetDlgItemTextW(dialog, ValueField, L"17%\t(增值税)");
        ::SetFocus(::GetDlgItem(dialog, DeleteButton));
        EXPECT_EQ(ItemText(dialog, ValueField), L"");
        EXPECT_EQ(::GetFocus(), ::GetDlgItem(dialog, ValueField));
        Press(dialog, IDCANCEL);
    });
    EXPECT_THAT(answer.Texts, ElementsAre(L"该参数不存在,是否增加该参数?"));
    EXPECT_EQ(desk.Params(), CodePage936FromUtf8("[税率=17%]"));
    EXPECT_THAT(notes.Fired, ElementsAre(event::Modified));
}

TEST_F(DataDialog, AnsweringNoEmptiesTheFieldsAndGoesBackToTheName) {
    Desk desk;
    Answering answer(IDNO);
    desk.Command(1017, ParamCaption, [](HWND dialog) {
        TypeInto(::GetDlgItem(dialog, NameField), u"new");
        ::SetDlgItemTextW(dialog, ValueField, L"v");
        ::SetFocus(::GetDlgItem(dialog, ValueField));
        EXPECT_EQ(ItemText(dialog, NameField) + ItemText(dialog, ValueField), L"");
        EXPECT_TRUE(::IsChild(::GetDlgItem(dialog, NameField), ::GetFocus()));
        Press(dialog, IDCANCEL);
    });
    EXPECT_EQ(answer.Texts.size(), 1U);
    EXPECT_EQ(desk.Params(), "");
}

TEST_F(DataDialog, TheFocusThatGoesToTheExitButtonAsksNothing) {
    Desk desk;
    Answering answer(IDYES);
    desk.Command(1017, ParamCaption, [](HWND dialog) {
        TypeInto(::GetDlgItem(dialog, NameField), u"new");
        ::SetFocus(::GetDlgItem(dialog, IDCANCEL));
        ::SetFocus(::GetDlgItem(dialog, NameField));
        Press(dialog, IDCANCEL);
    });
    EXPECT_THAT(answer.Texts, IsEmpty());
    EXPECT_EQ(desk.Params(), "");
}

TEST_F(DataDialog, AChangedValueIsStoredWhenTheDialogEndsOverIt) {
    Desk desk;
    desk.grid.Put(L"Param", {L"a", L"1"});
    desk.Command(1017, ParamCaption, [](HWND dialog) {
        Choose(dialog, NameField, 0);
        EXPECT_EQ(ItemText(dialog, ValueField), L"1");
        ::SetFocus(::GetDlgItem(dialog, ValueField));
        TypeInto(::GetDlgItem(dialog, ValueField), u"二%");
        Press(dialog, IDCANCEL);
    });
    EXPECT_EQ(desk.Params(), CodePage936FromUtf8("[a=二%]"));
}

TEST_F(DataDialog, DeletingWithNoSelectionDoesNothingAndWithOneRemovesIt) {
    Desk desk;
    desk.grid.Put(L"Param", {L"a", L"1"});
    desk.grid.Put(L"Param", {L"b", L"2"});
    EventNotes notes(desk.control);
    desk.Command(1017, ParamCaption, [&](HWND dialog) {
        ::SendMessageW(dialog, WM_COMMAND, DeleteButton, 0);
        EXPECT_EQ(desk.Params(), "[a=1][b=2]");
        Choose(dialog, NameField, 0);
        ::SendMessageW(dialog, WM_COMMAND, DeleteButton, 0);
        EXPECT_EQ(desk.Params(), "[b=2]");
        EXPECT_EQ(ItemText(dialog, NameField) + ItemText(dialog, ValueField), L"");
        Press(dialog, IDCANCEL);
    });
    EXPECT_THAT(notes.Fired, IsEmpty());
}

TEST_F(DataDialog, WhileTheQuestionIsUpTheParamDialogDoesNotEnd) {
    Desk desk;
    HWND asking = nullptr;
    Answering answer(IDYES, [&] {
        ::SendMessageW(asking, WM_COMMAND, IDCANCEL, 0);
        ::SendMessageW(asking, WM_COMMAND, DeleteButton, 0);
    });
    desk.Command(1017, ParamCaption, [&](HWND dialog) {
        asking = dialog;
        TypeInto(::GetDlgItem(dialog, NameField), u"new");
        ::SetFocus(::GetDlgItem(dialog, ValueField));
        EXPECT_TRUE(::IsWindow(dialog));
        Press(dialog, IDCANCEL);
    });
    EXPECT_EQ(desk.Params(), "[new=]");
}

TEST_F(DataDialog, AParamDialogOverAnotherWithANewNameInItComesToAnEnd) {
    for (const int reply : {IDNO, IDYES}) {
        Desk desk;
        Answering answer(reply);
        desk.Command(1017, ParamCaption, [&](HWND lower) {
            TypeInto(::GetDlgItem(lower, NameField), u"new");
            ::SetFocus(::GetDlgItem(lower, NameField));
            const OpenDialog open(
                [&](HWND window) { return window != lower && WindowText(window) == ParamCaption; },
                [](HWND upper) { Press(upper, IDCANCEL); });
            desk.grid.Call(L"SendCommand", {1017});
            EXPECT_TRUE(open.WasSeen());
            Press(lower, IDCANCEL);
        });
        EXPECT_EQ(desk.Params(), reply == IDYES ? "[new=]" : "");
    }
}

// Hosts that misbehave.

TEST_F(DataDialog, AControlThatIsClosedAndReleasedUnderAModalDialogLivesUntilItsEnd) {
    for (const auto& [command, caption] :
         {std::pair(42310, FormatCaption), std::pair(42316, ParamCaption)}) {
        DialogWindow dialog;
        ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
        Container container(dialog.Window());
        ASSERT_EQ(container.Show(control), S_OK);
        const HWND window = Container::WindowOf(control);
        const OpenDialog open(HasCaption(caption), [&](HWND shown) {
            container.Close();
            control = nullptr;
            EXPECT_FALSE(::IsWindow(window));
            Press(shown, shown == nullptr ? IDCANCEL : IDOK);
        });
        ::SendMessageW(window, WM_COMMAND, static_cast<WPARAM>(command), 0);
        EXPECT_TRUE(open.WasSeen());
        EXPECT_TRUE(Ocx::CanUnload());
    }
}

TEST_F(DataDialog, AHostWindowThatIsDestroyedUnderADialogTakesItAlong) {
    for (const auto& [command, caption] :
         {std::pair(42310, FormatCaption), std::pair(42316, ParamCaption)}) {
        const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
        Container container;
        ASSERT_EQ(container.Show(control), S_OK);
        const OpenDialog open(HasCaption(caption),
                              [&](HWND) { ::DestroyWindow(container.Window()); });
        ::SendMessageW(Container::WindowOf(control), WM_COMMAND, static_cast<WPARAM>(command), 0);
        EXPECT_TRUE(open.WasSeen());
        EXPECT_THAT(DialogsWith(caption), IsEmpty());
    }
}

TEST_F(DataDialog, AHostWindowThatIsDestroyedUnderTheParamQuestionLosesNothingThatIsAnswered) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Container container;
    ASSERT_EQ(container.Show(control), S_OK);
    Answering answer(IDYES, [&] { ::DestroyWindow(container.Window()); });
    const OpenDialog open(HasCaption(ParamCaption), [&](HWND dialog) {
        TypeInto(::GetDlgItem(dialog, NameField), u"new");
        ::SetFocus(::GetDlgItem(dialog, ValueField));
    });
    ::SendMessageW(Container::WindowOf(control), WM_COMMAND, 42316, 0);
    EXPECT_TRUE(open.WasSeen());
    EXPECT_EQ(Late(control).Number(L"ParamExist", {L"new"}), -1);
}

// The windows of the data source.

TEST_F(DataDialog, TheSourceWindowIsResizableAndItsFieldFillsIt) {
    Desk desk;
    desk.grid.Put(L"DataSource", {L"SELECT 编号 FROM t"});
    const HWND window = desk.OpenSource();
    EXPECT_EQ(ItemText(window, StatementField), L"SELECT 编号 FROM t");
    EXPECT_NE(::GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME, 0);
    const HWND field = ::GetDlgItem(window, StatementField);
    EXPECT_NE(::GetWindowLongPtrW(field, GWL_STYLE) & ES_MULTILINE, 0);
    EXPECT_EQ(::GetFocus(), field);
    for (const int size : {300, 500, 120}) {
        ::SetWindowPos(window, nullptr, 0, 0, size, size, SWP_NOMOVE | SWP_NOZORDER);
        RECT client{};
        ::GetClientRect(window, &client);
        const RECT place = PlaceOf(window, StatementField);
        EXPECT_TRUE(::EqualRect(&client, &place)) << size;
    }
}

TEST_F(DataDialog, ClosingTheSourceWindowWithoutAnEditAsksNothing) {
    Desk desk;
    desk.grid.Put(L"DataSource", {L"a"});
    const HWND window = desk.OpenSource();
    {
        const NoDialog question;
        ::SendMessageW(window, WM_CLOSE, 0, 0);
    }
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(desk.Source(), "a");
}

TEST_F(DataDialog, ClosingTheSourceWindowAfterAnEditAndAnsweringNoLeavesDataSourceUnchanged) {
    Desk desk;
    desk.grid.Put(L"DataSource", {L"a"});
    const HWND window = desk.OpenSource();
    desk.Type(u"x");
    Answering answer(IDNO);
    ::SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_THAT(answer.Texts, ElementsAre(L"是否确认对数据源的修改?"));
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(desk.Source(), "a");
}

TEST_P(DataDialogInEveryLoop, AStatementTypedOnTwoLinesIsStoredOnOneWithABlankAtTheJoint) {
    Desk desk(GetParam());
    desk.grid.Put(L"DataSource", {L""});
    EventNotes notes(desk.control);
    const HWND window = desk.OpenSource();
    desk.Type(u"SELECT 甲");
    desk.Key(VK_RETURN);
    desk.Key(VK_TAB);
    desk.Type(u"FROM 龘|~");
    EXPECT_EQ(ItemText(window, StatementField), L"SELECT 甲\r\nFROM 龘|~");
    EXPECT_EQ(::GetFocus(), ::GetDlgItem(window, StatementField));
    Answering answer(IDYES);
    desk.Key(VK_ESCAPE);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(answer.Texts.size(), 1U);
    EXPECT_EQ(desk.Source(), CodePage936FromUtf8("SELECT 甲 FROM 龘|~"));
    EXPECT_EQ(desk.grid.Text(L"ColName", {1}), "");
    EXPECT_THAT(notes.Fired, IsEmpty());
    EXPECT_EQ(DialogWindow::pressed, 0);
    EXPECT_EQ(desk.grid.Text(L"CellText", {1, 1}), "");
}

TEST_P(DataDialogInEveryLoop, KeysOfTheSheetStillReachTheSheetBesideASourceWindow) {
    Desk desk(GetParam());
    desk.OpenSource();
    ::SetFocus(desk.window);
    desk.Type(u"7");
    desk.Key(VK_RETURN);
    EXPECT_EQ(desk.grid.Text(L"CellText", {1, 1}), "7");
    EXPECT_EQ(DialogWindow::pressed, 0);
}

TEST_F(DataDialog, SeveralSourceWindowsStandAtOnceAndEachStoresItsOwn) {
    Desk desk;
    desk.grid.Put(L"DataSource", {L"0"});
    const HWND first = desk.OpenSource();
    const HWND second = desk.OpenSource();
    ASSERT_NE(first, second);
    Answering answer(IDYES);
    ::SetFocus(::GetDlgItem(first, StatementField));
    desk.Type(u"1");
    ::SendMessageW(first, WM_CLOSE, 0, 0);
    EXPECT_EQ(desk.Source(), "10");
    ::SetFocus(::GetDlgItem(second, StatementField));
    desk.Type(u"2");
    ::SendMessageW(second, WM_CLOSE, 0, 0);
    EXPECT_EQ(desk.Source(), "20");
}

TEST_F(DataDialog, SourceWindowsTakeNoInputWhileTheContainerIsModal) {
    Desk desk;
    const HWND window = desk.OpenSource();
    ComPtr<IOleInPlaceActiveObject> active;
    ASSERT_EQ(desk.control.As(&active), S_OK);
    EXPECT_EQ(active->EnableModeless(FALSE), S_OK);
    EXPECT_FALSE(::IsWindowEnabled(window));
    EXPECT_EQ(active->EnableModeless(TRUE), S_OK);
    EXPECT_TRUE(::IsWindowEnabled(window));
}

TEST_F(DataDialog, AHundredThousandBytesGoThroughASourceWindow) {
    Desk desk;
    std::wstring statement;
    while (statement.size() < 60000) {
        statement += L"列龘|";
    }
    desk.grid.Put(L"DataSource", {statement.c_str()});
    const HWND window = desk.OpenSource();
    EXPECT_EQ(ItemText(window, StatementField), statement);
    ::SendDlgItemMessageW(window, StatementField, EM_SETSEL, 60000, 60000);
    desk.Type(u"\rz");
    Answering answer(IDYES);
    ::SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(desk.Source(), TextFromWide(statement) + " z");
    EXPECT_EQ(desk.Source().size(), 100002U);
}

TEST_F(DataDialog, AnEmptyStatementIsStored) {
    Desk desk;
    desk.grid.Put(L"DataSource", {L"a"});
    const HWND window = desk.OpenSource();
    desk.Key(VK_DELETE);
    Answering answer(IDYES);
    ::SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(desk.Source(), "");
}

TEST_F(DataDialog, SourceWindowsGoWithTheControlUnasked) {
    const Handles before;
    {
        Desk desk;
        desk.OpenSource();
        desk.OpenSource();
        desk.Type(u"changed");
        Answering answer(IDYES);
        desk.container.Close();
        EXPECT_THAT(DialogsWith(SourceCaption), IsEmpty());
        EXPECT_THAT(answer.Texts, IsEmpty());
        EXPECT_EQ(desk.Source(), "");
        // It can be shown and asked again.
        EXPECT_EQ(desk.container.Show(desk.control), S_OK);
        EXPECT_NE(desk.OpenSource(), nullptr);
    }
    EXPECT_THAT(DialogsWith(SourceCaption), IsEmpty());
    const Handles after;
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.menus, before.menus);
}

TEST_F(DataDialog, SourceWindowsGoWithTheHostsWindow) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Container container;
    ASSERT_EQ(container.Show(control), S_OK);
    ::SendMessageW(Container::WindowOf(control), WM_COMMAND, 42311, 0);
    EXPECT_EQ(DialogsWith(SourceCaption).size(), 1U);
    ::DestroyWindow(container.Window());
    EXPECT_THAT(DialogsWith(SourceCaption), IsEmpty());
}

TEST_F(DataDialog, AControlReleasedUnderTheSourceQuestionLivesUntilTheAnswer) {
    DialogWindow dialog;
    ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Container container(dialog.Window());
    ASSERT_EQ(container.Show(control), S_OK);
    ::SendMessageW(Container::WindowOf(control), WM_COMMAND, 42311, 0);
    const std::vector<HWND> open = DialogsWith(SourceCaption);
    ASSERT_EQ(open.size(), 1U);
    TypeInto(::GetDlgItem(open.front(), StatementField), u"x");
    Answering answer(IDYES, [&] {
        container.Close();
        control = nullptr;
        EXPECT_FALSE(::IsWindow(open.front()));
        EXPECT_FALSE(Ocx::CanUnload());
    });
    ::SendMessageW(open.front(), WM_CLOSE, 0, 0);
    EXPECT_EQ(answer.Texts.size(), 1U);
    EXPECT_TRUE(Ocx::CanUnload());
}

TEST_F(DataDialog, AnAnswerIsStoredThoughTheWindowIsGoneMeanwhile) {
    Desk desk;
    const HWND window = desk.OpenSource();
    desk.Type(u"kept");
    Answering answer(IDYES, [&] { desk.container.Close(); });
    ::SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(desk.Source(), "kept");
}

TEST_F(DataDialog, AWindowThatIsClosedUnderItsQuestionAsksOnce) {
    Desk desk;
    const HWND window = desk.OpenSource();
    desk.Type(u"x");
    Answering answer(IDNO, [&] { ::SendMessageW(window, WM_CLOSE, 0, 0); });
    ::SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(answer.Texts.size(), 1U);
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(DataDialog, ManyDialogsOpenedAndClosedLeaveNoWindowsAndHandles) {
    Desk desk;
    const auto round = [&] {
        ::SendMessageW(desk.OpenSource(), WM_CLOSE, 0, 0);
        desk.Command(42310, FormatCaption, [](HWND dialog) { Press(dialog, IDOK); });
        desk.Command(42316, ParamCaption, [](HWND dialog) { Press(dialog, IDCANCEL); });
    };
    round();
    const Handles before;
    for (int i = 0; i < 10; ++i) {
        round();
    }
    EXPECT_EQ(Handles(), before);
    EXPECT_THAT(DialogsWith(SourceCaption), IsEmpty());
}

TEST_F(DataDialog, WithoutAWindowNoDialogOpens) {
    const Late grid(Ocx::Make(VeyGridClassId));
    for (const int command : {1011, 1012, 1017}) {
        const NoDialog dialog;
        EXPECT_EQ(grid.Call(L"SendCommand", {command}), S_OK);
    }
    EXPECT_THAT(DialogsWith(SourceCaption), IsEmpty());
}

}  // namespace

}  // namespace veygrid
