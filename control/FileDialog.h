// The system's dialogs that ask for a file.
#pragma once

#include <optional>
#include <string>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

enum class FileDialogKind { Open, Save };

struct FileQuestion {
    FileDialogKind kind;
    // Pairs of a name and a pattern, each ended by a zero, the last by two.
    const wchar_t* filter;
    // Put behind a name without one.
    const wchar_t* extension;
    DWORD flags;  // OFN bits
};

// Modal. The path; nothing when the dialog was not confirmed.
std::optional<std::wstring> AskFile(HWND owner, const FileQuestion& question);

}  // namespace veygrid
