// The events of the control as hosts see them: numbers, names and types.
#include "control/EventTable.h"

#include "control/VeyGridEvents.h"

namespace veygrid {

namespace {

// A place in the control's window, in pixels.
struct XPixels {};
struct YPixels {};

template <class T>
constexpr ValueType TypeOf = HeldArgument<T>::Type;
template <>
constexpr ValueType TypeOf<XPixels>{VT_I4, false, "OLE_XPOS_PIXELS"};
template <>
constexpr ValueType TypeOf<YPixels>{VT_I4, false, "OLE_YPOS_PIXELS"};

template <class... Args>
constexpr EventDescription Event(DISPID id, std::string_view name,
                                 std::string_view parameters = "") {
    return {id, name, parameters, {TypeOf<Args>...}, sizeof...(Args)};
}

using std::int16_t;
using std::int32_t;
using std::string;

constexpr std::array Events{
    Event<>(event::CellSelChanged, "CellSelChanged"),
    Event<int32_t, int32_t, int16_t*>(event::StartingEdit, "StartingEdit", "nRow nCol pAllowEdit"),
    Event<int32_t, int32_t, int16_t*>(event::CellSelChanging, "CellSelChanging",
                                      "nNewRow nNewCol pAllowChange"),
    Event<int32_t, int32_t, string, int16_t*>(event::EndEdit, "EndEdit",
                                              "nRow nCol pNewValue pCancel"),
    Event<>(event::Modified, "Modified"),
    Event<int16_t, int32_t, bool*>(event::BeginLabelEdit, "BeginLabelEdit",
                                   "nLabelType nRCIndex pbCancel"),
    Event<int16_t, int32_t, string, bool*>(event::EndLabelEdit, "EndLabelEdit",
                                           "nLabelType nRCIndex lpszNewHeaderText pbCancel"),
    Event<int16_t>(event::CellsMove, "CellsMove", "nCellsType"),
    Event<int32_t, int32_t, AnyObject>(event::RequestCellFormat, "RequestCellFormat",
                                       "nRow nCol pdispCellFormat"),
    Event<>(DISPID_CLICK, "Click"),
    Event<>(DISPID_DBLCLICK, "DblClick"),
    Event<int16_t*, int16_t>(DISPID_KEYDOWN, "KeyDown", "KeyCode Shift"),
    Event<int16_t*, int16_t>(DISPID_KEYUP, "KeyUp", "KeyCode Shift"),
    Event<int16_t, int16_t, XPixels, YPixels>(DISPID_MOUSEDOWN, "MouseDown", "Button Shift x y"),
    Event<int16_t, int16_t, XPixels, YPixels>(DISPID_MOUSEUP, "MouseUp", "Button Shift x y"),
};

}  // namespace

std::span<const EventDescription> VeyGridEvents() {
    return Events;
}

}  // namespace veygrid
