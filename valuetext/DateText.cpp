// Dates in text: the tolerant reader that rewrites a shown date, and the strict test of typed text.
#include "valuetext/DateText.h"

#include <algorithm>
#include <cstddef>

#include "valuetext/AtoI.h"
#include "valuetext/DigitSearch.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::string_view FirstDay = "01";
constexpr std::size_t YearLength = 4;

struct DateNumbers {
    int year;
    int month;
    int day;
};

// The parts of a date that begins with its year: the inner one stands next to the year, the outer
// one, which may be missing, behind it.
struct DateParts {
    std::string_view year;
    std::string_view inner;
    std::string_view outer;
};

// Works on bytes. The second separator is taken to be as wide as the first, whatever stands there,
// and the first byte of the outer part is not looked at: a part that is no number fails later.
std::optional<DateParts> SplitBehindYear(std::string_view text) {
    const std::string_view year = text.substr(0, YearLength);
    const std::size_t inner = FindDigitFrom(text, YearLength);
    const std::size_t separator = inner - YearLength;
    if (inner == NotFound || separator < 1 || separator > 2) {
        return std::nullopt;
    }
    const std::size_t innerEnd = FindNonDigitFrom(text, inner + 1);
    if (innerEnd == NotFound) {
        return DateParts{year, text.substr(inner), {}};
    }
    if (innerEnd - inner > 2 || innerEnd + separator > text.size()) {
        return std::nullopt;
    }
    const std::string_view rest = text.substr(innerEnd + separator);
    const std::size_t outerLength = std::min(FindNonDigitFrom(rest, 1), rest.size());
    if (outerLength > 2 || rest.size() - outerLength > 2) {
        return std::nullopt;
    }
    return DateParts{year, text.substr(inner, innerEnd - inner), rest.substr(0, outerLength)};
}

std::optional<DateNumbers> SplitYearFirst(std::string_view text) {
    const auto parts = SplitBehindYear(text);
    if (!parts) {
        return std::nullopt;
    }
    return DateNumbers{AtoI(parts->year), AtoI(parts->inner),
                       AtoI(parts->outer.empty() ? FirstDay : parts->outer)};
}

int ReversedNumber(std::string_view text) {
    return AtoI(std::string(text.rbegin(), text.rend()));
}

// Month, day, year: read as a date with the year first on a copy with its bytes reversed. Here a
// missing month reads as 0.
std::optional<DateNumbers> SplitYearLast(std::string_view text) {
    const std::string reversed(text.rbegin(), text.rend());
    const auto parts = SplitBehindYear(reversed);
    if (!parts) {
        return std::nullopt;
    }
    return DateNumbers{ReversedNumber(parts->year), ReversedNumber(parts->outer),
                       ReversedNumber(parts->inner)};
}

// Eight digits, or six for the first day of a month.
DateNumbers SplitDigits(std::string_view text) {
    return {AtoI(text.substr(0, 4)), AtoI(text.substr(4, 2)),
            AtoI(text.size() == 8 ? text.substr(6) : FirstDay)};
}

// The first form that applies decides; a text that then fails is tried in no other.
std::optional<DateNumbers> SplitDate(std::string_view text) {
    if (text.size() < 6) {
        return std::nullopt;
    }
    if ((text.size() == 8 || text.size() == 6) && IsAllDigits(text)) {
        return SplitDigits(text);
    }
    if (IsAllDigits(text.substr(0, YearLength))) {
        return SplitYearFirst(text);
    }
    return IsAllDigits(text.substr(text.size() - YearLength)) ? SplitYearLast(text) : std::nullopt;
}

void CutTimeOfDay(std::string& text) {
    std::string_view date = Trim(text);
    const std::size_t blank = FindLastChar(date, ' ');
    if (blank != NotFound) {
        date = TrimRight(date.substr(0, blank));
    }
    if (date.size() != text.size()) {
        const auto start = static_cast<std::size_t>(date.data() - text.data());
        text.resize(start + date.size());
        text.erase(0, start);
    }
}

std::string Padded(int number, std::size_t width) {
    std::string digits = std::to_string(number);
    digits.insert(0, width - std::min(width, digits.size()), '0');
    return digits;
}

// False, with nothing changed, when the token does not occur.
bool ReplaceToken(std::string& text, std::string_view token, std::string_view value) {
    std::size_t found = FindText(text, token);
    if (found == NotFound) {
        return false;
    }
    std::string result;
    std::size_t done = 0;
    for (; found != NotFound; found = FindText(text, token, done)) {
        result.append(text, done, found - done).append(value);
        done = found + token.size();
    }
    text = result.append(text, done);
    return true;
}

std::string PrintDate(std::string_view format, const DateNumbers& date) {
    std::string text = UpperCase(Trim(format));
    if (!ReplaceToken(text, "YYYY", Padded(date.year, 4))) {
        ReplaceToken(text, "YY", Padded(date.year % 100, 2));
    }
    if (!ReplaceToken(text, "MM", Padded(date.month, 2))) {
        ReplaceToken(text, "M", Padded(date.month, 1));
    }
    if (!ReplaceToken(text, "DD", Padded(date.day, 2))) {
        ReplaceToken(text, "D", Padded(date.day, 1));
    }
    return text;
}

// Only years that 400 divides are leap years here, and not those of the calendar. This is on
// purpose: what counts as a date in existing sheets must not change.
int LastDayOfMonth(int year, int month) {
    if (month == 2) {
        return year % 400 == 0 ? 29 : 28;
    }
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

}  // namespace

bool IsDateInLimits(int year, int month, int day) {
    return year >= 1000 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
           day <= LastDayOfMonth(year, month);
}

bool FormatDateText(std::string& text, std::optional<std::string_view> format) {
    CutTimeOfDay(text);
    const auto date = SplitDate(text);
    if (!date || !IsDateInLimits(date->year, date->month, date->day)) {
        return false;
    }
    if (format) {
        text = PrintDate(*format, *date);
    }
    return true;
}

bool IsStrictDate(std::string_view text) {
    if (text.size() < 8) {
        return false;
    }
    if (text.size() == 8 && IsAllDigits(text)) {
        const DateNumbers date = SplitDigits(text);
        return IsDateInLimits(date.year, date.month, date.day);
    }
    // A missing day reads as 0 and fails.
    const auto parts = SplitBehindYear(text);
    return parts && IsAllDigits(parts->year) && IsAllDigits(parts->outer) &&
           IsDateInLimits(AtoI(parts->year), AtoI(parts->inner), AtoI(parts->outer));
}

}  // namespace veygrid
