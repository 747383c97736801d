// How a show format turns stored text into shown text.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace veygrid {

enum class ShowKind { Plain, ComboText, Date, Money };

// The formats that dialogs offer, in their order, in code page 936. The four with digits are only
// names: they show text as stored.
const std::array<std::string, 10>& StandardShowFormats();

// What the format asks for, whatever the case of its letters: the whole format "[CB_TEXT]" for the
// text of a combo box; "YY" and "M" anywhere in it for a date, even beside the money marker;
// "[RMB_UPPER]" anywhere in it for money; all else shows text as stored.
ShowKind ShowKindOf(std::string_view showFormat);

// The shown form of a stored text. A text that is no date comes back trimmed and cut at its last
// blank from a date format, and one that is no number becomes empty under a money format. Text of a
// combo box is the caller's to find; without one, the text comes back unchanged.
std::string ShowText(std::string text, std::string_view showFormat);

}  // namespace veygrid
