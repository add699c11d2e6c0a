#include "shell/desktop/find_bar.h"

#include "shell/desktop/qt_text.h"
#include "ui_find_bar.h"

#include <QKeyEvent>
#include <QStyle>

namespace veldrane {

FindBar::FindBar(PreviewFind& find, QWidget* parent)
    : QWidget(parent), find_(find), ui_(std::make_unique<Ui::findBar>()),
      changed_(find.Changed.Connect([this] { ShowStatus(); }))
{
    ui_->setupUi(this);
    ui_->cmdFindClose->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    connect(ui_->txtFind, &QLineEdit::textChanged, this, [this](const QString& text) { find_.Find(FromQt(text)); });
    connect(ui_->cmdFindNext, &QToolButton::clicked, this, [this] { find_.Next(); });
    connect(ui_->cmdFindPrevious, &QToolButton::clicked, this, [this] { find_.Previous(); });
    connect(ui_->cmdFindClose, &QToolButton::clicked, this, &FindBar::Close);
    ShowStatus();
}

FindBar::~FindBar() = default;

void FindBar::Open()
{
    show();
    ui_->txtFind->setFocus(Qt::ShortcutFocusReason);
    ui_->txtFind->selectAll();
    find_.Begin();
    find_.Find(FromQt(ui_->txtFind->text()));
}

void FindBar::Close()
{
    hide();
    find_.Find({});
    Q_EMIT Closed();
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        Close();
    else if (isReturn && event->modifiers().testFlag(Qt::ShiftModifier))
        find_.Previous();
    else if (isReturn)
        find_.Next();
    else
        QWidget::keyPressEvent(event);
}

void FindBar::ShowStatus()
{
    ui_->lblFindStatus->setText(ToQt(find_.Status()));
    ui_->cmdFindNext->setEnabled(!find_.Matches().empty());
    ui_->cmdFindPrevious->setEnabled(!find_.Matches().empty());
}

} // namespace veldrane
