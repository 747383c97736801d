// A reference-counted object that can be part of another one, and the parts that carry its
// interfaces.
#pragma once

#include "platform/win32/ole/AutomationTypes.h"
#include "platform/win32/ole/Module.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

// Keeps itself alive by references; the last one deletes it. Inside an aggregate the interfaces
// count for the outer object, and only Inner() counts for this one.
class OleObject {
  public:
    OleObject(const OleObject&) = delete;
    OleObject& operator=(const OleObject&) = delete;

    // The unknown that counts and answers for every interface.
    IUnknown* Controlling() const { return m_controlling; }
    // This object's own unknown, born with one reference.
    IUnknown* Inner() { return &m_inner; }

  protected:
    // `outer` is null for an object of its own; it is not held.
    explicit OleObject(IUnknown* outer);
    virtual ~OleObject() = default;

    // The interface, without a new reference, or null.
    virtual IUnknown* FindInterface(REFIID iid) = 0;
    // The last reference is gone; interfaces still work.
    virtual void OnFinalRelease() {}

  private:
    class InnerUnknown final : public IUnknown {
      public:
        explicit InnerUnknown(OleObject& object) : m_object(object) {}
        STDMETHODIMP QueryInterface(REFIID iid, void** target) override;
        STDMETHODIMP_(ULONG) AddRef() override;
        STDMETHODIMP_(ULONG) Release() override;

      private:
        OleObject& m_object;
    };

    void Destroy();

    module::LockHolder m_lock;
    InnerUnknown m_inner{*this};
    IUnknown* m_controlling;
    LONG m_references = 1;
};

// Keeps an object alive through a call that may free it.
class KeepAlive {
  public:
    explicit KeepAlive(const OleObject& object) : m_unknown(object.Controlling()) {}

  private:
    ComPtr<IUnknown> m_unknown;
};

// An interface of an object, living as its member.
template <class Interface, class Owner>
class Part : public Interface {
  public:
    explicit Part(Owner& owner) : m_owner(owner) {}
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        return m_owner.Controlling()->QueryInterface(iid, target);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return m_owner.Controlling()->AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return m_owner.Controlling()->Release(); }

  protected:
    ~Part() = default;

    Owner& m_owner;
};

}  // namespace veygrid
