// IDispatch, class information and error information of an automation class, run from its table.
#include "platform/win32/ole/DispatchPart.h"

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

STDMETHODIMP DispatchPart::GetTypeInfoCount(UINT* count) {
    return Answered(count, [&] {
        *count = 1;
        return S_OK;
    });
}

STDMETHODIMP DispatchPart::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    return Answered(info, [&] {
        if (index != 0) {
            return DISP_E_BADINDEX;
        }
        *info = module::TypeInfo(m_class.dispatch).Detach();
        return S_OK;
    });
}

STDMETHODIMP DispatchPart::GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID,
                                         DISPID* ids) {
    return riid == IID_NULL ? m_class.table().GetIDsOfNames(names, count, ids)
                            : DISP_E_UNKNOWNINTERFACE;
}

STDMETHODIMP DispatchPart::Invoke(DISPID id, REFIID riid, LCID locale, WORD flags,
                                  DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                  UINT* argumentInError) {
    const KeepAlive keep(m_owner);
    return m_class.table().Invoke(m_handled, id, riid, locale, flags, parameters, result, exception,
                                  argumentInError);
}

STDMETHODIMP ClassInfoPart::GetClassInfo(ITypeInfo** info) {
    return Answered(info, [&] {
        *info = module::TypeInfo(m_class.clsid).Detach();
        return S_OK;
    });
}

STDMETHODIMP ClassInfoPart::GetGUID(DWORD kind, GUID* guid) {
    return Answered(guid, [&] {
        if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID || m_class.events == nullptr) {
            return E_INVALIDARG;
        }
        *guid = *m_class.events;
        return S_OK;
    });
}

STDMETHODIMP ErrorInfoPart::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == m_class.dispatch ? S_OK : S_FALSE;
}

AutomationParts::AutomationParts(OleObject& owner, const AutomationClass& automation, void* handled)
    : m_class(automation),
      m_dispatch(owner, automation, handled),
      m_classInfo(owner, automation),
      m_errorInfo(owner, automation) {}

IUnknown* AutomationParts::Find(REFIID iid) {
    if (iid == IID_IDispatch || iid == m_class.dispatch) {
        return &m_dispatch;
    }
    if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2) {
        return &m_classInfo;
    }
    return iid == IID_ISupportErrorInfo ? &m_errorInfo : nullptr;
}

}  // namespace veygrid
