// Windows and menus in the running language.
#pragma once

#include <string>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// What a window says; empty when it says nothing.
std::wstring WindowText(HWND window);

// Replaces the texts of a window and of the windows in it for which there is a translation.
void TranslateWindow(HWND window);
// The same for the items of a menu and its sub-pop-ups.
void TranslateMenu(HMENU menu);

}  // namespace veygrid
