// The system's script engine with the host's objects in it.
#include "apps/host/ScriptEngine.h"

#include <utility>
#include <vector>

#include "apps/host/Automation.h"
#include "apps/host/Text.h"

namespace veygrid {

namespace {

// Owner of the texts that an EXCEPINFO brings.
struct OwnedException : EXCEPINFO {
    OwnedException() : EXCEPINFO() {}
    OwnedException(const OwnedException&) = delete;
    OwnedException& operator=(const OwnedException&) = delete;
    ~OwnedException() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
};

// Writes a value through the reference of an event's argument.
void Assign(const VARIANT& reference, VARIANT& value) {
    const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    Variant converted;
    if (type == VT_VARIANT) {
        VariantCopy(reference.pvarVal, &value);
        return;
    }
    if (FAILED(VariantChangeType(&converted, &value, 0, type))) {
        return;
    }
    switch (type) {
        case VT_I2:
            *reference.piVal = converted.iVal;
            break;
        case VT_I4:
            *reference.plVal = converted.lVal;
            break;
        case VT_BOOL:
            *reference.pboolVal = converted.boolVal;
            break;
        case VT_BSTR:
            std::swap(*reference.pbstrVal, converted.bstrVal);
            break;
        default:
            break;
    }
}

// An event's arguments as engines want them: every reference one to a VARIANT.
class EventArguments {
  public:
    explicit EventArguments(DISPPARAMS& given)
        : m_given(given), m_values(given.cArgs), m_arguments(given.cArgs) {
        for (UINT index = 0; index < given.cArgs; ++index) {
            VariantCopyInd(&m_values[index], &given.rgvarg[index]);
            VARIANT& argument = m_arguments[index];
            if ((given.rgvarg[index].vt & VT_BYREF) != 0) {
                argument.vt = VT_BYREF | VT_VARIANT;
                argument.pvarVal = &m_values[index];
            } else {
                argument = m_values[index];  // stays the property of m_values
            }
        }
    }
    DISPPARAMS Parameters() {
        return {m_arguments.data(), nullptr, static_cast<UINT>(m_arguments.size()), 0};
    }
    void CopyBack() {
        for (UINT index = 0; index < m_given.cArgs; ++index) {
            if ((m_given.rgvarg[index].vt & VT_BYREF) != 0) {
                Assign(m_given.rgvarg[index], m_values[index]);
            }
        }
    }

  private:
    DISPPARAMS& m_given;
    std::vector<Variant> m_values;
    std::vector<VARIANT> m_arguments;
};

}  // namespace

void ScriptEngine::Open() {
    CLSID engineClass{};
    Check(CLSIDFromProgID(m_setting.language.c_str(), &engineClass), m_setting.language);
    Check(
        CoCreateInstance(engineClass, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript, &m_engine),
        m_setting.language);
    Check(m_engine.As(&m_parser), L"IActiveScriptParse");
    Check(m_engine->SetScriptSite(this), L"SetScriptSite");
    Check(m_parser->InitNew(), L"InitNew");
}

void ScriptEngine::AddObject(const std::wstring& name, ComPtr<IDispatch> object) {
    m_objects[name] = std::move(object);
    Check(m_engine->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE), name);
}

void ScriptEngine::Run(const std::wstring& text) {
    Check(m_engine->SetScriptState(SCRIPTSTATE_CONNECTED), L"SetScriptState");
    OwnedException exception;
    m_hasReported = false;
    const HRESULT answer = m_parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                                     0, nullptr, &exception);
    if (FAILED(answer) && !m_hasReported) {
        Report(m_setting.name, exception, answer);
    }
}

void ScriptEngine::RaiseEvent(const std::wstring& object, const std::wstring& event,
                              DISPPARAMS& parameters) {
    ComPtr<IDispatch> script;
    if (m_engine == nullptr || FAILED(m_engine->GetScriptDispatch(nullptr, &script))) {
        return;
    }
    std::wstring name = object + L"_" + event;
    wchar_t* spelling = name.data();
    DISPID procedure = DISPID_UNKNOWN;
    if (FAILED(script->GetIDsOfNames(GUID{}, &spelling, 1, LOCALE_USER_DEFAULT, &procedure))) {
        return;
    }
    EventArguments arguments(parameters);
    DISPPARAMS wrapped = arguments.Parameters();
    OwnedException exception;
    m_hasReported = false;
    const HRESULT answer = script->Invoke(procedure, GUID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                          &wrapped, nullptr, &exception, nullptr);
    if (FAILED(answer) && !m_hasReported) {
        Report(m_setting.name + L": " + name, exception, answer);
    }
    arguments.CopyBack();
}

void ScriptEngine::Close() {
    if (m_engine != nullptr) {
        m_engine->Close();
        m_engine.Reset();
        m_parser.Reset();
    }
    m_objects.clear();
}

STDMETHODIMP ScriptEngine::GetLCID(LCID* locale) {
    if (locale == nullptr) {
        return E_POINTER;
    }
    *locale = m_setting.locale;
    return S_OK;
}

STDMETHODIMP ScriptEngine::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                       ITypeInfo** info) {
    if ((mask & SCRIPTINFO_ITYPEINFO) != 0 && info != nullptr) {
        *info = nullptr;
    }
    const auto found = m_objects.find(name);
    if (found == m_objects.end()) {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    if ((mask & SCRIPTINFO_IUNKNOWN) != 0) {
        if (item == nullptr) {
            return E_POINTER;
        }
        found->second.CopyTo(reinterpret_cast<IDispatch**>(item));
    }
    return S_OK;
}

STDMETHODIMP ScriptEngine::OnScriptError(IActiveScriptError* error) {
    OwnedException exception;
    error->GetExceptionInfo(&exception);
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetSourcePosition(&context, &line, &column);
    Report(m_setting.name + L"(" + std::to_wstring(line + 1) + L", " + std::to_wstring(column + 1) +
               L")",
           exception, exception.scode);
    return S_OK;
}

STDMETHODIMP ScriptEngine::GetWindow(HWND* window) {
    if (window == nullptr) {
        return E_POINTER;
    }
    *window = m_setting.window;
    return S_OK;
}

void ScriptEngine::Report(const std::wstring& place, const EXCEPINFO& exception, HRESULT code) {
    m_hasReported = true;
    const std::wstring text(TextOfBstr(exception.bstrDescription));
    if (onError) {
        onError(place + L": " + ErrorText(exception.scode != 0 ? exception.scode : code, text));
    }
}

}  // namespace veygrid
