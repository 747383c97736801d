// Dialog 2304, which asks for the text of a header.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// Modal. The new text; nothing when the dialog was not confirmed. Both in code page 936; a
// character that it lacks becomes a question mark.
std::optional<std::string> AskHeaderText(HWND owner, std::string_view oldText);

}  // namespace veygrid
