#pragma once

#include "main_window_fixture.h"
#include "shell/assembly.h"
#include "shell/desktop/qt_file_dialogs.h"
#include "shell/platform/disk_file_system.h"

#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace veldrane::testing {

inline constexpr const char* kFirstWords = "Veldrane Professional 2000 Data File";

inline std::string ContentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteFile(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

// The main window on the machine's own files, file dialogs, settings and drivers.
class MainWindowOnDisk : public MainWindowTest
{
  protected:
    MainWindowOnDisk()
    {
        chmod(folder_.path().toLocal8Bit().constData(), 0777);
        setenv("VELDRANE_SETTINGS", Path("settings.ini").c_str(), 1);
        setenv("XDG_STATE_HOME", Path("state").c_str(), 1);
    }

    [[nodiscard]] const Application& World() const override { return assembly_->World(); }

    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return folder_.filePath(QString::fromStdString(name)).toStdString();
    }

    // The settings are read while the program is put together.
    void StartProgram(const StartCommand& command = {})
    {
        window_.reset();
        rules_.reset();
        assembly_ = std::make_unique<Assembly>(
            disk_, world_.State,
            FrontEnd{.Asking = world_.Messages,
                     .Errors = world_.Errors,
                     .Time = world_.Clock,
                     .Progress = world_.Unwatched,
                     .Windows = {.Dialogs = fileDialogs_, .Pointer = world_.Pointer, .Loading = world_.Loading},
                     .Output = world_.Output,
                     .ErrorOutput = world_.Output,
                     .ProgramFolder = ""});
        Start(command);
    }

    void Sql(const std::string& statements) const
    {
        const std::string command = "sqlite3 '" + Path("shop.db") + "' '" + statements + "'";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
    }

    void MakeDatabase() const
    {
        Sql("CREATE TABLE Customers (CustomerID INTEGER PRIMARY KEY, CompanyName VARCHAR(60));"
            "CREATE TABLE Orders (OrderID INTEGER PRIMARY KEY, Total INTEGER);");
    }

    // Lets go of it over the window and takes what the connection dialog proposes.
    void DropDatabase()
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Path("shop.db")))});
        WithDialogs(
            [&] {
                EXPECT_TRUE(LetGo(*window_, data, {300, 5}));
            },
            {[](QWidget& dialog) { Click(dialog, "cmdOK"); }});
    }

    // As "Shop.kzm" in the folder.
    void SaveShop()
    {
        rules_->Project().FullPath = Path("Shop.kzm");
        Tool("Save").trigger();
        ASSERT_THAT(ContentOf(Path("Shop.kzm")), ::testing::StartsWith(kFirstWords));
    }

    void OpenAndChangeProject()
    {
        StartProgram();
        SaveShop();
        StartProgram({.File = Path("Shop.kzm")});
        rules_->Project().SetProjectName("Changed");
        rules_->Project().SetModified(true);
        ASSERT_THAT(world_.Errors.Reported, ::testing::IsEmpty());
    }

    // Saves, which fails; what was reported.
    std::string FailureOfSave()
    {
        const std::string before = ContentOf(Path("Shop.kzm"));
        Tool("Save").trigger();
        EXPECT_EQ(ContentOf(Path("Shop.kzm")), before);
        EXPECT_TRUE(rules_->Project().Modified());
        EXPECT_EQ(rules_->Project().ProjectName(), "Changed");
        EXPECT_EQ(world_.Errors.Reported.size(), 1U);
        return world_.Errors.Reported.empty() ? "" : world_.Errors.Reported.front().Error.Description();
    }

    // What a person types into a file dialog, and the key that ends it.
    static void Enter(QWidget& dialog, const QString& typed)
    {
        auto& name = Find<QLineEdit>(dialog, "fileNameEdit");
        EXPECT_EQ(dialog.focusWidget(), &name);
        QTest::keySequence(&name, QKeySequence::SelectAll);
        QTest::keyClicks(&name, typed);
        QTest::keyClick(&name, Qt::Key_Return);
    }

    QTemporaryDir folder_;
    DiskFileSystem disk_;
    QtFileDialogs fileDialogs_;
    std::unique_ptr<Assembly> assembly_;
};

} // namespace veldrane::testing
