// What a form object is bound to: a named parameter, a cell, or nothing.
#include "valuetext/BindSource.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "valuetext/AtoI.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::string_view ParamOpen = "%<";
constexpr std::string_view ParamClose = ">%";

std::size_t FindLetter(std::string_view text, char capital) {
    const char small = static_cast<char>(capital - 'A' + 'a');
    return std::min(FindChar(text, capital), FindChar(text, small));
}

std::int32_t NumberBehind(std::string_view text, std::size_t letter) {
    return letter == NotFound ? 0 : AtoI(text.substr(letter + 1));
}

void Store(std::int32_t* target, std::int32_t value) {
    if (target != nullptr) {
        *target = value;
    }
}

}  // namespace

bool IsParamBound(std::string_view bindSource) {
    return FindText(bindSource, ParamOpen) != NotFound &&
           FindText(bindSource, ParamClose) != NotFound;
}

bool IsCellBound(std::string_view bindSource) {
    return !bindSource.empty() && !IsParamBound(bindSource);
}

std::optional<std::string_view> ParamNameOf(std::string_view bindSource) {
    const std::size_t open = FindText(bindSource, ParamOpen);
    if (open == NotFound) {
        return std::nullopt;
    }
    const std::size_t start = open + ParamOpen.size();
    const std::size_t close = FindText(bindSource, ParamClose, start);
    if (close == NotFound) {
        return std::nullopt;
    }
    return bindSource.substr(start, close - start);
}

bool ParseBindSource(std::string_view text, std::int32_t* row, std::int32_t* col) {
    const std::size_t rowLetter = FindLetter(text, 'R');
    const std::size_t colLetter = FindLetter(text, 'C');
    const bool found = rowLetter != NotFound || colLetter != NotFound;
    Store(row, found ? NumberBehind(text, rowLetter) : -1);
    Store(col, found ? NumberBehind(text, colLetter) : -1);
    return found;
}

}  // namespace veygrid
