// One run of a script file against the host window.
#pragma once

#include <string>

#include "apps/host/HostWindow.h"
#include "apps/host/MessageBoxWatch.h"

namespace veygrid {

enum ScriptExit : int { ScriptExitError = 3 };

// The window must have been made scripted. The exit code: what the script gave to Host.Quit, else
// 0; 3 when it or one of its event handlers had an error, which then stands on standard error with
// its line. Throws ComFault when there is no engine for the file.
int RunScript(HostWindow& window, MessageBoxWatch& boxes, const std::wstring& path, LCID locale);

}  // namespace veygrid
