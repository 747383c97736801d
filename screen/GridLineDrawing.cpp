// The background of the cells and the lines between them.
#include "screen/GridLineDrawing.h"

namespace veygrid {

void DrawGridLines(const DrawingContext& context, Surface& surface, const ViewLines& rows,
                   const ViewLines& cols, const Rect& cells) {
    const GridProperties& properties = context.Store.Properties;
    const std::int32_t right = WrapAdd(cells.left, context.View.m_visible.Width);
    const std::int32_t bottom = WrapAdd(cells.top, context.View.m_visible.Height);
    surface.FillSolidRect({cells.left, cells.top, right, bottom},
                          context.Host.TranslateColor(properties.BackColor));
    surface.SelectPen(context.Host.TranslateColor(properties.GridLinesColor));
    if (properties.ShowHGridLines) {
        std::int32_t y = WrapSub(cells.top, 1);
        for (const ViewLine& row : rows) {
            y = WrapAdd(y, row.size);
            surface.MoveTo({cells.left, y});
            surface.LineTo({right, y});
        }
    }
    if (properties.ShowVGridLines) {
        std::int32_t x = WrapSub(cells.left, 1);
        for (const ViewLine& col : cols) {
            x = WrapAdd(x, col.size);
            surface.MoveTo({x, cells.top});
            surface.LineTo({x, bottom});
        }
    }
}

}  // namespace veygrid
