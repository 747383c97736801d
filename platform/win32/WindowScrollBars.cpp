// The scroll bars of a window.
#include "platform/win32/WindowScrollBars.h"

#include <algorithm>

namespace veygrid {

namespace {

int BarNumber(ScrollBar bar) {
    return static_cast<int>(bar);
}

LONG StyleOf(ScrollBar bar) {
    return bar == ScrollBar::Horz ? WS_HSCROLL : WS_VSCROLL;
}

}  // namespace

ScrollRange WindowScrollBars::GetScrollRange(ScrollBar bar) const {
    int min = 0;
    int max = 0;
    if (m_window != nullptr) {
        ::GetScrollRange(m_window, BarNumber(bar), &min, &max);
    }
    return {min, max};
}

// Without redrawing, which would show the bar.
void WindowScrollBars::SetScrollRange(ScrollBar bar, ScrollRange range) {
    if (m_window != nullptr && GetScrollRange(bar) != range) {
        ::SetScrollRange(m_window, BarNumber(bar), range.min, range.max, FALSE);
        if (IsShown(bar)) {
            ::SetScrollPos(m_window, BarNumber(bar), GetScrollPos(bar), TRUE);
        }
    }
}

std::int32_t WindowScrollBars::GetScrollPos(ScrollBar bar) const {
    return m_window == nullptr ? 0 : ::GetScrollPos(m_window, BarNumber(bar));
}

// A bar that would not move is not painted again.
void WindowScrollBars::SetScrollPos(ScrollBar bar, std::int32_t position) {
    const ScrollRange range = GetScrollRange(bar);
    if (m_window != nullptr &&
        std::max(std::min(position, range.max), range.min) != GetScrollPos(bar)) {
        ::SetScrollPos(m_window, BarNumber(bar), position, IsShown(bar));
    }
}

bool WindowScrollBars::IsShown(ScrollBar bar) const {
    return m_window != nullptr && (::GetWindowLongPtrW(m_window, GWL_STYLE) & StyleOf(bar)) != 0;
}

void WindowScrollBars::ShowScrollBar(ScrollBar bar, bool show) {
    if (bar == ScrollBar::Both) {
        m_wantsHorz = m_wantsVert = show;
    } else {
        Wanted(bar) = show;
    }
}

Rect WindowScrollBars::GetClientRect() const {
    RECT client{};
    if (m_window == nullptr || !::GetClientRect(m_window, &client)) {
        return {};
    }
    const auto change = [this](ScrollBar bar, bool wanted, int metric) {
        const int size = ::GetSystemMetrics(metric);
        return IsShown(bar) == wanted ? 0 : wanted ? -size : size;
    };
    return {0, 0, client.right + change(ScrollBar::Vert, m_wantsVert, SM_CXVSCROLL),
            client.bottom + change(ScrollBar::Horz, m_wantsHorz, SM_CYHSCROLL)};
}

void WindowScrollBars::Apply() {
    ApplyTo(ScrollBar::Horz);
    ApplyTo(ScrollBar::Vert);
}

void WindowScrollBars::ApplyTo(ScrollBar bar) {
    if (m_window != nullptr && IsShown(bar) != Wanted(bar)) {
        ::ShowScrollBar(m_window, BarNumber(bar), Wanted(bar));
    }
}

}  // namespace veygrid
