#pragma once

#include "datasource/class_edit.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// How a built-in method finds its row: by the identity column or by the primary key of the table.
namespace veldrane {

enum class RowMethod
{
    Retrieve,
    Delete,
};

// Why a class gets built-in methods.
enum class Occasion
{
    NewClass, // it is part of what a new class has
    Ticked,   // the person has ticked it
};

// The method of this name, if it is one that finds a row.
[[nodiscard]] std::optional<RowMethod> RowMethodOf(std::string_view builtInName);

// The box that refuses such a method to a class which has no key to find a row by; nothing if it has one.
[[nodiscard]] std::optional<Question> NoRowIdentifier(const KZMClass& item, RowMethod method);

// Sets the two flags of the method (RetrieveByIdentityCol and RetrieveByPrimaryKey, or DeleteByIdentityColumn and
// DeleteByPrimaryKey) from the keys of the class, asking when it has both. False, which is told, if it has neither.
// Of a Delete that the person has ticked it is told what it does.
[[nodiscard]] bool ChooseRowIdentifier(ClassEdit& edit, RowMethod method, Occasion occasion = Occasion::NewClass);

// An argument that stands for a column.
struct ColumnArgument
{
    std::string VariableName;
    std::string DataType;
    std::string ColumnName;
};

// The columns of the first primary key.
[[nodiscard]] std::vector<ColumnArgument> PrimaryKeyArguments(const KZMClass& item);

// What the flags of the method choose: the identity column or the columns of the primary key.
[[nodiscard]] std::vector<ColumnArgument> RowArguments(const KZMClass& item, RowMethod method);

} // namespace veldrane
