// The outgoing side of a control: who listens to its events and property changes.
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/win32/ole/OleObject.h"
#include "platform/win32/ole/OleText.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

class ConnectionsPart;

class ConnectionPart final : public Part<IConnectionPoint, OleObject> {
  public:
    // `fallback` is asked of a sink that does not know `iid` itself; null for none.
    ConnectionPart(OleObject& owner, ConnectionsPart& container, const IID& iid,
                   const IID* fallback)
        : Part(owner), m_container(container), m_iid(iid), m_fallback(fallback) {}

    // The point is an object of its own that lives with its owner.
    STDMETHODIMP QueryInterface(REFIID iid, void** target) override;
    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** target) override;

    const IID& Interface() const { return m_iid; }
    bool IsEmpty() const { return m_sinks.empty(); }
    void Clear() { m_sinks.clear(); }

    // Calls `visit(Sink&)` on each sink. One that comes while the call lasts is left out, one that
    // goes is not called any more.
    template <class Sink, class Visit>
    void ForEach(Visit visit) {
        const std::vector<Connection> present = m_sinks;
        for (const Connection& connection : present) {
            if (IsConnected(connection.cookie)) {
                visit(*static_cast<Sink*>(connection.sink.Get()));
            }
        }
    }

  private:
    struct Connection {
        DWORD cookie;
        ComPtr<IUnknown> sink;  // the very interface of the point
    };

    bool IsConnected(DWORD cookie) const;

    ConnectionsPart& m_container;
    const IID& m_iid;
    const IID* m_fallback;
    std::vector<Connection> m_sinks;
    DWORD m_lastCookie = 0;
};

class ConnectionsPart final : public Part<IConnectionPointContainer, OleObject> {
  public:
    ConnectionsPart(OleObject& owner, const IID& events)
        : Part(owner),
          m_events(owner, *this, events, &IID_IDispatch),
          m_properties(owner, *this, IID_IPropertyNotifySink, nullptr) {}

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** target) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** target) override;

    ConnectionPart& Events() { return m_events; }
    ConnectionPart& Properties() { return m_properties; }

  private:
    ConnectionPart m_events;
    ConnectionPart m_properties;
};

// Arguments of events. A pointer is a result that every sink sees and may change.
class EventArgument {
  public:
    EventArgument(std::int16_t value) { Set(VT_I2).iVal = value; }
    EventArgument(std::int32_t value) { Set(VT_I4).lVal = value; }
    EventArgument(std::int16_t* result) { Set(VT_BYREF | VT_I2).piVal = result; }
    EventArgument(IDispatch* object) {
        Set(VT_DISPATCH).pdispVal = object;
        if (object != nullptr) {
            object->AddRef();
        }
    }
    explicit EventArgument(std::string_view text) {
        Set(VT_BSTR).bstrVal = BstrFromText(text).Release();
    }
    // A yes or no that comes back; told apart from a number by its type.
    struct Flag {
        VARIANT_BOOL* result;
    };
    EventArgument(Flag flag) { Set(VT_BYREF | VT_BOOL).pboolVal = flag.result; }

    VARIANT Take() { return m_value.Release(); }

  private:
    VARIANT& Set(int type) {
        m_value->vt = static_cast<VARTYPE>(type);
        return m_value.Get();
    }

    OwnedVariant m_value;
};

// Calls every sink of the events; what a sink answers or fails with changes nothing.
void FireEvent(ConnectionPart& events, DISPID id, std::vector<EventArgument*> arguments);

}  // namespace veygrid
