// Tests of the columns that a text fills at a terminal.
#include "apps/grd/DisplayWidth.h"

#include <gtest/gtest.h>

#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

TEST(DisplayWidth, AsciiFillsOneColumnEach) {
    EXPECT_EQ(DisplayWidth(""), 0U);
    EXPECT_EQ(DisplayWidth("abc 123"), 7U);
}

TEST(DisplayWidth, ChineseCharactersAndFullWidthFormsFillTwo) {
    EXPECT_EQ(DisplayWidth("多福巷"), 6U);
    EXPECT_EQ(DisplayWidth("a中b"), 4U);
    EXPECT_EQ(DisplayWidth("，。（）ＡＢ　"), 14U);
    EXPECT_EQ(DisplayWidth("ひらカナ한국"), 12U);
    EXPECT_EQ(DisplayWidth("𠳐"), 2U);
}

TEST(DisplayWidth, LettersOfOtherScriptsFillOne) {
    EXPECT_EQ(DisplayWidth("αβгд×°—│é"), 9U);
}

TEST(DisplayWidth, JoiningMarksFillNone) {
    EXPECT_EQ(DisplayWidth("e\u0301"), 1U);
    EXPECT_EQ(CharacterWidth(0xFEFF), 0U);
}

TEST(DisplayWidth, BrokenBytesFillOneEach) {
    EXPECT_EQ(DisplayWidth("a\xE4\xB8"), 3U);
    EXPECT_EQ(DisplayWidth("\xFF\xC3("), 3U);
}

TEST(DisplayWidth, EdgesOfTheSpans) {
    EXPECT_EQ(CharacterWidth(0x10FF), 1U);
    EXPECT_EQ(CharacterWidth(0x1100), 2U);
    EXPECT_EQ(CharacterWidth(0x115F), 2U);
    EXPECT_EQ(CharacterWidth(0x1160), 1U);
    EXPECT_EQ(CharacterWidth(0x303F), 1U);
    EXPECT_EQ(CharacterWidth(0x4DBF), 2U);
    EXPECT_EQ(CharacterWidth(0xFF61), 1U);
    EXPECT_EQ(CharacterWidth(0x3FFFD), 2U);
    EXPECT_EQ(CharacterWidth(0x10FFFF), 1U);
}

TEST(DisplayWidth, IdeographsOfTheCodePageFillAsManyColumnsAsBytes) {
    for (char32_t c = 0x4E00; c <= 0x9FA5; ++c) {
        EXPECT_EQ(CharacterWidth(c), CodePage936FromUtf8(Utf8FromCharacter(c)).size())
            << static_cast<std::uint32_t>(c);
    }
}

}  // namespace
}  // namespace veygrid
