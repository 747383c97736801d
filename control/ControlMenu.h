// The menu of the control's window, and its commands, on the system's menus and dialogs.
#pragma once

#include <utility>

#include "control/DataSourceDialog.h"
#include "grid/GridStore.h"
#include "platform/PopupMenu.h"
#include "platform/win32/ole/Platform.h"
#include "screen/ContextMenu.h"
#include "screen/MenuCommands.h"
#include "screen/MenuHost.h"

// The port may have been read before the system's headers, which make its names macros.
#undef LoadMenu
#undef AppendMenu
#undef ModifyMenu

namespace veygrid {

class CVeyGridCtrl;

class OwnedMenu {
  public:
    OwnedMenu() = default;
    explicit OwnedMenu(HMENU menu) : m_menu(menu) {}
    OwnedMenu(OwnedMenu&& other) noexcept : m_menu(std::exchange(other.m_menu, nullptr)) {}
    OwnedMenu& operator=(OwnedMenu&& other) noexcept {
        std::swap(m_menu, other.m_menu);
        return *this;
    }
    ~OwnedMenu() {
        if (m_menu != nullptr) {
            ::DestroyMenu(m_menu);
        }
    }

    HMENU Get() const { return m_menu; }

  private:
    HMENU m_menu = nullptr;
};

class ControlMenu final : public PopupMenu, public MenuHost {
  public:
    // All must outlive the menu.
    ControlMenu(CVeyGridCtrl& control, GridStore& store, Selection& selection,
                RowColumnOperations& operations)
        : m_control(control),
          m_context(*this, store, *this),
          m_commands(store, selection, operations, *this) {}

    ContextMenu& Context() { return m_context; }
    MenuCommands& Commands() { return m_commands; }
    // Windows that commands have opened and that stand by themselves. They close with the control's
    // window.
    void EnableWindows(bool enable) { m_dataSources.EnableAll(enable); }
    void CloseWindows() { m_dataSources.CloseAll(); }

  private:
    bool HasMenu() const override { return m_menu.Get() != nullptr; }
    void LoadMenu(std::int32_t resource) override;
    void TranslateMenu() override;
    std::int32_t GetMenuItemCount() const override;
    void DeleteMenu(std::int32_t position) override;
    void AppendSeparator() override;
    void AppendMenu(std::int32_t command, std::string_view text) override;
    void ModifyMenu(std::int32_t command, std::string_view text) override;
    void CheckMenuItem(std::int32_t command, bool checked) override;
    void TrackPopupMenu(Point point) override;

    LogFont StockFont() override;
    std::optional<FontChoice> AskFont(const LogFont& shown) override;
    std::optional<AlignChoice> AskAlignment(const AlignChoice& shown) override;
    std::optional<DataCtrlChoice> AskDataCtrl(const DataCtrlChoice& shown) override;
    void ShowParamDlg() override;
    void OpenDataSourceWindow() override;
    std::optional<std::string> AskFileToSave() override;
    std::optional<std::string> AskFileToOpen() override;
    bool SaveFile(std::string_view path) override;
    std::int16_t OpenFile(std::string_view path, std::int16_t runQuery) override;
    void EditCopy() override;
    void EditCut() override;
    void EditPaste() override;
    bool Print(bool direct) override;
    void OnProperties() override;
    void SetGuiMode(bool mode) override;
    bool GuiDesignMode() override;
    void SetGuiDesignMode(bool mode) override;
    void ShowTabOrderDlg() override;
    void ShowToolbox(bool show) override;
    void PostCommandToParent(std::int32_t command) override;

    // Null without a menu.
    HMENU Popup() const { return ::GetSubMenu(m_menu.Get(), 0); }

    CVeyGridCtrl& m_control;
    OwnedMenu m_menu;
    DataSourceWindows m_dataSources{m_control};
    ContextMenu m_context;
    MenuCommands m_commands;
};

}  // namespace veygrid
