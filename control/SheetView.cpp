// The sheet on the control's window: layout, drawing, scrolling and what is repainted, joined.
#include "control/SheetView.h"

#include <algorithm>

#include "control/VeyGridCtrl.h"
#include "screen/ScrolledPixels.h"
#include "screen/SheetDrawing.h"

namespace veygrid {

namespace {

Rect FromRECT(const RECT& rect) {
    return {static_cast<std::int32_t>(rect.left), static_cast<std::int32_t>(rect.top),
            static_cast<std::int32_t>(rect.right), static_cast<std::int32_t>(rect.bottom)};
}

RECT ToRECT(const Rect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// Brings a layout back to what it was.
class KeptLayout {
  public:
    explicit KeptLayout(LayoutState& layout) : m_layout(layout), m_kept(layout) {}
    KeptLayout(const KeptLayout&) = delete;
    KeptLayout& operator=(const KeptLayout&) = delete;
    ~KeptLayout() { m_layout = m_kept; }

  private:
    LayoutState& m_layout;
    LayoutState m_kept;
};

// Steps of one notch, as the user chose them.
std::int32_t StepsPerNotch(ScrollBar bar) {
    constexpr UINT UsualSteps = 3;
    UINT steps = UsualSteps;
    const UINT asked = bar == ScrollBar::Vert ? SPI_GETWHEELSCROLLLINES : SPI_GETWHEELSCROLLCHARS;
    ::SystemParametersInfoW(asked, 0, &steps, 0);
    return steps == WHEEL_PAGESCROLL ? -1 : static_cast<std::int32_t>(std::min(steps, 100U));
}

}  // namespace

SheetView::SheetView(CVeyGridCtrl& control, GridStore& store, const Selection& selection,
                     std::string& bkImageBits)
    : m_control(control),
      m_store(store),
      m_colors(SystemColors::Read([](int index) { return ::GetSysColor(index); })),
      m_layout(store),
      m_scrolling(store, m_layout, m_bars, *this),
      m_image(bkImageBits),
      m_context{store, selection, m_layout, *this, m_colors} {}

void SheetView::Draw(HDC target, const RECT& bounds, const RECT& invalid) {
    if (!HasWindow() || ::WindowFromDC(target) == m_control.Window()) {
        PaintWindow(target, bounds, invalid);
        return;
    }
    const KeptLayout ofWindow(m_layout);
    Paint(target, bounds, invalid);
}

void SheetView::PaintWindow(HDC target, const RECT& bounds, const RECT& invalid) {
    const bool isResized = std::exchange(m_isFitDue, false);
    if (isResized) {
        FitView();
    }
    RECT seen{};
    const bool isWhole = ::GetClipBox(target, &seen) == SIMPLEREGION && ::EqualRect(&seen, &bounds);
    if (isWhole) {
        m_shown = {m_layout.FirstVisibleRow, m_layout.FirstVisibleCol};
    }
    const bool isFirst = m_layout.m_rcClient.IsRectEmpty();
    try {
        Paint(target, bounds, invalid);
    } catch (...) {
        // A sheet that cannot be read shows nothing, rather than cells that look empty.
        const OwnedBrush blank(::CreateSolidBrush(m_colors.m_clrBackground));
        ::FillRect(target, &bounds, blank.Get());
        Changed();
        SettleBars(isFirst || isResized);
        throw;
    }
    SettleBars(isFirst || isResized);
}

// The paint itself may have had the size changed by a dataset's code.
void SheetView::SettleBars(bool isDue) {
    const bool isResized = std::exchange(m_isFitDue, false);
    if (isResized) {
        FitView();
    }
    if (isDue || isResized) {
        UpdateScrollBars();
    }
}

// Only what the sheet says itself can be known not to have changed since the last paint. While the
// mouse is held, lines and frames may lie over the picture that the sheet knows nothing of.
bool SheetView::MovePixels() {
    if (!m_shown || m_store.Properties.GuiMode || m_store.BoundDataset != nullptr ||
        m_control.HasListeners() || ::GetCapture() == m_control.Window() ||
        ::GetWindow(m_control.Window(), GW_CHILD) != nullptr ||
        m_layout.m_rcClient != m_bars.GetClientRect()) {
        return false;
    }
    const std::optional<ScrolledPixels> moved =
        PixelsToMove(m_store, m_context.Selected, m_layout, *m_shown);
    if (!moved) {
        return false;
    }
    m_shown = {m_layout.FirstVisibleRow, m_layout.FirstVisibleCol};
    const RECT area = ToRECT(moved->area);
    ::ScrollWindowEx(m_control.Window(), moved->dx, moved->dy, &area, &area, nullptr, nullptr,
                     SW_INVALIDATE);
    Invalidate(moved->stale);
    return true;
}

// The cells count from the corner of what is drawn on, so that the corner goes to the bounds; and
// cells that are cut off by the bounds, or frames that overrun them, end there.
void SheetView::Paint(HDC target, const RECT& bounds, const RECT& invalid) {
    const SavedDc saved(target);
    ::OffsetWindowOrgEx(target, -bounds.left, -bounds.top, nullptr);
    ::IntersectClipRect(target, 0, 0, bounds.right - bounds.left, bounds.bottom - bounds.top);
    GdiSurface surface(target, StockFontHandle(), m_fonts);
    const Rect area = FromRECT(bounds).Offset(-bounds.left, -bounds.top);
    if (!m_store.Properties.GuiMode) {
        FillSeams(surface, area);
    }
    OnDraw(m_context, m_image, surface, area, FromRECT(invalid).Offset(-bounds.left, -bounds.top));
}

// One pixel between the last cells and the empty space is painted by neither. It would show what
// was there before.
void SheetView::FillSeams(Surface& surface, const Rect& bounds) const {
    const GridProperties& properties = m_store.Properties;
    const VisibleCounts fit =
        m_layout.CalcVisible(bounds, false, m_layout.FirstVisibleRow, m_layout.FirstVisibleCol);
    const std::int32_t right =
        WrapAdd(properties.ShowRowHeaders ? properties.RowHeaderWidth : 0, fit.Width);
    const std::int32_t bottom =
        WrapAdd(properties.ShowColHeaders ? properties.ColHeaderHeight : 0, fit.Height);
    surface.FillSolidRect({right, 0, WrapAdd(right, 1), bounds.bottom}, m_colors.m_clrBackground);
    surface.FillSolidRect({0, bottom, bounds.right, WrapAdd(bottom, 1)}, m_colors.m_clrBackground);
}

HFONT SheetView::StockFontHandle() {
    const ComPtr<IDispatch> object = m_control.FontObject();
    ComPtr<IFont> font;
    HFONT described = nullptr;
    return object != nullptr && SUCCEEDED(object.As(&font)) &&
                   SUCCEEDED(font->get_hFont(&described))
               ? m_stockFont.LikeFont(described)
               : nullptr;
}

std::optional<LRESULT> SheetView::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_CREATE:
            m_bars.Attach(m_control.Window());
            break;
        case WM_DESTROY:
            m_bars.Attach(nullptr);
            break;
        case WM_SIZE:
            if (!m_layout.m_rcClient.IsRectEmpty()) {
                UpdateScrollBars();
            }
            break;
        case WM_HSCROLL:
        case WM_VSCROLL:
            return OnScroll(message, wParam);
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL: {
            const bool isSideways = message == WM_MOUSEHWHEEL || (wParam & MK_SHIFT) != 0;
            // Turned sideways, the wheel goes to the right where it is positive.
            const auto delta = static_cast<std::int16_t>(HIWORD(wParam));
            OnWheel(isSideways ? ScrollBar::Horz : ScrollBar::Vert,
                    message == WM_MOUSEHWHEEL ? -delta : delta);
            return 0;
        }
        default:
            break;
    }
    return std::nullopt;
}

std::optional<LRESULT> SheetView::OnScroll(UINT message, WPARAM wParam) {
    const auto request = static_cast<ScrollRequest>(LOWORD(wParam));
    const auto thumb = static_cast<std::int16_t>(HIWORD(wParam));
    const bool goesOn = message == WM_HSCROLL ? m_scrolling.OnHScroll(request, thumb)
                                              : m_scrolling.OnVScroll(request, thumb);
    return goesOn ? std::nullopt : std::optional<LRESULT>(0);
}

// Where the bar is hidden because all is on view, there is nothing to scroll.
void SheetView::OnWheel(ScrollBar bar, std::int32_t delta) {
    const bool isSwitchedOff = bar == ScrollBar::Horz ? !m_store.Properties.ShowHScrollBar
                                                      : !m_store.Properties.ShowVScrollBar;
    const std::int32_t steps = StepsPerNotch(bar);
    const bool byPage = steps < 0;
    const std::int32_t turned = m_wheelRest + delta * (byPage ? 1 : steps);
    m_wheelRest = turned % WHEEL_DELTA;
    if (!m_bars.IsShown(bar) && !isSwitchedOff) {
        return;
    }
    const ScrollRequest request =
        turned > 0 ? (byPage ? ScrollRequest::PageUp : ScrollRequest::LineUp)
                   : (byPage ? ScrollRequest::PageDown : ScrollRequest::LineDown);
    for (std::int32_t left = std::abs(turned) / WHEEL_DELTA; left > 0; --left) {
        const bool goesOn = bar == ScrollBar::Horz ? m_scrolling.OnHScroll(request, 0)
                                                   : m_scrolling.OnVScroll(request, 0);
        if (!goesOn) {
            return;
        }
    }
}

// The sheet is laid out anew for the window with and without the bars, since one bar can make the
// other one needed. Before the first paint it is not laid out at all.
void SheetView::UpdateScrollBars() {
    if (!HasWindow() || m_updatesBars) {
        return;
    }
    m_updatesBars = true;
    const bool isLaidOut = !m_layout.m_rcClient.IsRectEmpty();
    m_bars.ShowScrollBar(ScrollBar::Both, false);
    constexpr int Rounds = 3;
    for (int round = 0; round < (isLaidOut ? Rounds : 1); ++round) {
        if (isLaidOut) {
            m_layout.m_rcClient = m_bars.GetClientRect();
        }
        m_scrolling.UpdateScrollBars();
    }
    m_bars.Apply();
    m_updatesBars = false;
}

void SheetView::SheetReplaced() {
    m_image.BitsChanged();
    Changed();
    m_control.InvalidateControl();
    FitView();
    UpdateScrollBars();
}

void SheetView::FitView() {
    const GridProperties& properties = m_store.Properties;
    m_layout.FirstVisibleRow =
        std::clamp(m_layout.FirstVisibleRow, 1, std::max(properties.MaxRow, 1));
    m_layout.FirstVisibleCol =
        std::clamp(m_layout.FirstVisibleCol, 1, std::max(properties.MaxCol, 1));
}

void SheetView::MakeCellVisible(std::int32_t row, std::int32_t col) {
    m_scrolling.MakeCellVisible(row, col);
}

bool SheetView::ScreenPosToRC(std::int16_t x, std::int16_t y, std::int32_t& row,
                              std::int32_t& col) const {
    POINT point{x, y};
    return HasWindow() && ::ScreenToClient(m_control.Window(), &point) &&
           m_scrolling.PointToRC({point.x, point.y}, row, col);
}

void SheetView::Invalidate(std::span<const Rect> regions) {
    if (!HasWindow()) {
        m_control.InvalidateControl();
        return;
    }
    const Rect client = m_bars.GetClientRect();
    for (const Rect& region : regions) {
        const Rect shown = IntersectRect(region, client);
        if (!shown.IsRectEmpty()) {
            const RECT area = ToRECT(shown);
            m_control.InvalidateControl(&area);
        }
    }
}

bool SheetView::HasWindow() const {
    return m_control.Window() != nullptr;
}

std::uint32_t SheetView::GetForeColor() const {
    return m_control.ForeColor();
}

std::uint32_t SheetView::AmbientBackColor() const {
    OwnedVariant color;
    return m_control.GetAmbient(DISPID_AMBIENT_BACKCOLOR, VT_UI4, color)
               ? static_cast<std::uint32_t>(color->ulVal)
               : ::GetSysColor(COLOR_WINDOW);
}

Color SheetView::TranslateColor(std::uint32_t color) const {
    COLORREF plain = 0;
    return SUCCEEDED(::OleTranslateColor(color, nullptr, &plain)) ? plain : Black;
}

bool SheetView::ListensToRequestCellFormat() const {
    return m_control.HasListeners();
}

void SheetView::FireRequestCellFormat(std::int32_t row, std::int32_t col, CCellFormat& format) {
    m_requested.Fire(m_control, row, col, format);
}

bool SheetView::GuiDesignMode() const {
    return m_control.GuiDesignMode();
}

void SheetView::SetFocus() {
    if (HasWindow()) {
        ::SetFocus(m_control.Window());
    }
}

bool SheetView::HasMoreRecords() const {
    return m_control.Query().HasMoreRecords();
}

bool SheetView::AppendNextRecords() {
    return m_control.Query().AppendNextRecords();
}

bool SheetView::InEdit() const {
    return m_control.Input().InEdit();
}

void SheetView::InvalidateControl() {
    if (!HasWindow() || !MovePixels()) {
        m_control.InvalidateControl();
    }
}

}  // namespace veygrid
