// The place of one control in the host window, as the control sees it.
#include "apps/host/ControlSite.h"

namespace veygrid {

void* ControlSite::FindOther(REFIID iid) {
    return IsEqualIID(iid, IID_IOleWindow) ? static_cast<IOleInPlaceSite*>(this) : nullptr;
}

STDMETHODIMP ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker != nullptr) {
        *moniker = nullptr;
    }
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container) {
    if (container != nullptr) {
        *container = nullptr;
    }
    return E_NOINTERFACE;
}

STDMETHODIMP ControlSite::GetWindow(HWND* window) {
    return m_frame->GetWindow(window);
}

STDMETHODIMP ControlSite::OnUIActivate() {
    m_frame->OnUiActivate(m_object);
    return S_OK;
}

STDMETHODIMP ControlSite::OnUIDeactivate(BOOL) {
    m_frame->OnUiDeactivate(m_object);
    return S_OK;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr ||
        info == nullptr) {
        return E_POINTER;
    }
    *document = nullptr;
    *place = m_place;
    *clip = m_place;
    info->fMDIApp = FALSE;
    info->hwndFrame = m_window;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return m_frame.CopyTo(frame);
}

// The host alone decides on places; a control that asks for another is told its own again.
STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT) {
    return m_object == nullptr ? S_OK : m_object->SetObjectRects(&m_place, &m_place);
}

STDMETHODIMP ControlSite::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

STDMETHODIMP ControlSite::Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS*,
                                 VARIANT* value, EXCEPINFO*, UINT*) {
    if ((kind & DISPATCH_PROPERTYGET) == 0 || value == nullptr) {
        return DISP_E_MEMBERNOTFOUND;
    }
    return m_ambient.Get(member, value);
}

}  // namespace veygrid
