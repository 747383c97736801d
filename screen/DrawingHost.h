// What drawing asks of the control.
#pragma once

#include <cstdint>

#include "grid/CellFormat.h"
#include "grid/CellShow.h"
#include "platform/Geometry.h"
#include "platform/Surface.h"

namespace veygrid {

class DrawingHost {
  public:
    virtual ~DrawingHost() = default;

    // False where a design tool paints the control into a metafile.
    virtual bool HasWindow() const = 0;

    // Colours as properties hold them: plain, or 0x80000000 and the number of a system colour.
    virtual std::uint32_t GetForeColor() const = 0;
    virtual std::uint32_t AmbientBackColor() const = 0;
    virtual Color TranslateColor(std::uint32_t color) const = 0;

    // Whether anybody listens to the event below; without it no copies of formats are made.
    virtual bool ListensToRequestCellFormat() const { return false; }
    // The event, with a working copy that is the host's to change for this paint. The host may
    // change the sheet as well.
    virtual void FireRequestCellFormat(std::int32_t /*row*/, std::int32_t /*col*/,
                                       CCellFormat& /*format*/) {}
    // Null where there are no form objects.
    virtual const ComboBoxes* Combos() const { return nullptr; }
    // Whether the in-cell editor is open.
    virtual bool InEdit() const { return false; }

    // The form layer.
    virtual bool GuiDesignMode() const { return false; }
    virtual void DrawObjectsWindowless(Surface& /*surface*/) {}
    virtual void DrawSnapGrid(Surface& /*surface*/) {}
    virtual void DrawSelectionTrackers(Surface& /*surface*/) {}
    virtual void PlaceFormObjects(bool /*force*/) {}

    // The print job, asked only on paper.
    virtual void OnPrepareDC(Surface& /*surface*/) {}
    // First row of the current page of pages of this size; -1 when the sheet ends before it.
    virtual std::int32_t FirstRowOfPage(const Rect& /*bounds*/) { return 1; }
    // The sheet ends on the current page.
    virtual void CurrentPageIsLast() {}
};

}  // namespace veygrid
