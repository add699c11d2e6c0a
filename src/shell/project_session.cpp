#include "shell/project_session.h"

#include "model/xml_assist.h"
#include "projectfile/file_management.h"
#include "shell/new_project.h"

namespace veldrane {

ProjectSession::ProjectSession(const Application& application) : application_(application)
{
    StartDocument(DataSourceOnOpen::Connect);
}

void ProjectSession::StartDocument(DataSourceOnOpen dataSource)
{
    application_.State.ActiveConnection.reset();
    document_ = std::make_unique<Document>();
    lostClasses_ = false;
    connectionChanged_ = Connection();
    if (dataSource == DataSourceOnOpen::Connect)
        connectionChanged_ = Project().ProjectConnectionChanged.Connect([this](const std::string& text) {
            if (!text.empty() && !IsOpenOn(text))
                ConnectDataSource(StringOrigin::ProjectFile);
        });
}

void ProjectSession::New(DataSourceOnOpen dataSource)
{
    StartDocument(dataSource);
    NewProject(Project(), application_.UserSettings, application_.Errors);
    if (Project().MTSEnabled)
        AddXmlAssist(Project(), Classes());
}

bool ProjectSession::Open(const std::string& path, DataSourceOnOpen dataSource)
{
    StartDocument(dataSource);
    Project().Clear();
    TTCFileManagement files(application_.Files, application_.Asking, application_.Errors,
                            application_.State.Generation.CodePage, application_.Windows);
    const bool opened = files.OpenProject(Project(), Classes(), path);
    lostClasses_ = files.LostClasses();
    return opened;
}

bool ProjectSession::Save()
{
    TTCFileManagement files(application_.Files, application_.Asking, application_.Errors,
                            application_.State.Generation.CodePage, application_.Windows);
    return files.SaveProject(Project(), Classes());
}

// The connection dialog hands over what it has opened with the string.
bool ProjectSession::IsOpenOn(const std::string& text)
{
    return ActiveConnection() != nullptr && ActiveConnection()->IsOpen() &&
           ActiveConnection()->ConnectionString() == text;
}

bool ProjectSession::ConnectDataSource(StringOrigin origin)
{
    application_.State.ActiveConnection.reset();
    const ErrorPlace place{
        .ModuleName = application_.State.Generation.AppTitle,
        .RoutineName = "Open Datasource",
        .Hint =
            "If you would like to modify your DataSource, you may do so by selecting Project|Edit DataSource from the menu."};
    return Guarded(application_.Errors, place, [&] {
        application_.State.ActiveConnection = application_.Connect(Project().ConnectionString(), origin);
    });
}

} // namespace veldrane
