// The property page and the frame around it.
#include <gmock/gmock.h>

#include <functional>

#include "control/ClassIds.h"
#include "platform/win32/ole/PropertyFrame.h"
#include "tests/control/Container.h"
#include "tests/control/OpenDialog.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

constexpr int BkImageField = 1031;
constexpr int BrowseButton = 1034;
constexpr int AllowEditField = 1048;
constexpr int RowModeField = 1049;
constexpr int DataSourceField = 1050;
constexpr int ApplyButton = 103;
constexpr const wchar_t* FrameTitle = L"VeyGrid Control";

class PageSite final : public IPropertyPageSite {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        *target = iid == IID_IUnknown || iid == IID_IPropertyPageSite ? this : nullptr;
        if (*target != nullptr) {
            AddRef();
        }
        return *target == nullptr ? E_NOINTERFACE : S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++References); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--References); }
    STDMETHODIMP OnStatusChange(DWORD flags) override {
        Flags.push_back(flags);
        return S_OK;
    }
    STDMETHODIMP GetLocaleID(LCID* locale) override {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) override { return S_FALSE; }

    std::vector<DWORD> Flags;
    long References = 1;
};

// The page alone, activated on a control in a window of the test.
class PropertyPage : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(Ocx::Make(PropertyPageClassId).As(&m_page), S_OK);
        EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK);
        IUnknown* object = m_control.Get();
        EXPECT_EQ(m_page->SetObjects(1, &object), S_OK);
    }
    void TearDown() override {
        m_page->SetObjects(0, nullptr);
        m_page->SetPageSite(nullptr);
        m_page = nullptr;
        m_control = nullptr;
        EXPECT_EQ(m_site.References, 1);
        EXPECT_TRUE(Ocx::CanUnload());
    }
    void Activate() {
        const RECT place{5, 6, 505, 406};
        ASSERT_EQ(m_page->Activate(m_container.Window(), &place, TRUE), S_OK);
        m_page->Show(SW_SHOW);
    }
    HWND Window() const {
        return ::FindWindowExW(m_container.Window(), nullptr, L"#32770", nullptr);
    }
    HWND Field(int id) const { return ::GetDlgItem(Window(), id); }
    std::wstring TextOf(int id) const {
        std::wstring text(100000, L'\0');
        text.resize(::GetDlgItemTextW(Window(), id, text.data(), static_cast<int>(text.size())));
        return text;
    }
    void Click(int id) { ::SendMessageW(Field(id), BM_CLICK, 0, 0); }
    Late Grid() const { return Late(m_control); }

    Container m_container;
    PageSite m_site;
    ComPtr<IUnknown> m_control = Ocx::Make(VeyGridClassId);
    ComPtr<IPropertyPage2> m_page;
};

TEST_F(PropertyPage, TellsItsTitleSizeAndHelp) {
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    ASSERT_EQ(m_page->GetPageInfo(&info), S_OK);
    EXPECT_STREQ(info.pszTitle, L"General");
    EXPECT_STREQ(info.pszDocString, L"Names to appear in the control");
    EXPECT_STREQ(info.pszHelpFile, L"VEYGRID.HLP");
    EXPECT_EQ(info.dwHelpContext, 0U);
    // Twice as wide as its font's average character for every eight units, and more.
    EXPECT_GT(info.size.cx, 360);
    EXPECT_GT(info.size.cy, 260);
    ::CoTaskMemFree(info.pszTitle);
    ::CoTaskMemFree(info.pszDocString);
    ::CoTaskMemFree(info.pszHelpFile);
    EXPECT_EQ(m_page->GetPageInfo(nullptr), E_POINTER);
}

TEST_F(PropertyPage, ShowsTheFourPropertiesOfTheControl) {
    Grid().Put(L"BkImage", {L"C:\\图\\背景.bmp"});
    Grid().Put(L"AllowEdit", {false});
    Grid().Put(L"RowMode", {true});
    Grid().Put(L"DataSource", {L"SELECT a FROM 凭证"});
    Activate();
    EXPECT_EQ(TextOf(BkImageField), L"C:\\图\\背景.bmp");
    EXPECT_EQ(TextOf(DataSourceField), L"SELECT a FROM 凭证");
    EXPECT_FALSE(::IsDlgButtonChecked(Window(), AllowEditField));
    EXPECT_TRUE(::IsDlgButtonChecked(Window(), RowModeField));
    EXPECT_EQ(m_page->IsPageDirty(), S_FALSE);
    EXPECT_TRUE(m_site.Flags.empty());
}

TEST_F(PropertyPage, ALongDataSourceTextStandsInTheMultiLineFieldAsStored) {
    std::wstring text = L"SELECT ";
    while (text.size() < 70000) {
        text += L"字段|{~名}, \r\n";
    }
    Grid().Put(L"DataSource", {text.c_str()});
    Activate();
    EXPECT_EQ(TextOf(DataSourceField), text);
    EXPECT_NE(::GetWindowLongPtrW(Field(DataSourceField), GWL_STYLE) & ES_MULTILINE, 0);
}

TEST_F(PropertyPage, APathTypedByHandMarksThePageAndIsApplied) {
    Activate();
    ::SetFocus(Field(BkImageField));
    ::SendMessageW(Field(BkImageField), WM_CHAR, L'x', 1);
    EXPECT_EQ(m_page->IsPageDirty(), S_OK);
    EXPECT_FALSE(m_site.Flags.empty());
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_EQ(Grid().Text(L"BkImage"), "x");
    EXPECT_EQ(m_page->IsPageDirty(), S_FALSE);
    EXPECT_EQ(m_site.Flags.back(), static_cast<DWORD>(PROPPAGESTATUS_CLEAN));
}

TEST_F(PropertyPage, ApplyWritesTheChangedFieldsAlone) {
    Activate();
    Click(RowModeField);
    Grid().Put(L"AllowEdit", {false});
    int modified = 0;
    EventSink sink([&](DISPID id, DISPPARAMS&) { modified += id == 5 ? 1 : 0; });
    const Connected connected(m_control, VeyGridEventsId, &sink);
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_EQ(Grid().Number(L"RowMode"), -1);
    EXPECT_EQ(Grid().Number(L"AllowEdit"), 0);
    EXPECT_EQ(modified, 1);
}

TEST_F(PropertyPage, ANewDataSourceIsParsedAsUsual) {
    Activate();
    ::SetDlgItemTextW(Window(), DataSourceField, L"SELECT 编号, 摘要 FROM 凭证");
    // A multi-line field tells of its changes only when they are typed.
    ::SendMessageW(Field(DataSourceField), WM_CHAR, L' ', 1);
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_EQ(Grid().Text(L"ColName", {2}), CodePage936FromUtf8("摘要"));
}

TEST_F(PropertyPage, SeveralControlsAreWrittenTogetherAndTheirDifferencesLeftOpen) {
    const ComPtr<IUnknown> other = Ocx::Make(VeyGridClassId);
    Late(other).Put(L"BkImage", {L"other.bmp"});
    Late(other).Put(L"RowMode", {true});
    IUnknown* objects[] = {m_control.Get(), other.Get()};
    ASSERT_EQ(m_page->SetObjects(2, objects), S_OK);
    Activate();
    EXPECT_EQ(TextOf(BkImageField), L"");
    EXPECT_FALSE(::IsDlgButtonChecked(Window(), RowModeField));
    EXPECT_TRUE(::IsDlgButtonChecked(Window(), AllowEditField));
    Click(AllowEditField);
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_EQ(Grid().Number(L"AllowEdit"), 0);
    EXPECT_EQ(Late(other).Number(L"AllowEdit"), 0);
    EXPECT_EQ(Late(other).Number(L"RowMode"), -1);
    EXPECT_EQ(Late(other).Text(L"BkImage"), "other.bmp");
}

TEST_F(PropertyPage, APropertyLeadsToItsField) {
    Activate();
    ASSERT_EQ(m_page->EditProperty(34), S_OK);
    EXPECT_EQ(::GetFocus(), Field(BkImageField));
    ASSERT_EQ(m_page->EditProperty(27), S_OK);
    EXPECT_EQ(::GetFocus(), Field(RowModeField));
    EXPECT_EQ(m_page->EditProperty(15), E_NOTIMPL);
}

TEST_F(PropertyPage, AWrongOrderOfCallsIsRefused) {
    const RECT place{0, 0, 10, 10};
    EXPECT_EQ(m_page->Deactivate(), E_UNEXPECTED);
    EXPECT_EQ(m_page->Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_EQ(m_page->Move(&place), E_UNEXPECTED);
    EXPECT_EQ(m_page->Apply(), E_UNEXPECTED);
    EXPECT_EQ(m_page->EditProperty(34), E_UNEXPECTED);
    EXPECT_EQ(m_page->Activate(m_container.Window(), nullptr, TRUE), E_POINTER);
    EXPECT_EQ(m_page->SetPageSite(&m_site), E_UNEXPECTED);
    EXPECT_EQ(m_page->SetObjects(1, nullptr), E_POINTER);
    EXPECT_EQ(m_page->TranslateAccelerator(nullptr), E_POINTER);
    m_page->SetObjects(0, nullptr);
    EXPECT_EQ(m_page->Activate(m_container.Window(), &place, TRUE), E_UNEXPECTED);
    IUnknown* object = m_control.Get();
    m_page->SetObjects(1, &object);
    ASSERT_EQ(m_page->Activate(m_container.Window(), &place, TRUE), S_OK);
    EXPECT_EQ(m_page->Activate(m_container.Window(), &place, TRUE), E_UNEXPECTED);
    EXPECT_EQ(m_page->Move(nullptr), E_POINTER);
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    EXPECT_EQ(Window(), nullptr);
}

TEST_F(PropertyPage, APageLetGoWithoutDeactivationTakesItsWindowAlong) {
    Activate();
    const HWND window = Window();
    m_page->SetObjects(0, nullptr);
    m_page->SetPageSite(nullptr);
    m_page = nullptr;
    EXPECT_FALSE(::IsWindow(window));
    ASSERT_EQ(Ocx::Make(PropertyPageClassId).As(&m_page), S_OK);
}

TEST_F(PropertyPage, CancellingTheFileDialogLeavesFieldAndStateAsTheyWere) {
    Grid().Put(L"BkImage", {L"old.bmp"});
    Activate();
    OpenDialog dialog([](HWND window) { return ::GetWindow(window, GW_OWNER) != nullptr; },
                      [](HWND window) { ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0); });
    Click(BrowseButton);
    EXPECT_TRUE(dialog.WasSeen());
    EXPECT_EQ(TextOf(BkImageField), L"old.bmp");
    EXPECT_EQ(m_page->IsPageDirty(), S_FALSE);
}

// The frame that the control opens itself.
class PropertyFrame : public ::testing::Test {
  protected:
    // Opens the pages by the control's verb and lets the user act in the frame.
    void Open(std::function<void(HWND)> act) {
        OpenDialog dialog(
            [](HWND window) {
                wchar_t title[100] = {};
                ::GetWindowTextW(window, title, 100);
                return std::wstring(title) == FrameTitle;
            },
            std::move(act));
        ComPtr<IOleObject> object;
        ASSERT_EQ(m_control.As(&object), S_OK);
        EXPECT_EQ(
            object->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, m_container.Window(), nullptr),
            S_OK);
        EXPECT_TRUE(dialog.WasSeen());
    }
    void TearDown() override {
        m_control = nullptr;
        EXPECT_TRUE(Ocx::CanUnload());
    }
    static void Click(HWND frame, int id) { ::SendMessageW(Find(frame, id), BM_CLICK, 0, 0); }
    static HWND Find(HWND frame, int id) {
        const HWND page = ::FindWindowExW(frame, nullptr, L"#32770", nullptr);
        const HWND own = ::GetDlgItem(frame, id);
        return own != nullptr ? own : ::GetDlgItem(page, id);
    }

    Container m_container;
    ComPtr<IUnknown> m_control = Ocx::Make(VeyGridClassId);
};

TEST_F(PropertyFrame, OkAppliesWhatWasChanged) {
    Open([](HWND frame) {
        EXPECT_FALSE(::IsWindowEnabled(Find(frame, ApplyButton)));
        Click(frame, AllowEditField);
        EXPECT_TRUE(::IsWindowEnabled(Find(frame, ApplyButton)));
        Click(frame, IDOK);
    });
    EXPECT_EQ(Late(m_control).Number(L"AllowEdit"), 0);
}

TEST_F(PropertyFrame, CancelChangesNothing) {
    Open([](HWND frame) {
        Click(frame, AllowEditField);
        Click(frame, IDCANCEL);
    });
    EXPECT_EQ(Late(m_control).Number(L"AllowEdit"), -1);
}

TEST_F(PropertyFrame, ApplyWritesAndKeepsTheFrameOpen) {
    Open([this](HWND frame) {
        Click(frame, RowModeField);
        Click(frame, ApplyButton);
        EXPECT_EQ(Late(m_control).Number(L"RowMode"), -1);
        EXPECT_FALSE(::IsWindowEnabled(Find(frame, ApplyButton)));
        EXPECT_TRUE(::IsWindow(frame));
        Click(frame, IDCANCEL);
    });
    EXPECT_EQ(Late(m_control).Number(L"RowMode"), -1);
}

TEST_F(PropertyFrame, ThePageStandsInsideTheFrameUnderItsTitle) {
    Open([](HWND frame) {
        const HWND page = ::FindWindowExW(frame, nullptr, L"#32770", nullptr);
        RECT inner{};
        RECT outer{};
        ::GetWindowRect(page, &inner);
        ::GetWindowRect(frame, &outer);
        RECT common{};
        EXPECT_TRUE(::IntersectRect(&common, &inner, &outer));
        EXPECT_TRUE(::EqualRect(&common, &inner));
        EXPECT_TRUE(::IsWindowVisible(page));
        Click(frame, IDCANCEL);
    });
}

TEST_F(PropertyFrame, TheMenuCommandOpensItToo) {
    ASSERT_EQ(m_container.Show(m_control), S_OK);
    OpenDialog dialog([](HWND window) { return ::GetDlgItem(window, ApplyButton) != nullptr; },
                      [](HWND frame) { Click(frame, IDCANCEL); });
    ::SendMessageW(Container::WindowOf(m_control), WM_COMMAND, 42320, 0);
    EXPECT_TRUE(dialog.WasSeen());
    m_container.Close();
}

TEST(PropertyFrameAlone, WithoutPagesItDoesNotOpen) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    EXPECT_EQ(ShowPropertyFrame({nullptr, L"", control.Get(), {}, LOCALE_USER_DEFAULT}), E_FAIL);
}

}  // namespace

}  // namespace veygrid
