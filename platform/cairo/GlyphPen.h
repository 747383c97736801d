// Puts lines of text on a Cairo context, glyph by glyph.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"
#include "platform/cairo/CairoFont.h"
#include "platform/cairo/Owners.h"
#include "platform/cairo/TextLines.h"

namespace veygrid {

class GlyphPen {
  public:
    // Must not outlive the context.
    explicit GlyphPen(cairo_t* context);

    // With the top left corner at a point, in the colour of the context, cut at a rectangle that is
    // not empty. A font that is turned turns the line around that corner.
    void Show(const TextLine& line, CairoFont& font, double x, double y, const Rect& clip);

  private:
    // Takes a place right of and below the line's corner to one on the context.
    struct Frame {
        double x, y, sine, cosine;

        double X(double right, double down) const { return x + right * cosine + down * sine; }
        double Y(double right, double down) const { return y - right * sine + down * cosine; }
    };
    // Glyphs of one font, up to the begin of the next run.
    struct Run {
        cairo_scaled_font_t* font;
        std::size_t firstGlyph;
        std::size_t firstByte;
    };

    // Whether some of the ink may lie outside of the rectangle.
    bool Gather(const TextLine& line, CairoFont& font, const Frame& frame, const Rect& clip);
    void Add(const FontGlyph& glyph, std::string_view character, double x, double y);
    void ShowRuns();
    void ShowBars(const TextLine& line, CairoFont& font, const Frame& frame);
    void FillBar(const Frame& frame, double left, double top, double width, double height);

    cairo_t* m_context;
    // The target keeps characters beside glyphs, so that text can be found and copied.
    bool m_keepsText;
    std::vector<Run> m_runs;
    std::vector<cairo_glyph_t> m_glyphs;
    // One for each glyph, where the target keeps text.
    std::string m_utf8;
    std::vector<cairo_text_cluster_t> m_clusters;
};

}  // namespace veygrid
