// Numbers as Chinese capital money text, for vouchers and cheques.
#pragma once

#include <string>
#include <string_view>

namespace veygrid {

// The amount of a number text in capital characters, both decimals always named, in code page 936.
// Empty for an empty text, for what is no number, for more than 12 digits in front of a written
// point, and for a number beyond the range of a double.
//
// The amount is that of the double nearest to the text, rounded to two decimals by its exact binary
// value with ties to even, in every locale. Groups of four digits are named none, ten thousand and
// hundred million from the right; those farther left have digits but no name.
std::string MoneyUpperText(std::string_view text);

// Digits with at most one point and at most a leading minus, blanks around them left aside. An
// empty text passes, and so do a sign or a point alone.
bool IsMoneyNumber(std::string_view text);

}  // namespace veygrid
