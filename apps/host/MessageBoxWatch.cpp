// Sees every message box of the thread come up, answers it and keeps what it said.
#include "apps/host/MessageBoxWatch.h"

#include <iterator>

#include "apps/host/WindowText.h"

namespace veygrid {

namespace {

// Hooks have no room for a pointer of their own.
MessageBoxWatch* theWatch = nullptr;

constexpr const wchar_t* HandledMark = L"VeyHostAnswered";

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

int DefaultButton(HWND box) {
    const DWORD answer = static_cast<DWORD>(SendMessageW(box, DM_GETDEFID, 0, 0));
    if (HIWORD(answer) == DC_HASDEFID && HasButton(box, LOWORD(answer))) {
        return LOWORD(answer);
    }
    for (const Button& button : Buttons) {
        if (HasButton(box, button.id)) {
            return button.id;
        }
    }
    return IDOK;
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

void MessageBoxWatch::OnActivate(HWND window) {
    if (GetPropW(window, HandledMark) != nullptr || !IsMessageBox(window)) {
        return;
    }
    SetPropW(window, HandledMark, this);
    const int answer = ChooseAnswer(window);
    m_lines.push_back(TextOfWindow(window) + L", " + TextOfWindow(FirstStatic(window, TextIds)) +
                      L", " + std::to_wstring(ButtonStyle(window) | IconStyle(window)) + L", " +
                      NameOf(answer));
    // Posted, so that the box is on the screen before it goes.
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(answer, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(window, answer)));
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
