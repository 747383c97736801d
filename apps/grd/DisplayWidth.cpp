// How many columns of a terminal a text fills.
#include "apps/grd/DisplayWidth.h"

#include <algorithm>
#include <array>

namespace veygrid {

namespace {

struct Span {
    char32_t first;
    char32_t last;
};

// Wide and full-width characters, in ascending order. Beyond the basic plane pictographs are taken
// as wide without exception.
constexpr std::array WideSpans{
    Span{0x1100, 0x115F},   Span{0x231A, 0x231B},   Span{0x2329, 0x232A},   Span{0x23E9, 0x23EC},
    Span{0x23F0, 0x23F0},   Span{0x23F3, 0x23F3},   Span{0x25FD, 0x25FE},   Span{0x2614, 0x2615},
    Span{0x2648, 0x2653},   Span{0x267F, 0x267F},   Span{0x2693, 0x2693},   Span{0x26A1, 0x26A1},
    Span{0x26AA, 0x26AB},   Span{0x26BD, 0x26BE},   Span{0x26C4, 0x26C5},   Span{0x26CE, 0x26CE},
    Span{0x26D4, 0x26D4},   Span{0x26EA, 0x26EA},   Span{0x26F2, 0x26F3},   Span{0x26F5, 0x26F5},
    Span{0x26FA, 0x26FA},   Span{0x26FD, 0x26FD},   Span{0x2705, 0x2705},   Span{0x270A, 0x270B},
    Span{0x2728, 0x2728},   Span{0x274C, 0x274C},   Span{0x274E, 0x274E},   Span{0x2753, 0x2755},
    Span{0x2757, 0x2757},   Span{0x2795, 0x2797},   Span{0x27B0, 0x27B0},   Span{0x27BF, 0x27BF},
    Span{0x2B1B, 0x2B1C},   Span{0x2B50, 0x2B50},   Span{0x2B55, 0x2B55},   Span{0x2E80, 0x3029},
    Span{0x302E, 0x303E},   Span{0x3041, 0x3098},   Span{0x309B, 0x3247},   Span{0x3250, 0x4DBF},
    Span{0x4E00, 0xA4CF},   Span{0xA960, 0xA97F},   Span{0xAC00, 0xD7A3},   Span{0xF900, 0xFAFF},
    Span{0xFE10, 0xFE19},   Span{0xFE30, 0xFE6F},   Span{0xFF01, 0xFF60},   Span{0xFFE0, 0xFFE6},
    Span{0x16FE0, 0x18D08}, Span{0x1B000, 0x1B2FF}, Span{0x1F004, 0x1F004}, Span{0x1F0CF, 0x1F0CF},
    Span{0x1F18E, 0x1F18E}, Span{0x1F191, 0x1F19A}, Span{0x1F200, 0x1F320}, Span{0x1F32D, 0x1F64F},
    Span{0x1F680, 0x1F6FF}, Span{0x1F7E0, 0x1F7EB}, Span{0x1F90C, 0x1F9FF}, Span{0x1FA70, 0x1FAFF},
    Span{0x20000, 0x3FFFD},
};

constexpr std::array JoiningSpans{
    Span{0x0300, 0x036F}, Span{0x200B, 0x200F}, Span{0x20D0, 0x20F0}, Span{0x302A, 0x302D},
    Span{0x3099, 0x309A}, Span{0xFE00, 0xFE0F}, Span{0xFE20, 0xFE2F}, Span{0xFEFF, 0xFEFF},
};

template <class Spans>
bool Holds(const Spans& spans, char32_t character) {
    const auto span = std::lower_bound(spans.begin(), spans.end(), character,
                                       [](const Span& s, char32_t c) { return s.last < c; });
    return span != spans.end() && span->first <= character;
}

unsigned ByteAt(std::string_view text, std::size_t pos) {
    return pos < text.size() ? static_cast<unsigned char>(text[pos]) : 0U;
}

bool IsContinuation(unsigned byte) {
    return (byte & 0xC0U) == 0x80U;
}

// The character at `pos`, which moves behind it. What is broken is taken byte by byte.
char32_t TakeCharacter(std::string_view text, std::size_t& pos) {
    const unsigned first = ByteAt(text, pos);
    const std::size_t length = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned next = ByteAt(text, pos + i);
        if (!IsContinuation(next)) {
            ++pos;
            return first;
        }
        character = character << 6U | (next & 0x3FU);
    }
    pos += length;
    return character;
}

}  // namespace

std::size_t CharacterWidth(char32_t character) {
    if (character < 0x300) {
        return 1;
    }
    return Holds(WideSpans, character) ? 2 : Holds(JoiningSpans, character) ? 0 : 1;
}

std::size_t DisplayWidth(std::string_view utf8) {
    std::size_t width = 0;
    for (std::size_t pos = 0; pos < utf8.size();) {
        width += CharacterWidth(TakeCharacter(utf8, pos));
    }
    return width;
}

}  // namespace veygrid
