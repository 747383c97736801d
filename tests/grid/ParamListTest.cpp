// The list of named parameters.
#include "grid/ParamList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Pairs = std::vector<std::pair<std::string, std::string>>;

// As a host walks the list.
Pairs Walk(const ParamList& params) {
    Pairs pairs;
    ParamList::Position pos = params.GetFirstParamPos();
    std::string name;
    std::string value;
    while (params.GetNextParam(pos, name, value)) {
        pairs.emplace_back(name, value);
    }
    return pairs;
}

TEST(ParamList, ANameBetweenBlanksIsFoundInAnyCaseAndStoredTrimmed) {
    ParamList params;
    params.SetParam("  abc\t", "1");
    EXPECT_EQ(params.GetParam("ABC"), "1");
    EXPECT_TRUE(params.ParamExist(" aBc "));
    EXPECT_THAT(Walk(params), ElementsAre(std::pair("abc", "1")));
}

TEST(ParamList, AnUnknownNameIsNotAnEmptyValue) {
    ParamList params;
    params.SetParam("empty", "");
    EXPECT_EQ(params.GetParam("other"), std::nullopt);
    EXPECT_FALSE(params.ParamExist("other"));
    EXPECT_EQ(params.FindParam("other"), 0);
    EXPECT_EQ(params.GetParam("empty"), "");
    EXPECT_NE(params.FindParam("empty"), 0);
}

TEST(ParamList, RemovingWithAnEmptyNameClearsAllAndAnswersTrue) {
    ParamList params;
    params.SetParam("a", "1");
    params.SetParam("b", "2");
    EXPECT_TRUE(params.RemoveParam(""));
    EXPECT_EQ(params.Count(), 0U);
    EXPECT_EQ(params.GetFirstParamPos(), 0);
}

TEST(ParamList, RemovingAnUnknownNameAnswersTrueAndChangesNothing) {
    ParamList params;
    params.SetParam("a", "1");
    EXPECT_TRUE(params.RemoveParam("b"));
    EXPECT_TRUE(params.RemoveParam("  "));
    EXPECT_THAT(Walk(params), ElementsAre(std::pair("a", "1")));
}

TEST(ParamList, ReadingOnAtPositionZeroAnswersFalseAndWritesNothing) {
    ParamList params;
    std::string name = "kept";
    std::string value = "kept";
    ParamList::Position pos = 0;
    EXPECT_FALSE(params.GetNextParam(pos, name, value));
    params.SetParam("a", "1");
    EXPECT_FALSE(params.GetNextParam(pos, name, value));
    EXPECT_EQ(pos, 0);
    EXPECT_EQ(name, "kept");
    EXPECT_EQ(value, "kept");
}

TEST(ParamList, ReadingAtAPositionThatNamesNothingAnswersFalse) {
    ParamList params;
    params.SetParam("a", "1");
    params.SetParam("b", "2");
    const ParamList::Position removed = params.FindParam("a");
    params.RemoveParam("a");
    std::string name;
    std::string value;
    for (ParamList::Position pos : {removed, -1, 3, std::numeric_limits<std::int32_t>::max(),
                                    std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_FALSE(params.GetNextParam(pos, name, value));
    }
}

TEST(ParamList, AValueReadsBackCutAtItsTab) {
    ParamList params;
    params.SetParam("a", "one\ttwo");
    EXPECT_EQ(params.GetParam("a"), "one");
    EXPECT_THAT(Walk(params), ElementsAre(std::pair("a", "one")));
    std::vector<std::string> raw;
    params.ForEachRaw([&](const std::string& entry) { raw.push_back(entry); });
    EXPECT_THAT(raw, ElementsAre("a\tone\ttwo"));
}

TEST(ParamList, WritingTwiceKeepsThePlaceAndTakesTheLastFormOfTheName) {
    ParamList params;
    params.SetParam("a", "1");
    params.SetParam("b", "2");
    const ParamList::Position first = params.FindParam("a");
    params.SetParam(" A ", "3");
    EXPECT_EQ(params.FindParam("a"), first);
    EXPECT_THAT(Walk(params), ElementsAre(std::pair("A", "3"), std::pair("b", "2")));
}

TEST(ParamList, ABlankNameIsAddedEachTimeAndFoundByNoSearch) {
    ParamList params;
    params.SetParam("", "1");
    params.SetParam("  ", "2");
    EXPECT_EQ(params.FindParam(""), 0);
    EXPECT_EQ(params.FindParam("  "), 0);
    EXPECT_THAT(Walk(params), ElementsAre(std::pair("", "1"), std::pair("", "2")));
}

TEST(ParamList, OfDuplicatesAfterALoadTheFirstWins) {
    ParamList params;
    params.SetParam("a", "1");
    params.AppendRaw("A\t2");
    params.AppendRaw("without tab");
    EXPECT_EQ(params.GetParam("A"), "1");
    params.SetParam("A", "3");
    EXPECT_THAT(Walk(params), ElementsAre(std::pair("A", "3"), std::pair("A", "2"),
                                          std::pair("without tab", "")));
    params.RemoveParam("a");
    EXPECT_EQ(params.GetParam("a"), "2");
    EXPECT_EQ(params.GetParam("without TAB"), "");
}

TEST(ParamList, NamesCompareByCharactersNotByBytes) {
    ParamList params;
    params.SetParam("\x81\x61", "1");
    EXPECT_FALSE(params.ParamExist("\x81\x41"));
    params.SetParam("\x81\x41", "2");
    EXPECT_EQ(params.GetParam("\x81\x61"), "1");
    EXPECT_EQ(params.Count(), 2U);
    params.SetParam("x\x95\x7E", "\x8B\x5C");
    EXPECT_EQ(params.GetParam("X\x95\x7E"), "\x8B\x5C");
}

TEST(ParamList, APositionStaysGoodWhileItsEntryLives) {
    ParamList params;
    params.SetParam("a", "1");
    params.SetParam("b", "2");
    params.SetParam("c", "3");
    ParamList::Position pos = params.FindParam("b");
    params.RemoveParam("a");
    for (int i = 0; i < 100; ++i) {
        params.SetParam("new" + std::to_string(i), "x");
    }
    std::string name;
    std::string value;
    ASSERT_TRUE(params.GetNextParam(pos, name, value));
    EXPECT_EQ(name, "b");
    ASSERT_TRUE(params.GetNextParam(pos, name, value));
    EXPECT_EQ(name, "c");
    EXPECT_EQ(params.Count(), 102U);
}

TEST(ParamList, RemovingHeadMiddleAndTailKeepsTheOrderOfTheOthers) {
    ParamList params;
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        params.SetParam(name, name);
    }
    params.RemoveParam("a");
    params.RemoveParam("c");
    params.RemoveParam("e");
    params.SetParam("f", "f");
    EXPECT_THAT(Walk(params),
                ElementsAre(std::pair("b", "b"), std::pair("d", "d"), std::pair("f", "f")));
    params.RemoveParam("b");
    params.RemoveParam("f");
    params.RemoveParam("d");
    EXPECT_THAT(Walk(params), IsEmpty());
    EXPECT_EQ(params.GetFirstParamPos(), 0);
}

}  // namespace
}  // namespace veygrid
