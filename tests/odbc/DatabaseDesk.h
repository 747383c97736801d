// A database of a test's own: SQLite in a temporary file, or PostgreSQL where VEYGRID_POSTGRES
// tells a connection string.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <string>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

#include "apps/host/odbc/Connection.h"
#include "apps/host/odbc/QueryRows.h"
#include "tests/odbc/TestSheet.h"

namespace veygrid {

inline void PrintTo(const CellValue& value, std::ostream* out) {
    if (!value) {
        *out << "NULL";
        return;
    }
    for (const char16_t c : *value) {
        c < 0x80 ? *out << static_cast<char>(c) : *out << "\\u" << std::hex << int{c} << std::dec;
    }
}

// The driver under Wine is the system's own and takes its paths.
inline std::string SystemTemporaryFile(const std::string& name) {
#ifdef _WIN32
    return "/tmp/veygrid-" + std::to_string(_getpid()) + "-" + name;
#else
    return "/tmp/veygrid-" + std::to_string(getpid()) + "-" + name;
#endif
}
inline std::filesystem::path OwnPath(const std::string& systemPath) {
#ifdef _WIN32
    return "Z:" + systemPath;
#else
    return systemPath;
#endif
}

inline std::u16string Utf16(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

// One test's database; all its tables go with it.
class DatabaseDesk {
  public:
    explicit DatabaseDesk(Database kind) : m_kind(kind) { RemoveFile(); }
    DatabaseDesk(const DatabaseDesk&) = delete;
    DatabaseDesk& operator=(const DatabaseDesk&) = delete;
    ~DatabaseDesk() { RemoveFile(); }

    // Why tests of this database cannot run here; empty when they can.
    static std::string Missing(Database kind) {
        if (kind == Database::PostgreSQL && std::getenv("VEYGRID_POSTGRES") == nullptr) {
            return "VEYGRID_POSTGRES tells no connection string";
        }
        return {};
    }

    std::u16string ConnectionString() const {
        if (m_kind == Database::PostgreSQL) {
            return Utf16(std::getenv("VEYGRID_POSTGRES"));
        }
        return u"Driver=SQLite3;Timeout=200;SyncPragma=OFF;Database=" + Utf16(m_file);
    }
    std::shared_ptr<Connection> Connect() const {
        auto made = std::make_shared<Connection>(ConnectionString());
        if (m_kind == Database::PostgreSQL) {
            made->Execute({u"SET client_min_messages = warning", {}});
            made->Execute({u"SET lock_timeout = 20000", {}});
            made->Execute({u"CREATE SCHEMA IF NOT EXISTS veygrid_test", {}});
            made->Execute({u"SET search_path = veygrid_test", {}});
        }
        return made;
    }

  private:
    // One may be left of a run that was broken off, under the same number of its process.
    void RemoveFile() const {
        std::error_code none;
        std::filesystem::remove(OwnPath(m_file), none);
    }

    Database m_kind;
    std::string m_file = SystemTemporaryFile("test.db");
};

// The tests of each database; each ends without an open handle.
class DatabaseTest : public testing::TestWithParam<Database> {
  protected:
    void SetUp() override {
        const std::string missing = DatabaseDesk::Missing(GetParam());
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        m_desk = std::make_unique<DatabaseDesk>(GetParam());
        m_connection = m_desk->Connect();
        if (!SQLite()) {
            Run(u"DROP SCHEMA veygrid_test CASCADE");
            Run(u"CREATE SCHEMA veygrid_test");
        }
    }
    void TearDown() override {
        m_connection.reset();
        m_desk.reset();
        EXPECT_EQ(openOdbcHandles, 0);
    }

    bool SQLite() const { return GetParam() == Database::SQLite; }
    const std::shared_ptr<Connection>& Conn() const { return m_connection; }
    DatabaseDesk& Desk() { return *m_desk; }
    std::int64_t Run(std::u16string text, std::vector<CellView> values = {}) {
        return m_connection->Execute({std::move(text), std::move(values)});
    }
    // Either text, as the database at hand wants it.
    std::u16string For(std::u16string sqlite, std::u16string postgres) const {
        return SQLite() ? sqlite : postgres;
    }
    std::vector<Record> Table(std::u16string_view query) {
        const std::vector<ColumnInfo> columns = m_connection->Describe(query);
        std::vector<Record> records;
        for (RowReader rows = m_connection->Query({std::u16string(query), {}}); rows.Next();) {
            records.push_back(ReadRecord(rows, columns, 1));
        }
        return records;
    }

  private:
    std::unique_ptr<DatabaseDesk> m_desk;
    std::shared_ptr<Connection> m_connection;
};

inline std::string DatabaseName(const testing::TestParamInfo<Database>& info) {
    return info.param == Database::SQLite ? "SQLite" : "PostgreSQL";
}
#define EACH_DATABASE(Suite)  \
    INSTANTIATE_TEST_SUITE_P( \
        Databases, Suite, testing::Values(Database::SQLite, Database::PostgreSQL), DatabaseName)
// A file has no connection that could be lost.
#define EACH_SERVER(Suite) \
    INSTANTIATE_TEST_SUITE_P(Databases, Suite, testing::Values(Database::PostgreSQL), DatabaseName)

}  // namespace veygrid
