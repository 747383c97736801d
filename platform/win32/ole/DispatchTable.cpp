// One table of members for an automation class: names, numbers, types and handlers, and IDispatch
// calls run from it.
#include "platform/win32/ole/DispatchTable.h"

#include <algorithm>
#include <bit>
#include <exception>
#include <optional>
#include <stdexcept>

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleText.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

namespace {

template <class Char>
constexpr std::uint32_t Lower(Char c) {
    const auto code = static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<Char>>(c));
    return code >= 'A' && code <= 'Z' ? code - 'A' + 'a' : code;
}

template <class Char>
std::size_t HashOfName(std::basic_string_view<Char> name) {
    std::uint32_t hash = 2166136261U;
    for (const Char c : name) {
        hash = (hash ^ Lower(c)) * 16777619U;
    }
    return hash ^ hash >> 15U;
}

bool SameName(std::string_view known, std::wstring_view asked) {
    return std::ranges::equal(known, asked, {}, Lower<char>, Lower<wchar_t>);
}

std::size_t HashOfId(DISPID id) {
    return static_cast<std::uint32_t>(id) * 2654435769U >> 16U;
}

// Place of a name in a list separated by single blanks.
std::optional<DISPID> PlaceOfName(std::string_view list, std::wstring_view asked) {
    DISPID place = 0;
    for (std::size_t start = 0; start < list.size(); ++place) {
        const std::size_t end = std::min(list.find(' ', start), list.size());
        if (SameName(list.substr(start, end - start), asked)) {
            return place;
        }
        start = end + 1;
    }
    return std::nullopt;
}

void FillException(EXCEPINFO* exception, HRESULT code, const char* text) {
    if (exception == nullptr) {
        return;
    }
    *exception = {};
    exception->scode = code;
    exception->bstrSource = ::SysAllocString(L"VeyGrid");
    const std::string_view description = text;
    exception->bstrDescription =
        BstrFromWide(std::wstring(description.begin(), description.end())).Release();
}

// A failure that the host's own code reported goes to the caller in its own words.
HRESULT ReportDescribed(EXCEPINFO* exception, const DescribedError& error) noexcept {
    if (exception == nullptr) {
        return error.code;
    }
    const auto text = [](const std::wstring& given) {
        return given.empty() ? nullptr
                             : ::SysAllocStringLen(given.data(), static_cast<UINT>(given.size()));
    };
    *exception = {};
    exception->scode = error.code;
    exception->bstrSource = text(error.source);
    exception->bstrDescription = text(error.description);
    exception->bstrHelpFile = text(error.helpFile);
    exception->dwHelpContext = error.helpContext;
    return DISP_E_EXCEPTION;
}

// The exception that is being handled, as automation reports it.
HRESULT ReportException(EXCEPINFO* exception) noexcept {
    try {
        try {
            throw;
        } catch (const std::bad_alloc&) {
            FillException(exception, E_OUTOFMEMORY, "out of memory");
        } catch (const std::exception& error) {
            FillException(exception, E_FAIL, error.what());
        } catch (...) {
            FillException(exception, E_UNEXPECTED, "unexpected failure");
        }
    } catch (...) {
        return E_OUTOFMEMORY;
    }
    return DISP_E_EXCEPTION;
}

bool IsWellFormed(const DISPPARAMS* given) {
    return given != nullptr && given->cNamedArgs <= given->cArgs &&
           (given->cArgs == 0 || given->rgvarg != nullptr) &&
           (given->cNamedArgs == 0 || given->rgdispidNamedArgs != nullptr);
}

}  // namespace

CallArguments::CallArguments(LCID locale) : m_locale(locale) {
    m_leftOut.vt = VT_ERROR;
    m_leftOut.scode = DISP_E_PARAMNOTFOUND;
    m_zero.vt = VT_I4;
}

// Arguments stand last first; the named ones stand in front of the positional ones.
void CallArguments::Bind(const DISPPARAMS& given, std::size_t count, std::size_t optional) {
    if (given.cArgs > count || given.cArgs + optional < count) {
        throw OleError{DISP_E_BADPARAMCOUNT};
    }
    m_firstOptional = count - optional;
    const UINT positional = given.cArgs - given.cNamedArgs;
    for (UINT place = 0; place < positional; ++place) {
        m_index[place] = given.cArgs - 1 - place;
        m_arguments[place] = &given.rgvarg[m_index[place]];
    }
    BindNamed(given, count);
}

void CallArguments::BindNamed(const DISPPARAMS& given, std::size_t count) {
    for (UINT i = 0; i < given.cNamedArgs; ++i) {
        const DISPID id = given.rgdispidNamedArgs[i];
        const std::size_t place = id == DISPID_PROPERTYPUT ? count - 1 : static_cast<UINT>(id);
        if (place >= count || m_arguments[place] != nullptr) {
            m_current = 0;
            m_index[0] = i;
            throw OleError{DISP_E_PARAMNOTFOUND};
        }
        m_index[place] = i;
        m_arguments[place] = &given.rgvarg[i];
    }
}

VARIANT& CallArguments::Given(std::size_t place, bool isResultPointer) {
    VARIANT* const given = m_arguments[place];
    if (given != nullptr && !IsLeftOut(*given)) {
        return *given;
    }
    if (isResultPointer) {
        return m_leftOut;
    }
    if (place < m_firstOptional) {
        throw OleError{DISP_E_PARAMNOTFOUND};
    }
    return m_zero;
}

DispatchTable::DispatchTable(std::span<const DispatchMember> members) : m_members(members) {
    const std::size_t size = std::bit_ceil(members.size() * 4);
    m_names.resize(size);
    m_ids.resize(size);
    const auto put = [size](std::vector<std::uint16_t>& table, std::size_t hash,
                            std::size_t index) {
        std::size_t place = hash & (size - 1);
        while (table[place] != 0) {
            place = (place + 1) & (size - 1);
        }
        table[place] = static_cast<std::uint16_t>(index + 1);
    };
    for (std::size_t i = 0; i < members.size(); ++i) {
        put(m_names, HashOfName(members[i].name), i);
        put(m_ids, HashOfId(members[i].id), i);
    }
}

const DispatchMember* DispatchTable::FindById(DISPID id) const {
    const std::size_t mask = m_ids.size() - 1;
    for (std::size_t place = HashOfId(id) & mask; m_ids[place] != 0; place = (place + 1) & mask) {
        const DispatchMember& member = m_members[m_ids[place] - 1U];
        if (member.id == id) {
            return &member;
        }
    }
    return nullptr;
}

const DispatchMember* DispatchTable::FindByName(std::wstring_view name) const {
    const std::size_t mask = m_names.size() - 1;
    for (std::size_t place = HashOfName(name) & mask; m_names[place] != 0;
         place = (place + 1) & mask) {
        const DispatchMember& member = m_members[m_names[place] - 1U];
        if (SameName(member.name, name)) {
            return &member;
        }
    }
    return nullptr;
}

HRESULT DispatchTable::GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept {
    if (names == nullptr || ids == nullptr || count == 0) {
        return E_INVALIDARG;
    }
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const DispatchMember* const member = names[0] == nullptr ? nullptr : FindByName(names[0]);
    if (member == nullptr) {
        return DISP_E_UNKNOWNNAME;
    }
    ids[0] = member->id;
    HRESULT result = S_OK;
    for (UINT i = 1; i < count; ++i) {
        const auto place = names[i] == nullptr ? std::optional<DISPID>()
                                               : PlaceOfName(member->parameterNames, names[i]);
        ids[i] = place.value_or(DISPID_UNKNOWN);
        result = place ? result : DISP_E_UNKNOWNNAME;
    }
    return result;
}

const CallForm& DispatchTable::ChooseForm(const DispatchMember& member, WORD flags) const {
    constexpr WORD Puts = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
    const bool isRead = (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0;
    // An object may be put by value too, as hosts do whose language has no `Set`.
    const bool isWrite = (flags & DISPATCH_PROPERTYPUT) != 0 ||
                         ((flags & DISPATCH_PROPERTYPUTREF) != 0 && member.putByReference);
    if ((flags & Puts) == 0 && isRead && member.get.Exists()) {
        return member.get;
    }
    if (isWrite && !isRead && member.put.Exists()) {
        return member.put;
    }
    throw OleError{DISP_E_MEMBERNOTFOUND};
}

HRESULT DispatchTable::Invoke(void* object, DISPID id, REFIID riid, LCID locale, WORD flags,
                              DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                              UINT* argumentInError) const noexcept {
    if (riid != IID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    if (!IsWellFormed(parameters)) {
        return E_INVALIDARG;
    }
    const DispatchMember* const member = FindById(id);
    if (member == nullptr) {
        return DISP_E_MEMBERNOTFOUND;
    }
    CallArguments arguments(locale);
    try {
        const CallForm& form = ChooseForm(*member, flags);
        arguments.Bind(*parameters, form.count, &form == &member->get ? member->optional : 0);
        OwnedVariant answer;
        form.run(object, arguments, answer.Get());
        if (result != nullptr) {
            *result = answer.Release();
        }
        return S_OK;
    } catch (const DescribedError& error) {
        return ReportDescribed(exception, error);
    } catch (const OleError& error) {
        if (argumentInError != nullptr) {
            *argumentInError = arguments.CurrentIndex();
        }
        return error.code;
    } catch (...) {
        return ReportException(exception);
    }
}

}  // namespace veygrid
