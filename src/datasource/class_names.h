#pragma once

#include "model/class.h"
#include "model/classes.h"
#include "model/project.h"
#include "ports/error_report.h"
#include "ports/messages.h"
#include "text/code_page.h"

#include <memory>
#include <string>
#include <string_view>

// The names of a class when it is confirmed, and its way into the project.
namespace veldrane {

// What stands for a missing table or parent.
inline constexpr std::string_view kNotApplicable = "n/a";

// What the editor of a class shows of it and takes back on OK.
struct ClassForm
{
    std::string ClassName;
    std::string TableName;       // "n/a" for none
    std::string ParentClassName; // "n/a" for none
    bool GenerateCollection = false;
    std::string CollectionName;
    bool IncludeAddExisting = false;
    bool CollectionAddNewKey = false;
};

[[nodiscard]] ClassForm FormOf(const KZMClass& item);

// The names that a class has in its project before it is edited; both empty for a new class.
struct NamesBefore
{
    std::string ClassName;
    std::string CollectionName; // "" unless a collection is generated
};

[[nodiscard]] NamesBefore NamesInProject(const KZMClass& item);

// What the checks use.
struct ProjectNames
{
    TTCProject& Project;
    KZMClasses& Classes;
    veldrane::Messages& Messages;
    ErrorReport& Errors;
    const text::CodePage& CodePage;
};

enum class NameCheck
{
    Accepted,
    ClassNameRefused,
    CollectionNameRefused,
    TableNameRefused,
};

// Checks the names in the form, in the order in which the person is told, and cleans them. Names that are as they were
// before are not looked for in the project. A refusal is told; the form keeps what was typed, or, once both names
// passed the checks of their own, what they were cleaned to. A collection that is neither generated nor named has no
// name afterwards either.
[[nodiscard]] NameCheck CheckNames(ClassForm& form, const NamesBefore& before, const ProjectNames& names);

// The texts of the form that are checked.
enum class ClassField
{
    ClassName,
    CollectionName,
    TableName,
};

// What CheckNames would say about one of them as it is typed, the others set aside; "" for nothing. Nothing is told.
[[nodiscard]] std::string NameTrouble(ClassField field, const ClassForm& form, const NamesBefore& before,
                                      const ProjectNames& names);

// Whether the project holds neither of the names yet, those from before set aside. The first that it does hold is told.
[[nodiscard]] bool IsFreeInProject(const ClassForm& form, const NamesBefore& before, const ProjectNames& names);

// Stores the form in the class and brings the built-in members that carry a class's names into line with them.
void StoreForm(const ClassForm& form, KZMClass& item);

// Adds a new class whose names have been checked, and its names, to the project, which is modified then. The name of
// the collection enters only if one is generated, as it does when the project is read again. False if one of the names
// is in use: that is told, and nothing is changed.
bool AddClassToProject(const std::shared_ptr<KZMClass>& item, const ProjectNames& names);

// Does with a class just made what OK does with one that nothing was changed in: checks its names, cleans them and adds
// it. False if one of the names is refused: that is told, and the project is as it was.
bool AcceptNewClass(const std::shared_ptr<KZMClass>& item, const ProjectNames& names);

// Takes a changed class whose names have been checked to its new names in the project, which is modified then. False
// if one of them is in use: that is told, and nothing is changed.
bool ChangeNamesInProject(const std::shared_ptr<KZMClass>& item, const NamesBefore& before, const ProjectNames& names);

// Puts a changed working copy in the place of the class of its name, and marks the project as modified. The class is
// the last of the project afterwards; NewClassAdded is raised for it.
void ReplaceClass(const std::shared_ptr<KZMClass>& changed, TTCProject& project, KZMClasses& classes);

} // namespace veldrane
