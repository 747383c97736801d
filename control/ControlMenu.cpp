// The menu of the control's window, and its commands, on the system's menus and dialogs.
#include "control/ControlMenu.h"

#include <commdlg.h>

#include "control/DataDialogs.h"
#include "control/FileDialog.h"
#include "control/FormatDialogs.h"
#include "control/Translation.h"
#include "control/VeyGridCtrl.h"
#include "platform/win32/ole/ControlFont.h"
#include "platform/win32/ole/Module.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

constexpr wchar_t GridFileFilter[] = L"维诺表格文件(*.grd)\0*.grd\0所有文件 (*.*)\0*.*\0";

std::optional<std::string> AskGridFile(HWND owner, FileDialogKind kind, DWORD flags) {
    const std::optional<std::wstring> path = AskFile(
        owner, {.kind = kind, .filter = GridFileFilter, .extension = L"grd", .flags = flags});
    return path ? std::optional(TextFromWide(*path)) : std::nullopt;
}

}  // namespace

void ControlMenu::LoadMenu(std::int32_t resource) {
    m_menu = OwnedMenu(::LoadMenuW(module::Instance(), MAKEINTRESOURCEW(resource)));
}

void ControlMenu::TranslateMenu() {
    veygrid::TranslateMenu(m_menu.Get());
}

std::int32_t ControlMenu::GetMenuItemCount() const {
    return ::GetMenuItemCount(Popup());
}

void ControlMenu::DeleteMenu(std::int32_t position) {
    ::DeleteMenu(Popup(), static_cast<UINT>(position), MF_BYPOSITION);
}

void ControlMenu::AppendSeparator() {
    ::AppendMenuW(Popup(), MF_SEPARATOR, 0, nullptr);
}

void ControlMenu::AppendMenu(std::int32_t command, std::string_view text) {
    ::AppendMenuW(Popup(), MF_STRING, static_cast<UINT>(command), WideFromText(text).c_str());
}

void ControlMenu::ModifyMenu(std::int32_t command, std::string_view text) {
    const auto id = static_cast<UINT>(command);
    ::ModifyMenuW(Popup(), id, MF_BYCOMMAND | MF_STRING, id, WideFromText(text).c_str());
}

void ControlMenu::CheckMenuItem(std::int32_t command, bool checked) {
    ::CheckMenuItem(Popup(), static_cast<UINT>(command),
                    MF_BYCOMMAND | (checked ? MF_CHECKED : MF_UNCHECKED));
}

void ControlMenu::TrackPopupMenu(Point point) {
    ::TrackPopupMenu(Popup(), 0, point.x, point.y, 0, m_control.Window(), nullptr);
}

// Where the container offers no font either, the one that then draws the cells.
LogFont ControlMenu::StockFont() {
    const LogFont font = RecordFromFont(m_control.FontObject().Get());
    return font.lfWeight == AmbientFontWeight ? RecordFromFont(DefaultFont().Get()) : font;
}

std::optional<FontChoice> ControlMenu::AskFont(const LogFont& shown) {
    return veygrid::AskFont(m_control.Window(), shown);
}

std::optional<AlignChoice> ControlMenu::AskAlignment(const AlignChoice& shown) {
    return veygrid::AskAlignment(m_control.Window(), shown);
}

std::optional<DataCtrlChoice> ControlMenu::AskDataCtrl(const DataCtrlChoice& shown) {
    return veygrid::AskDataCtrl(m_control.Window(), shown);
}

void ControlMenu::ShowParamDlg() {
    EditParams(m_control);
}

void ControlMenu::OpenDataSourceWindow() {
    m_dataSources.Open();
}

std::optional<std::string> ControlMenu::AskFileToSave() {
    return AskGridFile(m_control.Window(), FileDialogKind::Save,
                       OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT);
}

std::optional<std::string> ControlMenu::AskFileToOpen() {
    return AskGridFile(m_control.Window(), FileDialogKind::Open, OFN_HIDEREADONLY);
}

bool ControlMenu::SaveFile(std::string_view path) {
    return m_control.SaveFile(path);
}

std::int16_t ControlMenu::OpenFile(std::string_view path, std::int16_t runQuery) {
    return m_control.OpenFile(path, runQuery);
}

void ControlMenu::EditCopy() {
    m_control.EditCopy();
}

void ControlMenu::EditCut() {
    m_control.EditCut();
}

void ControlMenu::EditPaste() {
    m_control.EditPaste();
}

bool ControlMenu::Print(bool direct) {
    return m_control.Print(direct);
}

void ControlMenu::OnProperties() {
    m_control.OnProperties(::GetParent(m_control.Window()));
}

void ControlMenu::SetGuiMode(bool mode) {
    m_control.SetGuiMode(mode);
}

bool ControlMenu::GuiDesignMode() {
    return m_control.GuiDesignMode();
}

void ControlMenu::SetGuiDesignMode(bool mode) {
    m_control.SetGuiDesignMode(mode);
}

void ControlMenu::ShowTabOrderDlg() {
    m_control.ShowTabOrderDlg();
}

void ControlMenu::ShowToolbox(bool show) {
    m_control.ShowToolbox(show);
}

void ControlMenu::PostCommandToParent(std::int32_t command) {
    if (const HWND parent = ::GetParent(m_control.Window())) {
        ::PostMessageW(parent, WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
}

}  // namespace veygrid
