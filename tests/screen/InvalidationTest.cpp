// Which part of the control is repainted after a change.
#include "screen/Invalidation.h"

#include "SheetLayout.h"

namespace veygrid {
namespace {

// Cell (3, 2) is 110, 56, 169, 73.
using InvalidationTest = SheetLayoutTest;

TEST_F(InvalidationTest, ACellsTextRepaintsItsRectangleIfOnView) {
    EXPECT_EQ(CellRegion(layout, {3, 2}), (Rect{110, 56, 169, 73}));
    EXPECT_EQ(CellRegion(layout, {40, 2}), Rect{});
    EXPECT_EQ(CellRegion(layout, {0, 2}), Rect{});
    layout.FirstVisibleRow = 5;
    EXPECT_EQ(CellRegion(layout, {3, 2}), Rect{});
}

TEST_F(InvalidationTest, ARowHeaderRepaintsFromTheLeftEdgeToTheFirstVisibleCellsRight) {
    EXPECT_EQ(RowHeaderRegion(layout, 3), (Rect{0, 56, 109, 73}));
    EXPECT_TRUE(RowHeaderRegion(layout, 40).IsRectEmpty());
}

TEST_F(InvalidationTest, AColumnHeaderRepaintsFromTheTopToTheFirstVisibleCellsBottom) {
    EXPECT_EQ(ColHeaderRegion(layout, 2), (Rect{110, 0, 169, 37}));
    EXPECT_TRUE(ColHeaderRegion(layout, 19).IsRectEmpty());
}

TEST_F(InvalidationTest, InRowModeTheActiveRowRepaintsFrom0To2000AndTwoPixelsHigherAndLower) {
    EXPECT_EQ(ActiveRowRegion(layout, 3), (Rect{0, 54, 2000, 75}));
}

TEST_F(InvalidationTest, TheActiveCellRepaintsItselfGrownBy2AndItsTwoHeaderBoxes) {
    const auto regions = ActiveCellRegions(layout, {3, 2});
    EXPECT_EQ(regions[0], (Rect{108, 54, 171, 75}));
    EXPECT_EQ(regions[1], (Rect{0, 54, 51, 75}));
    EXPECT_EQ(regions[2], (Rect{108, 0, 171, 22}));
}

TEST_F(InvalidationTest, TheHeaderBoxesAreMeasuredOnTheFirstVisibleCells) {
    layout.FirstVisibleRow = 2;
    layout.FirstVisibleCol = 2;
    properties.RowHeaderWidth = 70;
    const auto regions = ActiveCellRegions(layout, {3, 3});
    EXPECT_EQ(regions[0], (Rect{128, 36, 191, 57}));
    EXPECT_EQ(regions[1], (Rect{0, 36, 71, 57}));
    EXPECT_EQ(regions[2], (Rect{128, 0, 191, 22}));
}

TEST_F(InvalidationTest, AnActiveCellOffTheViewRepaintsNothingInTheWindow) {
    for (const Rect& region : ActiveCellRegions(layout, {40, 40})) {
        EXPECT_LE(IntersectRect(region, layout.m_rcClient).Height(), 22);
        EXPECT_LE(IntersectRect(region, layout.m_rcClient).Width(), 2);
    }
}

TEST_F(InvalidationTest, TheCornerEndsWhereTheFirstVisibleCellBegins) {
    EXPECT_EQ(HeaderCornerRegion(layout), (Rect{0, 0, 50, 20}));
    properties.ShowColHeaders = false;
    EXPECT_TRUE(HeaderCornerRegion(layout).IsRectEmpty());
}

}  // namespace
}  // namespace veygrid
