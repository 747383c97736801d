// Typing into a cell: one edit window over the cell, and the commit of its text.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "grid/GridStore.h"
#include "platform/ControlWindow.h"
#include "platform/EditWindow.h"
#include "platform/Geometry.h"
#include "screen/Layout.h"

namespace veygrid {

// What the editor asks of the control.
class CellEditorHost {
  public:
    virtual ~CellEditorHost() = default;

    // The events. The host sets `allowEdit` to 0 to refuse, `cancel` to another value than 0 to
    // keep the edit open.
    virtual void FireStartingEdit(std::int32_t row, std::int32_t col, std::int16_t& allowEdit) = 0;
    virtual void FireEndEdit(std::int32_t row, std::int32_t col, std::string_view newValue,
                             std::int16_t& cancel) = 0;
    // A message box with MessageCaption, modal, without an owner.
    virtual void ShowMessage(std::string_view text, std::int32_t style) = 0;
};

// Hosts may call back from every event. A start inside a start or a commit, and a commit inside a
// commit, answer 0 and do nothing.
class CellEditor {
  public:
    static constexpr std::int32_t ChildId = 1000;
    // Visible, of several lines, scrolling by itself in both directions, without a border.
    static constexpr std::uint32_t Style = 0x100000C4;

    // All must outlive the editor.
    CellEditor(GridStore& store, const Layout& layout, ControlWindow& control, EditWindow& wndEdit,
               CellEditorHost& host)
        : m_store(store), m_layout(layout), m_control(control), m_wndEdit(wndEdit), m_host(host) {}

    // Opens the editor on the active cell, whatever `AllowEdit` says. 1 when it was opened; 0 for a
    // read-only cell or when the host refuses. An edit already open is committed first, and when
    // that is refused it stays and the answer is 0.
    std::int16_t StartEdit();
    // Commits: 1 when no edit is open afterwards, 0 when the text was refused and the edit stays.
    // An unchanged text is neither checked nor stored, and no event tells of it. A text with a
    // character that code page 936 lacks is refused without an event.
    std::int16_t EndEdit();
    // Handler of EN_KILLFOCUS: commits; a refusal is shown and the editor gets the focus back.
    void OnEditKillFocus();

    bool InEdit() const { return m_wndEdit.HasWindow(); }
    // The next key replaces the text.
    void EmptyText() { m_wndEdit.SetWindowText({}); }
    // So does a composition, but what it replaces is there again when the user gives it up. Its
    // window stands at the caret: before the first character, where a long text is not scrolled.
    void SelectText() { m_wndEdit.SetSel(std::numeric_limits<std::int32_t>::max(), 0); }
    // Puts the caret to the character at a point, in client pixels of the control.
    void PlaceCaret(Point point);

    // The cell that the open edit writes to, wherever the active cell goes meanwhile.
    std::int32_t EditRow = 0;
    std::int32_t EditCol = 0;

  private:
    bool OpenIfAllowed();
    bool MayStart();
    void ScrollToActiveCell();
    bool Open();
    bool Commit();
    bool AcceptText();

    GridStore& m_store;
    const Layout& m_layout;
    ControlWindow& m_control;
    EditWindow& m_wndEdit;
    CellEditorHost& m_host;
    bool m_isStarting = false;
    bool m_isCommitting = false;
    // A host took the focus from the editor during the commit.
    bool m_wasFocusTaken = false;
    bool m_isShowingRefusal = false;
};

}  // namespace veygrid
