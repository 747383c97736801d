// The frame that controls are active in: it knows which of them is addressed by the keyboard.
#include "apps/host/HostFrame.h"

namespace veygrid {

void* HostFrame::FindOther(REFIID iid) {
    const bool isBase = IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceUIWindow);
    return isBase ? static_cast<IOleInPlaceFrame*>(this) : nullptr;
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
