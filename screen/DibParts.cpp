// The parts of a device-independent bitmap, taken from bytes that nobody vouches for.
#include "screen/DibParts.h"

#include <cstring>

namespace veygrid {

namespace {

// The header as files hold it, little-endian.
struct InfoHeader {
    std::uint32_t biSize;
    std::int32_t biWidth;
    std::int32_t biHeight;  // negative when the first line is the top one
    std::uint16_t biPlanes;
    std::uint16_t biBitCount;
    std::uint32_t biCompression;
    std::uint32_t biSizeImage;
    std::int32_t biXPelsPerMeter;
    std::int32_t biYPelsPerMeter;
    std::uint32_t biClrUsed;
    std::uint32_t biClrImportant;
};
static_assert(sizeof(InfoHeader) == InfoHeaderBytes);

enum Compression : std::uint32_t { BiRgb = 0, BiRle8 = 1, BiRle4 = 2, BiBitFields = 3 };

constexpr std::uint64_t TableEntryBytes = 4;
// Masks that stand where the colour table would.
constexpr std::uint64_t BitFieldMasks = 3;

std::uint64_t TableBytes(const InfoHeader& header) {
    std::uint64_t entries = header.biClrUsed;
    if (header.biBitCount > 8) {
        entries += header.biCompression == BiBitFields ? BitFieldMasks : 0;
    } else if (entries == 0) {
        entries = std::uint64_t{1} << header.biBitCount;
    }
    return entries * TableEntryBytes;
}

bool IsBitCountSound(const InfoHeader& header) {
    switch (header.biBitCount) {
        case 1:
        case 24:
            return header.biCompression == BiRgb;
        case 4:
            return header.biCompression == BiRgb || header.biCompression == BiRle4;
        case 8:
            return header.biCompression == BiRgb || header.biCompression == BiRle8;
        case 16:
        case 32:
            return header.biCompression == BiRgb || header.biCompression == BiBitFields;
        default:
            return false;
    }
}

std::int64_t Lines(const InfoHeader& header) {
    const std::int64_t height = header.biHeight;
    return height < 0 ? -height : height;
}

bool IsSizeSound(const InfoHeader& header) {
    return header.biWidth > 0 && header.biHeight != 0 &&
           header.biWidth <= MostImagePixels / Lines(header);
}

// Bytes behind the table that the picture cannot do without. Packed pixels run from bottom to top
// and tell their number themselves.
std::optional<std::uint64_t> BitsBytes(const InfoHeader& header) {
    if (header.biCompression == BiRle8 || header.biCompression == BiRle4) {
        const bool isSound = header.biHeight > 0 && header.biSizeImage != 0;
        return isSound ? std::optional<std::uint64_t>(header.biSizeImage) : std::nullopt;
    }
    const auto lineBits = static_cast<std::uint64_t>(header.biWidth) * header.biBitCount;
    return (lineBits + 31) / 32 * 4 * static_cast<std::uint64_t>(Lines(header));
}

}  // namespace

std::optional<DibParts> SplitDib(std::string_view block) {
    InfoHeader header;
    if (block.size() < sizeof header) {
        return std::nullopt;
    }
    std::memcpy(&header, block.data(), sizeof header);
    if (!IsBitCountSound(header) || !IsSizeSound(header)) {
        return std::nullopt;
    }
    const std::uint64_t bitsStart = InfoHeaderBytes + TableBytes(header);
    const std::optional<std::uint64_t> bitsBytes = BitsBytes(header);
    if (!bitsBytes || block.size() < bitsStart || block.size() - bitsStart < *bitsBytes) {
        return std::nullopt;
    }
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(block.data()), block.size());
    const std::span table = bytes.first(static_cast<std::size_t>(bitsStart));
    DibParts parts{{table.begin(), table.end()},
                   bytes.subspan(static_cast<std::size_t>(bitsStart))};
    header.biSize = InfoHeaderBytes;
    std::memcpy(parts.header.data(), &header, sizeof header);
    return parts;
}

}  // namespace veygrid
