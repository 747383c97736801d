// An automation object whose members stand in a table of names and functions.
#include "apps/host/ScriptObject.h"

#include <cwchar>
#include <utility>

#include "apps/host/Automation.h"

namespace veygrid {

namespace {

constexpr WORD PutKinds = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

HRESULT Raise(EXCEPINFO* exception, const std::wstring& text, HRESULT code) {
    if (exception != nullptr) {
        *exception = {};
        exception->bstrSource = SysAllocString(L"VeyHost");
        exception->bstrDescription = SysAllocString(text.c_str());
        exception->scode = code;
    }
    return DISP_E_EXCEPTION;
}

}  // namespace

bool ScriptArguments::Has(std::size_t index) const {
    return index < Count() && At(index).vt != VT_ERROR;
}

std::wstring ScriptArguments::Text(std::size_t index) const {
    return Has(index) ? Variant(At(index)).Text() : std::wstring();
}

long ScriptArguments::Number(std::size_t index, long otherwise) const {
    if (!Has(index)) {
        return otherwise;
    }
    Variant number(At(index));
    if (FAILED(VariantChangeType(&number, &number, 0, VT_I4))) {
        throw Mismatch{index};
    }
    return number.lVal;
}

STDMETHODIMP ScriptObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

STDMETHODIMP ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (names == nullptr || ids == nullptr) {
        return E_POINTER;
    }
    for (UINT index = 0; index < count; ++index) {
        ids[index] = DISPID_UNKNOWN;  // members take no named arguments
    }
    const Member* member = count == 0 ? nullptr : Find(names[0]);
    if (member == nullptr) {
        return DISP_E_UNKNOWNNAME;
    }
    ids[0] = static_cast<DISPID>(member - m_members.data());
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

// Member numbers begin with 0, so that the first member is the one of DISPID_VALUE.
STDMETHODIMP ScriptObject::Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT* argument) {
    if (parameters == nullptr) {
        return E_POINTER;
    }
    if (member < 0 || static_cast<std::size_t>(member) >= m_members.size()) {
        return DISP_E_MEMBERNOTFOUND;
    }
    // Members may let go of the object that they belong to.
    const ComPtr<IDispatch> self = this;
    try {
        return Run(m_members[static_cast<std::size_t>(member)], kind, *parameters, result);
    } catch (const ScriptArguments::Mismatch& mismatch) {
        if (argument != nullptr) {
            *argument = parameters->cArgs - 1 - static_cast<UINT>(mismatch.index);
        }
        return DISP_E_TYPEMISMATCH;
    } catch (const ScriptFault& fault) {
        return Raise(exception, fault.text, E_FAIL);
    } catch (const ComFault& fault) {
        return Raise(exception, fault.what, fault.result);
    } catch (const std::exception&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT ScriptObject::Run(const Member& member, WORD kind, const DISPPARAMS& parameters,
                          VARIANT* result) {
    const ScriptArguments arguments(parameters);
    if ((kind & PutKinds) != 0) {
        if (!member.put) {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (arguments.Count() != 1) {
            return DISP_E_BADPARAMCOUNT;
        }
        member.put(arguments);
        return S_OK;
    }
    if (arguments.Count() < member.least || arguments.Count() > member.most) {
        return DISP_E_BADPARAMCOUNT;
    }
    Variant answer = member.function(arguments);
    if (result != nullptr) {
        *result = answer;
        VariantInit(&answer);  // handed over
    }
    return S_OK;
}

void ScriptObject::Add(const wchar_t* name, std::size_t least, std::size_t most,
                       Function function) {
    m_members.push_back({name, least, most, std::move(function), nullptr});
}

void ScriptObject::AddAction(const wchar_t* name, std::size_t least, std::size_t most,
                             Action action) {
    Add(name, least, most, [action = std::move(action)](const ScriptArguments& arguments) {
        action(arguments);
        return Variant();
    });
}

void ScriptObject::AddPut(const wchar_t* name, Action action) {
    if (Member* member = Find(name)) {
        member->put = std::move(action);
    }
}

ScriptObject::Member* ScriptObject::Find(const wchar_t* name) {
    for (Member& member : m_members) {
        if (_wcsicmp(member.name, name) == 0) {
            return &member;
        }
    }
    return nullptr;
}

}  // namespace veygrid
