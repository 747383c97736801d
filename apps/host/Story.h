// What a user's hands bring about, line by line in its order: messages that reach the windows of a
// control, events, boxes, and cursors.
#pragma once

#include <windows.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace veygrid {

class Story {
  public:
    // Begins with the messages that reach the control's window and its children that are made from
    // now on. What comes in multitudes is told only where its name is among `more`, between blanks:
    // "WM_MOUSEMOVE", "WM_PAINT", "WM_SETCURSOR" and so on. Lines that were not taken are gone.
    void Begin(HWND control, const std::wstring& more);

    // One more line; nothing before Begin.
    void Add(const std::wstring& line);
    // A message that reaches the named window.
    void AddMessage(const std::wstring& window, UINT message, WPARAM wParam, LPARAM lParam);

    // The lines since the last call.
    std::vector<std::wstring> Take() { return std::exchange(m_lines, {}); }

  private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self);
    void Follow(HWND window);
    void AddCursor();
    bool IsTold(const std::wstring& name) const;

    HWND m_control = nullptr;
    std::set<std::wstring> m_more;
    std::wstring m_cursor;
    std::vector<std::wstring> m_lines;
};

}  // namespace veygrid
