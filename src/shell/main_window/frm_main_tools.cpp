#include "datasource/logon/edit_data_source.h"
#include "shell/main_window/ask_to_save.h"
#include "shell/main_window/delete_class.h"
#include "shell/main_window/frm_main.h"
#include "shell/main_window/help_messages.h"

#include <algorithm>
#include <functional>

namespace veldrane {
namespace {

constexpr const char* kFontChanged =
    "You have changed the font of the preview. Text that stands in columns is only aligned in a font whose letters are "
    "all equally wide. Click 'Monospaced Font' in the menu of the preview to choose such a font.\r\n\r\n"
    "The Zoom window and printed copies of the preview use this font too. The files that are generated do not depend on "
    "it.";

constexpr const char* kDataSourceChanged =
    "You have opened another data source for a project that already has classes. Your classes have not been changed: "
    "they keep the tables and fields that they were made from, even if the new data source does not have them.\r\n\r\n"
    "The code that you generate will connect to the new data source. Please make sure that it has the same structure as "
    "the former one.";

constexpr const char* kLogNeedsItsTable =
    "Transactions are logged in a table of a database, which has to be there before your COM object is used. Enter the "
    "connection to the database and the name of the table, then click 'Create Logging Table': it creates the table at "
    "once, or saves the script for the person who looks after the database.";

} // namespace

struct frmMain::NamedCommand
{
    std::string_view Name;
    std::function<void(frmMain&)> Run;
};

const std::vector<frmMain::NamedCommand>& frmMain::Commands()
{
    static const std::vector<NamedCommand> commands{
        {"New", &frmMain::New},
        {"Open", [](frmMain& form) { form.OpenProject({}); }},
        {"Save", [](frmMain& form) { form.Save(SaveKind::Normal); }},
        {"SaveAs", [](frmMain& form) { form.Save(SaveKind::SaveAs); }},
        {"Startup",
         [](frmMain& form) {
             form.application_.UserSettings.UpdateKey(settings_section::kOptions, "DontShowStartupDialog", "0");
             form.ShowStartup();
         }},
        {"Exit", [](frmMain& form) { form.dialogs_.CloseMainWindow(); }},
        {"Undo", &frmMain::Undo},
        {"Redo", &frmMain::Redo},
        {"ProjectProperties", &frmMain::ProjectProperties},
        {"ProjectRename", [](frmMain& form) { form.dialogs_.StartLabelEdit(); }},
        {"NewClass", &frmMain::AddNewClass},
        {"EditClass", &frmMain::EditSelectedClass},
        {"DeleteClass", &frmMain::DeleteSelectedClass},
        {"EditDataSource", &frmMain::EditDataSource},
        {"OpenDatasource", &frmMain::OpenDatasource},
        {"RefreshTables", &frmMain::RefreshLists},
        {"Generate", &frmMain::Generate},
        {"ViewDataSourceTables",
         [](frmMain& form) { form.SetPane(&PaneManagement::pmDatasourceVisible, !form.panes_.pmDatasourceVisible); }},
        {"ViewNavigator",
         [](frmMain& form) { form.SetPane(&PaneManagement::pmNavigatorVisible, !form.panes_.pmNavigatorVisible); }},
        {"ViewPreviewPane",
         [](frmMain& form) { form.SetPane(&PaneManagement::pmPreviewVisible, !form.panes_.pmPreviewVisible); }},
        {"ExpandTree",
         [](frmMain& form) {
             form.tree_.ExpandAll();
             form.Changed.Raise(WindowPart::TreeState);
         }},
        {"Colapse",
         [](frmMain& form) {
             form.tree_.CollapseAll();
             form.Changed.Raise(WindowPart::TreeState);
         }},
        {"Zoom", [](frmMain& form) { form.dialogs_.ShowZoom(); }},
        {"Options", &frmMain::Options},
        {"HelpContents", &frmMain::HelpContents},
        {"ReportABug", [](frmMain& form) { form.dialogs_.ShowBug(); }},
        {"About", [](frmMain& form) { form.dialogs_.ShowAbout(); }},
    };
    return commands;
}

void frmMain::actbar_Click(std::string_view tool)
{
    if (!tools_.IsEnabled(tool))
        return;
    Guarded(application_.Errors, application_.State.Generation.AppTitle, "Menu", [&] {
        if (const auto path = recent_.PathOf(tool))
            return OpenProject(*path);
        for (const NamedCommand& command : Commands())
            if (command.Name == tool)
                return command.Run(*this);
    });
}

void frmMain::New()
{
    if (!AskToSave(application_, session_))
        return;
    StartNewProject();
    if (ShowProjectProperties(ProjectTab::General))
        OpenDatasource();
}

void frmMain::Save(SaveKind kind)
{
    if (session_.Save(kind))
        status_.SetStatus(kReadyStatus);
}

void frmMain::ShowStartup()
{
    frmStartup startup(application_);
    const StartupChoice choice = dialogs_.AskAtStartup(startup);
    if (choice.Action == StartupAction::New)
        actbar_Click("New");
    else if (choice.Action == StartupAction::Open)
        OpenProject(choice.Path);
}

void frmMain::DeleteSelectedClass()
{
    const TreeNode* const node = tree_.SelectedNode();
    if (node == nullptr)
        return;
    AsEdit("Delete Class " + std::string(node->ClassName), [&] {
        if (DeleteClass({.Project = Project(), .Classes = Classes(), .Tree = tree_, .Messages = application_.Asking},
                        *tree_.Selected()))
            DisplayClasses();
    });
}

void frmMain::EditDataSource()
{
    veldrane::EditDataSource(application_.Asking, [this](LogonPurpose purpose) { ShowLogon(purpose); });
}

void frmMain::OpenDatasource()
{
    const std::string before = Project().ConnectionString();
    veldrane::OpenDatasource(Project(), OpenDatasourceFor::UsersChoice,
                             [this](LogonPurpose purpose) { ShowLogon(purpose); });
    if (!before.empty() && before != Project().ConnectionString() && HasClassesOfTables())
        warning_.DisplayWarning(kDataSourceChanged, warning_id::kOpenDatasource);
}

bool frmMain::HasClassesOfTables()
{
    return std::any_of(Classes().begin(), Classes().end(),
                       [](const KZMClass& item) { return !item.TableName.empty(); });
}

// A run may have added methods, and the folder is part of the project.
void frmMain::Generate()
{
    dialogs_.ShowGenCode(application_, Project(), Classes());
    DisplayPreview();
    ShowWhatIsOpen();
}

void frmMain::ProjectProperties()
{
    const bool component = tree_.Selected() && tree_.Nodes().at(*tree_.Selected()).Id.Key == "MTSRoot";
    (void)ShowProjectProperties(component ? ProjectTab::ComponentServices : ProjectTab::General);
}

bool frmMain::ShowProjectProperties(ProjectTab tab)
{
    frmProjectProperties properties(
        {.Project = Project(),
         .Classes = Classes(),
         .Options = application_.UserSettings,
         .Dialogs = dialogs_.OfProject(),
         .Logging = {.Connect = telling_.Connect,
                     .Files = application_.Files,
                     .Dialogs = application_.Windows.Dialogs,
                     .Messages = application_.Asking,
                     .Errors = application_.Errors,
                     .CodePage = application_.State.Generation.CodePage},
         .LoggingTurnedOn = [this] { warning_.DisplayWarning(kLogNeedsItsTable, warning_id::kLoggingTable); }},
        tab);
    bool accepted = false;
    AsEdit("Project Properties", [&] { accepted = dialogs_.Show(properties); });
    if (accepted)
        DisplayClasses();
    return accepted;
}

void frmMain::Options()
{
    frmOptions options({.Registry = application_.UserSettings,
                        .Asking = application_.Asking,
                        .Errors = application_.Errors,
                        .Dialogs = dialogs_.Look(),
                        .Warning = warning_},
                       *this, look_);
    const PreviewFont before = look_.Font;
    dialogs_.Show(options);
    if (look_.Font != before)
        warning_.DisplayWarning(kFontChanged, warning_id::kPreviewPaneFontChange);
}

void frmMain::HelpContents()
{
    application_.Programs.Start({"xdg-open", application_.ProgramFolder + "/help.html"});
}

} // namespace veldrane
