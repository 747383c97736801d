// Puts lines of text on a Cairo context, glyph by glyph.
#include "platform/cairo/GlyphPen.h"

#include <cmath>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

bool HasBars(const TextLine& line, const CairoFont& font) {
    return line.Underlined != NotFound || font.Underline() || font.StrikeOut();
}

}  // namespace

GlyphPen::GlyphPen(cairo_t* context)
    : m_context(context),
      m_keepsText(cairo_surface_has_show_text_glyphs(cairo_get_target(context)) != 0) {}

void GlyphPen::Show(const TextLine& line, CairoFont& font, double x, double y, const Rect& clip) {
    const Frame frame{x, y, std::sin(font.Angle()), std::cos(font.Angle())};
    const bool mustClip = Gather(line, font, frame, clip);
    if (mustClip) {
        cairo_save(m_context);
        cairo_rectangle(m_context, clip.left, clip.top, clip.Width(), clip.Height());
        cairo_clip(m_context);
    }
    ShowRuns();
    ShowBars(line, font, frame);
    if (mustClip) {
        cairo_restore(m_context);
    }
}

bool GlyphPen::Gather(const TextLine& line, CairoFont& font, const Frame& frame, const Rect& clip) {
    m_runs.clear();
    m_glyphs.clear();
    m_utf8.clear();
    m_clusters.clear();
    const bool isTurned = font.Angle() != 0;
    const double base = frame.y + font.Ascent();
    bool mayCross = isTurned || HasBars(line, font);
    double right = 0;
    for (std::size_t pos = 0; pos < line.Text.size();) {
        const std::string_view character = line.Text.substr(pos, CharLength(line.Text, pos));
        const FontGlyph& glyph = font.Glyph(character);
        const double pen = frame.x + right;
        // A long text mostly lies outside of its cell.
        if (!isTurned && pen + glyph.InkLeft >= clip.right && pen >= clip.right) {
            return true;
        }
        if (glyph.Font != nullptr && (isTurned || pen + glyph.InkRight > clip.left)) {
            mayCross = mayCross || pen + glyph.InkLeft < clip.left ||
                       pen + glyph.InkRight > clip.right || base + glyph.InkTop < clip.top ||
                       base + glyph.InkBottom > clip.bottom;
            Add(glyph, character, frame.X(right, font.Ascent()), frame.Y(right, font.Ascent()));
        }
        right += glyph.Advance;
        pos += character.size();
    }
    return mayCross;
}

void GlyphPen::Add(const FontGlyph& glyph, std::string_view character, double x, double y) {
    if (m_runs.empty() || m_runs.back().font != glyph.Font) {
        m_runs.push_back({glyph.Font, m_glyphs.size(), m_utf8.size()});
    }
    m_glyphs.push_back({glyph.Index, x, y});
    if (m_keepsText) {
        const std::string utf8 = Utf8FromCodePage936(character);
        m_utf8 += utf8;
        m_clusters.push_back({static_cast<int>(utf8.size()), 1});
    }
}

void GlyphPen::ShowRuns() {
    for (std::size_t i = 0; i < m_runs.size(); ++i) {
        const Run& run = m_runs[i];
        const bool isLast = i + 1 == m_runs.size();
        const std::size_t end = isLast ? m_glyphs.size() : m_runs[i + 1].firstGlyph;
        const auto count = static_cast<int>(end - run.firstGlyph);
        cairo_set_scaled_font(m_context, run.font);
        if (!m_keepsText) {
            cairo_show_glyphs(m_context, &m_glyphs[run.firstGlyph], count);
            continue;
        }
        const std::size_t endOfText = isLast ? m_utf8.size() : m_runs[i + 1].firstByte;
        cairo_show_text_glyphs(m_context, m_utf8.data() + run.firstByte,
                               static_cast<int>(endOfText - run.firstByte),
                               &m_glyphs[run.firstGlyph], count, &m_clusters[run.firstGlyph], count,
                               cairo_text_cluster_flags_t{});
    }
}

void GlyphPen::ShowBars(const TextLine& line, CairoFont& font, const Frame& frame) {
    const double below = font.Ascent() + 1;
    if (line.Underlined != NotFound) {
        const std::string_view text = line.Text;
        const std::size_t length = CharLength(text, line.Underlined);
        const double left = WidthOf(text.substr(0, line.Underlined), font);
        FillBar(frame, left, below, font.Advance(text.substr(line.Underlined, length)), 1);
    }
    if (font.Underline()) {
        FillBar(frame, 0, below, line.Width, font.LineThickness());
    }
    if (font.StrikeOut()) {
        constexpr double middleOfLetters = 0.7;
        FillBar(frame, 0, std::round(font.Ascent() * middleOfLetters), line.Width,
                font.LineThickness());
    }
}

void GlyphPen::FillBar(const Frame& frame, double left, double top, double width, double height) {
    const auto corner = [&](double right, double down) {
        cairo_line_to(m_context, frame.X(right, down), frame.Y(right, down));
    };
    cairo_new_path(m_context);
    corner(left, top);
    corner(left + width, top);
    corner(left + width, top + height);
    corner(left, top + height);
    cairo_fill(m_context);
}

}  // namespace veygrid
