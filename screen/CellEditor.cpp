// Typing into a cell: one edit window over the cell, and the commit of its text.
#include "screen/CellEditor.h"

#include <optional>
#include <string>

#include "grid/CellShow.h"
#include "grid/Messages.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

const std::string& RefusedText() {
    static const std::string text = CodePage936FromUtf16(u"输入的数据非法!");
    return text;
}

// Raised while it lives, also when an exception of the host passes.
class FlagGuard {
  public:
    explicit FlagGuard(bool& flag) : m_flag(flag) { flag = true; }
    ~FlagGuard() { m_flag = false; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

  private:
    bool& m_flag;
};

}  // namespace

std::int16_t CellEditor::StartEdit() {
    if (m_isStarting || m_isCommitting || !OpenIfAllowed()) {
        return 0;
    }
    // Takes the focus from another window, whose loss may end this edit again.
    m_wndEdit.SetFocus();
    return InEdit() ? 1 : 0;
}

bool CellEditor::OpenIfAllowed() {
    const FlagGuard starting(m_isStarting);
    return MayStart() && EndEdit() == 1 && Open();
}

bool CellEditor::MayStart() {
    const std::int32_t row = m_store.ActiveRow;
    const std::int32_t col = m_store.ActiveCol;
    if (m_store.EffectiveFormatRef(row, col).GetReadOnly()) {
        return false;
    }
    std::int16_t allowEdit = 1;
    m_host.FireStartingEdit(row, col, allowEdit);
    return allowEdit != 0;
}

// One line in each direction at most: a cell further off is not brought on view.
void CellEditor::ScrollToActiveCell() {
    const CellRange range = m_layout.VisibleRange(true);
    if (m_store.ActiveRow > range.Row2) {
        m_control.SendScroll(ScrollBar::Vert, ScrollRequest::LineDown);
    }
    if (m_store.ActiveCol > range.Col2) {
        m_control.SendScroll(ScrollBar::Horz, ScrollRequest::LineDown);
    }
}

// The editor shows the text as stored, not as the cell shows it.
bool CellEditor::Open() {
    ScrollToActiveCell();
    // Read first: a dataset that fails must not leave an empty editor behind.
    const std::string text = m_store.CellText(m_store.ActiveRow, m_store.ActiveCol);
    const Rect rect = m_layout.CellRect(m_store.ActiveRow, m_store.ActiveCol);
    if (!m_wndEdit.Create(Style, rect, ChildId)) {
        return false;
    }
    m_wndEdit.SetWindowText(text);
    EditRow = m_store.ActiveRow;
    EditCol = m_store.ActiveCol;
    return true;
}

std::int16_t CellEditor::EndEdit() {
    if (!InEdit()) {
        return 1;
    }
    if (m_isCommitting) {
        return 0;
    }
    m_wasFocusTaken = false;
    const bool isAccepted = Commit();
    if (!isAccepted && m_wasFocusTaken && InEdit()) {
        m_wndEdit.SetFocus();
    }
    return isAccepted ? 1 : 0;
}

bool CellEditor::Commit() {
    // Held over the closing too, which takes the focus from the editor.
    const FlagGuard committing(m_isCommitting);
    if (m_wndEdit.GetModify() && !AcceptText()) {
        return false;
    }
    if (InEdit()) {
        m_wndEdit.Close();
    }
    return true;
}

// The event names the active cell, while the text goes to the cell that the edit was opened on;
// that is on purpose.
bool CellEditor::AcceptText() {
    const std::optional<std::string> text = m_wndEdit.GetWindowText();
    if (!text) {
        return false;
    }
    std::int16_t cancel = 0;
    m_host.FireEndEdit(m_store.ActiveRow, m_store.ActiveCol, *text, cancel);
    if (cancel != 0 || !ValidateCellText(m_store, EditRow, EditCol, *text)) {
        return false;
    }
    m_store.SetCellText(EditRow, EditCol, *text);
    m_store.LogModification(EditRow, EditCol, m_store.UserChangeType());
    return true;
}

void CellEditor::OnEditKillFocus() {
    if (m_isCommitting || m_isShowingRefusal) {
        m_wasFocusTaken = true;
        return;
    }
    if (EndEdit() == 1) {
        return;
    }
    {
        const FlagGuard showing(m_isShowingRefusal);
        m_host.ShowMessage(RefusedText(), InformationMessageStyle);
    }
    if (InEdit()) {
        m_wndEdit.SetFocus();
    }
}

void CellEditor::PlaceCaret(Point point) {
    const std::int32_t position = m_wndEdit.CharFromPos(point);
    if (position >= 0) {
        m_wndEdit.SetSel(position, position);
        m_wndEdit.ScrollCaret();
    }
}

}  // namespace veygrid
