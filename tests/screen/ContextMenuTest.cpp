// The menu of a right click, and the host's items in it.
#include "MenuDesk.h"

namespace veygrid {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Gbk(std::string_view text) {
    return CodePage936FromUtf8(text);
}

TEST_F(MenuTest, ThereIsNoMenuUntilItIsFirstNeeded) {
    EXPECT_FALSE(menu.HasMenu());
    context.OnContextMenu({1, 2});
    EXPECT_EQ(menu.Take().front(), "LoadMenu 2307");
    context.OnContextMenu({1, 2});
    EXPECT_EQ(menu.Take().front(), "ModifyMenu 42322 取消关键列");
}

TEST_F(MenuTest, ARightClickLoadsTranslatesMarksAndShowsTheMenuAtItsPoint) {
    context.OnContextMenu({-5, 700});
    EXPECT_THAT(menu.Take(), ElementsAre("LoadMenu 2307", "TranslateMenu",
                                         "ModifyMenu 42322 取消关键列", "CheckMenuItem 42312 off",
                                         "CheckMenuItem 42313 off", "TrackPopupMenu -5,700"));
}

TEST_F(MenuTest,
       WithAllowPopMenuOffARightClickShowsNothingWhileSendCommand1001StillOpensTheFontDialog) {
    store.Properties.AllowPopMenu = false;
    context.OnContextMenu({1, 2});
    EXPECT_THAT(menu.Take(), IsEmpty());
    EXPECT_FALSE(menu.HasMenu());
    SendCommand(1001);
    EXPECT_EQ(host.shownFonts.size(), 1U);
}

TEST_F(MenuTest, TheKeyColumnItemFollowsTheFlagOfTheActiveColumnEachTimeTheMenuOpens) {
    store.ActiveCol = 3;
    store.SetKeyColumnFlag(3, 0);
    context.OnContextMenu({});
    EXPECT_EQ(menu.Items.back(), "42322 置为关键列");
    store.SetKeyColumnFlag(3, 1);
    context.OnContextMenu({});
    EXPECT_EQ(menu.Items.back(), "42322 取消关键列");
    store.SetKeyColumnFlag(3, -7);
    context.OnContextMenu({});
    EXPECT_EQ(menu.Items.back(), "42322 取消关键列");
}

TEST_F(MenuTest, AFreshColumnOffersToTakeTheKeyAway) {
    context.OnContextMenu({});
    EXPECT_EQ(menu.Items.back(), "42322 取消关键列");
}

TEST_F(MenuTest, WhereTheHostRemovedTheKeyColumnItemItsChangeDoesNothing) {
    context.RemoveAllMenuItem();
    context.AppendMenuItem(33000, "x");
    context.OnContextMenu({});
    EXPECT_THAT(menu.Items, ElementsAre("33000 x"));
}

TEST_F(MenuTest, TheMarksOf42312And42313AreThoseOfTheModes) {
    store.Properties.GuiMode = true;
    host.designMode = true;
    context.OnContextMenu({});
    EXPECT_THAT(menu.Take(),
                testing::IsSupersetOf({"CheckMenuItem 42312 on", "CheckMenuItem 42313 on"}));
}

TEST_F(MenuTest, TheSameMenuOpensInEveryMode) {
    context.OnContextMenu({});
    const std::vector<std::string> items = menu.Items;
    store.Properties.GuiMode = true;
    store.Properties.AllowEdit = false;
    store.ActiveRow = 0;
    context.OnContextMenu({});
    EXPECT_EQ(menu.Items, items);
    EXPECT_EQ(store.ActiveRow, 0);
}

TEST_F(MenuTest, RemoveAllMenuItemDeletesPosition0AsOftenAsThereAreItemsSubPopUpIncluded) {
    context.RemoveAllMenuItem();
    EXPECT_THAT(menu.Take(), ElementsAre("LoadMenu 2307", "TranslateMenu", "DeleteMenu 0",
                                         "DeleteMenu 0", "DeleteMenu 0", "DeleteMenu 0"));
    EXPECT_THAT(menu.Items, IsEmpty());
}

TEST_F(MenuTest, TheEmptyMenuStaysAndCanBeShown) {
    context.RemoveAllMenuItem();
    context.RemoveAllMenuItem();
    menu.Take();
    context.OnContextMenu({3, 4});
    EXPECT_EQ(menu.Calls.back(), "TrackPopupMenu 3,4");
    EXPECT_THAT(menu.Items, IsEmpty());
    context.AppendMenuItem(1008, "copy");
    EXPECT_THAT(menu.Items, ElementsAre("42307 copy"));
}

TEST_F(MenuTest, AppendMenuItemAddsBehindTheLoadedItems) {
    context.AppendMenuItem(33001, Gbk("审核凭证\x81\x7C"));
    EXPECT_THAT(menu.Calls, ElementsAre("LoadMenu 2307", "TranslateMenu"));
    EXPECT_EQ(menu.Items.size(), 5U);
    EXPECT_TRUE(menu.Items.back().starts_with("33001 审核凭证"));
}

TEST_F(MenuTest, AppendMenuItem1000MakesASeparatorAndIgnoresTheTextSo1000CannotBeAHostCommand) {
    context.RemoveAllMenuItem();
    context.AppendMenuItem(1000, "text");
    EXPECT_THAT(menu.Items, ElementsAre("0 -"));
}

TEST_F(MenuTest, AppendMenuItemMapsEachPublicNumber) {
    context.RemoveAllMenuItem();
    for (std::int32_t item = 1001; item <= 1021; ++item) {
        context.AppendMenuItem(item, "t");
        EXPECT_EQ(menu.Items.back(), std::to_string(item + 41299) + " t");
    }
}

TEST_F(MenuTest, AppendMenuItem42300IsNotInCommandIdMapAndIsUsedAsItStands) {
    context.RemoveAllMenuItem();
    context.AppendMenuItem(42300, "font");
    context.AppendMenuItem(1022, "none");
    context.AppendMenuItem(-1, "none");
    context.AppendMenuItem(0, "");
    EXPECT_THAT(menu.Items, ElementsAre("42300 font", "1022 none", "-1 none", "0 "));
}

TEST_F(MenuTest, AMissingResourceLeavesTheMenuEmptyAndTheCodeGoesOn) {
    menu.IsMissing = true;
    context.RemoveAllMenuItem();
    context.OnContextMenu({});
    EXPECT_FALSE(menu.HasMenu());
    EXPECT_EQ(menu.Calls.back(), "TrackPopupMenu 0,0");
}

}  // namespace

}  // namespace veygrid
