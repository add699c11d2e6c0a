#include "shell/desktop/desktop.h"

#include "shell/application.h"
#include "shell/desktop/guarded_application.h"
#include "shell/desktop/icons.h"
#include "shell/desktop/product_text.h"

#include <QMainWindow>

#include <array>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

namespace veldrane {
namespace {

std::string Named(const char* variable)
{
    const char* value = std::getenv(variable);
    return value == nullptr ? std::string(variable) + " is not set" : std::string(variable) + " is \"" + value + "\"";
}

// Qt gives up on a display by a fatal message and abort(), whatever the caller may catch. Nothing is open yet that
// would be lost.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&)
{
    if (type != QtFatalMsg)
        return;
    std::cerr << "veldrane: No window can be opened: no display answers (" << Named("DISPLAY") << ", "
              << Named("WAYLAND_DISPLAY") << "), or Qt's plugin for it is missing." << std::endl;
    std::_Exit(exit_code::kFailed);
}

// Handles Qt's messages as long as it lives.
class MessageHandlerWhile
{
  public:
    explicit MessageHandlerWhile(QtMessageHandler handler) : before_(qInstallMessageHandler(handler)) {}
    ~MessageHandlerWhile() { qInstallMessageHandler(before_); }
    MessageHandlerWhile(const MessageHandlerWhile&) = delete;
    MessageHandlerWhile& operator=(const MessageHandlerWhile&) = delete;

  private:
    QtMessageHandler before_;
};

std::unique_ptr<GuardedApplication> StartQt(int& argumentCount, char** arguments)
{
    const MessageHandlerWhile handler(EndWithoutDisplay);
    return std::make_unique<GuardedApplication>(argumentCount, arguments);
}

} // namespace

int OpenDesktop(const StartCommand&, const ProgramStreams&)
{
    std::string name = "veldrane";
    std::array<char*, 2> arguments{name.data(), nullptr};
    int argumentCount = 1; // Qt keeps a reference to it
    const std::unique_ptr<GuardedApplication> application = StartQt(argumentCount, arguments.data());
    QApplication::setWindowIcon(Icon(kProgramIcon));
    QMainWindow window;
    window.setObjectName(QStringLiteral("frmMain"));
    window.show();
    return QApplication::exec();
}

} // namespace veldrane
