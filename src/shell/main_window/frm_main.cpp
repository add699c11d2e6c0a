#include "shell/main_window/frm_main.h"

#include "datasource/logon/edit_data_source.h"
#include "shell/invalid_path.h"
#include "shell/main_window/ask_to_save.h"
#include "shell/main_window/recovery.h"
#include "shell/main_window/tree_labels.h"
#include "shell/main_window/window_geometry.h"
#include "text/case_folding.h"

#include <algorithm>

namespace veldrane {
namespace {

constexpr std::string_view kModule = "frmMain";

} // namespace

frmMain::frmMain(const Application& application, MainWindowDialogs& dialogs, CatalogReading& reading)
    : application_(application), telling_(TellingOfConnections(application)), dialogs_(dialogs), reading_(reading),
      session_(telling_), recent_(application),
      warning_(application.UserSettings, application.Errors, [&dialogs](frmWarning& warning) { dialogs.Show(warning); })
{
    status_.Follow(session_.FileManagement());
    Listen();
    StartProject();
}

// A data source that does not answer holds the window for seconds.
Application frmMain::TellingOfConnections(Application application)
{
    application.Connect = [this, connect = application.Connect](const std::string& text, StringOrigin origin) {
        const StatusWhile connecting(status_, "Connecting to the data source...");
        return connect(text, origin);
    };
    return application;
}

void frmMain::Listen()
{
    // The nodes of the project before mean nothing to this one.
    events_.push_back(session_.DocumentReplaced.Connect([this] {
        StartProject();
        tree_.Rebuild([] { return ProjectTree(); });
        preview_.Clear();
    }));
    events_.push_back(session_.DataSourceChanged.Connect([this] { ShowDataSource(); }));
    events_.push_back(session_.FileUsed.Connect([this](const std::string& path) { recent_.Update(path); }));
    events_.push_back(tree_.Rebuilt.Connect([this] { Changed.Raise(WindowPart::Tree); }));
    events_.push_back(tree_.MarksChanged.Connect([this] { Changed.Raise(WindowPart::TreeState); }));
}

// What hangs on the project or on its classes is made anew with them.
void frmMain::StartProject()
{
    ttc_ = std::make_unique<CodeGeneration>(Project(),
                                            GenerationPorts{.Asking = application_.Asking,
                                                            .Errors = application_.Errors,
                                                            .Files = application_.Files,
                                                            .Time = application_.Time,
                                                            .Programs = application_.Programs,
                                                            .Conflicts = conflicts_},
                                            application_.State.Generation);
    history_ = std::make_unique<EditHistory>(Project(), Classes());
    projectEvents_.clear();
    projectEvents_.push_back(
        Project().ProjectNameChanged.Connect([this](const std::string& name) { Project_ProjectNameChanged(name); }));
    projectEvents_.push_back(
        Classes().ClassNameChanged.Connect([this](const std::string& oldName, const std::string& newName) {
            Classes_ClassNameChanged(oldName, newName);
        }));
    ListenToNewClasses();
    Project_ProjectNameChanged(Project().ProjectName());
}

void frmMain::ListenToNewClasses()
{
    newClassAdded_ = Classes().NewClassAdded.Connect([this](const std::string& name) { Classes_NewClassAdded(name); });
}

void frmMain::LoadLook()
{
    Guarded(application_.Errors, kModule, "Form_Load", [&] {
        panes_ = ReadPanes(application_.UserSettings);
        look_ = ReadPreviewLook(application_.UserSettings, application_.Asking);
    });
    preview_.Available = panes_.pmPreviewVisible;
    Changed.Raise(WindowPart::Panes);
    Changed.Raise(WindowPart::PreviewLook);
}

bool frmMain::Load(const StartCommand& start)
{
    application_.State.Generation.DebugTiming = start.DebugTiming;
    recent_.Rebuild();
    StartNewProject();
    const AfterRecovery after = RecoverProject(application_, session_, start);
    status_.EndProgress(); // of a copy that could not be read to its end
    if (after == AfterRecovery::End) {
        dialogs_.CloseMainWindow();
    } else if (after == AfterRecovery::Recovered) {
        ShowOpenedProject();
        status_.SetStatus(kRecoveredStatus);
    } else {
        return ActOnCommandLine(start, after == AfterRecovery::WithoutItsProject ? "" : start.File);
    }
    return false;
}

bool frmMain::ActOnCommandLine(const StartCommand& start, const std::string& file)
{
    if (!start.InvalidPath.empty())
        TellInvalidPath(application_.Asking, start.InvalidPath);
    if (file.empty())
        return start.InvalidPath.empty();
    OpenProject(file);
    return false;
}

void frmMain::tmrStartup_Timer()
{
    if (WantsStartupDialog(application_.UserSettings))
        ShowStartup();
}

bool frmMain::QueryUnload()
{
    if (!AskToSave(application_, session_))
        return false;
    session_.ForgetCopies();
    return true;
}

void frmMain::OpenProject(const std::string& path)
{
    if (!AskToSave(application_, session_))
        return;
    if (!session_.Open(path, DataSourceOnOpen::Connect)) {
        status_.EndProgress();
        return recent_.Rebuild(); // its file may be gone
    }
    ShowOpenedProject();
}

// What became of reading its data source stands in the status.
void frmMain::ShowOpenedProject()
{
    DisplayClasses();
    ShowWholeProject(menu_state::kProject);
}

void frmMain::StartNewProject()
{
    session_.New();
    Guarded(application_.Errors, kModule, "NewProject",
            [&] { tree_.Rebuild([this] { return BuildNewProjectTree(Project(), Classes()); }); });
    ShowWholeProject(menu_state::kNewProject);
}

void frmMain::ShowWholeProject(int menuState)
{
    tree_.ExpandAll();
    tree_.Select(0);
    ShowRebuiltTree();
    ShowMenus(menuState);
}

void frmMain::ShowMenus(int state)
{
    tools_.SetMenus(state);
    ShowWhatIsOpen();
}

void frmMain::ShowWhatIsOpen()
{
    tools_.SetOpen({.Project = true,
                    .DataSource = OpenConnection() != nullptr,
                    .Preview = panes_.pmPreviewVisible,
                    .Table = DraggedFromSelection("AddClassTo").has_value(),
                    .OtherPlace = HasOtherPlace(),
                    .Undo = history_->UndoName().has_value(),
                    .Redo = history_->RedoName().has_value()});
    Changed.Raise(WindowPart::Menus);
}

void frmMain::SetPane(bool PaneManagement::*pane, bool shown)
{
    if (panes_.*pane == shown)
        return;
    panes_.*pane = shown;
    WritePanes(application_.UserSettings, application_.Errors, panes_);
    if (pane == &PaneManagement::pmPreviewVisible) {
        preview_.Available = shown;
        DisplayPreview();
    }
    ShowWhatIsOpen();
    Changed.Raise(WindowPart::Panes);
}

void frmMain::ApplyPreviewFont(const PreviewFont& font)
{
    look_.Font = font;
    Changed.Raise(WindowPart::PreviewLook);
}

void frmMain::UseFontNamed(const std::string& name)
{
    look_.Font.Name = name;
    Guarded(application_.Errors, kModule, "UseFontNamed",
            [&] { WritePreviewFont(application_.UserSettings, look_.Font); });
    Changed.Raise(WindowPart::PreviewLook);
}

void frmMain::ApplyPreviewBackground(Color background)
{
    look_.Background = background;
    Changed.Raise(WindowPart::PreviewLook);
}

void frmMain::ApplyPreviewColors(const LineColors& colors)
{
    application_.State.Generation.Colors = colors;
    ttc_->Settings.Colors = colors;
}

void frmMain::FileDropped(const std::string& path)
{
    if (!tools_.IsEnabled("Open"))
        return; // the window is not loaded yet
    constexpr std::string_view kProjectEnding = ".kzm";
    if (path.size() > kProjectEnding.size() &&
        text::EqualFolded(std::string_view(path).substr(path.size() - kProjectEnding.size()), kProjectEnding))
        OpenProject(path);
    else if (Project().ConnectionString().empty())
        ShowLogon(LogonPurpose::NewDataSource, path);
    else
        veldrane::EditDataSource(application_.Asking, [&](LogonPurpose purpose) { ShowLogon(purpose, path); });
}

} // namespace veldrane
