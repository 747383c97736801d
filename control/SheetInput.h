// Mouse, keyboard, input method and in-cell editor of the sheet on the control's window, joined.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/win32/Win32ControlWindow.h"
#include "platform/win32/Win32EditWindow.h"
#include "platform/win32/ole/Platform.h"
#include "screen/CellEditor.h"
#include "screen/KeyboardMachine.h"
#include "screen/MouseMachine.h"

namespace veygrid {

class CVeyGridCtrl;

class SheetInput final : public CellEditorHost,
                         public KeyboardHost,
                         public MouseHost,
                         public DesignMouse {
  public:
    // The control and all its parts must outlive it.
    explicit SheetInput(CVeyGridCtrl& control);
    SheetInput(const SheetInput&) = delete;
    SheetInput& operator=(const SheetInput&) = delete;

    CellEditor& Editor() { return m_editor; }
    bool InEdit() const { return m_editor.InEdit(); }

    // An input message for the control's window or one in it, before the host dispatches it; true
    // uses it up. It may be readdressed.
    bool PreTranslateMessage(MSG& message);
    // Nothing for a message that is another's, or that the base class is to answer as well.
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    void FireStartingEdit(std::int32_t row, std::int32_t col, std::int16_t& allowEdit) override;
    void FireEndEdit(std::int32_t row, std::int32_t col, std::string_view newValue,
                     std::int16_t& cancel) override;
    void FireDblClick() override;
    void FireBeginLabelEdit(LabelType type, std::int32_t index, bool& cancel) override;
    void FireEndLabelEdit(LabelType type, std::int32_t index, std::string_view text,
                          bool& cancel) override;
    void FireCellsMove(CellsMoved type) override;
    void ShowMessage(std::string_view text, std::int32_t style) override;

    bool AskHeaderText(std::string& text) override;
    std::string GetMsg(std::int32_t number) override;
    void RefreshColumnNames() override;

    void InvertSelection(Surface& surface) override;
    void DrawSelectionFrame(Surface& surface) override;

    bool GuiDesignMode() const override;
    void SetDesignCursor(Point point) override;

  private:
    void Attach(HWND window);
    void OnDestroy();
    std::optional<LRESULT> OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnInputMethod(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnRegistered(UINT message, WPARAM wParam, LPARAM lParam);
    bool OnSetCursor(HWND window, UINT hit);
    bool OnDragOver(WPARAM wParam);
    Point CursorPoint() const;
    MessageTarget TargetOf(HWND window) const;

    CVeyGridCtrl& m_control;
    Win32ControlWindow m_window;
    Win32EditWindow m_wndEdit;
    CellEditor m_editor;
    KeyboardMachine m_keyboard;
    MouseMachine m_mouse;
    bool m_isEnding = false;
};

}  // namespace veygrid
