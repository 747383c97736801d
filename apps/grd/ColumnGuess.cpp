// What kind of values a column of imported text holds, and how wide they are.
#include "apps/grd/ColumnGuess.h"

#include <string>

#include "valuetext/DateText.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::size_t MostDigits = 15;
// From 20030814 to 2003年08月14日.
constexpr std::size_t ShortestDate = 8;
constexpr std::size_t LongestDate = 14;

}  // namespace

ColumnType ColumnGuess::Type() const {
    return !m_seen    ? ColumnType::Unknown
           : m_date   ? ColumnType::Date
           : m_number ? ColumnType::Number
                      : ColumnType::String;
}

bool ColumnGuess::LooksLikeNumber(std::string_view text) {
    if (text.front() == '-') {
        text.remove_prefix(1);
    }
    std::size_t digits = 0;
    std::size_t points = 0;
    for (const char c : text) {
        digits += IsAsciiDigit(c) ? 1U : 0U;
        points += c == '.' ? 1U : 0U;
    }
    const bool code = text.size() > 1 && text[0] == '0' && text[1] != '.';
    return digits > 0 && digits <= MostDigits && points <= 1 && digits + points == text.size() &&
           !code;
}

bool ColumnGuess::LooksLikeDate(std::string_view text) {
    if (text.size() < ShortestDate || text.size() > LongestDate || !IsAsciiDigit(text[0])) {
        return false;
    }
    if (IsStrictDate(text)) {
        return true;
    }
    // The sheet itself takes most of these days for no dates; a column of dates is one all the
    // same.
    std::string dayBefore(text);
    const std::size_t day = dayBefore.rfind("29");
    if (day == std::string::npos) {
        return false;
    }
    dayBefore[day + 1] = '8';
    return IsStrictDate(dayBefore);
}

}  // namespace veygrid
