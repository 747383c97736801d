// An open dialog, as scripts drive it.
#pragma once

#include <windows.h>

#include <string>

#include "apps/host/ScriptFiber.h"
#include "apps/host/ScriptObject.h"

namespace veygrid {

// Members: SetText id, text; GetText(id); Choose id, index (entries count from 0; of a check box or
// radio button 0 and 1 are its states); Press id. A control is found by its id at any depth.
class DialogObject : public ScriptObject {
  public:
    DialogObject(HWND dialog, ScriptFiber& fiber);

  private:
    HWND Item(long id) const;
    void SetText(long id, const std::wstring& text);
    void Choose(long id, long index);
    void Press(long id);

    HWND m_dialog;
    ScriptFiber& m_fiber;
};

// The visible top-level window of this thread with that caption, dialogs before other windows;
// null when there is none. `notThis` is never meant.
HWND FindDialog(const std::wstring& caption, HWND notThis);

}  // namespace veygrid
