// Modal dialogs from the module's resources.
#pragma once

#include "control/ResourceDialog.h"

namespace veygrid {

// The base ends the dialog on OK and Cancel.
class ModalDialog : public ResourceDialog {
  public:
    // True when it was left by OK, and OnOk came to its end.
    bool DoModal(UINT resource, HWND owner);

  protected:
    // Fills the controls, before the dialog shows.
    virtual void OnInitDialog() = 0;
    // What a control or the keyboard tells: the control's id and its notification. False leaves it
    // to the base.
    virtual bool OnCommand(int, UINT) { return false; }
    // Reads the controls.
    virtual void OnOk() {}

  private:
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFailure() override { ::EndDialog(Window(), IDCANCEL); }
};

}  // namespace veygrid
