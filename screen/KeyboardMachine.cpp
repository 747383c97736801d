// The keys of the sheet: which message is taken, and where the active cell goes.
#include "screen/KeyboardMachine.h"

#include <algorithm>

#include "grid/Axis.h"

namespace veygrid {

namespace {

constexpr bool IsTabOrEnter(std::uint32_t key) {
    return key == VkTab || key == VkReturn;
}
// Pages, End, Home and the four arrows.
constexpr bool IsNavigationKey(std::uint32_t key) {
    return key >= VkPrior && key <= VkDown;
}

// The only mouse messages that design mode lets through.
constexpr bool IsDesignMouseMessage(std::uint32_t number) {
    return number == WmMouseMove || number == WmLButtonDown || number == WmLButtonUp ||
           number == WmRButtonDown || number == WmRButtonUp;
}

constexpr bool IsToolboxKey(std::uint32_t number) {
    return number == WmKeyDown || number == WmKeyUp || number == WmChar;
}

}  // namespace

MessageRoad KeyboardMachine::PreTranslateMessage(const KeyboardMessage& message) {
    if (IsToolboxKey(message.number) && m_host.HasToolbox()) {
        return MessageRoad::GoOn;
    }
    if (m_host.GuiDesignMode()) {
        return OnDesignMessage(message);
    }
    if (!m_store.Properties.GuiMode) {
        return OnSheetMessage(message);
    }
    const bool movesFocus = message.number == WmKeyDown && IsTabOrEnter(message.key);
    return movesFocus && m_host.FocusNextObject() ? MessageRoad::UsedUp : MessageRoad::GoOn;
}

// Form windows lie still: their mouse goes to the control, and nothing else reaches anybody.
MessageRoad KeyboardMachine::OnDesignMessage(const KeyboardMessage& message) {
    if (IsDesignMouseMessage(message.number)) {
        return message.target == MessageTarget::Descendant ||
                       message.target == MessageTarget::Editor
                   ? MessageRoad::ToControl
                   : MessageRoad::GoOn;
    }
    if (message.number == WmKeyDown && message.key == VkDelete) {
        m_host.DeleteSelectedObjects();
    }
    return MessageRoad::UsedUp;
}

MessageRoad KeyboardMachine::OnSheetMessage(const KeyboardMessage& message) {
    switch (message.number) {
        case WmKeyDown:
            return OnSheetKeyDown(message);
        case WmChar:
        case WmImeChar:
            return OnSheetText(message);
        case WmImeStartComposition:
            return message.target == MessageTarget::Control && OpenOnComposition()
                       ? MessageRoad::ToEditor
                       : MessageRoad::GoOn;
        // Of a composition that began on the sheet.
        case WmImeComposition:
        case WmImeEndComposition:
            return message.target == MessageTarget::Control && m_editor.InEdit()
                       ? MessageRoad::ToEditor
                       : MessageRoad::GoOn;
        default:
            return MessageRoad::GoOn;
    }
}

MessageRoad KeyboardMachine::OnSheetKeyDown(const KeyboardMessage& message) {
    if (IsTabOrEnter(message.key)) {
        return IsForEditor(message.key) ? MessageRoad::ToEditor
                                        : PostKey(message.key, message.keyData);
    }
    if (IsNavigationKey(message.key) && message.target == MessageTarget::Control) {
        return PostKey(message.key, message.keyData);
    }
    // Taken from whatever window: in an open editor it changes the sheet and not the text, on
    // purpose.
    if (message.key == VkDelete && m_store.Properties.AllowEdit) {
        OnDelete();
        return MessageRoad::UsedUp;
    }
    return MessageRoad::GoOn;
}

// A new line or a tab in the text.
bool KeyboardMachine::IsForEditor(std::uint32_t key) {
    return IsTabOrEnter(key) && m_editor.InEdit() && m_control.GetKeyState(VkControl) < 0;
}

MessageRoad KeyboardMachine::PostKey(std::uint32_t key, std::int32_t keyData) {
    m_control.PostCtrlKeyDown(key, keyData);
    return MessageRoad::UsedUp;
}

// A character that the sheet cannot hold opens nothing, so that no text gives way to it.
MessageRoad KeyboardMachine::OnSheetText(const KeyboardMessage& message) {
    if (message.target != MessageTarget::Control ||
        !(m_editor.InEdit() || m_store.Properties.AllowEdit)) {
        return MessageRoad::GoOn;
    }
    if (message.text.empty()) {
        m_control.MessageBeep();
        return MessageRoad::UsedUp;
    }
    return OpenOnKey() ? MessageRoad::ToEditor : MessageRoad::GoOn;
}

// True when an edit is open afterwards; a fresh one is empty, for the key replaces the text.
bool KeyboardMachine::OpenOnKey() {
    if (OpenFresh()) {
        m_editor.EmptyText();
    }
    return m_editor.InEdit();
}

// A composition may yet be given up, so the text of a fresh edit only makes room for its result.
bool KeyboardMachine::OpenOnComposition() {
    if (OpenFresh()) {
        m_editor.SelectText();
    }
    return m_editor.InEdit();
}

// True when there was no edit and now there is one.
bool KeyboardMachine::OpenFresh() {
    if (m_editor.InEdit() || !m_store.Properties.AllowEdit) {
        return false;
    }
    m_editor.StartEdit();
    return m_editor.InEdit();
}

// Works on the first selected range alone.
void KeyboardMachine::OnDelete() {
    constexpr auto All = static_cast<std::int16_t>(ClearType::All);
    const bool selects = !m_selection.SelectionList.empty();
    const CellRange range =
        selects ? m_selection.SelectionList.front().Normalized() : m_selection.ActiveCellRange();
    const auto countOf = [&range](Axis axis) {
        return static_cast<std::int32_t>(LinesOf(range, axis).Count());
    };
    if (!selects || range.IsWholeSheet()) {
        m_operations.ClearRange(range.Row1, range.Col1, range.Row2, range.Col2, All);
    } else if (range.Col1 == 0 || range.Col2 == 0) {
        m_operations.DeleteRows(range.Row1, countOf(Axis::Rows));
    } else if (range.Row1 == 0 || range.Row2 == 0) {
        m_operations.DeleteCols(range.Col1, countOf(Axis::Cols));
    } else {
        // The last column stands where the last row belongs, and the other way round, on purpose.
        m_operations.ClearRange(range.Row1, range.Col1, range.Col2, range.Row2, All);
    }
    m_store.SetModifiedAndNotify(true);
}

std::int32_t KeyboardMachine::OnCtrlKeyDown(std::uint32_t key) {
    if (IsTabOrEnter(key)) {
        m_control.SetFocus();
        if (m_editor.InEdit()) {
            return 0;
        }
        MoveActiveCell(key == VkTab ? CellMovement::Right : CellMovement::Enter);
    }
    if (m_editor.InEdit()) {
        return 1;
    }
    switch (key) {
        case VkPrior:
            m_control.SendScroll(ScrollBar::Vert, ScrollRequest::PageUp);
            break;
        case VkNext:
            m_control.SendScroll(ScrollBar::Vert, ScrollRequest::PageDown);
            break;
        case VkLeft:
            MoveActiveCell(CellMovement::Left);
            break;
        case VkUp:
            MoveActiveCell(CellMovement::Up);
            break;
        case VkRight:
            MoveActiveCell(CellMovement::Right);
            break;
        case VkDown:
            MoveActiveCell(CellMovement::Down);
            break;
        default:
            break;
    }
    return 1;
}

std::int32_t KeyboardMachine::OnCtrlKeyMsg(std::uint32_t key, std::int32_t keyData) {
    if (m_store.Properties.GuiMode) {
        return m_host.FocusNextObject() ? 1 : 0;
    }
    if (IsForEditor(key) || !(IsTabOrEnter(key) || IsNavigationKey(key))) {
        return 0;
    }
    PostKey(key, keyData);
    return 1;
}

// Whether the move was refused makes no difference to what follows it.
void KeyboardMachine::MoveActiveCell(CellMovement movement) {
    m_selection.DragRange = {};
    const std::optional<CellPos> target = TargetOf(movement);
    if (!target) {
        return;
    }
    m_selection.SetActiveCell(target->Row, target->Col);
    if (m_store.Properties.GuiMode) {
        return;
    }
    ScrollTowardsActiveCell();
    if (m_store.Properties.AllowEdit && m_store.Properties.AlwaysOnEdit) {
        m_editor.StartEdit();
    }
}

// Nothing where the movement stops at an edge of the sheet. Enter never stops: at an edge it goes
// on with the same cell. Up, down and left take read-only cells too; only right passes them by.
std::optional<CellPos> KeyboardMachine::TargetOf(CellMovement movement) const {
    const GridProperties& properties = m_store.Properties;
    const CellPos cell{m_store.ActiveRow, m_store.ActiveCol};
    switch (movement) {
        case CellMovement::Up:
            return cell.Row < 2 ? std::nullopt : std::optional(CellPos{cell.Row - 1, cell.Col});
        case CellMovement::Left:
            return cell.Col < 2 ? std::nullopt : std::optional(CellPos{cell.Row, cell.Col - 1});
        case CellMovement::Down:
            return cell.Row >= properties.MaxRow ? std::nullopt
                                                 : std::optional(CellPos{cell.Row + 1, cell.Col});
        case CellMovement::Enter:
            if (properties.EnterGoDown) {
                return CellPos{cell.Row < properties.MaxRow ? cell.Row + 1 : cell.Row, cell.Col};
            }
            return CellPos{cell.Row, ColToTheRight(cell)};
        case CellMovement::Right:
            if (cell.Col >= properties.MaxCol) {
                return std::nullopt;
            }
            return CellPos{cell.Row, ColToTheRight(cell)};
    }
    return std::nullopt;
}

// The next column that takes input, or just the next one when none does; the last stays.
std::int32_t KeyboardMachine::ColToTheRight(CellPos cell) const {
    if (cell.Col >= m_store.Properties.MaxCol) {
        return cell.Col;
    }
    const std::int32_t editable = NextEditableCol(cell.Row, cell.Col + 1);
    return editable == 0 ? cell.Col + 1 : editable;
}

bool KeyboardMachine::IsEditable(std::int32_t row, std::int32_t col) const {
    return !m_store.EffectiveFormatRef(row, col).GetReadOnly();
}

// Among one column more than there are records, one has no record of its own. When it is read-only,
// so are all others without one, and only the records can name an editable column: `MaxCol` may be
// any number.
std::int32_t KeyboardMachine::NextEditableCol(std::int32_t row, std::int32_t col) const {
    const std::int64_t maxCol = m_store.Properties.MaxCol;
    const auto records = static_cast<std::int64_t>(m_store.CellFormatMap.Count());
    const std::int64_t walked = std::min(maxCol, col + records);
    for (std::int64_t at = col; at <= walked; ++at) {
        if (IsEditable(row, static_cast<std::int32_t>(at))) {
            return static_cast<std::int32_t>(at);
        }
    }
    std::int32_t first = 0;
    for (const auto& [key, format] : m_store.CellFormatMap) {
        const bool isAhead =
            key.Col > walked && key.Col <= maxCol && (first == 0 || key.Col < first);
        if (isAhead && IsEditable(row, key.Col)) {
            first = key.Col;
        }
    }
    return first;
}

// One line in one direction at most.
void KeyboardMachine::ScrollTowardsActiveCell() {
    const CellRange view = m_layout.VisibleRange(true);
    if (m_store.ActiveRow > view.Row2) {
        m_control.SendScroll(ScrollBar::Vert, ScrollRequest::LineDown);
    } else if (m_store.ActiveRow < view.Row1) {
        m_control.SendScroll(ScrollBar::Vert, ScrollRequest::LineUp);
    } else if (m_store.ActiveCol > view.Col2) {
        m_control.SendScroll(ScrollBar::Horz, ScrollRequest::LineDown);
    } else if (m_store.ActiveCol < view.Col1) {
        m_control.SendScroll(ScrollBar::Horz, ScrollRequest::LineUp);
    }
}

}  // namespace veygrid
