// The automation surface as late-bound hosts reach it, held against the type library too.
#include <gmock/gmock.h>

#include <map>
#include <set>

#include "control/AutomationTable.h"
#include "control/ClassIds.h"
#include "control/EventTable.h"
#include "tests/control/Support.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

using ::testing::ElementsAre;

Late NewGrid() {
    return Late(Ocx::Make(VeyGridClassId));
}

// "name id kind(parameters) result" of each member, from the table and from the type library.
using Surface = std::set<std::string>;

const char* KindName(MemberKind kind, bool isPut) {
    return kind == MemberKind::Method ? "method" : isPut ? "put" : "get";
}

std::string Describe(const DispatchMember& member, const CallForm& form, bool isPut) {
    std::string text = std::string(member.name) + " " + std::to_string(member.id) + " " +
                       KindName(member.kind, isPut) + "(";
    for (std::size_t i = 0; i < form.count; ++i) {
        const ValueType& type = form.parameters[i];
        text += std::to_string(type.vt) + (type.isResultPointer ? "*" : "") + ",";
    }
    return text + ") " + std::to_string(isPut ? VARTYPE{VT_EMPTY} : form.result.vt);
}

Surface OfTable(const DispatchTable& table, bool listedOnly) {
    Surface surface;
    for (const DispatchMember& member : table.Members()) {
        if (listedOnly && !member.listed) {
            continue;
        }
        surface.insert(Describe(member, member.get, false));
        if (member.put.Exists()) {
            surface.insert(Describe(member, member.put, true));
        }
    }
    return surface;
}

// Objects, colours and the absence of a result come by several names in a library.
VARTYPE Plain(ITypeInfo& info, const TYPEDESC& type) {
    if (type.vt == VT_PTR && type.lptdesc->vt == VT_USERDEFINED) {
        return VT_DISPATCH;
    }
    if (type.vt == VT_USERDEFINED) {
        ComPtr<ITypeInfo> named;
        TYPEATTR* attributes = nullptr;
        EXPECT_EQ(info.GetRefTypeInfo(type.hreftype, &named), S_OK);
        EXPECT_EQ(named->GetTypeAttr(&attributes), S_OK);
        const VARTYPE vt = attributes->tdescAlias.vt;
        named->ReleaseTypeAttr(attributes);
        return vt == VT_UI4 ? static_cast<VARTYPE>(VT_I4) : vt;
    }
    if (type.vt == VT_UI4) {
        return VT_I4;
    }
    return type.vt == VT_VOID ? static_cast<VARTYPE>(VT_EMPTY) : type.vt;
}

std::string DescribeType(ITypeInfo& info, const TYPEDESC& type) {
    const bool isResult = type.vt == VT_PTR && type.lptdesc->vt != VT_USERDEFINED;
    const TYPEDESC& inner = isResult ? *type.lptdesc : type;
    return std::to_string(Plain(info, inner)) + (isResult ? "*" : "") + ",";
}

std::string NameOf(ITypeInfo& info, MEMBERID id) {
    OwnedBstr name;
    UINT count = 0;
    EXPECT_EQ(info.GetNames(id, name.Address(), 1, &count), S_OK);
    return TakeBstr(name.Get());
}

void AddVariables(ITypeInfo& info, UINT count, Surface& surface) {
    for (UINT i = 0; i < count; ++i) {
        VARDESC* variable = nullptr;
        ASSERT_EQ(info.GetVarDesc(i, &variable), S_OK);
        const std::string type = std::to_string(Plain(info, variable->elemdescVar.tdesc));
        const std::string name =
            NameOf(info, variable->memid) + " " + std::to_string(variable->memid);
        surface.insert(name + " get() " + type);
        surface.insert(name + " put(" + type + ",) 0");
        info.ReleaseVarDesc(variable);
    }
}

void AddFunctions(ITypeInfo& info, UINT count, Surface& surface) {
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(info.GetFuncDesc(i, &function), S_OK);
        // The first numbers of a library belong to IUnknown and IDispatch.
        if ((function->memid & 0x7FFF0000) != 0x60000000 || function->memid < 0) {
            const bool isPut =
                (function->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
            const char* const kind = function->invkind == INVOKE_FUNC ? " method("
                                     : isPut                          ? " put("
                                                                      : " get(";
            std::string text =
                NameOf(info, function->memid) + " " + std::to_string(function->memid) + kind;
            for (SHORT p = 0; p < function->cParams; ++p) {
                text += DescribeType(info, function->lprgelemdescParam[p].tdesc);
            }
            surface.insert(text + ") " + std::to_string(Plain(info, function->elemdescFunc.tdesc)));
        }
        info.ReleaseFuncDesc(function);
    }
}

Surface OfLibrary(const GUID& interfaceId) {
    Surface surface;
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(::LoadTypeLibEx(Ocx::Path().c_str(), REGKIND_NONE, &library), S_OK);
    EXPECT_EQ(library->GetTypeInfoOfGuid(interfaceId, &info), S_OK);
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    AddVariables(*info.Get(), attributes->cVars, surface);
    AddFunctions(*info.Get(), attributes->cFuncs, surface);
    info->ReleaseTypeAttr(attributes);
    return surface;
}

std::vector<std::string> UnlistedNames(const DispatchTable& table) {
    std::vector<std::string> names;
    for (const DispatchMember& member : table.Members()) {
        if (!member.listed) {
            names.emplace_back(member.name);
        }
    }
    return names;
}

TEST(Surface, TableAndTypeLibraryAgreeInBothDirections) {
    EXPECT_EQ(OfLibrary(VeyGridDispatchId), OfTable(VeyGridTable(), true));
    EXPECT_EQ(OfLibrary(CellFormatDispatchId), OfTable(CellFormatTable(), true));
    EXPECT_EQ(OfLibrary(FormObjectDispatchId), OfTable(FormObjectTable(), true));
}

Surface OfEvents() {
    Surface surface;
    for (const EventDescription& event : VeyGridEvents()) {
        CallForm form;
        form.count = event.count;
        std::copy_n(event.parameters.begin(), event.count, form.parameters.begin());
        surface.insert(Describe({.id = event.id, .name = event.name, .kind = MemberKind::Method},
                                form, false));
    }
    return surface;
}

TEST(Surface, EventTableAndTypeLibraryAgreeInBothDirections) {
    EXPECT_EQ(OfLibrary(VeyGridEventsId), OfEvents());
}

TEST(Surface, OnlyAutoMaxRcEnabledAndShowFormatAreNotListed) {
    EXPECT_THAT(UnlistedNames(VeyGridTable()), ElementsAre("AutoMaxRC", "Enabled"));
    EXPECT_THAT(UnlistedNames(CellFormatTable()), ElementsAre("ShowFormat"));
    EXPECT_THAT(UnlistedNames(FormObjectTable()), ElementsAre());
}

TEST(Surface, GetIDsOfNamesFindsAutoMaxRcAndShowFormatThoughNotListed) {
    EXPECT_EQ(NewGrid().IdOf(L"AutoMaxRC"), 32);
    EXPECT_EQ(NewGrid().Object(L"CellFormat", {1, 1}).IdOf(L"ShowFormat"), 3);
}

TEST(Surface, NamesAreFoundWithoutRegardToCase) {
    EXPECT_EQ(NewGrid().IdOf(L"mAXrOW"), 15);
    EXPECT_EQ(NewGrid().IdOf(L"MaxRow2"), DISPID_UNKNOWN);
    EXPECT_EQ(NewGrid().IdOf(L""), DISPID_UNKNOWN);
}

TEST(Surface, ParameterNamesAreFoundBesideTheirMember) {
    const Late grid = NewGrid();
    wchar_t member[] = L"SetActiveCell";
    wchar_t col[] = L"NCOL";
    wchar_t row[] = L"nRow";
    wchar_t* names[] = {member, col, row};
    DISPID ids[3] = {};
    EXPECT_EQ(grid->GetIDsOfNames(IID_NULL, names, 3, 0, ids), S_OK);
    EXPECT_THAT(ids, ElementsAre(49, 1, 0));
}

TEST(Surface, NewControlReadsItsDefaults) {
    const Late grid = NewGrid();
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
    EXPECT_EQ(grid.Number(L"MaxCol"), 20);
    EXPECT_EQ(grid.Number(L"GuiDesignSnapToX"), 5);
    EXPECT_EQ(grid.Number(L"CanWriteTable"), 0);
    EXPECT_EQ(grid.Number(L"RunQueryAfterSerialize"), -1);
    EXPECT_EQ(grid.Number(L"AutoMaxRC"), -1);
    EXPECT_EQ(static_cast<unsigned>(grid.Number(L"GridLinesColor")), 0x8000000FU);
    EXPECT_EQ(grid.Number(L"BackColor"), 0xFFFFFF);
    LONG row = 0;
    LONG col = 0;
    EXPECT_EQ(grid.Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Reference(&col)}), S_OK);
    EXPECT_EQ(row, 1);
    EXPECT_EQ(col, 1);
}

TEST(Surface, ChineseTextGoesInAndComesOut) {
    const Late grid = NewGrid();
    EXPECT_EQ(grid.Put(L"CellText", {2, 3, L"借方金额"}), S_OK);
    EXPECT_EQ(grid.Text(L"CellText", {2, 3}), CodePage936FromUtf8("借方金额"));
}

TEST(Surface, ResultsGoIntoVariantsThatAreClearedFirst) {
    const Late grid = NewGrid();
    OwnedVariant row;
    OwnedVariant col;
    row->vt = VT_BSTR;
    row->bstrVal = ::SysAllocString(L"7");
    EXPECT_EQ(grid.Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Reference(&col)}), S_OK);
    EXPECT_EQ(row->vt, VT_I4);
    EXPECT_EQ(col->vt, VT_I4);
    EXPECT_EQ(col->lVal, 1);
}

TEST(Surface, ResultsByValueAreTakenAndDropped) {
    EXPECT_EQ(NewGrid().Call(L"GetActiveCell", {7, 8}), S_OK);
}

TEST(Surface, ALeftOutResultIsANullPointer) {
    const Late grid = NewGrid();
    LONG col = 0;
    EXPECT_EQ(grid.Call(L"GetActiveCell", {Arg::Missing(), Arg::Reference(&col)}), S_OK);
    EXPECT_EQ(col, 1);
}

TEST(Surface, TextsConvertToNumbersAndNumbersToTexts) {
    const Late grid = NewGrid();
    EXPECT_EQ(grid.Put(L"CellText", {L"4", L"5", 67}), S_OK);
    EXPECT_EQ(grid.Text(L"CellText", {4, 5}), "67");
}

TEST(Surface, AWrongTypeNamesItsArgument) {
    UINT index = 99;
    EXPECT_EQ(NewGrid().Invoke(49, DISPATCH_METHOD, {1, L"abc"}, nullptr, &index),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(index, 0U);
    EXPECT_EQ(NewGrid().Invoke(49, DISPATCH_METHOD, {L"abc", 1}, nullptr, &index),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(index, 1U);
}

TEST(Surface, AnOverflowingArgumentIsRefused) {
    UINT index = 99;
    EXPECT_EQ(NewGrid().Invoke(55, DISPATCH_METHOD, {1, 1, 1, 1, 70000}, nullptr, &index),
              DISP_E_OVERFLOW);
    EXPECT_EQ(index, 0U);
}

TEST(Surface, AWrongCountIsRefused) {
    EXPECT_EQ(NewGrid().Call(L"SetActiveCell", {1}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(NewGrid().Call(L"SetActiveCell", {1, 2, 3}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(NewGrid().Put(L"MaxRow", {1, 2}), DISP_E_BADPARAMCOUNT);
}

TEST(Surface, AnUnknownNumberIsRefused) {
    EXPECT_EQ(NewGrid().Invoke(116, DISPATCH_METHOD, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(NewGrid().Invoke(0, DISPATCH_PROPERTYGET, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(NewGrid().Invoke(49, DISPATCH_PROPERTYPUT, {1, 2}), DISP_E_MEMBERNOTFOUND);
}

TEST(Surface, NamedArgumentsStandInAnyOrder) {
    const Late grid = NewGrid();
    VARIANT values[2] = {Arg(7).value, Arg(5).value};
    DISPID named[2] = {1, 0};
    DISPPARAMS parameters{values, named, 2, 2};
    EXPECT_EQ(
        grid->Invoke(49, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    OwnedVariant row;
    OwnedVariant col;
    grid.Call(L"GetActiveCell", {Arg::Reference(&row), Arg::Reference(&col)});
    EXPECT_EQ(row->lVal, 5);
    EXPECT_EQ(col->lVal, 7);
}

TEST(Surface, ATrailingOptionalArgumentMayBeLeftOut) {
    EXPECT_EQ(NewGrid().Number(L"RunQuery"), 1);
    EXPECT_EQ(NewGrid().Number(L"OpenFile", {L"C:\\no such file"}), 0);
    EXPECT_EQ(NewGrid().Number(L"OpenFile", {L"C:\\no such file", Arg::Missing()}), 0);
    EXPECT_EQ(NewGrid().Call(L"OpenFile", {Arg::Missing(), 1}), DISP_E_PARAMNOTFOUND);
}

TEST(Surface, RunQueryWithAnyArgumentReturnsOneAndChangesNothing) {
    const Late grid = NewGrid();
    EXPECT_EQ(grid.Number(L"RunQuery", {0}), 1);
    EXPECT_EQ(grid.Number(L"RunQuery", {1}), 1);
    EXPECT_EQ(grid.Number(L"RunQuery", {-3}), 1);
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
    EXPECT_EQ(grid.Number(L"Modified"), 0);
}

TEST(Surface, FormObjectReadsNullForEveryIndexAndItsWriteDoesNothing) {
    const Late grid = NewGrid();
    for (const int index : {0, 1, -1, 2147483647}) {
        EXPECT_EQ(grid.Object(L"FormObject", {index}).Object(), nullptr);
    }
    EXPECT_EQ(grid.Invoke(115, DISPATCH_PROPERTYPUTREF, {1, grid.Object()}), S_OK);
    EXPECT_EQ(grid.Number(L"Modified"), 0);
}

TEST(Surface, ModifiedReadsAndWritesTheFlag) {
    const Late grid = NewGrid();
    EXPECT_EQ(grid.Number(L"Modified"), 0);
    grid.Put(L"MaxRow", {7});
    EXPECT_EQ(grid.Number(L"Modified"), -1);
    grid.Put(L"Modified", {false});
    EXPECT_EQ(grid.Number(L"Modified"), 0);
}

TEST(Surface, CellFormatOfAnUntouchedSheetIsInItsResetState) {
    const Late format = NewGrid().Object(L"CellFormat", {1, 1});
    EXPECT_EQ(format.Number(L"Foreground"), -1);
    EXPECT_EQ(format.Number(L"Background"), -1);
    EXPECT_EQ(format.Number(L"HAlign"), 0);
    EXPECT_EQ(format.Number(L"VAlign"), 0);
    EXPECT_EQ(format.Number(L"ReadOnly"), 0);
    EXPECT_EQ(format.Number(L"DataType"), 0);
    EXPECT_EQ(format.Text(L"ShowFormat"), "");
}

TEST(Surface, CellFormatReadAndChangedButNotSetLeavesTheSheet) {
    const Late grid = NewGrid();
    grid.Object(L"CellFormat", {1, 1}).Put(L"Background", {255});
    EXPECT_EQ(grid.Object(L"CellFormat", {1, 1}).Number(L"Background"), -1);
}

TEST(Surface, TheColumnsFormatBeatsTheRowsAtTheirCrossing) {
    const Late grid = NewGrid();
    const Late format = grid.Object(L"CellFormat", {1, 1});
    format.Put(L"Background", {1});
    EXPECT_EQ(grid.Invoke(107, DISPATCH_PROPERTYPUTREF, {3, 0, format.Object()}), S_OK);
    format.Put(L"Background", {2});
    EXPECT_EQ(grid.Invoke(107, DISPATCH_PROPERTYPUTREF, {0, 2, format.Object()}), S_OK);
    EXPECT_EQ(grid.Object(L"CellFormat", {3, 2}).Number(L"Background"), 2);
}

TEST(Surface, VAlignSpeaksRawValuesAndKeepsTheHorizontalByte) {
    const Late format = Late(Ocx::Make(CellFormatClassId));
    format.Put(L"HAlign", {4});
    format.Put(L"VAlign", {256});
    format.Put(L"VAlign", {512});
    EXPECT_EQ(format.Number(L"VAlign"), 512);
    EXPECT_EQ(format.Number(L"HAlign"), 4);
    format.Put(L"HAlign", {1});
    EXPECT_EQ(format.Number(L"HAlign"), 1);
    EXPECT_EQ(format.Number(L"VAlign"), 512);
}

TEST(Surface, DefCellFormatActsAtOnceAndOutlivesTheControl) {
    ComPtr<IDispatch> kept;
    {
        const Late grid = NewGrid();
        const Late format = grid.Object(L"DefCellFormat");
        kept = format.Object();
        format.Put(L"Background", {99});
        EXPECT_EQ(grid.Object(L"CellFormat", {1, 1}).Number(L"Background"), 99);
    }
    EXPECT_EQ(Late(kept.Get()).Number(L"Background"), 99);
}

TEST(Surface, AForeignObjectAsFormatOnlyNotifies) {
    const Late grid = NewGrid();
    EXPECT_EQ(grid.Invoke(107, DISPATCH_PROPERTYPUTREF, {3, 2, grid.Object()}), S_OK);
    EXPECT_EQ(grid.Number(L"Modified"), -1);
    EXPECT_EQ(grid.Number(L"LastRow"), 0);
}

TEST(Surface, FontIsAnArrayOfSixtyBytesAndOtherVariantsAreIgnored) {
    const Late format = Late(Ocx::Make(CellFormatClassId));
    OwnedVariant font;
    ASSERT_EQ(format.Invoke(8, DISPATCH_PROPERTYGET, {}, &font), S_OK);
    ASSERT_EQ(font->vt, VT_ARRAY | VT_UI1);
    EXPECT_EQ(font->parray->rgsabound[0].cElements, 60U);
    static_cast<BYTE*>(font->parray->pvData)[0] = 77;
    EXPECT_EQ(format.Invoke(8, DISPATCH_PROPERTYPUT, {Arg::Raw(font.Release())}), S_OK);
    EXPECT_EQ(format.Put(L"Font", {5}), S_OK);
    OwnedVariant again;
    ASSERT_EQ(format.Invoke(8, DISPATCH_PROPERTYGET, {}, &again), S_OK);
    EXPECT_EQ(static_cast<BYTE*>(again->parray->pvData)[0], 77);
}

TEST(Surface, FormObjectKeepsItsPlainValues) {
    const Late object = Late(Ocx::Make(FormObjectClassId));
    EXPECT_EQ(object.Number(L"CanNull"), -1);
    EXPECT_EQ(object.Number(L"LabelAutoWidth"), 0);
    object.Put(L"Label", {L"单位"});
    object.Put(L"LableLocate", {1});
    EXPECT_EQ(object.Text(L"Label"), CodePage936FromUtf8("单位"));
    EXPECT_EQ(object.Number(L"LableLocate"), 1);
}

TEST(Surface, ParametersAreWalkedByTheirPositions) {
    const Late grid = NewGrid();
    grid.Put(L"Param", {L"a", L"1"});
    grid.Put(L"Param", {L"b", L"2"});
    OwnedVariant pos;
    OwnedVariant name;
    OwnedVariant value;
    pos->vt = VT_I4;
    pos->lVal = grid.Number(L"GetFirstParamPos");
    EXPECT_EQ(grid.Number(L"GetNextParam",
                          {Arg::Reference(&pos), Arg::Reference(&name), Arg::Reference(&value)}),
              -1);
    EXPECT_EQ(TakeBstr(name->bstrVal), "a");
    EXPECT_EQ(grid.Number(L"GetNextParam",
                          {Arg::Reference(&pos), Arg::Reference(&name), Arg::Reference(&value)}),
              -1);
    EXPECT_EQ(TakeBstr(value->bstrVal), "2");
    EXPECT_EQ(pos->lVal, 0);
}

TEST(Surface, SaveToDbAnswersWhetherAnythingIsLogged) {
    const Late grid = NewGrid();
    EXPECT_EQ(grid.Number(L"SaveToDB"), 0);
    grid.Put(L"ModifiedLog", {3});
    grid.Call(L"ModifyCellText", {1, 1, L"x"});
    EXPECT_EQ(grid.Number(L"SaveToDB"), 1);
}

TEST(Surface, ClassInfoNamesTheEvents) {
    ComPtr<IProvideClassInfo2> info;
    ASSERT_EQ(Ocx::Make(VeyGridClassId).As(&info), S_OK);
    GUID guid{};
    EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid), S_OK);
    EXPECT_EQ(guid, VeyGridEventsId);
    ComPtr<ITypeInfo> type;
    EXPECT_EQ(info->GetClassInfo(&type), S_OK);
}

TEST(Surface, TheEventInterfaceHasItsFifteenEvents) {
    EXPECT_EQ(OfLibrary(VeyGridEventsId).size(), 15U);
}

TEST(Surface, ThePropertyBrowserOffersExactlyFourChoicesForModifiedLog) {
    ComPtr<IPerPropertyBrowsing> browsing;
    ASSERT_EQ(Ocx::Make(VeyGridClassId).As(&browsing), S_OK);
    CALPOLESTR strings{};
    CADWORD cookies{};
    ASSERT_EQ(browsing->GetPredefinedStrings(28, &strings, &cookies), S_OK);
    ASSERT_EQ(strings.cElems, 4U);
    const wchar_t* const expected[] = {L"关闭", L"行方式", L"列方式", L"单元格方式"};
    for (ULONG i = 0; i < 4; ++i) {
        EXPECT_STREQ(strings.pElems[i], expected[i]);
        EXPECT_EQ(cookies.pElems[i], i);
        OwnedVariant value;
        EXPECT_EQ(browsing->GetPredefinedValue(28, i, &value), S_OK);
        EXPECT_EQ(value->vt, VT_I4);
        EXPECT_EQ(value->lVal, static_cast<LONG>(i));
        ::CoTaskMemFree(strings.pElems[i]);
    }
    ::CoTaskMemFree(strings.pElems);
    ::CoTaskMemFree(cookies.pElems);
    EXPECT_EQ(browsing->GetPredefinedStrings(15, &strings, &cookies), S_FALSE);
    CLSID page{};
    EXPECT_EQ(browsing->MapPropertyToPage(34, &page), S_OK);
    EXPECT_EQ(page, PropertyPageClassId);
}

TEST(Surface, ThreePagesAreNamedTheControlsOwnFirst) {
    ComPtr<ISpecifyPropertyPages> specify;
    ASSERT_EQ(Ocx::Make(VeyGridClassId).As(&specify), S_OK);
    CAUUID pages{};
    ASSERT_EQ(specify->GetPages(&pages), S_OK);
    ASSERT_EQ(pages.cElems, 3U);
    EXPECT_EQ(pages.pElems[0], PropertyPageClassId);
    EXPECT_EQ(pages.pElems[1], StockFontPageId);
    EXPECT_EQ(pages.pElems[2], StockColorPageId);
    ::CoTaskMemFree(pages.pElems);
}

}  // namespace

}  // namespace veygrid
