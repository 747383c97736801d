// The control in the system's own containers: host windows, storages, drawing and property frame.
#include <gmock/gmock.h>

#include "control/ClassIds.h"
#include "tests/control/ManifestInUse.h"
#include "tests/control/MessageLoops.h"
#include "tests/control/OpenDialog.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

using ::testing::ElementsAre;

constexpr const wchar_t* ProgId = L"VEYGRID.VeyGridCtrl.1";

struct HostKind {
    const char* name;
    const wchar_t* module;
    const wchar_t* windowClass;
    LoopKind loop;
};

constexpr HostKind Hosts[] = {{"AtlPlain", L"atl.dll", L"AtlAxWin", Loops[0]},
                              {"AtlDialog", L"atl.dll", L"AtlAxWin", Loops[1]},
                              {"Atl100Plain", L"atl100.dll", L"AtlAxWin100", Loops[0]},
                              {"Atl100Dialog", L"atl100.dll", L"AtlAxWin100", Loops[1]}};

// Host windows know nothing of accelerators and ambient properties.
class HostWindow : public ::testing::TestWithParam<HostKind> {
  protected:
    void SetUp() override {
        m_atl = ::LoadLibraryW(GetParam().module);
        ASSERT_NE(m_atl, nullptr);
        WNDCLASSW known{};
        ASSERT_TRUE(::GetClassInfoW(nullptr, GetParam().windowClass, &known) ||
                    Entry<BOOL WINAPI()>("AtlAxWinInit")());
    }
    void TearDown() override { EXPECT_TRUE(Ocx::CanUnload()); }

    template <class Function>
    Function* Entry(const char* name) {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(m_atl, name)));
    }
    HWND Make(int left) {
        return ::CreateWindowExW(0, GetParam().windowClass, ProgId,
                                 WS_CHILD | WS_VISIBLE | WS_TABSTOP, left, 0, 150, 100,
                                 m_dialog.Window(), nullptr, nullptr, nullptr);
    }
    ComPtr<IUnknown> ControlOf(HWND host) {
        ComPtr<IUnknown> control;
        EXPECT_EQ(Entry<HRESULT WINAPI(HWND, IUnknown**)>("AtlAxGetControl")(
                      host, control.GetAddressOf()),
                  S_OK);
        return control;
    }
    void Run() { MessageLoop(GetParam().loop, m_dialog.Window(), nullptr).Run(); }

    const ManifestInUse m_manifest;
    DialogWindow m_dialog;
    HMODULE m_atl = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Foreign, HostWindow, ::testing::ValuesIn(Hosts),
                         [](const auto& info) { return info.param.name; });

TEST_P(HostWindow, ShowsTheControlAndResizesIt) {
    const HWND host = Make(0);
    ASSERT_NE(host, nullptr);
    {
        const ComPtr<IUnknown> control = ControlOf(host);
        const HWND window = Container::WindowOf(control);
        EXPECT_TRUE(::IsChild(host, window));
        EXPECT_TRUE(::IsWindowVisible(window));
        const auto hasSize = [window](LONG width, LONG height) {
            RECT place{};
            ::GetWindowRect(window, &place);
            return place.right - place.left == width && place.bottom - place.top == height;
        };
        EXPECT_TRUE(hasSize(150, 100));
        ::MoveWindow(host, 0, 0, 210, 60, TRUE);
        EXPECT_TRUE(hasSize(210, 60));
        EXPECT_EQ(Late(control).Number(L"MaxCol"), 20);
        EXPECT_EQ(Late(control).Number(L"ForeColor") & 0xFFFFFF, COLOR_WINDOWTEXT);
    }
    ::DestroyWindow(host);
}

TEST_P(HostWindow, PaintsWhatIsInvalid) {
    const HWND host = Make(0);
    const HWND window = Container::WindowOf(ControlOf(host));
    Late(ControlOf(host)).Put(L"BackColor", {0x123456});
    EXPECT_TRUE(::GetUpdateRect(window, nullptr, FALSE));
    ::UpdateWindow(window);
    EXPECT_FALSE(::GetUpdateRect(window, nullptr, FALSE));
    ::DestroyWindow(host);
}

TEST_P(HostWindow, KeysAndClicksReachTheControlOnce) {
    const HWND host = Make(0);
    {
        const ComPtr<IUnknown> control = ControlOf(host);
        const HWND window = Container::WindowOf(control);
        std::vector<DISPID> events;
        EventSink sink([&](DISPID id, DISPPARAMS&) {
            if (!IsOfPainting(id)) {
                events.push_back(id);
            }
        });
        const Connected connected(control, VeyGridEventsId, &sink);
        ::PostMessageW(window, WM_KEYDOWN, VK_F5, 1);
        ::PostMessageW(window, WM_KEYUP, VK_F5, 1);
        ::PostMessageW(window, WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(5, 5));
        ::PostMessageW(window, WM_MBUTTONUP, 0, MAKELPARAM(5, 5));
        Run();
        EXPECT_THAT(events,
                    ElementsAre(DISPID_KEYDOWN, DISPID_KEYUP, DISPID_MOUSEDOWN, DISPID_MOUSEUP));
    }
    ::DestroyWindow(host);
}

TEST_P(HostWindow, TwoControlsOnOneFormDoNotDisturbEachOther) {
    const HWND first = Make(0);
    const HWND second = Make(150);
    {
        const ComPtr<IUnknown> one = ControlOf(first);
        const ComPtr<IUnknown> two = ControlOf(second);
        int keysOfOne = 0;
        int keysOfTwo = 0;
        EventSink sinkOfOne([&](DISPID id, DISPPARAMS&) { keysOfOne += IsOfPainting(id) ? 0 : 1; });
        EventSink sinkOfTwo([&](DISPID id, DISPPARAMS&) { keysOfTwo += IsOfPainting(id) ? 0 : 1; });
        const Connected connectedOne(one, VeyGridEventsId, &sinkOfOne);
        const Connected connectedTwo(two, VeyGridEventsId, &sinkOfTwo);
        Late(one).Put(L"MaxRow", {7});
        EXPECT_EQ(Late(two).Number(L"MaxRow"), 50);
        EXPECT_EQ(keysOfTwo, 0);
        keysOfOne = 0;
        ::PostMessageW(Container::WindowOf(two), WM_KEYDOWN, VK_F5, 1);
        Run();
        EXPECT_EQ(keysOfOne, 0);
        EXPECT_EQ(keysOfTwo, 1);
        ::SetFocus(Container::WindowOf(one));
        ::SetFocus(Container::WindowOf(two));
        EXPECT_EQ(::GetFocus(), Container::WindowOf(two));
        EXPECT_TRUE(::IsWindowVisible(Container::WindowOf(one)));
    }
    ::DestroyWindow(first);
    EXPECT_FALSE(Ocx::CanUnload());
    {
        const ComPtr<IUnknown> two = ControlOf(second);
        ::PostMessageW(Container::WindowOf(two), WM_KEYDOWN, VK_F5, 1);
        Run();
        EXPECT_EQ(Late(two).Number(L"MaxRow"), 50);
    }
    ::DestroyWindow(second);
}

TEST_P(HostWindow, AFormDestroyedWithItsControlsReleasesEverything) {
    const HWND form = ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"form", WS_POPUP, 0, 0, 400,
                                        300, nullptr, nullptr, nullptr, nullptr);
    std::vector<HWND> windows;
    for (const int left : {0, 160}) {
        const HWND host = Make(left);
        ::SetParent(host, form);
        windows.push_back(host);
        windows.push_back(Container::WindowOf(ControlOf(host)));
    }
    ::DestroyWindow(form);
    for (const HWND window : windows) {
        EXPECT_FALSE(::IsWindow(window));
    }
}

TEST_P(HostWindow, FocusGoesToTheControlAndLeavesItAgain) {
    const HWND host = Make(0);
    const HWND window = Container::WindowOf(ControlOf(host));
    ::SetFocus(host);
    ::SetFocus(window);
    EXPECT_EQ(::GetFocus(), window);
    const HWND button = ::GetDlgItem(m_dialog.Window(), IDOK);
    ::SetFocus(button);
    EXPECT_EQ(::GetFocus(), button);
    ::SetFocus(window);
    EXPECT_EQ(::GetFocus(), window);
    ::DestroyWindow(host);
}

class Foreign : public ::testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(Ocx::CanUnload()); }

    static ComPtr<IStorage> NewStorage() {
        ComPtr<IStorage> storage;
        EXPECT_EQ(
            ::StgCreateDocfile(
                nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE,
                0, &storage),
            S_OK);
        return storage;
    }

    const ManifestInUse m_manifest;
};

TEST_F(Foreign, OleLoadFindsWhatOleSaveKept) {
    const ComPtr<IStorage> storage = NewStorage();
    const ComPtr<IUnknown> saved = Ocx::Make(VeyGridClassId);
    Late(saved).Put(L"CellText", {3, 2, L"摘要"});
    ComPtr<IPersistStorage> persist;
    ASSERT_EQ(saved.As(&persist), S_OK);
    ASSERT_EQ(::OleSave(persist.Get(), storage.Get(), FALSE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    CLSID clsid{};
    EXPECT_EQ(::ReadClassStg(storage.Get(), &clsid), S_OK);
    EXPECT_EQ(clsid, VeyGridClassId);
    ComPtr<IOleObject> loaded;
    ASSERT_EQ(::OleLoad(storage.Get(), IID_IOleObject, nullptr,
                        reinterpret_cast<void**>(loaded.GetAddressOf())),
              S_OK);
    ComPtr<IUnknown> object;
    loaded.As(&object);
    EXPECT_EQ(Late(object).Text(L"CellText", {3, 2}), CodePage936FromUtf8("摘要"));
    loaded->Close(OLECLOSE_NOSAVE);
}

TEST_F(Foreign, OleCreateMakesAnInitialisedControlInAStorage) {
    const ComPtr<IStorage> storage = NewStorage();
    Container container;
    {
        ComPtr<IOleObject> object;
        ASSERT_EQ(::OleCreate(VeyGridClassId, IID_IOleObject, OLERENDER_NONE, nullptr, &container,
                              storage.Get(), reinterpret_cast<void**>(object.GetAddressOf())),
                  S_OK);
        EXPECT_EQ(::OleSetContainedObject(object.Get(), TRUE), S_OK);
        EXPECT_EQ(::OleRun(object.Get()), S_OK);
        ComPtr<IUnknown> unknown;
        object.As(&unknown);
        EXPECT_EQ(Late(unknown).Number(L"MaxRow"), 50);
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    }
    EXPECT_EQ(container.References, 1);
}

TEST_F(Foreign, OleDrawFillsABitmapInItsPlaceAlone) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 100, -80, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HDC target = ::CreateCompatibleDC(nullptr);
    const HGDIOBJ before = ::SelectObject(target, bitmap);
    const RECT place{10, 10, 90, 70};
    EXPECT_EQ(::OleDraw(control.Get(), DVASPECT_CONTENT, target, &place), S_OK);
    EXPECT_NE(::GetPixel(target, 80, 60), 0U);
    EXPECT_EQ(::GetPixel(target, 5, 5), 0U);
    EXPECT_EQ(::GetPixel(target, 95, 75), 0U);
    ::SelectObject(target, before);
    ::DeleteDC(target);
    ::DeleteObject(bitmap);
}

TEST_F(Foreign, OleDrawIntoAMetafileLeavesRecordsThatPlay) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const RECT place{0, 0, 60, 40};
    const HDC recorder = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(::OleDraw(control.Get(), DVASPECT_CONTENT, recorder, &place), S_OK);
    const HENHMETAFILE picture = ::CloseEnhMetaFile(recorder);
    ENHMETAHEADER header{};
    ASSERT_NE(::GetEnhMetaFileHeader(picture, sizeof header, &header), 0U);
    EXPECT_GT(header.nRecords, 2U);
    EXPECT_GE(header.rclBounds.right, 50);
    ::DeleteEnhMetaFile(picture);
}

BOOL CALLBACK TakeDataSource(HWND window, LPARAM target) {
    constexpr int DataSourceField = 1050;
    if (::GetDlgCtrlID(window) == DataSourceField) {
        wchar_t text[100] = {};
        ::GetWindowTextW(window, text, 100);
        *reinterpret_cast<std::wstring*>(target) = text;
    }
    return TRUE;
}

TEST_F(Foreign, TheSystemsPropertyFrameShowsThePage) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late(control).Put(L"DataSource", {L"SELECT 1"});
    std::wstring shown;
    OpenDialog dialog([](HWND) { return true; },
                      [&](HWND frame) {
                          ::EnumChildWindows(frame, TakeDataSource,
                                             reinterpret_cast<LPARAM>(&shown));
                          ::PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
                      });
    IUnknown* object = control.Get();
    CLSID page = PropertyPageClassId;
    EXPECT_EQ(::OleCreatePropertyFrame(nullptr, 0, 0, L"VeyGrid", 1, &object, 1, &page,
                                       LOCALE_USER_DEFAULT, 0, nullptr),
              S_OK);
    EXPECT_TRUE(dialog.WasSeen());
    EXPECT_EQ(shown, L"SELECT 1");
}

}  // namespace

}  // namespace veygrid
