#include "shell/desktop/desktop_dialogs.h"

#include "shell/desktop/about_dialog.h"
#include "shell/desktop/gen_code_dialog.h"
#include "shell/desktop/logon_dialog.h"
#include "shell/desktop/main_window.h"
#include "shell/desktop/name_dialog.h"
#include "shell/desktop/options_dialog.h"
#include "shell/desktop/room_for_dialog.h"
#include "shell/desktop/startup_dialog.h"
#include "shell/desktop/warning_dialog.h"
#include "shell/desktop/zoom_dialog.h"

namespace veldrane {

void DesktopDialogs::ShowOver(MainWindow& window)
{
    window_ = &window;
}

void DesktopDialogs::Show(frmODBCLogon& logon)
{
    const RoomForDialog room;
    LogonDialog(logon, window_).exec();
}

void DesktopDialogs::Show(frmOptions& options)
{
    OptionsDialog(options, window_).exec();
}

void DesktopDialogs::Show(frmWarning& warning)
{
    ShowWarning(warning);
}

void DesktopDialogs::ShowAbout()
{
    AboutDialog(window_).exec();
}

void DesktopDialogs::ShowGenCode(const Application& application, TTCProject& project, KZMClasses& classes)
{
    GenCodeDialog(application, project, classes, window_).exec();
}

void DesktopDialogs::ShowZoom()
{
    ZoomDialog(window_->PreviewList(), window_).exec();
}

StartupChoice DesktopDialogs::AskAtStartup(frmStartup& startup)
{
    const RoomForDialog room; // the splash form may still be there
    StartupDialog dialog(startup, window_);
    dialog.exec();
    return dialog.Choice();
}

std::optional<std::string> DesktopDialogs::AskForTable(const std::string& before)
{
    return AskForTableName(window_, before);
}

void DesktopDialogs::StartLabelEdit()
{
    window_->StartLabelEdit();
}

void DesktopDialogs::CloseMainWindow()
{
    window_->close();
}

} // namespace veldrane
