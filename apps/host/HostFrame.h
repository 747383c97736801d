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
    // Gives the reference up; the window calls it before it closes its controls.
    void ForgetActiveObject() { m_active.Reset(); }

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
};

}  // namespace veygrid
