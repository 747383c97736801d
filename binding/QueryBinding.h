// The sheet and the data-access object behind its query: rows fetched in batches, records deleted.
#pragma once

#include <cstdint>

#include "binding/DataAccess.h"
#include "grid/GridStore.h"
#include "grid/RowColumnOperations.h"

namespace veygrid {

// All of it rests until a data layer of the host wakes it: by `QueryBound` of the sheet the
// deletion of records, by `RowsComplete` the fetching. Nothing here ever does.
class QueryBinding {
  public:
    // The store must outlive the binding.
    explicit QueryBinding(GridStore& store) : m_store(store) {}
    QueryBinding(const QueryBinding&) = delete;
    QueryBinding& operator=(const QueryBinding&) = delete;

    // Not owned; null where the host hands none out.
    veygrid::DataAccess* DataAccess = nullptr;
    // No more rows are to be fetched.
    bool RowsComplete = true;
    // Handed to each fetch as it stands.
    std::int16_t FetchCount = -1;

    // Whether a control that is made now runs its query.
    bool RunsQueryAtCreation() const;

    bool HasMoreRecords() const { return DataAccess != nullptr && !RowsComplete; }
    // Fetches the next batch and writes it behind `MaxRow`, which grows by its rows. False, with
    // the sheet as it was and `RowsComplete` set, when there are no more.
    bool AppendNextRecords();

    // Deletes the record of the active row from each table of the query, up to the first failure;
    // what was deleted until then stays so unless `AutoCommit` rolls it back.
    RecordDeletion DeleteBoundRecord();

  private:
    // Behind the row `before`.
    void WriteBatch(std::int32_t before, std::int32_t rows);
    RecordDeletion DeleteFrom(std::string_view table);

    GridStore& m_store;
};

}  // namespace veygrid
