// Dialog 2318: the windows in which the statement of the data source is read and changed.
#include "control/DataSourceDialog.h"

#include <utility>

#include "binding/Asking.h"
#include "binding/DataSourceText.h"
#include "control/MessageBox.h"
#include "control/ResourceDialog.h"
#include "control/VeyGridCtrl.h"
#include "grid/Messages.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/MessageFilter.h"
#include "platform/win32/ole/Module.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

constexpr UINT DataSourceDialogId = 2318;
constexpr int StatementField = 1047;

constexpr wchar_t ChangeQuestion[] = L"是否确认对数据源的修改?";

}  // namespace

class CDataSourceDlg final : public ResourceDialog {
  public:
    CDataSourceDlg(CVeyGridCtrl& control, DataSourceWindows& windows)
        : m_control(control), m_windows(windows) {}

    // Nothing is selected, so that typing takes nothing away.
    void Show() {
        if (::CreateDialogParamW(module::Instance(), MAKEINTRESOURCEW(DataSourceDialogId),
                                 m_control.Window(), Procedure,
                                 reinterpret_cast<LPARAM>(this)) == nullptr) {
            throw OleError{E_FAIL};
        }
        messagefilter::AddDialog(Window());
        FillClientArea();
        Send(StatementField, EM_SETLIMITTEXT);
        SetItemText(StatementField, m_control.Store().Properties.DataSource);
        ::ShowWindow(Window(), SW_SHOW);
        ::SetFocus(Item(StatementField));
        Send(StatementField, EM_SETSEL);
    }
    void Enable(bool enable) { ::EnableWindow(Window(), enable); }
    void Destroy() {
        if (Window() != nullptr) {
            ::DestroyWindow(Window());
        }
    }

  private:
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM) override {
        switch (message) {
            case WM_SIZE:
                FillClientArea();
                return TRUE;
            case WM_NEXTDLGCTL:
                return TRUE;  // there is none, and the field would be selected whole
            case WM_COMMAND:
                if (LOWORD(wParam) != IDCANCEL) {
                    return FALSE;
                }
                [[fallthrough]];
            case WM_CLOSE:
                Close();
                return TRUE;
            default:
                return FALSE;
        }
    }
    // It stays open.
    void OnFailure() override {}
    void OnGone(HWND window) override {
        messagefilter::RemoveDialog(window);
        m_windows.Forget(*this);
    }

    void FillClientArea() const {
        RECT client{};
        ::GetClientRect(Window(), &client);
        ::MoveWindow(Item(StatementField), 0, 0, client.right, client.bottom, TRUE);
    }

    // The question lets the host do anything; the control is kept, the window need not be.
    void Close() {
        if (m_isAsking) {
            return;
        }
        const KeepAlive keep(m_control);
        const std::string text = ItemText(StatementField);
        if (Send(StatementField, EM_GETMODIFY) != 0 && IsConfirmed()) {
            StoreTypedDataSource(m_control.Store(), text);
        }
        Destroy();
    }
    bool IsConfirmed() {
        const Asking asking(m_isAsking);
        return ShowMessageBox(m_control, nullptr, TextFromWide(ChangeQuestion),
                              YesNoMessageStyle) == IDYES;
    }

    CVeyGridCtrl& m_control;
    DataSourceWindows& m_windows;
    bool m_isAsking = false;
};

void DataSourceWindows::Open() {
    m_open.push_back(std::make_shared<CDataSourceDlg>(m_control, *this));
    const std::shared_ptr<CDataSourceDlg> dialog = m_open.back();
    try {
        dialog->Show();
    } catch (...) {
        dialog->Destroy();
        Forget(*dialog);
        throw;
    }
}

// Copied, since a window that gets or loses the focus may let another one go.
void DataSourceWindows::EnableAll(bool enable) {
    for (const auto& dialog : std::vector(m_open)) {
        dialog->Enable(enable);
    }
}

void DataSourceWindows::CloseAll() {
    for (const auto& dialog : std::exchange(m_open, {})) {
        dialog->Destroy();
    }
}

void DataSourceWindows::Forget(const CDataSourceDlg& dialog) {
    std::erase_if(m_open, [&dialog](const auto& open) { return open.get() == &dialog; });
}

}  // namespace veygrid
