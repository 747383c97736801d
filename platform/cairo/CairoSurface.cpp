// The drawing surface on Cairo: a picture in memory, a page of a document, a drawing.
#include "platform/cairo/CairoSurface.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/SystemPalette.h"
#include "platform/cairo/CairoBitmap.h"

namespace veygrid {

namespace {

// Numbers of GetDeviceCaps.
enum DeviceCap : std::int32_t {
    HorzSize = 4,
    VertSize = 6,
    HorzRes = 8,
    VertRes = 10,
    BitsPixel = 12,
    Planes = 14,
    LogPixelsX = 88,
    LogPixelsY = 90,
    PhysicalWidth = 110,
    PhysicalHeight = 111,
};

constexpr std::int32_t PixelsPerInch = 96;

std::int32_t Millimetres(std::int32_t pixels) {
    constexpr double perInch = 25.4;
    return static_cast<std::int32_t>(std::lround(pixels * perInch / PixelsPerInch));
}

// The system's drawing takes the corners in any order.
Rect InOrder(const Rect& rect) {
    return {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom),
            std::max(rect.left, rect.right), std::max(rect.top, rect.bottom)};
}

// Rounded up, and held within the numbers of the surface.
std::int32_t AsPixels(double value) {
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(std::ceil(value), -most, most));
}

double LeftOf(const TextLine& line, const Rect& rect, std::uint32_t format) {
    const double left = rect.left;
    const double right = rect.right;
    if ((format & DtCenter) != 0) {
        return std::floor((left + right - line.Width) / 2);
    }
    return (format & DtRight) != 0 ? right - std::ceil(line.Width) : left;
}

// The room that a line takes.
Rect RoomOf(const TextLine& line, double left, double top, std::int32_t height) {
    return {AsPixels(left), AsPixels(top), AsPixels(left + line.Width), AsPixels(top + height)};
}

}  // namespace

CairoSurface::CairoSurface(OwnedContext context, CairoFonts& fonts, const SurfaceTraits& traits)
    : m_context(std::move(context)),
      m_fonts(fonts),
      m_traits(traits),
      m_stockFont(fonts.Get(traits.StockFont.lfWeight == -1 ? DefaultFont() : traits.StockFont)),
      m_font(m_stockFont),
      m_glyphs(m_context.get()) {
    cairo_set_antialias(m_context.get(), CAIRO_ANTIALIAS_NONE);
}

std::int32_t CairoSurface::GetDeviceCaps(std::int32_t index) const {
    switch (index) {
        case HorzSize:
            return Millimetres(m_traits.Width);
        case VertSize:
            return Millimetres(m_traits.Height);
        case HorzRes:
        case PhysicalWidth:
            return m_traits.Width;
        case VertRes:
        case PhysicalHeight:
            return m_traits.Height;
        case BitsPixel:
            return 32;
        case Planes:
            return 1;
        case LogPixelsX:
        case LogPixelsY:
            return PixelsPerInch;
        default:
            return 0;
    }
}

Rect CairoSurface::OnSurface(const Rect& rect) const {
    return IntersectRect(rect, {0, 0, m_traits.Width, m_traits.Height});
}

void CairoSurface::SetSource(Color color) {
    constexpr double most = 255;
    cairo_set_source_rgb(m_context.get(), (color & 0xFFU) / most, (color >> 8U & 0xFFU) / most,
                         (color >> 16U & 0xFFU) / most);
}

void CairoSurface::AddToPath(const Rect& rect) {
    const Rect seen = OnSurface(InOrder(rect));
    if (!seen.IsRectEmpty()) {
        cairo_rectangle(m_context.get(), seen.left, seen.top, seen.Width(), seen.Height());
    }
}

void CairoSurface::FillSolidRect(const Rect& rect, Color color) {
    SetSource(color);
    AddToPath(rect);
    cairo_fill(m_context.get());
}

void CairoSurface::Draw3dRect(const Rect& rect, Color topLeft, Color bottomRight) {
    const std::int32_t lastX = WrapSub(rect.right, 1);
    const std::int32_t lastY = WrapSub(rect.bottom, 1);
    SetSource(topLeft);
    AddToPath({rect.left, rect.top, lastX, WrapAdd(rect.top, 1)});
    AddToPath({rect.left, rect.top, WrapAdd(rect.left, 1), lastY});
    cairo_fill(m_context.get());
    SetSource(bottomRight);
    AddToPath({rect.right, rect.top, lastX, rect.bottom});
    AddToPath({rect.left, rect.bottom, rect.right, lastY});
    cairo_fill(m_context.get());
}

// A raised button with a triangle that points to the right.
void CairoSurface::DrawFrameControl(const Rect& rect, std::uint32_t type, std::uint32_t state) {
    constexpr Rect sensible{-32767, -32767, 65534, 65534};
    if (type != DfcScroll || state != DfcsScrollRight || IntersectRect(rect, sensible) != rect) {
        return;
    }
    FillSolidRect(rect, UsualSystemColor(ColorBtnFace));
    Draw3dRect(rect, UsualSystemColor(Color3dLight), UsualSystemColor(Color3dDkShadow));
    Draw3dRect(rect.Inflated(-1, -1), UsualSystemColor(ColorBtnHighlight),
               UsualSystemColor(ColorBtnShadow));
    constexpr std::int32_t edges = 4;
    const std::int32_t rise = (std::min(rect.Width(), rect.Height()) - edges) / 4;
    const std::int32_t x = rect.left + (rect.Width() - rise) / 2;
    const std::int32_t y = rect.top + (rect.Height() - 1) / 2;
    for (std::int32_t column = 0; column <= rise; ++column) {
        FillSolidRect({x + column, y - rise + column, x + column + 1, y + rise - column + 1},
                      UsualSystemColor(ColorBtnText));
    }
}

std::int32_t CairoSurface::DrawText(std::string_view text, Rect& rect, std::uint32_t format) {
    const bool isSingleLine = (format & DtSingleLine) != 0;
    m_lines.Break(text, format, static_cast<double>(rect.right) - rect.left, *m_font);
    const auto count = static_cast<double>(std::max<std::size_t>(m_lines.Lines().size(), 1));
    const std::int32_t height = AsPixels(count * m_font->Height());
    if ((format & DtCalcRect) != 0) {
        const bool hasRoom = isSingleLine || !m_lines.Lines().empty();
        rect.right = WrapAdd(rect.left, AsPixels(m_lines.Width()));
        rect.bottom = hasRoom ? WrapAdd(rect.top, height) : rect.top;
        return height;
    }
    const bool isCentred = isSingleLine && (format & DtVCenter) != 0;
    const std::int32_t above = isCentred ? rect.Height() / 2 - height / 2 : 0;
    ShowLines(rect, format, static_cast<double>(rect.top) + above);
    return WrapAdd(above, height);
}

void CairoSurface::ShowLines(const Rect& rect, std::uint32_t format, double top) {
    const Rect clip = OnSurface(rect);
    if (clip.IsRectEmpty()) {
        return;
    }
    const bool isTurned = m_font->Angle() != 0;
    for (const TextLine& line : m_lines.Lines()) {
        const double bottom = top + m_font->Height();
        if (isTurned || (bottom > clip.top && top < clip.bottom)) {
            const double left = LeftOf(line, rect, format);
            if (m_bkMode == BkMode::Opaque) {
                FillSolidRect(IntersectRect(clip, RoomOf(line, left, top, m_font->Height())),
                              m_bkColor);
            }
            SetSource(m_textColor);
            m_glyphs.Show(line, *m_font, left, top, clip);
        }
        top = bottom;
    }
}

void CairoSurface::LineTo(Point point) {
    const Point from = std::exchange(m_pen, point);
    // The last pixel is not painted, whichever end it is.
    const std::int32_t shiftX = point.x < from.x ? 1 : 0;
    const std::int32_t shiftY = point.y < from.y ? 1 : 0;
    if (from.y == point.y) {
        FillSolidRect(
            {WrapAdd(from.x, shiftX), from.y, WrapAdd(point.x, shiftX), WrapAdd(from.y, 1)},
            m_penColor);
    } else if (from.x == point.x) {
        FillSolidRect(
            {from.x, WrapAdd(from.y, shiftY), WrapAdd(from.x, 1), WrapAdd(point.y, shiftY)},
            m_penColor);
    } else {
        StrokeLine(from, point);
    }
}

void CairoSurface::StrokeLine(Point from, Point to) {
    // The library's numbers end somewhat above these.
    const auto middle = [](std::int32_t at) { return std::clamp(at, -1'000'000, 1'000'000) + 0.5; };
    SetSource(m_penColor);
    cairo_set_line_width(m_context.get(), 1);
    cairo_set_line_cap(m_context.get(), CAIRO_LINE_CAP_BUTT);
    cairo_move_to(m_context.get(), middle(from.x), middle(from.y));
    cairo_line_to(m_context.get(), middle(to.x), middle(to.y));
    cairo_stroke(m_context.get());
}

void CairoSurface::SetPixel(Point point, Color color) {
    FillSolidRect({point.x, point.y, WrapAdd(point.x, 1), WrapAdd(point.y, 1)}, color);
}

void CairoSurface::InvertRect(const Rect& rect) {
    AddToPath(rect);
    InvertPath();
}

void CairoSurface::InvertPath() {
    SetSource(White);
    cairo_set_operator(m_context.get(), CAIRO_OPERATOR_DIFFERENCE);
    cairo_fill(m_context.get());
    cairo_set_operator(m_context.get(), CAIRO_OPERATOR_OVER);
}

// Every other pixel of the edge, counted from the surface's corner: frames that touch go together.
void CairoSurface::DrawFocusRect(const Rect& rect) {
    const Rect seen = OnSurface(rect);
    const auto addDot = [&](std::int32_t x, std::int32_t y) {
        if (((x ^ y) & 1) == 0) {
            AddToPath({x, y, x + 1, y + 1});
        }
    };
    for (std::int32_t x = seen.left; x < seen.right; ++x) {
        addDot(x, rect.top);
        addDot(x, WrapSub(rect.bottom, 1));
    }
    for (std::int32_t y = seen.top; y < seen.bottom; ++y) {
        addDot(rect.left, y);
        addDot(WrapSub(rect.right, 1), y);
    }
    InvertPath();
}

std::unique_ptr<SurfaceBitmap> CairoSurface::CreateDIBitmap(std::span<const std::uint8_t> header,
                                                            std::span<const std::uint8_t> bits) {
    return BitmapFromDib(header, bits);
}

void CairoSurface::BitBlt(Point to, std::int32_t width, std::int32_t height,
                          const SurfaceBitmap& bitmap) {
    const auto* const picture = dynamic_cast<const CairoBitmap*>(&bitmap);
    if (picture == nullptr || width <= 0 || height <= 0) {
        return;
    }
    const Rect target{to.x, to.y, WrapAdd(to.x, std::min(width, picture->Width())),
                      WrapAdd(to.y, std::min(height, picture->Height()))};
    cairo_set_source_surface(m_context.get(), picture->Image(), to.x, to.y);
    cairo_pattern_set_filter(cairo_get_source(m_context.get()), CAIRO_FILTER_NEAREST);
    AddToPath(target);
    cairo_fill(m_context.get());
}

}  // namespace veygrid
