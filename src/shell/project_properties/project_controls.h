#pragma once

#include "model/project.h"

#include <array>
#include <string>
#include <string_view>

// What the dialog of a project's properties shows, control by control.
namespace veldrane {

enum class ProjectTab
{
    General,
    VisualBasic,
    Options,
    ComponentServices,
    Logging,
    Prefixes,
};

struct ProjectText
{
    std::string_view Control;
    std::string TTCProject::*Member;
    ProjectTab Tab;
};

// In the order of the tabs. The name of the project and the interval of its autosaves are no plain texts of it.
inline constexpr auto kProjectTexts = std::to_array<ProjectText>({
    {"txtProjectDescription", &TTCProject::ProjectDescription, ProjectTab::General},
    {"txtAuthor", &TTCProject::Author, ProjectTab::General},
    {"txtVBProjectName", &TTCProject::VBProjectName, ProjectTab::VisualBasic},
    {"txtVBProjectDescription", &TTCProject::VBProjectDescription, ProjectTab::VisualBasic},
    {"txtWrapperClass", &TTCProject::WrapperClassName, ProjectTab::VisualBasic},
    {"txtDBConnection", &TTCProject::LogDatabaseConnection, ProjectTab::Logging},
    {"txtTableName", &TTCProject::LogTableName, ProjectTab::Logging},
});

struct ProjectCheck
{
    std::string_view Control;
    bool TTCProject::*Member;
    std::string_view Heading; // of its help
    std::string_view Help;
};

extern const std::array<ProjectCheck, 13> kProjectChecks;

// Why `chkUseTransactions` is off while component services are on.
extern const std::string_view kTransactionsAreAutomatic;

// Copies what the dialog edits, and nothing else of a project.
void CopyProjectProperties(const TTCProject& from, TTCProject& to);

// What `chkForms` is called, and the heading of its help.
[[nodiscard]] std::string_view FormsCaption(bool webCompatible);
[[nodiscard]] std::string_view FormsHeading(bool webCompatible);

} // namespace veldrane
