#include "shell/desktop/editors/search_box.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

namespace veldrane {
namespace {

// The one row that has the text, -1 if there is none or several.
int OnlyRow(const QAbstractItemModel& model, const QString& text, Qt::MatchFlags match)
{
    const QModelIndexList found = model.match(model.index(0, 0), Qt::DisplayRole, text, 2, match);
    return found.size() == 1 ? found.front().row() : -1;
}

bool HasChoice(const QAbstractItemView& popup)
{
    return popup.isVisible() && popup.selectionModel()->hasSelection();
}

} // namespace

SearchBox::SearchBox(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setFocusPolicy(Qt::StrongFocus); // the wheel brings no focus
    lineEdit()->setFocusPolicy(Qt::StrongFocus);
    auto* finder = new QCompleter(model(), this);
    finder->setCaseSensitivity(Qt::CaseInsensitive);
    finder->setFilterMode(Qt::MatchContains);
    setCompleter(finder);
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { Settle(Qt::MatchFixedString); });
}

// The wheel that scrolls a page past the box would choose a table, whose fields are read then.
void SearchBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

// Return belongs to the box while it has a text of which nothing was made yet.
void SearchBox::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isOpen = currentText() != itemText(currentIndex());
    const bool offers = completer()->popup()->isVisible(); // and takes what the box leaves
    QComboBox::keyPressEvent(event);
    if (!isReturn || !isOpen)
        return;
    Settle(Qt::MatchContains);
    event->setAccepted(!offers);
}

// The choice in the list of completions is told by the list.
void SearchBox::Settle(Qt::MatchFlags match)
{
    if (currentText() == itemText(currentIndex()) || HasChoice(*completer()->popup()))
        return;
    const int row = OnlyRow(*model(), currentText(), match);
    if (row < 0)
        return;
    setCurrentIndex(row);
    Q_EMIT activated(row);
}

} // namespace veldrane
