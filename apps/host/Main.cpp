// The start of VeyHost, a program that shows the control to a user and drives it in tests.
#include <windows.h>

#include <commctrl.h>

#include <exception>
#include <optional>

#include "apps/host/CommandLine.h"
#include "apps/host/Console.h"
#include "apps/host/ControlModule.h"
#include "apps/host/HostWindow.h"
#include "apps/host/MessageBoxWatch.h"
#include "apps/host/Picture.h"
#include "apps/host/ScriptRun.h"
#include "apps/host/Text.h"

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

// A run for a user ends with the window, any other with its script or its picture.
bool IsForUser(const CommandLine& line) {
    return line.script.empty() && line.shot.empty();
}

// Without a user: what follows is on the streams.
int RunAlone(HostWindow& window, MessageBoxWatch& boxes, const CommandLine& line) {
    if (!line.file.empty() && !window.OpenFile(line.file)) {
        WriteErrorLine(L"VeyHost: cannot open " + line.file);
        return ExitTrouble;
    }
    if (!line.sql.empty()) {
        window.RunQuery(line.sql);
    }
    if (!window.Data().Problem().empty()) {
        WriteErrorLine(L"VeyHost: " + window.Data().Problem());
        return ExitTrouble;
    }
    int result = ExitWell;
    if (!line.script.empty()) {
        result = RunScript(window, boxes, line.script, line.locale);
    }
    if (!line.shot.empty()) {
        WritePng(TakePicture(window.Control().Window()), line.shot);
    }
    return result;
}

int RunForUser(HostWindow& window, const CommandLine& line) {
    if (!line.file.empty()) {
        window.OpenFile(line.file);
    }
    if (!line.sql.empty() && !window.RunQuery(line.sql)) {
        TellTrouble(window.Window(), window.Data().Problem());
    }
    return window.RunLoop();
}

void TellFault(const CommandLine& line, const std::wstring& text) {
    WriteErrorLine(L"VeyHost: " + text);
    if (IsForUser(line)) {
        TellTrouble(nullptr, text);
    }
}

int RunHost(const CommandLine& line) {
    SetThreadLocale(line.locale);
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    const ControlModule module;
    // Without a user the boxes that come up are answered, also those of a window that closes.
    std::optional<MessageBoxWatch> boxes;
    if (!IsForUser(line)) {
        boxes.emplace();
    }
    HostWindow window(module, line.locale);
    if (!line.script.empty()) {
        window.SetScripted();
    }
    if (!line.dsn.empty() && !window.Connect(line.dsn)) {
        TellFault(line, window.Data().Problem());
        return ExitTrouble;
    }
    window.Create(line.size);
    window.Show();
    return boxes ? RunAlone(window, *boxes, line) : RunForUser(window, line);
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
        TellFault(*line, fault.what + L": " + ErrorText(fault.result));
    } catch (const std::exception&) {
        TellFault(*line, ErrorText(E_OUTOFMEMORY));
    }
    return ExitTrouble;
}

}  // namespace

}  // namespace veygrid

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return veygrid::Run();
}
