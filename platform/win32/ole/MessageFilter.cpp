// Lets controls see input messages before a host's loop dispatches them, whatever that loop does.
#include "platform/win32/ole/MessageFilter.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleControl.h"

namespace veygrid::messagefilter {

namespace {

struct ThreadState {
    HHOOK hook = nullptr;
    std::vector<CVeyOleControl*> controls;
    std::vector<HWND> dialogs;  // modeless
    // What the hook showed last and nobody used up: the host may ask for it still.
    std::optional<MSG> shown;
};

// By thread. Only the map is shared; a state is used by its own thread alone.
std::mutex g_mutex;
std::map<DWORD, ThreadState>& States() {
    static std::map<DWORD, ThreadState> states;
    return states;
}

// Null for a thread without controls.
ThreadState* FindState() {
    const std::lock_guard lock(g_mutex);
    const auto found = States().find(::GetCurrentThreadId());
    return found == States().end() ? nullptr : &found->second;
}

ThreadState& MakeState() {
    const std::lock_guard lock(g_mutex);
    return States()[::GetCurrentThreadId()];
}

void EraseState() {
    const std::lock_guard lock(g_mutex);
    States().erase(::GetCurrentThreadId());
}

// The filter may have ended the last control of the thread, and the state with it.
void Remember(const std::optional<MSG>& shown) {
    if (ThreadState* const state = FindState()) {
        state->shown = shown;
    }
}

constexpr bool IsBetween(UINT first, UINT message, UINT last) {
    return message >= first && message <= last;
}

bool IsKey(UINT message) {
    return IsBetween(WM_KEYFIRST, message, WM_KEYLAST);
}

bool IsInput(UINT message) {
    return IsKey(message) || IsBetween(WM_MOUSEFIRST, message, WM_MOUSELAST) ||
           IsBetween(WM_NCMOUSEMOVE, message, WM_NCXBUTTONDBLCLK) || message == WM_TIMER;
}

bool IsSame(const MSG& a, const MSG& b) {
    return a.hwnd == b.hwnd && a.message == b.message && a.wParam == b.wParam &&
           a.lParam == b.lParam && a.time == b.time;
}

bool Holds(HWND outer, HWND window) {
    return outer == window || ::IsChild(outer, window);
}

bool Owns(const CVeyOleControl& control, HWND window) {
    const HWND own = control.Window();
    return own != nullptr && Holds(own, window);
}

// An open menu reads the queue itself: its keys and clicks are nobody else's.
bool IsMenuOpen() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    constexpr DWORD Menu = GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) && (info.flags & Menu) != 0;
}

bool Filter(CVeyOleControl& control, MSG& message) {
    const KeepAlive keep(control);
    return !control.IsUIDead() && control.PreTranslateMessage(message);
}

CVeyOleControl* OwnerOf(HWND window) {
    ThreadState* const state = FindState();
    if (state == nullptr || window == nullptr) {
        return nullptr;
    }
    const auto found = std::ranges::find_if(
        state->controls, [window](const CVeyOleControl* c) { return Owns(*c, window); });
    return found == state->controls.end() ? nullptr : *found;
}

// Null for a window of no dialog.
HWND DialogOf(HWND window) {
    const ThreadState* const state = FindState();
    if (state == nullptr || window == nullptr) {
        return nullptr;
    }
    const auto found = std::ranges::find_if(
        state->dialogs, [window](HWND dialog) { return Holds(dialog, window); });
    return found == state->dialogs.end() ? nullptr : *found;
}

// Gives the dialog its key, which may end it.
bool GoesToDialog(MSG& message) {
    const HWND dialog = IsKey(message.message) ? DialogOf(message.hwnd) : nullptr;
    return dialog != nullptr && ::IsDialogMessageW(dialog, &message);
}

void OnTaken(MSG& message) {
    if (IsMenuOpen()) {
        return;
    }
    if (GoesToDialog(message)) {
        message.message = WM_NULL;
        return;
    }
    CVeyOleControl* const control = OwnerOf(message.hwnd);
    if (control == nullptr) {
        return;
    }
    Remember(message);
    if (Filter(*control, message)) {
        message.message = WM_NULL;
    }
    Remember(message);
}

LRESULT CALLBACK OnGetMessage(int code, WPARAM wParam, LPARAM lParam) {
    auto* const message = reinterpret_cast<MSG*>(lParam);
    if (code == HC_ACTION && (wParam & PM_REMOVE) != 0 && IsInput(message->message)) {
        try {
            OnTaken(*message);
        } catch (...) {
            // A message that cannot be filtered goes its way.
            static_cast<void>(FailureOfCurrentException());
        }
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

void Add(CVeyOleControl& control) {
    ThreadState& state = MakeState();
    state.controls.push_back(&control);
    if (state.hook == nullptr) {
        state.hook =
            ::SetWindowsHookExW(WH_GETMESSAGE, OnGetMessage, nullptr, ::GetCurrentThreadId());
    }
}

void Remove(CVeyOleControl& control) {
    ThreadState* const state = FindState();
    if (state == nullptr || std::erase(state->controls, &control) == 0 ||
        !state->controls.empty()) {
        return;
    }
    if (state->hook != nullptr) {
        ::UnhookWindowsHookEx(state->hook);
    }
    EraseState();
}

void AddDialog(HWND dialog) {
    MakeState().dialogs.push_back(dialog);
}

void RemoveDialog(HWND dialog) {
    if (ThreadState* const state = FindState()) {
        std::erase(state->dialogs, dialog);
    }
}

bool Offer(CVeyOleControl& control, MSG& message) {
    if (!IsInput(message.message) || !Owns(control, message.hwnd)) {
        return false;
    }
    const ThreadState* const state = FindState();
    const bool wasShown =
        state != nullptr && state->shown.has_value() && IsSame(*state->shown, message);
    return !wasShown && Filter(control, message);
}

}  // namespace veygrid::messagefilter
