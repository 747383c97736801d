// Tests of pictures from device-independent bitmaps.
#include "platform/cairo/CairoBitmap.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>
#include <vector>

#include "platform/cairo/CairoPicture.h"

namespace veygrid {
namespace {

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& bytes, std::uint32_t number, int size = 4) {
    for (int i = 0; i < size; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }
}

Bytes Header(std::int32_t width, std::int32_t height, std::uint16_t bitCount,
             std::initializer_list<std::uint32_t> table = {}, std::uint32_t compression = 0) {
    Bytes header;
    Append(header, 40);
    Append(header, static_cast<std::uint32_t>(width));
    Append(header, static_cast<std::uint32_t>(height));
    Append(header, 1, 2);
    Append(header, bitCount, 2);
    Append(header, compression);
    for (int i = 0; i < 3; ++i) {
        Append(header, 0);
    }
    Append(header, bitCount <= 8 ? static_cast<std::uint32_t>(table.size()) : 0);
    Append(header, 0);
    for (const std::uint32_t entry : table) {
        Append(header, entry);
    }
    return header;
}

class CairoBitmapTest : public ::testing::Test {
  protected:
    // The picture's pixels as 0x00RRGGBB, row by row; empty where there is none.
    std::vector<Color> Show(const Bytes& header, const Bytes& bits) {
        const auto bitmap = m_picture.Canvas().CreateDIBitmap(header, bits);
        std::vector<Color> pixels;
        if (bitmap == nullptr) {
            return pixels;
        }
        m_picture.Canvas().BitBlt({}, bitmap->Width(), bitmap->Height(), *bitmap);
        for (int y = 0; y < bitmap->Height(); ++y) {
            for (int x = 0; x < bitmap->Width(); ++x) {
                const Color pixel = m_picture.Pixel(x, y);
                pixels.push_back((pixel & 0xFFU) << 16U | (pixel & 0xFF00U) | pixel >> 16U);
            }
        }
        return pixels;
    }

    CairoFonts m_fonts{{1, true}};
    MemoryPicture m_picture{m_fonts, {16, 16}};
};

using Colors = std::vector<Color>;

TEST_F(CairoBitmapTest, OneBitFromTheBottomUp) {
    EXPECT_EQ(Show(Header(3, 2, 1, {0x112233, 0x445566}), {0xA0, 0, 0, 0, 0x40, 0, 0, 0}),
              (Colors{0x112233, 0x445566, 0x112233, 0x445566, 0x112233, 0x445566}));
}

TEST_F(CairoBitmapTest, FourBitsFromTheTopDown) {
    EXPECT_EQ(Show(Header(3, -2, 4, {1, 2, 3}), {0x01, 0x20, 0, 0, 0x21, 0x00, 0, 0}),
              (Colors{1, 2, 3, 3, 2, 1}));
}

TEST_F(CairoBitmapTest, EightBitsAndColoursThatTheTableLacksAreBlack) {
    EXPECT_EQ(Show(Header(3, 1, 8, {7, 8}), {0, 1, 200, 0}), (Colors{7, 8, 0}));
}

TEST_F(CairoBitmapTest, AWholeTableWhereTheHeaderGivesNoCount) {
    Bytes header = Header(1, 1, 4);
    for (std::uint32_t i = 0; i < 16; ++i) {
        Append(header, i * 0x010101);
    }
    EXPECT_EQ(Show(header, {0xF0, 0, 0, 0}), (Colors{0x0F0F0F}));
    header.pop_back();
    EXPECT_EQ(Show(header, {0xF0, 0, 0, 0}), Colors{});
}

TEST_F(CairoBitmapTest, SixteenBitsHaveFiveForAColour) {
    EXPECT_EQ(Show(Header(2, 1, 16), {0x00, 0x7C, 0x1F, 0x00}), (Colors{0xFF0000, 0x0000FF}));
}

TEST_F(CairoBitmapTest, SixteenBitsWithMasks) {
    EXPECT_EQ(Show(Header(2, 1, 16, {0xF800, 0x07E0, 0x001F}, 3), {0x00, 0xF8, 0xE0, 0x07}),
              (Colors{0xFF0000, 0x00FF00}));
}

TEST_F(CairoBitmapTest, TwentyFourAndThirtyTwoBits) {
    EXPECT_EQ(Show(Header(1, 1, 24), {0x33, 0x22, 0x11, 0}), (Colors{0x112233}));
    EXPECT_EQ(Show(Header(1, 1, 32), {0x33, 0x22, 0x11, 0x99}), (Colors{0x112233}));
    EXPECT_EQ(Show(Header(1, 1, 32, {0xFF, 0xFF00, 0xFF0000}, 3), {0x33, 0x22, 0x11, 0x99}),
              (Colors{0x332211}));
    EXPECT_EQ(Show(Header(1, 1, 32, {0, 0, 0}, 3), {0x33, 0x22, 0x11, 0x99}), (Colors{0}));
}

TEST_F(CairoBitmapTest, WhatIsNoPictureGivesNone) {
    const Bytes bits(64);
    EXPECT_EQ(Show({}, {}), Colors{});
    EXPECT_EQ(Show(Header(0, 1, 24), bits), Colors{});
    EXPECT_EQ(Show(Header(-4, 1, 24), bits), Colors{});
    EXPECT_EQ(Show(Header(1, 0, 24), bits), Colors{});
    EXPECT_EQ(Show(Header(1, 1, 7), bits), Colors{});
    EXPECT_EQ(Show(Header(1, 1, 8, {0}, 1), bits), Colors{});
    EXPECT_EQ(Show(Header(1, 1, 16, {0xF800}, 3), bits), Colors{});
    EXPECT_EQ(Show(Header(2'000'000'000, 2'000'000'000, 32), bits), Colors{});
    EXPECT_EQ(Show(Header(1, INT32_MIN, 32), bits), Colors{});
    EXPECT_EQ(Show(Header(32768, 1, 1, {0}), Bytes(5000)), Colors{});
}

TEST_F(CairoBitmapTest, PixelsThatEndEarlyGiveNone) {
    EXPECT_EQ(Show(Header(3, 2, 24), Bytes(23)), Colors{});
    EXPECT_EQ(Show(Header(3, 2, 24), Bytes(24)), Colors(6, 0));
}

TEST_F(CairoBitmapTest, RandomBytesDoNoHarm) {
    std::mt19937 random(936);
    int made = 0;
    for (int i = 0; i < 20'000; ++i) {
        const std::uint16_t depths[] = {1, 4, 8, 16, 24, 32};
        Bytes header = Header(static_cast<std::int32_t>(random() % 9) - 1,
                              static_cast<std::int32_t>(random() % 9) - 4, depths[random() % 6],
                              {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16},
                              random() % 4 == 0 ? 3 : 0);
        header[random() % header.size()] = static_cast<std::uint8_t>(random());
        Bytes bits(random() % 200);
        for (std::uint8_t& byte : bits) {
            byte = static_cast<std::uint8_t>(random());
        }
        made += BitmapFromDib(header, bits) != nullptr ? 1 : 0;
    }
    EXPECT_GT(made, 1000);
}

TEST_F(CairoBitmapTest, BitBltCopiesFromTheCornerAndOnlyWhatThePictureHas) {
    const auto bitmap =
        m_picture.Canvas().CreateDIBitmap(Header(2, -2, 32), Bytes{1, 0, 0, 0, 2, 0, 0, 0,  //
                                                                   3, 0, 0, 0, 4, 0, 0, 0});
    ASSERT_NE(bitmap, nullptr);
    m_picture.Canvas().BitBlt({5, 6}, 1, 2, *bitmap);
    EXPECT_EQ(m_picture.Pixel(5, 6), 0x010000U);
    EXPECT_EQ(m_picture.Pixel(5, 7), 0x030000U);
    EXPECT_EQ(m_picture.Pixel(6, 6), White);
    m_picture.Canvas().BitBlt({9, 9}, 100, 100, *bitmap);
    EXPECT_EQ(m_picture.Pixel(10, 10), 0x040000U);
    EXPECT_EQ(m_picture.Pixel(11, 10), White);
    m_picture.Canvas().BitBlt({INT32_MAX, INT32_MIN}, 2, 2, *bitmap);
    m_picture.Canvas().BitBlt({0, 0}, -1, 2, *bitmap);
    EXPECT_EQ(m_picture.Pixel(0, 0), White);
}

class ForeignBitmap : public SurfaceBitmap {
  public:
    std::int32_t Width() const override { return 4; }
    std::int32_t Height() const override { return 4; }
};

TEST_F(CairoBitmapTest, APictureOfAnotherKindOfSurfaceIsNotDrawn) {
    m_picture.Canvas().BitBlt({0, 0}, 4, 4, ForeignBitmap());
    EXPECT_EQ(m_picture.Pixel(1, 1), White);
}

}  // namespace
}  // namespace veygrid
