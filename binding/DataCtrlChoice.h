// What the data dialog shows and answers.
#pragma once

#include <cstdint>
#include <string>

#include "grid/CellFormat.h"

namespace veygrid {

// Data types that the dialog offers; an index in its list is the value of `DataType`.
inline constexpr std::int32_t OfferedDataTypes = 5;
// The index while none is chosen. Confirmed, it is stored as the byte 255.
inline constexpr std::int32_t NoDataType = -1;

// Texts are in code page 936.
struct DataCtrlChoice {
    std::int32_t dataType = NoDataType;
    std::string showFormat = {};
    std::string validity = {};
    // Whether the user has touched the text, even if it is again what it was.
    bool showFormatChanged = false;
    bool validityChanged = false;

    friend bool operator==(const DataCtrlChoice&, const DataCtrlChoice&) = default;
};

// What the dialog is preset with. A data type that it does not offer shows as none.
DataCtrlChoice DataCtrlChoiceOf(const CCellFormat& format);
// The data type goes into the record whatever it is, the texts only where they were touched.
void ApplyDataCtrlChoice(const DataCtrlChoice& choice, CCellFormat& format);

}  // namespace veygrid
