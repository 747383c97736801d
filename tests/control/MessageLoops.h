// The message loops that hosts have.
#pragma once

#include "tests/control/Container.h"

namespace veygrid {

// What a loop does with a message before it dispatches it.
struct LoopKind {
    const char* name;
    bool asksDialog;   // IsDialogMessage
    bool asksControl;  // IOleInPlaceActiveObject::TranslateAccelerator
};

inline constexpr LoopKind Loops[] = {{"Plain", false, false},
                                     {"Dialog", true, false},
                                     {"Accelerator", false, true},
                                     {"AcceleratorAndDialog", true, true}};

// Runs until the queue is empty.
class MessageLoop {
  public:
    // Neither is held. `active` may be null in a loop that does not ask the control.
    MessageLoop(const LoopKind& kind, HWND dialog, IOleInPlaceActiveObject* active)
        : m_kind(kind), m_dialog(dialog), m_active(active) {}

    void Run() {
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (!IsTaken(message)) {
                ::TranslateMessage(&message);
                ::DispatchMessageW(&message);
            }
        }
    }

  private:
    bool IsTaken(MSG& message) {
        return (m_kind.asksControl && m_active != nullptr &&
                m_active->TranslateAccelerator(&message) == S_OK) ||
               (m_kind.asksDialog && ::IsDialogMessageW(m_dialog, &message));
    }

    const LoopKind& m_kind;
    HWND m_dialog;
    IOleInPlaceActiveObject* m_active;
};

// A dialog with a default button, which counts what is pressed.
class DialogWindow {
  public:
    DialogWindow() {
        struct {
            DLGTEMPLATE head;
            WORD rest[3];
        } const form{{WS_POPUP, WS_EX_TOOLWINDOW, 0, 10, 10, 200, 150}, {0, 0, 0}};
        m_window = ::CreateDialogIndirectParamW(nullptr, &form.head, nullptr, Procedure, 0);
        ::CreateWindowExW(0, L"BUTTON", L"OK",
                          WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, 310, 10, 60, 20,
                          m_window, reinterpret_cast<HMENU>(IDOK), nullptr, nullptr);
        ::ShowWindow(m_window, SW_SHOWNOACTIVATE);
        pressed = 0;
    }
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;
    ~DialogWindow() { ::DestroyWindow(m_window); }

    HWND Window() const { return m_window; }

    static inline int pressed = 0;

  private:
    static INT_PTR CALLBACK Procedure(HWND, UINT message, WPARAM wParam, LPARAM) {
        pressed += message == WM_COMMAND && LOWORD(wParam) == IDOK ? 1 : 0;
        return FALSE;
    }

    HWND m_window = nullptr;
};

}  // namespace veygrid
