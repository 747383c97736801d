// The format record of a cell, a row, a column or the sheet.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <string>

#include "grid/LogFont.h"

namespace veygrid {

inline constexpr std::int32_t NoColor = -1;
inline constexpr std::int32_t NoFontWeight = -1;

// Horizontal alignment, the low byte of `CCellFormat::Align`.
enum class HorizontalAlign : std::uint16_t { General = 0, Left = 1, Center = 2, Right = 4 };
// Vertical alignment, the high byte of `CCellFormat::Align` in its place.
enum class VerticalAlign : std::uint16_t { Top = 0, Middle = 0x0100, Bottom = 0x0200 };

// The font record as hosts exchange it.
using FontBytes = std::array<std::uint8_t, sizeof(LogFont)>;

// A plain value: copies share nothing. A fresh one is in the reset state.
struct CCellFormat {
    static constexpr std::uint8_t WordWrapFlag = 1;
    static constexpr std::uint8_t ReadOnlyFlag = 2;

    std::uint16_t Align = 0;
    std::uint8_t Flags = 0;
    std::uint8_t DataType = 0;
    // Kept and copied with the record, read by nothing.
    std::array<std::int32_t, 4> Extra{};
    std::string ShowFormat;
    std::string Validity;
    LogFont Font{.lfWeight = NoFontWeight};
    // Colours are 0x00BBGGRR; NoColor leaves the choice to the control.
    std::int32_t Foreground = NoColor;
    std::int32_t Background = NoColor;

    friend bool operator==(const CCellFormat&, const CCellFormat&) = default;

    // The properties as hosts see them. They are asymmetric on purpose: `HAlign` speaks 0, 1, 2, 4,
    // `VAlign` the raw values 0, 256, 512.
    std::int16_t GetHAlign() const { return static_cast<std::int16_t>(Align & 0x00FFU); }
    // Or-ed into the word behind the kept high byte, so a value above 255 runs into it.
    void SetHAlign(std::int16_t value) {
        Align = static_cast<std::uint16_t>((Align & 0xFF00U) | static_cast<std::uint16_t>(value));
    }
    std::int16_t GetVAlign() const { return static_cast<std::int16_t>(Align & 0xFF00U); }
    void SetVAlign(std::int16_t value) {
        Align = static_cast<std::uint16_t>((Align & 0x00FFU) | static_cast<std::uint16_t>(value));
    }
    bool GetReadOnly() const { return (Flags & ReadOnlyFlag) != 0; }
    void SetReadOnly(bool value) {
        Flags = static_cast<std::uint8_t>(value ? Flags | ReadOnlyFlag : Flags & ~ReadOnlyFlag);
    }
    std::int16_t GetDataType() const { return DataType; }
    void SetDataType(std::int16_t value) { DataType = static_cast<std::uint8_t>(value); }
    bool NamesFont() const { return Font.lfWeight != NoFontWeight; }
    FontBytes GetFontBytes() const { return std::bit_cast<FontBytes>(Font); }
    // Takes what there is of the first 60 bytes; the rest of the font stays.
    void SetFontBytes(std::span<const std::uint8_t> bytes) {
        FontBytes font = GetFontBytes();
        std::copy_n(bytes.begin(), std::min(bytes.size(), font.size()), font.begin());
        Font = std::bit_cast<LogFont>(font);
    }
};

}  // namespace veygrid
