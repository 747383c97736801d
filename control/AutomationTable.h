// The whole automation surface: the members of the three classes, and the events.
#pragma once

#include "platform/win32/ole/DispatchPart.h"

namespace veygrid {

// The handlers of each take the object named.
const DispatchTable& VeyGridTable();     // CVeyGridCtrl
const DispatchTable& CellFormatTable();  // CellFormatObject
const DispatchTable& FormObjectTable();  // CFormObject

extern const AutomationClass VeyGridAutomation;
extern const AutomationClass CellFormatAutomation;
extern const AutomationClass FormObjectAutomation;

}  // namespace veygrid
