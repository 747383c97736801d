// Sees every message box of the thread come up, answers it and keeps what it said.
#include "apps/host/MessageBoxWatch.h"

#include <commctrl.h>

#include <algorithm>

#include "apps/host/WindowText.h"

namespace veygrid {

namespace {

// Hooks have no room for a pointer of their own.
MessageBoxWatch* theWatch = nullptr;

constexpr const wchar_t* WatchedMark = L"VeyHostWatched";
constexpr UINT_PTR SubclassId = 1;
// Above what dialogs of the system use for themselves.
constexpr UINT AnswerMessage = WM_APP + 0x3000;

struct Button {
    int id;
    const wchar_t* name;
};
constexpr Button Buttons[] = {
    {IDOK, L"ok"},       {IDCANCEL, L"cancel"}, {IDABORT, L"abort"},
    {IDRETRY, L"retry"}, {IDIGNORE, L"ignore"}, {IDYES, L"yes"},
    {IDNO, L"no"},       {IDTRYAGAIN, L"try"},  {IDCONTINUE, L"continue"}};

// The texts of a box stand in a static under one of these ids, by the maker of the system.
constexpr int TextIds[] = {0xFFFF, 100};
constexpr int IconIds[] = {20, 1088};

bool HasButton(HWND box, int id) {
    const HWND button = GetDlgItem(box, id);
    return button != nullptr && (GetWindowLongW(button, GWL_STYLE) & WS_VISIBLE) != 0 &&
           ClassNameOf(button) == L"Button";
}

HWND FirstStatic(HWND box, const int (&ids)[2]) {
    for (const int id : ids) {
        const HWND child = GetDlgItem(box, id);
        if (child != nullptr && ClassNameOf(child) == L"Static") {
            return child;
        }
    }
    return nullptr;
}

// A box is made from the system's own template, a dialog of a program from the program's.
bool IsMessageBox(HWND window) {
    if (ClassNameOf(window) != L"#32770" || FirstStatic(window, TextIds) == nullptr) {
        return false;
    }
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        const std::wstring name = ClassNameOf(child);
        const int id = GetDlgCtrlID(child);
        const bool isKnownStatic = name == L"Static" && (id == TextIds[0] || id == TextIds[1] ||
                                                         id == IconIds[0] || id == IconIds[1]);
        const bool isButton = name == L"Button" && id >= IDOK && id <= IDCONTINUE;
        if (!isKnownStatic && !isButton) {
            return false;
        }
    }
    const auto module = reinterpret_cast<HMODULE>(GetWindowLongPtrW(window, GWLP_HINSTANCE));
    return module == nullptr || module == GetModuleHandleW(L"user32.dll") ||
           FirstStatic(window, IconIds) != nullptr;
}

LONG LeftOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place.left;
}

UINT ButtonStyle(HWND box) {
    const auto has = [box](int id) { return HasButton(box, id); };
    if (has(IDABORT)) {
        return MB_ABORTRETRYIGNORE;
    }
    if (has(IDYES)) {
        return has(IDCANCEL) ? MB_YESNOCANCEL : MB_YESNO;
    }
    if (has(IDRETRY)) {
        return MB_RETRYCANCEL;
    }
    if (has(IDCONTINUE)) {
        return MB_CANCELTRYCONTINUE;
    }
    return has(IDOK) && has(IDCANCEL) ? MB_OKCANCEL : MB_OK;
}

UINT IconStyle(HWND box) {
    const HWND holder = FirstStatic(box, IconIds);
    const auto icon = holder == nullptr
                          ? nullptr
                          : reinterpret_cast<HICON>(SendMessageW(holder, STM_GETICON, 0, 0));
    if (icon == nullptr) {
        return 0;
    }
    const std::pair<const wchar_t*, UINT> icons[] = {{IDI_HAND, MB_ICONHAND},
                                                     {IDI_QUESTION, MB_ICONQUESTION},
                                                     {IDI_EXCLAMATION, MB_ICONEXCLAMATION},
                                                     {IDI_ASTERISK, MB_ICONASTERISK}};
    for (const auto& [name, style] : icons) {
        if (icon == LoadIconW(nullptr, name)) {
            return style;
        }
    }
    return 0;
}

// The buttons from left to right.
std::vector<int> ButtonsOf(HWND box) {
    std::vector<int> ids;
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (HasButton(box, GetDlgCtrlID(child))) {
            ids.push_back(GetDlgCtrlID(child));
        }
    }
    std::sort(ids.begin(), ids.end(), [box](int one, int other) {
        return LeftOf(GetDlgItem(box, one)) < LeftOf(GetDlgItem(box, other));
    });
    return ids;
}

bool IsDefault(HWND button) {
    return (GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
}

// The place of the default button among the buttons, from 0.
std::size_t DefaultPlace(HWND box, const std::vector<int>& buttons) {
    for (std::size_t place = 0; place < buttons.size(); ++place) {
        if (IsDefault(GetDlgItem(box, buttons[place]))) {
            return place;
        }
    }
    return 0;
}

int DefaultButton(HWND box) {
    const std::vector<int> buttons = ButtonsOf(box);
    return buttons.empty() ? IDOK : buttons[DefaultPlace(box, buttons)];
}

UINT StyleOf(HWND box) {
    const auto place = static_cast<UINT>(DefaultPlace(box, ButtonsOf(box)));
    return ButtonStyle(box) | IconStyle(box) | place * MB_DEFBUTTON2;
}

const wchar_t* NameOf(int id) {
    for (const Button& button : Buttons) {
        if (button.id == id) {
            return button.name;
        }
    }
    return L"";
}

}  // namespace

MessageBoxWatch::MessageBoxWatch()
    : m_hook(SetWindowsHookExW(WH_CBT, &OnHook, nullptr, GetCurrentThreadId())) {
    theWatch = this;
}

MessageBoxWatch::~MessageBoxWatch() {
    UnhookWindowsHookEx(m_hook);
    theWatch = nullptr;
}

bool MessageBoxWatch::QueueAnswer(const std::wstring& button) {
    for (const Button& known : Buttons) {
        if (_wcsicmp(known.name, button.c_str()) == 0) {
            m_answers.push_back(known.id);
            return true;
        }
    }
    return false;
}

LRESULT CALLBACK MessageBoxWatch::OnHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && theWatch != nullptr) {
        theWatch->OnActivate(reinterpret_cast<HWND>(wParam));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// A box is activated before it has marked its default button, so that the answer has to wait.
void MessageBoxWatch::OnActivate(HWND window) {
    if (GetPropW(window, WatchedMark) != nullptr || !IsMessageBox(window)) {
        return;
    }
    SetPropW(window, WatchedMark, this);
    SetWindowSubclass(window, &OnBoxMessage, SubclassId, reinterpret_cast<DWORD_PTR>(this));
    PostMessageW(window, AnswerMessage, 0, 0);
}

LRESULT CALLBACK MessageBoxWatch::OnBoxMessage(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam, UINT_PTR id, DWORD_PTR self) {
    if (message == AnswerMessage) {
        reinterpret_cast<MessageBoxWatch*>(self)->Answer(window);
        return 0;
    }
    if (message == WM_NCDESTROY) {
        RemovePropW(window, WatchedMark);
        RemoveWindowSubclass(window, &OnBoxMessage, id);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

void MessageBoxWatch::Answer(HWND box) {
    const int answer = ChooseAnswer(box);
    const std::wstring text = TextOfWindow(FirstStatic(box, TextIds));
    m_lines.push_back(TextOfWindow(box) + L", " + text + L", " + std::to_wstring(StyleOf(box)) +
                      L", " + NameOf(answer));
    if (onBox) {
        onBox(text);
    }
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(answer, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, answer)));
}

int MessageBoxWatch::ChooseAnswer(HWND box) {
    if (!m_answers.empty()) {
        const int queued = m_answers.front();
        m_answers.pop_front();
        // A box with one button answers "ok" to Esc.
        if (HasButton(box, queued)) {
            return queued;
        }
    }
    return DefaultButton(box);
}

}  // namespace veygrid
