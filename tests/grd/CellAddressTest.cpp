// Tests of cells and ranges as users write them.
#include "apps/grd/CellAddress.h"

#include <gtest/gtest.h>

namespace veygrid {
namespace {

TEST(CellAddress, ACellIsARowAndAColumn) {
    EXPECT_EQ(ParseCell("R3C2"), (CellPos{3, 2}));
    EXPECT_EQ(ParseCell("r10c20"), (CellPos{10, 20}));
    EXPECT_EQ(ParseCell("R2147483647C2147483647"), (CellPos{2147483647, 2147483647}));
}

TEST(CellAddress, NumbersCountFromOneAndMustFit) {
    for (const char* text : {"R0C1", "R1C0", "R-1C1", "R2147483648C1", "R1C99999999999"}) {
        EXPECT_FALSE(ParseCell(text)) << text;
    }
}

TEST(CellAddress, OtherTextIsNoCell) {
    for (const char* text : {"", "R", "C", "RC", "R1", "C1", "1,1", "A1", "R1C1x", " R1C1", "R1 C1",
                             "C1R1", "R1C1:R2C2", "R+1C1"}) {
        EXPECT_FALSE(ParseCell(text)) << text;
    }
}

TEST(CellAddress, ARangeIsACellOrTwoCellsInAnyOrder) {
    EXPECT_EQ(ParseRange("R3C2"), (CellRange{3, 2, 3, 2}));
    EXPECT_EQ(ParseRange("R1C2:R3C4"), (CellRange{1, 2, 3, 4}));
    EXPECT_EQ(ParseRange("R3C2:R1C4"), (CellRange{1, 2, 3, 4}));
}

TEST(CellAddress, RowsAndColumnsHaveZeroesForTheOther) {
    EXPECT_EQ(ParseRange("R3"), (CellRange{3, 0, 3, 0}));
    EXPECT_EQ(ParseRange("R7:R3"), (CellRange{3, 0, 7, 0}));
    EXPECT_EQ(ParseRange("C2"), (CellRange{0, 2, 0, 2}));
    EXPECT_EQ(ParseRange("c2:c5"), (CellRange{0, 2, 0, 5}));
}

TEST(CellAddress, EndsOfDifferentKindsMakeNoRange) {
    for (const char* text :
         {"R1C1:R2", "R1:C2", "C1:R1C1", "R1C1:", ":R1C1", "R1C1:R2C2:R3C3", ""}) {
        EXPECT_FALSE(ParseRange(text)) << text;
    }
}

TEST(CellAddress, NamesReadBackAsTheyAreParsed) {
    EXPECT_EQ(CellName({3, 2}), "R3C2");
    EXPECT_EQ(CellName({3, 0}), "R3");
    EXPECT_EQ(CellName({0, 2}), "C2");
    EXPECT_EQ(CellName({0, 0}), "the sheet");
    EXPECT_EQ(CellName({-1, 2}), "R-1C2");
}

}  // namespace
}  // namespace veygrid
