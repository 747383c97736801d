// Where the bytes of an archive come from and go to, and the one exception of reading and writing.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

namespace veygrid {

// A stream that ended early, holds an impossible count or length, or could not be read or written.
// The text is English and names the byte position, which is counted from 0.
class ArchiveError : public std::runtime_error {
  public:
    ArchiveError(const std::string& text, std::uint64_t position)
        : std::runtime_error(text), m_position(position) {}

    std::uint64_t Position() const { return m_position; }

  private:
    std::uint64_t m_position;
};

class ByteSink {
  public:
    virtual ~ByteSink() = default;

    // Takes all the bytes or throws ArchiveError.
    virtual void Write(std::string_view bytes) = 0;
};

class ByteSource {
  public:
    virtual ~ByteSource() = default;

    // Bytes from the beginning to the end; no more than these are ever asked for.
    virtual std::uint64_t Size() const = 0;
    // Puts up to `room` bytes, which is above 0, into the buffer and gives their number; 0 when the
    // source ends before its size. Throws ArchiveError when reading fails.
    virtual std::size_t Read(char* buffer, std::size_t room) = 0;
};

class MemorySink final : public ByteSink {
  public:
    void Write(std::string_view bytes) override { Bytes.append(bytes); }

    std::string Bytes;
};

// Reads bytes that the caller owns and keeps alive.
class MemorySource final : public ByteSource {
  public:
    explicit MemorySource(std::string_view bytes) : m_bytes(bytes) {}

    std::uint64_t Size() const override { return m_bytes.size(); }
    std::size_t Read(char* buffer, std::size_t room) override {
        const std::size_t size = std::min(room, m_bytes.size() - m_next);
        if (size != 0) {
            std::memcpy(buffer, m_bytes.data() + m_next, size);
        }
        m_next += size;
        return size;
    }

  private:
    std::string_view m_bytes;
    std::size_t m_next = 0;
};

}  // namespace veygrid
