// How show formats turn stored text into shown text.
#include "valuetext/ShowFormat.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <string_view>
#include <vector>

#include "valuetext/CodePage936.h"
#include "valuetext/DateText.h"
#include "valuetext/MoneyText.h"
#include "valuetext/MultiByte.h"
#include "valuetext/RandomText.h"

namespace veygrid {

void PrintTo(ShowKind kind, std::ostream* out) {
    *out << static_cast<int>(kind);
}

namespace {

std::string Shown(std::string_view text, std::string_view format) {
    return Utf8FromCodePage936(ShowText(CodePage936FromUtf8(text), CodePage936FromUtf8(format)));
}

TEST(ShowFormat, TheTenStandardFormatsStandInTheirOrder) {
    const std::vector<std::string_view> expected{
        "General",      "0",          "0.00",      "#,##0",      "#,##0.00", "YYYY年MM月DD日",
        "YYYY年M月D日", "YYYY-MM-DD", "[CB_TEXT]", "[RMB_UPPER]"};
    std::vector<std::string> found;
    for (const std::string& format : StandardShowFormats()) {
        found.push_back(Utf8FromCodePage936(format));
    }
    EXPECT_EQ(std::vector<std::string_view>(found.begin(), found.end()), expected);
}

TEST(ShowFormat, TheStandardFormatsAreOfTheirKinds) {
    using enum ShowKind;
    const std::vector<ShowKind> expected{Plain, Plain, Plain, Plain,     Plain,
                                         Date,  Date,  Date,  ComboText, Money};
    std::vector<ShowKind> found;
    for (const std::string& format : StandardShowFormats()) {
        found.push_back(ShowKindOf(format));
    }
    EXPECT_EQ(found, expected);
}

TEST(ShowKindOf, ComboTextMustBeTheWholeFormat) {
    EXPECT_EQ(ShowKindOf("[CB_TEXT]"), ShowKind::ComboText);
    EXPECT_EQ(ShowKindOf("[cb_Text]"), ShowKind::ComboText);
    EXPECT_EQ(ShowKindOf(" [CB_TEXT]"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("[CB_TEXT] "), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("[CB_TEXT"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("[CB_TEXT][RMB_UPPER]"), ShowKind::Money);
}

TEST(ShowKindOf, ADateNeedsBothYyAndM) {
    EXPECT_EQ(ShowKindOf("YY-M"), ShowKind::Date);
    EXPECT_EQ(ShowKindOf("m/yy"), ShowKind::Date);
    EXPECT_EQ(ShowKindOf("xxMxxyYxx"), ShowKind::Date);
    EXPECT_EQ(ShowKindOf("MM-DD"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("YYYY"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("Y-M-D"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("YxY-M"), ShowKind::Plain);
}

TEST(ShowKindOf, TheMoneyMarkerMayStandAnywhere) {
    EXPECT_EQ(ShowKindOf("[RMB_UPPER]"), ShowKind::Money);
    EXPECT_EQ(ShowKindOf("x [rmb_upper] y"), ShowKind::Money);
    EXPECT_EQ(ShowKindOf("[[RMB_UPPER]"), ShowKind::Money);
    EXPECT_EQ(ShowKindOf("[RMB_UPPER"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("RMB_UPPER]"), ShowKind::Plain);
}

TEST(ShowKindOf, ADateFormatThatContainsTheMoneyMarkerIsADateFormat) {
    EXPECT_EQ(ShowKindOf("YYYY-MM[RMB_UPPER]"), ShowKind::Date);
    // The marker itself brings the M.
    EXPECT_EQ(ShowKindOf("[RMB_UPPER]YY"), ShowKind::Date);
    EXPECT_EQ(ShowKindOf("[RMB_UPPER]Y"), ShowKind::Money);
}

TEST(ShowKindOf, AnUnknownFormatBehavesLikeGeneral) {
    for (std::string_view format : {"", " ", "General", "nonsense", "0.0", "%s%n"}) {
        EXPECT_EQ(ShowKindOf(format), ShowKind::Plain) << format;
    }
}

TEST(ShowKindOf, ATrailByteIsNoLetterAndNoBracket) {
    EXPECT_EQ(ShowKindOf("\x81YY\x81\x4D"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("YY\x81\x4D"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("\x81\x59YM"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("\x81\x59YYM"), ShowKind::Date);
    EXPECT_EQ(ShowKindOf("\x81[RMB_UPPER]"), ShowKind::Plain);
    EXPECT_EQ(ShowKindOf("\x81\x5B[RMB_UPPER]"), ShowKind::Money);
}

TEST(ShowText, PlainFormatsShowTheTextAsStored) {
    for (std::string_view format : {"", "General", "0", "0.00", "#,##0", "#,##0.00", "YYYY"}) {
        EXPECT_EQ(Shown("1234.5", format), "1234.5") << format;
        EXPECT_EQ(Shown("-1234.5", format), "-1234.5") << format;
        EXPECT_EQ(Shown(" 文字 ", format), " 文字 ") << format;
        EXPECT_EQ(Shown("0", format), "0") << format;
    }
}

TEST(ShowText, DateFormatsRewriteDates) {
    EXPECT_EQ(Shown("20030814", "YYYY年M月D日"), "2003年8月14日");
    EXPECT_EQ(Shown("200308", "YYYY-MM-DD"), "2003-08-01");
    EXPECT_EQ(Shown("2003-8-5", "YYYY-MM-DD"), "2003-08-05");
    EXPECT_EQ(Shown("2003年8月5日", "YYYY-MM-DD"), "2003-08-05");
    EXPECT_EQ(Shown("2003年8月", "YYYY-MM-DD"), "2003-08-01");
    EXPECT_EQ(Shown("8/14/2003", "YYYY-MM-DD"), "2003-08-14");
    EXPECT_EQ(Shown("14/8/2003", "YYYY-MM-DD"), "14/8/2003");
    EXPECT_EQ(Shown("2003-08-14", "YY-M-D"), "03-8-14");
    EXPECT_EQ(Shown("2003-08-14", "yyyy-mm-dd"), "2003-08-14");
    EXPECT_EQ(Shown("2003-08-14", "[RMB_UPPER]YY"), "[R8B_UPPER]03");
}

TEST(ShowText, ATextThatIsNoDateShowsTrimmedAndCutAtItsLastBlank) {
    EXPECT_EQ(Shown("abc def", "YYYY-MM-DD"), "abc");
    EXPECT_EQ(Shown("2004-02-29", "YYYY-MM-DD"), "2004-02-29");
    EXPECT_EQ(Shown(" 2003-09-31 ", "YYYY-MM-DD"), "2003-09-31");
}

TEST(ShowText, MoneyFormatsShowCapitalMoneyTextOrNothing) {
    EXPECT_EQ(Shown("10.5", "[RMB_UPPER]"), "壹十元伍角零分");
    EXPECT_EQ(Shown("10.5", "x[rmb_upper]x"), "壹十元伍角零分");
    EXPECT_EQ(Shown("abc", "[RMB_UPPER]"), "");
}

TEST(ShowText, AnEmptyTextShowsEmptyUnderEveryFormat) {
    for (const std::string& format : StandardShowFormats()) {
        EXPECT_EQ(ShowText("", format), "") << testing::PrintToString(format);
    }
}

TEST(ShowText, ComboTextWithoutAComboBoxShowsTheTextUnchanged) {
    EXPECT_EQ(Shown(" 3 ", "[CB_TEXT]"), " 3 ");
}

TEST(ShowText, DoesNotHearTheLocale) {
    const char* before = std::setlocale(LC_ALL, nullptr);
    const std::string saved = before == nullptr ? "C" : before;
    for (const char* name : {"de_DE.UTF-8", "zh_CN.GBK", "C.UTF-8", "C"}) {
        std::setlocale(LC_ALL, name);  // one that is not installed leaves the last one in force
        EXPECT_EQ(Shown("1234.56", "[RMB_UPPER]"), "壹千贰百叁十肆元伍角陆分") << name;
        EXPECT_EQ(Shown("2003-8-5", "yyyy-mm-dd"), "2003-08-05") << name;
    }
    std::setlocale(LC_ALL, saved.c_str());
}

// The kind by an upper-cased copy, split into characters joined by a mark that no text holds.
ShowKind SlowKind(std::string_view format) {
    std::string marked;
    for (std::size_t i = 0; i < format.size(); i += CharLength(format, i)) {
        marked += CharLength(format, i) == 1 ? std::string(1, ToUpperAscii(format[i]))
                                             : std::string("\1");
    }
    const auto holds = [&](const char* what) { return marked.find(what) != std::string::npos; };
    return marked == "[CB_TEXT]"       ? ShowKind::ComboText
           : holds("YY") && holds("M") ? ShowKind::Date
           : holds("[RMB_UPPER]")      ? ShowKind::Money
                                       : ShowKind::Plain;
}

std::string RandomFormat(RandomText& random) {
    std::string format;
    for (std::size_t i = random.Below(5); i > 0; --i) {
        switch (random.Below(6)) {
            case 0:
                format += random.Below(2) == 0 ? "[RMB_UPPER]" : "[rmb_Upper]";
                break;
            case 1:
                format += random.Below(2) == 0 ? "[CB_TEXT]" : "[cb_text]";
                break;
            case 2:
                format += random.Pair();
                break;
            case 3:
                format += random.Bytes(2);
                break;
            default:
                format += random.Of("YYMDymd-\x81", 4);
                break;
        }
    }
    return format;
}

TEST(ShowText, DoesOnAnyBytesWhatItsKindDoes) {
    RandomText random(18);
    std::vector<int> kinds(4, 0);
    for (int round = 0; round < 200000; ++round) {
        const std::string format = RandomFormat(random);
        const std::string text =
            round % 2 == 0 ? random.Characters(10) : random.Of("0129.-/ \xC4\xEA", 12);
        const ShowKind kind = SlowKind(format);
        ASSERT_EQ(ShowKindOf(format), kind) << testing::PrintToString(format);
        ++kinds[static_cast<std::size_t>(kind)];
        std::string expected = text;
        if (kind == ShowKind::Date) {
            FormatDateText(expected, UpperCase(format));
        } else if (kind == ShowKind::Money) {
            expected = MoneyUpperText(text);
        }
        ASSERT_EQ(ShowText(text, format), expected) << testing::PrintToString(text);
    }
    for (int count : kinds) {
        EXPECT_GT(count, 1000);
    }
}

}  // namespace
}  // namespace veygrid
