// The statement cut at its keywords, its columns counted and its tables found, line by line.
#include "binding/SqlText.h"

#include <gtest/gtest.h>

#include <string>

#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

std::string Gbk(std::string_view utf8) {
    return CodePage936FromUtf8(utf8);
}

// ---- The statement as a whole ----

TEST(SqlText, FullStatementFallsIntoItsParts) {
    const std::string text = "SELECT a,b FROM t WHERE x=1 ORDER BY a";
    EXPECT_EQ(SqlSelectList(text), "a,b");
    EXPECT_EQ(SqlFromList(text), "t");
    EXPECT_EQ(SqlTail(text), "WHERE x=1 ORDER BY a");
    EXPECT_EQ(CountSelectColumns(text), 2);
}

TEST(SqlText, SmallLetterStatementIsCutLikeACapitalOne) {
    const std::string text = "select a from t order by a";
    EXPECT_EQ(SqlFromList(text), "t");
    EXPECT_EQ(SqlHostTables(text), "t order by a");
    EXPECT_EQ(SqlSelectList(text), "a");
    EXPECT_EQ(SqlTail(text), "order by a");
}

TEST(SqlText, CommasInBracketsAndLiteralsAreNoColumns) {
    EXPECT_EQ(CountSelectColumns("SELECT f(a,b),'x,y',c FROM t"), 3);
}

TEST(SqlText, GroupWithoutOrderStaysInTheTableList) {
    const std::string text = "SELECT a FROM t GROUP BY a";
    EXPECT_EQ(SqlFromList(text), "t GROUP BY a");
    EXPECT_EQ(SqlTail(text), "GROUP BY a");
}

TEST(SqlText, GroupBeforeOrderEndsTheTableList) {
    const std::string text = "SELECT a FROM t GROUP BY a ORDER BY a";
    EXPECT_EQ(SqlFromList(text), "t");
    EXPECT_EQ(SqlTail(text), "GROUP BY a ORDER BY a");
}

TEST(SqlText, OrderBeforeGroupEndsTheTableListToo) {
    const std::string text = "SELECT a FROM t ORDER BY a GROUP BY a";
    EXPECT_EQ(SqlFromList(text), "t");
    EXPECT_EQ(SqlTail(text), "ORDER BY a GROUP BY a");
}

TEST(SqlText, FromAtTheVeryStartGivesTheWholeTextAndNoSelectList) {
    EXPECT_EQ(SqlFromList("FROM t"), "FROM t");
    EXPECT_EQ(SqlSelectList("FROM t"), "");
    EXPECT_EQ(CountSelectColumns("FROM t"), 0);
    EXPECT_EQ(SqlHostTables("FROM t"), "t");
}

TEST(SqlText, SingleWordHasNoColumns) {
    EXPECT_EQ(CountSelectColumns("customers"), 0);
    EXPECT_EQ(SqlFromList("customers"), "customers");
    EXPECT_EQ(SqlSelectList("customers"), "");
    EXPECT_EQ(SqlTail("customers"), "");
}

TEST(SqlText, EmptyTextGivesEmptyResults) {
    EXPECT_EQ(SqlFromList({}), "");
    EXPECT_EQ(SqlSelectList({}), "");
    EXPECT_EQ(SqlTail({}), "");
    EXPECT_EQ(CountSelectColumns({}), 0);
    EXPECT_EQ(MaskTopCommas({}, '|'), "");
    EXPECT_EQ(TablesFromColumns({}), "");
    EXPECT_FALSE(SqlHostColumns({}).has_value());
    EXPECT_FALSE(SqlHostTables({}).has_value());
}

// ---- Where the keywords stand ----

TEST(SqlText, KeywordLettersInsideANameCutTheStatement) {
    const std::string text = "SELECT FROMDATE FROM t";
    EXPECT_EQ(SqlSelectList(text), "");
    EXPECT_EQ(SqlFromList(text), "ATE FROM t");
}

TEST(SqlText, KeywordLettersInsideALiteralCutTheStatement) {
    const std::string text = "SELECT a FROM t x='WHERE' y";
    EXPECT_EQ(SqlFromList(text), "t x=");
    EXPECT_EQ(SqlTail(text), "WHERE' y");
}

TEST(SqlText, GroupAndOrderNeedTheBlankBehindThem) {
    const std::string text = "SELECT a FROM orders,groups";
    EXPECT_EQ(SqlFromList(text), "orders,groups");
    EXPECT_EQ(SqlTail(text), "");
    EXPECT_EQ(SqlTail("SELECT a FROM t ORDER\tBY a"), "");
}

TEST(SqlText, WhereNeedsNoBlankBehindIt) {
    EXPECT_EQ(SqlFromList("SELECT a FROM t WHERE(x=1)"), "t");
    EXPECT_EQ(SqlTail("SELECT a FROM t WHERE(x=1)"), "WHERE(x=1)");
}

TEST(SqlText, WhereInFrontOfFromIsTheTailButDoesNotEndTheTableList) {
    const std::string text = "SELECT where1 FROM t";
    EXPECT_EQ(SqlFromList(text), "t");
    EXPECT_EQ(SqlTail(text), "where1 FROM t");
}

TEST(SqlText, TailAtTheVeryStartIsEmpty) {
    EXPECT_EQ(SqlTail("WHERE x=1"), "");
    EXPECT_EQ(SqlTail("ORDER BY x"), "");
    EXPECT_EQ(SqlTail(" WHERE x=1"), "WHERE x=1");
    // The first place counts, though another one stands further on.
    EXPECT_EQ(SqlTail("WHERE x WHERE y"), "");
}

TEST(SqlText, TailIsTrimmed) {
    EXPECT_EQ(SqlTail("SELECT a FROM t WHERE x=1 \t\r\n"), "WHERE x=1");
}

// ---- Fixed offsets, whatever stands there ----

TEST(SqlText, SelectListOfAStatementThatIsTooShortIsEmpty) {
    EXPECT_EQ(SqlSelectList("a FROM t"), "");
    EXPECT_EQ(SqlSelectList("SELECTFROM t"), "");
    EXPECT_EQ(SqlSelectList("SELECT FROM t"), "");
    EXPECT_EQ(SqlSelectList("SELECT  FROM t"), "");
}

TEST(SqlText, SelectListTrustsSevenBytesInFrontAndOneBehind) {
    EXPECT_EQ(SqlSelectList("  SELECT ab FROM t"), "T ab");
    EXPECT_EQ(SqlSelectList("SELECT ab,cFROM t"), "ab,");
    EXPECT_EQ(SqlSelectList("SELECT   a , b   FROM t"), "a , b");
}

TEST(SqlText, TableListWithoutRoomIsEmpty) {
    EXPECT_EQ(SqlFromList("SELECT a FROM"), "");
    EXPECT_EQ(SqlFromList("SELECT a FROM "), "");
    EXPECT_EQ(SqlFromList("SELECT a FROMWHERE x"), "");
    EXPECT_EQ(SqlFromList("SELECT a FROM WHERE x"), "");
    EXPECT_EQ(SqlFromList("SELECT a FROM  WHERE x"), "");
}

TEST(SqlText, TableListTrustsOneByteOnEitherSide) {
    EXPECT_EQ(SqlFromList("SELECT a FROM(t)WHERE x"), "t");
    EXPECT_EQ(SqlFromList("SELECT a FROM  t,u  WHERE x"), "t,u");
}

TEST(SqlText, TableListOfATextWithoutFromIsTheTextTrimmed) {
    EXPECT_EQ(SqlFromList("  t, u\r\n"), "t, u");
}

TEST(SqlText, CutsFallOnBytesEvenInsideACharacter) {
    // With no blank in front of the keyword the byte given up is the second half of a character.
    EXPECT_EQ(SqlSelectList("SELECT a\x81\x41"
                            "FROM t"),
              "a\x81");
    EXPECT_EQ(SqlFromList("SELECT a FROM\x81\x41"
                          "b WHERE x"),
              "Ab");
}

// ---- What hosts are told ----

TEST(SqlText, HostColumnsRunFromSelectToFrom) {
    EXPECT_EQ(SqlHostColumns("SELECT a,b FROM t"), "a,b");
    EXPECT_EQ(SqlHostColumns("  select a,bfrom t"), "a,b");
    EXPECT_EQ(SqlHostColumns("SELECTFROM"), "");
}

TEST(SqlText, HostColumnsWithoutAKeywordAreNull) {
    EXPECT_FALSE(SqlHostColumns("SELECT a,b").has_value());
    EXPECT_FALSE(SqlHostColumns("a,b FROM t").has_value());
    EXPECT_FALSE(SqlHostColumns("FROM t SELECT a").has_value());
    EXPECT_EQ(SqlHostColumns("FROM t SELECT a FROM u"), "a");
}

TEST(SqlText, HostTablesRunFromFromToWhere) {
    EXPECT_EQ(SqlHostTables("SELECT a FROM t WHERE x=1"), "t");
    EXPECT_EQ(SqlHostTables("SELECT a FROMtWHERE x=1"), "t");
    EXPECT_EQ(SqlHostTables("SELECT a FROM t GROUP BY a ORDER BY a"), "t GROUP BY a ORDER BY a");
    EXPECT_EQ(SqlHostTables("SELECT a FROM"), "");
    EXPECT_EQ(SqlHostTables("SELECT where1 FROM t"), "t");
}

TEST(SqlText, HostTablesWithoutFromAreNull) {
    EXPECT_FALSE(SqlHostTables("SELECT a").has_value());
    EXPECT_TRUE(SqlHostTables("FROM").has_value());
}

TEST(SqlText, StatementKeepsTheBlankInFrontOfAnEmptyTail) {
    EXPECT_EQ(SqlStatement("a,b", "t", "WHERE x"), "SELECT a,b FROM t WHERE x");
    EXPECT_EQ(SqlStatement("a", "t", ""), "SELECT a FROM t ");
    EXPECT_EQ(SqlStatement("", "", ""), "SELECT  FROM  ");
}

// ---- Top-level commas ----

TEST(SqlText, BracketsNeedOnlyBeInBalance) {
    EXPECT_EQ(MaskTopCommas("a),(b,c", '|'), "a),(b|c");
    EXPECT_EQ(MaskTopCommas("((a,b),c),d", '|'), "((a,b),c)|d");
}

TEST(SqlText, BracketsInsideALiteralCount) {
    EXPECT_EQ(MaskTopCommas("'(',a,b", '|'), "'(',a,b");
    EXPECT_EQ(MaskTopCommas("'(',')',b", '|'), "'(',')'|b");
}

TEST(SqlText, UnpairedApostropheHidesAllLaterCommas) {
    EXPECT_EQ(MaskTopCommas("a,'b,c,d", '|'), "a|'b,c,d");
    EXPECT_EQ(MaskTopCommas("a,'it''s, b',c", '|'), "a|'it''s, b'|c");
}

TEST(SqlText, DoubleQuotesHideNothing) {
    EXPECT_EQ(MaskTopCommas("\"a,b\",c", '|'), "\"a|b\"|c");
}

TEST(SqlText, EmptyFieldsCountAsColumns) {
    EXPECT_EQ(CountSelectColumns("SELECT ,a,,b, FROM t"), 5);
    EXPECT_EQ(MaskTopCommas(",a,,b,", '|'), "|a||b|");
}

TEST(SqlText, MaskedListIsTrimmedButKeepsABlankMarkAtItsEnds) {
    EXPECT_EQ(MaskTopCommas("  a , b\t", '|'), "a | b");
    EXPECT_EQ(MaskTopCommas(" ,a, ", '\x0B'),
              "\x0B"
              "a\x0B");
}

TEST(SqlText, CharactersWithOddSecondBytesHideNoComma) {
    const std::string names =
        "\x81\x7C,\x95\x7E,\x81\x41,\x8B\x5C,\x81\x7B,\x81\x7D,\x81\x60,\x81\x5B";
    EXPECT_EQ(CountSelectColumns("SELECT " + names + " FROM t"), 8);
    EXPECT_EQ(MaskTopCommas("\x81\x7C,\x95\x7E", '|'), "\x81\x7C|\x95\x7E");
    EXPECT_EQ(SqlSelectList("SELECT " + names + " FROM t"), names);
}

TEST(SqlText, LoneLeadByteDoesNotSwallowAComma) {
    EXPECT_EQ(MaskTopCommas("a\x81,b", '|'), "a\x81|b");
}

// ---- Chinese names ----

TEST(SqlText, ChineseStatementFallsIntoItsParts) {
    const std::string text = Gbk("SELECT 姓名,学生.年龄 FROM 学生 WHERE 年龄>18");
    EXPECT_EQ(SqlSelectList(text), Gbk("姓名,学生.年龄"));
    EXPECT_EQ(SqlFromList(text), Gbk("学生"));
    EXPECT_EQ(SqlTail(text), Gbk("WHERE 年龄>18"));
    EXPECT_EQ(SqlHostTables(text), Gbk("学生"));
    EXPECT_EQ(SqlHostColumns(text), Gbk("姓名,学生.年龄"));
}

TEST(SqlText, SecondBytesThatSpellAKeywordAreNoKeyword) {
    // Characters whose second bytes are "F", "W", "G" and "O", with the other letters behind them.
    const std::string fakes =
        "\x81\x46"
        "ROM \x81\x57"
        "HERE \x81\x47"
        "ROUP \x81\x4F"
        "RDER ";
    const std::string text = "SELECT " + fakes + "FROM " + fakes + "WHERE x=1";
    const std::string trimmed = fakes.substr(0, fakes.size() - 1);
    EXPECT_EQ(SqlSelectList(text), trimmed);
    EXPECT_EQ(SqlFromList(text), trimmed);
    EXPECT_EQ(SqlTail(text), "WHERE x=1");
}

// ---- Table names ----

TEST(SqlText, TablesComeInOrderOfFirstAppearance) {
    EXPECT_EQ(TablesFromColumns("A.X,A.Y,B.Z"), "A,B");
    EXPECT_EQ(TablesFromColumns("B.Z,A.X,B.Y,C.X"), "B,A,C");
}

TEST(SqlText, NumbersAndLiteralsQualifyNothing) {
    EXPECT_EQ(TablesFromColumns("1.5,'a.b',C.D"), "C");
}

TEST(SqlText, NameInFrontOfTheLastPointIsTheTable) {
    EXPECT_EQ(TablesFromColumns("S.T.C"), "S.T");
    EXPECT_EQ(TablesFromColumns("db.S.T.C,S.T.D"), "db.S.T,S.T");
    EXPECT_EQ(TablesFromColumns("A..X"), "A.");
}

TEST(SqlText, UnqualifiedColumnsNameNoTable) {
    EXPECT_EQ(TablesFromColumns("a,b,f(c) d"), "");
}

TEST(SqlText, TableNamesAreComparedExactly) {
    EXPECT_EQ(TablesFromColumns("a.x,A.y,a.z"), "a,A");
}

TEST(SqlText, PointInFrontOfADigitIsSkipped) {
    EXPECT_EQ(TablesFromColumns("A.1x,B.c2"), "B");
    EXPECT_EQ(TablesFromColumns("A.B.1"), "");
}

TEST(SqlText, PointAtTheEndOfTheListIsSkipped) {
    EXPECT_EQ(TablesFromColumns("A.X,B."), "A");
    EXPECT_EQ(TablesFromColumns("A.X,B. "), "A,B");
}

TEST(SqlText, PointAtTheStartEndsTheWalk) {
    EXPECT_EQ(TablesFromColumns(".5,A.X"), "");
    EXPECT_EQ(TablesFromColumns(" .5,A.X"), "A");
}

TEST(SqlText, QuotedQualifierIsAnEmptyName) {
    EXPECT_EQ(TablesFromColumns("[T 1].X"), "");
    EXPECT_EQ(TablesFromColumns("[T 1].X,A.Y"), ",A");
    EXPECT_EQ(TablesFromColumns("A.Y,[T 1].X,(b).c"), "A,");
}

TEST(SqlText, AliasesAndExpressionsDoNotHideTables) {
    EXPECT_EQ(TablesFromColumns("SUM(A.X*2)+B.Y AS n, C.* , D_1.E_2"), "A,B,C,D_1");
}

TEST(SqlText, OddNumberOfApostrophesHidesAllThatFollows) {
    EXPECT_EQ(TablesFromColumns("A.X,'B.Y,C.Z"), "A");
    EXPECT_EQ(TablesFromColumns("'it''s.n',C.Z"), "C");
}

TEST(SqlText, ChineseQualifierIsAnEmptyName) {
    EXPECT_EQ(TablesFromColumns(Gbk("学生.姓名")), "");
    EXPECT_EQ(TablesFromColumns(Gbk("A.姓名,学生.姓名,B.年龄")), "A,,B");
}

TEST(SqlText, SecondByteOfACharacterIsNoLetterOfATableName) {
    // Characters with the second bytes "A" and "_" in front of a name end it.
    EXPECT_EQ(TablesFromColumns("\x81\x41X.Y"), "X");
    EXPECT_EQ(TablesFromColumns("\x81\x41.Y"), "");
    EXPECT_EQ(TablesFromColumns("\x81\x5FX.Y,\x81\x5F.Z,Q.R"), "X,,Q");
    EXPECT_EQ(TablesFromColumns("A.\x81\x41.B"), "A,");
}

}  // namespace
}  // namespace veygrid
