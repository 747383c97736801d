// Receives a control's events under the names that its own type information gives them.
#include "apps/host/EventSink.h"

#include <utility>

#include "apps/host/Automation.h"

namespace veygrid {

namespace {

TYPEATTR AttributesOf(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    Check(info->GetTypeAttr(&attributes), L"GetTypeAttr");
    const TYPEATTR copy = *attributes;
    info->ReleaseTypeAttr(attributes);
    return copy;
}

ComPtr<ITypeInfo> DefaultSource(ITypeInfo* coclass) {
    const UINT count = AttributesOf(coclass).cImplTypes;
    for (UINT index = 0; index < count; ++index) {
        INT flags = 0;
        constexpr INT wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> events;
        if (SUCCEEDED(coclass->GetImplTypeFlags(index, &flags)) && (flags & wanted) == wanted &&
            SUCCEEDED(coclass->GetRefTypeOfImplType(index, &reference)) &&
            SUCCEEDED(coclass->GetRefTypeInfo(reference, &events))) {
            return events;
        }
    }
    throw ComFault{E_NOINTERFACE, L"no default source interface"};
}

std::map<DISPID, std::wstring> NamesOf(ITypeInfo* events) {
    std::map<DISPID, std::wstring> names;
    const UINT count = AttributesOf(events).cFuncs;
    for (UINT index = 0; index < count; ++index) {
        FUNCDESC* function = nullptr;
        if (FAILED(events->GetFuncDesc(index, &function))) {
            continue;
        }
        Bstr name;
        UINT found = 0;
        events->GetNames(function->memid, name.Out(), 1, &found);
        names[function->memid] = name.Text();
        events->ReleaseFuncDesc(function);
    }
    return names;
}

}  // namespace

ComPtr<EventSink> EventSink::Connect(IUnknown* source, EventHandler handler) {
    ComPtr<IProvideClassInfo> provider;
    Check(source->QueryInterface(IID_IProvideClassInfo, &provider), L"IProvideClassInfo");
    ComPtr<ITypeInfo> coclass;
    Check(provider->GetClassInfo(&coclass), L"GetClassInfo");
    auto sink = MakeCom<EventSink>(DefaultSource(coclass.Get()), std::move(handler));
    sink->Advise(source);
    return sink;
}

EventSink::EventSink(ComPtr<ITypeInfo> events, EventHandler handler)
    : m_events(AttributesOf(events.Get()).guid),
      m_names(NamesOf(events.Get())),
      m_handler(std::move(handler)) {}

void EventSink::Advise(IUnknown* source) {
    ComPtr<IConnectionPointContainer> container;
    Check(source->QueryInterface(IID_IConnectionPointContainer, &container),
          L"IConnectionPointContainer");
    Check(container->FindConnectionPoint(m_events, &m_point), L"FindConnectionPoint");
    Check(m_point->Advise(this, &m_cookie), L"Advise");
}

void EventSink::Disconnect() {
    m_handler = nullptr;
    if (m_point != nullptr) {
        m_point->Unadvise(m_cookie);
        m_point.Reset();
    }
}

void* EventSink::FindOther(REFIID iid) {
    return IsEqualIID(iid, m_events) ? static_cast<IDispatch*>(this) : nullptr;
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                               EXCEPINFO*, UINT*) {
    const auto name = m_names.find(member);
    if (name == m_names.end() || parameters == nullptr) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (m_handler) {
        // A copy, because the handler may disconnect this sink.
        const EventHandler handler = m_handler;
        handler(name->second, *parameters);
    }
    return S_OK;
}

}  // namespace veygrid
