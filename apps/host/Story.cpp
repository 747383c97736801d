// What a user's hands bring about, line by line in its order: messages that reach the windows of a
// control, events, boxes, and cursors.
#include "apps/host/Story.h"

#include <commctrl.h>

#include <sstream>

#include "apps/host/RegisteredMessages.h"

namespace veygrid {

namespace {

constexpr UINT_PTR SubclassId = 2;
// Of the editor in a cell.
constexpr int EditorId = 1000;

// What the numbers of a message mean.
enum class Meaning { None, Number, Numbers, Point, Command };

struct Known {
    UINT message;
    const wchar_t* name;
    Meaning meaning;
    bool isAlwaysTold;
};
constexpr Known KnownMessages[] = {
    {WM_KEYDOWN, L"WM_KEYDOWN", Meaning::Number, true},
    {WM_KEYUP, L"WM_KEYUP", Meaning::Number, false},
    {WM_CHAR, L"WM_CHAR", Meaning::Number, true},
    {WM_MOUSEMOVE, L"WM_MOUSEMOVE", Meaning::Point, false},
    {WM_LBUTTONDOWN, L"WM_LBUTTONDOWN", Meaning::Point, true},
    {WM_LBUTTONUP, L"WM_LBUTTONUP", Meaning::Point, true},
    {WM_LBUTTONDBLCLK, L"WM_LBUTTONDBLCLK", Meaning::Point, true},
    {WM_RBUTTONDOWN, L"WM_RBUTTONDOWN", Meaning::Point, true},
    {WM_RBUTTONUP, L"WM_RBUTTONUP", Meaning::Point, true},
    {WM_CONTEXTMENU, L"WM_CONTEXTMENU", Meaning::None, true},
    {WM_HSCROLL, L"WM_HSCROLL", Meaning::Number, true},
    {WM_VSCROLL, L"WM_VSCROLL", Meaning::Number, true},
    {WM_COMMAND, L"WM_COMMAND", Meaning::Command, true},
    {WM_CLOSE, L"WM_CLOSE", Meaning::None, true},
    {WM_SETFOCUS, L"WM_SETFOCUS", Meaning::None, false},
    {WM_KILLFOCUS, L"WM_KILLFOCUS", Meaning::None, false},
    {WM_PAINT, L"WM_PAINT", Meaning::None, false},
    {EM_GETMODIFY, L"EM_GETMODIFY", Meaning::None, true},
    {EM_CHARFROMPOS, L"EM_CHARFROMPOS", Meaning::None, true},
    {EM_REPLACESEL, L"EM_REPLACESEL", Meaning::None, true},
    {EM_SETSEL, L"EM_SETSEL", Meaning::Numbers, true},
    {EM_SCROLLCARET, L"EM_SCROLLCARET", Meaning::None, true},
};

const Known* FindKnown(UINT message) {
    for (const Known& known : KnownMessages) {
        if (known.message == message) {
            return &known;
        }
    }
    return nullptr;
}

std::wstring PairText(long long first, long long second) {
    return L" " + std::to_wstring(first) + L"," + std::to_wstring(second);
}

// The editor tells its parent of more than the loss of the focus.
std::wstring CommandText(WPARAM wParam) {
    const std::wstring id = L" " + std::to_wstring(LOWORD(wParam));
    return HIWORD(wParam) == EN_KILLFOCUS ? id + L" EN_KILLFOCUS" : id;
}
bool IsOwnNoise(UINT message, WPARAM wParam) {
    return message == WM_COMMAND && LOWORD(wParam) == EditorId && HIWORD(wParam) != EN_KILLFOCUS;
}

std::wstring TextOf(Meaning meaning, WPARAM wParam, LPARAM lParam) {
    switch (meaning) {
        case Meaning::Number:
            return L" " + std::to_wstring(LOWORD(wParam));
        case Meaning::Numbers:
            return PairText(static_cast<INT_PTR>(wParam), lParam);
        case Meaning::Point:
            return PairText(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
        case Meaning::Command:
            return CommandText(wParam);
        case Meaning::None:
            break;
    }
    return {};
}

// The number under which a module or the system keeps the cursor; empty while none is shown.
std::wstring ShownCursor() {
    ICONINFOEXW info{};
    info.cbSize = sizeof info;
    const HCURSOR cursor = GetCursor();
    if (cursor == nullptr || GetIconInfoExW(cursor, &info) == FALSE) {
        return {};
    }
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return std::to_wstring(info.wResID);
}

}  // namespace

void Story::Begin(HWND control, const std::wstring& more) {
    std::wistringstream names(more);
    m_more.clear();
    for (std::wstring name; names >> name;) {
        m_more.insert(name);
    }
    m_control = control;
    m_cursor = ShownCursor();
    m_lines.clear();
    Follow(control);
}

void Story::Follow(HWND window) {
    SetWindowSubclass(window, &OnMessage, SubclassId, reinterpret_cast<DWORD_PTR>(this));
}

void Story::Add(const std::wstring& line) {
    if (m_control != nullptr) {
        m_lines.push_back(line);
    }
}

void Story::AddMessage(const std::wstring& window, UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr UINT FirstRegistered = 0xC000;
    if (message >= FirstRegistered) {
        const std::wstring name = MessageName(message);
        if (name.starts_with(L"VeynorGrid_")) {
            const bool isKey = name.starts_with(L"VeynorGrid_CtrlKey");
            Add(window + L" " + name +
                TextOf(isKey ? Meaning::Number : Meaning::Numbers, wParam, lParam));
        }
        return;
    }
    const Known* const known = FindKnown(message);
    if (known != nullptr && (known->isAlwaysTold || IsTold(known->name)) &&
        !IsOwnNoise(message, wParam)) {
        Add(window + L" " + known->name + TextOf(known->meaning, wParam, lParam));
    }
}

bool Story::IsTold(const std::wstring& name) const {
    return m_more.contains(name);
}

// Only the changes, for the system asks with each move of the mouse.
void Story::AddCursor() {
    const std::wstring shown = ShownCursor();
    if (IsTold(L"WM_SETCURSOR") && shown != m_cursor) {
        m_cursor = shown;
        Add(L"cursor " + shown);
    }
}

LRESULT CALLBACK Story::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                  UINT_PTR id, DWORD_PTR self) {
    auto& story = *reinterpret_cast<Story*>(self);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &OnMessage, id);
        if (window == story.m_control) {
            story.m_control = nullptr;
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }
    if (message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_CREATE) {
        story.Follow(reinterpret_cast<HWND>(lParam));
    }
    story.AddMessage(window == story.m_control          ? L"grid"
                     : GetDlgCtrlID(window) == EditorId ? L"edit"
                                                        : std::to_wstring(GetDlgCtrlID(window)),
                     message, wParam, lParam);
    const LRESULT answer = DefSubclassProc(window, message, wParam, lParam);
    if (message == WM_SETCURSOR) {
        story.AddCursor();
    }
    return answer;
}

}  // namespace veygrid
