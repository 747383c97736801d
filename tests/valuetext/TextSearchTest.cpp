// Searches without regard to case, among characters whose second bytes look like letters.
#include "valuetext/TextSearch.h"

#include <gtest/gtest.h>

#include <string>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {
namespace {

using namespace std::string_literals;

TEST(TextSearch, FindsInEitherCase) {
    EXPECT_EQ(FindNoCase("Select a From t", "FROM"), 9U);
    EXPECT_EQ(FindNoCase("SELECT A FROM T", "from"), 9U);
    EXPECT_EQ(FindNoCase("select", "FROM"), NotFound);
}

TEST(TextSearch, FindsTheFirstPlaceFromTheStartOn) {
    EXPECT_EQ(FindNoCase("from from", "FROM", 0), 0U);
    EXPECT_EQ(FindNoCase("from from", "FROM", 1), 5U);
    EXPECT_EQ(FindNoCase("from from", "FROM", 6), NotFound);
}

TEST(TextSearch, SignsBesideTheLettersAreNoLetters) {
    EXPECT_EQ(FindNoCase("@[`{", "`"), 2U);
    EXPECT_EQ(FindNoCase("[", "{"), NotFound);
    EXPECT_EQ(FindNoCase("@", "`"), NotFound);
}

TEST(TextSearch, EmptyTextIsFoundAtTheStartUpToTheEnd) {
    EXPECT_EQ(FindNoCase("ab", "", 1), 1U);
    EXPECT_EQ(FindNoCase("ab", "", 2), 2U);
    EXPECT_EQ(FindNoCase("ab", "", 3), NotFound);
    EXPECT_EQ(FindNoCase("", ""), 0U);
}

TEST(TextSearch, TextLongerThanTheRestIsNotFound) {
    EXPECT_EQ(FindNoCase("fro", "from"), NotFound);
    EXPECT_EQ(FindNoCase("a from", "from ", 2), NotFound);
    EXPECT_EQ(FindNoCase("from", "from", 9), NotFound);
}

TEST(TextSearch, SecondByteOfACharacterBeginsNoMatch) {
    // The second byte of the first character is "F" or "f".
    for (const std::string& character : {"\x81\x46"s, "\x81\x66"s}) {
        EXPECT_EQ(FindNoCase(character + "ROM", "FROM"), NotFound);
        EXPECT_EQ(FindNoCase(character + "ROM from", "FROM"), 6U);
    }
}

TEST(TextSearch, SecondByteOfACharacterIsNotMadeCapital) {
    EXPECT_EQ(FindNoCase("\x81\x61", "\x81\x41"), NotFound);
    EXPECT_EQ(FindNoCase("\x81\x61\x81\x41", "\x81\x41"), 2U);
    EXPECT_EQ(FindNoCase("x\x81\x61y", "X\x81\x61Y"), 0U);
    EXPECT_FALSE(StartsWithNoCase("\x81\x61", "\x81\x41"));
}

TEST(TextSearch, LeadByteWithoutSecondByteStandsAlone) {
    EXPECT_EQ(FindNoCase("\x81 from", "FROM"), 2U);
    EXPECT_EQ(FindNoCase("\xFF"
                         "from",
                         "FROM"),
              1U);
    EXPECT_EQ(FindNoCase("from\x81", "FROM\x81"), 0U);
}

TEST(TextSearch, FindsChineseText) {
    const std::string text = CodePage936FromUtf8("表 where 姓名");
    EXPECT_EQ(FindNoCase(text, "WHERE "), 3U);
    EXPECT_EQ(FindNoCase(text, CodePage936FromUtf8("姓名")), 9U);
}

TEST(TextSearch, StartsWithComparesTheWholeText) {
    EXPECT_TRUE(StartsWithNoCase("Order by", "ORDER "));
    EXPECT_FALSE(StartsWithNoCase("Order", "ORDER "));
    EXPECT_FALSE(StartsWithNoCase("reorder ", "ORDER "));
    EXPECT_TRUE(StartsWithNoCase("", ""));
}

TEST(TextSearch, LongRunOfBeginningsEnds) {
    const std::string text(std::size_t{4} << 20U, 'f');
    EXPECT_EQ(FindNoCase(text, "FFFFFG"), NotFound);
}

}  // namespace
}  // namespace veygrid
