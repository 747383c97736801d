// Text as JSON strings, for output too large to be built as one value.
#pragma once

#include <string>
#include <string_view>

namespace veygrid {

// Appends well-formed UTF-8 text as a JSON string, quotes included.
void AppendJsonString(std::string& out, std::string_view utf8);

}  // namespace veygrid
