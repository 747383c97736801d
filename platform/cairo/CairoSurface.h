// The drawing surface on Cairo: a picture in memory, a page of a document, a drawing.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "platform/Surface.h"
#include "platform/cairo/CairoFont.h"
#include "platform/cairo/GlyphPen.h"
#include "platform/cairo/Owners.h"
#include "platform/cairo/TextLines.h"

namespace veygrid {

// What a surface is like.
struct SurfaceTraits {
    // Pixels of the drawing.
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    // Is selected by SelectStockFont; DefaultFont where it names no font.
    LogFont StockFont{.lfWeight = -1};
    bool IsPrinting = false;
};

// Draws in pixels of the drawing, which the context's own matrix may make larger. Nothing is drawn
// beyond the width and height. Lines and areas are exact to the pixel.
class CairoSurface final : public Surface {
  public:
    // The fonts must be those for the context's scale, and outlive the surface.
    CairoSurface(OwnedContext context, CairoFonts& fonts, const SurfaceTraits& traits);

    bool IsPrinting() const override { return m_traits.IsPrinting; }
    std::int32_t GetDeviceCaps(std::int32_t index) const override;

    void SetBkColor(Color color) override { m_bkColor = color; }
    void SetBkMode(BkMode mode) override { m_bkMode = mode; }
    void SetTextColor(Color color) override { m_textColor = color; }
    void SelectStockFont() override { m_font = m_stockFont; }
    void SelectFont(const LogFont& font) override { m_font = m_fonts.Get(font); }
    void SelectFormerFont() override { m_font = m_stockFont; }
    void SelectPen(Color color) override { m_penColor = color; }

    void FillSolidRect(const Rect& rect, Color color) override;
    void Draw3dRect(const Rect& rect, Color topLeft, Color bottomRight) override;
    void DrawFrameControl(const Rect& rect, std::uint32_t type, std::uint32_t state) override;
    std::int32_t DrawText(std::string_view text, Rect& rect, std::uint32_t format) override;
    void MoveTo(Point point) override { m_pen = point; }
    void LineTo(Point point) override;
    void SetPixel(Point point, Color color) override;

    void InvertRect(const Rect& rect) override;
    void DrawFocusRect(const Rect& rect) override;

    std::unique_ptr<SurfaceBitmap> CreateDIBitmap(std::span<const std::uint8_t> header,
                                                  std::span<const std::uint8_t> bits) override;
    void BitBlt(Point to, std::int32_t width, std::int32_t height,
                const SurfaceBitmap& bitmap) override;

  private:
    Rect OnSurface(const Rect& rect) const;
    void SetSource(Color color);
    void AddToPath(const Rect& rect);
    void InvertPath();
    void StrokeLine(Point from, Point to);
    // From a place on, the lines of the text that was broken last.
    void ShowLines(const Rect& rect, std::uint32_t format, double top);

    OwnedContext m_context;
    CairoFonts& m_fonts;
    SurfaceTraits m_traits;
    std::shared_ptr<CairoFont> m_stockFont;
    std::shared_ptr<CairoFont> m_font;
    Color m_textColor = Black;
    Color m_bkColor = White;
    Color m_penColor = Black;
    BkMode m_bkMode = BkMode::Opaque;
    Point m_pen;
    TextLines m_lines;
    GlyphPen m_glyphs;
};

}  // namespace veygrid
