// What saving needs of a connection.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/host/odbc/Record.h"

namespace veygrid {

// A statement with its values, one for each "?" in their order. The texts behind the values must
// live until it was carried out.
struct BoundStatement {
    std::u16string text;
    std::vector<CellView> values;
};

// Each call throws OdbcError when the database refuses it.
class SqlRunner {
  public:
    virtual bool InTransaction() const = 0;
    virtual void Begin() = 0;
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
    // The number of rows that the statement touched.
    virtual std::int64_t Execute(const BoundStatement& statement) = 0;

  protected:
    ~SqlRunner() = default;
};

}  // namespace veygrid
