#include "generation_fixture.h"
#include "generator/target_files.h"

#include <gmock/gmock.h>

namespace veldrane::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(PathIn, WithoutAFolderIsNotTheRoot)
{
    EXPECT_EQ(PathIn("", "Shop.vbp"), "Shop.vbp");
    EXPECT_EQ(PathIn("/", "Shop.vbp"), "/Shop.vbp");
    EXPECT_EQ(PathIn("/out", "Shop.vbp"), "/out/Shop.vbp");
}

class SettledFiles : public GenerationTest
{
  protected:
    SettledFiles() { files.Folders.insert("/out"); }

    void Run(std::int32_t mode) { generation.GenerateCode(classes, {.TargetFolder = "/out", .OverwriteMode = mode, .TellsUnchanged = true}); }
};

TEST_F(SettledFiles, AreToldInTheOrderOfWriting)
{
    AddClass("Order").CreateCollection = true;
    Run(overwrite_mode::kBackupAndOverwrite);
    EXPECT_THAT(generation.Files, ElementsAre(SettledFile{"Shop.vbp", FileOutcome::New}, SettledFile{"TestShop.vbp", FileOutcome::New}, SettledFile{"TestShop.vbg", FileOutcome::New},
                                              SettledFile{"frmTest.frm", FileOutcome::New}, SettledFile{"Globals.Bas", FileOutcome::New}, SettledFile{"Auto.cls", FileOutcome::New},
                                              SettledFile{"Order.cls", FileOutcome::New}, SettledFile{"Orders.cls", FileOutcome::New}));
}

TEST_F(SettledFiles, TellWhatWasOverwrittenAndWhatHasNotChanged)
{
    AddClass("Order");
    Run(overwrite_mode::kBackupAndOverwrite);
    files.Files["/out/Order.cls"] = "mine";
    Run(overwrite_mode::kBackupAndOverwrite);
    EXPECT_THAT(generation.Files, Contains(SettledFile{"Order.cls", FileOutcome::Overwritten}));
    EXPECT_THAT(generation.Files, Contains(SettledFile{"Shop.vbp", FileOutcome::Unchanged}));
    EXPECT_EQ(files.Files.at("/out/Order.cls.BAK"), "mine");
}

TEST_F(SettledFiles, TellWhatWasLeft)
{
    files.Files["/out/Shop.vbp"] = "mine";
    Run(overwrite_mode::kLeave);
    EXPECT_EQ(generation.Files.at(0), (SettledFile{"Shop.vbp", FileOutcome::Left}));
}

TEST_F(SettledFiles, WithoutComparingWhatStoodThereIsOverwritten)
{
    Run(overwrite_mode::kLeave);
    generation.GenerateCode(classes, {.TargetFolder = "/out", .OverwriteMode = overwrite_mode::kBackupAndOverwrite});
    for (const SettledFile& file : generation.Files)
        EXPECT_EQ(file.Outcome, FileOutcome::Overwritten) << file.FileName;
}

TEST_F(SettledFiles, AFileThatCanNotBeReadWasAnotherOne)
{
    Run(overwrite_mode::kLeave);
    files.UnreadablePaths = {"/out/Shop.vbp"};
    Run(0);
    EXPECT_EQ(generation.Files.at(0), (SettledFile{"Shop.vbp", FileOutcome::Overwritten}));
    EXPECT_EQ(generation.Files.at(1), (SettledFile{"TestShop.vbp", FileOutcome::Unchanged}));
}

TEST_F(SettledFiles, OfARunThatWasGivenUpAreThoseWrittenBefore)
{
    conflicts.FilesUntilCancel = 2;
    Run(overwrite_mode::kPrompt);
    EXPECT_EQ(generation.ErrorText, "User Cancelled Operation");
    EXPECT_THAT(generation.Files, ElementsAre(SettledFile{"Shop.vbp", FileOutcome::New}, SettledFile{"TestShop.vbp", FileOutcome::New}));
    EXPECT_TRUE(files.Files.contains("/out/TestShop.vbp"));
    EXPECT_FALSE(files.Files.contains("/out/TestShop.vbg"));
}

TEST_F(SettledFiles, OfWhichNoneCouldBePutInPlaceAreNone)
{
    Run(overwrite_mode::kLeave);
    const int calls = files.Calls;
    files.FailAtCall = calls + 1;
    files.Files.clear();
    Run(overwrite_mode::kLeave);
    EXPECT_THAT(generation.Files, IsEmpty());
}

TEST_F(SettledFiles, AreOnlyThoseThatWereLeftWhereTheOthersCanNotBePutInPlace)
{
    files.Files["/out/frmTest.frm"] = "mine";
    files.FailingPaths = {""}; // that of a commit
    Run(overwrite_mode::kLeave);
    EXPECT_THAT(generation.Files, ElementsAre(SettledFile{"frmTest.frm", FileOutcome::Left}));
    EXPECT_FALSE(files.Files.contains("/out/Shop.vbp"));
}

TEST_F(SettledFiles, AreNoneWhereTheOnlyCommitFails)
{
    files.FailAtCall = 7; // behind six files
    Run(overwrite_mode::kLeave);
    EXPECT_EQ(errors.Reported.size(), 1U);
    EXPECT_THAT(generation.Files, IsEmpty());
}

TEST_F(SettledFiles, AreThoseThatWereRenamedWhereACommitFailsOnItsWay)
{
    files.Files["/out/Auto.cls"] = "mine";
    conflicts.InConflict = [&](const FileConflict&) { files.Folders.insert("/out/frmTest.frm"); }; // by the time of the commit
    Run(overwrite_mode::kPrompt);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported[0].Error.Description(), "/out/frmTest.frm: Is a directory");
    EXPECT_THAT(generation.Files, ElementsAre(SettledFile{"Shop.vbp", FileOutcome::New}, SettledFile{"TestShop.vbp", FileOutcome::New}, SettledFile{"TestShop.vbg", FileOutcome::New},
                                              SettledFile{"Auto.cls", FileOutcome::Left}));
}

TEST_F(SettledFiles, TellOfAFileThatTheRunWroteTwice)
{
    AddClass("Auto");
    for (const std::int32_t mode : {overwrite_mode::kBackupAndOverwrite, overwrite_mode::kPrompt}) {
        files.Files.clear();
        conflicts.Answers = {ConflictAnswer::Overwrite};
        Run(mode);
        EXPECT_EQ(generation.Files.at(5), (SettledFile{"Auto.cls", FileOutcome::New}));
        EXPECT_EQ(generation.Files.at(6), (SettledFile{"Auto.cls", FileOutcome::Overwritten}));
    }
}

TEST_F(SettledFiles, AConflictWithAFileOfThisRunFindsItInPlace)
{
    AddClass("Auto");
    std::string standing;
    conflicts.InConflict = [&](const FileConflict& conflict) { standing = files.Read(conflict.Path); };
    Run(overwrite_mode::kPrompt);
    EXPECT_THAT(standing, HasSubstr("Private mvarIsConnected as Boolean"));
    EXPECT_EQ(generation.Files.at(5), (SettledFile{"Auto.cls", FileOutcome::New}));
    EXPECT_EQ(generation.Files.at(6), (SettledFile{"Auto.cls", FileOutcome::Left}));
}

TEST_F(SettledFiles, AConflictKnowsTheNewText)
{
    AddClass("Order");
    files.Files["/out/Order.cls"] = "mine";
    conflicts.LooksAtText = true;
    conflicts.Answers = {ConflictAnswer::Overwrite};
    Run(overwrite_mode::kPrompt);
    EXPECT_THAT(conflicts.NewBytes, ElementsAre(files.Files.at("/out/Order.cls")));
    EXPECT_THAT(conflicts.NewBytes, Contains(HasSubstr("Attribute VB_Name = \"Order\"")));
}

TEST_F(SettledFiles, LookingAtTheNewTextOfAFileThatIsLeftChangesNoOther)
{
    AddClass("Order");
    AddClass("Line");
    Run(overwrite_mode::kLeave);
    const auto before = files.Files;
    files.Files["/out/Order.cls"] = "mine";
    conflicts.LooksAtText = true;
    Run(overwrite_mode::kPrompt);
    EXPECT_EQ(files.Files.at("/out/Line.cls"), before.at("/out/Line.cls"));
}

TEST_F(SettledFiles, LookingAtTheNewTextOfAFileThatIsLeftLeavesItsClassAsItIs)
{
    KZMClass& order = AddClass("Order");
    AddMethod(order, "Delete", true);
    AddProperty(order, "RowID", "String").FieldDataType = "GUID";
    files.Files["/out/Order.cls"] = "mine";
    conflicts.LooksAtText = true;
    Run(overwrite_mode::kPrompt);
    EXPECT_THAT(conflicts.NewBytes, Contains(HasSubstr("Public Sub Clear()")));
    EXPECT_EQ(order.TTCMethods.Count(), 1U);
    EXPECT_EQ(generation.ErrorText, "");
    conflicts.Answers = {ConflictAnswer::Leave, ConflictAnswer::Leave, ConflictAnswer::Leave, ConflictAnswer::Leave, ConflictAnswer::Leave, ConflictAnswer::Leave, ConflictAnswer::Overwrite};
    Run(overwrite_mode::kPrompt);
    EXPECT_EQ(conflicts.NewBytes.back(), files.Files.at("/out/Order.cls"));
    EXPECT_EQ(order.TTCMethods.Count(), 2U);
    EXPECT_THAT(generation.ErrorText, HasSubstr("It has been added."));
}

} // namespace
} // namespace veldrane::testing
