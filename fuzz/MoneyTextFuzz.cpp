// Fuzz target: a text shown as capital money text.
#include <string>

#include "fuzz/FuzzTools.h"
#include "fuzz/ValueTextModel.h"
#include "valuetext/MoneyText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veygrid;
    // A zero byte ends a number for the literal routine, which reads with the C library.
    const std::string text(TextOf(data, size).substr(0, TextOf(data, size).find('\0')));
    const std::string money = MoneyUpperText(text);
    Claim(IsMoneyNumber(text) == model::MoneyNumber(text), "numbers are those of the literal test");
    const auto expected = model::Money(text);
    Claim(money == expected.value_or(""), "money text is the literal one");
    Claim(money.empty() || money.ends_with(CodePage936FromUtf8("分")), "the decimals are named");
    Claim(MoneyUpperText(" \t" + text + "\n") == money, "blanks around a number do not count");
    return 0;
}
