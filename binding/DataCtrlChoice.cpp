// What the data dialog shows and answers.
#include "binding/DataCtrlChoice.h"

namespace veygrid {

DataCtrlChoice DataCtrlChoiceOf(const CCellFormat& format) {
    DataCtrlChoice choice;
    choice.dataType = format.DataType < OfferedDataTypes ? format.DataType : NoDataType;
    choice.showFormat = format.ShowFormat;
    choice.validity = format.Validity;
    return choice;
}

void ApplyDataCtrlChoice(const DataCtrlChoice& choice, CCellFormat& format) {
    format.DataType = static_cast<std::uint8_t>(choice.dataType);
    if (choice.showFormatChanged) {
        format.ShowFormat = choice.showFormat;
    }
    if (choice.validityChanged) {
        format.Validity = choice.validity;
    }
}

}  // namespace veygrid
