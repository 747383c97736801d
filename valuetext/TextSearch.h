// Text searches that do not tell small letters from capital ones.
#pragma once

#include <cstddef>
#include <string_view>

namespace veygrid {

// True when the text begins with `what`, the letters A to Z being equal to a to z. Two-byte
// characters are compared as they are, whatever letter their second byte looks like.
bool StartsWithNoCase(std::string_view text, std::string_view what);

// First position of `what` that begins at the first byte of a character, from `start` on, compared
// as by StartsWithNoCase; NotFound when there is none. Byte offsets; `start` must be the first byte
// of a character, or lie at the end or behind it, where only an empty `what` at the very end is
// found. `what` is meant to be a keyword: its length counts for each place where its first letter
// stands.
std::size_t FindNoCase(std::string_view text, std::string_view what, std::size_t start = 0);

}  // namespace veygrid
