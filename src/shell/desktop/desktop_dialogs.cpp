#include "shell/desktop/desktop_dialogs.h"

#include "shell/desktop/about_dialog.h"
#include "shell/desktop/bug_dialog.h"
#include "shell/desktop/editors/project_properties_dialog.h"
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
namespace {

// The splash form may still be there.
void Run(QDialog& dialog)
{
    const RoomForDialog room;
    dialog.exec();
}

void Run(QDialog&& dialog)
{
    Run(dialog);
}

} // namespace

DesktopDialogs::DesktopDialogs() : editors_([this] { return window_->Look(); }) {}

void DesktopDialogs::ShowOver(MainWindow& window)
{
    window_ = &window;
}

void DesktopDialogs::Show(frmODBCLogon& logon)
{
    Run(LogonDialog(logon, window_));
}

void DesktopDialogs::Show(frmOptions& options)
{
    Run(OptionsDialog(options, window_));
}

void DesktopDialogs::Show(frmWarning& warning)
{
    ShowWarning(warning);
}

bool DesktopDialogs::Show(frmProjectProperties& properties)
{
    ProjectPropertiesDialog dialog(properties, window_);
    Run(dialog);
    return dialog.result() == QDialog::Accepted;
}

void DesktopDialogs::ShowBug()
{
    ReportBug(window_);
}

void DesktopDialogs::ShowAbout()
{
    Run(AboutDialog(window_));
}

void DesktopDialogs::ShowGenCode(const Application& application, TTCProject& project, KZMClasses& classes)
{
    Run(GenCodeDialog(application, project, classes, window_));
}

void DesktopDialogs::ShowZoom()
{
    Run(ZoomDialog(window_->PreviewList(), window_));
}

StartupChoice DesktopDialogs::AskAtStartup(frmStartup& startup)
{
    StartupDialog dialog(startup, window_);
    Run(dialog);
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
