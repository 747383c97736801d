// What a cell shows, what may be typed into it, and the width that its column needs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "grid/GridStore.h"

namespace veygrid {

// The form objects as "[CB_TEXT]" looks them up, numbered from 0 in their own order.
class ComboBoxes {
  public:
    virtual ~ComboBoxes() = default;

    virtual bool ControlHasWindow() const = 0;
    virtual std::size_t ObjectCount() const = 0;
    // The bind source of a combo box; nothing for an object of another type.
    virtual std::optional<std::string> BindSourceOf(std::size_t object) const = 0;
    virtual bool ObjectHasWindow(std::size_t object) const = 0;
    // The text of the item that carries the value, empty when none does.
    virtual std::string ItemText(std::size_t object, std::string_view value) const = 0;
};

// The shown text of a cell. A row or column 0 reads the text of the active one, but the format of
// the whole row, column or sheet. Without combo boxes, or without a window, "[CB_TEXT]" shows the
// text as stored.
std::string GetCellFormatText(const GridStore& store, std::int32_t row, std::int32_t col,
                              const ComboBoxes* combos = nullptr);

// The same form of a text that was read from the cell, without a copy: the text itself where it is
// shown as stored, or else in `buffer`, in which the text may lie.
std::string_view ShownTextRef(std::string_view text, std::string_view showFormat, std::int32_t row,
                              std::int32_t col, const ComboBoxes* combos, std::string& buffer);

// The text that the first combo box bound to the cell, or to its whole column, shows for a value;
// the value itself where there is none or it has no window.
std::string ComboTextForValue(const ComboBoxes& combos, std::string_view value, std::int32_t row,
                              std::int32_t col);

// Whether a typed text may be stored in the cell, by the data type of its format.
bool ValidateCellText(const GridStore& store, std::int32_t row, std::int32_t col,
                      std::string_view text);

class TextMeasure {
  public:
    virtual ~TextMeasure() = default;
    // Width in pixels of the text in the control's own font.
    virtual std::int32_t TextWidth(std::string_view text) const = 0;
};

// Rows that take part in the automatic width, whatever `MaxRow` is.
inline constexpr std::int32_t AutoWidthRows = 999;
inline constexpr std::int32_t AutoWidthMargin = 8;  // pixels
inline constexpr std::int32_t MaxAutoWidth = 480;   // pixels

// Sets the width of a column from the text that is longest in bytes, the column header included.
void SetColAutoWidth(GridStore& store, std::int32_t col, const TextMeasure& measure,
                     const ComboBoxes* combos = nullptr);

}  // namespace veygrid
