// The command line: its declaration, its help, and what it asks for.
#pragma once

#include <string>
#include <vector>

#include "apps/grd/Options.h"

namespace veygrid {

// The command that the arguments, without the program's own name, ask for. Throws UsageTrouble.
Command ParseArguments(const std::vector<std::string>& arguments);

}  // namespace veygrid
