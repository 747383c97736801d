// What the sheet is drawn on: a device context, a picture, or a record of the calls.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "grid/LogFont.h"
#include "platform/Geometry.h"

// The system's headers make this name a macro.
#undef DrawText

namespace veygrid {

// Format bits of DrawText.
enum DrawTextFormat : std::uint32_t {
    DtLeft = 0,
    DtCenter = 1,
    DtRight = 2,
    DtVCenter = 4,
    DtWordBreak = 16,
    DtSingleLine = 32,
    DtCalcRect = 1024,
};

enum class BkMode : std::int32_t { Transparent = 1, Opaque = 2 };

// Glyphs of the system, by type and state of DrawFrameControl.
inline constexpr std::uint32_t DfcScroll = 3;
inline constexpr std::uint32_t DfcsScrollRight = 3;

// A picture that a surface made, to be drawn on that surface or on one like it.
class SurfaceBitmap {
  public:
    virtual ~SurfaceBitmap() = default;
    virtual std::int32_t Width() const = 0;   // pixels
    virtual std::int32_t Height() const = 0;  // pixels
};

// The operations bear the platform's names and do what the platform's do. Texts are in code page
// 936. A failure of any of them is nobody's concern: the picture then lacks that part.
class Surface {
  public:
    virtual ~Surface() = default;

    // True for paper and for its preview.
    virtual bool IsPrinting() const = 0;
    virtual std::int32_t GetDeviceCaps(std::int32_t index) const = 0;

    virtual void SetBkColor(Color color) = 0;
    virtual void SetBkMode(BkMode mode) = 0;
    virtual void SetTextColor(Color color) = 0;
    // The control's own font, until another one is selected.
    virtual void SelectStockFont() = 0;
    // A font is made once for each record, however often it is selected.
    virtual void SelectFont(const LogFont& font) = 0;
    // The font that was in force before the first of these calls.
    virtual void SelectFormerFont() = 0;
    // A solid pen of width 0, one device pixel.
    virtual void SelectPen(Color color) = 0;

    virtual void FillSolidRect(const Rect& rect, Color color) = 0;
    virtual void Draw3dRect(const Rect& rect, Color topLeft, Color bottomRight) = 0;
    virtual void DrawFrameControl(const Rect& rect, std::uint32_t type, std::uint32_t state) = 0;
    // Height of the text in pixels. With DtCalcRect nothing is drawn and the rectangle takes the
    // text's width and height; without it the text is clipped to the rectangle. An ampersand hides
    // itself and underlines the next character.
    virtual std::int32_t DrawText(std::string_view text, Rect& rect, std::uint32_t format) = 0;
    virtual void MoveTo(Point point) = 0;
    // Up to the point, which is not painted itself.
    virtual void LineTo(Point point) = 0;
    virtual void SetPixel(Point point, Color color) = 0;

    // Painted twice, both leave the picture as it was.
    virtual void InvertRect(const Rect& rect) = 0;
    virtual void DrawFocusRect(const Rect& rect) = 0;

    // Info header and colour table, and the pixels behind them, as a bitmap file holds them. Null
    // where they make no picture.
    virtual std::unique_ptr<SurfaceBitmap> CreateDIBitmap(std::span<const std::uint8_t> header,
                                                          std::span<const std::uint8_t> bits) = 0;
    // Copies the picture's pixels from its top left corner on, of the given size.
    virtual void BitBlt(Point to, std::int32_t width, std::int32_t height,
                        const SurfaceBitmap& bitmap) = 0;
};

}  // namespace veygrid
