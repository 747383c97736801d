// The parts of a device-independent bitmap, taken from bytes that nobody vouches for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace veygrid {

inline constexpr std::size_t InfoHeaderBytes = 40;
// A picture of more pixels than this is none.
inline constexpr std::int64_t MostImagePixels = std::int64_t{1} << 26U;

struct DibParts {
    // Info header of 40 bytes, which says so itself, and colour table.
    std::vector<std::uint8_t> header;
    // The rest of the block that the parts were taken from: at least as many bytes as the header
    // asks for.
    std::span<const std::uint8_t> bits;
};

// Parts of a block that is a bitmap file without its file header. Nothing when the block ends
// early, or when the header describes no picture: no or too many pixels, a number of bits that is
// none of 1, 4, 8, 16, 24 and 32, or a compression that does not go with it. Headers longer than 40
// bytes are taken for one of 40, and what follows for colour table and pixels.
std::optional<DibParts> SplitDib(std::string_view block);

}  // namespace veygrid
