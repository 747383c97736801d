// The control's own messages and commands, and its picture.
#include <algorithm>
#include <array>

#include "control/RegisteredMessages.h"
#include "control/VeyGridCtrl.h"
#include "grid/FormatChange.h"

namespace veygrid {

namespace {

constexpr WPARAM AskForDataAccess = 2;

// Commands of the menu, which hosts reach by number.
constexpr UINT FirstCommand = 42300;
constexpr UINT BorderCommand = 42301;
constexpr UINT InsertRowsCommand = 42303;
constexpr UINT DeleteRowsCommand = 42304;
constexpr UINT InsertColsCommand = 42305;
constexpr UINT DeleteColsCommand = 42306;
constexpr UINT CopyCommand = 42307;
constexpr UINT CutCommand = 42308;
constexpr UINT PasteCommand = 42309;
constexpr UINT PropertiesCommand = 42320;
constexpr UINT ClearFormatsCommand = 42324;
constexpr UINT LastCommand = 42324;
// Commands in this range that the control has no handler for go to the host.
constexpr UINT FirstHostCommand = 33000;
constexpr UINT LastHostCommand = 50000;

// Item numbers of hosts are command numbers in a row.
constexpr std::int32_t FirstItem = 1001;
constexpr std::int32_t LastItem = 1021;
constexpr std::int32_t ItemToCommand = 41299;

constexpr std::size_t LongestPath = 32767;

// A path that a host sends, in code page 936; empty for none.
std::string_view SentPath(WPARAM wParam) {
    const auto* const text = reinterpret_cast<const char*>(wParam);
    return text == nullptr ? std::string_view()
                           : std::string_view(text, ::strnlen(text, LongestPath));
}

}  // namespace

std::int32_t CVeyGridCtrl::CommandOfItem(std::int32_t item) {
    return item >= FirstItem && item <= LastItem ? item + ItemToCommand : item;
}

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
        case WM_COMMAND:
            if (OnCommand(LOWORD(wParam))) {
                return 0;
            }
            break;
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
    m_dataAccess = parent == nullptr
                       ? 0
                       : ::SendMessageW(parent, NumberOf(Message::AskFor), AskForDataAccess, 0);
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

bool CVeyGridCtrl::OnCommand(UINT id) {
    switch (id) {
        case InsertRowsCommand:
            m_operations.InsertRowCommand();
            return true;
        case DeleteRowsCommand:
            m_operations.DeleteRowCommand();
            return true;
        case InsertColsCommand:
            m_operations.InsertColCommand();
            return true;
        case DeleteColsCommand:
            m_operations.DeleteColCommand();
            return true;
        case CopyCommand:
            EditCopy();
            return true;
        case CutCommand:
            EditCut();
            return true;
        case PasteCommand:
            EditPaste();
            return true;
        case PropertiesCommand:
            OnProperties(::GetParent(Window()));
            return true;
        case ClearFormatsCommand:
            ClearAllFormats(m_store);
            return true;
        default:
            break;
    }
    const bool isOwn = id >= FirstCommand && id <= LastCommand && id != BorderCommand;
    if (isOwn || id < FirstHostCommand || id > LastHostCommand) {
        return isOwn;
    }
    if (const HWND parent = ::GetParent(Window())) {
        ::PostMessageW(parent, WM_COMMAND, id, 0);
    }
    return true;
}

void CVeyGridCtrl::SendCommand(std::int32_t item) {
    if (Window() != nullptr) {
        ::SendMessageW(Window(), WM_COMMAND, static_cast<WORD>(CommandOfItem(item)), 0);
    }
}

}  // namespace veygrid
