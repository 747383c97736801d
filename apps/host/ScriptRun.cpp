// One run of a script file against the host window.
#include "apps/host/ScriptRun.h"

#include <cwchar>

#include "apps/host/Console.h"
#include "apps/host/DataObject.h"
#include "apps/host/FileObject.h"
#include "apps/host/HostObject.h"
#include "apps/host/ScriptEngine.h"
#include "apps/host/ScriptFiber.h"
#include "apps/host/ScriptedControl.h"
#include "apps/host/Text.h"

namespace veygrid {

namespace {

std::wstring LanguageOf(const std::wstring& path) {
    const std::size_t dot = path.find_last_of(L'.');
    const bool isJavaScript =
        dot != std::wstring::npos && _wcsicmp(path.c_str() + dot, L".js") == 0;
    return isJavaScript ? L"JScript" : L"VBScript";
}

std::wstring ReadScript(const std::wstring& path) {
    try {
        return WideFromFileBytes(ReadBytes(path));
    } catch (const ScriptFault& fault) {
        throw ComFault{HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), fault.text};
    }
}

// The parts of one run, joined.
class ScriptRun {
  public:
    ScriptRun(HostWindow& window, MessageBoxWatch& boxes, const std::wstring& path, LCID locale)
        : m_window(window),
          m_text(ReadScript(path)),
          m_fiber([&window](MSG& message) { return window.PreTranslate(message); }),
          m_host(MakeCom<HostObject>(window, m_fiber, boxes)),
          m_engine(MakeCom<ScriptEngine>(
              ScriptEngine::Setting{LanguageOf(path), path.substr(path.find_last_of(L"\\/") + 1),
                                    window.Window(), locale})) {}

    int Run() {
        Prepare();
        const bool isWhole = m_fiber.Run([this] { m_engine->Run(m_text); });
        m_window.SetEventHandler(nullptr);
        if (isWhole) {
            m_engine->Close();
        } else {
            // The engine still stands on the stack of the stopped script; it goes with the process.
            m_engine->AddRef();
        }
        return m_hasError ? ScriptExitError : m_host->QuitCode();
    }

  private:
    void Prepare() {
        m_engine->onError = [this](const std::wstring& line) { OnError(line); };
        m_engine->Open();
        m_engine->AddObject(L"Grid",
                            MakeCom<ScriptedControl>(
                                m_window.Control().Grid().Object(), m_fiber,
                                [this, writer = m_window.Control().Grid().IdOf(L"ModifyCellText")](
                                    DISPID member) { m_window.Data().Settle(member == writer); }));
        m_engine->AddObject(L"Host", m_host);
        m_engine->AddObject(L"Data", MakeCom<DataObject>(m_window, m_fiber));
        m_window.SetEventHandler(
            [this](const std::wstring& object, const std::wstring& event, DISPPARAMS& parameters) {
                if (!m_fiber.IsStopped()) {
                    const ScriptFiber::HandlerScope scope(m_fiber);
                    m_engine->RaiseEvent(object, event, parameters);
                }
            });
    }

    // What Quit raises to leave a handler is no error.
    void OnError(const std::wstring& line) {
        if (!m_fiber.IsStopped()) {
            m_hasError = true;
            WriteErrorLine(line);
        }
    }

    HostWindow& m_window;
    std::wstring m_text;
    ScriptFiber m_fiber;
    ComPtr<HostObject> m_host;
    ComPtr<ScriptEngine> m_engine;
    bool m_hasError = false;
};

}  // namespace

int RunScript(HostWindow& window, MessageBoxWatch& boxes, const std::wstring& path, LCID locale) {
    return ScriptRun(window, boxes, path, locale).Run();
}

}  // namespace veygrid
