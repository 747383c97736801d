// Characters of one and two bytes: searching, trimming, capitals and order, never splitting one.
#include "valuetext/MultiByte.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "valuetext/RandomText.h"

namespace veygrid {
namespace {

// Two-byte characters whose second byte means something when it stands alone.
constexpr std::string_view TrailBar = "\x81\x7C";
constexpr std::string_view TrailTilde = "\x95\x7E";
constexpr std::string_view TrailA = "\x81\x41";
constexpr std::string_view TrailSmallA = "\x81\x61";
constexpr std::string_view TrailBackslash = "\x8B\x5C";
constexpr std::string_view TrailOpenBrace = "\x81\x7B";
constexpr std::string_view TrailCloseBrace = "\x81\x7D";
constexpr std::array<std::string_view, 7> TrickyCharacters{
    TrailBar, TrailTilde, TrailA, TrailSmallA, TrailBackslash, TrailOpenBrace, TrailCloseBrace};

std::string Text(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (std::string_view piece : pieces) {
        text += piece;
    }
    return text;
}

// The characters one by one; what the searches must agree with.
std::vector<std::string_view> Characters(std::string_view text) {
    std::vector<std::string_view> characters;
    for (std::size_t i = 0; i < text.size(); i += characters.back().size()) {
        characters.push_back(text.substr(i, CharLength(text, i)));
    }
    return characters;
}

TEST(MultiByte, LeadAndTrailBytesAreThoseOfTheCodePage) {
    for (int code = 0; code < 256; ++code) {
        const char byte = static_cast<char>(code);
        EXPECT_EQ(IsLeadByte(byte), code >= 0x81 && code <= 0xFE) << code;
        EXPECT_EQ(IsTrailByte(byte), code >= 0x40 && code <= 0xFE && code != 0x7F) << code;
    }
}

TEST(MultiByte, ALeadByteWithoutATrailByteStandsAlone) {
    EXPECT_EQ(CharLength("\x81\x40", 0), 2U);
    EXPECT_EQ(CharLength("\x81", 0), 1U);
    EXPECT_EQ(CharLength("\x81\t", 0), 1U);
    EXPECT_EQ(CharLength("\x81"
                         "7",
                         0),
              1U);
    EXPECT_EQ(CharLength("\x81\x7F", 0), 1U);
    EXPECT_EQ(CharLength("\x81\xFF", 0), 1U);
    EXPECT_EQ(CharLength("\x80\x41", 0), 1U);
    EXPECT_EQ(CharLength("\xFF\x41", 0), 1U);
}

TEST(MultiByte, ClassesOfSingleCharactersAreThoseOfAscii) {
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool small = code >= 'a' && code <= 'z';
        EXPECT_EQ(IsAsciiDigit(c), code >= '0' && code <= '9') << code;
        EXPECT_EQ(IsAsciiAlpha(c), small || (code >= 'A' && code <= 'Z')) << code;
        EXPECT_EQ(IsBlankChar(c), code == ' ' || (code >= 9 && code <= 13)) << code;
        EXPECT_EQ(ToUpperAscii(c), small ? static_cast<char>(code - 32) : c) << code;
    }
}

TEST(MultiByte, TrimTakesEveryKindOfBlankFromTheSideAskedFor) {
    constexpr std::string_view Blanks = " \t\n\v\f\r";
    const std::string text = Text({Blanks, "a b", Blanks});
    EXPECT_EQ(TrimLeft(text), Text({"a b", Blanks}));
    EXPECT_EQ(TrimRight(text), Text({Blanks, "a b"}));
    EXPECT_EQ(Trim(text), "a b");
    EXPECT_EQ(Trim(Blanks), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(MultiByte, TrimLeavesTwoByteCharactersAndLoneLeadBytesAlone) {
    EXPECT_EQ(Trim(" \xA1\xA1 "), "\xA1\xA1");  // the wide blank is a character like any other
    EXPECT_EQ(TrimRight("\x81 "), "\x81");
    EXPECT_EQ(TrimRight("\xC4\xEA\x81\t"), "\xC4\xEA\x81");
    EXPECT_EQ(Trim(std::string_view(" \0 ", 3)), std::string_view("\0", 1));
}

TEST(MultiByte, TrimmedViewsLieInsideTheTextEvenWhenEmpty) {
    const std::string_view text = "   ";
    const std::string_view trimmed = Trim(text);
    EXPECT_GE(trimmed.data(), text.data());
    EXPECT_LE(trimmed.data(), text.data() + text.size());
}

TEST(MultiByte, TrimRightMarkTakesEveryMarkAtTheEnd) {
    EXPECT_EQ(TrimRightMark("12.3..", '.'), "12.3");
    EXPECT_EQ(TrimRightMark("...", '.'), "");
    EXPECT_EQ(TrimRightMark("", '.'), "");
    EXPECT_EQ(TrimRightMark("a|b", '|'), "a|b");
    EXPECT_EQ(TrimRightMark("a||", '|'), "a");
}

TEST(MultiByte, TrimRightMarkLeavesAMarkThatIsATrailByte) {
    for (std::string_view tricky : TrickyCharacters) {
        const char mark = tricky[1];
        EXPECT_EQ(TrimRightMark(tricky, mark), tricky);
        EXPECT_EQ(TrimRightMark(Text({tricky, std::string(3, mark)}), mark), tricky);
        EXPECT_EQ(TrimRightMark(Text({tricky, tricky}), mark), Text({tricky, tricky}));
        // A second byte that could itself be a lead byte does not make the mark its trail.
        EXPECT_EQ(TrimRightMark(Text({"\xB0\xA1", std::string(1, mark)}), mark), "\xB0\xA1");
        EXPECT_EQ(TrimRightMark(Text({"\xB0\xA1\xB0", std::string(1, mark)}), mark),
                  Text({"\xB0\xA1\xB0", std::string(1, mark)}));
    }
}

TEST(MultiByte, TrimRightMarkAgreesWithAWalkFromTheLeft) {
    RandomText random(1);
    for (int round = 0; round < 100000; ++round) {
        const std::string text = random.Of("|A\x81\xB0\xFE\x80\xFF ", 12);
        std::string expected = text;
        for (auto all = Characters(text); !all.empty() && all.back() == "|"; all.pop_back()) {
            expected.pop_back();
        }
        ASSERT_EQ(TrimRightMark(text, '|'), expected) << testing::PrintToString(text);
    }
}

TEST(MultiByte, UpperCaseChangesLettersAndNoTrailByte) {
    EXPECT_EQ(UpperCase("abcxyzABC019{|}~@`"), "ABCXYZABC019{|}~@`");
    EXPECT_EQ(UpperCase(Text({TrailSmallA, "a", TrailSmallA})),
              Text({TrailSmallA, "A", TrailSmallA}));
    EXPECT_EQ(UpperCase("\xA3\xE1"), "\xA3\xE1");  // a wide letter is no letter
    EXPECT_EQ(UpperCase("\x80\x61\xFF\x61"), "\x80\x41\xFF\x41");
    EXPECT_EQ(UpperCase(""), "");
}

TEST(MultiByte, FindCharNeverMatchesATrailByte) {
    for (std::string_view tricky : TrickyCharacters) {
        const char c = tricky[1];
        EXPECT_EQ(FindChar(tricky, c), NotFound);
        EXPECT_EQ(FindChar(Text({tricky, std::string(1, c)}), c), 2U);
        EXPECT_EQ(FindLastChar(tricky, c), NotFound);
        EXPECT_EQ(FindLastChar(Text({std::string(2, c), tricky}), c), 1U);
        EXPECT_EQ(CountChar(Text({tricky, std::string(1, c), tricky, std::string(1, c)}), c), 2U);
    }
}

TEST(MultiByte, FindCharBeginsAtStartAndFindsNothingBehindTheEnd) {
    EXPECT_EQ(FindChar("a,b,c", ',', 2), 3U);
    EXPECT_EQ(FindChar("a,b", ',', 3), NotFound);
    EXPECT_EQ(FindChar("a,b", ',', 99), NotFound);
    EXPECT_EQ(FindChar("AbAb", 'A', 1), 2U);
    EXPECT_EQ(FindChar("AbAb", 'A', 99), NotFound);
    EXPECT_EQ(FindChar("", 'A'), NotFound);
}

TEST(MultiByte, FindCharFindsALoneLeadByteButNoLeadOfAPair) {
    EXPECT_EQ(FindChar("\x81\x41\x81", '\x81'), 2U);
    EXPECT_EQ(FindChar("\xB0\xA1\x80", '\x80'), 2U);
}

TEST(MultiByte, FindLastCharFindsTheLastOne) {
    EXPECT_EQ(FindLastChar("a b c", ' '), 3U);
    EXPECT_EQ(FindLastChar("AbAb", 'A'), 2U);
    EXPECT_EQ(FindLastChar("abc", ' '), NotFound);
    EXPECT_EQ(FindLastChar("", ' '), NotFound);
}

TEST(MultiByte, FindTextMatchesAtTheFirstByteOfACharacterOnly) {
    EXPECT_EQ(FindText(Text({TrailA, "A"}), "A"), 2U);
    EXPECT_EQ(FindText(Text({TrailA, "BC"}), "AB"), NotFound);
    EXPECT_EQ(FindText("\xB0\xA1\xB0\xA1", "\xA1\xB0"), NotFound);
    EXPECT_EQ(FindText("\xB0\xA1\xA1\xB0", "\xA1\xB0"), 2U);
    EXPECT_EQ(FindText("x%<y>%", ">%"), 4U);
}

TEST(MultiByte, FindTextBeginsAtStartAndFindsAnEmptyTextThere) {
    EXPECT_EQ(FindText("abab", "ab", 1), 2U);
    EXPECT_EQ(FindText("abab", "ab", 4), NotFound);
    EXPECT_EQ(FindText("abab", "", 4), 4U);
    EXPECT_EQ(FindText("abab", "", 5), NotFound);
    EXPECT_EQ(FindText("ab", "abc"), NotFound);
    EXPECT_EQ(FindText("1,2", ",", 99), NotFound);
}

TEST(MultiByte, SearchesAgreeWithAWalkOverCharacters) {
    RandomText random(2);
    for (int round = 0; round < 100000; ++round) {
        const std::string text = random.Of("A,|\x81\x7C\xB0\xFE\x80", 14);
        const char c = "A,|\x80"[random.Below(4)];
        std::size_t first = NotFound;
        std::size_t last = NotFound;
        std::size_t count = 0;
        std::size_t at = 0;
        for (std::string_view one : Characters(text)) {
            if (one == std::string_view(&c, 1)) {
                first = count++ == 0 ? at : first;
                last = at;
            }
            at += one.size();
        }
        ASSERT_EQ(FindChar(text, c), first) << testing::PrintToString(text);
        ASSERT_EQ(FindLastChar(text, c), last) << testing::PrintToString(text);
        ASSERT_EQ(FindText(text, std::string_view(&c, 1)), first) << testing::PrintToString(text);
        ASSERT_EQ(CountChar(text, c), count) << testing::PrintToString(text);
    }
}

TEST(MultiByte, CompareSortsPairsBehindEverySingleByteAndShorterTextsFirst) {
    const std::array<std::string_view, 12> ascending{"",     "A",        "AA",       "A\x81\x40",
                                                     "B",    "\x80",     "\x81\x09", "\xFE\x09",
                                                     "\xFF", "\x81\x40", "\x81\x41", "\xB0\xA1"};
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            const int order = CompareMultiByte(ascending[i], ascending[j]);
            EXPECT_EQ(order < 0, i < j) << i << " " << j;
            EXPECT_EQ(order == 0, i == j) << i << " " << j;
        }
    }
}

TEST(MultiByte, CompareIsAnOrder) {
    RandomText random(3);
    for (int round = 0; round < 50000; ++round) {
        const std::string a = random.Of("A\x81\xFF\x40", 4);
        const std::string b = random.Of("A\x81\xFF\x40", 4);
        const std::string c = random.Of("A\x81\xFF\x40", 4);
        ASSERT_EQ(CompareMultiByte(a, b), -CompareMultiByte(b, a));
        ASSERT_EQ(CompareMultiByte(a, b) == 0, a == b);
        if (CompareMultiByte(a, b) < 0 && CompareMultiByte(b, c) < 0) {
            ASSERT_LT(CompareMultiByte(a, c), 0);
        }
    }
}

}  // namespace
}  // namespace veygrid
