// Writes what the modification log and the pending rows tell into the database.
#include "apps/host/odbc/ChangeSaver.h"

#include <algorithm>
#include <map>
#include <set>

#include "apps/host/odbc/OdbcError.h"
#include "apps/host/odbc/SaveTexts.h"
#include "apps/host/odbc/StatementText.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

struct Refusal {
    long row;
    std::u16string reason;
};

std::u16string Number(long number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}
std::u16string NameOfRow(long row) {
    return std::u16string(SaveTexts::RowBegin) + Number(row) + std::u16string(SaveTexts::RowEnd);
}
[[noreturn]] void Refuse(long row, std::u16string_view reason) {
    throw Refusal{row, (row > 0 ? NameOfRow(row) : u"") + std::u16string(reason)};
}
[[noreturn]] void RefuseColumn(long row, std::u16string_view name, std::u16string_view reason) {
    Refuse(row, std::u16string(SaveTexts::ColumnBegin) + std::u16string(name) +
                    std::u16string(SaveTexts::ColumnEnd) + std::u16string(reason));
}

// The sheet holds code page 936: what differs beyond that alone was not typed.
bool SameToTheSheet(const CellValue& read, const std::u16string& typed) {
    const std::u16string_view text = read ? std::u16string_view(*read) : u"";
    return text == typed || CodePage936FromUtf16(text) == CodePage936FromUtf16(typed);
}

// The places that changed, with the text of each.
class Changes {
  public:
    using Rows = std::map<long, PendingRows::Texts>;

    Changes(PendingRows& rows, ChangedSheet& sheet) : m_rows(rows), m_sheet(sheet) {}

    Rows Collect() {
        for (const LogEntry& entry : m_sheet.ModifiedLog()) {
            AddEntry(entry);
        }
        for (const long row : m_rows.ChangedRows()) {
            AddPending(row);
        }
        return std::move(m_changes);
    }

  private:
    void AddEntry(const LogEntry& entry) {
        if (entry.row < 1) {
            Refuse(0, SaveTexts::ColumnMode);
        }
        if (entry.row > m_rows.RowCount() || entry.col > m_rows.ColCount() || entry.col < 0) {
            Refuse(entry.row, SaveTexts::NoSuchCell);
        }
        AddPending(entry.row);
        if (entry.col > 0) {
            m_changes[entry.row].try_emplace(entry.col, m_sheet.TypedText(entry.row, entry.col));
            return;
        }
        for (int col = 1; col <= m_rows.ColCount(); ++col) {
            AddTyped(entry.row, col);
        }
    }
    // Where only the row is known, a cell that the sheet holds no text of was not typed into.
    void AddTyped(long row, int col) {
        std::u16string text = m_sheet.TypedText(row, col);
        if (!text.empty()) {
            m_changes[row].try_emplace(col, std::move(text));
        }
    }
    // What the user sees there goes before what the sheet holds behind it.
    void AddPending(long row) {
        if (const PendingRows::Texts* const texts = m_rows.PendingTexts(row)) {
            m_changes[row].insert(texts->begin(), texts->end());
        }
    }

    PendingRows& m_rows;
    ChangedSheet& m_sheet;
    Rows m_changes;
};

struct Write {
    enum class Kind { Delete, Update, Insert };

    Kind kind;
    long row;            // of the sheet; 0 for a deleted one
    std::u16string who;  // begins what is told of it
    BoundStatement statement;
};

// Turns changes into statements.
class Plan {
  public:
    Plan(const UpdateTarget& target, PendingRows& rows, ChangedSheet& sheet)
        : m_target(target), m_rows(rows), m_sheet(sheet) {}

    std::vector<Write> Make() {
        const Changes::Rows changes = Changes(m_rows, m_sheet).Collect();
        if (m_target.table.empty() && (!changes.empty() || m_rows.HasPending())) {
            Refuse(changes.empty() ? 0 : changes.begin()->first, SaveTexts::ReadOnly);
        }
        for (const auto& [source, record] : m_rows.Deleted()) {
            AddDelete(record);
        }
        for (const auto& [row, texts] : changes) {
            m_rows.IsAppended(row) ? AddInsert(row, texts) : AddUpdate(row, texts);
        }
        return std::move(m_writes);
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
    std::vector<ColumnValue> KeyValues(long row, const Record& record) {
        std::vector<ColumnValue> values;
        for (const int col : Keys(row)) {
            const CellValue& value = record[static_cast<std::size_t>(col - 1)];
            if (!value) {
                RefuseColumn(row, Column(col).name, SaveTexts::EmptyKey);
            }
            values.push_back({&Column(col), value});
        }
        return values;
    }

    void AddUpdate(long row, const PendingRows::Texts& texts) {
        const Record& record = m_rows.SourceRecord(row);
        std::vector<ColumnValue> changed;
        std::vector<ColumnValue> before;
        for (const auto& [col, text] : texts) {
            const CellValue& read = record[static_cast<std::size_t>(col - 1)];
            if (!SameToTheSheet(read, text)) {
                const ColumnInfo& column = Writable(row, col);
                changed.push_back({&column, ValueOf(column, text)});
                before.push_back({&column, read});
            }
        }
        if (!changed.empty()) {
            Add(Write::Kind::Update, row, NameOfRow(row),
                UpdateText(m_target.table, changed, {KeyValues(row, record), before},
                           m_target.database));
        }
    }
    // Cells left empty take what the table gives them.
    void AddInsert(long row, const PendingRows::Texts& texts) {
        std::vector<ColumnValue> values;
        for (const auto& [col, text] : texts) {
            if (!text.empty()) {
                values.push_back({&Writable(row, col), text});
            }
        }
        if (!values.empty()) {
            Add(Write::Kind::Insert, row, NameOfRow(row),
                InsertText(m_target.table, values, m_target.database));
        }
    }
    // Whoever deletes a record has seen all of it.
    void AddDelete(const Record& record) {
        const std::vector<ColumnValue> keys = KeyValues(0, record);
        std::vector<ColumnValue> others;
        for (std::size_t i = 0; i < m_target.columns.size(); ++i) {
            const ColumnInfo& column = m_target.columns[i];
            if (!column.base.empty() && !column.binary) {
                others.push_back({&column, record[i]});
            }
        }
        Add(Write::Kind::Delete, 0, NameOfDeleted(keys),
            DeleteText(m_target.table, {keys, others}, m_target.database));
    }
    static std::u16string NameOfDeleted(const std::vector<ColumnValue>& keys) {
        std::u16string name(SaveTexts::DeletedBegin);
        for (const ColumnValue& key : keys) {
            name += (&key == keys.data() ? u"" : u", ") + key.column->name + u'=' +
                    key.value.value_or(u"");
        }
        return name += SaveTexts::DeletedEnd;
    }
    CellValue ValueOf(const ColumnInfo& column, const std::u16string& text) const {
        return text.empty() && !HoldsText(column, m_target.database) ? CellValue() : text;
    }
    void Add(Write::Kind kind, long row, std::u16string who, BoundStatement statement) {
        m_writes.push_back({kind, row, std::move(who), std::move(statement)});
    }

    const UpdateTarget& m_target;
    PendingRows& m_rows;
    ChangedSheet& m_sheet;
    std::vector<int> m_keys;
    std::vector<Write> m_writes;
};

void Carry(SqlRunner& runner, const Write& write) {
    const std::int64_t touched = runner.Execute(write.statement);
    if (touched != 1) {
        throw Refusal{write.row, write.who + std::u16string(touched == 0 ? SaveTexts::Changed
                                                                         : SaveTexts::NotUnique)};
    }
}

SaveResult ResultOf(const OdbcError& error, long row, std::u16string_view who,
                    std::u16string_view what) {
    SaveResult result;
    result.row = row;
    result.connectionLost = error.ConnectionLost();
    result.reason = who;
    result.reason += error.ConnectionLost() ? SaveTexts::ConnectionLost : what;
    result.reason += error.Text();
    return result;
}

// A transaction that is rolled back unless it was committed.
class Transaction {
  public:
    explicit Transaction(SqlRunner& runner) : m_runner(runner) { m_runner.Begin(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction() {
        if (!m_committed) {
            try {
                m_runner.Rollback();
            } catch (const OdbcError&) {
                // With the connection gone, the database rolls back by itself.
            }
        }
    }
    void Commit() {
        m_runner.Commit();
        m_committed = true;
    }

  private:
    SqlRunner& m_runner;
    bool m_committed = false;
};

SaveResult WriteAll(SqlRunner& runner, const std::vector<Write>& writes) {
    SaveResult result;
    const Write* present = nullptr;
    try {
        Transaction transaction(runner);
        for (const Write& write : writes) {
            present = &write;
            Carry(runner, write);
            long& count = write.kind == Write::Kind::Update   ? result.updated
                          : write.kind == Write::Kind::Insert ? result.inserted
                                                              : result.deleted;
            ++count;
        }
        present = nullptr;
        transaction.Commit();
    } catch (const OdbcError& error) {
        return present != nullptr ? ResultOf(error, present->row, present->who, SaveTexts::Refused)
                                  : ResultOf(error, 0, {}, SaveTexts::CommitRefused);
    }
    result.saved = true;
    return result;
}

}  // namespace

SaveResult ChangeSaver::Save() {
    SaveResult result;
    try {
        if (m_runner.InTransaction()) {
            Refuse(0, SaveTexts::OpenTransaction);
        }
        const std::vector<Write> writes = Plan(m_target, m_rows, m_sheet).Make();
        if (!writes.empty()) {
            result = WriteAll(m_runner, writes);
        }
        result.saved = result.saved || writes.empty();
    } catch (const Refusal& refusal) {
        result.row = refusal.row;
        result.reason = refusal.reason;
    } catch (const OdbcError& error) {
        result = ResultOf(error, 0, {}, SaveTexts::Refused);  // reading what stood there
    }
    if (result.saved) {
        m_rows.ClearPending();
        m_sheet.ResetModifiedLog();
    }
    return result;
}

}  // namespace veygrid
