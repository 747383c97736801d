// The start of VeyHost, a program that shows the control to a user and drives it in tests.
#include <windows.h>

#include <commctrl.h>

#include <exception>

#include "apps/host/CommandLine.h"
#include "apps/host/Console.h"
#include "apps/host/ControlModule.h"
#include "apps/host/HostWindow.h"
#include "apps/host/Picture.h"
#include "apps/host/ScriptRun.h"

namespace veygrid {

namespace {

enum ExitCode : int { ExitWell = 0, ExitTrouble = 1, ExitUsage = 2 };

// OLE for the length of the program.
class OleSession {
  public:
    OleSession() { OleInitialize(nullptr); }
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
    ~OleSession() { OleUninitialize(); }
};

int RunHost(const CommandLine& line) {
    SetThreadLocale(line.locale);
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    const ControlModule module;
    HostWindow window(module, line.locale);
    if (!line.script.empty()) {
        window.SetScripted();
    }
    window.Create(line.size);
    window.Show();
    if (!line.file.empty() && !window.File().Open(window.Control().Grid(), line.file)) {
        return ExitTrouble;
    }
    int result = ExitWell;
    if (!line.script.empty()) {
        result = RunScript(window, line.script, line.locale);
    }
    if (!line.shot.empty()) {
        WritePng(TakePicture(window.Control().Window()), line.shot);
    }
    const bool isForUser = line.script.empty() && line.shot.empty();
    return isForUser ? window.RunLoop() : result;
}

int Run() {
    std::wstring problem;
    const std::optional<CommandLine> line = ParseCommandLine(problem);
    if (!line) {
        WriteErrorLine(L"VeyHost: " + problem);
        WriteErrorLine(Usage);
        return ExitUsage;
    }
    try {
        const OleSession ole;
        return RunHost(*line);
    } catch (const ComFault& fault) {
        wchar_t code[16];
        swprintf(code, std::size(code), L" (0x%08lX)", static_cast<unsigned long>(fault.result));
        WriteErrorLine(L"VeyHost: " + fault.what + code);
    } catch (const std::exception&) {
        WriteErrorLine(L"VeyHost: out of memory");
    }
    return ExitTrouble;
}

}  // namespace

}  // namespace veygrid

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return veygrid::Run();
}
