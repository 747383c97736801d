// The control's own messages and commands, and its picture.
#include <algorithm>
#include <array>

#include "control/RegisteredMessages.h"
#include "control/VeyGridCtrl.h"

namespace veygrid {

namespace {

constexpr WPARAM AskForDataAccess = 2;

constexpr std::size_t LongestPath = 32767;

// A path that a host sends, in code page 936; empty for none.
std::string_view SentPath(WPARAM wParam) {
    const auto* const text = reinterpret_cast<const char*>(wParam);
    return text == nullptr ? std::string_view()
                           : std::string_view(text, ::strnlen(text, LongestPath));
}

}  // namespace

void CVeyGridCtrl::OnDraw(HDC target, const RECT& bounds, const RECT& invalid) {
    m_sheet.Draw(target, bounds, invalid);
}

LRESULT CVeyGridCtrl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto answer = m_sheet.OnMessage(message, wParam, lParam)) {
        return *answer;
    }
    if (const auto answer = m_input.OnMessage(message, wParam, lParam)) {
        return *answer;
    }
    switch (message) {
        case WM_CREATE: {
            const LRESULT result = CVeyOleControl::OnMessage(message, wParam, lParam);
            OnCreate();
            return result;
        }
        case WM_SHOWWINDOW: {
            const LRESULT result = CVeyOleControl::OnMessage(message, wParam, lParam);
            m_host.UpdateScrollBars();
            return result;
        }
        case WM_COMMAND:
            if (m_menu.Commands().OnCommand(LOWORD(wParam))) {
                return 0;
            }
            break;
        case WM_CONTEXTMENU:
            m_menu.Context().OnContextMenu({static_cast<std::int16_t>(LOWORD(lParam)),
                                            static_cast<std::int16_t>(HIWORD(lParam))});
            return 0;
        default:
            if (const auto answer = OnRegisteredMessage(message, wParam, lParam)) {
                return *answer;
            }
            break;
    }
    return CVeyOleControl::OnMessage(message, wParam, lParam);
}

void CVeyGridCtrl::OnCreate() {
    const HWND parent = ::GetParent(Window());
    m_query.DataAccess = parent == nullptr
                             ? nullptr
                             : reinterpret_cast<DataAccess*>(::SendMessageW(
                                   parent, NumberOf(Message::AskFor), AskForDataAccess, 0));
    if (m_query.RunsQueryAtCreation()) {
        RunQuery(0);
    }
    m_host.UpdateScrollBars();
    module::SetMainWindow(Window());
}

std::optional<LRESULT> CVeyGridCtrl::OnRegisteredMessage(UINT message, WPARAM wParam,
                                                         LPARAM lParam) {
    // The system numbers registered messages from here on.
    constexpr UINT FirstRegistered = 0xC000;
    if (message < FirstRegistered) {
        return std::nullopt;
    }
    if (message == NumberOf(Message::CellSelChange)) {
        return m_selection.OnCellSelChange(static_cast<std::int32_t>(wParam),
                                           static_cast<std::int32_t>(lParam));
    }
    if (message == NumberOf(Message::SaveRecord) || message == NumberOf(Message::Drop)) {
        return SaveRecord();
    }
    if (message == NumberOf(Message::OpenFile)) {
        return OpenFile(SentPath(wParam), 1) > 0 ? 1 : 0;
    }
    if (message == NumberOf(Message::CloseParent)) {
        ::PostMessageW(::GetParent(Window()), WM_CLOSE, 0, 0);
        return 0;
    }
    return OnRecordMessage(message);
}

std::optional<LRESULT> CVeyGridCtrl::OnRecordMessage(UINT message) {
    if (message == NumberOf(Message::InsertRecord)) {
        m_operations.InsertRowCommand();
    } else if (message == NumberOf(Message::DeleteRecord)) {
        m_operations.DeleteRowCommand();
    } else if (message == NumberOf(Message::NextRecord)) {
        MoveToRow(WrapAdd(m_store.ActiveRow, 1));
    } else if (message == NumberOf(Message::PriorRecord)) {
        MoveToRow(WrapSub(m_store.ActiveRow, 1));
    } else if (message == NumberOf(Message::FirstRecord)) {
        MoveToRow(1);
    } else if (message == NumberOf(Message::LastRecord)) {
        MoveToRow(m_store.Properties.LastRow);
    } else {
        return std::nullopt;
    }
    return 0;
}

void CVeyGridCtrl::MoveToRow(std::int32_t row) {
    m_selection.SetActiveCell(row, m_store.ActiveCol);
}

void CVeyGridCtrl::SendCommand(std::int32_t item) {
    if (Window() != nullptr) {
        ::SendMessageW(Window(), WM_COMMAND, static_cast<WORD>(CommandOfItem(item)), 0);
    }
}

// The dialogs' message loops may let the host release the control.
void CVeyGridCtrl::ShowFontDlg() {
    const KeepAlive keep(*this);
    m_menu.Commands().ShowFontDlg();
}

void CVeyGridCtrl::ShowAlignDlg() {
    const KeepAlive keep(*this);
    m_menu.Commands().ShowAlignDlg();
}

}  // namespace veygrid
