// A host's dataset, reached by the numbers of its methods.
#include "control/DispatchDataset.h"

#include <array>

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleText.h"
#include "platform/win32/ole/OwnedVariant.h"

namespace veygrid {

namespace {

constexpr LCID Locale = LOCALE_USER_DEFAULT;

VARIANT LongArgument(std::int32_t number) {
    VARIANT argument{};
    argument.vt = VT_I4;
    argument.lVal = number;
    return argument;
}

VARIANT TrueArgument() {
    VARIANT argument{};
    argument.vt = VT_BOOL;
    argument.boolVal = VARIANT_TRUE;
    return argument;
}

std::wstring RoleOf(DISPID id) {
    switch (id) {
        case datasetid::GetCellValue:
            return L"GetCellValue";
        case datasetid::GetColCount:
            return L"GetColCount";
        case datasetid::GetRowCount:
            return L"GetRowCount";
        case datasetid::SetColCaption:
            return L"SetColCaption";
        default:
            return L"GetColName";
    }
}

// For an object that does not say itself what went wrong.
DescribedError Failure(DISPID id, HRESULT code) {
    return {
        {code},
        L"VeyGrid",
        L"the bound dataset failed in " + RoleOf(id) + L" (DISPID " + std::to_wstring(id) + L")"};
}

// What an object says of its failure, freed when it has been read.
class Exception {
  public:
    Exception() = default;
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;
    ~Exception() {
        ::SysFreeString(m_info.bstrSource);
        ::SysFreeString(m_info.bstrDescription);
        ::SysFreeString(m_info.bstrHelpFile);
    }

    EXCEPINFO* Address() { return &m_info; }
    DescribedError Told(DISPID id) {
        if (m_info.pfnDeferredFillIn != nullptr) {
            m_info.pfnDeferredFillIn(&m_info);
        }
        DescribedError error = Failure(id, Code());
        if (m_info.bstrDescription != nullptr) {
            error.source = TextOf(m_info.bstrSource);
            error.description = TextOf(m_info.bstrDescription);
            error.helpFile = TextOf(m_info.bstrHelpFile);
            error.helpContext = m_info.dwHelpContext;
        }
        return error;
    }

  private:
    static std::wstring TextOf(BSTR text) {
        return text == nullptr ? std::wstring() : std::wstring(text, ::SysStringLen(text));
    }
    // Objects give a code of the platform or a number of their own, which Basic tells from 512 on.
    HRESULT Code() const {
        if (m_info.scode != 0) {
            return m_info.scode;
        }
        return m_info.wCode == 0 ? E_FAIL : MAKE_HRESULT(1, FACILITY_CONTROL, m_info.wCode);
    }

    EXCEPINFO m_info{};
};

// Arguments stand last first.
void Call(IDispatch& object, DISPID id, VARIANT* arguments, UINT count, OwnedVariant& result) {
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    Exception exception;
    UINT wrong = 0;
    const HRESULT answer = object.Invoke(id, IID_NULL, Locale, DISPATCH_METHOD, &parameters,
                                         &result, exception.Address(), &wrong);
    if (FAILED(answer)) {
        throw answer == DISP_E_EXCEPTION ? exception.Told(id) : Failure(id, answer);
    }
}

std::int32_t NumberFrom(DISPID id, const OwnedVariant& result) {
    try {
        return ReadLong(result.Get(), Locale);
    } catch (const OleError& error) {
        throw Failure(id, error.code);
    }
}

std::string TextFrom(const OwnedVariant& value) {
    if (value->vt == VT_BSTR) {
        return TakeBstr(value->bstrVal);
    }
    const bool isNullReference = (value->vt & VT_BYREF) != 0 && value->byref == nullptr;
    OwnedVariant text;
    return !isNullReference && SUCCEEDED(::VariantChangeTypeEx(
                                   &text, const_cast<VARIANT*>(&value.Get()), Locale, 0, VT_BSTR))
               ? TakeBstr(text->bstrVal)
               : std::string();
}

}  // namespace

std::string DispatchDataset::GetCellValue(std::int32_t row, std::int32_t col) {
    OwnedVariant value;
    VARIANT target{};
    target.vt = VT_BYREF | VT_VARIANT;
    target.pvarVal = &value;
    std::array arguments{TrueArgument(), target, LongArgument(col), LongArgument(row)};
    OwnedVariant unused;
    Call(*m_object.Get(), datasetid::GetCellValue, arguments.data(), arguments.size(), unused);
    return TextFrom(value);
}

std::int32_t DispatchDataset::GetColCount() {
    OwnedVariant count;
    Call(*m_object.Get(), datasetid::GetColCount, nullptr, 0, count);
    return NumberFrom(datasetid::GetColCount, count);
}

std::int32_t DispatchDataset::GetRowCount() {
    VARIANT argument = TrueArgument();
    OwnedVariant count;
    Call(*m_object.Get(), datasetid::GetRowCount, &argument, 1, count);
    return NumberFrom(datasetid::GetRowCount, count);
}

std::int32_t DispatchDataset::SetColCaption(std::int32_t col, std::string_view text) {
    const OwnedBstr caption = BstrFromText(text);
    VARIANT captionArgument{};
    captionArgument.vt = VT_BSTR;
    captionArgument.bstrVal = caption.Get();
    std::array arguments{captionArgument, LongArgument(col)};
    OwnedVariant result;
    Call(*m_object.Get(), datasetid::SetColCaption, arguments.data(), arguments.size(), result);
    return NumberFrom(datasetid::SetColCaption, result);
}

std::string DispatchDataset::GetColName(std::int32_t col) {
    VARIANT argument = LongArgument(col);
    OwnedVariant name;
    Call(*m_object.Get(), datasetid::GetColName, &argument, 1, name);
    return TextFrom(name);
}

}  // namespace veygrid
