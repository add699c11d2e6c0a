#pragma once

#include "shell/main_window/menu_states.h"
#include "shell/main_window/recent_menu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// The tools of the main window as actions, in the menus and on the bar `actBar`. An action's object name is that of its
// tool.
class ToolActions : public QObject
{
    Q_OBJECT

  public:
    // Builds the menus and the bar of the window. `run` is told the name of a tool that was chosen. A tool for which
    // `own` has an action is offered by that one, which does its work itself.
    ToolActions(QMainWindow& window, std::function<void(std::string_view)> run,
                std::function<QAction*(std::string_view)> own);

    // Lets the keys of the tools for the tree's selection act only while the tree has the focus: elsewhere Del and F2
    // mean something else.
    void KeepTreeKeysIn(QWidget& tree);

    // The action of a tool; nullptr if there is none of this name.
    [[nodiscard]] QAction* Action(std::string_view tool) const;

    // The menu in which a tool's choices are to be listed: those of "AddClassTo" and "MoveClassTo". Filled when it
    // opens.
    [[nodiscard]] QMenu* Choices(std::string_view tool) const;

    void ShowStates(const ToolStates& states);

    // Shows what a tool is called now.
    void ShowCaption(const Tool& tool, const std::string& caption);

    void ShowRecent(const std::vector<RecentTool>& tools);

    // Adds the tools of a context menu, separators aside. One that may not be chosen there stands in it all the same.
    void AddTo(QMenu& menu, std::string_view contextMenu,
               const std::function<bool(std::string_view tool)>& mayBeChosen) const;

  private:
    void AddTools(QMainWindow& window);
    QAction* MakeAction(QMainWindow& window, const Tool& tool);
    QMenu* MakeChoices(QMainWindow& window, const Tool& tool);
    void BuildBar(QMainWindow& window);

    std::function<void(std::string_view)> run_;
    std::function<QAction*(std::string_view)> own_;
    std::map<std::string, QAction*, std::less<>> actions_;
    std::map<std::string, QMenu*, std::less<>> choices_;
    QMenu* fileMenu_ = nullptr;
    QAction* behindRecent_ = nullptr; // the tools of recent files stand in front of it
    std::vector<QAction*> recent_;
};

} // namespace veldrane
