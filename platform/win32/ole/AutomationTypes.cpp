// The types of automation arguments and results, and how each is read from and put into a VARIANT.
#include "platform/win32/ole/AutomationTypes.h"

#include <limits>

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

constexpr int MostReferences = 8;

void Convert(OwnedVariant& target, const VARIANT& given, VARTYPE type, LCID locale) {
    Require(::VariantChangeTypeEx(&target, const_cast<VARIANT*>(&given), locale, VARIANT_ALPHABOOL,
                                  type));
}

VARIANT* Behind(VARIANT* given) {
    for (int depth = 0; given->vt == (VT_BYREF | VT_VARIANT) && given->pvarVal != nullptr;
         ++depth) {
        if (depth == MostReferences) {
            throw OleError{DISP_E_TYPEMISMATCH};
        }
        given = given->pvarVal;
    }
    return given;
}

// A reference without a target cannot be read.
void RefuseNullReference(const VARIANT& given) {
    if ((given.vt & VT_BYREF) != 0 && given.byref == nullptr) {
        throw OleError{DISP_E_TYPEMISMATCH};
    }
}

// The types that a result can be written to through a reference, all without an owner but BSTR.
void WriteReference(VARIANT& argument, VARIANT& value) {
    switch (value.vt) {
        case VT_I1:
        case VT_UI1:
            *argument.pbVal = value.bVal;
            return;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            *argument.piVal = value.iVal;
            return;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            *argument.plVal = value.lVal;
            return;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_DATE:
        case VT_CY:
            *argument.pllVal = value.llVal;
            return;
        case VT_BSTR:
            std::swap(*argument.pbstrVal, value.bstrVal);
            return;
        default:
            throw OleError{DISP_E_TYPEMISMATCH};
    }
}

// Null, or without a reference of its own.
IUnknown* ObjectIn(const VARIANT& given) {
    const VARIANT& value = Dereferenced(given);
    RefuseNullReference(value);
    switch (value.vt) {
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return value.punkVal;
        case VT_BYREF | VT_DISPATCH:
        case VT_BYREF | VT_UNKNOWN:
            return *value.ppunkVal;
        default:
            throw OleError{DISP_E_TYPEMISMATCH};
    }
}

}  // namespace

const VARIANT& Dereferenced(const VARIANT& given) {
    return *Behind(const_cast<VARIANT*>(&given));
}

bool ReadBool(const VARIANT& given, LCID locale) {
    const VARIANT& value = Dereferenced(given);
    RefuseNullReference(value);
    if (value.vt == VT_BOOL) {
        return value.boolVal != VARIANT_FALSE;
    }
    OwnedVariant converted;
    Convert(converted, value, VT_BOOL, locale);
    return converted->boolVal != VARIANT_FALSE;
}

std::int16_t ReadShort(const VARIANT& given, LCID locale) {
    const VARIANT& value = Dereferenced(given);
    RefuseNullReference(value);
    if (value.vt == VT_I2) {
        return value.iVal;
    }
    OwnedVariant converted;
    Convert(converted, value, VT_I2, locale);
    return converted->iVal;
}

std::int32_t ReadLong(const VARIANT& given, LCID locale) {
    const VARIANT& value = Dereferenced(given);
    RefuseNullReference(value);
    if (value.vt == VT_I4) {
        return value.lVal;
    }
    if (value.vt == VT_I2) {
        return value.iVal;
    }
    OwnedVariant converted;
    Convert(converted, value, VT_I4, locale);
    return converted->lVal;
}

OleColor ReadColor(const VARIANT& given, LCID locale) {
    const VARIANT& value = Dereferenced(given);
    RefuseNullReference(value);
    OwnedVariant converted;
    Convert(converted, value, VT_I8, locale);
    const std::int64_t number = converted->llVal;
    if (!std::in_range<std::int32_t>(number) && !std::in_range<std::uint32_t>(number)) {
        throw OleError{DISP_E_OVERFLOW};
    }
    return {static_cast<std::uint32_t>(number)};
}

std::string ReadText(const VARIANT& given, LCID locale) {
    const VARIANT& value = Dereferenced(given);
    RefuseNullReference(value);
    if (value.vt == VT_BSTR) {
        return TakeBstr(value.bstrVal);
    }
    OwnedVariant converted;
    Convert(converted, value, VT_BSTR, locale);
    return TakeBstr(converted->bstrVal);
}

ComPtr<IDispatch> ReadObject(const VARIANT& given) {
    IUnknown* const object = ObjectIn(given);
    ComPtr<IDispatch> result;
    if (object != nullptr && FAILED(object->QueryInterface(IID_IDispatch, &result))) {
        throw OleError{DISP_E_TYPEMISMATCH};
    }
    return result;
}

GivenObject::GivenObject(const VARIANT& given) {
    // How JScript says that there is none.
    if (Dereferenced(given).vt != VT_NULL) {
        m_given = ObjectIn(given);
        m_object = ReadObject(given);
    }
}

// The interface may be an object of its own, so it keeps the reference that it came with, and the
// one that was given goes for it.
ComPtr<IDispatch> GivenObject::Take() {
    if (m_given != nullptr) {
        m_given->Release();
    }
    return std::move(m_object);
}

void PutBool(VARIANT& target, bool value) {
    target.vt = VT_BOOL;
    target.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void PutShort(VARIANT& target, std::int16_t value) {
    target.vt = VT_I2;
    target.iVal = value;
}

void PutLong(VARIANT& target, std::int32_t value) {
    target.vt = VT_I4;
    target.lVal = value;
}

void PutText(VARIANT& target, std::string_view text) {
    target.bstrVal = BstrFromText(text).Release();
    target.vt = VT_BSTR;
}

void PutObject(VARIANT& target, ComPtr<IDispatch> object) {
    target.vt = VT_DISPATCH;
    target.pdispVal = object.Detach();
}

void PutIntoArgument(VARIANT& argument, OwnedVariant& result, LCID locale) {
    VARIANT* const target = Behind(&argument);
    if ((target->vt & VT_BYREF) != 0) {
        RefuseNullReference(*target);
        OwnedVariant converted;
        Convert(converted, result.Get(), static_cast<VARTYPE>(target->vt & ~VT_BYREF), locale);
        WriteReference(*target, converted.Get());
    } else if (target != &argument) {
        ::VariantClear(target);
        *target = result.Release();
    }
}

}  // namespace veygrid
