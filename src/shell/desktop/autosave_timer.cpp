#include "shell/desktop/autosave_timer.h"

#include <QApplication>

namespace veldrane {
namespace {

using namespace std::chrono_literals;

constexpr auto kHeldOver = 1s;

// A dialog above a routine has the arrow over the hourglass.
bool ShowsHourglass()
{
    const QCursor* pointer = QApplication::overrideCursor();
    return pointer != nullptr && pointer->shape() == Qt::WaitCursor;
}

} // namespace

AutosaveTimer::AutosaveTimer(frmMain& rules) : rules_(rules)
{
    heldOver_.setSingleShot(true);
    connect(&interval_, &QTimer::timeout, this, &AutosaveTimer::Tick);
    connect(&heldOver_, &QTimer::timeout, this, &AutosaveTimer::Tick);
}

void AutosaveTimer::Start()
{
    interval_.start(Autosave::kInterval);
}

void AutosaveTimer::Tick()
{
    if (ShowsHourglass())
        heldOver_.start(kHeldOver);
    else
        rules_.tmrAutosave_Timer();
}

} // namespace veldrane
