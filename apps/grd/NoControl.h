// What drawing asks of the control, answered where there is none.
#pragma once

#include <cstdint>
#include <string_view>

#include "grid/GridProperties.h"
#include "grid/Selection.h"
#include "platform/SystemPalette.h"
#include "screen/DrawingHost.h"

namespace veygrid {

// No window, no listener, nobody who selects; the usual colours of the system.
class NoControl final : public DrawingHost, public SelectionHost {
  public:
    explicit NoControl(const StockProperties& stock) : m_stock(stock) {}

    bool HasWindow() const override { return false; }
    std::uint32_t GetForeColor() const override { return m_stock.ForeColor; }
    std::uint32_t AmbientBackColor() const override { return White; }
    Color TranslateColor(std::uint32_t color) const override { return UsualColor(color); }

    bool HasWindow() override { return false; }
    void FireCellSelChanging(std::int32_t, std::int32_t, std::int16_t&) override {}
    void FireCellSelChanged() override {}
    std::int32_t SendCellSelChange(std::int32_t, std::int32_t) override {
        return CellSelChangeDone;
    }
    void InvalidateActiveRowStrip(std::int32_t) override {}
    void InvalidateActiveCellAreas(CellPos) override {}
    void InvalidateHeaderCorner() override {}
    std::int32_t SaveRecord(std::int32_t, std::int32_t) override { return CellSelChangeDone; }
    void ShowMessage(std::string_view, std::int32_t) override {}

  private:
    const StockProperties& m_stock;
};

}  // namespace veygrid
