// The control in a container: its window, its events, and hosts that behave badly.
#include <gmock/gmock.h>

#include <optional>

#include "control/ClassIds.h"
#include "tests/control/Container.h"
#include "tests/control/ManifestInUse.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ComPtr<IUnknown> NewControl() {
    return Ocx::Make(VeyGridClassId);
}

UINT MessageNumber(const wchar_t* name) {
    return ::RegisterWindowMessageW(name);
}

// Answers the message that the control sends to its parent at creation.
struct ParentAnswers {
    static inline std::vector<std::pair<WPARAM, LPARAM>> asked;
    static inline UINT posted = 0;
    static inline WNDPROC before = nullptr;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == MessageNumber(L"VeynorGrid_AskFor")) {
            asked.emplace_back(wParam, lParam);
        }
        if (message == WM_CLOSE || message == WM_COMMAND) {
            posted = message == WM_CLOSE ? WM_CLOSE : static_cast<UINT>(wParam);
            return 0;
        }
        return ::CallWindowProcW(before, window, message, wParam, lParam);
    }
    static void Watch(HWND window) {
        asked.clear();
        posted = 0;
        before = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
    }
    static void Pump() {
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            ::DispatchMessageW(&message);
        }
    }
};

TEST(Host, AModuleWithoutObjectsMayBeUnloaded) {
    EXPECT_TRUE(Ocx::CanUnload());
    {
        const ComPtr<IUnknown> control = NewControl();
        EXPECT_FALSE(Ocx::CanUnload());
    }
    EXPECT_TRUE(Ocx::CanUnload());
}

TEST(Host, AControlMayBePartOfAnotherObject) {
    struct Outer final : IUnknown {
        STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
            if (iid == IID_IUnknown) {
                AddRef();
                *target = this;
                return S_OK;
            }
            return inner->QueryInterface(iid, target);
        }
        STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references); }
        STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references); }
        ComPtr<IUnknown> inner;
        long references = 1;
    } outer;
    outer.inner = Ocx::Make(VeyGridClassId, &outer);
    {
        ComPtr<IUnknown> whole(&outer);
        const Late grid(whole);
        EXPECT_EQ(grid.Number(L"MaxRow"), 50);
        ComPtr<IUnknown> same;
        EXPECT_EQ(grid->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(same.GetAddressOf())),
                  S_OK);
        EXPECT_EQ(same.Get(), &outer);
    }
    EXPECT_EQ(outer.references, 1);
    outer.inner = nullptr;
    EXPECT_TRUE(Ocx::CanUnload());
}

TEST(Host, TheManifestBesideTheModuleServesWithoutRegistration) {
    const ManifestInUse manifest;
    CLSID clsid{};
    EXPECT_EQ(::CLSIDFromProgID(L"VEYGRID.VeyGridCtrl.1", &clsid), S_OK);
    ComPtr<IDispatch> grid;
    ASSERT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                 reinterpret_cast<void**>(grid.GetAddressOf())),
              S_OK);
    EXPECT_EQ(Late(grid.Get()).Number(L"MaxRow"), 50);
}

TEST(Host, MiscStatusIs131473) {
    ComPtr<IOleObject> object;
    ASSERT_EQ(NewControl().As(&object), S_OK);
    DWORD status = 0;
    EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, 131473U);
}

TEST(Host, TheParentIsAskedForTheDataAccessObjectOnceAtCreation) {
    Container container;
    ParentAnswers::Watch(container.Window());
    const ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    EXPECT_THAT(ParentAnswers::asked, ElementsAre(std::pair<WPARAM, LPARAM>(2, 0)));
    EXPECT_EQ(::GetParent(Container::WindowOf(control)), container.Window());
}

TEST(Host, AHostThatDoesNotAnswerAskForShowsAPlainSheet) {
    Container container;
    const ComPtr<IUnknown> control = NewControl();
    const Late grid(control);
    grid.Put(L"DataSource", {L"SELECT a FROM t"});
    EXPECT_EQ(container.Show(control), S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
    EXPECT_EQ(grid.Number(L"LastRow"), 0);
}

TEST(Host, WithoutAWindowTheActiveCellMovesAndFiresNothing) {
    const ComPtr<IUnknown> control = NewControl();
    std::vector<DISPID> events;
    EventSink sink([&](DISPID id, DISPPARAMS&) { events.push_back(id); });
    const Connected connected(control, VeyGridEventsId, &sink);
    const Late grid(control);
    grid.Call(L"SetActiveCell", {3, 4});
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(grid.Put(L"CellText", {-1, -1, L"x"}), S_OK);
    EXPECT_EQ(grid.Text(L"CellText", {3, 4}), "x");
}

TEST(Host, WithAWindowChangingComesBeforeChanged) {
    Container container;
    const ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    std::vector<DISPID> events;
    EventSink sink([&](DISPID id, DISPPARAMS&) { events.push_back(id); });
    const Connected connected(control, VeyGridEventsId, &sink);
    Late(control).Call(L"SetActiveCell", {3, 4});
    EXPECT_THAT(events, ElementsAre(3, 1));
}

TEST(Host, AHostThatAnswersZeroStopsTheChange) {
    Container container;
    const ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    EventSink sink([&](DISPID id, DISPPARAMS& given) {
        if (id == 3) {
            EXPECT_EQ(given.rgvarg[0].vt, VT_BYREF | VT_I2);
            EXPECT_EQ(*given.rgvarg[0].piVal, 1);
            *given.rgvarg[0].piVal = 0;
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    const Late grid(control);
    grid.Call(L"SetActiveCell", {3, 4});
    LONG row = 0;
    LONG col = 0;
    grid.Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Reference(&col)});
    EXPECT_EQ(row, 1);
}

TEST(Host, ModifiedIsFiredAtEveryWriteAndNotWhileFrozen) {
    const ComPtr<IUnknown> control = NewControl();
    int fired = 0;
    EventSink sink([&](DISPID id, DISPPARAMS&) { fired += id == 5 ? 1 : 0; });
    const Connected connected(control, VeyGridEventsId, &sink);
    const Late grid(control);
    grid.Put(L"MaxRow", {9});
    grid.Put(L"CellText", {1, 1, L"x"});
    EXPECT_EQ(fired, 2);
    ComPtr<IOleControl> oleControl;
    ASSERT_EQ(control.As(&oleControl), S_OK);
    oleControl->FreezeEvents(TRUE);
    grid.Put(L"MaxRow", {10});
    oleControl->FreezeEvents(FALSE);
    EXPECT_EQ(fired, 2);
}

TEST(Host, StockPropertiesTellTheirListeners) {
    struct Listener final : IPropertyNotifySink {
        STDMETHODIMP QueryInterface(REFIID, void** target) override {
            *target = this;
            return S_OK;
        }
        STDMETHODIMP_(ULONG) AddRef() override { return 1; }
        STDMETHODIMP_(ULONG) Release() override { return 1; }
        STDMETHODIMP OnChanged(DISPID id) override {
            changed.push_back(id);
            return S_OK;
        }
        STDMETHODIMP OnRequestEdit(DISPID) override { return allow ? S_OK : S_FALSE; }
        std::vector<DISPID> changed;
        bool allow = true;
    } listener;
    const ComPtr<IUnknown> control = NewControl();
    const Connected connected(control, IID_IPropertyNotifySink, &listener);
    const Late grid(control);
    grid.Put(L"BackColor", {0x123456});
    EXPECT_THAT(listener.changed, ElementsAre(DISPID_BACKCOLOR));
    listener.allow = false;
    grid.Put(L"BackColor", {0});
    EXPECT_EQ(grid.Number(L"BackColor"), 0x123456);
}

TEST(Host, MoveOfTheActiveCellInsideCellSelChangingDoesNoHarm) {
    Container container;
    const ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    const Late grid(control);
    int depth = 0;
    EventSink sink([&](DISPID id, DISPPARAMS&) {
        if (id == 3 && ++depth < 5) {
            grid.Call(L"SetActiveCell", {depth + 1, 2});
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    EXPECT_EQ(grid.Call(L"SetActiveCell", {9, 9}), S_OK);
    LONG row = 0;
    grid.Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Missing()});
    EXPECT_EQ(row, 9);
}

TEST(Host, RowsDeletedInsideAnEventDoNoHarm) {
    const ComPtr<IUnknown> control = NewControl();
    const Late grid(control);
    bool inside = false;
    EventSink sink([&](DISPID, DISPPARAMS&) {
        if (!std::exchange(inside, true)) {
            grid.Call(L"DeleteRows", {1, 100});
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    EXPECT_EQ(grid.Call(L"SetTabbedText", {1, 1, L"a\tb\r\nc\td\r\n"}), S_OK);
    EXPECT_EQ(grid.Text(L"CellText", {2, 1}), "c");
}

TEST(Host, ASinkThatDisconnectsItselfInsideACallIsNotCalledAgain) {
    const ComPtr<IUnknown> control = NewControl();
    int fired = 0;
    std::optional<Connected> connected;
    EventSink sink([&](DISPID, DISPPARAMS&) {
        ++fired;
        connected->Disconnect();
    });
    connected.emplace(control, VeyGridEventsId, &sink);
    const Late grid(control);
    grid.Put(L"MaxRow", {9});
    grid.Put(L"MaxRow", {10});
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(sink.References, 1);
}

TEST(Host, AControlFreedInsideItsEventEndsAfterTheCall) {
    Container container;
    ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    const HWND window = Container::WindowOf(control);
    EventSink sink([&](DISPID, DISPPARAMS&) {
        if (control != nullptr) {
            container.Close();
            control = nullptr;
        }
    });
    ComPtr<IConnectionPointContainer> points;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    ASSERT_EQ(control.As(&points), S_OK);
    ASSERT_EQ(points->FindConnectionPoint(VeyGridEventsId, &point), S_OK);
    ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
    point = nullptr;
    points = nullptr;
    // The call itself holds no reference of the host's.
    IDispatch* const naked = Late(control).Object();
    VARIANT value = Arg(9).value;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &named, 1, 1};
    EXPECT_EQ(naked->Invoke(15, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                            nullptr),
              S_OK);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(sink.References, 1);
    EXPECT_TRUE(Ocx::CanUnload());
}

TEST(Host, AControlLetGoWithoutClosingTakesItsWindowAlong) {
    HWND window = nullptr;
    Container container;
    {
        const ComPtr<IUnknown> control = NewControl();
        ComPtr<IOleObject> object;
        ASSERT_EQ(control.As(&object), S_OK);
        object->SetClientSite(&container);
        ASSERT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &container, 0, container.Window(),
                                 nullptr),
                  S_OK);
        window = Container::WindowOf(control);
        EXPECT_TRUE(::IsWindow(window));
    }
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(container.References, 1);
    EXPECT_TRUE(Ocx::CanUnload());
}

TEST(Host, WithoutAClientSiteActivationIsRefused) {
    ComPtr<IOleObject> object;
    ASSERT_EQ(NewControl().As(&object), S_OK);
    for (const LONG verb : {OLEIVERB_PRIMARY, OLEIVERB_SHOW, OLEIVERB_INPLACEACTIVATE}) {
        EXPECT_EQ(object->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr), E_UNEXPECTED);
    }
    EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
}

TEST(Host, NullPointersAreRefused) {
    const ComPtr<IUnknown> control = NewControl();
    ComPtr<IOleObject> object;
    ComPtr<IViewObjectEx> view;
    ComPtr<IPersistStreamInit> stream;
    ComPtr<IDispatch> dispatch;
    ComPtr<IConnectionPointContainer> points;
    ASSERT_EQ(control.As(&object), S_OK);
    ASSERT_EQ(control.As(&view), S_OK);
    ASSERT_EQ(control.As(&stream), S_OK);
    ASSERT_EQ(control.As(&dispatch), S_OK);
    ASSERT_EQ(control.As(&points), S_OK);
    EXPECT_EQ(control->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->EnumVerbs(nullptr), E_POINTER);
    EXPECT_EQ(stream->Load(nullptr), E_POINTER);
    EXPECT_EQ(stream->Save(nullptr, TRUE), E_POINTER);
    EXPECT_EQ(points->FindConnectionPoint(VeyGridEventsId, nullptr), E_POINTER);
    EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(
        dispatch->Invoke(15, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
        E_INVALIDARG);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         nullptr, 0),
              E_INVALIDARG);
}

TEST(Host, AbsurdNumbersAndTextsHaveDefinedAnswers) {
    const Late grid(NewControl());
    const std::wstring megabyte(1 << 20, L'漢');
    for (const int number : {0, -1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(grid.Put(L"CellText", {number, number, L"x"}), S_OK);
        EXPECT_EQ(grid.Call(L"SetActiveCell", {number, number}), S_OK);
        EXPECT_EQ(grid.Put(L"RowHeight", {number, number}), S_OK);
        EXPECT_EQ(grid.Call(L"DeleteRows", {number, number}), S_OK);
    }
    EXPECT_EQ(grid.Put(L"CellText", {1, 1, megabyte.c_str()}), S_OK);
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}).size(), std::size_t{2} << 20U);
}

TEST(Host, GivesItsPictureAsMetafiles) {
    ComPtr<IDataObject> data;
    ASSERT_EQ(NewControl().As(&data), S_OK);
    FORMATETC format{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    STGMEDIUM medium{};
    EXPECT_EQ(data->GetData(&format, &medium), S_OK);
    ::ReleaseStgMedium(&medium);
    format = {CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
    EXPECT_EQ(data->GetData(&format, &medium), S_OK);
    ::ReleaseStgMedium(&medium);
    format.cfFormat = CF_BITMAP;
    EXPECT_EQ(data->GetData(&format, &medium), DV_E_FORMATETC);
}

TEST(Host, RecordMessagesMoveTheActiveCell) {
    Container container;
    const ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    const HWND window = Container::WindowOf(control);
    const Late grid(control);
    grid.Put(L"LastRow", {7});
    const auto rowAfter = [&](const wchar_t* message) {
        ::SendMessageW(window, MessageNumber(message), 0, 0);
        LONG row = 0;
        grid.Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Missing()});
        return row;
    };
    EXPECT_EQ(rowAfter(L"VeynorGrid_NextRecord"), 2);
    EXPECT_EQ(rowAfter(L"VeynorGrid_LastRecord"), 7);
    EXPECT_EQ(rowAfter(L"VeynorGrid_PriorRecord"), 6);
    EXPECT_EQ(rowAfter(L"VeynorGrid_FirstRecord"), 1);
    EXPECT_EQ(::SendMessageW(window, MessageNumber(L"VeynorGrid_SaveRecord"), 0, 0), 1);
    EXPECT_EQ(::SendMessageW(window, MessageNumber(L"MSG_DROP"), 0, 0), 1);
    EXPECT_EQ(::SendMessageW(window, MessageNumber(L"VeynorGrid_OpenFile"), 0, 0), 0);
}

TEST(Host, CommandsWithoutAHandlerGoToTheParent) {
    Container container;
    ParentAnswers::Watch(container.Window());
    const ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    const Late grid(control);
    const auto postedAfter = [&](int item) {
        ParentAnswers::posted = 0;
        grid.Call(L"SendCommand", {item});
        ParentAnswers::Pump();
        return ParentAnswers::posted;
    };
    EXPECT_EQ(postedAfter(33000), 33000U);
    EXPECT_EQ(postedAfter(50000), 50000U);
    EXPECT_EQ(postedAfter(50001), 0U);
    EXPECT_EQ(postedAfter(1002), 42301U);
    EXPECT_EQ(postedAfter(1018), 0U);
}

TEST(Host, SendCommandMapsHostNumbersAndSendsOthersAsTheyStand) {
    Container container;
    const ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    const Late grid(control);
    grid.Call(L"SendCommand", {1004});
    EXPECT_EQ(grid.Number(L"MaxRow"), 51);
    grid.Call(L"SendCommand", {42303});
    EXPECT_EQ(grid.Number(L"MaxRow"), 52);
}

TEST(Host, CloseParentPostsCloseToTheParent) {
    Container container;
    ParentAnswers::Watch(container.Window());
    const ComPtr<IUnknown> control = NewControl();
    ASSERT_EQ(container.Show(control), S_OK);
    ::SendMessageW(Container::WindowOf(control), MessageNumber(L"VeynorGrid_CloseParent"), 0, 0);
    ParentAnswers::Pump();
    EXPECT_EQ(ParentAnswers::posted, static_cast<UINT>(WM_CLOSE));
}

TEST(Host, TwoControlsInOneWindowDoNotDisturbEachOther) {
    Container first;
    Container second;
    const ComPtr<IUnknown> one = NewControl();
    const ComPtr<IUnknown> two = NewControl();
    ASSERT_EQ(first.Show(one), S_OK);
    ASSERT_EQ(second.Show(two), S_OK);
    first.Close();
    const Late grid(two);
    grid.Call(L"SetActiveCell", {5, 5});
    LONG row = 0;
    grid.Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Missing()});
    EXPECT_EQ(row, 5);
    EXPECT_TRUE(::IsWindow(Container::WindowOf(two)));
}

}  // namespace

}  // namespace veygrid
