// Message boxes with the control's caption.
#include "control/MessageBox.h"

#include "control/VeyGridCtrl.h"
#include "grid/Messages.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

int ShowMessageBox(CVeyGridCtrl& control, HWND owner, std::string_view text, std::int32_t style) {
    const KeepAlive keep(control);
    return ::MessageBoxW(owner, WideFromText(text).c_str(), WideFromText(MessageCaption).c_str(),
                         static_cast<UINT>(style));
}

}  // namespace veygrid
