#include "datasource/builtin_members.h"
#include "datasource/member_arguments.h"
#include "datasource/table_keys.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

std::string NoType(const KZMClass& /*item*/)
{
    return {};
}

std::string Boolean(const KZMClass& /*item*/)
{
    return "Boolean";
}

std::string AddedRow(const KZMClass& item)
{
    return IdentityProperty(item) ? "Long" : "Boolean";
}

std::string ClassItself(const KZMClass& item)
{
    return item.ClassName;
}

std::string CollectionItself(const KZMClass& item)
{
    return item.CollectionName;
}

void AddNone(const KZMClass& /*item*/, KZMArguments& /*arguments*/) {}

void AddColumns(const std::vector<ColumnArgument>& columns, KZMArguments& arguments)
{
    for (const ColumnArgument& column : columns)
        AddArgument(arguments, ParameterFor(column));
}

void AddRetrievedRow(const KZMClass& item, KZMArguments& arguments)
{
    AddColumns(RowArguments(item, RowMethod::Retrieve), arguments);
}

void AddDeletedRow(const KZMClass& item, KZMArguments& arguments)
{
    AddColumns(RowArguments(item, RowMethod::Delete), arguments);
}

void AddPrimaryKey(const KZMClass& item, KZMArguments& arguments)
{
    AddColumns(PrimaryKeyArguments(item), arguments);
}

TTCParameter OptionalText(std::string variableName)
{
    TTCParameter parameter = PlainParameter(std::move(variableName), "String");
    parameter.OptionalIndicator = true;
    parameter.ByValIndicator = true;
    return parameter;
}

void AddWhereClause(const KZMClass& /*item*/, KZMArguments& arguments)
{
    AddArgument(arguments, OptionalText("SQLWhereClause"));
}

void AddTreeView(const KZMClass& /*item*/, KZMArguments& arguments)
{
    AddArgument(arguments, PlainParameter("TreeViewControl", "Object"));
    AddArgument(arguments, OptionalText("ParentNodeKey"));
}

struct MethodShape
{
    std::string_view Name;
    std::string (*ReturnDataType)(const KZMClass&);
    void (*AddArguments)(const KZMClass&, KZMArguments&);
};

constexpr auto kShapes = std::to_array<MethodShape>({
    {"Add", AddedRow, AddNone},
    {"Retrieve", Boolean, AddRetrievedRow},
    {"Delete", Boolean, AddDeletedRow},
    {"Update", Boolean, AddNone},
    {"Clone", ClassItself, AddNone},
    {"Clear", NoType, AddNone},
    {"RetrieveIdentity", NoType, AddPrimaryKey},
    {"RetrieveList", CollectionItself, AddWhereClause},
    {"RetrieveListToTreeView", NoType, AddTreeView},
});

} // namespace

std::shared_ptr<TTCMethod> MakeBuiltInMethod(std::string_view name, const KZMClass& item)
{
    const auto shape = std::ranges::find(kShapes, name, &MethodShape::Name);
    if (shape == kShapes.end())
        return nullptr;
    auto method = std::make_shared<TTCMethod>();
    method->MethodName = name;
    method->PlusMethod = true;
    method->Scope = "Public";
    method->ReturnDataType = shape->ReturnDataType(item);
    shape->AddArguments(item, method->Arguments);
    return method;
}

} // namespace veldrane
