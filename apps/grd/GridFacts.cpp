// What a grid file says, as named values to list and to compare.
#include "apps/grd/GridFacts.h"

#include <array>
#include <cstdio>
#include <string_view>
#include <type_traits>

#include "apps/grd/CellText.h"
#include "apps/grd/JsonText.h"
#include "persist/PropertyExchange.h"

namespace veygrid {

namespace {

FactValue ValueOf(bool value) {
    return value;
}
FactValue ValueOf(const std::string& text) {
    return text;
}
template <class Number>
requires std::is_integral_v<Number> FactValue ValueOf(Number number) {
    return std::int64_t{number};
}

std::string FaceOf(const LogFont& font) {
    const std::string_view face(font.lfFaceName.data(), font.lfFaceName.size());
    return std::string(face.substr(0, face.find('\0')));
}

// All sixty bytes in words, so that fonts that differ read differently.
std::string DescribeFont(const LogFont& font) {
    const std::array<std::pair<const char*, std::int64_t>, 12> rest{{
        {" width ", font.lfWidth},
        {" escapement ", font.lfEscapement},
        {" orientation ", font.lfOrientation},
        {" weight ", font.lfWeight},
        {" italic ", font.lfItalic},
        {" underline ", font.lfUnderline},
        {" strikeout ", font.lfStrikeOut},
        {" charset ", font.lfCharSet},
        {" out-precision ", font.lfOutPrecision},
        {" clip-precision ", font.lfClipPrecision},
        {" quality ", font.lfQuality},
        {" pitch ", font.lfPitchAndFamily},
    }};
    std::string words;
    AppendOnOneLine(words, FaceOf(font));
    words += (words.empty() ? "height " : " height ") + std::to_string(font.lfHeight);
    for (const auto& [name, number] : rest) {
        words += number == 0 ? "" : name + std::to_string(number);
    }
    return words;
}

// Bytes behind the end of the face name can differ too; nobody sees them.
WordValue WordsOf(const LogFont& font) {
    return {font.lfWeight == NoFontWeight ? "none" : DescribeFont(font)};
}
WordValue WordsOf(const std::optional<LogFont>& font) {
    return {font ? DescribeFont(*font) : "none"};
}

WordValue WordsOf(const StoredRect& rect) {
    return {std::to_string(rect.left) + "," + std::to_string(rect.top) + " to " +
            std::to_string(rect.right) + "," + std::to_string(rect.bottom)};
}

// Collects facts of a record beside the same of a fresh one.
template <class Record>
class FactsOf {
  public:
    FactsOf(const Record& record, const Record& fresh) : m_record(record), m_fresh(fresh) {}

    template <class Member>
    FactsOf& Add(std::string_view name, Member Record::*member) {
        return AddValues(name, ValueOf(m_record.*member), ValueOf(m_fresh.*member));
    }
    template <class Member>
    FactsOf& AddColor(std::string_view name, Member Record::*member) {
        return AddValues(name, ColorValue{static_cast<std::uint32_t>(m_record.*member)},
                         ColorValue{static_cast<std::uint32_t>(m_fresh.*member)});
    }
    template <class Member>
    FactsOf& AddWords(std::string_view name, Member Record::*member) {
        return AddValues(name, WordsOf(m_record.*member), WordsOf(m_fresh.*member));
    }
    FactsOf& AddBlock(std::string_view name, std::string Record::*member) {
        return AddValues(name, BlockValue{m_record.*member}, BlockValue{m_fresh.*member});
    }
    FactsOf& AddValues(std::string_view name, FactValue value, FactValue fallback) {
        m_facts.push_back({std::string(name), std::move(value), std::move(fallback)});
        return *this;
    }
    Facts Take() { return std::move(m_facts); }

  private:
    const Record& m_record;
    const Record& m_fresh;
    Facts m_facts;
};

void Append(Facts& facts, Facts more) {
    facts.insert(facts.end(), std::make_move_iterator(more.begin()),
                 std::make_move_iterator(more.end()));
}

Facts TableFacts(const GridProperties& properties) {
    static const GridProperties fresh;
    FactsOf<GridProperties> facts(properties, fresh);
    for (const PropertyEntry& entry : PropertyTable()) {
        if (entry.Kind() == PropertyKind::Color) {
            facts.AddColor(entry.Name, std::get<std::uint32_t GridProperties::*>(entry.Member));
        } else {
            std::visit([&](auto member) { facts.Add(entry.Name, member); }, entry.Member);
        }
    }
    return facts.Take();
}

Facts StockFacts(const StockProperties& stock) {
    static const StockProperties fresh;
    return FactsOf<StockProperties>(stock, fresh)
        .Add("ExtentWidth", &StockProperties::ExtentWidth)
        .Add("ExtentHeight", &StockProperties::ExtentHeight)
        .Add("BorderStyle", &StockProperties::BorderStyle)
        .Add("Enabled", &StockProperties::Enabled)
        .AddColor("ForeColor", &StockProperties::ForeColor)
        .AddWords("Font", &StockProperties::Font)
        .Take();
}

Facts SwitchFacts(const GridSwitches& switches) {
    static const GridSwitches fresh;
    return FactsOf<GridSwitches>(switches, fresh)
        .Add("CanWriteTable", &GridSwitches::CanWriteTable)
        .Add("AutoCommit", &GridSwitches::AutoCommit)
        .Add("RunQueryAfterSerialize", &GridSwitches::RunQueryAfterSerialize)
        .Take();
}

Facts WindowFacts(const std::monostate&) {
    return {};
}

Facts WindowFacts(const LabelRecord& label) {
    static const LabelRecord fresh;
    return FactsOf<LabelRecord>(label, fresh)
        .Add("Name", &LabelRecord::Name)
        .Add("Caption", &LabelRecord::Caption)
        .Add("Style", &LabelRecord::Style)
        .Add("StyleEx", &LabelRecord::StyleEx)
        .Add("TextFlags", &LabelRecord::TextFlags)
        .AddColor("TextColor", &LabelRecord::TextColor)
        .AddWords("LogFont", &LabelRecord::LogFont)
        .AddBlock("Image", &LabelRecord::HDib)
        .Take();
}

Facts WindowFacts(const FieldRecord& field) {
    static const FieldRecord fresh;
    return FactsOf<FieldRecord>(field, fresh)
        .Add("Name", &FieldRecord::Name)
        .Add("SeqNo", &FieldRecord::SeqNo)
        .Add("DataType", &FieldRecord::DataType)
        .Add("Style", &FieldRecord::Style)
        .Add("StyleEx", &FieldRecord::StyleEx)
        .Add("BindSource", &FieldRecord::BindSource)
        .Add("ShowFormat", &FieldRecord::ShowFormat)
        .Add("Label", &FieldRecord::Label)
        .Add("LableLocate", &FieldRecord::LableLocate)
        .Add("LabelWidth", &FieldRecord::LabelWidth)
        .Add("LabelGap", &FieldRecord::LabelGap)
        .Add("LabelAutoWidth", &FieldRecord::LabelAutoWidth)
        .Add("DataClass", &FieldRecord::DataClass)
        .Add("Data", &FieldRecord::Data)
        .Add("CanNull", &FieldRecord::CanNull)
        .Add("ComboFlags", &FieldRecord::ComboFlags)
        .AddColor("TextColor", &FieldRecord::TextColor)
        .AddWords("LogFont", &FieldRecord::LogFont)
        .Add("Reserved", &FieldRecord::Reserved)
        .Add("ItemDataKind", &FieldRecord::ItemDataKind)
        .Add("FillKind", &FieldRecord::FillKind)
        .Take();
}

Facts WindowFacts(const ButtonRecord& button) {
    static const ButtonRecord fresh;
    return FactsOf<ButtonRecord>(button, fresh)
        .Add("Name", &ButtonRecord::Name)
        .Add("Caption", &ButtonRecord::Caption)
        .Add("Style", &ButtonRecord::Style)
        .Add("StyleEx", &ButtonRecord::StyleEx)
        .AddColor("TextColor", &ButtonRecord::TextColor)
        .Add("BindText", &ButtonRecord::BindText)
        .Add("DataText", &ButtonRecord::DataText)
        .Add("SeqNo", &ButtonRecord::SeqNo)
        .Add("DataType", &ButtonRecord::DataType)
        .Add("Action", &ButtonRecord::Action)
        .Add("CommandID", &ButtonRecord::CommandID)
        .AddWords("LogFont", &ButtonRecord::LogFont)
        .AddBlock("Image", &ButtonRecord::HDib)
        .Take();
}

std::string HexColor(ColorValue color) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(color.Number));
    return text.data();
}

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

Facts PropertyFacts(const Grid& grid) {
    Facts facts = TableFacts(grid.Store.Properties);
    Append(facts, StockFacts(grid.Document.Stock));
    Append(facts, SwitchFacts(grid.Store.Switches));
    return facts;
}

Facts DocumentFacts(const GridDocument& document) {
    static const GridDocument fresh;
    return FactsOf<GridDocument>(document, fresh)
        .Add("next control id", &GridDocument::m_nNextCtrlID)
        .AddBlock("picture", &GridDocument::BkImageBits)
        .AddWords("window rectangle", &GridDocument::SavedWindowRect)
        .AddBlock("printer names", &GridDocument::PrintDevNames)
        .AddBlock("printer settings", &GridDocument::PrintDevMode)
        .Take();
}

Facts FormatFacts(const CCellFormat& format) {
    static const CCellFormat fresh;
    FactsOf<CCellFormat> facts(format, fresh);
    facts.AddValues("HAlign", ValueOf(format.GetHAlign()), ValueOf(fresh.GetHAlign()))
        .AddValues("VAlign", ValueOf(format.GetVAlign()), ValueOf(fresh.GetVAlign()))
        .Add("Flags", &CCellFormat::Flags)
        .Add("DataType", &CCellFormat::DataType)
        .Add("ShowFormat", &CCellFormat::ShowFormat)
        .Add("Validity", &CCellFormat::Validity)
        .AddWords("Font", &CCellFormat::Font)
        .AddColor("Foreground", &CCellFormat::Foreground)
        .AddColor("Background", &CCellFormat::Background);
    for (std::size_t i = 0; i < format.Extra.size(); ++i) {
        facts.AddValues("Extra " + std::to_string(i + 1), ValueOf(format.Extra[i]),
                        ValueOf(fresh.Extra[i]));
    }
    return facts.Take();
}

Facts ObjectFacts(const GuiObjRecord& object) {
    static const GuiObjRecord fresh;
    Facts facts =
        FactsOf<GuiObjRecord>(object, fresh)
            .AddValues("type", WordValue{NameOfObjectType(object.m_nType)}, WordValue{})
            .Add("id", &GuiObjRecord::m_nCtrlID)
            .AddValues("placed by", WordValue{object.m_bCellPos != 0 ? "cells" : "pixels"},
                       WordValue{"cells"})
            .AddWords("position", &GuiObjRecord::m_rcPos)
            .Take();
    Append(facts,
           std::visit([](const auto& window) { return WindowFacts(window); }, object.Window));
    return facts;
}

std::string NameOfObjectType(std::uint16_t type) {
    constexpr std::array<const char*, 8> names{"label",     "group box",   "image",
                                               "edit box",  "combo box",   "push button",
                                               "check box", "radio button"};
    return type >= 1 && type <= names.size() ? names[type - 1U]
                                             : "object of type " + std::to_string(type);
}

std::string TextOfFact(const FactValue& value) {
    return std::visit(
        Overloaded{
            [](bool yes) { return std::string(yes ? "true" : "false"); },
            [](std::int64_t number) { return std::to_string(number); },
            [](ColorValue color) { return HexColor(color); },
            [](const std::string& text) {
                std::string quoted = "\"";
                AppendOnOneLine(quoted, text);
                return quoted + "\"";
            },
            [](const BlockValue& block) {
                return block.Bytes.empty() ? "none" : std::to_string(block.Bytes.size()) + " bytes";
            },
            [](const WordValue& words) { return words.Word; },
        },
        value);
}

std::string JsonOfFact(const FactValue& value) {
    const auto quoted = [](std::string_view utf8) {
        std::string json;
        AppendJsonString(json, utf8);
        return json;
    };
    return std::visit(
        Overloaded{
            [](bool yes) { return std::string(yes ? "true" : "false"); },
            [](std::int64_t number) { return std::to_string(number); },
            [&](ColorValue color) { return quoted(HexColor(color)); },
            [&](const std::string& text) {
                std::string utf8;
                AppendInUtf8(utf8, text);
                return quoted(utf8);
            },
            [](const BlockValue& block) { return std::to_string(block.Bytes.size()); },
            [&](const WordValue& words) { return quoted(words.Word); },
        },
        value);
}

}  // namespace veygrid
