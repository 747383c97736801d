// The working copy of a cell's format that the host may change while the cell is painted.
#include "control/RequestedFormat.h"

#include <utility>

#include "control/VeyGridEvents.h"
#include "platform/win32/ole/OleControl.h"

namespace veygrid {

void RequestedFormat::Fire(CVeyOleControl& control, std::int32_t row, std::int32_t col,
                           CCellFormat& format) {
    // Taken away for the call, since the host may make the control paint inside it.
    Owned object = std::exchange(m_idle, Owned());
    if (!object) {
        object = Owned(new CellFormatObject(nullptr));
    }
    object->Record() = format;
    control.FireEvent(event::RequestCellFormat, row, col, object->Dispatch());
    format = object->Record();
    object->Inner()->AddRef();
    if (object->Inner()->Release() == 1) {
        m_idle = std::move(object);
    }
}

}  // namespace veygrid
