// The sheet on the control's window: layout, drawing, scrolling and what is repainted, joined.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "control/RequestedFormat.h"
#include "grid/GridStore.h"
#include "grid/Selection.h"
#include "platform/win32/GdiFonts.h"
#include "platform/win32/GdiSurface.h"
#include "platform/win32/WindowScrollBars.h"
#include "screen/BackgroundImage.h"
#include "screen/DrawingContext.h"
#include "screen/Layout.h"
#include "screen/Scrolling.h"

namespace veygrid {

class CVeyGridCtrl;

class SheetView final : public DrawingHost, public ScrollingHost {
  public:
    // All must outlive the view. The colours of the system are read now and never again.
    SheetView(CVeyGridCtrl& control, GridStore& store, const Selection& selection,
              std::string& bkImageBits);
    SheetView(const SheetView&) = delete;
    SheetView& operator=(const SheetView&) = delete;

    Layout& View() { return m_layout; }
    BackgroundImage& Image() { return m_image; }
    const DrawingContext& Context() const { return m_context; }

    // Bounds in the context's logical units. Where the control has a window, the sheet stays laid
    // out in that, whatever else it is drawn on.
    void Draw(HDC target, const RECT& bounds, const RECT& invalid);
    // The control's own font, for as long as it does not change; null for the system's.
    HFONT StockFontHandle();
    // Nothing for a message that is another's, or that the base class is to answer as well.
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // The sheet, or what it is drawn with, is not what it was at the last paint.
    void Changed() { m_shown.reset(); }

    void UpdateScrollBars();
    // After another sheet was loaded.
    void SheetReplaced();
    // After `MaxRow` or `MaxCol` changed in more than one step: at the next paint the view is
    // brought onto the sheet, so that a size that lasts no longer than a call does not move it.
    void SheetResized() { m_isFitDue = true; }
    void MakeCellVisible(std::int32_t row, std::int32_t col);
    // Screen pixels. False, with both left alone, for a point outside the window.
    bool ScreenPosToRC(std::int16_t x, std::int16_t y, std::int32_t& row, std::int32_t& col) const;

    // Without a window the whole picture counts as changed.
    void Invalidate(std::span<const Rect> regions);
    void Invalidate(const Rect& region) { Invalidate({&region, 1}); }

    bool HasWindow() const override;
    std::uint32_t GetForeColor() const override;
    std::uint32_t AmbientBackColor() const override;
    Color TranslateColor(std::uint32_t color) const override;
    bool ListensToRequestCellFormat() const override;
    void FireRequestCellFormat(std::int32_t row, std::int32_t col, CCellFormat& format) override;
    bool GuiDesignMode() const override;

    void SetFocus() override;
    bool InEdit() const override;
    void InvalidateControl() override;
    bool HasMoreRecords() const override;
    bool AppendNextRecords() override;
    Rect VisibleFormWindows() const override { return {}; }
    void MoveFormWindows(std::int32_t, std::int32_t) override {}

  private:
    void Paint(HDC target, const RECT& bounds, const RECT& invalid);
    void FitView();
    void SettleBars(bool isDue);
    void FillSeams(Surface& surface, const Rect& bounds) const;
    void PaintWindow(HDC target, const RECT& bounds, const RECT& invalid);
    // False when the window must be painted anew.
    bool MovePixels();
    std::optional<LRESULT> OnScroll(UINT message, WPARAM wParam);
    void OnWheel(ScrollBar bar, std::int32_t delta);

    CVeyGridCtrl& m_control;
    GridStore& m_store;
    SystemColors m_colors;
    Layout m_layout;
    WindowScrollBars m_bars;
    Scrolling m_scrolling;
    BackgroundImage m_image;
    DrawingContext m_context;
    StockFont m_stockFont;
    GdiFonts m_fonts;
    RequestedFormat m_requested;
    // The first cell that the window's pixels show; nothing when they may not be those of the
    // sheet.
    std::optional<CellPos> m_shown;
    bool m_updatesBars = false;
    bool m_isFitDue = false;
    // Turn of the wheel that did not make a whole step yet.
    std::int32_t m_wheelRest = 0;
};

}  // namespace veygrid
