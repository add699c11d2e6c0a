#include "driver.h"

#include <cstdint>
#include <stdexcept>

namespace veldrane::floor_probe {

void Check(SQLRETURN result, std::string_view what)
{
    if (!SQL_SUCCEEDED(result))
        throw std::runtime_error(std::string(what) + " failed");
}

Connection::Connection(std::string connectionString)
{
    Check(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_), "starting the driver manager");
    const std::uintptr_t version = SQL_OV_ODBC3;
    Check(SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION,
                        reinterpret_cast<SQLPOINTER>(version), // NOLINT(performance-no-int-to-ptr): as ODBC has it
                        0),
          "choosing the version");
    Check(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_), "allocating a connection");
    Check(SQLDriverConnect(connection_, nullptr, reinterpret_cast<SQLCHAR*>(connectionString.data()), SQL_NTS, nullptr,
                           0, nullptr, SQL_DRIVER_NOPROMPT),
          "connecting");
}

Connection::~Connection()
{
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

Statement::Statement(const Connection& connection)
{
    Check(SQLAllocHandle(SQL_HANDLE_STMT, connection.Handle(), &statement_), "allocating a statement");
}

Statement::~Statement()
{
    SQLFreeHandle(SQL_HANDLE_STMT, statement_);
}

void Statement::Execute(std::string text)
{
    Check(SQLExecDirect(statement_, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS), text);
}

SQLUSMALLINT Statement::CountColumns() const
{
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(statement_, &count), "counting columns");
    return static_cast<SQLUSMALLINT>(count);
}

std::vector<Row> Statement::Rows(const std::vector<SQLUSMALLINT>& places)
{
    std::array<std::array<char, kLongestValue>, kMostColumns> values{};
    std::array<SQLLEN, kMostColumns> sizes{};
    for (std::size_t at = 0; at < places.size(); ++at)
        Check(SQLBindCol(statement_, places[at], SQL_C_CHAR, values.at(at).data(), kLongestValue, &sizes.at(at)),
              "binding a column");
    std::vector<Row> rows;
    for (SQLRETURN result = SQLFetch(statement_); result != SQL_NO_DATA; result = SQLFetch(statement_)) {
        Check(result, "fetching a row");
        Row& row = rows.emplace_back();
        for (std::size_t at = 0; at < places.size(); ++at)
            if (sizes[at] != SQL_NULL_DATA)
                row[at] = values[at].data();
    }
    return rows;
}

} // namespace veldrane::floor_probe
