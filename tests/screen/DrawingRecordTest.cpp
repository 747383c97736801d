// The recording surface: its text measure and its lines.
#include <gtest/gtest.h>

#include "platform/recording/RecordingSurface.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

std::string Measured(std::string_view text, std::uint32_t format = 0, std::int32_t room = 36) {
    const recorded::TextExtent extent = recorded::MeasureText(text, format, room, {});
    return std::to_string(extent.width) + "x" + std::to_string(extent.height);
}

TEST(DrawingRecord, TextMeasuresSixPixelsAByteAndTwelveALine) {
    EXPECT_EQ(Measured(""), "0x0");
    EXPECT_EQ(Measured("abc"), "18x12");
    EXPECT_EQ(Measured("\x81\x7C"), "12x12");
}

TEST(DrawingRecord, LineEndsOfEveryKindCountUnlessInASingleLine) {
    EXPECT_EQ(Measured("a\nbc\r\nd\re"), "12x48");
    EXPECT_EQ(Measured("a\n"), "6x24");
    EXPECT_EQ(Measured("a\nb", DtSingleLine), "18x12");
}

TEST(DrawingRecord, AmpersandHidesItselfAndTwoShowOne) {
    EXPECT_EQ(Measured("a&b"), "12x12");
    EXPECT_EQ(Measured("a&&b"), "18x12");
    EXPECT_EQ(Measured("a&"), "6x12");
    // A trail byte is no ampersand, and a lead byte behind one keeps its character.
    EXPECT_EQ(Measured("&\x81\x7C"), "12x12");
}

TEST(DrawingRecord, WordBreakBreaksAtBlanksAndBesideTwoByteCharacters) {
    EXPECT_EQ(Measured("aaa bbb", DtWordBreak), "24x24");
    EXPECT_EQ(Measured("aaa bbb", 0), "42x12");
    EXPECT_EQ(Measured("aaaaaaaaaa", DtWordBreak), "60x12");
    EXPECT_EQ(Measured(CodePage936FromUtf8("一二三四"), DtWordBreak), "36x24");
    EXPECT_EQ(Measured(CodePage936FromUtf8("ab一c二d"), DtWordBreak), "30x24");
}

TEST(DrawingRecord, MeasureTakesTheSelectedFont) {
    RecordingSurface surface;
    const auto measure = [&surface] {
        Rect rect{1, 2, 100, 100};
        const std::int32_t height = surface.DrawText("ab", rect, DtCalcRect);
        EXPECT_EQ(height, rect.Height());
        return rect;
    };
    EXPECT_EQ(measure(), (Rect{1, 2, 13, 14}));
    LogFont font;
    font.lfHeight = -20;
    surface.SelectFont(font);
    EXPECT_EQ(measure(), (Rect{1, 2, 21, 22}));
    font.lfHeight = std::numeric_limits<std::int32_t>::min();
    surface.SelectFont(font);
    surface.SelectStockFont();
    EXPECT_EQ(measure(), (Rect{1, 2, 13, 14}));
}

TEST(DrawingRecord, DrawingLeavesTheRectangleAlone) {
    RecordingSurface surface;
    Rect rect{1, 2, 30, 40};
    EXPECT_EQ(surface.DrawText("a\nb", rect, DtCenter), 24);
    EXPECT_EQ(rect, (Rect{1, 2, 30, 40}));
}

TEST(DrawingRecord, EachOperationIsOneLine) {
    RecordingSurface surface;
    Rect rect{1, 2, 3, 4};
    LogFont font{.lfHeight = 9, .lfWeight = 700, .lfItalic = 1, .lfUnderline = 1, .lfStrikeOut = 1};
    font.lfFaceName.fill('f');
    surface.SetBkColor(0x1ABCDEF0U);
    surface.SetBkMode(BkMode::Opaque);
    surface.SelectFont(font);
    surface.DrawText("q\"\\\t\n", rect, DtRight | DtVCenter | DtSingleLine | DtWordBreak);
    surface.SetPixel({-1, 2}, Black);
    surface.DrawFocusRect(rect);
    surface.DrawFrameControl(rect, DfcScroll, DfcsScrollRight);
    surface.Remark("note");
    EXPECT_EQ(surface.Dump(),
              "SetBkColor 0x1ABCDEF0\n"
              "SetBkMode OPAQUE\n"
              "SelectFont \"ffffffffffffffffffffffffffffffff\" height 9 weight 700 italic "
              "underline strikeout\n"
              "DrawText \"q\\\"\\\\\\t\\n\" 1,2,3,4 RIGHT VCENTER WORDBREAK SINGLELINE\n"
              "SetPixel -1,2 0x000000\n"
              "DrawFocusRect 1,2,3,4\n"
              "DrawFrameControl 1,2,3,4 3 3\n"
              "note\n");
}

}  // namespace
}  // namespace veygrid
