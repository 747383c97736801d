// The persisted properties in one table, and the one routine that loads, saves and resets them.
#include "persist/PropertyExchange.h"

#include <array>

namespace veygrid {

namespace {

constexpr std::array<PropertyEntry, 41> Table{{
    {"ShowRowHeaders", &GridProperties::ShowRowHeaders},
    {"ShowColHeaders", &GridProperties::ShowColHeaders},
    {"ShowDefRowHeader", &GridProperties::ShowDefRowHeader},
    {"ShowDefColHeader", &GridProperties::ShowDefColHeader},
    {"ShowHGridLines", &GridProperties::ShowHGridLines},
    {"ShowVGridLines", &GridProperties::ShowVGridLines},
    {"ShowHScrollBar", &GridProperties::ShowHScrollBar},
    {"ShowVScrollBar", &GridProperties::ShowVScrollBar},
    {"ShowZeroValues", &GridProperties::ShowZeroValues},
    {"AllowResize", &GridProperties::AllowResize},
    {"AllowEdit", &GridProperties::AllowEdit},
    {"AllowEditHeader", &GridProperties::AllowEditHeader},
    {"AllowSelections", &GridProperties::AllowSelections},
    {"AllowPopMenu", &GridProperties::AllowPopMenu},
    {"AlwaysOnEdit", &GridProperties::AlwaysOnEdit},
    {"EnterGoDown", &GridProperties::EnterGoDown},
    {"SingleRowSelection", &GridProperties::SingleRowSelection},
    {"RowMode", &GridProperties::RowMode},
    {"GuiMode", &GridProperties::GuiMode},
    {"AutoMaxRC", &GridProperties::AutoMaxRC},
    {"MaxRow", &GridProperties::MaxRow},
    {"MaxCol", &GridProperties::MaxCol},
    {"FixedRow", &GridProperties::FixedRow},
    {"FixedRows", &GridProperties::FixedRows},
    {"FixedCol", &GridProperties::FixedCol},
    {"FixedCols", &GridProperties::FixedCols},
    {"DefCellWidth", &GridProperties::DefCellWidth},
    {"DefCellHeight", &GridProperties::DefCellHeight},
    {"RowHeaderWidth", &GridProperties::RowHeaderWidth},
    {"ColHeaderHeight", &GridProperties::ColHeaderHeight},
    {"LastRow", &GridProperties::LastRow},
    {"LastCol", &GridProperties::LastCol},
    {"ModifiedLog", &GridProperties::ModifiedLog},
    {"GridLinesColor", &GridProperties::GridLinesColor},
    {"DataSource", &GridProperties::DataSource},
    {"BkImage", &GridProperties::BkImage},
    // A stock colour of the platform, exchanged here with the control's own default.
    {"BackColor", &GridProperties::BackColor},
    {"AllowMoveRow", &GridProperties::AllowMoveRow},
    {"AllowMoveCol", &GridProperties::AllowMoveCol},
    {"AllowMoveCell", &GridProperties::AllowMoveCell},
    {"FormObjectNotifyToParent", &GridProperties::FormObjectNotifyToParent},
}};

const GridProperties& DefaultProperties() {
    static const GridProperties properties;
    return properties;
}

void ExchangeStock(PropertyExchanger& exchanger, StockProperties& stock) {
    const StockProperties defaults;
    exchanger.Long("_ExtentX", stock.ExtentWidth, stock.ExtentWidth);
    exchanger.Long("_ExtentY", stock.ExtentHeight, stock.ExtentHeight);
    exchanger.Short("BorderStyle", stock.BorderStyle, defaults.BorderStyle);
    exchanger.Bool("Enabled", stock.Enabled, defaults.Enabled);
    exchanger.Color("ForeColor", stock.ForeColor, defaults.ForeColor);
    exchanger.Font("Font", stock.Font);
}

void ExchangeEntry(PropertyExchanger& exchanger, const PropertyEntry& entry,
                   GridProperties& properties) {
    const GridProperties& defaults = DefaultProperties();
    const auto exchange = [&](auto operation, auto member) {
        (exchanger.*operation)(entry.Name, properties.*member, defaults.*member);
    };
    switch (entry.Kind()) {
        case PropertyKind::Bool:
            return exchange(&PropertyExchanger::Bool, std::get<0>(entry.Member));
        case PropertyKind::Short:
            return exchange(&PropertyExchanger::Short, std::get<1>(entry.Member));
        case PropertyKind::Long:
            return exchange(&PropertyExchanger::Long, std::get<2>(entry.Member));
        case PropertyKind::Color:
            return exchange(&PropertyExchanger::Color, std::get<3>(entry.Member));
        case PropertyKind::String:
            return exchange(&PropertyExchanger::String, std::get<4>(entry.Member));
    }
}

class StreamSaver final : public PropertyExchanger {
  public:
    explicit StreamSaver(ArchiveWriter& archive) : m_archive(archive) {}

    void Version(std::uint32_t current) override { m_archive.WriteU32(current); }
    void Bool(std::string_view, bool& value, bool) override { m_archive.WriteBool8(value); }
    void Short(std::string_view, std::int16_t& value, std::int16_t) override {
        m_archive.WriteI16(value);
    }
    void Long(std::string_view, std::int32_t& value, std::int32_t) override {
        m_archive.WriteI32(value);
    }
    void Color(std::string_view, std::uint32_t& value, std::uint32_t) override {
        m_archive.WriteU32(value);
    }
    void String(std::string_view, std::string& value, const std::string&) override {
        m_archive.WriteString(value);
    }
    void Font(std::string_view, LogFont& value) override {
        const bool named = value.lfWeight != NoFontWeight;
        m_archive.WriteBool8(named);
        if (named) {
            m_archive.WriteLogFont(value);
        }
    }

  private:
    ArchiveWriter& m_archive;
};

class StreamLoader final : public PropertyExchanger {
  public:
    explicit StreamLoader(ArchiveReader& archive) : m_archive(archive) {}

    void Version(std::uint32_t) override { Enter(PersistVersionName).ReadU32(); }
    void Bool(std::string_view name, bool& value, bool) override {
        value = Enter(name).ReadBool8();
    }
    void Short(std::string_view name, std::int16_t& value, std::int16_t) override {
        value = Enter(name).ReadI16();
    }
    void Long(std::string_view name, std::int32_t& value, std::int32_t) override {
        value = Enter(name).ReadI32();
    }
    void Color(std::string_view name, std::uint32_t& value, std::uint32_t) override {
        value = Enter(name).ReadU32();
    }
    void String(std::string_view name, std::string& value, const std::string&) override {
        value = Enter(name).ReadString();
    }
    void Font(std::string_view name, LogFont& value) override {
        value = Enter(name).ReadBool8() ? m_archive.ReadLogFont() : AmbientFont;
        // A record that names no font says nothing in its other bytes; kept, they would be lost by
        // the next save.
        if (value.lfWeight == NoFontWeight) {
            value = AmbientFont;
        }
    }

  private:
    // Errors name the property.
    ArchiveReader& Enter(std::string_view name) {
        m_archive.EnterSection(name);
        return m_archive;
    }

    ArchiveReader& m_archive;
};

class Resetter final : public PropertyExchanger {
  public:
    void Version(std::uint32_t) override {}
    void Bool(std::string_view, bool& value, bool fallback) override { value = fallback; }
    void Short(std::string_view, std::int16_t& value, std::int16_t fallback) override {
        value = fallback;
    }
    void Long(std::string_view, std::int32_t& value, std::int32_t fallback) override {
        value = fallback;
    }
    void Color(std::string_view, std::uint32_t& value, std::uint32_t fallback) override {
        value = fallback;
    }
    void String(std::string_view, std::string& value, const std::string& fallback) override {
        value = fallback;
    }
    void Font(std::string_view, LogFont& value) override { value = AmbientFont; }
};

}  // namespace

std::span<const PropertyEntry> PropertyTable() {
    return Table;
}

void DoPropExchange(PropertyExchanger& exchanger, StockProperties& stock,
                    GridProperties& properties) {
    exchanger.Version(PersistVersion);
    ExchangeStock(exchanger, stock);
    for (const PropertyEntry& entry : Table) {
        ExchangeEntry(exchanger, entry, properties);
    }
}

void SaveProperties(ArchiveWriter& archive, const StockProperties& stock,
                    const GridProperties& properties) {
    StreamSaver saver(archive);
    StockProperties stockCopy = stock;
    GridProperties copy = properties;
    DoPropExchange(saver, stockCopy, copy);
}

void LoadProperties(ArchiveReader& archive, StockProperties& stock, GridProperties& properties) {
    StreamLoader loader(archive);
    DoPropExchange(loader, stock, properties);
}

void ResetProperties(StockProperties& stock, GridProperties& properties) {
    Resetter resetter;
    DoPropExchange(resetter, stock, properties);
}

}  // namespace veygrid
