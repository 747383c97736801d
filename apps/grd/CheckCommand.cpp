// The command that looks a file through for faults.
#include "apps/grd/Commands.h"
#include "apps/grd/Trouble.h"

namespace veygrid {

int RunCommand(Session& session, const CheckOptions& options) {
    const Grid& grid = LoadGrid(session, options.file);
    if (grid.LeftOver != 0) {
        throw FileTrouble(options.file, std::to_string(grid.LeftOver) +
                                            " bytes stand behind the last part, " + "from byte " +
                                            std::to_string(grid.FileSize - grid.LeftOver) + " on");
    }
    const GridStore& store = grid.Store;
    session.Terminal.WriteOut(options.file + ": ok, " + std::to_string(grid.FileSize) + " bytes, " +
                              std::to_string(store.CellTextMap.Count()) + " cells, " +
                              std::to_string(store.CellFormatMap.Count()) + " formats, " +
                              std::to_string(store.Params.Count()) + " parameters, " +
                              std::to_string(grid.Document.m_guiObjects.size()) +
                              " form objects\n");
    return ExitOk;
}

int RunCommand(Session& session, const AnswerText& answer) {
    session.Terminal.WriteOut(answer.text);
    return ExitOk;
}

}  // namespace veygrid
