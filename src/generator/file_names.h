#pragma once

#include "generator/scopes.h"

#include <optional>
#include <string>
#include <vector>

// The names of the files that a run makes in the target folder.
namespace veldrane {

using ProjectFileName = TemplateLine<ProjectScope>;
using ClassFileName = TemplateLine<ListedClassScope>;

inline constexpr ProjectFileName kProjectFile("{VBProjectName}.vbp");
inline constexpr ProjectFileName kTestProjectFile("Test{VBProjectName}.vbp");
inline constexpr ProjectFileName kTestProjectGroup("Test{VBProjectName}.vbg");
inline constexpr ProjectFileName kTestForm("frmTest.frm");
inline constexpr ProjectFileName kGlobalsModule("{ModulePrefix}Globals.Bas");
inline constexpr ProjectFileName kWrapperClass("{ClassPrefix}{WrapperClassName}.cls");
inline constexpr ClassFileName kClassModule("{ClassPrefix}{ClassName}.cls");
inline constexpr ClassFileName kCollectionModule("{ClassPrefix}{CollectionName}.cls");

// The name, expanded.
template <class Scope>
[[nodiscard]] std::string NameOf(const TemplateLine<Scope>& fileName, const Scope& scope)
{
    std::string name;
    fileName.Expand(name, scope);
    return name;
}

// Why the project's files can't be written under their names: one line for the first name that would lead out of the
// target folder or is no file name. Nothing if all names will do.
[[nodiscard]] std::optional<std::string> ReasonAgainstNames(const ProjectScope& scope, const KZMClasses& classes);

// A warning for each file whose name an earlier one of the run has already, both of them named; letter case does not
// count, since file systems of the generated project's own world do not tell it apart.
[[nodiscard]] std::vector<std::string> WarningsOfSharedNames(const ProjectScope& scope, const KZMClasses& classes);

} // namespace veldrane
