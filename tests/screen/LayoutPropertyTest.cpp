// Random sheets: the layout's answers held against the slow model and against each other.
#include <random>

#include "LiteralLayout.h"
#include "SheetLayout.h"

namespace veygrid {
namespace {

class LayoutPropertyTest : public SheetLayoutTest,
                           public testing::WithParamInterface<std::uint32_t> {
  protected:
    std::int32_t From(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(m_engine);
    }
    bool Coin() { return From(0, 1) == 1; }

    void MakeSheet() {
        properties.ShowRowHeaders = Coin();
        properties.ShowColHeaders = Coin();
        properties.RowHeaderWidth = From(0, 70);
        properties.ColHeaderHeight = From(0, 40);
        properties.MaxRow = Coin() ? From(1, 60) : 40'000;
        properties.MaxCol = From(1, 30);
        properties.DefCellWidth = Coin() ? From(0, 90) : From(1, 4);
        properties.DefCellHeight = Coin() ? From(0, 40) : From(1, 4);
        layout.m_rcClient = From(0, 9) == 0 ? Rect{} : AnyClient();
        layout.FirstVisibleRow = Coin() ? From(-3, 70) : From(1, properties.MaxRow);
        layout.FirstVisibleCol = Coin() ? From(-3, 40) : From(1, properties.MaxCol);
        layout.m_nResizeMargin = From(0, 6);
        layout.m_rcSelFrame = Coin() ? Rect{} : AnyClient();
        MakeSizes();
    }
    Rect AnyClient() {
        const Rect at{From(-20, 60), From(-20, 60), 0, 0};
        return {at.left, at.top, at.left + From(1, 500), at.top + From(1, 400)};
    }
    void MakeSizes() {
        for (std::int32_t i = From(0, 80); i > 0; --i) {
            store.RowHeightMap.Set(RowKey(WrapAdd(layout.FirstVisibleRow, From(-5, 60))),
                                   AnySize());
            store.ColWidthMap.Set(ColKey(From(-2, 32)), AnySize());
        }
        if (From(0, 3) == 0) {
            HideRows();
        }
    }
    // More rows than the walk steps through.
    void HideRows() {
        for (std::int32_t row = 1; row <= 9'000; ++row) {
            store.RowHeightMap.Set(RowKey(row), From(0, 500) == 0 ? 20 : 0);
        }
    }
    std::int32_t AnySize() {
        switch (From(0, 5)) {
            case 0:
                return 0;
            case 1:
                return From(-30, 2'000);
            default:
                return From(1, 50);
        }
    }

    LiteralLayout Model() const {
        LiteralLayout model;
        model.showRowHeaders = properties.ShowRowHeaders;
        model.showColHeaders = properties.ShowColHeaders;
        model.rowHeaderWidth = properties.RowHeaderWidth;
        model.colHeaderHeight = properties.ColHeaderHeight;
        model.maxRow = properties.MaxRow;
        model.maxCol = properties.MaxCol;
        model.defWidth = properties.DefCellWidth;
        model.defHeight = properties.DefCellHeight;
        for (const auto& [key, size] : store.RowHeightMap) {
            model.heights[key.Row] = size;
        }
        for (const auto& [key, size] : store.ColWidthMap) {
            model.widths[key.Col] = size;
        }
        model.client = layout.m_rcClient;
        model.frame = layout.m_rcSelFrame;
        model.firstRow = layout.FirstVisibleRow;
        model.firstCol = layout.FirstVisibleCol;
        model.margin = layout.m_nResizeMargin;
        return model;
    }

    CellPos AnyCell() {
        const CellRange view = layout.VisibleRange(false);
        return {Coin() ? From(-2, 80) : WrapAdd(view.Row2, From(-30, 3)), From(-2, 32)};
    }

    void HoldAgainstModel(const LiteralLayout& model) {
        for (int i = 0; i < 30; ++i) {
            const CellPos cell = AnyCell();
            ASSERT_EQ(layout.CellRect(cell.Row, cell.Col), model.CellRect(cell.Row, cell.Col));
            const Point point{From(-30, 570), From(-30, 470)};
            ASSERT_EQ(layout.PosToCell(point), model.PosToCell(point));
            ASSERT_EQ(static_cast<int>(layout.HitTest(point)), model.HitTest(point));
            HoldRange(model);
        }
        for (const bool whole : {false, true}) {
            ASSERT_EQ(layout.VisibleRange(whole), model.VisibleRange(whole));
            const Rect bounds = AnyClient();
            const CellPos first{From(-2, 70), From(-2, 40)};
            ASSERT_EQ(layout.CalcVisible(bounds, whole, first.Row, first.Col),
                      model.CalcVisible(bounds, whole, first.Row, first.Col));
        }
    }
    void HoldRange(const LiteralLayout& model) {
        const CellPos a = AnyCell();
        const CellPos b = AnyCell();
        for (const CellRange& range :
             {CellRange{a.Row, a.Col, b.Row, b.Col}, CellRange{a.Row, 0, b.Row, 0},
              CellRange{0, a.Col, 0, b.Col}, CellRange::WholeSheet()}) {
            ASSERT_EQ(layout.RangeRect(range), model.RangeRect(range));
        }
    }

    // Each cell that shows is found again at its own points, and what is found is on view.
    void HoldAgainstEachOther() {
        const CellRange view = layout.VisibleRange(false);
        for (int i = 0; i < 30; ++i) {
            const CellPos cell{From(view.Row1, std::max(view.Row1, view.Row2)),
                               From(view.Col1, std::max(view.Col1, view.Col2))};
            FindAgain(cell);
            const Point point{From(-30, 570), From(-30, 470)};
            FoundIsOnView(point, view);
        }
    }
    void FindAgain(CellPos cell) {
        const Rect rect = layout.CellRect(cell.Row, cell.Col);
        const Point inside{WrapAdd(rect.left, 1), WrapAdd(rect.top, 1)};
        if (!rect.IsRectEmpty() && layout.m_rcClient.PtInRect(inside) && m_sizesArePositive) {
            ASSERT_EQ(layout.PosToCell(inside), cell);
            const HitCode hit = layout.HitTest(inside);
            ASSERT_TRUE(hit == HitCode::HitCell || hit == HitCode::HitSelFrame ||
                        hit == HitCode::HitCorner);
            ASSERT_EQ(layout.RangeRect({cell.Row, cell.Col, cell.Row, cell.Col}), rect);
        }
    }
    void FoundIsOnView(Point point, const CellRange& view) {
        const CellPos found = layout.PosToCell(point);
        const HitCode hit = layout.HitTest(point);
        ASSERT_EQ(hit == HitCode::HitOutside,
                  layout.m_rcClient.IsRectEmpty() || !layout.m_rcClient.PtInRect(point));
        if (found.Row == 0 || found.Col == 0 || !m_sizesArePositive) {
            return;
        }
        ASSERT_TRUE(view.Covers(found.Row, found.Col));
        const Rect rect = layout.CellRect(found.Row, found.Col);
        // A cell answers from its second pixel on to the pixel behind its rectangle.
        ASSERT_TRUE(point.x > rect.left && point.x <= rect.right + 1);
        ASSERT_TRUE(point.y > rect.top && point.y <= rect.bottom + 1);
    }
    void NoteSizes() {
        m_sizesArePositive = true;
        for (const SizeMap* sizes : {&store.RowHeightMap, &store.ColWidthMap}) {
            for (const auto& [key, size] : *sizes) {
                m_sizesArePositive = m_sizesArePositive && size >= 0;
            }
        }
        m_sizesArePositive =
            m_sizesArePositive && layout.FirstVisibleRow >= 1 && layout.FirstVisibleCol >= 1;
    }

  private:
    std::mt19937 m_engine{GetParam()};
    bool m_sizesArePositive = true;
};

TEST_P(LayoutPropertyTest, AnswersAreThoseOfTheSlowModelAndAgreeWithEachOther) {
    for (int round = 0; round < 10; ++round) {
        store.RowHeightMap.RemoveAll();
        store.ColWidthMap.RemoveAll();
        MakeSheet();
        NoteSizes();
        HoldAgainstModel(Model());
        HoldAgainstEachOther();
        if (HasFatalFailure()) {
            return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LayoutPropertyTest, testing::Range(1U, 21U));

}  // namespace
}  // namespace veygrid
