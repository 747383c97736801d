// The terminal as the tool sees it: UTF-8 in both directions, whatever the system speaks.
#include "apps/grd/Console.h"

#include <algorithm>

namespace veygrid {

namespace {

// Names of files and columns may hold anything.
std::string OnOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return text;
}

}  // namespace

void WriteMessage(Console& console, const std::string& message,
                  const std::vector<std::string>& details) {
    std::string text = "grd: " + OnOneLine(message) + "\n";
    for (const std::string& detail : details) {
        text += "  " + OnOneLine(detail) + "\n";
    }
    console.WriteError(text);
}

}  // namespace veygrid
