// A connection to a database over ODBC.
#include "apps/host/odbc/Connection.h"

#include <algorithm>
#include <array>

namespace veygrid {
namespace {

// So many texts of statements are kept prepared at once; a save seldom has more.
constexpr std::size_t PreparedLimit = 32;

bool Names(std::u16string_view connectionString, std::u16string_view option) {
    for (std::size_t at = 0; at < connectionString.size();) {
        const std::size_t end = std::min(connectionString.find(u';', at), connectionString.size());
        std::u16string_view key = connectionString.substr(at, end - at);
        key = key.substr(0, key.find(u'='));
        key.remove_prefix(std::min(key.find_first_not_of(u" \t"), key.size()));
        if (SameName(key, option)) {
            return true;
        }
        at = end + 1;
    }
    return false;
}

// Each driver passes over what belongs to the other.
std::u16string WithOptions(std::u16string_view connectionString) {
    struct Option {
        std::u16string_view name;
        std::u16string_view value;
    };
    constexpr Option Wanted[] = {
        {u"StepAPI", u"1"},         // SQLite: rows as they are read, not all of them at once
        {u"Timeout", u"3000"},      // SQLite: milliseconds to wait for another's lock
        {u"Protocol", u"7.4-1"},    // PostgreSQL: no savepoint around each statement
        {u"UseDeclareFetch", u"0"}  // PostgreSQL: windows of rows are small
    };
    std::u16string whole(connectionString);
    for (const Option& option : Wanted) {
        if (!Names(connectionString, option.name)) {
            whole += whole.empty() || whole.back() == u';' ? u"" : u";";
            whole.append(option.name).append(u"=").append(option.value).append(u";");
        }
    }
    return whole;
}

OdbcHandle<SQL_HANDLE_ENV> NewEnvironment() {
    OdbcHandle<SQL_HANDLE_ENV> made(SQLHANDLE{});
    made.Check(::SQLSetEnvAttr(made.Get(), SQL_ATTR_ODBC_VERSION,
                               reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
    return made;
}

SQLINTEGER Length(std::u16string_view text) {
    return static_cast<SQLINTEGER>(text.size());
}

// Bound values and their lengths must stay where they are until the statement has run.
void BindValues(const OdbcStatement& statement, const std::vector<CellView>& values,
                std::vector<SQLLEN>& lengths) {
    lengths.resize(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::u16string_view text = values[i].value_or(u"");
        const auto bytes = static_cast<SQLLEN>(text.size() * sizeof(char16_t));
        lengths[i] = values[i] ? bytes : SQL_NULL_DATA;
        statement.Check(::SQLBindParameter(statement.Get(), static_cast<SQLUSMALLINT>(i + 1),
                                           SQL_PARAM_INPUT, SQL_C_WCHAR, SQL_WVARCHAR,
                                           std::max<SQLULEN>(text.size(), 1), 0, WideText(text),
                                           bytes, &lengths[i]));
    }
}

std::u16string TextAttribute(SQLHANDLE statement, int column, SQLUSMALLINT attribute) {
    std::array<char16_t, 512> text{};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(::SQLColAttributeW(
            statement, static_cast<SQLUSMALLINT>(column), attribute, text.data(),
            static_cast<SQLSMALLINT>(text.size() * sizeof(char16_t)), &bytes, nullptr))) {
        return {};
    }
    text.back() = u'\0';
    return text.data();
}

ColumnInfo ColumnOf(SQLHANDLE statement, int column) {
    ColumnInfo info;
    info.name = TextAttribute(statement, column, SQL_DESC_LABEL);
    info.table = TextAttribute(statement, column, SQL_DESC_BASE_TABLE_NAME);
    info.schema = TextAttribute(statement, column, SQL_DESC_SCHEMA_NAME);
    SQLLEN type = 0;
    ::SQLColAttributeW(statement, static_cast<SQLUSMALLINT>(column), SQL_DESC_CONCISE_TYPE, nullptr,
                       0, nullptr, &type);
    // SQLite's driver calls blobs texts.
    info.binary = type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY ||
                  SameName(TextAttribute(statement, column, SQL_DESC_TYPE_NAME), u"BLOB");
    return info;
}

}  // namespace

bool RowReader::Next() {
    const SQLRETURN result = ::SQLFetch(m_statement.Get());
    m_statement.Check(result);
    return result != SQL_NO_DATA;
}

CellValue RowReader::Text(int column) {
    constexpr std::size_t FirstSize = 256;
    std::size_t length = 0;
    while (true) {
        m_buffer.resize(std::max(FirstSize, length * 2));
        SQLLEN bytes = 0;
        const SQLRETURN result = ::SQLGetData(
            m_statement.Get(), static_cast<SQLUSMALLINT>(column), SQL_C_WCHAR,
            m_buffer.data() + length,
            static_cast<SQLLEN>((m_buffer.size() - length) * sizeof(char16_t)), &bytes);
        m_statement.Check(result);
        if (bytes == SQL_NULL_DATA) {
            return std::nullopt;
        }
        if (result == SQL_SUCCESS) {
            length += static_cast<std::size_t>(bytes) / sizeof(char16_t);
        }
        if (result != SQL_SUCCESS_WITH_INFO) {
            return m_buffer.substr(0, length);
        }
        length = m_buffer.size() - 1;  // a part is ended by a zero
    }
}

CellValue RowReader::Binary(int column) {
    char none = 0;
    SQLLEN bytes = 0;
    m_statement.Check(::SQLGetData(m_statement.Get(), static_cast<SQLUSMALLINT>(column),
                                   SQL_C_BINARY, &none, 0, &bytes));
    return bytes == SQL_NULL_DATA ? CellValue() : CellValue(BinaryMark);
}

Connection::Connection(std::u16string_view connectionString)
    : m_environment(NewEnvironment()), m_handle(m_environment.Get()) {
    const std::u16string whole = WithOptions(connectionString);
    m_handle.Check(::SQLDriverConnectW(m_handle.Get(), nullptr, WideText(whole),
                                       static_cast<SQLSMALLINT>(whole.size()), nullptr, 0, nullptr,
                                       SQL_DRIVER_NOPROMPT));
    std::array<char16_t, 128> name{};
    SQLSMALLINT bytes = 0;
    ::SQLGetInfoW(m_handle.Get(), SQL_DBMS_NAME, name.data(),
                  static_cast<SQLSMALLINT>((name.size() - 1) * sizeof(char16_t)), &bytes);
    m_productName = name.data();
    if (SameName(m_productName, u"PostgreSQL")) {
        m_kind = Database::PostgreSQL;
    } else if (!SameName(m_productName.substr(0, 6), u"SQLite")) {
        throw OdbcError(u"HYC00", u"不支持的数据库: " + m_productName, false);
    }
    // A manager of drivers that stands in a locale without Chinese would garble what is written.
    const std::u16string probe = u"中文";
    if (Single(u"SELECT '" + probe + u"'") != probe) {
        throw OdbcError(u"HYC00", u"ODBC 不能传送中文语句,请使用 UTF-8 语言环境", false);
    }
}

Connection::~Connection() {
    m_prepared.clear();
    if (m_inTransaction) {
        ::SQLEndTran(SQL_HANDLE_DBC, m_handle.Get(), SQL_ROLLBACK);
    }
}

bool Connection::Alive() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    ::SQLGetConnectAttrW(m_handle.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
    return dead != SQL_CD_TRUE;
}

void Connection::Rethrow(const OdbcError& error) const {
    throw OdbcError(error.State(), error.Text(), error.ConnectionLost() || !Alive());
}

void Connection::SetAutoCommit(bool on) {
    const auto value = static_cast<SQLULEN>(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF);
    m_handle.Check(::SQLSetConnectAttrW(m_handle.Get(), SQL_ATTR_AUTOCOMMIT,
                                        reinterpret_cast<SQLPOINTER>(value), SQL_IS_UINTEGER));
}

void Connection::Begin() {
    SetAutoCommit(false);
    m_inTransaction = true;
}

void Connection::Commit() {
    EndTransaction(SQL_COMMIT);
}

void Connection::Rollback() {
    EndTransaction(SQL_ROLLBACK);
}

void Connection::EndTransaction(SQLSMALLINT how) {
    if (!m_inTransaction) {
        return;
    }
    m_prepared.clear();
    m_handle.Check(::SQLEndTran(SQL_HANDLE_DBC, m_handle.Get(), how));
    m_inTransaction = false;
    SetAutoCommit(true);
}

Connection::PreparedStatement& Connection::Prepared(const std::u16string& text) {
    const auto known = m_prepared.find(text);
    if (known != m_prepared.end()) {
        return known->second;
    }
    if (m_prepared.size() >= PreparedLimit || !m_inTransaction) {
        m_prepared.clear();
    }
    OdbcStatement made = NewStatement();
    made.Check(::SQLPrepareW(made.Get(), WideText(text), Length(text)));
    return m_prepared.emplace(text, PreparedStatement{std::move(made)}).first->second;
}

std::int64_t Connection::Execute(const BoundStatement& statement) try {
    PreparedStatement& prepared = Prepared(statement.text);
    const OdbcStatement& handle = prepared.statement;
    BindValues(handle, statement.values, m_lengths);
    handle.Check(::SQLExecute(handle.Get()));
    SQLLEN rows = 0;
    ::SQLRowCount(handle.Get(), &rows);
    if (prepared.columns < 0) {
        ::SQLNumResultCols(handle.Get(), &prepared.columns);
    }
    if (!m_inTransaction) {
        m_prepared.clear();
    } else if (prepared.columns > 0) {
        ::SQLFreeStmt(handle.Get(), SQL_CLOSE);
    }
    return rows;
} catch (const OdbcError& error) {
    Rethrow(error);
}

std::vector<ColumnInfo> Connection::Describe(std::u16string_view query) try {
    const OdbcStatement statement = NewStatement();
    statement.Check(::SQLPrepareW(statement.Get(), WideText(query), Length(query)));
    SQLSMALLINT count = 0;
    statement.Check(::SQLNumResultCols(statement.Get(), &count));
    std::vector<ColumnInfo> columns;
    for (int column = 1; column <= count; ++column) {
        columns.push_back(ColumnOf(statement.Get(), column));
    }
    return columns;
} catch (const OdbcError& error) {
    Rethrow(error);
}

RowReader Connection::Query(const BoundStatement& query) try {
    OdbcStatement statement = NewStatement();
    std::vector<CellValue> values(query.values.begin(), query.values.end());
    std::vector<SQLLEN> lengths;
    BindValues(statement, {values.begin(), values.end()}, lengths);
    statement.Check(::SQLExecDirectW(statement.Get(), WideText(query.text), Length(query.text)));
    return RowReader(std::move(statement), std::move(values), std::move(lengths));
} catch (const OdbcError& error) {
    Rethrow(error);
}

CellValue Connection::Single(std::u16string_view query) {
    RowReader rows = Query({std::u16string(query), {}});
    return rows.Next() ? rows.Text(1) : CellValue();
}

std::vector<std::u16string> Connection::PrimaryKey(const std::u16string& schema,
                                                   const std::u16string& table) {
    OdbcStatement statement = NewStatement();
    statement.Check(::SQLPrimaryKeysW(statement.Get(), nullptr, 0,
                                      schema.empty() ? nullptr : WideText(schema),
                                      static_cast<SQLSMALLINT>(schema.size()), WideText(table),
                                      static_cast<SQLSMALLINT>(table.size())));
    constexpr int ColumnName = 4;
    std::vector<std::u16string> key;
    // The driver gives them in the order of KEY_SEQ.
    for (RowReader rows(std::move(statement)); rows.Next();) {
        key.push_back(rows.Text(ColumnName).value_or(u""));
    }
    return key;
}

}  // namespace veygrid
