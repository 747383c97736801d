// A control as scripts see it: every call goes to the control itself, on the loop's stack.
#include "apps/host/ScriptedControl.h"

#include <memory>
#include <vector>

#include "apps/host/Variant.h"

namespace veygrid {

namespace {

constexpr VARTYPE ReferenceToVariant = VT_BYREF | VT_VARIANT;

// One call with all that it refers to, because it may outlive the script's own arguments.
class DetachedCall {
  public:
    DetachedCall(ComPtr<IDispatch> target, DISPID member, LCID locale, WORD kind,
                 const DISPPARAMS& parameters);

    void Run();
    // Gives what the call changed to the script's variables.
    void CopyBack(const DISPPARAMS& parameters) const;
    HRESULT Answer(VARIANT* result, EXCEPINFO* exception, UINT* argument);

  private:
    ComPtr<IDispatch> m_target;
    DISPID m_member;
    LCID m_locale;
    WORD m_kind;
    std::vector<Variant> m_arguments;
    std::vector<Variant> m_variables;  // what references refer to, by the argument's place
    std::vector<DISPID> m_named;
    Variant m_result;
    EXCEPINFO m_exception{};
    UINT m_wrongArgument = 0;
    HRESULT m_answer = E_PENDING;
};

DetachedCall::DetachedCall(ComPtr<IDispatch> target, DISPID member, LCID locale, WORD kind,
                           const DISPPARAMS& parameters)
    : m_target(std::move(target)),
      m_member(member),
      m_locale(locale),
      m_kind(kind),
      m_variables(parameters.cArgs),
      m_named(parameters.rgdispidNamedArgs, parameters.rgdispidNamedArgs + parameters.cNamedArgs) {
    for (UINT index = 0; index < parameters.cArgs; ++index) {
        const VARIANT& given = parameters.rgvarg[index];
        Variant& argument = m_arguments.emplace_back();
        if (given.vt == ReferenceToVariant) {
            VariantCopy(&m_variables[index], given.pvarVal);
            argument.vt = ReferenceToVariant;
            argument.pvarVal = &m_variables[index];
        } else {
            VariantCopy(&argument, const_cast<VARIANT*>(&given));
        }
    }
}

void DetachedCall::Run() {
    DISPPARAMS parameters{m_arguments.data(), m_named.data(), static_cast<UINT>(m_arguments.size()),
                          static_cast<UINT>(m_named.size())};
    m_answer = m_target->Invoke(m_member, GUID{}, m_locale, m_kind, &parameters, &m_result,
                                &m_exception, &m_wrongArgument);
}

void DetachedCall::CopyBack(const DISPPARAMS& parameters) const {
    for (UINT index = 0; index < parameters.cArgs; ++index) {
        if (parameters.rgvarg[index].vt == ReferenceToVariant) {
            VariantCopy(parameters.rgvarg[index].pvarVal,
                        const_cast<Variant*>(&m_variables[index]));
        }
    }
}

HRESULT DetachedCall::Answer(VARIANT* result, EXCEPINFO* exception, UINT* argument) {
    if (result != nullptr) {
        *result = m_result;
        VariantInit(&m_result);  // handed over
    }
    if (exception != nullptr) {
        *exception = m_exception;
    }
    if (argument != nullptr) {
        *argument = m_wrongArgument;
    }
    return m_answer;
}

}  // namespace

STDMETHODIMP ScriptedControl::Invoke(DISPID member, REFIID, LCID locale, WORD kind,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argument) {
    if (parameters == nullptr) {
        return E_POINTER;
    }
    try {
        const auto call =
            std::make_shared<DetachedCall>(m_control, member, locale, kind, *parameters);
        const auto run = [call, member, before = m_beforeCall] {
            if (before) {
                before(member);
            }
            call->Run();
        };
        if (!m_fiber.Call(run)) {
            return S_OK;
        }
        call->CopyBack(*parameters);
        return call->Answer(result, exception, argument);
    } catch (const std::exception&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace veygrid
