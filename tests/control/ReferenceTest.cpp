// Every reference that the module hands out is counted, and the last one ends what it stands for.
#include <gtest/gtest.h>

#include <array>

#include "control/ClassIds.h"
#include "tests/control/Container.h"

namespace veygrid {

namespace {

constexpr std::array ClassIds{VeyGridClassId, CellFormatClassId, FormObjectClassId,
                              PropertyPageClassId};

// Every interface that any class of the module has.
const std::array Interfaces{IID_IUnknown,
                            IID_IDispatch,
                            VeyGridDispatchId,
                            CellFormatDispatchId,
                            FormObjectDispatchId,
                            IID_IProvideClassInfo,
                            IID_IProvideClassInfo2,
                            IID_ISupportErrorInfo,
                            IID_IOleObject,
                            IID_IOleControl,
                            IID_IOleInPlaceObject,
                            IID_IOleWindow,
                            IID_IOleInPlaceActiveObject,
                            IID_IQuickActivate,
                            IID_IViewObject,
                            IID_IViewObject2,
                            IID_IViewObjectEx,
                            IID_IDataObject,
                            IID_IPersist,
                            IID_IPersistStreamInit,
                            IID_IPersistStorage,
                            IID_IPersistPropertyBag,
                            IID_IPersistMemory,
                            IID_IConnectionPointContainer,
                            IID_ISpecifyPropertyPages,
                            IID_IPerPropertyBrowsing,
                            IID_IPropertyPage,
                            IID_IPropertyPage2};

// What the object's own counter stands at.
ULONG Count(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

IClassFactory* NewFactory(REFCLSID clsid) {
    IClassFactory* factory = nullptr;
    EXPECT_EQ(Ocx::GetClassObject(clsid, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
              S_OK);
    return factory;
}

// Naked pointers all through: nothing here may release by itself.
IUnknown* NewObject(REFCLSID clsid, REFIID iid, IUnknown* outer = nullptr) {
    IClassFactory* const factory = NewFactory(clsid);
    IUnknown* object = nullptr;
    EXPECT_EQ(factory->CreateInstance(outer, iid, reinterpret_cast<void**>(&object)), S_OK);
    EXPECT_EQ(factory->Release(), 0U);
    return object;
}

struct Outer final : IUnknown {
    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        if (iid != IID_IUnknown) {
            return inner->QueryInterface(iid, target);
        }
        AddRef();
        *target = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    IUnknown* inner = nullptr;
    ULONG references = 1;
};

class EveryClass : public ::testing::TestWithParam<GUID> {
  protected:
    void TearDown() override { EXPECT_TRUE(Ocx::CanUnload()); }
};

INSTANTIATE_TEST_SUITE_P(Reference, EveryClass, ::testing::ValuesIn(ClassIds));

TEST_P(EveryClass, AFactoryHasOneReferenceAndEndsWithIt) {
    IClassFactory* const factory = NewFactory(GetParam());
    EXPECT_EQ(Count(factory), 1U);
    EXPECT_FALSE(Ocx::CanUnload());
    EXPECT_EQ(factory->Release(), 0U);
}

TEST_P(EveryClass, LockServerHoldsTheModuleUntilItIsUnlocked) {
    IClassFactory* const factory = NewFactory(GetParam());
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->Release(), 0U);
    EXPECT_FALSE(Ocx::CanUnload());
    IClassFactory* const other = NewFactory(GetParam());
    EXPECT_EQ(other->LockServer(FALSE), S_OK);
    EXPECT_EQ(other->Release(), 0U);
}

TEST_P(EveryClass, ANewObjectHasOneReferenceAndEndsWithIt) {
    IUnknown* const object = NewObject(GetParam(), IID_IUnknown);
    EXPECT_EQ(Count(object), 1U);
    EXPECT_FALSE(Ocx::CanUnload());
    EXPECT_EQ(object->Release(), 0U);
}

TEST_P(EveryClass, AnInterfaceIsOneReferenceAndEndsTheObjectWhenItIsTheLast) {
    for (const IID& iid : Interfaces) {
        IUnknown* object = NewObject(GetParam(), IID_IUnknown);
        IUnknown* part = nullptr;
        if (object->QueryInterface(iid, reinterpret_cast<void**>(&part)) == S_OK) {
            EXPECT_EQ(Count(object), 2U);
            EXPECT_EQ(object->Release(), 1U);
            object = part;
            EXPECT_EQ(Count(object), 1U);
        }
        EXPECT_EQ(object->Release(), 0U);
        EXPECT_TRUE(Ocx::CanUnload());
    }
}

TEST_P(EveryClass, EveryInterfaceLeadsToTheSameUnknown) {
    IUnknown* const object = NewObject(GetParam(), IID_IUnknown);
    for (const IID& iid : Interfaces) {
        ComPtr<IUnknown> part;
        if (object->QueryInterface(iid, reinterpret_cast<void**>(part.GetAddressOf())) == S_OK) {
            ComPtr<IUnknown> unknown;
            EXPECT_EQ(part->QueryInterface(IID_IUnknown,
                                           reinterpret_cast<void**>(unknown.GetAddressOf())),
                      S_OK);
            EXPECT_EQ(unknown.Get(), object);
        }
    }
    EXPECT_EQ(object->Release(), 0U);
}

TEST_P(EveryClass, AnInterfaceAskedOfTheFactoryIsOneReference) {
    IUnknown* const object = NewObject(
        GetParam(), GetParam() == PropertyPageClassId ? IID_IPropertyPage : IID_IDispatch);
    EXPECT_EQ(Count(object), 1U);
    EXPECT_EQ(object->Release(), 0U);
}

TEST_P(EveryClass, AnUnknownInterfaceAskedOfTheFactoryLeavesNothing) {
    IClassFactory* const factory = NewFactory(GetParam());
    void* object = factory;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IAdviseSink, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->Release(), 0U);
}

TEST_P(EveryClass, APartOfAnotherObjectCountsForTheOuterOne) {
    Outer outer;
    outer.inner = NewObject(GetParam(), IID_IUnknown, &outer);
    EXPECT_EQ(outer.references, 1U);
    EXPECT_EQ(Count(outer.inner), 1U);
    for (const IID& iid : Interfaces) {
        IUnknown* part = nullptr;
        if (iid != IID_IUnknown &&
            outer.inner->QueryInterface(iid, reinterpret_cast<void**>(&part)) == S_OK) {
            EXPECT_EQ(outer.references, 2U);
            EXPECT_EQ(Count(outer.inner), 1U);
            EXPECT_EQ(part->Release(), 1U);
        }
    }
    EXPECT_EQ(outer.inner->Release(), 0U);
    EXPECT_EQ(outer.references, 1U);
}

TEST_P(EveryClass, AnAggregateMustBeAskedForItsUnknown) {
    Outer outer;
    IClassFactory* const factory = NewFactory(GetParam());
    void* object = nullptr;
    EXPECT_EQ(factory->CreateInstance(&outer, IID_IDispatch, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(outer.references, 1U);
    EXPECT_EQ(factory->Release(), 0U);
}

// The control of a test, whose last reference is looked at.
class Reference : public ::testing::Test {
  protected:
    void TearDown() override {
        EXPECT_EQ(Count(m_control), 1U);
        EXPECT_EQ(m_control->Release(), 0U);
        EXPECT_TRUE(Ocx::CanUnload());
    }
    template <class Interface>
    ComPtr<Interface> As() {
        ComPtr<Interface> part;
        EXPECT_EQ(ComPtr<IUnknown>(m_control).As(&part), S_OK);
        return part;
    }

    IUnknown* const m_control = NewObject(VeyGridClassId, IID_IUnknown);
};

TEST_F(Reference, EnumeratorsAndTheirClonesEndWithTheirLastReference) {
    IEnumOLEVERB* verbs = nullptr;
    IEnumFORMATETC* formats = nullptr;
    IEnumConnectionPoints* points = nullptr;
    EXPECT_EQ(As<IOleObject>()->EnumVerbs(&verbs), S_OK);
    EXPECT_EQ(As<IDataObject>()->EnumFormatEtc(DATADIR_GET, &formats), S_OK);
    EXPECT_EQ(As<IConnectionPointContainer>()->EnumConnectionPoints(&points), S_OK);
    const auto walk = [](auto* list, auto item, auto free) {
        auto* clone = list;
        EXPECT_EQ(list->Clone(&clone), S_OK);
        int count = 0;
        while (clone->Next(1, &item, nullptr) == S_OK) {
            free(item);
            ++count;
        }
        EXPECT_EQ(clone->Release(), 0U);
        EXPECT_EQ(list->Release(), 0U);
        return count;
    };
    EXPECT_EQ(
        walk(verbs, OLEVERB{}, [](const OLEVERB& verb) { ::CoTaskMemFree(verb.lpszVerbName); }), 2);
    EXPECT_EQ(walk(formats, FORMATETC{}, [](const FORMATETC&) {}), 2);
    EXPECT_EQ(walk(points, static_cast<IConnectionPoint*>(nullptr),
                   [](IConnectionPoint* point) { point->Release(); }),
              2);
}

TEST_F(Reference, SinksAreHeldWhileTheyAreConnected) {
    int fired = 0;
    EventSink sink([&](DISPID, DISPPARAMS&) { ++fired; });
    {
        const Connected connected(m_control, VeyGridEventsId, &sink);
        EXPECT_EQ(sink.References, 2);
        Late(ComPtr<IUnknown>(m_control)).Put(L"MaxRow", {9});
    }
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(sink.References, 1);
}

TEST_F(Reference, ConnectionsAreListedAsCopies) {
    EventSink sink([](DISPID, DISPPARAMS&) {});
    const Connected connected(m_control, VeyGridEventsId, &sink);
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(VeyGridEventsId, &point), S_OK);
    IEnumConnections* list = nullptr;
    ASSERT_EQ(point->EnumConnections(&list), S_OK);
    CONNECTDATA data{};
    EXPECT_EQ(list->Next(1, &data, nullptr), S_OK);
    EXPECT_EQ(data.pUnk, static_cast<IUnknown*>(&sink));
    data.pUnk->Release();
    EXPECT_EQ(list->Release(), 0U);
    EXPECT_EQ(sink.References, 2);
}

TEST_F(Reference, ObjectsReadThroughPropertiesAreTheCallersAlone) {
    const Late grid{ComPtr<IUnknown>(m_control)};
    for (const wchar_t* const name : {L"DefCellFormat", L"Font"}) {
        const Late object = grid.Object(name);
        EXPECT_NE(object.Object(), nullptr) << name;
    }
    IDispatch* const format = grid.Object(L"CellFormat", {1, 1}).Object();
    EXPECT_NE(format, nullptr);
}

TEST_F(Reference, ACellFormatReadFromTheSheetHasOneReference) {
    OwnedVariant result;
    const Late grid{ComPtr<IUnknown>(m_control)};
    ASSERT_EQ(grid.Invoke(107, DISPATCH_PROPERTYGET, {1, 1}, &result), S_OK);
    EXPECT_EQ(Count(result->pdispVal), 1U);
}

TEST_F(Reference, TypeInformationIsTheCallersAlone) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(As<IDispatch>()->GetTypeInfo(0, LOCALE_NEUTRAL, &info), S_OK);
    EXPECT_EQ(As<IProvideClassInfo>()->GetClassInfo(&info), S_OK);
}

TEST_F(Reference, AContainerThatShowsAndClosesLeavesNothingBehind) {
    Container container;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(container.Show(m_control), S_OK);
        EXPECT_GT(container.References, 1);
        container.Close();
        EXPECT_EQ(container.References, 1);
        EXPECT_EQ(Count(m_control), 1U);
    }
}

TEST_F(Reference, AContainerThatDestroysItsWindowFirstLeavesNothingBehind) {
    Container container;
    ASSERT_EQ(container.Show(m_control), S_OK);
    const HWND window = Container::WindowOf(m_control);
    ::DestroyWindow(container.Window());
    EXPECT_FALSE(::IsWindow(window));
    container.Close();
    EXPECT_EQ(container.References, 1);
}

TEST_F(Reference, AdviseSinksAreHeldUntilTheyAreTakenBack) {
    Advised sink;
    const ComPtr<IViewObject> view = As<IViewObject>();
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, &sink), S_OK);
    DWORD ofObject = 0;
    DWORD ofData = 0;
    FORMATETC format{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    EXPECT_EQ(As<IOleObject>()->Advise(&sink, &ofObject), S_OK);
    EXPECT_EQ(As<IDataObject>()->DAdvise(&format, 0, &sink, &ofData), S_OK);
    EXPECT_GT(sink.References, 1);
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
    EXPECT_EQ(As<IOleObject>()->Unadvise(ofObject), S_OK);
    EXPECT_EQ(As<IDataObject>()->DUnadvise(ofData), S_OK);
    EXPECT_EQ(sink.References, 1);
}

}  // namespace

}  // namespace veygrid
