#pragma once

#include <string>

namespace veldrane::floor_probe {

// The same through the driver's own functions, as for a database about whose catalog nothing is known: SQLTables, and
// then for each table the statement that opens it without a row, the description of its columns, SQLPrimaryKeys and
// SQLForeignKeys. With the name of a table, for that one alone.
//
// Throws std::runtime_error if there is no such table, or none at all, or the driver fails.
void ReadCatalogByCalls(const std::string& connectionString, const std::string& table);

} // namespace veldrane::floor_probe
