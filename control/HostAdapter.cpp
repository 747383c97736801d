// What the sheet, its selection, its operations and its file ask of the control, passed on to it.
#include "control/HostAdapter.h"

#include "binding/DataSourceText.h"
#include "control/VeyGridCtrl.h"

namespace veygrid {

void HostAdapter::SetModifiedFlag(bool modified) {
    m_control.SetModifiedFlag(modified);
}

void HostAdapter::FireModified() {}

void HostAdapter::InvalidateControl() {}
void HostAdapter::InvalidateCell(CellPos) {}
void HostAdapter::InvalidateRowHeaderStrip(std::int32_t) {}
void HostAdapter::InvalidateColHeaderStrip(std::int32_t) {}
bool HostAdapter::HasWindow() {
    return false;
}
void HostAdapter::FireCellSelChanging(std::int32_t, std::int32_t, std::int16_t&) {}
void HostAdapter::FireCellSelChanged() {}
std::int32_t HostAdapter::SendCellSelChange(std::int32_t row, std::int32_t col) {
    return m_control.Selected().OnCellSelChange(row, col);
}
void HostAdapter::InvalidateActiveRowStrip(std::int32_t) {}
void HostAdapter::InvalidateActiveCellAreas(CellPos) {}
void HostAdapter::InvalidateHeaderCorner() {}
std::int32_t HostAdapter::SaveRecord(std::int32_t, std::int32_t) {
    return 1;
}
void HostAdapter::ShowMessage(std::string_view, std::int32_t) {}
void HostAdapter::RebuildDataSource() {
    veygrid::RebuildDataSource(m_control.Store());
}
void HostAdapter::RunQuery(std::int16_t getAllRecords) {
    m_control.RunQuery(getAllRecords);
}
std::optional<StoredRect> HostAdapter::ParentWindowRect() {
    return std::nullopt;
}
void HostAdapter::PostSizeParentWindow(std::uint32_t, std::uint32_t) {}

}  // namespace veygrid
