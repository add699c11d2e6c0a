#pragma once

#include "datasource/class_edit.h"
#include "datasource/table_fields.h"
#include "model/classes.h"

#include <string>
#include <string_view>

// The whole way from a table to a class whose defaults are good enough to be generated as they are.
namespace veldrane {

// Where the tree puts a new class.
enum class Placement
{
    Root = 0,        // under "Parent/Children Classes"
    UnderParent = 1, // under another class
    Lookup = 2,      // under "Lookup/Domain Classes"
};

enum class ClassAccess
{
    Updatable,
    ReadOnly, // a view, or a data source that can't be written
};

struct NewClass
{
    std::string TableName;       // "" for a class that stands on no table
    std::string ParentClassName; // "" or "n/a" for none
    Placement Place = Placement::Root;
    ClassAccess Access = ClassAccess::Updatable;
};

// Gives an empty class its table, parent, names and the defaults of its place, then applies the collection box.
void InitialiseClass(ClassEdit& edit, const NewClass& request);

enum class BuildOutcome
{
    Built,
    TableRenamed, // as FieldsOutcome: no member but the names was made
    TableDeleted,
    Cancelled,
    NameRefused,       // the table's name can't enter a project
    SourceUnavailable, // built without the table's fields
    Failed,            // built as far as the table could be read; the failure was reported
};

[[nodiscard]] BuildOutcome OutcomeOf(FieldsOutcome fields);

// Makes the class in the editor's order: names, fields and keys, relationships to the parent, built-in members.
[[nodiscard]] BuildOutcome BuildClass(ClassEdit& edit, const NewClass& request, const KZMClasses& classes);

// The same without the names, for a class that has its table, parent and names already.
[[nodiscard]] BuildOutcome FillClass(ClassEdit& edit, const KZMClasses& classes);

// Brings a class up to its table as it is now: new columns appear, dropped ones go, keys are read again. What the user
// changed stays, a primary key set by hand among it as long as the table tells none and still has its columns.
FieldsOutcome RefreshClass(ClassEdit& edit);

// Reads the relationships to the parent's table, and the keys of the class, again. A primary key set by hand stays as
// with RefreshClass, and the identity column in any case. False as RetrieveParentRelationships.
bool RefreshRelationships(ClassEdit& edit, const std::string& parentTable);

// Puts a class under another: its relationships are read anew, for the parent's table, as are its keys; what the user
// changed stays, a primary key set by hand as with RefreshClass. What can't be read is told, and the class goes on
// without it; false then, as RetrieveParentRelationships.
bool MoveClassUnder(ClassEdit& edit, const KZMClass& parent);

// What the editor says about the class: "This class is Read Only." or "This class is Updatable."
[[nodiscard]] std::string_view AccessText(const KZMClass& item);

} // namespace veldrane
