#include "shell/desktop/desktop.h"

#include "shell/assembly.h"
#include "shell/desktop/autosave_timer.h"
#include "shell/desktop/desktop_dialogs.h"
#include "shell/desktop/dialog_places.h"
#include "shell/desktop/ending_signals.h"
#include "shell/desktop/guarded_application.h"
#include "shell/desktop/icons.h"
#include "shell/desktop/loading_window.h"
#include "shell/desktop/main_window.h"
#include "shell/desktop/product_text.h"
#include "shell/desktop/qt_clock.h"
#include "shell/desktop/qt_error_report.h"
#include "shell/desktop/qt_file_dialogs.h"
#include "shell/desktop/qt_messages.h"
#include "shell/desktop/qt_mouse_pointer.h"
#include "shell/desktop/reading_window.h"
#include "shell/desktop/splash_form.h"
#include "shell/desktop/visible_boxes_style.h"
#include "shell/platform/disk_file_system.h"

#include <QPointer>
#include <QTimer>

#include <array>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>

namespace veldrane {
namespace {

using namespace std::chrono_literals;

constexpr auto kSplashTime = 2s;
constexpr auto kStartupInterval = 150ms; // of tmrStartup

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
    auto application = std::make_unique<GuardedApplication>(argumentCount, arguments);
    QApplication::setStyle(new VisibleBoxesStyle); // which the application owns
    return application;
}

// The windows of one session, and the world as they meet it.
class Desktop
{
  public:
    Desktop(GuardedApplication& qt, const ProgramStreams& streams)
        : qt_(qt),
          errors_([this](const RuntimeError& error) { return ADOErrorsOf(error, state_.ActiveConnection.get()); }),
          assembly_(files_, state_,
                    {.Asking = messages_,
                     .Errors = errors_,
                     .Time = clock_,
                     .Progress = loading_.Watching(),
                     .Windows = {.Dialogs = fileDialogs_, .Pointer = pointer_, .Loading = loading_},
                     .Output = streams.Output,
                     .ErrorOutput = streams.ErrorOutput,
                     .ProgramFolder = streams.Folder,
                     .Watch = &reading_}),
          rules_(assembly_.World(), dialogs_, reading_), window_(rules_, assembly_.World())
    {
        dialogs_.ShowOver(window_);
        qt_.ReportTo(&errors_);
    }

    ~Desktop() { qt_.ReportTo(nullptr); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    int Run(const StartCommand& command)
    {
        const QPointer<SplashForm> splash = command.NoSplash ? nullptr : new SplashForm;
        if (splash != nullptr)
            splash->ShowFor(kSplashTime);
        rules_.LoadLook();
        window_.show();
        // What the command line asks for may open a box, so the loop has to run.
        QTimer::singleShot(kStartupInterval, &window_, [this, &command] {
            tmrAutosave_.Start();
            if (rules_.Load(command))
                rules_.tmrStartup_Timer();
        });
        const int exitCode = QApplication::exec();
        delete splash;
        return exitCode;
    }

  private:
    GuardedApplication& qt_;
    DiskFileSystem files_;
    ModuleState state_;
    QtMessages messages_;
    QtErrorReport errors_;
    QtClock clock_;
    QtMousePointer pointer_;
    QtFileDialogs fileDialogs_;
    LoadingWindow loading_{Cancelling::NotOffered, nullptr};
    CatalogReading reading_{clock_};
    Assembly assembly_;
    DesktopDialogs dialogs_;
    frmMain rules_;
    MainWindow window_;
    DialogPlaces places_{assembly_.World().UserSettings, errors_};
    ReadingWindow readingWindow_{reading_, &window_};
    AutosaveTimer tmrAutosave_{rules_};
    EndingSignals endingSignals_{[this] { return tmrAutosave_.KeepLastCopy(); }};
};

} // namespace

int OpenDesktop(const StartCommand& command, const ProgramStreams& streams)
{
    std::string name = "veldrane";
    std::array<char*, 2> arguments{name.data(), nullptr};
    int argumentCount = 1; // Qt keeps a reference to it
    const std::unique_ptr<GuardedApplication> qt = StartQt(argumentCount, arguments.data());
    qt->setWindowIcon(Icon(kProgramIcon));
    try {
        return Desktop(*qt, streams).Run(command);
    } catch (const std::exception& error) { // of the settings, mostly: no window is there that would tell
        QtMessages().Tell(std::string(kAppTitle), error.what(), MessageIcon::Critical);
        return exit_code::kFailed;
    }
}

} // namespace veldrane
