// One change of format carried to everything that is selected.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "grid/CellFormat.h"
#include "grid/CellRange.h"
#include "grid/GridStore.h"

namespace veygrid {

// Changes a record in its place. A record can be met twice in one walk, so a second run on the same
// record must change nothing more.
using FormatEdit = std::function<void(CCellFormat&)>;

// Which record becomes that of a cell where a selected row meets a column with a format of its own:
// the column's, which the walk visits there, or the effective one, so that a cell's own stays.
enum class FormatBasis { Visited, Effective };

// Most records that one change may write.
inline constexpr std::int64_t MaxFormatWrites = std::int64_t{1} << 24;

// Changes the formats of the selected ranges, or of the active cell when there are none, and
// repaints once. A change of whole rows carries the columns' formats down into them, and one of
// whole columns the rows' formats. Neither notifies. Throws std::length_error, with the ranges in
// front already changed, for a range of more than MaxFormatWrites records.
void ChangeSelectedFormats(GridStore& store, std::span<const CellRange> selection,
                           const FormatEdit& edit, FormatBasis basis = FormatBasis::Visited);

// Removes every record but the default one; neither repaints nor notifies.
void ClearAllFormats(GridStore& store);

}  // namespace veygrid
