// The picture behind the form: hostile bytes, tiles and the loading of files.
#include <gmock/gmock.h>

#include <cstring>
#include <map>
#include <random>

#include "DrawingTest.h"
#include "screen/DibParts.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Header {
    std::uint32_t size = 40;
    std::int32_t width = 1;
    std::int32_t height = 1;
    std::uint16_t planes = 1;
    std::uint16_t bitCount = 24;
    std::uint32_t compression = 0;
    std::uint32_t sizeImage = 0;
    std::int32_t xPelsPerMeter = 0;
    std::int32_t yPelsPerMeter = 0;
    std::uint32_t clrUsed = 0;
    std::uint32_t clrImportant = 0;
};
static_assert(sizeof(Header) == 40);

std::string Block(const Header& header, std::size_t bytesBehind) {
    std::string block(sizeof header + bytesBehind, '\x5A');
    std::memcpy(block.data(), &header, sizeof header);
    return block;
}

// A picture of 24 bits with all the bytes it needs.
std::string Picture(std::int32_t width, std::int32_t height) {
    const std::int32_t line = (width * 24 + 31) / 32 * 4;
    return Block({.width = width, .height = height}, static_cast<std::size_t>(line * height));
}

// Where the pixels begin in a block with room for all; 0 when it makes no picture.
std::size_t BitsStart(const Header& header) {
    const std::string block = Block(header, 100000);
    const std::optional<DibParts> parts = SplitDib(block);
    return parts ? parts->header.size() : 0;
}

TEST(DrawingDibParts, TableOfEightBitsAndLessHoldsTheUsedColoursOrAllOfThem) {
    EXPECT_EQ(BitsStart({.bitCount = 8}), 40U + 256 * 4);
    EXPECT_EQ(BitsStart({.bitCount = 8, .clrUsed = 3}), 40U + 3 * 4);
    EXPECT_EQ(BitsStart({.bitCount = 4}), 40U + 16 * 4);
    EXPECT_EQ(BitsStart({.bitCount = 1}), 40U + 2 * 4);
    EXPECT_EQ(BitsStart({.bitCount = 1, .clrUsed = 1}), 40U + 4);
}

TEST(DrawingDibParts, TableAboveEightBitsHoldsTheUsedColoursAndThreeMasks) {
    EXPECT_EQ(BitsStart({.bitCount = 24}), 40U);
    EXPECT_EQ(BitsStart({.bitCount = 24, .clrUsed = 5}), 40U + 5 * 4);
    EXPECT_EQ(BitsStart({.bitCount = 16, .compression = 3}), 40U + 3 * 4);
    EXPECT_EQ(BitsStart({.bitCount = 32, .compression = 3, .clrUsed = 2}), 40U + 5 * 4);
}

TEST(DrawingDibParts, PixelsAreTheRestOfTheBlock) {
    const std::string block = Block({.width = 2, .height = 2}, 20);
    const std::optional<DibParts> parts = SplitDib(block);
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->bits.size(), 20U);
    EXPECT_EQ(static_cast<const void*>(parts->bits.data()), block.data() + 40);
}

TEST(DrawingDibParts, LongerHeaderIsTakenForOneOfFortyBytes) {
    const std::optional<DibParts> parts = SplitDib(Block({.size = 124}, 4));
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->header.size(), 40U);
    EXPECT_EQ(parts->header[0], 40U);
}

TEST(DrawingDibParts, BlockThatEndsEarlyIsNoPicture) {
    // Two lines of 12 bytes.
    const std::string block = Block({.width = 3, .height = 2}, 24);
    EXPECT_TRUE(SplitDib(block));
    for (std::size_t size = 0; size < block.size(); ++size) {
        EXPECT_FALSE(SplitDib(std::string_view(block).substr(0, size))) << size;
    }
}

TEST(DrawingDibParts, ColourTableBeyondTheBlockIsNoPicture) {
    EXPECT_FALSE(SplitDib(Block({.bitCount = 8, .clrUsed = 0xFFFFFFFFU}, 5000)));
    EXPECT_FALSE(SplitDib(Block({.bitCount = 32, .compression = 3, .clrUsed = 0xFFFFFFFFU}, 50)));
    EXPECT_FALSE(SplitDib(Block({.bitCount = 8, .clrUsed = 0x3FFFFFF7U}, 5000)));
}

TEST(DrawingDibParts, AbsurdSizesAreNoPicture) {
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    for (const std::int32_t width : {Least, -1, 0, 1, Most}) {
        for (const std::int32_t height : {Least, -1, 0, 1, Most}) {
            const bool isSound = width == 1 && (height == 1 || height == -1);
            for (const std::uint16_t bits : {std::uint16_t{1}, std::uint16_t{32}}) {
                const std::string block =
                    Block({.width = width, .height = height, .bitCount = bits}, 5000);
                EXPECT_EQ(SplitDib(block).has_value(), isSound) << width << " " << height;
            }
        }
    }
}

TEST(DrawingDibParts, PackedPixelsMustBeThereAndCannotMakeAPictureOfAnySize) {
    Header packed{.width = 100,
                  .height = 100,
                  .bitCount = 8,
                  .compression = 1,
                  .sizeImage = 50,
                  .clrUsed = 1};
    EXPECT_TRUE(SplitDib(Block(packed, 54)));
    EXPECT_FALSE(SplitDib(Block(packed, 53)));
    packed.sizeImage = 0;
    EXPECT_FALSE(SplitDib(Block(packed, 54)));
    packed.sizeImage = 50;
    packed.height = -100;
    EXPECT_FALSE(SplitDib(Block(packed, 54)));
    packed.width = packed.height = 30000;
    EXPECT_FALSE(SplitDib(Block(packed, 54)));
}

TEST(DrawingDibParts, CompressionMustGoWithTheNumberOfBits) {
    EXPECT_EQ(BitsStart({.bitCount = 24, .compression = 3}), 0U);
    EXPECT_EQ(BitsStart({.bitCount = 4, .compression = 1, .sizeImage = 1}), 0U);
    EXPECT_EQ(BitsStart({.bitCount = 8, .compression = 2, .sizeImage = 1}), 0U);
    EXPECT_EQ(BitsStart({.bitCount = 32, .compression = 4}), 0U);
    for (const int bits : {0, 2, 3, 5, 15, 33, 64, 65535}) {
        EXPECT_EQ(BitsStart({.bitCount = static_cast<std::uint16_t>(bits)}), 0U) << bits;
    }
}

TEST(DrawingDibParts, RandomBytesNeverReadOutside) {
    std::mt19937 random(936);
    for (int round = 0; round < 20000; ++round) {
        // On the heap and of just its size, so that sanitizers see each byte too many.
        std::vector<char> bytes(std::uniform_int_distribution<std::size_t>(0, 200)(random));
        for (char& byte : bytes) {
            byte = random() % 3 == 0 ? static_cast<char>(random()) : '\0';
        }
        const std::optional<DibParts> parts = SplitDib({bytes.data(), bytes.size()});
        if (parts) {
            ASSERT_EQ(parts->header.size() + parts->bits.size(), bytes.size());
        }
    }
}

class DrawingBackground : public DrawingTest {
  protected:
    DrawingBackground() { properties.GuiMode = true; }

    void SetPicture(std::int32_t width, std::int32_t height) {
        bkImageBits = Picture(width, height);
        image.BitsChanged();
    }
};

TEST_F(DrawingBackground, TilesFromTheCornerOnAndKeepsASizeOnceCut) {
    std::string dump;
    const auto draw = [&](const char* name) { dump += std::string("-- ") + name + "\n" + Draw(); };
    SetPicture(60, 40);
    bounds = {0, 0, 150, 90};
    draw("the last row cuts the height for all further columns");
    draw("the bitmap is made once");
    SetPicture(200, 100);
    draw("larger than the bounds");
    SetPicture(75, 30);
    draw("a height that fits exactly leaves the other columns empty");
    SetPicture(60, 40);
    bounds = {10, 20, 100, 110};
    draw("bounds below 0: tiles begin no lower than the bounds are high");
    bounds = {0, 60, 50, 110};
    draw("bounds that begin lower than they are high");
    bounds = {-30, -20, 50, 30};
    draw("bounds that begin above and left of 0");
    ExpectGolden("background-tiles", dump);
}

TEST_F(DrawingBackground, WithoutBytesTheAmbientColourFillsTheBounds) {
    EXPECT_EQ(Draw(), "FillSolidRect 0,0,150,90 0xCC0005\n");
}

TEST_F(DrawingBackground, BytesThatMakeNoPictureAreAnsweredWithTheAmbientColour) {
    bkImageBits = std::string(60, '\x28');
    EXPECT_EQ(Draw(), "FillSolidRect 0,0,150,90 0xCC0005\n");
}

TEST_F(DrawingBackground, SurfaceThatMakesNoBitmapGetsTheAmbientColour) {
    bkImageBits = Picture(2, 2);
    RecordingSurface surface;
    surface.m_makesBitmaps = false;
    image.DrawBkImage(surface, bounds, 7);
    EXPECT_EQ(surface.Dump(),
              "CreateDIBitmap 2x2 header 40 bits 16\nFillSolidRect 0,0,150,90 0x000007\n");
}

TEST_F(DrawingBackground, TopDownPictureIsTiledByItsLines) {
    Header header{.width = 200, .height = -100};
    bkImageBits = Block(header, 60000);
    EXPECT_EQ(Draw(), "CreateDIBitmap 200x100 header 40 bits 60000\nBitBlt 0,0 150x90\n");
}

TEST_F(DrawingBackground, AbsurdBoundsEnd) {
    SetPicture(1, 1);
    bounds = {0, 0, std::numeric_limits<std::int32_t>::max(), 3};
    EXPECT_THAT(DrawnCalls("BitBlt"), testing::SizeIs(3));
    bounds = {5, 5, -5, -5};
    EXPECT_THAT(DrawnCalls("BitBlt"), IsEmpty());
}

// Files by their names in UTF-8.
class PictureFiles final : public FileSystem {
  public:
    std::unique_ptr<ByteSource> OpenForReading(std::string_view path) override {
        const auto found = contents.find(path);
        if (found == contents.end()) {
            return nullptr;
        }
        return std::make_unique<Source>(found->second, missing);
    }
    std::unique_ptr<FileReplacement> Replace(std::string_view) override { return nullptr; }

    std::map<std::string, std::string, std::less<>> contents;
    // Bytes at the end of each file that cannot be read.
    std::size_t missing = 0;

  private:
    class Source final : public ByteSource {
      public:
        Source(std::string_view bytes, std::size_t missing)
            : m_size(bytes.size()), m_bytes(bytes.substr(0, bytes.size() - missing)) {}
        std::uint64_t Size() const override { return m_size; }
        std::size_t Read(char* buffer, std::size_t room) override {
            return m_bytes.Read(buffer, room);
        }

      private:
        std::size_t m_size;
        MemorySource m_bytes;
    };
};

class DrawingBkImageLoading : public DrawingBackground {
  protected:
    static constexpr std::string_view FileHeader{"BM\0\0\0\0\0\0\0\0\0\0\0\0", 14};

    DrawingBkImageLoading() {
        bkImageBits = Picture(10, 10);
        former = bkImageBits;
        files.contents["new.bmp"] = std::string(FileHeader) + Picture(20, 20);
        Draw();
    }
    void Load(std::string_view path) { image.LoadBkImage(files, path); }

    std::string former;
    PictureFiles files;
};

TEST_F(DrawingBkImageLoading, KeepsTheFileBehindItsHeaderAndMakesTheBitmapAnew) {
    Load("new.bmp");
    EXPECT_EQ(bkImageBits, Picture(20, 20));
    EXPECT_THAT(Draw(), HasSubstr("CreateDIBitmap 20x20 header 40 bits 1200\n"));
}

TEST_F(DrawingBkImageLoading, EmptyPathFreesTheImage) {
    Load("");
    EXPECT_EQ(bkImageBits, "");
    EXPECT_EQ(Draw(), "FillSolidRect 0,0,150,90 0xCC0005\n");
}

TEST_F(DrawingBkImageLoading, MissingFileLeavesTheFormerImageInForce) {
    Load("missing.bmp");
    EXPECT_EQ(bkImageBits, former);
    EXPECT_THAT(DrawnCalls("CreateDIBitmap"), IsEmpty());
}

TEST_F(DrawingBkImageLoading, ShortFileLeavesTheFormerImageInForce) {
    for (std::size_t size = 0; size < FileHeader.size(); ++size) {
        files.contents["short.bmp"] = FileHeader.substr(0, size);
        Load("short.bmp");
        EXPECT_EQ(bkImageBits, former);
    }
}

TEST_F(DrawingBkImageLoading, FileThatIsNoBitmapLeavesTheFormerImageInForce) {
    for (const std::string_view mark : {"MB", "bm", "BN", "\x89P"}) {
        files.contents["other.bmp"] = std::string(mark) + std::string(100, '\0');
        Load("other.bmp");
        EXPECT_EQ(bkImageBits, former);
    }
    EXPECT_THAT(DrawnCalls("CreateDIBitmap"), IsEmpty());
}

TEST_F(DrawingBkImageLoading, FileThatBreaksOffLeavesTheFormerImageInForce) {
    for (const std::size_t missing : {1, 1000, 1210}) {
        files.missing = missing;
        Load("new.bmp");
        EXPECT_EQ(bkImageBits, former);
    }
}

TEST_F(DrawingBkImageLoading, FileOfItsHeaderAloneHasNoImage) {
    files.contents["header.bmp"] = FileHeader;
    Load("header.bmp");
    EXPECT_EQ(bkImageBits, "");
}

TEST_F(DrawingBkImageLoading, FileWhosePictureIsUnsoundTakesThePlaceOfTheFormerOne) {
    files.contents["bad.bmp"] = std::string(FileHeader) + "abc";
    Load("bad.bmp");
    EXPECT_EQ(bkImageBits, "abc");
    EXPECT_EQ(Draw(), "FillSolidRect 0,0,150,90 0xCC0005\n");
}

TEST_F(DrawingBkImageLoading, PathIsInCodePage936) {
    files.contents["图\u4E17.bmp"] = std::string(FileHeader) + Picture(3, 3);
    Load(Gbk("图\u4E17.bmp"));
    EXPECT_EQ(bkImageBits, Picture(3, 3));
}

}  // namespace
}  // namespace veygrid
