// What a grid file holds of one form object: its own record and that of its window.
#include "persist/FormObjectRecord.h"

#include <limits>

namespace veygrid {

namespace {

constexpr std::uint16_t TypeCode(FormObjectType type) {
    return static_cast<std::uint16_t>(type);
}

bool IsLabelFamily(std::uint16_t type) {
    return type >= TypeCode(FormObjectType::Label) && type <= TypeCode(FormObjectType::Image);
}
bool IsFieldFamily(std::uint16_t type) {
    return type == TypeCode(FormObjectType::EditBox) || type == TypeCode(FormObjectType::ComboBox);
}
bool IsButtonFamily(std::uint16_t type) {
    return type >= TypeCode(FormObjectType::PushButton) &&
           type <= TypeCode(FormObjectType::RadioButton);
}

// Each record has one routine that names its fields in file order; these two stand for the
// direction.
class Writing {
  public:
    explicit Writing(ArchiveWriter& archive) : m_archive(archive) {}

    void operator()(std::uint8_t value) { m_archive.WriteU8(value); }
    void operator()(std::uint16_t value) { m_archive.WriteU16(value); }
    void operator()(std::int16_t value) { m_archive.WriteI16(value); }
    void operator()(std::uint32_t value) { m_archive.WriteU32(value); }
    void operator()(std::int32_t value) { m_archive.WriteI32(value); }
    void operator()(const StoredRect& rect) { m_archive.WriteRect(rect); }
    void operator()(const std::string& text) { m_archive.WriteString(text); }
    void operator()(const std::optional<LogFont>& font) {
        m_archive.WriteBool8(font.has_value());
        if (font) {
            m_archive.WriteLogFont(*font);
        }
    }
    void Image(const std::string& image) {
        if (image.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
            throw ArchiveError("image of " + std::to_string(image.size()) + " bytes at byte " +
                                   std::to_string(m_archive.Position()) +
                                   " is longer than a record holds",
                               m_archive.Position());
        }
        m_archive.WriteI32(static_cast<std::int32_t>(image.size()));
        m_archive.WriteBytes(image);
    }

  private:
    ArchiveWriter& m_archive;
};

class Reading {
  public:
    explicit Reading(ArchiveReader& archive) : m_archive(archive) {}

    void operator()(std::uint8_t& value) { value = m_archive.ReadU8(); }
    void operator()(std::uint16_t& value) { value = m_archive.ReadU16(); }
    void operator()(std::int16_t& value) { value = m_archive.ReadI16(); }
    void operator()(std::uint32_t& value) { value = m_archive.ReadU32(); }
    void operator()(std::int32_t& value) { value = m_archive.ReadI32(); }
    void operator()(StoredRect& rect) { rect = m_archive.ReadRect(); }
    void operator()(std::string& text) { text = m_archive.ReadString(); }
    void operator()(std::optional<LogFont>& font) {
        font.reset();
        if (m_archive.ReadBool8()) {
            font = m_archive.ReadLogFont();
        }
    }
    // The length is signed, and one below 0 means no image.
    void Image(std::string& image) {
        const std::int32_t length = m_archive.ReadI32();
        image = length > 0 ? m_archive.ReadBlock(static_cast<std::uint64_t>(length), "image")
                           : std::string();
    }

  private:
    ArchiveReader& m_archive;
};

template <class Direction, class Record>
void ExchangeLabel(Direction field, Record& label) {
    field(label.m_nType);
    field(label.Name);
    field(label.Caption);
    field(label.Style);
    field(label.StyleEx);
    field(label.TextFlags);
    field(label.TextColor);
    field(label.LogFont);
    if (label.m_nType == TypeCode(FormObjectType::Image)) {
        field.Image(label.HDib);
    }
}

template <class Direction, class Record>
void ExchangeField(Direction field, Record& block, bool combo) {
    field(block.Name);
    field(block.SeqNo);
    field(block.DataType);
    field(block.Style);
    field(block.StyleEx);
    field(block.BindSource);
    field(block.ShowFormat);
    field(block.Label);
    field(block.LableLocate);
    field(block.LabelWidth);
    field(block.LabelGap);
    field(block.LabelAutoWidth);
    field(block.DataClass);
    field(block.Data);
    field(block.CanNull);
    field(block.ComboFlags);
    field(block.TextColor);
    field(block.LogFont);
    field(block.Reserved);
    if (combo) {
        field(block.ItemDataKind);
        field(block.FillKind);
    }
}

template <class Direction, class Record>
void ExchangeButton(Direction field, Record& button) {
    field(button.m_nType);
    field(button.Name);
    field(button.Caption);
    field(button.Style);
    field(button.StyleEx);
    field(button.TextColor);
    field(button.BindText);
    field(button.DataText);
    field(button.SeqNo);
    field(button.DataType);
    field(button.Action);
    field(button.CommandID);
    field(button.LogFont);
    field.Image(button.HDib);
}

template <class Direction, class Record>
void ExchangeObject(Direction field, Record& object) {
    field(object.m_nType);
    field(object.m_nCtrlID);
    field(object.m_bCellPos);
    field(object.m_rcPos);
}

// `window` is a WindowRecord, constant when it is written.
template <class Direction, class Window>
void ExchangeWindow(Direction field, std::uint16_t type, Window& window) {
    if (auto* label = std::get_if<LabelRecord>(&window)) {
        ExchangeLabel(field, *label);
    } else if (auto* block = std::get_if<FieldRecord>(&window)) {
        ExchangeField(field, *block, type == TypeCode(FormObjectType::ComboBox));
    } else if (auto* button = std::get_if<ButtonRecord>(&window)) {
        ExchangeButton(field, *button);
    }
}

template <class Record>
Record OfType(std::uint16_t type) {
    Record record;
    record.m_nType = type;
    return record;
}

}  // namespace

WindowRecord MakeWindowRecord(std::uint16_t type) {
    if (IsLabelFamily(type)) {
        return OfType<LabelRecord>(type);
    }
    if (IsFieldFamily(type)) {
        return FieldRecord{};
    }
    if (IsButtonFamily(type)) {
        return OfType<ButtonRecord>(type);
    }
    return std::monostate{};
}

void WriteGuiObj(ArchiveWriter& archive, const GuiObjRecord& object) {
    const Writing field(archive);
    ExchangeObject(field, object);
    const WindowRecord reset = MakeWindowRecord(object.m_nType);
    const bool fits = object.Window.index() == reset.index();
    ExchangeWindow(field, object.m_nType, fits ? object.Window : reset);
}

GuiObjRecord ReadGuiObj(ArchiveReader& archive) {
    const Reading field(archive);
    GuiObjRecord object;
    ExchangeObject(field, object);
    object.Window = MakeWindowRecord(object.m_nType);
    ExchangeWindow(field, object.m_nType, object.Window);
    return object;
}

}  // namespace veygrid
