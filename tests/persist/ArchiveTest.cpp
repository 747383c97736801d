// The primitive forms of the grid file, byte by byte, and a reader that believes nothing.
#include "persist/Archive.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "Support.h"

namespace veygrid {
namespace {

std::string Written(const std::function<void(ArchiveWriter&)>& write) {
    MemorySink sink;
    ArchiveWriter archive(sink);
    write(archive);
    archive.Close();
    EXPECT_EQ(archive.Position(), sink.Bytes.size());
    return sink.Bytes;
}

std::string WrittenString(const std::string& text) {
    return Written([&](ArchiveWriter& archive) { archive.WriteString(text); });
}

// The text of the error that reading throws, with its position in front.
std::string ErrorOf(std::string_view bytes, const std::function<void(ArchiveReader&)>& read) {
    MemorySource source(bytes);
    ArchiveReader archive(source);
    try {
        read(archive);
    } catch (const ArchiveError& error) {
        return std::to_string(error.Position()) + " " + error.what();
    }
    return "no error";
}

TEST(Archive, NumbersAreLittleEndian) {
    const std::string bytes = Written([](ArchiveWriter& archive) {
        archive.WriteU8(0xFE);
        archive.WriteU16(0x1234);
        archive.WriteI16(-2);
        archive.WriteU32(0x80000001U);
        archive.WriteI32(std::numeric_limits<std::int32_t>::min());
        archive.WriteBool8(true);
        archive.WriteBool32(true);
        archive.WriteCellPos({3, -1});
        archive.WriteRect({1, 2, 3, 4});
    });
    EXPECT_EQ(bytes, std::string(Bytes()
                                     .U8(0xFE)
                                     .U16(0x1234)
                                     .U16(0xFFFE)
                                     .U32(0x80000001U)
                                     .U32(0x80000000U)
                                     .U8(1)
                                     .U32(1)
                                     .Pos(3, -1)
                                     .I32(1)
                                     .I32(2)
                                     .I32(3)
                                     .I32(4)));
    MemorySource source(bytes);
    ArchiveReader archive(source);
    EXPECT_EQ(archive.ReadU8(), 0xFE);
    EXPECT_EQ(archive.ReadU16(), 0x1234);
    EXPECT_EQ(archive.ReadI16(), -2);
    EXPECT_EQ(archive.ReadU32(), 0x80000001U);
    EXPECT_EQ(archive.ReadI32(), std::numeric_limits<std::int32_t>::min());
    EXPECT_TRUE(archive.ReadBool8());
    EXPECT_TRUE(archive.ReadBool32());
    EXPECT_EQ(archive.ReadCellPos(), (CellPos{3, -1}));
    EXPECT_EQ(archive.ReadRect(), (StoredRect{1, 2, 3, 4}));
    EXPECT_EQ(archive.Left(), 0U);
}

TEST(Archive, AFontRecordIs60BytesWithItsFaceNameLast) {
    const std::string bytes =
        Written([](ArchiveWriter& archive) { archive.WriteLogFont(SampleFont()); });
    const std::string expected = Bytes()
                                     .I32(-12)
                                     .I32(0)
                                     .I32(0)
                                     .I32(0)
                                     .I32(700)
                                     .U8(1)
                                     .U8(0)
                                     .U8(0)
                                     .U8(134)
                                     .U32(0)
                                     .Raw("\xCB\xCE\xCC\xE5")
                                     .Repeat(0, 28);
    EXPECT_EQ(bytes, expected);
    MemorySource source(bytes);
    EXPECT_EQ(ArchiveReader(source).ReadLogFont(), SampleFont());
}

struct LengthCase {
    std::size_t length;
    std::string prefix;
};

class StringLength : public testing::TestWithParam<LengthCase> {};

TEST_P(StringLength, HasItsPrefixAndReadsBack) {
    const std::string text(GetParam().length, 'a');
    const std::string bytes = WrittenString(text);
    EXPECT_EQ(bytes.size(), GetParam().prefix.size() + text.size());
    EXPECT_EQ(bytes.substr(0, GetParam().prefix.size()), GetParam().prefix);
    MemorySource source(bytes);
    ArchiveReader archive(source);
    EXPECT_EQ(archive.ReadString(), text);
    EXPECT_EQ(archive.Left(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, StringLength,
    testing::Values(LengthCase{0, Bytes().U8(0)}, LengthCase{1, Bytes().U8(1)},
                    LengthCase{254, Bytes().U8(254)}, LengthCase{255, Bytes().U8(255).U16(255)},
                    LengthCase{65533, Bytes().U8(255).U16(65533)},
                    LengthCase{65534, Bytes().U8(255).U16(65535).U32(65534)},
                    LengthCase{65535, Bytes().U8(255).U16(65535).U32(65535)},
                    LengthCase{70000, Bytes().U8(255).U16(65535).U32(70000)},
                    LengthCase{1000000, Bytes().U8(255).U16(65535).U32(1000000)}),
    [](const testing::TestParamInfo<LengthCase>& info) {
        return "Of" + std::to_string(info.param.length);
    });

TEST(Archive, ALengthInALongerFormThanNeededIsRead) {
    const std::string bytes = Bytes().U8(255).U16(2).Raw("ab").U8(255).U16(65535).U32(2).Raw("cd");
    MemorySource source(bytes);
    ArchiveReader archive(source);
    EXPECT_EQ(archive.ReadString(), "ab");
    EXPECT_EQ(archive.ReadString(), "cd");
}

TEST(Archive, ATextInSixteenBitCharactersIsConvertedWithCodePage936) {
    const std::string bytes =
        Bytes().U8(0xFF).U16(0xFFFE).U8(3).U16(u'维').U16(u'a').U16(u'诺').Text("next");
    MemorySource source(bytes);
    ArchiveReader archive(source);
    EXPECT_EQ(archive.ReadString(), Gbk(u8"维a诺"));
    EXPECT_EQ(archive.ReadString(), "next");
}

TEST(Archive, ATextInSixteenBitCharactersMayHaveALongLength) {
    for (const std::uint32_t length : {300U, 70000U, 200000U}) {
        Bytes bytes;
        bytes.U8(0xFF).U16(0xFFFE).U8(0xFF);
        length < 0xFFFE ? bytes.U16(length) : bytes.U16(0xFFFF).U32(length);
        for (std::uint32_t i = 0; i < length; ++i) {
            bytes.U16(u'b');
        }
        MemorySource source(bytes.Take());
        ArchiveReader archive(source);
        EXPECT_EQ(archive.ReadString(), std::string(length, 'b'));
        EXPECT_EQ(archive.Left(), 0U);
    }
}

TEST(Archive, ASecondMarkOfSixteenBitCharactersIsRefused) {
    EXPECT_EQ(ErrorOf(Bytes().U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFE).Repeat(0, 100).Take(),
                      [](ArchiveReader& archive) { archive.ReadString(); }),
              "4 stream: second mark of a text in 16-bit characters at byte 4");
}

struct CountCase {
    std::size_t count;
    std::string bytes;
};

class CountForm : public testing::TestWithParam<CountCase> {};

TEST_P(CountForm, HasItsBytesAndReadsBack) {
    const std::string bytes =
        Written([](ArchiveWriter& archive) { archive.WriteCount(GetParam().count); });
    EXPECT_EQ(bytes, GetParam().bytes);
    const std::string filled = bytes + std::string(GetParam().count, '\0');
    MemorySource source(filled);
    EXPECT_EQ(ArchiveReader(source).ReadCount(1), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(Boundaries, CountForm,
                         testing::Values(CountCase{0, Bytes().U16(0)},
                                         CountCase{0xFFFE, Bytes().U16(0xFFFE)},
                                         CountCase{0xFFFF, Bytes().U16(0xFFFF).U32(0xFFFF)},
                                         CountCase{0x10000, Bytes().U16(0xFFFF).U32(0x10000)}),
                         [](const testing::TestParamInfo<CountCase>& info) {
                             return "Of" + std::to_string(info.param.count);
                         });

TEST(Archive, ACountThatTheBytesLeftCannotHoldIsRefusedWithItsPosition) {
    const std::string bytes = Bytes().U16(7).U16(0xFFFF).U32(4000000).Repeat(0, 17);
    const auto read = [](ArchiveReader& archive) {
        archive.EnterSection("cell text map");
        archive.ReadU16();
        archive.ReadCount(9);
    };
    EXPECT_EQ(ErrorOf(bytes, read),
              "2 cell text map: count 4000000 at byte 2 needs more bytes than the 17 left");
}

TEST(Archive, ACountIsJudgedByTheLeastBytesOfAnEntry) {
    const std::string bytes = Bytes().U16(2).Repeat(0, 17);
    EXPECT_EQ(ErrorOf(bytes, [](ArchiveReader& archive) { archive.ReadCount(8); }), "no error");
    EXPECT_EQ(ErrorOf(bytes, [](ArchiveReader& archive) { archive.ReadCount(9); }),
              "0 stream: count 2 at byte 0 needs more bytes than the 17 left");
    EXPECT_EQ(ErrorOf(Bytes().U32(0xFFFFFFFFU).Take(),
                      [](ArchiveReader& archive) { archive.ReadLongCount(1); }),
              "0 stream: count 4294967295 at byte 0 needs more bytes than the 0 left");
}

TEST(Archive, ATextLongerThanTheBytesLeftIsRefusedWithItsPosition) {
    const auto read = [](ArchiveReader& archive) { archive.ReadString(); };
    EXPECT_EQ(ErrorOf(Bytes().U8(5).Raw("abcd").Take(), read),
              "0 stream: text of 5 bytes at byte 0 is longer than the 4 left");
    EXPECT_EQ(ErrorOf(Bytes().U8(255).U16(0xFFFF).U32(0xFFFFFFFFU).Take(), read),
              "0 stream: text of 4294967295 bytes at byte 0 is longer than the 0 left");
    EXPECT_EQ(ErrorOf(Bytes().U8(255).U16(0xFFFE).U8(2).U16(65).U8(66).Take(), read),
              "0 stream: text of 4 bytes at byte 0 is longer than the 3 left");
}

TEST(Archive, ANumberCutShortIsRefusedWithItsPosition) {
    const auto read = [](ArchiveReader& archive) {
        archive.EnterSection("picture");
        archive.ReadU8();
        archive.ReadU32();
    };
    EXPECT_EQ(ErrorOf("abc", read), "1 picture: 4 bytes wanted at byte 1, 2 left");
}

TEST(Archive, ABlockLongerThanTheBytesLeftIsRefusedWithItsPosition) {
    EXPECT_EQ(ErrorOf("abc", [](ArchiveReader& archive) { archive.ReadBlock(4, "image"); }),
              "0 stream: image of 4 bytes at byte 0 is longer than the 3 left");
}

// Gives one byte at a time, and fewer than it promised when told so.
class SlowSource final : public ByteSource {
  public:
    SlowSource(std::string bytes, std::uint64_t promised)
        : m_bytes(std::move(bytes)), m_promised(promised) {}

    std::uint64_t Size() const override { return m_promised; }
    std::size_t Read(char* buffer, std::size_t) override {
        if (m_next == m_bytes.size()) {
            return 0;
        }
        *buffer = m_bytes[m_next++];
        return 1;
    }

  private:
    std::string m_bytes;
    std::uint64_t m_promised;
    std::size_t m_next = 0;
};

TEST(Archive, ASourceMayGiveItsBytesOneByOne) {
    const std::string bytes = Bytes().U32(77).Text("abc").U8(255).U16(300).Repeat('z', 300).U8(9);
    SlowSource source(bytes, bytes.size());
    ArchiveReader archive(source);
    EXPECT_EQ(archive.ReadU32(), 77U);
    EXPECT_EQ(archive.ReadString(), "abc");
    EXPECT_EQ(archive.ReadString(), std::string(300, 'z'));
    EXPECT_EQ(archive.ReadU8(), 9);
}

TEST(Archive, ASourceThatEndsBeforeItsSizeIsAnError) {
    SlowSource source("ab", 10);
    ArchiveReader archive(source);
    EXPECT_THROW(archive.ReadU32(), ArchiveError);
    SlowSource block("ab", 10);
    ArchiveReader blockArchive(block);
    EXPECT_THROW(blockArchive.ReadBlock(10, "block"), ArchiveError);
}

TEST(Archive, ValuesCrossTheEdgesOfTheBuffer) {
    // 13 and the buffer's size have no common factor, so that every edge falls inside a value.
    constexpr int Entries = 100000;
    const std::string bytes = Written([](ArchiveWriter& archive) {
        for (int i = 0; i < Entries; ++i) {
            archive.WriteCellPos({i, -i});
            archive.WriteString(i % 1000 == 0 ? std::string(40000, 'w') : "abcd");
        }
    });
    MemorySource source(bytes);
    ArchiveReader archive(source);
    for (int i = 0; i < Entries; ++i) {
        ASSERT_EQ(archive.ReadCellPos(), (CellPos{i, -i}));
        ASSERT_EQ(archive.ReadString(), i % 1000 == 0 ? std::string(40000, 'w') : "abcd");
    }
    EXPECT_EQ(archive.Left(), 0U);
}

TEST(Archive, BlocksLargerThanTheBufferPass) {
    const std::string block(1 << 20, 'p');
    const std::string bytes = Written([&](ArchiveWriter& archive) {
        archive.WriteU8(1);
        archive.WriteBytes(block);
        archive.WriteBytes("");
        archive.WriteU8(2);
    });
    MemorySource source(bytes);
    ArchiveReader archive(source);
    EXPECT_EQ(archive.ReadU8(), 1);
    EXPECT_EQ(archive.ReadBlock(block.size(), "block"), block);
    EXPECT_EQ(archive.ReadU8(), 2);
}

TEST(Archive, PeekingTakesNothing) {
    MemorySource source("abc");
    ArchiveReader archive(source);
    EXPECT_EQ(archive.Peek(2), "ab");
    EXPECT_EQ(archive.Peek(9), "abc");
    EXPECT_EQ(archive.Position(), 0U);
    EXPECT_EQ(archive.ReadU8(), 'a');
    EXPECT_EQ(archive.Peek(9), "bc");
}

TEST(Archive, AnArchiveThatIsNotClosedLeavesItsBufferUnwritten) {
    MemorySink sink;
    { ArchiveWriter(sink).WriteU32(1); }
    EXPECT_EQ(sink.Bytes, "");
}

}  // namespace
}  // namespace veygrid
