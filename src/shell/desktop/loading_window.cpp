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
      ui_(std::make_unique<Ui::frmLoading>())
{
    setWindowModality(Qt::ApplicationModal);
    ui_->setupUi(this);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &LoadingWindow::Cancel);
    progress_ = std::make_unique<QtProgress>(*ui_->lblStatus, *ui_->Progress, [this] { ServeEvents(); });
    Begin(cancelling);
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

void LoadingWindow::Begin(Cancelling cancelling)
{
    cancelling_ = cancelling;
    isCancelled_ = false;
    ui_->cmdCancel->setVisible(cancelling == Cancelling::Offered);
    ui_->cmdCancel->setEnabled(true);
    ui_->cmdCancel->setText(u"Cancel"_s);
    ui_->Progress->setRange(0, 100);
    ui_->Progress->reset();
}

void LoadingWindow::ShowBusy()
{
    ui_->Progress->setRange(0, 0);
}

void LoadingWindow::ServeEvents()
{
    if (cancelling_ == Cancelling::Offered)
        QCoreApplication::processEvents();
}

void LoadingWindow::Cancel()
{
    isCancelled_ = true;
    ui_->cmdCancel->setEnabled(false);
    ui_->cmdCancel->setText(u"Cancelling..."_s);
    Q_EMIT Cancelled();
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
