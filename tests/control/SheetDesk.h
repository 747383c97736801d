// A control with its sheet, its host's loop and its user.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "control/ClassIds.h"
#include "control/VeyGridEvents.h"
#include "tests/control/MessageLoops.h"
#include "tests/control/OpenDialog.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

inline constexpr int EditId = 1000;

inline UINT MessageNumber(const wchar_t* name) {
    return ::RegisterWindowMessageW(name);
}

// The handler of a host that accepts no text.
inline void VetoEndEdit(DISPID id, DISPPARAMS& given) {
    if (id == event::EndEdit) {
        *given.rgvarg[0].piVal = 1;
    }
}

inline bool IsMessageBox(HWND window) {
    wchar_t caption[32] = {};
    ::GetWindowTextW(window, caption, 32);
    return std::wstring_view(caption) == L"Veynor Grid Control";
}

// A control with a sheet of 20 by 20 pixel rows and 60 pixel columns, in a dialog beside a button.
class SheetDesk {
  public:
    explicit SheetDesk(const LoopKind& kind = Loops[0]) : m_kind(kind) {
        control.As(&m_active);
        container.Place = {0, 0, 300, 200};
        EXPECT_EQ(container.Show(control), S_OK);
        window = Container::WindowOf(control);
        for (int line = 1; line <= 20; ++line) {
            grid.Put(L"RowHeight", {line, 20});
            grid.Put(L"ColWidth", {line, 60});
        }
        ::SetFocus(window);
        ::UpdateWindow(window);
        Run();
    }

    HWND Edit() const { return ::GetDlgItem(window, EditId); }
    std::string EditText() const {
        wchar_t text[100] = {};
        ::GetWindowTextW(Edit(), text, 100);
        return TextFromWide(text);
    }
    std::string Cell(int row, int col) const { return grid.Text(L"CellText", {row, col}); }
    std::pair<LONG, LONG> ActiveCell() const {
        std::pair<LONG, LONG> cell{};
        grid.Call(L"GetActiveCell", {Arg::Reference(&cell.first), Arg::Reference(&cell.second)});
        return cell;
    }
    // Gives up every reference.
    void LetGo() {
        grid = Late(static_cast<IDispatch*>(nullptr));
        m_active = nullptr;
        control = nullptr;
    }
    void Run() { MessageLoop(m_kind, dialog.Window(), m_active.Get()).Run(); }
    // To whatever has the focus, as the system does.
    void Key(WPARAM key) {
        ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 1);
        Run();
    }
    void Type(std::u16string_view units) {
        for (const char16_t unit : units) {
            ::PostMessageW(::GetFocus(), WM_CHAR, unit, 1);
            Run();
        }
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(window, message, wParam, lParam);
    }
    void Press(int x, int y) const { Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    void Move(int x, int y) const { Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y)); }
    void Release(int x, int y) const { Send(WM_LBUTTONUP, 0, MAKELPARAM(x, y)); }

    DialogWindow dialog;
    ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late grid{control};
    Container container{dialog.Window()};
    HWND window = nullptr;

  private:
    const LoopKind& m_kind;
    ComPtr<IOleInPlaceActiveObject> m_active;
};

}  // namespace veygrid
