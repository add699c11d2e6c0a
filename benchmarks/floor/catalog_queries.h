#pragma once

#include <string>
#include <string_view>

namespace veldrane::floor_probe {

// As little as `define` needs: connects as the program does and reads all tables with their columns, primary keys and
// foreign keys by a query each over the database's own catalog, into memory. There is nothing here about names or
// types; those are the program's own work. The database is "sqlite", "postgresql" or "mariadb".
//
// Throws std::runtime_error if it is another one, holds no table, or the driver fails.
void ReadCatalogByQueries(std::string_view database, const std::string& connectionString);

} // namespace veldrane::floor_probe
