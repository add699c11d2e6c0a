#include "driver_calls.h"

#include "driver.h"

#include <stdexcept>
#include <vector>

namespace veldrane::floor_probe {
namespace {

// Places in the answers, as ODBC fixes them.
const std::vector<SQLUSMALLINT> kTable{1, 2, 3, 4};                   // catalog, schema, name, type
const std::vector<SQLUSMALLINT> kPrimaryKeyColumn{4, 5, 6};           // column, place, name of the key
const std::vector<SQLUSMALLINT> kForeignKeyColumn{2, 3, 4, 8, 9, 12}; // related schema, table, column; own; place, name

struct Column
{
    std::string Name;
    SQLSMALLINT Type = 0;
    SQLULEN Size = 0;
    SQLSMALLINT Nullable = 0;
    bool IsNumbered = false;
};

struct Table
{
    std::vector<Column> Columns;
    std::vector<Row> PrimaryKey;
    std::vector<Row> ForeignKeys;
};

// What a driver does not have is not asked for.
SQLCHAR* Argument(std::string& text)
{
    return text.empty() ? nullptr : reinterpret_cast<SQLCHAR*>(text.data());
}

std::string Info(const Connection& connection, SQLUSMALLINT what)
{
    std::array<char, kLongestValue> value{};
    Check(SQLGetInfo(connection.Handle(), what, value.data(), static_cast<SQLSMALLINT>(value.size()), nullptr),
          "asking the driver about itself");
    return value.data();
}

// The place of a table, in the forms that the calls want.
struct Place
{
    std::string Catalog;
    std::string Schema;
    std::string Name;
};

std::vector<Row> ListOfTables(const Connection& connection)
{
    Statement statement(connection);
    std::string catalog = Info(connection, SQL_DATABASE_NAME); // without it, some drivers list those of all databases
    std::string all = "%";
    Check(SQLTables(statement.Handle(), Argument(catalog), SQL_NTS, Argument(all), SQL_NTS, Argument(all), SQL_NTS,
                    nullptr, 0),
          "SQLTables");
    return statement.Rows(kTable);
}

Column Description(const Statement& statement, SQLUSMALLINT number)
{
    Column column;
    std::array<SQLCHAR, kLongestValue> name{};
    SQLSMALLINT length = 0;
    SQLSMALLINT digits = 0;
    Check(SQLDescribeCol(statement.Handle(), number, name.data(), static_cast<SQLSMALLINT>(name.size()), &length,
                         &column.Type, &column.Size, &digits, &column.Nullable),
          "describing a column");
    column.Name.assign(name.begin(), name.begin() + length);
    SQLLEN numbered = SQL_FALSE;
    Check(SQLColAttribute(statement.Handle(), number, SQL_DESC_AUTO_UNIQUE_VALUE, nullptr, 0, nullptr, &numbered),
          "asking whether a column numbers the rows");
    column.IsNumbered = numbered == SQL_TRUE;
    return column;
}

std::vector<Column> ColumnsOf(const Connection& connection, const std::string& quote, const Place& table)
{
    Statement statement(connection);
    statement.Execute("SELECT * FROM " + quote + table.Name + quote + " WHERE 1=0");
    const SQLUSMALLINT count = statement.CountColumns();
    std::vector<Column> columns;
    for (SQLUSMALLINT number = 1; number <= count; ++number)
        columns.push_back(Description(statement, number));
    return columns;
}

std::vector<Row> PrimaryKeyOf(const Connection& connection, Place table)
{
    Statement statement(connection);
    Check(SQLPrimaryKeys(statement.Handle(), Argument(table.Catalog), SQL_NTS, Argument(table.Schema), SQL_NTS,
                         Argument(table.Name), SQL_NTS),
          "SQLPrimaryKeys");
    return statement.Rows(kPrimaryKeyColumn);
}

std::vector<Row> ForeignKeysOf(const Connection& connection, Place table)
{
    Statement statement(connection);
    Check(SQLForeignKeys(statement.Handle(), nullptr, 0, nullptr, 0, nullptr, 0, Argument(table.Catalog), SQL_NTS,
                         Argument(table.Schema), SQL_NTS, Argument(table.Name), SQL_NTS),
          "SQLForeignKeys");
    return statement.Rows(kForeignKeyColumn);
}

} // namespace

void ReadCatalogByCalls(const std::string& connectionString, const std::string& table)
{
    const Connection connection(connectionString);
    const std::string quote = Info(connection, SQL_IDENTIFIER_QUOTE_CHAR);
    std::vector<Table> tables;
    for (const Row& row : ListOfTables(connection)) {
        const Place place{.Catalog = row[0], .Schema = row[1], .Name = row[2]};
        const std::string& type = row[3];
        if (type == "TABLE" && (table.empty() || place.Name == table))
            tables.push_back({.Columns = ColumnsOf(connection, quote, place),
                              .PrimaryKey = PrimaryKeyOf(connection, place),
                              .ForeignKeys = ForeignKeysOf(connection, place)});
    }
    if (tables.empty())
        throw std::runtime_error("no table was found");
}

} // namespace veldrane::floor_probe
