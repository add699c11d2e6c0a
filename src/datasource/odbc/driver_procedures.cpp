#include "datasource/odbc/driver_procedures.h"

#include "datasource/ado_types.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace veldrane {
namespace {

// Places of the columns in the answers, as ODBC fixes them.
namespace procedures_column {
constexpr SQLUSMALLINT kSchema = 2;
constexpr SQLUSMALLINT kName = 3;
} // namespace procedures_column

namespace parameters_column {
constexpr SQLUSMALLINT kSchema = 2;
constexpr SQLUSMALLINT kProcedure = 3;
constexpr SQLUSMALLINT kName = 4;
constexpr SQLUSMALLINT kKind = 5;
constexpr SQLUSMALLINT kType = 6;
constexpr SQLUSMALLINT kTypeName = 7;
constexpr SQLUSMALLINT kSize = 8;
constexpr SQLUSMALLINT kDigits = 10;
constexpr SQLUSMALLINT kNullable = 12;
constexpr SQLUSMALLINT kRemarks = 13;
constexpr SQLUSMALLINT kDefault = 14;
constexpr SQLUSMALLINT kOrdinal = 18;
} // namespace parameters_column

constexpr std::array kDirections{
    std::pair{SQL_PARAM_INPUT, parameter_direction::kInput},
    std::pair{SQL_PARAM_INPUT_OUTPUT, parameter_direction::kInputOutput},
    std::pair{SQL_PARAM_OUTPUT, parameter_direction::kOutput},
    std::pair{SQL_RETURN_VALUE, parameter_direction::kReturnValue},
};

// None for what is no parameter, such as a column of the rows that a function answers with.
std::optional<std::int32_t> DirectionOf(long kind)
{
    const auto found =
        std::find_if(kDirections.begin(), kDirections.end(), [&](const auto& row) { return row.first == kind; });
    return found == kDirections.end() ? std::nullopt : std::optional(found->second);
}

bool HasLength(std::int32_t adoType)
{
    constexpr std::array kTypes{adChar,   adVarChar,      adLongVarChar, adWChar,        adVarWChar,
                                adBinary, adLongVarWChar, adVarBinary,   adLongVarBinary};
    return std::find(kTypes.begin(), kTypes.end(), adoType) != kTypes.end();
}

bool HasPrecision(std::int32_t adoType)
{
    constexpr std::array kTypes{adTinyInt, adUnsignedTinyInt, adSmallInt, adUnsignedSmallInt, adInteger, adUnsignedInt,
                                adBigInt,  adUnsignedBigInt,  adSingle,   adDouble,           adNumeric, adCurrency};
    return std::find(kTypes.begin(), kTypes.end(), adoType) != kTypes.end();
}

// Without a name: the return value, or an argument by its place.
std::string NameOf(const SPParameter& parameter)
{
    if (parameter.Direction == parameter_direction::kReturnValue)
        return "RETURN_VALUE";
    return "arg" + std::to_string(parameter.OrdianalPosition);
}

// Reads the row from left to right, as drivers of old insist on. The rules of one procedure see its rows alone.
class ParameterRow
{
  public:
    ParameterRow(OdbcStatement& row, const FieldOfColumn& fieldOf)
        : Schema(row.Text(parameters_column::kSchema).value_or("")),
          Procedure(row.Text(parameters_column::kProcedure).value_or(""))
    {
        Parameter.ParameterName = row.Text(parameters_column::kName).value_or("");
        const std::optional<std::int32_t> direction = DirectionOf(row.Number(parameters_column::kKind));
        IsParameter = direction.has_value();
        Parameter.Direction = direction.value_or(0);
        ReadType(row, fieldOf);
        Parameter.IsNullable = row.Number(parameters_column::kNullable) != SQL_NO_NULLS;
        Parameter.Description = row.Text(parameters_column::kRemarks).value_or("");
        const std::optional<std::string> defaultValue = row.Text(parameters_column::kDefault);
        Parameter.ParameterHasDefault = defaultValue.has_value();
        Parameter.DefaultValue = defaultValue.value_or("");
        Parameter.OrdianalPosition = static_cast<std::int16_t>(row.Number(parameters_column::kOrdinal));
        if (Parameter.ParameterName.empty())
            Parameter.ParameterName = NameOf(Parameter);
    }

    std::string Schema;
    std::string Procedure;
    bool IsParameter = false;
    SPParameter Parameter;

  private:
    void ReadType(OdbcStatement& row, const FieldOfColumn& fieldOf)
    {
        OdbcColumn column;
        column.SqlType = static_cast<SQLSMALLINT>(row.Number(parameters_column::kType));
        column.TypeName = row.Text(parameters_column::kTypeName).value_or("");
        const std::string size = row.Text(parameters_column::kSize).value_or("");
        std::from_chars(size.data(), size.data() + size.size(), column.Size);
        const CatalogField field = fieldOf(column);
        const std::int32_t type = field.Type;
        const std::string digits = row.Text(parameters_column::kDigits).value_or("");
        Parameter.DataType = column.TypeName;
        Parameter.DataTypeNumber = static_cast<std::int16_t>(type);
        if (HasLength(type))
            Parameter.CharacterMaximumLength = size == "0" ? std::to_string(field.DefinedSize) : size;
        if (HasPrecision(type)) {
            Parameter.NumericPrecision = size;
            Parameter.NumericScale = digits;
        }
    }
};

// The first of the procedures that share a name: it ends where the places of its parameters begin anew.
class FirstOverload
{
  public:
    bool Holds(const ParameterRow& row)
    {
        const long ordinal = row.Parameter.OrdianalPosition;
        const bool goesOn = row.Schema == schema_ && row.Procedure == procedure_ && ordinal > last_;
        if (!goesOn)
            isFirst_ = seen_.emplace(row.Schema, row.Procedure).second;
        schema_ = row.Schema;
        procedure_ = row.Procedure;
        last_ = ordinal;
        return isFirst_;
    }

  private:
    std::set<std::pair<std::string, std::string>> seen_;
    std::string schema_;
    std::string procedure_;
    long last_ = 0;
    bool isFirst_ = false;
};

using ShownNames = std::map<std::pair<std::string, std::string>, std::string>; // by schema and name

void ReadParametersOf(const OdbcSession& session, const OdbcName& catalog, const OdbcName& schema,
                      const ShownNames& shown, const FieldOfColumn& fieldOf, std::vector<CatalogParameter>& parameters)
{
    OdbcStatement statement(session);
    statement.ProcedureColumns(catalog, schema);
    FirstOverload overload;
    while (statement.Fetch()) {
        ParameterRow row(statement, fieldOf);
        const auto procedure = shown.find({row.Schema, row.Procedure});
        const bool isOfFirst = overload.Holds(row);
        if (procedure != shown.end() && isOfFirst && row.IsParameter)
            parameters.push_back({.ProcedureName = procedure->second, .Parameter = std::move(row.Parameter)});
    }
}

} // namespace

std::vector<DriverProcedure> ReadDriverProcedures(const OdbcSession& session, const OdbcName& catalog,
                                                  const OdbcName& schema)
{
    OdbcStatement statement(session);
    const std::string escape = session.Info(SQL_SEARCH_PATTERN_ESCAPE);
    statement.Procedures(catalog, schema ? OdbcName(PatternOf(*schema, escape)) : std::nullopt);
    std::vector<DriverProcedure> procedures;
    while (statement.Fetch()) {
        DriverProcedure& procedure = procedures.emplace_back();
        procedure.Schema = statement.Text(procedures_column::kSchema);
        procedure.Name = statement.Text(procedures_column::kName).value_or("");
        procedure.Shown = procedure.Name;
    }
    return procedures;
}

std::vector<CatalogParameter> ReadDriverParameters(const OdbcSession& session, const OdbcName& catalog,
                                                   const std::vector<DriverProcedure>& procedures,
                                                   const FieldOfColumn& fieldOf)
{
    const std::string escape = session.Info(SQL_SEARCH_PATTERN_ESCAPE);
    ShownNames shown;
    std::set<OdbcName> schemas;
    for (const DriverProcedure& procedure : procedures) {
        shown.emplace(std::pair(procedure.Schema.value_or(""), procedure.Name), procedure.Shown);
        schemas.insert(procedure.Schema ? OdbcName(PatternOf(*procedure.Schema, escape)) : std::nullopt);
    }
    std::vector<CatalogParameter> parameters;
    for (const OdbcName& schema : schemas)
        ReadParametersOf(session, catalog, schema, shown, fieldOf, parameters);
    return parameters;
}

} // namespace veldrane
