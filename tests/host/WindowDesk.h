// A window of VeyHost for a test, with its control.
#pragma once

#include <gmock/gmock.h>

#include <windows.h>
// The common controls need the base types first.
#include <commctrl.h>

#include <algorithm>

#include "apps/host/HostWindow.h"
#include "apps/host/MessageBoxWatch.h"
#include "apps/host/RegisteredMessages.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

// OLE and the common controls for as long as a window stands.
class Session {
  public:
    Session() {
        OleInitialize(nullptr);
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES};
        InitCommonControlsEx(&controls);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { OleUninitialize(); }
};

inline void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE &&
           message.message != WM_QUIT) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

class WindowDesk : public ::testing::Test {
  protected:
    WindowDesk() : window(module, LocaleNameToLCID(L"zh-CN", 0)) {
        window.SetScripted();
        window.Create({400, 300});
        window.Show();
        Pump();
    }
    ~WindowDesk() override {
        window.Destroy();
        Pump();
    }

    const Automation& Grid() const { return window.Control().Grid(); }
    void PutText(long row, long column, const std::wstring& text) const {
        Grid().Put(L"CellText", Variant::Of(text), {Variant::Of(row), Variant::Of(column)});
    }
    void MoveTo(long row, long column) const {
        Grid().Call(L"SetActiveCell", {Variant::Of(row), Variant::Of(column)});
    }
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const {
        return SendMessageW(window.Window(), message, wParam, lParam);
    }
    void Choose(UINT command) const { Send(WM_COMMAND, command, 0); }
    std::wstring StatusPart(int part) const {
        Pump();
        const HWND line = FindWindowExW(window.Window(), nullptr, STATUSCLASSNAMEW, nullptr);
        const LRESULT length = SendMessageW(line, SB_GETTEXTLENGTHW, static_cast<WPARAM>(part), 0);
        std::wstring text(LOWORD(length) + 1U, L'\0');
        SendMessageW(line, SB_GETTEXTW, static_cast<WPARAM>(part),
                     reinterpret_cast<LPARAM>(text.data()));
        text.resize(LOWORD(length));
        return text;
    }
    // The state of an item, once the menu at that place is asked to come up.
    UINT StateOf(UINT command, int place) const {
        const HMENU menu = GetSubMenu(GetMenu(window.Window()), place);
        Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), static_cast<LPARAM>(place));
        return GetMenuState(menu, command, MF_BYCOMMAND);
    }
    bool IsChecked(UINT command) const { return (StateOf(command, 1) & MF_CHECKED) != 0; }
    // The text that the host hands to a combo box for the key in code page 936.
    std::wstring FillFor(const char* key) const {
        const LRESULT answer =
            Send(Registered().ComboBoxAskForExternFill, 0, reinterpret_cast<LPARAM>(key));
        auto* const text = reinterpret_cast<BSTR>(answer);
        const std::wstring copy(TextOfBstr(text));
        SysFreeString(text);
        return copy;
    }

    const Session session;
    const ControlModule module;
    MessageBoxWatch boxes;
    HostWindow window;
};

}  // namespace veygrid
