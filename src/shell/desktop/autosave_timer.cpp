#include "shell/desktop/autosave_timer.h"

#include "shell/desktop/room_for_dialog.h"

#include <QApplication>

namespace veldrane {
namespace {

using namespace std::chrono_literals;

constexpr auto kHeldOver = 1s;

// A routine has a pointer of its own for as long as it takes, but while it waits for an answer.
bool IsInRoutine()
{
    return QApplication::overrideCursor() != nullptr && !RoomForDialog::IsMade();
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
    if (IsInRoutine())
        heldOver_.start(kHeldOver);
    else
        rules_.tmrAutosave_Timer();
}

bool AutosaveTimer::KeepLastCopy()
{
    if (IsInRoutine())
        return false;
    rules_.KeepLastCopy();
    return true;
}

} // namespace veldrane
