// The host's connection to a database, and the query that its first control shows.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "apps/host/BoundSheet.h"
#include "apps/host/odbc/ChangeSaver.h"
#include "apps/host/odbc/DataAccessObject.h"
#include "apps/host/odbc/QueryDataset.h"

namespace veygrid {

// What the sheet shows is what is saved: a text that the control logs for a cell goes to the
// dataset's record of that row at once, and saving reads it there. The numbers of the sheet's rows
// and columns are those of the records and their columns; when the sheet's own commands move what
// was typed away from its record, the sheet is written anew from the dataset and the user is told.
//
// What cannot be done answers false and leaves a text for the user in Problem.
class DataSession : private ChangedSheet {
  public:
    // `notice` gets what the user must know without having asked for it.
    explicit DataSession(std::function<void(const std::wstring&)> notice)
        : m_notice(std::move(notice)) {}
    DataSession(const DataSession&) = delete;
    DataSession& operator=(const DataSession&) = delete;
    ~DataSession() = default;

    // By an ODBC connection string, in place of the connection before and its query.
    bool Connect(const std::wstring& connection);
    bool IsConnected() const { return m_connection != nullptr; }
    // What a control is handed; null without a connection. The object lives as long as the session.
    DataAccess* Access() { return IsConnected() ? &m_access : nullptr; }

    // The control that shows queries, until Detach, which comes before it is closed.
    void Attach(const Automation& grid);
    void Detach();

    // The statement in the control's DataSource.
    std::wstring Statement() const;
    // Shows the rows of the statement and puts it into DataSource. Changes of the query before are
    // lost. A statement that is no query is carried out and leaves what is on view.
    bool RunQuery(const std::wstring& statement);
    bool HasQuery() const { return m_dataset != nullptr; }
    // Ends an edit in a cell, so that all changes are known; a problem tells of those that are not.
    // False when its text is refused.
    bool Finish();
    // Lets the sheet's modified flag tell of the sheet itself and not of its records.
    void LeaveRecordsOut();
    // Takes the query off the sheet, with its changes.
    void LeaveQuery();

    // One record more behind the last, which becomes active; its row, 0 when there is none.
    long AddRecord();
    bool DeleteRecord(long row);
    long ActiveRow() const;
    // All changes in one transaction. The row that hinders it becomes active.
    bool Save();
    // Forgets all changes and reads the records again.
    bool RollBack();

    long RecordCount() const { return HasQuery() ? m_dataset->RowCount() : 0; }
    // Cells changed, records added and records deleted.
    long ChangeCount() const;
    // How many runs of rows are kept in memory.
    long WindowCount() const;
    // "SQLite · 336 条记录 · 2 处修改"; empty without a connection.
    std::wstring Status() const;
    const std::wstring& Problem() const { return m_problem; }

    // An event of the attached control.
    void OnEvent(const std::wstring& event, const DISPPARAMS& parameters);
    // Whether events come of what the session itself does to the control.
    bool IsBusy() const { return m_sheet && m_sheet->IsBusy(); }
    // Takes over what was written into the sheet, and brings the sheet in step with the records.
    // Comes before whatever a user or a script does next; before one more text is written it is
    // enough to look whether rows or columns were put in or taken out, so that many are taken over
    // at once.
    void Settle(bool isTextNext = false);

  private:
    std::vector<LogEntry> ModifiedLog() override;
    std::u16string TypedText(long row, int col) override;
    bool IsKeyColumn(int col) override { return m_sheet->KeyFlag(col) == 1; }
    void ResetModifiedLog() override { m_sheet->ForgetTyped(); }

    template <typename Work>
    bool Try(const Work& work);
    bool Refuse(const std::wstring& problem);
    bool Begin();
    void Show(ComPtr<QueryDataset> dataset, const std::wstring& statement);
    void DescribeColumns();
    void ReadAgain();
    // Looks at what was logged only when thorough, else at the number of rows and columns alone.
    void LookAtSheet(bool isThorough);
    bool IsInStep(bool isThorough) const;
    void BringInStep();
    void KeepKeyFlags();
    std::vector<BoundSheet::Typed> PendingTexts() const;
    // How many of them were not known.
    long TakeLoggedTexts();
    bool HasCell(SheetCell cell) const;
    void TakeText(SheetCell cell, const std::wstring& text);

    std::function<void(const std::wstring&)> m_notice;
    std::wstring m_problem;
    std::wstring m_untold;  // of a failure to read, which comes to light while the control paints
    DataAccessObject m_access;
    std::shared_ptr<Connection> m_connection;
    std::unique_ptr<BoundSheet> m_sheet;
    ComPtr<QueryDataset> m_dataset;
    std::wstring m_statement;      // that the dataset shows
    std::vector<long> m_keyFlags;  // of the columns, as they were when the sheet was in step
    SheetCell m_edited;            // where the open edit began
    std::optional<BoundSheet::Typed>
        m_candidate;  // a typed text that the control has not taken yet
    // How often something was written that is not taken over yet.
    long m_unknownWrites = 0;
    bool m_isSettling = false;
    bool m_isModified = false;  // the sheet apart from its records
};

}  // namespace veygrid
