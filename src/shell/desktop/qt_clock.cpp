#include "shell/desktop/qt_clock.h"

#include <QEventLoop>
#include <QTimer>

namespace veldrane {

std::chrono::system_clock::time_point QtClock::Now() const
{
    return std::chrono::system_clock::now();
}

void QtClock::Wait(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace veldrane
