#pragma once

#include "datasource/catalog.h"
#include "datasource/odbc/statement.h"

#include <cstdint>
#include <string_view>

namespace veldrane {

// The field that a driver's column stands for, by the types of ODBC alone.
[[nodiscard]] CatalogField FieldOf(const OdbcColumn& column, CallWidth width);

// The size of a field of an ADO type: the width in bytes where the type fixes it, else what the driver says, at most
// what a Long holds.
[[nodiscard]] std::int32_t DefinedSizeOf(std::int32_t adoType, std::uint64_t columnSize);

// The field of a SQLite column. The driver knows few types and calls the rest text; the type that the column was
// declared with, which it hands on as the name, says more.
[[nodiscard]] CatalogField SqliteFieldOf(const OdbcColumn& column);

// The field of an SQL Server column, by its server's name for the type as the published table of its provider has it:
// "tinyint" counts from 0, "money" is no number like others, "timestamp" holds bytes, and "varchar(max)" is a "text".
[[nodiscard]] CatalogField SqlServerFieldOf(const OdbcColumn& column);

} // namespace veldrane
