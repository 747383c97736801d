// Message boxes with the control's caption.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

class CVeyGridCtrl;

// Modal; the control lives until it is closed. `owner` may be null. The platform's style and
// answer.
int ShowMessageBox(CVeyGridCtrl& control, HWND owner, std::string_view text, std::int32_t style);

}  // namespace veygrid
