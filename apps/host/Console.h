// The host's standard output and standard error, as UTF-8.
#pragma once

#include <string_view>

namespace veygrid {

// Writes the text and a line end.
void WriteLine(std::wstring_view text);
void WriteErrorLine(std::wstring_view text);

}  // namespace veygrid
