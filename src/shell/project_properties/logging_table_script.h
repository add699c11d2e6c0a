#pragma once

#include <string>
#include <string_view>
#include <vector>

// The script that makes the table in which a component keeps the transactions of generated objects, for SQL Server.
namespace veldrane {

// Lines end in CR LF. Each batch ends in a line "GO", which tools for SQL Server know and its servers don't.
[[nodiscard]] std::string LoggingTableScript(std::string_view tableName);

// The batches of a script, without the lines that divide them; empty ones are left out.
[[nodiscard]] std::vector<std::string> Batches(std::string_view script);

} // namespace veldrane
