// The tool from its arguments to its exit code.
#include "apps/grd/GrdMain.h"

#include <new>

#include "apps/grd/Arguments.h"
#include "apps/grd/Commands.h"
#include "apps/grd/Interrupt.h"
#include "apps/grd/Trouble.h"

namespace veygrid {

namespace {

int CodeOfTrouble(const Command& command) {
    return std::holds_alternative<DiffOptions>(command) ? ExitDiffTrouble : ExitFailed;
}

int Run(Session& session, const Command& command) {
    try {
        return std::visit([&](const auto& options) { return RunCommand(session, options); },
                          command);
    } catch (const FileTrouble& trouble) {
        WriteMessage(session.Terminal, trouble.what(), trouble.Details());
    } catch (const std::bad_alloc&) {
        WriteMessage(session.Terminal, "there is not enough memory");
    }
    return CodeOfTrouble(command);
}

}  // namespace

int GrdMain(Session& session, const std::vector<std::string>& arguments) {
    try {
        return Run(session, ParseArguments(arguments));
    } catch (const UsageTrouble& trouble) {
        WriteMessage(session.Terminal, trouble.what());
        return ExitUsage;
    } catch (const OutputClosed&) {
        return ExitOk;
    } catch (const Interrupted& interrupted) {
        return interrupted.ExitCode();
    } catch (const std::exception& error) {
        WriteMessage(session.Terminal, error.what());
        return ExitFailed;
    }
}

}  // namespace veygrid
