// Text between code page 936, which the sheet holds, and Unicode, which the edges speak.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace veygrid {

// Stands for bytes that code page 936 gives no character.
inline constexpr char32_t ReplacementCharacter = 0xFFFD;

// A character that code page 936 cannot hold, or a broken sequence (then ReplacementCharacter).
struct EncodeFault {
    std::size_t offset;  // in units of the source: UTF-8 bytes or UTF-16 units
    char32_t character;
};

// Decoding never fails: bytes without a character become ReplacementCharacter, one for each
// broken byte or pair.
std::u16string Utf16FromCodePage936(std::string_view text);
std::string Utf8FromCodePage936(std::string_view text);

// Encoding writes `substitute` for each character that code page 936 cannot hold and, when
// `faults` is given, appends a record of each.
std::string CodePage936FromUtf8(std::string_view text, std::vector<EncodeFault>* faults = nullptr,
                                char substitute = '?');
std::string CodePage936FromUtf16(std::u16string_view text,
                                 std::vector<EncodeFault>* faults = nullptr, char substitute = '?');

// True when the bytes are well-formed UTF-8.
bool IsUtf8(std::string_view text);

// The character as UTF-8; a number that is no character gives ReplacementCharacter.
std::string Utf8FromCharacter(char32_t character);

}  // namespace veygrid
