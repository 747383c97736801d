// The dataset object that the control binds: a query's rows with the pending changes over them.
#pragma once

#include <functional>
#include <memory>

#include "apps/host/ComObject.h"
#include "apps/host/Variant.h"
#include "apps/host/odbc/PendingRows.h"
#include "apps/host/odbc/QueryRows.h"

namespace veygrid {

// Its members, callable by their names too: GetCellValue (3), GetColCount (7), GetRowCount (8),
// SetColCaption (9), GetColName (10).
//
// A cell of NULL is an empty variant, which becomes an empty text. When rows cannot be read, the
// error is kept and told once; until Reload their cells read as empty and the database is not
// asked again, so that a lost connection does not hold up every repaint.
class QueryDataset final : public ComObject<IDispatch> {
  public:
    using FaultHandler = std::function<void(const OdbcError&)>;

    // Throws OdbcError when the database refuses the statement.
    QueryDataset(std::shared_ptr<Connection> connection, std::u16string_view statement)
        : m_query(connection, statement), m_rows(m_query), m_connection(std::move(connection)) {}

    void WhenFaulty(FaultHandler handler) { m_whenFaulty = std::move(handler); }
    const OdbcError* Fault() const { return m_fault.get(); }

    long RowCount() const { return m_rows.RowCount(); }
    int ColCount() const { return m_rows.ColCount(); }
    // The caption that was given, else the query's name; empty outside.
    std::u16string ColName(int col) const;
    // False for a column outside, or a caption that is empty.
    bool SetColCaption(int col, std::u16string_view caption);
    CellValue CellText(long row, int col);

    // As PendingRows has them; errors of reading are thrown.
    bool SetPending(long row, int col, std::u16string text) {
        return m_rows.SetPending(row, col, std::move(text));
    }
    long AppendRow() { return m_rows.AppendRow(); }
    bool DeleteRow(long row) { return m_rows.DeleteRow(row); }
    void ClearPending() { m_rows.ClearPending(); }
    bool HasPending() const { return m_rows.HasPending(); }
    bool IsAppended(long row) const { return m_rows.IsAppended(row); }
    const Record& SourceRecord(long row) { return m_rows.SourceRecord(row); }

    // Reads the rows anew, beginning with their number; pending changes must be saved or cleared
    // before, for rows may have other places then. Throws OdbcError and leaves the dataset faulty.
    void Reload();

    Connection& Database() { return *m_connection; }
    QueryRows& Query() { return m_query; }
    PendingRows& Rows() { return m_rows; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;

  private:
    Variant Answer(DISPID id, DISPPARAMS& parameters);
    void KeepFault(const OdbcError& error);

    QueryRows m_query;
    PendingRows m_rows;
    std::shared_ptr<Connection> m_connection;
    std::map<int, std::u16string> m_captions;
    std::unique_ptr<OdbcError> m_fault;
    FaultHandler m_whenFaulty;
};

}  // namespace veygrid
