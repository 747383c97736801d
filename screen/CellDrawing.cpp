// The cells on view: their backgrounds and their texts.
#include "screen/CellDrawing.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screen/CenteredText.h"
#include "valuetext/CellClass.h"

namespace veygrid {

namespace {

// Pixels between the edges of a cell and its text.
constexpr std::int32_t TextMargin = 2;

// Numbers and dates go right, words go left.
std::uint32_t GeneralAlign(std::string_view text) {
    return ClassifyCellText(text) == CellClass::OtherText ? DtLeft : DtRight;
}

// The bits are tested in this order, so that right wins over left and left over centred.
std::uint32_t HorizontalFormat(std::string_view text, std::uint16_t align) {
    const auto has = [align](HorizontalAlign bit) {
        return (align & static_cast<std::uint16_t>(bit)) != 0;
    };
    if ((align & 0xFFU) == 0) {
        return GeneralAlign(text);
    }
    if (has(HorizontalAlign::Right)) {
        return DtRight;
    }
    return !has(HorizontalAlign::Left) && has(HorizontalAlign::Center) ? DtCenter : DtLeft;
}

// What is held against the far edge of the cells: the end of the text box, or of a cell that has no
// area and thus no text box.
std::int32_t FarEdgeOf(const LineEdges& edges, bool isCellEmpty) {
    return isCellEmpty ? edges.end : WrapSub(edges.end, TextMargin);
}

class CellDrawing {
  public:
    CellDrawing(const DrawingContext& context, Surface& surface, const ViewLines& cols,
                std::int32_t right)
        : m_context(context),
          m_surface(surface),
          m_cols(cols),
          m_colEdges(EdgesOnView(context.View, Axis::Cols, cols)),
          m_right(right),
          m_isListenedTo(context.Host.ListensToRequestCellFormat()),
          m_foreColor(context.Host.TranslateColor(context.Host.GetForeColor())) {}

    // Gives the far edge of the last cell drawn, and notes the column of each cell of the first
    // row.
    std::int32_t DrawRow(std::int32_t row, const LineEdges& edges, bool isFirst);

  private:
    void DrawCell(std::int32_t row, std::int32_t col, const Rect& rect);
    void Paint(std::string_view text, const CCellFormat& format, const Rect& rect);
    void DrawCellText(std::string_view text, const CCellFormat& format, Rect box);
    void SelectFontOf(const CCellFormat& format);
    void SelectTextColor(Color color);

    const DrawingContext& m_context;
    Surface& m_surface;
    const ViewLines& m_cols;
    std::vector<LineEdges> m_colEdges;
    std::int32_t m_right;
    bool m_isListenedTo;
    Color m_foreColor;
    // What is in force on the surface: nothing is the stock font, and no colour known.
    std::optional<LogFont> m_font;
    std::optional<Color> m_textColor;
    // Kept from cell to cell for their memory.
    std::string m_buffer;
    std::string m_text;
    CCellFormat m_workingCopy;
};

std::int32_t CellDrawing::DrawRow(std::int32_t row, const LineEdges& edges, bool isFirst) {
    std::int32_t bottom = 0;
    for (std::size_t c = 0; c < m_cols.size(); ++c) {
        const Rect rect = CellRectOf(edges, m_colEdges[c]);
        const bool isEmpty = rect.IsRectEmpty();
        if (!isEmpty) {
            if (isFirst) {
                m_context.View.m_nLastDrawnCol = m_cols[c].line;
            }
            DrawCell(row, m_cols[c].line, rect);
        }
        bottom = FarEdgeOf(edges, isEmpty);
        if (FarEdgeOf(m_colEdges[c], isEmpty) >= m_right) {
            break;
        }
    }
    return bottom;
}

void CellDrawing::DrawCell(std::int32_t row, std::int32_t col, const Rect& rect) {
    const GridStore& store = m_context.Store;
    // A dataset is asked first: nothing of the sheet is held while its code runs.
    const std::string_view stored = store.CellTextRef(row, col, m_buffer);
    const CCellFormat& format = store.EffectiveFormatRef(row, col);
    const std::string_view text =
        ShownTextRef(stored, format.ShowFormat, row, col, m_context.Host.Combos(), m_buffer);
    if (!m_isListenedTo) {
        Paint(text, format, rect);
        return;
    }
    // The host's code may change or delete the cell itself.
    m_text = text;
    m_workingCopy = format;
    m_context.Host.FireRequestCellFormat(row, col, m_workingCopy);
    Paint(m_text, m_workingCopy, rect);
}

void CellDrawing::Paint(std::string_view text, const CCellFormat& format, const Rect& rect) {
    if (format.Background != NoColor) {
        m_surface.FillSolidRect(rect, static_cast<Color>(format.Background));
    }
    const Rect box = rect.Inflated(-TextMargin, -TextMargin);
    if (!text.empty() && !box.IsRectEmpty()) {
        DrawCellText(text, format, box);
    }
}

// Line breaks in the text take effect, and the text is cut at its own box.
void CellDrawing::DrawCellText(std::string_view text, const CCellFormat& format, Rect box) {
    const std::uint32_t wordBreak =
        (format.Flags & CCellFormat::WordWrapFlag) != 0 ? DtWordBreak : DtLeft;
    SelectTextColor(format.Foreground == NoColor ? m_foreColor
                                                 : static_cast<Color>(format.Foreground));
    SelectFontOf(format);
    if ((format.Align & static_cast<std::uint16_t>(VerticalAlign::Middle)) != 0) {
        MoveToMiddle(m_surface, text, box);
    } else if ((format.Align & static_cast<std::uint16_t>(VerticalAlign::Bottom)) != 0) {
        MoveToBottom(m_surface, text, box);
    }
    m_surface.DrawText(text, box, wordBreak | HorizontalFormat(text, format.Align));
}

void CellDrawing::SelectFontOf(const CCellFormat& format) {
    if (!format.NamesFont()) {
        if (m_font) {
            m_font.reset();
            m_surface.SelectStockFont();
        }
    } else if (m_font != format.Font) {
        m_font = format.Font;
        m_surface.SelectFont(format.Font);
    }
}

void CellDrawing::SelectTextColor(Color color) {
    if (m_textColor != color) {
        m_textColor = color;
        m_surface.SetTextColor(color);
    }
}

}  // namespace

void DrawCells(const DrawingContext& context, Surface& surface, const ViewLines& rows,
               const ViewLines& cols, const Rect& cells) {
    Layout& view = context.View;
    const std::vector<LineEdges> rowEdges = EdgesOnView(view, Axis::Rows, rows);
    CellDrawing drawing(context, surface, cols, cells.right);
    surface.SelectStockFont();
    view.m_nLastDrawnRow = 0;
    view.m_nLastDrawnCol = 0;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        view.m_nLastDrawnRow = rows[r].line;
        if (drawing.DrawRow(rows[r].line, rowEdges[r], r == 0) >= cells.bottom) {
            break;
        }
        view.m_nLastDrawnRow = rows[r].last;
    }
    surface.SelectFormerFont();
}

}  // namespace veygrid
