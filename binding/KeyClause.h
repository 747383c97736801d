// The WHERE text that names one record by the key columns of the sheet.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "grid/GridStore.h"

namespace veygrid {

// Joins "name=value" for the key columns up to `LastCol`, values being the stored texts of the row,
// unescaped. Empty when no key column has a qualified name, or when the key of a column of the
// table, compared without regard to case and blanks, is empty. The key columns of other tables take
// part too, with the value of the key column before them; hosts mark keys of one table only.
std::string BuildKeyClause(const GridStore& store, std::string_view table, std::int32_t row);

}  // namespace veygrid
