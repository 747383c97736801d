// Writes what the modification log and the pending rows tell into the database, whole or not at
// all.
#pragma once

#include "apps/host/odbc/PendingRows.h"
#include "apps/host/odbc/SqlRunner.h"
#include "apps/host/odbc/UpdateTarget.h"

namespace veygrid {

// An entry of the modification log. Column 0: the whole row; row 0: the whole column.
struct LogEntry {
    long row;
    int col;
};

// What saving asks of the sheet.
class ChangedSheet {
  public:
    virtual std::vector<LogEntry> ModifiedLog() = 0;
    // The text that the sheet itself holds at a cell, not the dataset's; empty when it holds none.
    virtual std::u16string TypedText(long row, int col) = 0;
    // Whether the column's `KeyColumnFlag` is 1.
    virtual bool IsKeyColumn(int col) = 0;
    virtual void ResetModifiedLog() = 0;

  protected:
    ~ChangedSheet() = default;
};

struct SaveResult {
    bool saved = false;
    // The sheet's row that was refused; 0 when it was none in particular.
    long row = 0;
    // For the user, with the row named; empty when saved.
    std::u16string reason;
    bool connectionLost = false;
    long updated = 0;
    long inserted = 0;
    long deleted = 0;
};

class ChangeSaver {
  public:
    // All of them must live longer.
    ChangeSaver(SqlRunner& runner, const UpdateTarget& target, PendingRows& rows,
                ChangedSheet& sheet)
        : m_runner(runner), m_target(target), m_rows(rows), m_sheet(sheet) {}

    // One transaction: deleted rows, then changed ones in the order of the sheet, then appended
    // ones. After the commit the pending rows and the log are emptied; the caller reads the query
    // anew. A refusal leaves the database, the log and the pending rows as they were. Errors of the
    // sheet pass through; after the commit they can only come of ResetModifiedLog.
    SaveResult Save();

  private:
    SqlRunner& m_runner;
    const UpdateTarget& m_target;
    PendingRows& m_rows;
    ChangedSheet& m_sheet;
};

}  // namespace veygrid
