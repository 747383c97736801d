// Tests of guessing what a column holds.
#include "apps/grd/ColumnGuess.h"

#include <gtest/gtest.h>

#include "grd/Support.h"

namespace veygrid {
namespace {

ColumnType GuessFor(const std::vector<std::string>& texts) {
    ColumnGuess guess;
    for (const std::string& text : texts) {
        guess.See(text);
    }
    return guess.Type();
}

TEST(ColumnGuess, NumbersAreDigitsWithASignAndAPoint) {
    EXPECT_EQ(GuessFor({"1", "-2", "3.50", "0", "0.5", ".5", "-.5", "5."}), ColumnType::Number);
}

TEST(ColumnGuess, OneTextMakesTheColumnString) {
    EXPECT_EQ(GuessFor({"1", "2", "n/a"}), ColumnType::String);
    for (const char* text : {"-", ".", "1.2.3", "1-2", "1e5", "+1", "1,000", " 1", "--1", "0x1"}) {
        EXPECT_EQ(GuessFor({text}), ColumnType::String) << text;
    }
}

TEST(ColumnGuess, CodesAreNoNumbers) {
    EXPECT_EQ(GuessFor({"007"}), ColumnType::String);
    EXPECT_EQ(GuessFor({"00"}), ColumnType::String);
    EXPECT_EQ(GuessFor({"110101199003074477"}), ColumnType::String);
    EXPECT_EQ(GuessFor({"110101001001"}), ColumnType::Number);
}

TEST(ColumnGuess, DatesAreWhatMayBeTypedAsOne) {
    EXPECT_EQ(GuessFor({"2003-08-14", "2003/8/5", Gbk("2003年8月5日")}), ColumnType::Date);
    EXPECT_EQ(GuessFor({"20030814", "20031231"}), ColumnType::Date);
    EXPECT_EQ(GuessFor({"2003-8-14 10:20"}), ColumnType::String);
    EXPECT_EQ(GuessFor({"08/14/2003"}), ColumnType::String);
}

TEST(ColumnGuess, EightDigitsThatAreNoDateAreNumbers) {
    EXPECT_EQ(GuessFor({"20030814", "20031301"}), ColumnType::Number);
}

TEST(ColumnGuess, ALeapDayKeepsAColumnOfDates) {
    EXPECT_EQ(GuessFor({"2004-02-28", "2004-02-29", "2004-03-01"}), ColumnType::Date);
    EXPECT_EQ(GuessFor({"2004-02-30"}), ColumnType::String);
}

TEST(ColumnGuess, EmptyTextsDoNotCount) {
    EXPECT_EQ(GuessFor({"", "1", ""}), ColumnType::Number);
    EXPECT_EQ(GuessFor({"", ""}), ColumnType::Unknown);
}

TEST(ColumnGuess, WidthIsThatOfTheWidestText) {
    ColumnGuess guess;
    guess.See("abc");
    guess.See(Gbk("多福巷"));
    guess.See("");
    EXPECT_EQ(guess.Width(), 6U);
}

}  // namespace
}  // namespace veygrid
