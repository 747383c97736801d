// The records of form objects, field by field.
#include "persist/FormObjectRecord.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>

#include "Support.h"

namespace veygrid {
namespace {

std::string Written(const GuiObjRecord& object) {
    MemorySink sink;
    ArchiveWriter archive(sink);
    WriteGuiObj(archive, object);
    archive.Close();
    return sink.Bytes;
}

GuiObjRecord Read(std::string_view bytes) {
    MemorySource source(bytes);
    ArchiveReader archive(source);
    GuiObjRecord object = ReadGuiObj(archive);
    EXPECT_EQ(archive.Left(), 0U);
    return object;
}

Bytes Head(std::uint16_t type) {
    return Bytes().U16(type).U32(1001).U32(1).I32(1).I32(2).I32(3).I32(4);
}

GuiObjRecord ObjectOf(std::uint16_t type) {
    GuiObjRecord object;
    object.m_nType = type;
    object.m_nCtrlID = 1001;
    object.m_rcPos = {1, 2, 3, 4};
    object.Window = MakeWindowRecord(type);
    return object;
}

std::string FontBytes() {
    const LogFont font = SampleFont();
    return {reinterpret_cast<const char*>(&font), sizeof font};
}

TEST(FormObjectRecord, ANewObjectHasType4CellPositionsAndAnEmptyRectangle) {
    const GuiObjRecord object;
    EXPECT_EQ(object.m_nType, 4);
    EXPECT_EQ(object.m_nCtrlID, 0U);
    EXPECT_EQ(object.m_bCellPos, 1);
    EXPECT_EQ(object.m_rcPos, StoredRect{});
}

TEST(FormObjectRecord, AResetWindowRecordHasTheStatedValues) {
    const auto label = std::get<LabelRecord>(MakeWindowRecord(2));
    EXPECT_EQ(label.m_nType, 2);
    EXPECT_EQ(label.TextColor, -1);
    const auto field = std::get<FieldRecord>(MakeWindowRecord(5));
    EXPECT_EQ(field.CanNull, 1);
    EXPECT_EQ(field.TextColor, -1);
    EXPECT_FALSE(field.LogFont);
    EXPECT_EQ(ButtonRecord().m_nType, 6);
    EXPECT_EQ(std::get<ButtonRecord>(MakeWindowRecord(8)).m_nType, 8);
}

TEST(FormObjectRecord, AnUnknownTypeIsTheFirst26BytesAlone) {
    for (const std::uint16_t type : std::initializer_list<std::uint16_t>{0, 9, 65535}) {
        const std::string bytes = Head(type);
        EXPECT_EQ(bytes.size(), LeastGuiObjBytes);
        EXPECT_EQ(Written(ObjectOf(type)), bytes);
        EXPECT_EQ(Read(bytes), ObjectOf(type));
    }
}

TEST(FormObjectRecord, ALabelOrGroupBoxHasNoImage) {
    for (const std::uint16_t type : std::initializer_list<std::uint16_t>{1, 2}) {
        GuiObjRecord object = ObjectOf(type);
        auto& label = std::get<LabelRecord>(object.Window);
        label.Name = "name";
        label.Caption = Gbk(u8"合计");
        label.Style = 0x50000000;
        label.StyleEx = 0x200;
        label.TextFlags = 0x0104;
        label.TextColor = 0xFF;
        const std::string bytes = Head(type)
                                      .U16(type)
                                      .Text("name")
                                      .Text("\xBA\xCF\xBC\xC6")
                                      .U32(0x50000000)
                                      .U32(0x200)
                                      .U16(0x0104)
                                      .U32(0xFF)
                                      .U8(0);
        EXPECT_EQ(Written(object), bytes);
        EXPECT_EQ(Read(bytes), object);
    }
}

TEST(FormObjectRecord, AnImageObjectCarriesItsFontAndItsImage) {
    GuiObjRecord object = ObjectOf(3);
    auto& label = std::get<LabelRecord>(object.Window);
    label.LogFont = SampleFont();
    label.HDib = "pixels";
    const Bytes start = Head(3).U16(3).Text("").Text("").U32(0).U32(0).U16(0).I32(-1);
    const std::string bytes = Bytes(start).U8(1).Raw(FontBytes()).I32(6).Raw("pixels");
    EXPECT_EQ(Written(object), bytes);
    EXPECT_EQ(Read(bytes), object);
    label.HDib.clear();
    label.LogFont.reset();
    EXPECT_EQ(Written(object), std::string(Bytes(start).U8(0).I32(0)));
}

TEST(FormObjectRecord, AnyNonZeroByteMeansThatAFontFollowsAndOneIsWritten) {
    const Bytes start = Head(1).U16(1).Text("").Text("").U32(0).U32(0).U16(0).I32(-1);
    const GuiObjRecord object = Read(Bytes(start).U8(0x80).Raw(FontBytes()).Take());
    EXPECT_EQ(std::get<LabelRecord>(object.Window).LogFont, SampleFont());
    EXPECT_EQ(Written(object), std::string(Bytes(start).U8(1).Raw(FontBytes())));
}

TEST(FormObjectRecord, TheTypeInsideTheLabelRecordDecidesWhetherAnImageFollows) {
    const std::string bytes =
        Head(1).U16(3).Text("").Text("").U32(0).U32(0).U16(0).I32(-1).U8(0).I32(2).Raw("ab");
    const GuiObjRecord object = Read(bytes);
    EXPECT_EQ(std::get<LabelRecord>(object.Window).HDib, "ab");
    EXPECT_EQ(Written(object), bytes);
}

FieldRecord SampleField() {
    FieldRecord field;
    field.Name = "n";
    field.SeqNo = 5;
    field.DataType = 3;
    field.Style = 0x10000000;
    field.StyleEx = 0x20000;
    field.BindSource = "R1C2";
    field.ShowFormat = "#,##0";
    field.Label = Gbk(u8"日期");
    field.LableLocate = 1;
    field.LabelWidth = 60;
    field.LabelGap = 4;
    field.LabelAutoWidth = 1;
    field.DataClass = "class";
    field.Data = "data";
    field.CanNull = 0;
    field.ComboFlags = 6;
    field.TextColor = 0x010203;
    field.LogFont = SampleFont();
    field.Reserved = "reserved";
    return field;
}

Bytes SampleFieldBytes(std::uint16_t type) {
    return Head(type)
        .Text("n")
        .I32(5)
        .U16(3)
        .U32(0x10000000)
        .U32(0x20000)
        .Text("R1C2")
        .Text("#,##0")
        .Text("\xC8\xD5\xC6\xDA")
        .I32(1)
        .I32(60)
        .I32(4)
        .U8(1)
        .Text("class")
        .Text("data")
        .U8(0)
        .U8(6)
        .U32(0x010203)
        .U8(1)
        .Raw(FontBytes())
        .Text("reserved");
}

TEST(FormObjectRecord, AnEditBoxDoesNotRepeatItsType) {
    GuiObjRecord object = ObjectOf(4);
    object.Window = SampleField();
    EXPECT_EQ(Written(object), std::string(SampleFieldBytes(4)));
    EXPECT_EQ(Read(SampleFieldBytes(4).Take()), object);
}

TEST(FormObjectRecord, AComboBoxAddsItemDataKindAndThenFillKind) {
    GuiObjRecord object = ObjectOf(5);
    FieldRecord field = SampleField();
    field.ItemDataKind = 2;
    field.FillKind = 4;
    object.Window = field;
    const std::string bytes = SampleFieldBytes(5).U16(2).U16(4);
    EXPECT_EQ(Written(object), bytes);
    EXPECT_EQ(Read(bytes), object);
}

Bytes ButtonStart(std::uint16_t type) {
    return Head(type)
        .U16(type)
        .Text("b")
        .Text("\xC8\xB7\xB6\xA8")
        .U32(3)
        .U32(1)
        .I32(-1)
        .Text("R2C2")
        .Text("\xC4\xD0")
        .I32(9)
        .U16(1)
        .U8(7)
        .U32(33001);
}

TEST(FormObjectRecord, TheThreeButtonTypesShareOneRecordThatEndsInAnImageLength) {
    for (const std::uint16_t type : std::initializer_list<std::uint16_t>{6, 7, 8}) {
        GuiObjRecord object = ObjectOf(type);
        auto& button = std::get<ButtonRecord>(object.Window);
        button.Name = "b";
        button.Caption = Gbk(u8"确定");
        button.Style = 3;
        button.StyleEx = 1;
        button.BindText = "R2C2";
        button.DataText = Gbk(u8"男");
        button.SeqNo = 9;
        button.DataType = 1;
        button.Action = 7;
        button.CommandID = 33001;
        EXPECT_EQ(Written(object), std::string(ButtonStart(type).U8(0).I32(0)));
        button.LogFont = SampleFont();
        button.HDib = "icon";
        const std::string bytes = ButtonStart(type).U8(1).Raw(FontBytes()).I32(4).Raw("icon");
        EXPECT_EQ(Written(object), bytes);
        EXPECT_EQ(Read(bytes), object);
    }
}

TEST(FormObjectRecord, ANegativeImageLengthMeansNoneAndIsWrittenAsZero) {
    for (const std::int32_t length : {-1, std::numeric_limits<std::int32_t>::min()}) {
        const GuiObjRecord object = Read(ButtonStart(6).U8(0).I32(length).Take());
        EXPECT_EQ(std::get<ButtonRecord>(object.Window).HDib, "");
        EXPECT_EQ(Written(object), std::string(ButtonStart(6).U8(0).I32(0)));
    }
}

TEST(FormObjectRecord, AHostileImageLengthIsRefusedWithItsPosition) {
    const std::string bytes = ButtonStart(6).U8(0).I32(0x7FFFFFFF).Raw("abc");
    MemorySource source(bytes);
    ArchiveReader archive(source);
    archive.EnterSection("form objects");
    try {
        ReadGuiObj(archive);
        FAIL();
    } catch (const ArchiveError& error) {
        EXPECT_EQ(error.Position(), bytes.size() - 3);
        EXPECT_EQ(std::string(error.what()), "form objects: image of 2147483647 bytes at byte " +
                                                 std::to_string(bytes.size() - 3) +
                                                 " is longer than the 3 left");
    }
}

TEST(FormObjectRecord, AWindowRecordOfAnotherFamilyIsWrittenAsAResetOne) {
    GuiObjRecord object = ObjectOf(6);
    object.Window = SampleField();
    EXPECT_EQ(Written(object), Written(ObjectOf(6)));
    object.m_nType = 9;
    EXPECT_EQ(Written(object), Written(ObjectOf(9)));
}

}  // namespace
}  // namespace veygrid
