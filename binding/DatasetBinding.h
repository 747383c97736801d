// The dataset that a host binds to the sheet: bound, replaced, let go, and the columns named by it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "grid/Dataset.h"
#include "grid/GridStore.h"

namespace veygrid {

// Stands between the sheet and the dataset. Any call of the dataset runs code of the host, which
// may bind another one: a dataset that is let go while it answers lives until its answer is
// through. Nothing is caught; a dataset that fails while it is bound stays bound.
class DatasetBinding final : private Dataset {
  public:
    // Names are asked for up to this column, however many the dataset says it has.
    static constexpr std::int32_t MostNamedCols = 65535;

    // The store must outlive the binding.
    explicit DatasetBinding(GridStore& store) : m_store(store) {}
    DatasetBinding(const DatasetBinding&) = delete;
    DatasetBinding& operator=(const DatasetBinding&) = delete;
    ~DatasetBinding() override { Release(); }

    // Lets the former dataset go and takes the size of the sheet and the names of its columns from
    // the new one; null gives 1 row and 20 columns and leaves the names. A binding that the host's
    // code replaces on the way ends there.
    void BindDataset(const std::shared_ptr<Dataset>& dataset);
    // Names the columns after the dataset, asking for their number afresh for each.
    void RefreshColumnNames();
    // Lets the dataset go and leaves the sheet as it is.
    void Release();

  private:
    std::string GetCellValue(std::int32_t row, std::int32_t col) override;
    std::int32_t GetColCount() override;
    std::int32_t GetRowCount() override;
    std::int32_t SetColCaption(std::int32_t col, std::string_view text) override;
    std::string GetColName(std::int32_t col) override;

    // False when another binding took the place of this one.
    bool TakeShape(const std::shared_ptr<Dataset>& dataset);
    bool TakeNames(const std::shared_ptr<Dataset>& dataset);

    GridStore& m_store;
    std::shared_ptr<Dataset> m_bound;
};

}  // namespace veygrid
