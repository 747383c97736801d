// What the alignment dialog shows and answers.
#include "screen/AlignChoice.h"

#include <array>
#include <cstddef>
#include <span>

namespace veygrid {

namespace {

// Values of each byte of `Align`, by the index in the dialog's list.
constexpr std::array<unsigned, 4> HorizontalValues{0, 1, 2, 4};
constexpr std::array<unsigned, 3> VerticalValues{0, 1, 2};

// Bits decide, the lowest first, so that a stored value with more of them shows something too.
std::int32_t IndexOf(std::span<const unsigned> values, unsigned byte) {
    if (byte == 0) {
        return 0;
    }
    for (std::size_t i = 1; i < values.size(); ++i) {
        if ((byte & values[i]) != 0) {
            return static_cast<std::int32_t>(i);
        }
    }
    return NothingChosen;
}

unsigned ChosenByte(std::span<const unsigned> values, std::int32_t index, unsigned before) {
    const bool isChosen = index >= 0 && static_cast<std::size_t>(index) < values.size();
    return isChosen ? values[static_cast<std::size_t>(index)] : before;
}

std::int32_t BoxOf(std::uint8_t flags, std::uint8_t flag) {
    return (flags & flag) != 0 ? BoxSet : BoxClear;
}

void ApplyBox(std::int32_t state, std::uint8_t flag, std::uint8_t& flags) {
    if (state == BoxClear) {
        flags = static_cast<std::uint8_t>(flags & ~flag);
    } else if (state == BoxSet) {
        flags = static_cast<std::uint8_t>(flags | flag);
    }
}

}  // namespace

AlignChoice AlignChoiceOf(const CCellFormat& format) {
    return {.horizontal = IndexOf(HorizontalValues, format.Align & 0xFFU),
            .vertical = IndexOf(VerticalValues, format.Align >> 8U),
            .wordBreak = BoxOf(format.Flags, CCellFormat::WordWrapFlag),
            .readOnly = BoxOf(format.Flags, CCellFormat::ReadOnlyFlag)};
}

void ApplyAlignChoice(const AlignChoice& choice, CCellFormat& format) {
    const unsigned low = ChosenByte(HorizontalValues, choice.horizontal, format.Align & 0xFFU);
    const unsigned high = ChosenByte(VerticalValues, choice.vertical, format.Align >> 8U);
    format.Align = static_cast<std::uint16_t>(high << 8U | low);
    ApplyBox(choice.wordBreak, CCellFormat::WordWrapFlag, format.Flags);
    ApplyBox(choice.readOnly, CCellFormat::ReadOnlyFlag, format.Flags);
}

}  // namespace veygrid
