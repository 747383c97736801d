// Owner types for the handles of ODBC.
#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>

#include <atomic>
#include <string_view>
#include <utility>

#include "apps/host/odbc/OdbcError.h"

namespace veygrid {

// The wide calls take and give UTF-16 on every system.
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));
inline SQLWCHAR* WideText(std::u16string_view text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

OdbcError ErrorOf(SQLSMALLINT kind, SQLHANDLE handle);

// Throws OdbcError with what the handle's driver says when the result tells of a failure.
void CheckOdbc(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle);

// How many handles are open in the whole program.
inline std::atomic<int> openOdbcHandles{0};

// A handle of the kind SQL_HANDLE_ENV, SQL_HANDLE_DBC or SQL_HANDLE_STMT.
template <SQLSMALLINT Kind>
class OdbcHandle {
  public:
    OdbcHandle() = default;
    // Of a connection or statement; the parent is of the next higher kind.
    explicit OdbcHandle(SQLHANDLE parent) {
        CheckOdbc(::SQLAllocHandle(Kind, parent, &m_handle), Kind - 1, parent);
        ++openOdbcHandles;
    }
    OdbcHandle(OdbcHandle&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    OdbcHandle& operator=(OdbcHandle other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~OdbcHandle() {
        if (m_handle != nullptr) {
            if constexpr (Kind == SQL_HANDLE_DBC) {
                ::SQLDisconnect(m_handle);  // one that is not connected only says so
            } else if constexpr (Kind == SQL_HANDLE_STMT) {
                // PostgreSQL's driver lets go of what it told about a statement that never ran only
                // so.
                ::SQLFreeStmt(m_handle, SQL_CLOSE);
            }
            ::SQLFreeHandle(Kind, m_handle);
            --openOdbcHandles;
        }
    }

    SQLHANDLE Get() const { return m_handle; }
    void Check(SQLRETURN result) const { CheckOdbc(result, Kind, m_handle); }

  private:
    SQLHANDLE m_handle = SQL_NULL_HANDLE;
};

}  // namespace veygrid
