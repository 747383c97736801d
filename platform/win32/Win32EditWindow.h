// The edit window over a cell: the system's own, with a few keys and the input method seen to.
#pragma once

#include <windows.h>

#include "platform/EditWindow.h"

namespace veygrid {

// The window speaks Unicode on a machine of any code page.
class Win32EditWindow final : public EditWindow {
  public:
    Win32EditWindow() = default;
    Win32EditWindow(const Win32EditWindow&) = delete;
    Win32EditWindow& operator=(const Win32EditWindow&) = delete;
    // Destroys the window.
    ~Win32EditWindow() override;

    // The parent of windows to come; null when it goes.
    void Attach(HWND parent) { m_parent = parent; }
    // Null while there is none.
    HWND Window() const { return m_window; }
    // Between the start and the end of a composition of an input method.
    bool IsComposing() const { return m_isComposing; }

    bool Create(std::uint32_t style, const Rect& rect, std::int32_t childId) override;
    bool HasWindow() const override { return m_window != nullptr; }
    void SetFocus() override;
    void SetWindowText(std::string_view text) override;
    std::optional<std::string> GetWindowText() const override;
    void FinishComposition() override;
    bool GetModify() const override;
    std::int32_t CharFromPos(Point point) const override;
    void SetSel(std::int32_t start, std::int32_t end) override;
    void ScrollCaret() override;
    void Close() override;

  private:
    // What a composition that is given up leaves behind.
    struct Contents {
        std::wstring text;
        DWORD start = 0;
        DWORD end = 0;
        bool isModified = false;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;
    bool OnTab(UINT message, WPARAM wParam);
    std::wstring WideText() const;
    void BeginComposition();
    bool IsStray(LPARAM parts) const;
    void Restore();
    void PlaceComposition() const;

    HWND m_parent = nullptr;
    HWND m_window = nullptr;
    WNDPROC m_former = nullptr;
    bool m_isComposing = false;
    bool m_hasResult = false;
    Contents m_before;
};

}  // namespace veygrid
