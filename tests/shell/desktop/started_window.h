#pragma once

#include "shell/desktop/desktop_dialogs.h"
#include "shell/desktop/main_window.h"
#include "support/memory_application.h"
#include "widgets.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace veldrane::testing {

// The main window on a world in memory.
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

    // A new start of the program, which finds the settings of the last one.
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

    QTreeView& Tree() { return Find<QTreeView>(*window_, "treMain"); }
    QAction& Tool(const std::string& name) { return Find<QAction>(*window_, name); }

    void RunTool(const std::string& tool)
    {
        Tool(tool).trigger();
        QApplication::processEvents();
    }

    // Begins to type over the project's name, and does not end.
    void TypeName(const QString& name)
    {
        Tree().setCurrentIndex(Tree().model()->index(0, 0));
        Tree().setFocus();
        QTest::keyClick(&Tree(), Qt::Key_F2);
        auto* editor = Tree().findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, name);
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
