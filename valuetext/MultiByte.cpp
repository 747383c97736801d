// Characters of multi-byte text in code page 936: one or two bytes, never split.
#include "valuetext/MultiByte.h"

#include <algorithm>
#include <cstring>

namespace veygrid {

namespace {

// Bytes below this are never the second byte of a character, so that plain searches are safe.
constexpr char FirstTrailByte = 0x40;

bool CanBeTrailByte(char c) {
    return static_cast<unsigned char>(c) >= static_cast<unsigned char>(FirstTrailByte);
}

// Where the last character of the text begins. Lead and trail ranges overlap, so the run of
// possible lead bytes in front of the last byte decides: an odd run makes the last byte a trail.
std::size_t LastCharStart(std::string_view text) {
    const std::size_t last = text.size() - 1;
    if (!IsTrailByte(text[last])) {
        return last;
    }
    std::size_t run = last;
    while (run > 0 && IsLeadByte(text[run - 1])) {
        --run;
    }
    // A lead byte at `run` begins a character unless it is itself the trail of a single byte, which
    // cannot be: what stands before it is no lead byte.
    return (last - run) % 2 == 1 ? last - 1 : last;
}

unsigned CharCode(std::string_view text, std::size_t pos, std::size_t length) {
    const unsigned first = static_cast<unsigned char>(text[pos]);
    return length == 1 ? first : first << 8U | static_cast<unsigned char>(text[pos + 1]);
}

}  // namespace

std::string_view TrimLeft(std::string_view text) {
    std::size_t start = 0;
    while (start < text.size() && IsBlankChar(text[start])) {
        ++start;
    }
    return text.substr(start);
}

std::string_view TrimRight(std::string_view text) {
    // Blanks lie below every trail byte, so the bytes can be looked at from the end.
    std::size_t end = text.size();
    while (end > 0 && IsBlankChar(text[end - 1])) {
        --end;
    }
    return text.substr(0, end);
}

std::string_view Trim(std::string_view text) {
    return TrimRight(TrimLeft(text));
}

std::string_view TrimRightMark(std::string_view text, char mark) {
    while (!text.empty() && text.back() == mark && LastCharStart(text) == text.size() - 1) {
        text.remove_suffix(1);
    }
    return text;
}

std::string UpperCase(std::string_view text) {
    std::string result(text);
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = CharLength(text, i);
        if (length == 1) {
            result[i] = ToUpperAscii(text[i]);
        }
        i += length;
    }
    return result;
}

std::size_t FindChar(std::string_view text, char c, std::size_t start) {
    if (!CanBeTrailByte(c)) {
        return text.find(c, start);
    }
    for (std::size_t i = start; i < text.size();) {
        const std::size_t length = CharLength(text, i);
        if (length == 1 && text[i] == c) {
            return i;
        }
        i += length;
    }
    return NotFound;
}

std::size_t FindLastChar(std::string_view text, char c) {
    if (!CanBeTrailByte(c)) {
        return text.rfind(c);
    }
    std::size_t found = NotFound;
    for (std::size_t i = FindChar(text, c); i != NotFound; i = FindChar(text, c, i + 1)) {
        found = i;
    }
    return found;
}

std::size_t FindText(std::string_view text, std::string_view what, std::size_t start) {
    if (start > text.size()) {
        return NotFound;
    }
    if (what.empty()) {
        return start;
    }
    if (!CanBeTrailByte(what.front())) {
        return text.find(what, start);
    }
    for (std::size_t i = start; i + what.size() <= text.size(); i += CharLength(text, i)) {
        if (text[i] == what.front() && text.compare(i, what.size(), what) == 0) {
            return i;
        }
    }
    return NotFound;
}

std::size_t CountChar(std::string_view text, char c) {
    if (!CanBeTrailByte(c)) {
        return static_cast<std::size_t>(std::count(text.begin(), text.end(), c));
    }
    std::size_t count = 0;
    for (std::size_t i = FindChar(text, c); i != NotFound; i = FindChar(text, c, i + 1)) {
        ++count;
    }
    return count;
}

int CompareMultiByte(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        const std::size_t lengthA = CharLength(a, i);
        const std::size_t lengthB = CharLength(b, j);
        const unsigned codeA = CharCode(a, i, lengthA);
        const unsigned codeB = CharCode(b, j, lengthB);
        if (codeA != codeB) {
            return codeA < codeB ? -1 : 1;
        }
        i += lengthA;
        j += lengthB;
    }
    const bool endA = i == a.size();
    const bool endB = j == b.size();
    return endA && endB ? 0 : endA ? -1 : 1;
}

}  // namespace veygrid
