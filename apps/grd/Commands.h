// The commands of the tool.
#pragma once

#include "apps/grd/GridAccess.h"
#include "apps/grd/Options.h"

namespace veygrid {

// Each does its work and gives the exit code. They throw FileTrouble, UsageTrouble for arguments
// that do not fit the file, and OutputClosed.
int RunCommand(Session& session, const AnswerText& answer);
int RunCommand(Session& session, const InfoOptions& options);
int RunCommand(Session& session, const CellsOptions& options);
int RunCommand(Session& session, const ImportOptions& options);
int RunCommand(Session& session, const CheckOptions& options);
int RunCommand(Session& session, const DiffOptions& options);
int RunCommand(Session& session, const SetOptions& options);
int RunCommand(Session& session, const GetOptions& options);
int RunCommand(Session& session, const RenderOptions& options);

}  // namespace veygrid
