#include "model/project.h"

#include "text/case_folding.h"

#include <string_view>

namespace veldrane {
namespace {

bool ContainsFolded(std::string_view text, std::string_view find)
{
    return text::FindFolded(text, find) != std::string_view::npos;
}

} // namespace

void TTCProject::Clear()
{
    connectionString_.clear();
    DataSourceName.clear();
    FileName.clear();
    FullPath.clear();
    modified_ = false;
    ProjectDescription.clear();
    projectName_.clear();
    DataSourceServerName.clear();
    DataSourceDatabaseName.clear();
    DataSourceLogin.clear();
    DataSourceDriver.clear();
    UseTransactions = false;
    WriteErrorsToApplicationLog = false;
    Author.clear();
    AutosaveProject = true;
    AutosaveProjectInterval = 5;
    VBProjectName.clear();
    VBProjectDescription.clear();
    WrapClasses = false;
    WrapperClassName.clear();
    ClassCollectionNames = TTCClassCollectionNames{};
    ProjectNameChanged.Raise("");
    ProjectConnectionChanged.Raise("");
    ProjectModified.Raise();
}

void TTCProject::SetConnectionString(const std::string& value)
{
    // Each provider found overrides the one before: a text that names two is taken for the later test's.
    if (ContainsFolded(value, "=MSDASQL;"))
        dataSource_ = data_source_kind::kOdbc;
    if (ContainsFolded(value, "=Microsoft.Jet.OLEDB.4.0;"))
        dataSource_ = data_source_kind::kJet;
    if (ContainsFolded(value, "=SQLOLEDB;"))
        dataSource_ = data_source_kind::kSqlServer;
    if (value == connectionString_)
        return;
    connectionString_ = value;
    ProjectConnectionChanged.Raise(connectionString_);
}

void TTCProject::SetProjectName(const std::string& value)
{
    if (value == projectName_)
        return;
    projectName_ = value;
    ProjectNameChanged.Raise(projectName_);
}

void TTCProject::SetModified(bool value)
{
    if (value == modified_)
        return;
    modified_ = value;
    if (modified_)
        ProjectModified.Raise();
}

bool LocalConnection(const TTCProject& project)
{
    return !project.MTSEnabled || project.MTSDontRetrieve;
}

bool RetrievesThroughComponent(const TTCProject& project)
{
    return project.MTSEnabled && !project.MTSDontRetrieve;
}

} // namespace veldrane
