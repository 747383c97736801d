// The primitive forms of the grid file: buffered writing, and reading that trusts nothing.
#include "persist/Archive.h"

#include <limits>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

constexpr std::uint8_t LongStringMark = 0xFF;
constexpr std::uint16_t WideStringMark = 0xFFFE;
constexpr std::uint16_t LongLengthMark = 0xFFFF;
constexpr std::uint16_t LongCountMark = 0xFFFF;

}  // namespace

ArchiveWriter::ArchiveWriter(ByteSink& sink)
    : m_sink(sink), m_buffer(new char[Capacity]), m_next(m_buffer.get()) {}

void ArchiveWriter::Flush() {
    if (Buffered() != 0) {
        m_sink.Write({m_buffer.get(), Buffered()});
        m_flushed += Buffered();
        m_next = m_buffer.get();
    }
}

void ArchiveWriter::WriteBytes(std::string_view bytes) {
    if (bytes.size() > Room()) {
        Flush();
    }
    if (bytes.size() > Capacity) {
        m_sink.Write(bytes);
        m_flushed += bytes.size();
    } else if (!bytes.empty()) {
        std::memcpy(m_next, bytes.data(), bytes.size());
        m_next += bytes.size();
    }
}

void ArchiveWriter::WriteLongString(std::string_view text) {
    const std::uint32_t length = Checked32(text.size(), "bytes of one text");
    if (length < LongStringMark) {
        WriteU8(static_cast<std::uint8_t>(length));
    } else if (length < WideStringMark) {
        WriteU8(LongStringMark);
        WriteU16(static_cast<std::uint16_t>(length));
    } else {
        WriteU8(LongStringMark);
        WriteU16(LongLengthMark);
        WriteU32(length);
    }
    WriteBytes(text);
}

void ArchiveWriter::WriteCount(std::size_t count) {
    if (count < LongCountMark) {
        WriteU16(static_cast<std::uint16_t>(count));
    } else {
        const std::uint32_t checked = Checked32(count, "entries");
        WriteU16(LongCountMark);
        WriteU32(checked);
    }
}

void ArchiveWriter::WriteLongCount(std::size_t count) {
    WriteU32(Checked32(count, "entries or bytes"));
}

std::uint32_t ArchiveWriter::Checked32(std::size_t number, std::string_view what) const {
    if (number > std::numeric_limits<std::uint32_t>::max()) {
        throw ArchiveError(std::to_string(number) + " " + std::string(what) + " at byte " +
                               std::to_string(Position()) + " are more than the file can count",
                           Position());
    }
    return static_cast<std::uint32_t>(number);
}

ArchiveReader::ArchiveReader(ByteSource& source)
    : m_source(source),
      m_size(source.Size()),
      m_buffer(new char[Capacity]),
      m_next(m_buffer.get()),
      m_end(m_buffer.get()) {}

void ArchiveReader::Fail(const std::string& text, std::uint64_t position) const {
    throw ArchiveError(std::string(m_section) + ": " + text, position);
}

// Up to `room` bytes from the source, at least one.
std::size_t ArchiveReader::FetchSome(char* target, std::size_t room) {
    const std::uint64_t coming = m_size - m_fetched;
    const std::size_t got =
        m_source.Read(target, coming < room ? static_cast<std::size_t>(coming) : room);
    if (got == 0) {
        Fail("the stream ends at byte " + std::to_string(m_fetched) + ", though " +
                 std::to_string(coming) + " more were promised",
             m_fetched);
    }
    m_fetched += got;
    return got;
}

// Fills the buffer until it holds at least `size` bytes, which must be left and fit.
void ArchiveReader::Fetch(std::size_t size) {
    char* const start = m_buffer.get();
    std::size_t filled = Buffered();
    std::memmove(start, m_next, filled);
    m_next = start;
    m_end = start + filled;
    while (filled < size) {
        filled += FetchSome(start + filled, Capacity - filled);
        m_end = start + filled;
    }
}

void ArchiveReader::Require(std::size_t size) {
    if (size > Left()) {
        Fail(std::to_string(size) + " bytes wanted at byte " + std::to_string(Position()) + ", " +
                 std::to_string(Left()) + " left",
             Position());
    }
    Fetch(size);
}

std::string_view ArchiveReader::Peek(std::size_t size) {
    const std::size_t present = Left() < size ? static_cast<std::size_t>(Left()) : size;
    if (Buffered() < present) {
        Fetch(present);
    }
    return {m_next, present};
}

// Bytes that are known to be left; what the buffer does not hold goes straight to its target.
void ArchiveReader::ReadInto(char* target, std::size_t size) {
    const std::size_t ready = std::min(size, Buffered());
    std::memcpy(target, m_next, ready);
    m_next += ready;
    for (std::size_t done = ready; done < size;) {
        done += FetchSome(target + done, size - done);
    }
}

ArchiveReader::StringPrefix ArchiveReader::ReadStringPrefix() {
    bool wide = false;
    for (;;) {
        const std::uint8_t small = ReadU8();
        if (small != LongStringMark) {
            return {small, wide};
        }
        const std::uint64_t start = Position();
        const std::uint16_t medium = ReadU16();
        if (medium == LongLengthMark) {
            return {ReadU32(), wide};
        }
        if (medium != WideStringMark) {
            return {medium, wide};
        }
        if (wide) {
            Fail("second mark of a text in 16-bit characters at byte " + std::to_string(start),
                 start);
        }
        wide = true;
    }
}

std::string_view ArchiveReader::ReadLongString() {
    const std::uint64_t start = Position();
    const StringPrefix prefix = ReadStringPrefix();
    const std::uint64_t size = std::uint64_t{prefix.length} * (prefix.wide ? 2 : 1);
    if (size > Left()) {
        Fail("text of " + std::to_string(size) + " bytes at byte " + std::to_string(start) +
                 " is longer than the " + std::to_string(Left()) + " left",
             start);
    }
    if (prefix.wide) {
        return ReadWideString(prefix.length);
    }
    const auto length = static_cast<std::size_t>(size);
    if (length > Capacity) {
        m_text.resize(length);
        ReadInto(m_text.data(), length);
        return m_text;
    }
    if (Buffered() < length) {
        Fetch(length);
    }
    const char* const text = m_next;
    m_next += length;
    return {text, length};
}

std::string_view ArchiveReader::ReadWideString(std::uint32_t length) {
    std::u16string wide(length, u'\0');
    ReadInto(reinterpret_cast<char*>(wide.data()), std::size_t{length} * sizeof(char16_t));
    m_text = CodePage936FromUtf16(wide);
    return m_text;
}

std::uint32_t ArchiveReader::CheckedCount(std::uint32_t count, std::size_t leastEntryBytes,
                                          std::uint64_t start) const {
    if (count > Left() / leastEntryBytes) {
        Fail("count " + std::to_string(count) + " at byte " + std::to_string(start) +
                 " needs more bytes than the " + std::to_string(Left()) + " left",
             start);
    }
    return count;
}

std::uint32_t ArchiveReader::ReadCount(std::size_t leastEntryBytes) {
    const std::uint64_t start = Position();
    const std::uint16_t small = ReadU16();
    return CheckedCount(small == LongCountMark ? ReadU32() : small, leastEntryBytes, start);
}

std::uint32_t ArchiveReader::ReadLongCount(std::size_t leastEntryBytes) {
    const std::uint64_t start = Position();
    return CheckedCount(ReadU32(), leastEntryBytes, start);
}

std::string ArchiveReader::ReadBlock(std::uint64_t size, std::string_view what) {
    if (size > Left()) {
        Fail(std::string(what) + " of " + std::to_string(size) + " bytes at byte " +
                 std::to_string(Position()) + " is longer than the " + std::to_string(Left()) +
                 " left",
             Position());
    }
    std::string block(static_cast<std::size_t>(size), '\0');
    ReadInto(block.data(), block.size());
    return block;
}

}  // namespace veygrid
