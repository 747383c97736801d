// The dataset object that the control binds.
#include "apps/host/odbc/QueryDataset.h"

namespace veygrid {
namespace {

struct Member {
    DISPID id;
    const wchar_t* name;
    UINT arguments;
};
enum MemberId : DISPID {
    GetCellValue = 3,
    GetColCount = 7,
    GetRowCount = 8,
    SetColCaption = 9,
    GetColName = 10
};
constexpr Member Members[] = {{GetCellValue, L"GetCellValue", 4},
                              {GetColCount, L"GetColCount", 0},
                              {GetRowCount, L"GetRowCount", 1},
                              {SetColCaption, L"SetColCaption", 2},
                              {GetColName, L"GetColName", 1}};

// What SetColCaption answers for a caption that it does not take.
constexpr long Refused = -1;

const Member* FindMember(DISPID id) {
    for (const Member& member : Members) {
        if (member.id == id) {
            return &member;
        }
    }
    return nullptr;
}

std::wstring Wide(std::u16string_view text) {
    return {text.begin(), text.end()};
}
std::u16string Utf16(std::wstring_view text) {
    return {text.begin(), text.end()};
}

// Arguments stand in reverse; `index` counts them as they are written, from 0.
const VARIANT& Argument(const DISPPARAMS& parameters, UINT index) {
    return parameters.rgvarg[parameters.cArgs - 1 - index];
}
long NumberAt(const DISPPARAMS& parameters, UINT index) {
    Variant number;
    VARIANT& given = const_cast<VARIANT&>(Argument(parameters, index));
    const HRESULT result = ::VariantChangeType(&number, &given, 0, VT_I4);
    if (FAILED(result)) {
        throw result;
    }
    return number.lVal;
}
std::u16string TextAt(const DISPPARAMS& parameters, UINT index) {
    return Utf16(Variant(Argument(parameters, index)).Text());
}
VARIANT& OutAt(const DISPPARAMS& parameters, UINT index) {
    const VARIANT& given = Argument(parameters, index);
    if (given.vt != (VT_BYREF | VT_VARIANT) || given.pvarVal == nullptr) {
        throw HRESULT{DISP_E_TYPEMISMATCH};
    }
    return *given.pvarVal;
}

}  // namespace

std::u16string QueryDataset::ColName(int col) const {
    if (col < 1 || col > ColCount()) {
        return {};
    }
    const auto caption = m_captions.find(col);
    return caption != m_captions.end() ? caption->second
                                       : m_query.Columns()[static_cast<std::size_t>(col - 1)].name;
}

bool QueryDataset::SetColCaption(int col, std::u16string_view caption) {
    if (col < 1 || col > ColCount() || caption.empty()) {
        return false;
    }
    m_captions[col] = caption;
    return true;
}

CellValue QueryDataset::CellText(long row, int col) {
    if (m_fault != nullptr) {
        const PendingRows::Texts* const texts =
            m_rows.Has(row, col) ? m_rows.PendingTexts(row) : nullptr;
        return texts != nullptr && texts->count(col) != 0 ? CellValue(texts->at(col)) : CellValue();
    }
    try {
        return m_rows.Shown(row, col);
    } catch (const OdbcError& error) {
        KeepFault(error);
        return std::nullopt;
    }
}

void QueryDataset::KeepFault(const OdbcError& error) {
    m_fault = std::make_unique<OdbcError>(error);
    if (m_whenFaulty) {
        m_whenFaulty(error);
    }
}

void QueryDataset::Reload() {
    try {
        m_query.Reload();
        m_fault.reset();
    } catch (const OdbcError& error) {
        m_fault = std::make_unique<OdbcError>(error);
        throw;
    }
}

STDMETHODIMP QueryDataset::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

STDMETHODIMP QueryDataset::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (names == nullptr || ids == nullptr || count == 0) {
        return E_INVALIDARG;
    }
    for (UINT i = 0; i < count; ++i) {
        ids[i] = DISPID_UNKNOWN;  // arguments have no names
    }
    for (const Member& member : Members) {
        if (::lstrcmpiW(member.name, names[0]) == 0) {
            ids[0] = member.id;
        }
    }
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

Variant QueryDataset::Answer(DISPID id, DISPPARAMS& parameters) {
    const auto column = [&](UINT index) { return static_cast<int>(NumberAt(parameters, index)); };
    if (id == MemberId::GetCellValue) {
        VARIANT& out = OutAt(parameters, 2);
        const CellValue text = CellText(NumberAt(parameters, 0), column(1));
        Variant value = text ? Variant::Of(std::wstring_view(Wide(*text))) : Variant();
        ::VariantClear(&out);
        std::swap(out, static_cast<VARIANT&>(value));
        return Variant::Of(0L);
    }
    if (id == MemberId::GetColCount) {
        return Variant::Of(static_cast<long>(ColCount()));
    }
    if (id == MemberId::GetRowCount) {
        return Variant::Of(RowCount());
    }
    if (id == MemberId::SetColCaption) {
        return Variant::Of(SetColCaption(column(0), TextAt(parameters, 1)) ? 0L : Refused);
    }
    return Variant::Of(std::wstring_view(Wide(ColName(column(0)))));
}

STDMETHODIMP QueryDataset::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO*, UINT*) try {
    const Member* const member = FindMember(id);
    if (member == nullptr || (flags & DISPATCH_METHOD) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (parameters == nullptr || parameters->cArgs != member->arguments) {
        return DISP_E_BADPARAMCOUNT;
    }
    // The control may let go of the object in what is called.
    const ComPtr<IDispatch> alive(this);
    Variant answer = Answer(id, *parameters);
    if (result != nullptr) {
        *result = answer;
        ::VariantInit(&answer);
    }
    return S_OK;
} catch (HRESULT wrong) {
    return wrong;
} catch (...) {
    return E_FAIL;
}

}  // namespace veygrid
