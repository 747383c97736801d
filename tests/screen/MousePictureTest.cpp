// What is painted by exclusive or leaves the picture right, without a repaint, after any gesture.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "EditDesk.h"

namespace veygrid {
namespace {

// The inverted cells and the lines on the screen, as they are left by what the mouse paints.
class Picture {
  public:
    explicit Picture(EditedSheet& sheet) : m_sheet(sheet) {
        m_sheet.desk.onInvertSelection = [this] { InvertSelection(); };
        m_sheet.desk.onInvertSelectionChange = [this](const CellRange& former) {
            InvertSelection();
            const CellRange dragged = std::exchange(m_sheet.selection.DragRange, former);
            InvertSelection();
            m_sheet.selection.DragRange = dragged;
        };
    }

    // The window is painted where it was invalidated.
    void Paint() {
        for (const std::string& line : m_sheet.desk.Take()) {
            if (line == "InvalidateControl") {
                m_inverted.clear();
                m_lines.clear();
                ForEachVisible([this](CellPos cell) { PaintCell(cell); });
            } else if (line.starts_with("InvalidateActive")) {
                PaintNamedCells(line);
            } else if (line.starts_with("InvertRect") || line.starts_with("DrawFocusRect")) {
                Toggle(m_lines, line);
            }
        }
    }

    bool IsRight() {
        bool isRight = m_lines.empty();
        ForEachVisible([&](CellPos cell) {
            isRight = isRight && m_inverted.contains(Key(cell)) == IsShownSelected(cell);
        });
        return isRight;
    }

  private:
    using CellKey = std::pair<std::int32_t, std::int32_t>;

    static CellKey Key(CellPos cell) { return {cell.Row, cell.Col}; }
    template <class Value>
    static void Toggle(std::set<Value>& values, const Value& value) {
        if (values.erase(value) == 0) {
            values.insert(value);
        }
    }
    // The active cell is never inverted.
    bool IsShownSelected(CellPos cell) const {
        return m_sheet.selection.IsCellSelected(cell.Row, cell.Col) && cell != m_sheet.Active();
    }
    template <class Visit>
    void ForEachVisible(Visit visit) const {
        const CellRange view = m_sheet.layout.VisibleRange(false);
        for (std::int32_t row = view.Row1; row <= view.Row2; ++row) {
            for (std::int32_t col = view.Col1; col <= view.Col2; ++col) {
                visit(CellPos{row, col});
            }
        }
    }
    void InvertSelection() {
        ForEachVisible([this](CellPos cell) {
            if (IsShownSelected(cell)) {
                Toggle(m_inverted, Key(cell));
            }
        });
    }
    void PaintCell(CellPos cell) {
        m_inverted.erase(Key(cell));
        if (IsShownSelected(cell)) {
            m_inverted.insert(Key(cell));
        }
    }
    // "InvalidateActiveCellAreas 2,3" names a cell, "InvalidateActiveRowStrip 2" a row.
    void PaintNamedCells(const std::string& line) {
        const std::string name = line.substr(line.find(' ') + 1);
        ForEachVisible([&](CellPos cell) {
            if (Text(cell) == name || std::to_string(cell.Row) == name) {
                PaintCell(cell);
            }
        });
    }

    EditedSheet& m_sheet;
    std::set<CellKey> m_inverted;
    std::set<std::string> m_lines;
};

class MousePictureTest : public EditDeskTest {
  protected:
    std::int32_t Number(std::int32_t from, std::int32_t to) {
        return std::uniform_int_distribution<std::int32_t>(from, to)(m_random);
    }
    Point AnyPoint() {
        switch (Number(0, 3)) {
            case 0:
                return {Number(0, 49), Number(0, 299)};
            case 1:
                return {Number(0, 380), Number(0, 19)};
            case 2:
                return {layout.m_rcSelFrame.left + 1, layout.m_rcSelFrame.top + 3};
            default:
                return {Number(0, 380), Number(0, 299)};
        }
    }

    Picture picture{*this};

  private:
    std::mt19937 m_random{20030814};
};

TEST_F(MousePictureTest, AfterAnyGestureThePictureIsRight) {
    for (std::int32_t gesture = 0; gesture < 3000; ++gesture) {
        properties.RowMode = Number(0, 3) == 0;
        const std::uint32_t keys = std::array<std::uint32_t, 4>{
            0, 0, MkShift, MkControl}[static_cast<std::size_t>(Number(0, 3))];
        Press(AnyPoint(), keys);
        picture.Paint();
        for (std::int32_t moves = Number(0, 4); moves > 0; --moves) {
            Drag(AnyPoint());
            picture.Paint();
        }
        Release(AnyPoint(), keys);
        picture.Paint();
        ASSERT_TRUE(picture.IsRight()) << gesture;
        DrawFrame();
        if (gesture % 100 == 99) {
            store.RowHeightMap.RemoveAll();
            store.ColWidthMap.RemoveAll();
            properties.ColHeaderHeight = 20;
            properties.RowHeaderWidth = 50;
            desk.InvalidateControl();
            picture.Paint();
        }
    }
}

}  // namespace
}  // namespace veygrid
