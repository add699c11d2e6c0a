#pragma once

#include "datasource/class_edit.h"

#include <string>
#include <string_view>
#include <vector>

// How a class under a parent is joined to it.
namespace veldrane {

// Reads the keys of the class again, then adds a relationship for each foreign key between the class's table and the
// parent's, in either direction. A relationship that the class already has stays. A failure is told, and the class goes
// on without relationships; false then, unless the data source knows none at all.
bool RetrieveParentRelationships(ClassEdit& edit, const std::string& parentTable);

struct JoinField
{
    std::string ColumnName;
    std::string DataType; // a type name of the generated language
};

// The two field lists of the join page.
struct JoinFields
{
    std::string ParentCaption;
    std::vector<JoinField> Parent;
    std::string OwnCaption;
    std::vector<JoinField> Own;
};

// Reads the columns of both tables. A failure is reported; what could not be read is empty.
[[nodiscard]] JoinFields ReadJoinFields(ClassEdit& edit, const std::string& parentTable);

struct JoinRow
{
    std::string Key;
    std::string Text;
    std::string KeyName; // of its relationship
};

// The joins of a class as the join page lists them, one row a column.
[[nodiscard]] std::vector<JoinRow> JoinRows(const KZMClass& item);

} // namespace veldrane
