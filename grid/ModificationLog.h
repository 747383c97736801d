// The log of what the user changed, for hosts that write the sheet back to a database.
#pragma once

#include <cstdint>

#include "grid/CellPos.h"
#include "grid/GridMap.h"

namespace veygrid {

// Granularity of the log, the value of the `ModifiedLog` property. Any other value logs nothing.
enum class ModifiedLogMode : std::int16_t { Off = 0, Rows = 1, Columns = 2, Cells = 3 };

// Type of an entry: a change of a cell that came from a bound query, or anything else.
enum class ModifiedType : std::int16_t { Update = 2, Insert = 3 };

class ModificationLog {
  public:
    using Map = GridMap<std::int16_t>;

    // Adds an entry under the key that the mode gives: (row, 0), (0, col) or (row, col). The first
    // type recorded for a key stays; a key of two zeroes is not logged.
    void LogModification(std::int16_t mode, std::int32_t row, std::int32_t col, ModifiedType type);

    // -1 when there are entries, 0 when there are none.
    std::int32_t GetFirstModifiedLogPos() const;
    // From the entry that `pos` names (-1: the first one) reads key and type and moves `pos` to the
    // entry behind it, 0 after the last. Each target may be null. With a `pos`
    // that names no entry nothing is written but `pos`, which becomes 0.
    void GetNextModifiedLog(std::int32_t& pos, std::int32_t* row, std::int32_t* col,
                            std::int16_t* type) const;
    void ResetModifiedLog();

    bool IsEmpty() const { return ModifiedLogMap.IsEmpty(); }

    Map ModifiedLogMap;
};

}  // namespace veygrid
