// What of the window's picture is moved when the sheet scrolls.
#include "screen/ScrolledPixels.h"

#include "SheetLayout.h"
#include "grid/SheetRecorder.h"

namespace veygrid {
namespace {

// The view stands at row 10 and column 4.
class ScrolledPixelsTest : public SheetLayoutTest {
  protected:
    ScrolledPixelsTest() {
        layout.FirstVisibleRow = 10;
        layout.FirstVisibleCol = 4;
    }
    std::optional<ScrolledPixels> From(CellPos shown) {
        return PixelsToMove(store, selection, layout, shown);
    }

    SheetRecorder recorder;
    Selection selection{store, recorder};
};

TEST_F(ScrolledPixelsTest, RowsMoveWithTheirHeadersAndTheColumnHeadersStay) {
    const auto down = From({8, 4});
    ASSERT_TRUE(down);
    EXPECT_EQ(down->area, (Rect{0, 20, 400, 300}));
    EXPECT_EQ(down->dx, 0);
    EXPECT_EQ(down->dy, -36);
    // What came into view below, and where frames stick to the first row.
    EXPECT_EQ(down->stale[2], (Rect{0, 260, 400, 300}));
    EXPECT_EQ(down->stale[0], (Rect{0, 16, 400, 42}));
}

TEST_F(ScrolledPixelsTest, ColumnsMoveWithTheirHeadersAndTheRowHeadersStay) {
    const auto left = From({10, 6});
    ASSERT_TRUE(left);
    EXPECT_EQ(left->area, (Rect{50, 0, 400, 300}));
    EXPECT_EQ(left->dx, 120);
    EXPECT_EQ(left->dy, 0);
    EXPECT_EQ(left->stale[2], (Rect{50, 0, 174, 300}));
    EXPECT_EQ(left->stale[1], (Rect{166, 0, 234, 300}));
}

TEST_F(ScrolledPixelsTest, ADiagonalMoveOrNoneOrOneOutOfTheWindowIsPaintedAnew) {
    EXPECT_FALSE(From({8, 3}));
    EXPECT_FALSE(From({10, 4}));
    EXPECT_FALSE(From({40, 4}));
    layout.FirstVisibleRow = 30;
    EXPECT_FALSE(From({10, 4}));
}

TEST_F(ScrolledPixelsTest, AFrameWhoseFarCornerComesIntoViewIsPaintedAnew) {
    // Row 25 is the first below the view of the rows from 9 on.
    selection.SelectionList = {{12, 5, 25, 6}};
    EXPECT_FALSE(From({9, 4}));
    selection.SelectionList = {{12, 5, 20, 6}};
    EXPECT_TRUE(From({9, 4}));
    selection.SelectionList = {{12, 5, 25, 6}, {1, 1, 1, 1}};
    EXPECT_TRUE(From({9, 4}));
    selection.SelectionList = {CellRange::WholeSheet()};
    EXPECT_TRUE(From({9, 4}));
}

TEST_F(ScrolledPixelsTest, HiddenAndReversedRowsAreNotMovedBy) {
    store.RowHeightMap.Set(RowKey(9), 0);
    EXPECT_FALSE(From({9, 4}));
    store.RowHeightMap.Set(RowKey(9), -20);
    EXPECT_FALSE(From({9, 4}));
}

}  // namespace
}  // namespace veygrid
