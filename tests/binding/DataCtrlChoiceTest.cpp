// What the data dialog shows of a record and makes of it.
#include "binding/DataCtrlChoice.h"

#include <gtest/gtest.h>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

CCellFormat Record() {
    CCellFormat format;
    format.DataType = 2;
    format.ShowFormat = CodePage936FromUtf8("YYYY年MM月DD日");
    format.Validity = "\x81\x7C\x95\x7E|\x8B\x5C%\t";
    format.Align = 0x0204;
    format.Flags = 3;
    return format;
}

TEST(DataCtrlChoice, EveryOfferedDataTypeShowsAtItsIndexAndAnyOtherAsNone) {
    CCellFormat format;
    for (int type = 0; type <= 255; ++type) {
        format.DataType = static_cast<std::uint8_t>(type);
        EXPECT_EQ(DataCtrlChoiceOf(format).dataType, type <= 4 ? type : -1);
    }
}

TEST(DataCtrlChoice, ThePresetTextsAreThoseOfTheRecordAndCountAsUntouched) {
    const DataCtrlChoice choice = DataCtrlChoiceOf(Record());
    EXPECT_EQ(choice.showFormat, Record().ShowFormat);
    EXPECT_EQ(choice.validity, Record().Validity);
    EXPECT_FALSE(choice.showFormatChanged);
    EXPECT_FALSE(choice.validityChanged);
}

TEST(DataCtrlChoice, APresetThatIsConfirmedLeavesTheRecordAsItIs) {
    CCellFormat format = Record();
    ApplyDataCtrlChoice(DataCtrlChoiceOf(format), format);
    EXPECT_EQ(format, Record());
}

TEST(DataCtrlChoice, AConfirmedMinusOneStoresTheByte255) {
    CCellFormat format = Record();
    ApplyDataCtrlChoice({}, format);
    EXPECT_EQ(format.DataType, 255);
    format.DataType = 2;
    EXPECT_EQ(format, Record());
}

TEST(DataCtrlChoice, EachTextGoesIntoTheRecordOnlyWhenItsOwnFlagIsSet) {
    CCellFormat format = Record();
    DataCtrlChoice choice{.dataType = 2, .showFormat = "0", .validity = ">0"};
    ApplyDataCtrlChoice(choice, format);
    EXPECT_EQ(format, Record());
    choice.showFormatChanged = true;
    ApplyDataCtrlChoice(choice, format);
    EXPECT_EQ(format.ShowFormat, "0");
    EXPECT_EQ(format.Validity, Record().Validity);
    choice.validityChanged = true;
    ApplyDataCtrlChoice(choice, format);
    EXPECT_EQ(format.Validity, ">0");
}

TEST(DataCtrlChoice, ATouchedTextThatIsEmptyEmptiesTheRecords) {
    CCellFormat format = Record();
    ApplyDataCtrlChoice({.showFormatChanged = true, .validityChanged = true}, format);
    EXPECT_EQ(format.ShowFormat, "");
    EXPECT_EQ(format.Validity, "");
}

}  // namespace

}  // namespace veygrid
