// Numbers of the events that the control fires itself; the stock ones are the base's.
#pragma once

#include "platform/win32/ole/Platform.h"

namespace veygrid::event {

inline constexpr DISPID CellSelChanged = 1;
inline constexpr DISPID StartingEdit = 2;
inline constexpr DISPID CellSelChanging = 3;
inline constexpr DISPID EndEdit = 4;
inline constexpr DISPID Modified = 5;
inline constexpr DISPID BeginLabelEdit = 6;
inline constexpr DISPID EndLabelEdit = 7;
inline constexpr DISPID CellsMove = 8;
inline constexpr DISPID RequestCellFormat = 9;

}  // namespace veygrid::event
