// Cells and ranges as users write them: R3C2, R1C1:R9C4, R5, C2:C4.
#include "apps/grd/CellAddress.h"

#include <charconv>

#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

// Takes the letter and the number behind it off the front; 0 when the letter is not there, nothing
// when no number from 1 on follows it.
std::optional<std::int32_t> TakeNumber(std::string_view& text, char letter) {
    if (text.empty() || ToUpperAscii(text.front()) != letter) {
        return 0;
    }
    std::int32_t number = 0;
    const char* const begin = text.data() + 1;
    const auto [end, error] = std::from_chars(begin, text.data() + text.size(), number);
    if (error != std::errc{} || number < 1) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

// A cell, or with one number 0 a row or a column.
std::optional<CellPos> ParseCorner(std::string_view text) {
    const auto row = TakeNumber(text, 'R');
    const auto col = row ? TakeNumber(text, 'C') : std::nullopt;
    if (!col || !text.empty() || (*row == 0 && *col == 0)) {
        return std::nullopt;
    }
    return CellPos{*row, *col};
}

}  // namespace

std::optional<CellPos> ParseCell(std::string_view text) {
    const auto cell = ParseCorner(text);
    return cell && cell->Row > 0 && cell->Col > 0 ? cell : std::nullopt;
}

std::optional<CellRange> ParseRange(std::string_view text) {
    const std::size_t colon = text.find(':');
    const auto first = ParseCorner(text.substr(0, colon));
    const auto second =
        colon == std::string_view::npos ? first : ParseCorner(text.substr(colon + 1));
    if (!first || !second || (first->Row == 0) != (second->Row == 0) ||
        (first->Col == 0) != (second->Col == 0)) {
        return std::nullopt;
    }
    return CellRange{first->Row, first->Col, second->Row, second->Col}.Normalized();
}

std::string CellName(CellPos pos) {
    if (pos == CellPos{}) {
        return "the sheet";
    }
    std::string name;
    if (pos.Row != 0) {
        name.append("R").append(std::to_string(pos.Row));
    }
    if (pos.Col != 0) {
        name.append("C").append(std::to_string(pos.Col));
    }
    return name;
}

}  // namespace veygrid
