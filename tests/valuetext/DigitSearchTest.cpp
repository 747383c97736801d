// Digits in text.
#include "valuetext/DigitSearch.h"

#include <gtest/gtest.h>

#include <string_view>

namespace veygrid {
namespace {

TEST(DigitSearch, IsAllDigitsTakesDigitsAndTheEmptyText) {
    EXPECT_TRUE(IsAllDigits(""));
    EXPECT_TRUE(IsAllDigits("0123456789"));
    EXPECT_FALSE(IsAllDigits("1 2"));
    EXPECT_FALSE(IsAllDigits("1/"));
    EXPECT_FALSE(IsAllDigits("1:"));
    EXPECT_FALSE(IsAllDigits(std::string_view("1\0", 2)));
    EXPECT_FALSE(IsAllDigits("\xA3\xB1"));  // a wide digit is none
}

TEST(DigitSearch, FindDigitFromGivesTheFirstDigitAtOrAfterStart) {
    EXPECT_EQ(FindDigitFrom("ab1c2", 0), 2U);
    EXPECT_EQ(FindDigitFrom("ab1c2", 2), 2U);
    EXPECT_EQ(FindDigitFrom("ab1c2", 3), 4U);
    EXPECT_EQ(FindDigitFrom("ab", 0), NotFound);
}

TEST(DigitSearch, FindNonDigitFromGivesTheFirstNonDigitAtOrAfterStart) {
    EXPECT_EQ(FindNonDigitFrom("12a3\xC4\xEA", 0), 2U);
    EXPECT_EQ(FindNonDigitFrom("12a3\xC4\xEA", 3), 4U);
    EXPECT_EQ(FindNonDigitFrom("12a3\xC4\xEA", 5), 5U);
    EXPECT_EQ(FindNonDigitFrom("12", 0), NotFound);
}

TEST(DigitSearch, NothingIsFoundWhenStartIsAtOrPastTheEnd) {
    for (std::string_view text : {"", "1", "a"}) {
        EXPECT_EQ(FindDigitFrom(text, text.size()), NotFound);
        EXPECT_EQ(FindNonDigitFrom(text, text.size()), NotFound);
        EXPECT_EQ(FindDigitFrom(text, text.size() + 5), NotFound);
        EXPECT_EQ(FindNonDigitFrom(text, NotFound), NotFound);
    }
}

}  // namespace
}  // namespace veygrid
