// What the alignment dialog shows and answers.
#pragma once

#include <cstdint>

#include "grid/CellFormat.h"

namespace veygrid {

// States of a three-state check box; a third state leaves the formats as they are.
inline constexpr std::int32_t BoxClear = 0;
inline constexpr std::int32_t BoxSet = 1;
inline constexpr std::int32_t BoxUnchanged = 2;
// The index of a list in which nothing is chosen; it leaves the formats as they are.
inline constexpr std::int32_t NothingChosen = -1;

struct AlignChoice {
    std::int32_t horizontal = NothingChosen;  // general, left, centre, right
    std::int32_t vertical = NothingChosen;    // top, middle, bottom
    std::int32_t wordBreak = BoxUnchanged;
    std::int32_t readOnly = BoxUnchanged;

    friend bool operator==(const AlignChoice&, const AlignChoice&) = default;
};

AlignChoice AlignChoiceOf(const CCellFormat& format);
void ApplyAlignChoice(const AlignChoice& choice, CCellFormat& format);

}  // namespace veygrid
