#pragma once

#include <optional>
#include <string>
#include <string_view>

// The statement that opens a table for its fields, "SELECT * FROM name WHERE 1=0": how it is written and taken apart.
namespace veldrane {

// The statement for a table by its name, which stands in brackets if it can't stand bare (NeedsBrackets).
[[nodiscard]] std::string FieldStatement(std::string_view tableName);

// The statement with the reference as it stands, quoted as a data source wants it.
[[nodiscard]] std::string FieldStatementOf(std::string_view reference);

// The name of the table that the statement opens, brackets taken off; none for another statement.
[[nodiscard]] std::optional<std::string> TableOfStatement(std::string_view statement);

} // namespace veldrane
