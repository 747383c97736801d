// The commands that write cells: many in a form of choice, or single ones.
#include "apps/grd/CellAddress.h"
#include "apps/grd/CellText.h"
#include "apps/grd/CellWriters.h"
#include "apps/grd/Commands.h"
#include "apps/grd/ConsoleOutput.h"
#include "apps/grd/Trouble.h"

namespace veygrid {

namespace {

// Forms that write empty cells too make no sense above this many.
constexpr std::int64_t MostCellsInForm = 100'000'000;

void CheckExtent(const CellsOptions& options, const SheetSlice& slice) {
    if (options.form == CellForm::Json || slice.RowCount() == 0 ||
        slice.ColCount() <= MostCellsInForm / slice.RowCount()) {
        return;
    }
    const CellRange& range = slice.Range;
    throw FileTrouble(options.file, CellName({range.Row1, range.Col1}) + ":" +
                                        CellName({range.Row2, range.Col2}) +
                                        " has too many cells to write; give a smaller --range, or "
                                        "--as json, which leaves empty cells out");
}

void WriteForm(CellForm form, const CellsToWrite& cells, TextOutput& out, Progress& progress) {
    switch (form) {
        case CellForm::Text:
            return WriteAlignedText(cells, out, progress);
        case CellForm::Csv:
            return WriteDelimited(cells, ',', "\r\n", out, progress);
        case CellForm::Tsv:
            return WriteDelimited(cells, '\t', "\n", out, progress);
        case CellForm::Json:
            return WriteJsonCells(cells, out, progress);
        case CellForm::Html:
            return WriteHtmlTable(cells, out, progress);
    }
}

}  // namespace

int RunCommand(Session& session, const CellsOptions& options) {
    if (!options.output.empty() && IsSameFile(options.file, options.output)) {
        throw UsageTrouble("cells: " + options.output + " cannot be read and written at once");
    }
    const Grid& grid = LoadGrid(session, options.file);
    const SheetSlice slice = SliceSheet(grid.Store, options.range);
    CheckExtent(options, slice);
    const CellsToWrite cells{grid.Store, slice, options.shown, options.header,
                             FileNameOf(options.file)};
    WriteText(session, options.output, [&](TextOutput& out) {
        // Text that runs over the terminal shows by itself how far it is.
        const bool seen = options.output.empty() && session.Terminal.OutIsTerminal();
        Progress progress(seen ? nullptr : session.Terminal.ProgressStream(), slice.Cells.size());
        WriteForm(options.form, cells, out, progress);
    });
    return ExitOk;
}

int RunCommand(Session& session, const GetOptions& options) {
    const Grid& grid = LoadGrid(session, options.file);
    WriteText(session, "", [&](TextOutput& out) {
        std::string scratch;
        for (const CellPos pos : options.cells) {
            if (const std::string* const text = grid.Store.CellTextMap.Find(pos)) {
                AppendInUtf8(out.Text(),
                             TextOfCell(grid.Store, {pos, text}, options.shown, scratch));
            }
            out.Text() += '\n';
            out.SpillIfLarge();
        }
    });
    return ExitOk;
}

}  // namespace veygrid
