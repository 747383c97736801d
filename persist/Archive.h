// The primitive forms of the grid file: buffered writing, and reading that trusts nothing.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "grid/CellPos.h"
#include "grid/LogFont.h"
#include "persist/ByteStream.h"
#include "persist/StoredRect.h"

namespace veygrid {

// Files hold little-endian numbers and the memory form of the font record.
static_assert(std::endian::native == std::endian::little);

// Least bytes that a form takes in a stream, by which counts are judged.
inline constexpr std::size_t CellPosBytes = 8;
inline constexpr std::size_t LeastStringBytes = 1;

// Writes the primitive forms into a sink through a buffer. Nothing is flushed on destruction: an
// archive that was not closed has been given up.
class ArchiveWriter {
  public:
    // The sink must outlive the writer.
    explicit ArchiveWriter(ByteSink& sink);
    ArchiveWriter(const ArchiveWriter&) = delete;
    ArchiveWriter& operator=(const ArchiveWriter&) = delete;

    // Bytes written so far, those in the buffer included.
    std::uint64_t Position() const { return m_flushed + Buffered(); }

    void WriteU8(std::uint8_t value) { WriteFixed(value); }
    void WriteU16(std::uint16_t value) { WriteFixed(value); }
    void WriteU32(std::uint32_t value) { WriteFixed(value); }
    void WriteI16(std::int16_t value) { WriteFixed(value); }
    void WriteI32(std::int32_t value) { WriteFixed(value); }
    // One byte, or four: 1 or 0.
    void WriteBool8(bool value) { WriteFixed(static_cast<std::uint8_t>(value)); }
    void WriteBool32(bool value) { WriteFixed(static_cast<std::uint32_t>(value)); }
    void WriteCellPos(CellPos pos) { WriteFixed(pos); }
    void WriteRect(const StoredRect& rect) { WriteFixed(rect); }
    void WriteLogFont(const LogFont& font) { WriteFixed(font); }

    // Length prefix and bytes; throws ArchiveError above 4294967295 bytes.
    void WriteString(std::string_view text) {
        if (text.size() >= 0xFF || Room() <= text.size()) {
            WriteLongString(text);
            return;
        }
        *m_next++ = static_cast<char>(text.size());
        std::memcpy(m_next, text.data(), text.size());
        m_next += text.size();
    }
    // 16 bits, or a mark and 32 bits; throws ArchiveError above 4294967295.
    void WriteCount(std::size_t count);
    // Always 32 bits; throws ArchiveError above 4294967295.
    void WriteLongCount(std::size_t count);
    void WriteBytes(std::string_view bytes);

    // Hands what is buffered to the sink.
    void Close() { Flush(); }

  private:
    static constexpr std::size_t Capacity = std::size_t{1} << 17U;

    std::size_t Buffered() const { return static_cast<std::size_t>(m_next - m_buffer.get()); }
    std::size_t Room() const { return Capacity - Buffered(); }
    void Flush();
    void WriteLongString(std::string_view text);
    std::uint32_t Checked32(std::size_t number, std::string_view what) const;

    template <class Fixed>
    void WriteFixed(const Fixed& fixed) {
        static_assert(std::is_trivially_copyable_v<Fixed>);
        if (Room() < sizeof fixed) {
            Flush();
        }
        std::memcpy(m_next, &fixed, sizeof fixed);
        m_next += sizeof fixed;
    }

    ByteSink& m_sink;
    std::unique_ptr<char[]> m_buffer;
    char* m_next;
    std::uint64_t m_flushed = 0;
};

// Reads the primitive forms from a source. Every number, count and length is held against the bytes
// that are left before anything is allocated for it; what does not fit throws ArchiveError with the
// position of the first byte of the form that could not be read. A thrown error leaves the reader
// unfit for more reading.
class ArchiveReader {
  public:
    // The source must outlive the reader. The reader fetches ahead of what it has handed out.
    explicit ArchiveReader(ByteSource& source);
    ArchiveReader(const ArchiveReader&) = delete;
    ArchiveReader& operator=(const ArchiveReader&) = delete;

    // Names, for the texts of errors, what is read from now on. The name must outlive the reader.
    void EnterSection(std::string_view name) { m_section = name; }

    // Bytes handed out so far, and bytes still to come.
    std::uint64_t Position() const { return m_fetched - Buffered(); }
    std::uint64_t Left() const { return m_size - Position(); }
    // Up to `size` bytes, at most 65536, that come next, without taking them; good until the next
    // call.
    std::string_view Peek(std::size_t size);

    std::uint8_t ReadU8() { return ReadFixed<std::uint8_t>(); }
    std::uint16_t ReadU16() { return ReadFixed<std::uint16_t>(); }
    std::uint32_t ReadU32() { return ReadFixed<std::uint32_t>(); }
    std::int16_t ReadI16() { return ReadFixed<std::int16_t>(); }
    std::int32_t ReadI32() { return ReadFixed<std::int32_t>(); }
    // Any number but 0 is true.
    bool ReadBool8() { return ReadU8() != 0; }
    bool ReadBool32() { return ReadU32() != 0; }
    CellPos ReadCellPos() { return ReadFixed<CellPos>(); }
    StoredRect ReadRect() { return ReadFixed<StoredRect>(); }
    LogFont ReadLogFont() { return ReadFixed<LogFont>(); }

    // Text in code page 936, good until the next call. The form in 16-bit characters is converted.
    std::string_view ReadString() {
        if (m_next != m_end) {
            const auto length = static_cast<unsigned char>(*m_next);
            if (length != LongMark && Buffered() > length) {
                const char* const text = m_next + 1;
                m_next = text + length;
                return {text, length};
            }
        }
        return ReadLongString();
    }
    // A count of entries of which each takes at least `leastEntryBytes`, so that the count is never
    // above what the bytes left can hold.
    std::uint32_t ReadCount(std::size_t leastEntryBytes);
    // The same in the form of plain 32 bits.
    std::uint32_t ReadLongCount(std::size_t leastEntryBytes);
    // That many bytes, of which `what` says what they are.
    std::string ReadBlock(std::uint64_t size, std::string_view what);

  private:
    static constexpr std::size_t Capacity = std::size_t{1} << 17U;
    static constexpr unsigned LongMark = 0xFF;
    struct StringPrefix {
        std::uint32_t length;
        bool wide;
    };

    std::size_t Buffered() const { return static_cast<std::size_t>(m_end - m_next); }
    std::size_t FetchSome(char* target, std::size_t room);
    void Fetch(std::size_t size);
    void Require(std::size_t size);
    void ReadInto(char* target, std::size_t size);
    StringPrefix ReadStringPrefix();
    std::string_view ReadLongString();
    std::string_view ReadWideString(std::uint32_t length);
    std::uint32_t CheckedCount(std::uint32_t count, std::size_t leastEntryBytes,
                               std::uint64_t start) const;
    [[noreturn]] void Fail(const std::string& text, std::uint64_t position) const;

    template <class Fixed>
    Fixed ReadFixed() {
        static_assert(std::is_trivially_copyable_v<Fixed>);
        if (Buffered() < sizeof(Fixed)) {
            Require(sizeof(Fixed));
        }
        Fixed fixed;
        std::memcpy(&fixed, m_next, sizeof fixed);
        m_next += sizeof fixed;
        return fixed;
    }

    ByteSource& m_source;
    std::uint64_t m_size;
    std::uint64_t m_fetched = 0;
    std::unique_ptr<char[]> m_buffer;
    const char* m_next;
    const char* m_end;
    std::string_view m_section = "stream";
    std::string m_text;  // the last text that did not lie whole in the buffer
};

}  // namespace veygrid
