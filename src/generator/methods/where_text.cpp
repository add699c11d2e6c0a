#include "generator/methods/where_text.h"

#include "generator/argument_list.h"

#include <algorithm>

namespace veldrane {
namespace {

constexpr std::string_view kAnd = " AND ";
constexpr std::string_view kQuotedEnd = "& `'"; // of a value between single quotes: the string behind it is still open
constexpr std::string_view kNumberEnd = " & `"; // of any other value: the string behind it would be empty

// One column of the condition and the variable that holds its value.
struct ConditionScope
{
    std::string_view ColumnName;
    const std::string& Var;
};

} // namespace

template <>
inline constexpr auto Vocabulary<ConditionScope> = std::to_array<Placeholder<ConditionScope>>({
    {"Col", [](std::string& line, const ConditionScope& s) { AppendBracketed(line, s.ColumnName); }},
    {"Var", [](std::string& line, const ConditionScope& s) { line += s.Var; }},
});

namespace {

using ConditionLine = TemplateLine<ConditionScope>;

constexpr ConditionLine kIdentity("a.{Col} = ` & {Var} & ` AND ");
constexpr ConditionLine kNumber("a.{Col}=` & {Var} & ` AND ");
constexpr ConditionLine kQuoted("a.{Col}='` & Replace({Var}, `'`, `''`) & `' AND ");
constexpr ConditionLine kQuotedForDelete("a.{Col}='` & Replace({Var}, `'`,`''`) & `' AND ");
// Single quotes in a value are not doubled in these two: on purpose.
constexpr ConditionLine kQuotedAsItIs("a.{Col}='` & {Var} & `'` & ` AND ");
constexpr ConditionLine kQuotedRelated("a.{Col}= '` & {Var} & `' AND ");
constexpr ConditionLine kIdentityAlone("{Col}= ` & {Var}");

void Append(std::string& where, const ConditionLine& line, std::string_view columnName, const std::string& variable)
{
    line.Expand(where, {columnName, variable});
}

void Cut(std::string& where, std::size_t count)
{
    where.resize(where.size() - count);
}

void EndStatement(std::string& where)
{
    if (!where.ends_with(kAnd))
        return;
    Cut(where, kAnd.size());
    if (where.ends_with(kQuotedEnd))
        where += '`';
    else if (where.ends_with(kNumberEnd))
        Cut(where, kNumberEnd.size());
}

// Values of the type stand between single quotes in SQL; dates do as well.
bool IsQuotedInSql(std::string_view typeName)
{
    return typeName == "String" || typeName == "Date";
}

const TTCColumn* ColumnOfKeys(const KZMClass& owner, std::int32_t keyType, std::string_view columnName)
{
    for (const TTCKey& key : owner.TTCKeys)
        if (key.KeyType == keyType)
            for (const TTCColumn& column : key.TTCColumns)
                if (column.ColumnName == columnName)
                    return &column;
    return nullptr;
}

// How a method finds its row by its arguments.
struct RowCondition
{
    bool ByIdentity = false;
    ConditionLine Quoted;
};

void AppendArgument(std::string& where, const KZMClass& owner, const TTCParameter& argument, const RowCondition& condition)
{
    const TTCColumn* column = ColumnOfKeys(owner, condition.ByIdentity ? key_type::kIdentityColumn : key_type::kPrimaryKey, argument.ColumnName);
    if (column == nullptr)
        return;
    if (condition.ByIdentity)
        Append(where, kIdentity, column->ColumnName, argument.VariableName);
    else
        Append(where, IsQuotedInSql(column->ColumnDataType) ? condition.Quoted : kNumber, column->ColumnName, argument.VariableName);
}

bool BeginsWithCapitalVowel(std::string_view name)
{
    constexpr std::string_view kVowels = "AEIOU";
    return !name.empty() && kVowels.find(name.front()) != std::string_view::npos;
}

std::string WhereOfArguments(const KZMClass& owner, const KZMArguments& arguments, const RowCondition& condition)
{
    std::string where;
    for (const TTCParameter* argument : ArgumentsInOrder(arguments))
        AppendArgument(where, owner, *argument, condition);
    EndStatement(where);
    if (const TTCProperty* identity = FirstIdentityProperty(owner); where.empty() && identity != nullptr)
        Append(where, kIdentityAlone, identity->FieldName, (BeginsWithCapitalVowel(identity->PropertyName) ? "an" : "a") + identity->PropertyName);
    return where;
}

void AppendStored(std::string& where, std::string_view columnName, std::string_view typeName, const std::string& variable)
{
    Append(where, IsQuotedInSql(typeName) ? kQuoted : kIdentity, columnName, variable);
}

void AppendStoredPrimaryKey(std::string& where, const KZMClass& owner)
{
    for (const ColumnProperty& found : PropertiesBehindKey(owner, key_type::kPrimaryKey))
        AppendStored(where, found.Column->ColumnName, found.Column->ColumnDataType, std::string(kPushPrefix) + found.Property->PropertyName);
}

} // namespace

std::string WhereOfRetrieve(const KZMClass& owner, const KZMArguments& arguments)
{
    return WhereOfArguments(owner, arguments, {.ByIdentity = owner.RetrieveByIdentityCol, .Quoted = kQuoted});
}

std::string WhereOfDelete(const KZMClass& owner, const KZMArguments& arguments)
{
    return WhereOfArguments(owner, arguments, {.ByIdentity = owner.DeleteByIdentityColumn, .Quoted = kQuotedForDelete});
}

std::string WhereOfStoredRow(const ClassScope& scope, WhereEnd end)
{
    std::string where;
    const TTCProperty* identity = FirstIdentityProperty(scope.Class);
    const bool identityComesFirst = scope.Class.RetrieveByIdentityCol && identity != nullptr;
    if (scope.Class.RetrieveByPrimaryKey && !identityComesFirst)
        AppendStoredPrimaryKey(where, scope.Class);
    if (where.empty() && identity != nullptr)
        AppendStored(where, identity->FieldName, identity->DataType, VariablePrefix(scope.Project, identity->DataType) + identity->PropertyName);
    if (end == WhereEnd::Statement)
        EndStatement(where);
    else if (where.ends_with(kAnd))
        Cut(where, kAnd.size());
    return where;
}

std::string WhereOfRetrieveIdentity(const KZMClass& owner)
{
    std::string where;
    for (const ColumnProperty& found : PropertiesBehindKey(owner, key_type::kPrimaryKey))
        Append(where, IsQuotedInSql(found.Column->ColumnDataType) ? kQuotedAsItIs : kNumber, found.Column->ColumnName, "a" + found.Property->PropertyName);
    EndStatement(where);
    return where;
}

std::string WhereOfRelationships(const KZMClass& owner)
{
    std::string where;
    for (const ColumnProperty& found : PropertiesBehindRelationships(owner, PropertiesOnColumn::Every))
        Append(where, IsQuotedInSql(found.Property->DataType) ? kQuotedRelated : kNumber, found.Column->ColumnName, found.Property->PropertyName);
    EndStatement(where);
    return where;
}

} // namespace veldrane
