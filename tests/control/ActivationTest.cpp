// Activation in a container: verbs, focus, ambient and stock properties, quick activation.
#include <gmock/gmock.h>

#include "control/ClassIds.h"
#include "tests/control/ControlSite.h"
#include "tests/control/MessageLoops.h"
#include "tests/control/OpenDialog.h"

namespace veygrid {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class Activation : public ::testing::Test {
  protected:
    void SetUp() override { m_container.Extra = &m_site; }
    void TearDown() override {
        m_container.Close();
        m_control = nullptr;
        EXPECT_EQ(m_container.References, 1);
        EXPECT_TRUE(Ocx::CanUnload());
    }
    template <class Interface>
    ComPtr<Interface> As() const {
        ComPtr<Interface> part;
        EXPECT_EQ(m_control.As(&part), S_OK);
        return part;
    }
    HRESULT DoVerb(LONG verb) {
        return As<IOleObject>()->DoVerb(verb, nullptr, &m_container, 0, m_container.Window(),
                                        nullptr);
    }
    void Show() { ASSERT_EQ(m_container.Show(m_control), S_OK); }
    HWND Window() const { return Container::WindowOf(m_control); }
    Late Grid() const { return Late(m_control); }
    LONG_PTR Style() const { return ::GetWindowLongPtrW(Window(), GWL_STYLE); }
    void Tell(DISPID id) { EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(id), S_OK); }

    Container m_container;
    ControlSite m_site;
    ComPtr<IUnknown> m_control = Ocx::Make(VeyGridClassId);
};

TEST_F(Activation, TheContainerIsAskedAndToldInOrder) {
    Show();
    EXPECT_THAT(m_container.Calls,
                ElementsAre("CanInPlaceActivate", "OnInPlaceActivate", "ShowObject"));
    m_container.Calls.clear();
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_THAT(m_container.Calls, ElementsAre("OnUIActivate"));
    m_container.Calls.clear();
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_THAT(m_container.Calls, IsEmpty());
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_THAT(m_container.Calls, ElementsAre("OnUIDeactivate", "OnInPlaceDeactivate"));
    EXPECT_EQ(Window(), nullptr);
    m_container.Calls.clear();
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_THAT(m_container.Calls, IsEmpty());
}

TEST_F(Activation, CloseSavesWhatIsModifiedOnlyWhenItMay) {
    Show();
    Grid().Put(L"MaxRow", {9});
    m_container.Calls.clear();
    EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_THAT(m_container.Calls, ElementsAre("OnInPlaceDeactivate"));
    Show();
    m_container.Calls.clear();
    EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_THAT(m_container.Calls, ElementsAre("SaveObject", "OnInPlaceDeactivate"));
}

TEST_F(Activation, TheVerbsAreEditAndProperties) {
    ComPtr<IEnumOLEVERB> list;
    ASSERT_EQ(As<IOleObject>()->EnumVerbs(&list), S_OK);
    OLEVERB verbs[3] = {};
    ULONG count = 0;
    EXPECT_EQ(list->Next(3, verbs, &count), S_FALSE);
    ASSERT_EQ(count, 2U);
    EXPECT_EQ(verbs[0].lVerb, OLEIVERB_PRIMARY);
    EXPECT_STREQ(verbs[0].lpszVerbName, L"&Edit");
    EXPECT_EQ(verbs[1].lVerb, 1);
    EXPECT_STREQ(verbs[1].lpszVerbName, L"&Properties...");
    for (ULONG i = 0; i < count; ++i) {
        EXPECT_EQ(verbs[i].grfAttribs, static_cast<DWORD>(OLEVERBATTRIB_ONCONTAINERMENU));
        ::CoTaskMemFree(verbs[i].lpszVerbName);
    }
}

TEST_F(Activation, EachVerbHasItsResult) {
    ASSERT_EQ(As<IOleObject>()->SetClientSite(&m_container), S_OK);
    EXPECT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_TRUE(::IsWindowVisible(Window()));
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(::IsWindowVisible(Window()));
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(::IsWindowVisible(Window()));
    EXPECT_EQ(DoVerb(OLEIVERB_PRIMARY), S_OK);
    EXPECT_EQ(DoVerb(OLEIVERB_DISCARDUNDOSTATE), S_OK);
    EXPECT_EQ(DoVerb(OLEIVERB_OPEN), E_NOTIMPL);
    EXPECT_EQ(DoVerb(77), OLEOBJ_S_INVALIDVERB);
    EXPECT_EQ(DoVerb(-77), E_NOTIMPL);
    EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(As<IOleObject>()->SetClientSite(nullptr), S_OK);
}

TEST_F(Activation, BothPropertyVerbsLeaveTheFrameToAContainerThatHasOne) {
    m_site.FrameAnswer = S_OK;
    Show();
    EXPECT_EQ(DoVerb(OLEIVERB_PROPERTIES), S_OK);
    EXPECT_EQ(DoVerb(1), S_OK);
    EXPECT_EQ(m_site.Frames, 2);
}

TEST_F(Activation, ThePropertyFrameBearsTheNameThatTheContainerShows) {
    m_site.Ambient[DISPID_AMBIENT_DISPLAYNAME] = Arg(L"凭证表").value;
    Show();
    std::wstring title(100, L'\0');
    OpenDialog dialog([](HWND) { return true; },
                      [&](HWND frame) {
                          title.resize(::GetWindowTextW(frame, title.data(), 100));
                          ::PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
                      });
    EXPECT_EQ(DoVerb(OLEIVERB_PROPERTIES), S_OK);
    EXPECT_EQ(title, L"凭证表");
    EXPECT_EQ(m_site.Frames, 1);
}

TEST_F(Activation, TheContainerIsToldOfTheFocus) {
    Show();
    ::SetFocus(Window());
    ::SetFocus(m_container.Window());
    EXPECT_THAT(m_site.Focus, ElementsAre(true, false));
    EXPECT_EQ(m_container.Calls.back(), "OnUIActivate");
}

TEST_F(Activation, AKeyThatTheControlLeavesIsOfferedToTheContainer) {
    Show();
    const auto active = As<IOleInPlaceActiveObject>();
    MSG key{Window(), WM_KEYDOWN, VK_F5, 1, 0, {}};
    EXPECT_EQ(active->TranslateAccelerator(&key), S_FALSE);
    m_site.KeyAnswer = S_OK;
    EXPECT_EQ(active->TranslateAccelerator(&key), S_OK);
    MSG other{Window(), WM_USER, 0, 0, 0, {}};
    EXPECT_EQ(active->TranslateAccelerator(&other), S_FALSE);
    EXPECT_THAT(m_site.Keys, ElementsAre(Pair(VK_F5, 0U), Pair(VK_F5, 0U)));
}

TEST_F(Activation, TheContainersTextColourIsTheFirstOne) {
    m_site.Ambient[DISPID_AMBIENT_FORECOLOR] = Arg(0x332211).value;
    m_site.Ambient[DISPID_AMBIENT_BACKCOLOR] = Arg(0x112233).value;
    Show();
    const auto stream = As<IPersistStreamInit>();
    EXPECT_EQ(stream->InitNew(), S_OK);
    EXPECT_EQ(Grid().Number(L"ForeColor"), 0x332211);
    EXPECT_EQ(Grid().Number(L"BackColor"), 0xFFFFFF);
    Grid().Put(L"ForeColor", {5});
    EXPECT_EQ(Grid().Number(L"ForeColor"), 5);
    VARIANT systemColor{};
    systemColor.vt = VT_UI4;
    systemColor.ulVal = 0x80000005U;
    m_site.Ambient[DISPID_AMBIENT_FORECOLOR] = systemColor;
    EXPECT_EQ(stream->InitNew(), S_OK);
    EXPECT_EQ(static_cast<ULONG>(Grid().Number(L"ForeColor")), 0x80000005U);
    EXPECT_EQ(stream->IsDirty(), S_FALSE);
}

ComPtr<IDispatch> NewFont(const wchar_t* name) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(name);
    description.cySize.int64 = 120000;
    description.sWeight = FW_BOLD;
    ComPtr<IDispatch> font;
    EXPECT_EQ(::OleCreateFontIndirect(&description, IID_IDispatch,
                                      reinterpret_cast<void**>(font.GetAddressOf())),
              S_OK);
    return font;
}

TEST_F(Activation, TheContainersFontIsUsedUntilTheControlHasItsOwn) {
    const ComPtr<IDispatch> offered = NewFont(L"Arial");
    m_site.Ambient[DISPID_AMBIENT_FONT] = Arg(offered.Get()).value;
    Show();
    EXPECT_EQ(Grid().Object(L"Font").Object(), offered.Get());
    const ComPtr<IDispatch> own = NewFont(L"Tahoma");
    const Late grid = Grid();
    EXPECT_EQ(grid.Invoke(DISPID_FONT, DISPATCH_PROPERTYPUTREF, {own.Get()}), S_OK);
    EXPECT_EQ(grid.Object(L"Font").Object(), own.Get());
    EXPECT_EQ(
        grid.Invoke(DISPID_FONT, DISPATCH_PROPERTYPUTREF, {Arg(static_cast<IDispatch*>(nullptr))}),
        S_OK);
    EXPECT_EQ(grid.Object(L"Font").Object(), offered.Get());
}

TEST_F(Activation, AChangedAmbientPropertyRepaintsTheControl) {
    Show();
    for (const DISPID id : {DISPID_AMBIENT_FONT, DISPID_UNKNOWN}) {
        ::ValidateRect(Window(), nullptr);
        Tell(id);
        EXPECT_TRUE(::GetUpdateRect(Window(), nullptr, FALSE));
    }
}

TEST_F(Activation, ADeadUserInterfaceAnswersNoInput) {
    m_site.Ambient[DISPID_AMBIENT_UIDEAD] = Arg(true).value;
    Show();
    std::vector<DISPID> events;
    EventSink sink([&](DISPID id, DISPPARAMS&) {
        if (!IsOfPainting(id)) {
            events.push_back(id);
        }
    });
    const Connected connected(m_control, VeyGridEventsId, &sink);
    const auto press = [this] {
        ::PostMessageW(Window(), WM_KEYDOWN, VK_F5, 1);
        ::PostMessageW(Window(), WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(5, 5));
        MessageLoop(Loops[0], nullptr, nullptr).Run();
    };
    press();
    EXPECT_THAT(events, IsEmpty());
    m_site.Ambient[DISPID_AMBIENT_UIDEAD] = Arg(false).value;
    press();
    EXPECT_THAT(events, IsEmpty());
    Tell(DISPID_AMBIENT_UIDEAD);
    press();
    EXPECT_THAT(events, ElementsAre(DISPID_KEYDOWN, DISPID_MOUSEDOWN));
}

TEST_F(Activation, EnabledIsTheWindowsState) {
    Grid().Put(L"Enabled", {false});
    Show();
    EXPECT_FALSE(::IsWindowEnabled(Window()));
    Grid().Put(L"Enabled", {true});
    EXPECT_TRUE(::IsWindowEnabled(Window()));
    Grid().Put(L"Enabled", {false});
    EXPECT_FALSE(::IsWindowEnabled(Window()));
}

TEST_F(Activation, TheBorderComesAndGoesWithItsStyle) {
    Show();
    EXPECT_EQ(Style() & WS_BORDER, 0);
    RECT whole{};
    RECT framed{};
    ::GetClientRect(Window(), &whole);
    Grid().Put(L"BorderStyle", {1});
    EXPECT_NE(Style() & WS_BORDER, 0);
    ::GetClientRect(Window(), &framed);
    EXPECT_EQ(framed.right, whole.right - 2);
    Grid().Put(L"BorderStyle", {0});
    EXPECT_EQ(Style() & WS_BORDER, 0);
    ::GetClientRect(Window(), &framed);
    EXPECT_EQ(framed.right, whole.right);
}

TEST_F(Activation, TheWindowStandsWhereTheContainerPutsIt) {
    Show();
    const RECT place{20, 30, 220, 130};
    const RECT clip{0, 0, 120, 80};
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&place, &clip), S_OK);
    RECT window{};
    ::GetWindowRect(Window(), &window);
    ::MapWindowPoints(nullptr, m_container.Window(), reinterpret_cast<POINT*>(&window), 2);
    EXPECT_TRUE(::EqualRect(&window, &place));
    const HRGN region = ::CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(::GetWindowRgn(Window(), region), SIMPLEREGION);
    RECT shown{};
    ::GetRgnBox(region, &shown);
    EXPECT_EQ(shown.right, 100);
    EXPECT_EQ(shown.bottom, 50);
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&place, &place), S_OK);
    EXPECT_EQ(::GetWindowRgn(Window(), region), ERROR);
    ::DeleteObject(region);
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(nullptr, &place), E_INVALIDARG);
}

TEST_F(Activation, QuickActivationConnectsEverythingAtOnce) {
    Advised view;
    int fired = 0;
    EventSink sink([&](DISPID, DISPPARAMS&) { ++fired; });
    QACONTAINER container{};
    container.cbSize = sizeof container;
    container.pClientSite = &m_container;
    container.pAdviseSink = reinterpret_cast<IAdviseSinkEx*>(static_cast<IAdviseSink*>(&view));
    container.pUnkEventSink = &sink;
    QACONTROL control{};
    control.cbSize = sizeof control;
    const auto quick = As<IQuickActivate>();
    ASSERT_EQ(quick->QuickActivate(&container, &control), S_OK);
    EXPECT_EQ(control.dwMiscStatus, 131473U);
    EXPECT_EQ(control.dwViewStatus, static_cast<DWORD>(VIEWSTATUS_OPAQUE));
    EXPECT_NE(control.dwEventCookie, 0U);
    EXPECT_EQ(control.dwPropNotifyCookie, 0U);
    ComPtr<IOleClientSite> site;
    EXPECT_EQ(As<IOleObject>()->GetClientSite(&site), S_OK);
    EXPECT_EQ(site.Get(), static_cast<IOleClientSite*>(&m_container));
    Grid().Put(L"MaxRow", {9});
    EXPECT_EQ(fired, 1);
    Grid().Put(L"BackColor", {1});
    EXPECT_GT(view.ViewChanges, 0);
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(VeyGridEventsId, &point), S_OK);
    EXPECT_EQ(point->Unadvise(control.dwEventCookie), S_OK);
    EXPECT_EQ(As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
    EXPECT_EQ(sink.References, 1);
    EXPECT_EQ(view.References, 1);
    EXPECT_EQ(As<IOleObject>()->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(quick->QuickActivate(nullptr, &control), E_INVALIDARG);
    container.cbSize = 1;
    EXPECT_EQ(quick->QuickActivate(&container, &control), E_INVALIDARG);
}

TEST_F(Activation, QuickActivationSpeaksTheExtentOfTheObject) {
    const auto quick = As<IQuickActivate>();
    SIZEL extent{5000, 3000};
    EXPECT_EQ(quick->SetContentExtent(&extent), S_OK);
    SIZEL read{};
    EXPECT_EQ(As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &read), S_OK);
    EXPECT_EQ(read.cx, 5000);
    EXPECT_EQ(quick->GetContentExtent(&read), S_OK);
    EXPECT_EQ(read.cy, 3000);
    EXPECT_EQ(quick->SetContentExtent(nullptr), E_POINTER);
}

TEST_F(Activation, AMessageWithoutAWindowIsOwnedByTheLastControlWithOne) {
    Show();
    HWND owner = nullptr;
    OpenDialog dialog([](HWND) { return true; },
                      [&](HWND box) {
                          owner = ::GetWindow(box, GW_OWNER);
                          ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
                      });
    const ComPtr<IUnknown> other = Ocx::Make(VeyGridClassId);
    EXPECT_EQ(Late(other).Invoke(DISPID_ABOUTBOX, DISPATCH_METHOD, {}), S_OK);
    EXPECT_EQ(owner, m_container.Window());
}

}  // namespace

}  // namespace veygrid
