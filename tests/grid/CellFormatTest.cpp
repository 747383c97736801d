// The format record, its properties, and the records of the sheet.
#include "grid/CellFormat.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "SheetRecorder.h"
#include "grid/GridStore.h"

namespace veygrid {
namespace {

using testing::ElementsAre;

class CellFormatTest : public SheetTest {};

CCellFormat WithForeground(std::int32_t color) {
    CCellFormat format;
    format.Foreground = color;
    return format;
}

TEST_F(CellFormatTest, AnUntouchedSheetGivesTheResetState) {
    const CCellFormat format = store.EffectiveFormat(3, 3);
    EXPECT_EQ(format, CCellFormat{});
    EXPECT_EQ(format.Align, 0);
    EXPECT_EQ(format.Flags, 0);
    EXPECT_EQ(format.DataType, 0);
    EXPECT_THAT(format.Extra, ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(format.ShowFormat, "");
    EXPECT_EQ(format.Validity, "");
    EXPECT_EQ(format.Font, LogFont{.lfWeight = -1});
    EXPECT_FALSE(format.NamesFont());
    EXPECT_EQ(format.Foreground, -1);
}

TEST_F(CellFormatTest, TheBackgroundOfTheResetRecordReadsMinusOne) {
    EXPECT_EQ(CCellFormat{}.Background, -1);
}

TEST_F(CellFormatTest, TheColumnsFormatBeatsTheRows) {
    const CCellFormat row = WithForeground(1);
    const CCellFormat col = WithForeground(2);
    store.SetCellFormat(3, 0, &row);
    store.SetCellFormat(0, 4, &col);
    EXPECT_EQ(store.EffectiveFormat(3, 4).Foreground, 2);
    EXPECT_EQ(store.EffectiveFormat(3, 5).Foreground, 1);
}

TEST_F(CellFormatTest, TheSheetComesBehindTheRowAndInFrontOfTheDefault) {
    store.DefCellFormat.Foreground = 9;
    EXPECT_EQ(store.EffectiveFormat(1, 1).Foreground, 9);
    const CCellFormat sheet = WithForeground(1);
    const CCellFormat row = WithForeground(2);
    const CCellFormat cell = WithForeground(3);
    store.SetCellFormat(0, 0, &sheet);
    EXPECT_EQ(store.EffectiveFormat(1, 1).Foreground, 1);
    store.SetCellFormat(1, 0, &row);
    EXPECT_EQ(store.EffectiveFormat(1, 1).Foreground, 2);
    EXPECT_EQ(store.EffectiveFormat(0, 1).Foreground, 1);
    store.SetCellFormat(1, 1, &cell);
    EXPECT_EQ(store.EffectiveFormat(1, 1).Foreground, 3);
    EXPECT_EQ(&store.EffectiveFormatRef(1, 1), store.CellFormatMap.Find({1, 1}));
}

TEST_F(CellFormatTest, ChangingTheCopyLeavesTheSheetUnchanged) {
    CCellFormat format = store.EffectiveFormat(1, 1);
    format.Foreground = 5;
    format.ShowFormat = "x";
    EXPECT_EQ(store.EffectiveFormat(1, 1), CCellFormat{});
    EXPECT_TRUE(store.CellFormatMap.IsEmpty());
}

TEST_F(CellFormatTest, SettingAFormatCopiesEveryFieldAndOnlyNotifies) {
    CCellFormat format;
    format.Align = 0x0204;
    format.Flags = 3;
    format.DataType = 200;
    format.Extra = {1, 2, 3, 4};
    format.ShowFormat = "YYYY";
    format.Validity = "x>0";
    format.Font.lfFaceName = {'A'};
    format.Font.lfWeight = 700;
    format.Foreground = 1;
    format.Background = 2;
    EXPECT_THAT(CallsOf([&] { store.SetCellFormat(60, 30, &format); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.EffectiveFormat(60, 30), format);
    EXPECT_EQ(store.Properties.LastRow, 60);
    EXPECT_EQ(store.Properties.LastCol, 30);
    format.ShowFormat = "later";
    EXPECT_EQ(store.EffectiveFormat(60, 30).ShowFormat, "YYYY");
}

TEST_F(CellFormatTest, AForeignObjectAsFormatOnlyNotifies) {
    const auto expected = ElementsAre("SetModifiedFlag TRUE", "Modified");
    EXPECT_THAT(CallsOf([&] { store.SetCellFormat(1, 1, nullptr); }), expected);
    EXPECT_THAT(CallsOf([&] { store.SetDefCellFormat(nullptr); }), expected);
    EXPECT_TRUE(store.CellFormatMap.IsEmpty());
    EXPECT_EQ(store.Properties.LastRow, 0);
    EXPECT_EQ(store.DefCellFormat, CCellFormat{});
}

TEST_F(CellFormatTest, SettingTheDefaultFormatCopiesItAndOnlyNotifies) {
    const CCellFormat format = WithForeground(5);
    EXPECT_THAT(CallsOf([&] { store.SetDefCellFormat(&format); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.EffectiveFormat(8, 8), format);
}

TEST_F(CellFormatTest, StoringAFormatNeitherRepaintsNorNotifies) {
    EXPECT_TRUE(CallsOf([&] { store.StoreCellFormat(7, 8, CCellFormat{}); }).empty());
    EXPECT_EQ(store.Properties.LastRow, 7);
    EXPECT_EQ(store.Properties.LastCol, 8);
}

TEST_F(CellFormatTest, AnEffectiveFormatCanBeStoredElsewhere) {
    store.StoreCellFormat(1, 1, WithForeground(5));
    for (std::int32_t row = 2; row < 1000; ++row) {
        store.StoreCellFormat(row, 1, store.EffectiveFormatRef(row - 1, 1));
    }
    EXPECT_EQ(store.EffectiveFormat(999, 1).Foreground, 5);
}

TEST_F(CellFormatTest, ShowFormatSetOnACellOfAFormattedRowFollowsTheRowNoLonger) {
    CCellFormat row = WithForeground(1);
    store.SetCellFormat(2, 0, &row);
    EXPECT_THAT(CallsOf([&] { store.SetCellShowFormat(2, 3, "[RMB_UPPER]"); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_EQ(store.EffectiveFormat(2, 3).Foreground, 1);
    row.Foreground = 9;
    store.SetCellFormat(2, 0, &row);
    EXPECT_EQ(store.EffectiveFormat(2, 3).Foreground, 1);
    EXPECT_EQ(store.CellShowFormat(2, 3), "[RMB_UPPER]");
    EXPECT_EQ(store.CellShowFormat(2, 4), "");
    EXPECT_EQ(store.Properties.LastCol, 3);
}

TEST_F(CellFormatTest, VAlignSpeaksRawValues) {
    CCellFormat format;
    format.SetVAlign(static_cast<std::int16_t>(VerticalAlign::Bottom));
    EXPECT_EQ(format.GetVAlign(), 512);
    EXPECT_EQ(format.GetHAlign(), 0);
}

TEST_F(CellFormatTest, WritingAnAlignmentLeavesTheOtherByteUntouched) {
    CCellFormat format;
    format.SetHAlign(4);
    format.SetVAlign(256);
    format.SetVAlign(512);
    EXPECT_EQ(format.GetVAlign(), 512);
    EXPECT_EQ(format.GetHAlign(), 4);
    format.SetHAlign(1);
    EXPECT_EQ(format.GetHAlign(), 1);
    EXPECT_EQ(format.GetVAlign(), 512);
}

TEST_F(CellFormatTest, AnHAlignAbove255RunsIntoTheVerticalByte) {
    CCellFormat format;
    format.SetVAlign(512);
    format.SetHAlign(0x0104);
    EXPECT_EQ(format.Align, 0x0304);
}

TEST_F(CellFormatTest, AVAlignInTheLowByteIsOrredOverTheKeptOne) {
    CCellFormat format;
    format.SetHAlign(4);
    format.SetVAlign(2);
    EXPECT_EQ(format.Align, 0x0006);
}

TEST_F(CellFormatTest, ReadOnlyIsOneBitOfTheFlags) {
    CCellFormat format;
    format.Flags = CCellFormat::WordWrapFlag;
    format.SetReadOnly(true);
    EXPECT_EQ(format.Flags, 3);
    EXPECT_TRUE(format.GetReadOnly());
    format.SetReadOnly(false);
    EXPECT_EQ(format.Flags, 1);
    EXPECT_FALSE(format.GetReadOnly());
}

TEST_F(CellFormatTest, DataTypeTakesTheLowByte) {
    CCellFormat format;
    format.SetDataType(9);
    EXPECT_EQ(format.GetDataType(), 9);
    format.SetDataType(-1);
    EXPECT_EQ(format.GetDataType(), 255);
}

TEST_F(CellFormatTest, TheFontTravelsAsSixtyBytes) {
    CCellFormat format;
    format.Font.lfHeight = -13;
    format.Font.lfCharSet = 134;
    std::memcpy(format.Font.lfFaceName.data(), "SimSun", 6);
    const FontBytes bytes = format.GetFontBytes();
    ASSERT_EQ(bytes.size(), 60U);
    EXPECT_EQ(bytes[0], 0xF3);
    EXPECT_EQ(bytes[16], 0xFF);
    EXPECT_EQ(bytes[23], 134);
    EXPECT_EQ(bytes[28], 'S');
    CCellFormat other;
    other.SetFontBytes(bytes);
    EXPECT_EQ(other.Font, format.Font);
}

TEST_F(CellFormatTest, AFontArrayOfAnotherLengthIsTakenAsFarAsItGoes) {
    CCellFormat format;
    format.SetFontBytes(std::vector<std::uint8_t>(4, 1));
    EXPECT_EQ(format.Font.lfHeight, 0x01010101);
    EXPECT_EQ(format.Font.lfWeight, -1);
    format.SetFontBytes(std::vector<std::uint8_t>(100, 2));
    EXPECT_EQ(format.Font.lfWeight, 0x02020202);
    EXPECT_EQ(format.Font.lfFaceName.back(), 2);
}

}  // namespace
}  // namespace veygrid
