// The object "Host" of scripts.
#pragma once

#include "apps/host/HostWindow.h"
#include "apps/host/MessageBoxWatch.h"
#include "apps/host/RealInput.h"
#include "apps/host/ScriptFiber.h"
#include "apps/host/ScriptObject.h"

namespace veygrid {

// Input comes back when what it brought about has been done, or when a dialog or menu is up.
// Positions are client pixels of the first control.
class HostObject : public ScriptObject {
  public:
    HostObject(HostWindow& window, ScriptFiber& fiber, MessageBoxWatch& boxes);
    ~HostObject() override;

    // What Quit was given; 0 before.
    int QuitCode() const { return m_quitCode; }

  private:
    void AddProgramMembers();
    void AddInputMembers();
    void AddPictureMembers();
    void AddWindowMembers();
    void AddStoryMembers();

    HWND ControlWindow() const;
    void BringForward() const;
    void MoveTo(const ScriptArguments& given);
    void Act(DWORD action);
    void Click(const ScriptArguments& given, int times);
    void WaitOutDoubleClick();

    HostWindow& m_window;
    ScriptFiber& m_fiber;
    MessageBoxWatch& m_boxes;
    RealInput m_input;
    ULONGLONG m_lastClick = 0;
    int m_quitCode = 0;
};

}  // namespace veygrid
