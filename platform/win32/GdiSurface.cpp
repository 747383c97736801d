// The drawing surface on a device context of the system: window, picture in memory, metafile,
// paper.
#include "platform/win32/GdiSurface.h"

#include <algorithm>
#include <cstring>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

// Devices know no coordinates beyond these.
constexpr std::int32_t FarthestPixel = (1 << 26) - 1;
// A region of more pieces is taken for its bounds.
constexpr DWORD MostRegionPieces = 32;

LONG Within(std::int32_t position) {
    return std::clamp(position, -FarthestPixel, FarthestPixel);
}

RECT RectOf(const Rect& rect) {
    return {Within(rect.left), Within(rect.top), Within(rect.right), Within(rect.bottom)};
}

Rect RectOf(const RECT& rect) {
    return {static_cast<std::int32_t>(rect.left), static_cast<std::int32_t>(rect.top),
            static_cast<std::int32_t>(rect.right), static_cast<std::int32_t>(rect.bottom)};
}

bool IsPaper(HDC target) {
    const int technology = ::GetDeviceCaps(target, TECHNOLOGY);
    return technology == DT_RASPRINTER || technology == DT_PLOTTER;
}

bool IsDisplay(HDC target) {
    return ::GetDeviceCaps(target, TECHNOLOGY) == DT_RASDISPLAY &&
           ::GetObjectType(target) != OBJ_ENHMETADC && ::GetMapMode(target) == MM_TEXT;
}

// The pieces of a region; its bounds where there are many.
std::vector<Rect> PiecesOf(HRGN region) {
    const DWORD size = ::GetRegionData(region, 0, nullptr);
    // In words, so that the record stands where it must.
    std::vector<DWORD> block(size / sizeof(DWORD) + 1);
    auto* const data = reinterpret_cast<RGNDATA*>(block.data());
    if (size == 0 || ::GetRegionData(region, size, data) == 0) {
        return {};
    }
    if (data->rdh.nCount > MostRegionPieces) {
        return {RectOf(data->rdh.rcBound)};
    }
    std::vector<Rect> pieces(data->rdh.nCount);
    for (DWORD i = 0; i < data->rdh.nCount; ++i) {
        RECT piece;
        std::memcpy(&piece, data->Buffer + i * sizeof piece, sizeof piece);
        pieces[i] = RectOf(piece);
    }
    return pieces;
}

// What shows of a display, in logical coordinates; nothing when it is not known.
std::optional<std::vector<Rect>> SeenOf(HDC target) {
    constexpr INT SystemRegion = 4;
    if (::WindowFromDC(target) == nullptr) {
        RECT box{};
        return ::GetClipBox(target, &box) == ERROR ? std::nullopt
                                                   : std::optional(std::vector{RectOf(box)});
    }
    const OwnedGdi<HRGN> region(::CreateRectRgn(0, 0, 0, 0));
    if (::GetRandomRgn(target, region.Get(), SystemRegion) != 1) {
        return std::nullopt;
    }
    // The region counts from the screen's corner, the origin from where it is drawn.
    POINT screen{};
    POINT origin{};
    ::GetDCOrgEx(target, &screen);
    ::LPtoDP(target, &origin, 1);
    std::vector<Rect> pieces = PiecesOf(region.Get());
    for (Rect& piece : pieces) {
        piece = piece.Offset(-(screen.x + origin.x), -(screen.y + origin.y));
    }
    return pieces;
}

class GdiBitmap final : public SurfaceBitmap {
  public:
    GdiBitmap(OwnedBitmap bitmap, const BITMAP& facts)
        : m_bitmap(std::move(bitmap)), m_facts(facts) {}

    std::int32_t Width() const override { return m_facts.bmWidth; }
    std::int32_t Height() const override { return m_facts.bmHeight; }
    HBITMAP Handle() const { return m_bitmap.Get(); }

  private:
    OwnedBitmap m_bitmap;
    BITMAP m_facts;
};

}  // namespace

GdiSurface::GdiSurface(HDC target, HFONT stockFont, GdiFonts& fonts, Use use)
    : m_saved(target),
      m_target(target),
      m_measuring(target),
      m_stockFont(stockFont),
      m_formerFont(::GetCurrentObject(target, OBJ_FONT)),
      m_fonts(fonts),
      m_isPrinting(use == Use::Print || IsPaper(target)) {
    if (::GetDeviceCaps(target, TECHNOLOGY) == DT_METAFILE) {
        m_measuring = m_screen.emplace(nullptr).Get();
    }
    ::SetTextAlign(target, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    if (IsDisplay(target)) {
        m_seen = SeenOf(target);
    }
}

std::int32_t GdiSurface::GetDeviceCaps(std::int32_t index) const {
    return ::GetDeviceCaps(m_target, index);
}

void GdiSurface::SetBkColor(Color color) {
    ::SetBkColor(m_target, color);
}

void GdiSurface::SetBkMode(BkMode mode) {
    ::SetBkMode(m_target, static_cast<int>(mode));
}

void GdiSurface::SetTextColor(Color color) {
    ::SetTextColor(m_target, color);
}

void GdiSurface::Select(HGDIOBJ font) {
    ::SelectObject(m_target, font);
    if (m_screen) {
        ::SelectObject(m_measuring, font);
    }
    m_font = font;
}

void GdiSurface::SelectStockFont() {
    Select(m_stockFont == nullptr ? m_formerFont : m_stockFont);
}

void GdiSurface::SelectFont(const LogFont& record) {
    HFONT font = m_fonts.Find(record);
    if (font == nullptr) {
        if (m_fonts.IsFull()) {
            Select(m_formerFont);
            m_facts.clear();
        }
        font = m_fonts.Make(record);
    }
    if (font != nullptr) {
        Select(font);
    }
}

void GdiSurface::SelectFormerFont() {
    Select(m_formerFont);
}

void GdiSurface::SelectPen(Color color) {
    OwnedPen pen(::CreatePen(PS_SOLID, 0, color));
    ::SelectObject(m_target, pen.Get());
    m_pen = std::move(pen);
}

bool GdiSurface::IsSeen(const Rect& rect) const {
    return !m_seen || std::ranges::any_of(*m_seen, [&](const Rect& piece) {
        return !IntersectRect(piece, rect).IsRectEmpty();
    });
}

void GdiSurface::FillSolidRect(const Rect& rect, Color color) {
    if (rect.IsRectEmpty() || !IsSeen(rect)) {
        return;
    }
    const RECT area = RectOf(rect);
    ::SetBkColor(m_target, color);
    ::ExtTextOutW(m_target, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

// The left and top edges end before the corners of the right and bottom ones.
void GdiSurface::Draw3dRect(const Rect& rect, Color topLeft, Color bottomRight) {
    if (!IsSeen(rect)) {
        return;
    }
    FillSolidRect({rect.left, rect.top, WrapSub(rect.right, 1), WrapAdd(rect.top, 1)}, topLeft);
    FillSolidRect({rect.left, rect.top, WrapAdd(rect.left, 1), WrapSub(rect.bottom, 1)}, topLeft);
    FillSolidRect({WrapSub(rect.right, 1), rect.top, rect.right, rect.bottom}, bottomRight);
    FillSolidRect({rect.left, WrapSub(rect.bottom, 1), rect.right, rect.bottom}, bottomRight);
}

void GdiSurface::DrawFrameControl(const Rect& rect, std::uint32_t type, std::uint32_t state) {
    RECT area = RectOf(rect);
    ::DrawFrameControl(m_target, &area, type, state);
}

GdiSurface::FontFacts& GdiSurface::Facts() {
    const auto known =
        std::ranges::find_if(m_facts, [&](const auto& entry) { return entry.first == m_font; });
    if (known != m_facts.end()) {
        return known->second;
    }
    FontFacts facts;
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(m_measuring, &metrics);
    facts.height = metrics.tmHeight;
    if (AsciiWidths widths; ::GetCharWidth32W(m_measuring, 0, widths.size() - 1, widths.data())) {
        facts.widths = widths;
    }
    return m_facts.emplace_back(m_font, facts).second;
}

// Puts the text into m_wide and tells what is in it.
GdiSurface::TextKind GdiSurface::Widen(std::string_view text) {
    TextKind kind{true, true};
    m_wide.resize(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        m_wide[i] = byte;
        kind.isAscii = kind.isAscii && byte < 0x80;
        kind.isPlainLine = kind.isPlainLine && byte >= ' ' && byte != '&';
    }
    if (!kind.isAscii) {
        const std::u16string wide = Utf16FromCodePage936(text);
        m_wide.assign(wide.begin(), wide.end());
        kind.isPlainLine =
            std::ranges::all_of(wide, [](char16_t c) { return c >= ' ' && c != '&'; });
    }
    return kind;
}

// Of the line in m_wide. The system adds up the widths of characters just the same.
SIZE GdiSurface::LineExtent(bool isAscii) {
    const FontFacts& facts = Facts();
    SIZE extent{0, facts.height};
    if (isAscii && facts.widths) {
        for (const wchar_t c : m_wide) {
            extent.cx += (*facts.widths)[c];
        }
    } else {
        ::GetTextExtentPoint32W(m_measuring, m_wide.data(), static_cast<int>(m_wide.size()),
                                &extent);
    }
    return extent;
}

std::int32_t GdiSurface::DrawText(std::string_view text, Rect& rect, std::uint32_t format) {
    // Beyond this a text is far outside any surface.
    constexpr std::size_t MostBytes = 1U << 15U;
    const bool onlyMeasures = (format & DtCalcRect) != 0;
    if (!onlyMeasures && !IsSeen(rect)) {
        return 0;
    }
    const TextKind kind = Widen(text.substr(0, MostBytes));
    if (kind.isPlainLine && !m_wide.empty()) {
        if (format == DtCalcRect) {
            const SIZE extent = LineExtent(kind.isAscii);
            rect.right = WrapAdd(rect.left, extent.cx);
            rect.bottom = WrapAdd(rect.top, extent.cy);
            return extent.cy;
        }
        if ((format & ~(DtCenter | DtRight)) == 0) {
            return DrawLine(rect, format, kind.isAscii);
        }
    }
    RECT area = RectOf(rect);
    const int height = ::DrawTextW(onlyMeasures ? m_measuring : m_target, m_wide.data(),
                                   static_cast<int>(m_wide.size()), &area, format);
    if (onlyMeasures) {
        rect = RectOf(area);
    }
    return height;
}

// One line without any mark up needs nothing of what the system's DrawText looks for.
std::int32_t GdiSurface::DrawLine(const Rect& rect, std::uint32_t format, bool isAscii) {
    const RECT area = RectOf(rect);
    LONG x = area.left;
    if (format != DtLeft) {
        const LONG width = LineExtent(isAscii).cx;
        x = (format & DtCenter) != 0 ? (area.left + area.right - width) / 2 : area.right - width;
    }
    ::ExtTextOutW(m_target, x, area.top, ETO_CLIPPED, &area, m_wide.data(),
                  static_cast<UINT>(m_wide.size()), nullptr);
    return Facts().height;
}

void GdiSurface::MoveTo(Point point) {
    ::MoveToEx(m_target, Within(point.x), Within(point.y), nullptr);
}

void GdiSurface::LineTo(Point point) {
    ::LineTo(m_target, Within(point.x), Within(point.y));
}

void GdiSurface::SetPixel(Point point, Color color) {
    ::SetPixelV(m_target, Within(point.x), Within(point.y), color);
}

void GdiSurface::InvertRect(const Rect& rect) {
    const RECT area = RectOf(rect);
    ::InvertRect(m_target, &area);
}

void GdiSurface::DrawFocusRect(const Rect& rect) {
    const RECT area = RectOf(rect);
    ::DrawFocusRect(m_target, &area);
}

std::unique_ptr<SurfaceBitmap> GdiSurface::CreateDIBitmap(std::span<const std::uint8_t> header,
                                                          std::span<const std::uint8_t> bits) {
    const auto* const info = reinterpret_cast<const BITMAPINFO*>(header.data());
    OwnedBitmap bitmap(
        ::CreateDIBitmap(m_target, &info->bmiHeader, CBM_INIT, bits.data(), info, DIB_RGB_COLORS));
    BITMAP facts{};
    if (bitmap.Get() == nullptr || ::GetObjectW(bitmap.Get(), sizeof facts, &facts) == 0) {
        return nullptr;
    }
    return std::make_unique<GdiBitmap>(std::move(bitmap), facts);
}

void GdiSurface::BitBlt(Point to, std::int32_t width, std::int32_t height,
                        const SurfaceBitmap& bitmap) {
    const MemoryDc memory(m_target);
    const SavedDc saved(memory.Get());
    ::SelectObject(memory.Get(), static_cast<const GdiBitmap&>(bitmap).Handle());
    ::BitBlt(m_target, to.x, to.y, width, height, memory.Get(), 0, 0, SRCCOPY);
}

}  // namespace veygrid
