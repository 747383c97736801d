// What the sheet, its selection, its operations and its file ask of the control, passed on to it.
#pragma once

#include <cstdint>
#include <string_view>

#include "grid/RowColumnOperations.h"
#include "grid/Selection.h"
#include "grid/StoreWatcher.h"
#include "persist/GridFile.h"
#include "screen/Layout.h"

namespace veygrid {

class CVeyGridCtrl;

// Tells the messages of the sheet from those of its file, which are asked for by the same name.
class SheetMessages : public SelectionHost, public RowColumnHost {
  public:
    void ShowMessage(std::string_view text, std::int32_t style) final {
        ShowSheetMessage(text, style);
    }
    virtual void ShowSheetMessage(std::string_view text, std::int32_t style) = 0;
};
class FileMessages : public GridFileHost {
  public:
    void ShowMessage(std::string_view text, std::int32_t style) final {
        ShowFileMessage(text, style);
    }
    virtual void ShowFileMessage(std::string_view text, std::int32_t style) = 0;
};

class HostAdapter final : public StoreWatcher, public SheetMessages, public FileMessages {
  public:
    explicit HostAdapter(CVeyGridCtrl& control) : m_control(control) {}

    void SetModifiedFlag(bool modified) override;
    void FireModified() override;
    void InvalidateControl() override;
    void InvalidateCell(CellPos cell) override;
    void InvalidateRowHeaderStrip(std::int32_t row) override;
    void InvalidateColHeaderStrip(std::int32_t col) override;
    void UpdateScrollBars() override;

    bool HasWindow() override;
    void FireCellSelChanging(std::int32_t newRow, std::int32_t newCol,
                             std::int16_t& allowChange) override;
    void FireCellSelChanged() override;
    std::int32_t SendCellSelChange(std::int32_t row, std::int32_t col) override;
    void InvalidateActiveRowStrip(std::int32_t row) override;
    void InvalidateActiveCellAreas(CellPos cell) override;
    void InvalidateHeaderCorner() override;
    std::int32_t SaveRecord(std::int32_t wParam, std::int32_t lParam) override;
    // Without an owner.
    void ShowSheetMessage(std::string_view text, std::int32_t style) override;

    RecordDeletion DeleteBoundRecord() override;
    void RebuildDataSource() override;
    void RunQuery(std::int16_t getAllRecords) override;

    void ShowFileMessage(std::string_view text, std::int32_t style) override;
    std::optional<StoredRect> ParentWindowRect() override;
    void PostSizeParentWindow(std::uint32_t leftTop, std::uint32_t widthHeight) override;

  private:
    const Layout& View() const;

    CVeyGridCtrl& m_control;
};

}  // namespace veygrid
