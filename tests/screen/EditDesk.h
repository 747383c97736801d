// A whole sheet with mouse, keyboard and editor, at a desk that plays window, host and user. What
// they ask of the desk is recorded, one line a call.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "grid/SheetRecorder.h"
#include "platform/ControlWindow.h"
#include "platform/EditWindow.h"
#include "screen/CellEditor.h"
#include "screen/KeyboardMachine.h"
#include "screen/MouseMachine.h"
#include "screen/Scrolling.h"
#include "screen/SelectionDrawing.h"
#include "screen/SheetLayout.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

inline std::string Text(const Rect& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
}
inline std::string Text(const CellRange& range) {
    return Text(CellPos{range.Row1, range.Col1}) + ":" + Text(CellPos{range.Row2, range.Col2});
}
inline std::string Text(Point point) {
    return std::to_string(point.x) + "," + std::to_string(point.y);
}

// A device context that only tells of what is painted by exclusive or.
class DeskSurface final : public Surface {
  public:
    explicit DeskSurface(std::function<void(std::string)> add) : m_add(std::move(add)) {}

    void InvertRect(const Rect& rect) override { m_add("InvertRect " + Text(rect)); }
    void DrawFocusRect(const Rect& rect) override { m_add("DrawFocusRect " + Text(rect)); }

    bool IsPrinting() const override { return false; }
    std::int32_t GetDeviceCaps(std::int32_t) const override { return 0; }
    void SetBkColor(Color) override {}
    void SetBkMode(BkMode) override {}
    void SetTextColor(Color) override {}
    void SelectStockFont() override {}
    void SelectFont(const LogFont&) override {}
    void SelectFormerFont() override {}
    void SelectPen(Color) override {}
    void FillSolidRect(const Rect&, Color) override {}
    void Draw3dRect(const Rect&, Color, Color) override {}
    void DrawFrameControl(const Rect&, std::uint32_t, std::uint32_t) override {}
    std::int32_t DrawText(std::string_view, Rect&, std::uint32_t) override { return 0; }
    void MoveTo(Point) override {}
    void LineTo(Point) override {}
    void SetPixel(Point, Color) override {}
    std::unique_ptr<SurfaceBitmap> CreateDIBitmap(std::span<const std::uint8_t>,
                                                  std::span<const std::uint8_t>) override {
        return nullptr;
    }
    void BitBlt(Point, std::int32_t, std::int32_t, const SurfaceBitmap&) override {}

  private:
    std::function<void(std::string)> m_add;
};

// Bars that move and tell nothing.
class DeskBars final : public ScrollBars {
  public:
    ScrollRange GetScrollRange(ScrollBar bar) const override { return m_ranges[IndexOf(bar)]; }
    void SetScrollRange(ScrollBar bar, ScrollRange range) override {
        m_ranges[IndexOf(bar)] = range;
    }
    std::int32_t GetScrollPos(ScrollBar bar) const override { return m_positions[IndexOf(bar)]; }
    void SetScrollPos(ScrollBar bar, std::int32_t position) override {
        m_positions[IndexOf(bar)] = position;
    }
    void ShowScrollBar(ScrollBar, bool) override {}
    Rect GetClientRect() const override { return {0, 0, 400, 300}; }

  private:
    static std::size_t IndexOf(ScrollBar bar) { return bar == ScrollBar::Vert ? 1 : 0; }

    std::array<ScrollRange, 2> m_ranges{{{1, 20}, {1, 50}}};
    std::array<std::int32_t, 2> m_positions{};
};

enum class Focus { Elsewhere, Control, Editor };

// The event that a host is called for, for hosts that call back.
enum class DeskEvent {
    CellSelChanging,
    CellSelChanged,
    StartingEdit,
    EndEdit,
    Modified,
    DblClick,
    BeginLabelEdit,
    EndLabelEdit,
    CellsMove,
    MessageBox,
    HeaderDialog,
};

class EditDesk : public SheetRecorder,
                 public MouseHost,
                 public DesignMouse,
                 public KeyboardHost,
                 public CellEditorHost,
                 public ScrollingHost,
                 public ControlWindow {
  public:
    // What the platform and the host answer.
    Rect client{0, 0, 400, 300};
    std::uint32_t ticks = 1000;
    bool ctrlDown = false;
    bool altDown = false;
    bool designMode = false;
    bool hasToolbox = false;
    bool movesFocus = false;
    DesignPress designPress;
    std::int16_t allowEdit = 1;
    std::int16_t cancelEndEdit = 0;
    bool cancelBeginLabel = false;
    bool cancelEndLabel = false;
    std::optional<std::string> headerAnswer;
    // Called inside every event, behind its line.
    std::function<void(DeskEvent)> onEvent;
    // Where the keys go, and who hears that the editor lost them.
    Focus focus = Focus::Control;
    bool editorExists = false;
    std::function<void()> onEditKillFocus;
    std::function<void(ScrollBar, ScrollRequest)> onScroll;
    std::function<bool()> inEdit;
    std::deque<std::uint32_t> postedKeys;
    std::optional<Rect> confined;
    bool records = true;

    void Tell(std::string line) {
        if (records) {
            Add(std::move(line));
        }
    }
    void MoveFocus(Focus to) {
        const Focus from = std::exchange(focus, to);
        if (from == Focus::Editor && to != Focus::Editor && editorExists) {
            Tell("EN_KILLFOCUS");
            onEditKillFocus();
        }
    }

    // The control's window.
    void SetFocus() override {
        Tell("SetFocus");
        MoveFocus(Focus::Control);
    }
    Rect GetClientRect() override { return client; }
    Rect ClientToScreen(const Rect& rect) override { return rect.Offset(1000, 500); }
    void InvalidateRect(const Rect& rect) override { Tell("InvalidateRect " + Text(rect)); }
    std::unique_ptr<Surface> GetDC() override {
        return std::make_unique<DeskSurface>([this](std::string line) { Tell(std::move(line)); });
    }
    void SendScroll(ScrollBar bar, ScrollRequest request) override {
        Tell(std::string(bar == ScrollBar::Horz ? "WM_HSCROLL " : "WM_VSCROLL ") +
             std::to_string(static_cast<std::int32_t>(request)));
        onScroll(bar, request);
    }
    void PostCtrlKeyDown(std::uint32_t key, std::int32_t keyData) override {
        Tell("PostCtrlKeyDown " + std::to_string(key) + " " + std::to_string(keyData));
        postedKeys.push_back(key);
    }
    std::int16_t GetKeyState(std::int32_t virtualKey) override {
        const bool isDown = virtualKey == VkControl ? ctrlDown : virtualKey == VkMenu && altDown;
        return isDown ? std::int16_t{-32768} : std::int16_t{0};
    }
    std::uint32_t GetTickCount() override { return ticks; }
    void SetCursor(CursorId cursor) override {
        Tell("SetCursor " + std::to_string(static_cast<std::int32_t>(cursor)));
    }
    void ClipCursor(const Rect* rect) override {
        Tell(rect == nullptr ? "ClipCursor null" : "ClipCursor " + Text(*rect));
        confined = rect == nullptr ? std::nullopt : std::optional(*rect);
    }
    void MessageBeep() override { Tell("MessageBeep"); }

    // Events and boxes.
    void FireModified() override {
        Tell("Modified");
        Call(DeskEvent::Modified);
    }
    void FireCellSelChanging(std::int32_t row, std::int32_t col, std::int16_t& allow) override {
        Tell("CellSelChanging " + Text(CellPos{row, col}) + " " + std::to_string(allow));
        allow = allowChange;
        Call(DeskEvent::CellSelChanging);
    }
    void FireCellSelChanged() override {
        Tell("CellSelChanged");
        Call(DeskEvent::CellSelChanged);
    }
    void FireStartingEdit(std::int32_t row, std::int32_t col, std::int16_t& allow) override {
        Tell("StartingEdit " + Text(CellPos{row, col}) + " " + std::to_string(allow));
        allow = allowEdit;
        Call(DeskEvent::StartingEdit);
    }
    void FireEndEdit(std::int32_t row, std::int32_t col, std::string_view text,
                     std::int16_t& cancel) override {
        Tell("EndEdit " + Text(CellPos{row, col}) + " " + Utf8FromCodePage936(text) + " " +
             std::to_string(cancel));
        cancel = cancelEndEdit;
        Call(DeskEvent::EndEdit);
    }
    void FireDblClick() override {
        Tell("DblClick");
        Call(DeskEvent::DblClick);
    }
    void FireBeginLabelEdit(LabelType type, std::int32_t index, bool& cancel) override {
        Tell("BeginLabelEdit " + Text(CellPos{static_cast<std::int32_t>(type), index}) + " " +
             (cancel ? "TRUE" : "FALSE"));
        cancel = cancelBeginLabel;
        Call(DeskEvent::BeginLabelEdit);
    }
    void FireEndLabelEdit(LabelType type, std::int32_t index, std::string_view text,
                          bool& cancel) override {
        Tell("EndLabelEdit " + Text(CellPos{static_cast<std::int32_t>(type), index}) + " " +
             Utf8FromCodePage936(text) + " " + (cancel ? "TRUE" : "FALSE"));
        cancel = cancelEndLabel;
        Call(DeskEvent::EndLabelEdit);
    }
    void FireCellsMove(CellsMoved type) override {
        Tell("CellsMove " + std::to_string(static_cast<std::int32_t>(type)));
        Call(DeskEvent::CellsMove);
    }
    // A box takes the focus and gives it back where it was.
    void ShowMessage(std::string_view text, std::int32_t style) override {
        Tell("ShowMessage " + std::to_string(style) + " " + Utf8FromCodePage936(text));
        const Focus before = focus;
        MoveFocus(Focus::Elsewhere);
        Call(DeskEvent::MessageBox);
        if (focus == Focus::Elsewhere && (before != Focus::Editor || editorExists)) {
            focus = before;
        }
    }
    bool AskHeaderText(std::string& text) override {
        Tell("HeaderDialog " + Utf8FromCodePage936(text));
        const Focus before = focus;
        MoveFocus(Focus::Elsewhere);
        Call(DeskEvent::HeaderDialog);
        focus = before == Focus::Editor && !editorExists ? Focus::Control : before;
        text = headerAnswer.value_or(text);
        return headerAnswer.has_value();
    }
    std::string GetMsg(std::int32_t number) override { return "text " + std::to_string(number); }
    void RefreshColumnNames() override { Tell("RefreshColumnNames"); }

    // Pictures.
    void InvertSelection(Surface&) override {
        Tell("InvertSelection");
        if (onInvertSelection) {
            onInvertSelection();
        }
    }
    std::function<void()> onInvertSelection;
    void DrawSelectionFrame(Surface&) override { Tell("DrawSelectionFrame"); }

    // The form layer.
    bool GuiDesignMode() const override { return designMode; }
    bool HasToolbox() override { return hasToolbox; }
    void DeleteSelectedObjects() override { Tell("DeleteSelectedObjects"); }
    bool FocusNextObject() override {
        Tell("FocusNextObject");
        return movesFocus;
    }
    DesignPress OnPress(std::uint32_t flags, Point point) override {
        Tell("DesignPress " + std::to_string(flags) + " " + Text(point));
        return designPress;
    }
    void DrawDragRects(Surface&, std::int32_t dx, std::int32_t dy) override {
        Tell("DrawDragRects " + Text(Point{dx, dy}));
    }
    void MoveSelectedBy(std::int32_t dx, std::int32_t dy) override {
        Tell("MoveSelectedBy " + Text(Point{dx, dy}));
    }
    void SetDesignCursor(Point point) override { Tell("SetDesignCursor " + Text(point)); }

    // Scrolling.
    bool InEdit() const override { return inEdit(); }
    void InvalidateControl() override { Tell("InvalidateControl"); }
    bool HasMoreRecords() const override { return false; }
    bool AppendNextRecords() override { return false; }
    Rect VisibleFormWindows() const override { return {}; }
    void MoveFormWindows(std::int32_t, std::int32_t) override {}

  private:
    void Call(DeskEvent event) {
        if (onEvent) {
            onEvent(event);
        }
    }
};

// An edit window of the user: what is typed goes to the end, or in place of what is selected.
class DeskEdit final : public EditWindow {
  public:
    explicit DeskEdit(EditDesk& desk) : m_desk(desk) {}

    bool Create(std::uint32_t style, const Rect& rect, std::int32_t childId) override {
        m_desk.Tell("Create " + std::to_string(style) + " " + Text(rect) + " " +
                    std::to_string(childId));
        m_desk.editorExists = makesWindow;
        m_text.clear();
        m_isModified = false;
        return makesWindow;
    }
    bool HasWindow() const override { return m_desk.editorExists; }
    void SetFocus() override {
        m_desk.Tell("Editor SetFocus");
        m_desk.MoveFocus(Focus::Editor);
    }
    void SetWindowText(std::string_view text) override {
        m_desk.Tell("SetWindowText " + Utf8FromCodePage936(text));
        m_text = text;
        m_isModified = false;
    }
    std::optional<std::string> GetWindowText() const override {
        return holdsForeign ? std::nullopt : std::optional(m_text);
    }
    bool GetModify() const override { return m_isModified; }
    std::int32_t CharFromPos(Point point) const override {
        m_desk.Tell("CharFromPos " + std::to_string(point.x) + "," + std::to_string(point.y));
        return charFromPos;
    }
    void SetSel(std::int32_t start, std::int32_t end) override {
        m_desk.Tell("SetSel " + std::to_string(start) + "," + std::to_string(end));
    }
    void ScrollCaret() override { m_desk.Tell("ScrollCaret"); }
    // The window loses the focus while it still exists.
    void Close() override {
        m_desk.Tell("WM_CLOSE");
        if (m_desk.focus == Focus::Editor) {
            m_desk.MoveFocus(Focus::Control);
        }
        m_desk.editorExists = false;
    }

    void Type(std::string_view text) {
        m_text += text;
        m_isModified = true;
    }
    const std::string& Content() const { return m_text; }

    bool makesWindow = true;
    bool holdsForeign = false;
    std::int32_t charFromPos = 0;

  private:
    EditDesk& m_desk;
    std::string m_text;
    bool m_isModified = false;
};

// What the drawing of the selection asks: nothing but plain colours.
class DeskDrawing final : public DrawingHost {
  public:
    bool HasWindow() const override { return true; }
    std::uint32_t GetForeColor() const override { return Black; }
    std::uint32_t AmbientBackColor() const override { return White; }
    Color TranslateColor(std::uint32_t color) const override { return color; }
};

// The sheet of a new control, painted once in a window of 400 by 300: cells begin at (50, 20), rows
// are 18 and columns 60 pixels.
class EditedSheet {
  public:
    EditedSheet() {
        layout.m_rcClient = desk.client;
        desk.hasWindow = true;
        desk.handler = &selection;
        desk.onEditKillFocus = [this] { editor.OnEditKillFocus(); };
        desk.inEdit = [this] { return editor.InEdit(); };
        desk.onScroll = [this](ScrollBar bar, ScrollRequest request) {
            bar == ScrollBar::Horz ? scrolling.OnHScroll(request, 0)
                                   : scrolling.OnVScroll(request, 0);
        };
    }

    static std::int32_t CellX(std::int32_t col) { return 50 + (col - 1) * 60 + 30; }
    static std::int32_t CellY(std::int32_t row) { return 20 + (row - 1) * 18 + 9; }
    // The middle of a cell; row 0 or column 0 lies in the header.
    static Point At(std::int32_t row, std::int32_t col) {
        return {col == 0 ? 10 : CellX(col), row == 0 ? 10 : CellY(row)};
    }

    template <class Action>
    Lines CallsOf(Action action) {
        desk.Take();
        action();
        return desk.Take();
    }

    void Click(Point point, std::uint32_t flags = 0) {
        mouse.OnLButtonDown(flags | MkLButton, point);
        mouse.OnLButtonUp(flags, point);
    }
    void Press(Point point, std::uint32_t flags = 0) {
        mouse.OnLButtonDown(flags | MkLButton, point);
    }
    void Drag(Point point) { mouse.OnMouseMove(MkLButton, point); }
    void Release(Point point, std::uint32_t flags = 0) { mouse.OnLButtonUp(flags, point); }
    MouseState State() const { return mouse.Track().m_nMouseState; }

    MessageTarget FocusedTarget() const {
        return desk.focus == Focus::Editor    ? MessageTarget::Editor
               : desk.focus == Focus::Control ? MessageTarget::Control
                                              : MessageTarget::Elsewhere;
    }
    // A character in code page 936 arrives at the window that has the focus.
    MessageRoad Type(const std::string& text) {
        return Pass({.number = WmChar, .target = FocusedTarget(), .text = text});
    }
    MessageRoad KeyDown(std::uint32_t key) {
        return Pass({.number = WmKeyDown, .target = FocusedTarget(), .key = key, .keyData = 7});
    }
    MessageRoad Pass(const KeyboardMessage& message) {
        const MessageRoad road = keyboard.PreTranslateMessage(message);
        const bool atEditor =
            road == MessageRoad::ToEditor ||
            (road == MessageRoad::GoOn && message.target == MessageTarget::Editor);
        if (atEditor && desk.editorExists && !message.text.empty()) {
            edit.Type(message.text);
        }
        return road;
    }
    // The posted keys are handled, in their order; the last answer.
    std::int32_t Pump() {
        std::int32_t answer = -1;
        while (!desk.postedKeys.empty()) {
            const std::uint32_t key = desk.postedKeys.front();
            desk.postedKeys.pop_front();
            answer = keyboard.OnCtrlKeyDown(key);
        }
        return answer;
    }
    std::int32_t KeyStroke(std::uint32_t key) {
        KeyDown(key);
        return Pump();
    }

    // As a paint leaves it; its rim can be pressed.
    void DrawFrame() {
        DeskDrawing drawing;
        DeskSurface nowhere([](const std::string&) {});
        DrawSelectionFrame({store, selection, layout, drawing, {}}, nowhere);
    }

    CellPos Active() const { return {store.ActiveRow, store.ActiveCol}; }
    void MakeReadOnly(std::int32_t row, std::int32_t col) {
        CCellFormat format;
        format.SetReadOnly(true);
        store.StoreCellFormat(row, col, format);
    }
    void SetDataType(std::int32_t row, std::int32_t col, std::int16_t type) {
        CCellFormat format;
        format.SetDataType(type);
        store.StoreCellFormat(row, col, format);
    }

    EditDesk desk;
    DeskBars bars;
    GridStore store{desk};
    Selection selection{store, desk};
    RowColumnOperations operations{store, selection, desk};
    Layout layout{store};
    Scrolling scrolling{store, layout, bars, desk};
    DeskEdit edit{desk};
    CellEditor editor{store, layout, desk, edit, desk};
    KeyboardMachine keyboard{store, selection, operations, layout, editor, desk, desk};
    AutoScrollTicks autoScrollTicks;
    MouseMachine mouse{{store, selection, operations, layout, editor, desk, desk, desk},
                       autoScrollTicks};
    GridProperties& properties = store.Properties;
};

class EditDeskTest : public testing::Test, public EditedSheet {};

}  // namespace veygrid
