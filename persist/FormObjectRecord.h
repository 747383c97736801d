// What a grid file holds of one form object: its own record and that of its window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "grid/CellFormat.h"
#include "grid/LogFont.h"
#include "persist/Archive.h"
#include "persist/StoredRect.h"

namespace veygrid {

// Type codes of form objects. Any other number is legal in a record and has no window.
enum class FormObjectType : std::uint16_t {
    Label = 1,
    GroupBox = 2,
    Image = 3,
    EditBox = 4,
    ComboBox = 5,
    PushButton = 6,
    CheckBox = 7,
    RadioButton = 8,
};

// All texts are in code page 936. Colours are 0x00BBGGRR or NoColor. Images are bitmap files less
// their 14-byte file header. Bytes that mean a yes or no keep their value.

// Window of a label, group box or image.
struct LabelRecord {
    // The window's own copy of the object's type; this one decides whether an image follows.
    std::uint16_t m_nType = 0;
    std::string Name;
    std::string Caption;
    std::uint32_t Style = 0;
    std::uint32_t StyleEx = 0;
    std::uint16_t TextFlags = 0;
    std::int32_t TextColor = NoColor;
    std::optional<veygrid::LogFont> LogFont;
    std::string HDib;

    friend bool operator==(const LabelRecord&, const LabelRecord&) = default;
};

// Window of an edit box or combo box.
struct FieldRecord {
    std::string Name;
    std::int32_t SeqNo = 0;
    std::int16_t DataType = 0;
    std::uint32_t Style = 0;
    std::uint32_t StyleEx = 0;
    std::string BindSource;
    std::string ShowFormat;
    std::string Label;
    std::int32_t LableLocate = 0;
    std::int32_t LabelWidth = 0;  // pixels
    std::int32_t LabelGap = 0;    // pixels
    std::uint8_t LabelAutoWidth = 0;
    std::string DataClass;
    std::string Data;
    std::uint8_t CanNull = 1;
    std::uint8_t ComboFlags = 0;
    std::int32_t TextColor = NoColor;
    std::optional<veygrid::LogFont> LogFont;
    std::string Reserved;
    // Combo boxes only.
    std::int16_t ItemDataKind = 0;
    std::int16_t FillKind = 0;

    friend bool operator==(const FieldRecord&, const FieldRecord&) = default;
};

// Window of a push button, check box or radio button.
struct ButtonRecord {
    std::uint16_t m_nType = static_cast<std::uint16_t>(FormObjectType::PushButton);
    std::string Name;
    std::string Caption;
    std::uint32_t Style = 0;
    std::uint32_t StyleEx = 0;
    std::int32_t TextColor = NoColor;
    std::string BindText;
    std::string DataText;
    std::int32_t SeqNo = 0;
    std::int16_t DataType = 0;
    std::uint8_t Action = 0;
    std::uint32_t CommandID = 0;
    std::optional<veygrid::LogFont> LogFont;
    std::string HDib;

    friend bool operator==(const ButtonRecord&, const ButtonRecord&) = default;
};

using WindowRecord = std::variant<std::monostate, LabelRecord, FieldRecord, ButtonRecord>;

// A fresh record is as the object's runtime class makes it: an edit box placed by cells.
struct GuiObjRecord {
    std::uint16_t m_nType = static_cast<std::uint16_t>(FormObjectType::EditBox);
    std::uint32_t m_nCtrlID = 0;
    // 0: `m_rcPos` is in pixels of the client area; anything else: in cells, with columns as left
    // and right and rows as top and bottom.
    std::int32_t m_bCellPos = 1;
    StoredRect m_rcPos;
    // Holds the record of the type's family, and nothing for a type outside 1 to 8.
    WindowRecord Window;

    friend bool operator==(const GuiObjRecord&, const GuiObjRecord&) = default;
};

// Bytes of a record without a window.
inline constexpr std::size_t LeastGuiObjBytes = 26;

// A reset record of the type's family, empty for a type outside 1 to 8.
WindowRecord MakeWindowRecord(std::uint16_t type);

// Writes the window record that belongs to the type; where the object holds another one or none,
// a reset record stands in, so that the stream stays readable.
void WriteGuiObj(ArchiveWriter& archive, const GuiObjRecord& object);
GuiObjRecord ReadGuiObj(ArchiveReader& archive);

}  // namespace veygrid
