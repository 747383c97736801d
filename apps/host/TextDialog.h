// A dialog that asks the user for one text.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace veygrid {

// Controls of the dialog besides IDOK and IDCANCEL.
enum TextDialogItem : int { TextDialogEdit = 1001, TextDialogLabel = 1002 };

struct TextQuestion {
    std::wstring caption;
    std::wstring label;
    std::wstring text;  // stands in the field at first
    bool hasSeveralLines = false;
};

// Modal before `owner`. Nothing when the user cancels; line ends are "\r\n".
std::optional<std::wstring> AskForText(HWND owner, const TextQuestion& question);

}  // namespace veygrid
