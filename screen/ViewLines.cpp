// The rows or columns on view with their sizes, taken down once for a whole paint.
#include "screen/ViewLines.h"

#include "screen/LineWalk.h"

namespace veygrid {

namespace {

// Far beyond any view: each line takes a pixel, unless a host gave lines a size below 0.
constexpr std::size_t MostLines = std::size_t{1} << 16U;

// Adds the lines from `first` to `last`, which all are as large as the first.
void AddLines(ViewLines& lines, const GridStore& store, Axis axis, std::int64_t first,
              std::int64_t last) {
    const auto line = static_cast<std::int32_t>(first);
    const std::int32_t size = SizeOf(store, axis, line);
    if (size == 0 && !lines.empty() && lines.back().size == 0) {
        lines.back().last = static_cast<std::int32_t>(last);
    } else {
        lines.push_back({line, static_cast<std::int32_t>(last), size});
    }
}

// Where all lines are hidden but those that have a size of their own.
ViewLines StoredLines(const GridStore& store, Axis axis, std::int64_t first, std::int64_t last) {
    ViewLines lines;
    const LineSpan span{static_cast<std::int32_t>(first), static_cast<std::int32_t>(last)};
    for (const std::int32_t line : LinesWithSize(store, axis, span)) {
        if (line > first) {
            AddLines(lines, store, axis, first, std::int64_t{line} - 1);
        }
        AddLines(lines, store, axis, line, line);
        first = std::int64_t{line} + 1;
    }
    if (first <= last) {
        AddLines(lines, store, axis, first, last);
    }
    return lines;
}

}  // namespace

ViewLines LinesOnView(const GridStore& store, Axis axis, std::int64_t first, std::int64_t last) {
    if (last - first >= ScreenfulOfLines && DefaultSize(store, axis) == 0) {
        return StoredLines(store, axis, first, last);
    }
    ViewLines lines;
    for (std::int64_t line = first; line <= last && lines.size() < MostLines; ++line) {
        AddLines(lines, store, axis, line, line);
    }
    return lines;
}

std::vector<LineEdges> EdgesOnView(const Layout& layout, Axis axis, const ViewLines& lines) {
    std::vector<LineEdges> edges(lines.size());
    const Rect& client = layout.m_rcClient;
    if (client.IsRectEmpty()) {
        return edges;
    }
    const std::int64_t viewEnd = axis == Axis::Rows ? client.bottom : client.right;
    std::int64_t begin = axis == Axis::Rows ? layout.OriginY() : layout.OriginX();
    bool isOffView = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        edges[i] = isOffView ? LineEdges{OffView, OffView}
                             : LineEdges{Edge(begin), Edge(begin + lines[i].size - 1)};
        begin += lines[i].size;
        isOffView = isOffView || begin >= viewEnd;
    }
    return edges;
}

}  // namespace veygrid
