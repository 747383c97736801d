// What a cell shows, what may be typed into it, and the width that its column needs.
#include "grid/CellShow.h"

#include <algorithm>
#include <utility>

#include "valuetext/BindSource.h"
#include "valuetext/CellClass.h"
#include "valuetext/ShowFormat.h"

namespace veygrid {

namespace {

bool IsBoundTo(const std::string& bindSource, std::int32_t row, std::int32_t col) {
    if (!IsCellBound(bindSource)) {
        return false;
    }
    std::int32_t boundRow = 0;
    std::int32_t boundCol = 0;
    ParseBindSource(bindSource, &boundRow, &boundCol);
    return (boundRow == row || boundRow == 0) && boundCol == col;
}

}  // namespace

std::string GetCellFormatText(const GridStore& store, std::int32_t row, std::int32_t col,
                              const ComboBoxes* combos) {
    const std::string& showFormat = store.EffectiveFormatRef(row, col).ShowFormat;
    std::string text = store.CellText(row, col);
    if (combos != nullptr && combos->ControlHasWindow() &&
        ShowKindOf(showFormat) == ShowKind::ComboText) {
        return ComboTextForValue(*combos, text, row, col);
    }
    return ShowText(std::move(text), showFormat);
}

std::string ComboTextForValue(const ComboBoxes& combos, std::string_view value, std::int32_t row,
                              std::int32_t col) {
    for (std::size_t object = 0; object < combos.ObjectCount(); ++object) {
        const std::optional<std::string> bindSource = combos.BindSourceOf(object);
        if (bindSource && IsBoundTo(*bindSource, row, col)) {
            return combos.ObjectHasWindow(object) ? combos.ItemText(object, value)
                                                  : std::string(value);
        }
    }
    return std::string(value);
}

bool ValidateCellText(const GridStore& store, std::int32_t row, std::int32_t col,
                      std::string_view text) {
    return DataTypeAccepts(store.EffectiveFormatRef(row, col).DataType, text);
}

void SetColAutoWidth(GridStore& store, std::int32_t col, const TextMeasure& measure,
                     const ComboBoxes* combos) {
    std::string longest;
    for (std::int32_t row = 1; row <= AutoWidthRows; ++row) {
        std::string text = GetCellFormatText(store, row, col, combos);
        if (text.size() > longest.size()) {
            longest = std::move(text);
        }
    }
    std::string header = store.ColHeader(col);
    if (header.size() > longest.size()) {
        longest = std::move(header);
    }
    const std::int64_t width = std::int64_t{measure.TextWidth(longest)} + AutoWidthMargin;
    store.SetColWidth(col, static_cast<std::int32_t>(std::min(width, std::int64_t{MaxAutoWidth})));
    store.SetModifiedAndNotify(true);
}

}  // namespace veygrid
