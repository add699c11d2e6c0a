#include "access_keys.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QTabBar>

#include <map>

namespace veldrane::testing {
namespace {

QStringList TextsOf(const QList<QAction*>& actions)
{
    QStringList texts;
    for (const QAction* action : actions)
        texts.push_back(action->text());
    return texts;
}

QStringList TextsOf(const QWidget& control)
{
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return label->buddy() == nullptr ? QStringList() : QStringList(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return {button->text()};
    if (const auto* group = qobject_cast<const QGroupBox*>(&control))
        return {group->title()};
    if (const auto* bar = qobject_cast<const QMenuBar*>(&control))
        return TextsOf(bar->actions());
    QStringList texts;
    if (const auto* tabs = qobject_cast<const QTabBar*>(&control))
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts.push_back(tabs->tabText(tab));
    return texts;
}

QStringList TextsOfControls(const QWidget& window)
{
    QStringList texts;
    for (const QWidget* control : window.findChildren<QWidget*>())
        if (control->window() == &window && control->isVisibleTo(&window))
            texts += TextsOf(*control);
    return texts;
}

bool IsMenu(const QWidget& control)
{
    return qobject_cast<const QMenu*>(&control) != nullptr || control.contextMenuPolicy() == Qt::ActionsContextMenu;
}

// Those that are open at one time compete for a key: the controls of the window, and the entries of each menu.
std::vector<QStringList> Groups(const QWidget& window)
{
    std::vector<QStringList> groups{TextsOfControls(window)};
    if (IsMenu(window))
        groups.push_back(TextsOf(window.actions()));
    for (const QWidget* control : window.findChildren<QWidget*>())
        if (IsMenu(*control))
            groups.push_back(TextsOf(control->actions()));
    return groups;
}

void AddColliding(const QStringList& group, std::vector<std::string>& colliding)
{
    std::map<QString, QStringList> users;
    for (const QString& text : group)
        if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty())
            users[key.toString()].push_back(text);
    for (const auto& [key, texts] : users)
        if (texts.size() > 1)
            colliding.push_back((key + QStringLiteral(": ") + texts.join(QStringLiteral(", "))).toStdString());
}

} // namespace

std::vector<std::string> CollidingAccessKeys(const QWidget& window)
{
    std::vector<std::string> colliding;
    for (const QStringList& group : Groups(window))
        AddColliding(group, colliding);
    return colliding;
}

} // namespace veldrane::testing
