#include "main_window_fixture.h"
#include "shell/assembly.h"
#include "shell/desktop/qt_file_dialogs.h"
#include "shell/platform/disk_file_system.h"

#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kFirstWords = "Veldrane Professional 2000 Data File";

// A user without the rights of root, as long as it lives, where the tests run as root.
class Unprivileged
{
  public:
    Unprivileged() : before_(geteuid())
    {
        if (before_ == 0) {
            EXPECT_EQ(seteuid(kNobody), 0);
        }
    }
    ~Unprivileged() { EXPECT_EQ(seteuid(before_), 0); }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

  private:
    static constexpr uid_t kNobody = 65534;
    uid_t before_;
};

std::string ContentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteFile(const std::string& path, const std::string& bytes)
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
        ASSERT_THAT(ContentOf(Path("Shop.kzm")), StartsWith(kFirstWords));
    }

    void OpenAndChangeProject()
    {
        StartProgram();
        SaveShop();
        StartProgram({.File = Path("Shop.kzm")});
        rules_->Project().SetProjectName("Changed");
        rules_->Project().SetModified(true);
        ASSERT_THAT(world_.Errors.Reported, IsEmpty());
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

TEST_F(MainWindowOnDisk, ATableThatAnotherProgramHasDroppedIsToldAndNothingIsLost)
{
    MakeDatabase();
    StartProgram();
    DropDatabase();
    ASSERT_TRUE(DropRow("Customers", kParents));
    rules_->Project().SetModified(false);
    world_.Messages.Forget();
    Sql("DROP TABLE Orders;");
    world_.Messages.Add(Answer::No);
    EXPECT_TRUE(DropRow("Orders", kParents));
    EXPECT_THAT(Titles(), ElementsAre("Table Missing", ""));
    EXPECT_THAT(world_.Messages.Asked().front().Text,
                StartsWith("The table named 'Orders' cannot be found. Has this table been renamed?"));
    EXPECT_THAT(world_.Errors.Reported, IsEmpty());
    EXPECT_FALSE(HasNode(u"Order"_s));
    EXPECT_TRUE(HasNode(u"Customer"_s));
    EXPECT_FALSE(rules_->Project().Modified());
    EXPECT_THAT(TableRows(), ElementsAre("<Add a Table>", "Customers", "Orders"));
    Tool("RefreshTables").trigger();
    EXPECT_THAT(TableRows(), ElementsAre("<Add a Table>", "Customers"));
}

TEST_F(MainWindowOnDisk, ADatabaseThatIsBackIsReachedByTheSameString)
{
    MakeDatabase();
    StartProgram();
    DropDatabase();
    const std::string connection = rules_->Project().ConnectionString();
    ASSERT_THAT(TableRows(), ElementsAre("<Add a Table>", "Customers", "Orders"));
    SaveShop();
    std::filesystem::rename(Path("shop.db"), Path("away.db"));
    StartProgram({.File = Path("Shop.kzm")});
    EXPECT_EQ(world_.Errors.Reported.size(), 1U);
    EXPECT_THAT(TableRows(), ElementsAre("<no datasource defined>"));
    std::filesystem::rename(Path("away.db"), Path("shop.db"));
    world_.Messages.Forget();
    world_.Messages.Add(Answer::Yes);
    DropDatabase();
    EXPECT_EQ(Titles().front(), "Edit DataSource Message");
    EXPECT_EQ(rules_->Project().ConnectionString(), connection);
    EXPECT_THAT(TableRows(), ElementsAre("<Add a Table>", "Customers", "Orders"));
    EXPECT_TRUE(Tool("RefreshTables").isEnabled());
    EXPECT_TRUE(Tool("AddClassTo").isEnabled());
    EXPECT_TRUE(DropRow("Orders", kParents));
    EXPECT_TRUE(HasNode(u"Order"_s));
}

TEST_F(MainWindowOnDisk, ANameWithoutAnExtensionGetsHir)
{
    StartProgram();
    SaveShop();
    WithDialogs([&] { Tool("SaveAs").trigger(); }, {[&](QWidget& dialog) { Enter(dialog, u"Desk"_s); }});
    EXPECT_EQ(rules_->Project().FullPath, Path("Desk.hir"));
    EXPECT_THAT(ContentOf(Path("Desk.hir")), StartsWith(kFirstWords));
    EXPECT_FALSE(std::filesystem::exists(Path("Desk")));
}

TEST_F(MainWindowOnDisk, SavingOverAnotherFileAsksFirst)
{
    WriteFile(Path("Other.kzm"), "mine");
    StartProgram();
    SaveShop();
    const auto saveAs = [&] { Tool("SaveAs").trigger(); };
    WithDialogs(saveAs, {[&](QWidget& dialog) {
                             Enter(dialog, u"Other.kzm"_s);
                             EXPECT_TRUE(dialog.isVisible());
                             QTest::keyClick(&dialog, Qt::Key_Escape);
                         },
                         [](QWidget& question) { QTest::keyClick(&question, Qt::Key_Escape); }});
    EXPECT_EQ(ContentOf(Path("Other.kzm")), "mine");
    EXPECT_EQ(rules_->Project().FullPath, Path("Shop.kzm"));
    WithDialogs(saveAs, {[&](QWidget& dialog) { Enter(dialog, u"Other.kzm"_s); },
                         [](QWidget& question) { QTest::keyClick(&question, Qt::Key_Y); }});
    EXPECT_THAT(ContentOf(Path("Other.kzm")), StartsWith(kFirstWords));
    EXPECT_EQ(rules_->Project().FullPath, Path("Other.kzm"));
}

TEST_F(MainWindowOnDisk, AReadOnlyFileStaysAsItIsAndTheProjectModified)
{
    OpenAndChangeProject();
    chmod(Path("Shop.kzm").c_str(), 0444);
    const Unprivileged user;
    EXPECT_THAT(FailureOfSave(), AllOf(HasSubstr("Shop.kzm"), HasSubstr("Permission denied")));
}

TEST_F(MainWindowOnDisk, AFolderWithoutRightsKeepsItsFileAndTheProjectModified)
{
    OpenAndChangeProject();
    chmod(folder_.path().toLocal8Bit().constData(), 0555);
    {
        const Unprivileged user;
        EXPECT_THAT(FailureOfSave(), HasSubstr("Permission denied"));
    }
    chmod(folder_.path().toLocal8Bit().constData(), 0777);
}

TEST_F(MainWindowOnDisk, AFolderInPlaceOfTheBackupKeepsTheFileAndTheProjectModified)
{
    OpenAndChangeProject();
    std::filesystem::create_directory(Path("Shop.bak"));
    EXPECT_THAT(FailureOfSave(), HasSubstr("Shop.bak"));
}

// Settings that no program has written.
struct BrokenSettings
{
    const char* Name;
    std::string Bytes;
};

class MainWindowSettings : public MainWindowOnDisk, public ::testing::WithParamInterface<BrokenSettings>
{};

TEST_P(MainWindowSettings, ThatAreBrokenAreToldSetAsideAndTheWindowOpens)
{
    WriteFile(Path("settings.ini"), GetParam().Bytes);
    StartProgram();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(window_->windowTitle(), u"Veldrane Professional Edition +Forms - [New Project]"_s);
    ASSERT_THAT(Titles(), ElementsAre("Settings"));
    const std::string& text = world_.Messages.Asked().front().Text;
    EXPECT_THAT(text, StartsWith("The settings in " + Path("settings.ini") + " can't be understood: "));
    EXPECT_THAT(
        text, HasSubstr("\r\nThey were set aside as " + Path("settings.ini.broken") + ", and the defaults are used."));
    EXPECT_TRUE(window_->close());
    EXPECT_EQ(ContentOf(Path("settings.ini.broken")), GetParam().Bytes);
}

INSTANTIATE_TEST_SUITE_P(Files, MainWindowSettings,
                         ::testing::Values(BrokenSettings{"Garbage", std::string("\x7F"
                                                                                 "ELF\0\x01\xFE\r\n\x80[",
                                                                                 11)},
                                           BrokenSettings{"CutLine", "[Options]\nAuthor=Ann\n[Wind"},
                                           BrokenSettings{"Huge", "[Options]\n" + std::string(4'000'000, 'x')}),
                         [](const auto& instance) { return std::string(instance.param.Name); });

TEST_F(MainWindowOnDisk, AFolderInPlaceOfTheSettingsIsToldAndTheWindowOpens)
{
    std::filesystem::create_directory(Path("settings.ini"));
    StartProgram();
    EXPECT_TRUE(window_->isVisible());
    ASSERT_THAT(Titles(), ElementsAre("Settings"));
    EXPECT_EQ(world_.Messages.Asked().front().Text, "The settings can't be read: " + Path("settings.ini") +
                                                        ": it is no plain file.\r\nThe defaults are used.");
    EXPECT_TRUE(window_->close());
    EXPECT_TRUE(std::filesystem::is_directory(Path("settings.ini")));
}

} // namespace
} // namespace veldrane::testing
