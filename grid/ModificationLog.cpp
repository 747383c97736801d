// The log of what the user changed, for hosts that write the sheet back to a database.
#include "grid/ModificationLog.h"

#include <optional>

namespace veygrid {

namespace {

std::optional<CellPos> LogKey(std::int16_t mode, std::int32_t row, std::int32_t col) {
    switch (static_cast<ModifiedLogMode>(mode)) {
        case ModifiedLogMode::Rows:
            return RowKey(row);
        case ModifiedLogMode::Columns:
            return ColKey(col);
        case ModifiedLogMode::Cells:
            return CellPos{row, col};
        default:
            return std::nullopt;
    }
}

}  // namespace

void ModificationLog::LogModification(std::int16_t mode, std::int32_t row, std::int32_t col,
                                      ModifiedType type) {
    const std::optional<CellPos> key = LogKey(mode, row, col);
    if (key && *key != CellPos{} && ModifiedLogMap.Find(*key) == nullptr) {
        ModifiedLogMap.Set(*key, static_cast<std::int16_t>(type));
    }
}

std::int32_t ModificationLog::GetFirstModifiedLogPos() const {
    return IsEmpty() ? Map::PastLast : Map::BeforeFirst;
}

void ModificationLog::GetNextModifiedLog(std::int32_t& pos, std::int32_t* row, std::int32_t* col,
                                         std::int16_t* type) const {
    if (pos == Map::BeforeFirst) {
        pos = ModifiedLogMap.First();
    }
    if (pos <= Map::PastLast || IsEmpty()) {
        pos = Map::PastLast;
        return;
    }
    const CellPos& key = ModifiedLogMap.KeyAt(pos);
    if (row != nullptr) {
        *row = key.Row;
    }
    if (col != nullptr) {
        *col = key.Col;
    }
    if (type != nullptr) {
        *type = ModifiedLogMap.ValueAt(pos);
    }
    pos = ModifiedLogMap.Next(pos);
}

void ModificationLog::ResetModifiedLog() {
    ModifiedLogMap.RemoveAll();
}

}  // namespace veygrid
