#include "datasource/naming.h"
#include "model/xml_assist.h"
#include "projectfile/project_settings.h"
#include "shell/attentive_catalog.h"
#include "shell/commands.h"
#include "shell/define_classes.h"
#include "shell/open_project_file.h"
#include "shell/platform/console_text.h"
#include "shell/platform/paths.h"
#include "shell/project_connection.h"
#include "shell/remembered_reports.h"

#include <filesystem>

namespace veldrane {
namespace {

// One run of `define`, from the file as it is to the file as it should be. What can't be done is told and left out; the
// rest is saved.
class DefineRun
{
  public:
    DefineRun(const Application& application, const DefineCommand& command)
        : application_(application), command_(command), path_(PathFromRoot(command.File)), session_(application),
          reports_(application.Errors)
    {}

    int Run()
    {
        if (!StartProject() || !ApplySettings() || !NameFits() || !ConnectDataSource())
            return exit_code::kFailed;
        if (session_.ActiveConnection() != nullptr && !ReadDataSource())
            return exit_code::kFailed;
        if (!session_.Save())
            return exit_code::kFailed;
        application_.Progress.Stage(100, "The project is in " + path_);
        return leftOut_ || reports_.Any() ? exit_code::kFailed : exit_code::kDone;
    }

  private:
    TTCProject& Project() { return session_.Project(); }

    void Refuse(const std::string& line)
    {
        application_.ErrorOutput << "veldrane: " << ConsoleLine(line) << '\n';
        leftOut_ = true;
    }

    bool StartProject()
    {
        if (application_.Files.Kind(path_) != FileKind::Missing)
            return OpenProject();
        session_.New(DataSourceOnOpen::LeaveClosed);
        const std::filesystem::path file(path_);
        Project().VBProjectName = MakeValidName(file.stem().string());
        Project().FullPath = path_;
        Project().FileName = file.filename().string();
        return true;
    }

    // A file is extended only if it was read whole: nobody is there to see what saving would drop.
    bool OpenProject()
    {
        const auto dataSource = command_.Connection.empty() ? DataSourceOnOpen::Connect : DataSourceOnOpen::LeaveClosed;
        if (!OpenProjectFile(application_, session_, path_, dataSource))
            return false;
        if (session_.LostClasses())
            Refuse(path_ + " stays as it is: not all of its classes can be read, and saving would drop the others.");
        return !session_.LostClasses();
    }

    bool ApplySettings()
    {
        const bool hadComponentServices = Project().MTSEnabled;
        for (const auto& [name, value] : command_.Settings) {
            try {
                SetProjectSetting(Project(), name, value);
            } catch (const RuntimeError& error) {
                Refuse("--set " + name + ": " + error.Description());
                return false;
            }
        }
        if (Project().MTSEnabled && !hadComponentServices && !AddXmlAssist(Project(), session_.Classes())) {
            Refuse(
                "component services need the name xmlAssist, which a class of the project has: rename that class first.");
            return false;
        }
        if (!Project().MTSEnabled && hadComponentServices)
            RemoveXmlAssist(Project(), session_.Classes());
        return true;
    }

    // After the settings: a file whose own name can't be the project's is given another by --set.
    bool NameFits()
    {
        return FitsProject(Project().VBProjectName, application_.State.Generation.CodePage, application_.Asking);
    }

    bool WantsClasses() const
    {
        return command_.Request.All || !command_.Request.Tables.empty() || !command_.Request.Lookups.empty() ||
               !command_.Procedures.empty();
    }

    // A project without a data source can still be given settings.
    bool ConnectDataSource()
    {
        if (command_.Connection.empty()) {
            if (session_.ActiveConnection() == nullptr && !Project().ConnectionString().empty())
                return false; // refused while the project was opened, and told
            if (session_.ActiveConnection() == nullptr && WantsClasses())
                Refuse("the project has no data source: give one with --connection.");
            return !leftOut_;
        }
        if (!Project().ConnectionString().empty() && Project().ConnectionString() != command_.Connection)
            application_.ErrorOutput << "veldrane: the data source given replaces that of the project.\n";
        SetConnection(Project(), command_.Connection, application_.Installed);
        return session_.ConnectDataSource(StringOrigin::CommandLine);
    }

    // False if nothing can be saved: the catalog can't be read, or not to its end.
    bool ReadDataSource()
    {
        try {
            return Guarded(reports_, "Veldrane", "define", [&] {
                AttentiveCatalog catalog(session_.ActiveConnection()->OpenCatalog());
                leftOut_ = !DefineClasses({.Application = application_,
                                           .Command = command_,
                                           .Session = session_,
                                           .Source = catalog,
                                           .Errors = reports_});
            });
        } catch (const ConnectionLost& lost) {
            reports_.ReportError(lost.Reason, {.ModuleName = "Veldrane",
                                               .RoutineName = "define",
                                               .Hint = "Nothing was written to " + path_ + ": run the command again."});
        }
        return false;
    }

    const Application& application_;
    const DefineCommand& command_;
    const std::string path_;
    ProjectSession session_;
    RememberedReports reports_;
    bool leftOut_ = false;
};

} // namespace

int RunDefine(const Application& application, const DefineCommand& command)
{
    return DefineRun(application, command).Run();
}

} // namespace veldrane
