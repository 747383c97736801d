// Dragging the borders of rows, columns and headers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EditDesk.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Row 2 takes the pixels 38 to 55, column 2 those from 110 to 169.
constexpr Point Row2Bottom{10, 54};
constexpr Point Row2Top{10, 40};
constexpr Point Row1Top{10, 22};
constexpr Point Col2Right{168, 10};
constexpr Point Col2Left{112, 10};
constexpr Point Col1Left{52, 10};

class MouseResizeTest : public EditDeskTest {};

TEST_F(MouseResizeTest, APressOnARowBorderSetsTheCursorInvertsALineAndConfines) {
    EXPECT_THAT(CallsOf([&] { Press(Row2Bottom); }),
                ElementsAre("SetFocus", "SetCursor 32645", "InvertRect 0,54,400,55",
                            "ClipCursor 1000,500,1400,800"));
    EXPECT_EQ(State(), MouseState::MouseResizeRow);
}

TEST_F(MouseResizeTest, APressOnAColumnBorderSetsTheCursorInvertsALineAndConfines) {
    EXPECT_THAT(CallsOf([&] { Press(Col2Right); }),
                ElementsAre("SetFocus", "SetCursor 32644", "InvertRect 168,0,169,300",
                            "ClipCursor 1000,500,1400,800"));
    EXPECT_EQ(State(), MouseState::MouseResizeCol);
}

TEST_F(MouseResizeTest, WithAllowResizeOffThePressDoesNothing) {
    properties.AllowResize = false;
    EXPECT_THAT(CallsOf([&] { Press(Row2Bottom); }), ElementsAre("SetFocus"));
    EXPECT_THAT(CallsOf([&] { Press(Col2Right); }), ElementsAre("SetFocus"));
    EXPECT_EQ(State(), MouseState::MouseIdle);
}

TEST_F(MouseResizeTest, TheLineFollowsThePointer) {
    Press(Row2Bottom);
    EXPECT_THAT(CallsOf([&] {
                    Drag({200, 70});
                }),
                ElementsAre("InvertRect 0,54,400,55", "InvertRect 0,70,400,71"));
    EXPECT_THAT(CallsOf([&] {
                    Drag({200, 71});
                }),
                ElementsAre("InvertRect 0,70,400,71", "InvertRect 0,71,400,72"));
    Release({200, 71});
    Press(Col2Right);
    EXPECT_THAT(CallsOf([&] {
                    Drag({200, 70});
                }),
                ElementsAre("InvertRect 168,0,169,300", "InvertRect 200,0,201,300"));
}

TEST_F(MouseResizeTest, TheReleaseSetsTheHeightFromTheTopOfTheRow) {
    Press(Row2Bottom);
    Drag({12, 70});
    EXPECT_THAT(CallsOf([&] {
                    Release({12, 70});
                }),
                ElementsAre("ClipCursor null", "InvertRect 0,70,400,71", "SetModifiedFlag TRUE",
                            "Modified", "UpdateScrollBars", "SetModifiedFlag TRUE", "Modified",
                            "InvalidateControl", "DrawSelectionFrame"));
    EXPECT_EQ(store.RowHeight(2), 70 - 38);
    EXPECT_EQ(State(), MouseState::MouseIdle);
}

TEST_F(MouseResizeTest, TheReleaseSetsTheWidthFromTheLeftOfTheColumn) {
    Press(Col2Right);
    Release({200, 12});
    EXPECT_EQ(store.ColWidth(2), 200 - 110);
    EXPECT_EQ(store.RowHeight(2), 18);
}

TEST_F(MouseResizeTest, APressNearTheTopOfARowResizesTheRowAbove) {
    Press(Row2Top);
    Release({10, 60});
    EXPECT_EQ(store.RowHeight(1), 60 - 20);
    EXPECT_EQ(store.RowHeight(2), 18);
}

TEST_F(MouseResizeTest, APressNearTheLeftOfAColumnResizesTheColumnBefore) {
    Press(Col2Left);
    Release({140, 10});
    EXPECT_EQ(store.ColWidth(1), 140 - 50);
    EXPECT_EQ(store.ColWidth(2), 60);
}

TEST_F(MouseResizeTest, APressAndReleaseAtTheSamePointChangesNothingAndModifiedDoesNotFire) {
    Press(Row2Bottom);
    Drag({10, 80});
    Drag(Row2Bottom);
    EXPECT_THAT(CallsOf([&] { Release(Row2Bottom); }),
                ElementsAre("ClipCursor null", "InvertRect 0,54,400,55", "DrawSelectionFrame"));
    EXPECT_EQ(store.RowHeight(2), 18);
    EXPECT_EQ(store.RowHeightMap.Count(), 0U);
}

TEST_F(MouseResizeTest, AMoveAlongTheBorderAloneResizesToThePlaceOfThePress) {
    Press(Row2Bottom);
    Release({30, 54});
    EXPECT_EQ(store.RowHeight(2), 54 - 38);
}

TEST_F(MouseResizeTest, DraggingARowBorderPastTheTopOfTheRowGivesHeight0) {
    Press(Row2Bottom);
    Release({10, 25});
    EXPECT_EQ(store.RowHeight(2), 0);
    // It keeps its number, and the next row moves up.
    EXPECT_EQ(layout.CellRect(3, 1).top, 38);
}

TEST_F(MouseResizeTest, DraggingAColumnBorderToItsLeftGivesWidth0) {
    Press(Col2Right);
    Release({110, 10});
    EXPECT_EQ(store.ColWidth(2), 0);
}

TEST_F(MouseResizeTest, TheTopBandOfTheFirstVisibleRowSetsColHeaderHeight) {
    Press(Row1Top);
    EXPECT_EQ(State(), MouseState::MouseResizeRow);
    EXPECT_THAT(CallsOf([&] {
                    Release({10, 33});
                }),
                ElementsAre("ClipCursor null", "InvertRect 0,22,400,23", "SetModifiedFlag TRUE",
                            "Modified", "InvalidateControl", "DrawSelectionFrame"));
    EXPECT_EQ(properties.ColHeaderHeight, 33);
    EXPECT_EQ(store.RowHeight(1), 18);
}

TEST_F(MouseResizeTest, WithTheColumnHeadersOffTheTopBandOnlyErasesTheLine) {
    properties.ShowColHeaders = false;
    Press({10, 2});
    EXPECT_EQ(State(), MouseState::MouseResizeRow);
    EXPECT_THAT(CallsOf([&] {
                    Release({10, 30});
                }),
                ElementsAre("ClipCursor null", "InvertRect 0,2,400,3", "DrawSelectionFrame"));
    EXPECT_EQ(properties.ColHeaderHeight, 20);
}

TEST_F(MouseResizeTest, TheLeftBandOfTheFirstVisibleColumnSetsRowHeaderWidth) {
    Press(Col1Left);
    Release({77, 10});
    EXPECT_EQ(properties.RowHeaderWidth, 77);
    properties.ShowRowHeaders = false;
    Press({2, 10});
    EXPECT_EQ(State(), MouseState::MouseResizeCol);
    Release({30, 10});
    EXPECT_EQ(properties.RowHeaderWidth, 77);
}

TEST_F(MouseResizeTest, WithTheViewScrolledTheTopBandBelongsToTheRowAboveOnlyWhenItIsOnView) {
    layout.FirstVisibleRow = 4;
    Press(Row2Top);  // the top of row 5
    Release({10, 60});
    EXPECT_EQ(store.RowHeight(4), 40);
    store.SetRowHeight(4, 18);
    Press(Row1Top);  // the top of row 4
    Release({10, 30});
    EXPECT_EQ(properties.ColHeaderHeight, 30);
    EXPECT_EQ(store.RowHeight(3), 18);
}

TEST_F(MouseResizeTest, ARowThatScrolledAwayDuringTheDragIsLeftAlone) {
    Press(Row2Top);
    layout.FirstVisibleRow = 9;
    EXPECT_EQ(State(), MouseState::MouseResizeRow);
    Release({10, 60});
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_FALSE(desk.confined);
}

TEST_F(MouseResizeTest, ACancelledResizeFreesTheCursorAndChangesNothing) {
    Press(Row2Bottom);
    Drag({10, 90});
    EXPECT_THAT(CallsOf([&] { mouse.CancelDrag(); }),
                ElementsAre("ClipCursor null", "InvalidateControl"));
    EXPECT_EQ(store.RowHeight(2), 18);
    EXPECT_FALSE(desk.confined);
}

TEST_F(MouseResizeTest, AChangeToGuiModeDuringTheDragStillFreesTheCursorAtTheRelease) {
    Press(Row2Bottom);
    properties.GuiMode = true;
    EXPECT_THAT(CallsOf([&] { Release({10, 90}); }), ElementsAre("ClipCursor null"));
    EXPECT_EQ(State(), MouseState::MouseIdle);
    EXPECT_EQ(store.RowHeight(2), 18);
}

}  // namespace
}  // namespace veygrid
