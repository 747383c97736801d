// What the reference says of the members in words, read from one text file.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace veygrid::reference {

// Words for one member or for a passage of the page. Key: "default", "en", "zh", "example".
using Words = std::map<std::string, std::string>;

// By "Class.Member", "Class.Event:Name" for an event, and "Page.Name" for a passage.
using Prose = std::map<std::string, Words>;

// The file: "[Name]" opens an entry, "key = text" a text of it, and lines indented by two blanks go
// on with it. Empty lines and lines that begin with "#" part entries. Throws std::runtime_error
// with the line at fault.
Prose ReadProse(const std::string& path);

}  // namespace veygrid::reference
