// The interfaces by which a container activates a control and speaks with it.
#include "platform/win32/ole/ActivationParts.h"

#include "platform/win32/ole/Enumerator.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/MessageFilter.h"
#include "platform/win32/ole/OleControl.h"

namespace veygrid {

STDMETHODIMP OleObjectPart::SetClientSite(IOleClientSite* site) {
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        m_owner.SetClientSite(site);
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::GetClientSite(IOleClientSite** site) {
    return Answered(site, [&] {
        *site = m_owner.ClientSite();
        if (*site != nullptr) {
            (*site)->AddRef();
        }
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::SetHostNames(LPCOLESTR, LPCOLESTR) {
    return S_OK;
}

STDMETHODIMP OleObjectPart::Close(DWORD save) {
    const KeepAlive keep(m_owner);
    return Guarded([&] { return m_owner.Close(save); });
}

STDMETHODIMP OleObjectPart::SetMoniker(DWORD, IMoniker*) {
    return E_NOTIMPL;
}

STDMETHODIMP OleObjectPart::GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) {
    return Answered(moniker, [&] {
        IOleClientSite* const site = m_owner.ClientSite();
        return site == nullptr ? E_UNEXPECTED : site->GetMoniker(assign, which, moniker);
    });
}

STDMETHODIMP OleObjectPart::InitFromData(IDataObject*, BOOL, DWORD) {
    return E_NOTIMPL;
}

STDMETHODIMP OleObjectPart::GetClipboardData(DWORD, IDataObject** data) {
    return Answered(data, [] { return E_NOTIMPL; });
}

STDMETHODIMP OleObjectPart::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT) {
    const KeepAlive keep(m_owner);
    return Guarded([&] { return m_owner.DoVerb(verb, parent); });
}

STDMETHODIMP OleObjectPart::EnumVerbs(IEnumOLEVERB** verbs) {
    return Answered(verbs, [&] {
        std::vector<OLEVERB> items;
        for (const OLEVERB& verb : CVeyOleControl::Verbs()) {
            items.push_back(ItemCopy<OLEVERB>::Copy(verb));
        }
        *verbs = new Enumerator<IEnumOLEVERB, OLEVERB>(std::move(items));
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::Update() {
    return S_OK;
}

STDMETHODIMP OleObjectPart::IsUpToDate() {
    return S_OK;
}

STDMETHODIMP OleObjectPart::GetUserClassID(CLSID* clsid) {
    return Answered(clsid, [&] {
        *clsid = m_owner.Class().automation.clsid;
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::GetUserType(DWORD, LPOLESTR* text) {
    return Answered(text, [&] {
        *text = TaskText(module::String(m_owner.Class().userTypeNameId).c_str());
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::SetExtent(DWORD aspect, SIZEL* extent) {
    if (extent == nullptr) {
        return E_POINTER;
    }
    if (aspect != DVASPECT_CONTENT) {
        return DV_E_DVASPECT;
    }
    return Guarded([&] {
        m_owner.SetExtent(*extent);
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::GetExtent(DWORD aspect, SIZEL* extent) {
    return Answered(extent, [&] {
        if (aspect != DVASPECT_CONTENT) {
            return DV_E_DVASPECT;
        }
        *extent = m_owner.Extent();
        return S_OK;
    });
}

STDMETHODIMP OleObjectPart::Advise(IAdviseSink* sink, DWORD* cookie) {
    return Answered(cookie, [&] {
        return sink == nullptr ? E_POINTER : m_owner.OleAdvise().Advise(sink, cookie);
    });
}

STDMETHODIMP OleObjectPart::Unadvise(DWORD cookie) {
    return Guarded([&] { return m_owner.OleAdvise().Unadvise(cookie); });
}

STDMETHODIMP OleObjectPart::EnumAdvise(IEnumSTATDATA** target) {
    return Answered(target, [&] { return m_owner.OleAdvise().EnumAdvise(target); });
}

STDMETHODIMP OleObjectPart::GetMiscStatus(DWORD aspect, DWORD* status) {
    return Answered(status, [&] {
        *status = aspect == DVASPECT_CONTENT ? m_owner.Class().miscStatus : 0;
        return aspect == DVASPECT_CONTENT ? S_OK : DV_E_DVASPECT;
    });
}

STDMETHODIMP OleObjectPart::SetColorScheme(LOGPALETTE*) {
    return E_NOTIMPL;
}

STDMETHODIMP OleControlPart::GetControlInfo(CONTROLINFO* info) {
    if (info == nullptr) {
        return E_POINTER;
    }
    *info = {};
    info->cb = sizeof *info;
    return S_OK;
}

STDMETHODIMP OleControlPart::OnMnemonic(MSG*) {
    return S_OK;
}

STDMETHODIMP OleControlPart::OnAmbientPropertyChange(DISPID id) {
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        m_owner.OnAmbientPropertyChange(id);
        return S_OK;
    });
}

STDMETHODIMP OleControlPart::FreezeEvents(BOOL freeze) {
    m_owner.Freeze(freeze != FALSE);
    return S_OK;
}

namespace {

HRESULT AnswerWindow(const CVeyOleControl& control, HWND* window) {
    return Answered(window, [&] {
        *window = control.Window();
        return *window == nullptr ? E_FAIL : S_OK;
    });
}

}  // namespace

STDMETHODIMP InPlaceObjectPart::GetWindow(HWND* window) {
    return AnswerWindow(m_owner, window);
}

STDMETHODIMP InPlaceObjectPart::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

STDMETHODIMP InPlaceObjectPart::InPlaceDeactivate() {
    const KeepAlive keep(m_owner);
    return Guarded([&] { return m_owner.InPlaceDeactivate(); });
}

STDMETHODIMP InPlaceObjectPart::UIDeactivate() {
    const KeepAlive keep(m_owner);
    return Guarded([&] { return m_owner.UIDeactivate(); });
}

STDMETHODIMP InPlaceObjectPart::SetObjectRects(LPCRECT position, LPCRECT clip) {
    if (position == nullptr) {
        return E_INVALIDARG;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        m_owner.SetObjectRects(*position, clip == nullptr ? *position : *clip);
        return S_OK;
    });
}

STDMETHODIMP InPlaceObjectPart::ReactivateAndUndo() {
    return E_NOTIMPL;
}

STDMETHODIMP ActiveObjectPart::GetWindow(HWND* window) {
    return AnswerWindow(m_owner, window);
}

STDMETHODIMP ActiveObjectPart::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

STDMETHODIMP ActiveObjectPart::TranslateAccelerator(LPMSG message) {
    if (message == nullptr) {
        return E_POINTER;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        return messagefilter::Offer(m_owner, *message) ? S_OK
                                                       : m_owner.TranslateInContainer(*message);
    });
}

STDMETHODIMP ActiveObjectPart::OnFrameWindowActivate(BOOL) {
    return S_OK;
}

STDMETHODIMP ActiveObjectPart::OnDocWindowActivate(BOOL) {
    return S_OK;
}

STDMETHODIMP ActiveObjectPart::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
    return S_OK;
}

STDMETHODIMP ActiveObjectPart::EnableModeless(BOOL enable) {
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        m_owner.OnEnableModeless(enable != FALSE);
        return S_OK;
    });
}

namespace {

void AdviseQuickly(ConnectionPart& point, IUnknown* sink, DWORD& cookie) {
    if (sink != nullptr) {
        Require(point.Advise(sink, &cookie));
    }
}

}  // namespace

STDMETHODIMP QuickActivatePart::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    if (container == nullptr || control == nullptr || container->cbSize < sizeof *container ||
        control->cbSize < sizeof *control) {
        return E_INVALIDARG;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        *control = {};
        control->cbSize = sizeof *control;
        m_owner.SetClientSite(container->pClientSite);
        if (container->pAdviseSink != nullptr) {
            m_owner.View().SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
        }
        AdviseQuickly(m_owner.Connections().Events(), container->pUnkEventSink,
                      control->dwEventCookie);
        AdviseQuickly(m_owner.Connections().Properties(), container->pPropertyNotifySink,
                      control->dwPropNotifyCookie);
        control->dwMiscStatus = m_owner.Class().miscStatus;
        control->dwViewStatus = VIEWSTATUS_OPAQUE;
        return S_OK;
    });
}

STDMETHODIMP QuickActivatePart::SetContentExtent(LPSIZEL extent) {
    if (extent == nullptr) {
        return E_POINTER;
    }
    return Guarded([&] {
        m_owner.SetExtent(*extent);
        return S_OK;
    });
}

STDMETHODIMP QuickActivatePart::GetContentExtent(LPSIZEL extent) {
    return Answered(extent, [&] {
        *extent = m_owner.Extent();
        return S_OK;
    });
}

}  // namespace veygrid
