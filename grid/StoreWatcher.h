// What the sheet tells the control about a change, so that the control decides what to show.
#pragma once

#include <cstdint>

#include "grid/CellPos.h"

namespace veygrid {

// Called on the thread that changes the sheet, in the order in which the change is told to hosts.
// Every operation does nothing by default.
class StoreWatcher {
  public:
    virtual ~StoreWatcher() = default;

    // The platform's modified flag, and the event that follows each setting of it.
    virtual void SetModifiedFlag(bool /*modified*/) {}
    virtual void FireModified() {}

    virtual void InvalidateControl() {}
    // The rectangle of one cell; nothing when it is off the view.
    virtual void InvalidateCell(CellPos /*cell*/) {}
    virtual void InvalidateRowHeaderStrip(std::int32_t /*row*/) {}
    virtual void InvalidateColHeaderStrip(std::int32_t /*col*/) {}
    virtual void UpdateScrollBars() {}

    // To each form object, posted.
    virtual void PostCellSelChange(std::int32_t /*row*/, std::int32_t /*col*/) {}
};

}  // namespace veygrid
