#pragma once

#include "datasource/odbc/statement.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veldrane {

// The characters of text or the bytes of binary, in a question to information_schema.COLUMNS or PARAMETERS; NULL for
// other types. The driver counts how many characters of the connection's character set a long text has room for.
inline constexpr std::string_view kMariaDbLength =
    "IF(DATA_TYPE = 'longtext', 4294967295 DIV (SELECT MAXLEN FROM information_schema.CHARACTER_SETS"
    " WHERE CHARACTER_SET_NAME = @@character_set_results), CHARACTER_MAXIMUM_LENGTH)";

// A type of MariaDB as information_schema tells it.
struct MariaDbType
{
    std::string Name;       // DATA_TYPE, in lower case and without a length
    std::uint64_t Size = 0; // kMariaDbLength, or the bits of a bit type; 0 where it has none
    bool IsUnsigned = false;
    bool IsBinary = false; // the collation is the binary one: an enumeration is not text then
};

// The column that the driver describes when a table with a column of the type is opened, nameless and not nullable;
// none for a type that is not known here.
[[nodiscard]] std::optional<OdbcColumn> DescribedColumn(const MariaDbType& type);

// SQL Server's word for the type; the type's own name where there is none.
[[nodiscard]] std::string SqlServerWord(const MariaDbType& type);

} // namespace veldrane
