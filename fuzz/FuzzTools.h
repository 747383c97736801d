// What the fuzz targets share: claims that end the program, and characters that must stay whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "valuetext/MultiByte.h"

namespace veygrid {

// Ends the program with the claim's name when it does not hold, so that the input is kept.
inline void Claim(bool holds, const char* claim) {
    if (!holds) {
        std::fprintf(stderr, "claim broken: %s\n", claim);
        std::abort();
    }
}

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Takes what stands in front of the first line feed off the input, or all of it.
inline std::string_view TakeLine(std::string_view& input) {
    const std::size_t end = input.find('\n');
    const std::string_view line = input.substr(0, end);
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
    return line;
}

// True when `pos` is the first byte of a character of the text, or its end.
inline bool IsCharStart(std::string_view text, std::size_t pos) {
    std::size_t i = 0;
    while (i < pos && i < text.size()) {
        i += CharLength(text, i);
    }
    return i == pos;
}

// True when no blank stands at either end of the text.
inline bool IsTrimmed(std::string_view text) {
    return text.empty() || (!IsBlankChar(text.front()) && !IsBlankChar(text.back()));
}

// True when the view lies inside the text, as a piece of its memory.
inline bool LiesIn(std::string_view text, std::string_view part) {
    return part.empty() ||
           (part.data() >= text.data() && part.data() + part.size() <= text.data() + text.size());
}

}  // namespace veygrid
