#include "shell/main_window/menu_states.h"

#include "preview/tree_node.h"
#include "project_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr WhatIsOpen kBoth{.Project = true, .DataSource = true};

ToolStates StatesIn(int state, const WhatIsOpen& open = kBoth)
{
    ToolStates states;
    states.SetOpen(open);
    states.SetMenus(state);
    return states;
}

// The digits of the states in which the tool may be chosen.
std::string EnabledIn(std::string_view tool)
{
    std::string digits;
    for (int state = 1; state <= 8; ++state)
        if (StatesIn(state).IsEnabled(tool))
            digits += std::to_string(state);
    return digits;
}

TEST(Tools, AreAllThere)
{
    for (const char* name : {"ReportABug",     "RefreshTables", "Zoom",           "Startup",
                             "ExpandTree",     "Colapse",       "HelpContents",   "Generate",
                             "About",          "Exit",          "EditClass",      "DeleteClass",
                             "NewClass",       "New",           "EditDataSource", "Open",
                             "Options",        "Save",          "OpenDatasource", "ProjectProperties",
                             "SaveAs",         "ViewNavigator", "ProjectRename",  "ViewDataSourceTables",
                             "ViewPreviewPane"})
        EXPECT_NE(FindTool(name), nullptr) << name;
    EXPECT_EQ(FindTool("HomePage"), nullptr);
}

TEST(Tools, HaveNamesShortcutsAndAccessKeysOfTheirOwn)
{
    std::set<std::string> names;
    std::set<std::string> shortcuts;
    std::set<std::string> accessKeys;
    for (const Tool& tool : Tools()) {
        EXPECT_TRUE(names.emplace(tool.Name).second) << tool.Name;
        EXPECT_TRUE(!tool.Shortcut.empty() && shortcuts.emplace(tool.Shortcut).second) << tool.Name;
        const std::size_t mark = tool.Caption.find('&');
        ASSERT_LT(mark + 1, tool.Caption.size()) << tool.Name;
        const std::string key{static_cast<char>(std::tolower(tool.Caption.at(mark + 1)))};
        EXPECT_TRUE(accessKeys.insert(std::string(tool.Menu) + key).second) << tool.Name;
        EXPECT_NE(tool.StatusText, "") << tool.Name;
    }
}

std::string Plain(std::string_view caption)
{
    std::string plain(caption.substr(0, caption.find("...")));
    plain.erase(std::remove(plain.begin(), plain.end(), '&'), plain.end());
    return plain;
}

TEST(Tools, AreListedWithTheirKeysInTheGuide)
{
    std::ifstream guide(VELDRANE_SOURCE_DIR "/docs/guide.md");
    std::vector<std::string> listed;
    for (std::string line; std::getline(guide, line);)
        if (line.starts_with("| *"))
            listed.push_back(line);
    std::vector<std::string> tools;
    for (const Tool& tool : Tools())
        tools.push_back("| *" + Plain(tool.Menu) + ", " + Plain(tool.Caption) + "* | " + std::string(tool.Shortcut) +
                        " |");
    EXPECT_EQ(listed, tools);
}

TEST(Tools, AMenusToolsStandSideBySide)
{
    std::vector<std::string_view> menus;
    for (const Tool& tool : Tools())
        if (menus.empty() || menus.back() != tool.Menu)
            menus.push_back(tool.Menu);
    EXPECT_THAT(menus, ElementsAre("&File", "&Edit", "&Project", "&View", "&Tools", "&Help"));
}

TEST(Tools, TheDataSourceIsEditedWhereTheReportOfAFailureSays)
{
    EXPECT_EQ(FindTool("EditDataSource")->Menu, "&Project");
    EXPECT_EQ(FindTool("EditDataSource")->Caption, "Edit Data&Source...");
}

TEST(ToolStates, FollowTheSelection)
{
    for (const char* tool : {"New",
                             "Open",
                             "Startup",
                             "Exit",
                             "Options",
                             "HelpContents",
                             "About",
                             "Save",
                             "SaveAs",
                             "OpenDatasource",
                             "EditDataSource",
                             "RefreshTables",
                             "Zoom",
                             "ExpandTree",
                             "Colapse",
                             "ViewNavigator",
                             "ViewPreviewPane",
                             "ViewDataSourceTables",
                             "Find",
                             "MRU1",
                             "Generate",
                             "ProjectProperties",
                             "ReportABug"})
        EXPECT_EQ(EnabledIn(tool), "12345678") << tool;
    EXPECT_EQ(EnabledIn("ProjectRename"), "12");
    EXPECT_EQ(EnabledIn("DeleteClass"), "357");
    EXPECT_EQ(EnabledIn("EditClass"), "357");
    EXPECT_EQ(EnabledIn("NewClass"), "1234578");
    EXPECT_EQ(EnabledIn("MoveClassTo"), "357");
    EXPECT_EQ(EnabledIn("NoSuchTool"), "");
}

TEST(ToolStates, WithoutADataSourceItsToolsAreOff)
{
    const ToolStates states = StatesIn(menu_state::kTableClass, {.Project = true});
    EXPECT_FALSE(states.IsEnabled("RefreshTables"));
    EXPECT_FALSE(states.IsEnabled("AddClassTo"));
    for (const char* tool : {"Save", "DeleteClass", "MoveClassTo", "OpenDatasource", "EditDataSource", "Zoom"})
        EXPECT_TRUE(states.IsEnabled(tool)) << tool;
}

TEST(ToolStates, WithoutAProjectItsToolsAreOff)
{
    const ToolStates states = StatesIn(menu_state::kTableClass, {.DataSource = true});
    for (const char* tool : {"Save", "SaveAs", "DeleteClass", "RefreshTables", "EditDataSource", "OpenDatasource",
                             "ProjectRename", "ExpandTree", "Zoom", "Find"})
        EXPECT_FALSE(states.IsEnabled(tool)) << tool;
    for (const char* tool : {"New", "Open", "Startup", "Exit", "Options", "HelpContents", "About", "ViewNavigator"})
        EXPECT_TRUE(states.IsEnabled(tool)) << tool;
}

TEST(ToolStates, BeforeTheWindowIsLoadedEveryToolIsOff)
{
    ToolStates states;
    states.SetOpen(kBoth);
    for (const Tool& tool : Tools())
        EXPECT_FALSE(states.IsEnabled(tool.Name)) << tool.Name;
    EXPECT_FALSE(states.IsEnabled("MRU1"));
}

class MenusOf : public testing::ProjectFixture
{
  protected:
    MenusOf()
    {
        AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
        AddClass({.Name = "Country", .Table = "Countries", .Collection = "Countries", .IsDomain = true});
        AddClass({.Name = "Root", .Table = "", .Collection = "TypeOf"});
    }

    [[nodiscard]] TreeNode Node(NodeKind kind, const std::string& key) const
    {
        const ProjectTree tree = Tree();
        return tree.at(*IndexOf(tree, {.Kind = kind, .Key = key}));
    }
};

TEST_F(MenusOf, ANodeHasAStateOfItsOwn)
{
    struct Case
    {
        NodeKind Kind;
        std::string Key;
        int State;
    };
    for (const Case& one :
         {Case{NodeKind::Fixed, "Root", 2}, Case{NodeKind::Fixed, "KZMParent", 4}, Case{NodeKind::Fixed, "TypeOf", 6},
          Case{NodeKind::Fixed, "Class", 8}, Case{NodeKind::Fixed, "KZMRequired", 6},
          Case{NodeKind::Fixed, "KZMRequiredProjects", 6}, Case{NodeKind::Fixed, "VBProjectFile", 6},
          Case{NodeKind::Fixed, "VBProjectTestFile", 6}, Case{NodeKind::Fixed, "VBProjectGroupFile", 6},
          Case{NodeKind::Fixed, "KZMRequiredModules", 6}, Case{NodeKind::Fixed, "KZMGlobals", 6},
          Case{NodeKind::Fixed, "KZMRequiredClassModules", 6}, Case{NodeKind::Fixed, "KZMWRAPPER", 6},
          Case{NodeKind::Class, "Customer", 3}, Case{NodeKind::Class, "Country", 5}, Case{NodeKind::Class, "Root", 7},
          Case{NodeKind::Collection, "Customers", 3}, Case{NodeKind::Collection, "Countries", 5},
          Case{NodeKind::Collection, "TypeOf", 7}})
        EXPECT_EQ(MenuStateOf(Node(one.Kind, one.Key)), one.State) << one.Key;
}

TEST_F(MenusOf, ANodeMayHaveAContextMenu)
{
    EXPECT_EQ(ContextMenuOf(Node(NodeKind::Fixed, "Root")), "ctxProject");
    EXPECT_EQ(ContextMenuOf({.Id = {NodeKind::Fixed, "MTSRoot"}}), "ctxMTSProject");
    EXPECT_EQ(ContextMenuOf(Node(NodeKind::Fixed, "Class")), "ctxClassRoot");
    EXPECT_EQ(ContextMenuOf(Node(NodeKind::Class, "Root")), "ctxClass");
    EXPECT_EQ(ContextMenuOf(Node(NodeKind::Collection, "TypeOf")), "ctxClass");
    EXPECT_EQ(ContextMenuOf(Node(NodeKind::Fixed, "TypeOf")), std::nullopt);
    EXPECT_EQ(ContextMenuOf(Node(NodeKind::Fixed, "KZMGlobals")), std::nullopt);
}

TEST_F(MenusOf, ADoubleClickEditsAClassOrTheProject)
{
    EXPECT_EQ(DoubleClickToolOf(Node(NodeKind::Fixed, "Root")), "ProjectProperties");
    EXPECT_EQ(DoubleClickToolOf(Node(NodeKind::Class, "Root")), "EditClass");
    EXPECT_EQ(DoubleClickToolOf(Node(NodeKind::Collection, "TypeOf")), std::nullopt);
    EXPECT_EQ(DoubleClickToolOf(Node(NodeKind::Fixed, "KZMParent")), std::nullopt);
}

TEST_F(MenusOf, EveryContextMenuIsMadeOfTools)
{
    for (const char* menu : {"ctxProject", "ctxMTSProject", "ctxClassRoot", "ctxClass", "popData"}) {
        EXPECT_FALSE(ToolsOfContextMenu(menu).empty()) << menu;
        for (const std::string_view tool : ToolsOfContextMenu(menu))
            EXPECT_NE(FindTool(tool), nullptr) << tool;
    }
    EXPECT_THAT(ToolsOfContextMenu("ctxNone"), IsEmpty());
}

TEST_F(MenusOf, OnACollectionNoClassIsDeletedFromTheContextMenu)
{
    const ToolStates states = StatesIn(menu_state::kTableClass);
    EXPECT_TRUE(states.IsEnabledOn(Node(NodeKind::Class, "Customer"), "DeleteClass"));
    EXPECT_FALSE(states.IsEnabledOn(Node(NodeKind::Collection, "Customers"), "DeleteClass"));
    EXPECT_TRUE(states.IsEnabledOn(Node(NodeKind::Collection, "Customers"), "MoveClassTo"));
    EXPECT_TRUE(states.IsEnabledOn(Node(NodeKind::Class, "Customer"), "EditClass"));
    EXPECT_FALSE(states.IsEnabledOn(Node(NodeKind::Collection, "Customers"), "EditClass"));
}

} // namespace
} // namespace veldrane
