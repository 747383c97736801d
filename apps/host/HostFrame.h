// The frame that controls are active in: it knows which of them is addressed by the keyboard.
#pragma once

#include <oleidl.h>

#include "apps/host/ComObject.h"

namespace veygrid {

class HostFrame : public ComObject<IOleInPlaceFrame> {
  public:
    explicit HostFrame(HWND window) : m_window(window) {}

    // The object that is UI-active; null when none is.
    IOleInPlaceActiveObject* ActiveObject() const { return m_active.Get(); }
    // Gives all references up; the window calls it before it closes its controls.
    void ForgetActiveObject();

    // Sites tell which object becomes UI-active and which stops being so. At most one is: the one
    // before is deactivated.
    void OnUiActivate(IOleInPlaceObject* object);
    void OnUiDeactivate(IOleInPlaceObject* object);

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  protected:
    void* FindOther(REFIID iid) override;

  private:
    HWND m_window;
    ComPtr<IOleInPlaceActiveObject> m_active;
    ComPtr<IOleInPlaceObject> m_uiActive;
};

}  // namespace veygrid
