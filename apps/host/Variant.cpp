// Owner types for VARIANT and BSTR.
#include "apps/host/Variant.h"

#include <utility>

namespace veygrid {

Variant& Variant::operator=(Variant other) noexcept {
    std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
    return *this;
}

Variant Variant::Of(long value) {
    Variant made;
    made.vt = VT_I4;
    made.lVal = value;
    return made;
}

Variant Variant::Of(bool value) {
    Variant made;
    made.vt = VT_BOOL;
    made.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return made;
}

Variant Variant::Of(std::wstring_view value) {
    Variant made;
    made.vt = VT_BSTR;
    made.bstrVal = SysAllocStringLen(value.data(), static_cast<UINT>(value.size()));
    return made;
}

Variant Variant::Of(IDispatch* value) {
    Variant made;
    made.vt = VT_DISPATCH;
    made.pdispVal = value;
    if (value != nullptr) {
        value->AddRef();
    }
    return made;
}

Variant Variant::ByReference(long& value) {
    Variant made;
    made.vt = VT_BYREF | VT_I4;
    made.plVal = &value;
    return made;
}

Variant Variant::ByReference(short& value) {
    Variant made;
    made.vt = VT_BYREF | VT_I2;
    made.piVal = &value;
    return made;
}

Variant Variant::Of(const std::vector<Variant>& values) {
    Variant made;
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
    if (array == nullptr) {
        return made;
    }
    made.vt = VT_ARRAY | VT_VARIANT;
    made.parray = array;
    LONG index = 0;
    for (const Variant& value : values) {
        // The array takes a copy of its own.
        SafeArrayPutElement(array, &index, Mutable(value));
        ++index;
    }
    return made;
}

std::wstring Variant::Text() const {
    Variant text;
    // The invariant locale keeps numbers alike on every machine.
    if (FAILED(VariantChangeTypeEx(&text, Mutable(*this), LOCALE_INVARIANT, VARIANT_ALPHABOOL,
                                   VT_BSTR))) {
        return {};
    }
    return std::wstring(TextOfBstr(text.bstrVal));
}

long Variant::Number(long otherwise) const {
    Variant number;
    if (FAILED(VariantChangeType(&number, Mutable(*this), 0, VT_I4))) {
        return otherwise;
    }
    return number.lVal;
}

bool Variant::Truth() const {
    Variant truth;
    if (FAILED(VariantChangeType(&truth, Mutable(*this), 0, VT_BOOL))) {
        return false;
    }
    return truth.boolVal != VARIANT_FALSE;
}

std::wstring_view TextOfBstr(BSTR text) {
    return text == nullptr ? std::wstring_view() : std::wstring_view(text, SysStringLen(text));
}

}  // namespace veygrid
