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
    std::string buffer;
    // A dataset is asked first: nothing of the sheet is held while its code runs.
    const std::string_view text = store.CellTextRef(row, col, buffer);
    const std::string& showFormat = store.EffectiveFormatRef(row, col).ShowFormat;
    const std::string_view shown = ShownTextRef(text, showFormat, row, col, combos, buffer);
    return shown.data() == buffer.data() ? std::move(buffer) : std::string(shown);
}

std::string_view ShownTextRef(std::string_view text, std::string_view showFormat, std::int32_t row,
                              std::int32_t col, const ComboBoxes* combos, std::string& buffer) {
    switch (ShowKindOf(showFormat)) {
        case ShowKind::Plain:
            return text;
        case ShowKind::ComboText:
            if (combos == nullptr || !combos->ControlHasWindow()) {
                return text;
            }
            return buffer = ComboTextForValue(*combos, text, row, col);
        case ShowKind::Date:
        case ShowKind::Money:
            break;
    }
    return buffer = ShowText(std::string(text), showFormat);
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
