// Lets controls see key messages before a host's loop dispatches them, whatever that loop does.
#include "platform/win32/ole/MessageFilter.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <vector>

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleControl.h"

namespace veygrid::messagefilter {

namespace {

struct ThreadState {
    HHOOK hook = nullptr;
    std::vector<CVeyOleControl*> controls;
};

// By thread. Only the map is shared; a state is used by its own thread alone.
std::mutex g_mutex;
std::map<DWORD, ThreadState>& States() {
    static std::map<DWORD, ThreadState> states;
    return states;
}

ThreadState& StateOfThread() {
    const std::lock_guard lock(g_mutex);
    return States()[::GetCurrentThreadId()];
}

bool IsKeyMessage(UINT message) {
    return message >= WM_KEYFIRST && message <= WM_KEYLAST;
}

// The control that the window is, or lies in.
CVeyOleControl* ControlOf(HWND window) {
    const auto& controls = StateOfThread().controls;
    const auto found = std::ranges::find_if(controls, [window](const CVeyOleControl* control) {
        return control->Window() == window || ::IsChild(control->Window(), window);
    });
    return found == controls.end() ? nullptr : *found;
}

LRESULT CALLBACK OnGetMessage(int code, WPARAM wParam, LPARAM lParam) {
    auto* const message = reinterpret_cast<MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && IsKeyMessage(message->message)) {
        try {
            CVeyOleControl* const control = ControlOf(message->hwnd);
            if (control != nullptr &&
                control->FilterMessage(*message, CVeyOleControl::FilterSource::Hook)) {
                message->message = WM_NULL;
            }
        } catch (...) {
            // A message that cannot be filtered goes its way.
            static_cast<void>(FailureOfCurrentException());
        }
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

void Add(CVeyOleControl& control) {
    ThreadState& state = StateOfThread();
    state.controls.push_back(&control);
    if (state.hook == nullptr) {
        state.hook =
            ::SetWindowsHookExW(WH_GETMESSAGE, OnGetMessage, nullptr, ::GetCurrentThreadId());
    }
}

void Remove(CVeyOleControl& control) {
    ThreadState& state = StateOfThread();
    std::erase(state.controls, &control);
    if (state.controls.empty()) {
        if (state.hook != nullptr) {
            ::UnhookWindowsHookEx(state.hook);
        }
        const std::lock_guard lock(g_mutex);
        States().erase(::GetCurrentThreadId());
    }
}

}  // namespace veygrid::messagefilter
