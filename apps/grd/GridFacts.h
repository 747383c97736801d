// What a grid file says, as named values to list and to compare.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "apps/grd/GridAccess.h"
#include "grid/CellFormat.h"
#include "persist/FormObjectRecord.h"

namespace veygrid {

// 0x00BBGGRR, a system colour with the top bit set, or all bits set for none.
struct ColorValue {
    std::uint32_t Number = 0;
    friend bool operator==(const ColorValue&, const ColorValue&) = default;
};
// Bytes of which only their number is shown.
struct BlockValue {
    std::string Bytes;
    friend bool operator==(const BlockValue&, const BlockValue&) = default;
};
// Words of ours, not to be quoted.
struct WordValue {
    std::string Word;
    friend bool operator==(const WordValue&, const WordValue&) = default;
};
// Text of the file is in code page 936.
using FactValue = std::variant<bool, std::int64_t, ColorValue, std::string, BlockValue, WordValue>;

struct Fact {
    std::string Name;
    FactValue Value;
    FactValue Default;

    bool IsDefault() const { return Value == Default; }
};
using Facts = std::vector<Fact>;

// The persisted properties, the stock properties and the switches.
Facts PropertyFacts(const Grid& grid);
// What a file holds once: the next control id, the window's rectangle, the blocks of bytes.
Facts DocumentFacts(const GridDocument& document);
Facts FormatFacts(const CCellFormat& format);
Facts ObjectFacts(const GuiObjRecord& object);

// "label", "edit box" and so on; "object of type N" for other types.
std::string NameOfObjectType(std::uint16_t type);

// On one line, in UTF-8; texts of the file are quoted.
std::string TextOfFact(const FactValue& value);
// As a JSON value; colours are texts such as "0x8000000F", blocks the number of their bytes.
std::string JsonOfFact(const FactValue& value);

}  // namespace veygrid
