// A dialog from the module's resources: its window and its messages.
#include "control/ResourceDialog.h"

#include "control/Translation.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

INT_PTR CALLBACK ResourceDialog::Procedure(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<ResourceDialog*>(lParam)->m_window = window;
    }
    auto* const dialog = reinterpret_cast<ResourceDialog*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) {
        return FALSE;
    }
    const std::shared_ptr<ResourceDialog> keep = dialog->weak_from_this().lock();
    if (message == WM_NCDESTROY) {
        ::SetWindowLongPtrW(window, DWLP_USER, 0);
        dialog->m_window = nullptr;
        dialog->OnGone(window);
        return FALSE;
    }
    try {
        if (message == WM_INITDIALOG) {
            TranslateWindow(window);
        }
        return dialog->OnMessage(message, wParam, lParam);
    } catch (...) {
        static_cast<void>(FailureOfCurrentException());
        dialog->OnFailure();
        return TRUE;
    }
}

LRESULT ResourceDialog::Send(int item, UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendDlgItemMessageW(m_window, item, message, wParam, lParam);
}

std::string ResourceDialog::ItemText(int id) const {
    return TextFromWide(WindowText(Item(id)));
}

void ResourceDialog::SetItemText(int id, std::string_view text) const {
    ::SetDlgItemTextW(m_window, id, WideFromText(text).c_str());
}

}  // namespace veygrid
