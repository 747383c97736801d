// The command that tells what a grid file holds.
#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <set>

#include "apps/grd/CellText.h"
#include "apps/grd/Commands.h"
#include "apps/grd/ConsoleOutput.h"
#include "apps/grd/DisplayWidth.h"
#include "apps/grd/GridFacts.h"
#include "apps/grd/Trouble.h"
#include "valuetext/CodePage936.h"
#include "valuetext/Fields.h"

namespace veygrid {

namespace {

using Json = nlohmann::ordered_json;

// Lists in the text for people end after so many lines.
constexpr std::size_t MostLines = 100;

struct CountOf {
    const char* Name;
    const char* Key;
    std::size_t Count;
};

std::array<CountOf, 12> CountsOf(const Grid& grid) {
    const GridStore& store = grid.Store;
    return {{
        {"cells", "cells", store.CellTextMap.Count()},
        {"cell formats", "cellFormats", store.CellFormatMap.Count()},
        {"row heights", "rowHeights", store.RowHeightMap.Count()},
        {"column widths", "columnWidths", store.ColWidthMap.Count()},
        {"row headers", "rowHeaders", store.RowHeaderMap.Count()},
        {"column headers", "columnHeaders", store.ColHeaderMap.Count()},
        {"row names", "rowNames", store.RowNameMap.Count()},
        {"column names", "columnNames", store.ColNameMap.Count()},
        {"row infos", "rowInfos", store.RowInfoMap.Count()},
        {"column infos", "columnInfos", store.ColInfoMap.Count()},
        {"parameters", "parameters", store.Params.Count()},
        {"form objects", "formObjects", grid.Document.m_guiObjects.size()},
    }};
}

std::string TypeName(std::int16_t type) {
    switch (static_cast<ColumnType>(type)) {
        case ColumnType::String:
            return "string";
        case ColumnType::Number:
            return "number";
        case ColumnType::Date:
            return "date";
        case ColumnType::Unknown:
            return "unknown";
    }
    return std::to_string(type);
}

struct Column {
    std::int32_t Number;
    std::string Header;
    std::string Name;
    std::string Type;
    bool Key;
    std::int32_t Width;
};

// The columns of which the file says anything, in order. Texts in UTF-8.
std::vector<Column> ColumnsOf(const GridStore& store) {
    std::set<std::int32_t> numbers;
    const auto collect = [&](const auto& map) {
        for (const auto& entry : map) {
            numbers.insert(entry.key.Col);
        }
    };
    collect(store.ColHeaderMap);
    collect(store.ColNameMap);
    collect(store.ColInfoMap);
    collect(store.ColWidthMap);
    std::vector<Column> columns;
    for (const std::int32_t col : numbers) {
        const std::int32_t* const width = store.ColWidthMap.Find(ColKey(col));
        columns.push_back({col, Utf8FromCodePage936(store.ColHeader(col)),
                           Utf8FromCodePage936(store.ColName(col)), TypeName(store.ColType(col)),
                           store.KeyColumnFlag(col) == 1,
                           width != nullptr ? *width : store.Properties.DefCellWidth});
    }
    return columns;
}

struct Parameter {
    std::string Name;
    std::string Value;
};

std::vector<Parameter> ParametersOf(const ParamList& params) {
    std::vector<Parameter> list;
    params.ForEachRaw([&](const std::string& entry) {
        list.push_back(
            {std::string(GetField(entry, 0, Tab)), std::string(GetField(entry, 1, Tab))});
    });
    return list;
}

Json FactsAsJson(const Facts& facts) {
    Json object = Json::object();
    for (const Fact& fact : facts) {
        object[fact.Name] = Json::parse(JsonOfFact(fact.Value));
    }
    return object;
}

Json PropertiesAsJson(const Grid& grid) {
    Json object = Json::object();
    for (const Fact& fact : PropertyFacts(grid)) {
        object[fact.Name] = {{"value", Json::parse(JsonOfFact(fact.Value))},
                             {"default", Json::parse(JsonOfFact(fact.Default))},
                             {"changed", !fact.IsDefault()}};
    }
    return object;
}

Json ColumnsAsJson(const GridStore& store) {
    Json list = Json::array();
    for (const Column& column : ColumnsOf(store)) {
        list.push_back({{"col", column.Number},
                        {"header", column.Header},
                        {"name", column.Name},
                        {"type", column.Type},
                        {"key", column.Key},
                        {"width", column.Width}});
    }
    return list;
}

Json ParametersAsJson(const ParamList& params) {
    Json list = Json::array();
    for (const Parameter& parameter : ParametersOf(params)) {
        list.push_back({{"name", Utf8FromCodePage936(parameter.Name)},
                        {"value", Utf8FromCodePage936(parameter.Value)}});
    }
    return list;
}

Json ObjectsAsJson(const GridDocument& document) {
    Json list = Json::array();
    for (const GuiObjRecord& object : document.m_guiObjects) {
        list.push_back(FactsAsJson(ObjectFacts(object)));
    }
    return list;
}

Json InfoAsJson(const Grid& grid, const std::string& file) {
    const GridProperties& properties = grid.Store.Properties;
    Json info = {{"file", file},
                 {"size", grid.FileSize},
                 {"leftOver", grid.LeftOver},
                 {"banner", Utf8FromCodePage936(grid.Document.FileBanner)},
                 {"sheet",
                  {{"MaxRow", properties.MaxRow},
                   {"MaxCol", properties.MaxCol},
                   {"LastRow", properties.LastRow},
                   {"LastCol", properties.LastCol}}}};
    for (const CountOf& count : CountsOf(grid)) {
        info["counts"][count.Key] = count.Count;
    }
    info["document"] = FactsAsJson(DocumentFacts(grid.Document));
    info["columns"] = ColumnsAsJson(grid.Store);
    info["parameters"] = ParametersAsJson(grid.Store.Params);
    info["formObjects"] = ObjectsAsJson(grid.Document);
    info["properties"] = PropertiesAsJson(grid);
    return info;
}

// Names on the left, values in one line below each other on the right.
class Listing {
  public:
    explicit Listing(TextOutput& out) : m_out(out) {}

    void Heading(const std::string& title) {
        m_out.Text() += m_first ? "" : "\n";
        m_out.Text() += title + "\n";
        m_first = false;
        m_lines = 0;
        m_left = 0;
    }
    void Line(const std::string& name, const std::string& value, const char* mark = "  ") {
        if (++m_lines > MostLines) {
            ++m_left;
            return;
        }
        const std::size_t width = DisplayWidth(name);
        m_out.Text() += mark + name + std::string(width < NameWidth ? NameWidth - width : 1, ' ') +
                        value + "\n";
    }
    // Tells how many lines the list was too long for.
    void EndList() {
        if (m_left != 0) {
            m_out.Text() += "  and " + std::to_string(m_left) + " more\n";
        }
    }

  private:
    static constexpr std::size_t NameWidth = 26;

    TextOutput& m_out;
    bool m_first = true;
    std::size_t m_lines = 0;
    std::size_t m_left = 0;
};

std::string OnOneLine(const std::string& text) {
    std::string line;
    AppendOnOneLine(line, text);
    return line;
}

void ListFile(Listing& list, const Grid& grid, const std::string& file) {
    list.Heading(file);
    list.Line("size", std::to_string(grid.FileSize) + " bytes");
    list.Line("banner", OnOneLine(grid.Document.FileBanner));
    if (grid.LeftOver != 0) {
        list.Line("left over", std::to_string(grid.LeftOver) + " bytes behind the last part");
    }
    const GridProperties& properties = grid.Store.Properties;
    list.Line("MaxRow x MaxCol",
              std::to_string(properties.MaxRow) + " x " + std::to_string(properties.MaxCol));
    list.Line("LastRow x LastCol",
              std::to_string(properties.LastRow) + " x " + std::to_string(properties.LastCol));
}

void ListContents(Listing& list, const Grid& grid) {
    list.Heading("Contents");
    for (const CountOf& count : CountsOf(grid)) {
        list.Line(count.Name, std::to_string(count.Count));
    }
    for (const Fact& fact : DocumentFacts(grid.Document)) {
        list.Line(fact.Name, TextOfFact(fact.Value));
    }
}

void ListColumns(Listing& list, const GridStore& store) {
    const std::vector<Column> columns = ColumnsOf(store);
    if (columns.empty()) {
        return;
    }
    list.Heading("Columns");
    for (const Column& column : columns) {
        std::string value = column.Type + ", " + std::to_string(column.Width) + " pixels";
        value += column.Key ? ", key" : "";
        value += column.Name.empty() ? "" : ", name \"" + column.Name + "\"";
        list.Line(std::to_string(column.Number) + " " + column.Header, value);
    }
    list.EndList();
}

void ListParameters(Listing& list, const ParamList& params) {
    if (params.Count() == 0) {
        return;
    }
    list.Heading("Parameters");
    for (const Parameter& parameter : ParametersOf(params)) {
        list.Line(OnOneLine(parameter.Name), TextOfFact(parameter.Value));
    }
    list.EndList();
}

// What a user calls an object by: its name, or the text on it.
std::string TitleOf(const Facts& facts) {
    for (const Fact& fact : facts) {
        if (fact.Name == "Name") {
            return TextOfFact(fact.Value);
        }
    }
    return {};
}

void ListObjects(Listing& list, const GridDocument& document) {
    if (document.m_guiObjects.empty()) {
        return;
    }
    list.Heading("Form objects");
    for (const GuiObjRecord& object : document.m_guiObjects) {
        const Facts facts = ObjectFacts(object);
        list.Line(std::to_string(object.m_nCtrlID) + " " + NameOfObjectType(object.m_nType),
                  TitleOf(facts) + " at " + TextOfFact(facts[3].Value) + " in " +
                      TextOfFact(facts[2].Value));
    }
    list.EndList();
}

void ListProperties(Listing& list, const Grid& grid) {
    list.Heading("Properties (* not the default)");
    for (const Fact& fact : PropertyFacts(grid)) {
        const bool changed = !fact.IsDefault();
        list.Line(fact.Name,
                  TextOfFact(fact.Value) +
                      (changed ? "  (default " + TextOfFact(fact.Default) + ")" : ""),
                  changed ? "* " : "  ");
    }
}

}  // namespace

int RunCommand(Session& session, const InfoOptions& options) {
    const Grid& grid = LoadGrid(session, options.file);
    WriteText(session, "", [&](TextOutput& out) {
        if (options.json) {
            out.Text() +=
                InfoAsJson(grid, options.file).dump(2, ' ', false, Json::error_handler_t::replace) +
                "\n";
            return;
        }
        Listing list(out);
        ListFile(list, grid, options.file);
        ListContents(list, grid);
        ListColumns(list, grid.Store);
        ListParameters(list, grid.Store.Params);
        ListObjects(list, grid.Document);
        ListProperties(list, grid);
    });
    return ExitOk;
}

}  // namespace veygrid
