// Saving a grid to a file and opening one, as hosts and menu commands ask for it.
#pragma once

#include <cstdint>
#include <string_view>

#include "persist/FileSystem.h"
#include "persist/GridFile.h"

namespace veygrid {

// Puts the grid into the file at the path, which is UTF-8. False, after a message, when the file
// cannot be created. Throws ArchiveError when writing fails later; an earlier file is then whole.
bool SaveFile(FileSystem& files, std::string_view path, const GridStore& store,
              GridDocument& document, GridFileHost& host);

// Reads the file into the grid as ReadGrid does and then runs the query that `DataSource` names, if
// any; `bRunQuery` plays no part on purpose. 0 when the file cannot be opened, with no message;
// otherwise 1, also when it is no grid file. Throws ArchiveError as ReadGrid does.
std::int16_t OpenFile(FileSystem& files, std::string_view path, std::int16_t bRunQuery,
                      GridStore& store, GridDocument& document, GridFileHost& host);

}  // namespace veygrid
