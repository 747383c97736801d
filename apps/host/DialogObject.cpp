// An open dialog, as scripts drive it.
#include "apps/host/DialogObject.h"

#include <commctrl.h>

#include "apps/host/WindowText.h"

namespace veygrid {

namespace {

struct ChildSearch {
    int id;
    HWND found;
};

BOOL CALLBACK IsOtherChild(HWND child, LPARAM search) {
    auto& wanted = *reinterpret_cast<ChildSearch*>(search);
    if (GetDlgCtrlID(child) != wanted.id) {
        return TRUE;
    }
    wanted.found = child;
    return FALSE;
}

struct DialogSearch {
    const std::wstring& caption;
    HWND notThis;
    HWND found = nullptr;
    bool isDialog = false;
};

BOOL CALLBACK CompareCaption(HWND window, LPARAM search) {
    auto& wanted = *reinterpret_cast<DialogSearch*>(search);
    const bool isMeant = window != wanted.notThis && IsWindowVisible(window) != FALSE &&
                         TextOfWindow(window) == wanted.caption;
    const bool isDialog = ClassNameOf(window) == L"#32770";
    if (isMeant && (wanted.found == nullptr || (isDialog && !wanted.isDialog))) {
        wanted.found = window;
        wanted.isDialog = isDialog;
    }
    return TRUE;
}

// Tells the parent what a user's choice would have told it.
void NotifyParent(HWND control, WORD code) {
    SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

void ChooseTab(HWND tabs, long index) {
    NMHDR notice{tabs, static_cast<UINT_PTR>(GetDlgCtrlID(tabs)), TCN_SELCHANGING};
    const auto tell = [&notice, tabs] {
        return SendMessageW(GetParent(tabs), WM_NOTIFY, notice.idFrom,
                            reinterpret_cast<LPARAM>(&notice));
    };
    if (tell() == FALSE) {
        SendMessageW(tabs, TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
        notice.code = static_cast<UINT>(TCN_SELCHANGE);
        tell();
    }
}

void ChooseListItem(HWND list, long index) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = item.stateMask;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
}

// A press changes what the dialog's own code keeps of the button, setting its state would not.
void ChooseState(HWND button, long state) {
    if (SendMessageW(button, BM_GETCHECK, 0, 0) != state) {
        SendMessageW(button, BM_CLICK, 0, 0);
    }
}

}  // namespace

HWND FindDialog(const std::wstring& caption, HWND notThis) {
    DialogSearch search{caption, notThis};
    EnumThreadWindows(GetCurrentThreadId(), &CompareCaption, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

DialogObject::DialogObject(HWND dialog, ScriptFiber& fiber) : m_dialog(dialog), m_fiber(fiber) {
    Add(L"GetText", 1, 1, [this](const ScriptArguments& given) {
        return Variant::Of(TextOfWindow(Item(given.Number(0))));
    });
    AddAction(L"SetText", 2, 2,
              [this](const ScriptArguments& given) { SetText(given.Number(0), given.Text(1)); });
    AddAction(L"Choose", 2, 2,
              [this](const ScriptArguments& given) { Choose(given.Number(0), given.Number(1)); });
    AddAction(L"Press", 1, 1, [this](const ScriptArguments& given) { Press(given.Number(0)); });
}

// The dialog's own controls come before those of pages and views inside it.
HWND DialogObject::Item(long id) const {
    if (const HWND own = GetDlgItem(m_dialog, static_cast<int>(id))) {
        return own;
    }
    ChildSearch search{static_cast<int>(id), nullptr};
    EnumChildWindows(m_dialog, &IsOtherChild, reinterpret_cast<LPARAM>(&search));
    if (search.found == nullptr) {
        throw ScriptFault{L"the dialog has no control " + std::to_wstring(id)};
    }
    return search.found;
}

void DialogObject::SetText(long id, const std::wstring& text) {
    const HWND control = Item(id);
    SendMessageW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    if (ClassNameOf(control) == L"ComboBox") {
        NotifyParent(control, CBN_EDITCHANGE);
    } else if (ClassNameOf(control) == L"Edit" &&
               (GetWindowLongW(control, GWL_STYLE) & ES_MULTILINE) != 0) {
        // Only of what is typed into it does such a field tell by itself.
        NotifyParent(control, EN_CHANGE);
    }
    m_fiber.Pump(0);
}

void DialogObject::Choose(long id, long index) {
    const HWND control = Item(id);
    const std::wstring kind = ClassNameOf(control);
    if (kind == L"ComboBox") {
        SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        NotifyParent(control, CBN_SELENDOK);
        NotifyParent(control, CBN_SELCHANGE);
    } else if (kind == L"ListBox") {
        SendMessageW(control, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
        NotifyParent(control, LBN_SELCHANGE);
    } else if (kind == L"SysTabControl32") {
        ChooseTab(control, index);
    } else if (kind == L"SysListView32") {
        ChooseListItem(control, index);
    } else if (kind == L"Button") {
        ChooseState(control, index);
    } else {
        throw ScriptFault{L"nothing to choose in a " + kind};
    }
    m_fiber.Pump(0);
}

// Posted: a button may open one more dialog, and the script must go on beside it.
void DialogObject::Press(long id) {
    PostMessageW(Item(id), BM_CLICK, 0, 0);
    m_fiber.Pump(0);
}

}  // namespace veygrid
