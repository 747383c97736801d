// The commands of the menu: their numbers, and what each does.
#include "screen/MenuCommands.h"

#include <algorithm>
#include <iterator>

#include "grid/FormatChange.h"

namespace veygrid {

namespace {

// Paths that a user picks are opened as hosts open them, the query included.
constexpr std::int16_t RunQueryAfterOpening = 1;

}  // namespace

// One without a handler is the control's own and does nothing; running a query does so on purpose.
const MenuCommands::Entry MenuCommands::Entries[]{
    {command::Font, [](MenuCommands& c) { c.ShowFontDlg(); }},
    {command::Align, [](MenuCommands& c) { c.ShowAlignDlg(); }},
    {command::InsertRows, [](MenuCommands& c) { c.m_operations.InsertRowCommand(); }},
    {command::DeleteRows, [](MenuCommands& c) { c.m_operations.DeleteRowCommand(); }},
    {command::InsertCols, [](MenuCommands& c) { c.m_operations.InsertColCommand(); }},
    {command::DeleteCols, [](MenuCommands& c) { c.m_operations.DeleteColCommand(); }},
    {command::Copy, [](MenuCommands& c) { c.m_host.EditCopy(); }},
    {command::Cut, [](MenuCommands& c) { c.m_host.EditCut(); }},
    {command::Paste, [](MenuCommands& c) { c.m_host.EditPaste(); }},
    {command::Data, [](MenuCommands& c) { c.ShowDataCtrlDlg(); }},
    {command::DataSource, [](MenuCommands& c) { c.m_host.OpenDataSourceWindow(); }},
    {command::GuiMode, [](MenuCommands& c) { c.m_host.SetGuiMode(!c.m_store.Properties.GuiMode); }},
    {command::GuiDesignMode,
     [](MenuCommands& c) { c.m_host.SetGuiDesignMode(!c.m_host.GuiDesignMode()); }},
    {command::TabOrder, [](MenuCommands& c) { c.m_host.ShowTabOrderDlg(); }},
    {command::Toolbox, [](MenuCommands& c) { c.m_host.ShowToolbox(true); }},
    {command::Params, [](MenuCommands& c) { c.m_host.ShowParamDlg(); }},
    {command::RunQuery, nullptr},
    {command::SaveFile, [](MenuCommands& c) { c.SaveFile(); }},
    {command::OpenFile, [](MenuCommands& c) { c.OpenFile(); }},
    {command::Properties, [](MenuCommands& c) { c.m_host.OnProperties(); }},
    {command::LayoutGrid, nullptr},
    {command::KeyColumn, [](MenuCommands& c) { c.ToggleKeyColumn(); }},
    {command::DeleteObjects, nullptr},
    {command::ClearFormats, [](MenuCommands& c) { ClearAllFormats(c.m_store); }},
    {command::Print, [](MenuCommands& c) { c.m_host.Print(false); }},
};

std::int32_t CommandOfItem(std::int32_t item) {
    const auto* const found =
        std::ranges::find(CommandIdMap, item, [](const auto& pair) { return pair.first; });
    return found == CommandIdMap.end() ? item : found->second;
}

bool MenuCommands::OnCommand(std::int32_t command) {
    const auto* const entry = std::ranges::find(Entries, command, &Entry::command);
    if (entry != std::end(Entries)) {
        if (entry->handler != nullptr) {
            entry->handler(*this);
        }
        return true;
    }
    if (command < command::FirstOfHost || command > command::LastOfHost) {
        return false;
    }
    m_host.PostCommandToParent(command);
    return true;
}

void MenuCommands::ShowFontDlg() {
    LogFont shown = m_store.EffectiveFormat(m_store.ActiveRow, m_store.ActiveCol).Font;
    if (shown.lfWeight == NoFontWeight) {
        shown = m_host.StockFont();
    }
    const std::optional<FontChoice> choice = m_host.AskFont(shown);
    if (!choice) {
        return;
    }
    ChangeSelectedFormats(m_store, m_selection.SelectionList, [&choice](CCellFormat& format) {
        format.Font = choice->font;
        format.Foreground = static_cast<std::int32_t>(choice->color);
    });
}

// Nothing is shown of a selection, whose cells may differ.
template <class Choice>
Choice MenuCommands::ShownChoice(Choice (*ofFormat)(const CCellFormat&)) const {
    return m_selection.SelectionList.empty()
               ? ofFormat(m_store.EffectiveFormatRef(m_store.ActiveRow, m_store.ActiveCol))
               : Choice{};
}

void MenuCommands::ShowAlignDlg() {
    const std::optional<AlignChoice> choice = m_host.AskAlignment(ShownChoice(AlignChoiceOf));
    if (!choice) {
        return;
    }
    ChangeSelectedFormats(
        m_store, m_selection.SelectionList,
        [&choice](CCellFormat& format) { ApplyAlignChoice(*choice, format); },
        FormatBasis::Effective);
}

void MenuCommands::ShowDataCtrlDlg() {
    const std::optional<DataCtrlChoice> choice = m_host.AskDataCtrl(ShownChoice(DataCtrlChoiceOf));
    if (!choice) {
        return;
    }
    ChangeSelectedFormats(m_store, m_selection.SelectionList,
                          [&choice](CCellFormat& format) { ApplyDataCtrlChoice(*choice, format); });
}

void MenuCommands::SaveFile() {
    if (const std::optional<std::string> path = m_host.AskFileToSave()) {
        m_host.SaveFile(*path);
    }
}

void MenuCommands::OpenFile() {
    if (const std::optional<std::string> path = m_host.AskFileToOpen()) {
        m_host.OpenFile(*path, RunQueryAfterOpening);
        m_store.Watcher().InvalidateControl();
    }
}

// A column without an entry reads as set, so that its first toggle clears it.
void MenuCommands::ToggleKeyColumn() {
    const std::int32_t col = m_store.ActiveCol;
    m_store.SetKeyColumnFlag(col, m_store.KeyColumnFlag(col) == 0 ? 1 : 0);
}

}  // namespace veygrid
