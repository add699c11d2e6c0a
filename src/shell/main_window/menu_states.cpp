#include "shell/main_window/menu_states.h"

#include "preview/tree_node.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace veldrane {
namespace {

constexpr std::string_view kFileMenu = "&File";
constexpr std::string_view kEditMenu = "&Edit";
constexpr std::string_view kProjectMenu = "&Project";
constexpr std::string_view kViewMenu = "&View";
constexpr std::string_view kToolsMenu = "&Tools";
constexpr std::string_view kHelpMenu = "&Help";

constexpr auto kTools = std::to_array<Tool>({
    {"New", "&New Project", kFileMenu, "Ctrl+N", "Project", "Start a new project"},
    {"Open", "&Open Project...", kFileMenu, "Ctrl+O", "OpenFolder", "Open a project file"},
    {"Save", "&Save Project", kFileMenu, "Ctrl+S", "Save", "Save the project"},
    {"SaveAs", "Save Project &As...", kFileMenu, "Ctrl+Shift+S", "", "Save the project under another name"},
    {"SavePreview", "Save Pre&view As...", kFileMenu, "Ctrl+Alt+S", "File", "Save the text of the preview"},
    {"PrintPreview", "P&rint Preview...", kFileMenu, "Ctrl+P", "Print", "Print the text of the preview"},
    {"Startup", "S&tart-up Dialog...", kFileMenu, "Ctrl+Shift+O", "", "Choose a new, an existing or a recent project"},
    {"Exit", "E&xit", kFileMenu, "Ctrl+Q", "", "End the program"},

    {"Undo", "&Undo", kEditMenu, "Ctrl+Z", "Undo", "Take the latest change of the project back"},
    {"Redo", "&Redo", kEditMenu, "Ctrl+Shift+Z", "Redo", "Make the change again that was taken back"},
    {"CopyLines", "&Copy", kEditMenu, "Ctrl+C", "Copy", "Copy the selected lines of the preview"},
    {"CopyAll", "Copy &All", kEditMenu, "Ctrl+Shift+C", "", "Copy all lines of the preview"},
    {"Find", "&Find...", kEditMenu, "Ctrl+F", "Find", "Find a text in the preview"},
    {"FindNext", "Find &Next", kEditMenu, "F3", "", "Go to the next place of the text"},
    {"FindPrevious", "Find &Previous", kEditMenu, "Shift+F3", "", "Go to the previous place of the text"},

    {"ProjectProperties", "&Properties...", kProjectMenu, "Alt+Return", "Root", "Change the properties of the project"},
    {"ProjectRename", "&Rename", kProjectMenu, "F2", "", "Change the name of the project"},
    {"NewClass", "&New Class...", kProjectMenu, "Ctrl+Shift+N", "Class", "Add a class that stands on no table"},
    {"EditClass", "&Edit Class...", kProjectMenu, "Ctrl+E", "TableClass", "Change the selected class"},
    {"DeleteClass", "&Delete Class", kProjectMenu, "Del", "Delete", "Delete the selected class with its subclasses"},
    {"AddClassTo", "&Add Class To", kProjectMenu, "Ctrl+T", "Table", "Make a class of the selected table"},
    {"MoveClassTo", "&Move Class To", kProjectMenu, "Ctrl+M", "", "Move the selected class to another place"},
    {"OpenDatasource", "&Open DataSource...", kProjectMenu, "Ctrl+D", "DSN", "Connect the project to its data source"},
    {"EditDataSource", "Edit Data&Source...", kProjectMenu, "Ctrl+Shift+D", "",
     "Change the data source of the project"},
    {"RefreshTables", "Re&fresh Tables", kProjectMenu, "F5", "Refresh", "Read the tables of the data source again"},
    {"Generate", "&Generate Code...", kProjectMenu, "F9", "Module", "Write the Visual Basic project"},

    {"ViewDataSourceTables", "&DataSource Tables", kViewMenu, "Ctrl+1", "",
     "Show or hide the lists of the data source"},
    {"ViewNavigator", "&Navigator", kViewMenu, "Ctrl+2", "", "Show or hide the list of members"},
    {"ViewPreviewPane", "&Preview", kViewMenu, "Ctrl+3", "", "Show or hide the preview"},
    {"ExpandTree", "&Expand Tree", kViewMenu, "Ctrl+Shift+Right", "Expand", "Expand every node of the tree"},
    {"Colapse", "&Collapse Tree", kViewMenu, "Ctrl+Shift+Left", "Collapse", "Collapse every node below the project"},
    {"Zoom", "&Zoom Preview", kViewMenu, "F11", "Zoom", "Show the preview in a window of its own"},

    {"Options", "&Options...", kToolsMenu, "Ctrl+,", "Options", "Change the options of the program"},

    {"HelpContents", "&Contents", kHelpMenu, "F1", "Help", "Open the help page"},
    {"ReportABug", "Report a &Bug...", kHelpMenu, "Ctrl+Shift+B", "", "Report a bug"},
    {"About", "&About...", kHelpMenu, "Ctrl+F1", "Veldrane", "Tell about the program"},
});

enum class ToolNeeds
{
    Project,
    DataSource,
    Preview,
    Table,
    OtherPlace,
    Undo,
    Redo,
};

bool Has(const WhatIsOpen& open, ToolNeeds needs)
{
    switch (needs) {
    case ToolNeeds::DataSource:
        return open.Project && open.DataSource;
    case ToolNeeds::Preview:
        return open.Project && open.Preview;
    case ToolNeeds::Table:
        return open.Project && open.DataSource && open.Table;
    case ToolNeeds::OtherPlace:
        return open.Project && open.OtherPlace;
    case ToolNeeds::Undo:
        return open.Undo;
    case ToolNeeds::Redo:
        return open.Redo;
    case ToolNeeds::Project:
        break;
    }
    return open.Project;
}

using States = unsigned; // a bit for each of menu_state

constexpr States In(std::initializer_list<int> states)
{
    States bits = 0;
    for (const int state : states)
        bits |= 1U << state;
    return bits;
}

constexpr States kAlways = ~0U;
constexpr States kOnProject = In({menu_state::kNewProject, menu_state::kProject});
constexpr States kOnClass = In({menu_state::kTableClass, menu_state::kLookupClass, menu_state::kAdditionalClass});
constexpr States kWhereClassesStand = kAlways & ~In({menu_state::kRequiredFiles});

// What keeps a tool off. A tool without a row is on throughout.
struct ToolRule
{
    std::string_view Name;
    ToolNeeds Needs;
    veldrane::States States; // in which it is on
};

constexpr auto kRules = std::to_array<ToolRule>({
    {"Save", ToolNeeds::Project, kAlways},
    {"SaveAs", ToolNeeds::Project, kAlways},
    {"SavePreview", ToolNeeds::Preview, kAlways},
    {"PrintPreview", ToolNeeds::Preview, kAlways},
    {"Undo", ToolNeeds::Undo, kAlways},
    {"Redo", ToolNeeds::Redo, kAlways},
    {"CopyLines", ToolNeeds::Preview, kAlways},
    {"CopyAll", ToolNeeds::Preview, kAlways},
    {"Find", ToolNeeds::Preview, kAlways},
    {"FindNext", ToolNeeds::Preview, kAlways},
    {"FindPrevious", ToolNeeds::Preview, kAlways},
    {"ProjectProperties", ToolNeeds::Project, kAlways},
    {"ProjectRename", ToolNeeds::Project, kOnProject},
    {"NewClass", ToolNeeds::Project, kWhereClassesStand},
    {"EditClass", ToolNeeds::Project, kOnClass},
    {"DeleteClass", ToolNeeds::Project, kOnClass},
    {"AddClassTo", ToolNeeds::Table, kAlways},
    {"MoveClassTo", ToolNeeds::OtherPlace, kOnClass},
    {"OpenDatasource", ToolNeeds::Project, kAlways},
    {"EditDataSource", ToolNeeds::Project, kAlways},
    {"RefreshTables", ToolNeeds::DataSource, kAlways},
    {"Generate", ToolNeeds::Project, kAlways},
    {"ExpandTree", ToolNeeds::Project, kAlways},
    {"Colapse", ToolNeeds::Project, kAlways},
    {"Zoom", ToolNeeds::Preview, kAlways},
});

struct NodeState
{
    std::string_view Name; // the key of a fixed node, else a tag
    int State;
};

constexpr auto kFixedNodeStates = std::to_array<NodeState>({
    {tree_key::kRoot, menu_state::kProject},
    {tree_key::kParentClasses, menu_state::kParentClasses},
    {tree_key::kAdditionalClasses, menu_state::kAdditionalClasses},
});

constexpr auto kClassNodeStates = std::to_array<NodeState>({
    {tree_tag::kTable, menu_state::kTableClass},
    {tree_tag::kTableCollection, menu_state::kTableClass},
    {tree_tag::kClass, menu_state::kAdditionalClass},
    {tree_tag::kClassCollection, menu_state::kAdditionalClass},
    {tree_tag::kDomain, menu_state::kLookupClass},
    {tree_tag::kDomainCollection, menu_state::kLookupClass},
});

template <std::size_t Count>
int StateNamed(const std::array<NodeState, Count>& states, std::string_view name)
{
    const auto* const found =
        std::find_if(states.begin(), states.end(), [&](const NodeState& row) { return row.Name == name; });
    return found == states.end() ? menu_state::kRequiredFiles : found->State;
}

constexpr auto kProjectTools = std::to_array<std::string_view>(
    {"ProjectProperties", "ProjectRename", "NewClass", "EditDataSource", "Generate", "ExpandTree", "Colapse"});
constexpr auto kMTSProjectTools = std::to_array<std::string_view>({"ProjectProperties", "ProjectRename"});
constexpr auto kClassRootTools = std::to_array<std::string_view>({"NewClass"});
constexpr auto kClassTools =
    std::to_array<std::string_view>({"EditClass", "DeleteClass", "NewClass", "MoveClassTo", "Zoom"});
constexpr auto kDataTools = std::to_array<std::string_view>({"AddClassTo", "RefreshTables"});

struct ContextMenu
{
    std::string_view Name;
    std::span<const std::string_view> Tools;
};

constexpr auto kContextMenus = std::to_array<ContextMenu>({
    {context_menu::kProject, kProjectTools},
    {context_menu::kMTSProject, kMTSProjectTools},
    {context_menu::kClassRoot, kClassRootTools},
    {context_menu::kClass, kClassTools},
    {context_menu::kData, kDataTools},
});

// A node of projects that keep their transaction classes in a project of their own, which none does today.
constexpr std::string_view kMTSRoot = "MTSRoot";

} // namespace

std::span<const Tool> Tools()
{
    return kTools;
}

const Tool* FindTool(std::string_view name)
{
    const auto* const found =
        std::find_if(kTools.begin(), kTools.end(), [&](const Tool& tool) { return tool.Name == name; });
    return found == kTools.end() ? nullptr : found;
}

int MenuStateOf(const TreeNode& node)
{
    return node.Id.Kind == NodeKind::Fixed ? StateNamed(kFixedNodeStates, node.Id.Key)
                                           : StateNamed(kClassNodeStates, node.Tag);
}

bool ToolStates::IsEnabled(std::string_view tool) const
{
    if (state_ == 0)
        return false;
    if (tool.starts_with(kRecentFileTool))
        return true;
    if (FindTool(tool) == nullptr)
        return false;
    const auto* const rule =
        std::find_if(kRules.begin(), kRules.end(), [&](const ToolRule& row) { return row.Name == tool; });
    if (rule == kRules.end())
        return true;
    return Has(open_, rule->Needs) && (rule->States & In({state_})) != 0;
}

bool ToolStates::IsEnabledOn(const TreeNode& node, std::string_view tool) const
{
    const bool forRealClasses = tool == "DeleteClass" || tool == "EditClass";
    return IsEnabled(tool) && (!forRealClasses || node.Id.Kind == NodeKind::Class);
}

std::optional<std::string_view> ContextMenuOf(const TreeNode& node)
{
    if (node.Id.Kind != NodeKind::Fixed)
        return context_menu::kClass;
    if (node.Id.Key == tree_key::kRoot)
        return context_menu::kProject;
    if (node.Id.Key == kMTSRoot)
        return context_menu::kMTSProject;
    if (node.Id.Key == tree_key::kAdditionalClasses)
        return context_menu::kClassRoot;
    return std::nullopt;
}

std::optional<std::string_view> DoubleClickToolOf(const TreeNode& node)
{
    if (IsFixed(node, tree_key::kRoot))
        return "ProjectProperties";
    return node.Id.Kind == NodeKind::Class ? std::optional<std::string_view>("EditClass") : std::nullopt;
}

std::span<const std::string_view> ToolsOfContextMenu(std::string_view menu)
{
    const auto* const found = std::find_if(kContextMenus.begin(), kContextMenus.end(),
                                           [&](const ContextMenu& row) { return row.Name == menu; });
    return found == kContextMenus.end() ? std::span<const std::string_view>{} : found->Tools;
}

} // namespace veldrane
