// The registered messages that the control and its host speak, by name and number.
#include "apps/host/RegisteredMessages.h"

namespace veygrid {

const RegisteredMessages& Registered() {
    static const RegisteredMessages numbers;
    return numbers;
}

std::wstring MessageName(UINT message) {
    switch (message) {
        case WM_COMMAND:
            return L"WM_COMMAND";
        case WM_NOTIFY:
            return L"WM_NOTIFY";
        case WM_CLOSE:
            return L"WM_CLOSE";
        default:
            break;
    }
    // Registered messages and clipboard formats share one table of names.
    wchar_t name[256];
    if (message >= 0xC000 && message <= 0xFFFF) {
        const int length = GetClipboardFormatNameW(message, name, 256);
        if (length > 0) {
            return std::wstring(name, static_cast<std::size_t>(length));
        }
    }
    return std::to_wstring(message);
}

}  // namespace veygrid
