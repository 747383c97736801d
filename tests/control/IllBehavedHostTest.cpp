// Hosts that behave badly: they free the control while it calls them, call back, and answer with
// failures and lies. No crash, nothing left behind, a defined answer.
#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <optional>

#include "control/AutomationTable.h"
#include "control/ClassIds.h"
#include "tests/control/Container.h"

namespace veygrid {

namespace {

bool CanUnload() {
    return Ocx::Entry<HRESULT WINAPI()>("DllCanUnloadNow")() == S_OK;
}

// A site whose every call does what the test wants and answers as it likes.
class RudeSite final : public IOleClientSite, public IOleInPlaceSite, public IAdviseSink {
  public:
    RudeSite()
        : m_window(::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"host", WS_POPUP, 10, 10, 300,
                                     200, nullptr, nullptr, nullptr, nullptr)) {
        ::ShowWindow(m_window, SW_SHOWNOACTIVATE);
    }
    RudeSite(const RudeSite&) = delete;
    RudeSite& operator=(const RudeSite&) = delete;
    ~RudeSite() { ::DestroyWindow(m_window); }

    HWND Window() const { return m_window; }
    // What happens at the call of that name; without an entry it succeeds and does nothing.
    std::map<std::string, std::function<HRESULT()>> At;
    std::map<std::string, int> Count;
    long References = 1;

    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        *target = nullptr;
        if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
            *target = static_cast<IOleClientSite*>(this);
        } else if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow) {
            *target = static_cast<IOleInPlaceSite*>(this);
        } else if (iid == IID_IAdviseSink) {
            *target = static_cast<IAdviseSink*>(this);
        }
        if (*target == nullptr || FAILED(Do("QueryInterface"))) {
            *target = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++References); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--References); }
    STDMETHODIMP SaveObject() override { return Do("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return Do("GetMoniker"); }
    STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    STDMETHODIMP ShowObject() override { return Do("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) override { return Do("OnShowWindow"); }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }
    STDMETHODIMP GetWindow(HWND* window) override {
        *window = m_window;
        return Do("GetWindow");
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }
    STDMETHODIMP CanInPlaceActivate() override { return Do("CanInPlaceActivate"); }
    STDMETHODIMP OnInPlaceActivate() override { return Do("OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() override { return Do("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO) override {
        *frame = nullptr;
        *document = nullptr;
        *position = *clip = {0, 0, 200, 100};
        return Do("GetWindowContext");
    }
    STDMETHODIMP Scroll(SIZE) override { return S_OK; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return Do("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() override { return Do("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override { Do("OnDataChange"); }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { Do("OnViewChange"); }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override { Do("OnClose"); }

  private:
    HRESULT Do(const char* call) {
        ++Count[call];
        const auto found = At.find(call);
        if (found == At.end()) {
            return S_OK;
        }
        const std::function<HRESULT()> act = found->second;
        return act();
    }

    HWND m_window;
};

// One control in a rude site, with all that the host holds of it.
class Hosted {
  public:
    explicit Hosted(RudeSite& site) : m_control(Ocx::Make(VeyGridClassId)), m_site(site) {
        EXPECT_EQ(m_control.As(&m_object), S_OK);
        m_object->SetClientSite(&site);
    }
    Hosted(const Hosted&) = delete;
    Hosted& operator=(const Hosted&) = delete;
    ~Hosted() { Free(); }

    HRESULT Activate(LONG verb = OLEIVERB_INPLACEACTIVATE) {
        IOleObject* const object = m_object.Get();
        return object->DoVerb(verb, nullptr, &m_site, 0, m_site.Window(), nullptr);
    }
    void Advise(const IID& iid, IUnknown* sink) {
        ComPtr<IConnectionPointContainer> container;
        ComPtr<IConnectionPoint> point;
        DWORD cookie = 0;
        ASSERT_EQ(m_control.As(&container), S_OK);
        ASSERT_EQ(container->FindConnectionPoint(iid, &point), S_OK);
        ASSERT_EQ(point->Advise(sink, &cookie), S_OK);
    }
    // Lets go of everything, as a host does that is tired of the control.
    void Free() {
        if (m_object != nullptr) {
            const ComPtr<IOleObject> object = std::exchange(m_object, nullptr);
            object->Close(OLECLOSE_NOSAVE);
            object->SetClientSite(nullptr);
        }
        m_control = nullptr;
    }
    bool IsFree() const { return m_control == nullptr; }
    const ComPtr<IUnknown>& Control() const { return m_control; }
    HWND Window() const { return Container::WindowOf(m_control); }
    IOleObject* Object() const { return m_object.Get(); }
    // Without a reference of its own.
    IDispatch* Naked() const { return Late(m_control).Object(); }

  private:
    ComPtr<IUnknown> m_control;
    ComPtr<IOleObject> m_object;
    RudeSite& m_site;
};

HRESULT CallNaked(IDispatch* naked, DISPID id, WORD flags, std::vector<int> numbers) {
    std::vector<VARIANT> values;
    for (auto number = numbers.rbegin(); number != numbers.rend(); ++number) {
        values.push_back(Arg(*number).value);
    }
    DISPID put = DISPID_PROPERTYPUT;
    const UINT named = flags == DISPATCH_PROPERTYPUT ? 1 : 0;
    DISPPARAMS parameters{values.data(), named == 0 ? nullptr : &put,
                          static_cast<UINT>(values.size()), named};
    return naked->Invoke(id, IID_NULL, 0, flags, &parameters, nullptr, nullptr, nullptr);
}

constexpr DISPID SetActiveCellId = 49;
constexpr DISPID MaxRowId = 15;
constexpr DISPID GuiModeId = 31;

struct Cause {
    const char* what;
    DISPID event;
    std::function<void(const Hosted&)> act;
};

void Send(const Hosted& hosted, UINT message, WPARAM wParam, LPARAM lParam) {
    ::SendMessageW(hosted.Window(), message, wParam, lParam);
}

// Every event that the control fires, with something that brings it about.
std::vector<Cause> Causes() {
    const auto move = [](const Hosted& h) {
        CallNaked(h.Naked(), SetActiveCellId, DISPATCH_METHOD, {3, 4});
    };
    // On the sheet a press of the left button raises no stock events.
    const auto click = [](const Hosted& h) {
        CallNaked(h.Naked(), GuiModeId, DISPATCH_PROPERTYPUT, {-1});
        const HWND window = h.Window();
        ::SendMessageW(window, WM_LBUTTONDOWN, 0, MAKELPARAM(80, 40));
        ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(80, 40));
    };
    return {{"CellSelChanging", 3, move},
            {"CellSelChanged", 1, move},
            {"Modified", 5,
             [](const Hosted& h) { CallNaked(h.Naked(), MaxRowId, DISPATCH_PROPERTYPUT, {9}); }},
            {"KeyDown", DISPID_KEYDOWN, [](const Hosted& h) { Send(h, WM_KEYDOWN, VK_F9, 1); }},
            {"KeyUp", DISPID_KEYUP, [](const Hosted& h) { Send(h, WM_KEYUP, VK_F9, 1); }},
            {"MouseDown", DISPID_MOUSEDOWN, click},
            {"MouseUp", DISPID_MOUSEUP, click},
            {"Click", DISPID_CLICK, click},
            {"DblClick", DISPID_DBLCLICK,
             [](const Hosted& h) { Send(h, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(80, 40)); }}};
}

TEST(IllBehavedHost, FreeingTheControlInsideAnyOfItsEventsEndsItAfterTheCall) {
    for (const Cause& cause : Causes()) {
        RudeSite site;
        Hosted hosted(site);
        ASSERT_EQ(hosted.Activate(), S_OK);
        const HWND window = hosted.Window();
        EventSink sink([&](DISPID id, DISPPARAMS&) {
            if (id == cause.event) {
                hosted.Free();
            }
        });
        hosted.Advise(VeyGridEventsId, &sink);
        cause.act(hosted);
        EXPECT_TRUE(hosted.IsFree()) << cause.what;
        hosted.Free();
        EXPECT_FALSE(::IsWindow(window)) << cause.what;
        EXPECT_EQ(sink.References, 1) << cause.what;
        EXPECT_EQ(site.References, 1) << cause.what;
        EXPECT_TRUE(CanUnload()) << cause.what;
    }
}

TEST(IllBehavedHost, DestroyingTheWindowInsideAnyEventLeavesAControlThatWorks) {
    for (const Cause& cause : Causes()) {
        RudeSite site;
        Hosted hosted(site);
        ASSERT_EQ(hosted.Activate(), S_OK);
        const HWND window = hosted.Window();
        EventSink sink([&](DISPID id, DISPPARAMS&) {
            if (id == cause.event && ::IsWindow(window)) {
                ::DestroyWindow(window);
            }
        });
        hosted.Advise(VeyGridEventsId, &sink);
        cause.act(hosted);
        EXPECT_FALSE(::IsWindow(window)) << cause.what;
        const Late grid(hosted.Control());
        EXPECT_EQ(grid.Put(L"CellText", {1, 1, L"x"}), S_OK) << cause.what;
        EXPECT_EQ(grid.Text(L"CellText", {1, 1}), "x") << cause.what;
    }
    EXPECT_TRUE(CanUnload());
}

TEST(IllBehavedHost, FreeingTheControlInsideAnyCallToItsSiteDoesNoHarm) {
    for (const char* const call :
         {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext", "ShowObject",
          "OnUIActivate", "OnUIDeactivate", "OnInPlaceDeactivate", "OnViewChange"}) {
        RudeSite site;
        {
            Hosted hosted(site);
            ComPtr<IViewObject> view;
            ASSERT_EQ(hosted.Control().As(&view), S_OK);
            view->SetAdvise(DVASPECT_CONTENT, 0, &site);
            view = nullptr;
            site.At[call] = [&] {
                hosted.Free();
                return S_OK;
            };
            hosted.Activate(OLEIVERB_UIACTIVATE);
            if (!hosted.IsFree()) {
                CallNaked(hosted.Naked(), MaxRowId, DISPATCH_PROPERTYPUT, {9});
                CallNaked(hosted.Naked(), DISPID_BACKCOLOR, DISPATCH_PROPERTYPUT, {9});
            }
        }
        EXPECT_GT(site.Count[call], 0) << call;
        EXPECT_EQ(site.References, 1) << call;
        EXPECT_EQ(::GetWindow(site.Window(), GW_CHILD), nullptr) << call;
        EXPECT_TRUE(CanUnload()) << call;
    }
}

TEST(IllBehavedHost, FreeingTheControlInsideItsLastSavingDoesNoHarm) {
    RudeSite site;
    Hosted hosted(site);
    CallNaked(hosted.Naked(), MaxRowId, DISPATCH_PROPERTYPUT, {9});
    site.At["SaveObject"] = [&] {
        hosted.Free();
        return S_OK;
    };
    EXPECT_EQ(hosted.Object()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(site.Count["SaveObject"], 1);
    EXPECT_EQ(site.References, 1);
    EXPECT_TRUE(CanUnload());
}

TEST(IllBehavedHost, FreeingTheControlInsideANoticeOfAChangedPropertyDoesNoHarm) {
    struct Listener final : IPropertyNotifySink {
        STDMETHODIMP QueryInterface(REFIID, void** target) override {
            AddRef();
            *target = this;
            return S_OK;
        }
        STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references); }
        STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references); }
        STDMETHODIMP OnChanged(DISPID) override {
            act(false);
            return S_OK;
        }
        STDMETHODIMP OnRequestEdit(DISPID) override {
            act(true);
            return S_OK;
        }
        std::function<void(bool)> act;
        long references = 1;
    };
    for (const bool onRequest : {false, true}) {
        RudeSite site;
        Listener listener;
        Hosted hosted(site);
        ASSERT_EQ(hosted.Activate(), S_OK);
        listener.act = [&](bool isRequest) {
            if (isRequest == onRequest) {
                hosted.Free();
            }
        };
        hosted.Advise(IID_IPropertyNotifySink, &listener);
        EXPECT_EQ(CallNaked(hosted.Naked(), DISPID_BACKCOLOR, DISPATCH_PROPERTYPUT, {1}), S_OK);
        EXPECT_TRUE(hosted.IsFree());
        EXPECT_EQ(listener.references, 1);
        EXPECT_TRUE(CanUnload());
    }
}

TEST(IllBehavedHost, ASiteThatFailsAnyStepOfActivationIsToldSoAndMayTryAgain) {
    for (const char* const call :
         {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindowContext", "QueryInterface"}) {
        RudeSite site;
        {
            Hosted hosted(site);
            site.At[call] = [] { return E_FAIL; };
            EXPECT_TRUE(FAILED(hosted.Activate())) << call;
            EXPECT_EQ(hosted.Window(), nullptr) << call;
            EXPECT_EQ(site.Count["OnInPlaceActivate"] - (call == std::string("OnInPlaceActivate")),
                      site.Count["OnInPlaceDeactivate"])
                << call;
            site.At.clear();
            EXPECT_EQ(hosted.Activate(), S_OK) << call;
            EXPECT_TRUE(::IsWindow(hosted.Window())) << call;
        }
        EXPECT_EQ(site.References, 1) << call;
        EXPECT_TRUE(CanUnload()) << call;
    }
}

TEST(IllBehavedHost, ASiteWithoutAWindowLendsTheOneOfTheVerb) {
    RudeSite site;
    Hosted hosted(site);
    site.At["GetWindow"] = [] { return E_FAIL; };
    ASSERT_EQ(hosted.Activate(), S_OK);
    EXPECT_EQ(::GetParent(hosted.Window()), site.Window());
}

TEST(IllBehavedHost, TheActiveCellMovedInsideEveryCellSelChangingComesToAnEnd) {
    RudeSite site;
    Hosted hosted(site);
    ASSERT_EQ(hosted.Activate(), S_OK);
    const Late grid(hosted.Control());
    int fired = 0;
    EventSink sink([&](DISPID id, DISPPARAMS&) {
        if (id == 3) {
            ++fired;
            grid.Call(L"SetActiveCell", {fired + 1, 2});
        }
    });
    const Connected connected(hosted.Control(), VeyGridEventsId, &sink);
    EXPECT_EQ(grid.Call(L"SetActiveCell", {9, 9}), S_OK);
    LONG row = 0;
    grid.Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Missing()});
    EXPECT_EQ(row, 9);
    EXPECT_GT(fired, 1);
}

TEST(IllBehavedHost, CellsEditedInsideEveryModifiedComeToAnEnd) {
    RudeSite site;
    Hosted hosted(site);
    const Late grid(hosted.Control());
    int fired = 0;
    EventSink sink([&](DISPID, DISPPARAMS&) {
        ++fired;
        grid.Put(L"CellText", {fired, 1, L"inside"});
    });
    const Connected connected(hosted.Control(), VeyGridEventsId, &sink);
    EXPECT_EQ(grid.Put(L"CellText", {1000, 1, L"outside"}), S_OK);
    EXPECT_GT(fired, 1);
    EXPECT_EQ(grid.Text(L"CellText", {1000, 1}), "outside");
    EXPECT_EQ(grid.Text(L"CellText", {fired, 1}), "inside");
    // The next write is answered as the first.
    const int before = std::exchange(fired, 0);
    EXPECT_EQ(grid.Put(L"CellText", {1000, 1, L"again"}), S_OK);
    EXPECT_EQ(fired, before);
}

TEST(IllBehavedHost, RowsDeletedInsideEveryEventLeaveASheetThatWorks) {
    RudeSite site;
    Hosted hosted(site);
    ASSERT_EQ(hosted.Activate(), S_OK);
    const Late grid(hosted.Control());
    EventSink sink([&](DISPID, DISPPARAMS&) { grid.Call(L"DeleteRows", {1, 3}); });
    {
        const Connected connected(hosted.Control(), VeyGridEventsId, &sink);
        EXPECT_EQ(grid.Call(L"SetTabbedText", {1, 1, L"a\tb\r\nc\td\r\ne\tf\r\n"}), S_OK);
        EXPECT_EQ(grid.Call(L"InsertRows", {1, 5}), S_OK);
        EXPECT_EQ(grid.Call(L"ClearRange", {1, 1, 9, 9, 0}), S_OK);
        EXPECT_EQ(grid.Call(L"SetActiveCell", {2, 2}), S_OK);
        EXPECT_EQ(grid.Call(L"SendCommand", {42303}), S_OK);
        EXPECT_EQ(grid.Call(L"SendCommand", {42304}), S_OK);
    }
    EXPECT_EQ(grid.Put(L"CellText", {1, 1, L"x"}), S_OK);
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}), "x");
}

TEST(IllBehavedHost, TheStateLoadedAgainInsideAnEventIsTheStateAfterwards) {
    RudeSite site;
    Hosted hosted(site);
    ASSERT_EQ(hosted.Activate(), S_OK);
    const Late grid(hosted.Control());
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(hosted.Control().As(&persist), S_OK);
    EventSink sink([&](DISPID, DISPPARAMS&) { persist->InitNew(); });
    const Connected connected(hosted.Control(), VeyGridEventsId, &sink);
    EXPECT_EQ(grid.Put(L"MaxRow", {77}), S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
    EXPECT_EQ(grid.Call(L"SetActiveCell", {4, 4}), S_OK);
}

TEST(IllBehavedHost, SinksThatComeAndGoInsideAnEventAreCalledAsTheyStoodThen) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    std::vector<int> called;
    std::optional<Connected> second;
    std::optional<Connected> late;
    EventSink lateSink([&](DISPID, DISPPARAMS&) { called.push_back(3); });
    EventSink secondSink([&](DISPID, DISPPARAMS&) { called.push_back(2); });
    EventSink firstSink([&](DISPID, DISPPARAMS&) {
        called.push_back(1);
        second.reset();
        if (!late) {
            late.emplace(control, VeyGridEventsId, &lateSink);
        }
    });
    const Connected first(control, VeyGridEventsId, &firstSink);
    second.emplace(control, VeyGridEventsId, &secondSink);
    const Late grid(control);
    grid.Put(L"MaxRow", {9});
    EXPECT_THAT(called, ::testing::ElementsAre(1));
    grid.Put(L"MaxRow", {10});
    EXPECT_THAT(called, ::testing::ElementsAre(1, 1, 3));
    EXPECT_EQ(secondSink.References, 1);
}

TEST(IllBehavedHost, WithoutAClientSiteEverythingButActivationWorks) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const Late grid(control);
    for (const DispatchMember& member : VeyGridTable().Members()) {
        if (member.kind == MemberKind::Property) {
            OwnedVariant value;
            EXPECT_EQ(grid.Invoke(member.id, DISPATCH_PROPERTYGET, {}, &value), S_OK)
                << member.name;
        }
    }
    ComPtr<IOleObject> object;
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(control.As(&object), S_OK);
    ASSERT_EQ(control.As(&persist), S_OK);
    EXPECT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr),
              E_UNEXPECTED);
    EXPECT_EQ(object->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_EQ(persist->InitNew(), S_OK);
    for (const wchar_t* const method : {L"EditCopy", L"EditCut", L"StartEdit", L"EndEdit"}) {
        EXPECT_EQ(grid.Call(method), S_OK) << method;
    }
    EXPECT_EQ(grid.Call(L"SendCommand", {42303}), S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);  // commands go to a window
    EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
}

// A stream that lies: it fails, stops short, or claims to have done more than was asked.
struct LyingStream final : IStream {
    enum class Lie { Fails, ReadsNothing, ReadsTooMuch, WritesNothing, WritesTooMuch, CannotSeek };
    explicit LyingStream(Lie which) : lie(which) { ::CreateStreamOnHGlobal(nullptr, TRUE, &inner); }
    STDMETHODIMP QueryInterface(REFIID, void** target) override {
        *target = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Read(void* bytes, ULONG size, ULONG* done) override {
        if (lie == Lie::Fails) {
            return STG_E_READFAULT;
        }
        if (lie == Lie::ReadsNothing) {
            *done = 0;
            return S_OK;
        }
        const HRESULT result = inner->Read(bytes, size, done);
        if (lie == Lie::ReadsTooMuch) {
            *done = size + 100;
        }
        return result;
    }
    STDMETHODIMP Write(const void* bytes, ULONG size, ULONG* done) override {
        if (lie == Lie::Fails) {
            return STG_E_WRITEFAULT;
        }
        if (lie == Lie::WritesNothing) {
            *done = 0;
            return S_OK;
        }
        const HRESULT result = inner->Write(bytes, size, done);
        if (lie == Lie::WritesTooMuch) {
            *done = size + 100;
        }
        return result;
    }
    STDMETHODIMP Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* place) override {
        return lie == Lie::CannotSeek ? E_NOTIMPL : inner->Seek(move, origin, place);
    }
    STDMETHODIMP SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
    STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) override { return S_OK; }
    STDMETHODIMP Revert() override { return S_OK; }
    STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG* stat, DWORD flags) override { return inner->Stat(stat, flags); }
    STDMETHODIMP Clone(IStream**) override { return E_NOTIMPL; }
    Lie lie;
    ComPtr<IStream> inner;
};

TEST(IllBehavedHost, StreamsThatLieAreRefusedAndAnHonestOneWithoutSeekIsRead) {
    using Lie = LyingStream::Lie;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late(control).Put(L"CellText", {1, 1, L"x"});
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(control.As(&persist), S_OK);
    const auto saveAndLoad = [&](Lie whenSaving, Lie whenLoading) {
        LyingStream stream(whenSaving);
        const HRESULT saved = persist->Save(&stream, TRUE);
        stream.lie = whenLoading;
        stream.inner->Seek({}, STREAM_SEEK_SET, nullptr);
        return std::pair(saved, persist->Load(&stream));
    };
    EXPECT_EQ(saveAndLoad(Lie::Fails, Lie::Fails).first, STG_E_WRITEFAULT);
    EXPECT_EQ(saveAndLoad(Lie::CannotSeek, Lie::Fails), std::pair(S_OK, STG_E_READFAULT));
    EXPECT_EQ(saveAndLoad(Lie::WritesNothing, Lie::ReadsNothing),
              std::pair(STG_E_MEDIUMFULL, STG_E_DOCFILECORRUPT));
    EXPECT_EQ(saveAndLoad(Lie::WritesTooMuch, Lie::ReadsNothing).first, STG_E_MEDIUMFULL);
    EXPECT_EQ(saveAndLoad(Lie::CannotSeek, Lie::CannotSeek), std::pair(S_OK, S_OK));
    EXPECT_EQ(Late(control).Text(L"CellText", {1, 1}), "x");
    // What it claims to have read is taken as what there was room for.
    EXPECT_TRUE(FAILED(saveAndLoad(Lie::CannotSeek, Lie::ReadsTooMuch).second) ||
                Late(control).Text(L"CellText", {1, 1}) == "x");
}

// A bag of values that no property can take, or of none at all.
struct SillyBag final : IPropertyBag {
    STDMETHODIMP QueryInterface(REFIID, void** target) override {
        *target = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Read(LPCOLESTR, VARIANT* value, IErrorLog*) override {
        return give ? ::VariantCopy(value, &silly) : E_INVALIDARG;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) override { return E_ACCESSDENIED; }
    bool give = true;
    VARIANT silly{};
};

TEST(IllBehavedHost, ABagOfSillyValuesGivesTheDefaultsAndAReadOnlyBagIsReported) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    ComPtr<IPersistPropertyBag> persist;
    ASSERT_EQ(control.As(&persist), S_OK);
    SillyBag bag;
    EXPECT_EQ(persist->Save(&bag, TRUE, TRUE), E_ACCESSDENIED);
    for (Arg silly : {Arg(), Arg(static_cast<IDispatch*>(nullptr)), Arg(L"no number"),
                      Arg::Missing(), Arg(L"")}) {
        bag.silly = silly.value;
        EXPECT_EQ(persist->Load(&bag, nullptr), S_OK);
        EXPECT_EQ(Late(control).Number(L"MaxRow"), 50) << silly.value.vt;
        ::VariantClear(&bag.silly);
    }
    bag.give = false;
    EXPECT_EQ(persist->Load(&bag, nullptr), S_OK);
    EXPECT_EQ(Late(control).Number(L"MaxRow"), 50);
}

}  // namespace

}  // namespace veygrid
