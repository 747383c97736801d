// The control's own property page.
#include "control/GridPropPage.h"

#include <commdlg.h>

#include "control/FileDialog.h"

namespace veygrid {

namespace {

constexpr PageClass GridPage{.dialogId = 2303,
                             .titleId = 200,
                             .helpText = L"Names to appear in the control",
                             .helpFile = L"VEYGRID.HLP"};

// Fields of the dialog.
constexpr int BkImageField = 1031;
constexpr int BrowseButton = 1034;
constexpr int AllowEditField = 1048;
constexpr int RowModeField = 1049;
constexpr int DataSourceField = 1050;

constexpr wchar_t PictureFilter[] = L"BMP文件(*.bmp)\0*.bmp\0所有文件 (*.*)\0*.*\0";

}  // namespace

CVeyGridPropPage::CVeyGridPropPage(IUnknown* outer) : COlePropertyPage(outer, GridPage) {}

IUnknown* CVeyGridPropPage::Make(IUnknown* outer) {
    return (new CVeyGridPropPage(outer))->Inner();
}

void CVeyGridPropPage::DoDataExchange(PageExchange& exchange) {
    exchange.Text(BkImageField, L"BkImage", m_strBkImage);
    exchange.Check(AllowEditField, L"AllowEdit", m_bAllowEdit);
    exchange.Check(RowModeField, L"RowMode", m_bRowMode);
    exchange.Text(DataSourceField, L"DataSource", m_strDataSource);
}

void CVeyGridPropPage::OnButton(int control) {
    if (control == BrowseButton) {
        OnBrowseBkImage();
    }
}

void CVeyGridPropPage::OnBrowseBkImage() {
    const std::optional<std::wstring> path =
        AskFile(Window(), {.kind = FileDialogKind::Open,
                           .filter = PictureFilter,
                           .extension = L"bmp",
                           .flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT});
    if (path && Window() != nullptr) {
        ::SetDlgItemTextW(Window(), BkImageField, path->c_str());
        SetControlStatus(BkImageField, true);
        SetModifiedFlag(true);
    }
}

}  // namespace veygrid
