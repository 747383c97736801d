// A font made from a font record: the glyphs and sizes of the characters of code page 936.
#include "platform/cairo/CairoFont.h"

#include <hb.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <string>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr double DefaultCellHeight = 16;
// Larger characters would fill the memory with the picture of a single one.
constexpr double MostSize = 1024;

// Of the faces that sheets are made for, by the height of the characters. A face that stands in for
// one of them keeps to it: its own lines may be higher than cells are.
constexpr double UsualAscent = 0.9;
constexpr double UsualDescent = 0.2;

enum FontFamily : std::uint8_t { Roman = 0x10, Modern = 0x30, FamilyMask = 0xF0 };

OwnedFontOptions MakeOptions(TextLook look) {
    OwnedFontOptions options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(),
                                      look.Hinted ? CAIRO_HINT_STYLE_FULL : CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(
        options.get(), look.Hinted ? CAIRO_HINT_METRICS_ON : CAIRO_HINT_METRICS_OFF);
    return options;
}

std::string FaceName(const LogFont& record) {
    std::string_view face(record.lfFaceName.data(), record.lfFaceName.size());
    face = face.substr(0, face.find('\0'));
    if (face.starts_with('@')) {
        face.remove_prefix(1);
    }
    std::string name = Utf8FromCodePage936(face);
    // A comma would begin the name of another face.
    std::replace(name.begin(), name.end(), ',', ' ');
    return name;
}

// The kind of face that stands in where the named one is missing. The Chinese faces with serifs do
// not always say so in the record.
const char* KindOfFace(const LogFont& record, const std::string& face) {
    constexpr std::array<std::string_view, 5> serifs{"宋", "仿宋", "楷", "SimSun", "KaiTi"};
    const bool isSerif = std::any_of(serifs.begin(), serifs.end(), [&](std::string_view name) {
        return face.find(name) != std::string::npos;
    });
    const auto family = static_cast<std::uint8_t>(record.lfPitchAndFamily & FamilyMask);
    return isSerif || family == Roman ? "serif" : family == Modern ? "monospace" : "sans-serif";
}

OwnedFontDescription Describe(const LogFont& record, double size) {
    OwnedFontDescription description(pango_font_description_new());
    const std::string face = FaceName(record);
    const std::string families = (face.empty() ? "" : face + ",") + KindOfFace(record, face);
    pango_font_description_set_family(description.get(), families.c_str());
    constexpr std::int32_t normal = 400;
    const std::int32_t weight =
        record.lfWeight <= 0 ? normal : std::clamp(record.lfWeight, 100, 1000);
    pango_font_description_set_weight(description.get(), static_cast<PangoWeight>(weight));
    pango_font_description_set_style(
        description.get(), record.lfItalic != 0 ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_font_description_set_absolute_size(description.get(), size * PANGO_SCALE);
    return description;
}

bool IsCalled(PangoFont* font, const std::string& face) {
    const OwnedFontDescription description(pango_font_describe(font));
    const char* const name = pango_font_description_get_family(description.get());
    return name != nullptr && g_ascii_strcasecmp(name, face.c_str()) == 0;
}

std::int32_t Rounded(double size) {
    return static_cast<std::int32_t>(std::lround(size));
}

cairo_font_extents_t ExtentsOf(cairo_scaled_font_t* font) {
    cairo_font_extents_t extents{};
    cairo_scaled_font_extents(font, &extents);
    return extents;
}

}  // namespace

LogFont DefaultFont() {
    LogFont font{.lfHeight = -12, .lfWeight = 400, .lfCharSet = 134};
    static const std::string face = CodePage936FromUtf16(u"宋体");
    std::copy(face.begin(), face.end(), font.lfFaceName.begin());
    return font;
}

CairoFont::CairoFont(PangoContext* context, const LogFont& record, TextLook look)
    : m_record(record),
      m_look(look),
      m_angle(record.lfEscapement % 3600 / 1800.0 * std::numbers::pi) {
    const double height = std::abs(static_cast<double>(record.lfHeight));
    double size = std::min(height == 0 ? DefaultCellHeight : height, MostSize);
    const auto cellHeight = static_cast<std::int32_t>(size);
    LoadFaces(context, size);
    // It may be the height of a whole line that is given.
    while (record.lfHeight >= 0 && Height() > cellHeight && size > 1) {
        size = std::max(1.0, size - std::max(1, (Height() - cellHeight) / 2));
        LoadFaces(context, size);
    }
    if (record.lfWidth != 0) {
        constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz";
        const double average = WidthOf(letters, *this) / static_cast<double>(letters.size());
        m_stretch = std::min(std::abs(static_cast<double>(record.lfWidth)), MostSize) /
                    std::max(average, 1.0);
        m_fonts.clear();
        m_pages = {};
    }
}

void CairoFont::LoadFaces(PangoContext* context, double size) {
    m_fonts.clear();
    const OwnedFontDescription description = Describe(m_record, size);
    m_faces.reset(pango_context_load_fontset(context, description.get(),
                                             pango_language_from_string("zh-cn")));
    OwnedPangoFont first(pango_fontset_get_font(m_faces.get(), 'x'));
    const bool isNamedFace = IsCalled(first.get(), FaceName(m_record));
    const cairo_font_extents_t extents = ExtentsOf(FaceOf(std::move(first)).Measuring.get());
    m_ascent = Rounded(isNamedFace ? extents.ascent : size * UsualAscent);
    m_descent = Rounded(isNamedFace ? extents.descent : size * UsualDescent);
}

FontGlyph& CairoFont::Slot(std::string_view character) {
    const bool isPair = character.size() > 1;
    auto& page = m_pages[isPair ? static_cast<unsigned char>(character[0]) : 0];
    if (page == nullptr) {
        page = std::make_unique<Page>();
    }
    return (*page)[static_cast<unsigned char>(character[isPair ? 1 : 0])];
}

const CairoFont::Face& CairoFont::FaceOf(OwnedPangoFont font) {
    Face& face = m_fonts[font.get()];
    if (face.Measuring == nullptr) {
        cairo_scaled_font_t* const loaded =
            pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font.get()));
        face.Measuring = MakeScaled(loaded, 0);
        face.Drawing = m_angle == 0 ? nullptr : MakeScaled(loaded, m_angle);
        face.Font = std::move(font);
    }
    return face;
}

OwnedScaledFont CairoFont::MakeScaled(cairo_scaled_font_t* loaded, double angle) const {
    cairo_matrix_t size;
    cairo_scaled_font_get_font_matrix(loaded, &size);
    cairo_matrix_t stretch;
    cairo_matrix_init_scale(&stretch, m_stretch, 1);
    cairo_matrix_multiply(&size, &size, &stretch);
    cairo_matrix_t turn;
    cairo_matrix_init_rotate(&turn, -angle);
    cairo_matrix_multiply(&size, &size, &turn);
    cairo_matrix_t device;
    cairo_matrix_init_scale(&device, m_look.Scale, m_look.Scale);
    const OwnedFontOptions options = MakeOptions(m_look);
    return OwnedScaledFont(cairo_scaled_font_create(cairo_scaled_font_get_font_face(loaded), &size,
                                                    &device, options.get()));
}

FontGlyph CairoFont::Find(std::string_view character) {
    FontGlyph glyph{.Known = true};
    constexpr char16_t firstVisible = 0x20;
    const char16_t unit = Utf16FromCodePage936(character).front();
    if (unit < firstVisible || unit == 0x7F) {
        return glyph;
    }
    OwnedPangoFont font(pango_fontset_get_font(m_faces.get(), unit));
    hb_codepoint_t index = 0;
    hb_font_get_nominal_glyph(pango_font_get_hb_font(font.get()), unit, &index);
    const Face& face = FaceOf(std::move(font));
    glyph.Index = index;
    glyph.Font = face.Drawing == nullptr ? face.Measuring.get() : face.Drawing.get();
    const cairo_glyph_t measured{index, 0, 0};
    cairo_text_extents_t extents{};
    cairo_scaled_font_glyph_extents(face.Measuring.get(), &measured, 1, &extents);
    glyph.Advance = extents.x_advance;
    glyph.InkLeft = extents.x_bearing;
    glyph.InkTop = extents.y_bearing;
    glyph.InkRight = extents.x_bearing + extents.width;
    glyph.InkBottom = extents.y_bearing + extents.height;
    return glyph;
}

std::int32_t CairoFont::LineThickness() const {
    constexpr std::int32_t heightOfOnePixel = 20;
    return std::max(1, Height() / heightOfOnePixel);
}

CairoFonts::CairoFonts(TextLook look)
    : m_look(look),
      m_map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)),
      m_context(pango_font_map_create_context(m_map.get())) {
    const OwnedFontOptions options = MakeOptions(look);
    pango_cairo_context_set_font_options(m_context.get(), options.get());
    pango_context_set_language(m_context.get(), pango_language_from_string("zh-cn"));
}

std::shared_ptr<CairoFont> CairoFonts::Get(const LogFont& record) {
    const auto known = m_fonts.find(record);
    if (known != m_fonts.end()) {
        return known->second;
    }
    if (m_fonts.size() >= MostFonts) {
        m_fonts.clear();
    }
    return m_fonts.emplace(record, std::make_shared<CairoFont>(m_context.get(), record, m_look))
        .first->second;
}

bool CairoFonts::InByteOrder::operator()(const LogFont& a, const LogFont& b) const {
    return std::memcmp(&a, &b, sizeof a) < 0;
}

}  // namespace veygrid
