// A small container with a real window, as a host written in C++ has one.
#pragma once

#include "tests/control/Support.h"

namespace veygrid {

// Holds one control in a window of its own, or in another one. Lives on the stack; nothing outlives
// it.
class Container final : public IOleClientSite, public IOleInPlaceSite {
  public:
    explicit Container(HWND window) : m_window(window) {}
    Container() : m_isOwn(true) {
        // Never activated, so that no window manager is waited for.
        m_window = ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"host", WS_POPUP, 10, 10, 500,
                                     400, nullptr, nullptr, nullptr, nullptr);
        ::ShowWindow(m_window, SW_SHOWNOACTIVATE);
    }
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    ~Container() {
        Close();
        if (m_isOwn) {
            ::DestroyWindow(m_window);
        }
    }

    HWND Window() const { return m_window; }

    // Activates the control in the window.
    HRESULT Show(const ComPtr<IUnknown>& control) {
        EXPECT_EQ(control.As(&m_object), S_OK);
        EXPECT_EQ(m_object->SetClientSite(this), S_OK);
        return m_object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, m_window, nullptr);
    }
    void Close() {
        if (m_object != nullptr) {
            m_object->Close(OLECLOSE_NOSAVE);
            m_object->SetClientSite(nullptr);
            m_object = nullptr;
        }
    }
    static HWND WindowOf(const ComPtr<IUnknown>& control) {
        ComPtr<IOleInPlaceObject> inPlace;
        HWND window = nullptr;
        control.As(&inPlace);
        inPlace->GetWindow(&window);
        return window;
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
            *target = static_cast<IOleClientSite*>(this);
        } else if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow) {
            *target = static_cast<IOleInPlaceSite*>(this);
        } else if (Extra != nullptr) {
            return Extra->QueryInterface(iid, target);
        } else {
            *target = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++References); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--References); }
    STDMETHODIMP SaveObject() override { return Note("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override {
        *container = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() override { return Note("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }
    STDMETHODIMP GetWindow(HWND* window) override {
        *window = m_window;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }
    STDMETHODIMP CanInPlaceActivate() override { return Note("CanInPlaceActivate"); }
    STDMETHODIMP OnInPlaceActivate() override { return Note("OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() override { return Note("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT position, LPRECT clip,
                                  LPOLEINPLACEFRAMEINFO info) override {
        *frame = nullptr;
        *document = nullptr;
        *position = *clip = Place;
        info->fMDIApp = FALSE;
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) override { return S_OK; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() override { return Note("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

    long References = 1;
    RECT Place{0, 0, 300, 200};
    std::vector<std::string> Calls;
    // Asked for what this site does not have itself; not held.
    IUnknown* Extra = nullptr;

  private:
    HRESULT Note(const char* call) {
        Calls.emplace_back(call);
        return S_OK;
    }

    HWND m_window = nullptr;
    bool m_isOwn = false;
    ComPtr<IOleObject> m_object;
};

}  // namespace veygrid
