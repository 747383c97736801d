// Text between the encodings of files, the console and the wide calls of the system.
#pragma once

#include <string>
#include <string_view>

namespace veygrid {

std::string Utf8FromWide(std::wstring_view text);

// The text of a file: UTF-16 with its mark, UTF-8 with or without one, else code page 936.
std::wstring WideFromFileBytes(std::string_view bytes);

// Text of code page 936, as registered messages carry it, whatever the machine's locale.
std::wstring WideFromNarrow(std::string_view text);

// A text on an error with its number, "Access is denied (0x80070005)"; the system's own text where
// none is given.
std::wstring ErrorText(long result, std::wstring text = {});

}  // namespace veygrid
