// The font record of the platform, as 60 bytes that memory and files share.
#pragma once

#include <array>
#include <cstdint>
#include <type_traits>

namespace veygrid {

// Field for field the narrow font record of the platform. The face name is text in code page 936,
// ended by a zero byte unless it fills the array.
struct LogFont {
    std::int32_t lfHeight = 0;
    std::int32_t lfWidth = 0;
    std::int32_t lfEscapement = 0;
    std::int32_t lfOrientation = 0;
    std::int32_t lfWeight = 0;
    std::uint8_t lfItalic = 0;
    std::uint8_t lfUnderline = 0;
    std::uint8_t lfStrikeOut = 0;
    std::uint8_t lfCharSet = 0;
    std::uint8_t lfOutPrecision = 0;
    std::uint8_t lfClipPrecision = 0;
    std::uint8_t lfQuality = 0;
    std::uint8_t lfPitchAndFamily = 0;
    std::array<char, 32> lfFaceName{};

    friend bool operator==(const LogFont&, const LogFont&) = default;
};

static_assert(sizeof(LogFont) == 60 && std::is_trivially_copyable_v<LogFont>);

}  // namespace veygrid
