// Owner types for the handles of ODBC.
#include "apps/host/odbc/OdbcHandle.h"

#include <string>

namespace veygrid {
namespace {

bool ConnectionIsDead(SQLHANDLE connection) {
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(::SQLGetConnectAttrW(connection, SQL_ATTR_CONNECTION_DEAD, &dead,
                                              SQL_IS_UINTEGER, nullptr)) &&
           dead == SQL_CD_TRUE;
}

}  // namespace

OdbcError ErrorOf(SQLSMALLINT kind, SQLHANDLE handle) {
    std::u16string firstState = u"HY000";
    std::u16string texts;
    char16_t state[6] = {};
    char16_t text[SQL_MAX_MESSAGE_LENGTH * 4];
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT i = 1; SQL_SUCCEEDED(::SQLGetDiagRecW(
             kind, handle, i, WideText({state, 6}), &number, WideText({text, std::size(text)}),
             static_cast<SQLSMALLINT>(std::size(text)), &length));
         ++i) {
        text[std::size(text) - 1] = u'\0';
        if (i == 1) {
            firstState.assign(state, 5);
        } else {
            texts += u'\n';
        }
        texts += text;
    }
    const bool lost =
        firstState.starts_with(u"08") || (kind == SQL_HANDLE_DBC && ConnectionIsDead(handle));
    return OdbcError(std::move(firstState), std::move(texts), lost);
}

void CheckOdbc(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
        throw ErrorOf(kind, handle);
    }
}

}  // namespace veygrid
