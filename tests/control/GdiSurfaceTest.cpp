// The drawing surface on the system's device contexts, held against the system's own calls.
#include "platform/win32/GdiSurface.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/control/Handles.h"
#include "tests/control/Pixels.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();

LOGFONTW Record(LONG height, const wchar_t* face = L"宋体") {
    LOGFONTW record{};
    record.lfHeight = height;
    record.lfCharSet = GB2312_CHARSET;
    ::lstrcpynW(record.lfFaceName, face, LF_FACESIZE);
    return record;
}

class GdiSurfaceTest : public testing::Test {
  protected:
    OwnedFont font = MakeFont(Record(-12));
    GdiFonts fonts;
    Canvas canvas{200, 60};
};

struct TextCase {
    const char* utf8;
    std::uint32_t format;
};

class GdiTextTest : public GdiSurfaceTest, public testing::WithParamInterface<TextCase> {
  protected:
    std::wstring Wide() const {
        const std::u16string wide = Utf16FromCodePage936(CodePage936FromUtf8(GetParam().utf8));
        return {wide.begin(), wide.end()};
    }
    // The system's own picture and measure.
    int DrawBySystem(RECT& area, UINT format) {
        const SavedDc saved(canvas.Dc());
        ::SelectObject(canvas.Dc(), font.Get());
        ::SetBkMode(canvas.Dc(), TRANSPARENT);
        ::SetTextColor(canvas.Dc(), RGB(10, 20, 200));
        const std::wstring text = Wide();
        return ::DrawTextW(canvas.Dc(), text.data(), static_cast<int>(text.size()), &area, format);
    }
    int DrawBySurface(Rect& area, std::uint32_t format) {
        GdiSurface surface(canvas.Dc(), font.Get(), fonts);
        surface.SelectStockFont();
        surface.SetBkMode(BkMode::Transparent);
        surface.SetTextColor(RGB(10, 20, 200));
        return surface.DrawText(CodePage936FromUtf8(GetParam().utf8), area, format);
    }
};

TEST_P(GdiTextTest, ThePictureIsTheSystemsPixelByPixel) {
    RECT theirs{20, 10, 90, 40};
    const int theirHeight = DrawBySystem(theirs, GetParam().format);
    const std::vector<std::uint32_t> wanted = canvas.Pixels();
    canvas.Clear();
    Rect ours{20, 10, 90, 40};
    EXPECT_EQ(DrawBySurface(ours, GetParam().format), theirHeight);
    EXPECT_EQ(canvas.Pixels(), wanted);
    EXPECT_EQ(ours, (Rect{20, 10, 90, 40}));
}

TEST_P(GdiTextTest, TheMeasureIsTheSystems) {
    RECT theirs{20, 10, 90, 40};
    const int theirHeight = DrawBySystem(theirs, DT_CALCRECT);
    Rect ours{20, 10, 90, 40};
    EXPECT_EQ(DrawBySurface(ours, DtCalcRect), theirHeight);
    EXPECT_EQ(ours, (Rect{20, 10, theirs.right, theirs.bottom}));
    EXPECT_EQ(canvas.Count({0, 0, 200, 60}, RGB(255, 255, 255)), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, GdiTextTest,
    testing::Values(TextCase{"1234.50", DtLeft}, TextCase{"1234.50", DtRight},
                    TextCase{"1234.50", DtCenter}, TextCase{"a", DtCenter},
                    TextCase{"wider than the box by far", DtLeft},
                    TextCase{"wider than the box by far", DtRight},
                    TextCase{"wider than the box by far", DtCenter}, TextCase{"中文金额", DtLeft},
                    TextCase{"中文金额", DtRight}, TextCase{"中文金额合计人民币", DtCenter},
                    TextCase{"A中b文1", DtRight}, TextCase{"Fish & Chips", DtLeft},
                    TextCase{"&File", DtRight}, TextCase{"two\nlines", DtLeft},
                    TextCase{"二\r\n行", DtRight}, TextCase{"a\tb", DtLeft},
                    TextCase{"words that wrap at the edge", DtWordBreak},
                    TextCase{"R12C3", DtCenter | DtVCenter | DtSingleLine}, TextCase{" ", DtRight},
                    TextCase{"㎡€·", DtLeft}));

TEST_F(GdiSurfaceTest, TheContextIsAsBeforeWhenTheSurfaceGoes) {
    const HGDIOBJ fontBefore = ::GetCurrentObject(canvas.Dc(), OBJ_FONT);
    const HGDIOBJ penBefore = ::GetCurrentObject(canvas.Dc(), OBJ_PEN);
    {
        GdiSurface surface(canvas.Dc(), font.Get(), fonts);
        surface.SelectStockFont();
        surface.SelectPen(RGB(1, 2, 3));
        surface.SetTextColor(RGB(1, 2, 3));
        surface.SetBkMode(BkMode::Transparent);
        surface.FillSolidRect({0, 0, 5, 5}, RGB(9, 9, 9));
    }
    EXPECT_EQ(::GetCurrentObject(canvas.Dc(), OBJ_FONT), fontBefore);
    EXPECT_EQ(::GetCurrentObject(canvas.Dc(), OBJ_PEN), penBefore);
    EXPECT_EQ(::GetTextColor(canvas.Dc()), RGB(0, 0, 0));
    EXPECT_EQ(::GetBkColor(canvas.Dc()), RGB(255, 255, 255));
    EXPECT_EQ(::GetBkMode(canvas.Dc()), OPAQUE);
}

TEST_F(GdiSurfaceTest, BoxesAreOnePixelThickAndTheRightAndBottomEdgesHaveTheirCorners) {
    GdiSurface surface(canvas.Dc(), font.Get(), fonts);
    surface.Draw3dRect({10, 10, 20, 16}, RGB(255, 0, 0), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(10, 10), RGB(255, 0, 0));
    EXPECT_EQ(canvas.At(18, 10), RGB(255, 0, 0));
    EXPECT_EQ(canvas.At(19, 10), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(10, 14), RGB(255, 0, 0));
    EXPECT_EQ(canvas.At(10, 15), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(19, 15), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(11, 11), RGB(255, 255, 255));
    EXPECT_EQ(canvas.At(20, 16), RGB(255, 255, 255));
    EXPECT_EQ(canvas.Count({0, 0, 200, 60}, RGB(255, 255, 255)), 28);
}

TEST_F(GdiSurfaceTest, LinesEndBeforeTheirLastPoint) {
    GdiSurface surface(canvas.Dc(), font.Get(), fonts);
    surface.SelectPen(RGB(0, 128, 0));
    surface.MoveTo({5, 7});
    surface.LineTo({9, 7});
    EXPECT_EQ(canvas.At(5, 7), RGB(0, 128, 0));
    EXPECT_EQ(canvas.At(8, 7), RGB(0, 128, 0));
    EXPECT_EQ(canvas.At(9, 7), RGB(255, 255, 255));
}

TEST_F(GdiSurfaceTest, InvertingTwiceLeavesThePicture) {
    GdiSurface surface(canvas.Dc(), font.Get(), fonts);
    surface.FillSolidRect({0, 0, 50, 50}, RGB(1, 2, 3));
    const std::vector<std::uint32_t> before = canvas.Pixels();
    surface.InvertRect({10, 10, 30, 30});
    EXPECT_EQ(canvas.At(10, 10), RGB(254, 253, 252));
    surface.InvertRect({10, 10, 30, 30});
    surface.DrawFocusRect({5, 5, 40, 40});
    EXPECT_NE(canvas.Pixels(), before);
    surface.DrawFocusRect({5, 5, 40, 40});
    EXPECT_EQ(canvas.Pixels(), before);
}

TEST_F(GdiSurfaceTest, CoordinatesBeyondAnyDeviceDrawWhatOfThemIsOnIt) {
    GdiSurface surface(canvas.Dc(), font.Get(), fonts);
    surface.FillSolidRect({Least, 10, Most, Most}, RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(0, 10), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(199, 59), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(0, 9), RGB(255, 255, 255));
    surface.InvertRect({0, Least, Most, 5});
    EXPECT_EQ(canvas.At(100, 4), RGB(0, 0, 0));
    surface.Draw3dRect({Least, Least, Most, Most}, 0, 0);
    surface.MoveTo({Least, 20});
    surface.LineTo({Most, 20});
    EXPECT_EQ(canvas.At(100, 20), RGB(0, 0, 0));
    Rect outside{Most - 5, Least, Most, Least + 3};
    surface.DrawText("x", outside, DtLeft);
    surface.DrawText("x", outside, DtCalcRect);
    surface.SetPixel({Most, Least}, 0);
}

TEST_F(GdiSurfaceTest, WhatIsClippedAwayIsNotDrawn) {
    ::IntersectClipRect(canvas.Dc(), 50, 0, 100, 60);
    GdiSurface surface(canvas.Dc(), font.Get(), fonts);
    surface.FillSolidRect({0, 0, 200, 60}, RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(49, 5), RGB(255, 255, 255));
    EXPECT_EQ(canvas.At(50, 5), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(99, 5), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(100, 5), RGB(255, 255, 255));
}

TEST_F(GdiSurfaceTest, AMovedOriginMovesWhatIsSeen) {
    ::SetWindowOrgEx(canvas.Dc(), -100, -20, nullptr);
    GdiSurface surface(canvas.Dc(), font.Get(), fonts);
    surface.FillSolidRect({-100, -20, -90, -10}, RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(0, 0), RGB(0, 0, 255));
    surface.FillSolidRect({90, 30, 100, 40}, RGB(0, 255, 0));
    EXPECT_EQ(canvas.At(199, 59), RGB(0, 255, 0));
}

LogFont CellFont(int height) {
    LogFont record{.lfHeight = -height, .lfWeight = 400, .lfCharSet = GB2312_CHARSET};
    return record;
}

TEST_F(GdiSurfaceTest, ManyFontsOfCellsStayWithinTheBoundAndAreGivenBack) {
    const int before = Handles::GdiObjects();
    {
        GdiFonts many;
        GdiSurface surface(canvas.Dc(), font.Get(), many);
        for (int round = 0; round < 3; ++round) {
            for (int height = 1; height <= 200; ++height) {
                surface.SelectFont(CellFont(height));
                Rect measured{};
                surface.DrawText("8", measured, DtCalcRect);
                EXPECT_GE(measured.Height(), height * 9 / 10);
                EXPECT_LE(measured.Height(), height * 2 + 3);
            }
        }
        EXPECT_LE(Handles::GdiObjects(), before + static_cast<int>(GdiFonts::MostFonts) + 2);
    }
    EXPECT_EQ(Handles::GdiObjects(), before);
}

TEST_F(GdiSurfaceTest, AFontIsMadeOnceForEachRecord) {
    GdiSurface surface(canvas.Dc(), font.Get(), fonts);
    surface.SelectFont(CellFont(20));
    const HGDIOBJ first = ::GetCurrentObject(canvas.Dc(), OBJ_FONT);
    surface.SelectStockFont();
    EXPECT_EQ(::GetCurrentObject(canvas.Dc(), OBJ_FONT), font.Get());
    surface.SelectFont(CellFont(20));
    EXPECT_EQ(::GetCurrentObject(canvas.Dc(), OBJ_FONT), first);
}

TEST_F(GdiSurfaceTest, PaperIsWhatIsCalledPaper) {
    EXPECT_FALSE(GdiSurface(canvas.Dc(), nullptr, fonts).IsPrinting());
    EXPECT_TRUE(GdiSurface(canvas.Dc(), nullptr, fonts, GdiSurface::Use::Print).IsPrinting());
}

TEST_F(GdiSurfaceTest, ABitmapOfAFileIsDrawnFromItsTopLeftCorner) {
    struct {
        BITMAPINFOHEADER header{sizeof(BITMAPINFOHEADER), 2, 2, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    } info;
    // From the bottom: blue, green; red, white.
    const std::uint8_t bits[] = {255, 0, 0, 0, 255, 0, 0, 0, 0, 0, 255, 255, 255, 255, 0, 0};
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&info);
    GdiSurface surface(canvas.Dc(), font.Get(), fonts);
    const auto bitmap = surface.CreateDIBitmap({bytes, sizeof info}, bits);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->Width(), 2);
    EXPECT_EQ(bitmap->Height(), 2);
    surface.BitBlt({10, 10}, 2, 1, *bitmap);
    EXPECT_EQ(canvas.At(10, 10), RGB(255, 0, 0));
    EXPECT_EQ(canvas.At(10, 11), RGB(255, 255, 255));
    surface.BitBlt({20, 10}, 1, 2, *bitmap);
    EXPECT_EQ(canvas.At(20, 11), RGB(0, 0, 255));
    EXPECT_EQ(canvas.At(21, 11), RGB(255, 255, 255));
}

TEST(Fonts, AChineseFaceThatIsNotInstalledShowsChinese) {
    const Canvas canvas(100, 40);
    const OwnedFont font = MakeFont(Record(-16, L"没有的字体"));
    ::SelectObject(canvas.Dc(), font.Get());
    WORD glyphs[2] = {};
    ::GetGlyphIndicesW(canvas.Dc(), L"中文", 2, glyphs, GGI_MARK_NONEXISTING_GLYPHS);
    EXPECT_NE(glyphs[0], 0xFFFF);
    EXPECT_NE(glyphs[1], 0xFFFF);
    ::SelectObject(canvas.Dc(), ::GetStockObject(SYSTEM_FONT));
}

TEST(Fonts, TheStockFontIsMadeAgainOnlyWhenItsRecordChanges) {
    const OwnedFont small = MakeFont(Record(-12));
    const OwnedFont alike = MakeFont(Record(-12));
    const OwnedFont large = MakeFont(Record(-30));
    StockFont stock;
    EXPECT_EQ(stock.LikeFont(nullptr), nullptr);
    const HFONT first = stock.LikeFont(small.Get());
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(stock.LikeFont(alike.Get()), first);
    LOGFONTW record{};
    ::GetObjectW(stock.LikeFont(large.Get()), sizeof record, &record);
    EXPECT_EQ(record.lfHeight, -30);
}

}  // namespace
}  // namespace veygrid
