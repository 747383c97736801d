// Editing the text of a header in its dialog, the only way to it.
#pragma once

#include <cstdint>
#include <string_view>

#include "screen/MouseParts.h"

namespace veygrid {

// Open whatever `AllowEditHeader` says. Row or column 0 has no text.
void EditHeaderLabel(const MouseParts& parts, LabelType type, std::int32_t index);

}  // namespace veygrid
