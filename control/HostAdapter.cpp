// What the sheet, its selection, its operations and its file ask of the control, passed on to it.
#include "control/HostAdapter.h"

#include "binding/DataSourceText.h"
#include "control/RegisteredMessages.h"
#include "control/VeyGridCtrl.h"
#include "control/VeyGridEvents.h"
#include "grid/Messages.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

void HostAdapter::SetModifiedFlag(bool modified) {
    m_control.SetModifiedFlag(modified);
}

void HostAdapter::FireModified() {
    m_control.FireEvent(event::Modified);
}

void HostAdapter::InvalidateControl() {
    m_control.InvalidateControl();
}

// The sheet has no picture of its parts yet, so that a part stands for the whole.
void HostAdapter::InvalidateCell(CellPos) {
    m_control.InvalidateControl();
}
void HostAdapter::InvalidateRowHeaderStrip(std::int32_t) {
    m_control.InvalidateControl();
}
void HostAdapter::InvalidateColHeaderStrip(std::int32_t) {
    m_control.InvalidateControl();
}
void HostAdapter::InvalidateActiveRowStrip(std::int32_t) {
    m_control.InvalidateControl();
}
void HostAdapter::InvalidateActiveCellAreas(CellPos) {
    m_control.InvalidateControl();
}
void HostAdapter::InvalidateHeaderCorner() {
    m_control.InvalidateControl();
}

bool HostAdapter::HasWindow() {
    return m_control.Window() != nullptr;
}

void HostAdapter::FireCellSelChanging(std::int32_t newRow, std::int32_t newCol,
                                      std::int16_t& allowChange) {
    m_control.FireEvent(event::CellSelChanging, newRow, newCol, &allowChange);
}

void HostAdapter::FireCellSelChanged() {
    m_control.FireEvent(event::CellSelChanged);
}

std::int32_t HostAdapter::SendCellSelChange(std::int32_t row, std::int32_t col) {
    return static_cast<std::int32_t>(
        ::SendMessageW(m_control.Window(), NumberOf(Message::CellSelChange),
                       static_cast<WPARAM>(row), static_cast<LPARAM>(col)));
}

std::int32_t HostAdapter::SaveRecord(std::int32_t, std::int32_t) {
    return m_control.SaveRecord();
}

void HostAdapter::ShowMessage(std::string_view text, std::int32_t style) {
    const KeepAlive keep(m_control);
    ::MessageBoxW(m_control.DialogOwner(), WideFromText(text).c_str(),
                  WideFromText(MessageCaption).c_str(), static_cast<UINT>(style));
}

void HostAdapter::RebuildDataSource() {
    veygrid::RebuildDataSource(m_control.Store());
}
void HostAdapter::RunQuery(std::int16_t getAllRecords) {
    m_control.RunQuery(getAllRecords);
}
std::optional<StoredRect> HostAdapter::ParentWindowRect() {
    const HWND parent = m_control.Window() == nullptr ? nullptr : ::GetParent(m_control.Window());
    RECT rect{};
    if (parent == nullptr || !::GetWindowRect(parent, &rect)) {
        return std::nullopt;
    }
    return StoredRect{rect.left, rect.top, rect.right, rect.bottom};
}

void HostAdapter::PostSizeParentWindow(std::uint32_t leftTop, std::uint32_t widthHeight) {
    ::PostMessageW(::GetParent(m_control.Window()), NumberOf(Message::SizeParentWindow), leftTop,
                   static_cast<LPARAM>(widthHeight));
}

}  // namespace veygrid
