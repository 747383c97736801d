// Numbers as Chinese capital money text, for vouchers and cheques.
#include "valuetext/MoneyText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::size_t GroupLength = 4;
constexpr std::size_t LongestWrittenInteger = 12;  // digits in front of a written point

// The greatest double has max_exponent10 + 1 digits in front of its point.
using AmountBuffer = std::array<char, std::numeric_limits<double>::max_exponent10 + 1 + 3>;

struct MoneyWords {
    std::array<std::string, 10> digits;
    std::array<std::string, GroupLength> places;  // by the count of digits right in the group
    std::array<std::string, 3> groups;            // by the count of groups right
    std::string yuan, jiao, fen, negative;
};

const MoneyWords& Words() {
    const auto word = [](std::u16string_view text) { return CodePage936FromUtf16(text); };
    static const MoneyWords words{{word(u"零"), word(u"壹"), word(u"贰"), word(u"叁"), word(u"肆"),
                                   word(u"伍"), word(u"陆"), word(u"柒"), word(u"捌"), word(u"玖")},
                                  {"", word(u"十"), word(u"百"), word(u"千")},
                                  {"", word(u"万"), word(u"亿")},
                                  word(u"元"),
                                  word(u"角"),
                                  word(u"分"),
                                  word(u"负")};
    return words;
}

const std::string& DigitWord(char digit) {
    return Words().digits[static_cast<std::size_t>(digit - '0')];
}

// The number, without sign and leading zeroes, as digits with two decimals; empty when no double
// holds it. What is no number, such as no text at all, counts as 0.
std::string_view PrintAmount(std::string_view number, AmountBuffer& buffer) {
    double value = 0;
    const std::errc error = std::from_chars(number.data(), number.data() + number.size(), value).ec;
    const bool tooGreat = error == std::errc::result_out_of_range && number.front() != '.';
    if (tooGreat || std::isinf(value)) {
        return {};
    }
    const auto printed = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed, 2);
    return {buffer.data(), printed.ptr};
}

// A run of zeroes in front of another digit of its group becomes one zero; zeroes at the end of a
// group fall away. A group keeps its name even when all its digits are zero, on purpose.
void AppendInteger(std::string& out, std::string_view digits) {
    const MoneyWords& words = Words();
    bool zeroPending = false;
    for (std::size_t right = digits.size(); right-- > 0;) {
        const char digit = digits[digits.size() - 1 - right];
        const std::size_t place = right % GroupLength;
        if (digit != '0') {
            if (zeroPending) {
                out += DigitWord('0');
            }
            out.append(DigitWord(digit)).append(words.places[place]);
        }
        zeroPending = digit == '0' && place > 0;
        if (place == 0 && right / GroupLength < words.groups.size()) {
            out += words.groups[right / GroupLength];
        }
    }
}

std::string AmountText(std::string_view amount, bool negative) {
    const MoneyWords& words = Words();
    const std::size_t point = amount.size() - 3;
    std::string out;
    out.reserve(4 * amount.size() + 16);
    if (negative) {
        out += words.negative;
    }
    if (amount.front() == '0') {
        out += DigitWord('0');
    } else {
        AppendInteger(out, amount.substr(0, point));
    }
    out.append(words.yuan);
    out.append(DigitWord(amount[point + 1])).append(words.jiao);
    out.append(DigitWord(amount[point + 2])).append(words.fen);
    return out;
}

}  // namespace

std::string MoneyUpperText(std::string_view text) {
    std::string_view number = TrimRightMark(Trim(text), '.');
    if (number.empty() || !IsMoneyNumber(number)) {
        return {};
    }
    const bool negative = number.front() == '-';
    number.remove_prefix(negative ? 1 : 0);
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    const std::size_t point = number.find('.');
    if (point != NotFound && point > LongestWrittenInteger) {
        return {};
    }
    AmountBuffer buffer;
    const std::string_view amount = PrintAmount(number, buffer);
    return amount.empty() ? std::string() : AmountText(amount, negative);
}

bool IsMoneyNumber(std::string_view text) {
    const std::string_view number = Trim(text);
    const std::string_view unsignedPart = number.substr(number.starts_with('-') ? 1 : 0);
    return std::all_of(unsignedPart.begin(), unsignedPart.end(),
                       [](char c) { return IsAsciiDigit(c) || c == '.'; }) &&
           CountChar(unsignedPart, '.') <= 1;
}

}  // namespace veygrid
