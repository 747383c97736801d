// The outgoing side of a control: who listens to its events and property changes.
#include "platform/win32/ole/ConnectionParts.h"

#include <algorithm>

#include "platform/win32/ole/Enumerator.h"
#include "platform/win32/ole/Guard.h"

namespace veygrid {

STDMETHODIMP ConnectionPart::QueryInterface(REFIID iid, void** target) {
    return Answered(target, [&] {
        if (iid != IID_IUnknown && iid != IID_IConnectionPoint) {
            return E_NOINTERFACE;
        }
        AddRef();
        *target = static_cast<IConnectionPoint*>(this);
        return S_OK;
    });
}

STDMETHODIMP ConnectionPart::GetConnectionInterface(IID* iid) {
    return Answered(iid, [&] {
        *iid = m_iid;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPart::GetConnectionPointContainer(IConnectionPointContainer** container) {
    return Answered(container, [&] {
        m_container.AddRef();
        *container = &m_container;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPart::Advise(IUnknown* sink, DWORD* cookie) {
    if (sink == nullptr) {
        return E_POINTER;
    }
    return Answered(cookie, [&] {
        Connection added{m_lastCookie + 1, nullptr};
        const auto ask = [&](const IID& iid) {
            return SUCCEEDED(sink->QueryInterface(
                iid, reinterpret_cast<void**>(added.sink.ReleaseAndGetAddressOf())));
        };
        if (!ask(m_iid) && (m_fallback == nullptr || !ask(*m_fallback))) {
            return CONNECT_E_CANNOTCONNECT;
        }
        m_sinks.push_back(added);
        *cookie = ++m_lastCookie;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPart::Unadvise(DWORD cookie) {
    const auto found = std::ranges::find(m_sinks, cookie, &Connection::cookie);
    if (found == m_sinks.end()) {
        return CONNECT_E_NOCONNECTION;
    }
    // Its last reference may call back into this list.
    const ComPtr<IUnknown> gone = found->sink;
    m_sinks.erase(found);
    return S_OK;
}

STDMETHODIMP ConnectionPart::EnumConnections(IEnumConnections** target) {
    return Answered(target, [&] {
        std::vector<CONNECTDATA> items;
        items.reserve(m_sinks.size());
        for (const Connection& connection : m_sinks) {
            items.push_back(
                ItemCopy<CONNECTDATA>::Copy({connection.sink.Get(), connection.cookie}));
        }
        *target = new Enumerator<IEnumConnections, CONNECTDATA>(std::move(items));
        return S_OK;
    });
}

bool ConnectionPart::IsConnected(DWORD cookie) const {
    return std::ranges::find(m_sinks, cookie, &Connection::cookie) != m_sinks.end();
}

STDMETHODIMP ConnectionsPart::EnumConnectionPoints(IEnumConnectionPoints** target) {
    return Answered(target, [&] {
        std::vector<IConnectionPoint*> items;
        for (IConnectionPoint* const point : {&m_events, &m_properties}) {
            items.push_back(ItemCopy<IConnectionPoint*>::Copy(point));
        }
        *target = new Enumerator<IEnumConnectionPoints, IConnectionPoint*>(std::move(items));
        return S_OK;
    });
}

STDMETHODIMP ConnectionsPart::FindConnectionPoint(REFIID iid, IConnectionPoint** target) {
    return Answered(target, [&] {
        for (ConnectionPart* const point : {&m_events, &m_properties}) {
            if (iid == point->Interface()) {
                point->AddRef();
                *target = point;
                return S_OK;
            }
        }
        return CONNECT_E_NOCONNECTION;
    });
}

void FireEvent(ConnectionPart& events, DISPID id, std::vector<EventArgument*> arguments) {
    std::vector<VARIANT> values;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
        values.push_back((*argument)->Take());
    }
    DISPPARAMS parameters{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
    events.ForEach<IDispatch>([&](IDispatch& sink) {
        OwnedVariant unused;
        sink.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &unused,
                    nullptr, nullptr);
    });
    std::ranges::for_each(values, [](VARIANT& value) { ::VariantClear(&value); });
}

}  // namespace veygrid
