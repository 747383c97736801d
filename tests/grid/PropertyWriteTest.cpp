// What hosts hear when they write a plain property.
#include "grid/PropertyWrite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SheetRecorder.h"

namespace veygrid {
namespace {

using testing::ElementsAre;

class PropertyWriteTest : public SheetTest {};

TEST_F(PropertyWriteTest, SettingMaxRowFromTheHostDoesNotRepaint) {
    EXPECT_THAT(CallsOf([&] { WriteNotify(store, &GridProperties::MaxRow, -3); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.Properties.MaxRow, -3);
}

TEST_F(PropertyWriteTest, APropertyThatShowsRepaintsBeforeItNotifies) {
    EXPECT_THAT(CallsOf([&] { WriteRepaint(store, &GridProperties::DefCellWidth, 80); }),
                ElementsAre("InvalidateControl", "SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.Properties.DefCellWidth, 80);
}

TEST_F(PropertyWriteTest, SwitchesAreWrittenInTheSameWay) {
    EXPECT_THAT(CallsOf([&] { WriteNotify(store, &GridSwitches::CanWriteTable, true); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_TRUE(store.Switches.CanWriteTable);
}

TEST_F(PropertyWriteTest, LastRowCanBeLoweredByTheHost) {
    store.SetCellText(9, 9, "x");
    WriteNotify(store, &GridProperties::LastRow, 2);
    EXPECT_EQ(store.Properties.LastRow, 2);
}

}  // namespace
}  // namespace veygrid
