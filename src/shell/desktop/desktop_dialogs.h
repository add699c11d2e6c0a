#pragma once

#include "shell/desktop/editors/qt_editor_dialogs.h"
#include "shell/desktop/editors/qt_project_dialogs.h"
#include "shell/desktop/qt_look_dialogs.h"
#include "shell/main_window/main_window_dialogs.h"

namespace veldrane {

class MainWindow;

// The dialogs over the main window.
class DesktopDialogs : public MainWindowDialogs
{
  public:
    DesktopDialogs();

    // The window over which the dialogs are shown from now on; it must outlive them.
    void ShowOver(MainWindow& window);

    void Show(frmODBCLogon& logon) override;
    void Show(frmOptions& options) override;
    void Show(frmWarning& warning) override;
    [[nodiscard]] bool Show(frmProjectProperties& properties) override;
    void ShowAbout() override;
    void ShowBug() override;
    void ShowGenCode(const Application& application, TTCProject& project, KZMClasses& classes) override;
    void ShowZoom() override;
    [[nodiscard]] StartupChoice AskAtStartup(frmStartup& startup) override;
    [[nodiscard]] std::optional<std::string> AskForTable(const std::string& before) override;
    [[nodiscard]] LookDialogs& Look() override { return look_; }
    [[nodiscard]] EditorDialogs& Editors() override { return editors_; }
    [[nodiscard]] ProjectDialogs& OfProject() override { return ofProject_; }
    void StartLabelEdit() override;
    void CloseMainWindow() override;

  private:
    MainWindow* window_ = nullptr;
    QtLookDialogs look_;
    QtEditorDialogs editors_;
    QtProjectDialogs ofProject_;
};

} // namespace veldrane
