#include "shell/desktop/tool_actions.h"

#include "shell/desktop/dress_action.h"
#include "shell/desktop/icons.h"
#include "shell/desktop/qt_text.h"

#include <QMenuBar>
#include <QToolBar>

#include <algorithm>
#include <array>
#include <utility>

namespace veldrane {
namespace {

// What the bar offers; "" is a gap.
constexpr auto kBarTools = std::to_array<std::string_view>({"New",
                                                            "Open",
                                                            "Save",
                                                            "",
                                                            "Undo",
                                                            "Redo",
                                                            "",
                                                            "OpenDatasource",
                                                            "RefreshTables",
                                                            "",
                                                            "NewClass",
                                                            "EditClass",
                                                            "DeleteClass",
                                                            "",
                                                            "ProjectProperties",
                                                            "Generate",
                                                            "",
                                                            "ExpandTree",
                                                            "Colapse",
                                                            "Zoom",
                                                            "",
                                                            "Options"});

// In the menus a line stands in front of these.
constexpr auto kGroupStarts =
    std::to_array<std::string_view>({"Save", "SavePreview", "Startup", "Exit", "CopyLines", "Find", "NewClass",
                                     "OpenDatasource", "Generate", "ExpandTree", "Zoom", "About"});

constexpr auto kToolsWithChoices = std::to_array<std::string_view>({"AddClassTo", "MoveClassTo"});

// Those that show or hide a pane.
constexpr auto kPaneTools =
    std::to_array<std::string_view>({"ViewDataSourceTables", "ViewNavigator", "ViewPreviewPane"});

// Those that act on what is selected in the tree.
constexpr auto kTreeTools = std::to_array<std::string_view>({"ProjectRename", "DeleteClass"});

template <std::size_t Count>
bool IsOneOf(const std::array<std::string_view, Count>& names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

QMenu* MenuCalled(QMainWindow& window, const QString& title)
{
    for (QAction* action : window.menuBar()->actions())
        if (action->text() == title)
            return action->menu();
    return window.menuBar()->addMenu(title);
}

} // namespace

ToolActions::ToolActions(QMainWindow& window, std::function<void(std::string_view)> run,
                         std::function<QAction*(std::string_view)> own)
    : QObject(&window), run_(std::move(run)), own_(std::move(own))
{
    AddTools(window);
    BuildBar(window);
}

void ToolActions::AddTools(QMainWindow& window)
{
    for (const Tool& tool : Tools()) {
        QMenu* menu = MenuCalled(window, ToQt(tool.Menu));
        if (IsOneOf(kGroupStarts, tool.Name))
            menu->addSeparator();
        if (IsOneOf(kToolsWithChoices, tool.Name)) {
            QMenu* choices = MakeChoices(window, tool);
            menu->addMenu(choices);
            choices_.emplace(tool.Name, choices);
            actions_.emplace(tool.Name, choices->menuAction());
            continue;
        }
        QAction* action = own_(tool.Name);
        if (action == nullptr)
            action = MakeAction(window, tool);
        menu->addAction(action);
        actions_.emplace(tool.Name, action);
        if (tool.Name == "Exit") {
            fileMenu_ = menu;
            behindRecent_ = menu->insertSeparator(action);
        }
    }
}

QAction* ToolActions::MakeAction(QMainWindow& window, const Tool& tool)
{
    auto* action = new QAction(&window);
    action->setCheckable(IsOneOf(kPaneTools, tool.Name));
    DressAction(*action, tool);
    connect(action, &QAction::triggered, this, [this, name = tool.Name] { run_(name); });
    return action;
}

// Within its menu it opens by itself; the shortcut opens it in the middle of the window.
QMenu* ToolActions::MakeChoices(QMainWindow& window, const Tool& tool)
{
    auto* choices = new QMenu(&window);
    choices->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }")); // not columns beyond the screen
    DressAction(*choices->menuAction(), tool);
    window.addAction(choices->menuAction());
    connect(choices->menuAction(), &QAction::triggered, choices,
            [&window, choices] { choices->popup(window.mapToGlobal(window.rect().center())); });
    return choices;
}

void ToolActions::BuildBar(QMainWindow& window)
{
    auto* bar = window.addToolBar(QStringLiteral("Tools"));
    bar->setObjectName(QStringLiteral("actBar"));
    for (const std::string_view name : kBarTools)
        if (name.empty())
            bar->addSeparator();
        else if (QAction* action = Action(name))
            bar->addAction(action);
}

void ToolActions::KeepTreeKeysIn(QWidget& tree)
{
    for (const std::string_view tool : kTreeTools) {
        QAction* action = Action(tool);
        action->setShortcutContext(Qt::WidgetShortcut);
        tree.addAction(action);
    }
}

QAction* ToolActions::Action(std::string_view tool) const
{
    const auto found = actions_.find(tool);
    return found == actions_.end() ? nullptr : found->second;
}

QMenu* ToolActions::Choices(std::string_view tool) const
{
    const auto found = choices_.find(tool);
    return found == choices_.end() ? nullptr : found->second;
}

void ToolActions::ShowStates(const ToolStates& states)
{
    for (const auto& [name, action] : actions_)
        action->setEnabled(states.IsEnabled(name));
}

void ToolActions::ShowCaption(const Tool& tool, const std::string& caption)
{
    if (QAction* action = Action(tool.Name))
        action->setText(ToQt(caption));
}

void ToolActions::ShowRecent(const std::vector<RecentTool>& tools)
{
    for (QAction* action : recent_) { // one of them may be running
        fileMenu_->removeAction(action);
        action->deleteLater();
    }
    recent_.clear();
    for (const RecentTool& tool : tools) {
        auto* action = new QAction(ToQt(tool.Caption), fileMenu_);
        action->setObjectName(ToQt(tool.Name));
        action->setStatusTip(NameToQt(tool.Tag));
        connect(action, &QAction::triggered, this, [this, name = tool.Name] { run_(name); });
        if (tool.BeginsGroup)
            recent_.push_back(fileMenu_->insertSeparator(behindRecent_));
        fileMenu_->insertAction(behindRecent_, action);
        recent_.push_back(action);
    }
}

void ToolActions::AddTo(QMenu& menu, std::string_view contextMenu,
                        const std::function<bool(std::string_view tool)>& mayBeChosen) const
{
    for (const std::string_view tool : ToolsOfContextMenu(contextMenu)) {
        QAction* action = Action(tool);
        if (action == nullptr)
            continue;
        if (mayBeChosen(tool))
            menu.addAction(action);
        else
            menu.addAction(action->icon(), action->text())->setEnabled(false);
    }
}

} // namespace veldrane
