#include "datasource/class_names.h"

#include "datasource/class_edit.h"
#include "datasource/naming.h"
#include "preview/active_parse.h"
#include "text/case_folding.h"
#include "text/characters.h"

#include <array>
#include <optional>
#include <span>
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
    std::string_view BeforeName; // in the first sentence of what is too long
    std::string_view TooLong;
    std::string_view IsProject;
    std::string_view Exists;
};

constexpr NameTexts kClassTexts{
    .Refusal = NameCheck::ClassNameRefused,
    .InvalidTitle = "Invalid Class Name",
    .Invalid = "Invalid Class Name. Please remove special characters and spaces from the name.",
    .BeforeName = ") and the class name (",
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
    .BeforeName = ") and the collection name (",
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

// The names that will enter the project, or one of them alone.
std::vector<CheckedName> NamesOf(const ClassForm& form, const NamesBefore& before,
                                 std::optional<NameCheck> only = std::nullopt)
{
    std::vector<CheckedName> checked;
    if (only != NameCheck::CollectionNameRefused)
        checked.push_back({form.ClassName, kClassTexts, before.ClassName});
    if (only != NameCheck::ClassNameRefused && form.GenerateCollection)
        checked.push_back({form.CollectionName, kCollectionTexts, before.CollectionName});
    return checked;
}

// A box that keeps the names out.
struct Refusal
{
    NameCheck Which;
    std::string_view Title;
    std::string Text;
};
using Check = std::optional<Refusal> (*)(const CheckedName&, const ProjectNames&);

// A delimiter at an end makes no second word.
std::optional<Refusal> UnlessOneWord(const CheckedName& checked, const ProjectNames& /*names*/)
{
    ActiveParse parse;
    const Words& words = parse.ParseText(checked.Name, kNameDelimiters, DelimiterMode::ByChar, CaseRule::Sensitive);
    if (words.Count() <= 1 && checked.Name.find_first_of(kNameDelimiters) == std::string::npos)
        return std::nullopt;
    return Refusal{checked.Texts.Refusal, checked.Texts.InvalidTitle, std::string(checked.Texts.Invalid)};
}

std::optional<Refusal> UnlessShortEnough(const CheckedName& checked, const ProjectNames& names)
{
    const std::string& project = names.Project.VBProjectName;
    if (text::Length(project) + text::Length(checked.Name) <= kMostIdentifierCharacters)
        return std::nullopt;
    return Refusal{checked.Texts.Refusal, "Programmatic ID Too Long",
                   "Warning: The combined length of the project name (" + project +
                       std::string(checked.Texts.BeforeName) + checked.Name + ") exceeds 39 characters.\r\n" +
                       std::string(checked.Texts.TooLong)};
}

std::optional<Refusal> IfNamedAsProject(const CheckedName& checked, const ProjectNames& names)
{
    if (checked.Name == checked.Before || !text::EqualFolded(checked.Name, names.Project.VBProjectName))
        return std::nullopt;
    return Refusal{checked.Texts.Refusal, "Duplicate Name in Project", std::string(checked.Texts.IsProject)};
}

Refusal InUse(const NameTexts& texts)
{
    return {texts.Refusal, "Duplicate Class Name", std::string(texts.Exists)};
}

std::optional<Refusal> IfInProject(const CheckedName& checked, const ProjectNames& names)
{
    if (checked.Name == checked.Before || !names.Project.ClassCollectionNames.ClassNameExists(checked.Name))
        return std::nullopt;
    return InUse(checked.Texts);
}

std::optional<Refusal> UnlessWritable(const CheckedName& checked, const ProjectNames& names)
{
    std::string trouble = NotWritableText(checked.Name, names.CodePage);
    if (trouble.empty())
        return std::nullopt;
    return Refusal{checked.Texts.Refusal, kNotWritableTitle, std::move(trouble)};
}

constexpr auto kChecksAsTyped = std::to_array<Check>({UnlessOneWord, UnlessShortEnough});
constexpr auto kChecksOfCleaned =
    std::to_array<Check>({UnlessShortEnough, IfNamedAsProject, IfInProject, UnlessWritable});

// Each check sees both names before the next one sees any.
std::optional<Refusal> First(std::span<const Check> checks, const std::vector<CheckedName>& checked,
                             const ProjectNames& names)
{
    for (const Check check : checks)
        for (const CheckedName& name : checked)
            if (auto refusal = check(name, names))
                return refusal;
    return std::nullopt;
}

// The project has one namespace for both kinds of names.
std::optional<Refusal> IfNamedAlike(const ClassForm& form)
{
    if (!form.GenerateCollection || !text::EqualFolded(form.ClassName, form.CollectionName))
        return std::nullopt;
    return InUse(kCollectionTexts);
}

std::optional<Refusal> UnlessTableIsWritable(const ClassForm& form, const ProjectNames& names)
{
    std::string trouble = NotWritableText(form.TableName, names.CodePage);
    if (trouble.empty())
        return std::nullopt;
    return Refusal{NameCheck::TableNameRefused, kNotWritableTitle, std::move(trouble)};
}

void Clean(ClassForm& form)
{
    form.ClassName = MakeValidName(form.ClassName);
    if (form.GenerateCollection || !form.CollectionName.empty())
        form.CollectionName = MakeValidName(form.CollectionName);
}

// Of both names, or of one alone. The form has cleaned names once they passed the checks of what is typed.
std::optional<Refusal> FirstOfNames(ClassForm& form, const NamesBefore& before, const ProjectNames& names,
                                    std::optional<NameCheck> only = std::nullopt)
{
    const std::vector<CheckedName> checked = NamesOf(form, before, only);
    if (checked.empty())
        return std::nullopt;
    if (auto refusal = First(kChecksAsTyped, checked, names))
        return refusal;
    Clean(form);
    if (auto refusal = First(kChecksOfCleaned, checked, names))
        return refusal;
    return only == NameCheck::ClassNameRefused ? std::nullopt : IfNamedAlike(form);
}

std::optional<Refusal> FirstOfAll(ClassForm& form, const NamesBefore& before, const ProjectNames& names)
{
    if (auto refusal = FirstOfNames(form, before, names))
        return refusal;
    return UnlessTableIsWritable(form, names);
}

NameCheck Tell(const std::optional<Refusal>& refusal, const ProjectNames& names)
{
    if (!refusal)
        return NameCheck::Accepted;
    names.Messages.Tell(std::string(refusal->Title), refusal->Text, MessageIcon::Warning);
    return refusal->Which;
}

} // namespace

NameCheck CheckNames(ClassForm& form, const NamesBefore& before, const ProjectNames& names)
{
    // An empty name can't be cut into words: that is an error.
    NameCheck result = form.ClassName.empty() ? NameCheck::ClassNameRefused : NameCheck::CollectionNameRefused;
    Guarded(names.Errors, kClassEditorModule, "cmdOK_Click",
            [&] { result = Tell(FirstOfAll(form, before, names), names); });
    return result;
}

std::string NameTrouble(ClassField field, const ClassForm& form, const NamesBefore& before, const ProjectNames& names)
{
    if (field == ClassField::TableName)
        return NotWritableText(form.TableName, names.CodePage);
    const NameCheck which =
        field == ClassField::ClassName ? NameCheck::ClassNameRefused : NameCheck::CollectionNameRefused;
    ClassForm typed = form;
    try {
        const std::optional<Refusal> refusal = FirstOfNames(typed, before, names, which);
        return refusal ? refusal->Text : std::string{};
    } catch (const RuntimeError& error) { // of an empty name
        return error.Description();
    }
}

bool IsFreeInProject(const ClassForm& form, const NamesBefore& before, const ProjectNames& names)
{
    constexpr auto kChecks = std::to_array<Check>({IfInProject});
    std::optional<Refusal> refusal = First(kChecks, NamesOf(form, before), names);
    if (!refusal)
        refusal = IfNamedAlike(form);
    return Tell(refusal, names) == NameCheck::Accepted;
}

} // namespace veldrane
