// IDispatch, class information and error information of an automation class, run from its table.
#pragma once

#include "platform/win32/ole/DispatchTable.h"
#include "platform/win32/ole/OleObject.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

// What identifies an automation class; all of it outlives every object.
struct AutomationClass {
    const CLSID& clsid;
    const IID& dispatch;
    const IID* events;  // null without events
    const DispatchTable& (*table)();
};

class DispatchPart final : public Part<IDispatch, OleObject> {
  public:
    // `handled` is the object as the handlers of the table take it.
    DispatchPart(OleObject& owner, const AutomationClass& automation, void* handled)
        : Part(owner), m_class(automation), m_handled(handled) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID riid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argumentInError) override;

  private:
    const AutomationClass& m_class;
    void* m_handled;
};

class ClassInfoPart final : public Part<IProvideClassInfo2, OleObject> {
  public:
    ClassInfoPart(OleObject& owner, const AutomationClass& automation)
        : Part(owner), m_class(automation) {}

    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

  private:
    const AutomationClass& m_class;
};

class ErrorInfoPart final : public Part<ISupportErrorInfo, OleObject> {
  public:
    ErrorInfoPart(OleObject& owner, const AutomationClass& automation)
        : Part(owner), m_class(automation) {}

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override;

  private:
    const AutomationClass& m_class;
};

// The three of them, as every automation class has them.
class AutomationParts {
  public:
    AutomationParts(OleObject& owner, const AutomationClass& automation, void* handled);

    // The interface or null.
    IUnknown* Find(REFIID iid);
    IDispatch* Dispatch() { return &m_dispatch; }

  private:
    const AutomationClass& m_class;
    DispatchPart m_dispatch;
    ClassInfoPart m_classInfo;
    ErrorInfoPart m_errorInfo;
};

}  // namespace veygrid
