#include "shell/desktop/guarded_application.h"

#include "generator/generation_settings.h"
#include "shell/platform/console_error_report.h"

#include <iostream>

namespace veldrane {

// A desktop's own file dialog asks about the file that was typed, before the extension is added, and the one that is
// then written would be overwritten unasked.
GuardedApplication::GuardedApplication(int& argumentCount, char** arguments) : QApplication(argumentCount, arguments)
{
    setAttribute(Qt::AA_DontUseNativeDialogs);
    installEventFilter(&keyedClicks_);
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    ConsoleErrorReport console(std::cerr);
    ErrorReport& report = report_ == nullptr ? static_cast<ErrorReport&>(console) : *report_;
    bool isHandled = true;
    try {
        Guarded(report, kAppTitle, "Event", [&] { isHandled = QApplication::notify(receiver, event); });
    } catch (const ReadingCancelled&) { // the person knows
    }
    return isHandled;
}

} // namespace veldrane
