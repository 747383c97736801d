// Cells as a page with one table that looks like the sheet.
#include <array>
#include <cstdio>
#include <unordered_map>
#include <vector>

#include "apps/grd/CellText.h"
#include "apps/grd/CellWriters.h"
#include "platform/SystemPalette.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

void AppendHtml(std::string& out, std::string_view utf8) {
    for (const char c : utf8) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
}

// From 0x00BBGGRR, or a system colour with the top bit set, to "#rrggbb".
std::string CssColor(std::uint32_t color) {
    color = UsualColor(color);
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", color & 0xFFU, color >> 8U & 0xFFU,
                  color >> 16U & 0xFFU);
    return text.data();
}

std::string FaceName(const LogFont& font) {
    std::string face(font.lfFaceName.data(), font.lfFaceName.size());
    face.resize(std::min(face.find('\0'), face.size()));
    std::string name;
    for (const char c : Utf8FromCodePage936(face)) {
        // What could end the quoted name or the style sheet is no part of a font's name.
        name += std::string_view("'\"\\<>{};&").find(c) == std::string_view::npos ? c : ' ';
    }
    return name;
}

std::string CssFont(const LogFont& font) {
    std::string css;
    if (const std::string face = FaceName(font); !face.empty()) {
        css += "font-family:'" + face + "';";
    }
    if (font.lfHeight != 0) {
        css += "font-size:" + std::to_string(std::abs(std::int64_t{font.lfHeight})) + "px;";
    }
    constexpr std::int32_t semiBold = 600;
    css += font.lfWeight >= semiBold ? "font-weight:bold;" : "";
    css += font.lfItalic != 0 ? "font-style:italic;" : "";
    if (font.lfUnderline != 0 || font.lfStrikeOut != 0) {
        css += std::string("text-decoration:") + (font.lfUnderline != 0 ? "underline" : "") +
               (font.lfStrikeOut != 0 ? " line-through" : "") + ";";
    }
    return css;
}

// Everything of a format but the horizontal side, which may depend on the text.
std::string CssOfFormat(const CCellFormat& format) {
    std::string css;
    if (format.Foreground != NoColor) {
        css += "color:" + CssColor(static_cast<std::uint32_t>(format.Foreground)) + ";";
    }
    if (format.Background != NoColor) {
        css += "background:" + CssColor(static_cast<std::uint32_t>(format.Background)) + ";";
    }
    if (format.NamesFont()) {
        css += CssFont(format.Font);
    }
    const auto vertical = static_cast<std::uint16_t>(format.Align & 0xFF00U);
    if (vertical == static_cast<std::uint16_t>(VerticalAlign::Middle)) {
        css += "vertical-align:middle;";
    } else if (vertical == static_cast<std::uint16_t>(VerticalAlign::Bottom)) {
        css += "vertical-align:bottom;";
    }
    css += (format.Flags & CCellFormat::WordWrapFlag) != 0 ? "white-space:pre-wrap;" : "";
    return css;
}

// A class of the style sheet for each look that formats of the sheet have.
class StyleClasses {
  public:
    explicit StyleClasses(const GridStore& store) {
        Add(store.DefCellFormat);
        for (const auto& [key, format] : store.CellFormatMap) {
            Add(format);
        }
    }

    // The name of the class; empty for a format without a look of its own.
    const std::string& NameOf(const CCellFormat& format) const { return *m_names.at(&format); }

    std::string Css() const {
        std::string css;
        for (const std::string* look : m_order) {
            css += "td." + m_byLook.at(*look) + "{" + *look + "}\n";
        }
        return css;
    }

  private:
    void Add(const CCellFormat& format) {
        const std::string look = CssOfFormat(format);
        const auto [entry, added] = m_byLook.try_emplace(look);
        if (added && !look.empty()) {
            entry->second.append("f").append(std::to_string(m_order.size() + 1));
            m_order.push_back(&entry->first);
        }
        m_names[&format] = &entry->second;
    }

    std::unordered_map<std::string, std::string> m_byLook;
    std::vector<const std::string*> m_order;
    std::unordered_map<const CCellFormat*, const std::string*> m_names;
};

class HtmlWriter {
  public:
    HtmlWriter(const CellsToWrite& cells, TextOutput& out, Progress& progress)
        : m_cells(cells),
          m_store(cells.Store),
          m_out(out),
          m_progress(progress),
          m_classes(cells.Store),
          m_rowHeaders(cells.Store.Properties.ShowRowHeaders) {}

    void Write() {
        WriteHead();
        WriteColumns();
        if (m_cells.Header && m_store.Properties.ShowColHeaders) {
            WriteColHeaders();
        }
        m_out.Text() += "<tbody>\n";
        for (RowWalk walk(m_cells.Slice); walk.Next();) {
            WriteRow(walk);
        }
        m_out.Text() += "</tbody>\n</table>\n</body>\n</html>\n";
    }

  private:
    void WriteHead() {
        const GridProperties& properties = m_store.Properties;
        const std::string line = "1px solid " + CssColor(properties.GridLinesColor);
        std::string& text = m_out.Text();
        text += "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>";
        AppendHtml(text, m_cells.Title);
        text +=
            "</title>\n<style>\ntable{border-collapse:collapse;font:12px sans-serif;background:" +
            CssColor(properties.BackColor) + "}\n";
        text += "td,th{padding:1px 4px;text-align:left;vertical-align:top;white-space:pre}\n";
        if (properties.ShowHGridLines) {
            text += "td{border-top:" + line + ";border-bottom:" + line + "}\n";
        }
        if (properties.ShowVGridLines) {
            text += "td{border-left:" + line + ";border-right:" + line + "}\n";
        }
        text +=
            "th{background:#e0e0e0;border:1px solid "
            "#a0a0a0;font-weight:normal;text-align:center}\n";
        text += "td.r{text-align:right}\ntd.c{text-align:center}\n";
        text += m_classes.Css() + "</style>\n</head>\n<body>\n<table>\n";
    }

    template <class Visit>
    void ForEachColumn(Visit visit) const {
        const CellRange& range = m_cells.Slice.Range;
        for (std::int64_t col = range.Col1; col <= range.Col2; ++col) {
            visit(static_cast<std::int32_t>(col));
        }
    }

    void WriteColumns() {
        std::string& text = m_out.Text();
        text += "<colgroup>";
        if (m_rowHeaders) {
            text +=
                "<col style=\"width:" + std::to_string(m_store.Properties.RowHeaderWidth) + "px\">";
        }
        ForEachColumn([&](std::int32_t col) {
            const std::int32_t* const own = m_store.ColWidthMap.Find(ColKey(col));
            const std::int32_t width = own != nullptr ? *own : m_store.Properties.DefCellWidth;
            text += "<col style=\"width:" + std::to_string(width) + "px\">";
        });
        text += "</colgroup>\n";
    }

    void PutHeader(std::string_view header) {
        m_utf8.clear();
        AppendInUtf8(m_utf8, header);
        m_out.Text() += "<th>";
        AppendHtml(m_out.Text(), m_utf8);
        m_out.Text() += "</th>";
    }

    void WriteColHeaders() {
        m_out.Text() += m_rowHeaders ? "<thead>\n<tr><th></th>" : "<thead>\n<tr>";
        ForEachColumn([&](std::int32_t col) { PutHeader(m_store.ColHeader(col)); });
        m_out.Text() += "</tr>\n</thead>\n";
    }

    void PutCell(const CCellFormat& format, std::string_view text) {
        std::string classes = m_classes.NameOf(format);
        const HorizontalAlign side =
            text.empty() ? HorizontalAlign::Left : SideOfText(format, text);
        if (side != HorizontalAlign::Left) {
            classes += classes.empty() ? "" : " ";
            classes += side == HorizontalAlign::Right ? 'r' : 'c';
        }
        const bool plain = classes.find(' ') == std::string::npos;
        m_out.Text() += classes.empty() ? "<td>"
                        : plain         ? "<td class=" + classes + ">"
                                        : "<td class=\"" + classes + "\">";
        m_utf8.clear();
        AppendInUtf8(m_utf8, text);
        AppendHtml(m_out.Text(), m_utf8);
        m_out.Text() += "</td>";
    }

    void WriteRow(const RowWalk& walk) {
        m_out.Text() += "<tr>";
        if (m_rowHeaders) {
            PutHeader(m_store.RowHeader(walk.Row()));
        }
        auto next = walk.Cells().begin();
        ForEachColumn([&](std::int32_t col) {
            const bool held = next != walk.Cells().end() && next->Pos.Col == col;
            const CCellFormat& format = m_store.EffectiveFormatRef(walk.Row(), col);
            PutCell(format, held ? TextOfCell(m_store, *next++, m_cells.Shown, m_scratch) : "");
            m_out.SpillIfLarge();
        });
        m_out.Text() += "</tr>\n";
        m_progress.Reach(walk.FirstIndex());
    }

    const CellsToWrite& m_cells;
    const GridStore& m_store;
    TextOutput& m_out;
    Progress& m_progress;
    StyleClasses m_classes;
    bool m_rowHeaders;
    std::string m_scratch;
    std::string m_utf8;
};

}  // namespace

void WriteHtmlTable(const CellsToWrite& cells, TextOutput& out, Progress& progress) {
    HtmlWriter(cells, out, progress).Write();
}

}  // namespace veygrid
