// Automation members of a cell format.
#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "control/AutomationTable.h"
#include "control/CellFormatObject.h"
#include "control/ClassIds.h"
#include "platform/win32/ole/Guard.h"

namespace veygrid {

namespace {

using Format = CellFormatObject;

// The font record as an array of bytes.
AnyValue GetFont(Format& format) {
    const FontBytes bytes = format.Record().GetFontBytes();
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (array == nullptr) {
        throw OleError{E_OUTOFMEMORY};
    }
    std::memcpy(array->pvData, bytes.data(), bytes.size());
    AnyValue result{};
    result.value.vt = VT_ARRAY | VT_UI1;
    result.value.parray = array;
    return result;
}

bool HoldsPlainBytes(const SAFEARRAY& array) {
    constexpr USHORT Managed = FADF_BSTR | FADF_UNKNOWN | FADF_DISPATCH | FADF_VARIANT;
    return (array.fFeatures & Managed) == 0 && array.pvData != nullptr;
}

// Any array is taken for the bytes of the record, whatever its elements are; a short one leaves
// the rest of the record. Anything that is no array changes nothing.
void PutFont(Format& format, AnyValue given) {
    const VARIANT& value = given.value;
    if ((value.vt & VT_ARRAY) == 0) {
        return;
    }
    SAFEARRAY* const array = (value.vt & VT_BYREF) != 0
                                 ? (value.pparray == nullptr ? nullptr : *value.pparray)
                                 : value.parray;
    if (array == nullptr || !HoldsPlainBytes(*array)) {
        return;
    }
    std::uint64_t size = array->cbElements;
    for (USHORT i = 0; i < array->cDims; ++i) {
        size = std::min<std::uint64_t>(size * array->rgsabound[i].cElements, sizeof(LogFont));
    }
    format.Record().SetFontBytes(
        {static_cast<const std::uint8_t*>(array->pvData), static_cast<std::size_t>(size)});
}

template <auto Get, auto Put>
constexpr DispatchMember Property(DISPID id, std::string_view name, bool listed = true) {
    return {.id = id,
            .name = name,
            .kind = MemberKind::Property,
            .get = CallFormOf<Get>::Form,
            .put = CallFormOf<Put>::Form,
            .listed = listed};
}

constexpr std::array Members{
    Property<[](Format& f) { return f.Record().Foreground; },
             [](Format& f, std::int32_t value) { f.Record().Foreground = value; }>(1, "Foreground"),
    Property<[](Format& f) { return f.Record().Background; },
             [](Format& f, std::int32_t value) { f.Record().Background = value; }>(2, "Background"),
    Property<[](Format& f) { return f.Record().ShowFormat; },
             [](Format& f, const std::string& value) { f.Record().ShowFormat = value; }>(
        3, "ShowFormat", false),
    Property<[](Format& f) { return static_cast<std::int16_t>(f.Record().GetReadOnly()); },
             [](Format& f, std::int16_t value) { f.Record().SetReadOnly(value != 0); }>(4,
                                                                                        "ReadOnly"),
    Property<[](Format& f) { return f.Record().GetHAlign(); },
             [](Format& f, std::int16_t value) { f.Record().SetHAlign(value); }>(5, "HAlign"),
    Property<[](Format& f) { return f.Record().GetVAlign(); },
             [](Format& f, std::int16_t value) { f.Record().SetVAlign(value); }>(6, "VAlign"),
    Property<[](Format& f) { return f.Record().GetDataType(); },
             [](Format& f, std::int16_t value) { f.Record().SetDataType(value); }>(7, "DataType"),
    Property<GetFont, PutFont>(8, "Font"),
};

}  // namespace

const DispatchTable& CellFormatTable() {
    static const DispatchTable table(Members);
    return table;
}

const AutomationClass CellFormatAutomation{CellFormatClassId, CellFormatDispatchId, nullptr,
                                           CellFormatTable};

}  // namespace veygrid
