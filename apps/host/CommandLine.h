// The host's command line.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace veygrid {

inline constexpr const wchar_t* Usage =
    L"usage: VeyHost.exe [FILE.grd] [/script FILE.vbs|FILE.js] [/shot FILE.png] [/size W H]"
    L" [/locale NAME|NUMBER] [/dsn CONNECTION [/sql STATEMENT]]";

struct CommandLine {
    std::wstring file;
    std::wstring script;
    std::wstring shot;
    std::wstring dsn;  // ODBC connection string
    std::wstring sql;
    SIZE size{800, 500};  // of the control, in pixels
    LCID locale = GetUserDefaultLCID();
};

// Nothing for a command line that breaks the rules; `problem` then says how.
std::optional<CommandLine> ParseCommandLine(std::wstring& problem);

}  // namespace veygrid
