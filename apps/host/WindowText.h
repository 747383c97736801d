// What windows say of themselves.
#pragma once

#include <windows.h>

#include <string>

namespace veygrid {

inline std::wstring ClassNameOf(HWND window) {
    wchar_t name[128];
    const int length = GetClassNameW(window, name, 128);
    return std::wstring(name, static_cast<std::size_t>(length));
}

// The text of a window of this process, as WM_GETTEXT gives it.
inline std::wstring TextOfWindow(HWND window) {
    const auto length = static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
    std::wstring text(length + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

}  // namespace veygrid
