// The dialogs of the format commands: the system's for the font, and dialog 2305 for the alignment.
#pragma once

#include <optional>

#include "platform/win32/ole/Platform.h"
#include "screen/MenuHost.h"

namespace veygrid {

// Modal. Nothing comes back from a dialog that was not confirmed.
std::optional<FontChoice> AskFont(HWND owner, const LogFont& shown);
std::optional<AlignChoice> AskAlignment(HWND owner, const AlignChoice& shown);

}  // namespace veygrid
