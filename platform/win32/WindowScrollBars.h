// The scroll bars of a window.
#pragma once

#include <windows.h>

#include "platform/ScrollBars.h"

namespace veygrid {

// ShowScrollBar only notes what is wanted, and Apply then changes what must change: each change
// moves the edge of the client area, so that hiding and showing again would be seen.
class WindowScrollBars final : public ScrollBars {
  public:
    // Null when the window goes.
    void Attach(HWND window) { m_window = window; }

    ScrollRange GetScrollRange(ScrollBar bar) const override;
    void SetScrollRange(ScrollBar bar, ScrollRange range) override;
    std::int32_t GetScrollPos(ScrollBar bar) const override;
    void SetScrollPos(ScrollBar bar, std::int32_t position) override;
    void ShowScrollBar(ScrollBar bar, bool show) override;
    // As it is, or will be, with the bars that are wanted.
    Rect GetClientRect() const override;

    void Apply();
    bool IsShown(ScrollBar bar) const;

  private:
    bool& Wanted(ScrollBar bar) { return bar == ScrollBar::Horz ? m_wantsHorz : m_wantsVert; }
    void ApplyTo(ScrollBar bar);

    HWND m_window = nullptr;
    bool m_wantsHorz = false;
    bool m_wantsVert = false;
};

}  // namespace veygrid
