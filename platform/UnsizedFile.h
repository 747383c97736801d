// Reading files that do not tell their size, such as pipes, whole into memory.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "persist/ByteStream.h"
#include "platform/FileSystem.h"

namespace veygrid {

// Bytes that it owns.
class StringSource final : public ByteSource {
  public:
    explicit StringSource(std::string bytes) : m_bytes(std::move(bytes)), m_source(m_bytes) {}

    std::uint64_t Size() const override { return m_source.Size(); }
    std::size_t Read(char* buffer, std::size_t room) override {
        return m_source.Read(buffer, room);
    }

  private:
    std::string m_bytes;
    MemorySource m_source;
};

// All that `read(buffer, room)` gives until it gives 0 bytes. Throws ArchiveError above
// `mostBytes`.
template <class Read>
std::unique_ptr<ByteSource> ReadUnsized(Read read, std::size_t mostBytes = MostUnsizedFileBytes) {
    constexpr std::size_t FirstRoom = std::size_t{1} << 16U;
    std::string bytes;
    std::size_t filled = 0;
    for (std::size_t got = 1; got != 0; filled += got) {
        if (filled > mostBytes) {
            throw ArchiveError(
                "a file that tells no size goes on behind byte " + std::to_string(mostBytes),
                mostBytes);
        }
        if (filled == bytes.size()) {
            // One byte more than allowed tells whether the file ends.
            bytes.resize(std::min(std::max(FirstRoom, 2 * filled), mostBytes + 1));
        }
        got = read(bytes.data() + filled, bytes.size() - filled);
    }
    bytes.resize(filled);
    return std::make_unique<StringSource>(std::move(bytes));
}

}  // namespace veygrid
