// The texts that the control shows, by the keys under which they are asked for.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace veygrid {

enum class Language { Chinese, English };

// What the control shows.
inline constexpr Language RunningLanguage = Language::Chinese;

// The text behind a key such as "MID_OK", or behind a Chinese text; without one, the key itself.
// Both in code page 936.
std::string GetMsg(std::string_view key, Language language = RunningLanguage);
// The text behind a number; without one, the number as eight hexadecimal digits behind "0x".
std::string GetMsg(std::uint32_t number, Language language = RunningLanguage);

}  // namespace veygrid
