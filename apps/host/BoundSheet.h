// A control's sheet with a dataset bound to it, as the data session works on it.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "apps/host/Automation.h"

namespace veygrid {

// Row and column, 1-based.
using SheetCell = std::pair<long, long>;

// What the control does in answer to these calls is not the user's doing: the modified flag stays
// as it was, and IsBusy is true for the length of each, so that events of the control can be told
// apart. Each call throws ComFault when the control refuses it.
class BoundSheet {
  public:
    explicit BoundSheet(const Automation& grid) : m_grid(grid) {}
    BoundSheet(const BoundSheet&) = delete;
    BoundSheet& operator=(const BoundSheet&) = delete;

    bool IsBusy() const { return m_depth > 0; }

    // Binds the dataset in place of the one before, with as many rows and columns as it has; null
    // leaves a plain sheet. The control gets a reference of its own.
    void Bind(IDispatch* dataset);

    // Whether the sheet has that many rows and columns, and none was put in or taken out since it
    // was bound.
    bool HasSize(long rows, long cols) const;
    long LogMode() const { return m_grid.Get(L"ModifiedLog").Number(); }
    SheetCell ActiveCell() const;
    // The keys of the modification log's entries.
    std::vector<SheetCell> LoggedCells() const;
    // What was typed into the cells, which the bound dataset hides.
    std::vector<std::wstring> TypedTexts(const std::vector<SheetCell>& cells);

    // Ends an edit in a cell; false when its text is refused.
    bool EndEdit();
    // Empties the log and takes away what was typed into its cells.
    void ForgetTyped();
    struct Typed {
        SheetCell cell;
        std::wstring text;
    };
    // Follows the dataset, with these texts typed and logged in place of all others.
    void Rewrite(const std::vector<Typed>& texts);
    // Takes the row out with what was typed there and moves what is below up.
    void RemoveRow(long row);
    // Takes the rows of the bound dataset for the sheet's again.
    void FollowDataset();
    // Makes the cell the active one and shows it.
    void GoTo(SheetCell cell);

    void SetLogMode(long mode);
    // Gives these to a column that has no type and flag of its own; a format that it has stays.
    struct Column {
        long type;      // its ColType
        long dataType;  // what may be typed into it; that of the type where it is 0
        bool isKey;
    };
    void DescribeColumn(long number, const Column& column);
    long KeyFlag(long column) const {
        return m_grid.Get(L"KeyColumnFlag", {Variant::Of(column)}).Number();
    }
    void SetKeyFlag(long column, long flag);
    std::wstring DataSource() const { return m_grid.Get(L"DataSource").Text(); }
    // Names the columns, so that a dataset must be followed anew.
    void SetDataSource(const std::wstring& statement) {
        m_grid.Put(L"DataSource", Variant::Of(statement));
    }
    void SetModified(bool isModified) { m_grid.Put(L"Modified", Variant::Of(isModified)); }
    bool IsModified() const { return m_grid.Get(L"Modified").Truth(); }

  private:
    void MarkEnd();

    // Stands while the session itself works on the control.
    class Work;

    bool HasOwnFormat(long column) const;

    Automation m_grid;
    ComPtr<IDispatch> m_dataset;
    int m_depth = 0;
};

}  // namespace veygrid
