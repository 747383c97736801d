// Numbers as capital money text, held against tables and a slow rendering by the letter.
#include "valuetext/MoneyText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"
#include "valuetext/RandomText.h"

namespace veygrid {
namespace {

std::string Money(std::string_view text) {
    return Utf8FromCodePage936(MoneyUpperText(text));
}

TEST(MoneyUpperText, WorkedExamples) {
    const std::vector<std::pair<std::string_view, std::string_view>> rows{
        {"0", "零元零角零分"},
        {"0.05", "零元零角伍分"},
        {"0.5", "零元伍角零分"},
        {"10", "壹十元零角零分"},
        {"10.5", "壹十元伍角零分"},
        {"11", "壹十壹元零角零分"},
        {"100", "壹百元零角零分"},
        {"101", "壹百零壹元零角零分"},
        {"110", "壹百壹十元零角零分"},
        {"1001", "壹千零壹元零角零分"},
        {"1010", "壹千零壹十元零角零分"},
        {"10000", "壹万元零角零分"},
        {"10100", "壹万零壹百元零角零分"},
        {"100001", "壹十万零壹元零角零分"},
        {"100000000", "壹亿万元零角零分"},
        {"100000001", "壹亿万零壹元零角零分"},
        {"-5.5", "负伍元伍角零分"},
        {"-0", "负零元零角零分"},
        {"123456789012.34", "壹千贰百叁十肆亿伍千陆百柒十捌万玖千零壹十贰元叁角肆分"},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(Money(text), expected) << text;
    }
}

TEST(MoneyUpperText, EveryDigitHasItsCharacter) {
    EXPECT_EQ(Money("1234567890.12"), "壹十贰亿叁千肆百伍十陆万柒千捌百玖十元壹角贰分");
    EXPECT_EQ(MoneyUpperText("7"), "\xC6\xE2\xD4\xAA\xC1\xE3\xBD\xC7\xC1\xE3\xB7\xD6");
}

TEST(MoneyUpperText, AnEmptyTextALonePointAndSeveralPointsGiveTheEmptyText) {
    EXPECT_EQ(Money(""), "");
    EXPECT_EQ(Money(std::string_view()), "");
    EXPECT_EQ(Money("  "), "");
    EXPECT_EQ(Money("."), "");
    EXPECT_EQ(Money("..."), "");
    EXPECT_EQ(Money(" . "), "");
}

TEST(MoneyUpperText, ALoneMinusIsANegativeZero) {
    EXPECT_EQ(Money("-"), "负零元零角零分");
    EXPECT_EQ(Money("-."), "负零元零角零分");
    EXPECT_EQ(Money(" - "), "负零元零角零分");
}

TEST(MoneyUpperText, TrailingPointsAreTrimmedBeforeTheChecks) {
    EXPECT_EQ(Money("12.3."), Money("12.3"));
    EXPECT_EQ(Money("12..."), Money("12"));
    EXPECT_EQ(Money("1.2.3"), "");
}

TEST(MoneyUpperText, BlanksInFrontOfATrimmedPointDoNotCount) {
    EXPECT_EQ(Money("5 ."), "伍元零角零分");
    EXPECT_EQ(Money("0 ."), "零元零角零分");
    EXPECT_EQ(Money("- ."), "负零元零角零分");
    EXPECT_EQ(Money("- 5"), "");
}

TEST(MoneyUpperText, OtherBytesGiveTheEmptyText) {
    EXPECT_EQ(Money("1,000"), "");
    EXPECT_EQ(Money("abc"), "");
    EXPECT_EQ(Money("1e5"), "");
    EXPECT_EQ(Money("inf"), "");
    EXPECT_EQ(Money("nan"), "");
    EXPECT_EQ(Money("0x10"), "");
    EXPECT_EQ(MoneyUpperText("\xA3\xB1"), "");
    EXPECT_EQ(MoneyUpperText(std::string_view("1\0", 2)), "");
}

TEST(MoneyUpperText, ASignElsewhereOrAPlusGivesTheEmptyText) {
    EXPECT_EQ(Money("5-"), "");
    EXPECT_EQ(Money("--5"), "");
    EXPECT_EQ(Money("+5"), "");
}

TEST(MoneyUpperText, BlanksAroundTheNumberDoNotCount) {
    EXPECT_EQ(Money("  12  "), Money("12"));
    EXPECT_EQ(Money("\t12\r\n"), Money("12"));
}

TEST(MoneyUpperText, LeadingZeroesDoNotCount) {
    EXPECT_EQ(Money("0012.50"), Money("12.50"));
    EXPECT_EQ(Money("0000000000000000012.50"), Money("12.50"));
    EXPECT_EQ(Money("-000"), "负零元零角零分");
}

TEST(MoneyUpperText, RoundingIsThatOfTheBinaryValue) {
    EXPECT_EQ(Money("0.004"), "零元零角零分");
    EXPECT_EQ(Money("0.005"), "零元零角壹分");  // the double lies above
    EXPECT_EQ(Money("1.005"), "壹元零角零分");  // and here below
    EXPECT_EQ(Money("0.125"), "零元壹角贰分");  // a tie goes to the even digit
    EXPECT_EQ(Money("0.375"), "零元叁角捌分");
    EXPECT_EQ(Money("2.5"), "贰元伍角零分");
    EXPECT_EQ(Money("9.995"), "玖元玖角玖分");
    EXPECT_EQ(Money("9.999"), "壹十元零角零分");
}

TEST(MoneyUpperText, AnAmountThatRoundsToZeroKeepsItsSign) {
    EXPECT_EQ(Money("-0.001"), "负零元零角零分");
}

TEST(MoneyUpperText, ThirteenIntegerDigitsWithAPointGiveTheEmptyText) {
    EXPECT_EQ(Money("9999999999999.00"), "");
    EXPECT_EQ(Money("-9999999999999.00"), "");
    EXPECT_EQ(Money("999999999999.99"), "玖千玖百玖十玖亿玖千玖百玖十玖万玖千玖百玖十玖元玖角玖分");
}

TEST(MoneyUpperText, APointAtIndex12IsAllowedAfterSignAndLeadingZeroesAreGone) {
    EXPECT_NE(Money("123456789012.1"), "");
    EXPECT_EQ(Money("1234567890123.1"), "");
    EXPECT_NE(Money("-0000123456789012.1"), "");
    EXPECT_EQ(Money("1234567890123."), Money("1234567890123"));
}

TEST(MoneyUpperText, TwelveDigitsThatRoundUpHaveAFourthGroupWithoutAName) {
    EXPECT_EQ(Money("999999999999.999"), "壹亿万元零角零分");
    EXPECT_EQ(Money("999999999999.999"), Money("1000000000000"));
}

TEST(MoneyUpperText, WithoutAPointMoreGroupsHaveDigitsAndNoName) {
    EXPECT_EQ(Money("1234567890123"), "壹贰千叁百肆十伍亿陆千柒百捌十玖万零壹百贰十叁元零角零分");
    EXPECT_EQ(Money("10000000000000001"), Money("10000000000000000"));  // as the double has it
    EXPECT_EQ(Money("10001000100000000"), "壹零壹零壹亿万元零角零分");
}

TEST(MoneyUpperText, BeyondTheDoublesDigitsTheExactBinaryValueIsNamed) {
    // 2 to the power 60, and a neighbour that no double holds.
    EXPECT_EQ(Money("1152921504606846976"), Money("1152921504606846977"));
    EXPECT_EQ(Money("100000000000000000000000"),  // 99999999999999991611392
              "玖百玖十玖玖千玖百玖十玖玖千玖百玖十玖玖千玖百玖十玖亿"
              "玖千壹百陆十壹万壹千叁百玖十贰元零角零分");
}

TEST(MoneyUpperText, ANumberBeyondTheDoublesRangeGivesTheEmptyText) {
    EXPECT_NE(Money(std::string("1") + std::string(308, '0')), "");
    EXPECT_EQ(Money(std::string("2") + std::string(308, '0')), "");
    EXPECT_EQ(Money(std::string(400, '9')), "");
    EXPECT_EQ(Money(std::string("-") + std::string(400, '9')), "");
    EXPECT_EQ(Money(std::string(1000000, '9')), "");
    EXPECT_EQ(Money(std::string(400, '0') + "1"), "壹元零角零分");
}

TEST(MoneyUpperText, AFractionBelowTheDoublesRangeIsZero) {
    EXPECT_EQ(Money(std::string("0.") + std::string(400, '0') + "1"), "零元零角零分");
    EXPECT_EQ(Money(std::string("-.") + std::string(1000000, '0') + "1"), "负零元零角零分");
    EXPECT_EQ(Money(std::string("1.") + std::string(1000000, '9')), "贰元零角零分");
    EXPECT_EQ(Money(std::string("0.00") + std::string(1000000, '9')), "零元零角壹分");
}

TEST(IsMoneyNumber, TakesDigitsOnePointAndALeadingMinus) {
    EXPECT_TRUE(IsMoneyNumber(""));
    EXPECT_TRUE(IsMoneyNumber("  "));
    EXPECT_TRUE(IsMoneyNumber("-"));
    EXPECT_TRUE(IsMoneyNumber("."));
    EXPECT_TRUE(IsMoneyNumber("-12.5"));
    EXPECT_TRUE(IsMoneyNumber(" 12. "));
    EXPECT_FALSE(IsMoneyNumber("1.2."));
    EXPECT_FALSE(IsMoneyNumber("--1"));
    EXPECT_FALSE(IsMoneyNumber("1-"));
    EXPECT_FALSE(IsMoneyNumber("+1"));
    EXPECT_FALSE(IsMoneyNumber("1 2"));
}

// The amount built group by group from the right and rewritten as a whole, with the C library's
// own reading and printing of the double.

void ReplaceEvery(std::string& text, const std::string& what, const std::string& with) {
    for (std::size_t i = text.find(what); i != std::string::npos;
         i = text.find(what, i + with.size())) {
        text.replace(i, what.size(), with);
    }
}

std::string SlowGroup(const std::string& digits) {
    static const std::vector<std::string> places{"", "十", "百", "千"};
    std::string group;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        group += digits[i];
        group += digits[i] == '0' ? "" : places[digits.size() - 1 - i];
    }
    while (!group.empty() && group.back() == '0') {
        group.pop_back();
    }
    return group;
}

std::string SlowAmount(double value) {
    static const std::vector<std::string> groups{"", "万", "亿"};
    static const std::vector<std::string> digits{"零", "壹", "贰", "叁", "肆",
                                                 "伍", "陆", "柒", "捌", "玖"};
    char printed[400];
    std::snprintf(printed, sizeof printed, "%.2f", value);
    std::string integer(printed);
    const std::string decimals = integer.substr(integer.size() - 2);
    integer.resize(integer.size() - 3);
    std::string amount;
    for (std::size_t g = 0; !integer.empty(); ++g) {
        const std::size_t count = std::min<std::size_t>(4, integer.size());
        const std::string group = integer.substr(integer.size() - count);
        integer.resize(integer.size() - count);
        amount.insert(0, SlowGroup(group) + (g < groups.size() ? groups[g] : ""));
    }
    if (amount.empty()) {
        amount = "0";
    } else {
        ReplaceEvery(amount, "00", "0");
        ReplaceEvery(amount, "00", "0");
    }
    amount += std::string("元") + decimals[0] + "角" + decimals[1] + "分";
    for (std::size_t d = 0; d < digits.size(); ++d) {
        ReplaceEvery(amount, std::string(1, static_cast<char>('0' + d)), digits[d]);
    }
    return amount;
}

std::string SlowMoney(std::string text) {
    text = std::string(Trim(text));
    while (!text.empty() && text.back() == '.') {
        text.pop_back();
    }
    const std::string checked(Trim(text));
    const std::size_t minus = checked.rfind('-');
    if (text.empty() || checked.find_first_not_of("0123456789.-") != std::string::npos ||
        checked.find('.') != checked.rfind('.') || (minus != std::string::npos && minus > 0)) {
        return "";
    }
    const bool negative = text[0] == '-';
    text.erase(0, negative ? 1 : 0);
    while (!text.empty() && text[0] == '0') {
        text.erase(0, 1);
    }
    if (text.find('.') != std::string::npos && text.find('.') > 12) {
        return "";
    }
    const double value = std::atof(text.c_str());
    return std::isinf(value) ? "" : std::string(negative ? "负" : "") + SlowAmount(value);
}

TEST(MoneyUpperText, AgreesWithTheSlowRendering) {
    RandomText random(15);
    for (int round = 0; round < 200000; ++round) {
        std::string text;
        switch (round % 4) {
            case 0:
                text = random.Of("0000123456789", 12) + "." + random.Of("05123456789", 5);
                break;
            case 1:
                text = random.Of("0001", 30);
                break;
            case 2:
                text = random.Of("00159.- ", 10);
                break;
            default:
                text = std::string(random.Below(2) == 0 ? "-" : " ") + random.Of("0123456789", 13) +
                       (random.Below(2) == 0 ? ".5" : ".125 ");
                break;
        }
        ASSERT_EQ(Money(text), SlowMoney(text)) << text;
    }
}

TEST(MoneyUpperText, AgreesWithTheSlowRenderingOnNumbersOfEveryLength) {
    RandomText random(16);
    for (std::size_t length = 1; length < 320; ++length) {
        for (int round = 0; round < 5; ++round) {
            std::string text = "1";
            while (text.size() < length) {
                text += random.Of("00009", 9);
            }
            text.resize(length);
            ASSERT_EQ(Money(text), SlowMoney(text)) << text;
        }
    }
}

TEST(MoneyUpperText, AnyBytesGiveWholeCharactersOfTheVocabularyOrNothing) {
    std::set<std::string> vocabulary;
    const std::string words = CodePage936FromUtf8("零壹贰叁肆伍陆柒捌玖十百千万亿元角分负");
    for (std::size_t i = 0; i < words.size(); i += 2) {
        vocabulary.insert(words.substr(i, 2));
    }
    RandomText random(17);
    for (int round = 0; round < 200000; ++round) {
        const std::string text = round % 2 == 0 ? random.Bytes(8) : random.Of("019.-\x81|", 8);
        const std::string money = MoneyUpperText(text);
        ASSERT_EQ(money.size() % 2, 0U);
        for (std::size_t i = 0; i < money.size(); i += 2) {
            ASSERT_EQ(vocabulary.count(money.substr(i, 2)), 1U) << testing::PrintToString(text);
        }
    }
}

}  // namespace
}  // namespace veygrid
