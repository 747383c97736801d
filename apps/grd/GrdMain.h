// The tool from its arguments to its exit code.
#pragma once

#include <string>
#include <vector>

#include "apps/grd/GridAccess.h"

namespace veygrid {

// Runs the command that the arguments, UTF-8 and without the program's name, ask for. Trouble
// becomes one line on the error output.
int GrdMain(Session& session, const std::vector<std::string>& arguments);

}  // namespace veygrid
