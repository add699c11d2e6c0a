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

QStringList TextsOf(const QWidget& control)
{
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return label->buddy() == nullptr ? QStringList() : QStringList(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return {button->text()};
    if (const auto* group = qobject_cast<const QGroupBox*>(&control))
        return {group->title()};
    QStringList texts;
    if (const auto* tabs = qobject_cast<const QTabBar*>(&control))
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts.push_back(tabs->tabText(tab));
    if (const auto* bar = qobject_cast<const QMenuBar*>(&control))
        for (const QAction* action : bar->actions())
            texts.push_back(action->text());
    return texts;
}

} // namespace

std::vector<std::string> CollidingAccessKeys(const QWidget& window)
{
    std::map<QString, QStringList> users;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (control->window() != &window || !control->isVisibleTo(&window))
            continue;
        for (const QString& text : TextsOf(*control))
            if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty())
                users[key.toString()].push_back(text);
    }
    std::vector<std::string> colliding;
    for (const auto& [key, texts] : users)
        if (texts.size() > 1)
            colliding.push_back((key + QStringLiteral(": ") + texts.join(QStringLiteral(", "))).toStdString());
    return colliding;
}

} // namespace veldrane::testing
