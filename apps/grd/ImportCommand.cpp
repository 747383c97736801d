// The command that makes a grid file from comma- or tab-separated text.
#include <algorithm>

#include "apps/grd/CellText.h"
#include "apps/grd/Commands.h"
#include "apps/grd/ConsoleOutput.h"
#include "apps/grd/CsvReader.h"
#include "apps/grd/ImportedTable.h"
#include "apps/grd/Trouble.h"

namespace veygrid {

namespace {

// Pixels, for the font that a control has unless its host gives it another.
constexpr std::size_t CharacterWidthInPixels = 7;
constexpr std::size_t MarginInPixels = 8;
constexpr std::size_t LeastWidth = 40;
constexpr std::size_t MostWidth = 480;

std::int32_t PixelsFor(std::size_t characters) {
    const std::size_t fit = std::min(characters, MostWidth) * CharacterWidthInPixels;
    return static_cast<std::int32_t>(std::clamp(fit + MarginInPixels, LeastWidth, MostWidth));
}

std::string_view NameOfType(ColumnType type) {
    switch (type) {
        case ColumnType::String:
            return "string";
        case ColumnType::Number:
            return "number";
        case ColumnType::Date:
            return "date";
        default:
            return "unknown";
    }
}

ColumnType TypeOf(const ImportOptions& options, const ImportedTable& table, std::size_t col) {
    const auto given = col < options.types.size() ? options.types[col] : std::nullopt;
    return given.value_or(table.Columns()[col].Type());
}

void SetUpColumn(GridStore& store, std::int32_t col, const std::string& name, ColumnType type,
                 std::size_t width) {
    if (!name.empty()) {
        store.SetColName(col, name);
        store.SetColHeader(col, name);
    }
    if (type != ColumnType::Unknown) {
        store.SetColType(col, static_cast<std::int16_t>(type));
    }
    store.SetColWidth(col, PixelsFor(std::max(width, name.size())));
}

void SetUpSheet(GridStore& store, const ImportedTable& table, const ImportOptions& options) {
    for (std::int32_t col = 1; col <= table.ColCount(); ++col) {
        const auto index = static_cast<std::size_t>(col - 1);
        const std::string name = index < table.Names().size() ? table.Names()[index] : "";
        SetUpColumn(store, col, name, TypeOf(options, table, index),
                    table.Columns()[index].Width());
    }
    GridProperties& properties = store.Properties;
    properties.MaxRow = std::max(table.RowCount(), 1);
    properties.MaxCol = std::max(table.ColCount(), 1);
    properties.LastRow = table.RowCount();
    properties.LastCol = table.ColCount();
    properties.RowHeaderWidth =
        std::max(properties.RowHeaderWidth, PixelsFor(std::to_string(properties.MaxRow).size()));
}

std::string Counted(std::int64_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string Summary(const ImportOptions& options, const ImportedTable& table) {
    constexpr std::size_t mostNamed = 12;
    std::string text = options.output + ": " + Counted(table.RowCount(), "row") + ", " +
                       Counted(table.ColCount(), "column");
    const std::size_t columns = table.Columns().size();
    for (std::size_t col = 0; col < std::min(columns, mostNamed); ++col) {
        text += col == 0 ? " (" : ", ";
        if (col < table.Names().size() && !table.Names()[col].empty()) {
            AppendOnOneLine(text, table.Names()[col]);
            text += ' ';
        }
        text += NameOfType(TypeOf(options, table, col));
    }
    text += columns > mostNamed ? ", ..." : "";
    return text + (columns > 0 ? ")\n" : "\n");
}

ImportedTable ReadTable(Session& session, std::string_view text, TextEncoding encoding,
                        const ImportOptions& options) {
    Progress progress(session.Terminal.ProgressStream(), text.size());
    return {text, encoding, options.delimiter, options.header, progress};
}

void WriteTable(Session& session, const ImportOptions& options, const ImportedTable& table) {
    Grid& grid = session.NewGrid();
    SetUpSheet(grid.Store, table, options);
    ReplaceFile(session, options.output, table.Size(), [&](ByteSink& sink) {
        ArchiveWriter archive(sink);
        GridFileHost host;
        WriteGrid(archive, grid.Store, table, grid.Document, host);
        archive.Close();
    });
}

void CheckArguments(const ImportOptions& options, const ImportedTable& table) {
    if (options.types.size() > table.Columns().size()) {
        throw UsageTrouble("import: --types names " + std::to_string(options.types.size()) +
                           " types, but " + options.file + " has " +
                           Counted(table.ColCount(), "column"));
    }
}

int Import(Session& session, const ImportOptions& options, std::string_view text,
           TextEncoding encoding) {
    const ImportedTable table = ReadTable(session, text, encoding, options);
    CheckArguments(options, table);
    table.Report().Judge(session.Terminal, options.file, options.replace);
    WriteTable(session, options, table);
    if (!options.quiet) {
        session.Terminal.WriteOut(Summary(options, table));
    }
    return ExitOk;
}

}  // namespace

int RunCommand(Session& session, const ImportOptions& options) {
    if (IsSameFile(options.file, options.output)) {
        throw UsageTrouble("import: " + options.output + " cannot be read and written at once");
    }
    const FileBytes bytes = ReadWholeFile(session, options.file);
    std::string_view text = bytes.View();
    const TextEncoding encoding = TakeEncoding(text, options.encoding, options.file);
    if (text.empty()) {
        throw FileTrouble(options.file, "is empty");
    }
    try {
        return Import(session, options, text, encoding);
    } catch (const CsvFault& fault) {
        throw FileTrouble(options.file,
                          "line " + std::to_string(fault.Line()) + ": " + fault.what());
    }
}

}  // namespace veygrid
