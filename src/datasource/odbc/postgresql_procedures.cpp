#include "datasource/odbc/postgresql_procedures.h"

#include "datasource/ado_types.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>

namespace veldrane {
namespace {

constexpr std::string_view kFromProcedures =
    " FROM pg_catalog.pg_proc p JOIN pg_catalog.pg_namespace n ON n.oid = p.pronamespace"
    " JOIN pg_catalog.pg_type r ON r.oid = p.prorettype";

// 2281 is the type "internal": such an argument can't be written down.
constexpr std::string_view kWhereCallable =
    " WHERE p.prokind IN ('f', 'p') AND pg_catalog.left(n.nspname, 3) <> 'pg_' AND n.nspname <> 'information_schema'"
    " AND NOT (r.typtype = 'p' AND (r.typname IN ('trigger', 'event_trigger', 'internal')"
    " OR r.typname LIKE '%handler')) AND NOT 2281 = ANY (p.proargtypes)"
    " AND pg_catalog.has_schema_privilege(n.oid, 'USAGE') AND pg_catalog.has_function_privilege(p.oid, 'EXECUTE')";

struct Procedure
{
    PostgreSqlOid Oid = 0;
    std::string Name;             // as shown
    PostgreSqlOid ReturnType = 0; // 0 for none
};

constexpr char kColumnOfRows = 't';

struct Argument
{
    PostgreSqlTypeId Type;
    char Mode = 'i'; // pg_proc.proargmodes: i, o, b for both, v for the last of any number, t
    std::string Name;
    std::optional<std::string> Default;
};

using Arguments = std::unordered_map<PostgreSqlOid, std::vector<Argument>>; // by procedure

std::vector<Procedure> ReadProcedures(const OdbcSession& session)
{
    OdbcStatement statement(session);
    statement.Execute(
        "SELECT p.oid, CASE WHEN NOT pg_catalog.pg_function_is_visible(p.oid) THEN n.nspname END, p.proname,"
        " CASE WHEN p.prokind = 'f' AND r.typname <> 'void' AND NOT p.proretset"
        " AND NOT coalesce(p.proargmodes && ARRAY['o', 'b', 't']::\"char\"[], false) THEN r.oid ELSE 0 END" +
        std::string(kFromProcedures) + std::string(kWhereCallable) +
        " ORDER BY pg_catalog.pg_function_is_visible(p.oid) DESC, n.nspname COLLATE \"C\","
        " p.proname COLLATE \"C\", p.oid");
    std::vector<Procedure> procedures;
    std::set<std::string> taken;
    while (statement.Fetch()) {
        Procedure procedure;
        procedure.Oid = static_cast<PostgreSqlOid>(statement.Number(1));
        const std::optional<std::string> schema = statement.Text(2);
        procedure.Name = (schema ? *schema + "." : "") + statement.Text(3).value_or("");
        procedure.ReturnType = static_cast<PostgreSqlOid>(statement.Number(4));
        if (taken.insert(procedure.Name).second)
            procedures.push_back(std::move(procedure));
    }
    return procedures;
}

Arguments ReadArguments(const OdbcSession& session)
{
    OdbcStatement statement(session);
    statement.Execute("SELECT p.oid, a.type, coalesce(p.proargmodes[a.place], 'i'), p.proargnames[a.place],"
                      " CASE WHEN p.pronargdefaults > 0"
                      " THEN pg_catalog.pg_get_function_arg_default(p.oid, a.place::int) END" +
                      std::string(kFromProcedures) +
                      " CROSS JOIN LATERAL pg_catalog.unnest(coalesce(p.proallargtypes, p.proargtypes::oid[]))"
                      " WITH ORDINALITY AS a(type, place)" +
                      std::string(kWhereCallable) + " ORDER BY p.oid, a.place");
    Arguments arguments;
    while (statement.Fetch()) {
        Argument& argument = arguments[static_cast<PostgreSqlOid>(statement.Number(1))].emplace_back();
        argument.Type.Oid = static_cast<PostgreSqlOid>(statement.Number(2));
        argument.Mode = statement.Text(3).value_or("i").front();
        argument.Name = statement.Text(4).value_or("");
        argument.Default = statement.Text(5);
    }
    return arguments;
}

struct TypeWord
{
    std::string_view Name;
    std::string_view Word; // SQL Server's
};

// The rules know SQL Server's words; a type that has none there keeps its own.
constexpr std::array kTypeWords{
    TypeWord{"int2", "smallint"},    TypeWord{"int4", "int"},           TypeWord{"int8", "bigint"},
    TypeWord{"float4", "real"},      TypeWord{"float8", "float"},       TypeWord{"bool", "bit"},
    TypeWord{"bpchar", "char"},      TypeWord{"name", "varchar"},       TypeWord{"uuid", "uniqueidentifier"},
    TypeWord{"date", "datetime"},    TypeWord{"timestamp", "datetime"}, TypeWord{"timestamptz", "datetime"},
    TypeWord{"time", "datetime"},    TypeWord{"bytea", "varbinary"},    TypeWord{"citext", "varchar"},
    TypeWord{"interval", "varchar"}, TypeWord{"timetz", "varchar"},     TypeWord{"inet", "varchar"},
    TypeWord{"cidr", "varchar"},     TypeWord{"macaddr", "varchar"},    TypeWord{"macaddr8", "varchar"},
    TypeWord{"json", "text"},        TypeWord{"jsonb", "text"},         TypeWord{"xml", "text"},
};

std::string WordOf(const PostgreSqlType& type)
{
    const auto* const found = std::find_if(kTypeWords.begin(), kTypeWords.end(),
                                           [&](const TypeWord& each) { return each.Name == type.BaseName; });
    return found == kTypeWords.end() ? type.BaseName : std::string(found->Word);
}

struct Digits
{
    std::int32_t AdoType;
    std::string_view Precision;
};

// The decimal digits of the types that have a fixed number, as OLE DB counts them.
constexpr std::array kDigits{Digits{adSmallInt, "5"}, Digits{adInteger, "10"}, Digits{adBigInt, "19"},
                             Digits{adSingle, "7"},   Digits{adDouble, "15"},  Digits{adCurrency, "19"}};

void DescribeType(SPParameter& parameter, const PostgreSqlType& type)
{
    parameter.DataType = WordOf(type);
    parameter.DataTypeNumber = static_cast<std::int16_t>(type.Field.Type);
    parameter.LocalDataTypeName = type.Name;
    if (const std::int32_t length = LengthOf(type); length > 0)
        parameter.CharacterMaximumLength = std::to_string(length);
    if (const auto digits = DigitsOf(type)) {
        parameter.NumericPrecision = std::to_string(digits->Precision);
        parameter.NumericScale = std::to_string(digits->Scale);
        return;
    }
    const auto* const fixed = std::find_if(kDigits.begin(), kDigits.end(),
                                           [&](const Digits& each) { return each.AdoType == type.Field.Type; });
    if (fixed != kDigits.end())
        parameter.NumericPrecision = fixed->Precision;
}

CatalogParameter ParameterOf(const Procedure& procedure, std::string name, std::int32_t direction, std::size_t place)
{
    CatalogParameter parameter{.ProcedureName = procedure.Name, .Parameter = {}};
    parameter.Parameter.ParameterName = std::move(name);
    parameter.Parameter.Direction = direction;
    parameter.Parameter.OrdianalPosition = static_cast<std::int16_t>(place);
    parameter.Parameter.IsNullable = true; // the catalog does not tell
    return parameter;
}

std::int32_t DirectionOf(char mode)
{
    if (mode == 'o')
        return parameter_direction::kOutput;
    return mode == 'b' ? parameter_direction::kInputOutput : parameter_direction::kInput;
}

void AppendParameters(std::vector<CatalogParameter>& parameters, const Procedure& procedure,
                      const std::vector<Argument>& arguments, const PostgreSqlTypes& types)
{
    if (procedure.ReturnType != 0) {
        parameters.push_back(ParameterOf(procedure, "RETURN_VALUE", parameter_direction::kReturnValue, 0));
        DescribeType(parameters.back().Parameter, types.Of({.Oid = procedure.ReturnType}));
    }
    std::size_t place = 0;
    for (const Argument& argument : arguments) {
        if (argument.Mode == kColumnOfRows)
            continue;
        ++place;
        std::string name = argument.Name.empty() ? "arg" + std::to_string(place) : argument.Name;
        parameters.push_back(ParameterOf(procedure, std::move(name), DirectionOf(argument.Mode), place));
        SPParameter& parameter = parameters.back().Parameter;
        DescribeType(parameter, types.Of(argument.Type));
        parameter.ParameterHasDefault = argument.Default.has_value();
        parameter.DefaultValue = argument.Default.value_or("");
    }
}

void LearnTypes(PostgreSqlTypes& types, const std::vector<Procedure>& procedures, const Arguments& arguments)
{
    std::set<PostgreSqlTypeId> used;
    for (const Procedure& procedure : procedures)
        if (procedure.ReturnType != 0)
            used.insert({.Oid = procedure.ReturnType});
    for (const auto& [procedure, each] : arguments)
        for (const Argument& argument : each)
            used.insert(argument.Type);
    types.Learn(used);
}

} // namespace

std::vector<std::string> ReadPostgreSqlProcedures(const OdbcSession& session)
{
    std::vector<std::string> names;
    for (Procedure& procedure : ReadProcedures(session))
        names.push_back(std::move(procedure.Name));
    return names;
}

std::vector<CatalogParameter> ReadPostgreSqlParameters(const OdbcSession& session, PostgreSqlTypes& types)
{
    const std::vector<Procedure> procedures = ReadProcedures(session);
    const Arguments arguments = ReadArguments(session);
    LearnTypes(types, procedures, arguments);
    std::vector<CatalogParameter> parameters;
    for (const Procedure& procedure : procedures) {
        const auto found = arguments.find(procedure.Oid);
        AppendParameters(parameters, procedure, found == arguments.end() ? std::vector<Argument>{} : found->second,
                         types);
    }
    return parameters;
}

} // namespace veldrane
