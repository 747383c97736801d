// Fields of a delimited text: reading, replacing, walking.
#include "valuetext/Fields.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "valuetext/MultiByte.h"
#include "valuetext/RandomText.h"

namespace veygrid {
namespace {

std::string WithField(std::string text, std::size_t index, char delimiter, std::string_view value) {
    SetField(text, index, delimiter, value);
    return text;
}

std::vector<std::string_view> FieldsOf(std::string_view text, char delimiter) {
    std::vector<std::string_view> fields;
    for (FieldWalk walk(text, delimiter); walk.Next();) {
        EXPECT_EQ(walk.Index(), fields.size());
        fields.push_back(walk.Field());
    }
    return fields;
}

TEST(Fields, GetFieldGivesTheFieldWithTheIndex) {
    EXPECT_EQ(GetField("a,bb,c", 0, ','), "a");
    EXPECT_EQ(GetField("a,bb,c", 1, ','), "bb");
}

TEST(Fields, GetFieldGivesTheRemainderForTheLastField) {
    EXPECT_EQ(GetField("a,bb,c", 2, ','), "c");
    EXPECT_EQ(GetField("a,bb,", 2, ','), "");
    EXPECT_EQ(GetField("abc", 0, ','), "abc");
}

TEST(Fields, GetFieldGivesTheEmptyTextWhereTheTextHasTooFewDelimiters) {
    EXPECT_EQ(GetField("a,bb,c", 3, ','), "");
    EXPECT_EQ(GetField("abc", 1, ','), "");
    EXPECT_EQ(GetField("", 0, ','), "");
    EXPECT_EQ(GetField("", 1, ','), "");
    EXPECT_EQ(GetField("a,b", static_cast<std::size_t>(-1), ','), "");
}

TEST(Fields, SetFieldReplacesTheTextInFrontOfAFollowingDelimiter) {
    EXPECT_EQ(WithField("a,bb,c", 0, ',', "xyz"), "xyz,bb,c");
    EXPECT_EQ(WithField("a,bb,c", 1, ',', ""), "a,,c");
    EXPECT_EQ(WithField("\x0B", 0, VerticalTab, "3"), "3\x0B");
}

TEST(Fields, SetFieldReplacesEverythingBehindTheLastDelimiter) {
    EXPECT_EQ(WithField("a,bb,c", 2, ',', "dd"), "a,bb,dd");
    EXPECT_EQ(WithField("a,", 1, ',', "b"), "a,b");
    EXPECT_EQ(WithField("abc", 0, ',', "x"), "x");
    EXPECT_EQ(WithField("", 0, ',', "x"), "x");
}

TEST(Fields, SetFieldChangesNothingWhereTheTextHasFewerFields) {
    EXPECT_EQ(WithField("a,bb,c", 3, ',', "x"), "a,bb,c");
    EXPECT_EQ(WithField("", 1, ',', "x"), "");
}

TEST(Fields, SetFieldTakesAValueThatLiesInsideTheText) {
    std::string text = "first,2";
    SetField(text, 1, ',', std::string_view(text).substr(0, 5));
    EXPECT_EQ(text, "first,first");
}

TEST(Fields, ADelimiterThatIsATrailByteDoesNotSplit) {
    EXPECT_EQ(FieldsOf("\x81\x7C|\x81\x7C", '|'),
              (std::vector<std::string_view>{"\x81\x7C", "\x81\x7C"}));
    EXPECT_EQ(GetField("\x81\x41"
                       "A\x81\x41",
                       1, 'A'),
              "\x81\x41");
    EXPECT_EQ(WithField("\x8B\x5C\\b", 0, '\\', "x"), "x\\b");
}

TEST(Fields, ALoneLeadByteDoesNotSwallowATab) {
    EXPECT_EQ(FieldsOf("\x81\tb", Tab), (std::vector<std::string_view>{"\x81", "b"}));
}

TEST(Fields, AnEmptyTextIsOneEmptyField) {
    EXPECT_EQ(FieldsOf("", Tab), std::vector<std::string_view>{""});
}

TEST(Fields, TheWalkEndsForGoodBehindTheLastField) {
    FieldWalk walk("a\t", Tab);
    EXPECT_TRUE(walk.Next());
    EXPECT_TRUE(walk.Next());
    EXPECT_FALSE(walk.Next());
    EXPECT_FALSE(walk.Next());
}

TEST(Fields, WalkedFieldsJoinedByTheDelimiterAreTheTextAgain) {
    RandomText random(4);
    for (int round = 0; round < 50000; ++round) {
        const std::string text = random.Of("A|\x81\x7C\t1\xFE", 16);
        const char delimiter = "A|\t1"[random.Below(4)];
        const auto fields = FieldsOf(text, delimiter);
        std::string joined(fields.front());
        for (std::size_t i = 1; i < fields.size(); ++i) {
            joined.append(1, delimiter).append(fields[i]);
            ASSERT_EQ(GetField(text, i, delimiter), fields[i]);
        }
        ASSERT_EQ(joined, text);
        ASSERT_EQ(fields.size(), CountChar(text, delimiter) + 1);
    }
}

}  // namespace
}  // namespace veygrid
