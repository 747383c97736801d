// Tests of the lines into which DrawText breaks a text.
#include "platform/cairo/TextLines.h"

#include <gmock/gmock.h>

#include "platform/Surface.h"
#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// 6 pixels for a byte.
class ByteWidths : public CharacterWidths {
  public:
    double Advance(std::string_view character) override {
        return 6.0 * static_cast<double>(character.size());
    }
};

class TextLinesTest : public ::testing::Test {
  protected:
    // The lines in UTF-8.
    std::vector<std::string> Break(std::string_view gbk, std::uint32_t format = 0,
                                   double limit = 1000) {
        m_lines.Break(gbk, format, limit, m_widths);
        std::vector<std::string> lines;
        for (const TextLine& line : m_lines.Lines()) {
            lines.push_back(Utf8FromCodePage936(line.Text));
            EXPECT_EQ(line.Width, 6.0 * static_cast<double>(line.Text.size()));
        }
        return lines;
    }
    std::vector<std::string> Wrap(std::string_view utf8, double limit) {
        return Break(CodePage936FromUtf8(utf8), DtWordBreak, limit);
    }
    std::vector<std::size_t> Marks() const {
        std::vector<std::size_t> marks;
        for (const TextLine& line : m_lines.Lines()) {
            marks.push_back(line.Underlined);
        }
        return marks;
    }

    TextLines m_lines;
    ByteWidths m_widths;
};

TEST_F(TextLinesTest, CarriageReturnLineFeedAndBothTogetherEndALine) {
    EXPECT_THAT(Break("a\rb\nc\r\nd"), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(Break("a\n\rb"), ElementsAre("a", "", "b"));
    EXPECT_THAT(Break("a\n\nb"), ElementsAre("a", "", "b"));
}

TEST_F(TextLinesTest, NoLineStandsBehindAnEndAtTheEnd) {
    EXPECT_THAT(Break("a\r\n"), ElementsAre("a"));
    EXPECT_THAT(Break("\n"), ElementsAre(""));
    EXPECT_THAT(Break(""), IsEmpty());
}

TEST_F(TextLinesTest, NothingEndsALineWithSingleLine) {
    EXPECT_THAT(Break("a\nb c", DtSingleLine | DtWordBreak, 6), ElementsAre("a\nb c"));
}

TEST_F(TextLinesTest, TheWidestLineIsTheWidth) {
    Break("a\nabc\nab");
    EXPECT_EQ(m_lines.Width(), 18);
    Break("");
    EXPECT_EQ(m_lines.Width(), 0);
}

TEST_F(TextLinesTest, AnAmpersandHidesItselfAndUnderlinesWhatFollows) {
    EXPECT_THAT(Break("a&bc"), ElementsAre("abc"));
    EXPECT_THAT(Marks(), ElementsAre(1));
    EXPECT_THAT(Break(CodePage936FromUtf8("文件&夹")), ElementsAre("文件夹"));
    EXPECT_THAT(Marks(), ElementsAre(4));
}

TEST_F(TextLinesTest, TwoAmpersandsStandForOneAndTheLastForItself) {
    EXPECT_THAT(Break("a&&b"), ElementsAre("a&b"));
    EXPECT_THAT(Break("ab&"), ElementsAre("ab&"));
    EXPECT_THAT(Break("&"), ElementsAre("&"));
    EXPECT_THAT(Break("&&"), ElementsAre("&"));
    EXPECT_THAT(Break("&&&"), ElementsAre("&&"));
    EXPECT_THAT(Marks(), ElementsAre(NotFound));
}

TEST_F(TextLinesTest, OfSeveralMarksInALineTheLastCounts) {
    Break("&a&b\n&cd\ne");
    EXPECT_THAT(Marks(), ElementsAre(1, 0, NotFound));
}

TEST_F(TextLinesTest, WordsGoToTheNextLineWhereTheyPassTheLimit) {
    EXPECT_THAT(Wrap("one two three", 42), ElementsAre("one two", "three"));
    EXPECT_THAT(Wrap("one two three", 41), ElementsAre("one", "two", "three"));
    EXPECT_THAT(Wrap("one   two", 30), ElementsAre("one", "two"));
    EXPECT_THAT(Wrap("one two ", 18), ElementsAre("one", "two "));
}

TEST_F(TextLinesTest, AWordBeyondTheLimitStaysWhole) {
    EXPECT_THAT(Wrap("extraordinary six", 30), ElementsAre("extraordinary", "six"));
    EXPECT_THAT(Wrap("2024-02-29", 30), ElementsAre("2024-02-29"));
    EXPECT_THAT(Wrap("ab", 0), ElementsAre("ab"));
    EXPECT_THAT(Wrap("ab", -50), ElementsAre("ab"));
}

TEST_F(TextLinesTest, ChineseBreaksBetweenAnyTwoCharacters) {
    EXPECT_THAT(Wrap("中国人民银行", 40), ElementsAre("中国人", "民银行"));
    EXPECT_THAT(Wrap("共3项goods齐", 24), ElementsAre("共3", "项", "goods", "齐"));
}

TEST_F(TextLinesTest, AClosingMarkNeverBeginsALineAndAnOpeningOneNeverEndsIt) {
    EXPECT_THAT(Wrap("中国人民银行，好", 72), ElementsAre("中国人民银", "行，好"));
    EXPECT_THAT(Wrap("金额（元）", 36), ElementsAre("金额", "（元）"));
    EXPECT_THAT(Wrap("价格100%好", 42), ElementsAre("价格", "100%好"));
}

TEST_F(TextLinesTest, LineEndsCountInWrappedTextToo) {
    EXPECT_THAT(Wrap("one\ntwo three", 42), ElementsAre("one", "two", "three"));
}

TEST_F(TextLinesTest, TrailBytesThatAreLettersBracesOrBarsAreNeverSplit) {
    const std::string text = "\x81\x41\x8B\x5C\x81\x7C\x81\x7B\x81\x7D\x95\x7E";
    m_lines.Break(text, DtWordBreak, 12, m_widths);
    ASSERT_EQ(m_lines.Lines().size(), 6U);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(m_lines.Lines()[i].Text, text.substr(2 * i, 2));
    }
}

TEST_F(TextLinesTest, BrokenBytesStandAlone) {
    m_lines.Break("\xD6\n\xD6", DtWordBreak, 12, m_widths);
    ASSERT_EQ(m_lines.Lines().size(), 2U);
    EXPECT_EQ(m_lines.Lines()[1].Text, "\xD6");
}

}  // namespace
}  // namespace veygrid
