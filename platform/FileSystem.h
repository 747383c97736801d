// The files of the machine.
#pragma once

#include <cstddef>
#include <memory>

#include "persist/FileSystem.h"

namespace veygrid {

// A file that tells no size, such as a pipe, may hold no more bytes than this.
inline constexpr std::size_t MostUnsizedFileBytes = std::size_t{1} << 30U;

// A regular file is replaced by one written beside it and renamed, which gets the old one's
// permissions; a link keeps pointing to it. Where its folder takes no new files, it is overwritten
// once the whole content is known and its space is reserved. Anything else, such as a device or a
// pipe, is written straight, and read whole before it is handed out.
std::unique_ptr<FileSystem> MakeFileSystem();

}  // namespace veygrid
