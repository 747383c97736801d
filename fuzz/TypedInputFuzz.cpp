// Fuzz target: a typed text and what its class lets it be stored as, and a cell reference.
#include <algorithm>
#include <initializer_list>
#include <string>

#include "fuzz/FuzzTools.h"
#include "fuzz/ValueTextModel.h"
#include "valuetext/BindSource.h"
#include "valuetext/CellClass.h"

namespace veygrid {
namespace {

void CheckClass(const std::string& text) {
    const CellClass found = ClassifyCellText(text);
    Claim(static_cast<int>(found) == model::Classify(text), "the class is the literal one");
    Claim(Trim(text).empty() || ClassifyCellText(" \t" + text + "\r\n ") == found,
          "blanks around a text do not count");
    Claim(found != CellClass::NegativeInteger || Trim(text).front() == '-',
          "a negative number begins with its sign");
}

bool Among(CellClass found, std::initializer_list<CellClass> accepted) {
    return std::find(accepted.begin(), accepted.end(), found) != accepted.end();
}

void CheckAcceptance(const std::string& text) {
    using enum CellClass;
    const CellClass found = ClassifyCellText(text);
    for (unsigned type = 0; type <= 0xFF; ++type) {
        const bool accepted =
            text.empty() ||
            (type == IntegerDataType ? Among(found, {Integer, NegativeInteger})
             : type == FloatDataType
                 ? Among(found, {Integer, NegativeInteger, Decimal, NegativeDecimal})
                 : type != DateDataType || found == Date);
        Claim(DataTypeAccepts(static_cast<std::uint8_t>(type), text) == accepted,
              "a data type accepts the classes of its row");
    }
}

void CheckBindSource(const std::string& text) {
    const auto name = ParamNameOf(text);
    Claim(!name || (LiesIn(text, *name) && IsParamBound(text)), "a name lies between its markers");
    Claim(!name || name->find(">%") == std::string_view::npos, "a name ends at the first marker");
    Claim(!IsCellBound(text) || (!text.empty() && !IsParamBound(text)),
          "one binding excludes another");

    std::int32_t row = 7;
    std::int32_t col = 7;
    const std::string capitals = UpperCase(text);
    const bool hasRow = FindChar(capitals, 'R') != NotFound;
    const bool hasCol = FindChar(capitals, 'C') != NotFound;
    Claim(ParseBindSource(text, &row, &col) == (hasRow || hasCol), "either letter makes a cell");
    Claim((row == -1 && col == -1) || hasRow || hasCol, "no letter, no cell");
    Claim(hasRow || row == (hasCol ? 0 : -1), "a missing row is 0");
    Claim(hasCol || col == (hasRow ? 0 : -1), "a missing column is 0");
    Claim(ParseBindSource(text, nullptr, nullptr) == (hasRow || hasCol), "targets may be missing");
}

void CheckPrintedCell(std::int32_t row, std::int32_t col) {
    const std::string cell = " r" + std::to_string(row) + "C" + std::to_string(col);
    std::int32_t readRow = 0;
    std::int32_t readCol = 0;
    Claim(ParseBindSource(cell, &readRow, &readCol) && readRow == row && readCol == col,
          "a printed cell is read again");
}

}  // namespace
}  // namespace veygrid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veygrid;
    const std::string text(TextOf(data, size));
    CheckClass(text);
    CheckAcceptance(text);
    CheckBindSource(text);
    std::int32_t row = 0;
    std::int32_t col = 0;
    if (ParseBindSource(text, &row, &col)) {
        CheckPrintedCell(row, col);
    }
    return 0;
}
