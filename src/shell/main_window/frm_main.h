#pragma once

#include "editors/class_editor.h"
#include "generator/code_generation.h"
#include "shell/application.h"
#include "shell/command_line.h"
#include "shell/main_window/autosave.h"
#include "shell/main_window/catalog_reading.h"
#include "shell/main_window/data_source_pane.h"
#include "shell/main_window/drop_rules.h"
#include "shell/main_window/edit_history.h"
#include "shell/main_window/frm_warning.h"
#include "shell/main_window/main_window_dialogs.h"
#include "shell/main_window/menu_states.h"
#include "shell/main_window/navigation.h"
#include "shell/main_window/pane_management.h"
#include "shell/main_window/preview_pane.h"
#include "shell/main_window/recent_menu.h"
#include "shell/main_window/status_bar.h"
#include "shell/main_window/tree_state.h"
#include "shell/main_window/watched_catalog.h"
#include "shell/no_conflicts.h"
#include "shell/project_session.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace veldrane {

// What is dragged: a row of a list, or a node of the tree by its key, for the tree may be built anew meanwhile.
using Dragged = std::variant<DraggedRow, NodeKey>;

// What of the main window is to be shown anew. The preview, the status bar and the recent menu tell of their changes
// themselves.
enum class WindowPart
{
    Caption,
    Tree,      // its nodes
    TreeState, // which are expanded, selected and marked
    Lists,     // of the data source, and which is shown
    Navigator,
    PreviewLook,
    Menus, // which tools may be chosen
    Panes,
};

// The main window: the project of the session, its tree, the lists of its data source and the preview of the selected
// node, and what becomes of each thing that a person does. It knows no widget: a window listens to `Changed` and shows
// what it finds here. Failures are reported, and the window goes on.
//
// Nodes are given by their place in `treMain().Nodes()`, rows by their place in their list; one that is not there is
// passed over.
class frmMain : private OptionsOwner
{
  public:
    // All must outlive this object. The reading is the one that the application's data sources are watched by.
    frmMain(const Application& application, MainWindowDialogs& dialogs, CatalogReading& reading);
    ~frmMain() override = default;
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    Signal<WindowPart> Changed;

    [[nodiscard]] TTCProject& Project() { return session_.Project(); }
    [[nodiscard]] KZMClasses& Classes() { return session_.Classes(); }
    [[nodiscard]] CodeGeneration& TTC() { return *ttc_; }
    [[nodiscard]] TTCFileManagement& FileManagement() { return session_.FileManagement(); }

    [[nodiscard]] const std::string& Caption() const { return caption_; }
    [[nodiscard]] const TreeState& treMain() const { return tree_; }
    [[nodiscard]] const DataSourcePane& Datasource() const { return datasource_; }
    [[nodiscard]] PreviewPane& lstPreview() { return preview_; }
    [[nodiscard]] const PreviewLook& Look() const { return look_; }
    [[nodiscard]] const std::vector<NavigationRow>& cmbNavigate() const { return navigation_; }
    [[nodiscard]] StatusBar& Status() { return status_; }
    [[nodiscard]] const ToolStates& actBar() const { return tools_; }
    [[nodiscard]] RecentMenu& Recent() { return recent_; }
    [[nodiscard]] const PaneManagement& Panes() const { return panes_; }

    // Reads which panes are shown, the preview's font and its colours: before the window is shown, so that nothing
    // jumps.
    void LoadLook();

    // Recovers work that was not saved, and acts on the command line: opens its project, or starts a new one. Whether
    // the start-up dialog is due.
    [[nodiscard]] bool Load(const StartCommand& start);

    // Shows the start-up dialog, unless the person wants to see it no more.
    void tmrStartup_Timer();

    // Half a minute is over.
    void tmrAutosave_Timer() { autosave_.Tick(); }

    // Keeps what nobody will be asked to save: the program is about to be ended.
    void KeepLastCopy() { autosave_.KeepLastCopy(); }

    // Before the window closes: asks about a modified project. False if the window is to stay; otherwise the settings
    // know of no copy of it any more.
    [[nodiscard]] bool QueryUnload();

    // What a tool is called in its menu now: "Undo" and "Redo" name the edit that they are about.
    [[nodiscard]] std::string ToolCaption(const Tool& tool) const;

    // Runs a tool by its name. One that is off, or that is none, does nothing.
    void actbar_Click(std::string_view tool);

    void treMain_NodeClick(std::size_t node);
    void treMain_DblClick(std::size_t node);
    void treMain_Expand(std::size_t node) { tree_.Expand(node); }
    void treMain_Collapse(std::size_t node) { tree_.Collapse(node); }

    // Takes the new label of a node; false if the node keeps its own.
    bool treMain_AfterLabelEdit(std::size_t node, const std::string& label);

    void tabDatasource_Click(DataSourceTab tab);
    void lst_ItemClick(std::size_t row); // of the list that is shown
    void lst_DblClick(std::size_t row);

    void lst_ColumnClick(); // on its header

    // Whether the row of the list that is shown has a menu of its own.
    [[nodiscard]] bool HasMenu(std::size_t row) const;

    // What is dragged from a row of the list that is shown, or from a node; nothing for what stays where it is.
    [[nodiscard]] std::optional<Dragged> DraggedFromRow(std::size_t row) const;
    [[nodiscard]] std::optional<Dragged> DraggedFromNode(std::size_t node);

    // The same of what is selected, for those who drag nothing.
    [[nodiscard]] std::optional<Dragged> DraggedFromSelection(std::string_view tool);

    // Whether a drop on the node does something, and all places where it would.
    [[nodiscard]] bool MayDrop(const Dragged& dragged, std::size_t target);
    [[nodiscard]] std::vector<DropTarget> Targets(const Dragged& dragged);

    void DropOn(const Dragged& dragged, std::size_t target);
    void DropOn(const DropTarget& target) { PerformDrop(target.Effect); }

    // Goes to the preview's row of an entry.
    void cmbNavigate_Click(std::size_t entry);

    // A pane was shown or hidden by its own button.
    void SetPane(bool PaneManagement::*pane, bool shown);

    // The preview's letters are to be equally wide.
    void UseFontNamed(const std::string& name);

    // A file was dropped on the window: a project is opened, anything else is offered as a data source.
    void FileDropped(const std::string& path);

  private:
    struct NamedCommand;
    static const std::vector<NamedCommand>& Commands();

    [[nodiscard]] Application TellingOfConnections(Application application);
    void Listen();
    void StartProject();
    void ListenToNewClasses();
    void Project_ProjectNameChanged(const std::string& name);
    void Classes_NewClassAdded(const std::string& className);
    void Classes_ClassNameChanged(const std::string& oldName, const std::string& newName);

    [[nodiscard]] bool ActOnCommandLine(const StartCommand& start, const std::string& file);
    void OpenProject(const std::string& path); // "" asks for the file
    void ShowOpenedProject();
    void StartNewProject();
    void ShowWholeProject(int menuState);
    void DisplayClasses();
    void ShowRebuiltTree();
    void DisplayPreview();
    void ShowMenus(int state);
    void ShowWhatIsOpen();
    void ShowDataSource();
    void RefreshLists();
    void ReadLists();
    void ShowLogon(LogonPurpose purpose, const std::string& database = {});
    void AttachByHand();
    void AsEdit(const std::string& name, const std::function<void()>& edit);
    void Undo();
    void Redo();
    void ShowProjectOfHistory(const std::function<void()>& go);
    [[nodiscard]] bool HasOtherPlace();
    [[nodiscard]] Drop EffectOf(const Dragged& dragged, std::size_t target);
    void PerformDrop(const Drop& drop);
    void ChangeByDrop(const Drop& drop);
    [[nodiscard]] bool WithEditor(const std::function<bool(ClassEditor& editor)>& use);
    [[nodiscard]] ProjectNames NamesOfProject();
    [[nodiscard]] ClassEditorWorld WorldOfEditor(CodeGeneration& previews, MemberDialogs& members);
    [[nodiscard]] std::unique_ptr<WatchedCatalog> MakeCatalog();
    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog();
    void Watch(const std::function<void()>& read);
    [[nodiscard]] DataSourceConnection* OpenConnection();

    // The tools.
    void New();
    void Save(SaveKind kind);
    void ShowStartup();
    void AddNewClass();
    void EditSelectedClass();
    void DeleteSelectedClass();
    void EditDataSource();
    void OpenDatasource();
    [[nodiscard]] bool HasClassesOfTables();
    void Generate();
    void ProjectProperties();
    [[nodiscard]] bool ShowProjectProperties(ProjectTab tab);
    void Options();
    void HelpContents();

    // OptionsOwner
    void ApplyPreviewFont(const PreviewFont& font) override;
    void DisplayDataSourceTables() override { RefreshLists(); }
    void ApplyPreviewBackground(Color background) override;
    void ApplyPreviewColors(const LineColors& colors) override;
    void DisplaySelectedPreview() override { DisplayPreview(); }

    const Application& application_;
    const Application telling_; // says in the status bar that it opens a data source
    MainWindowDialogs& dialogs_;
    CatalogReading& reading_;
    ProjectSession session_;
    NoConflicts conflicts_;
    std::unique_ptr<CodeGeneration> ttc_;
    std::unique_ptr<EditHistory> history_;
    TreeState tree_;
    DataSourcePane datasource_;
    PreviewPane preview_;
    PreviewLook look_;
    std::vector<NavigationRow> navigation_;
    StatusBar status_;
    Autosave autosave_{application_, session_, status_};
    ToolStates tools_;
    RecentMenu recent_;
    PaneManagement panes_;
    frmWarning warning_;
    std::string caption_;
    std::vector<Connection> events_;
    std::vector<Connection> projectEvents_;
    Connection newClassAdded_;
};

} // namespace veldrane
