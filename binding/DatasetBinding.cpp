// The dataset that a host binds to the sheet: bound, replaced, let go, and the columns named by it.
#include "binding/DatasetBinding.h"

#include <utility>

namespace veygrid {

namespace {

constexpr std::int32_t RowsWithoutDataset = 1;
constexpr std::int32_t ColsWithoutDataset = 20;

}  // namespace

void DatasetBinding::Release() {
    m_store.BoundDataset = nullptr;
    std::exchange(m_bound, nullptr).reset();
}

void DatasetBinding::BindDataset(const std::shared_ptr<Dataset>& dataset) {
    Release();
    // The end of the former dataset may have bound another one, which goes when this is done.
    const std::shared_ptr<Dataset> passedOver = std::exchange(m_bound, dataset);
    if (dataset == nullptr) {
        m_store.BoundDataset = nullptr;
        m_store.Properties.MaxRow = RowsWithoutDataset;
        m_store.Properties.MaxCol = ColsWithoutDataset;
    } else {
        m_store.BoundDataset = this;
        if (!TakeShape(dataset)) {
            return;
        }
    }
    m_store.Watcher().InvalidateControl();
}

bool DatasetBinding::TakeShape(const std::shared_ptr<Dataset>& dataset) {
    const std::int32_t rows = dataset->GetRowCount();
    if (m_bound != dataset) {
        return false;
    }
    m_store.Properties.MaxRow = rows;
    const std::int32_t cols = dataset->GetColCount();
    if (m_bound != dataset) {
        return false;
    }
    m_store.Properties.MaxCol = cols;
    return TakeNames(dataset);
}

// Each name fires an event, whose handler may bind as well.
bool DatasetBinding::TakeNames(const std::shared_ptr<Dataset>& dataset) {
    for (std::int32_t col = 1; col <= MostNamedCols && col <= m_store.Properties.MaxCol; ++col) {
        const std::string name = dataset->GetColName(col);
        if (m_bound != dataset) {
            return false;
        }
        m_store.SetColName(col, name);
        if (m_bound != dataset) {
            return false;
        }
    }
    return true;
}

void DatasetBinding::RefreshColumnNames() {
    for (std::int32_t col = 1; m_bound != nullptr && col <= MostNamedCols; ++col) {
        if (col > GetColCount() || m_bound == nullptr) {
            return;
        }
        m_store.SetColName(col, GetColName(col));
    }
}

std::string DatasetBinding::GetCellValue(std::int32_t row, std::int32_t col) {
    const std::shared_ptr<Dataset> asked = m_bound;
    return asked->GetCellValue(row, col);
}

std::int32_t DatasetBinding::GetColCount() {
    const std::shared_ptr<Dataset> asked = m_bound;
    return asked->GetColCount();
}

std::int32_t DatasetBinding::GetRowCount() {
    const std::shared_ptr<Dataset> asked = m_bound;
    return asked->GetRowCount();
}

std::int32_t DatasetBinding::SetColCaption(std::int32_t col, std::string_view text) {
    const std::shared_ptr<Dataset> asked = m_bound;
    return asked->SetColCaption(col, text);
}

std::string DatasetBinding::GetColName(std::int32_t col) {
    const std::shared_ptr<Dataset> asked = m_bound;
    return asked->GetColName(col);
}

}  // namespace veygrid
