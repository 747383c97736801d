// The dataset that a host binds to the sheet, as the sheet reads it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace veygrid {

// Rows and columns are 1-based; texts are in code page 936. A failing dataset throws, and the
// exception passes through the sheet unchanged.
class Dataset {
  public:
    virtual ~Dataset() = default;

    virtual std::string GetCellValue(std::int32_t row, std::int32_t col) = 0;
    virtual std::int32_t GetColCount() = 0;
    virtual std::int32_t GetRowCount() = 0;
    // A negative result refuses the text and names a message.
    virtual std::int32_t SetColCaption(std::int32_t col, std::string_view text) = 0;
    virtual std::string GetColName(std::int32_t col) = 0;
};

}  // namespace veygrid
