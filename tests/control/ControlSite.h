// What a full container offers beside its place: ambient properties and a control site.
#pragma once

#include <map>

#include "tests/control/Container.h"

namespace veygrid {

// Handed to a Container as its extra. Lives on the stack.
class ControlSite final : public IOleControlSite {
  public:
    ControlSite() = default;
    ControlSite(const ControlSite&) = delete;
    ControlSite& operator=(const ControlSite&) = delete;
    ~ControlSite() {
        for (auto& [id, value] : Ambient) {
            ::VariantClear(&value);
        }
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        if (iid == IID_IDispatch) {
            *target = &m_dispatch;
        } else {
            *target = iid == IID_IOleControlSite ? this : nullptr;
        }
        return *target == nullptr ? E_NOINTERFACE : S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) override {
        Keys.emplace_back(message->wParam, modifiers);
        return KeyAnswer;
    }
    STDMETHODIMP OnFocus(BOOL has) override {
        Focus.push_back(has != FALSE);
        return S_OK;
    }
    STDMETHODIMP ShowPropertyFrame() override {
        ++Frames;
        return FrameAnswer;
    }

    std::map<DISPID, VARIANT> Ambient;
    std::vector<std::pair<WPARAM, DWORD>> Keys;
    std::vector<bool> Focus;
    HRESULT KeyAnswer = S_FALSE;
    HRESULT FrameAnswer = E_NOTIMPL;
    int Frames = 0;

  private:
    struct AmbientDispatch final : IDispatch {
        explicit AmbientDispatch(ControlSite& site) : m_site(site) {}
        STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
            *target = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
            return *target == nullptr ? E_NOINTERFACE : S_OK;
        }
        STDMETHODIMP_(ULONG) AddRef() override { return 1; }
        STDMETHODIMP_(ULONG) Release() override { return 1; }
        STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
        STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
        STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
            return DISP_E_UNKNOWNNAME;
        }
        STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                            UINT*) override {
            const auto found = m_site.Ambient.find(id);
            return found == m_site.Ambient.end() ? DISP_E_MEMBERNOTFOUND
                                                 : ::VariantCopy(result, &found->second);
        }
        ControlSite& m_site;
    } m_dispatch{*this};
};

}  // namespace veygrid
