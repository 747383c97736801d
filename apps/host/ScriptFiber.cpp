// Lets a script and the message loop take turns on one thread, each on a stack of its own.
#include "apps/host/ScriptFiber.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace veygrid {

namespace {

constexpr SIZE_T ScriptStack = 8U << 20U;
// How often the loop of a dialog or menu is asked whether the script's turn has come.
constexpr DWORD AlarmMilliseconds = 10;
// A call that holds the loop that long with a dialog or menu up goes on beside the script.
constexpr ULONGLONG PatienceMilliseconds = 200;
// A loop that never runs out of messages does not keep the script longer than that.
constexpr ULONGLONG BusyMilliseconds = 1000;

// One script runs in the program; timers without a window know no other way to it.
ScriptFiber* theFiber = nullptr;

BOOL CALLBACK IsNoDialog(HWND window, LPARAM) {
    wchar_t name[16];
    GetClassNameW(window, name, 16);
    return IsWindowVisible(window) == FALSE || std::wstring_view(name) != L"#32770";
}

bool IsDialogOrMenuUp() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const bool isMenu = GetGUIThreadInfo(GetCurrentThreadId(), &info) != FALSE &&
                        (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0;
    return isMenu || EnumThreadWindows(GetCurrentThreadId(), &IsNoDialog, 0) == FALSE;
}

}  // namespace

ScriptFiber::ScriptFiber(std::function<bool(MSG&)> preTranslate)
    : m_preTranslate(std::move(preTranslate)) {
    theFiber = this;
}

ScriptFiber::~ScriptFiber() {
    SetAlarm(0);
    theFiber = nullptr;
}

bool ScriptFiber::Run(std::function<void()> script) {
    m_body = std::move(script);
    m_loop = ConvertThreadToFiber(nullptr);
    m_script = CreateFiberEx(0, ScriptStack, FIBER_FLAG_FLOAT_SWITCH, &Entry, this);
    m_isWaiting = true;
    while (!IsOver()) {
        WaitAndRun(m_deadline, [this] { return IsOver(); });
        // A tick may have given the script its turn meanwhile, and then it waits for something
        // else.
        const bool waitsStill = m_isWaiting && GetTickCount64() < m_deadline;
        if (!IsOver() && !waitsStill) {
            Resume();
        }
    }
    SetAlarm(0);
    return m_isEnded;
}

void CALLBACK ScriptFiber::Entry(void* self) {
    auto* fiber = static_cast<ScriptFiber*>(self);
    fiber->m_body();
    fiber->m_isEnded = true;
    fiber->SwitchToLoop();
}

void ScriptFiber::Pump(DWORD milliseconds) {
    const ULONGLONG deadline = GetTickCount64() + milliseconds;
    if (!m_isOnScript) {
        WaitAndRun(deadline, [this] { return IsOver(); });
        return;
    }
    m_deadline = deadline;
    m_isWaiting = true;
    SwitchToLoop();
}

bool ScriptFiber::Call(std::function<void()> call) {
    if (!m_isOnScript || m_isCallLeft) {
        call();
        return true;
    }
    m_call = std::move(call);
    SwitchToLoop();
    return !m_isCallLeft;
}

void ScriptFiber::Stop() {
    m_isStopped = true;
    if (m_isOnScript) {
        SwitchToLoop();
    }
}

// Gives the script its turn. Comes back when the script waits, has made its calls, or is over.
void ScriptFiber::Resume() {
    m_isWaiting = false;
    SetAlarm(0);
    SwitchToScript();
    RunCalls();
    SetAlarm(AlarmMilliseconds);
}

void ScriptFiber::SwitchToScript() {
    m_isOnScript = true;
    SwitchToFiber(m_script);
}

void ScriptFiber::SwitchToLoop() {
    m_isOnScript = false;
    SwitchToFiber(m_loop);
}

void ScriptFiber::RunCalls() {
    while (m_call && !IsOver()) {
        const std::function<void()> call = std::exchange(m_call, nullptr);
        m_isCalling = true;
        m_callStart = GetTickCount64();
        SetAlarm(AlarmMilliseconds);
        call();
        SetAlarm(0);
        if (std::exchange(m_isCallLeft, false)) {
            return;  // the script is already beyond this call
        }
        m_isCalling = false;
        if (!IsOver()) {
            SwitchToScript();
        }
    }
}

ScriptFiber::HandlerScope::HandlerScope(ScriptFiber& fiber)
    : m_fiber(fiber), m_isCounted(!fiber.m_isOnScript) {
    m_fiber.m_handlers += m_isCounted ? 1 : 0;
}

ScriptFiber::HandlerScope::~HandlerScope() {
    m_fiber.m_handlers -= m_isCounted ? 1 : 0;
}

void CALLBACK ScriptFiber::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (theFiber != nullptr) {
        theFiber->Tick();
    }
}

// Timers come when no other message is left, in whatever loop is running.
void ScriptFiber::Tick() {
    if (IsOver()) {
        SetAlarm(0);
        EndMenu();
        PostQuitMessage(0);  // ends the loops of dialogs that are still up; menus do not mind it
        return;
    }
    if (m_handlers > 0) {
        return;
    }
    const ULONGLONG now = GetTickCount64();
    if (m_isCalling && now - m_callStart >= PatienceMilliseconds && IsDialogOrMenuUp()) {
        m_isCalling = false;
        m_isCallLeft = true;
        Resume();
    } else if (m_isWaiting && now >= m_deadline) {
        Resume();
    }
}

void ScriptFiber::WaitAndRun(ULONGLONG deadline, const std::function<bool()>& isOver) {
    while (!isOver()) {
        const ULONGLONG now = GetTickCount64();
        if (RunOneMessage()) {
            if (now >= deadline + BusyMilliseconds) {
                return;
            }
            continue;
        }
        if (now >= deadline) {
            return;
        }
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(deadline - now), QS_ALLINPUT,
                                    MWMO_INPUTAVAILABLE);
    }
}

// False when no message was waiting.
bool ScriptFiber::RunOneMessage() {
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) {
        return false;
    }
    if (message.message == WM_QUIT) {
        m_isStopped = true;
    } else if (!m_preTranslate(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

void ScriptFiber::SetAlarm(DWORD milliseconds) {
    if (m_timer != 0) {
        KillTimer(nullptr, m_timer);
        m_timer = 0;
    }
    if (milliseconds != 0) {
        m_timer = SetTimer(nullptr, 0, milliseconds, &OnTimer);
    }
}

}  // namespace veygrid
