// A drawing surface that keeps what it was asked to draw.
#include "platform/recording/RecordingSurface.h"

#include <cstring>

namespace veygrid {

namespace {

class RecordedBitmap final : public SurfaceBitmap {
  public:
    RecordedBitmap(std::int32_t width, std::int32_t height) : m_width(width), m_height(height) {}

    std::int32_t Width() const override { return m_width; }
    std::int32_t Height() const override { return m_height; }

  private:
    std::int32_t m_width;
    std::int32_t m_height;
};

std::int32_t NumberAt(std::span<const std::uint8_t> bytes, std::size_t pos) {
    std::int32_t number = 0;
    std::memcpy(&number, bytes.subspan(pos).data(), sizeof number);
    return number;
}

// The least number stays what it is.
constexpr std::int32_t Absolute(std::int32_t number) {
    return number < 0 ? WrapSub(0, number) : number;
}

}  // namespace

std::int32_t RecordingSurface::GetDeviceCaps(std::int32_t index) const {
    const auto found = m_deviceCaps.find(index);
    return found == m_deviceCaps.end() ? 0 : found->second;
}

void RecordingSurface::SelectStockFont() {
    m_font = {};
    Add(recorded::SelectStockFont{});
}

void RecordingSurface::SelectFont(const LogFont& font) {
    m_font = {};
    if (font.lfHeight != 0) {
        m_font.lineHeight = Absolute(font.lfHeight);
        m_font.byteWidth = m_font.lineHeight / 2;
    }
    Add(recorded::SelectFont{font});
}

void RecordingSurface::SelectFormerFont() {
    m_font = {};
    Add(recorded::SelectFormerFont{});
}

std::int32_t RecordingSurface::DrawText(std::string_view text, Rect& rect, std::uint32_t format) {
    const recorded::TextExtent extent = recorded::MeasureText(text, format, rect.Width(), m_font);
    Add(recorded::DrawText{std::string(text), rect, format, extent.width, extent.height});
    if ((format & DtCalcRect) != 0) {
        rect.right = WrapAdd(rect.left, extent.width);
        rect.bottom = WrapAdd(rect.top, extent.height);
    }
    return extent.height;
}

std::unique_ptr<SurfaceBitmap> RecordingSurface::CreateDIBitmap(
    std::span<const std::uint8_t> header, std::span<const std::uint8_t> bits) {
    constexpr std::size_t WidthAt = 4;
    constexpr std::size_t HeightAt = 8;
    const std::int32_t width = NumberAt(header, WidthAt);
    const std::int32_t height = Absolute(NumberAt(header, HeightAt));
    Add(recorded::CreateDIBitmap{width, height, header.size(), bits.size()});
    return m_makesBitmaps ? std::make_unique<RecordedBitmap>(width, height) : nullptr;
}

void RecordingSurface::BitBlt(Point to, std::int32_t width, std::int32_t height,
                              const SurfaceBitmap& /*bitmap*/) {
    Add(recorded::BitBlt{to, width, height});
}

std::string RecordingSurface::Dump() const {
    std::string lines;
    for (const recorded::Operation& operation : m_operations) {
        lines += recorded::Dump(operation) + '\n';
    }
    return lines;
}

}  // namespace veygrid
