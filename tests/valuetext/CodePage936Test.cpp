// Code page 936 against Unicode: every code both ways, the odd single bytes, broken input.
#include "valuetext/CodePage936.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "valuetext/MultiByte.h"
#include "valuetext/RandomText.h"

namespace veygrid {
namespace {

using Faults = std::vector<std::pair<std::size_t, char32_t>>;

Faults Pairs(const std::vector<EncodeFault>& faults) {
    Faults pairs;
    for (const EncodeFault& fault : faults) {
        pairs.emplace_back(fault.offset, fault.character);
    }
    return pairs;
}

std::pair<std::string, Faults> FromUtf8(std::string_view text, char substitute = '?') {
    std::vector<EncodeFault> faults;
    std::string result = CodePage936FromUtf8(text, &faults, substitute);
    return {std::move(result), Pairs(faults)};
}

std::pair<std::string, Faults> FromUtf16(std::u16string_view text, char substitute = '?') {
    std::vector<EncodeFault> faults;
    std::string result = CodePage936FromUtf16(text, &faults, substitute);
    return {std::move(result), Pairs(faults)};
}

template <class Visit>
void ForEachPair(Visit visit) {
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        for (int trail = 0x40; trail <= 0xFE; ++trail) {
            if (trail != 0x7F) {
                visit(std::string{static_cast<char>(lead), static_cast<char>(trail)});
            }
        }
    }
}

char16_t CharacterOf(int lead, int trail) {
    return Utf16FromCodePage936(std::string{static_cast<char>(lead), static_cast<char>(trail)})[0];
}

TEST(CodePage936, EveryPairIsACharacterOfItsOwnAndComesBack) {
    std::set<char16_t> seen;
    ForEachPair([&](const std::string& pair) {
        const std::u16string wide = Utf16FromCodePage936(pair);
        ASSERT_EQ(wide.size(), 1U) << testing::PrintToString(pair);
        ASSERT_NE(wide[0], ReplacementCharacter) << testing::PrintToString(pair);
        ASSERT_GE(wide[0], 0x80) << testing::PrintToString(pair);
        ASSERT_TRUE(seen.insert(wide[0]).second) << testing::PrintToString(pair);
        ASSERT_EQ(FromUtf16(wide), (std::pair{pair, Faults{}}));
        ASSERT_EQ(FromUtf8(Utf8FromCodePage936(pair)), (std::pair{pair, Faults{}}));
    });
    EXPECT_EQ(seen.size(), 126U * 190U);
}

TEST(CodePage936, EverySingleByteThatIsACharacterComesBack) {
    for (int code = 0; code < 0x100; ++code) {
        const std::string byte(1, static_cast<char>(code));
        const bool isCharacter = code <= 0x80 || code == 0xFF;
        ASSERT_EQ(Utf16FromCodePage936(byte)[0] != ReplacementCharacter, isCharacter) << code;
        if (isCharacter) {
            ASSERT_EQ(FromUtf16(Utf16FromCodePage936(byte)), (std::pair{byte, Faults{}}));
            ASSERT_EQ(FromUtf8(Utf8FromCodePage936(byte)), (std::pair{byte, Faults{}}));
        }
    }
}

TEST(CodePage936, EveryUnicodeCharacterComesBackOrIsAFault) {
    std::size_t held = 0;
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        const auto [bytes, faults] = FromUtf8(Utf8FromCharacter(c), '\x01');
        if (!faults.empty()) {
            const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
            ASSERT_EQ(faults, (Faults{{0, surrogate ? ReplacementCharacter : c}}));
            ASSERT_EQ(bytes, "\x01");
            continue;
        }
        ++held;
        ASSERT_EQ(Utf8FromCodePage936(bytes), Utf8FromCharacter(c));
    }
    EXPECT_EQ(held, 128U + 2U + 126U * 190U);
}

TEST(CodePage936, TheEuroSignIsTheSingleByte80) {
    EXPECT_EQ(CodePage936FromUtf16(u"€"), "\x80");
    EXPECT_EQ(Utf16FromCodePage936("\x80"), u"€");
    EXPECT_EQ(CodePage936FromUtf8("1€2"), "1\x80\x32");
    EXPECT_EQ(Utf8FromCodePage936("\x80\x41"), "€A");
}

TEST(CodePage936, TheLastByteIsAPrivateCharacter) {
    EXPECT_EQ(Utf16FromCodePage936("\xFF"), u"\uF8F5");
    EXPECT_EQ(CodePage936FromUtf16(u"\uF8F5"), "\xFF");
}

TEST(CodePage936, WellKnownCharactersStandAtTheirCodes) {
    EXPECT_EQ(CodePage936FromUtf8("一丁七啊阿年月日零壹元角分"),
              "\xD2\xBB\xB6\xA1\xC6\xDF\xB0\xA1\xB0\xA2\xC4\xEA\xD4\xC2\xC8\xD5"
              "\xC1\xE3\xD2\xBC\xD4\xAA\xBD\xC7\xB7\xD6");
    EXPECT_EQ(CodePage936FromUtf8("丂亅"), "\x81\x40\x81\x7C");
    EXPECT_EQ(CodePage936FromUtf8("　，（Ａ"), "\xA1\xA1\xA3\xAC\xA3\xA8\xA3\xC1");
    EXPECT_EQ(CodePage936FromUtf8("àé·—"), "\xA8\xA4\xA8\xA6\xA1\xA4\xA1\xAA");
}

TEST(CodePage936, TheUserDefinedAreasRunThroughThePrivateUseAreaInOrder) {
    char16_t expected = 0xE000;
    for (const auto& [first, last] : {std::pair{0xAA, 0xAF}, std::pair{0xF8, 0xFE}}) {
        for (int lead = first; lead <= last; ++lead) {
            for (int trail = 0xA1; trail <= 0xFE; ++trail) {
                ASSERT_EQ(CharacterOf(lead, trail), expected++) << lead << " " << trail;
            }
        }
    }
    EXPECT_EQ(expected, 0xE4C6);
    for (int lead = 0xA1; lead <= 0xA7; ++lead) {
        for (int trail = 0x40; trail <= 0xA0; ++trail) {
            if (trail != 0x7F) {
                ASSERT_EQ(CharacterOf(lead, trail), expected++) << lead << " " << trail;
            }
        }
    }
    EXPECT_EQ(expected, 0xE766);
    EXPECT_EQ(CharacterOf(0xA2, 0xAB), 0xE766);
}

TEST(CodePage936, AsciiPassesUnchangedBothWays) {
    std::string ascii;
    std::u16string wide;
    for (int code = 0; code < 0x80; ++code) {
        ascii += static_cast<char>(code);
        wide += static_cast<char16_t>(code);
    }
    EXPECT_EQ(Utf8FromCodePage936(ascii), ascii);
    EXPECT_EQ(CodePage936FromUtf8(ascii), ascii);
    EXPECT_EQ(Utf16FromCodePage936(ascii), wide);
    EXPECT_EQ(CodePage936FromUtf16(wide), ascii);
    EXPECT_EQ(Utf8FromCodePage936(""), "");
    EXPECT_EQ(CodePage936FromUtf16(u""), "");
}

TEST(CodePage936, ALoneLeadByteIsReplacedAndSwallowsNothing) {
    EXPECT_EQ(Utf16FromCodePage936("\x81"), u"\uFFFD");
    EXPECT_EQ(Utf16FromCodePage936("\x81\t\xFE\x37\xB0\xA1"), u"\uFFFD\t\uFFFD\u0037啊");
    EXPECT_EQ(Utf16FromCodePage936("\x81\x7F\x81\xFF"), u"\uFFFD\x7F\uFFFD\uF8F5");
    EXPECT_EQ(Utf8FromCodePage936("a\x81"), "a\xEF\xBF\xBD");
}

TEST(CodePage936, BrokenUtf8GivesOneSubstituteAndOneFaultForEachBrokenByte) {
    constexpr char32_t Broken = ReplacementCharacter;
    const std::vector<std::tuple<std::string_view, std::string_view, Faults>> rows{
        {"a\x80z", "a?z", {{1, Broken}}},                                  // no first byte
        {"\xC0\xAF", "??", {{0, Broken}, {1, Broken}}},                    // too long a form
        {"\xC1\xBF", "??", {{0, Broken}, {1, Broken}}},                    //
        {"\xE0\x9F\xBF", "???", {{0, Broken}, {1, Broken}, {2, Broken}}},  //
        {"\xF0\x8F\xBF\xBF", "????", {{0, Broken}, {1, Broken}, {2, Broken}, {3, Broken}}},
        {"\xED\xA0\x80", "???", {{0, Broken}, {1, Broken}, {2, Broken}}},  // half a pair
        {"\xF4\x90\x80\x80", "????", {{0, Broken}, {1, Broken}, {2, Broken}, {3, Broken}}},
        {"\xF5z\xFFz", "?z?z", {{0, Broken}, {2, Broken}}},  //
        {"\xE5\x95", "??", {{0, Broken}, {1, Broken}}},      // cut short
        {"\xE5\x95z", "??z", {{0, Broken}, {1, Broken}}},    //
        {"\xE5\xE5\x95\x8A", "?\xB0\xA1", {{0, Broken}}},    //
        {"\xC3", "?", {{0, Broken}}},                        //
    };
    for (const auto& [text, bytes, faults] : rows) {
        EXPECT_EQ(FromUtf8(text), (std::pair{std::string(bytes), faults}))
            << testing::PrintToString(text);
        EXPECT_FALSE(IsUtf8(text)) << testing::PrintToString(text);
    }
}

TEST(CodePage936, ACharacterBeyondTheCodePageIsAFaultAtItsOffset) {
    EXPECT_EQ(FromUtf8("啊😀b\u0E01"),
              (std::pair{std::string("\xB0\xA1?b?"), Faults{{3, 0x1F600}, {8, 0x0E01}}}));
    EXPECT_EQ(FromUtf16(u"啊😀b\u0E01"),
              (std::pair{std::string("\xB0\xA1?b?"), Faults{{1, 0x1F600}, {4, 0x0E01}}}));
    EXPECT_EQ(FromUtf16(u"\u0080\u00FF\uFFFD"),
              (std::pair{std::string("???"), Faults{{0, 0x80}, {1, 0xFF}, {2, 0xFFFD}}}));
}

TEST(CodePage936, HalfASurrogatePairIsAFaultAtItsOffset) {
    const std::u16string high(1, 0xD83D);
    const std::u16string low(1, 0xDE00);
    EXPECT_EQ(FromUtf16(u"a" + high),
              (std::pair{std::string("a?"), Faults{{1, ReplacementCharacter}}}));
    EXPECT_EQ(FromUtf16(low + u"a"),
              (std::pair{std::string("?a"), Faults{{0, ReplacementCharacter}}}));
    EXPECT_EQ(FromUtf16(high + high + low),
              (std::pair{std::string("??"), Faults{{0, ReplacementCharacter}, {1, 0x1F600}}}));
    EXPECT_EQ(FromUtf16(low + high),
              (std::pair{std::string("??"),
                         Faults{{0, ReplacementCharacter}, {1, ReplacementCharacter}}}));
}

TEST(CodePage936, TheSubstituteIsTheCallersAndFaultsNeedNotBeAskedFor) {
    EXPECT_EQ(CodePage936FromUtf8("a😀b", nullptr, '_'), "a_b");
    EXPECT_EQ(CodePage936FromUtf16(u"a😀b", nullptr, '_'), "a_b");
    EXPECT_EQ(CodePage936FromUtf8("a😀b"), "a?b");
}

TEST(CodePage936, IsUtf8TakesSoundTextOfEveryLength) {
    for (std::string_view text :
         {"", "abc", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "一€😀"}) {
        EXPECT_TRUE(IsUtf8(text)) << testing::PrintToString(text);
    }
    EXPECT_FALSE(IsUtf8(CodePage936FromUtf8("年月")));
}

TEST(CodePage936, Utf8FromCharacterReplacesWhatIsNoCharacter) {
    EXPECT_EQ(Utf8FromCharacter(U'A'), "A");
    EXPECT_EQ(Utf8FromCharacter(U'é'), "é");
    EXPECT_EQ(Utf8FromCharacter(U'年'), "年");
    EXPECT_EQ(Utf8FromCharacter(U'😀'), "😀");
    EXPECT_EQ(Utf8FromCharacter(0xD800), "\uFFFD");
    EXPECT_EQ(Utf8FromCharacter(0x110000), "\uFFFD");
}

TEST(CodePage936, AnyBytesDecodeToSoundTextWithACharacterForEachCharacter) {
    RandomText random(5);
    for (int round = 0; round < 50000; ++round) {
        const std::string text = random.Bytes(24);
        std::size_t characters = 0;
        for (std::size_t i = 0; i < text.size(); i += CharLength(text, i)) {
            ++characters;
        }
        const std::u16string wide = Utf16FromCodePage936(text);
        ASSERT_EQ(wide.size(), characters);
        const std::string utf8 = Utf8FromCodePage936(text);
        ASSERT_TRUE(IsUtf8(utf8));
        if (wide.find(u'\uFFFD') == std::u16string::npos) {
            ASSERT_EQ(CodePage936FromUtf8(utf8), text);
            ASSERT_EQ(CodePage936FromUtf16(wide), text);
        }
    }
}

TEST(CodePage936, AnyBytesEncodeWithOneFaultForEachSubstitute) {
    RandomText random(6);
    for (int round = 0; round < 50000; ++round) {
        const std::string text = random.Bytes(24);
        const auto [bytes, faults] = FromUtf8(text, '\x01');
        std::size_t own = 0;
        for (char c : text) {
            own += c == '\x01' ? 1U : 0U;
        }
        ASSERT_EQ(CountChar(bytes, '\x01'), faults.size() + own);
        bool broken = false;
        for (const auto& [offset, character] : faults) {
            ASSERT_LT(offset, text.size());
            broken = broken || (character == ReplacementCharacter &&
                                text.compare(offset, 3, "\xEF\xBF\xBD") != 0);
        }
        ASSERT_EQ(IsUtf8(text), !broken);
    }
}

}  // namespace
}  // namespace veygrid
