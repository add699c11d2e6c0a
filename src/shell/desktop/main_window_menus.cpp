#include "shell/desktop/main_window.h"
#include "shell/desktop/project_tree_view.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/row_list_view.h"
#include "ui_frm_main.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QWindow>

// The menus of what is pointed at.
namespace veldrane {

// A drop without a mouse: the same thing, and the places that take it.
void MainWindow::ListChoices(QMenu& menu, std::string_view tool)
{
    menu.clear();
    ui_->treMain->CommitLabel(); // a choice does not come by RunTool
    const auto dragged = rules_.DraggedFromSelection(tool);
    const std::vector<DropTarget> targets = dragged ? rules_.Targets(*dragged) : std::vector<DropTarget>{};
    for (const DropTarget& target : targets)
        menu.addAction(icons_.Of(rules_.treMain().Nodes().at(target.Node).Icon),
                       ToQt(target.Caption).replace(u'&', QStringLiteral("&&")), this,
                       [this, target] { rules_.DropOn(target); });
    if (targets.empty())
        menu.addAction(QStringLiteral("(nothing to choose)"))->setEnabled(false);
}

void MainWindow::OpenTreeMenu(const QPoint& where)
{
    const QModelIndex index = ui_->treMain->indexAt(where);
    if (!index.isValid())
        return;
    const TreeNode& node = tree_.Node(index);
    const auto name = ContextMenuOf(node);
    if (!name)
        return;
    QMenu menu(this);
    menu.setObjectName(ToQt(*name));
    tools_->AddTo(menu, *name, [&](std::string_view tool) { return rules_.actBar().IsEnabledOn(node, tool); });
    menu.exec(ui_->treMain->viewport()->mapToGlobal(where));
}

void MainWindow::OpenListMenu(RowListView& list, const QPoint& where)
{
    const QModelIndex index = list.indexAt(where);
    if (!index.isValid() || !rules_.HasMenu(static_cast<std::size_t>(index.row())))
        return;
    QMenu menu(this);
    menu.setObjectName(ToQt(context_menu::kData));
    tools_->AddTo(menu, context_menu::kData, [this](std::string_view tool) { return rules_.actBar().IsEnabled(tool); });
    menu.exec(list.viewport()->mapToGlobal(where));
}

// Qt knows the menu key alone, which many keyboards lack.
void MainWindow::OpenMenuOfFocus()
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, mapToGlobal(QPoint()));
    QApplication::sendEvent(windowHandle(), &event);
}

} // namespace veldrane
