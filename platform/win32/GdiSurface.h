// The drawing surface on a device context of the system: window, picture in memory, metafile,
// paper.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/Surface.h"
#include "platform/win32/GdiFonts.h"
#include "platform/win32/GdiHandles.h"

namespace veygrid {

// For one paint: the context is as before when the surface goes. Texts go out through the wide
// calls, so that Chinese shows on a machine of any locale. What lies wholly outside the context's
// clip region is not drawn at all, which nobody sees but in the time it takes.
class GdiSurface : public Surface {
  public:
    enum class Use { Screen, Print };

    // `stockFont` is the control's own; null stands for the system's. Fonts of cells stay in
    // `fonts` for later paints. All must outlive the surface.
    GdiSurface(HDC target, HFONT stockFont, GdiFonts& fonts, Use use = Use::Screen);

    bool IsPrinting() const override { return m_isPrinting; }
    std::int32_t GetDeviceCaps(std::int32_t index) const override;

    void SetBkColor(Color color) override;
    void SetBkMode(BkMode mode) override;
    void SetTextColor(Color color) override;
    void SelectStockFont() override;
    void SelectFont(const LogFont& font) override;
    void SelectFormerFont() override;
    void SelectPen(Color color) override;

    void FillSolidRect(const Rect& rect, Color color) override;
    void Draw3dRect(const Rect& rect, Color topLeft, Color bottomRight) override;
    void DrawFrameControl(const Rect& rect, std::uint32_t type, std::uint32_t state) override;
    std::int32_t DrawText(std::string_view text, Rect& rect, std::uint32_t format) override;
    void MoveTo(Point point) override;
    void LineTo(Point point) override;
    void SetPixel(Point point, Color color) override;

    void InvertRect(const Rect& rect) override;
    void DrawFocusRect(const Rect& rect) override;

    std::unique_ptr<SurfaceBitmap> CreateDIBitmap(std::span<const std::uint8_t> header,
                                                  std::span<const std::uint8_t> bits) override;
    void BitBlt(Point to, std::int32_t width, std::int32_t height,
                const SurfaceBitmap& bitmap) override;

  private:
    using AsciiWidths = std::array<INT, 128>;

    // What is known of the font in force.
    struct FontFacts {
        LONG height = 0;  // of a line
        std::optional<AsciiWidths> widths;
    };

    struct TextKind {
        bool isAscii;
        bool isPlainLine;  // without line breaks, ampersands and other marks
    };

    void Select(HGDIOBJ font);
    FontFacts& Facts();
    bool IsSeen(const Rect& rect) const;
    TextKind Widen(std::string_view text);
    SIZE LineExtent(bool isAscii);
    std::int32_t DrawLine(const Rect& rect, std::uint32_t format, bool isAscii);

    // In this order: what is selected is put back before its owner goes.
    OwnedPen m_pen;
    SavedDc m_saved;
    HDC m_target;
    // A metafile of the old kind knows no sizes of texts; they are asked of the screen then.
    std::optional<MemoryDc> m_screen;
    HDC m_measuring;
    HFONT m_stockFont;
    HGDIOBJ m_formerFont;
    GdiFonts& m_fonts;
    bool m_isPrinting;
    HGDIOBJ m_font = nullptr;  // in force
    std::vector<std::pair<HGDIOBJ, FontFacts>> m_facts;
    // What shows of the surface; nothing when it is not known.
    std::optional<std::vector<Rect>> m_seen;
    std::wstring m_wide;
};

}  // namespace veygrid
