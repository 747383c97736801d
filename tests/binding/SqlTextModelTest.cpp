// The fast routines held against the literal ones on many random statements, and fed texts on which
// a quadratic routine would not come to an end.
#include "tests/binding/SqlTextModel.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "binding/SqlText.h"
#include "valuetext/MultiByte.h"
#include "valuetext/TextSearch.h"

namespace veygrid {
namespace {

constexpr int Rounds = 200'000;

// Statements put together from few pieces, so that every keyword meets every neighbour.
class Statements {
  public:
    std::string Next() {
        std::string text = Chance(3) ? "SELECT " : "";
        const int pieces = Number(0, 14);
        for (int i = 0; i < pieces; ++i) {
            text += Pieces[static_cast<std::size_t>(Number(0, Pieces.size() - 1))];
        }
        return text;
    }
    std::string Keyword() {
        return Keywords[static_cast<std::size_t>(Number(0, Keywords.size() - 1))];
    }
    int Number(int low, std::size_t high) {
        return std::uniform_int_distribution<int>(low, static_cast<int>(high))(m_random);
    }

  private:
    bool Chance(int oneIn) { return Number(1, static_cast<std::size_t>(oneIn)) == 1; }

    static constexpr std::array Keywords = {"FROM", "WHERE", "GROUP ", "ORDER ", "SELECT", ""};
    // Lone lead bytes, second bytes that are letters, "_", "|", "\\", braces and "~", and halves of
    // keywords are among them.
    static constexpr std::array Pieces = {
        "SELECT ",  "select",   " FROM ",   " from ",   "FROM",     "From",     " WHERE ",
        "where",    " GROUP ",  "group ",   "GROUP",    " ORDER ",  "order ",   "ORDER",
        ",",        ",",        ",",        "(",        ")",        "'",        "'",
        ".",        ".",        ".",        " ",        " ",        "\t",       "\r\n",
        "\v",       "a",        "B",        "T1",       "_x",       "7",        "*",
        "[",        "\x81\x41", "\x81\x66", "\x81\x57", "\x81\x5F", "\x81\x7C", "\x8B\x5C",
        "\x81\x7B", "\x81\x7D", "\x95\x7E", "\xB1\xED", "\xFE\xFE", "\x81",     "\xFE",
        "\x80",     "\xFF",     "ROM",      "ROM ",     "HERE",     "A.b",      "1.5"};

    std::mt19937 m_random{20'240'501};
};

void ExpectLikeModel(const std::string& text) {
    ASSERT_EQ(SqlFromList(text), model::FromList(text));
    ASSERT_EQ(SqlSelectList(text), model::SelectList(text));
    ASSERT_EQ(SqlTail(text), model::Tail(text));
    ASSERT_EQ(SqlHostColumns(text).value_or("<null>"), model::HostColumns(text));
    ASSERT_EQ(SqlHostTables(text).value_or("<null>"), model::HostTables(text));
    ASSERT_EQ(CountSelectColumns(text), model::CountColumns(text));
    ASSERT_EQ(MaskTopCommas(text, '\x0B'), model::Mask(text, '\x0B'));
    ASSERT_EQ(MaskTopCommas(text, '|'), model::Mask(text, '|'));
    ASSERT_EQ(TablesFromColumns(text), model::Tables(text));
}

TEST(SqlTextModel, RandomStatementsGiveWhatTheLiteralRoutinesGive) {
    Statements statements;
    for (int i = 0; i < Rounds; ++i) {
        const std::string text = statements.Next();
        ExpectLikeModel(text);
        if (HasFatalFailure()) {
            FAIL() << "statement: " << testing::PrintToString(text);
        }
    }
}

TEST(SqlTextModel, RandomSearchesFindWhatThePlainSearchFinds) {
    Statements statements;
    for (int i = 0; i < Rounds; ++i) {
        const std::string text = statements.Next();
        const std::string what = statements.Keyword();
        // Any character's first byte may be the start.
        std::size_t start = 0;
        for (int steps = statements.Number(0, 6); steps > 0 && start < text.size(); --steps) {
            start += CharLength(text, start);
        }
        const std::size_t expected = model::Searchable(text).find(what, start);
        ASSERT_EQ(FindNoCase(text, what, start),
                  expected == std::string::npos ? NotFound : expected)
            << testing::PrintToString(text);
    }
}

// ---- Texts of megabytes: a routine that looks back or ahead at each place would take hours ----

constexpr std::size_t Million = 1'000'000;

std::string Repeat(std::string_view piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

TEST(SqlTextLinear, MillionColumnsAreCounted) {
    const std::string list = Repeat("a,", Million) + "a";
    EXPECT_EQ(CountSelectColumns("SELECT " + list + " FROM t"), 1'000'001);
    EXPECT_EQ(MaskTopCommas(list, '|'), Repeat("a|", Million) + "a");
}

TEST(SqlTextLinear, MillionHiddenCommasAreWalkedOnce) {
    const std::string list = Repeat("a,", Million);
    EXPECT_EQ(CountSelectColumns("SELECT (" + list + " FROM t"), 1);
    EXPECT_EQ(CountSelectColumns("SELECT '" + list + " FROM t"), 1);
    EXPECT_EQ(MaskTopCommas(Repeat("(,", Million), '|'), Repeat("(,", Million));
}

TEST(SqlTextLinear, LongRunOfLettersAndPointsIsOneName) {
    const std::string run = Repeat("a.", Million);
    EXPECT_EQ(TablesFromColumns(run + "b"), run.substr(0, run.size() - 1));
    EXPECT_EQ(TablesFromColumns(Repeat("a.1", Million)), "");
    const std::string points = Repeat(".", 2 * Million);
    EXPECT_EQ(TablesFromColumns("a" + points + ". "), "a" + points);
}

TEST(SqlTextLinear, MillionPointsInsideOneLiteralAreSkipped) {
    const std::string names = Repeat("a.b ", Million);
    EXPECT_EQ(TablesFromColumns("'" + names + "'.c"), "");
    EXPECT_EQ(TablesFromColumns(Repeat("'", 2 * Million) + "A.b"), "A");
}

TEST(SqlTextLinear, LongNameInFrontOfManyPointsIsReadOnce) {
    const std::string name(Million, 'n');
    EXPECT_EQ(TablesFromColumns(name + ".a," + Repeat(name.substr(0, 1000) + ".b,", 1000) + "c"),
              name + "," + name.substr(0, 1000));
}

TEST(SqlTextLinear, HundredThousandsOfTablesAreToldApart) {
    std::string list;
    std::string tables;
    for (int i = 0; i < 300'000; ++i) {
        const std::string name = std::string("t").append(std::to_string(i));
        list.append(i == 0 ? "" : ",").append(name).append(".c");
        tables.append(i == 0 ? "" : ",").append(name);
    }
    EXPECT_EQ(TablesFromColumns(list + "," + list), tables);
}

TEST(SqlTextLinear, MegabytesOfHalfKeywordsAreSearchedOnce) {
    const std::string halves = Repeat("SELECFROWHERGROUPORDER", Million / 8);
    EXPECT_EQ(SqlFromList("SELECT a FROM " + halves), halves);
    EXPECT_EQ(SqlTail(halves), "");
    EXPECT_FALSE(SqlHostColumns(halves).has_value());
    EXPECT_FALSE(SqlHostTables(halves).has_value());
}

TEST(SqlTextLinear, MegabytesOfTwoByteCharactersAreSearchedOnce) {
    const std::string names = Repeat("\x81\x46", Million);
    EXPECT_EQ(SqlSelectList("SELECT " + names + " FROM t").size(), 2 * Million);
    EXPECT_EQ(TablesFromColumns(names + ".x"), "");
    EXPECT_EQ(TablesFromColumns(Repeat("\x81\x41.", Million)), "");
}

}  // namespace
}  // namespace veygrid
