// Pictures from device-independent bitmaps.
#include "platform/cairo/CairoBitmap.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <optional>
#include <vector>

namespace veygrid {

namespace {

constexpr std::size_t InfoHeaderSize = 40;
constexpr std::int64_t MostSide = 32767;  // pixels
enum Compression : std::uint32_t { Rgb = 0, BitFields = 3 };

std::uint32_t ReadNumber(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i) {
        number |= static_cast<std::uint32_t>(bytes[at + i]) << (8 * i);
    }
    return number;
}

// The bits of one colour in a pixel.
class Channel {
  public:
    explicit Channel(std::uint32_t mask)
        : m_mask(mask), m_shift(mask == 0 ? 0 : std::countr_zero(mask)), m_most(mask >> m_shift) {}

    // 0 to 255.
    std::uint32_t Of(std::uint32_t pixel) const {
        const std::uint64_t value = (pixel & m_mask) >> m_shift;
        return m_most == 0 ? 0 : static_cast<std::uint32_t>(value * 255 / m_most);
    }

  private:
    std::uint32_t m_mask;
    int m_shift;
    std::uint32_t m_most;
};

class Dib {
  public:
    // Nothing where the header makes no sense.
    static std::optional<Dib> Parse(std::span<const std::uint8_t> header) {
        if (header.size() < InfoHeaderSize) {
            return std::nullopt;
        }
        Dib dib;
        dib.m_width = static_cast<std::int32_t>(ReadNumber(header, 4, 4));
        const std::int64_t height = static_cast<std::int32_t>(ReadNumber(header, 8, 4));
        dib.m_topDown = height < 0;
        dib.m_height = std::abs(height);
        dib.m_bitCount = ReadNumber(header, 14, 2);
        const std::uint32_t compression = ReadNumber(header, 16, 4);
        const bool fits = dib.m_width > 0 && dib.m_width <= MostSide && dib.m_height > 0 &&
                          dib.m_height <= MostSide;
        if (!fits || !dib.TakeDepth(header, compression)) {
            return std::nullopt;
        }
        return dib;
    }

    std::int32_t Width() const { return static_cast<std::int32_t>(m_width); }
    std::int32_t Height() const { return static_cast<std::int32_t>(m_height); }
    // Bytes of a row, which ends at a multiple of four.
    std::size_t Stride() const {
        return static_cast<std::size_t>((m_width * m_bitCount + 31) / 32 * 4);
    }
    std::size_t Size() const { return Stride() * static_cast<std::size_t>(m_height); }

    // Where the row that is `y` pixels below the top begins.
    std::size_t RowStart(std::int32_t y) const {
        return Stride() * static_cast<std::size_t>(m_topDown ? y : Height() - 1 - y);
    }
    // 0x00RRGGBB.
    std::uint32_t Pixel(std::span<const std::uint8_t> row, std::int32_t x) const {
        const auto bit = static_cast<std::size_t>(x) * m_bitCount;
        if (m_bitCount > 8) {
            const std::uint32_t pixel = ReadNumber(row, bit / 8, m_bitCount / 8);
            return m_red.Of(pixel) << 16U | m_green.Of(pixel) << 8U | m_blue.Of(pixel);
        }
        const std::size_t shift = 8 - m_bitCount - bit % 8;
        return m_table[static_cast<std::size_t>(row[bit / 8]) >> shift & ((1U << m_bitCount) - 1)];
    }

  private:
    bool TakeDepth(std::span<const std::uint8_t> header, std::uint32_t compression) {
        switch (m_bitCount) {
            case 1:
            case 4:
            case 8:
                return compression == Rgb && TakeTable(header);
            case 24:
                return compression == Rgb;
            case 16:
                SetMasks(0x7C00, 0x03E0, 0x001F);
                return compression == Rgb || (compression == BitFields && TakeMasks(header));
            case 32:
                return compression == Rgb || (compression == BitFields && TakeMasks(header));
            default:
                return false;
        }
    }
    void SetMasks(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
        m_red = Channel(red);
        m_green = Channel(green);
        m_blue = Channel(blue);
    }
    bool TakeMasks(std::span<const std::uint8_t> header) {
        constexpr std::size_t masks = InfoHeaderSize;
        if (header.size() < masks + 12) {
            return false;
        }
        SetMasks(ReadNumber(header, masks, 4), ReadNumber(header, masks + 4, 4),
                 ReadNumber(header, masks + 8, 4));
        return true;
    }
    // Colours that the table does not give are black.
    bool TakeTable(std::span<const std::uint8_t> header) {
        m_table.assign(std::size_t{1} << m_bitCount, 0);
        const std::size_t begin = ReadNumber(header, 0, 4);
        const std::uint32_t used = ReadNumber(header, 32, 4);
        const std::size_t count = used == 0 ? m_table.size() : used;
        if (begin < InfoHeaderSize || begin > header.size() ||
            count > (header.size() - begin) / 4) {
            return false;
        }
        for (std::size_t i = 0; i < std::min(count, m_table.size()); ++i) {
            m_table[i] = ReadNumber(header, begin + i * 4, 4) & 0xFFFFFFU;
        }
        return true;
    }

    std::int64_t m_width = 0;
    std::int64_t m_height = 0;
    std::uint32_t m_bitCount = 0;
    bool m_topDown = false;
    std::vector<std::uint32_t> m_table;
    Channel m_red{0xFF0000};
    Channel m_green{0x00FF00};
    Channel m_blue{0x0000FF};
};

}  // namespace

std::unique_ptr<CairoBitmap> BitmapFromDib(std::span<const std::uint8_t> header,
                                           std::span<const std::uint8_t> bits) {
    const std::optional<Dib> dib = Dib::Parse(header);
    if (!dib || bits.size() < dib->Size()) {
        return nullptr;
    }
    OwnedImage image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, dib->Width(), dib->Height()));
    if (cairo_surface_status(image.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(image.get())) /
                        sizeof(std::uint32_t);
    auto* const pixels =
        reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(image.get()));
    for (std::int32_t y = 0; y < dib->Height(); ++y) {
        const auto row = bits.subspan(dib->RowStart(y), dib->Stride());
        for (std::int32_t x = 0; x < dib->Width(); ++x) {
            pixels[static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(x)] =
                dib->Pixel(row, x);
        }
    }
    cairo_surface_mark_dirty(image.get());
    return std::make_unique<CairoBitmap>(std::move(image));
}

}  // namespace veygrid
