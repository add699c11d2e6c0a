#include "datasource/odbc/mariadb_procedures.h"

#include "datasource/odbc/field_types.h"
#include "datasource/odbc/mariadb_types.h"
#include "text/case_folding.h"

#include <array>
#include <cstdlib>
#include <string_view>
#include <unordered_map>

namespace veldrane {
namespace {

struct Routine
{
    std::string Name;
    std::string Type; // "PROCEDURE" or "FUNCTION"
};

// Packages, of which each is a routine of its own there, are left out. Those of a database whose name differs in case
// alone are another's.
std::vector<Routine> ReadRoutines(const OdbcSession& session)
{
    OdbcStatement statement(session);
    statement.Execute("SELECT ROUTINE_NAME, ROUTINE_TYPE FROM information_schema.ROUTINES"
                      " WHERE BINARY ROUTINE_SCHEMA = DATABASE() AND ROUTINE_TYPE IN ('PROCEDURE', 'FUNCTION')"
                      " ORDER BY ROUTINE_NAME, ROUTINE_TYPE DESC");
    std::vector<Routine> routines;
    while (statement.Fetch()) {
        Routine& routine = routines.emplace_back();
        routine.Name = statement.Text(1).value_or("");
        routine.Type = statement.Text(2).value_or("");
    }
    return routines;
}

// The places of the columns in the question for parameters.
namespace parameter_column {
constexpr SQLUSMALLINT kRoutine = 1;
constexpr SQLUSMALLINT kRoutineType = 2;
constexpr SQLUSMALLINT kPosition = 3;
constexpr SQLUSMALLINT kMode = 4;
constexpr SQLUSMALLINT kName = 5;
constexpr SQLUSMALLINT kType = 6;
constexpr SQLUSMALLINT kLength = 7;
constexpr SQLUSMALLINT kPrecision = 8;
constexpr SQLUSMALLINT kScale = 9;
constexpr SQLUSMALLINT kIsBinary = 10;
constexpr SQLUSMALLINT kDeclaration = 11;
} // namespace parameter_column

std::string Question()
{
    return "SELECT SPECIFIC_NAME, ROUTINE_TYPE, ORDINAL_POSITION, PARAMETER_MODE, PARAMETER_NAME, DATA_TYPE, " +
           std::string(kMariaDbLength) +
           ", NUMERIC_PRECISION, NUMERIC_SCALE, COLLATION_NAME = 'binary', DTD_IDENTIFIER"
           " FROM information_schema.PARAMETERS WHERE BINARY SPECIFIC_SCHEMA = DATABASE()"
           " ORDER BY SPECIFIC_NAME, ROUTINE_TYPE DESC, ORDINAL_POSITION";
}

struct NamedDirection
{
    std::string_view Mode;
    std::int32_t Direction;
};

constexpr std::array kDirections{NamedDirection{"IN", parameter_direction::kInput},
                                 NamedDirection{"INOUT", parameter_direction::kInputOutput},
                                 NamedDirection{"OUT", parameter_direction::kOutput}};

// The return value has no mode.
std::int32_t DirectionOf(std::string_view mode)
{
    for (const NamedDirection& each : kDirections)
        if (each.Mode == mode)
            return each.Direction;
    return parameter_direction::kReturnValue;
}

std::uint64_t SizeOf(const std::optional<std::string>& digits)
{
    return std::strtoull(digits.value_or("0").c_str(), nullptr, 10);
}

// A parameter of a type that is not known passes as text.
CatalogField FieldOfType(const MariaDbType& type)
{
    const OdbcColumn text{.Name = {}, .SqlType = SQL_WVARCHAR, .Size = type.Size, .TypeName = {}};
    return FieldOf(DescribedColumn(type).value_or(text), CallWidth::Wide);
}

SPParameter ReadParameter(OdbcStatement& row)
{
    SPParameter parameter;
    parameter.OrdianalPosition = static_cast<std::int16_t>(row.Number(parameter_column::kPosition));
    parameter.Direction = DirectionOf(row.Text(parameter_column::kMode).value_or(""));
    parameter.ParameterName = row.Text(parameter_column::kName).value_or("RETURN_VALUE");
    MariaDbType type{.Name = row.Text(parameter_column::kType).value_or("")};
    const std::optional<std::string> length = row.Text(parameter_column::kLength);
    const std::optional<std::string> precision = row.Text(parameter_column::kPrecision);
    parameter.NumericPrecision = precision.value_or("");
    parameter.NumericScale = row.Text(parameter_column::kScale).value_or("");
    type.Size = SizeOf(length ? length : precision);
    type.IsBinary = row.Number(parameter_column::kIsBinary) != 0;
    parameter.LocalDataTypeName = row.Text(parameter_column::kDeclaration).value_or("");
    type.IsUnsigned = parameter.LocalDataTypeName.find("unsigned") != std::string::npos;

    const CatalogField field = FieldOfType(type);
    parameter.DataType = SqlServerWord(type);
    parameter.DataTypeNumber = static_cast<std::int16_t>(field.Type);
    if (length)
        parameter.CharacterMaximumLength = std::to_string(field.DefinedSize);
    parameter.IsNullable = true;
    return parameter;
}

} // namespace

std::vector<std::string> MariaDbProcedures(const OdbcSession& session)
{
    std::vector<std::string> names;
    for (Routine& routine : ReadRoutines(session))
        names.push_back(std::move(routine.Name));
    return names;
}

std::vector<CatalogParameter> MariaDbParameters(const OdbcSession& session)
{
    std::unordered_map<std::string, std::string> typeOfFirst;
    for (Routine& routine : ReadRoutines(session))
        typeOfFirst.emplace(text::Fold(routine.Name), std::move(routine.Type));
    OdbcStatement statement(session);
    statement.Execute(Question());
    std::vector<CatalogParameter> parameters;
    while (statement.Fetch()) {
        std::string routine = statement.Text(parameter_column::kRoutine).value_or("");
        const auto first = typeOfFirst.find(text::Fold(routine));
        if (first == typeOfFirst.end() || statement.Text(parameter_column::kRoutineType) != first->second)
            continue;
        parameters.push_back({.ProcedureName = std::move(routine), .Parameter = ReadParameter(statement)});
    }
    return parameters;
}

} // namespace veldrane
