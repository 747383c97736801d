// Dates in text: what is read as one, how it is printed, and what may be typed as one.
#include "valuetext/DateText.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"
#include "valuetext/RandomText.h"

namespace veygrid {
namespace {

// Text and format are UTF-8, and so is the result; the result is "!" and the text left behind when
// the text is no date.
std::string Shown(std::string_view text, std::string_view format = "YYYY-MM-DD") {
    std::string shown = CodePage936FromUtf8(text);
    const bool date = FormatDateText(shown, CodePage936FromUtf8(format));
    return std::string(date ? "" : "!") + Utf8FromCodePage936(shown);
}

// The same for text and format in code page 936.
std::string ShownBytes(std::string text, std::string_view format = "YYYY-MM-DD") {
    return std::string(FormatDateText(text, format) ? "" : "!") + text;
}

bool IsStrict(std::string_view text) {
    return IsStrictDate(CodePage936FromUtf8(text));
}

TEST(FormatDateText, EightDigitsUnderYyyyNianMYueDRi) {
    EXPECT_EQ(Shown("20030814", "YYYY年M月D日"), "2003年8月14日");
    EXPECT_EQ(Shown("20030805", "YYYY年MM月DD日"), "2003年08月05日");
}

TEST(FormatDateText, SixDigitsAreTheFirstDayOfAMonth) {
    EXPECT_EQ(Shown("200308"), "2003-08-01");
    EXPECT_EQ(Shown("200313"), "!200313");
}

TEST(FormatDateText, MonthAndDayOfOneDigitAreFilledUp) {
    EXPECT_EQ(Shown("2003-8-5"), "2003-08-05");
}

TEST(FormatDateText, ATwoByteSeparatorWorksLikeADash) {
    EXPECT_EQ(Shown("2003年8月5日"), "2003-08-05");
    EXPECT_EQ(Shown("2003年8月5"), "2003-08-05");
    EXPECT_EQ(Shown("2003年12月31日"), "2003-12-31");
}

TEST(FormatDateText, AYearAndAMonthWithTheirCharactersAreTheFirstDay) {
    EXPECT_EQ(Shown("2003年8月"), "2003-08-01");
    EXPECT_EQ(Shown("2003-8-"), "2003-08-01");
}

TEST(FormatDateText, YearLastIsMonthDayYear) {
    EXPECT_EQ(Shown("8/14/2003"), "2003-08-14");
    EXPECT_EQ(Shown("08/14/2003"), "2003-08-14");
    EXPECT_EQ(Shown("12.31.1999"), "1999-12-31");
    EXPECT_EQ(Shown("8月14日2003"), "2003-08-14");
    EXPECT_EQ(Shown("14/8/2003"), "!14/8/2003");
}

TEST(FormatDateText, YearLastHasNoShortcutForAMissingPart) {
    EXPECT_EQ(Shown("8/2003"), "!8/2003");
    EXPECT_EQ(Shown("/8/2003"), "!/8/2003");
    EXPECT_EQ(Shown("08月2003"), "!08月2003");
}

TEST(FormatDateText, YearLastTakesAtMostTwoBytesInFrontOfTheMonth) {
    EXPECT_EQ(Shown("--8/14/2003"), "2003-08-14");
    EXPECT_EQ(Shown("于8/14/2003"), "2003-08-14");
    EXPECT_EQ(Shown("---8/14/2003"), "!---8/14/2003");
}

TEST(FormatDateText, YearLastReadsTheMonthAsFarAsItsDigitsGo) {
    // The byte next to the separator is not looked at, and the number ends in front of it.
    EXPECT_EQ(Shown("8x/14/2003"), "2003-08-14");
    EXPECT_EQ(Shown("x/14/2003"), "!x/14/2003");
}

TEST(FormatDateText, YyIsTheLastTwoDigitsOfTheYear) {
    EXPECT_EQ(Shown("2003-08-14", "YY-M-D"), "03-8-14");
    EXPECT_EQ(Shown("2010-8-4", "YY-MM-DD"), "10-08-04");
    EXPECT_EQ(Shown("2000-8-4", "YY/M"), "00/8");
}

TEST(FormatDateText, DayBeyondItsMonthIsNoDate) {
    EXPECT_EQ(Shown("2003-09-31"), "!2003-09-31");
    EXPECT_EQ(Shown("2003-09-30"), "2003-09-30");
    EXPECT_EQ(Shown("2003-08-32", "YY-M"), "!2003-08-32");
    EXPECT_EQ(Shown("2003-08-0", "YY-M"), "!2003-08-0");
    EXPECT_EQ(Shown("2003-0-5", "YY-M"), "!2003-0-5");
    EXPECT_EQ(Shown("2003-13-5", "YY-M"), "!2003-13-5");
}

TEST(FormatDateText, YearsRunFrom1000To9999) {
    EXPECT_EQ(Shown("1999-12-31"), "1999-12-31");
    EXPECT_EQ(Shown("0999-12-31"), "!0999-12-31");
    EXPECT_EQ(Shown("1000-1-1", "YYYYMMDD"), "10000101");
    EXPECT_EQ(Shown("9999-12-31", "YYYYMMDD"), "99991231");
}

TEST(FormatDateText, OnlyYearsThat400DividesAreLeapYears) {
    EXPECT_EQ(Shown("2000-02-29", "YYYY年M月D日"), "2000年2月29日");
    EXPECT_EQ(Shown("1900-02-29", "YYYY年M月D日"), "!1900-02-29");
    EXPECT_EQ(Shown("2004-02-29", "YYYY年M月D日"), "!2004-02-29");
    EXPECT_EQ(Shown("2004-02-28", "YYYY年M月D日"), "2004年2月28日");
    EXPECT_EQ(Shown("2000-02-30", "YYYY年M月D日"), "!2000-02-30");
}

TEST(FormatDateText, SmallLettersOfAFormatAreTokens) {
    EXPECT_EQ(Shown("2003-08-14", "yyyy-mm-dd"), "2003-08-14");
    EXPECT_EQ(Shown("2003-08-14", "yY-mM-dD x"), "03-08-14 X");
}

TEST(FormatDateText, AnEmptyTextStaysEmpty) {
    EXPECT_EQ(Shown(""), "!");
    EXPECT_EQ(Shown("  \t "), "!");
}

TEST(FormatDateText, ATimeOfDayIsCutAway) {
    EXPECT_EQ(Shown("2003-08-14 10:20:30"), "2003-08-14");
    EXPECT_EQ(Shown("  2003-08-14 \t 10:20:30\r\n"), "2003-08-14");
    EXPECT_EQ(Shown("2003年8月5日 10点", "YY-M-D"), "03-8-5");
}

TEST(FormatDateText, OnlyTheLastBlankCuts) {
    EXPECT_EQ(Shown("a b c"), "!a b");
    EXPECT_EQ(Shown("2003-08-14 10:20 x"), "!2003-08-14 10:20");
}

TEST(FormatDateText, TheCutStaysInATextThatIsNoDate) {
    EXPECT_EQ(Shown("abc def"), "!abc");
    EXPECT_EQ(Shown(" 2004-02-29 10:20 "), "!2004-02-29");
    EXPECT_EQ(Shown("\tabc\t"), "!abc");
}

TEST(FormatDateText, AnotherBlankThanTheSpaceDoesNotCut) {
    EXPECT_EQ(Shown("abc\tdef"), "!abc\tdef");
    EXPECT_EQ(Shown("2003-08-14\t10:20"), "!2003-08-14\t10:20");
}

TEST(FormatDateText, WithoutAFormatItOnlyValidates) {
    std::string text = " 2003-8-5 10:20 ";
    EXPECT_TRUE(FormatDateText(text, std::nullopt));
    EXPECT_EQ(text, "2003-8-5");
    text = " 2003-13-5 10:20 ";
    EXPECT_FALSE(FormatDateText(text, std::nullopt));
    EXPECT_EQ(text, "2003-13-5");
}

TEST(FormatDateText, TextBelowSixBytesIsNoDate) {
    EXPECT_EQ(Shown("20038", "YY-M"), "!20038");
    EXPECT_EQ(Shown("2003", "YY-M"), "!2003");
    EXPECT_EQ(Shown("2003-8", "YY-M"), "03-8");
}

TEST(FormatDateText, AllDigitsOfAnotherLengthAreNoDate) {
    EXPECT_EQ(Shown("2003081", "YY-M"), "!2003081");
    EXPECT_EQ(Shown("200308145", "YY-M"), "!200308145");
    EXPECT_EQ(Shown("20030832", "YY-M"), "!20030832");
}

TEST(FormatDateText, TheFirstSeparatorHasOneOrTwoBytes) {
    EXPECT_EQ(Shown("2003--8--5"), "2003-08-05");
    EXPECT_EQ(Shown("2003---8---5"), "!2003---8---5");
    EXPECT_EQ(Shown("2003-x", "YY-M"), "!2003-x");
}

TEST(FormatDateText, TheSecondSeparatorIsTakenToBeAsWideAsTheFirst) {
    EXPECT_EQ(Shown("2003年8-05"), "2003-08-05");  // the zero counts as part of the separator
    EXPECT_EQ(Shown("2003年8-15"), "2003-08-05");
    EXPECT_EQ(Shown("2003-8月5"), "!2003-8月5");  // the day begins inside the character
    EXPECT_EQ(Shown("2003年8-"), "!2003年8-");
}

TEST(FormatDateText, AMonthThatEndsTheTextMayHaveAnyNumberOfDigits) {
    EXPECT_EQ(Shown("2003-8"), "2003-08-01");
    EXPECT_EQ(Shown("2003-000000000008"), "2003-08-01");
    EXPECT_EQ(Shown("2003-99999999999999999999"), "!2003-99999999999999999999");
    EXPECT_EQ(Shown("2003-008-5"), "!2003-008-5");
}

TEST(FormatDateText, TheDayHasOneOrTwoDigits) {
    EXPECT_EQ(Shown("2003-08-014"), "!2003-08-014");
    EXPECT_EQ(Shown("2003-08-x"), "!2003-08-x");
    EXPECT_EQ(Shown("2003-08--5"), "!2003-08--5");
    EXPECT_EQ(Shown("2003-08-x5"), "!2003-08-x5");
}

TEST(FormatDateText, AtMostTwoBytesMayFollowTheDay) {
    EXPECT_EQ(Shown("2003-08-14--"), "2003-08-14");
    EXPECT_EQ(Shown("2003年8月14日"), "2003-08-14");
    EXPECT_EQ(Shown("2003-08-14---"), "!2003-08-14---");
    EXPECT_EQ(Shown("2003年8月14日."), "!2003年8月14日.");
}

TEST(FormatDateText, AYearFirstTextThatFailsIsNotTriedWithTheYearLast) {
    EXPECT_EQ(Shown("0814/5/2003"), "!0814/5/2003");
}

TEST(FormatDateText, TheFormatIsTrimmedAndItsOtherLettersMadeCapital) {
    EXPECT_EQ(Shown("2003-08-14", "  yyyy-mm week  "), "2003-08 WEEK");
    EXPECT_EQ(Shown("2003-08-14", ""), "");
    EXPECT_EQ(Shown("2003-08-14", "年"), "年");
}

TEST(FormatDateText, ALoneNarrowTokenBesideTheWiderOneStaysALetter) {
    EXPECT_EQ(Shown("2003-08-04", "YYYY/YY"), "2003/YY");
    EXPECT_EQ(Shown("2003-08-04", "YY Y"), "03 Y");
    EXPECT_EQ(Shown("2003-08-04", "YYYY MM M"), "2003 08 M");
    EXPECT_EQ(Shown("2003-08-04", "YYYY MMM"), "2003 08M");
    EXPECT_EQ(Shown("2003-08-04", "YYMDDD"), "03804D");
}

TEST(FormatDateText, EveryOccurrenceOfATokenIsReplaced) {
    EXPECT_EQ(Shown("2003-12-04", "YYYY YYYY MM MM DD DD"), "2003 2003 12 12 04 04");
    EXPECT_EQ(Shown("2003-12-04", "YY YY M M D D"), "03 03 12 12 4 4");
    EXPECT_EQ(Shown("2003-12-04", "YYYYYYYYMMMM"), "200320031212");
}

TEST(FormatDateText, APercentSignStaysAsTyped) {
    EXPECT_EQ(Shown("2003-08-04", "YYYY%-MM%s%n%%"), "2003%-08%S%N%%");
    EXPECT_EQ(Shown("2003-08-04", "%YYYY%MM%DD%"), "%2003%08%04%");
    EXPECT_EQ(Shown("2003-08-04", "%99999999YYM"), "%99999999038");
}

TEST(FormatDateText, AFormatOfAnyLengthGivesAtMostTwiceItsLength) {
    std::string format = "YY";
    for (int i = 0; i < 200000; ++i) {
        format += "M ";
    }
    const std::string shown = ShownBytes("2003-12-04", format);
    EXPECT_EQ(shown.size(), 2 + 200000U * 3 - 1);
    EXPECT_LE(shown.size(), 2 * format.size());
}

TEST(FormatDateText, ATrailByteOfTheFormatIsNoToken) {
    EXPECT_EQ(ShownBytes("2003-08-04", "\x81\x59YY\x81\x4D\x4D\x81\x44"),
              "\x81\x59\x30\x33\x81\x4D\x38\x81\x44");
    EXPECT_EQ(ShownBytes("2003-08-04", "\x81\x6D\x81\x64\x81\x79"), "\x81\x6D\x81\x64\x81\x79");
    EXPECT_EQ(ShownBytes("2003-08-04", "\x81\x7C\x95\x7E\x8B\x5C\x81\x7BYYYY\x81\x7D"),
              "\x81\x7C\x95\x7E\x8B\x5C\x81\x7B\x32\x30\x30\x33\x81\x7D");
    // Four letters, the first of which belongs to the character in front: YY and a lone Y are left.
    EXPECT_EQ(ShownBytes("2003-08-04", "\x81YYYY"), "\x81\x59\x30\x33Y");
}

TEST(FormatDateText, ASeparatorWhoseTrailByteIsALetterWorks) {
    EXPECT_EQ(ShownBytes("2003\x81\x7C\x38\x81\x7C\x35"), "2003-08-05");
    EXPECT_EQ(ShownBytes("2003\x95\x7E\x38\x8B\x5C\x35\x81\x7D"), "2003-08-05");
}

TEST(IsDateInLimits, HoldsForTheDaysOfEachMonth) {
    constexpr std::array<int, 12> LastDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        const int last = LastDays[static_cast<std::size_t>(month - 1)];
        EXPECT_FALSE(IsDateInLimits(2003, month, 0)) << month;
        EXPECT_TRUE(IsDateInLimits(2003, month, 1)) << month;
        EXPECT_TRUE(IsDateInLimits(2003, month, last)) << month;
        EXPECT_FALSE(IsDateInLimits(2003, month, last + 1)) << month;
    }
    EXPECT_FALSE(IsDateInLimits(2003, 0, 1));
    EXPECT_FALSE(IsDateInLimits(2003, 13, 1));
    EXPECT_FALSE(IsDateInLimits(999, 12, 31));
    EXPECT_FALSE(IsDateInLimits(10000, 1, 1));
}

TEST(IsDateInLimits, GivesFebruary29DaysOnlyInYearsThat400Divides) {
    for (int year = 1000; year <= 9999; ++year) {
        ASSERT_TRUE(IsDateInLimits(year, 2, 28)) << year;
        ASSERT_EQ(IsDateInLimits(year, 2, 29), year % 400 == 0) << year;
        ASSERT_FALSE(IsDateInLimits(year, 2, 30)) << year;
    }
}

TEST(IsStrictDate, TakesEightDigits) {
    EXPECT_TRUE(IsStrict("20030814"));
    EXPECT_FALSE(IsStrict("20031301"));
    EXPECT_FALSE(IsStrict("200308145"));
}

TEST(IsStrictDate, TakesYearMonthAndDayWithSeparators) {
    EXPECT_TRUE(IsStrict("2003-8-5"));
    EXPECT_TRUE(IsStrict("2003-08-14"));
    EXPECT_TRUE(IsStrict("2003年8月5日"));
    EXPECT_TRUE(IsStrict("2003年8-15"));
    EXPECT_TRUE(IsStrict("2003/08/14--"));
    EXPECT_FALSE(IsStrict("2003/08/14---"));
}

TEST(IsStrictDate, RefusesTextBelowEightBytesAndTextThatEndsInTheMonth) {
    EXPECT_FALSE(IsStrict("200308"));
    EXPECT_FALSE(IsStrict("2003-8"));
    EXPECT_FALSE(IsStrict("2003年8月"));
    EXPECT_FALSE(IsStrict("2003-000008"));
    EXPECT_FALSE(IsStrict("2003--08--"));
    EXPECT_FALSE(IsStrict(""));
}

TEST(IsStrictDate, RefusesTheYearLast) {
    EXPECT_FALSE(IsStrict("08/14/2003"));
}

TEST(IsStrictDate, RefusesPartsThatAreNoNumbers) {
    EXPECT_FALSE(IsStrict("200x-8-5"));
    EXPECT_FALSE(IsStrict("-003-8-5"));
    EXPECT_FALSE(IsStrict("2003-8-+5"));
    EXPECT_FALSE(IsStrict("2003-8-x5"));
    EXPECT_FALSE(IsStrict("20038-15"));
    EXPECT_FALSE(IsStrict("2003---8---5"));
}

TEST(IsStrictDate, RefusesBlanksAroundTheDate) {
    EXPECT_FALSE(IsStrict(" 2003-8-5"));
    EXPECT_TRUE(IsStrict("2003-8-5 "));  // one of the two bytes that may follow
}

TEST(IsStrictDate, HoldsTheDateLimits) {
    EXPECT_FALSE(IsStrict("2004-02-29"));
    EXPECT_TRUE(IsStrict("2000-02-29"));
    EXPECT_FALSE(IsStrict("0999-12-31"));
    EXPECT_FALSE(IsStrict("2003-9-31"));
}

// An independent reading of dates: every way to lay year, separators and parts over the bytes.

bool Digit(char c) {
    return std::string_view("0123456789").find(c) != std::string_view::npos;
}

bool AllOf(std::string_view text, bool digits) {
    for (char c : text) {
        if (Digit(c) != digits) {
            return false;
        }
    }
    return true;
}

struct Laid {
    std::string inner;
    std::string outer;
};

// Year, separator of `w` bytes, `m` digits, a non-digit and the rest of the second separator, `k`
// bytes of which the first may be anything, and `tail` bytes that do not begin with a digit.
std::optional<Laid> Lay(const std::string& text, std::size_t w, std::size_t m, std::size_t k,
                        std::size_t tail) {
    if (text.size() != 4 + w + m + w + k + tail) {
        return std::nullopt;
    }
    const std::string inner = text.substr(4 + w, m);
    const std::string outer = text.substr(4 + w + m + w, k);
    const bool fits = AllOf(text.substr(4, w), false) && AllOf(inner, true) &&
                      !Digit(text[4 + w + m]) && (k < 2 || Digit(outer[1])) &&
                      (tail == 0 || !Digit(text[4 + w + m + w + k]));
    return fits ? std::optional(Laid{inner, outer}) : std::nullopt;
}

std::optional<Laid> LayAny(const std::string& text, std::size_t leastOuter) {
    for (std::size_t w = 1; w <= 2; ++w) {
        for (std::size_t m = 1; m <= 2; ++m) {
            for (std::size_t k = leastOuter; k <= 2; ++k) {
                for (std::size_t tail = 0; tail <= (k == 0 ? 0U : 2U); ++tail) {
                    if (const auto laid = Lay(text, w, m, k, tail)) {
                        return laid;
                    }
                }
            }
        }
    }
    return std::nullopt;
}

std::string Reversed(const std::string& text) {
    return {text.rbegin(), text.rend()};
}

int Number(const std::string& text) {
    return std::atoi(text.c_str());
}

bool InLimits(int year, int month, int day) {
    static const std::vector<int> last{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return year >= 1000 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
           day <= last[static_cast<std::size_t>(month)] + (month == 2 && year % 400 == 0 ? 1 : 0);
}

struct ModelDate {
    int year = 0;
    int month = 0;
    int day = 0;
};

// The date of a text that has been cut; year 0 for none.
ModelDate ReadModelDate(const std::string& text) {
    const std::size_t length = text.size();
    if (length < 6) {
        return {};
    }
    if (AllOf(text, true) && (length == 6 || length == 8)) {
        return {Number(text.substr(0, 4)), Number(text.substr(4, 2)),
                length == 6 ? 1 : Number(text.substr(6))};
    }
    if (AllOf(text.substr(0, 4), true)) {
        const int year = Number(text.substr(0, 4));
        for (std::size_t w = 1; w <= 2 && 4 + w < length; ++w) {
            if (AllOf(text.substr(4, w), false) && AllOf(text.substr(4 + w), true)) {
                return {year, Number(text.substr(4 + w)), 1};
            }
        }
        const auto laid = LayAny(text, 0);
        return laid ? ModelDate{year, Number(laid->inner),
                                laid->outer.empty() ? 1 : Number(laid->outer)}
                    : ModelDate{};
    }
    const auto laid = LayAny(Reversed(text), 1);
    if (!AllOf(text.substr(length - 4), true) || !laid) {
        return {};
    }
    return {Number(text.substr(length - 4)), Number(Reversed(laid->outer)),
            Number(Reversed(laid->inner))};
}

std::string RandomDateText(RandomText& random) {
    static const std::string dashes = "-/.x\x81\x7C\xC4\xEA+\t";
    const auto part = [&](std::size_t bound) {
        std::string digits = std::to_string(random.Below(bound));
        return random.Below(2) == 0 && digits.size() < 2 ? std::string("0") + digits : digits;
    };
    const auto separator = [&] { return random.Of(dashes, 2); };
    const std::string year = random.Of("0129", 4);
    switch (random.Below(4)) {
        case 0:
            return year + separator() + part(14) + separator() + part(33) + random.Of(dashes, 3);
        case 1:
            return random.Of(dashes, 3) + part(14) + separator() + part(33) + separator() + year;
        case 2:
            return random.Of("0129-\xC4\xEA x", 12);
        default: {
            const std::string dash = separator();
            return "200" + part(10) + dash + part(14) + dash + part(33);
        }
    }
}

TEST(FormatDateText, ReadsEveryTextAsTheIndependentReadingDoes) {
    RandomText random(9);
    int dates = 0;
    for (int round = 0; round < 200000; ++round) {
        std::string text = RandomDateText(random);
        std::string left = text;
        FormatDateText(left, std::nullopt);
        const ModelDate date = ReadModelDate(left);
        const bool expected = InLimits(date.year, date.month, date.day);
        const std::string before = text;
        ASSERT_EQ(FormatDateText(text, "YYYY.M.D"), expected) << testing::PrintToString(before);
        if (expected) {
            ++dates;
            ASSERT_EQ(text, std::to_string(date.year) + '.' + std::to_string(date.month) + '.' +
                                std::to_string(date.day));
        } else {
            ASSERT_EQ(text, left);
        }
    }
    EXPECT_GT(dates, 20000);
}

TEST(IsStrictDate, AgreesWithTheIndependentReading) {
    RandomText random(10);
    int dates = 0;
    for (int round = 0; round < 200000; ++round) {
        const std::string text = RandomDateText(random);
        bool expected = false;
        if (text.size() >= 8 && AllOf(text.substr(0, 4), true)) {
            const auto laid = LayAny(text, 1);
            const ModelDate date = ReadModelDate(text);
            expected = InLimits(date.year, date.month, date.day) &&
                       (AllOf(text, true) || (laid && AllOf(laid->outer, true)));
        }
        ASSERT_EQ(IsStrictDate(text), expected) << testing::PrintToString(text);
        dates += expected ? 1 : 0;
    }
    EXPECT_GT(dates, 10000);
}

TEST(IsStrictDate, EveryStrictDateWithoutBlanksIsADateForShowing) {
    RandomText random(11);
    for (int round = 0; round < 200000; ++round) {
        std::string text = RandomDateText(random);
        if (FindChar(text, ' ') == NotFound && Trim(text) == text) {
            const bool strict = IsStrictDate(text);
            ASSERT_LE(strict, FormatDateText(text, std::nullopt)) << testing::PrintToString(text);
        }
    }
}

TEST(IsStrictDate, TakesBlanksAsSeparatorsThoughShowingCutsTheDayAway) {
    EXPECT_TRUE(IsStrict("2003 8 5"));
    EXPECT_EQ(Shown("2003 8 5"), "2003-08-01");
}

// A format rewritten character by character.
std::vector<std::string> CharactersOf(std::string_view text) {
    std::vector<std::string> characters;
    for (std::size_t i = 0; i < text.size(); i += characters.back().size()) {
        characters.emplace_back(text.substr(i, CharLength(text, i)));
    }
    return characters;
}

bool ReplaceRun(std::vector<std::string>& characters, const std::string& letter, std::size_t count,
                const std::string& value) {
    std::vector<std::string> result;
    bool replaced = false;
    for (std::size_t i = 0; i < characters.size();) {
        bool run = i + count <= characters.size();
        for (std::size_t k = 0; run && k < count; ++k) {
            run = characters[i + k] == letter;
        }
        result.push_back(run ? value : characters[i]);
        replaced = replaced || run;
        i += run ? count : 1;
    }
    characters = result;
    return replaced;
}

TEST(FormatDateText, RewritesEveryFormatCharacterByCharacter) {
    RandomText random(12);
    for (int round = 0; round < 100000; ++round) {
        const std::string format =
            round % 2 == 0 ? random.Of("YYYMMDDyd%-\x81\xC4\xEA ", 14) : random.Bytes(12);
        auto expected = CharactersOf(UpperCase(Trim(format)));
        ReplaceRun(expected, "Y", 4, "2003") || ReplaceRun(expected, "Y", 2, "03");
        ReplaceRun(expected, "M", 2, "08") || ReplaceRun(expected, "M", 1, "8");
        ReplaceRun(expected, "D", 2, "14") || ReplaceRun(expected, "D", 1, "14");
        std::string joined;
        for (const std::string& one : expected) {
            joined += one;
        }
        ASSERT_EQ(ShownBytes("2003-8-14", format), joined) << testing::PrintToString(format);
    }
}

TEST(FormatDateText, NeverSplitsACharacterOfATextThatIsNoDate) {
    RandomText random(13);
    for (int round = 0; round < 200000; ++round) {
        const std::string before = round % 2 == 0 ? random.Bytes(20) : random.Characters(12);
        std::string text = before;
        if (FormatDateText(text, "YYYY-MM-DD")) {
            continue;
        }
        // What is left begins and ends where a character of the old text begins or ends.
        const std::size_t start = before.size() - TrimLeft(before).size();
        ASSERT_EQ(before.compare(start, text.size(), text), 0) << testing::PrintToString(before);
        std::size_t at = start;
        while (at < start + text.size()) {
            at += CharLength(before, at);
        }
        ASSERT_EQ(at, start + text.size()) << testing::PrintToString(before);
    }
}

}  // namespace
}  // namespace veygrid
