// The WHERE text that names one record by the key columns of the sheet.
#include "binding/KeyClause.h"

#include <algorithm>
#include <vector>

#include "grid/NameMatch.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::int16_t KeyFlag = 1;
constexpr std::string_view And = " AND ";

// In ascending order. Only a column with an entry can be a key column, however far `LastCol` goes.
std::vector<std::int32_t> KeyColumns(const GridStore& store) {
    std::vector<std::int32_t> cols;
    for (const auto& [key, info] : store.ColInfoMap) {
        if (key.Row == 0 && key.Col >= 1 && key.Col <= store.Properties.LastCol &&
            store.KeyColumnFlag(key.Col) == KeyFlag) {
            cols.push_back(key.Col);
        }
    }
    std::ranges::sort(cols);
    return cols;
}

// Nothing in the value is escaped, and the receiver converts what stands between date markers.
std::string WrittenValue(std::string_view value, std::int16_t colType) {
    const auto between = [value](std::string_view begin, std::string_view end) {
        return std::string(begin).append(value).append(end);
    };
    switch (static_cast<ColumnType>(colType)) {
        case ColumnType::String:
            return between("'", "'");
        case ColumnType::Date:
            return between("%{", "}%");
        default:
            return std::string(value);
    }
}

}  // namespace

std::string BuildKeyClause(const GridStore& store, std::string_view table, std::int32_t row) {
    const NameMatch isTable(table);
    std::string clause;
    std::string value;
    for (const std::int32_t col : KeyColumns(store)) {
        const std::string name = store.ColName(col);
        const std::size_t point = FindLastChar(name, '.');
        if (point == NotFound || point == 0) {
            continue;
        }
        // The column of another table keeps the value of the one before it; that is on purpose.
        if (isTable(std::string_view(name).substr(0, point))) {
            const std::string text = store.CellText(row, col);
            if (text.empty()) {
                return {};
            }
            value = WrittenValue(text, store.ColType(col));
        }
        clause.append(clause.empty() ? "" : And).append(name).append("=").append(value);
    }
    return clause;
}

}  // namespace veygrid
