#pragma once

#include "shell/main_window/project_tree.h"

#include <optional>
#include <span>
#include <string_view>

// The commands of the main window, actBar: how they are offered, and when they may be chosen.
namespace veldrane {

struct Tool
{
    std::string_view Name;
    std::string_view Caption;  // with "&" before its access key
    std::string_view Menu;     // the caption of the menu in which it stands, with "&" too
    std::string_view Shortcut; // as "Ctrl+N"; "" for none
    std::string_view Icon;     // "" for none
    std::string_view StatusText;
};

// All tools but those of recent files, in the order of the menus, a menu's tools side by side.
[[nodiscard]] std::span<const Tool> Tools();

// Nothing if there is no tool of this name.
[[nodiscard]] const Tool* FindTool(std::string_view name);

// The names of the tools of recent files begin so; a number follows.
inline constexpr std::string_view kRecentFileTool = "MRU";

// The states that SetMenus takes: what is selected, or what has just happened.
namespace menu_state {
inline constexpr int kNewProject = 1;
inline constexpr int kProject = 2;
inline constexpr int kTableClass = 3;
inline constexpr int kParentClasses = 4; // also while a changed data source is read
inline constexpr int kLookupClass = 5;
inline constexpr int kRequiredFiles = 6; // also the group of the lookup classes
inline constexpr int kAdditionalClass = 7;
inline constexpr int kAdditionalClasses = 8;
} // namespace menu_state

// The state for a selected node. A collection has that of the class below it.
[[nodiscard]] int MenuStateOf(const TreeNode& node);

// What the tools may work on.
struct WhatIsOpen
{
    bool Project = false;
    bool DataSource = false;
    bool Preview = true;    // its pane is shown
    bool Table = true;      // the selected row stands for one
    bool OtherPlace = true; // there is one for the selected class
    bool Undo = false;      // an edit can be taken back
    bool Redo = false;      // or made again
};

// Which tools may be chosen: none until the first state is set.
class ToolStates
{
  public:
    // Takes one of menu_state; a tool that its table does not name for the state is off.
    void SetMenus(int state) { state_ = state; }

    // A tool that needs something of it is off without it, in every state.
    void SetOpen(const WhatIsOpen& open) { open_ = open; }

    // False for a name that is no tool's.
    [[nodiscard]] bool IsEnabled(std::string_view tool) const;

    // The same in the context menu of the node, where "DeleteClass" and "EditClass" are for real classes only: not for
    // a collection.
    [[nodiscard]] bool IsEnabledOn(const TreeNode& node, std::string_view tool) const;

  private:
    int state_ = 0;
    WhatIsOpen open_;
};

// The names of the context menus.
namespace context_menu {
inline constexpr std::string_view kProject = "ctxProject";
inline constexpr std::string_view kMTSProject = "ctxMTSProject";
inline constexpr std::string_view kClassRoot = "ctxClassRoot";
inline constexpr std::string_view kClass = "ctxClass";
inline constexpr std::string_view kData = "popData"; // of a row that stands for a table
} // namespace context_menu

// The context menu of a node; nothing for one that has none.
[[nodiscard]] std::optional<std::string_view> ContextMenuOf(const TreeNode& node);

// The tool that a double click on the node starts; nothing for a node that has none.
[[nodiscard]] std::optional<std::string_view> DoubleClickToolOf(const TreeNode& node);

// The names of a context menu's tools, in their order.
[[nodiscard]] std::span<const std::string_view> ToolsOfContextMenu(std::string_view menu);

} // namespace veldrane
