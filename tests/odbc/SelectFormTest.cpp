// What the outside of a statement tells.
#include "apps/host/odbc/SelectForm.h"

#include <gtest/gtest.h>

namespace veygrid {
namespace {

SelectForm Form(std::u16string_view text, Database database = Database::SQLite) {
    return FormOf(text, database);
}
std::vector<std::u16string> Bases(std::u16string_view text, std::vector<std::u16string> names,
                                  Database database = Database::SQLite) {
    return BaseColumns(FormOf(text, database), names);
}
using Names = std::vector<std::u16string>;

TEST(SelectFormTest, OneTableWithAliasAndTailIsOneTable) {
    for (const char16_t* text :
         {u"select a from t", u"SELECT a, b FROM t WHERE x = 1", u"SELECT * FROM main.t AS v",
          u"SELECT v.a FROM \"t 1\" v WHERE v.a IN (SELECT b FROM u GROUP BY b) ORDER BY 1 LIMIT 3",
          u"SELECT a FROM [t 1]", u"SELECT 名称 FROM 村"}) {
        EXPECT_TRUE(Form(text).oneTable) << std::string(text, text + 20);
        EXPECT_TRUE(Form(text).query);
    }
}

TEST(SelectFormTest, AnythingElseIsNotOneTable) {
    for (const char16_t* text :
         {u"SELECT DISTINCT a FROM t", u"SELECT a FROM t, u", u"SELECT a FROM t JOIN u ON 1",
          u"SELECT a FROM t NATURAL JOIN u", u"SELECT a FROM (SELECT 1) v", u"SELECT 1",
          u"SELECT a FROM t GROUP BY a", u"SELECT a FROM t UNION SELECT b FROM u",
          u"SELECT a FROM t WHERE x UNION SELECT b FROM u", u"WITH v AS (SELECT 1) SELECT * FROM v",
          u"VALUES (1)", u"SELECT a FROM t HAVING 1", u"SELECT a FROM f(1)",
          u"SELECT a FROM t FOR UPDATE", u"SELECT a FROM t CROSS JOIN u",
          u"SELECT a FROM t LEFT JOIN u ON 1"}) {
        EXPECT_FALSE(Form(text).oneTable) << std::string(text, text + 20);
        EXPECT_TRUE(Form(text).query);
    }
}

TEST(SelectFormTest, OtherStatementsAreNoQueries) {
    for (const char16_t* text : {u"", u" ; ", u"-- SELECT 1", u"UPDATE t SET a = 1",
                                 u"CREATE TABLE t(a)", u"'SELECT'", u"SELECTED"}) {
        EXPECT_FALSE(Form(text).query);
    }
}

TEST(SelectFormTest, SemicolonsAndCommentsAroundAreLeftOut) {
    EXPECT_EQ(Form(u"/* a */ SELECT 1 -- b\n;;\n -- c").body, u"SELECT 1");
    EXPECT_EQ(Form(u"SELECT ';' ;").body, u"SELECT ';'");
    EXPECT_FALSE(Form(u"SELECT ';' ;").several);
    EXPECT_TRUE(Form(u"SELECT 1; DELETE FROM t").several);
}

TEST(SelectFormTest, WordsInLiteralsNamesAndCommentsAreNoKeywords) {
    const SelectForm form = Form(
        u"SELECT a /* FROM x */, 'FROM '' y', \"from\" FROM t -- GROUP BY\n WHERE b = 'ORDER'");
    EXPECT_TRUE(form.oneTable);
    EXPECT_EQ(form.table, u"t");
    EXPECT_FALSE(form.ordered);
    ASSERT_EQ(form.items.size(), 3u);
    EXPECT_EQ(form.items[2].column, u"from");
}

TEST(SelectFormTest, PostgreSqlLiteralsOfItsOwn) {
    const auto pg = Database::PostgreSQL;
    EXPECT_TRUE(Form(u"SELECT a FROM t WHERE b = $x$ ; GROUP BY $x$", pg).oneTable);
    EXPECT_TRUE(Form(u"SELECT a FROM t WHERE b = E'\\' GROUP BY '", pg).oneTable);
    EXPECT_TRUE(Form(u"SELECT a /* /* */ , */ FROM t", pg).oneTable);
    EXPECT_FALSE(Form(u"SELECT a FROM t WHERE $1 = 2 GROUP BY a", pg).oneTable);
}

TEST(SelectFormTest, TextThatNeverEndsIsReadToItsEnd) {
    for (const char16_t* text :
         {u"SELECT 'a", u"SELECT \"a", u"SELECT /* a", u"SELECT (a, (b", u"SELECT a FROM",
          u"SELECT", u"SELECT a FROM t.", u"SELECT )) FROM t"}) {
        EXPECT_FALSE(Form(text).oneTable);
        EXPECT_FALSE(Form(text, Database::PostgreSQL).oneTable);
    }
}

TEST(SelectFormTest, BaseColumnsBehindAliasesAndQualifiers) {
    EXPECT_EQ(
        Bases(u"SELECT v.a AS b, b a, \"c\"\"d\", main.v.e FROM t v", {u"b", u"a", u"c", u"e"}),
        (Names{u"a", u"b", u"c\"d", u"e"}));
}

TEST(SelectFormTest, ExpressionsHaveNoBaseColumn) {
    EXPECT_EQ(Bases(u"SELECT a + 1 AS a, f(b), 'c' c, 5, -d, (e), g || h FROM t",
                    {u"a", u"f", u"c", u"5", u"d", u"e", u"g"}),
              Names(7));
}

TEST(SelectFormTest, StarStandsForTheColumnsThatTheOthersLeave) {
    EXPECT_EQ(Bases(u"SELECT * FROM t", {u"a", u"b"}), (Names{u"a", u"b"}));
    EXPECT_EQ(Bases(u"SELECT a x, t.*, 1 FROM t", {u"x", u"a", u"b", u"1"}),
              (Names{u"a", u"a", u"b", u""}));
    EXPECT_EQ(Bases(u"SELECT *, * FROM t", {u"a", u"a"}), Names(2));
}

TEST(SelectFormTest, PostgreSqlTakesUnquotedNamesInSmallLetters) {
    EXPECT_EQ(Bases(u"SELECT Ab, \"Ab\" FROM t", {u"ab", u"Ab"}, Database::PostgreSQL),
              (Names{u"ab", u"Ab"}));
}

}  // namespace
}  // namespace veygrid
