// Reference counting and interface look-up for the host's own COM objects.
#pragma once

#include <windows.h>

#include <wrl/client.h>

#include <atomic>
#include <utility>

namespace veygrid {

using Microsoft::WRL::ComPtr;

// Implements IUnknown for a class of the given interfaces. An object begins with one reference,
// which MakeCom hands to its caller.
template <typename First, typename... Others>
class ComObject : public First, public Others... {
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = Find(iid);
        if (*object == nullptr) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --m_references;
        if (left == 0) {
            delete this;
        }
        return left;
    }

  protected:
    virtual ~ComObject() = default;

    // The interface pointer for identifiers that the list of interfaces does not name itself, such
    // as the bases of an interface; null when there is none.
    virtual void* FindOther(REFIID) { return nullptr; }

  private:
    void* Find(REFIID iid) {
        if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, __uuidof(First))) {
            return static_cast<First*>(this);
        }
        void* found = nullptr;
        ((found = IsEqualIID(iid, __uuidof(Others)) ? static_cast<Others*>(this) : found), ...);
        return found != nullptr ? found : FindOther(iid);
    }

    std::atomic<ULONG> m_references{1};
};

template <typename Class, typename... Arguments>
ComPtr<Class> MakeCom(Arguments&&... arguments) {
    ComPtr<Class> made;
    // Attach of this compiler's ComPtr would add a reference to the one that a new object has.
    *made.GetAddressOf() = new Class(std::forward<Arguments>(arguments)...);
    return made;
}

}  // namespace veygrid
