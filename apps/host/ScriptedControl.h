// A control as scripts see it: every call goes to the control itself, on the loop's stack.
#pragma once

#include <functional>

#include "apps/host/ComObject.h"
#include "apps/host/ScriptFiber.h"

namespace veygrid {

// A call that opens a dialog, such as ShowFontDlg, returns to the script while the dialog is up,
// with an empty result, so that the script can drive it.
class ScriptedControl : public ComObject<IDispatch> {
  public:
    // `beforeCall` runs before each call of a member, on the same stack.
    ScriptedControl(ComPtr<IDispatch> control, ScriptFiber& fiber,
                    std::function<void(DISPID)> beforeCall = {})
        : m_control(std::move(control)), m_fiber(fiber), m_beforeCall(std::move(beforeCall)) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        return m_control->GetTypeInfoCount(count);
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return m_control->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override {
        return m_control->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD kind, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

  private:
    ComPtr<IDispatch> m_control;
    ScriptFiber& m_fiber;
    std::function<void(DISPID)> m_beforeCall;
};

}  // namespace veygrid
