// Hosts that hand over nothing or nonsense: null pointers everywhere, absurd numbers, endless
// texts.
#include <gmock/gmock.h>

#include "control/AutomationTable.h"
#include "control/ClassIds.h"
#include "tests/control/Support.h"

namespace veygrid {

namespace {

using ::testing::AnyOf;

bool CanUnload() {
    return Ocx::Entry<HRESULT WINAPI()>("DllCanUnloadNow")() == S_OK;
}

// The members that open a window that waits for a user.
bool OpensAWindow(std::string_view name) {
    return name == "AboutBox" || name.starts_with("Show") || name == "Print" || name == "Preview" ||
           name == "SendCommand";
}

Arg Absurd(const ValueType& type, int number, VARIANT* result, const wchar_t* text) {
    if (type.isResultPointer) {
        return Arg::Reference(result);
    }
    switch (type.vt) {
        case VT_BSTR:
            return Arg(text);
        case VT_DISPATCH:
            return Arg(static_cast<IDispatch*>(nullptr));
        default:
            return Arg(number);
    }
}

// Every member with every argument an absurd number; answers are those of a legal call.
void CallAllWith(const Late& object, const DispatchTable& table, int number, const wchar_t* text) {
    for (const DispatchMember& member : table.Members()) {
        const bool isWindow = member.kind == MemberKind::Method && OpensAWindow(member.name);
        for (const CallForm* const form : {&member.get, &member.put}) {
            if (!form->Exists() || isWindow || member.name == "SaveFile") {
                continue;
            }
            OwnedVariant results[8];
            OwnedVariant answer;
            std::vector<Arg> arguments;
            for (std::size_t i = 0; i < form->count; ++i) {
                arguments.push_back(Absurd(form->parameters[i], number, &results[i], text));
            }
            const WORD flags =
                form == &member.get ? DISPATCH_METHOD | DISPATCH_PROPERTYGET : DISPATCH_PROPERTYPUT;
            const ULONGLONG start = ::GetTickCount64();
            EXPECT_THAT(object.Invoke(member.id, flags, std::move(arguments), &answer),
                        AnyOf(S_OK, DISP_E_OVERFLOW))
                << member.name << " with " << number;
            EXPECT_LT(::GetTickCount64() - start, 60000U) << member.name << " with " << number;
        }
    }
}

constexpr int AbsurdNumbers[] = {0, -1, 2147483647, -2147483647 - 1};

TEST(IllBehavedCalls, EveryMemberTakesEveryAbsurdNumber) {
    for (const int number : AbsurdNumbers) {
        const Late grid(Ocx::Make(VeyGridClassId));
        grid.Put(L"CellText", {2, 2, L"x"});
        CallAllWith(grid, VeyGridTable(), number, L"SELECT a FROM t");
        CallAllWith(Late(Ocx::Make(CellFormatClassId)), CellFormatTable(), number, L"x");
        CallAllWith(Late(Ocx::Make(FormObjectClassId)), FormObjectTable(), number, L"x");
    }
    EXPECT_TRUE(CanUnload());
}

TEST(IllBehavedCalls, EveryMemberTakesAMegabyteOfText) {
    const std::wstring megabyte(1 << 20, L'漢');
    const Late grid(Ocx::Make(VeyGridClassId));
    CallAllWith(grid, VeyGridTable(), 1, megabyte.c_str());
    EXPECT_EQ(grid.Put(L"CellText", {1, 1, megabyte.c_str()}), S_OK);
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}).size(), std::size_t{2} << 20U);
    const Late object(Ocx::Make(FormObjectClassId));
    CallAllWith(object, FormObjectTable(), 1, megabyte.c_str());
    EXPECT_EQ(object.Text(L"Label").size(), std::size_t{2} << 20U);
}

// The interface, asked for without a care for what it means.
template <class Interface>
ComPtr<Interface> Ask(const ComPtr<IUnknown>& object) {
    ComPtr<Interface> found;
    EXPECT_EQ(object.As(&found), S_OK);
    return found;
}

TEST(IllBehavedCalls, NullPointersToTheObjectsBorderAreRefused) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const auto object = Ask<IOleObject>(control);
    EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(object->GetClientSite(nullptr), E_POINTER);
    EXPECT_EQ(object->SetHostNames(nullptr, nullptr), S_OK);
    EXPECT_EQ(object->GetMoniker(1, 1, nullptr), E_POINTER);
    EXPECT_EQ(object->GetClipboardData(0, nullptr), E_POINTER);
    EXPECT_EQ(object->EnumVerbs(nullptr), E_POINTER);
    EXPECT_EQ(object->GetUserClassID(nullptr), E_POINTER);
    EXPECT_EQ(object->GetUserType(1, nullptr), E_POINTER);
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_TRUE(FAILED(object->Advise(nullptr, nullptr)));
    DWORD cookie = 7;
    EXPECT_TRUE(FAILED(object->Advise(nullptr, &cookie)));
    EXPECT_EQ(cookie, 0U);
    EXPECT_EQ(object->EnumAdvise(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IOleControl>(control)->GetControlInfo(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IOleInPlaceObject>(control)->GetWindow(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IOleInPlaceObject>(control)->SetObjectRects(nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(Ask<IOleInPlaceActiveObject>(control)->GetWindow(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IOleInPlaceActiveObject>(control)->TranslateAccelerator(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IQuickActivate>(control)->QuickActivate(nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(Ask<IQuickActivate>(control)->SetContentExtent(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IQuickActivate>(control)->GetContentExtent(nullptr), E_POINTER);
}

TEST(IllBehavedCalls, NullPointersToThePictureAreRefused) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const auto view = Ask<IViewObjectEx>(control);
    const auto data = Ask<IDataObject>(control);
    DWORD hit = 0;
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         nullptr, 0),
              E_INVALIDARG);
    EXPECT_EQ(view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr),
              E_POINTER);
    EXPECT_EQ(view->Freeze(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, nullptr), S_OK);
    EXPECT_EQ(view->GetAdvise(nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(view->GetRect(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(view->GetViewStatus(nullptr), E_POINTER);
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {}, 0, nullptr), E_POINTER);
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {}, 0, &hit), E_POINTER);
    EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, nullptr, nullptr, 0, &hit), E_POINTER);
    FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
    EXPECT_EQ(data->GetData(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(data->GetData(&format, nullptr), E_POINTER);
    EXPECT_EQ(data->QueryGetData(nullptr), E_POINTER);
    EXPECT_EQ(data->GetCanonicalFormatEtc(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_GET, nullptr), E_POINTER);
    EXPECT_EQ(data->DAdvise(nullptr, 0, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(data->DAdvise(&format, 0, nullptr, &hit), E_POINTER);
    EXPECT_EQ(data->EnumDAdvise(nullptr), E_POINTER);
    ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, &formats), S_OK);
    EXPECT_EQ(formats->Next(1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(formats->Next(2, &format, nullptr), E_POINTER);
    EXPECT_EQ(formats->Clone(nullptr), E_POINTER);
}

TEST(IllBehavedCalls, NullPointersToKeepingAndConnectingAreRefused) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    EXPECT_EQ(Ask<IPersistStreamInit>(control)->GetClassID(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IPersistStreamInit>(control)->Load(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IPersistStreamInit>(control)->Save(nullptr, TRUE), E_POINTER);
    EXPECT_EQ(Ask<IPersistStreamInit>(control)->GetSizeMax(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IPersistStorage>(control)->InitNew(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IPersistStorage>(control)->Load(nullptr), E_POINTER);
    EXPECT_EQ(Ask<IPersistStorage>(control)->Save(nullptr, TRUE), E_POINTER);
    EXPECT_EQ(Ask<IPersistStorage>(control)->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(Ask<IPersistPropertyBag>(control)->Load(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(Ask<IPersistPropertyBag>(control)->Save(nullptr, TRUE, TRUE), E_POINTER);
    EXPECT_EQ(Ask<IPersistMemory>(control)->Load(nullptr, 9), E_POINTER);
    EXPECT_EQ(Ask<IPersistMemory>(control)->Save(nullptr, TRUE, 9), E_POINTER);
    EXPECT_EQ(Ask<IPersistMemory>(control)->GetSizeMax(nullptr), E_POINTER);
    const auto points = Ask<IConnectionPointContainer>(control);
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    EXPECT_EQ(points->EnumConnectionPoints(nullptr), E_POINTER);
    EXPECT_EQ(points->FindConnectionPoint(VeyGridEventsId, nullptr), E_POINTER);
    ASSERT_EQ(points->FindConnectionPoint(VeyGridEventsId, &point), S_OK);
    EXPECT_EQ(point->GetConnectionInterface(nullptr), E_POINTER);
    EXPECT_EQ(point->GetConnectionPointContainer(nullptr), E_POINTER);
    EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point->Advise(control.Get(), nullptr), E_POINTER);
    EXPECT_EQ(point->Unadvise(99), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point->EnumConnections(nullptr), E_POINTER);
}

TEST(IllBehavedCalls, NullPointersToAutomationAndBrowsingAreRefused) {
    for (const CLSID* const clsid : {&VeyGridClassId, &CellFormatClassId, &FormObjectClassId}) {
        const ComPtr<IUnknown> object = Ocx::Make(*clsid);
        const auto dispatch = Ask<IDispatch>(object);
        EXPECT_EQ(object->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
        EXPECT_EQ(dispatch->GetTypeInfoCount(nullptr), E_POINTER);
        EXPECT_EQ(dispatch->GetTypeInfo(0, 0, nullptr), E_POINTER);
        DISPID id = 0;
        LPOLESTR name = nullptr;
        EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_INVALIDARG);
        EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, &name, 1, 0, nullptr), E_INVALIDARG);
        EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), DISP_E_UNKNOWNNAME);
        EXPECT_EQ(dispatch->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr,
                                   nullptr),
                  E_INVALIDARG);
        DISPPARAMS hollow{nullptr, nullptr, 3, 2};
        EXPECT_EQ(dispatch->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYPUT, &hollow, nullptr, nullptr,
                                   nullptr),
                  E_INVALIDARG);
        EXPECT_EQ(Ask<IProvideClassInfo2>(object)->GetClassInfo(nullptr), E_POINTER);
        EXPECT_EQ(
            Ask<IProvideClassInfo2>(object)->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr),
            E_POINTER);
    }
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const auto browsing = Ask<IPerPropertyBrowsing>(control);
    EXPECT_EQ(Ask<ISpecifyPropertyPages>(control)->GetPages(nullptr), E_POINTER);
    EXPECT_EQ(browsing->GetDisplayString(28, nullptr), E_POINTER);
    EXPECT_EQ(browsing->MapPropertyToPage(28, nullptr), E_POINTER);
    EXPECT_EQ(browsing->GetPredefinedStrings(28, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(browsing->GetPredefinedValue(28, 0, nullptr), E_POINTER);
}

TEST(IllBehavedCalls, NullReferencesAsArgumentsAreRefused) {
    const Late grid(Ocx::Make(VeyGridClassId));
    const auto null = [](VARTYPE type) {
        VARIANT value{};
        value.vt = static_cast<VARTYPE>(VT_BYREF | type);
        return Arg::Raw(value);
    };
    for (const VARTYPE type : {VT_VARIANT, VT_I4, VT_I2, VT_BSTR, VT_DISPATCH, VT_BOOL}) {
        EXPECT_EQ(grid.Call(L"SetActiveCell", {null(type), 1}), DISP_E_TYPEMISMATCH) << type;
        EXPECT_EQ(grid.Call(L"GetActiveCell", {null(type), Arg::Missing()}), DISP_E_TYPEMISMATCH)
            << type;
        EXPECT_EQ(grid.Put(L"CellText", {1, 1, null(type)}), DISP_E_TYPEMISMATCH) << type;
    }
    EXPECT_EQ(grid.Text(L"CellText", {1, 1}), "");
}

TEST(IllBehavedCalls, NullPointersToTheModuleAreRefused) {
    auto* const get = Ocx::Entry<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
    EXPECT_EQ(get(VeyGridClassId, IID_IClassFactory, nullptr), E_POINTER);
    void* target = &target;
    EXPECT_EQ(get(IID_NULL, IID_IClassFactory, &target), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(target, nullptr);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(
        get(VeyGridClassId, IID_IClassFactory, reinterpret_cast<void**>(factory.GetAddressOf())),
        S_OK);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    factory = nullptr;
    EXPECT_TRUE(CanUnload());
}

}  // namespace

}  // namespace veygrid
