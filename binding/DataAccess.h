// The data-access object that a host hands to the control: the live connection behind a query.
#pragma once

#include <cstdint>

namespace veygrid {

// The cells of the batch that was fetched last.
class ResultCellMap {
  public:
    // The text of a cell in code page 936, ended by a zero byte, good until the next fetch; null
    // for a cell that the batch does not have. The key is the row within the batch in the high 16
    // bits and the column in the low 16 bits, both 1-based.
    virtual const char* Find(std::uint32_t key) const = 0;

  protected:
    ~ResultCellMap() = default;
};

// The host owns the object, which must outlive every control that it was handed to; the control
// calls it on its window's thread only. The operations stand in this order in the object's table,
// the two fields directly behind the pointer to it, so that hosts of any compiler can hand one out.
class DataAccess {
  public:
    // Fetches the next batch into `ResultCells`; -1 lets the object choose the number of rows. The
    // number of rows that it holds now, 0 or less when there are no more.
    virtual std::int32_t FetchRows(std::int16_t count) = 0;
    virtual void RollbackTrans() = 0;
    virtual void CommitTrans() = 0;
    // Runs one statement, in code page 936 and ended by a zero byte; non-zero on success.
    virtual std::int32_t ExecuteSql(const char* statement) = 0;

    // Non-zero while the object has a live connection.
    std::int32_t Connected = 0;
    const ResultCellMap* ResultCells = nullptr;

  protected:
    ~DataAccess() = default;
};

}  // namespace veygrid
