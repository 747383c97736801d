// Text between code page 936, which the sheet holds, and Unicode, which the edges speak.
#include "valuetext/CodePage936.h"

#include <algorithm>
#include <cstdint>

#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

#include "CodePage936Tables.inc"

constexpr char32_t EuroSign = 0x20AC;
constexpr char EuroByte = static_cast<char>(0x80);
// The code page's last single byte has a place in the private use area.
constexpr char32_t LastByteCharacter = 0xF8F5;
constexpr char LastByte = static_cast<char>(0xFF);
constexpr std::size_t TrailCount = 0xFE - 0x40 + 1;

bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}
bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

char32_t DecodeSingle(char byte) {
    if (static_cast<unsigned char>(byte) < 0x80) {
        return static_cast<unsigned char>(byte);
    }
    return byte == EuroByte   ? EuroSign
           : byte == LastByte ? LastByteCharacter
                              : ReplacementCharacter;
}

char32_t DecodePair(char lead, char trail) {
    const auto row = static_cast<std::size_t>(static_cast<unsigned char>(lead) - 0x81);
    const auto column = static_cast<std::size_t>(static_cast<unsigned char>(trail) - 0x40);
    const char32_t character = PairsToUnicode[row * TrailCount + column];
    return character == 0 ? ReplacementCharacter : character;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | c >> 12);
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | c >> 18);
        out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// False, with nothing written, when the code page has no such character.
bool AppendCodePage936(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
        return true;
    }
    if (c == LastByteCharacter) {
        out += LastByte;
        return true;
    }
    const unsigned code = c < 0x10000 ? UnicodeToPairs[c] : 0U;
    if (code == 0) {
        return false;
    }
    if (code > 0xFF) {
        out += static_cast<char>(code >> 8);
    }
    out += static_cast<char>(code & 0xFF);
    return true;
}

struct Decoded {
    char32_t character;
    std::size_t length;
    bool valid;
};

// Length of the sequence that a first byte announces, 0 for a byte that begins none.
std::size_t Utf8Length(unsigned char first) {
    return first < 0x80   ? 1
           : first < 0xC2 ? 0
           : first < 0xE0 ? 2
           : first < 0xF0 ? 3
           : first < 0xF5 ? 4
                          : 0;
}

Decoded DecodeUtf8(std::string_view text, std::size_t pos) {
    const auto first = static_cast<unsigned char>(text[pos]);
    const std::size_t length = Utf8Length(first);
    const Decoded broken{ReplacementCharacter, 1, false};
    if (length == 1) {
        return {first, 1, true};
    }
    if (length == 0 || pos + length > text.size()) {
        return broken;
    }
    char32_t c = first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[pos + i]);
        if ((next & 0xC0) != 0x80) {
            return broken;
        }
        c = c << 6 | (next & 0x3FU);
    }
    const bool overlong = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
    return overlong || IsSurrogate(c) || c > 0x10FFFF ? broken : Decoded{c, length, true};
}

Decoded DecodeUtf16(std::u16string_view text, std::size_t pos) {
    const char32_t first = text[pos];
    if (!IsSurrogate(first)) {
        return {first, 1, true};
    }
    if (IsHighSurrogate(first) && pos + 1 < text.size() && IsLowSurrogate(text[pos + 1])) {
        const char32_t second = text[pos + 1];
        return {0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00), 2, true};
    }
    return {ReplacementCharacter, 1, false};
}

template <class View, class Decode>
std::string Encode(View text, std::vector<EncodeFault>* faults, char substitute, Decode decode) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Decoded next = decode(text, i);
        if (!next.valid || !AppendCodePage936(out, next.character)) {
            out += substitute;
            if (faults != nullptr) {
                faults->push_back({i, next.character});
            }
        }
        i += next.length;
    }
    return out;
}

template <class Append>
void Decode(std::string_view text, Append append) {
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = CharLength(text, i);
        append(length == 2 ? DecodePair(text[i], text[i + 1]) : DecodeSingle(text[i]));
        i += length;
    }
}

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::u16string Utf16FromCodePage936(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    // The code page lies in the basic plane: one unit for each character.
    Decode(text, [&](char32_t c) { out += static_cast<char16_t>(c); });
    return out;
}

std::string Utf8FromCodePage936(std::string_view text) {
    if (IsAscii(text)) {
        return std::string(text);
    }
    std::string out;
    out.reserve(text.size() + text.size() / 2);
    Decode(text, [&](char32_t c) { AppendUtf8(out, c); });
    return out;
}

std::string CodePage936FromUtf8(std::string_view text, std::vector<EncodeFault>* faults,
                                char substitute) {
    if (IsAscii(text)) {
        return std::string(text);
    }
    return Encode(text, faults, substitute, DecodeUtf8);
}

std::string CodePage936FromUtf16(std::u16string_view text, std::vector<EncodeFault>* faults,
                                 char substitute) {
    return Encode(text, faults, substitute, DecodeUtf16);
}

bool IsUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const Decoded next = DecodeUtf8(text, i);
        if (!next.valid) {
            return false;
        }
        i += next.length;
    }
    return true;
}

std::string Utf8FromCharacter(char32_t character) {
    std::string out;
    const bool valid = character <= 0x10FFFF && !IsSurrogate(character);
    AppendUtf8(out, valid ? character : ReplacementCharacter);
    return out;
}

}  // namespace veygrid
