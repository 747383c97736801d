// Text on the system's clipboard.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace veygrid {

// Text in code page 936, put so that programs of any locale read it. False when another program
// holds the clipboard; a failure later leaves it empty.
bool PutClipboardText(HWND owner, std::string_view text);
// Nothing when there is no text, or another program holds the clipboard.
std::optional<std::string> GetClipboardText(HWND owner);

}  // namespace veygrid
