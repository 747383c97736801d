// Calls of an automation object by the names of its members.
#pragma once

#include <vector>

#include "apps/host/ComObject.h"
#include "apps/host/Variant.h"

namespace veygrid {

// A call that an object refused.
struct ComFault {
    HRESULT result;
    std::wstring what;
};

// Throws ComFault, with `what` for the user, when the result tells of a failure.
void Check(HRESULT result, std::wstring_view what);

// Late-bound calls; each throws ComFault when the member is missing or the call fails.
class Automation {
  public:
    Automation() = default;
    explicit Automation(ComPtr<IDispatch> object) : m_object(std::move(object)) {}

    explicit operator bool() const { return m_object != nullptr; }
    IDispatch* Object() const { return m_object.Get(); }
    DISPID IdOf(const wchar_t* name) const;

    Variant Get(const wchar_t* name, std::vector<Variant> indexes = {}) const;
    void Put(const wchar_t* name, Variant value, std::vector<Variant> indexes = {}) const;
    // Arguments in their written order.
    Variant Call(const wchar_t* name, std::vector<Variant> arguments = {}) const;

  private:
    Variant Invoke(const wchar_t* name, WORD kind, std::vector<Variant> arguments) const;

    ComPtr<IDispatch> m_object;
};

}  // namespace veygrid
