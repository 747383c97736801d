// The system's script engine with the host's objects in it.
#pragma once

#include <windows.h>

#include <activscp.h>

#include <functional>
#include <map>
#include <string>

#include "apps/host/ComObject.h"

namespace veygrid {

class ScriptEngine
    : public ComObject<IActiveScriptSite, IActiveScriptSiteWindow, IServiceProvider> {
  public:
    struct Setting {
        std::wstring language;  // "VBScript" or "JScript"
        std::wstring name;      // of the script, for error lines
        HWND window;            // owner of the script's own boxes
        LCID locale;
    };
    explicit ScriptEngine(Setting setting) : m_setting(std::move(setting)) {}

    // Makes the engine ready; throws ComFault. Objects are added afterwards, then the script runs.
    void Open();
    void AddObject(const std::wstring& name, ComPtr<IDispatch> object);
    void Run(const std::wstring& text);
    // Calls the procedure object_event of the script, where it has one. What the procedure assigns
    // to arguments by reference goes back to the caller.
    void RaiseEvent(const std::wstring& object, const std::wstring& event, DISPPARAMS& parameters);
    void Close();

    // Lines such as "FILE(3, 5): Type mismatch" go here.
    std::function<void(const std::wstring& line)> onError;

    STDMETHODIMP GetLCID(LCID* locale) override;
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                             ITypeInfo** info) override;
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override;
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }
    // There is none; but engines make no object that wants a site where nobody can be asked.
    STDMETHODIMP QueryService(REFGUID, REFIID, void** service) override {
        if (service == nullptr) {
            return E_POINTER;
        }
        *service = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

  private:
    void Report(const std::wstring& place, const EXCEPINFO& exception, HRESULT code);

    Setting m_setting;
    ComPtr<IActiveScript> m_engine;
    ComPtr<IActiveScriptParse> m_parser;
    std::map<std::wstring, ComPtr<IDispatch>> m_objects;
    bool m_hasReported = false;  // of the piece of script that runs
};

}  // namespace veygrid
