// Numbers at the beginning of a text.
#include "valuetext/AtoI.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

#include "valuetext/RandomText.h"

namespace veygrid {
namespace {

constexpr std::int32_t Greatest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();

TEST(AtoI, ReadsDigitsUpToTheFirstByteThatIsNone) {
    EXPECT_EQ(AtoI("12C3"), 12);
    EXPECT_EQ(AtoI("007"), 7);
    EXPECT_EQ(AtoI("3\xB0\xA1"), 3);
    EXPECT_EQ(AtoI("3 4"), 3);
}

TEST(AtoI, SkipsLeadingBlanksAndTakesOneSign) {
    EXPECT_EQ(AtoI(" \t\n\v\f\r42"), 42);
    EXPECT_EQ(AtoI(" -42"), -42);
    EXPECT_EQ(AtoI("+42"), 42);
    EXPECT_EQ(AtoI("--42"), 0);
    EXPECT_EQ(AtoI("+-42"), 0);
    EXPECT_EQ(AtoI("- 42"), 0);
}

TEST(AtoI, GivesZeroWhereNoDigitStands) {
    EXPECT_EQ(AtoI(""), 0);
    EXPECT_EQ(AtoI(" "), 0);
    EXPECT_EQ(AtoI("-"), 0);
    EXPECT_EQ(AtoI("x1"), 0);
    EXPECT_EQ(AtoI("\xA1\xA1\x37"), 0);
}

TEST(AtoI, StopsAtTheEndsOf32Bits) {
    EXPECT_EQ(AtoI("2147483647"), Greatest);
    EXPECT_EQ(AtoI("2147483648"), Greatest);
    EXPECT_EQ(AtoI("-2147483648"), Least);
    EXPECT_EQ(AtoI("-2147483649"), Least);
    EXPECT_EQ(AtoI(std::string(5000, '9')), Greatest);
    EXPECT_EQ(AtoI(std::string("-") + std::string(5000, '9')), Least);
    EXPECT_EQ(AtoI(std::string(5000, '0') + "5"), 5);
}

TEST(AtoI, AgreesWithTheLibraryWithinItsRange) {
    RandomText random(7);
    for (int round = 0; round < 100000; ++round) {
        const std::string text = random.Of("0123456789-+ \tx", 9);
        ASSERT_EQ(AtoI(text), std::atoi(text.c_str())) << text;
    }
}

}  // namespace
}  // namespace veygrid
