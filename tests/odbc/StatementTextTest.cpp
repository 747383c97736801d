// Date marks, names and the texts of counting.
#include "apps/host/odbc/StatementText.h"

#include <gtest/gtest.h>

namespace veygrid {
namespace {

std::u16string Converted(std::u16string_view text, Database database = Database::SQLite) {
    return WithoutDateMarks(text, database);
}

TEST(StatementTextTest, ADateMarkBecomesALiteral) {
    EXPECT_EQ(Converted(u"DELETE FROM T WHERE T.D=%{2003-08-14}%"),
              u"DELETE FROM T WHERE T.D='2003-08-14'");
    EXPECT_EQ(Converted(u"%{2003-08-14}%%{2003-08-15}%", Database::PostgreSQL),
              u"'2003-08-14''2003-08-15'");
}

TEST(StatementTextTest, DatesTakeTheOrderAndWidthOfTheDatabase) {
    EXPECT_EQ(Converted(u"%{2003-8-4}%"), u"'2003-08-04'");
    EXPECT_EQ(Converted(u"%{2003/8/14 1:02}%"), u"'2003-08-14 1:02'");
    EXPECT_EQ(Converted(u"%{2003.08.14}%"), u"'2003-08-14'");
    EXPECT_EQ(Converted(u"%{3-8-4}%"), u"'0003-08-04'");
}

TEST(StatementTextTest, WhatIsNoDateStaysAsItIsWithItsQuotesDoubled) {
    EXPECT_EQ(Converted(u"%{it's}%"), u"'it''s'");
    EXPECT_EQ(Converted(u"%{}%"), u"''");
    EXPECT_EQ(Converted(u"%{2003-8}%"), u"'2003-8'");
    EXPECT_EQ(Converted(u"%{20034-8-1}%"), u"'20034-8-1'");
    EXPECT_EQ(Converted(u"%{2003年8月14日}%"), u"'2003年8月14日'");
    EXPECT_EQ(Converted(u"%{2003-8-14x}%"), u"'2003-8-14x'");
}

TEST(StatementTextTest, MarksInLiteralsNamesAndCommentsStay) {
    const std::u16string text = u"SELECT '%{1}%', \"%{2}%\" /* %{3}% */ -- %{4}%";
    EXPECT_EQ(Converted(text), text);
    EXPECT_EQ(Converted(u"SELECT '' , %{2003-1-1}% , '%{1}%'"),
              u"SELECT '' , '2003-01-01' , '%{1}%'");
}

TEST(StatementTextTest, AMarkWithoutItsEndStays) {
    EXPECT_EQ(Converted(u"a %{2003-08-14"), u"a %{2003-08-14");
    EXPECT_EQ(Converted(u"%{"), u"%{");
    EXPECT_EQ(Converted(u"a % {2}%"), u"a % {2}%");
    EXPECT_EQ(Converted(u""), u"");
}

TEST(StatementTextTest, NamesAreQuoted) {
    EXPECT_EQ(QuotedName(u"a\"b 名"), u"\"a\"\"b 名\"");
    EXPECT_EQ(QuotedName(u""), u"\"\"");
}

TEST(StatementTextTest, AnyQueryIsCounted) {
    const auto text = [](std::u16string_view query) {
        return CountingText(FormOf(query, Database::SQLite));
    };
    EXPECT_EQ(text(u"SELECT a FROM t WHERE b -- x\n;"), u"SELECT COUNT(*) FROM t WHERE b");
    for (const std::u16string query :
         {u"SELECT MAX(a) FROM t", u"SELECT a FROM t LIMIT 3", u"SELECT DISTINCT a FROM t",
          u"SELECT a FROM t ORDER BY a", u"SELECT a FROM t -- x\n, u"}) {
        EXPECT_EQ(text(query), u"SELECT COUNT(*) FROM (" + query + u"\n) AS veygrid_rows");
    }
}

}  // namespace
}  // namespace veygrid
