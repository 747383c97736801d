// Binding the village table and saving changes of it, against bare ODBC doing the same.
// usage: Data_bench CONNECTION-STRING; the table villages has its code as primary key.
#include <windows.h>

#include <objbase.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "apps/host/odbc/ChangeSaver.h"
#include "apps/host/odbc/QueryDataset.h"
#include "bench/Ratio.h"
#include "control/ClassIds.h"
#include "tests/control/Container.h"

namespace veygrid::bench {
namespace {

constexpr std::u16string_view Statement = u"SELECT * FROM villages";
constexpr int Columns = 6;
constexpr long ScreenRows = 50;
constexpr long ChangedRows = 10'000;

void Require(SQLRETURN result) {
    if (!SQL_SUCCEEDED(result)) {
        std::printf("a bare call of ODBC failed\n");
        std::exit(1);
    }
}

// Bare calls, as a program writes them that knows what it wants.
class Bare {
  public:
    explicit Bare(std::u16string_view connectionString) {
        Require(::SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment));
        Require(::SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION,
                                reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
        Require(::SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection));
        Require(::SQLDriverConnectW(m_connection, nullptr, WideText(connectionString),
                                    static_cast<SQLSMALLINT>(connectionString.size()), nullptr, 0,
                                    nullptr, SQL_DRIVER_NOPROMPT));
        Require(::SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &m_statement));
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;
    ~Bare() {
        ::SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
        ::SQLDisconnect(m_connection);
        ::SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
        ::SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
    }

    // Reads that many rows, or all, and gives the number of units of their texts.
    std::size_t Read(std::u16string_view text, long rows, int columns) {
        Require(
            ::SQLExecDirectW(m_statement, WideText(text), static_cast<SQLINTEGER>(text.size())));
        std::size_t units = 0;
        for (long row = 0; row < rows && ::SQLFetch(m_statement) == SQL_SUCCESS; ++row) {
            for (int col = 1; col <= columns; ++col) {
                char16_t buffer[256];
                SQLLEN bytes = 0;
                Require(::SQLGetData(m_statement, static_cast<SQLUSMALLINT>(col), SQL_C_WCHAR,
                                     buffer, sizeof buffer, &bytes));
                units += static_cast<std::size_t>(bytes) / sizeof(char16_t);
            }
        }
        Require(::SQLFreeStmt(m_statement, SQL_CLOSE));
        return units;
    }

    // One statement, prepared once, for each row of values; in one transaction.
    void Write(std::u16string_view text, const std::vector<std::vector<std::u16string>>& rows) {
        Require(::SQLSetConnectAttrW(m_connection, SQL_ATTR_AUTOCOMMIT,
                                     reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0));
        Require(::SQLPrepareW(m_statement, WideText(text), static_cast<SQLINTEGER>(text.size())));
        for (const std::vector<std::u16string>& row : rows) {
            SQLLEN lengths[3];
            for (SQLUSMALLINT i = 0; i < row.size(); ++i) {
                lengths[i] = static_cast<SQLLEN>(row[i].size() * sizeof(char16_t));
                Require(::SQLBindParameter(
                    m_statement, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, SQL_C_WCHAR,
                    SQL_WVARCHAR, row[i].size() + 1, 0, WideText(row[i]), lengths[i], &lengths[i]));
            }
            Require(::SQLExecute(m_statement));
            SQLLEN touched = 0;
            ::SQLRowCount(m_statement, &touched);
            Require(touched == 1 ? SQL_SUCCESS : SQL_ERROR);
        }
        Require(::SQLEndTran(SQL_HANDLE_DBC, m_connection, SQL_COMMIT));
    }

  private:
    SQLHANDLE m_environment = nullptr;
    SQLHANDLE m_connection = nullptr;
    SQLHANDLE m_statement = nullptr;
};

// The sheet of a host, shown once for all bindings.
class Sheet {
  public:
    Sheet() {
        ::SetWindowPos(m_container.Window(), nullptr, 0, 0, 1600, 1000,
                       SWP_NOZORDER | SWP_NOACTIVATE);
        m_container.Show(m_control);
        m_window = Container::WindowOf(m_control);
        ::SetWindowPos(m_window, nullptr, 0, 0, 1600, 1000, SWP_NOZORDER | SWP_NOACTIVATE);
        Paint();
    }
    ~Sheet() { Bind(nullptr); }
    void Bind(IDispatch* dataset) {
        if (dataset != nullptr) {
            dataset->AddRef();  // the control takes this one over
        }
        m_grid.Call(L"BindDataset", {Arg(dataset)});
    }
    void Paint() {
        ::InvalidateRect(m_window, nullptr, TRUE);
        ::UpdateWindow(m_window);
        ::GdiFlush();
    }

  private:
    Container m_container;
    ComPtr<IUnknown> m_control = Ocx::Make(VeyGridClassId);
    Late m_grid{m_control};
    HWND m_window = nullptr;
};

ComPtr<QueryDataset> OpenScreen(const std::u16string& connectionString) {
    ComPtr<QueryDataset> dataset =
        MakeCom<QueryDataset>(std::make_shared<Connection>(connectionString), Statement);
    for (long row = 1; row <= ScreenRows; ++row) {
        for (int col = 1; col <= Columns; ++col) {
            Keep(dataset->CellText(row, col));
        }
    }
    return dataset;
}

double BareScreen(const std::u16string& connectionString, bool counts) {
    return Seconds([&] {
        Bare bare(connectionString);
        if (counts) {
            Keep(bare.Read(u"SELECT COUNT(*) FROM villages", 1, 1));
        }
        Keep(bare.Read(Statement, ScreenRows, Columns));
    });
}

void Binding(const std::u16string& connectionString) {
    constexpr int Rounds = 9;
    const auto ours = [&] {
        ComPtr<QueryDataset> dataset;
        return Seconds([&] { dataset = OpenScreen(connectionString); });
    };
    const std::u16string steps = connectionString + u";StepAPI=1";
    std::printf(
        "peer: connects, counts the rows, runs the statement step by step, reads 50 rows\n");
    Ratio("binding the village table, up to the texts of a screen", 2)
        .Run(
            ours, [&] { return BareScreen(steps, true); }, Rounds);
    std::printf(
        "peer: connects, runs the statement as the driver does it unasked, reads 50 rows\n");
    Ratio("binding the village table, up to the texts of a screen", 2)
        .Run(
            ours, [&] { return BareScreen(connectionString, false); }, Rounds);
    std::printf("peer: connects, runs the statement step by step, reads 50 rows; knows no count\n");
    Ratio("binding the village table, up to the texts of a screen", 0)
        .Run(
            ours, [&] { return BareScreen(steps, false); }, Rounds);

    Sheet sheet;
    const auto painted = [&] {
        return Seconds([&] {
            ComPtr<QueryDataset> dataset =
                MakeCom<QueryDataset>(std::make_shared<Connection>(connectionString), Statement);
            sheet.Bind(dataset.Get());
            sheet.Paint();
        });
    };
    std::printf(
        "peer: connects, counts the rows, runs the statement step by step, reads 50 rows\n");
    Ratio("binding the village table, up to its paint of 1600 by 1000", 2)
        .Run(
            painted, [&] { return BareScreen(steps, true); }, Rounds);
}

// The log of a sheet in which the name of every changed row was typed.
class LoggedSheet final : public ChangedSheet {
  public:
    std::vector<LogEntry> ModifiedLog() override {
        std::vector<LogEntry> log;
        for (long row = 1; row <= ChangedRows; ++row) {
            log.push_back({row, 2});
        }
        return log;
    }
    std::u16string TypedText(long, int) override { return {}; }
    bool IsKeyColumn(int) override { return false; }
    void ResetModifiedLog() override {}
};

std::u16string Other(const CellValue& name) {
    std::u16string text = name.value_or(u"");
    constexpr std::u16string_view Added = u"村民";
    if (text.ends_with(Added)) {
        text.resize(text.size() - Added.size());
    } else {
        text += Added;
    }
    return text;
}

double OurSave(const std::u16string& connectionString) {
    const ComPtr<QueryDataset> dataset =
        MakeCom<QueryDataset>(std::make_shared<Connection>(connectionString), Statement);
    for (long row = 1; row <= ChangedRows; ++row) {
        dataset->SetPending(row, 2, Other(dataset->CellText(row, 2)));
    }
    LoggedSheet sheet;
    return Seconds([&] {
        const SaveResult result =
            ChangeSaver(dataset->Database(), dataset->Query().Target(), dataset->Rows(), sheet)
                .Save();
        Require(result.saved && result.updated == ChangedRows ? SQL_SUCCESS : SQL_ERROR);
    });
}

double BareSave(const std::u16string& connectionString) {
    std::vector<std::vector<std::u16string>> rows;
    {
        const ComPtr<QueryDataset> dataset =
            MakeCom<QueryDataset>(std::make_shared<Connection>(connectionString), Statement);
        for (long row = 1; row <= ChangedRows; ++row) {
            const CellValue name = dataset->CellText(row, 2);
            rows.push_back({Other(name), dataset->CellText(row, 1).value_or(u""), *name});
        }
    }
    Bare bare(connectionString);
    return Seconds([&] {
        bare.Write(
            u"UPDATE villages SET \"name\" = ? WHERE \"code\" = ? AND CAST(\"name\" AS TEXT) = "
            u"CAST(? AS TEXT) COLLATE BINARY",
            rows);
    });
}

void Saving(const std::u16string& connectionString) {
    std::printf("peer: the same UPDATE, prepared once, bound and run 10,000 times, one commit\n");
    Ratio("saving 10,000 changed rows of the village table", 1.2)
        .Run([&] { return OurSave(connectionString); }, [&] { return BareSave(connectionString); },
             9);
}

}  // namespace
}  // namespace veygrid::bench

int main(int count, char** arguments) {
    using namespace veygrid::bench;
    if (count != 2) {
        std::printf("usage: Data_bench CONNECTION-STRING\n");
        return 2;
    }
    ::OleInitialize(nullptr);
    const std::string text = arguments[1];
    const std::u16string connectionString(text.begin(), text.end());
    Binding(connectionString);
    Saving(connectionString);
    ::OleUninitialize();
    return 0;
}
