// What a typed text is, and which data types of a cell accept it.
#pragma once

#include <cstdint>
#include <string_view>

namespace veygrid {

enum class CellClass : std::int16_t {
    Date = 3,
    OtherText = 4,
    Empty = 5,
    Integer = 6,
    NegativeInteger = 7,
    Decimal = 8,
    NegativeDecimal = 9,
};

// The values of a cell format's data type that check anything; every other value accepts any text.
inline constexpr std::uint8_t IntegerDataType = 1;
inline constexpr std::uint8_t FloatDataType = 2;
inline constexpr std::uint8_t DateDataType = 3;

// A date is looked for first, so that 20030814 is one. Blanks around the text do not count, but a
// text of blanks alone is OtherText and not Empty.
CellClass ClassifyCellText(std::string_view text);

// Whether the text may be stored in a cell of this data type; an empty text always may.
bool DataTypeAccepts(std::uint8_t dataType, std::string_view text);

}  // namespace veygrid
