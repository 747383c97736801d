// The host's standard output and standard error, as UTF-8.
#include "apps/host/Console.h"

#include <windows.h>

#include "apps/host/Text.h"

namespace veygrid {

namespace {

void WriteTo(DWORD which, std::wstring_view text) {
    const HANDLE file = GetStdHandle(which);
    if (file == nullptr || file == INVALID_HANDLE_VALUE) {
        return;
    }
    const std::string line = Utf8FromWide(text) + "\n";
    for (std::size_t at = 0; at < line.size();) {
        DWORD written = 0;
        if (WriteFile(file, line.data() + at, static_cast<DWORD>(line.size() - at), &written,
                      nullptr) == 0 ||
            written == 0) {
            return;
        }
        at += written;
    }
}

}  // namespace

void WriteLine(std::wstring_view text) {
    WriteTo(STD_OUTPUT_HANDLE, text);
}
void WriteErrorLine(std::wstring_view text) {
    WriteTo(STD_ERROR_HANDLE, text);
}

}  // namespace veygrid
