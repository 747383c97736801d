// What the sheet, its selection, its operations and its file ask of the control, passed on to it.
#include "control/HostAdapter.h"

#include "binding/DataSourceText.h"
#include "control/MessageBox.h"
#include "control/RegisteredMessages.h"
#include "control/VeyGridCtrl.h"
#include "control/VeyGridEvents.h"
#include "screen/Invalidation.h"

namespace veygrid {

void HostAdapter::SetModifiedFlag(bool modified) {
    m_control.Sheet().Changed();
    m_control.SetModifiedFlag(modified);
}

void HostAdapter::FireModified() {
    m_control.FireEvent(event::Modified);
}

void HostAdapter::InvalidateControl() {
    m_control.Sheet().Changed();
    m_control.InvalidateControl();
}

void HostAdapter::InvalidateCell(CellPos cell) {
    m_control.Sheet().Invalidate(CellRegion(View(), cell));
}
void HostAdapter::InvalidateRowHeaderStrip(std::int32_t row) {
    m_control.Sheet().Invalidate(RowHeaderRegion(View(), row));
}
void HostAdapter::InvalidateColHeaderStrip(std::int32_t col) {
    m_control.Sheet().Invalidate(ColHeaderRegion(View(), col));
}
void HostAdapter::InvalidateActiveRowStrip(std::int32_t row) {
    m_control.Sheet().Invalidate(ActiveRowRegion(View(), row));
}
void HostAdapter::InvalidateActiveCellAreas(CellPos cell) {
    m_control.Sheet().Invalidate(ActiveCellRegions(View(), cell));
}
void HostAdapter::InvalidateHeaderCorner() {
    m_control.Sheet().Invalidate(HeaderCornerRegion(View()));
}
void HostAdapter::UpdateScrollBars() {
    m_control.Sheet().UpdateScrollBars();
}
const Layout& HostAdapter::View() const {
    return m_control.Sheet().View();
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

void HostAdapter::ShowSheetMessage(std::string_view text, std::int32_t style) {
    ShowMessageBox(m_control, nullptr, text, style);
}

void HostAdapter::ShowFileMessage(std::string_view text, std::int32_t style) {
    ShowMessageBox(m_control, m_control.DialogOwner(), text, style);
}

RecordDeletion HostAdapter::DeleteBoundRecord() {
    return m_control.Query().DeleteBoundRecord();
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
