// A control's font as an automation object and as the record that is stored.
#pragma once

#include <cstdint>

#include "grid/LogFont.h"
#include "platform/win32/ole/AutomationTypes.h"

namespace veygrid {

// Weight of a record that names no font: the container's is used.
inline constexpr std::int32_t AmbientFontWeight = -1;

ComPtr<IDispatch> FontFromRecord(const LogFont& record);
// The record of the font that an object describes; one that names none for null or another object.
LogFont RecordFromFont(IDispatch* font);
// What is used where the container offers no font.
ComPtr<IDispatch> DefaultFont();

}  // namespace veygrid
