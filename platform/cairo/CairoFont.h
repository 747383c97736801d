// A font made from a font record: the glyphs and sizes of the characters of code page 936.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>

#include "grid/LogFont.h"
#include "platform/cairo/Owners.h"
#include "platform/cairo/TextLines.h"

namespace veygrid {

// What is used where a record names no font: the system's own for Chinese text, 9 points.
LogFont DefaultFont();

// How text is to look on one kind of picture.
struct TextLook {
    // Device pixels for one pixel of the drawing.
    double Scale = 1;
    // Glyphs fitted to the pixels, with whole advances; otherwise outlines as designed.
    bool Hinted = true;
};

struct FontGlyph {
    bool Known = false;
    // Borrowed from the font; null for a character that takes no room.
    cairo_scaled_font_t* Font = nullptr;
    unsigned long Index = 0;
    // Pixels. The ink is given from the pen's place on the base line, right and down.
    double Advance = 0;
    double InkLeft = 0;
    double InkTop = 0;
    double InkRight = 0;
    double InkBottom = 0;
};

// The characters of code page 936 stand side by side, one glyph for each, as the platform draws
// them: there are neither ligatures nor kerning. A character that the named face does not have
// comes from another face.
class CairoFont final : public CharacterWidths {
  public:
    CairoFont(PangoContext* context, const LogFont& record, TextLook look);

    // Of a character of one or two bytes. Control characters take no room.
    const FontGlyph& Glyph(std::string_view character) {
        FontGlyph& glyph = Slot(character);
        if (!glyph.Known) {
            glyph = Find(character);
        }
        return glyph;
    }

    double Advance(std::string_view character) override { return Glyph(character).Advance; }

    // Pixels.
    std::int32_t Height() const { return m_ascent + m_descent; }
    std::int32_t Ascent() const { return m_ascent; }
    bool Underline() const { return m_record.lfUnderline != 0; }
    bool StrikeOut() const { return m_record.lfStrikeOut != 0; }
    // Of the lines under and through the text.
    std::int32_t LineThickness() const;
    // Counter-clockwise, in radians.
    double Angle() const { return m_angle; }

  private:
    using Page = std::array<FontGlyph, 256>;

    // Text is measured as if it ran to the right.
    struct Face {
        OwnedPangoFont Font;
        OwnedScaledFont Measuring;
        OwnedScaledFont Drawing;  // null unless the text is turned
    };

    FontGlyph& Slot(std::string_view character);
    FontGlyph Find(std::string_view character);
    const Face& FaceOf(OwnedPangoFont font);
    OwnedScaledFont MakeScaled(cairo_scaled_font_t* loaded, double angle) const;
    void LoadFaces(PangoContext* context, double size);

    LogFont m_record;
    TextLook m_look;
    double m_angle;
    double m_stretch = 1;
    OwnedFontset m_faces;
    std::map<PangoFont*, Face> m_fonts;
    std::int32_t m_ascent = 0;
    std::int32_t m_descent = 0;
    // By lead byte; 0 stands for characters of one byte.
    std::array<std::unique_ptr<Page>, 256> m_pages;
};

// The fonts in use, each made once.
class CairoFonts {
  public:
    explicit CairoFonts(TextLook look);

    TextLook Look() const { return m_look; }
    // Good for as long as somebody holds it.
    std::shared_ptr<CairoFont> Get(const LogFont& record);

  private:
    struct InByteOrder {
        bool operator()(const LogFont& a, const LogFont& b) const;
    };
    // A sheet with more fonts than this makes some of them again.
    static constexpr std::size_t MostFonts = 256;

    TextLook m_look;
    OwnedFontMap m_map;
    OwnedPangoContext m_context;
    std::map<LogFont, std::shared_ptr<CairoFont>, InByteOrder> m_fonts;
};

}  // namespace veygrid
