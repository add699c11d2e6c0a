#include "shell/desktop/loading_window.h"

#include "shell/desktop/qt_text.h"
#include "ui_frm_loading.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>

#include <chrono>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto kPatience = 250ms; // with a window manager

} // namespace

LoadingWindow::LoadingWindow(Cancelling cancelling, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      ui_(std::make_unique<Ui::frmLoading>())
{
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
    if (before == Visibility::Shown && visibility == Visibility::Hidden)
        WaitForKeyboard();
    setVisible(visibility == Visibility::Shown);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return before;
}

// A modal window passes the keyboard on to nobody if it goes before the window manager has given it the keyboard.
void LoadingWindow::WaitForKeyboard()
{
    if (windowModality() == Qt::NonModal)
        return;
    for (const QDeadlineTimer patience(kPatience); !isActiveWindow() && !patience.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

// What can't be cancelled keeps the program busy, so no other window needs to be blocked.
void LoadingWindow::Begin(Cancelling cancelling)
{
    cancelling_ = cancelling;
    setWindowModality(cancelling == Cancelling::Offered ? Qt::ApplicationModal : Qt::NonModal);
    setAttribute(Qt::WA_ShowWithoutActivating, cancelling == Cancelling::NotOffered);
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
