#include "shell/desktop/opening.h"

#include <QApplication>
#include <QKeyEvent>

#include <utility>

namespace veldrane {
namespace {

// Return in a label that is being typed ends the typing, and comes here afterwards as what the label left over.
class OpeningKeys : public QObject
{
  public:
    OpeningKeys(QAbstractItemView& view, std::function<void(const QModelIndex&)> open)
        : QObject(&view), view_(view), open_(std::move(open))
    {
        view.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(watched, event);
        const int key = static_cast<const QKeyEvent*>(event)->key();
        if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !view_.currentIndex().isValid() || IsTyping())
            return QObject::eventFilter(watched, event);
        open_(view_.currentIndex());
        return true;
    }

  private:
    [[nodiscard]] bool IsTyping() const
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus != &view_ && view_.isAncestorOf(focus);
    }

    QAbstractItemView& view_;
    std::function<void(const QModelIndex&)> open_;
};

} // namespace

void OnOpening(QAbstractItemView& view, std::function<void(const QModelIndex&)> open)
{
    new OpeningKeys(view, open); // the view's own
    QObject::connect(&view, &QAbstractItemView::doubleClicked, &view, std::move(open));
}

} // namespace veldrane
