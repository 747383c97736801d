// TileIndex: numbers of positions, by tiles.
#include "grid/TileIndex.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <utility>

namespace veygrid {
namespace {

void Insert(TileIndex& index, CellPos key, TileIndex::Number number) {
    TileIndex::Number& place = index.Locate(key);
    ASSERT_EQ(place, TileIndex::None);
    index.Occupy(place, number);
}

TEST(TileIndex, StartsWithoutMemoryAndFindsNothing) {
    const TileIndex index;
    EXPECT_EQ(index.Find({1, 1}), TileIndex::None);
    EXPECT_EQ(index.Find({std::numeric_limits<std::int32_t>::min(), -1}), TileIndex::None);
    EXPECT_EQ(index.MemoryBytes(), 0U);
}

TEST(TileIndex, NeighboursInATileAreDistinct) {
    TileIndex index;
    for (std::int32_t row = 0; row < 16; ++row) {
        for (std::int32_t col = 0; col < 4; ++col) {
            Insert(index, {row, col}, row * 4 + col + 1);
        }
    }
    for (std::int32_t row = 0; row < 16; ++row) {
        for (std::int32_t col = 0; col < 4; ++col) {
            EXPECT_EQ(index.Find({row, col}), row * 4 + col + 1);
        }
    }
    EXPECT_EQ(index.Find({16, 0}), TileIndex::None);
    EXPECT_EQ(index.Count(), 64U);
}

TEST(TileIndex, ClearKeepsMemoryAndForgetsEverything) {
    TileIndex index;
    Insert(index, {5, 5}, 7);
    const std::size_t memory = index.MemoryBytes();
    index.Clear();
    EXPECT_EQ(index.Find({5, 5}), TileIndex::None);
    EXPECT_EQ(index.Count(), 0U);
    EXPECT_EQ(index.MemoryBytes(), memory);
    Insert(index, {5, 5}, 8);
    EXPECT_EQ(index.Find({5, 5}), 8);
}

TEST(TileIndex, AnEmptiedTileIsUsedAgain) {
    TileIndex index;
    Insert(index, {1, 1}, 1);
    const std::size_t memory = index.MemoryBytes();
    for (std::int32_t tile = 0; tile < 1000; ++tile) {
        EXPECT_EQ(index.Take({tile * 16 + 1, 1}), tile + 1);
        Insert(index, {(tile + 1) * 16 + 1, 1}, tile + 2);
    }
    EXPECT_LE(index.MemoryBytes(), 2 * memory);
}

TEST(TileIndex, AnAbandonedTileIsGivenBack) {
    TileIndex index;
    index.Locate({1, 1});
    index.Abandon();
    EXPECT_EQ(index.Find({1, 1}), TileIndex::None);
    Insert(index, {1, 1}, 5);
    index.Locate({2, 2});
    index.Abandon();
    EXPECT_EQ(index.Find({1, 1}), 5);
    EXPECT_EQ(index.Count(), 1U);
}

TEST(TileIndex, ExtremePositionsAreKeysLikeAnyOther) {
    constexpr auto Lowest = std::numeric_limits<std::int32_t>::min();
    constexpr auto Highest = std::numeric_limits<std::int32_t>::max();
    TileIndex index;
    Insert(index, {-1, -1}, 1);
    Insert(index, {Lowest, Highest}, 2);
    Insert(index, {Highest, Lowest}, 3);
    Insert(index, {0, 0}, 4);
    EXPECT_EQ(index.Find({-1, -1}), 1);
    EXPECT_EQ(index.Find({Lowest, Highest}), 2);
    EXPECT_EQ(index.Find({Highest, Lowest}), 3);
    EXPECT_EQ(index.Find({0, 0}), 4);
    EXPECT_EQ(index.Find({-1, 0}), TileIndex::None);
}

// Positions whose tile keys are multiples of the inverse of a well-known multiplier: under it they
// would all begin their search at one place, and this test would take minutes.
TEST(TileIndex, PositionsMadeToCollideUnderAKnownMultiplierDoNotCollide) {
    constexpr std::uint64_t Known = 0x9E3779B97F4A7C15U;
    std::uint64_t inverse = Known;
    for (int i = 0; i < 6; ++i) {
        inverse *= 2 - Known * inverse;
    }
    ASSERT_EQ(inverse * Known, 1U);
    TileIndex index;
    TileIndex::Number number = 0;
    for (std::uint64_t j = 1; number < 200'000; ++j) {
        const std::uint64_t tileKey = j * inverse;
        const std::uint64_t row = tileKey >> 32U;
        const std::uint64_t col = tileKey & 0xFFFFFFFFU;
        if (row < 0x08000000U && col < 0x20000000U) {
            Insert(index,
                   {static_cast<std::int32_t>(row << 4U), static_cast<std::int32_t>(col << 2U)},
                   ++number);
        }
    }
    EXPECT_EQ(index.Count(), 200'000U);
}

TEST(TileIndex, RandomInsertionsAndErasuresMatchAnOrderedMap) {
    std::mt19937 random(3);
    TileIndex index;
    std::map<std::pair<std::int32_t, std::int32_t>, TileIndex::Number> model;
    std::uniform_int_distribution<std::int32_t> near(-40, 400);
    std::uniform_int_distribution<std::int32_t> far(std::numeric_limits<std::int32_t>::min(),
                                                    std::numeric_limits<std::int32_t>::max());
    for (TileIndex::Number i = 1; i <= 200'000; ++i) {
        const CellPos key =
            i % 50 == 0 ? CellPos{far(random), far(random)} : CellPos{near(random), near(random)};
        const auto found = model.find({key.Row, key.Col});
        ASSERT_EQ(index.Find(key), found == model.end() ? TileIndex::None : found->second);
        if (found == model.end()) {
            ASSERT_EQ(index.Take(key), TileIndex::None);
            Insert(index, key, i);
            model[{key.Row, key.Col}] = i;
        } else {
            ASSERT_EQ(index.Take(key), found->second);
            model.erase(found);
        }
    }
    ASSERT_EQ(index.Count(), model.size());
}

}  // namespace
}  // namespace veygrid
