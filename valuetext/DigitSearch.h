// Digits in text, searched byte by byte: no digit is ever the second byte of a character.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "valuetext/MultiByte.h"

namespace veygrid {

// True when every byte is an ASCII digit, and for an empty text.
constexpr bool IsAllDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), IsAsciiDigit);
}

// Offset of the first digit at or after `start`; NotFound when there is none, also when `start` is
// at or past the end.
constexpr std::size_t FindDigitFrom(std::string_view text, std::size_t start) {
    while (start < text.size() && !IsAsciiDigit(text[start])) {
        ++start;
    }
    return start < text.size() ? start : NotFound;
}

// The same for the first byte that is no digit, which may be either byte of a character.
constexpr std::size_t FindNonDigitFrom(std::string_view text, std::size_t start) {
    while (start < text.size() && IsAsciiDigit(text[start])) {
        ++start;
    }
    return start < text.size() ? start : NotFound;
}

}  // namespace veygrid
