// The files that grids are opened from and saved to, as the commands need them.
#pragma once

#include <memory>
#include <string_view>

#include "persist/ByteStream.h"

namespace veygrid {

// New content for a file. It takes the file's place as a whole on Commit; until then, and when the
// object ends without it, the file stands as it was and nothing else remains.
class FileReplacement : public ByteSink {
  public:
    // Throws ArchiveError when the content cannot be kept or put in place.
    virtual void Commit() = 0;
};

// Paths are UTF-8.
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    // Null when the file cannot be opened for reading. Throws ArchiveError when it opens and cannot
    // be read.
    virtual std::unique_ptr<ByteSource> OpenForReading(std::string_view path) = 0;
    // Null when such a file cannot be created or may not be written.
    virtual std::unique_ptr<FileReplacement> Replace(std::string_view path) = 0;
};

}  // namespace veygrid
