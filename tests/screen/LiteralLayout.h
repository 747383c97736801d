// A slow model of the sheet's geometry that does each question word by word, one line at a time.
#pragma once

#include <cstdint>
#include <map>

#include "grid/CellRange.h"
#include "platform/Geometry.h"
#include "screen/Layout.h"

namespace veygrid {

struct LiteralLayout {
    using Wide = std::int64_t;

    bool showRowHeaders = true;
    bool showColHeaders = true;
    Wide rowHeaderWidth = 50;
    Wide colHeaderHeight = 20;
    Wide maxRow = 50;
    Wide maxCol = 20;
    Wide defWidth = 60;
    Wide defHeight = 18;
    std::map<Wide, Wide> heights;
    std::map<Wide, Wide> widths;
    Rect client;
    Rect frame;
    Wide firstRow = 1;
    Wide firstCol = 1;
    Wide margin = 3;

    Wide RowHeight(Wide r) const {
        if (r < 1 || r > maxRow) {
            return -1;
        }
        return heights.contains(r) ? heights.at(r) : defHeight;
    }
    Wide ColWidth(Wide c) const {
        if (c < 1 || c > maxCol) {
            return -1;
        }
        return widths.contains(c) ? widths.at(c) : defWidth;
    }
    Wide OriginX() const { return showRowHeaders ? rowHeaderWidth : client.left; }
    Wide OriginY() const { return showColHeaders ? colHeaderHeight : client.top; }
    bool NoClient() const { return client.right <= client.left || client.bottom <= client.top; }
    bool InClient(Point p) const {
        return p.x >= client.left && p.x < client.right && p.y >= client.top && p.y < client.bottom;
    }

    Rect CellRect(Wide row, Wide col) const {
        if (row > maxRow || row < firstRow || col > maxCol || col < firstCol || NoClient()) {
            return {};
        }
        Wide top = 0;
        Wide bottom = 0;
        Wide y = OriginY();
        for (Wide r = firstRow;; ++r) {
            const Wide h = RowHeight(r);
            if (r == row) {
                top = y;
                bottom = y + h - 1;
                break;
            }
            y += h;
            if (y >= client.bottom) {
                top = bottom = 32767;
                break;
            }
        }
        Wide left = 0;
        Wide right = 0;
        Wide x = OriginX();
        for (Wide c = firstCol;; ++c) {
            const Wide w = ColWidth(c);
            if (c == col) {
                left = x;
                right = x + w - 1;
                break;
            }
            x += w;
            if (x >= client.right) {
                left = right = 32767;
                break;
            }
        }
        return {static_cast<std::int32_t>(left), static_cast<std::int32_t>(top),
                static_cast<std::int32_t>(right), static_cast<std::int32_t>(bottom)};
    }

    CellPos PosToCell(Point p) const {
        if (NoClient() || !InClient(p)) {
            return {};
        }
        CellPos cell;
        if (p.y > OriginY()) {
            Wide y = OriginY();
            for (Wide r = firstRow; r <= maxRow; ++r) {
                y += RowHeight(r);
                if (y >= p.y) {
                    cell.Row = static_cast<std::int32_t>(r);
                    break;
                }
            }
        }
        if (p.x > OriginX()) {
            Wide x = OriginX();
            for (Wide c = firstCol; c <= maxCol; ++c) {
                x += ColWidth(c);
                if (x >= p.x) {
                    cell.Col = static_cast<std::int32_t>(c);
                    break;
                }
            }
        }
        return cell;
    }

    int HitTest(Point p) const {
        if (NoClient() || !InClient(p)) {
            return 0;
        }
        if (showRowHeaders && showColHeaders && p.x < rowHeaderWidth && p.y < colHeaderHeight) {
            return 6;
        }
        const CellPos cell = PosToCell(p);
        if (cell.Row != 0 && cell.Col != 0) {
            const bool inFrame =
                p.x >= frame.left && p.x < frame.right && p.y >= frame.top && p.y < frame.bottom;
            const bool inner = p.x >= frame.left + 4 && p.x < frame.right - 4 &&
                               p.y >= frame.top + 4 && p.y < frame.bottom - 4;
            return inFrame && !inner ? 20 : 5;
        }
        if (showRowHeaders && p.x < rowHeaderWidth && (!showColHeaders || p.y > colHeaderHeight)) {
            if (cell.Row == 0) {
                return 1;
            }
            const Rect r = CellRect(cell.Row, firstCol);
            if (p.y >= r.bottom - margin && p.y <= r.bottom) {
                return 3;
            }
            return p.y >= r.top && p.y <= r.top + margin ? 3 : 1;
        }
        if (!showColHeaders || p.y >= colHeaderHeight) {
            return -1;
        }
        if (showRowHeaders && p.x <= rowHeaderWidth) {
            return -1;
        }
        if (cell.Col == 0) {
            return 2;
        }
        const Rect r = CellRect(firstRow, cell.Col);
        if (p.x >= r.right - margin && p.x <= r.right) {
            return 4;
        }
        return p.x >= r.left && p.x <= r.left + margin ? 4 : 2;
    }

    CellRange VisibleRange(bool whole) const {
        if (NoClient() || (client.right < OriginX() && client.bottom < OriginY())) {
            return {};
        }
        Wide lastRow = maxRow;
        Wide y = OriginY();
        for (Wide r = firstRow; r <= maxRow; ++r) {
            y += RowHeight(r);
            if (y >= client.bottom) {
                lastRow = whole && y > client.bottom ? r - 1 : r;
                break;
            }
        }
        Wide lastCol = maxCol;
        Wide x = OriginX();
        for (Wide c = firstCol; c <= maxCol; ++c) {
            x += ColWidth(c);
            if (x >= client.right) {
                lastCol = whole && x > client.right ? c - 1 : c;
                break;
            }
        }
        if (whole && lastCol < firstCol) {
            return {};
        }
        if (lastRow < firstRow) {
            return {};
        }
        return {static_cast<std::int32_t>(firstRow), static_cast<std::int32_t>(firstCol),
                static_cast<std::int32_t>(lastRow), static_cast<std::int32_t>(lastCol)};
    }

    VisibleCounts CalcVisible(const Rect& bounds, bool printing, Wide fromRow, Wide fromCol) const {
        Wide h = showColHeaders ? colHeaderHeight : 0;
        Wide w = showRowHeaders ? rowHeaderWidth : 0;
        Wide rows = 0;
        for (Wide r = fromRow; r <= maxRow; ++r) {
            h += RowHeight(r);
            ++rows;
            if (h >= bounds.bottom - bounds.top) {
                if (printing && r != fromRow) {
                    h -= RowHeight(r);
                    --rows;
                }
                break;
            }
        }
        Wide cols = 0;
        for (Wide c = fromCol; c <= maxCol; ++c) {
            w += ColWidth(c);
            ++cols;
            if (w >= bounds.right - bounds.left) {
                if (printing && c != fromCol) {
                    w -= ColWidth(c);
                    --cols;
                }
                break;
            }
        }
        return {static_cast<std::int32_t>(rows), static_cast<std::int32_t>(cols),
                static_cast<std::int32_t>(h - (showColHeaders ? colHeaderHeight : 0)),
                static_cast<std::int32_t>(w - (showRowHeaders ? rowHeaderWidth : 0))};
    }

    static Rect Union(const Rect& a, const Rect& b) {
        const bool noA = a.right <= a.left || a.bottom <= a.top;
        const bool noB = b.right <= b.left || b.bottom <= b.top;
        if (noA) {
            return noB ? Rect{} : b;
        }
        return noB ? a
                   : Rect{std::min(a.left, b.left), std::min(a.top, b.top),
                          std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
    }

    Rect RangeRect(const CellRange& range) const {
        const Wide col1 = range.Col1 < firstCol ? firstCol : range.Col1;
        const Wide row1 = range.Row1 < firstRow ? firstRow : range.Row1;
        if (range.Col2 == 0) {
            const Rect r = Union(CellRect(row1, firstCol), CellRect(range.Row2, firstCol));
            return {r.left - 1, r.top - 1, 2000, r.bottom + 1};
        }
        if (range.Row2 == 0) {
            const Rect r = Union(CellRect(firstRow, col1), CellRect(firstRow, range.Col2));
            return {r.left - 1, r.top - 1, r.right + 1, 2000};
        }
        if (range.Col2 == -1 && range.Row2 == -1) {
            const Rect r = CellRect(firstRow, firstCol);
            return {r.left, r.top, 2000, 2000};
        }
        return Union(CellRect(row1, col1), CellRect(range.Row2, range.Col2));
    }
};

}  // namespace veygrid
