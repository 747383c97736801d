// Lets controls see input messages before a host's loop dispatches them, whatever that loop does.
#pragma once

#include "platform/win32/ole/Platform.h"

namespace veygrid {

class CVeyOleControl;

// Each input message (keys, mouse, timers) that is taken out of the queue for a control's window or
// one inside it is shown to the control's PreTranslateMessage once: by a hook of the thread, since
// few hosts ask a control for accelerators. A message that is used up becomes WM_NULL in the host's
// own MSG, before IsDialogMessage or TranslateMessage see it.
namespace messagefilter {

// From Add, which is called with the control's window made, to Remove, on the same thread.
void Add(CVeyOleControl& control);
void Remove(CVeyOleControl& control);

// A message that a container asks the control to translate; true uses it up. One that the hook has
// shown already passes, and so does one that is not for the control's windows.
bool Offer(CVeyOleControl& control, MSG& message);

// A modeless dialog of the thread's controls has no loop of its own to give it its keys: from
// AddDialog to RemoveDialog, they go to it from whatever loop takes them, and no further. Called on
// the thread of the controls.
void AddDialog(HWND dialog);
void RemoveDialog(HWND dialog);

}  // namespace messagefilter

}  // namespace veygrid
