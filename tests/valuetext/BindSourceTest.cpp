// What a form object is bound to.
#include "valuetext/BindSource.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "valuetext/RandomText.h"

namespace veygrid {
namespace {

using Parsed = std::tuple<bool, std::int32_t, std::int32_t>;

Parsed Parse(std::string_view text) {
    std::int32_t row = 77;
    std::int32_t col = 77;
    const bool found = ParseBindSource(text, &row, &col);
    return {found, row, col};
}

TEST(BindSource, ParseReadsRowAndColumn) {
    EXPECT_EQ(Parse("R3C2"), (Parsed{true, 3, 2}));
    EXPECT_EQ(Parse("R0C5"), (Parsed{true, 0, 5}));
    EXPECT_EQ(Parse("C2R3"), (Parsed{true, 3, 2}));
    EXPECT_EQ(Parse("R-4C+6"), (Parsed{true, -4, 6}));
}

TEST(BindSource, ParseGives0ForALetterThatIsAbsentOrEndsTheText) {
    EXPECT_EQ(Parse("C5"), (Parsed{true, 0, 5}));
    EXPECT_EQ(Parse("R7"), (Parsed{true, 7, 0}));
    EXPECT_EQ(Parse("R7C"), (Parsed{true, 7, 0}));
    EXPECT_EQ(Parse("R"), (Parsed{true, 0, 0}));
    EXPECT_EQ(Parse("RC"), (Parsed{true, 0, 0}));
    EXPECT_EQ(Parse("RxC y"), (Parsed{true, 0, 0}));
}

TEST(BindSource, ParseOfATextWithNeitherLetterGivesMinus1AndFalse) {
    EXPECT_EQ(Parse(""), (Parsed{false, -1, -1}));
    EXPECT_EQ(Parse("   "), (Parsed{false, -1, -1}));
    EXPECT_EQ(Parse("3,4"), (Parsed{false, -1, -1}));
}

TEST(BindSource, ParseTrimsTheLeftAndTakesSmallLetters) {
    EXPECT_EQ(Parse(" \t r3c2"), (Parsed{true, 3, 2}));
    EXPECT_EQ(Parse("R 3 C 2"), (Parsed{true, 3, 2}));
    EXPECT_EQ(Parse("r3R4C1c2"), (Parsed{true, 3, 1}));
}

TEST(BindSource, ParseTakesTheFirstLettersWhereverTheyStand) {
    EXPECT_EQ(Parse("ORDER3"), (Parsed{true, 0, 0}));
    EXPECT_EQ(Parse("Price12"), (Parsed{true, 0, 0}));
    EXPECT_EQ(Parse("abc12"), (Parsed{true, 0, 12}));
}

TEST(BindSource, ParseTakesNoTrailByteForALetter) {
    EXPECT_EQ(Parse("\x81\x52\x33\x81\x43\x34"), (Parsed{false, -1, -1}));
    EXPECT_EQ(Parse("\x81\x72\x33\x81\x63\x34"), (Parsed{false, -1, -1}));
    EXPECT_EQ(Parse("\x81\x52\x39R3\x81\x43\x39"
                    "C4"),
              (Parsed{true, 3, 4}));
}

TEST(BindSource, ParseStopsAtTheEndsOf32Bits) {
    EXPECT_EQ(Parse("R99999999999C-99999999999"),
              (Parsed{true, std::numeric_limits<std::int32_t>::max(),
                      std::numeric_limits<std::int32_t>::min()}));
}

TEST(BindSource, ParseWritesOnlyToTheTargetsThatAreGiven) {
    std::int32_t row = 77;
    std::int32_t col = 77;
    EXPECT_TRUE(ParseBindSource("R3C2", &row, nullptr));
    EXPECT_TRUE(ParseBindSource("R3C2", nullptr, &col));
    EXPECT_TRUE(ParseBindSource("R3C2", nullptr, nullptr));
    EXPECT_EQ(row, 3);
    EXPECT_EQ(col, 2);
    EXPECT_FALSE(ParseBindSource("", nullptr, &col));
    EXPECT_EQ(col, -1);
}

TEST(BindSource, ATextWithBothMarkersInWhateverOrderIsParamBound) {
    EXPECT_TRUE(IsParamBound("%<name>%"));
    EXPECT_TRUE(IsParamBound("x>%y%<z"));
    EXPECT_FALSE(IsParamBound("%<name"));
    EXPECT_FALSE(IsParamBound("name>%"));
    EXPECT_FALSE(IsParamBound("%"));
    EXPECT_FALSE(IsParamBound(""));
}

TEST(BindSource, ATextThatIsNeitherEmptyNorParamBoundIsCellBound) {
    EXPECT_TRUE(IsCellBound("R3C2"));
    EXPECT_TRUE(IsCellBound("anything"));
    EXPECT_TRUE(IsCellBound("%<name"));
    EXPECT_FALSE(IsCellBound(""));
    EXPECT_FALSE(IsCellBound("%<name>%"));
    EXPECT_FALSE(IsCellBound(">%%<"));
}

TEST(BindSource, TheParamNameStandsBetweenTheFirstMarkers) {
    EXPECT_EQ(ParamNameOf("%<name>%"), "name");
    EXPECT_EQ(ParamNameOf("a%< b >%c>%"), " b ");
    EXPECT_EQ(ParamNameOf("%<a%<b>%"), "a%<b");
    EXPECT_EQ(ParamNameOf(">%x%<y>%"), "y");
    EXPECT_EQ(ParamNameOf("%<>%"), "");
    EXPECT_EQ(ParamNameOf("%<\xB2\xCE\xCA\xFD>%"), "\xB2\xCE\xCA\xFD");
}

TEST(BindSource, ThereIsNoParamNameWhenNoClosingMarkerLiesBehindTheOpeningOne) {
    EXPECT_EQ(ParamNameOf(">%x%<y"), std::nullopt);
    EXPECT_EQ(ParamNameOf("%<%"), std::nullopt);
    EXPECT_EQ(ParamNameOf("name>%"), std::nullopt);
    EXPECT_EQ(ParamNameOf(""), std::nullopt);
}

TEST(BindSource, AnyBytesAreSortedIntoOneKindOfBinding) {
    RandomText random(8);
    for (int round = 0; round < 100000; ++round) {
        const std::string text = random.Of("%<>RrCc12\x81\x52\x43 -", 10);
        ASSERT_EQ(IsCellBound(text) || IsParamBound(text), !text.empty());
        ASSERT_FALSE(IsCellBound(text) && IsParamBound(text));
        ASSERT_LE(ParamNameOf(text).has_value(), IsParamBound(text));
        const auto [found, row, col] = Parse(text);
        ASSERT_TRUE(found || (row == -1 && col == -1));
    }
}

}  // namespace
}  // namespace veygrid
