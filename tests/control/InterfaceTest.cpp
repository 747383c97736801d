// What containers and browsers ask of the control: information, picture, data and choices.
#include <gtest/gtest.h>

#include "control/ClassIds.h"
#include "tests/control/Container.h"

namespace veygrid {

namespace {

class Interface : public ::testing::Test {
  protected:
    void TearDown() override {
        m_control = nullptr;
        EXPECT_TRUE(Ocx::CanUnload());
    }
    template <class Part>
    ComPtr<Part> As() const {
        ComPtr<Part> part;
        EXPECT_EQ(m_control.As(&part), S_OK);
        return part;
    }
    Late Grid() const { return Late(m_control); }
    void SetExtent(SIZEL extent) {
        EXPECT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    }

    ComPtr<IUnknown> m_control = Ocx::Make(VeyGridClassId);
};

constexpr FORMATETC Metafile{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
constexpr FORMATETC Enhanced{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};

TEST_F(Interface, TheObjectNamesItsClassAndItsType) {
    const auto object = As<IOleObject>();
    CLSID clsid{};
    EXPECT_EQ(object->GetUserClassID(&clsid), S_OK);
    EXPECT_EQ(clsid, VeyGridClassId);
    LPOLESTR name = nullptr;
    ASSERT_EQ(object->GetUserType(USERCLASSTYPE_FULL, &name), S_OK);
    EXPECT_STREQ(name, L"VeyGrid Control");
    ::CoTaskMemFree(name);
    EXPECT_EQ(object->IsUpToDate(), S_OK);
    EXPECT_EQ(object->Update(), S_OK);
    EXPECT_EQ(object->SetHostNames(L"host", nullptr), S_OK);
    EXPECT_EQ(object->GetUserClassID(nullptr), E_POINTER);
    EXPECT_EQ(object->GetUserType(USERCLASSTYPE_FULL, nullptr), E_POINTER);
}

TEST_F(Interface, OnlyTheContentHasAnExtentAndAStatus) {
    SetExtent({4000, 2000});
    const auto object = As<IOleObject>();
    SIZEL extent{};
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(extent.cx, 4000);
    EXPECT_EQ(extent.cy, 2000);
    DWORD status = 1;
    for (const DWORD aspect : {DVASPECT_ICON, DVASPECT_THUMBNAIL, DVASPECT_DOCPRINT}) {
        EXPECT_EQ(object->GetExtent(aspect, &extent), DV_E_DVASPECT);
        EXPECT_EQ(object->SetExtent(aspect, &extent), DV_E_DVASPECT);
        EXPECT_EQ(object->GetMiscStatus(aspect, &status), DV_E_DVASPECT);
        EXPECT_EQ(As<IViewObject2>()->GetExtent(aspect, -1, nullptr, &extent), DV_E_DVASPECT);
    }
}

TEST_F(Interface, TheEndOfTheObjectIsTold) {
    Advised sink;
    DWORD cookie = 0;
    const auto object = As<IOleObject>();
    ASSERT_EQ(object->Advise(&sink, &cookie), S_OK);
    ComPtr<IEnumSTATDATA> list;
    EXPECT_EQ(object->EnumAdvise(&list), S_OK);
    list = nullptr;
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(sink.Closes, 1);
    EXPECT_EQ(object->Unadvise(cookie), S_OK);
    EXPECT_EQ(object->Unadvise(cookie), OLE_E_NOCONNECTION);
    EXPECT_EQ(sink.References, 1);
}

TEST_F(Interface, TheClassInformationIsThatOfTheCoclass) {
    ComPtr<ITypeInfo> info;
    const auto classInfo = As<IProvideClassInfo2>();
    ASSERT_EQ(classInfo->GetClassInfo(&info), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, VeyGridClassId);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    info->ReleaseTypeAttr(attributes);
    GUID guid{};
    EXPECT_EQ(classInfo->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid), S_OK);
    EXPECT_EQ(guid, VeyGridEventsId);
    EXPECT_EQ(classInfo->GetGUID(77, &guid), E_INVALIDARG);
    EXPECT_EQ(classInfo->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
}

TEST_F(Interface, ErrorInformationIsForTheDispatchInterfaceAlone) {
    const auto support = As<ISupportErrorInfo>();
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(VeyGridDispatchId), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IOleObject), S_FALSE);
}

TEST_F(Interface, OnlyThePictureFileLeadsToTheControlsOwnPage) {
    const auto browsing = As<IPerPropertyBrowsing>();
    CLSID page{};
    EXPECT_EQ(browsing->MapPropertyToPage(34, &page), S_OK);
    EXPECT_EQ(page, PropertyPageClassId);
    EXPECT_EQ(browsing->MapPropertyToPage(DISPID_FONT, &page), S_OK);
    EXPECT_EQ(page, StockFontPageId);
    EXPECT_EQ(browsing->MapPropertyToPage(DISPID_BACKCOLOR, &page), S_OK);
    EXPECT_EQ(page, StockColorPageId);
    for (const DISPID id : {28, 15, 1, 33}) {
        EXPECT_EQ(browsing->MapPropertyToPage(id, &page), PERPROP_E_NOPAGEAVAILABLE);
        EXPECT_EQ(page, CLSID_NULL);
    }
    EXPECT_EQ(browsing->MapPropertyToPage(34, nullptr), E_POINTER);
}

TEST_F(Interface, TheShownTextOfModifiedLogFollowsItsValue) {
    const auto browsing = As<IPerPropertyBrowsing>();
    const wchar_t* const texts[] = {L"关闭", L"行方式", L"列方式", L"单元格方式"};
    for (int i = 0; i < 4; ++i) {
        Grid().Put(L"ModifiedLog", {i});
        BSTR text = nullptr;
        EXPECT_EQ(browsing->GetDisplayString(28, &text), S_OK);
        EXPECT_STREQ(text, texts[i]);
        ::SysFreeString(text);
    }
    Grid().Put(L"ModifiedLog", {9});
    BSTR text = nullptr;
    EXPECT_EQ(browsing->GetDisplayString(28, &text), S_FALSE);
    EXPECT_EQ(browsing->GetDisplayString(15, &text), S_FALSE);
    EXPECT_EQ(text, nullptr);
}

TEST_F(Interface, PropertiesWithoutChoicesOfferNone) {
    const auto browsing = As<IPerPropertyBrowsing>();
    CALPOLESTR strings{};
    CADWORD cookies{};
    EXPECT_EQ(browsing->GetPredefinedStrings(15, &strings, &cookies), S_FALSE);
    EXPECT_EQ(strings.cElems, 0U);
    VARIANT value{};
    EXPECT_EQ(browsing->GetPredefinedValue(28, 4, &value), E_INVALIDARG);
    EXPECT_EQ(browsing->GetPredefinedStrings(28, nullptr, &cookies), E_POINTER);
}

TEST_F(Interface, ThePictureIsOfferedAsTwoKindsOfMetafile) {
    const auto data = As<IDataObject>();
    ComPtr<IEnumFORMATETC> list;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, &list), S_OK);
    FORMATETC formats[3] = {};
    ULONG count = 0;
    EXPECT_EQ(list->Next(3, formats, &count), S_FALSE);
    ASSERT_EQ(count, 2U);
    EXPECT_EQ(formats[0].cfFormat, CF_METAFILEPICT);
    EXPECT_EQ(formats[1].cfFormat, CF_ENHMETAFILE);
    for (FORMATETC& format : formats) {
        EXPECT_EQ(data->QueryGetData(&format), format.cfFormat == 0 ? DV_E_FORMATETC : S_OK);
    }
    EXPECT_EQ(list->Reset(), S_OK);
    EXPECT_EQ(list->Skip(1), S_OK);
    EXPECT_EQ(list->Skip(5), S_FALSE);
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_SET, &list), E_NOTIMPL);
    FORMATETC icon = Metafile;
    icon.dwAspect = DVASPECT_ICON;
    EXPECT_EQ(data->QueryGetData(&icon), DV_E_FORMATETC);
}

TEST_F(Interface, TheMetafilesHaveTheExtentOfTheObject) {
    SetExtent({4000, 2000});
    const auto data = As<IDataObject>();
    FORMATETC format = Metafile;
    STGMEDIUM medium{};
    ASSERT_EQ(data->GetData(&format, &medium), S_OK);
    EXPECT_EQ(medium.tymed, static_cast<DWORD>(TYMED_MFPICT));
    const auto* const picture =
        static_cast<const METAFILEPICT*>(::GlobalLock(medium.hMetaFilePict));
    EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
    EXPECT_EQ(picture->xExt, 4000);
    EXPECT_EQ(picture->yExt, 2000);
    EXPECT_GT(::GetMetaFileBitsEx(picture->hMF, 0, nullptr), 0U);
    ::GlobalUnlock(medium.hMetaFilePict);
    ::ReleaseStgMedium(&medium);

    format = Enhanced;
    ASSERT_EQ(data->GetData(&format, &medium), S_OK);
    ENHMETAHEADER header{};
    ::GetEnhMetaFileHeader(medium.hEnhMetaFile, sizeof header, &header);
    EXPECT_EQ(header.rclFrame.right - header.rclFrame.left, 4000);
    EXPECT_EQ(header.rclFrame.bottom - header.rclFrame.top, 2000);
    ::ReleaseStgMedium(&medium);
}

TEST_F(Interface, DataIsOnlyGiven) {
    const auto data = As<IDataObject>();
    FORMATETC format = Metafile;
    STGMEDIUM medium{};
    EXPECT_EQ(data->SetData(&format, &medium, FALSE), E_NOTIMPL);
    EXPECT_EQ(data->GetDataHere(&format, &medium), DATA_E_FORMATETC);
    FORMATETC same{};
    EXPECT_EQ(data->GetCanonicalFormatEtc(&format, &same), DATA_S_SAMEFORMATETC);
    EXPECT_EQ(same.cfFormat, CF_METAFILEPICT);
    EXPECT_EQ(data->GetData(nullptr, &medium), E_POINTER);
    EXPECT_EQ(data->GetData(&format, nullptr), E_POINTER);
    EXPECT_EQ(data->QueryGetData(nullptr), E_POINTER);
}

TEST_F(Interface, AChangeIsToldToThePicturesListeners) {
    Advised ofView;
    Advised ofData;
    FORMATETC format = Metafile;
    DWORD cookie = 0;
    EXPECT_EQ(As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, &ofView), S_OK);
    ASSERT_EQ(As<IDataObject>()->DAdvise(&format, ADVF_NODATA, &ofData, &cookie), S_OK);
    Grid().Put(L"BackColor", {7});
    EXPECT_EQ(ofView.ViewChanges, 1);
    EXPECT_EQ(ofData.DataChanges, 1);
    EXPECT_EQ(As<IDataObject>()->DUnadvise(cookie), S_OK);
    Grid().Put(L"BackColor", {8});
    EXPECT_EQ(ofView.ViewChanges, 2);
    EXPECT_EQ(ofData.DataChanges, 1);
    EXPECT_EQ(As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
}

TEST_F(Interface, AListenerMayAskToBeToldAtOnceOrOnce) {
    Advised sink;
    const auto view = As<IViewObject>();
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, &sink), S_OK);
    EXPECT_EQ(sink.ViewChanges, 1);
    DWORD aspects = 0;
    DWORD flags = 0;
    IAdviseSink* read = nullptr;
    EXPECT_EQ(view->GetAdvise(&aspects, &flags, &read), S_OK);
    EXPECT_EQ(read, &sink);
    EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
    EXPECT_EQ(flags, static_cast<DWORD>(ADVF_PRIMEFIRST));
    read->Release();
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_ONLYONCE, &sink), S_OK);
    Grid().Put(L"BackColor", {7});
    Grid().Put(L"BackColor", {8});
    EXPECT_EQ(sink.ViewChanges, 2);
    EXPECT_EQ(sink.References, 1);
}

TEST_F(Interface, TheViewIsOpaqueAndHitInsideItsBounds) {
    const auto view = As<IViewObjectEx>();
    DWORD status = 0;
    EXPECT_EQ(view->GetViewStatus(&status), S_OK);
    EXPECT_EQ(status, static_cast<DWORD>(VIEWSTATUS_OPAQUE));
    const RECT bounds{10, 10, 20, 20};
    const RECT outside{30, 30, 40, 40};
    DWORD hit = 99;
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {15, 15}, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_HIT));
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {5, 15}, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
    EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, &bounds, &outside, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
    EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, &bounds, &bounds, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_HIT));
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {5, 15}, 0, &hit), E_POINTER);
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_ICON, &bounds, {5, 15}, 0, &hit), DV_E_DVASPECT);
}

TEST_F(Interface, AControlHasNoMnemonicsOfItsOwn) {
    CONTROLINFO info{};
    const auto control = As<IOleControl>();
    EXPECT_EQ(control->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cb, sizeof info);
    EXPECT_EQ(info.cAccel, 0U);
    EXPECT_EQ(info.dwFlags, 0U);
    EXPECT_EQ(control->OnMnemonic(nullptr), S_OK);
    EXPECT_EQ(control->GetControlInfo(nullptr), E_POINTER);
}

TEST_F(Interface, FrozenEventsComeBackWithTheLastThaw) {
    const auto control = As<IOleControl>();
    int fired = 0;
    EventSink sink([&](DISPID, DISPPARAMS&) { ++fired; });
    const Connected connected(m_control, VeyGridEventsId, &sink);
    control->FreezeEvents(TRUE);
    control->FreezeEvents(TRUE);
    control->FreezeEvents(FALSE);
    Grid().Put(L"MaxRow", {9});
    EXPECT_EQ(fired, 0);
    control->FreezeEvents(FALSE);
    control->FreezeEvents(FALSE);
    Grid().Put(L"MaxRow", {10});
    EXPECT_EQ(fired, 1);
    control->FreezeEvents(TRUE);
    Grid().Put(L"MaxRow", {11});
    EXPECT_EQ(fired, 1);
}

TEST_F(Interface, TheConnectionPointsAreThoseOfEventsAndPropertyChanges) {
    ComPtr<IEnumConnectionPoints> list;
    ASSERT_EQ(As<IConnectionPointContainer>()->EnumConnectionPoints(&list), S_OK);
    std::vector<IID> ids;
    IConnectionPoint* point = nullptr;
    while (list->Next(1, &point, nullptr) == S_OK) {
        IID iid{};
        EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
        ids.push_back(iid);
        ComPtr<IConnectionPointContainer> container;
        EXPECT_EQ(point->GetConnectionPointContainer(&container), S_OK);
        EXPECT_EQ(container.Get(), As<IConnectionPointContainer>().Get());
        point->Release();
    }
    ASSERT_EQ(ids.size(), 2U);
    EXPECT_EQ(ids[0], VeyGridEventsId);
    EXPECT_EQ(ids[1], IID_IPropertyNotifySink);
    ComPtr<IConnectionPoint> none;
    EXPECT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(IID_IOleObject, &none),
              CONNECT_E_NOCONNECTION);
}

TEST_F(Interface, ASinkOfTheWrongKindIsRefused) {
    Advised sink;
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink, &point),
              S_OK);
    DWORD cookie = 9;
    EXPECT_EQ(point->Advise(&sink, &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0U);
    EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point->Unadvise(5), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(sink.References, 1);
}

}  // namespace

}  // namespace veygrid
