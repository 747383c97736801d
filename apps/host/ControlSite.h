// The place of one control in the host window, as the control sees it.
#pragma once

#include <ocidl.h>
#include <oleidl.h>

#include "apps/host/AmbientProperties.h"
#include "apps/host/ComObject.h"
#include "apps/host/HostFrame.h"

namespace veygrid {

class ControlSite : public ComObject<IOleClientSite, IOleInPlaceSite, IOleControlSite, IDispatch> {
  public:
    ControlSite(HWND window, ComPtr<HostFrame> frame, LCID locale)
        : m_window(window), m_frame(std::move(frame)), m_ambient(locale) {}

    // Client pixels of the host window.
    void SetPlace(const RECT& place) { m_place = place; }
    const RECT& Place() const { return m_place; }
    // Where the site tells of changes of place; null ends that.
    void SetObject(IOleInPlaceObject* object) { m_object = object; }

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override;
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT place) override;

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
    STDMETHODIMP OnFocus(BOOL) override { return S_OK; }
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS*, VARIANT* value,
                        EXCEPINFO*, UINT*) override;

  protected:
    void* FindOther(REFIID iid) override;

  private:
    HWND m_window;
    ComPtr<HostFrame> m_frame;
    AmbientProperties m_ambient;
    RECT m_place{};
    // Not owned: the control holds the site, so holding it here would be a ring.
    IOleInPlaceObject* m_object = nullptr;
};

}  // namespace veygrid
