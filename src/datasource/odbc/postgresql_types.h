#pragma once

#include "datasource/catalog.h"
#include "datasource/odbc/session.h"
#include "datasource/odbc/statement.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace veldrane {

using PostgreSqlOid = std::uint32_t;

// A type and what a column adds to it (pg_attribute.atttypmod): a length, a precision; -1 for nothing.
struct PostgreSqlTypeId
{
    PostgreSqlOid Oid = 0;
    std::int32_t Modifier = -1;

    // NOLINTNEXTLINE(modernize-use-nullptr): the check finds a 0 in what the compiler makes of it
    friend auto operator<=>(const PostgreSqlTypeId&, const PostgreSqlTypeId&) = default;
};

struct PostgreSqlType
{
    std::string Name;           // as the source calls it: "int4"; a domain by its own name
    std::string BaseName;       // what is under all domains
    std::int32_t Modifier = -1; // of the base type
    bool IsRequired = false;    // a domain that takes no NULL
    CatalogField Field;         // without name: what a column of the type opens as
};

// The number of characters that a modifier stands for, of the types that have a length; 0 for none.
[[nodiscard]] std::int32_t LengthOf(const PostgreSqlType& type);

struct NumericDigits
{
    std::int32_t Precision = 0;
    std::int32_t Scale = 0;
};

// The digits that a numeric type was given; none where it has as many as need be.
[[nodiscard]] std::optional<NumericDigits> DigitsOf(const PostgreSqlType& type);

// The types of one database. How a column opens is up to the driver and to options of its own in the connection string
// or the data source, so the driver itself is asked: once for each type and length, however many columns have it.
class PostgreSqlTypes
{
  public:
    explicit PostgreSqlTypes(const OdbcSession& session) : session_(session) {}

    // Makes the types known.
    void Learn(const std::set<PostgreSqlTypeId>& types);

    // Throws std::out_of_range for a type that was never learnt.
    [[nodiscard]] const PostgreSqlType& Of(PostgreSqlTypeId type) const { return types_.at(type); }

  private:
    struct Described
    {
        PostgreSqlTypeId Id;
        std::string Stated; // the base type as a statement names it
        PostgreSqlType Type;
    };

    [[nodiscard]] std::vector<Described> ReadDefinitions(const std::vector<PostgreSqlTypeId>& types) const;
    void Describe(std::vector<Described>& types) const;

    const OdbcSession& session_;
    std::map<PostgreSqlTypeId, PostgreSqlType> types_;
};

// The field that a driver's column stands for. The driver calls text long from some length on; a type with a length
// stays what it is.
[[nodiscard]] CatalogField PostgreSqlFieldOf(const OdbcColumn& column, CallWidth width);

} // namespace veldrane
