#pragma once

#include "shell/main_window/frm_main.h"

#include <QTimer>

namespace veldrane {

// tmrAutosave: has the rules save a modified project every few minutes, between events and also while a question or a
// dialog stands open. Under the hourglass a routine is on its way, whose half of a change nobody wants to have back: a
// tick that is due then is held over until it is done.
class AutosaveTimer : public QObject
{
    Q_OBJECT

  public:
    // The rules must outlive the timer.
    explicit AutosaveTimer(frmMain& rules);

    // Ticks every Autosave::kInterval from now on.
    void Start();

    void Tick();

    // Has the rules keep a copy before the program is ended. False while a routine is on its way, as above: then it is
    // to be called again.
    [[nodiscard]] bool KeepLastCopy();

  private:
    frmMain& rules_;
    QTimer interval_;
    QTimer heldOver_;
};

} // namespace veldrane
