// What the host window got from the control, kept for a script that asks.
#include "apps/host/MessageRecord.h"

#include "apps/host/RegisteredMessages.h"

namespace veygrid {

namespace {

// WM_APP and above up to the registered ones are the host's own.
bool IsFromControls(UINT message) {
    const bool isCommon = message == WM_COMMAND || message == WM_NOTIFY || message == WM_CLOSE;
    const bool isPrivate = message >= WM_USER && message < WM_APP;
    const bool isRegistered = message >= 0xC000 && message <= 0xFFFF;
    return isCommon || isPrivate || isRegistered;
}

}  // namespace

void MessageRecord::Add(UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_isOn && IsFromControls(message)) {
        m_lines.push_back(MessageName(message) + L", " +
                          std::to_wstring(static_cast<INT_PTR>(wParam)) + L", " +
                          std::to_wstring(lParam));
    }
}

}  // namespace veygrid
