#include "datasource/class_names.h"

#include "datasource/class_edit.h"
#include "datasource/naming.h"
#include "preview/active_parse.h"
#include "text/case_folding.h"
#include "text/characters.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

// The longest programmatic identifier: project and class together, without the point between them.
constexpr std::size_t kMostIdentifierCharacters = 39;

// What is said about a class name, and what about a collection name.
struct NameTexts
{
    NameCheck Refusal;
    std::string_view InvalidTitle;
    std::string_view Invalid;
    std::string_view Kind;
    std::string_view TooLong;
    std::string_view IsProject;
    std::string_view Exists;
};

constexpr NameTexts kClassTexts{
    .Refusal = NameCheck::ClassNameRefused,
    .InvalidTitle = "Invalid Class Name",
    .Invalid = "Invalid Class Name. Please remove special characters and spaces from the name.",
    .Kind = "class",
    .TooLong =
        "The maximum length of the combined names cannot exceed 39 characters. Your COM Object will not compile successfully. Please make the class name shorter.",
    .IsProject =
        "The Class Name cannot be the same name as the VB Project Name. Please change the Class Name then click OK.",
    .Exists = "The Class Name already exists in this project. Please change the Class Name then click OK.",
};

// That a collection's name asks for a change of the Class Name is on purpose.
constexpr NameTexts kCollectionTexts{
    .Refusal = NameCheck::CollectionNameRefused,
    .InvalidTitle = "Invalid Collection Name",
    .Invalid = "Invalid Collection Name. Please remove special characters and spaces from the name.",
    .Kind = "collection",
    .TooLong =
        "The maximum length of the combined names cannot exceed 39 characters. Your COM Object will not compile successfully. Please make the collection name shorter.",
    .IsProject =
        "The Collection Name cannot be the same name as the VB Project Name. Please change the Class Name then click OK.",
    .Exists = "The Collection Name already exists in this project. Please change the Collection Name then click OK.",
};

struct CheckedName
{
    const std::string& Name;
    const NameTexts& Texts;
    const std::string& Before; // the name that the project holds already
};

// The names that will enter the project.
std::vector<CheckedName> NamesOf(const ClassForm& form, const NamesBefore& before)
{
    std::vector<CheckedName> checked{{form.ClassName, kClassTexts, before.ClassName}};
    if (form.GenerateCollection)
        checked.push_back({form.CollectionName, kCollectionTexts, before.CollectionName});
    return checked;
}

bool Refuse(const ProjectNames& names, std::string_view title, std::string_view text)
{
    names.Messages.Tell(std::string(title), std::string(text), MessageIcon::Warning);
    return false;
}

bool IsOneWord(const CheckedName& checked, const ProjectNames& names)
{
    ActiveParse parse;
    const Words& words = parse.ParseText(checked.Name, kNameDelimiters, DelimiterMode::ByChar, CaseRule::Sensitive);
    return words.Count() <= 1 || Refuse(names, checked.Texts.InvalidTitle, checked.Texts.Invalid);
}

bool IsShortEnough(const CheckedName& checked, const ProjectNames& names)
{
    const std::string& project = names.Project.VBProjectName;
    if (text::Length(project) + text::Length(checked.Name) <= kMostIdentifierCharacters)
        return true;
    return Refuse(names, "Programmatic ID Too Long",
                  "Warning: The combined length of the project name (" + project + ") and the " +
                      std::string(checked.Texts.Kind) + " name (" + checked.Name + ") exceeds 39 characters.\r\n" +
                      std::string(checked.Texts.TooLong));
}

bool DiffersFromProject(const CheckedName& checked, const ProjectNames& names)
{
    return checked.Name == checked.Before || !text::EqualFolded(checked.Name, names.Project.VBProjectName) ||
           Refuse(names, "Duplicate Name in Project", checked.Texts.IsProject);
}

bool IsNewInProject(const CheckedName& checked, const ProjectNames& names)
{
    return checked.Name == checked.Before || !names.Project.ClassCollectionNames.ClassNameExists(checked.Name) ||
           Refuse(names, "Duplicate Class Name", checked.Texts.Exists);
}

bool HasWritableLetters(const CheckedName& checked, const ProjectNames& names)
{
    return FitsProject(checked.Name, names.CodePage, names.Messages);
}

using Check = bool (*)(const CheckedName&, const ProjectNames&);

// Each check sees both names before the next one sees any.
NameCheck Apply(std::initializer_list<Check> checks, const std::vector<CheckedName>& checked, const ProjectNames& names)
{
    for (const Check passes : checks)
        for (const CheckedName& name : checked)
            if (!passes(name, names))
                return name.Texts.Refusal;
    return NameCheck::Accepted;
}

// The project has one namespace for both kinds of names.
NameCheck CheckAgainstEachOther(const ClassForm& form, const ProjectNames& names)
{
    if (!form.GenerateCollection || !text::EqualFolded(form.ClassName, form.CollectionName))
        return NameCheck::Accepted;
    Refuse(names, "Duplicate Class Name", kCollectionTexts.Exists);
    return NameCheck::CollectionNameRefused;
}

NameCheck CheckAll(ClassForm& form, const NamesBefore& before, const ProjectNames& names)
{
    const std::vector<CheckedName> checked = NamesOf(form, before);
    if (const NameCheck result = Apply({IsOneWord, IsShortEnough}, checked, names); result != NameCheck::Accepted)
        return result;
    form.ClassName = MakeValidName(form.ClassName);
    form.CollectionName = MakeValidName(form.CollectionName);
    NameCheck result = Apply({DiffersFromProject, IsNewInProject, HasWritableLetters}, checked, names);
    if (result == NameCheck::Accepted)
        result = CheckAgainstEachOther(form, names);
    if (result == NameCheck::Accepted && !FitsProject(form.TableName, names.CodePage, names.Messages))
        result = NameCheck::TableNameRefused;
    return result;
}

} // namespace

NameCheck CheckNames(ClassForm& form, const NamesBefore& before, const ProjectNames& names)
{
    // An empty name can't be cut into words: that is an error.
    NameCheck result = form.ClassName.empty() ? NameCheck::ClassNameRefused : NameCheck::CollectionNameRefused;
    Guarded(names.Errors, kClassEditorModule, "cmdOK_Click", [&] { result = CheckAll(form, before, names); });
    return result;
}

bool IsFreeInProject(const ClassForm& form, const NamesBefore& before, const ProjectNames& names)
{
    return Apply({IsNewInProject}, NamesOf(form, before), names) == NameCheck::Accepted &&
           CheckAgainstEachOther(form, names) == NameCheck::Accepted;
}

} // namespace veldrane
