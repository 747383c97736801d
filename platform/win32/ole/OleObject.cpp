// A reference-counted object that can be part of another one.
#include "platform/win32/ole/OleObject.h"

#include "platform/win32/ole/Guard.h"

namespace veygrid {

OleObject::OleObject(IUnknown* outer) : m_controlling(outer == nullptr ? &m_inner : outer) {}

// While the object takes leave it holds itself, so that references taken and given back then do not
// destroy it twice.
void OleObject::Destroy() {
    m_references = 1;
    try {
        OnFinalRelease();
    } catch (...) {
        // There is nobody left to tell.
        static_cast<void>(FailureOfCurrentException());
    }
    delete this;
}

STDMETHODIMP OleObject::InnerUnknown::QueryInterface(REFIID iid, void** target) {
    return Answered(target, [&] {
        IUnknown* const found = iid == IID_IUnknown ? this : m_object.FindInterface(iid);
        if (found == nullptr) {
            return E_NOINTERFACE;
        }
        found->AddRef();
        *target = found;
        return S_OK;
    });
}

STDMETHODIMP_(ULONG) OleObject::InnerUnknown::AddRef() {
    return static_cast<ULONG>(++m_object.m_references);
}

STDMETHODIMP_(ULONG) OleObject::InnerUnknown::Release() {
    const LONG left = --m_object.m_references;
    if (left == 0) {
        m_object.Destroy();
    }
    return static_cast<ULONG>(left);
}

}  // namespace veygrid
