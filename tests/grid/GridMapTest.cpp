// GridMap: order and access, held against the literal map of 17 chains.
#include "grid/GridMap.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/ChainMap.h"

namespace veygrid {
namespace {

using TextMap = GridMap<std::string>;

std::vector<CellPos> Keys(const TextMap& map) {
    std::vector<CellPos> keys;
    for (const auto entry : map) {
        keys.push_back(entry.key);
    }
    return keys;
}

TEST(GridMap, StartsEmptyAndHoldsNoMemory) {
    const TextMap map;
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.MemoryBytes(), 0U);
    EXPECT_EQ(map.First(), TextMap::PastLast);
    EXPECT_EQ(map.Find({1, 1}), nullptr);
    EXPECT_TRUE(Keys(map).empty());
}

TEST(GridMap, SixteenRowsShareAChainWhoseNewestKeyComesFirst) {
    TextMap map;
    map.Set({1, 1}, "a");
    map.Set({15, 7}, "b");
    map.Set({16, 1}, "c");
    map.Set({2, 1}, "d");
    const std::vector<CellPos> expected{{2, 1}, {15, 7}, {1, 1}, {16, 1}};
    EXPECT_EQ(Keys(map), expected);
}

TEST(GridMap, ChainsRepeatAfter272Rows) {
    TextMap map;
    map.Set({16, 1}, "second chain");
    map.Set({272, 1}, "first chain again");
    const std::vector<CellPos> expected{{272, 1}, {16, 1}};
    EXPECT_EQ(Keys(map), expected);
}

TEST(GridMap, NegativeRowsHashAsUnsigned) {
    TextMap map;
    map.Set({-1, 1}, "chain 0x0FFFFFFF modulo 17");
    map.Set({-17, 1}, "chain 0x0FFFFFFE modulo 17");
    map.Set({0, 1}, "chain 0");
    const std::vector<CellPos> expected{{0, 1}, {-17, 1}, {-1, 1}};
    EXPECT_EQ(Keys(map), expected);
}

TEST(GridMap, OverwritingKeepsThePlace) {
    TextMap map;
    map.Set({1, 1}, "a");
    map.Set({2, 1}, "b");
    map.Set({1, 1}, "c");
    const std::vector<CellPos> expected{{2, 1}, {1, 1}};
    EXPECT_EQ(Keys(map), expected);
    EXPECT_EQ(*map.Find({1, 1}), "c");
    EXPECT_EQ(map.Count(), 2U);
}

TEST(GridMap, RemovingTheLastEntryGivesAllMemoryBack) {
    TextMap map;
    map.Set({1, 1}, "a");
    map.Set({2, 2}, "b");
    EXPECT_GT(map.MemoryBytes(), 0U);
    EXPECT_TRUE(map.Remove({1, 1}));
    EXPECT_TRUE(map.Remove({2, 2}));
    EXPECT_FALSE(map.Remove({2, 2}));
    EXPECT_EQ(map.MemoryBytes(), 0U);
}

TEST(GridMap, RebuildReversesAChainAndKeepsValuesInPlace) {
    TextMap map;
    for (std::int32_t col = 1; col <= 3; ++col) {
        map.Set({1, col}, std::to_string(col));
    }
    const std::string* const before = map.Find({1, 2});
    map.Rebuild([](CellPos key) { return std::optional(key); });
    const std::vector<CellPos> expected{{1, 1}, {1, 2}, {1, 3}};
    EXPECT_EQ(Keys(map), expected);
    EXPECT_EQ(map.Find({1, 2}), before);
}

TEST(GridMap, RebuildThatDropsEverythingLeavesTheMapAsNew) {
    TextMap map;
    map.Set({1, 1}, "a");
    map.Rebuild([](CellPos) { return std::optional<CellPos>(); });
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.MemoryBytes(), 0U);
}

TEST(GridMap, RebuildOntoOneKeyKeepsTheFirstPlaceAndTheLastValue) {
    TextMap map;
    map.Set({1, 1}, "last in order");
    map.Set({2, 1}, "first in order");
    map.Rebuild([](CellPos) { return std::optional(CellPos{9, 9}); });
    EXPECT_EQ(map.Count(), 1U);
    EXPECT_EQ(*map.Find({9, 9}), "last in order");
    EXPECT_TRUE(map.Check());
}

TEST(GridMap, HandleStaysGoodWhileOthersComeAndGo) {
    TextMap map;
    map.Set({5, 5}, "kept");
    const TextMap::Handle handle = map.First();
    for (std::int32_t row = 1; row <= 1000; ++row) {
        map.Set({row, 1}, "x");
    }
    for (std::int32_t row = 1; row <= 1000; ++row) {
        map.Remove({row, 1});
    }
    EXPECT_EQ(map.KeyAt(handle), (CellPos{5, 5}));
    EXPECT_EQ(map.ValueAt(handle), "kept");
    EXPECT_EQ(map.Next(handle), TextMap::PastLast);
}

TEST(GridMap, OnlyHandlesOfPresentEntriesAreHandles) {
    TextMap map;
    EXPECT_FALSE(map.IsHandle(1));
    map.Set({5, 5}, "gone");
    const TextMap::Handle gone = map.First();
    map.Set({6, 6}, "kept");
    map.Remove({5, 5});
    EXPECT_FALSE(map.IsHandle(gone));
    EXPECT_TRUE(map.IsHandle(map.First()));
    EXPECT_FALSE(map.IsHandle(TextMap::PastLast));
    EXPECT_FALSE(map.IsHandle(TextMap::BeforeFirst));
    EXPECT_FALSE(map.IsHandle(std::numeric_limits<TextMap::Handle>::max()));
    EXPECT_FALSE(map.IsHandle(std::numeric_limits<TextMap::Handle>::min()));
}

struct ThrowsWhenCopied {
    ThrowsWhenCopied() = default;
    ThrowsWhenCopied(const ThrowsWhenCopied& /*other*/) { throw std::runtime_error("copy"); }
    ThrowsWhenCopied(ThrowsWhenCopied&&) = default;
    ThrowsWhenCopied& operator=(const ThrowsWhenCopied&) = default;
    ThrowsWhenCopied& operator=(ThrowsWhenCopied&&) = default;
};

TEST(GridMap, AValueThatCannotBeMadeLeavesTheMapAsItWas) {
    GridMap<ThrowsWhenCopied> map;
    map.Set({1, 1}, ThrowsWhenCopied());
    const ThrowsWhenCopied bad;
    EXPECT_THROW(map.Set({2, 1}, bad), std::runtime_error);
    EXPECT_THROW(map.Set({900, 900}, bad), std::runtime_error);
    EXPECT_EQ(map.Count(), 1U);
    EXPECT_TRUE(map.Check());
    map.Set({900, 900}, ThrowsWhenCopied());
    EXPECT_EQ(map.Count(), 2U);
    EXPECT_TRUE(map.Check());
}

TEST(GridMap, MovingHandsOverEveryEntry) {
    TextMap map;
    map.Set({1, 1}, "a");
    TextMap moved = std::move(map);
    EXPECT_EQ(*moved.Find({1, 1}), "a");
}

// A random walk that treats map and model alike and compares them all along.
class GridMapWalk {
  public:
    explicit GridMapWalk(std::uint32_t seed) : m_random(seed) {}

    void Run(int steps) {
        for (int i = 0; i < steps && !::testing::Test::HasFailure(); ++i) {
            Step();
            if (i % 4096 == 0) {
                CompareAll();
            }
        }
        CompareAll();
    }

  private:
    std::int32_t Number(std::int32_t from, std::int32_t to) {
        return std::uniform_int_distribution(from, to)(m_random);
    }

    // Mostly a small sheet, so that keys are met again; now and then any number at all.
    CellPos Key() {
        if (Number(0, 63) == 0) {
            constexpr auto Lowest = std::numeric_limits<std::int32_t>::min();
            constexpr auto Highest = std::numeric_limits<std::int32_t>::max();
            return {Number(Lowest, Highest), Number(Lowest, Highest)};
        }
        return {Number(-2, m_rows), Number(-1, 9)};
    }

    void Step() {
        const std::int32_t kind = Number(0, 9999);
        if (kind < 5200) {
            Insert();
        } else if (kind < 9300) {
            Remove();
        } else if (kind < 9900) {
            LookUp();
        } else if (kind < 9990) {
            IterateFromAHandle();
        } else if (kind < 9998) {
            Renumber();
        } else {
            Clear();
        }
    }

    void Insert() {
        const CellPos key = Key();
        const std::int32_t value = Number(0, 1000000);
        m_map.Set(key, value);
        m_model.Set(key, value);
    }

    void Remove() {
        const CellPos key = Key();
        ASSERT_EQ(m_map.Remove(key), m_model.Remove(key));
    }

    void LookUp() {
        const CellPos key = Key();
        const std::int32_t* const found = m_map.Find(key);
        const std::int32_t* const expected = m_model.Find(key);
        ASSERT_EQ(found == nullptr, expected == nullptr);
        if (found != nullptr) {
            ASSERT_EQ(*found, *expected);
        }
    }

    void Clear() {
        m_map.RemoveAll();
        m_model.RemoveAll();
        m_rows = Number(1, 600);
    }

    void Renumber() {
        const std::int32_t start = Number(-1, m_rows);
        const std::int32_t count = Number(1, 40);
        const bool insert = Number(0, 1) == 1;
        const bool collide = Number(0, 7) == 0;
        const auto rule = [=](CellPos key) -> std::optional<CellPos> {
            if (collide) {
                return CellPos{key.Row / 2, key.Col};
            }
            if (key.Row < start) {
                return key;
            }
            if (insert) {
                return CellPos{WrapAdd(key.Row, count), key.Col};
            }
            if (key.Row < start + count) {
                return std::nullopt;
            }
            return CellPos{WrapSub(key.Row, count), key.Col};
        };
        m_map.Rebuild(rule);
        m_model.Rebuild(rule);
        CompareAll();
    }

    // Walks both from the chosen entry to the end of everything.
    void IterateFromAHandle() {
        if (m_map.IsEmpty()) {
            return;
        }
        const std::int32_t skip = Number(0, static_cast<std::int32_t>(m_map.Count()) - 1);
        auto handle = m_map.First();
        for (std::int32_t i = 0; i < skip; ++i) {
            handle = m_map.Next(handle);
        }
        std::int32_t position = 0;
        for (const auto& chain : m_model.All()) {
            for (const auto& [key, value] : chain) {
                if (position++ < skip) {
                    continue;
                }
                ASSERT_NE(handle, m_map.PastLast);
                ASSERT_EQ(m_map.KeyAt(handle), key);
                ASSERT_EQ(m_map.ValueAt(handle), value);
                handle = m_map.Next(handle);
            }
        }
        ASSERT_EQ(handle, m_map.PastLast);
    }

    void CompareAll() {
        ASSERT_EQ(m_map.Count(), m_model.Count());
        ASSERT_TRUE(m_map.Check());
        auto handle = m_map.First();
        for (const auto& chain : m_model.All()) {
            for (const auto& [key, value] : chain) {
                ASSERT_NE(handle, m_map.PastLast);
                ASSERT_EQ(m_map.KeyAt(handle), key);
                ASSERT_EQ(m_map.ValueAt(handle), value);
                handle = m_map.Next(handle);
            }
        }
        ASSERT_EQ(handle, m_map.PastLast);
    }

    std::mt19937 m_random;
    std::int32_t m_rows = 60;
    GridMap<std::int32_t> m_map;
    ChainMap<std::int32_t> m_model;
};

TEST(GridMap, MillionRandomOperationsMatchTheLiteralChains) {
    for (std::uint32_t seed = 1; seed <= 5; ++seed) {
        GridMapWalk(seed).Run(200'000);
    }
}

}  // namespace
}  // namespace veygrid
