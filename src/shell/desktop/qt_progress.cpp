#include "shell/desktop/qt_progress.h"

#include "shell/desktop/qt_text.h"

#include <utility>

namespace veldrane {
namespace {

constexpr qint64 kMillisecondsBetweenSteps = 33;

} // namespace

QtProgress::QtProgress(QLabel& status, QProgressBar& bar, Drawn drawn)
    : status_(&status), bar_(&bar), drawn_(std::move(drawn))
{
    bar.setRange(0, 100);
}

void QtProgress::Stage(int percent, const std::string& line)
{
    Draw(percent, line);
}

void QtProgress::Step(int percent, const std::string& line)
{
    if (!sinceDrawn_.isValid() || sinceDrawn_.hasExpired(kMillisecondsBetweenSteps))
        Draw(percent, line);
}

void QtProgress::Draw(int percent, const std::string& line)
{
    if (!status_ || !bar_)
        return;
    status_->setText(ToQt(line));
    bar_->setValue(percent);
    status_->repaint();
    bar_->repaint();
    sinceDrawn_.start();
    if (drawn_)
        drawn_();
}

} // namespace veldrane
