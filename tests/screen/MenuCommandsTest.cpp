// The commands of the menu.
#include "MenuDesk.h"

#include <limits>

namespace veygrid {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

CCellFormat Format(std::uint16_t align, std::uint8_t flags, std::uint8_t dataType) {
    CCellFormat format;
    format.Align = align;
    format.Flags = flags;
    format.DataType = dataType;
    return format;
}

CCellFormat DataFormat(std::uint8_t dataType, std::string_view showFormat,
                       std::string_view validity) {
    CCellFormat format = Format(0, 0, dataType);
    format.ShowFormat = showFormat;
    format.Validity = validity;
    return format;
}

TEST(CommandIdMapTest, HoldsThe21PublicNumbersAndNoOther) {
    EXPECT_EQ(CommandIdMap.size(), 21U);
    for (std::int32_t item = 1001; item <= 1021; ++item) {
        EXPECT_EQ(CommandOfItem(item), item + 41299);
    }
    for (const std::int32_t item :
         {std::numeric_limits<std::int32_t>::min(), -1, 0, 1000, 1022, 42300, 42321, 42324, 50001,
          std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(CommandOfItem(item), item);
    }
}

TEST_F(MenuTest, EachCommandAsksTheControlForWhatItDoes) {
    EXPECT_THAT(CommandCalls(42307), ElementsAre("EditCopy"));
    EXPECT_THAT(CommandCalls(42308), ElementsAre("EditCut"));
    EXPECT_THAT(CommandCalls(42309), ElementsAre("EditPaste"));
    EXPECT_THAT(CommandCalls(42311), ElementsAre("OpenDataSourceWindow"));
    EXPECT_THAT(CommandCalls(42312), ElementsAre("SetGuiMode TRUE"));
    EXPECT_THAT(CommandCalls(42313), ElementsAre("SetGuiDesignMode TRUE"));
    EXPECT_THAT(CommandCalls(42314), ElementsAre("ShowTabOrderDlg"));
    EXPECT_THAT(CommandCalls(42315), ElementsAre("ShowToolbox TRUE"));
    EXPECT_THAT(CommandCalls(42316), ElementsAre("ShowParamDlg"));
    EXPECT_THAT(CommandCalls(42320), ElementsAre("OnProperties"));
    EXPECT_THAT(CommandCalls(57607), ElementsAre("Print FALSE"));
}

TEST_F(MenuTest, TheModeCommandsToggle) {
    store.Properties.GuiMode = true;
    host.designMode = true;
    EXPECT_THAT(CommandCalls(42312), ElementsAre("SetGuiMode FALSE"));
    EXPECT_THAT(CommandCalls(42313), ElementsAre("SetGuiDesignMode FALSE"));
}

TEST_F(MenuTest, RunQueryAndTheCommandsWithoutATaskAreTheControlsOwnAndDoNothing) {
    for (const std::int32_t id : {42317, 42321, 42323}) {
        EXPECT_THAT(CallsOf([&] { EXPECT_THAT(CommandCalls(id), IsEmpty()) << id; }), IsEmpty());
    }
}

TEST_F(MenuTest, SendCommand33000ReachesTheParent) {
    EXPECT_THAT(SendCommand(33000), ElementsAre("PostCommandToParent 33000"));
}

TEST_F(MenuTest, SendCommand1002Sends42301AndSoReachesTheParentAs42301) {
    EXPECT_THAT(SendCommand(1002), ElementsAre("PostCommandToParent 42301"));
}

TEST_F(MenuTest, AnItemNumberOf50000ReachesTheHostAnd50001GoesNowhere) {
    EXPECT_THAT(SendCommand(50000), ElementsAre("PostCommandToParent 50000"));
    EXPECT_THAT(SendCommand(50001), ElementsAre("nobody"));
    EXPECT_THAT(SendCommand(32999), ElementsAre("nobody"));
    EXPECT_THAT(SendCommand(0), ElementsAre("nobody"));
    EXPECT_THAT(SendCommand(-1), ElementsAre("nobody"));
}

TEST_F(MenuTest, SingleCommandsWinOverTheRangeOfTheHost) {
    for (std::int32_t id = 42302; id <= 42324; ++id) {
        EXPECT_THAT(CommandCalls(id), testing::Not(testing::Contains(testing::HasSubstr("Post"))));
    }
    EXPECT_THAT(CommandCalls(42299), ElementsAre("PostCommandToParent 42299"));
    EXPECT_THAT(CommandCalls(42325), ElementsAre("PostCommandToParent 42325"));
}

TEST_F(MenuTest, TheRowAndColumnCommandsRun) {
    store.SetCellText(1, 1, "x");
    SendCommand(1004);
    EXPECT_EQ(store.CellText(2, 1), "x");
    SendCommand(1005);
    EXPECT_EQ(store.CellText(1, 1), "x");
    SendCommand(1006);
    EXPECT_EQ(store.CellText(1, 2), "x");
    SendCommand(1007);
    EXPECT_EQ(store.CellText(1, 1), "x");
}

TEST_F(MenuTest, InsertRowsWithASelectedSheetClearsTheSheetAndInsertsNothing) {
    store.SetCellText(2, 2, "x");
    selection.SelectionList = {CellRange::WholeSheet()};
    SendCommand(1004);
    EXPECT_EQ(store.CellTextMap.Count(), 0U);
    EXPECT_EQ(store.Properties.MaxRow, 50);
}

TEST_F(MenuTest, TheKeyColumnCommandOnAFreshColumnWrites0Then1Then0) {
    store.ActiveCol = 2;
    EXPECT_EQ(store.KeyColumnFlag(2), 4);
    CommandCalls(42322);
    EXPECT_EQ(store.KeyColumnFlag(2), 0);
    CommandCalls(42322);
    EXPECT_EQ(store.KeyColumnFlag(2), 1);
    CommandCalls(42322);
    EXPECT_EQ(store.KeyColumnFlag(2), 0);
}

TEST_F(MenuTest, TheKeyColumnCommandTakesAnyFlagButNoneForSet) {
    store.SetKeyColumnFlag(1, -3);
    CommandCalls(42322);
    EXPECT_EQ(store.KeyColumnFlag(1), 0);
}

TEST_F(MenuTest, SendCommand1011RunsCommand42310AndSoDoes42310) {
    SendCommand(1011);
    SendCommand(42310);
    EXPECT_EQ(host.shownDataCtrls.size(), 2U);
}

TEST_F(MenuTest, WithNoSelectionTheDataDialogShowsTheValuesOfTheActiveCell) {
    store.StoreCellFormat(0, 4, DataFormat(3, "YYYY-MM-DD", "rule"));
    store.ActiveRow = 2;
    store.ActiveCol = 4;
    SendCommand(1011);
    ASSERT_EQ(host.shownDataCtrls.size(), 1U);
    EXPECT_EQ(host.shownDataCtrls[0],
              (DataCtrlChoice{.dataType = 3, .showFormat = "YYYY-MM-DD", .validity = "rule"}));
}

TEST_F(MenuTest,
       WithNoSelectionDataOkWithoutAChangeWritesTheSameValuesAndGivesTheCellItsOwnRecord) {
    const CCellFormat column = DataFormat(3, "0.00", "rule");
    store.StoreCellFormat(0, 1, column);
    host.dataCtrl = DataCtrlChoiceOf(column);
    EXPECT_THAT(CallsOf([&] { SendCommand(1011); }), ElementsAre("InvalidateControl"));
    ASSERT_NE(store.CellFormatMap.Find({1, 1}), nullptr);
    EXPECT_EQ(*store.CellFormatMap.Find({1, 1}), column);
    EXPECT_EQ(store.CellFormatMap.Count(), 2U);
}

TEST_F(MenuTest, WithThreeCellsSelectedOfDifferingFormatsTheDataDialogOpensBlank) {
    store.StoreCellFormat(1, 1, DataFormat(1, "0", "a"));
    store.StoreCellFormat(1, 2, DataFormat(2, "0.00", "b"));
    selection.SelectionList = {{1, 1, 1, 1}, {1, 2, 1, 2}, {1, 3, 1, 3}};
    SendCommand(1011);
    ASSERT_EQ(host.shownDataCtrls.size(), 1U);
    EXPECT_EQ(host.shownDataCtrls[0], DataCtrlChoice{});
    EXPECT_EQ(host.shownDataCtrls[0].dataType, -1);
}

TEST_F(MenuTest, DataOkWithNoChangeOfTheListStores255InEveryTouchedRecordAndKeepsBothTextsOfEach) {
    store.StoreCellFormat(1, 1, DataFormat(1, "0", "a"));
    store.StoreCellFormat(1, 2, DataFormat(2, "0.00", "b"));
    selection.SelectionList = {{1, 1, 1, 1}, {1, 2, 1, 2}, {1, 3, 1, 3}};
    host.dataCtrl = DataCtrlChoice{};
    EXPECT_THAT(CallsOf([&] { SendCommand(1011); }), ElementsAre("InvalidateControl"));
    EXPECT_EQ(*store.CellFormatMap.Find({1, 1}), DataFormat(255, "0", "a"));
    EXPECT_EQ(*store.CellFormatMap.Find({1, 2}), DataFormat(255, "0.00", "b"));
    EXPECT_EQ(*store.CellFormatMap.Find({1, 3}), DataFormat(255, "", ""));
    EXPECT_EQ(store.CellFormatMap.Count(), 3U);
}

TEST_F(MenuTest, ACancelledDataDialogChangesNothing) {
    selection.SelectionList = {{1, 1, 3, 3}};
    EXPECT_THAT(CallsOf([&] { SendCommand(1011); }), IsEmpty());
    EXPECT_EQ(store.CellFormatMap.Count(), 0U);
}

TEST_F(MenuTest, TheDataDialogCarriesAColumnsRecordDownIntoASelectedRowAsTheFontDoes) {
    store.StoreCellFormat(5, 2, DataFormat(1, "own", "own"));
    store.StoreCellFormat(0, 2, DataFormat(2, "column", "column"));
    selection.SelectionList = {{5, 0, 5, 0}};
    host.dataCtrl = DataCtrlChoice{.dataType = 4, .showFormat = "0", .showFormatChanged = true};
    SendCommand(1011);
    EXPECT_EQ(*store.CellFormatMap.Find({5, 2}), DataFormat(4, "0", "column"));
    EXPECT_EQ(*store.CellFormatMap.Find({5, 0}), DataFormat(4, "0", ""));
    EXPECT_EQ(*store.CellFormatMap.Find({0, 2}), DataFormat(2, "column", "column"));
}

TEST_F(MenuTest, TheDataDialogGoesOverWholeColumnsAndTheWholeSheet) {
    store.StoreCellFormat(3, 0, DataFormat(1, "row", "r"));
    selection.SelectionList = {{0, 6, 0, 6}};
    host.dataCtrl = DataCtrlChoice{.dataType = 0, .validity = ">0", .validityChanged = true};
    SendCommand(1011);
    EXPECT_EQ(*store.CellFormatMap.Find({3, 6}), DataFormat(0, "row", ">0"));
    EXPECT_EQ(*store.CellFormatMap.Find({0, 6}), DataFormat(0, "", ">0"));
    selection.SelectionList = {CellRange::WholeSheet()};
    host.dataCtrl->dataType = 2;
    SendCommand(1011);
    EXPECT_EQ(store.CellFormatMap.Count(), 4U);
    for (const auto& [key, format] : store.CellFormatMap) {
        EXPECT_EQ(format.DataType, 2);
        EXPECT_EQ(format.Validity, ">0");
    }
}

TEST_F(MenuTest, SaveFileAsksForAPathAndSavesThere) {
    host.path = CodePage936FromUtf8("凭证 龘.grd");
    EXPECT_THAT(SendCommand(1019), ElementsAre("AskFileToSave", "SaveFile 凭证 龘.grd"));
}

TEST_F(MenuTest, OpenFileAsksForAPathOpensItWith1AndRepaints) {
    host.path = "a.grd";
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_THAT(SendCommand(1020),
                                ElementsAre("AskFileToOpen", "OpenFile a.grd 1"));
                }),
                ElementsAre("InvalidateControl"));
}

TEST_F(MenuTest, ACancelledFileDialogEndsTheCommandWithoutAChange) {
    EXPECT_THAT(CallsOf([&] {
                    EXPECT_THAT(SendCommand(1019), ElementsAre("AskFileToSave"));
                    EXPECT_THAT(SendCommand(1020), ElementsAre("AskFileToOpen"));
                }),
                IsEmpty());
}

TEST_F(MenuTest, ClearFormatsDestroysEveryRecordButTheDefaultOneAndNeitherRepaintsNorNotifies) {
    for (const CellPos key : {CellPos{2, 3}, CellPos{2, 0}, CellPos{0, 3}, CellPos{0, 0}}) {
        store.StoreCellFormat(key.Row, key.Col, Format(0, 0, 3));
    }
    store.DefCellFormat.DataType = 2;
    EXPECT_THAT(CallsOf([&] { CommandCalls(42324); }), IsEmpty());
    EXPECT_EQ(store.CellFormatMap.Count(), 0U);
    EXPECT_EQ(store.DefCellFormat.DataType, 2);
}

TEST_F(MenuTest, TheFontDialogShowsTheActiveCellsFont) {
    CCellFormat format;
    format.Font = {.lfHeight = -20, .lfWeight = 700, .lfItalic = 1};
    store.StoreCellFormat(0, 4, format);
    store.ActiveCol = 4;
    selection.SelectionList = {{1, 1, 2, 2}};
    SendCommand(1001);
    ASSERT_EQ(host.shownFonts.size(), 1U);
    EXPECT_EQ(host.shownFonts[0], format.Font);
}

TEST_F(MenuTest, ARecordThatNamesNoFontShowsTheControlsOwn) {
    commands.ShowFontDlg();
    ASSERT_EQ(host.shownFonts.size(), 1U);
    EXPECT_EQ(host.shownFonts[0], host.stockFont);
}

TEST_F(MenuTest, ACancelledFontDialogChangesNothing) {
    EXPECT_THAT(CallsOf([&] { commands.ShowFontDlg(); }), IsEmpty());
    EXPECT_EQ(store.CellFormatMap.Count(), 0U);
}

TEST_F(MenuTest, TheFontAndItsColourGoToTheActiveCellWithoutASelection) {
    host.font = FontChoice{{.lfHeight = -20, .lfWeight = 700}, 0x0000FF};
    CCellFormat before;
    before.ShowFormat = "0.00";
    before.Background = 5;
    store.StoreCellFormat(0, 2, before);
    store.ActiveRow = 3;
    store.ActiveCol = 2;
    EXPECT_THAT(CallsOf([&] { commands.ShowFontDlg(); }), ElementsAre("InvalidateControl"));
    CCellFormat wanted = before;
    wanted.Font = host.font->font;
    wanted.Foreground = 0x0000FF;
    EXPECT_EQ(*store.CellFormatMap.Find({3, 2}), wanted);
    EXPECT_EQ(*store.CellFormatMap.Find({0, 2}), before);
    EXPECT_EQ(store.CellFormatMap.Count(), 2U);
}

TEST_F(MenuTest, TheFontGoesOverABlockWholeRowsWholeColumnsAndTheSheet) {
    host.font = FontChoice{{.lfHeight = -9, .lfWeight = 400}, 7};
    selection.SelectionList = {{2, 2, 1, 1}};
    commands.ShowFontDlg();
    EXPECT_THAT(KeysOf(store.CellFormatMap),
                UnorderedElementsAre(CellPos{1, 1}, CellPos{1, 2}, CellPos{2, 1}, CellPos{2, 2}));
    selection.SelectionList = {{4, 0, 5, 0}, {0, 7, 0, 7}};
    commands.ShowFontDlg();
    EXPECT_NE(store.CellFormatMap.Find({4, 0}), nullptr);
    EXPECT_NE(store.CellFormatMap.Find({5, 0}), nullptr);
    EXPECT_NE(store.CellFormatMap.Find({4, 7}), nullptr);
    EXPECT_NE(store.CellFormatMap.Find({0, 7}), nullptr);
    selection.SelectionList = {CellRange::WholeSheet()};
    host.font->color = 8;
    commands.ShowFontDlg();
    EXPECT_NE(store.CellFormatMap.Find({0, 0}), nullptr);
    for (const auto& [key, format] : store.CellFormatMap) {
        EXPECT_EQ(format.Foreground, 8);
    }
}

TEST_F(MenuTest, TheFontTakesTheVisitedColumnsRecordDownIntoASelectedRow) {
    host.font = FontChoice{{.lfWeight = 400}, 1};
    store.StoreCellFormat(5, 2, Format(0, 0, 1));
    store.StoreCellFormat(0, 2, Format(0, 0, 2));
    selection.SelectionList = {{5, 0, 5, 0}};
    commands.ShowFontDlg();
    EXPECT_EQ(store.CellFormatMap.Find({5, 2})->DataType, 2);
}

TEST_F(MenuTest, TheAlignmentTakesEachKeysOwnFormatAsItsBasis) {
    host.alignment = AlignChoice{.horizontal = 3};
    store.StoreCellFormat(5, 2, Format(0x0201, 0, 1));
    store.StoreCellFormat(0, 2, Format(0, 0, 2));
    selection.SelectionList = {{5, 0, 5, 0}};
    commands.ShowAlignDlg();
    EXPECT_EQ(store.CellFormatMap.Find({5, 2})->DataType, 1);
    EXPECT_EQ(store.CellFormatMap.Find({5, 2})->Align, 0x0204);
}

TEST_F(MenuTest, WithoutASelectionTheAlignmentDialogIsPresetFromTheActiveCell) {
    store.StoreCellFormat(1, 1, Format(0x0204, 3, 0));
    SendCommand(1003);
    ASSERT_EQ(host.shownAlignments.size(), 1U);
    EXPECT_EQ(host.shownAlignments[0],
              (AlignChoice{.horizontal = 3, .vertical = 2, .wordBreak = 1, .readOnly = 1}));
}

TEST_F(MenuTest, TheResetFormatPresetsGeneralTopAndClearBoxes) {
    EXPECT_EQ(AlignChoiceOf({}),
              (AlignChoice{.horizontal = 0, .vertical = 0, .wordBreak = 0, .readOnly = 0}));
}

TEST_F(MenuTest, PresetsGoByTheBitsOfEachByte) {
    const auto shown = [](std::uint16_t align) {
        const AlignChoice choice = AlignChoiceOf(Format(align, 0, 0));
        return std::pair(choice.horizontal, choice.vertical);
    };
    EXPECT_EQ(shown(0x0001), std::pair(1, 0));
    EXPECT_EQ(shown(0x0002), std::pair(2, 0));
    EXPECT_EQ(shown(0x0004), std::pair(3, 0));
    EXPECT_EQ(shown(0x0100), std::pair(0, 1));
    EXPECT_EQ(shown(0x0200), std::pair(0, 2));
    EXPECT_EQ(shown(0x0007), std::pair(1, 0));
    EXPECT_EQ(shown(0x8080), std::pair(-1, -1));
}

TEST_F(MenuTest, WithASelectionNothingIsPreset) {
    store.StoreCellFormat(1, 1, Format(0x0204, 3, 0));
    selection.SelectionList = {{1, 1, 1, 1}};
    commands.ShowAlignDlg();
    ASSERT_EQ(host.shownAlignments.size(), 1U);
    EXPECT_EQ(host.shownAlignments[0],
              (AlignChoice{.horizontal = -1, .vertical = -1, .wordBreak = 2, .readOnly = 2}));
}

TEST_F(MenuTest, ACancelledAlignmentDialogChangesNothing) {
    EXPECT_THAT(CallsOf([&] { commands.ShowAlignDlg(); }), IsEmpty());
    EXPECT_EQ(store.CellFormatMap.Count(), 0U);
}

TEST_F(MenuTest,
       AlignmentOnASelectionWithAllLeftAsItIsRewritesEachKeyWithItsEffectiveFormatSoRecordsAppear) {
    const CCellFormat column = Format(0x0102, 1, 3);
    store.StoreCellFormat(0, 1, column);
    selection.SelectionList = {{2, 1, 3, 1}};
    host.alignment = AlignChoice{};
    EXPECT_THAT(CallsOf([&] { commands.ShowAlignDlg(); }), ElementsAre("InvalidateControl"));
    ASSERT_NE(store.CellFormatMap.Find({2, 1}), nullptr);
    ASSERT_NE(store.CellFormatMap.Find({3, 1}), nullptr);
    EXPECT_EQ(*store.CellFormatMap.Find({2, 1}), column);
    EXPECT_EQ(*store.CellFormatMap.Find({3, 1}), column);
}

TEST_F(MenuTest, EachIndexAndStateWritesItsValue) {
    const auto applied = [](AlignChoice choice) {
        CCellFormat format = Format(0x0808, 0, 0);
        ApplyAlignChoice(choice, format);
        return format;
    };
    EXPECT_EQ(applied({.horizontal = 0}).Align, 0x0800);
    EXPECT_EQ(applied({.horizontal = 1}).Align, 0x0801);
    EXPECT_EQ(applied({.horizontal = 2}).Align, 0x0802);
    EXPECT_EQ(applied({.horizontal = 3}).Align, 0x0804);
    EXPECT_EQ(applied({.vertical = 0}).Align, 0x0008);
    EXPECT_EQ(applied({.vertical = 1}).Align, 0x0108);
    EXPECT_EQ(applied({.vertical = 2}).Align, 0x0208);
    EXPECT_EQ(applied({.horizontal = 9, .vertical = -5}).Align, 0x0808);
    EXPECT_EQ(applied({.wordBreak = 1}).Flags, 1);
    EXPECT_EQ(applied({.readOnly = 1}).Flags, 2);
    CCellFormat both = Format(0, 3, 0);
    ApplyAlignChoice({.wordBreak = 0}, both);
    EXPECT_EQ(both.Flags, 2);
    ApplyAlignChoice({.readOnly = 0}, both);
    EXPECT_EQ(both.Flags, 0);
}

TEST_F(MenuTest, ReadingVAlignAfterTheDialogChoseTheBottomGives512) {
    host.alignment = AlignChoice{.vertical = 2};
    commands.ShowAlignDlg();
    EXPECT_EQ(store.EffectiveFormat(1, 1).GetVAlign(), 512);
}

}  // namespace

}  // namespace veygrid
