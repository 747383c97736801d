// The road of one typed value, from the key to the shown text, call by call.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EditDesk.h"
#include "grid/CellShow.h"

namespace veygrid {
namespace {

using testing::ElementsAre;

class EditRoadTest : public EditDeskTest {
  protected:
    EditRoadTest() {
        store.SetColType(1, 3);  // dates, shown as "YYYY-MM-DD"
        store.SetCellText(2, 1, "old");
        selection.SetActiveCell(2, 1);
        properties.ModifiedLog = 3;
    }
};

TEST_F(EditRoadTest, TheRoadOfOneTypedValue) {
    // The first key opens the editor and replaces the text.
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(Type("2"), MessageRoad::ToEditor); }),
                ElementsAre("StartingEdit 2,1 1", "Create 268435652 50,38,109,55 1000",
                            "SetWindowText old", "Editor SetFocus", "SetWindowText "));
    EXPECT_THAT(CallsOf([&] {
                    for (const char* const key : {"0", "0", "3", "0", "8", "0", "5"}) {
                        EXPECT_EQ(Type(key), MessageRoad::GoOn);
                    }
                }),
                testing::IsEmpty());

    // Enter is taken away from the editor and posted.
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(KeyDown(VkReturn), MessageRoad::UsedUp); }),
                ElementsAre("PostCtrlKeyDown 13 7"));

    // The handler takes the focus, which commits; then the active cell moves.
    EXPECT_THAT(
        CallsOf([&] { EXPECT_EQ(Pump(), 1); }),
        ElementsAre("SetFocus", "EN_KILLFOCUS", "EndEdit 2,1 20030805 0", "InvalidateCell 2,1",
                    "PostCellSelChange 2,1", "SetModifiedFlag TRUE", "Modified", "WM_CLOSE",  //
                    "CellSelChanging 3,1 1", "SendCellSelChange 3,1", "PostCellSelChange 3,1",
                    "InvalidateActiveCellAreas 2,1", "InvalidateActiveCellAreas 3,1",
                    "CellSelChanged", "InvalidateHeaderCorner"));

    // What the repaint shows.
    EXPECT_EQ(store.CellText(2, 1), "20030805");
    EXPECT_EQ(GetCellFormatText(store, 2, 1), "2003-08-05");
    EXPECT_EQ(*store.Log.ModifiedLogMap.Find({2, 1}), 3);
    EXPECT_EQ(Active(), (CellPos{3, 1}));
    EXPECT_EQ(desk.focus, Focus::Control);
}

TEST_F(EditRoadTest, TheRoadOfARefusedValueEndsInTheEditor) {
    Type("x");
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(KeyStroke(VkReturn), 0); }),
                ElementsAre("PostCtrlKeyDown 13 7", "SetFocus", "EN_KILLFOCUS", "EndEdit 2,1 x 0",
                            "ShowMessage 64 输入的数据非法!", "Editor SetFocus"));
    EXPECT_EQ(store.CellText(2, 1), "old");
    EXPECT_TRUE(store.Log.IsEmpty());
    EXPECT_EQ(Active(), (CellPos{2, 1}));

    // Corrected, it goes through.
    editor.EmptyText();
    edit.Type("20030805");
    EXPECT_EQ(KeyStroke(VkTab), 1);
    EXPECT_EQ(store.CellText(2, 1), "20030805");
    EXPECT_EQ(Active(), (CellPos{2, 2}));
}

TEST_F(EditRoadTest, WithAlwaysOnEditEnterLeavesTheNextCellOpen) {
    properties.AlwaysOnEdit = true;
    Type("2");
    edit.Type("0030805");
    EXPECT_EQ(KeyStroke(VkReturn), 1);
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(editor.EditRow, 3);
    // An untouched editor goes away without a word.
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(editor.EndEdit(), 1); }),
                ElementsAre("WM_CLOSE", "EN_KILLFOCUS"));
}

TEST_F(EditRoadTest, CtrlEnterMakesANewLineInTheTextAndMovesNothing) {
    Type("a");
    desk.ctrlDown = true;
    EXPECT_EQ(KeyDown(VkReturn), MessageRoad::ToEditor);
    EXPECT_EQ(Pump(), -1);
    EXPECT_TRUE(editor.InEdit());
    EXPECT_EQ(Active(), (CellPos{2, 1}));
}

}  // namespace
}  // namespace veygrid
