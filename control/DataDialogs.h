// The modal data dialogs: 2306 for the data side of formats, and 2316 for the parameters.
#pragma once

#include <optional>

#include "binding/DataCtrlChoice.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

class CVeyGridCtrl;

// Modal. Nothing comes back from a dialog that was not confirmed.
std::optional<DataCtrlChoice> AskDataCtrl(HWND owner, const DataCtrlChoice& shown);
// Modal; works on the control's parameters while it is open. The control must outlive the call.
void EditParams(CVeyGridCtrl& control);

}  // namespace veygrid
