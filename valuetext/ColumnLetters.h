// The letters that head a column: A to Z, AA to AZ, BA and so on.
#pragma once

#include <cstdint>
#include <string>

namespace veygrid {

// Letters of the 1-based column, in bijective base 26; empty for a column below 1.
std::string ColumnLetters(std::int32_t col);

}  // namespace veygrid
