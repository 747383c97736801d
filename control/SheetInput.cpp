// Mouse, keyboard, input method and in-cell editor of the sheet on the control's window, joined.
#include "control/SheetInput.h"

#include "control/HeaderTextDialog.h"
#include "control/MessageBox.h"
#include "control/RegisteredMessages.h"
#include "control/VeyGridCtrl.h"
#include "control/VeyGridEvents.h"
#include "platform/win32/ole/Module.h"
#include "resources/Texts.h"
#include "screen/SelectionDrawing.h"

namespace veygrid {

namespace {

// What a host drags when it asks with MSG_DRAGOVER.
constexpr WPARAM DraggedItem = 32769;

// Of all controls of the process.
AutoScrollTicks g_ticksAutoScroll;

Point PointOf(LPARAM position) {
    return {static_cast<std::int16_t>(LOWORD(position)),
            static_cast<std::int16_t>(HIWORD(position))};
}

// A yes or no of an event, as automation has it.
class EventFlag {
  public:
    explicit EventFlag(bool& flag) : m_flag(flag), m_value(flag ? VARIANT_TRUE : VARIANT_FALSE) {}
    EventFlag(const EventFlag&) = delete;
    EventFlag& operator=(const EventFlag&) = delete;
    ~EventFlag() { m_flag = m_value != VARIANT_FALSE; }

    EventArgument::Flag Argument() { return {&m_value}; }

  private:
    bool& m_flag;
    VARIANT_BOOL m_value;
};

}  // namespace

SheetInput::SheetInput(CVeyGridCtrl& control)
    : m_control(control),
      m_window(module::Instance(), NumberOf(Message::CtrlKeyDown)),
      m_editor(control.Store(), control.Sheet().View(), m_window, m_wndEdit, *this),
      m_keyboard(control.Store(), control.Selected(), control.Operations(), control.Sheet().View(),
                 m_editor, m_window, *this),
      m_mouse({control.Store(), control.Selected(), control.Operations(), control.Sheet().View(),
               m_editor, m_window, *this, *this},
              g_ticksAutoScroll) {}

MessageTarget SheetInput::TargetOf(HWND window) const {
    if (window == m_control.Window()) {
        return MessageTarget::Control;
    }
    if (window == m_wndEdit.Window()) {
        return MessageTarget::Editor;
    }
    return ::IsChild(m_control.Window(), window) ? MessageTarget::Descendant
                                                 : MessageTarget::Elsewhere;
}

bool SheetInput::PreTranslateMessage(MSG& message) {
    // The keys of a composition are the input method's; its Enter moves no cell.
    if (message.message == WM_KEYDOWN && m_wndEdit.IsComposing()) {
        return false;
    }
    const bool isText = message.message == WM_CHAR;
    const KeyboardMessage seen{
        .number = message.message,
        .target = TargetOf(message.hwnd),
        .key = static_cast<std::uint32_t>(message.wParam),
        .keyData = static_cast<std::int32_t>(message.lParam),
        .text = isText ? TypedText(static_cast<char16_t>(message.wParam)) : std::string()};
    switch (m_keyboard.PreTranslateMessage(seen)) {
        case MessageRoad::GoOn:
            return false;
        case MessageRoad::UsedUp:
            return true;
        case MessageRoad::ToEditor:
            message.hwnd = m_wndEdit.Window();
            return false;
        case MessageRoad::ToControl: {
            const Point from = PointOf(message.lParam);
            POINT point{from.x, from.y};
            ::MapWindowPoints(message.hwnd, m_control.Window(), &point, 1);
            message.hwnd = m_control.Window();
            message.lParam = MAKELPARAM(point.x, point.y);
            return false;
        }
    }
    return false;
}

std::optional<LRESULT> SheetInput::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            m_isEnding = false;
            Attach(m_control.Window());
            return std::nullopt;
        case WM_DESTROY:
            OnDestroy();
            return std::nullopt;
        case WM_CAPTURECHANGED:
        case WM_CANCELMODE:
            m_mouse.CancelDrag();
            return std::nullopt;
        case WM_COMMAND:
            if (LOWORD(wParam) != CellEditor::ChildId || HIWORD(wParam) != EN_KILLFOCUS) {
                return std::nullopt;
            }
            if (!m_isEnding) {
                m_editor.OnEditKillFocus();
            }
            return 0;
        case WM_SETCURSOR:
            return OnSetCursor(reinterpret_cast<HWND>(wParam), LOWORD(lParam))
                       ? std::optional<LRESULT>(TRUE)
                       : std::nullopt;
        case WM_IME_STARTCOMPOSITION:
        case WM_IME_COMPOSITION:
        case WM_IME_ENDCOMPOSITION:
        case WM_IME_CHAR:
            return OnInputMethod(message, wParam, lParam);
        default:
            break;
    }
    return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST
               ? OnMouse(message, wParam, lParam)
               : OnRegistered(message, wParam, lParam);
}

// An open edit is committed; a refused text goes with the window, and no box holds the host up.
void SheetInput::OnDestroy() {
    m_isEnding = true;
    m_mouse.CancelDrag();
    m_editor.EndEdit();
    Attach(nullptr);
}

void SheetInput::Attach(HWND window) {
    m_window.Attach(window);
    m_wndEdit.Attach(window);
}

std::optional<LRESULT> SheetInput::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto flags = static_cast<std::uint32_t>(LOWORD(wParam));
    const Point point = PointOf(lParam);
    bool runsBase = true;
    switch (message) {
        case WM_LBUTTONDOWN:
            runsBase = m_mouse.OnLButtonDown(flags, point);
            break;
        case WM_MOUSEMOVE:
            m_mouse.OnMouseMove(flags, point);
            break;
        case WM_LBUTTONUP:
            m_mouse.OnLButtonUp(flags, point);
            break;
        case WM_LBUTTONDBLCLK:
            runsBase = m_mouse.OnLButtonDblClk(point);
            break;
        default:
            break;
    }
    return runsBase ? std::nullopt : std::optional<LRESULT>(0);
}

// These are sent to the window that has the focus, past every loop. The first of them may have to
// open the editor, and then all of them are the editor's.
std::optional<LRESULT> SheetInput::OnInputMethod(UINT message, WPARAM wParam, LPARAM lParam) {
    KeyboardMessage seen{.number = message};
    if (message == WM_IME_CHAR) {
        seen.text = TypedText(static_cast<char16_t>(wParam));
    }
    switch (m_keyboard.PreTranslateMessage(seen)) {
        case MessageRoad::ToEditor:
            return ::SendMessageW(m_wndEdit.Window(), message, wParam, lParam);
        case MessageRoad::UsedUp:
            return 0;
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> SheetInput::OnRegistered(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == NumberOf(Message::CtrlKeyDown)) {
        return m_keyboard.OnCtrlKeyDown(static_cast<std::uint32_t>(wParam));
    }
    if (message == NumberOf(Message::CtrlKeyMsg)) {
        return m_keyboard.OnCtrlKeyMsg(static_cast<std::uint32_t>(wParam),
                                       static_cast<std::int32_t>(lParam));
    }
    if (message == NumberOf(Message::DragOver)) {
        return OnDragOver(wParam) ? 1 : 0;
    }
    return std::nullopt;
}

// A child asks its parent first; the pointer of the editor is its own.
bool SheetInput::OnSetCursor(HWND window, UINT hit) {
    return hit == HTCLIENT && TargetOf(window) != MessageTarget::Editor &&
           m_mouse.OnSetCursor(CursorPoint());
}

bool SheetInput::OnDragOver(WPARAM wParam) {
    if (wParam != DraggedItem ||
        m_control.Sheet().View().HitTest(CursorPoint()) == HitCode::HitOutside) {
        return false;
    }
    m_window.SetCursor(CursorId::Arrow);
    return true;
}

Point SheetInput::CursorPoint() const {
    POINT point{};
    ::GetCursorPos(&point);
    ::ScreenToClient(m_control.Window(), &point);
    return {point.x, point.y};
}

void SheetInput::FireStartingEdit(std::int32_t row, std::int32_t col, std::int16_t& allowEdit) {
    m_control.FireEvent(event::StartingEdit, row, col, &allowEdit);
}

void SheetInput::FireEndEdit(std::int32_t row, std::int32_t col, std::string_view newValue,
                             std::int16_t& cancel) {
    m_control.FireEvent(event::EndEdit, row, col, newValue, &cancel);
}

void SheetInput::FireDblClick() {
    m_control.FireEvent(DISPID_DBLCLICK);
}

void SheetInput::FireBeginLabelEdit(LabelType type, std::int32_t index, bool& cancel) {
    EventFlag flag(cancel);
    m_control.FireEvent(event::BeginLabelEdit, static_cast<std::int16_t>(type), index,
                        flag.Argument());
}

void SheetInput::FireEndLabelEdit(LabelType type, std::int32_t index, std::string_view text,
                                  bool& cancel) {
    EventFlag flag(cancel);
    m_control.FireEvent(event::EndLabelEdit, static_cast<std::int16_t>(type), index, text,
                        flag.Argument());
}

void SheetInput::FireCellsMove(CellsMoved type) {
    m_control.FireEvent(event::CellsMove, static_cast<std::int16_t>(type));
}

void SheetInput::ShowMessage(std::string_view text, std::int32_t style) {
    ShowMessageBox(m_control, nullptr, text, style);
}

bool SheetInput::AskHeaderText(std::string& text) {
    const KeepAlive keep(m_control);
    std::optional<std::string> answer = veygrid::AskHeaderText(m_control.DialogOwner(), text);
    if (answer) {
        text = std::move(*answer);
    }
    return answer.has_value();
}

std::string SheetInput::GetMsg(std::int32_t number) {
    return veygrid::GetMsg(static_cast<std::uint32_t>(number));
}

void SheetInput::RefreshColumnNames() {
    m_control.Bound().RefreshColumnNames();
}

void SheetInput::InvertSelection(Surface& surface) {
    veygrid::InvertSelection(m_control.Sheet().Context(), surface);
}

void SheetInput::DrawSelectionFrame(Surface& surface) {
    veygrid::DrawSelectionFrame(m_control.Sheet().Context(), surface);
}

bool SheetInput::GuiDesignMode() const {
    return m_control.GuiDesignMode();
}

void SheetInput::SetDesignCursor(Point) {
    m_window.SetCursor(CursorId::Arrow);
}

}  // namespace veygrid
