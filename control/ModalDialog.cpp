// Modal dialogs from the module's resources.
#include "control/ModalDialog.h"

#include "control/Translation.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/Module.h"

namespace veygrid {

bool ModalDialog::DoModal(UINT resource, HWND owner) {
    const INT_PTR result = ::DialogBoxParamW(module::Instance(), MAKEINTRESOURCEW(resource), owner,
                                             Procedure, reinterpret_cast<LPARAM>(this));
    m_window = nullptr;
    return result == IDOK;
}

INT_PTR CALLBACK ModalDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<ModalDialog*>(lParam)->m_window = window;
    }
    auto* const dialog = reinterpret_cast<ModalDialog*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) {
        return FALSE;
    }
    try {
        return dialog->OnMessage(message, wParam);
    } catch (...) {
        static_cast<void>(FailureOfCurrentException());
        ::EndDialog(window, IDCANCEL);
        return TRUE;
    }
}

INT_PTR ModalDialog::OnMessage(UINT message, WPARAM wParam) {
    if (message == WM_INITDIALOG) {
        TranslateWindow(m_window);
        OnInitDialog();
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) {
        return FALSE;
    }
    if (LOWORD(wParam) == IDOK) {
        OnOk();
    }
    ::EndDialog(m_window, LOWORD(wParam));
    return TRUE;
}

}  // namespace veygrid
