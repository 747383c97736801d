// What the mouse asks of the control, of its pictures and of its form layer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "grid/CellRange.h"
#include "platform/Geometry.h"
#include "platform/Surface.h"

namespace veygrid {

// Values of `nLabelType` in the events of a header's text.
enum class LabelType : std::int16_t { RowHeader = 0, ColHeader = 1 };

// Values of `nCellsType` in the event `CellsMove`.
enum class CellsMoved : std::int16_t { Rows = 0, Columns = 1, Cells = 2 };

class MouseHost {
  public:
    virtual ~MouseHost() = default;

    virtual void FireDblClick() = 0;
    // The host sets `cancel` to stop.
    virtual void FireBeginLabelEdit(LabelType type, std::int32_t index, bool& cancel) = 0;
    virtual void FireEndLabelEdit(LabelType type, std::int32_t index, std::string_view text,
                                  bool& cancel) = 0;
    virtual void FireCellsMove(CellsMoved type) = 0;

    // Dialog 2304, modal, with the text in its one field; true for OK, and then the new text.
    virtual bool AskHeaderText(std::string& text) = 0;
    virtual std::string GetMsg(std::int32_t number) = 0;
    // A message box with MessageCaption, modal.
    virtual void ShowMessage(std::string_view text, std::int32_t style) = 0;
    // Reads the column names anew from the bound dataset.
    virtual void RefreshColumnNames() = 0;

    // Pictures of the sheet. Inverted twice, the selection leaves the picture as it was.
    virtual void InvertSelection(Surface& surface) = 0;
    // The range that the mouse draws was `formerDragRange` before.
    virtual void InvertSelectionChange(Surface& surface, const CellRange& formerDragRange) = 0;
    virtual void DrawSelectionFrame(Surface& surface) = 0;
};

// What becomes of a press in design mode.
struct DesignPress {
    bool dragsObjects = false;  // the selected form objects follow the pointer now
    bool runsBase = false;      // the base class's handler is to run
};

// The mouse in design mode. By default there is nothing to design.
class DesignMouse {
  public:
    virtual ~DesignMouse() = default;

    virtual bool GuiDesignMode() const { return false; }
    virtual DesignPress OnPress(std::uint32_t /*flags*/, Point /*point*/) { return {}; }
    // The focus rectangles of the selected objects, offset by that much.
    virtual void DrawDragRects(Surface& /*surface*/, std::int32_t /*dx*/, std::int32_t /*dy*/) {}
    virtual void MoveSelectedBy(std::int32_t /*dx*/, std::int32_t /*dy*/) {}
    // Sets the cursor for a point: of a tracker, of an object, or the arrow.
    virtual void SetDesignCursor(Point /*point*/) {}
};

}  // namespace veygrid
