// Tests of taking cells out of the sheet in reading order.
#include "apps/grd/SheetSlice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "apps/grd/CellAddress.h"
#include "grd/Support.h"

namespace veygrid {
namespace {

// The cells of a slice as "R1C1=text", with its range in front.
std::string Describe(const SheetSlice& slice) {
    const CellRange& range = slice.Range;
    std::string text = CellName({range.Row1, range.Col1}) + ":" +
                       (range.Row2 == 0 ? "none" : CellName({range.Row2, range.Col2}));
    for (const CellEntry& cell : slice.Cells) {
        text.append(" ").append(CellName(cell.Pos)).append("=").append(*cell.Text);
    }
    return text;
}

class SheetSliceTest : public ::testing::Test {
  protected:
    std::string Slice(const std::string& range = "") {
        return Describe(SliceSheet(
            m_grid.Store, range.empty() ? std::nullopt : std::optional(*ParseRange(range))));
    }
    void Put(std::int32_t row, std::int32_t col, const std::string& text) {
        m_grid.Store.SetCellText(row, col, text);
    }

    Grid m_grid;
};

TEST_F(SheetSliceTest, AnEmptySheetHasNothing) {
    EXPECT_EQ(Slice(), "R1C1:none");
    EXPECT_EQ(Slice("R3"), "R1C1:none");
    EXPECT_EQ(Slice("C3"), "R1C1:none");
    EXPECT_EQ(Slice("R2C2:R3C3"), "R2C2:R3C3");
}

TEST_F(SheetSliceTest, WithoutARangeAllUpToTheLastRowAndColumnThatHoldAText) {
    Put(3, 1, "a");
    Put(2, 4, "b");
    EXPECT_EQ(Slice(), "R1C1:R3C4 R2C4=b R3C1=a");
}

TEST_F(SheetSliceTest, RowsEndWithTheLastColumnAndColumnsWithTheLastRow) {
    Put(3, 1, "a");
    Put(2, 4, "b");
    EXPECT_EQ(Slice("R3"), "R3C1:R3C4 R3C1=a");
    EXPECT_EQ(Slice("C4"), "R1C4:R3C4 R2C4=b");
}

TEST_F(SheetSliceTest, ABlockIsTakenAsItStands) {
    Put(1, 1, "a");
    Put(5, 5, "b");
    EXPECT_EQ(Slice("R1C1:R2C2"), "R1C1:R2C2 R1C1=a");
    EXPECT_EQ(Slice("R100C100:R101C101"), "R100C100:R101C101");
}

TEST_F(SheetSliceTest, EntriesOfRowsColumnsAndTheSheetAreNoCells) {
    Put(0, 0, "sheet");
    Put(0, 2, "column");
    Put(2, 0, "row");
    Put(-3, 5, "odd");
    EXPECT_EQ(Slice(), "R1C1:none");
}

TEST_F(SheetSliceTest, TheWalkVisitsRowsWithoutCellsToo) {
    Put(1, 1, "a");
    Put(3, 2, "b");
    Put(3, 1, "c");
    const SheetSlice slice = SliceSheet(m_grid.Store, std::nullopt);
    std::string seen;
    for (RowWalk walk(slice); walk.Next();) {
        seen += std::to_string(walk.Row()) + ":" + std::to_string(walk.Cells().size()) + " ";
    }
    EXPECT_EQ(seen, "1:1 2:0 3:2 ");
}

TEST_F(SheetSliceTest, TheWalkEndsAtTheGreatestRow) {
    Put(2147483647, 1, "a");
    const SheetSlice slice = SliceSheet(m_grid.Store, ParseRange("R2147483646:R2147483647"));
    RowWalk walk(slice);
    EXPECT_TRUE(walk.Next());
    EXPECT_TRUE(walk.Next());
    EXPECT_EQ(walk.Cells().size(), 1U);
    EXPECT_FALSE(walk.Next());
}

TEST(SortByPosition, AnyOrderBecomesReadingOrder) {
    std::mt19937 random(7);
    const std::string text = "x";
    for (const std::int32_t rows : {0, 1, 2, 40, 400}) {
        std::vector<CellEntry> sorted;
        for (std::int32_t row = 1; row <= rows; ++row) {
            for (std::int32_t col = 1; col <= 5; ++col) {
                sorted.push_back({{row, col}, &text});
            }
        }
        const auto check = [&](std::vector<CellEntry> cells) {
            SortByPosition(cells);
            ASSERT_EQ(cells.size(), sorted.size());
            for (std::size_t i = 0; i < cells.size(); ++i) {
                ASSERT_EQ(cells[i].Pos, sorted[i].Pos) << rows << " " << i;
            }
        };
        check(sorted);
        check({sorted.rbegin(), sorted.rend()});
        std::vector<CellEntry> mixed = sorted;
        std::shuffle(mixed.begin(), mixed.end(), random);
        check(mixed);
    }
}

TEST(SortByPosition, ChainsOfASheetFilledInOrderBecomeReadingOrder) {
    Grid grid;
    for (std::int32_t row = 1; row <= 1000; ++row) {
        for (std::int32_t col = 1; col <= 3; ++col) {
            grid.Store.CellTextMap.Set({row, col}, std::to_string(row * 10 + col));
        }
    }
    const SheetSlice slice = SliceSheet(grid.Store, std::nullopt);
    ASSERT_EQ(slice.Cells.size(), 3000U);
    for (std::size_t i = 0; i < slice.Cells.size(); ++i) {
        EXPECT_EQ(*slice.Cells[i].Text, std::to_string((i / 3 + 1) * 10 + i % 3 + 1));
    }
}

}  // namespace
}  // namespace veygrid
