// Receives a control's events under the names that its own type information gives them.
#pragma once

#include <ocidl.h>

#include <functional>
#include <map>
#include <string>

#include "apps/host/ComObject.h"

namespace veygrid {

// Arguments stand in `parameters` in reverse order, as IDispatch passes them.
using EventHandler = std::function<void(const std::wstring& event, DISPPARAMS& parameters)>;

class EventSink : public ComObject<IDispatch> {
  public:
    // Connects to the default source interface of the object. Throws ComFault when the object
    // offers no events.
    static ComPtr<EventSink> Connect(IUnknown* source, EventHandler handler);

    // No event arrives afterwards.
    void Disconnect();

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                        EXCEPINFO*, UINT*) override;

    // Use Connect.
    EventSink(ComPtr<ITypeInfo> events, EventHandler handler);

  protected:
    void* FindOther(REFIID iid) override;

  private:
    void Advise(IUnknown* source);

    IID m_events{};
    std::map<DISPID, std::wstring> m_names;
    EventHandler m_handler;
    ComPtr<IConnectionPoint> m_point;
    DWORD m_cookie = 0;
};

}  // namespace veygrid
