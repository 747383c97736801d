// Letters of columns.
#include "valuetext/ColumnLetters.h"

#include <gtest/gtest.h>

#include <limits>

namespace veygrid {
namespace {

TEST(ColumnLetters, ColumnsBelowOneHaveNone) {
    EXPECT_EQ(ColumnLetters(0), "");
    EXPECT_EQ(ColumnLetters(-1), "");
    EXPECT_EQ(ColumnLetters(std::numeric_limits<std::int32_t>::min()), "");
}

TEST(ColumnLetters, BorrowsWhereADigitWouldBeZero) {
    EXPECT_EQ(ColumnLetters(1), "A");
    EXPECT_EQ(ColumnLetters(26), "Z");
    EXPECT_EQ(ColumnLetters(27), "AA");
    EXPECT_EQ(ColumnLetters(52), "AZ");
    EXPECT_EQ(ColumnLetters(53), "BA");
    EXPECT_EQ(ColumnLetters(26 * 27), "ZZ");
    EXPECT_EQ(ColumnLetters(26 * 27 + 1), "AAA");
}

TEST(ColumnLetters, TheLargestColumnHasSevenLetters) {
    EXPECT_EQ(ColumnLetters(std::numeric_limits<std::int32_t>::max()), "FXSHRXW");
}

// Read back as a number of base 26 with digits 1 to 26, the letters give the column.
TEST(ColumnLetters, EveryColumnReadsBack) {
    for (std::int32_t col = 1; col <= 20000; ++col) {
        std::int32_t number = 0;
        for (const char letter : ColumnLetters(col)) {
            ASSERT_GE(letter, 'A');
            ASSERT_LE(letter, 'Z');
            number = number * 26 + (letter - 'A' + 1);
        }
        ASSERT_EQ(number, col);
    }
}

}  // namespace
}  // namespace veygrid
