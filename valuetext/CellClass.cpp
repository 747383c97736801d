// What a typed text is, and which data types of a cell accept it.
#include "valuetext/CellClass.h"

#include <cstddef>

#include "valuetext/DateText.h"
#include "valuetext/DigitSearch.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::size_t LongestNumber = 308;  // bytes, sign and point included

// The range is that of 32 bits, but it is decided by comparing texts on purpose: a number of more
// than ten digits is judged by its leading ones, so that 12345678901 is in and 99999999999 is out.
// Shorter ones, no digit at all included, count as filled up with zeroes on the left.
bool IsIntegerInRange(std::string_view digits, bool negative) {
    const std::string_view limit = negative ? "2147483648" : "2147483647";
    return digits.size() < limit.size() || digits <= limit;
}

CellClass ClassifyInteger(std::string_view digits, bool negative) {
    if (!IsAllDigits(digits) || !IsIntegerInRange(digits, negative)) {
        return CellClass::OtherText;
    }
    return negative ? CellClass::NegativeInteger : CellClass::Integer;
}

// Digits around the point may be missing, on either side or on both.
CellClass ClassifyDecimal(std::string_view number, std::size_t point, bool negative) {
    if (!IsAllDigits(number.substr(0, point)) || !IsAllDigits(number.substr(point + 1))) {
        return CellClass::OtherText;
    }
    return negative ? CellClass::NegativeDecimal : CellClass::Decimal;
}

CellClass ClassifyNumber(std::string_view text) {
    const bool negative = text.front() == '-';
    const std::string_view number = text.substr(negative ? 1 : 0);
    const std::size_t point = number.find('.');
    return point == NotFound ? ClassifyInteger(number, negative)
                             : ClassifyDecimal(number, point, negative);
}

}  // namespace

CellClass ClassifyCellText(std::string_view text) {
    if (text.empty()) {
        return CellClass::Empty;
    }
    const std::string_view trimmed = Trim(text);
    if (trimmed.empty()) {
        return CellClass::OtherText;
    }
    if (IsStrictDate(trimmed)) {
        return CellClass::Date;
    }
    return trimmed.size() > LongestNumber ? CellClass::OtherText : ClassifyNumber(trimmed);
}

bool DataTypeAccepts(std::uint8_t dataType, std::string_view text) {
    const CellClass found = ClassifyCellText(text);
    if (found == CellClass::Empty) {
        return true;
    }
    const bool integer = found == CellClass::Integer || found == CellClass::NegativeInteger;
    const bool decimal = found == CellClass::Decimal || found == CellClass::NegativeDecimal;
    switch (dataType) {
        case IntegerDataType:
            return integer;
        case FloatDataType:
            return integer || decimal;
        case DateDataType:
            return found == CellClass::Date;
        default:
            return true;
    }
}

}  // namespace veygrid
