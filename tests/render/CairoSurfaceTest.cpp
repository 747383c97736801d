// Tests of the surface on Cairo: pixels of shapes, measures and ink of texts.
#include "platform/cairo/CairoSurface.h"

#include <gmock/gmock.h>

#include <climits>
#include <optional>
#include <set>

#include "platform/cairo/CairoPicture.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

constexpr Color Red = 0x0000FF;
constexpr Color Blue = 0xFF0000;

class CairoSurfaceTest : public ::testing::Test {
  protected:
    static constexpr std::int32_t Width = 200;
    static constexpr std::int32_t Height = 100;

    CairoSurfaceTest() {
        m_surface.SetBkMode(BkMode::Transparent);
        m_surface.SetTextColor(Black);
    }

    Color At(std::int32_t x, std::int32_t y) const { return m_picture.Pixel(x, y); }
    // The smallest rectangle around everything that is not white.
    Rect Ink() const {
        Rect ink{Width, Height, 0, 0};
        for (std::int32_t y = 0; y < Height; ++y) {
            for (std::int32_t x = 0; x < Width; ++x) {
                if (At(x, y) != White) {
                    ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                           std::max(ink.bottom, y + 1)};
                }
            }
        }
        return ink.IsRectEmpty() ? Rect{} : ink;
    }
    void Clear() { m_surface.FillSolidRect({0, 0, Width, Height}, White); }
    std::int32_t Draw(std::string_view utf8, Rect rect, std::uint32_t format = 0) {
        return m_surface.DrawText(CodePage936FromUtf8(utf8), rect, format);
    }
    Rect InkOf(std::string_view utf8, const Rect& rect, std::uint32_t format = 0) {
        Clear();
        Draw(utf8, rect, format);
        return Ink();
    }
    Rect Measure(std::string_view utf8, std::uint32_t format = 0, Rect rect = {10, 20, 110, 30}) {
        m_surface.DrawText(CodePage936FromUtf8(utf8), rect, format | DtCalcRect);
        return rect;
    }
    static LogFont Font(std::string_view face, std::int32_t height, std::int32_t weight = 400) {
        LogFont font{.lfHeight = height, .lfWeight = weight};
        const std::string gbk = CodePage936FromUtf8(face);
        std::copy(gbk.begin(), gbk.end(), font.lfFaceName.begin());
        return font;
    }

    CairoFonts m_fonts{{1, true}};
    MemoryPicture m_picture{m_fonts, {Width, Height}};
    Surface& m_surface = m_picture.Canvas();
};

constexpr Rect Whole{0, 0, 200, 100};

TEST_F(CairoSurfaceTest, FillSolidRectPaintsExactlyItsPixels) {
    m_surface.FillSolidRect({3, 4, 7, 9}, Red);
    EXPECT_EQ(Ink(), (Rect{3, 4, 7, 9}));
    EXPECT_EQ(At(3, 4), Red);
    EXPECT_EQ(At(6, 8), Red);
}

TEST_F(CairoSurfaceTest, FillSolidRectTakesCornersInAnyOrder) {
    m_surface.FillSolidRect({7, 9, 3, 4}, Red);
    EXPECT_EQ(Ink(), (Rect{3, 4, 7, 9}));
    Clear();
    m_surface.FillSolidRect({5, 5, 5, 50}, Red);
    EXPECT_EQ(Ink(), Rect{});
}

TEST_F(CairoSurfaceTest, AbsurdRectanglesPaintWhatOfThemLiesOnTheSurface) {
    m_surface.FillSolidRect({INT_MIN, INT_MIN, INT_MAX, INT_MAX}, Red);
    EXPECT_EQ(Ink(), Whole);
    Clear();
    m_surface.Draw3dRect({INT_MIN, 10, INT_MAX, INT_MAX}, Red, Blue);
    EXPECT_EQ(Ink(), (Rect{0, 10, Width, 11}));
    Clear();
    m_surface.DrawFocusRect({INT_MIN, INT_MIN, INT_MAX, INT_MAX});
    m_surface.DrawFrameControl({INT_MIN, INT_MIN, INT_MAX, INT_MAX}, DfcScroll, DfcsScrollRight);
    m_surface.SetPixel({INT_MAX, INT_MIN}, Red);
    EXPECT_EQ(Ink(), Rect{});
    m_surface.SelectPen(Red);
    m_surface.MoveTo({INT_MIN, 7});
    m_surface.LineTo({INT_MAX, 7});
    EXPECT_EQ(Ink(), (Rect{0, 7, Width, 8}));
}

TEST_F(CairoSurfaceTest, Draw3dRectGivesTheLowerCornersToTheSecondColour) {
    m_surface.Draw3dRect({10, 10, 20, 16}, Red, Blue);
    EXPECT_EQ(Ink(), (Rect{10, 10, 20, 16}));
    EXPECT_EQ(At(10, 10), Red);
    EXPECT_EQ(At(18, 10), Red);
    EXPECT_EQ(At(10, 14), Red);
    EXPECT_EQ(At(19, 10), Blue);
    EXPECT_EQ(At(10, 15), Blue);
    EXPECT_EQ(At(19, 15), Blue);
    EXPECT_EQ(At(11, 11), White);
}

TEST_F(CairoSurfaceTest, Draw3dRectOfOnePixelsHeightIsAStrip) {
    m_surface.Draw3dRect({10, 10, 20, 11}, Black, Black);
    EXPECT_EQ(Ink(), (Rect{10, 10, 20, 11}));
}

TEST_F(CairoSurfaceTest, LinesLeaveTheirLastPixelOut) {
    m_surface.SelectPen(Blue);
    m_surface.MoveTo({5, 5});
    m_surface.LineTo({9, 5});
    EXPECT_EQ(Ink(), (Rect{5, 5, 9, 6}));
    Clear();
    m_surface.LineTo({9, 1});
    EXPECT_EQ(Ink(), (Rect{9, 2, 10, 6}));
    Clear();
    m_surface.LineTo({4, 1});
    EXPECT_EQ(Ink(), (Rect{5, 1, 10, 2}));
    EXPECT_EQ(At(5, 1), Blue);
}

TEST_F(CairoSurfaceTest, SlantedLinesAreDrawnToo) {
    m_surface.SelectPen(Red);
    m_surface.MoveTo({10, 10});
    m_surface.LineTo({30, 20});
    EXPECT_EQ(At(20, 15), Red);
    Clear();
    m_surface.MoveTo({INT_MIN, INT_MIN});
    m_surface.LineTo({INT_MAX, INT_MAX});
    EXPECT_EQ(At(50, 50), Red);
}

TEST_F(CairoSurfaceTest, SetPixelPaintsOne) {
    m_surface.SetPixel({4, 5}, 0x123456);
    EXPECT_EQ(Ink(), (Rect{4, 5, 5, 6}));
    EXPECT_EQ(At(4, 5), 0x123456U);
}

TEST_F(CairoSurfaceTest, InvertRectTwiceLeavesThePictureAsItWas) {
    m_surface.FillSolidRect({0, 0, 50, 50}, 0x123456);
    m_surface.InvertRect({10, 10, 60, 20});
    EXPECT_EQ(At(10, 10), 0xEDCBA9U);
    EXPECT_EQ(At(55, 10), Black);
    EXPECT_EQ(At(9, 10), 0x123456U);
    m_surface.InvertRect({10, 10, 60, 20});
    EXPECT_EQ(At(10, 10), 0x123456U);
    EXPECT_EQ(At(55, 10), White);
}

TEST_F(CairoSurfaceTest, DrawFocusRectInvertsEveryOtherPixelOfTheEdge) {
    m_surface.DrawFocusRect({5, 6, 15, 13});
    EXPECT_EQ(Ink(), (Rect{5, 6, 15, 13}));
    for (std::int32_t x = 5; x < 15; ++x) {
        EXPECT_EQ(At(x, 6), (x + 6) % 2 == 0 ? Black : White) << x;
        EXPECT_EQ(At(x, 12), (x + 12) % 2 == 0 ? Black : White) << x;
        EXPECT_EQ(At(x, 8), (x == 5 || x == 14) && x % 2 == 0 ? Black : White) << x;
    }
    m_surface.DrawFocusRect({5, 6, 15, 13});
    EXPECT_EQ(Ink(), Rect{});
}

TEST_F(CairoSurfaceTest, DrawFrameControlIsARaisedButtonWithATriangleToTheRight) {
    m_surface.DrawFrameControl({20, 20, 45, 45}, DfcScroll, DfcsScrollRight);
    EXPECT_EQ(Ink(), (Rect{20, 20, 45, 45}));
    int widest = 0;
    for (std::int32_t y = 22; y < 43; ++y) {
        int black = 0;
        for (std::int32_t x = 22; x < 43; ++x) {
            black += At(x, y) == Black ? 1 : 0;
        }
        widest = std::max(widest, black);
        EXPECT_EQ(black == 0, y < 27 || y > 37) << y;
    }
    EXPECT_EQ(widest, 6);
    Clear();
    m_surface.DrawFrameControl({20, 20, 45, 45}, DfcScroll, 0);
    EXPECT_EQ(Ink(), Rect{});
    m_surface.DrawFrameControl({20, 20, 22, 22}, DfcScroll, DfcsScrollRight);
    EXPECT_EQ(Ink(), (Rect{20, 20, 22, 22}));
}

TEST_F(CairoSurfaceTest, CalcRectGivesTheTextsWidthAndHeightAndDrawsNothing) {
    const Rect one = Measure("中国");
    EXPECT_EQ(one.left, 10);
    EXPECT_EQ(one.top, 20);
    EXPECT_EQ(one.Width(), 24);
    EXPECT_EQ(Measure("中国\r\n人").Height(), 2 * one.Height());
    EXPECT_EQ(Measure("中国\r\n人").Width(), 24);
    EXPECT_EQ(Measure("中国\n").Height(), one.Height());
    EXPECT_EQ(Measure("中国\n人", DtSingleLine).Height(), one.Height());
    EXPECT_EQ(Measure("中国\n人", DtSingleLine).Width(), 36);
    EXPECT_EQ(Ink(), Rect{});
}

TEST_F(CairoSurfaceTest, AnEmptyTextIsALineHighButTakesNoRoom) {
    EXPECT_EQ(Measure(""), (Rect{10, 20, 10, 20}));
    EXPECT_EQ(Measure("", DtSingleLine).Height(), Measure("a").Height());
    EXPECT_EQ(Draw("", Whole), Measure("a").Height());
}

TEST_F(CairoSurfaceTest, WordBreakMeasuresAtTheRectanglesWidth) {
    const std::int32_t line = Measure("中").Height();
    const Rect wrapped = Measure("中国人民银行", DtWordBreak, {0, 0, 40, 5});
    EXPECT_EQ(wrapped.Width(), 36);
    EXPECT_EQ(wrapped.Height(), 2 * line);
    EXPECT_EQ(Measure("中国人民银行", 0, {0, 0, 40, 5}).Height(), line);
}

TEST_F(CairoSurfaceTest, ControlCharactersTakeNoRoom) {
    EXPECT_EQ(Measure("a\tb").Width(), Measure("ab").Width());
    EXPECT_EQ(Measure("a\x01"
                      "b")
                  .Width(),
              Measure("ab").Width());
    EXPECT_EQ(InkOf("\t\x7F", Whole), Rect{});
}

TEST_F(CairoSurfaceTest, AnAmpersandTakesNoRoomButTwoAreOne) {
    EXPECT_EQ(Measure("a&b").Width(), Measure("ab").Width());
    EXPECT_GT(Measure("a&&b").Width(), Measure("ab").Width());
    EXPECT_EQ(Measure("ab&").Width(), Measure("a&&b").Width());
}

TEST_F(CairoSurfaceTest, TheCharacterBehindAnAmpersandIsUnderlined) {
    const Rect plain = InkOf("ab", Whole);
    const Rect marked = InkOf("a&b", Whole);
    EXPECT_GT(marked.bottom, plain.bottom);
    const std::int32_t y = marked.bottom - 1;
    const std::int32_t begin = Measure("a").Width();
    const std::int32_t end = Measure("ab").Width();
    for (std::int32_t x = 0; x < 40; ++x) {
        EXPECT_EQ(At(x, y), x >= begin && x < end ? Black : White) << x;
    }
}

TEST_F(CairoSurfaceTest, RightAndCentredTextStandWhereTheirWidthPutsThem) {
    const Rect box{10, 20, 150, 60};
    const Rect left = InkOf("口", box);
    const Rect right = InkOf("口", box, DtRight);
    const Rect centred = InkOf("口", box, DtCenter);
    EXPECT_EQ(right, left.Offset(140 - 12, 0));
    EXPECT_EQ(centred, left.Offset((140 - 12) / 2, 0));
}

TEST_F(CairoSurfaceTest, EachLineIsCentredForItself) {
    const Rect one = InkOf("口", {0, 0, 100, 20}, DtCenter);
    InkOf("口口口\n口", {0, 0, 100, 60}, DtCenter);
    const std::int32_t second = Measure("口").Height();
    for (std::int32_t x = 0; x < 100; ++x) {
        const bool inside = x >= one.left && x < one.right;
        EXPECT_EQ(At(x, second + one.top) != White, inside) << x;
    }
}

TEST_F(CairoSurfaceTest, VCenterNeedsSingleLine) {
    const Rect top = InkOf("口", {0, 0, 100, 60});
    EXPECT_EQ(InkOf("口", {0, 0, 100, 60}, DtVCenter), top);
    const std::int32_t height = Measure("口").Height();
    EXPECT_EQ(InkOf("口", {0, 0, 100, 60}, DtVCenter | DtSingleLine),
              top.Offset(0, 30 - height / 2));
    EXPECT_EQ(Draw("口", {0, 0, 100, 60}, DtVCenter | DtSingleLine), 30 - height / 2 + height);
}

TEST_F(CairoSurfaceTest, TextIsCutAtTheRectangle) {
    const Rect box{20, 20, 51, 27};
    const Rect ink = InkOf("国国国国国国国国", box);
    EXPECT_EQ(IntersectRect(ink, box), ink);
    EXPECT_EQ(ink.right, 51);
    EXPECT_EQ(InkOf("国国国国国国国国", box, DtRight).left, 20);
    EXPECT_EQ(InkOf("国国国国国国国国", {20, 20, 20, 40}), Rect{});
    EXPECT_EQ(InkOf("国", {60, 60, 20, 20}), Rect{});
}

TEST_F(CairoSurfaceTest, TextFarOutsideOfTheSurfaceIsNotSeen) {
    EXPECT_EQ(InkOf("国", {INT_MAX - 5, 0, INT_MAX, 50}), Rect{});
    EXPECT_EQ(InkOf("国", {INT_MIN, INT_MIN, 100, 50}), Rect{});
    EXPECT_NE(InkOf("国", {INT_MIN, 0, 100, 50}, DtRight), Rect{});
    EXPECT_EQ(InkOf("国", {0, INT_MIN, 100, INT_MAX}), Rect{});
    EXPECT_NE(InkOf("国", {INT_MIN, 0, INT_MAX, 50}, DtCenter), InkOf("国", Whole));
}

TEST_F(CairoSurfaceTest, ALongTextCostsWhatIsSeenOfIt) {
    std::string text;
    for (int i = 0; i < 200'000; ++i) {
        text += i % 3 == 0 ? "国\n" : "国";
    }
    EXPECT_EQ(InkOf(text, Whole).bottom, Height);
    EXPECT_GT(Measure(text).Height(), 60'000 * 12);
}

TEST_F(CairoSurfaceTest, TransparentTextLeavesTheGroundAndOpaqueTextCoversIt) {
    m_surface.FillSolidRect(Whole, Blue);
    m_surface.SetTextColor(Red);
    Draw("一", {0, 0, 50, 50});
    EXPECT_EQ(At(0, 0), Blue);
    m_surface.SetBkMode(BkMode::Opaque);
    m_surface.SetBkColor(0x00FF00);
    Draw("一", {0, 0, 50, 50});
    EXPECT_EQ(At(0, 0), 0x00FF00U);
    EXPECT_EQ(At(11, 0), 0x00FF00U);
    EXPECT_EQ(At(12, 0), Blue);
}

TEST_F(CairoSurfaceTest, TextTakesItsColour) {
    m_surface.SetTextColor(Red);
    Draw("一", Whole);
    std::set<Color> colors;
    for (std::int32_t x = 0; x < 12; ++x) {
        for (std::int32_t y = 0; y < 16; ++y) {
            colors.insert(At(x, y) & 0xFFU);
        }
    }
    EXPECT_THAT(colors, ::testing::ElementsAre(0xFF));
}

TEST_F(CairoSurfaceTest, CharactersWithLettersBarsAndBracesAsTrailBytesAreOneGlyphEach) {
    for (const char* text :
         {"\x81\x41", "\x8B\x5C", "\x81\x7C", "\x81\x7B", "\x81\x7D", "\x95\x7E"}) {
        Rect rect;
        m_surface.DrawText(text, rect, DtCalcRect);
        EXPECT_EQ(rect.Width(), 12) << Utf8FromCodePage936(text);
        Clear();
        Rect box{0, 0, 50, 50};
        m_surface.DrawText(text, box, 0);
        EXPECT_NE(Ink(), Rect{});
        EXPECT_LE(Ink().right, 12);
    }
}

TEST_F(CairoSurfaceTest, BrokenBytesAreShownAndDoNoHarm) {
    Rect rect;
    m_surface.DrawText("\xD6\x01\xFF\x80", rect, DtCalcRect);
    EXPECT_GT(rect.Width(), 0);
    Rect box = Whole;
    m_surface.DrawText("\xD6\x01\xFF\x80", box, DtWordBreak | DtRight);
    EXPECT_NE(Ink(), Rect{});
}

TEST_F(CairoSurfaceTest, ANegativeHeightIsThatOfTheCharacters) {
    m_surface.SelectFont(Font("宋体", -20));
    EXPECT_EQ(Measure("中国").Width(), 40);
    EXPECT_GT(Measure("中国").Height(), 20);
}

TEST_F(CairoSurfaceTest, APositiveHeightIsThatOfTheLine) {
    for (const std::int32_t height : {12, 20, 33}) {
        m_surface.SelectFont(Font("宋体", height));
        EXPECT_LE(Measure("中国").Height(), height) << height;
        EXPECT_GE(Measure("中国").Height(), height - 2) << height;
        EXPECT_LT(Measure("中国").Width(), 2 * height) << height;
    }
}

TEST_F(CairoSurfaceTest, HeightZeroIsAFontOfUsualSize) {
    m_surface.SelectFont(Font("宋体", 0));
    EXPECT_NEAR(Measure("中国").Height(), 16, 1);
}

TEST_F(CairoSurfaceTest, AWidthStretchesTheCharacters) {
    LogFont font = Font("宋体", -20);
    m_surface.SelectFont(font);
    const Rect plain = Measure("abcxyz");
    font.lfWidth = 20;
    m_surface.SelectFont(font);
    const Rect wide = Measure("abcxyz");
    EXPECT_EQ(wide.Height(), plain.Height());
    EXPECT_NEAR(wide.Width(), 6 * 20, 12);
    EXPECT_GT(InkOf("国", Whole).Width(), 25);
}

TEST_F(CairoSurfaceTest, AFaceThatStandsInForAMissingOneKeepsLinesAsLowAsCellsAre) {
    m_surface.SelectFont(Font("没有这种字体", -12));
    EXPECT_EQ(Measure("中国").Height(), 13);
    m_surface.SelectFont(Font("WenQuanYi Zen Hei", -12));
    EXPECT_GE(Measure("中国").Height(), 13);
}

TEST_F(CairoSurfaceTest, BoldAndItalicAndLinesShow) {
    const auto inked = [&](const LogFont& font) {
        Clear();
        m_surface.SelectFont(font);
        Draw("中", Whole);
        int ink = 0;
        for (std::int32_t y = 0; y < 40; ++y) {
            for (std::int32_t x = 0; x < 40; ++x) {
                ink += 255 - static_cast<int>(At(x, y) & 0xFFU);
            }
        }
        return ink;
    };
    LogFont font = Font("宋体", -16);
    const int plain = inked(font);
    EXPECT_GT(inked(Font("宋体", -16, 700)), plain * 5 / 4);
    font.lfUnderline = 1;
    EXPECT_GE(inked(font), plain + 12 * 255);
    font.lfUnderline = 0;
    font.lfStrikeOut = 1;
    EXPECT_GT(inked(font), plain + 5 * 255);
    font.lfStrikeOut = 0;
    font.lfItalic = 1;
    EXPECT_NE(inked(font), plain);
}

TEST_F(CairoSurfaceTest, ATurnedFontTurnsTheTextAroundItsCorner) {
    LogFont font = Font("宋体", -16);
    font.lfEscapement = 900;
    m_surface.SelectFont(font);
    // Up from the corner, and so out of the box.
    EXPECT_EQ(InkOf("国国", {100, 20, 200, 100}), Rect{});
    font.lfEscapement = -100;
    m_surface.SelectFont(font);
    const Rect slanted = InkOf("国国国", {60, 20, 200, 100});
    EXPECT_GT(slanted.Height(), 20);
}

TEST_F(CairoSurfaceTest, FontsOfAnyNumbersAndNamesAreDrawn) {
    LogFont font = Font("没有这种字体", INT_MIN, INT_MAX);
    font.lfEscapement = INT_MIN;
    font.lfWidth = INT_MIN;
    m_surface.SelectFont(font);
    Draw("a", Whole);
    font = Font("@宋体,x", INT_MAX, INT_MIN);
    font.lfFaceName.fill('\xD6');
    m_surface.SelectFont(font);
    EXPECT_GT(Draw("a", Whole), 900);
    m_surface.SelectFont(Font("宋体", 1));
    EXPECT_GT(Draw("a", Whole), 0);
    m_surface.SelectFont(Font("宋体", -1));
    EXPECT_GT(Draw("a", Whole), 0);
}

TEST_F(CairoSurfaceTest, AFontIsMadeOnceForARecord) {
    const LogFont font = Font("黑体", -14);
    EXPECT_EQ(m_fonts.Get(font), m_fonts.Get(font));
    EXPECT_NE(m_fonts.Get(font), m_fonts.Get(Font("黑体", -15)));
}

TEST_F(CairoSurfaceTest, MoreFontsThanAreKeptDoNotEndTheOneInUse) {
    const std::int32_t width = Measure("中").Width();
    for (std::int32_t i = 0; i < 300; ++i) {
        m_surface.SelectFont(Font("黑体", -8 - i % 20, 100 + i));
        EXPECT_EQ(Measure("中").Width(), 8 + i % 20);
    }
    m_surface.SelectStockFont();
    EXPECT_EQ(Measure("中").Width(), width);
}

TEST_F(CairoSurfaceTest, TheFormerFontComesBack) {
    m_surface.SelectFont(Font("黑体", -30));
    m_surface.SelectFormerFont();
    EXPECT_EQ(Measure("中").Width(), 12);
}

TEST_F(CairoSurfaceTest, TheStockFontIsTheOneGiven) {
    MemoryPicture picture(m_fonts, {50, 50, Font("宋体", -18)});
    Rect rect;
    picture.Canvas().DrawText(CodePage936FromUtf8("中"), rect, DtCalcRect);
    EXPECT_EQ(rect.Width(), 18);
}

TEST_F(CairoSurfaceTest, TheDeviceIsOf96PixelsAnInch) {
    EXPECT_EQ(m_surface.GetDeviceCaps(88), 96);
    EXPECT_EQ(m_surface.GetDeviceCaps(90), 96);
    EXPECT_EQ(m_surface.GetDeviceCaps(8), Width);
    EXPECT_EQ(m_surface.GetDeviceCaps(10), Height);
    EXPECT_EQ(m_surface.GetDeviceCaps(4), 53);
    EXPECT_EQ(m_surface.GetDeviceCaps(6), 26);
    EXPECT_EQ(m_surface.GetDeviceCaps(112), 0);
    EXPECT_FALSE(m_surface.IsPrinting());
}

TEST_F(CairoSurfaceTest, AScaledPictureHasLargerPixelsAndNearlyTheSameMeasures) {
    CairoFonts fonts({3, true});
    MemoryPicture picture(fonts, {40, 20});
    picture.Canvas().FillSolidRect({1, 1, 2, 2}, Red);
    EXPECT_EQ(picture.Pixel(3, 3), Red);
    EXPECT_EQ(picture.Pixel(5, 5), Red);
    EXPECT_EQ(picture.Pixel(6, 5), White);
    Rect rect;
    picture.Canvas().DrawText(CodePage936FromUtf8("中国"), rect, DtCalcRect);
    EXPECT_EQ(rect.Width(), 24);
}

class Sink : public ByteSink {
  public:
    void Write(std::string_view bytes) override {
        if (m_left == 0) {
            throw ArchiveError("no room", 0);
        }
        --m_left;
        m_bytes += bytes;
    }
    std::string m_bytes;
    int m_left = INT_MAX;
};

class CairoPictureTest : public ::testing::TestWithParam<PictureForm> {
  protected:
    std::unique_ptr<Picture> Begin() {
        auto picture = m_maker->Begin({GetParam(), 80, 40, 1, {.lfWeight = -1}, "t"}, m_sink);
        Rect box{0, 0, 80, 40};
        picture->Canvas().DrawText(CodePage936FromUtf8("中文 &a"), box, 0);
        picture->Canvas().InvertRect({5, 5, 20, 20});
        return picture;
    }

    std::unique_ptr<PictureMaker> m_maker = MakeCairoPictures();
    Sink m_sink;
};

TEST_P(CairoPictureTest, BeginsAsItsFormDoes) {
    const auto picture = Begin();
    EXPECT_TRUE(picture->Canvas().IsPrinting());
    picture->Finish();
    const std::string_view begin = GetParam() == PictureForm::Png   ? "\x89PNG\r\n"
                                   : GetParam() == PictureForm::Pdf ? "%PDF-1."
                                                                    : "<?xml version";
    EXPECT_EQ(m_sink.m_bytes.substr(0, begin.size()), begin);
    EXPECT_GT(m_sink.m_bytes.size(), 200U);
}

TEST_P(CairoPictureTest, PassesTheSinksFailureOn) {
    for (const int left : {0, 1}) {
        m_sink.m_left = left;
        const auto picture = Begin();
        EXPECT_THROW(picture->Finish(), ArchiveError) << left;
    }
}

TEST_P(CairoPictureTest, WritesNothingMoreWhenItIsLeftHalfWay) {
    auto picture = Begin();
    const std::size_t before = m_sink.m_bytes.size();
    picture.reset();
    EXPECT_EQ(m_sink.m_bytes.size(), before);
}

INSTANTIATE_TEST_SUITE_P(Forms, CairoPictureTest,
                         ::testing::Values(PictureForm::Png, PictureForm::Pdf, PictureForm::Svg));

}  // namespace
}  // namespace veygrid
