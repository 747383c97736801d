// How many columns of a terminal a text fills.
#pragma once

#include <cstddef>
#include <string_view>

namespace veygrid {

// 2 for the wide characters of East Asian text, 0 for marks that join the character before them,
// 1 for everything else.
std::size_t CharacterWidth(char32_t character);

// Sum over the characters of UTF-8 text without control characters. A broken byte counts as 1.
std::size_t DisplayWidth(std::string_view utf8);

}  // namespace veygrid
