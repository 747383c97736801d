// What a typed text is, and which data types accept it.
#include "valuetext/CellClass.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "valuetext/CodePage936.h"
#include "valuetext/DateText.h"
#include "valuetext/MultiByte.h"
#include "valuetext/RandomText.h"

namespace veygrid {

void PrintTo(CellClass value, std::ostream* out) {
    *out << static_cast<int>(value);
}

namespace {

constexpr std::uint8_t Auto = 0;
constexpr std::uint8_t String = 4;
constexpr std::uint8_t NumberColumn = 9;

TEST(ClassifyCellText, TheClassesHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(CellClass::Date), 3);
    EXPECT_EQ(static_cast<int>(CellClass::OtherText), 4);
    EXPECT_EQ(static_cast<int>(CellClass::Empty), 5);
    EXPECT_EQ(static_cast<int>(CellClass::Integer), 6);
    EXPECT_EQ(static_cast<int>(CellClass::NegativeInteger), 7);
    EXPECT_EQ(static_cast<int>(CellClass::Decimal), 8);
    EXPECT_EQ(static_cast<int>(CellClass::NegativeDecimal), 9);
    EXPECT_EQ(sizeof(CellClass), 2U);
}

TEST(ClassifyCellText, AnEmptyTextIsEmptyAndBlanksAloneAreNot) {
    EXPECT_EQ(ClassifyCellText(""), CellClass::Empty);
    EXPECT_EQ(ClassifyCellText("   "), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("\t\r\n"), CellClass::OtherText);
}

TEST(ClassifyCellText, ADateIsLookedForFirst) {
    EXPECT_EQ(ClassifyCellText("20030814"), CellClass::Date);
    EXPECT_EQ(ClassifyCellText("20031301"), CellClass::Integer);
    EXPECT_EQ(ClassifyCellText(" 2003-8-5 "), CellClass::Date);
    EXPECT_EQ(ClassifyCellText(CodePage936FromUtf8("2003年8月5日")), CellClass::Date);
    EXPECT_EQ(ClassifyCellText("2003.8.5"), CellClass::Date);
}

TEST(ClassifyCellText, ADateWithItsYearLastIsOtherText) {
    EXPECT_EQ(ClassifyCellText("08/14/2003"), CellClass::OtherText);
}

TEST(ClassifyCellText, ADateBeyondItsMonthFallsThroughToOtherText) {
    EXPECT_EQ(ClassifyCellText("2004-02-29"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("2000-02-29"), CellClass::Date);
    EXPECT_EQ(ClassifyCellText("20040229"), CellClass::Integer);
}

TEST(ClassifyCellText, AMinusMayStandOnlyInFront) {
    EXPECT_EQ(ClassifyCellText("-5"), CellClass::NegativeInteger);
    EXPECT_EQ(ClassifyCellText("-5.5"), CellClass::NegativeDecimal);
    EXPECT_EQ(ClassifyCellText("5-"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("--5"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("- 5"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("+5"), CellClass::OtherText);
}

TEST(ClassifyCellText, ASecondPointIsOtherText) {
    EXPECT_EQ(ClassifyCellText("1.5"), CellClass::Decimal);
    EXPECT_EQ(ClassifyCellText("1.2.3"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("1..2"), CellClass::OtherText);
}

TEST(ClassifyCellText, DigitsAroundThePointMayBeMissing) {
    EXPECT_EQ(ClassifyCellText("."), CellClass::Decimal);
    EXPECT_EQ(ClassifyCellText("-."), CellClass::NegativeDecimal);
    EXPECT_EQ(ClassifyCellText(".5"), CellClass::Decimal);
    EXPECT_EQ(ClassifyCellText("5."), CellClass::Decimal);
}

TEST(ClassifyCellText, OtherBytesMakeOtherText) {
    EXPECT_EQ(ClassifyCellText("1,000"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("1e5"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("1 2"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("abc"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("\xA3\xB1"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("1\x81\x7C"), CellClass::OtherText);
}

TEST(ClassifyCellText, ASignAloneIsANegativeInteger) {
    EXPECT_EQ(ClassifyCellText("-"), CellClass::NegativeInteger);
    EXPECT_EQ(ClassifyCellText(" - "), CellClass::NegativeInteger);
    EXPECT_EQ(ClassifyCellText("-0"), CellClass::NegativeInteger);
}

TEST(ClassifyCellText, IntegersRunToTheEndsOf32Bits) {
    EXPECT_EQ(ClassifyCellText("2147483647"), CellClass::Integer);
    EXPECT_EQ(ClassifyCellText("2147483648"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("-2147483648"), CellClass::NegativeInteger);
    EXPECT_EQ(ClassifyCellText("-2147483649"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("0"), CellClass::Integer);
    EXPECT_EQ(ClassifyCellText("999999999"), CellClass::Integer);
    EXPECT_EQ(ClassifyCellText("3000000000"), CellClass::OtherText);
}

TEST(ClassifyCellText, MoreThanTenDigitsAreJudgedByTheLeadingOnes) {
    EXPECT_EQ(ClassifyCellText("12345678901"), CellClass::Integer);
    EXPECT_EQ(ClassifyCellText("99999999999"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("21474836470"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("21474836469"), CellClass::Integer);
    EXPECT_EQ(ClassifyCellText("-21474836480"), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText("00000000009999999999"), CellClass::Integer);
}

TEST(ClassifyCellText, Text309DigitsLongIsOtherTextAnd308DigitsGoByTheirLeadingOnes) {
    EXPECT_EQ(ClassifyCellText(std::string(309, '1')), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText(std::string(308, '1')), CellClass::Integer);
    EXPECT_EQ(ClassifyCellText(std::string(308, '9')), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText(std::string("-") + std::string(307, '1')),
              CellClass::NegativeInteger);
    EXPECT_EQ(ClassifyCellText(std::string("-") + std::string(308, '1')), CellClass::OtherText);
    EXPECT_EQ(ClassifyCellText(std::string(".") + std::string(307, '9')), CellClass::Decimal);
    EXPECT_EQ(ClassifyCellText(std::string(".") + std::string(308, '9')), CellClass::OtherText);
}

TEST(ClassifyCellText, TheLengthIsThatOfTheTrimmedText) {
    EXPECT_EQ(ClassifyCellText(std::string("  ") + std::string(308, '1') + "  "),
              CellClass::Integer);
    EXPECT_EQ(ClassifyCellText(std::string(400, ' ') + "5"), CellClass::Integer);
}

TEST(DataTypeAccepts, AnIntegerCellRefusesADateAndAcceptsEightOtherDigits) {
    EXPECT_FALSE(DataTypeAccepts(IntegerDataType, "20030814"));
    EXPECT_TRUE(DataTypeAccepts(IntegerDataType, "20031301"));
}

TEST(DataTypeAccepts, AFloatCellRefusesAnIntegerBeyond32BitsAndAcceptsItWithAPoint) {
    EXPECT_FALSE(DataTypeAccepts(FloatDataType, "3000000000"));
    EXPECT_TRUE(DataTypeAccepts(FloatDataType, "3000000000.5"));
    EXPECT_TRUE(DataTypeAccepts(FloatDataType, "-5"));
    EXPECT_TRUE(DataTypeAccepts(FloatDataType, "5"));
    EXPECT_TRUE(DataTypeAccepts(FloatDataType, "-.5"));
    EXPECT_FALSE(DataTypeAccepts(FloatDataType, "20030814"));
    EXPECT_FALSE(DataTypeAccepts(FloatDataType, "abc"));
}

TEST(DataTypeAccepts, AnIntegerCellAcceptsALoneMinusAndLeadingZeroesAndRefusesADecimal) {
    EXPECT_TRUE(DataTypeAccepts(IntegerDataType, "-"));
    EXPECT_FALSE(DataTypeAccepts(IntegerDataType, "1.5"));
    EXPECT_TRUE(DataTypeAccepts(IntegerDataType, "007"));
}

TEST(DataTypeAccepts, ADateCellAcceptsStrictDatesOnly) {
    EXPECT_TRUE(DataTypeAccepts(DateDataType, "2003-8-5"));
    EXPECT_TRUE(DataTypeAccepts(DateDataType, "20030805"));
    EXPECT_FALSE(DataTypeAccepts(DateDataType, "2003-8"));
    EXPECT_FALSE(DataTypeAccepts(DateDataType, "2004-02-29"));
    EXPECT_TRUE(DataTypeAccepts(DateDataType, "2000-02-29"));
}

TEST(DataTypeAccepts, BlanksAloneAreRefusedInAnIntegerCellAndAnEmptyTextIsAcceptedEverywhere) {
    EXPECT_FALSE(DataTypeAccepts(IntegerDataType, "  "));
    for (int dataType = 0; dataType < 256; ++dataType) {
        EXPECT_TRUE(DataTypeAccepts(static_cast<std::uint8_t>(dataType), "")) << dataType;
    }
}

TEST(DataTypeAccepts, EveryOtherDataTypeAcceptsAnything) {
    for (int dataType = 0; dataType < 256; ++dataType) {
        const bool checks = dataType >= IntegerDataType && dataType <= DateDataType;
        EXPECT_EQ(DataTypeAccepts(static_cast<std::uint8_t>(dataType), "abc"), !checks) << dataType;
    }
    EXPECT_TRUE(DataTypeAccepts(Auto, " "));
    EXPECT_TRUE(DataTypeAccepts(String, "\x81\xB0\xA1"));
    EXPECT_TRUE(DataTypeAccepts(NumberColumn, "abc"));
}

// The rules as one reads them aloud, with padded texts compared.
CellClass SlowClass(std::string text) {
    if (text.empty()) {
        return CellClass::Empty;
    }
    text = std::string(Trim(text));
    if (text.empty()) {
        return CellClass::OtherText;
    }
    if (IsStrictDate(text)) {
        return CellClass::Date;
    }
    const std::size_t minus = text.rfind('-');
    const std::size_t point = text.find('.');
    if (text.size() > 308 || (minus != std::string::npos && minus > 0) ||
        point != text.rfind('.')) {
        return CellClass::OtherText;
    }
    const bool negative = minus == 0;
    std::string rest = negative ? text.substr(1) : text;
    if (rest.find_first_not_of("0123456789.") != std::string::npos) {
        return CellClass::OtherText;
    }
    if (point != std::string::npos) {
        return negative ? CellClass::NegativeDecimal : CellClass::Decimal;
    }
    const std::string zeroes(rest.size() < 10 ? 10 - rest.size() : 0, '0');
    rest = zeroes + rest;
    if (rest < "0000000000" || rest > (negative ? "2147483648" : "2147483647")) {
        return CellClass::OtherText;
    }
    return negative ? CellClass::NegativeInteger : CellClass::Integer;
}

TEST(ClassifyCellText, AgreesWithTheSlowReading) {
    RandomText random(14);
    for (int round = 0; round < 200000; ++round) {
        std::string text;
        switch (round % 4) {
            case 0:
                text = random.Bytes(16);
                break;
            case 1:
                text = random.Of("0123456789", 13);
                break;
            case 2:
                text = random.Of("0123456789.- ", 12);
                break;
            default:
                text = std::string(random.Below(2) == 0 ? "-" : "") + "21474836" +
                       random.Of("0123456789", 4);
                break;
        }
        ASSERT_EQ(ClassifyCellText(text), SlowClass(text)) << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace veygrid
