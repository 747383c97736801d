// The ground of objects that answer by number alone, as hosts write them.
#pragma once

#include "tests/control/Support.h"

namespace veygrid {

// Born with one reference and gone with the last. It has no names and tells of no types.
class NumberedObject : public IDispatch {
  public:
    NumberedObject() = default;
    NumberedObject(const NumberedObject&) = delete;
    NumberedObject& operator=(const NumberedObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        *target = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
        if (*target != nullptr) {
            AddRef();
        }
        return *target == nullptr ? E_NOINTERFACE : S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++References); }
    STDMETHODIMP_(ULONG) Release() override {
        const long left = --References;
        if (left == 0) {
            delete this;
        }
        return static_cast<ULONG>(left);
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }

    long References = 1;

  protected:
    virtual ~NumberedObject() = default;
};

}  // namespace veygrid
