// The system's dialogs that ask for a file.
#include "control/FileDialog.h"

#include <commdlg.h>

namespace veygrid {

namespace {

constexpr std::size_t LongestPath = 32767;

}  // namespace

// The host's current folder stays what it is.
std::optional<std::wstring> AskFile(HWND owner, const FileQuestion& question) {
    std::wstring path(LongestPath + 1, L'\0');
    OPENFILENAMEW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = owner;
    asked.lpstrFilter = question.filter;
    asked.lpstrFile = path.data();
    asked.nMaxFile = static_cast<DWORD>(path.size());
    asked.lpstrDefExt = question.extension;
    asked.Flags = question.flags | OFN_EXPLORER | OFN_NOCHANGEDIR;
    const BOOL isConfirmed = question.kind == FileDialogKind::Open ? ::GetOpenFileNameW(&asked)
                                                                   : ::GetSaveFileNameW(&asked);
    if (!isConfirmed) {
        return std::nullopt;
    }
    path.resize(path.find(L'\0'));
    return path;
}

}  // namespace veygrid
