// Walks along the rows or columns of the sheet, adding up their sizes until an edge is reached.
#include "screen/LineWalk.h"

#include <algorithm>

namespace veygrid {

namespace {

const SizeMap& StoredSizes(const GridStore& store, Axis axis) {
    return axis == Axis::Rows ? store.RowHeightMap : store.ColWidthMap;
}

class LineWalk {
  public:
    LineWalk(std::int64_t first, std::int64_t start, std::int64_t edge)
        : m_line(first), m_position(start), m_edge(edge) {}

    std::int64_t Line() const { return m_line; }

    // Walks one line; true when it reaches the edge.
    bool Step(std::int64_t size) {
        const std::int64_t end = m_position + size;
        if (end >= m_edge) {
            m_end = {true, m_line, m_position, end};
            return true;
        }
        m_position = end;
        ++m_line;
        return false;
    }

    // Walks `count` lines of one size.
    bool Stride(std::int64_t count, std::int64_t size) {
        if (count <= 0) {
            return false;
        }
        if (Step(size)) {
            return true;
        }
        // The edge lies ahead now, so that only lines of some size come nearer to it.
        const std::int64_t rest = count - 1;
        const std::int64_t before = size <= 0 ? rest : (m_edge - m_position - 1) / size;
        const std::int64_t taken = std::min(rest, before);
        m_line += taken;
        m_position += taken * size;
        return taken < rest && Step(size);
    }

    WalkEnd End() const {
        return m_end.reached ? m_end : WalkEnd{false, m_line, m_position, m_position};
    }

  private:
    std::int64_t m_line;
    std::int64_t m_position;
    std::int64_t m_edge;
    WalkEnd m_end;
};

// Over all that is left of lines inside the sheet.
void StrideToEnd(LineWalk& walk, const GridStore& store, Axis axis, std::int64_t past) {
    const std::int64_t common = DefaultSize(store, axis);
    if (!StoredSizes(store, axis).IsEmpty()) {
        const LineSpan left{static_cast<std::int32_t>(walk.Line()),
                            static_cast<std::int32_t>(past - 1)};
        for (const std::int32_t line : LinesWithSize(store, axis, left)) {
            if (walk.Stride(line - walk.Line(), common) || walk.Step(SizeOf(store, axis, line))) {
                return;
            }
        }
    }
    walk.Stride(past - walk.Line(), common);
}

// Line by line as long as that is the shorter way; true when nothing is left to walk.
bool StepThrough(LineWalk& walk, const GridStore& store, Axis axis, std::int64_t past) {
    const std::size_t stored = StoredSizes(store, axis).Count();
    if (stored == 0) {
        return walk.Line() >= past;
    }
    std::int64_t steps =
        std::max<std::int64_t>(ScreenfulOfLines, static_cast<std::int64_t>(stored));
    for (; walk.Line() < past && steps > 0; --steps) {
        if (walk.Step(SizeOf(store, axis, static_cast<std::int32_t>(walk.Line())))) {
            return true;
        }
    }
    return walk.Line() >= past;
}

}  // namespace

std::int32_t SizeOf(const GridStore& store, Axis axis, std::int32_t line) {
    return axis == Axis::Rows ? store.RowHeight(line) : store.ColWidth(line);
}

std::int32_t DefaultSize(const GridStore& store, Axis axis) {
    return axis == Axis::Rows ? store.Properties.DefCellHeight : store.Properties.DefCellWidth;
}

std::int32_t MaxLine(const GridStore& store, Axis axis) {
    return axis == Axis::Rows ? store.Properties.MaxRow : store.Properties.MaxCol;
}

std::vector<std::int32_t> LinesWithSize(const GridStore& store, Axis axis, LineSpan span) {
    std::vector<std::int32_t> lines;
    for (const auto& [key, size] : StoredSizes(store, axis)) {
        const std::int32_t line = LineOf(key, axis);
        if (key == WithLine({}, axis, line) && span.Holds(line)) {
            lines.push_back(line);
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

WalkEnd WalkLines(const GridStore& store, Axis axis, std::int64_t first, std::int64_t past,
                  std::int64_t start, std::int64_t edge) {
    LineWalk walk(first, start, edge);
    // Lines below 1 and behind the last one have the size -1.
    constexpr std::int64_t NoLineSize = -1;
    const std::int64_t inside =
        std::min<std::int64_t>(past, std::int64_t{MaxLine(store, axis)} + 1);
    if (walk.Stride(std::min<std::int64_t>(1, past) - first, NoLineSize)) {
        return walk.End();
    }
    if (!StepThrough(walk, store, axis, inside)) {
        StrideToEnd(walk, store, axis, inside);
    }
    if (!walk.End().reached) {
        walk.Stride(past - walk.Line(), NoLineSize);
    }
    return walk.End();
}

}  // namespace veygrid
