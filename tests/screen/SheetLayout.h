// A sheet with its layout, as the tests of the screen set it up.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>

#include "grid/GridStore.h"
#include "grid/StoreWatcher.h"
#include "screen/Layout.h"

namespace veygrid {

inline void PrintTo(const Rect& rect, std::ostream* out) {
    *out << "{" << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom << "}";
}
inline void PrintTo(const CellPos& cell, std::ostream* out) {
    *out << "{" << cell.Row << "," << cell.Col << "}";
}
inline void PrintTo(const CellRange& range, std::ostream* out) {
    *out << "rows " << range.Row1 << "-" << range.Row2 << " cols " << range.Col1 << "-"
         << range.Col2;
}
inline void PrintTo(const VisibleCounts& counts, std::ostream* out) {
    *out << counts.Rows << "x" << counts.Cols << " " << counts.Height << "x" << counts.Width;
}

// A new control's sheet in a window of 400 by 300: a row header of 50, a column header of 20, rows
// of 18 and columns of 60 pixels.
class SheetLayoutTest : public testing::Test {
  protected:
    SheetLayoutTest() { layout.m_rcClient = {0, 0, 400, 300}; }

    StoreWatcher watcher;
    GridStore store{watcher};
    Layout layout{store};
    GridProperties& properties = store.Properties;
};

}  // namespace veygrid
