// Dates in text: the tolerant reader that rewrites a shown date, and the strict test of typed text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace veygrid {

// Years 1000 to 9999, months 1 to 12, days up to the end of the month. February has 29 days only
// in years that 400 divides.
bool IsDateInLimits(int year, int month, int day);

// Reads a date leniently and prints it by `format`: year first with separators of one or two
// bytes (the day may be missing), month, day and year last, or eight or six digits.
//
// `text` is trimmed and cut at its last blank in any case, so that a time of day falls away, and
// is left so when it is no date: the result is then false. Without a format nothing else happens.
//
// Tokens of the format, in capital or small letters: YYYY or, where it does not occur, YY; MM or M;
// DD or D. Every occurrence of the token is replaced; all else, "%" included, stands for itself,
// with the letters a to z made capital. The result is at most twice as long as the format.
bool FormatDateText(std::string& text, std::optional<std::string_view> format);

// True for what may be typed as a date: eight digits, or year, month and day in this order with
// separators of one or two bytes. Nothing is trimmed.
bool IsStrictDate(std::string_view text);

}  // namespace veygrid
