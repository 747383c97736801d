// What a form object is bound to: a named parameter, a cell, or nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace veygrid {

// The text holds both "%<" and ">%", in whatever order.
bool IsParamBound(std::string_view bindSource);
// The text is neither empty nor parameter-bound. It need not name a cell.
bool IsCellBound(std::string_view bindSource);
// What stands between the first "%<" and the first ">%" behind it, blanks included and perhaps
// empty; it lies inside the text. Nothing when no closing marker lies behind the opening one.
std::optional<std::string_view> ParamNameOf(std::string_view bindSource);

// Reads a cell such as R3C2, in capital or small letters. Row and column are the numbers behind
// the first R and the first C, 0 for a letter that is absent or has no number behind it. False,
// with -1 in both, for a text with neither letter. A null target is left out.
bool ParseBindSource(std::string_view text, std::int32_t* row, std::int32_t* col);

}  // namespace veygrid
