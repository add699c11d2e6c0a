#include "support/tds_catalog.h"

#include "support/tds_types.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>

namespace veldrane::testing {
namespace {

using Rows = std::vector<TdsRow>;
using Columns = std::vector<TdsColumn>;

Columns ColumnsOf(std::initializer_list<std::pair<const char*, const char*>> columns)
{
    Columns all;
    for (const auto& [name, type] : columns)
        all.push_back({.Name = name, .Type = type});
    return all;
}

const Columns kTables = ColumnsOf({{"TABLE_QUALIFIER", "sysname"},
                                   {"TABLE_OWNER", "sysname"},
                                   {"TABLE_NAME", "sysname"},
                                   {"TABLE_TYPE", "varchar(32)"},
                                   {"REMARKS", "varchar(254)"}});

const Columns kPrimaryKeys = ColumnsOf({{"TABLE_QUALIFIER", "sysname"},
                                        {"TABLE_OWNER", "sysname"},
                                        {"TABLE_NAME", "sysname"},
                                        {"COLUMN_NAME", "sysname"},
                                        {"KEY_SEQ", "smallint"},
                                        {"PK_NAME", "sysname"}});

const Columns kForeignKeys = ColumnsOf({{"PKTABLE_QUALIFIER", "sysname"},
                                        {"PKTABLE_OWNER", "sysname"},
                                        {"PKTABLE_NAME", "sysname"},
                                        {"PKCOLUMN_NAME", "sysname"},
                                        {"FKTABLE_QUALIFIER", "sysname"},
                                        {"FKTABLE_OWNER", "sysname"},
                                        {"FKTABLE_NAME", "sysname"},
                                        {"FKCOLUMN_NAME", "sysname"},
                                        {"KEY_SEQ", "smallint"},
                                        {"UPDATE_RULE", "smallint"},
                                        {"DELETE_RULE", "smallint"},
                                        {"FK_NAME", "sysname"},
                                        {"PK_NAME", "sysname"},
                                        {"DEFERRABILITY", "smallint"}});

const Columns kProcedures = ColumnsOf({{"PROCEDURE_QUALIFIER", "sysname"},
                                       {"PROCEDURE_OWNER", "sysname"},
                                       {"PROCEDURE_NAME", "nvarchar(134)"},
                                       {"NUM_INPUT_PARAMS", "int"},
                                       {"NUM_OUTPUT_PARAMS", "int"},
                                       {"NUM_RESULT_SETS", "int"},
                                       {"REMARKS", "varchar(254)"},
                                       {"PROCEDURE_TYPE", "smallint"}});

const Columns kParameters = ColumnsOf({{"PROCEDURE_QUALIFIER", "sysname"},
                                       {"PROCEDURE_OWNER", "sysname"},
                                       {"PROCEDURE_NAME", "nvarchar(134)"},
                                       {"COLUMN_NAME", "sysname"},
                                       {"COLUMN_TYPE", "smallint"},
                                       {"DATA_TYPE", "smallint"},
                                       {"TYPE_NAME", "sysname"},
                                       {"PRECISION", "int"},
                                       {"LENGTH", "int"},
                                       {"SCALE", "smallint"},
                                       {"RADIX", "smallint"},
                                       {"NULLABLE", "smallint"},
                                       {"REMARKS", "varchar(254)"},
                                       {"COLUMN_DEF", "nvarchar(4000)"},
                                       {"SQL_DATA_TYPE", "smallint"},
                                       {"SQL_DATETIME_SUB", "smallint"},
                                       {"CHAR_OCTET_LENGTH", "int"},
                                       {"ORDINAL_POSITION", "int"},
                                       {"IS_NULLABLE", "varchar(254)"}});

// A pattern of LIKE: "%" for anything, "_" for a letter, "[_]" for an underscore.
bool Matches(std::string_view name, std::string_view pattern)
{
    if (pattern.empty())
        return name.empty();
    if (pattern.front() == '%')
        return Matches(name, pattern.substr(1)) || (!name.empty() && Matches(name.substr(1), pattern));
    if (name.empty())
        return false;
    if (pattern.size() >= 3 && pattern.front() == '[' && pattern[2] == ']')
        return name.front() == pattern[1] && Matches(name.substr(1), pattern.substr(3));
    return (pattern.front() == '_' || pattern.front() == name.front()) && Matches(name.substr(1), pattern.substr(1));
}

std::string Given(const TdsCall& call, const std::string& parameter)
{
    return call.Find(parameter).value_or("%");
}

void AnswerRows(const Columns& columns, const Rows& rows, TdsAnswer& answer)
{
    answer.Columns(columns);
    for (const TdsRow& row : rows)
        answer.Row(columns, row);
    answer.EndProcedure();
}

void AnswerTables(const TdsContents& contents, const TdsCall& call, TdsAnswer& answer)
{
    Rows rows;
    for (const TdsTable& table : contents.Tables)
        if (Matches(table.Name, Given(call, "@table_name")) && Matches(table.Owner, Given(call, "@table_owner")))
            rows.push_back({contents.Database, table.Owner, table.Name, table.Type, std::nullopt});
    std::stable_sort(rows.begin(), rows.end(), [](const TdsRow& left, const TdsRow& right) {
        return std::tie(left[3], left[1], left[2]) < std::tie(right[3], right[1], right[2]);
    });
    AnswerRows(kTables, rows, answer);
}

const TdsTable* FindTable(const TdsContents& contents, const std::string& owner, const std::string& name)
{
    const auto found = std::find_if(contents.Tables.begin(), contents.Tables.end(),
                                    [&](const TdsTable& table) { return table.Owner == owner && table.Name == name; });
    return found == contents.Tables.end() ? nullptr : &*found;
}

// A bare name means the login's own schema, then the one that is everybody's.
const TdsTable* FindTable(const TdsContents& contents, const std::optional<std::string>& owner, const std::string& name)
{
    if (owner)
        return FindTable(contents, *owner, name);
    const TdsTable* own = FindTable(contents, contents.Schema, name);
    return own != nullptr ? own : FindTable(contents, std::string("dbo"), name);
}

void AnswerPrimaryKeys(const TdsContents& contents, const TdsCall& call, TdsAnswer& answer)
{
    Rows rows;
    const TdsTable* table = FindTable(contents, call.Find("@table_owner"), Given(call, "@table_name"));
    if (table != nullptr && table->PrimaryKey)
        for (const std::string& column : table->PrimaryKey->Columns)
            rows.push_back({contents.Database, table->Owner, table->Name, column, std::to_string(rows.size() + 1),
                            table->PrimaryKey->Name});
    AnswerRows(kPrimaryKeys, rows, answer);
}

void AnswerForeignKeys(const TdsContents& contents, const TdsCall& call, TdsAnswer& answer)
{
    Rows rows;
    if (const TdsTable* table = FindTable(contents, call.Find("@fktable_owner"), Given(call, "@fktable_name")))
        for (const TdsForeignKey& key : table->ForeignKeys)
            for (std::size_t at = 0; at < key.Columns.size(); ++at)
                rows.push_back({contents.Database, key.RelatedOwner, key.RelatedTable, key.RelatedColumns.at(at),
                                contents.Database, table->Owner, table->Name, key.Columns[at], std::to_string(at + 1),
                                "1", "1", key.Name, "PK_" + key.RelatedTable, "7"});
    AnswerRows(kForeignKeys, rows, answer);
}

void AnswerProcedures(const TdsContents& contents, const TdsCall& call, TdsAnswer& answer)
{
    Rows rows;
    for (const TdsProcedure& procedure : contents.Procedures)
        if (Matches(procedure.Name.substr(0, procedure.Name.find(';')), Given(call, "@sp_name")) &&
            Matches(procedure.Owner, Given(call, "@sp_owner")))
            rows.push_back({contents.Database, procedure.Owner, procedure.Name, "-1", "-1", "-1", std::nullopt, "2"});
    AnswerRows(kProcedures, rows, answer);
}

TdsRow RowOf(const TdsContents& contents, const TdsProcedure& procedure, const TdsParameter& parameter,
             std::size_t ordinal)
{
    const TdsDeclared declared = ParseTdsType(parameter.Type);
    const bool isReturnValue = parameter.Kind == TdsParameterKind::ReturnValue;
    const bool isExact = declared.Type.Layout == TdsLayout::Exact;
    const std::string type = std::to_string(declared.Type.OdbcType);
    return {contents.Database,
            procedure.Owner,
            procedure.Name,
            parameter.Name,
            std::to_string(static_cast<int>(parameter.Kind)),
            type,
            std::string(declared.Type.Name),
            std::to_string(TdsPrecision(declared)),
            std::to_string(TdsLength(declared)),
            isExact ? std::optional(std::to_string(declared.Scale)) : std::nullopt,
            isExact ? std::optional<std::string>("10") : std::nullopt,
            isReturnValue ? "0" : "1",
            std::nullopt,
            std::nullopt,
            type,
            std::nullopt,
            std::nullopt,
            std::to_string(ordinal),
            isReturnValue ? "NO" : "YES"};
}

void AnswerParameters(const TdsContents& contents, const TdsCall& call, TdsAnswer& answer)
{
    Rows rows;
    for (const TdsProcedure& procedure : contents.Procedures) {
        if (!Matches(procedure.Name.substr(0, procedure.Name.find(';')), Given(call, "@procedure_name")) ||
            !Matches(procedure.Owner, Given(call, "@procedure_owner")))
            continue;
        std::size_t ordinal = 0; // that of the return value
        for (const TdsParameter& parameter : procedure.Parameters)
            rows.push_back(RowOf(contents, procedure, parameter, ordinal++));
    }
    AnswerRows(kParameters, rows, answer);
}

struct Procedure
{
    std::string_view Name;
    void (*Answer)(const TdsContents&, const TdsCall&, TdsAnswer&);
};

constexpr std::array kKnown{
    Procedure{"sp_tables", AnswerTables},
    Procedure{"sp_pkeys", AnswerPrimaryKeys},
    Procedure{"sp_fkeys", AnswerForeignKeys},
    Procedure{"sp_stored_procedures", AnswerProcedures},
    Procedure{"sp_sproc_columns", AnswerParameters},
};

// Takes the next part of a name such as "dbo"."Order Details" or [dbo].[a b] or dbo.x off its front.
std::string TakePart(std::string_view& name)
{
    const bool isQuoted = name.starts_with('"') || name.starts_with('[');
    const char end = !isQuoted ? '.' : name.front() == '"' ? '"' : ']';
    name.remove_prefix(isQuoted ? 1 : 0);
    std::string part;
    for (; !name.empty(); name.remove_prefix(1)) {
        if (name.front() == end) {
            if (!isQuoted || !name.substr(1).starts_with(end))
                break;
            name.remove_prefix(1);
        }
        part.push_back(name.front());
    }
    const std::size_t dot = std::min(name.find('.'), name.size());
    name.remove_prefix(std::min(dot + 1, name.size()));
    return part;
}

void OpenTable(const TdsContents& contents, std::string_view name, TdsAnswer& answer)
{
    std::optional<std::string> owner;
    std::string_view rest = name;
    std::string table = TakePart(rest);
    if (!rest.empty()) {
        owner = table;
        table = TakePart(rest);
    }
    const TdsTable* found = FindTable(contents, owner, table);
    if (found == nullptr)
        return answer.Fail({208, "Invalid object name '" + (owner ? *owner + "." + table : table) + "'."});
    if (found->IsForbidden)
        return answer.Fail({229,
                            "The SELECT permission was denied on the object '" + found->Name + "', database '" +
                                contents.Database + "', schema '" + found->Owner + "'.",
                            14});
    answer.Columns(found->Columns, found->Name);
    answer.End();
}

// "GO" is a word of the server's tools, not of the server.
bool HasToolsWord(std::string_view batch)
{
    return batch == "GO" || batch.starts_with("GO\r\n") || batch.find("\nGO\r\n") != std::string_view::npos;
}

const TdsTable* TableInTheWay(const TdsContents& contents, std::string_view batch)
{
    constexpr std::string_view kMaking = "CREATE TABLE ";
    if (!batch.starts_with(kMaking))
        return nullptr;
    std::string_view name = batch.substr(kMaking.size());
    const std::string owner = TakePart(name);
    return FindTable(contents, owner, TakePart(name));
}

void CarryOut(const TdsContents& contents, const std::string& batch, TdsAnswer& answer)
{
    if (HasToolsWord(batch))
        return answer.Fail({102, "Incorrect syntax near 'GO'.", 15});
    if (const TdsTable* table = TableInTheWay(contents, batch))
        return answer.Fail({2714, "There is already an object named '" + table->Name + "' in the database."});
    if (contents.CarriedOut)
        contents.CarriedOut->Add(batch);
    answer.End();
}

} // namespace

void AnswerTdsCall(const TdsContents& contents, const TdsCall& call, TdsAnswer& answer)
{
    const auto known = std::find_if(kKnown.begin(), kKnown.end(),
                                    [&](const Procedure& procedure) { return procedure.Name == call.Procedure; });
    if (known == kKnown.end())
        return answer.Fail({2812, "Could not find stored procedure '" + call.Procedure + "'."});
    known->Answer(contents, call, answer);
}

void AnswerTdsBatch(const TdsContents& contents, const std::string& batch, TdsAnswer& answer)
{
    constexpr std::string_view kOpening = "SELECT * FROM ";
    constexpr std::string_view kClosing = " WHERE 1=0";
    if (batch.starts_with(kOpening) && batch.ends_with(kClosing))
        return OpenTable(
            contents, std::string_view(batch).substr(kOpening.size(), batch.size() - kOpening.size() - kClosing.size()),
            answer);
    if (batch != "SELECT SCHEMA_NAME()")
        return CarryOut(contents, batch, answer);
    if (contents.Schema.empty())
        return answer.Fail({195, "'SCHEMA_NAME' is not a recognized built-in function name.", 15});
    const Columns columns = ColumnsOf({{"", "sysname"}});
    answer.Columns(columns);
    answer.Row(columns, {contents.Schema});
    answer.End();
}

} // namespace veldrane::testing
