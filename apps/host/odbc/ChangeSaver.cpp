// Writes what the modification log and the pending rows tell into the database.
#include "apps/host/odbc/ChangeSaver.h"

#include <algorithm>
#include <map>

#include "apps/host/odbc/OdbcError.h"
#include "apps/host/odbc/SaveTexts.h"
#include "apps/host/odbc/StatementText.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

struct Refusal {
    long row;
    std::u16string reason;
    bool connectionLost;
};

std::u16string Number(long number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}
std::u16string NameOfRow(long row) {
    return std::u16string(SaveTexts::RowBegin) + Number(row) + std::u16string(SaveTexts::RowEnd);
}
[[noreturn]] void Refuse(long row, std::u16string_view reason) {
    throw Refusal{row, (row > 0 ? NameOfRow(row) : u"") + std::u16string(reason), false};
}
[[noreturn]] void RefuseColumn(long row, std::u16string_view name, std::u16string_view reason) {
    Refuse(row, std::u16string(SaveTexts::ColumnBegin) + std::u16string(name) +
                    std::u16string(SaveTexts::ColumnEnd) + std::u16string(reason));
}

Refusal RefusalOf(const OdbcError& error, long row, const std::u16string& who,
                  std::u16string_view what) {
    const bool lost = error.ConnectionLost();
    return {row, who + std::u16string(lost ? SaveTexts::ConnectionLost : what) + error.Text(),
            lost};
}

// Characters that stand in code page 936 for certain.
bool IsPlain(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char16_t c) { return c < 0x80 || (c >= u'\u4E00' && c <= u'\u9FA5'); });
}

// The sheet shows a text as code page 936 holds it: what reads so was not typed.
bool SameToTheSheet(std::u16string_view read, std::u16string_view typed) {
    return read == typed ||
           (!IsPlain(read) && Utf16FromCodePage936(CodePage936FromUtf16(read)) == typed);
}

// The places that changed.
class Changes {
  public:
    Changes(PendingRows& rows, ChangedSheet& sheet) : m_rows(rows), m_sheet(sheet) {
        for (const LogEntry& entry : m_sheet.ModifiedLog()) {
            AddEntry(entry);
        }
        if (!std::is_sorted(m_changed.begin(), m_changed.end())) {
            std::sort(m_changed.begin(), m_changed.end());
        }
        const std::vector<long> pending = m_rows.ChangedRows();
        const auto middle = static_cast<std::ptrdiff_t>(m_changed.size());
        m_changed.insert(m_changed.end(), pending.begin(), pending.end());
        std::inplace_merge(m_changed.begin(), m_changed.begin() + middle, m_changed.end());
        m_changed.erase(std::unique(m_changed.begin(), m_changed.end()), m_changed.end());
    }

    // Ascending.
    const std::vector<long>& Rows() const { return m_changed; }

    // The changed texts of a row. What the user sees there goes before what the sheet holds behind
    // it. Good until the next call.
    const PendingRows::Texts& TextsOf(long row) {
        const PendingRows::Texts* const pending = m_rows.PendingTexts(row);
        const auto typed = m_typed.find(row);
        if (typed == m_typed.end()) {
            m_merged.clear();
            return pending != nullptr ? *pending : m_merged;
        }
        m_merged = pending != nullptr ? *pending : PendingRows::Texts();
        m_merged.insert(typed->second.begin(), typed->second.end());
        return m_merged;
    }

  private:
    void AddEntry(const LogEntry& entry) {
        if (entry.row < 1) {
            Refuse(0, SaveTexts::ColumnMode);
        }
        if (entry.row > m_rows.RowCount() || entry.col > m_rows.ColCount() || entry.col < 0) {
            Refuse(entry.row, SaveTexts::NoSuchCell);
        }
        m_changed.push_back(entry.row);
        if (entry.col > 0) {
            AddTyped(entry.row, entry.col, true);
            return;
        }
        for (int col = 1; col <= m_rows.ColCount(); ++col) {
            AddTyped(entry.row, col, false);
        }
    }
    // Where only the row is known, a cell that the sheet holds no text of was not typed into.
    void AddTyped(long row, int col, bool evenEmpty) {
        const PendingRows::Texts* const pending = m_rows.PendingTexts(row);
        if (pending != nullptr && pending->count(col) != 0) {
            return;
        }
        std::u16string text = m_sheet.TypedText(row, col);
        if (evenEmpty || !text.empty()) {
            m_typed[row].try_emplace(col, std::move(text));
        }
    }

    PendingRows& m_rows;
    ChangedSheet& m_sheet;
    std::vector<long> m_changed;
    std::map<long, PendingRows::Texts> m_typed;
    PendingRows::Texts m_merged;
};

// A transaction that begins with its first statement and is rolled back unless it was committed.
class Transaction {
  public:
    explicit Transaction(SqlRunner& runner) : m_runner(runner) {}
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction() {
        if (m_open) {
            try {
                m_runner.Rollback();
            } catch (const OdbcError&) {
                // With the connection gone, the database rolls back by itself.
            }
        }
    }

    std::int64_t Execute(const BoundStatement& statement) {
        if (!m_open) {
            m_runner.Begin();
            m_open = true;
        }
        return m_runner.Execute(statement);
    }
    void Commit() {
        if (m_open) {
            m_runner.Commit();
            m_open = false;
        }
    }

  private:
    SqlRunner& m_runner;
    bool m_open = false;
};

// Writes change after change.
class Writer {
  public:
    Writer(SqlRunner& runner, const UpdateTarget& target, PendingRows& rows, ChangedSheet& sheet)
        : m_transaction(runner), m_target(target), m_rows(rows), m_sheet(sheet) {}

    SaveResult WriteAll() {
        Changes changes(m_rows, m_sheet);
        const std::vector<long>& changed = changes.Rows();
        if (m_target.table.empty() && (!changed.empty() || m_rows.HasPending())) {
            Refuse(changed.empty() ? 0 : changed.front(), SaveTexts::ReadOnly);
        }
        for (const auto& [source, record] : m_rows.Deleted()) {
            Delete(record);
        }
        for (const long row : changed) {
            m_rows.IsAppended(row) ? Insert(row, changes.TextsOf(row))
                                   : Update(row, changes.TextsOf(row));
        }
        Commit();
        m_result.saved = true;
        return m_result;
    }

  private:
    const ColumnInfo& Column(int col) const {
        return m_target.columns[static_cast<std::size_t>(col - 1)];
    }
    // Throws when the column cannot be written.
    const ColumnInfo& Writable(long row, int col) const {
        const ColumnInfo& column = Column(col);
        if (column.base.empty()) {
            RefuseColumn(row, column.name, SaveTexts::ReadOnlyColumn);
        }
        if (column.binary) {
            RefuseColumn(row, column.name, SaveTexts::BinaryColumn);
        }
        return column;
    }

    const std::vector<int>& Keys(long row) {
        if (m_keys.empty()) {
            for (int col = 1; col <= m_rows.ColCount(); ++col) {
                if (m_sheet.IsKeyColumn(col)) {
                    Writable(row, col);
                    m_keys.push_back(col);
                }
            }
        }
        if (m_keys.empty()) {
            TakePrimaryKey(row);
        }
        return m_keys;
    }
    void TakePrimaryKey(long row) {
        if (m_target.primaryKey.empty()) {
            Refuse(row, SaveTexts::NoKey);
        }
        for (const std::u16string& name : m_target.primaryKey) {
            const auto found = std::find_if(m_target.columns.begin(), m_target.columns.end(),
                                            [&](const ColumnInfo& c) { return c.base == name; });
            if (found == m_target.columns.end()) {
                m_keys.clear();
                Refuse(row, SaveTexts::KeyNotShown);
            }
            m_keys.push_back(static_cast<int>(found - m_target.columns.begin()) + 1);
        }
    }
    const std::vector<ColumnValue>& KeyValues(long row, const Record& record) {
        m_keyValues.clear();
        for (const int col : Keys(row)) {
            const CellValue& value = record[static_cast<std::size_t>(col - 1)];
            if (!value) {
                RefuseColumn(row, Column(col).name, SaveTexts::EmptyKey);
            }
            m_keyValues.push_back({&Column(col), value});
        }
        return m_keyValues;
    }

    void Update(long row, const PendingRows::Texts& texts) {
        const Record& record = m_rows.SourceRecord(row);
        m_changed.clear();
        m_before.clear();
        for (const auto& [col, text] : texts) {
            const CellValue& read = record[static_cast<std::size_t>(col - 1)];
            if (!SameToTheSheet(read ? std::u16string_view(*read) : u"", text)) {
                const ColumnInfo& column = Writable(row, col);
                m_changed.push_back({&column, ValueOf(column, text)});
                m_before.push_back({&column, read});
            }
        }
        if (!m_changed.empty()) {
            MakeUpdate(m_statement, m_target.table, m_changed, {KeyValues(row, record), m_before},
                       m_target.database);
            Carry(row, {});
            ++m_result.updated;
        }
    }
    // Cells left empty take what the table gives them.
    void Insert(long row, const PendingRows::Texts& texts) {
        std::vector<ColumnValue> values;
        for (const auto& [col, text] : texts) {
            if (!text.empty()) {
                values.push_back({&Writable(row, col), text});
            }
        }
        if (!values.empty()) {
            MakeInsert(m_statement, m_target.table, values, m_target.database);
            Carry(row, {});
            ++m_result.inserted;
        }
    }
    // Whoever deletes a record has seen all of it.
    void Delete(const Record& record) {
        const std::vector<ColumnValue>& keys = KeyValues(0, record);
        std::vector<ColumnValue> others;
        for (std::size_t i = 0; i < m_target.columns.size(); ++i) {
            const ColumnInfo& column = m_target.columns[i];
            if (!column.base.empty() && !column.binary) {
                others.push_back({&column, record[i]});
            }
        }
        MakeDelete(m_statement, m_target.table, {keys, others}, m_target.database);
        Carry(0, keys);
        ++m_result.deleted;
    }
    static std::u16string NameOfDeleted(const std::vector<ColumnValue>& keys) {
        std::u16string name(SaveTexts::DeletedBegin);
        for (const ColumnValue& key : keys) {
            name += (&key == keys.data() ? u"" : u", ") + key.column->name + u'=' +
                    std::u16string(key.value.value_or(u""));
        }
        return name += SaveTexts::DeletedEnd;
    }
    CellView ValueOf(const ColumnInfo& column, std::u16string_view text) const {
        return text.empty() && !HoldsText(column, m_target.database) ? CellView() : text;
    }
    // `keys` name a deleted record, which has no row.
    void Carry(long row, const std::vector<ColumnValue>& keys) {
        const auto who = [&] { return row > 0 ? NameOfRow(row) : NameOfDeleted(keys); };
        try {
            const std::int64_t touched = m_transaction.Execute(m_statement);
            if (touched != 1) {
                const auto reason = touched == 0 ? SaveTexts::Changed : SaveTexts::NotUnique;
                throw Refusal{row, who() + std::u16string(reason), false};
            }
        } catch (const OdbcError& error) {
            throw RefusalOf(error, row, who(), SaveTexts::Refused);
        }
    }
    void Commit() {
        try {
            m_transaction.Commit();
        } catch (const OdbcError& error) {
            throw RefusalOf(error, 0, {}, SaveTexts::CommitRefused);
        }
    }

    Transaction m_transaction;
    SaveResult m_result;
    const UpdateTarget& m_target;
    PendingRows& m_rows;
    ChangedSheet& m_sheet;
    std::vector<int> m_keys;
    // Of the present record, kept for their storage.
    BoundStatement m_statement;
    std::vector<ColumnValue> m_keyValues;
    std::vector<ColumnValue> m_changed;
    std::vector<ColumnValue> m_before;
};

}  // namespace

SaveResult ChangeSaver::Save() {
    SaveResult result;
    try {
        if (m_runner.InTransaction()) {
            Refuse(0, SaveTexts::OpenTransaction);
        }
        result = Writer(m_runner, m_target, m_rows, m_sheet).WriteAll();
    } catch (const Refusal& refusal) {
        result.row = refusal.row;
        result.reason = refusal.reason;
        result.connectionLost = refusal.connectionLost;
        return result;
    } catch (const OdbcError& error) {
        // Reading what stood there failed.
        result.reason = RefusalOf(error, 0, {}, SaveTexts::Refused).reason;
        result.connectionLost = error.ConnectionLost();
        return result;
    }
    m_rows.ClearPending();
    m_sheet.ResetModifiedLog();
    return result;
}

}  // namespace veygrid
