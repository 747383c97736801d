// The line at the foot of the host window.
#pragma once

#include <windows.h>

#include <string>

namespace veygrid {

class StatusLine {
  public:
    StatusLine() = default;
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;
    ~StatusLine();

    struct Content {
        std::wstring cell;
        std::wstring shown;
        std::wstring stored;
        bool isModified = false;
        std::wstring lastEvent;
        std::wstring data;  // the connection, its records and changes
    };

    void Create(HWND parent);
    void Show(const Content& content);
    // Follows its parent's new size.
    void Resize(int parentWidth);
    // Pixels; 0 before Create.
    int Height() const;

  private:
    void ShowPart(int part, const std::wstring& text);

    HWND m_window = nullptr;
    HFONT m_font = nullptr;
};

}  // namespace veygrid
