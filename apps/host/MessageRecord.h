// What the host window got from the control, kept for a script that asks.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace veygrid {

class MessageRecord {
  public:
    // Only while a script runs, so that a long session does not fill memory.
    void Begin() { m_isOn = true; }

    // Keeps the message as "name, wParam, lParam" when it is one that controls send to their
    // parent: registered and private ones, commands, notifications and the wish to be closed.
    void Add(UINT message, WPARAM wParam, LPARAM lParam);

    // The lines since the last call.
    std::vector<std::wstring> Take() { return std::exchange(m_lines, {}); }

  private:
    bool m_isOn = false;
    std::vector<std::wstring> m_lines;
};

}  // namespace veygrid
