// Lets controls see key messages before a host's loop dispatches them, whatever that loop does.
#pragma once

#include "platform/win32/ole/Platform.h"

namespace veygrid {

class CVeyOleControl;

namespace messagefilter {

// From Add, which is called with the control's window made, to Remove, on the same thread.
void Add(CVeyOleControl& control);
void Remove(CVeyOleControl& control);

}  // namespace messagefilter

}  // namespace veygrid
