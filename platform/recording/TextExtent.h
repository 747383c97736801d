// A text measure that is the same on every machine.
#pragma once

#include <cstdint>
#include <string_view>

namespace veygrid::recorded {

// Of a font in which every byte is as wide as every other.
struct FixedPitch {
    std::int32_t byteWidth = 6;    // pixels
    std::int32_t lineHeight = 12;  // pixels
};

struct TextExtent {
    std::int32_t width = 0;   // pixels, of the widest line
    std::int32_t height = 0;  // pixels
};

// Size of a text in code page 936 as DrawText lays it out with that format. Line ends count unless
// DtSingleLine is given, an ampersand hides itself, and with DtWordBreak a line that is wider than
// `room` pixels is broken at a blank or beside a two-byte character, where it has any. An empty
// text has no lines.
TextExtent MeasureText(std::string_view text, std::uint32_t format, std::int32_t room,
                       const FixedPitch& font);

}  // namespace veygrid::recorded
