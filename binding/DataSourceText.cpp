// The `DataSource` statement of a sheet: what hosts read of it, and how it and `ColNameMap` follow
// each other.
#include "binding/DataSourceText.h"

#include <cstdint>

#include "binding/SqlText.h"
#include "valuetext/Fields.h"
#include "valuetext/MultiByte.h"
#include "valuetext/TextSearch.h"

namespace veygrid {

namespace {

bool BeginsWithClause(std::string_view text) {
    return StartsWithNoCase(text, "ORDER ") || StartsWithNoCase(text, "GROUP ") ||
           StartsWithNoCase(text, "WHERE ");
}

std::string ClauseOf(std::string_view value) {
    const std::string_view clause = TrimLeft(value);
    return std::string(BeginsWithClause(clause) ? "" : "WHERE ").append(clause);
}

std::string JoinedColumnNames(const TextMap& names) {
    std::string joined;
    std::int32_t col = 1;
    for (const std::string* name = names.Find(ColKey(col)); name != nullptr;
         name = names.Find(ColKey(++col))) {
        joined.append(col > 1 ? "," : "").append(*name);
    }
    return joined;
}

}  // namespace

std::optional<std::string> GetDSColumns(const GridStore& store) {
    return std::optional<std::string>(SqlHostColumns(store.Properties.DataSource));
}

std::optional<std::string> GetDSTables(const GridStore& store) {
    return std::optional<std::string>(SqlHostTables(store.Properties.DataSource));
}

std::string GetDSWhere(const GridStore& store) {
    return std::string(SqlTail(store.Properties.DataSource));
}

void SetDSWhere(GridStore& store, std::optional<std::string_view> value) {
    std::string& source = store.Properties.DataSource;
    if (source.empty()) {
        return;
    }
    const std::string clause = value ? ClauseOf(*value) : std::string();
    source = SqlStatement(SqlSelectList(source), SqlFromList(source), clause);
    store.SetModifiedAndNotify(true);
}

void OnDataSourceChanged(GridStore& store) {
    const std::string_view source = store.Properties.DataSource;
    const std::int32_t columns = CountSelectColumns(source);
    const std::string list = MaskTopCommas(SqlSelectList(source), VerticalTab);
    store.ColNameMap.RemoveAll();
    FieldWalk names(list, VerticalTab);
    for (std::int32_t col = 1; col <= columns && names.Next(); ++col) {
        store.ColNameMap.Set(ColKey(col), std::string(Trim(names.Field())));
    }
    store.SetModifiedAndNotify(true);
}

void StoreTypedDataSource(GridStore& store, std::string_view typed) {
    constexpr std::string_view LineEnd = "\r\n";
    std::string statement;
    statement.reserve(typed.size());
    for (std::size_t end = typed.find(LineEnd); end != NotFound; end = typed.find(LineEnd)) {
        statement.append(typed.substr(0, end)) += ' ';
        typed.remove_prefix(end + LineEnd.size());
    }
    store.Properties.DataSource = statement.append(typed);
}

void RebuildDataSource(GridStore& store) {
    std::string& source = store.Properties.DataSource;
    if (source.empty()) {
        return;
    }
    const std::string columns = JoinedColumnNames(store.ColNameMap);
    const std::string built = SqlStatement(columns, TablesFromColumns(columns), SqlTail(source));
    source = TrimRight(built);
}

}  // namespace veygrid
