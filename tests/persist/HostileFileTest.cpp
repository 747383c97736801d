// Damaged and hostile grid files: cut short, altered, and made to ask for more than they are.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <new>

#ifdef _WIN32
#include <malloc.h>
#else
#include <malloc.h>
#define _msize malloc_usable_size
#endif

#include "Support.h"

// Bytes held through operator new, and the most held since the last reset.
namespace {
std::atomic<std::size_t> g_held{0};
std::atomic<std::size_t> g_most{0};
}  // namespace

void* operator new(std::size_t size) {
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    const std::size_t held = g_held += _msize(block);
    if (held > g_most) {
        g_most = held;
    }
    return block;
}
void operator delete(void* block) noexcept {
    if (block != nullptr) {
        g_held -= _msize(block);
        std::free(block);
    }
}
void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace veygrid {
namespace {

// The bounds that ReadGrid states.
constexpr std::size_t MemoryPerByte = 160;
constexpr std::size_t FixedMemory = std::size_t{1} << 20;

// The most memory held while the bytes are read into a fresh grid, errors included.
std::size_t MemoryToRead(std::string_view bytes) {
    g_most = g_held.load();
    const std::size_t before = g_held;
    {
        Grid grid;
        try {
            grid.Load(bytes);
        } catch (const ArchiveError&) {
            EXPECT_FALSE(bytes.empty());
        }
    }
    EXPECT_EQ(g_held, before);
    return g_most - before;
}

// Error of reading the bytes; -1 when there was none.
std::int64_t ErrorPosition(std::string_view bytes) {
    Grid grid;
    try {
        grid.Load(bytes);
    } catch (const ArchiveError& error) {
        EXPECT_NE(std::string(error.what()), "");
        return static_cast<std::int64_t>(error.Position());
    }
    return -1;
}

std::string RichFile() {
    Grid grid;
    FillRichly(grid);
    return grid.Save();
}

TEST(HostileFile, EveryPrefixOfARichFileThrowsAtAPositionWithinIt) {
    const std::string bytes = RichFile();
    ASSERT_GT(bytes.size(), 2000U);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const std::int64_t position = ErrorPosition(std::string_view(bytes).substr(0, length));
        ASSERT_GE(position, 0) << length;
        ASSERT_LE(position, static_cast<std::int64_t>(length)) << length;
    }
    EXPECT_EQ(ErrorPosition(bytes), -1);
}

TEST(HostileFile, NoBitFlipDoesAnythingButLoadOrThrowTheOneException) {
    const std::string bytes = RichFile();
    int loaded = 0;
    int refused = 0;
    for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        std::string damaged = bytes;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
        ErrorPosition(damaged) < 0 ? ++loaded : ++refused;
    }
    EXPECT_GT(loaded, 0);
    EXPECT_GT(refused, 0);
}

TEST(HostileFile, WhateverADamagedFileLoadsCanBeSavedAndLoadedAgain) {
    const std::string bytes = RichFile();
    for (std::size_t at = 32; at < bytes.size(); at += 3) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(~damaged[at]);
        Grid grid;
        try {
            grid.Load(damaged);
        } catch (const ArchiveError&) {
            continue;
        }
        const std::string again = grid.Save();
        Grid reloaded;
        ASSERT_TRUE(reloaded.Load(again)) << at;
        ASSERT_EQ(reloaded.Save().size(), again.size()) << at;
    }
}

// A fresh control's file: where its counts begin, and what follows them.
constexpr std::size_t CountsAt = 136;

std::string EmptyFile() {
    return Grid().Save();
}

TEST(HostileFile, NoCountOrSizeMakesATinyFileTakeMuchMemory) {
    const std::string bytes = EmptyFile();
    int refused = 0;
    for (std::size_t at = 0; at + 6 <= bytes.size(); ++at) {
        for (const std::string_view lie : {"\xFF\xFF\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\xFF\xFF\x7F",
                                           "\xFF\xFE\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\x7F"}) {
            std::string damaged = bytes;
            damaged.replace(at, lie.size(), lie);
            EXPECT_LE(MemoryToRead(damaged), FixedMemory) << at;
            refused += ErrorPosition(damaged) >= 0 ? 1 : 0;
        }
    }
    EXPECT_GT(refused, 100);
}

// The file of a fresh control with `section`, which takes the place of the bytes of a count, and
// what followed.
std::string WithCounted(std::size_t countAt, std::size_t countBytes, const std::string& section) {
    std::string bytes = EmptyFile();
    return bytes.replace(countAt, countBytes, section);
}

std::string Counted(std::uint32_t count, const std::function<void(Bytes&, std::uint32_t)>& entry) {
    Bytes bytes;
    bytes.U16(0xFFFF).U32(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        entry(bytes, i);
    }
    return bytes;
}

void ExpectWithinBounds(const std::string& bytes) {
    ASSERT_EQ(ErrorPosition(bytes), -1);
    EXPECT_LE(MemoryToRead(bytes), MemoryPerByte * bytes.size() + FixedMemory);
}

TEST(HostileFile, TheSmallestEntriesOfEachSectionStayWithinTheStatedMemory) {
    constexpr std::uint32_t Entries = 200000;
    const auto at = [](int section) {
        return CountsAt + 2 * static_cast<std::size_t>(section - 3);
    };
    ExpectWithinBounds(WithCounted(
        at(3), 2, Counted(Entries, [](Bytes& b, std::uint32_t i) { b.U32(i).U32(0).U32(0); })));
    ExpectWithinBounds(WithCounted(
        at(11), 2, Counted(Entries, [](Bytes& b, std::uint32_t i) { b.U32(i).U32(0).U8(0); })));
    ExpectWithinBounds(
        WithCounted(at(12), 2, Counted(Entries, [](Bytes& b, std::uint32_t) { b.U8(0); })));
    const auto plain = [](std::string section) { return section.erase(0, 2); };
    ExpectWithinBounds(WithCounted(at(13), 4, plain(Counted(20000, [](Bytes& b, std::uint32_t i) {
                                       b.U32(i).U32(0).Repeat(0, 90);
                                   }))));
    ExpectWithinBounds(WithCounted(at(13) + 4, 4, plain(Counted(20000, [](Bytes& b, std::uint32_t) {
                                       b.U16(9).Repeat(0, 24);
                                   }))));
}

TEST(HostileFile, LongTextsStayWithinTheStatedMemory) {
    const std::string narrow =
        Bytes().U16(1).U8(0xFF).U16(0xFFFF).U32(3000000).Repeat('a', 3000000);
    ExpectWithinBounds(WithCounted(CountsAt + 18, 2, narrow));
    Bytes wide;
    wide.U16(1).U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFF).U32(1000000);
    for (int i = 0; i < 1000000; ++i) {
        wide.U16(u'中');
    }
    ExpectWithinBounds(WithCounted(CountsAt + 18, 2, wide));
}

TEST(HostileFile, ARefusedCountLeavesFormatsAndFormObjectsInPlace) {
    Grid grid;
    FillRichly(grid);
    const std::string hostileFormats = WithCounted(CountsAt + 20, 4, Bytes().U32(1000));
    EXPECT_THROW(grid.Load(hostileFormats), ArchiveError);
    EXPECT_EQ(grid.Store.CellFormatMap.Count(), 2U);
    const std::string hostileObjects = WithCounted(CountsAt + 24, 4, Bytes().U32(1000));
    RecordingHost host;
    EXPECT_THROW(grid.Load(hostileObjects, host), ArchiveError);
    EXPECT_EQ(grid.Document.m_guiObjects.size(), 9U);
    EXPECT_TRUE(host.Calls.empty());
}

TEST(HostileFile, TheErrorOfACellCountNamesCountPositionAndWhatIsLeft) {
    const std::string bytes = EmptyFile().substr(0, CountsAt + 16) +
                              Bytes().U16(0xFFFF).U32(4000000).Repeat(0, 17).Take();
    Grid grid;
    try {
        grid.Load(bytes);
        FAIL();
    } catch (const ArchiveError& error) {
        EXPECT_STREQ(error.what(),
                     "cell text map: count 4000000 at byte 152 needs more bytes than the 17 left");
        EXPECT_EQ(error.Position(), 152U);
    }
}

}  // namespace
}  // namespace veygrid
