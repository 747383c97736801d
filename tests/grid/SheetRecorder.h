// A sheet without a window, and the record of what it asks of the control, one line a call.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "grid/RowColumnOperations.h"
#include "grid/Selection.h"
#include "grid/StoreWatcher.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

using Lines = std::vector<std::string>;

inline std::string Text(CellPos cell) {
    return std::to_string(cell.Row) + "," + std::to_string(cell.Col);
}

class SheetRecorder : public StoreWatcher, public SelectionHost, public RowColumnHost {
  public:
    // What the control and its host answer.
    bool hasWindow = false;
    std::int16_t allowChange = 1;
    std::int32_t saveAnswer = 1;
    RecordDeletion deletion = RecordDeletion::Deleted;
    Selection* handler = nullptr;

    Lines Take() { return std::exchange(m_lines, {}); }

    void SetModifiedFlag(bool modified) override {
        Add(modified ? "SetModifiedFlag TRUE" : "SetModifiedFlag FALSE");
    }
    void FireModified() override { Add("Modified"); }
    void InvalidateControl() override { Add("InvalidateControl"); }
    void InvalidateCell(CellPos cell) override { Add("InvalidateCell " + Text(cell)); }
    void InvalidateRowHeaderStrip(std::int32_t row) override {
        Add("InvalidateRowHeaderStrip " + std::to_string(row));
    }
    void InvalidateColHeaderStrip(std::int32_t col) override {
        Add("InvalidateColHeaderStrip " + std::to_string(col));
    }
    void UpdateScrollBars() override { Add("UpdateScrollBars"); }
    void PostCellSelChange(std::int32_t row, std::int32_t col) override {
        Add("PostCellSelChange " + Text({row, col}));
    }

    bool HasWindow() override { return hasWindow; }
    void FireCellSelChanging(std::int32_t newRow, std::int32_t newCol,
                             std::int16_t& allow) override {
        Add("CellSelChanging " + Text({newRow, newCol}) + " " + std::to_string(allow));
        allow = allowChange;
    }
    void FireCellSelChanged() override { Add("CellSelChanged"); }
    std::int32_t SendCellSelChange(std::int32_t row, std::int32_t col) override {
        Add("SendCellSelChange " + Text({row, col}));
        return handler == nullptr ? CellSelChangeDone : handler->OnCellSelChange(row, col);
    }
    void InvalidateActiveRowStrip(std::int32_t row) override {
        Add("InvalidateActiveRowStrip " + std::to_string(row));
    }
    void InvalidateActiveCellAreas(CellPos cell) override {
        Add("InvalidateActiveCellAreas " + Text(cell));
    }
    void InvalidateHeaderCorner() override { Add("InvalidateHeaderCorner"); }
    std::int32_t SaveRecord(std::int32_t wParam, std::int32_t lParam) override {
        Add("SaveRecord " + Text({wParam, lParam}));
        return saveAnswer;
    }
    void ShowMessage(std::string_view text, std::int32_t style) override {
        Add("ShowMessage " + std::to_string(style) + " " + Utf8FromCodePage936(text));
    }
    RecordDeletion DeleteBoundRecord() override {
        Add("DeleteBoundRecord");
        return deletion;
    }
    void RebuildDataSource() override { Add("RebuildDataSource"); }
    void RunQuery(std::int16_t getAllRecords) override {
        Add("RunQuery " + std::to_string(getAllRecords));
    }

  protected:
    void Add(std::string line) { m_lines.push_back(std::move(line)); }

  private:
    Lines m_lines;
};

// A new control's sheet, its selection and its operations.
class SheetTest : public testing::Test {
  protected:
    SheetTest() { recorder.handler = &selection; }

    // The calls of an action alone.
    template <class Action>
    Lines CallsOf(Action action) {
        recorder.Take();
        action();
        return recorder.Take();
    }

    SheetRecorder recorder;
    GridStore store{recorder};
    Selection selection{store, recorder};
    RowColumnOperations operations{store, selection, recorder};
};

template <class Value>
std::vector<CellPos> KeysOf(const GridMap<Value>& map) {
    std::vector<CellPos> keys;
    for (const auto& [key, value] : map) {
        keys.push_back(key);
    }
    return keys;
}

}  // namespace veygrid
