// A menu and a host of commands without a system, and the record of what is asked of them.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "grid/SheetRecorder.h"
#include "screen/ContextMenu.h"
#include "screen/MenuCommands.h"

namespace veygrid {

// The items of the first pop-up, as "command text"; a sub-pop-up is one item.
class ListMenu final : public PopupMenu {
  public:
    bool IsMissing = false;
    std::vector<std::string> Items;
    Lines Calls;

    Lines Take() { return std::exchange(Calls, {}); }

    bool HasMenu() const override { return m_hasMenu; }
    void LoadMenu(std::int32_t resource) override {
        Calls.push_back("LoadMenu " + std::to_string(resource));
        m_hasMenu = !IsMissing;
        if (m_hasMenu) {
            Items = {"42302 A", "POPUP", "0 -", "42322 K"};
        }
    }
    void TranslateMenu() override { Calls.push_back("TranslateMenu"); }
    std::int32_t GetMenuItemCount() const override {
        return static_cast<std::int32_t>(Items.size());
    }
    void DeleteMenu(std::int32_t position) override {
        Calls.push_back("DeleteMenu " + std::to_string(position));
        Items.erase(Items.begin() + position);
    }
    void AppendSeparator() override { Items.push_back("0 -"); }
    void AppendMenu(std::int32_t command, std::string_view text) override {
        Items.push_back(std::to_string(command) + " " + Utf8FromCodePage936(text));
    }
    void ModifyMenu(std::int32_t command, std::string_view text) override {
        Calls.push_back("ModifyMenu " + std::to_string(command) + " " + Utf8FromCodePage936(text));
        const std::string start = std::to_string(command) + " ";
        for (std::string& item : Items) {
            if (item.starts_with(start)) {
                item = start + Utf8FromCodePage936(text);
            }
        }
    }
    void CheckMenuItem(std::int32_t command, bool checked) override {
        Calls.push_back("CheckMenuItem " + std::to_string(command) + (checked ? " on" : " off"));
    }
    void TrackPopupMenu(Point point) override {
        Calls.push_back("TrackPopupMenu " + std::to_string(point.x) + "," +
                        std::to_string(point.y));
    }

  private:
    bool m_hasMenu = false;
};

class CommandRecorder final : public MenuHost {
  public:
    // What the user and the control answer.
    LogFont stockFont{.lfHeight = -12, .lfWeight = 400};
    std::optional<FontChoice> font;
    std::optional<AlignChoice> alignment;
    std::optional<DataCtrlChoice> dataCtrl;
    std::optional<std::string> path;
    bool designMode = false;

    // What the dialogs were opened with.
    std::vector<LogFont> shownFonts;
    std::vector<AlignChoice> shownAlignments;
    std::vector<DataCtrlChoice> shownDataCtrls;
    Lines Calls;

    Lines Take() { return std::exchange(Calls, {}); }

    LogFont StockFont() override { return stockFont; }
    std::optional<FontChoice> AskFont(const LogFont& shown) override {
        shownFonts.push_back(shown);
        return font;
    }
    std::optional<AlignChoice> AskAlignment(const AlignChoice& shown) override {
        shownAlignments.push_back(shown);
        return alignment;
    }
    std::optional<DataCtrlChoice> AskDataCtrl(const DataCtrlChoice& shown) override {
        shownDataCtrls.push_back(shown);
        return dataCtrl;
    }
    void ShowParamDlg() override { Calls.push_back("ShowParamDlg"); }
    void OpenDataSourceWindow() override { Calls.push_back("OpenDataSourceWindow"); }
    std::optional<std::string> AskFileToSave() override {
        Calls.push_back("AskFileToSave");
        return path;
    }
    std::optional<std::string> AskFileToOpen() override {
        Calls.push_back("AskFileToOpen");
        return path;
    }
    bool SaveFile(std::string_view to) override {
        Calls.push_back("SaveFile " + Utf8FromCodePage936(to));
        return true;
    }
    std::int16_t OpenFile(std::string_view from, std::int16_t runQuery) override {
        Calls.push_back("OpenFile " + Utf8FromCodePage936(from) + " " + std::to_string(runQuery));
        return 1;
    }
    void EditCopy() override { Calls.push_back("EditCopy"); }
    void EditCut() override { Calls.push_back("EditCut"); }
    void EditPaste() override { Calls.push_back("EditPaste"); }
    bool Print(bool direct) override {
        Calls.push_back(direct ? "Print TRUE" : "Print FALSE");
        return true;
    }
    void OnProperties() override { Calls.push_back("OnProperties"); }
    void SetGuiMode(bool mode) override {
        Calls.push_back(mode ? "SetGuiMode TRUE" : "SetGuiMode FALSE");
    }
    bool GuiDesignMode() override { return designMode; }
    void SetGuiDesignMode(bool mode) override {
        Calls.push_back(mode ? "SetGuiDesignMode TRUE" : "SetGuiDesignMode FALSE");
    }
    void ShowTabOrderDlg() override { Calls.push_back("ShowTabOrderDlg"); }
    void ShowToolbox(bool show) override {
        Calls.push_back(show ? "ShowToolbox TRUE" : "ShowToolbox FALSE");
    }
    void PostCommandToParent(std::int32_t command) override {
        Calls.push_back("PostCommandToParent " + std::to_string(command));
    }
};

class MenuTest : public SheetTest {
  protected:
    ListMenu menu;
    CommandRecorder host;
    ContextMenu context{menu, store, host};
    MenuCommands commands{store, selection, operations, host};

    // What a command asks of the control; the parent's answer to one that nobody has is "nobody".
    Lines CommandCalls(std::int32_t id) {
        host.Take();
        return commands.OnCommand(id) ? host.Take() : Lines{"nobody"};
    }
    // The road of SendCommand.
    Lines SendCommand(std::int32_t item) { return CommandCalls(CommandOfItem(item)); }
};

}  // namespace veygrid
