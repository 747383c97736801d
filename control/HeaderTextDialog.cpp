// Dialog 2304, which asks for the text of a header.
#include "control/HeaderTextDialog.h"

#include "control/ModalDialog.h"

namespace veygrid {

namespace {

constexpr UINT HeaderTextDialogId = 2304;
constexpr int TextField = 1003;

class CHeaderTextDlg final : public ModalDialog {
  public:
    explicit CHeaderTextDlg(std::string_view text) : m_text(text) {}

    const std::string& Text() const { return m_text; }

  private:
    void OnInitDialog() override { SetItemText(TextField, m_text); }
    void OnOk() override { m_text = ItemText(TextField); }

    std::string m_text;
};

}  // namespace

std::optional<std::string> AskHeaderText(HWND owner, std::string_view oldText) {
    CHeaderTextDlg dialog(oldText);
    return dialog.DoModal(HeaderTextDialogId, owner) ? std::optional(dialog.Text()) : std::nullopt;
}

}  // namespace veygrid
