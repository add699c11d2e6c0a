#include "shell/desktop/loading_window.h"

#include "shell/desktop/qt_text.h"
#include "ui_frm_loading.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

} // namespace

LoadingWindow::LoadingWindow(Cancelling cancelling, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      ui_(std::make_unique<Ui::frmLoading>()), cancelling_(cancelling)
{
    setWindowModality(Qt::ApplicationModal);
    ui_->setupUi(this);
    ui_->cmdCancel->setVisible(cancelling == Cancelling::Offered);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &LoadingWindow::Cancel);
    QtProgress::Drawn drawn;
    if (cancelling == Cancelling::Offered)
        drawn = [] { QCoreApplication::processEvents(); };
    progress_ = std::make_unique<QtProgress>(*ui_->lblStatus, *ui_->Progress, std::move(drawn));
}

LoadingWindow::~LoadingWindow() = default;

void LoadingWindow::SetStatus(const std::string& text)
{
    ui_->lblStatus->setText(ToQt(text));
    ui_->lblStatus->repaint();
}

Visibility LoadingWindow::Show(Visibility visibility)
{
    const Visibility before = isVisible() ? Visibility::Shown : Visibility::Hidden;
    setVisible(visibility == Visibility::Shown);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return before;
}

void LoadingWindow::Cancel()
{
    isCancelled_ = true;
    ui_->cmdCancel->setEnabled(false);
    ui_->cmdCancel->setText(u"Cancelling..."_s);
}

void LoadingWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && cancelling_ == Cancelling::Offered)
        Cancel();
    else
        QWidget::keyPressEvent(event);
}

// It goes when the work is done, not before.
void LoadingWindow::closeEvent(QCloseEvent* event)
{
    if (cancelling_ == Cancelling::Offered)
        Cancel();
    event->ignore();
}

} // namespace veldrane
