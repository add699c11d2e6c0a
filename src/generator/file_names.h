#pragma once

#include "generator/scopes.h"

#include <optional>
#include <string>

// The names of the files that a run makes in the target folder.
namespace veldrane {

// A class, as far as the names of its files go.
struct ClassFileScope : ProjectScope
{
    const KZMClass& Class;
};

template <>
inline constexpr auto Vocabulary<ClassFileScope> = JoinVocabularies(std::to_array<Placeholder<ClassFileScope>>({
                                                                        {"ClassName", [](std::string& line, const ClassFileScope& s) { line += s.Class.ClassName; }},
                                                                        {"CollectionName", [](std::string& line, const ClassFileScope& s) { line += s.Class.CollectionName; }},
                                                                    }),
                                                                    InheritedVocabulary<ClassFileScope, ProjectScope>());

using ProjectFileName = TemplateLine<ProjectScope>;
using ClassFileName = TemplateLine<ClassFileScope>;

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
// target folder or is no file name, or that two files share (file systems of the generated project's own world do not
// tell letter case apart). Nothing if all names will do.
[[nodiscard]] std::optional<std::string> ReasonAgainstNames(const ProjectScope& scope, const KZMClasses& classes);

} // namespace veldrane
