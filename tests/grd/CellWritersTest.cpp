// Tests of the forms in which cells are written.
#include <gmock/gmock.h>

#include "grd/Support.h"

namespace veygrid {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class CellWritersTest : public ::testing::Test {
  protected:
    // What "cells f.grd" with these arguments writes.
    std::string Cells(const std::vector<std::string>& arguments) {
        m_tool.Put("f.grd", m_grid);
        std::vector<std::string> words{"cells", "f.grd"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return m_tool.Ask(words);
    }
    void Put(std::int32_t row, std::int32_t col, const std::string& utf8) {
        m_grid.Store.SetCellText(row, col, Gbk(utf8));
    }

    Tool m_tool;
    Grid m_grid;
};

TEST_F(CellWritersTest, TextLinesUpByDisplayWidthAndPutsNumbersRight) {
    Put(1, 1, "多福巷");
    Put(1, 2, "5");
    Put(2, 1, "ab");
    Put(2, 2, "1234");
    Put(2, 3, "x");
    EXPECT_EQ(Cells({}), "多福巷     5\nab      1234  x\n");
}

TEST_F(CellWritersTest, TextHasHeadersWhenTheSheetHasSome) {
    Put(1, 1, "1");
    Put(1, 3, "x");
    m_grid.Store.SetColHeader(1, Gbk("编号"));
    EXPECT_EQ(Cells({}), "编号  B  C\n----  -  -\n   1     x\n");
    EXPECT_EQ(Cells({"--no-header"}), "1    x\n");
}

TEST_F(CellWritersTest, TextLinesDoNotEndInBlanks) {
    Put(1, 1, "a");
    Put(2, 3, "long");
    EXPECT_EQ(Cells({}), "a\n     long\n");
}

TEST_F(CellWritersTest, TextKeepsCellsOnOneLine) {
    Put(1, 1, "a\nb\tc\r\x01");
    Put(1, 2, "x");
    EXPECT_EQ(Cells({}), "a\\nb\\tc\\r\\x01  x\n");
}

TEST_F(CellWritersTest, TextCentresAndAlignsByFormat) {
    Put(1, 1, "wide text");
    Put(2, 1, "mid");
    Put(3, 1, "12");
    Put(4, 1, "right");
    CCellFormat format;
    format.SetHAlign(2);
    m_grid.Store.StoreCellFormat(2, 1, format);
    format.SetHAlign(1);
    m_grid.Store.StoreCellFormat(3, 1, format);
    format.SetHAlign(4);
    m_grid.Store.StoreCellFormat(4, 1, format);
    EXPECT_EQ(Cells({}), "wide text\n   mid\n12\n    right\n");
}

TEST_F(CellWritersTest, CsvQuotesWhatNeedsItAndEndsLinesWithBoth) {
    Put(1, 1, "a,b");
    Put(1, 2, "say \"hi\"");
    Put(2, 1, "two\nlines");
    Put(2, 3, "cr\rhere");
    Put(3, 2, " plain ");
    EXPECT_EQ(Cells({"--as", "csv"}),
              "\"a,b\",\"say \"\"hi\"\"\",\r\n\"two\nlines\",,\"cr\rhere\"\r\n, plain ,\r\n");
}

TEST_F(CellWritersTest, CsvWritesHeadersOfTheSheetsOwn) {
    Put(1, 2, "x");
    m_grid.Store.SetColHeader(2, Gbk("名,称"));
    EXPECT_EQ(Cells({"--as", "csv"}), "A,\"名,称\"\r\n,x\r\n");
    EXPECT_EQ(Cells({"--as", "csv", "--no-header"}), ",x\r\n");
    EXPECT_EQ(Cells({"--as", "csv", "--range", "C1"}), "\"\"\r\n");
}

TEST_F(CellWritersTest, CsvWritesALoneEmptyFieldAsQuotes) {
    Put(1, 1, "a");
    Put(3, 1, "b");
    EXPECT_EQ(Cells({"--as", "csv"}), "a\r\n\"\"\r\nb\r\n");
}

TEST_F(CellWritersTest, TsvQuotesTabsAndNotCommas) {
    Put(1, 1, "a,b");
    Put(1, 2, "c\td");
    EXPECT_EQ(Cells({"--as", "tsv"}), "a,b\t\"c\td\"\n");
}

TEST_F(CellWritersTest, JsonWritesOnlyCellsThatHoldText) {
    Put(2, 3, "引\"号\\\n\x1F");
    Put(1, 9, "");
    EXPECT_EQ(Cells({"--as", "json"}),
              "[\n{\"row\":1,\"col\":9,\"text\":\"\"},\n"
              "{\"row\":2,\"col\":3,\"text\":\"引\\\"号\\\\\\n\\u001f\"}\n]\n");
}

TEST_F(CellWritersTest, JsonOfNothingIsAnEmptyArray) {
    EXPECT_EQ(Cells({"--as", "json"}), "[]\n");
}

TEST_F(CellWritersTest, ShownTextsPassTheShowFormat) {
    Put(1, 1, "2003-8-5");
    Put(2, 1, "10");
    CCellFormat format;
    format.ShowFormat = Gbk("YYYY年MM月DD日");
    m_grid.Store.StoreCellFormat(0, 1, format);
    format.ShowFormat = "[RMB_UPPER]";
    m_grid.Store.StoreCellFormat(2, 1, format);
    EXPECT_EQ(Cells({"--as", "tsv"}), "2003-8-5\n10\n");
    const std::string shown = Cells({"--as", "tsv", "--shown"});
    EXPECT_THAT(shown, HasSubstr("2003年08月05日\n"));
    EXPECT_THAT(shown, Not(HasSubstr("10")));
    EXPECT_THAT(Cells({"--as", "json", "--shown"}),
                HasSubstr("\"text\":\"2003-8-5\",\"shown\":\"2003年08月05日\"}"));
}

TEST_F(CellWritersTest, ARangeChoosesCells) {
    for (std::int32_t row = 1; row <= 3; ++row) {
        for (std::int32_t col = 1; col <= 3; ++col) {
            Put(row, col, std::to_string(row * 10 + col));
        }
    }
    EXPECT_EQ(Cells({"--as", "tsv", "--range", "R2C2:R3C3"}), "22\t23\n32\t33\n");
    EXPECT_EQ(Cells({"--as", "tsv", "--range", "R2"}), "21\t22\t23\n");
    EXPECT_EQ(Cells({"--as", "tsv", "--range", "C3"}), "13\n23\n33\n");
    EXPECT_EQ(Cells({"--as", "tsv", "--range", "R4C4:R4C5"}), "\t\n");
}

TEST_F(CellWritersTest, HugeExtentsAreRefusedExceptAsJson) {
    Put(2147483647, 2147483647, "far");
    EXPECT_EQ(Cells({"--as", "csv"}),
              "grd: f.grd: R1C1:R2147483647C2147483647 has too many cells to write; give a smaller "
              "--range, or --as json, which leaves empty cells out\n");
    EXPECT_THAT(Cells({"--as", "json"}), HasSubstr("\"col\":2147483647,\"text\":\"far\""));
    EXPECT_EQ(Cells({"--as", "csv", "--range", "R2147483647C2147483647"}), "far\r\n");
    EXPECT_EQ(Cells({"--as", "csv", "--range", "R2147483647C2147483646:R2147483647C2147483647"}),
              ",far\r\n");
}

TEST_F(CellWritersTest, AnEmptySheetWritesNothing) {
    EXPECT_EQ(Cells({}), "");
    EXPECT_EQ(Cells({"--as", "csv"}), "");
}

TEST_F(CellWritersTest, HtmlIsAPageThatLooksLikeTheSheet) {
    FillRichly(m_grid);
    m_grid.Store.Properties.RowHeaderWidth = 33;
    EXPECT_EQ(Cells({"--as", "html", "--shown", "--range", "R1C1:R3C2"}), R"(<!DOCTYPE html>
<html>
<head>
<meta charset="utf-8">
<title>f.grd</title>
<style>
table{border-collapse:collapse;font:12px sans-serif;background:#ffffff}
td,th{padding:1px 4px;text-align:left;vertical-align:top;white-space:pre}
td{border-top:1px solid #d4d0c8;border-bottom:1px solid #d4d0c8}
td{border-left:1px solid #d4d0c8;border-right:1px solid #d4d0c8}
th{background:#e0e0e0;border:1px solid #a0a0a0;font-weight:normal;text-align:center}
td.r{text-align:right}
td.c{text-align:center}
td.f1{color:#ff0000;background:#00ff00;font-size:16px;font-weight:bold;}
</style>
</head>
<body>
<table>
<colgroup><col style="width:33px"><col style="width:60px"><col style="width:90px"></colgroup>
<thead>
<tr><th></th><th>甲 &amp; &lt;乙&gt;</th><th>B</th></tr>
</thead>
<tbody>
<tr><th>1</th><td class="f1 c">名称</td><td></td></tr>
<tr><th>行</th><td></td><td class=r>1234.5</td></tr>
<tr><th>3</th><td></td><td class=r>2003-08-05</td></tr>
</tbody>
</table>
</body>
</html>
)");
}

TEST_F(CellWritersTest, HtmlEscapesAndCannotBeBrokenByAFontName) {
    Put(1, 1, "<script>alert(\"&\")</script>");
    CCellFormat format;
    format.Font.lfWeight = 400;
    const std::string face = "a'}</style>";
    std::copy(face.begin(), face.end(), format.Font.lfFaceName.begin());
    m_grid.Store.StoreCellFormat(1, 1, format);
    const std::string page = Cells({"--as", "html"});
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(&quot;&amp;&quot;)&lt;/script&gt;"));
    EXPECT_THAT(page, HasSubstr("font-family:'a   /style ';"));
}

TEST_F(CellWritersTest, HtmlFollowsTheSheetInShowingHeadersAndLines) {
    Put(1, 1, "x");
    m_grid.Store.Properties.ShowRowHeaders = false;
    m_grid.Store.Properties.ShowColHeaders = false;
    m_grid.Store.Properties.ShowHGridLines = false;
    const std::string page = Cells({"--as", "html"});
    EXPECT_THAT(page, Not(HasSubstr("<th>")));
    EXPECT_THAT(page, Not(HasSubstr("border-top")));
    EXPECT_THAT(page, HasSubstr("<tbody>\n<tr><td>x</td></tr>\n</tbody>"));
}

TEST_F(CellWritersTest, AFileTakesTheTextInPlaceOfTheOutput) {
    Put(1, 1, "x");
    EXPECT_EQ(Cells({"--as", "csv", "-o", "out.csv"}), "");
    EXPECT_EQ(m_tool.Files.Content["out.csv"], "x\r\n");
}

TEST_F(CellWritersTest, AReaderThatGoesAwayIsNoFailure) {
    Put(1, 1, "x");
    m_tool.Put("f.grd", m_grid);
    m_tool.Terminal.Closed = true;
    EXPECT_EQ(m_tool.Run({"cells", "f.grd"}), ExitOk);
    EXPECT_EQ(m_tool.Terminal.Error, "");
}

}  // namespace
}  // namespace veygrid
