// The interfaces by which a container activates a control and speaks with it.
#pragma once

#include "platform/win32/ole/OleObject.h"

namespace veygrid {

class CVeyOleControl;

class OleObjectPart final : public Part<IOleObject, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR object) override;
    STDMETHODIMP Close(DWORD save) override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
    STDMETHODIMP Update() override;
    STDMETHODIMP IsUpToDate() override;
    STDMETHODIMP GetUserClassID(CLSID* clsid) override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* text) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* extent) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* extent) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** target) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) override;
};

class OleControlPart final : public Part<IOleControl, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(MSG* message) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;
};

class InPlaceObjectPart final : public Part<IOleInPlaceObject, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override;
};

class ActiveObjectPart final : public Part<IOleInPlaceActiveObject, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) override;
    STDMETHODIMP OnDocWindowActivate(BOOL activate) override;
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frame) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;
};

class QuickActivatePart final : public Part<IQuickActivate, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP SetContentExtent(LPSIZEL extent) override;
    STDMETHODIMP GetContentExtent(LPSIZEL extent) override;
};

}  // namespace veygrid
