// Cells as a JSON array, streamed.
#include "apps/grd/CellText.h"
#include "apps/grd/CellWriters.h"
#include "apps/grd/JsonText.h"

namespace veygrid {

namespace {

void AppendMember(std::string& out, std::string_view name, std::string_view text,
                  std::string& scratch) {
    scratch.clear();
    AppendInUtf8(scratch, text);
    out += ",\"";
    out += name;
    out += "\":";
    AppendJsonString(out, scratch);
}

}  // namespace

void WriteJsonCells(const CellsToWrite& cells, TextOutput& out, Progress& progress) {
    std::string scratch;
    std::string shown;
    std::uint64_t done = 0;
    out.Text() += '[';
    for (const CellEntry& cell : cells.Slice.Cells) {
        std::string& text = out.Text();
        text += done == 0 ? "\n" : ",\n";
        text += "{\"row\":" + std::to_string(cell.Pos.Row);
        text += ",\"col\":" + std::to_string(cell.Pos.Col);
        AppendMember(text, "text", *cell.Text, scratch);
        if (cells.Shown) {
            AppendMember(text, "shown", TextOfCell(cells.Store, cell, true, shown), scratch);
        }
        text += '}';
        out.SpillIfLarge();
        progress.Reach(++done);
    }
    out.Text() += done == 0 ? "]\n" : "\n]\n";
}

}  // namespace veygrid
