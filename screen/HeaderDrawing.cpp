// The row and column headers, the corner between them and the empty space beside the sheet.
#include "screen/HeaderDrawing.h"

#include <string>
#include <string_view>

#include "screen/CenteredText.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

// Pixels by which the label of a lowered box drops.
constexpr std::int32_t LabelDrop = 2;
constexpr std::uint32_t MarkFormat = DtCenter | DtVCenter | DtSingleLine;

const std::string& CheckMark() {
    static const std::string text = CodePage936FromUtf16(u"√");
    return text;
}

class HeaderDrawing {
  public:
    HeaderDrawing(const DrawingContext& context, Surface& surface, const Rect& bounds)
        : m_context(context),
          m_properties(context.Store.Properties),
          m_colors(context.Colors),
          m_surface(surface),
          m_bounds(bounds),
          m_headerWidth(m_properties.ShowRowHeaders ? m_properties.RowHeaderWidth : 0),
          m_headerHeight(m_properties.ShowColHeaders ? m_properties.ColHeaderHeight : 0),
          m_right(WrapAdd(WrapAdd(bounds.left, context.View.m_visible.Width), m_headerWidth)),
          m_bottom(WrapAdd(WrapAdd(bounds.top, context.View.m_visible.Height), m_headerHeight)) {}

    void DrawRowHeaders(const ViewLines& rows);
    void DrawColHeaders(const ViewLines& cols);
    void DrawCorner();
    void FillEmptySpace();

  private:
    void DrawRowMark(std::int32_t row, const Rect& box);
    void DrawLabel(std::string_view label, const Rect& box, bool isActive);
    void DrawRaised(const Rect& box) {
        m_surface.Draw3dRect(box, m_colors.m_clrHighlight, m_colors.m_clrDarkShadow);
    }
    void DrawMark(std::string_view text, Rect box) { m_surface.DrawText(text, box, MarkFormat); }

    const DrawingContext& m_context;
    const GridProperties& m_properties;
    const SystemColors& m_colors;
    Surface& m_surface;
    Rect m_bounds;
    std::int32_t m_headerWidth;
    std::int32_t m_headerHeight;
    // Where the last row and column on view end.
    std::int32_t m_right;
    std::int32_t m_bottom;
};

void HeaderDrawing::DrawRowHeaders(const ViewLines& rows) {
    const std::int32_t right = WrapAdd(m_bounds.left, m_properties.RowHeaderWidth);
    m_surface.FillSolidRect({m_bounds.left, m_bounds.top, right, m_bottom}, m_colors.m_clrFace);
    Rect box{m_bounds.left, m_bounds.top, right, WrapAdd(m_bounds.top, m_headerHeight)};
    for (const ViewLine& row : rows) {
        box.top = box.bottom;
        box.bottom = WrapAdd(box.top, row.size);
        if (m_properties.RowMode) {
            DrawRowMark(row.line, box);
        } else {
            DrawLabel(m_context.Store.RowHeader(row.line), box,
                      row.line == m_context.Store.ActiveRow);
        }
    }
}

// The arrow is for paper too.
void HeaderDrawing::DrawRowMark(std::int32_t row, const Rect& box) {
    DrawRaised(box);
    if (row == m_context.Store.ActiveRow) {
        m_surface.DrawFrameControl(box, DfcScroll, DfcsScrollRight);
    } else if (m_context.Selected.IsRowChecked(row)) {
        DrawMark(CheckMark(), box);
    }
}

void HeaderDrawing::DrawColHeaders(const ViewLines& cols) {
    const std::int32_t bottom = WrapAdd(m_bounds.top, m_properties.ColHeaderHeight);
    m_surface.FillSolidRect({m_bounds.left, m_bounds.top, m_right, bottom}, m_colors.m_clrFace);
    Rect box{m_bounds.left, m_bounds.top, WrapAdd(m_bounds.left, m_headerWidth), bottom};
    for (const ViewLine& col : cols) {
        box.left = box.right;
        box.right = WrapAdd(box.left, col.size);
        DrawLabel(m_context.Store.ColHeader(col.line), box,
                  col.line == m_context.Store.ActiveCol && !m_properties.RowMode);
    }
}

// The box of the active row or column is lowered on screen, and its label drops.
void HeaderDrawing::DrawLabel(std::string_view label, const Rect& box, bool isActive) {
    const bool isSeen = !label.empty() && !box.IsRectEmpty();
    Rect text = box;
    if (isSeen) {
        MoveToMiddle(m_surface, label, text);
    }
    if (isActive && !m_surface.IsPrinting()) {
        m_surface.Draw3dRect(box, m_colors.m_clrDarkShadow, m_colors.m_clrFace);
        text.left = WrapAdd(text.left, LabelDrop);
        text.top = WrapAdd(text.top, LabelDrop);
    } else {
        DrawRaised(box);
    }
    if (isSeen) {
        m_surface.DrawText(label, text, DtCenter);
    }
}

void HeaderDrawing::DrawCorner() {
    const Rect box{m_bounds.left, m_bounds.top, WrapAdd(m_bounds.left, m_headerWidth),
                   WrapAdd(m_bounds.top, m_headerHeight)};
    DrawRaised(box);
    if (!m_surface.IsPrinting()) {
        DrawMark("R" + std::to_string(m_context.Store.ActiveRow) + "C" +
                     std::to_string(m_context.Store.ActiveCol),
                 box);
    }
}

void HeaderDrawing::FillEmptySpace() {
    const Color color = m_surface.IsPrinting() ? m_colors.m_clrHighlight : m_colors.m_clrBackground;
    const std::int32_t left = WrapAdd(m_right, 1);
    if (left < m_bounds.right) {
        m_surface.FillSolidRect({left, m_bounds.top, m_bounds.right, m_bounds.bottom}, color);
    }
    const std::int32_t top = WrapAdd(m_bottom, 1);
    if (top < m_bounds.bottom) {
        m_surface.FillSolidRect({m_bounds.left, top, m_bounds.right, m_bounds.bottom}, color);
    }
}

}  // namespace

void DrawHeaders(const DrawingContext& context, Surface& surface, const ViewLines& rows,
                 const ViewLines& cols, const Rect& bounds) {
    const GridProperties& properties = context.Store.Properties;
    HeaderDrawing drawing(context, surface, bounds);
    surface.SelectStockFont();
    if (properties.ShowRowHeaders) {
        drawing.DrawRowHeaders(rows);
    }
    if (properties.ShowColHeaders) {
        drawing.DrawColHeaders(cols);
    }
    if (properties.ShowRowHeaders && properties.ShowColHeaders) {
        drawing.DrawCorner();
    }
    drawing.FillEmptySpace();
    surface.SelectFormerFont();
}

}  // namespace veygrid
