// The frame that controls are active in: it knows which of them is addressed by the keyboard.
#include "apps/host/HostFrame.h"

namespace veygrid {

void* HostFrame::FindOther(REFIID iid) {
    const bool isBase = IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceUIWindow);
    return isBase ? static_cast<IOleInPlaceFrame*>(this) : nullptr;
}

void HostFrame::ForgetActiveObject() {
    m_active.Reset();
    m_uiActive.Reset();
}

void HostFrame::OnUiActivate(IOleInPlaceObject* object) {
    if (m_uiActive.Get() == object) {
        return;
    }
    // In place before the call, which comes back as OnUiDeactivate.
    const ComPtr<IOleInPlaceObject> before = m_uiActive;
    m_uiActive = object;
    if (before != nullptr) {
        before->UIDeactivate();
    }
}

void HostFrame::OnUiDeactivate(IOleInPlaceObject* object) {
    if (m_uiActive.Get() == object) {
        m_uiActive.Reset();
    }
}

STDMETHODIMP HostFrame::GetWindow(HWND* window) {
    if (window == nullptr) {
        return E_POINTER;
    }
    *window = m_window;
    return S_OK;
}

STDMETHODIMP HostFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    m_active = object;
    return S_OK;
}

}  // namespace veygrid
