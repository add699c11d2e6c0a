#pragma once

#include "ports/error_report.h"
#include "shell/desktop/keyed_clicks.h"

#include <QApplication>

namespace veldrane {

// The application of Qt, which no failure of a handler gets past: it is reported, and the program goes on. A reading
// that was cancelled is no failure, and ends without a word. Dialogs are Qt's own on every desktop, and access keys
// click at once.
class GuardedApplication : public QApplication
{
    Q_OBJECT

  public:
    // `argumentCount` and `arguments` outlive it.
    GuardedApplication(int& argumentCount, char** arguments);

    // Who is told. Until then a failure goes to standard error. nullptr for standard error again.
    void ReportTo(ErrorReport* report) { report_ = report; }

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    ErrorReport* report_ = nullptr;
    KeyedClicks keyedClicks_;
};

} // namespace veldrane
