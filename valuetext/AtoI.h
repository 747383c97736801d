// Number at the beginning of a text, read as C's atoi reads it, but the same in every locale.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "valuetext/MultiByte.h"

namespace veygrid {

// Skips blanks, takes one optional sign and reads digits up to the first byte that is none. Gives 0
// where no digit stands there, and the nearest 32-bit number where the digits go beyond it.
constexpr std::int32_t AtoI(std::string_view text) {
    constexpr std::int64_t Limit = std::int64_t{1} << 31;
    std::size_t i = 0;
    while (i < text.size() && IsBlankChar(text[i])) {
        ++i;
    }
    const bool negative = i < text.size() && text[i] == '-';
    if (negative || (i < text.size() && text[i] == '+')) {
        ++i;
    }
    std::int64_t value = 0;
    for (; i < text.size() && IsAsciiDigit(text[i]) && value < Limit; ++i) {
        value = std::min(value * 10 + (text[i] - '0'), Limit);
    }
    return static_cast<std::int32_t>(negative ? -value : std::min(value, Limit - 1));
}

}  // namespace veygrid
