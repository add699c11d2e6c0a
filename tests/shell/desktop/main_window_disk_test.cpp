#include "main_window_on_disk.h"

#include <filesystem>
#include <unistd.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

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

TEST_F(MainWindowOnDisk, ATableThatAnotherProgramHasDroppedIsToldAndNothingIsLost)
{
    MakeDatabase();
    StartProgram();
    DropDatabase();
    ASSERT_TRUE(AddTable(u"Customers"_s, kParents));
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
    ClickTable(u"Orders"_s);
    EXPECT_TRUE(Tool("AddClassTo").isEnabled());
    EXPECT_TRUE(AddTable(u"Orders"_s, kParents));
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

} // namespace
} // namespace veldrane::testing
