// Modal dialogs from the module's resources.
#include "control/ModalDialog.h"

#include "platform/win32/ole/Module.h"

namespace veygrid {

bool ModalDialog::DoModal(UINT resource, HWND owner) {
    const INT_PTR result = ::DialogBoxParamW(module::Instance(), MAKEINTRESOURCEW(resource), owner,
                                             Procedure, reinterpret_cast<LPARAM>(this));
    return result == IDOK;
}

INT_PTR ModalDialog::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        OnInitDialog();
        return TRUE;
    }
    if (message != WM_COMMAND) {
        return FALSE;
    }
    const int id = LOWORD(wParam);
    if (OnCommand(id, HIWORD(wParam))) {
        return TRUE;
    }
    if (id != IDOK && id != IDCANCEL) {
        return FALSE;
    }
    if (id == IDOK) {
        OnOk();
    }
    ::EndDialog(Window(), id);
    return TRUE;
}

}  // namespace veygrid
