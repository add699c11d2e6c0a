#pragma once

#include "schema.h"

#include <ostream>
#include <vector>

namespace veldrane::bench {

enum class Dialect
{
    Sqlite,
    PostgreSql,
    MariaDb,
};

// The statements that make the tables, each table behind those that it refers to. A server also learns how large its
// own catalog has become: those that people use know, from their upkeep by night.
void WriteSql(std::ostream& out, const std::vector<SchemaTable>& schema, Dialect dialect);

} // namespace veldrane::bench
