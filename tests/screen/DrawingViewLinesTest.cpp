// The rows and columns on view, hidden ones folded together, and their edges.
#include <gmock/gmock.h>

#include "SheetLayout.h"
#include "screen/ViewLines.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using DrawingViewLines = SheetLayoutTest;

TEST_F(DrawingViewLines, EveryLineHasItsSize) {
    store.SetRowHeight(4, 30);
    EXPECT_THAT(LinesOnView(store, Axis::Rows, 3, 5),
                ElementsAre(ViewLine{3, 3, 18}, ViewLine{4, 4, 30}, ViewLine{5, 5, 18}));
    EXPECT_THAT(LinesOnView(store, Axis::Cols, 20, 21),
                ElementsAre(ViewLine{20, 20, 60}, ViewLine{21, 21, -1}));
}

TEST_F(DrawingViewLines, HiddenLinesThatFollowEachOtherAreOne) {
    for (const std::int32_t row : {2, 3, 4, 6}) {
        store.SetRowHeight(row, 0);
    }
    EXPECT_THAT(
        LinesOnView(store, Axis::Rows, 1, 6),
        ElementsAre(ViewLine{1, 1, 18}, ViewLine{2, 4, 0}, ViewLine{5, 5, 18}, ViewLine{6, 6, 0}));
}

TEST_F(DrawingViewLines, SpanThatIsReversedHasNoLines) {
    EXPECT_THAT(LinesOnView(store, Axis::Rows, 5, 4), IsEmpty());
}

TEST_F(DrawingViewLines, SheetHiddenByItsDefaultIsWalkedByItsStoredSizes) {
    properties.MaxRow = 1000000000;
    properties.DefCellHeight = 0;
    store.SetRowHeight(500, 18);
    store.SetRowHeight(501, 0);
    store.SetRowHeight(900000000, 20);
    store.SetRowHeight(1000000000, 5);
    EXPECT_THAT(LinesOnView(store, Axis::Rows, 500, 999999999),
                ElementsAre(ViewLine{500, 500, 18}, ViewLine{501, 899999999, 0},
                            ViewLine{900000000, 900000000, 20}, ViewLine{900000001, 999999999, 0}));
    EXPECT_THAT(LinesOnView(store, Axis::Rows, 1, 1000000000).back(),
                (ViewLine{1000000000, 1000000000, 5}));
}

TEST_F(DrawingViewLines, EdgesAreThoseOfCellRect) {
    store.SetRowHeight(2, 0);
    layout.m_rcClient = {0, 0, 400, 60};
    const std::vector<LineEdges> edges =
        EdgesOnView(layout, Axis::Rows, LinesOnView(store, Axis::Rows, 1, 6));
    for (std::int32_t row = 1; row <= 6; ++row) {
        const Rect rect = layout.CellRect(row, 1);
        EXPECT_EQ(edges[static_cast<std::size_t>(row) - 1], (LineEdges{rect.top, rect.bottom}));
    }
    EXPECT_EQ(edges[5], (LineEdges{OffView, OffView}));
}

TEST_F(DrawingViewLines, EmptyClientAreaHasNoEdges) {
    layout.m_rcClient = {};
    EXPECT_THAT(EdgesOnView(layout, Axis::Cols, LinesOnView(store, Axis::Cols, 1, 1)),
                ElementsAre(LineEdges{}));
}

}  // namespace
}  // namespace veygrid
