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
    void Show()
    {
        window_.reset();
        rules_ = std::make_unique<frmMain>(world_.World, dialogs_, reading_);
        window_ = std::make_unique<MainWindow>(*rules_, world_.World);
        dialogs_.ShowOver(*window_);
        rules_->LoadLook();
        window_->show();
        QApplication::processEvents();
    }

    void Start()
    {
        Show();
        (void)rules_->Load({});
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
