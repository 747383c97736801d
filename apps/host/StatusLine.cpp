// The line at the foot of the host window.
#include "apps/host/StatusLine.h"

#include <commctrl.h>

namespace veygrid {

namespace {

// Right edges of the parts but the last, in hundredths of the width.
constexpr int PartEdges[] = {13, 33, 53, 60, 76};

// By its character set, so that there are Chinese glyphs on a machine of any locale.
HFONT MakeFont() {
    const HDC screen = GetDC(nullptr);
    const int height = -MulDiv(9, GetDeviceCaps(screen, LOGPIXELSY), 72);
    ReleaseDC(nullptr, screen);
    return CreateFontW(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, GB2312_CHARSET,
                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                       DEFAULT_PITCH | FF_DONTCARE, L"宋体");
}

}  // namespace

StatusLine::~StatusLine() {
    if (m_font != nullptr) {
        DeleteObject(m_font);
    }
}

void StatusLine::Create(HWND parent) {
    m_window = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0,
                               0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    m_font = MakeFont();
    SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), TRUE);
}

void StatusLine::Show(const Content& content) {
    ShowPart(0, content.cell);
    ShowPart(1, L"显示: " + content.shown);
    ShowPart(2, L"内容: " + content.stored);
    ShowPart(3, content.isModified ? L"已修改" : L"");
    ShowPart(4, content.lastEvent);
    ShowPart(5, content.data);
}

void StatusLine::Resize(int parentWidth) {
    int edges[std::size(PartEdges) + 1];
    for (std::size_t part = 0; part < std::size(PartEdges); ++part) {
        edges[part] = MulDiv(parentWidth, PartEdges[part], 100);
    }
    edges[std::size(PartEdges)] = -1;
    SendMessageW(m_window, SB_SETPARTS, std::size(edges), reinterpret_cast<LPARAM>(edges));
    SendMessageW(m_window, WM_SIZE, 0, 0);
}

int StatusLine::Height() const {
    RECT place{};
    GetWindowRect(m_window, &place);
    return static_cast<int>(place.bottom - place.top);
}

void StatusLine::ShowPart(int part, const std::wstring& text) {
    // Parts show one line each.
    std::wstring line = text.substr(0, text.find_first_of(L"\r\n"));
    SendMessageW(m_window, SB_SETTEXTW, static_cast<WPARAM>(part),
                 reinterpret_cast<LPARAM>(line.c_str()));
}

}  // namespace veygrid
