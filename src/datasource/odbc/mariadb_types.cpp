#include "datasource/odbc/mariadb_types.h"

#include <algorithm>
#include <array>
#include <limits>

namespace veldrane {
namespace {

constexpr std::uint64_t kDeclared = 0;

constexpr std::uint64_t kLongBlob = std::numeric_limits<std::uint32_t>::max();

struct TypeRow
{
    std::string_view Name;
    SQLSMALLINT SqlType = SQL_UNKNOWN_TYPE;
    std::string_view Word{};
    std::uint64_t Size = kDeclared;
    bool IsUnsigned = false;
};

// What the driver makes of each type, and SQL Server's word for it. Its "timestamp" is a binary, so times of day and
// dates of every kind are "datetime".
constexpr std::array kTypes{
    TypeRow{.Name = "tinyint", .SqlType = SQL_TINYINT, .Word = "tinyint"},
    TypeRow{.Name = "smallint", .SqlType = SQL_SMALLINT, .Word = "smallint"},
    TypeRow{.Name = "mediumint", .SqlType = SQL_INTEGER, .Word = "int"},
    TypeRow{.Name = "int", .SqlType = SQL_INTEGER, .Word = "int"},
    TypeRow{.Name = "bigint", .SqlType = SQL_BIGINT, .Word = "bigint"},
    TypeRow{.Name = "year", .SqlType = SQL_SMALLINT, .Word = "smallint", .IsUnsigned = true},
    TypeRow{.Name = "bit", .SqlType = SQL_BIT, .Word = "bit"},
    TypeRow{.Name = "decimal", .SqlType = SQL_DECIMAL, .Word = "decimal"},
    TypeRow{.Name = "float", .SqlType = SQL_REAL, .Word = "real"},
    TypeRow{.Name = "double", .SqlType = SQL_DOUBLE, .Word = "float"},
    TypeRow{.Name = "date", .SqlType = SQL_TYPE_DATE, .Word = "datetime"},
    TypeRow{.Name = "time", .SqlType = SQL_TYPE_TIME, .Word = "datetime"},
    TypeRow{.Name = "datetime", .SqlType = SQL_TYPE_TIMESTAMP, .Word = "datetime"},
    TypeRow{.Name = "timestamp", .SqlType = SQL_TYPE_TIMESTAMP, .Word = "datetime"},
    TypeRow{.Name = "char", .SqlType = SQL_WCHAR, .Word = "char"},
    TypeRow{.Name = "varchar", .SqlType = SQL_WVARCHAR, .Word = "varchar"},
    TypeRow{.Name = "tinytext", .SqlType = SQL_WLONGVARCHAR, .Word = "text"},
    TypeRow{.Name = "text", .SqlType = SQL_WLONGVARCHAR, .Word = "text"},
    TypeRow{.Name = "mediumtext", .SqlType = SQL_WLONGVARCHAR, .Word = "text"},
    TypeRow{.Name = "longtext", .SqlType = SQL_WLONGVARCHAR, .Word = "text"},
    TypeRow{.Name = "binary", .SqlType = SQL_BINARY, .Word = "binary"},
    TypeRow{.Name = "varbinary", .SqlType = SQL_VARBINARY, .Word = "varbinary"},
    TypeRow{.Name = "tinyblob", .SqlType = SQL_LONGVARBINARY, .Word = "image"},
    TypeRow{.Name = "blob", .SqlType = SQL_LONGVARBINARY, .Word = "image"},
    TypeRow{.Name = "mediumblob", .SqlType = SQL_LONGVARBINARY, .Word = "image"},
    TypeRow{.Name = "longblob", .SqlType = SQL_LONGVARBINARY, .Word = "image"},
    TypeRow{.Name = "enum", .SqlType = SQL_WCHAR, .Word = "varchar"},
    TypeRow{.Name = "set", .SqlType = SQL_WCHAR, .Word = "varchar"},
    TypeRow{.Name = "uuid", .SqlType = SQL_WCHAR, .Word = "uniqueidentifier", .Size = 36},
    TypeRow{.Name = "inet6", .SqlType = SQL_WCHAR, .Word = "varchar", .Size = 39},
    TypeRow{.Name = "inet4", .SqlType = SQL_WCHAR, .Word = "varchar", .Size = 15},
    TypeRow{.Name = "geometry", .SqlType = SQL_LONGVARBINARY, .Word = "image", .Size = kLongBlob},
    TypeRow{.Name = "point", .SqlType = SQL_LONGVARBINARY, .Word = "image", .Size = kLongBlob},
    TypeRow{.Name = "linestring", .SqlType = SQL_LONGVARBINARY, .Word = "image", .Size = kLongBlob},
    TypeRow{.Name = "polygon", .SqlType = SQL_LONGVARBINARY, .Word = "image", .Size = kLongBlob},
    TypeRow{.Name = "multipoint", .SqlType = SQL_LONGVARBINARY, .Word = "image", .Size = kLongBlob},
    TypeRow{.Name = "multilinestring", .SqlType = SQL_LONGVARBINARY, .Word = "image", .Size = kLongBlob},
    TypeRow{.Name = "multipolygon", .SqlType = SQL_LONGVARBINARY, .Word = "image", .Size = kLongBlob},
    TypeRow{.Name = "geometrycollection", .SqlType = SQL_LONGVARBINARY, .Word = "image", .Size = kLongBlob},
};

// Of more than one bit.
constexpr TypeRow kBits{.Name = "bit", .SqlType = SQL_BINARY, .Word = "binary"};

// The letters of its values belong to no character set.
constexpr TypeRow kBinaryChoice{.Name = "enum", .SqlType = SQL_BINARY, .Word = "varchar"};

const TypeRow* RowOf(const MariaDbType& type)
{
    if (type.Name == "bit" && type.Size > 1)
        return &kBits;
    if (type.IsBinary && (type.Name == "enum" || type.Name == "set"))
        return &kBinaryChoice;
    const auto* const found =
        std::find_if(kTypes.begin(), kTypes.end(), [&](const TypeRow& row) { return row.Name == type.Name; });
    return found == kTypes.end() ? nullptr : found;
}

} // namespace

std::optional<OdbcColumn> DescribedColumn(const MariaDbType& type)
{
    const TypeRow* row = RowOf(type);
    if (row == nullptr)
        return std::nullopt;
    return OdbcColumn{.Name = {},
                      .SqlType = row->SqlType,
                      .Size = row->Size == kDeclared ? type.Size : row->Size,
                      .Nullable = SQL_NO_NULLS,
                      .IsUnsigned = type.IsUnsigned || row->IsUnsigned,
                      .TypeName = {}};
}

std::string SqlServerWord(const MariaDbType& type)
{
    const TypeRow* row = RowOf(type);
    return row == nullptr ? type.Name : std::string(row->Word);
}

} // namespace veldrane
