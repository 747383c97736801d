// Acts in a modal window that the code under test opens.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "platform/win32/ole/OleText.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

// From construction on looks again and again at the thread's dialogs; runs `act` once, on the first
// one that `isWanted`. One at a time.
class OpenDialog {
  public:
    OpenDialog(std::function<bool(HWND)> isWanted, std::function<void(HWND)> act)
        : m_isWanted(std::move(isWanted)), m_act(std::move(act)) {
        current = this;
        m_timer = ::SetTimer(nullptr, 0, 10, OnTimer);
    }
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;
    ~OpenDialog() {
        ::KillTimer(nullptr, m_timer);
        current = nullptr;
    }

    bool WasSeen() const { return m_seen; }

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (current != nullptr && !current->m_seen) {
            ::EnumThreadWindows(::GetCurrentThreadId(), OnWindow, 0);
        }
    }
    static BOOL CALLBACK OnWindow(HWND window, LPARAM) {
        wchar_t name[16] = {};
        ::GetClassNameW(window, name, 16);
        if (std::wstring(name) == L"#32770" && ::IsWindowVisible(window) &&
            current->m_isWanted(window)) {
            current->m_seen = true;
            current->m_act(window);
            return FALSE;
        }
        return TRUE;
    }

    static inline OpenDialog* current = nullptr;

    std::function<bool(HWND)> m_isWanted;
    std::function<void(HWND)> m_act;
    UINT_PTR m_timer = 0;
    bool m_seen = false;
};

// While it lives, a dialog or box that comes up fails the test and is closed, so that nothing waits
// for it. Dialogs that stand already are none of its business.
class NoDialog {
  public:
    NoDialog() {
        ::EnumThreadWindows(::GetCurrentThreadId(), Note, reinterpret_cast<LPARAM>(this));
    }

  private:
    static BOOL CALLBACK Note(HWND window, LPARAM self) {
        reinterpret_cast<NoDialog*>(self)->m_before.insert(window);
        return TRUE;
    }
    static void Refuse(HWND window) {
        wchar_t caption[100] = {};
        ::GetWindowTextW(window, caption, 100);
        ADD_FAILURE() << "a dialog came up: " << TextFromWide(caption);
        ::EndDialog(window, IDCANCEL);
    }

    std::set<HWND> m_before;
    OpenDialog m_watch{[this](HWND window) { return !m_before.contains(window); }, Refuse};
};

}  // namespace veygrid
