// Modal dialogs from the module's resources.
#pragma once

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// The base translates the texts, ends on OK and Cancel, and lets no exception through.
class ModalDialog {
  public:
    ModalDialog() = default;
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;
    virtual ~ModalDialog() = default;

    // True when it was left by OK, and OnOk came to its end.
    bool DoModal(UINT resource, HWND owner);

  protected:
    // While the dialog is up.
    HWND Window() const { return m_window; }

    // Fills the controls, before the dialog shows.
    virtual void OnInitDialog() = 0;
    // Reads the controls.
    virtual void OnOk() = 0;

  private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(UINT message, WPARAM wParam);

    HWND m_window = nullptr;
};

}  // namespace veygrid
