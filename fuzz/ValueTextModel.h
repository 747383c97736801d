// Dates, classes of typed text and money text told literally and slowly, to hold the fast routines
// against.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid::model {

inline bool Digit(char c) {
    return c >= '0' && c <= '9';
}

inline bool AllDigits(const std::string& text) {
    return std::all_of(text.begin(), text.end(), Digit);
}

inline int FindDigit(const std::string& text, int start) {
    for (int i = start; i < static_cast<int>(text.size()); ++i) {
        if (Digit(text[static_cast<std::size_t>(i)])) {
            return i;
        }
    }
    return -1;
}

inline int FindNonDigit(const std::string& text, int start) {
    for (int i = start; i < static_cast<int>(text.size()); ++i) {
        if (!Digit(text[static_cast<std::size_t>(i)])) {
            return i;
        }
    }
    return -1;
}

inline std::string Piece(const std::string& text, int start, int end) {
    return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

struct Date {
    std::string year, month, day;
};

inline bool InLimits(int year, int month, int day) {
    static constexpr std::array Days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (year < 1000 || year > 9999 || month < 1 || month > 12) {
        return false;
    }
    const bool leapDay = month == 2 && year % 400 == 0;
    return day >= 1 && day <= Days[static_cast<std::size_t>(month - 1)] + (leapDay ? 1 : 0);
}

// A date with the year first; on a reversed copy the year is last and nothing may be missing.
inline std::optional<Date> SplitAfterYear(const std::string& text, bool mayLackDay) {
    const int length = static_cast<int>(text.size());
    const int p = FindDigit(text, 4);
    const int w = p - 4;
    if (p < 0 || w < 1 || w > 2) {
        return std::nullopt;
    }
    const int e = FindNonDigit(text, p + 1);
    if (e < 0) {
        return mayLackDay ? std::optional(Date{Piece(text, 0, 4), Piece(text, p, length), "01"})
                          : std::nullopt;
    }
    if (e - p > 2) {
        return std::nullopt;
    }
    const int d = e + w;
    if (d == length && mayLackDay) {
        return Date{Piece(text, 0, 4), Piece(text, p, e), "01"};
    }
    const int found = FindNonDigit(text, d + 1);
    const int q = found < 0 ? length : found;
    if (q - d < 1 || q - d > 2 || length - q > 2) {
        return std::nullopt;
    }
    return Date{Piece(text, 0, 4), Piece(text, p, e), Piece(text, d, q)};
}

inline std::string Reversed(const std::string& text) {
    return {text.rbegin(), text.rend()};
}

inline std::optional<Date> SplitDate(const std::string& text) {
    const std::size_t length = text.size();
    if (length < 6) {
        return std::nullopt;
    }
    if (AllDigits(text) && length == 8) {
        return Date{text.substr(0, 4), text.substr(4, 2), text.substr(6)};
    }
    if (AllDigits(text) && length == 6) {
        return Date{text.substr(0, 4), text.substr(4), "01"};
    }
    if (AllDigits(text.substr(0, 4))) {
        return SplitAfterYear(text, true);
    }
    if (!AllDigits(text.substr(length - 4))) {
        return std::nullopt;
    }
    const auto split = SplitAfterYear(Reversed(text), false);
    if (!split) {
        return std::nullopt;
    }
    return Date{Reversed(split->year), Reversed(split->day), Reversed(split->month)};
}

// Number of places where the token stands, searched as it is replaced.
inline int Replace(std::string& text, const std::string& token, const std::string& value) {
    int count = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (text.compare(i, token.size(), token) == 0) {
            text.replace(i, token.size(), value);
            i += value.size();
            ++count;
        } else {
            i += CharLength(text, i);
        }
    }
    return count;
}

inline std::string Print(const char* form, int number) {
    std::array<char, 32> buffer{};
    std::snprintf(buffer.data(), buffer.size(), form, number);
    return buffer.data();
}

inline bool FormatDate(std::string& text, const std::string& format) {
    text = Trim(text);
    const std::size_t blank = text.rfind(' ');
    if (blank != std::string::npos && blank > 0) {
        text = TrimRight(std::string(text, 0, blank));
    }
    const auto date = SplitDate(text);
    if (!date) {
        return false;
    }
    const int year = std::atoi(date->year.c_str());
    const int month = std::atoi(date->month.c_str());
    const int day = std::atoi(date->day.c_str());
    if (!InLimits(year, month, day)) {
        return false;
    }
    std::string shown = UpperCase(Trim(format));
    if (Replace(shown, "YYYY", Print("%04d", year)) == 0) {
        Replace(shown, "YY", date->year.substr(2));
    }
    if (Replace(shown, "MM", Print("%02d", month)) == 0) {
        Replace(shown, "M", Print("%d", month));
    }
    if (Replace(shown, "DD", Print("%02d", day)) == 0) {
        Replace(shown, "D", Print("%d", day));
    }
    text = shown;
    return true;
}

inline bool StrictDate(const std::string& text) {
    const int length = static_cast<int>(text.size());
    Date date;
    if (length < 8) {
        return false;
    }
    if (length == 8 && AllDigits(text)) {
        date = {text.substr(0, 4), text.substr(4, 2), text.substr(6)};
    } else {
        const int p = FindDigit(text, 4);
        const int w = p - 4;
        const int e = FindNonDigit(text, p + 1);
        if (p < 0 || w > 2 || e - p < 1 || e - p > 2) {
            return false;
        }
        const int d = e + w;
        const int found = FindNonDigit(text, d + 1);
        const int q = found < 0 ? length : found;
        if (q - d < 1 || q - d > 2 || length - q > 2) {
            return false;
        }
        date = {text.substr(0, 4), Piece(text, p, e), Piece(text, d, q)};
    }
    return AllDigits(date.year + date.month + date.day) &&
           InLimits(std::atoi(date.year.c_str()), std::atoi(date.month.c_str()),
                    std::atoi(date.day.c_str()));
}

inline int Classify(const std::string& typed) {
    if (typed.empty()) {
        return 5;
    }
    const std::string text(Trim(typed));
    if (text.empty()) {
        return 4;
    }
    if (StrictDate(text)) {
        return 3;
    }
    const std::size_t minus = text.rfind('-');
    if (text.size() > 308 || (minus != std::string::npos && minus > 0) ||
        text.find('.') != text.rfind('.')) {
        return 4;
    }
    const bool negative = minus == 0;
    std::string digits = text.substr(negative ? 1 : 0);
    const bool decimal = digits.find('.') != std::string::npos;
    if (!std::all_of(digits.begin(), digits.end(), [](char c) { return Digit(c) || c == '.'; })) {
        return 4;
    }
    if (decimal) {
        return negative ? 9 : 8;
    }
    while (digits.size() < 10) {
        digits.insert(0, 1, '0');
    }
    if (digits < "0000000000" || digits > (negative ? "2147483648" : "2147483647")) {
        return 4;
    }
    return negative ? 7 : 6;
}

inline bool MoneyNumber(const std::string& given) {
    const std::string text(Trim(given));
    const std::size_t minus = text.find('-');
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return Digit(c) || c == '.' || c == '-'; }) &&
           std::count(text.begin(), text.end(), '.') <= 1 &&
           std::count(text.begin(), text.end(), '-') <= 1 &&
           (minus == std::string::npos || minus == 0);
}

// The integer digits with their units, from the right; groups beyond the third have no name.
inline std::string MoneyGroups(std::string digits) {
    static const std::array<std::string, 4> Places = {
        "", CodePage936FromUtf8("十"), CodePage936FromUtf8("百"), CodePage936FromUtf8("千")};
    static const std::vector<std::string> Groups = {"", CodePage936FromUtf8("万"),
                                                    CodePage936FromUtf8("亿")};
    std::string result;
    for (std::size_t group = 0; !digits.empty(); ++group) {
        const std::size_t cut = digits.size() < 4 ? 0 : digits.size() - 4;
        const std::string four = digits.substr(cut);
        digits.erase(cut);
        std::string named;
        for (std::size_t i = 0; i < four.size(); ++i) {
            named += four[i];
            named += four[i] == '0' ? "" : Places[four.size() - 1 - i];
        }
        while (named.ends_with('0')) {
            named.pop_back();
        }
        result = named + (group < Groups.size() ? Groups[group] : "") + result;
    }
    return result;
}

// No value where nothing is settled: a number beyond every double.
inline std::optional<std::string> Money(const std::string& given) {
    std::string text(Trim(given));
    while (text.ends_with('.')) {
        text.pop_back();
    }
    if (text.empty() || !MoneyNumber(text)) {
        return "";
    }
    const bool negative = text.front() == '-';
    text.erase(0, negative ? 1 : 0);
    text.erase(0, std::min(text.find_first_not_of('0'), text.size()));
    const std::size_t point = text.find('.');
    if (point != std::string::npos && point > 12) {
        return "";
    }
    const double value = std::atof(text.c_str());
    if (std::isinf(value)) {
        return std::nullopt;
    }
    std::array<char, 400> printed{};
    std::snprintf(printed.data(), printed.size(), "%.2f", value);
    const std::string amount = printed.data();
    const std::size_t integer = amount.find('.');
    // The amount 0 has one digit, which falls away like every zero at the end of a group.
    std::string yuan = MoneyGroups(amount.substr(0, integer));
    yuan = yuan.empty() ? "0" : yuan;
    Replace(yuan, "00", "0");
    Replace(yuan, "00", "0");
    std::string result = yuan + CodePage936FromUtf8("元") + amount[integer + 1] +
                         CodePage936FromUtf8("角") + amount[integer + 2] +
                         CodePage936FromUtf8("分");
    static const std::array<std::string, 10> Digits = {"零", "壹", "贰", "叁", "肆",
                                                       "伍", "陆", "柒", "捌", "玖"};
    for (std::size_t digit = 0; digit < Digits.size(); ++digit) {
        Replace(result, std::to_string(digit), CodePage936FromUtf8(Digits[digit]));
    }
    return (negative ? CodePage936FromUtf8("负") : "") + result;
}

}  // namespace veygrid::model
