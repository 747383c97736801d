// The host's connection to a database, and the query that its first control shows.
#include "apps/host/DataSession.h"

#include <algorithm>
#include <set>
#include <utility>

#include "apps/host/Text.h"
#include "apps/host/odbc/OdbcError.h"
#include "valuetext/CodePage936.h"
#include "valuetext/DateText.h"

namespace veygrid {

namespace {

// Values of the control's ModifiedLog.
enum LogMode : long { LogNothing = 0, LogRows = 1, LogCells = 3 };
// Values of its ColType, and of a format's DataType where that is to say more.
enum ColumnType : long { TypeText = 1, TypeNumber = 2, TypeDate = 3 };
enum DataType : long { DataOfColumn = 0, DataInteger = 1, DataDecimal = 2 };

constexpr const wchar_t* OutOfStep =
    L"表页的行列与数据库的记录不再对应,已按记录恢复;已做的修改都还在。\n"
    L"请用“数据”菜单增加或删除记录。";
constexpr const wchar_t* EditRefused = L"正在编辑的单元格内容无效,请先改正。";
constexpr const wchar_t* NotConnected = L"没有连接数据库。";
constexpr const wchar_t* NoQuery = L"没有查询。";
constexpr const wchar_t* NoStatement = L"没有查询语句。";
constexpr const wchar_t* NoSuchRecord = L"没有这条记录。";
constexpr const wchar_t* NoMemory = L"内存不足";
constexpr const wchar_t* NoRows = L"语句已执行,没有返回记录。";

std::wstring Wide(std::u16string_view text) {
    return std::wstring(text.begin(), text.end());
}
std::u16string Utf16(std::wstring_view text) {
    return std::u16string(text.begin(), text.end());
}

bool ContainsAny(std::u16string_view text, std::initializer_list<std::u16string_view> words) {
    return std::ranges::any_of(words, [text](std::u16string_view word) {
        return text.find(word) != std::u16string_view::npos;
    });
}

// By the words of the table's own type; nothing where the sheet's general handling serves best, as
// for times of day, which a date's show format would hide.
std::optional<BoundSheet::Column> DescriptionOf(const ColumnInfo& column, bool isKey) {
    std::u16string type = column.declaredType;
    std::ranges::transform(type, type.begin(), [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    });
    if (ContainsAny(type, {u"time", u"interval", u"point", u"bool", u"[", u"range"})) {
        return std::nullopt;
    }
    if (ContainsAny(type, {u"char", u"text", u"clob", u"uuid", u"json", u"xml"})) {
        return BoundSheet::Column{TypeText, DataOfColumn, isKey};
    }
    if (ContainsAny(type, {u"date"})) {
        return BoundSheet::Column{TypeDate, DataOfColumn, isKey};
    }
    if (ContainsAny(type, {u"int", u"serial"})) {
        return BoundSheet::Column{TypeNumber, DataInteger, isKey};
    }
    if (ContainsAny(type, {u"num", u"dec", u"real", u"doub", u"float"})) {
        return BoundSheet::Column{TypeNumber, DataDecimal, isKey};
    }
    return std::nullopt;
}

// Dates are typed in many ways; databases compare those of one form. In code page 936.
std::string AsSaved(const ColumnInfo& column, const std::wstring& typed) {
    std::string text = CodePage936FromUtf16(Utf16(typed));
    const auto description = DescriptionOf(column, false);
    if (description && description->type == TypeDate && IsStrictDate(text)) {
        FormatDateText(text, "YYYY-MM-DD");
    }
    return text;
}

// All columns of the table's primary key, or none when the query does not show each.
std::set<std::u16string> ShownKey(const UpdateTarget& target) {
    const bool isShown = std::ranges::all_of(target.primaryKey, [&](const std::u16string& key) {
        return std::ranges::find(target.columns, key, &ColumnInfo::base) != target.columns.end();
    });
    return isShown ? std::set(target.primaryKey.begin(), target.primaryKey.end())
                   : std::set<std::u16string>();
}

long NumberAt(const DISPPARAMS& parameters, UINT index) {
    return Variant(parameters.rgvarg[parameters.cArgs - 1 - index]).Number();
}
SheetCell CellOf(const DISPPARAMS& parameters) {
    return {NumberAt(parameters, 0), NumberAt(parameters, 1)};
}

}  // namespace

template <typename Work>
bool DataSession::Try(const Work& work) {
    m_problem.clear();
    try {
        return work();
    } catch (const OdbcError& error) {
        return Refuse(Wide(error.Text()));
    } catch (const ComFault& fault) {
        return Refuse(fault.what + L"\n" + ErrorText(fault.result));
    } catch (const std::exception&) {
        return Refuse(NoMemory);
    }
}

bool DataSession::Refuse(const std::wstring& problem) {
    m_problem = problem;
    return false;
}

bool DataSession::Connect(const std::wstring& connection) {
    return Try([&] {
        auto made = std::make_shared<Connection>(Utf16(connection));
        LeaveQuery();
        m_access.Use(made);
        m_connection = std::move(made);
        return true;
    });
}

void DataSession::Attach(const Automation& grid) {
    m_sheet = std::make_unique<BoundSheet>(grid);
}

void DataSession::Detach() {
    LeaveQuery();
    m_sheet.reset();
}

std::wstring DataSession::Statement() const {
    return m_sheet ? m_sheet->DataSource() : std::wstring();
}

long DataSession::ActiveRow() const {
    return m_sheet ? m_sheet->ActiveCell().first : 0;
}

bool DataSession::RunQuery(const std::wstring& statement) {
    return Try([&] {
        if (!IsConnected() || !m_sheet) {
            return Refuse(NotConnected);
        }
        if (statement.find_first_not_of(L" \t\r\n") == std::wstring::npos) {
            return Refuse(NoStatement);
        }
        if (!m_sheet->EndEdit()) {
            return Refuse(EditRefused);
        }
        auto dataset = MakeCom<QueryDataset>(m_connection, Utf16(statement));
        if (dataset->ColCount() == 0) {
            m_notice(NoRows);
            return true;
        }
        LeaveQuery();
        Show(std::move(dataset), statement);
        return true;
    });
}

void DataSession::Show(ComPtr<QueryDataset> dataset, const std::wstring& statement) {
    const bool isOther = m_sheet->DataSource() != statement;
    if (isOther) {
        m_sheet->SetDataSource(statement);
    }
    dataset->WhenFaulty([this](const OdbcError& error) { m_untold = Wide(error.Text()); });
    m_dataset = std::move(dataset);
    m_statement = statement;
    m_isModified = m_sheet->IsModified();
    m_unknownWrites = 0;
    m_sheet->Bind(m_dataset.Get());
    if (const long mode = m_sheet->LogMode(); mode == LogNothing || mode == LogRows) {
        m_sheet->SetLogMode(LogCells);
    }
    DescribeColumns();
    KeepKeyFlags();
    if (isOther) {
        m_sheet->GoTo({1, 1});
    }
}

void DataSession::DescribeColumns() {
    const UpdateTarget& target = m_dataset->Query().Target();
    const std::set<std::u16string> key = ShownKey(target);
    long number = 0;
    for (const ColumnInfo& column : target.columns) {
        ++number;
        if (const auto description = DescriptionOf(column, key.contains(column.base))) {
            m_sheet->DescribeColumn(number, *description);
        }
    }
}

// What cannot be taken over, as without a connection, must not hold the user.
bool DataSession::Finish() {
    bool isRefused = false;
    if (HasQuery()) {
        Try([&] {
            isRefused = !m_sheet->EndEdit();
            if (isRefused) {
                return Refuse(EditRefused);
            }
            LookAtSheet(true);
            return true;
        });
    }
    return !isRefused;
}

void DataSession::LeaveRecordsOut() {
    if (HasQuery()) {
        m_sheet->SetModified(m_isModified);
    }
}

void DataSession::LeaveQuery() {
    if (!HasQuery()) {
        return;
    }
    m_candidate.reset();
    const ComPtr<QueryDataset> leaving = std::exchange(m_dataset, nullptr);
    try {
        m_sheet->ForgetTyped();
        m_sheet->Bind(nullptr);
        m_sheet->SetModified(m_isModified);
    } catch (const ComFault& fault) {
        Refuse(fault.what + L"\n" + ErrorText(fault.result));
    }
}

// What comes before every command on the query: the sheet is as the user left it.
bool DataSession::Begin() {
    if (!HasQuery()) {
        return Refuse(NoQuery);
    }
    if (!m_sheet->EndEdit()) {
        return Refuse(EditRefused);
    }
    LookAtSheet(true);
    return true;
}

long DataSession::AddRecord() {
    long row = 0;
    Try([&] {
        if (!Begin()) {
            return false;
        }
        row = m_dataset->AppendRow();
        m_sheet->FollowDataset();
        m_sheet->GoTo({row, 1});
        return true;
    });
    return row;
}

bool DataSession::DeleteRecord(long row) {
    return Try([&] {
        if (!Begin()) {
            return false;
        }
        if (!m_dataset->DeleteRow(row)) {
            return Refuse(NoSuchRecord);
        }
        m_sheet->RemoveRow(row);
        const SheetCell active = m_sheet->ActiveCell();
        if (const long last = RecordCount(); last > 0 && active.first > last) {
            m_sheet->GoTo({last, active.second});
        }
        return true;
    });
}

bool DataSession::Save() {
    return Try([&] {
        if (!Begin()) {
            return false;
        }
        const SaveResult result =
            ChangeSaver(*m_connection, m_dataset->Query().Target(), m_dataset->Rows(), *this)
                .Save();
        if (!result.saved) {
            if (result.row > 0) {
                m_sheet->GoTo({result.row, m_sheet->ActiveCell().second});
            }
            return Refuse(Wide(result.reason));
        }
        ReadAgain();
        return true;
    });
}

bool DataSession::RollBack() {
    return Try([&] {
        if (!HasQuery()) {
            return Refuse(NoQuery);
        }
        if (!m_sheet->EndEdit()) {
            return Refuse(EditRefused);
        }
        m_dataset->ClearPending();
        m_sheet->ForgetTyped();
        ReadAgain();
        return true;
    });
}

// The sheet shows the dataset's rows even when they cannot be read.
void DataSession::ReadAgain() {
    m_unknownWrites = 0;
    try {
        m_dataset->Reload();
    } catch (const OdbcError&) {
        m_sheet->FollowDataset();
        throw;
    }
    m_sheet->FollowDataset();
    m_sheet->SetModified(m_isModified);
}

long DataSession::ChangeCount() const {
    if (!HasQuery()) {
        return 0;
    }
    const PendingRows& rows = m_dataset->Rows();
    auto count = static_cast<long>(rows.Deleted().size());
    for (const long row : rows.ChangedRows()) {
        count += rows.IsAppended(row) ? 1 : static_cast<long>(rows.PendingTexts(row)->size());
    }
    return count;
}

long DataSession::WindowCount() const {
    const RowWindows* const windows = HasQuery() ? m_dataset->Query().Windows() : nullptr;
    return windows == nullptr ? 0 : static_cast<long>(windows->WindowCount());
}

std::wstring DataSession::Status() const {
    if (!IsConnected()) {
        return {};
    }
    std::wstring status = Wide(m_connection->ProductName());
    if (HasQuery()) {
        status += L" · " + std::to_wstring(RecordCount()) + L" 条记录";
        if (const long changes = ChangeCount(); changes > 0) {
            status += L" · " + std::to_wstring(changes) + L" 处修改";
        }
    }
    return status;
}

// A text is on its way into the cell where the edit began when Modified follows EndEdit at once; a
// refused one is followed by something else. So the common case needs no look at the log.
void DataSession::OnEvent(const std::wstring& event, const DISPPARAMS& parameters) {
    if (!HasQuery() || IsBusy() || event == L"RequestCellFormat") {
        return;
    }
    const std::optional<BoundSheet::Typed> candidate = std::exchange(m_candidate, std::nullopt);
    if (event == L"StartingEdit") {
        m_edited = CellOf(parameters);
    } else if (event == L"EndEdit" && CellOf(parameters) == m_edited && HasCell(m_edited)) {
        m_candidate = {m_edited, Variant(parameters.rgvarg[parameters.cArgs - 3]).Text()};
    } else if (event == L"Modified" && candidate) {
        Try([&] {
            TakeText(candidate->cell, candidate->text);
            return true;
        });
    } else if (event == L"Modified" || event == L"CellsMove") {
        ++m_unknownWrites;
    }
}

void DataSession::Settle(bool isTextNext) {
    if (!HasQuery() || m_isSettling || IsBusy()) {
        return;
    }
    m_isSettling = true;
    m_candidate.reset();
    try {
        LookAtSheet(m_unknownWrites > 0 && !isTextNext);
    } catch (const OdbcError& error) {
        m_untold = Wide(error.Text());
    } catch (const ComFault& fault) {
        m_untold = fault.what + L"\n" + ErrorText(fault.result);
    } catch (const std::exception&) {
        m_untold = NoMemory;
    }
    if (!m_untold.empty()) {
        m_problem = std::exchange(m_untold, {});
        m_notice(m_problem);
    }
    m_isSettling = false;
}

void DataSession::LookAtSheet(bool isThorough) {
    if (!IsInStep(isThorough)) {
        BringInStep();
    } else if (isThorough) {
        // What was written beside the records changed the sheet itself.
        if (std::exchange(m_unknownWrites, 0) > TakeLoggedTexts()) {
            m_isModified = m_sheet->IsModified();
        }
        KeepKeyFlags();
    }
}

void DataSession::BringInStep() {
    m_unknownWrites = 0;
    m_untold = OutOfStep;
    if (m_sheet->DataSource() != m_statement) {
        m_sheet->SetDataSource(m_statement);
    }
    m_sheet->Rewrite(PendingTexts());
    long number = 0;
    for (const long flag : m_keyFlags) {
        ++number;
        if (m_sheet->KeyFlag(number) != flag) {
            m_sheet->SetKeyFlag(number, flag);
        }
    }
}

void DataSession::KeepKeyFlags() {
    m_keyFlags.clear();
    for (long number = 1; number <= m_dataset->ColCount(); ++number) {
        m_keyFlags.push_back(m_sheet->KeyFlag(number));
    }
}

// Nothing but a move of its rows or columns takes a cell's entry away from its place in the log.
bool DataSession::IsInStep(bool isThorough) const {
    if (!m_sheet->HasSize(RecordCount(), m_dataset->ColCount())) {
        return false;
    }
    if (!isThorough || m_sheet->LogMode() != LogCells) {
        return true;
    }
    const std::vector<SheetCell> logged = m_sheet->LoggedCells();
    const std::set<SheetCell> places(logged.begin(), logged.end());
    return std::ranges::all_of(PendingTexts(), [&places](const BoundSheet::Typed& typed) {
        return places.contains(typed.cell);
    });
}

std::vector<BoundSheet::Typed> DataSession::PendingTexts() const {
    const PendingRows& rows = m_dataset->Rows();
    std::vector<BoundSheet::Typed> texts;
    for (const long row : rows.ChangedRows()) {
        if (const PendingRows::Texts* const pending = rows.PendingTexts(row)) {
            for (const auto& [col, text] : *pending) {
                texts.push_back({{row, col}, Wide(text)});
            }
        }
    }
    return texts;
}

long DataSession::TakeLoggedTexts() {
    std::vector<SheetCell> cells = m_sheet->LoggedCells();
    std::erase_if(cells, [this](const SheetCell& cell) { return !HasCell(cell); });
    if (cells.empty()) {
        return 0;
    }
    const long before = ChangeCount();
    const std::vector<std::wstring> texts = m_sheet->TypedTexts(cells);
    for (std::size_t index = 0; index < cells.size(); ++index) {
        TakeText(cells[index], texts[index]);
    }
    return ChangeCount() - before;
}

bool DataSession::HasCell(SheetCell cell) const {
    return m_dataset->Rows().Has(cell.first, static_cast<int>(cell.second));
}

void DataSession::TakeText(SheetCell cell, const std::wstring& text) {
    const long row = cell.first;
    const int col = static_cast<int>(cell.second);
    const ColumnInfo& column = m_dataset->Rows().Columns()[static_cast<std::size_t>(col - 1)];
    const std::string typed = AsSaved(column, text);
    const CellValue shown = m_dataset->CellText(row, col);
    // The sheet holds code page 936: a difference beyond that was not typed.
    if (CodePage936FromUtf16(shown.value_or(u"")) != typed) {
        m_dataset->SetPending(row, col, Utf16FromCodePage936(typed));
    }
}

// Only what the saver must refuse; all else stands in the dataset.
std::vector<LogEntry> DataSession::ModifiedLog() {
    std::vector<LogEntry> entries;
    for (const auto& [row, col] : m_sheet->LoggedCells()) {
        if (row == 0) {
            entries.push_back({row, static_cast<int>(col)});
        }
    }
    return entries;
}

std::u16string DataSession::TypedText(long row, int col) {
    return m_dataset->CellText(row, col).value_or(u"");
}

}  // namespace veygrid
