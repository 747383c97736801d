// GridMap held against a literal map of 17 chains.
#include "grid/GridMap.h"

#include <gtest/gtest.h>

#include <string>

namespace veygrid {
namespace {

TEST(GridMap, NewestKeyOfAChainComesFirst) {
    GridMap<std::string> map;
    map.Set({1, 1}, "a");
    map.Set({2, 1}, "b");
    map.Set({1, 1}, "c");
    EXPECT_EQ(map.KeyAt(map.First()), (CellPos{2, 1}));
    EXPECT_EQ(*map.Find({1, 1}), "c");
    EXPECT_TRUE(map.Check());
}

}  // namespace
}  // namespace veygrid
