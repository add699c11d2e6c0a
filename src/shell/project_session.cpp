#include "shell/project_session.h"

#include "model/xml_assist.h"
#include "shell/new_project.h"

#include <utility>

namespace veldrane {

ProjectSession::ProjectSession(const Application& application)
    : application_(application), files_(application.Files, application.Asking, application.Errors,
                                        application.State.Generation.CodePage, application.Windows),
      tempFiles_(application.UserSettings, application.Files, application.Recovery)
{
    application_.State.ActiveConnection.reset();
    Adopt(std::make_unique<Document>(), DataSourceOnOpen::Connect);
}

void ProjectSession::Adopt(std::unique_ptr<Document> document, DataSourceOnOpen dataSource)
{
    connectionChanged_ = Connection();
    if (document_ != nullptr)
        ForgetCopies(); // of the document that goes
    document_ = std::move(document);
    if (dataSource == DataSourceOnOpen::Connect)
        connectionChanged_ = Project().ProjectConnectionChanged.Connect([this](const std::string& text) {
            if (text.empty())
                application_.State.ActiveConnection.reset();
            else if (!IsOpenOn(text))
                Connect(text, StringOrigin::ProjectFile);
            DataSourceChanged.Raise();
        });
    DocumentReplaced.Raise();
    DataSourceChanged.Raise();
}

void ProjectSession::New(DataSourceOnOpen dataSource)
{
    auto document = std::make_unique<Document>();
    NewProject(document->Project, application_.UserSettings, application_.Errors);
    if (document->Project.MTSEnabled)
        AddXmlAssist(document->Project, document->Classes);
    application_.State.ActiveConnection.reset();
    lostClasses_ = false;
    Adopt(std::move(document), dataSource);
}

bool ProjectSession::Open(const std::string& path, DataSourceOnOpen dataSource)
{
    const std::optional<std::string> chosen = path.empty() ? files_.AskForProject(Project()) : path;
    if (!chosen || chosen->empty() || !Load(*chosen, dataSource))
        return false;
    FileUsed.Raise(*chosen);
    return true;
}

// The data source is opened in the middle of the file, where its string stands.
bool ProjectSession::Load(const std::string& path, DataSourceOnOpen dataSource)
{
    auto document = std::make_unique<Document>();
    document->Project.Clear();
    bool connected = false;
    const Connection connecting = document->Project.ProjectConnectionChanged.Connect([&](const std::string& text) {
        connected = dataSource == DataSourceOnOpen::Connect && !text.empty();
        if (connected)
            Connect(text, StringOrigin::ProjectFile);
    });
    if (!files_.OpenProject(document->Project, document->Classes, path))
        return false;
    if (!connected)
        application_.State.ActiveConnection.reset();
    lostClasses_ = files_.LostClasses();
    Adopt(std::move(document), dataSource);
    return true;
}

bool ProjectSession::Save(SaveKind kind)
{
    if (lostClasses_ && !MayDropLostClasses())
        return false;
    if (!files_.SaveProject(Project(), Classes(), kind))
        return false;
    lostClasses_ = false;
    FileUsed.Raise(Project().FullPath);
    return true;
}

bool ProjectSession::Recover(const std::string& path)
{
    if (!Load(path, DataSourceOnOpen::Connect))
        return false;
    Project().Recovered = true;
    Project().SetModified(true);
    return true;
}

bool ProjectSession::Autosave(ErrorReport& report)
{
    const bool saved = files_.Autosave(Project(), Classes(), tempFiles_, report);
    Project().SetModified(true);
    if (saved && !files_.NeedsName(Project()))
        FileUsed.Raise(Project().FullPath);
    return saved;
}

void ProjectSession::ForgetCopies()
{
    Project().TempFileName.clear();
    Guarded(application_.Errors, "frmMain", "DeleteTempFiles", [&] { tempFiles_.DeleteSection(); });
}

bool ProjectSession::MayDropLostClasses()
{
    return application_.Asking.Ask({.Title = "Save Project",
                                    .Text = "Not all classes of " + Project().FullPath +
                                            " could be read. Saving drops the others.\r\n"
                                            "Do you want to save all the same?",
                                    .Offered = Buttons::YesNo,
                                    .Icon = MessageIcon::Warning,
                                    .Default = Answer::No}) == Answer::Yes;
}

// The connection dialog hands over what it has opened with the string.
bool ProjectSession::IsOpenOn(const std::string& text)
{
    return ActiveConnection() != nullptr && ActiveConnection()->IsOpen() &&
           ActiveConnection()->ConnectionString() == text;
}

bool ProjectSession::ConnectDataSource(StringOrigin origin)
{
    const bool connected = Connect(Project().ConnectionString(), origin);
    DataSourceChanged.Raise();
    return connected;
}

// Closed first: a data source may allow no second connection.
bool ProjectSession::Connect(const std::string& text, StringOrigin origin)
{
    application_.State.ActiveConnection.reset();
    const LoadingFormWhile hidden(application_.Windows.Loading, Visibility::Hidden);
    const ErrorPlace place{
        .ModuleName = application_.State.Generation.AppTitle,
        .RoutineName = "Open Datasource",
        .Hint =
            "If you would like to modify your DataSource, you may do so by selecting Project|Edit DataSource from the menu."};
    return Guarded(application_.Errors, place,
                   [&] { application_.State.ActiveConnection = application_.Connect(text, origin); });
}

} // namespace veldrane
