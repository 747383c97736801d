// A drawing surface that keeps what it was asked to draw.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Surface.h"
#include "platform/recording/Operations.h"
#include "platform/recording/TextExtent.h"

namespace veygrid {

// Texts measure 6 pixels a byte and 12 pixels a line in the stock font, and in a font of |lfHeight|
// pixels that height a line and half of it a byte.
class RecordingSurface final : public Surface {
  public:
    bool IsPrinting() const override { return m_isPrinting; }
    std::int32_t GetDeviceCaps(std::int32_t index) const override;

    void SetBkColor(Color color) override { Add(recorded::SetBkColor{color}); }
    void SetBkMode(BkMode mode) override { Add(recorded::SetBkMode{mode}); }
    void SetTextColor(Color color) override { Add(recorded::SetTextColor{color}); }
    void SelectStockFont() override;
    void SelectFont(const LogFont& font) override;
    void SelectFormerFont() override;
    void SelectPen(Color color) override { Add(recorded::SelectPen{color}); }

    void FillSolidRect(const Rect& rect, Color color) override {
        Add(recorded::FillSolidRect{rect, color});
    }
    void Draw3dRect(const Rect& rect, Color topLeft, Color bottomRight) override {
        Add(recorded::Draw3dRect{rect, topLeft, bottomRight});
    }
    void DrawFrameControl(const Rect& rect, std::uint32_t type, std::uint32_t state) override {
        Add(recorded::DrawFrameControl{rect, type, state});
    }
    std::int32_t DrawText(std::string_view text, Rect& rect, std::uint32_t format) override;
    void MoveTo(Point point) override { Add(recorded::MoveTo{point}); }
    void LineTo(Point point) override { Add(recorded::LineTo{point}); }
    void SetPixel(Point point, Color color) override { Add(recorded::SetPixel{point, color}); }

    void InvertRect(const Rect& rect) override { Add(recorded::InvertRect{rect}); }
    void DrawFocusRect(const Rect& rect) override { Add(recorded::DrawFocusRect{rect}); }

    std::unique_ptr<SurfaceBitmap> CreateDIBitmap(std::span<const std::uint8_t> header,
                                                  std::span<const std::uint8_t> bits) override;
    void BitBlt(Point to, std::int32_t width, std::int32_t height,
                const SurfaceBitmap& bitmap) override;

    // A line between the operations, in UTF-8.
    void Remark(std::string line) { Add(recorded::Remark{std::move(line)}); }
    // All operations so far, one line each.
    std::string Dump() const;

    // What the surface answers.
    bool m_isPrinting = false;
    bool m_makesBitmaps = true;
    std::map<std::int32_t, std::int32_t> m_deviceCaps;

    std::vector<recorded::Operation> m_operations;

  private:
    template <class Operation>
    void Add(Operation operation) {
        m_operations.emplace_back(std::move(operation));
    }

    recorded::FixedPitch m_font;
};

}  // namespace veygrid
