// The command that writes texts into cells.
#include "apps/grd/CellAddress.h"
#include "apps/grd/Commands.h"
#include "apps/grd/EncodeReport.h"
#include "apps/grd/Trouble.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

int RunCommand(Session& session, const SetOptions& options) {
    EncodeReport report;
    Grid& grid = LoadGrid(session, options.file);
    if (grid.LeftOver != 0) {
        throw FileTrouble(options.file, std::to_string(grid.LeftOver) +
                                            " bytes stand behind the last part and would be lost");
    }
    std::vector<EncodeFault> faults;
    for (const auto& [cell, text] : options.cells) {
        faults.clear();
        grid.Store.SetCellText(cell.Row, cell.Col, CodePage936FromUtf8(text, &faults));
        for (const EncodeFault& fault : faults) {
            report.Add(CellName(cell), fault.character);
        }
    }
    report.Judge(session.Terminal, options.file, options.replace);
    SaveGrid(session, options.output.empty() ? options.file : options.output, grid);
    return ExitOk;
}

}  // namespace veygrid
