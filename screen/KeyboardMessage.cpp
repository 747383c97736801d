// One message of the host's loop as the keyboard machine sees it, and where it goes.
#include "screen/KeyboardMessage.h"

#include <string_view>
#include <utility>
#include <vector>

#include "valuetext/CodePage936.h"

namespace veygrid {

std::string TypedText(char16_t unit) {
    std::vector<EncodeFault> faults;
    std::string text = CodePage936FromUtf16(std::u16string_view(&unit, 1), &faults);
    return faults.empty() ? std::move(text) : std::string();
}

}  // namespace veygrid
