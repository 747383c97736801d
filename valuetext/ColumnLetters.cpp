// The letters that head a column: A to Z, AA to AZ, BA and so on.
#include "valuetext/ColumnLetters.h"

#include <algorithm>

namespace veygrid {

std::string ColumnLetters(std::int32_t col) {
    constexpr std::int32_t Base = 26;
    std::string letters;
    // A digit runs from 1 to 26, so one is borrowed before each division.
    for (; col > 0; col = (col - 1) / Base) {
        letters.push_back(static_cast<char>('A' + (col - 1) % Base));
    }
    std::reverse(letters.begin(), letters.end());
    return letters;
}

}  // namespace veygrid
