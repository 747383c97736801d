// The message boxes of the control: their one caption and their styles.
#pragma once

#include <cstdint>
#include <string_view>

namespace veygrid {

inline constexpr std::string_view MessageCaption = "Veynor Grid Control";

// Style words of the platform's message box.
inline constexpr std::int32_t StopMessageStyle = 16;
inline constexpr std::int32_t YesNoMessageStyle = 36;
inline constexpr std::int32_t InformationMessageStyle = 64;

}  // namespace veygrid
