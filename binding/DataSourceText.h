// The `DataSource` statement of a sheet: what hosts read of it, and how it and `ColNameMap` follow
// each other.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "grid/GridStore.h"

namespace veygrid {

// No value stands for a null string: the keywords are missing.
std::optional<std::string> GetDSColumns(const GridStore& store);
std::optional<std::string> GetDSTables(const GridStore& store);
std::string GetDSWhere(const GridStore& store);

// Rewrites the tail of `DataSource`, with "WHERE " in front of a value that begins with no clause
// keyword; without a value the tail becomes empty. Notifies, but leaves `ColNameMap` alone. Does
// nothing when `DataSource` is empty.
void SetDSWhere(GridStore& store, std::optional<std::string_view> value);

// To be called when a host has set `DataSource`: names the columns after the select list, trimmed,
// in place of all former names, and notifies.
void OnDataSourceChanged(GridStore& store);

// Stores a statement as it was typed in the editor of the data source, a blank in place of each
// line end. It goes past the property: `ColNameMap` stays, nothing is told; this is on purpose.
void StoreTypedDataSource(GridStore& store, std::string_view typed);

// To be called when whole columns were removed or moved: builds `DataSource` anew from the column
// names up to the first column without one. The table list comes from the qualifiers of the names
// alone, so the tables of unqualified columns are lost; this is on purpose. Does not notify.
void RebuildDataSource(GridStore& store);

}  // namespace veygrid
