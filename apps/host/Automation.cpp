// Calls of an automation object by the names of its members.
#include "apps/host/Automation.h"

#include <algorithm>
#include <utility>

namespace veygrid {

void Check(HRESULT result, std::wstring_view what) {
    if (FAILED(result)) {
        throw ComFault{result, std::wstring(what)};
    }
}

Variant Automation::Get(const wchar_t* name, std::vector<Variant> indexes) const {
    return Invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, std::move(indexes));
}

void Automation::Put(const wchar_t* name, Variant value, std::vector<Variant> indexes) const {
    indexes.push_back(std::move(value));
    Invoke(name, DISPATCH_PROPERTYPUT, std::move(indexes));
}

Variant Automation::Call(const wchar_t* name, std::vector<Variant> arguments) const {
    return Invoke(name, DISPATCH_METHOD, std::move(arguments));
}

DISPID Automation::IdOf(const wchar_t* name) const {
    if (m_object == nullptr) {
        throw ComFault{E_POINTER, name};
    }
    DISPID member = DISPID_UNKNOWN;
    auto* spelling = const_cast<LPOLESTR>(name);
    Check(m_object->GetIDsOfNames(GUID{}, &spelling, 1, LOCALE_USER_DEFAULT, &member), name);
    return member;
}

Variant Automation::Invoke(const wchar_t* name, WORD kind, std::vector<Variant> arguments) const {
    const DISPID member = IdOf(name);
    std::reverse(arguments.begin(), arguments.end());
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    if (kind == DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    Variant answer;
    Check(m_object->Invoke(member, GUID{}, LOCALE_USER_DEFAULT, kind, &parameters,
                           kind == DISPATCH_PROPERTYPUT ? nullptr : &answer, nullptr, nullptr),
          name);
    return answer;
}

}  // namespace veygrid
