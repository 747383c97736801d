// Windows and menus in the running language.
#include "control/Translation.h"

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleText.h"
#include "resources/Texts.h"

namespace veygrid {

namespace {

std::wstring Translated(const std::wstring& text) {
    return WideFromText(GetMsg(TextFromWide(text)));
}

void TranslateOne(HWND window) {
    const std::wstring text = WindowText(window);
    const std::wstring translated = Translated(text);
    if (translated != text) {
        ::SetWindowTextW(window, translated.c_str());
    }
}

BOOL CALLBACK TranslateChild(HWND child, LPARAM) {
    try {
        TranslateOne(child);
    } catch (...) {
        static_cast<void>(FailureOfCurrentException());
    }
    return TRUE;
}

std::wstring ItemText(HMENU menu, UINT position) {
    const int length = ::GetMenuStringW(menu, position, nullptr, 0, MF_BYPOSITION);
    std::wstring text(static_cast<std::size_t>(length > 0 ? length : 0), L'\0');
    ::GetMenuStringW(menu, position, text.data(), length + 1, MF_BYPOSITION);
    return text;
}

}  // namespace

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)), L'\0');
    const int length = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void TranslateWindow(HWND window) {
    TranslateOne(window);
    ::EnumChildWindows(window, TranslateChild, 0);
}

// Only the text is set: replacing the item would lose its sub-pop-up.
void TranslateMenu(HMENU menu) {
    const int count = ::GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const auto position = static_cast<UINT>(i);
        if (const HMENU inner = ::GetSubMenu(menu, i)) {
            TranslateMenu(inner);
        }
        const std::wstring text = ItemText(menu, position);
        std::wstring translated = Translated(text);
        if (translated != text) {
            MENUITEMINFOW info{};
            info.cbSize = sizeof info;
            info.fMask = MIIM_STRING;
            info.dwTypeData = translated.data();
            ::SetMenuItemInfoW(menu, position, TRUE, &info);
        }
    }
}

}  // namespace veygrid
