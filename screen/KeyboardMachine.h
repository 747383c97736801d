// The keys of the sheet: which message is taken, and where the active cell goes.
#pragma once

#include <cstdint>
#include <optional>

#include "grid/GridStore.h"
#include "grid/RowColumnOperations.h"
#include "grid/Selection.h"
#include "platform/ControlWindow.h"
#include "screen/CellEditor.h"
#include "screen/KeyboardMessage.h"
#include "screen/Layout.h"

namespace veygrid {

// What the keyboard asks of the control and its form layer.
class KeyboardHost {
  public:
    virtual ~KeyboardHost() = default;

    virtual bool GuiDesignMode() const { return false; }
    virtual bool HasToolbox() { return false; }
    // Deletes the selected form objects after a question.
    virtual void DeleteSelectedObjects() {}
    // Focus to the next form object in GUI mode; false when it stayed.
    virtual bool FocusNextObject() { return false; }
};

// Codes of MoveActiveCell.
enum class CellMovement : std::int32_t { Enter = 0, Up = 1, Down = 2, Left = 3, Right = 4 };

// Keys never select: Shift changes nothing.
class KeyboardMachine {
  public:
    // All must outlive the machine.
    KeyboardMachine(GridStore& store, Selection& selection, RowColumnOperations& operations,
                    const Layout& layout, CellEditor& editor, ControlWindow& control,
                    KeyboardHost& host)
        : m_store(store),
          m_selection(selection),
          m_operations(operations),
          m_layout(layout),
          m_editor(editor),
          m_control(control),
          m_host(host) {}

    // Every message of the host's loop for the control or a window in it passes here before it is
    // dispatched. The messages of an input method that are sent to the control pass here too.
    MessageRoad PreTranslateMessage(const KeyboardMessage& message);
    // Handler of VeynorGrid_CtrlKeyDown: 1 when done, 0 when an open edit was refused.
    std::int32_t OnCtrlKeyDown(std::uint32_t key);
    // Handler of VeynorGrid_CtrlKeyMsg, by which a host passes a key on: 1 when it was taken.
    std::int32_t OnCtrlKeyMsg(std::uint32_t key, std::int32_t keyData);

    void MoveActiveCell(CellMovement movement);
    // First column from `col` to `MaxCol` that is not read-only in the row; 0 when there is none.
    std::int32_t NextEditableCol(std::int32_t row, std::int32_t col) const;

  private:
    MessageRoad OnDesignMessage(const KeyboardMessage& message);
    MessageRoad OnSheetMessage(const KeyboardMessage& message);
    MessageRoad OnSheetKeyDown(const KeyboardMessage& message);
    MessageRoad OnSheetText(const KeyboardMessage& message);
    MessageRoad PostKey(std::uint32_t key, std::int32_t keyData);
    bool IsForEditor(std::uint32_t key);
    bool OpenOnKey();
    bool OpenOnComposition();
    bool OpenFresh();
    void OnDelete();

    std::optional<CellPos> TargetOf(CellMovement movement) const;
    std::int32_t ColToTheRight(CellPos cell) const;
    bool IsEditable(std::int32_t row, std::int32_t col) const;
    void ScrollTowardsActiveCell();

    GridStore& m_store;
    Selection& m_selection;
    RowColumnOperations& m_operations;
    const Layout& m_layout;
    CellEditor& m_editor;
    ControlWindow& m_control;
    KeyboardHost& m_host;
};

}  // namespace veygrid
