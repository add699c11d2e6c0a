#include "generation_fixture.h"
#include "run_recorder.h"

#include <algorithm>

namespace veldrane::testing {
namespace {

class GenerateCode : public GenerationTest
{
  protected:
    GenerateCode() { files.Folders.insert("/out"); }

    void Run(std::int32_t overwriteMode = overwrite_mode::kBackupAndOverwrite) { generation.GenerateCode(classes, {.TargetFolder = "/out", .OverwriteMode = overwriteMode}); }

    [[nodiscard]] std::vector<std::string> Names() const { return files.List("/out"); }

    RunRecorder recorder{generation};
};

using Texts = std::vector<std::string>;

TEST_F(GenerateCode, WritesTheFilesInTheirOrderAndTellsOfEach)
{
    project.ModulePrefix = "mod";
    project.ClassPrefix = "cls";
    AddClass("Order").CreateCollection = true;
    AddClass("Line", "Order");
    Run();
    EXPECT_EQ(recorder.Events, (Texts{
                                   "1%",
                                   "1 Creates the Project File...",
                                   "2%",
                                   "1 Creates the Test Project File...",
                                   "3%",
                                   "1 Creates the Test Project Group...",
                                   "4%",
                                   "1 Creates the Test Form File...",
                                   "5%",
                                   "1 Creates the Globals.Bas File...",
                                   "6%",
                                   "1 Creates the Auto.cls File...",
                                   "1 Creates Class Files...",
                                   "6%",
                                   "1 Creates clsOrder.cls...",
                                   "37%",
                                   "1 Creates clsOrders.cls...",
                                   "68%",
                                   "1 Creates clsLine.cls...",
                                   "100%",
                                   "complete: ",
                               }));
    EXPECT_EQ(Names(), (Texts{"Shop.vbp", "TestShop.vbg", "TestShop.vbp", "clsAuto.cls", "clsLine.cls", "clsOrder.cls", "clsOrders.cls", "frmTest.frm", "modGlobals.Bas"}));
    EXPECT_EQ(files.Swept, Texts{"/out"});
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(GenerateCode, RoundsTheProgressWithHalvesToEven)
{
    AddClass("A");
    AddClass("B");
    Run();
    EXPECT_NE(std::find(recorder.Events.begin(), recorder.Events.end(), "52%"), recorder.Events.end());
}

TEST_F(GenerateCode, WithoutClassesWritesTheProjectAlone)
{
    Run();
    EXPECT_EQ(Names(), (Texts{"Auto.cls", "Globals.Bas", "Shop.vbp", "TestShop.vbg", "TestShop.vbp", "frmTest.frm"}));
    EXPECT_EQ(recorder.Events.back(), "complete: ");
    EXPECT_EQ(recorder.Events.at(recorder.Events.size() - 2), "100%");
    EXPECT_EQ(recorder.Events.at(recorder.Events.size() - 3), "1 Creates Class Files...");
}

TEST_F(GenerateCode, EndsEverySectionWithAnEmptyLine)
{
    KZMClass& order = AddClass("Order");
    AddProperty(order, "No", "Long");
    Run();
    EXPECT_EQ(files.Files.at("/out/TestShop.vbg"), "VBGROUP 5.0\r\nProject=Shop.vbp\r\nStartupProject=TestShop.vbp\r\n\r\n");
    const std::string text = files.Files.at("/out/Order.cls");
    EXPECT_NE(text.find("Option Explicit\r\n\r\nPrivate mlngNo as Long\r\n\r\nPublic Property Get No() as Long\r\n"), std::string::npos);
    EXPECT_NE(text.find("End Property\r\n\r\nPrivate Sub Class_Initialize()\r\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("End Sub\r\n\r\n"));
}

TEST_F(GenerateCode, GivesTheSameBytesOnEveryRun)
{
    KZMClass& order = AddClass("Order");
    AddClass("Line", "Order");
    AddProperty(order, "No", "Long");
    Run(0);
    const auto first = files.Files;
    Run(0);
    EXPECT_EQ(files.Files, first);
}

TEST_F(GenerateCode, BacksUpWhatItOverwrites)
{
    files.Files["/out/Shop.vbp"] = "mine";
    files.Files["/out/Shop.vbp.BAK"] = "older";
    Run(overwrite_mode::kBackupAndOverwrite);
    EXPECT_EQ(files.Files.at("/out/Shop.vbp.BAK"), "mine");
    EXPECT_NE(files.Files.at("/out/Shop.vbp"), "mine");
    EXPECT_FALSE(files.Files.contains("/out/TestShop.vbp.BAK"));
}

TEST_F(GenerateCode, LooksAtTheCollectionOfAClassWhoseFileIsLeft)
{
    files.Files["/out/Order.cls"] = "mine";
    AddClass("Order").CreateCollection = true;
    Run(overwrite_mode::kLeave);
    EXPECT_EQ(files.Files.at("/out/Order.cls"), "mine");
    EXPECT_TRUE(files.Files.contains("/out/Orders.cls"));
}

TEST_F(GenerateCode, WarnsOfFilesThatShareANameAndOverwritesTheEarlierOne)
{
    AddClass("Auto");
    Run();
    EXPECT_EQ(recorder.Events.back(), "complete: ClassName \"Auto\" gives a second file Auto.cls: WrapperClassName \"Auto\" gives one already. Give one of them another name.");
    EXPECT_TRUE(generation.FilesShareNames);
    EXPECT_NE(files.Files.at("/out/Auto.cls").find("Attribute VB_Ext_KEY = \"Top_Level\", \"Yes\""), std::string::npos);
    project.WrapperClassName = "Shop";
    Run();
    EXPECT_FALSE(generation.FilesShareNames);
}

TEST_F(GenerateCode, LeavesAFileThatItWroteItselfAsItLeavesAnyOther)
{
    AddClass("Auto");
    Run(overwrite_mode::kLeave);
    EXPECT_NE(files.Files.at("/out/Auto.cls").find("Private mvarIsConnected as Boolean"), std::string::npos);
    EXPECT_TRUE(generation.FilesShareNames);
}

TEST_F(GenerateCode, AsksAboutAFileThatItWroteItself)
{
    AddClass("Auto");
    conflicts.Answers = {ConflictAnswer::Overwrite};
    Run(overwrite_mode::kPrompt);
    EXPECT_EQ(conflicts.Asked, (std::vector<std::pair<std::string, std::string>>{{"/out/Auto.cls", "Auto.cls"}}));
    EXPECT_EQ(files.Files.at("/out/Auto.cls").find("Private mvarIsConnected as Boolean"), std::string::npos);
}

TEST_F(GenerateCode, KeepsTheBackupOfWhatWasThereBeforeTheRun)
{
    AddClass("Auto");
    files.Files["/out/Auto.cls"] = "mine";
    Run(overwrite_mode::kBackupAndOverwrite);
    EXPECT_EQ(files.Files.at("/out/Auto.cls.BAK"), "mine");

    files.Files.erase("/out/Auto.cls");
    Run(overwrite_mode::kBackupAndOverwrite);
    EXPECT_EQ(files.Files.at("/out/Auto.cls.BAK"), "mine");
    EXPECT_TRUE(errors.Reported.empty()) << "a file of this run has nothing to back up";
}

TEST_F(GenerateCode, WritesBothFilesWhoseNamesDifferInCaseAloneAndWarns)
{
    AddClass("AUTO");
    Run(overwrite_mode::kLeave);
    EXPECT_TRUE(files.Files.contains("/out/Auto.cls") && files.Files.contains("/out/AUTO.cls"));
    EXPECT_TRUE(recorder.Events.back().starts_with("complete: ClassName \"AUTO\" gives a second file AUTO.cls: ")) << recorder.Events.back();
    EXPECT_TRUE(generation.FilesShareNames);
}

TEST_F(GenerateCode, WithoutAConnectionStringToEditIsReportedAndAborted)
{
    project.ConnectSameDirectory = true;
    Run();
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Number, 1001);
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "GenerateCode:");
    EXPECT_EQ(recorder.Events.back(), "aborted: ");
    EXPECT_TRUE(files.Files.contains("/out/Globals.Bas"));
}

TEST_F(GenerateCode, LeavesWhatIsThereAndGoesOn)
{
    files.Files["/out/Shop.vbp"] = "mine";
    AddClass("Order");
    Run(overwrite_mode::kLeave);
    EXPECT_EQ(files.Files.at("/out/Shop.vbp"), "mine");
    EXPECT_TRUE(files.Files.contains("/out/Order.cls"));
    EXPECT_EQ(recorder.Events.back(), "complete: ");
}

TEST_F(GenerateCode, OverwritesWithoutABackupInAnyOtherMode)
{
    files.Files["/out/Shop.vbp"] = "mine";
    for (const std::int32_t mode : {0, 4, -1}) {
        Run(mode);
        EXPECT_NE(files.Files.at("/out/Shop.vbp"), "mine");
        EXPECT_FALSE(files.Files.contains("/out/Shop.vbp.BAK"));
    }
    EXPECT_TRUE(conflicts.Asked.empty());
}

TEST_F(GenerateCode, AsksAboutEachFileThatExistsAndDoesAsIsAnswered)
{
    for (const char* name : {"Shop.vbp", "TestShop.vbp", "TestShop.vbg"})
        files.Files["/out/" + std::string(name)] = "mine";
    conflicts.Answers = {ConflictAnswer::Overwrite, ConflictAnswer::Leave, ConflictAnswer::BackupAndOverwrite};
    Run(overwrite_mode::kPrompt);
    EXPECT_EQ(conflicts.Asked, (std::vector<std::pair<std::string, std::string>>{{"/out/Shop.vbp", "Shop.vbp"}, {"/out/TestShop.vbp", "TestShop.vbp"}, {"/out/TestShop.vbg", "TestShop.vbg"}}));
    EXPECT_NE(files.Files.at("/out/Shop.vbp"), "mine");
    EXPECT_FALSE(files.Files.contains("/out/Shop.vbp.BAK"));
    EXPECT_EQ(files.Files.at("/out/TestShop.vbp"), "mine");
    EXPECT_EQ(files.Files.at("/out/TestShop.vbg.BAK"), "mine");
    EXPECT_NE(files.Files.at("/out/TestShop.vbg"), "mine");
}

TEST_F(GenerateCode, CancelledSaysNothingElse)
{
    AddClass("Auto");
    conflicts.Answers = {ConflictAnswer::Cancel};
    Run(overwrite_mode::kPrompt);
    EXPECT_EQ(recorder.Events.back(), "aborted: User Cancelled Operation");
    EXPECT_FALSE(generation.FilesShareNames);
}

TEST_F(GenerateCode, CancelledKeepsTheFilesWrittenSoFar)
{
    AddClass("Order");
    AddClass("Line");
    files.Files["/out/Line.cls"] = "mine";
    conflicts.Answers = {ConflictAnswer::Cancel};
    Run(overwrite_mode::kPrompt);
    EXPECT_EQ(recorder.Events.back(), "aborted: User Cancelled Operation");
    EXPECT_EQ(std::count_if(recorder.Events.begin(), recorder.Events.end(), [](const std::string& event) { return event.starts_with("complete"); }), 0);
    EXPECT_TRUE(files.Files.contains("/out/Order.cls"));
    EXPECT_EQ(files.Files.at("/out/Line.cls"), "mine");
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(GenerateCode, IntoAMissingFolderIsAborted)
{
    files.Folders.erase("/out");
    Run();
    EXPECT_EQ(recorder.Events.back(), "aborted: Unable to write to destination directory. /out/Shop.vbp: No such file or directory");
    EXPECT_TRUE(files.Swept.empty());
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(GenerateCode, DoesNotTryTheFolderWithAFileThatIsLeft)
{
    files.Files["/out/Shop.vbp"] = "mine";
    files.FailingPaths = {"/out/TestShop.vbp"};
    Run(overwrite_mode::kLeave);
    EXPECT_EQ(recorder.Events.back(), "aborted: ");
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "GenerateCode");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "GenerateCode:");
}

TEST_F(GenerateCode, WhateverCallFailsLeavesWholeFilesAndAReport)
{
    AddClass("Order");
    files.Files["/out/TestShop.vbg"] = "mine";
    Run();
    const auto all = files.Files;
    const int calls = files.Calls;
    ASSERT_EQ(calls, 9);
    for (int failing = 1; failing <= calls; ++failing) {
        files.Files = {{"/out/TestShop.vbg", "mine"}};
        files.Calls = 0;
        files.FailAtCall = failing;
        errors.Reported.clear();
        recorder.Events.clear();
        Run();
        for (const auto& [path, bytes] : files.Files)
            EXPECT_TRUE(bytes == all.at(path) || bytes == "mine") << failing << path;
        const std::string& end = recorder.Events.back();
        const bool toldAtTheEnd = end == "aborted: Unable to write to destination directory. /out/Shop.vbp: No space left on device";
        EXPECT_TRUE(toldAtTheEnd != !errors.Reported.empty()) << failing;
        EXPECT_EQ(end.starts_with("complete"), failing == 3) << failing;
    }
}

TEST_F(GenerateCode, PutsInPlaceWhatCameBeforeAFileThatFails)
{
    AddClass("Order");
    AddClass("Line");
    files.FailingPaths = {"/out/Order.cls"};
    Run();
    EXPECT_EQ(Names(), (Texts{"Auto.cls", "Globals.Bas", "Shop.vbp", "TestShop.vbg", "TestShop.vbp", "frmTest.frm"}));
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Description(), "/out/Order.cls: No space left on device");
    EXPECT_EQ(recorder.Events.back(), "aborted: ");
}

TEST_F(GenerateCode, GoesOnWithoutABackupThatFails)
{
    files.Files["/out/Shop.vbp"] = "mine";
    files.FailingPaths = {"/out/Shop.vbp.BAK"};
    Run();
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "GenerateVBCode");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "BackupExisting");
    EXPECT_NE(files.Files.at("/out/Shop.vbp"), "mine");
    EXPECT_EQ(recorder.Events.back(), "complete: No backup could be made of Shop.vbp.");
}

TEST_F(GenerateCode, NamesEachFileThatHasNoBackup)
{
    AddMethod(AddClass("Order"), "Delete", true);
    Run();
    files.Folders.insert("/out/Shop.vbp.BAK");
    files.FailingPaths = {"/out/frmTest.frm.BAK"};
    Run();
    EXPECT_EQ(errors.Reported.size(), 2U);
    EXPECT_EQ(recorder.Events.back(), "complete: No backup could be made of Shop.vbp, frmTest.frm.");
}

TEST_F(GenerateCode, KeepsAnOlderBackupOfAFileThatCanNotBeRead)
{
    files.Files["/out/Shop.vbp"] = "mine";
    files.Files["/out/Shop.vbp.BAK"] = "older";
    files.UnreadablePaths = {"/out/Shop.vbp"};
    Run();
    EXPECT_EQ(files.Files.at("/out/Shop.vbp.BAK"), "older");
    EXPECT_EQ(errors.Reported.size(), 1U);
}

TEST_F(GenerateCode, RefusesNamesThatLeadOutOfTheFolderBeforeItTouchesAnything)
{
    files.Files["/out/Shop.vbp"] = "mine";
    AddClass("Order").ClassName = "../Order";
    Run();
    EXPECT_EQ(recorder.Events, Texts{"aborted: ClassName \"../Order\" can't be part of a file name. Nothing was written."});
    EXPECT_EQ(files.Files, (std::map<std::string, std::string>{{"/out/Shop.vbp", "mine"}}));
    EXPECT_TRUE(files.Swept.empty());
}

TEST_F(GenerateCode, PassesOnWhatTheWritersSay)
{
    AddMethod(AddClass("Order"), "Delete", true);
    Run();
    EXPECT_EQ(recorder.Events.back(), "complete: The Delete Method requires the clear method which was not included in the class definition. It has been added.");
    Run();
    EXPECT_EQ(recorder.Events.back(), "complete: ");
}

TEST_F(GenerateCode, DoesNotChangeTheClassOfAFileThatIsLeft)
{
    KZMClass& order = AddClass("Order");
    AddMethod(order, "Delete", true);
    files.Files["/out/Order.cls"] = "mine";
    Run(overwrite_mode::kLeave);
    EXPECT_EQ(recorder.Events.back(), "complete: ");
    EXPECT_EQ(order.TTCMethods.Count(), 1U);
}

TEST_F(GenerateCode, WritesTheCodePageAndTellsOnceOfWhatItLacks)
{
    KZMClass& order = AddClass("Order");
    AddProperty(order, "Straße", "String");
    Run();
    EXPECT_NE(files.Files.at("/out/Order.cls").find("Private mstrStra\xDF\x65 as String\r\n"), std::string::npos);
    EXPECT_EQ(recorder.Events.back(), "complete: ");

    AddProperty(order, "Δ", "String");
    AddProperty(AddClass("Line"), "Ω", "String");
    AddProperty(AddClass("Note"), "Ω", "String");
    Run();
    EXPECT_NE(files.Files.at("/out/Order.cls").find("Private mstr? as String\r\n"), std::string::npos);
    EXPECT_EQ(recorder.Events.back(), "complete: Some characters were written as \"?\" in Order.cls and 2 more: they are not in code page 1252, which the setting CodePage names.");
}

TEST_F(GenerateCode, TakesAFolderWithASlashAtItsEnd)
{
    generation.GenerateCode(classes, {.TargetFolder = "/out/"});
    EXPECT_TRUE(files.Files.contains("/out/Shop.vbp"));
}

TEST_F(GenerateCode, StaysLinearInClassesAndProperties)
{
    constexpr int kClasses = 5000;
    constexpr int kProperties = 2000;
    project.TrackPropertyChanges = true;
    for (int i = 0; i < kClasses; ++i)
        AddMethod(AddClass("Class" + std::to_string(i), "Class" + std::to_string(i / 2)), "Clear", true);
    KZMClass& huge = AddClass("Huge", "Class0");
    huge.CreateCollection = true;
    AddMethod(huge, "Clone", true);
    std::vector<std::string> columns;
    for (int i = 0; i < kProperties; ++i)
        AddProperty(huge, columns.emplace_back("Column" + std::to_string(i)), "Long");
    AddKey(huge, key_type::kPrimaryKey, columns);
    for (const std::string& column : columns) {
        Columns foreignKey;
        foreignKey.Add(column, "Long", "", column);
        huge.TTCRelationships.Add(column, "Class0", std::move(foreignKey), column);
    }
    huge.RetrieveByPrimaryKey = true;
    Run();
    EXPECT_EQ(recorder.Events.back(), "complete: ");
    EXPECT_EQ(Names().size(), kClasses + 8U);
    EXPECT_TRUE(files.Files.at("/out/Huges.cls").find("Public Function Add(Optional sKey as String) as Huge\r\n") != std::string::npos);
}

} // namespace
} // namespace veldrane::testing
