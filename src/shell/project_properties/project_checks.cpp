#include "shell/project_properties/project_checks.h"

#include "datasource/naming.h"
#include "model/xml_assist.h"
#include "shell/project_properties/project_controls.h"
#include "text/case_folding.h"
#include "text/characters.h"
#include "text/conversion.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace veldrane {
namespace {

// The longest programmatic identifier of COM: project and class together, without the point between them.
constexpr std::size_t kMostIdentifierCharacters = 39;

constexpr const char* kMissing = "Missing Required Information";

using Refusal = std::optional<Question>;

Question Warning(std::string title, std::string text)
{
    return {.Title = std::move(title), .Text = std::move(text), .Icon = MessageIcon::Warning};
}

// A name that the project came with stays possible: who only turns an option on is not held up by it.
Refusal UnlessName(std::string_view what, const std::string& name, const std::string& before)
{
    if (name == before || MakeValidName(name) == name)
        return std::nullopt;
    const std::string invalid = "Invalid " + std::string(what);
    return Warning(invalid, invalid + ". Please remove special characters and spaces from the name, and do not use a "
                                      "reserved word.");
}

Refusal UnlessVBProjectName(const CheckedProject& checked)
{
    return UnlessName("VB Project Name", checked.Values.VBProjectName, checked.Project.VBProjectName);
}

Refusal IfNamedAsClass(const CheckedProject& checked)
{
    if (!checked.Project.ClassCollectionNames.ClassNameExists(checked.Values.VBProjectName))
        return std::nullopt;
    return Warning("Duplicate Name in Project",
                   "The VB Project Name already exists as a class name. Please change the name.");
}

// A line for each name that is too long behind the project's.
std::string LongNames(const CheckedProject& checked)
{
    const std::size_t project = text::Length(checked.Values.VBProjectName);
    std::string names;
    const auto collect = [&](const std::string& name) {
        if (project + text::Length(name) > kMostIdentifierCharacters)
            names.append(name).append("\r\n");
    };
    for (const KZMClass& item : checked.Classes) {
        collect(item.ClassName);
        if (item.CreateCollection)
            collect(item.CollectionName);
    }
    return names;
}

Refusal IfTooLong(const CheckedProject& checked)
{
    const std::string names = LongNames(checked);
    if (names.empty())
        return std::nullopt;
    return Warning("Programmatic ID Too Long",
                   "Warning: The combined length of the project name (" + checked.Values.VBProjectName +
                       ") and the following classes/collections exceeds 39 characters.\r\n\r\n" + names +
                       "\r\nThe maximum length of the combined names cannot exceed 39 characters because of "
                       "Programmatic ID Constraints of COM. Please make the project name or the names listed shorter.");
}

Refusal UnlessWrapperName(const CheckedProject& checked)
{
    return UnlessName("Wrapper Class Name", checked.Values.WrapperClassName, checked.Project.WrapperClassName);
}

Refusal IfWrapperNameIsTaken(const CheckedProject& checked)
{
    const std::string& name = checked.Values.WrapperClassName;
    if (name == checked.Project.WrapperClassName && checked.Values.VBProjectName == checked.Project.VBProjectName)
        return std::nullopt;
    if (checked.Project.ClassCollectionNames.ClassNameExists(name))
        return Warning("Duplicate Name in Project",
                       "The Wrapper Class Name already exists as a class name. Please change the name.");
    if (text::EqualFolded(name, checked.Values.VBProjectName))
        return Warning("Duplicate Name in Project", "The Wrapper Class Name cannot be the same name as the VB Project "
                                                    "Name. Please change the name.");
    return std::nullopt;
}

Refusal IfXmlAssistIsTaken(const CheckedProject& checked)
{
    const auto item = checked.Classes.Item(kXmlAssistName);
    const bool isOurs = item && item->IsMTSRequiredClass;
    if (!checked.Values.MTSEnabled || isOurs || !checked.Project.ClassCollectionNames.ClassNameExists(kXmlAssistName))
        return std::nullopt;
    return Warning("Duplicate Name in Project",
                   "Component Services need the name xmlAssist, which a class of this project has. Please rename that "
                   "class first.");
}

Refusal UnlessInterval(const CheckedProject& checked)
{
    if (!checked.Values.AutosaveProject)
        return std::nullopt;
    if (AutosaveMinutes(checked.AutosaveInterval))
        return std::nullopt;
    return Warning("Invalid Autosave Interval",
                   "Invalid Autosave Interval. Please enter a whole number from 1 to 1440 minutes.");
}

bool LogsTransactions(const TTCProject& values)
{
    return values.MTSEnabled && values.LogTransactions;
}

Refusal UnlessLogConnection(const CheckedProject& checked)
{
    if (!LogsTransactions(checked.Values) || !checked.Values.LogDatabaseConnection.empty())
        return std::nullopt;
    return Warning(kMissing, "You must define a database connection to connect to for logging transactions.");
}

Refusal UnlessLogTable(const CheckedProject& checked)
{
    if (!LogsTransactions(checked.Values) || !checked.Values.LogTableName.empty())
        return std::nullopt;
    return Warning(kMissing, "You must define a database table to hold the logged data for transactions.");
}

struct Check
{
    std::string_view Control;
    Refusal (*Refuses)(const CheckedProject& checked);
};

constexpr auto kChecks = std::to_array<Check>({
    {"txtVBProjectName", UnlessVBProjectName},
    {"txtVBProjectName", IfNamedAsClass},
    {"txtVBProjectName", IfTooLong},
    {"txtWrapperClass", UnlessWrapperName},
    {"txtWrapperClass", IfWrapperNameIsTaken},
    {"chkMTS", IfXmlAssistIsTaken},
    {"txtAutoSave", UnlessInterval},
    {"txtDBConnection", UnlessLogConnection},
    {"txtTableName", UnlessLogTable},
});

std::optional<ProjectRefusal> UnlessWritable(std::string_view control, const std::string& text,
                                             const text::CodePage& codePage)
{
    std::string trouble = NotWritableText(text, codePage);
    if (trouble.empty())
        return std::nullopt;
    return ProjectRefusal{.Control = control, .Box = Warning(std::string(kNotWritableTitle), std::move(trouble))};
}

std::optional<ProjectRefusal> FirstNotWritable(const CheckedProject& checked, std::optional<std::string_view> only)
{
    if (!only || *only == "txtProjectName")
        if (auto refusal = UnlessWritable("txtProjectName", checked.Values.ProjectName(), checked.CodePage))
            return refusal;
    for (const ProjectText& text : kProjectTexts)
        if (!only || *only == text.Control)
            if (auto refusal = UnlessWritable(text.Control, checked.Values.*text.Member, checked.CodePage))
                return refusal;
    return std::nullopt;
}

} // namespace

std::optional<std::int32_t> AutosaveMinutes(std::string_view typed)
{
    if (typed.empty() || typed.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    const std::int32_t minutes = text::LeadingNumber(typed); // clamped
    return minutes >= 1 && minutes <= kLongestAutosaveInterval ? std::optional(minutes) : std::nullopt;
}

std::optional<ProjectRefusal> FirstRefusal(const CheckedProject& checked, std::optional<std::string_view> only)
{
    for (const Check& check : kChecks) {
        if (only && *only != check.Control)
            continue;
        if (auto refusal = check.Refuses(checked))
            return ProjectRefusal{.Control = check.Control, .Box = *std::move(refusal)};
    }
    return FirstNotWritable(checked, only);
}

std::optional<Question> LogTableQuestion(const TTCProject& values)
{
    const std::string clean = MakeValidName(values.LogTableName);
    if (!LogsTransactions(values) || clean == values.LogTableName)
        return std::nullopt;
    return Question{.Title = "Invalid Transaction Logging Table Name",
                    .Text = "The Transaction Logging Table name '" + values.LogTableName +
                            "' is invalid. Click Ok to change the Transaction Logging Table name to '" + clean +
                            "' or click Cancel to enter another name.",
                    .Offered = Buttons::OkCancel,
                    .Icon = MessageIcon::Question};
}

} // namespace veldrane
