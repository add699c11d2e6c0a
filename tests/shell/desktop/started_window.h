#pragma once

#include "shell/desktop/desktop_dialogs.h"
#include "shell/desktop/main_window.h"
#include "support/memory_application.h"
#include "widgets.h"

#include <QAction>
#include <QApplication>

#include <memory>
#include <string>

namespace veldrane::testing {

// The main window on a world in memory; each start finds the settings of the last one.
class StartedWindow : public ::testing::Test
{
  protected:
    // What the window is started in.
    [[nodiscard]] virtual const Application& World() const { return world_.World; }

    // A new window, with nothing loaded yet.
    void Show()
    {
        window_.reset();
        rules_ = std::make_unique<frmMain>(World(), dialogs_, reading_);
        window_ = std::make_unique<MainWindow>(*rules_, World());
        dialogs_.ShowOver(*window_);
        rules_->LoadLook();
        window_->show();
        window_->activateWindow();
        QApplication::processEvents();
    }

    // A new start of the program.
    void Start(const StartCommand& command = {})
    {
        Show();
        (void)rules_->Load(command);
        QApplication::processEvents();
    }

    void CloseAndStart()
    {
        QApplication::processEvents();
        window_->close();
        Start();
    }

    void RunTool(const char* tool)
    {
        Find<QAction>(*window_, tool).trigger();
        QApplication::processEvents();
    }

    std::string Setting(const std::string& name) { return world_.UserSettings.GetKeyValue("Window", name); }
    void Set(const std::string& name, const std::string& value)
    {
        world_.UserSettings.UpdateKey("Window", name, value);
    }

    MemoryApplication world_;
    DesktopDialogs dialogs_;
    CatalogReading reading_{world_.Clock};
    std::unique_ptr<frmMain> rules_;
    std::unique_ptr<MainWindow> window_;
};

} // namespace veldrane::testing
