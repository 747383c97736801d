// Lets a script and the message loop take turns on one thread, each on a stack of its own.
#pragma once

#include <windows.h>

#include <functional>

namespace veygrid {

// While a dialog, a menu or a drag holds the loop inside a call, the script still goes on and can
// drive it, because it does not stand on the loop's stack.
class ScriptFiber {
  public:
    // `preTranslate` comes before TranslateMessage and answers true for a message that it used up.
    explicit ScriptFiber(std::function<bool(MSG&)> preTranslate);
    ScriptFiber(const ScriptFiber&) = delete;
    ScriptFiber& operator=(const ScriptFiber&) = delete;
    // Leaves the stack of a script that did not come to its end as it is.
    ~ScriptFiber();

    // Runs the script, and messages whenever it waits, until the script ends or Stop is called.
    // False when the script was stopped and never came to its end.
    bool Run(std::function<void()> script);

    // Runs messages that long; 0 runs those that are waiting. From the script, or from a call that
    // the script's event handlers make.
    void Pump(DWORD milliseconds);

    // Makes the call on the loop's stack. False when it opened a dialog or a menu that is still up:
    // then the call goes on beside the script, and what it refers to must live on.
    bool Call(std::function<void()> call);

    // Ends Run. From the script it does not return.
    void Stop();
    bool IsStopped() const { return m_isStopped; }

    // Stands while the script's event handlers run on the loop's stack: the script itself, which
    // waits below them in the engine's eyes, must not go on before they have ended.
    class HandlerScope {
      public:
        explicit HandlerScope(ScriptFiber& fiber);
        HandlerScope(const HandlerScope&) = delete;
        HandlerScope& operator=(const HandlerScope&) = delete;
        ~HandlerScope();

      private:
        ScriptFiber& m_fiber;
        bool m_isCounted;
    };

  private:
    static void CALLBACK Entry(void* self);
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);

    bool IsOver() const { return m_isStopped || m_isEnded; }
    void SwitchToScript();
    void SwitchToLoop();
    void Resume();
    void RunCalls();
    void Tick();
    void WaitAndRun(ULONGLONG deadline, const std::function<bool()>& isOver);
    bool RunOneMessage();
    void SetAlarm(DWORD milliseconds);

    std::function<bool(MSG&)> m_preTranslate;
    std::function<void()> m_body;
    std::function<void()> m_call;
    void* m_loop = nullptr;
    void* m_script = nullptr;
    UINT_PTR m_timer = 0;
    ULONGLONG m_deadline = 0;
    ULONGLONG m_callStart = 0;
    int m_handlers = 0;
    bool m_isOnScript = false;
    bool m_isCalling = false;   // a call of the script runs, and the script waits for it
    bool m_isCallLeft = false;  // the script went on without that call's end
    bool m_isWaiting = false;   // the script waits in Pump
    bool m_isEnded = false;
    bool m_isStopped = false;
};

}  // namespace veygrid
