// The move of ranges too large to be walked over, and its limits.
#include "grid/MoveEntries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "SheetRecorder.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr std::int32_t IntMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t IntMin = std::numeric_limits<std::int32_t>::min();

SizeMap MapOf(std::initializer_list<CellPos> keys) {
    SizeMap map;
    for (const CellPos& key : keys) {
        map.Set(key, key.Row * 100 + key.Col);
    }
    return map;
}

TEST(MoveEntries, ABlockOfAllRowsAndColumnsCostsItsEntriesOnly) {
    SizeMap map = MapOf({{1, 1}, {2, 1}, {5, 5}});
    MoveEntries(map, {{1, 1, IntMax, IntMax}, {1, 2}, false});
    // To the right of the last column there is no column: the number wraps.
    EXPECT_THAT(KeysOf(map),
                UnorderedElementsAre(CellPos{1, IntMin}, CellPos{2, IntMin}, CellPos{5, IntMin}));
}

TEST(MoveEntries, AnEntryRunsThroughAHugeBlockOverTheOthersOnItsWay) {
    SizeMap map = MapOf({{3, 1}, {5, 1}, {4, 1}});
    MoveEntries(map, {{1, 1, 1000000000, 1}, {3, 1}, false});
    EXPECT_THAT(KeysOf(map), UnorderedElementsAre(CellPos{1000000001, 1}, CellPos{1000000002, 1}));
    EXPECT_EQ(*map.Find({1000000001, 1}), 301);
    EXPECT_EQ(*map.Find({1000000002, 1}), 401);
}

TEST(MoveEntries, AHugeBlockMovedBackShiftsItsEntriesOnce) {
    SizeMap map = MapOf({{3, 2}, {5, 2}});
    MoveEntries(map, {{2, 2, IntMax, IntMax}, {1, 1}, false});
    EXPECT_THAT(KeysOf(map), UnorderedElementsAre(CellPos{2, 1}, CellPos{4, 1}));
}

TEST(MoveEntries, ACopyThatWouldFillMillionsOfCellsIsRefusedAndChangesNothing) {
    SizeMap map = MapOf({{1, 1}, {7, 1}});
    EXPECT_THROW(MoveEntries(map, {{1, 1, IntMax, 1}, {2, 1}, true}), std::length_error);
    EXPECT_THAT(KeysOf(map), ElementsAre(CellPos{7, 1}, CellPos{1, 1}));
    MoveEntries(map, {{1, 1, 1000, 1}, {2, 1}, true});
    EXPECT_EQ(map.Count(), 1001U);
    EXPECT_EQ(*map.Find({1001, 1}), 101);
}

TEST(MoveEntries, ACopyAsideOfAHugeBlockIsNoMatterOfItsSize) {
    SizeMap map = MapOf({{1, 1}, {7, 1}});
    MoveEntries(map, {{1, 1, IntMax, 1}, {1, 3}, true});
    EXPECT_THAT(KeysOf(map),
                UnorderedElementsAre(CellPos{1, 1}, CellPos{7, 1}, CellPos{1, 3}, CellPos{7, 3}));
}

TEST(MoveEntries, LinesCopiedUpMeetTheirSourceThatStays) {
    SizeMap map = MapOf({{2, 1}, {5, 1}});
    MoveEntries(map, {{5, 0, 5, 0}, {4, 0}, true});
    EXPECT_EQ(*map.Find({2, 1}), 201);
    EXPECT_EQ(*map.Find({4, 1}), 501);
    EXPECT_EQ(*map.Find({5, 1}), 501);
    EXPECT_EQ(map.Count(), 3U);
}

TEST(MoveEntries, KeysOfTheOtherAxisStayWhenLinesMove) {
    SizeMap map = MapOf({{0, 1}, {0, 0}, {3, 0}});
    MoveEntries(map, {{3, 0, 3, 0}, {1, 0}, false});
    EXPECT_THAT(KeysOf(map), UnorderedElementsAre(CellPos{0, 1}, CellPos{0, 0}, CellPos{1, 0}));
}

}  // namespace
}  // namespace veygrid
