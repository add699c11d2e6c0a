#include "scripted_wizard_dialogs.h"
#include "shell/project_session.h"
#include "shell/wizard/frm_gen_code.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class FrmGenCode : public ::testing::Test
{
  protected:
    FrmGenCode()
    {
        session_.New(DataSourceOnOpen::LeaveClosed);
        session_.Project().VBProjectName = "Shop";
        session_.Project().OutputPath = "/out";
        session_.Project().SetModified(false);
        world_.Files.Folders.insert("/out");
    }

    frmGenCode& Wizard()
    {
        if (!wizard_)
            wizard_ = std::make_unique<frmGenCode>(world_.World, session_.Project(), session_.Classes(), dialogs_);
        return *wizard_;
    }

    void Next(int times)
    {
        for (; times > 0; --times)
            Wizard().cmdNext_Click();
    }

    void Run()
    {
        Next(3);
        Wizard().tmrStart_Timer();
    }

    void Store(const char* name, const char* value)
    {
        world_.UserSettings.UpdateKey(settings_section::kGenerateCodeSettings, name, value);
    }

    [[nodiscard]] auto Stored() const
    {
        return world_.UserSettings.GetAllSettings(settings_section::kGenerateCodeSettings);
    }

    testing::MemoryApplication world_;
    ProjectSession session_{world_.World};
    testing::ScriptedWizardDialogs dialogs_{world_.Files};
    std::unique_ptr<frmGenCode> wizard_;
};

TEST_F(FrmGenCode, BeginsWithItsIntroduction)
{
    session_.Project().MTSEnabled = false;
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kIntroduction);
    EXPECT_EQ(Wizard().lblInst(),
              "This wizard will generate a complete Visual Basic Project based on the objects you have defined. "
              "You can specify the directory that these files will be saved to. "
              "Interface forms will also be generated and placed into the target directory. ");
    EXPECT_FALSE(Wizard().cmdBack().Enabled);
    EXPECT_EQ(Wizard().cmdNext().Caption, "&Next >");
    EXPECT_THAT(Wizard().Steps(), Each(Field(&WizardStep::lblProgress, "")));
}

TEST_F(FrmGenCode, SaysWhatATransactionServerNeeds)
{
    session_.Project().MTSEnabled = true;
    EXPECT_THAT(Wizard().lblInst(),
                HasSubstr("saved to. The generated COM Object code requires the Quillmere Component Services Manager "
                          "application to be installed on your Transaction Server(s). Please see the help file and "
                          "search for 'Transaction Server' for detailed instructions on setting up your Transaction "
                          "Server(s). You will also need to distribute the Microsoft XML 2.0 Parser with your COM "
                          "Object. Interface forms will also be generated"));
}

TEST_F(FrmGenCode, WithoutSettingsItPromptsAndCompiles)
{
    world_.State.Generation.VisualBasicCommand = "vb6";
    EXPECT_EQ(Wizard().Mode(), overwrite_mode::kPrompt);
    EXPECT_TRUE(Wizard().chkCompile());
}

TEST_F(FrmGenCode, WithEveryOptionOffItPrompts)
{
    for (const char* name : {"Prompt", "Leave", "Overwrite"})
        Store(name, "False");
    EXPECT_EQ(Wizard().Mode(), overwrite_mode::kPrompt);
}

TEST_F(FrmGenCode, TakesUpItsSettings)
{
    Store("Prompt", "False");
    Store("Leave", "True");
    Store("AutoCompile", "0");
    world_.State.Generation.VisualBasicCommand = "vb6";
    EXPECT_EQ(Wizard().Mode(), overwrite_mode::kLeave);
    EXPECT_FALSE(Wizard().chkCompile());
}

TEST_F(FrmGenCode, TakesEveryWordForOffAsTheCommandLineDoes)
{
    world_.State.Generation.VisualBasicCommand = "vb6";
    for (const char* off : {"0", " 0", "False", "never"}) {
        Store("AutoCompile", off);
        wizard_.reset();
        EXPECT_FALSE(Wizard().chkCompile()) << off;
    }
    for (const char* on : {"1", "True", "-1"}) {
        Store("AutoCompile", on);
        wizard_.reset();
        EXPECT_TRUE(Wizard().chkCompile()) << on;
    }
}

TEST_F(FrmGenCode, WithoutACommandForVisualBasicTheBoxIsOffAndItsSettingStays)
{
    Store("AutoCompile", "1");
    EXPECT_FALSE(Wizard().MayCompile());
    EXPECT_FALSE(Wizard().chkCompile());
    Run();
    EXPECT_THAT(Stored(), Contains(Pair("AutoCompile", "1")));
}

TEST_F(FrmGenCode, StartsTheTreeAtTheOutputPath)
{
    Next(1);
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kFolder);
    EXPECT_EQ(Wizard().treFolder(), "/out");
    EXPECT_TRUE(Wizard().cmdBack().Enabled);
}

TEST_F(FrmGenCode, WithoutAnOutputPathItStartsTheTreeAtItsOwnFolder)
{
    session_.Project().OutputPath = "";
    Next(1);
    EXPECT_EQ(Wizard().treFolder(), "/home/me");
}

TEST_F(FrmGenCode, AFolderThatIsLeftUnchangedModifiesNothing)
{
    Next(2);
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kOptions);
    EXPECT_EQ(Wizard().cmdNext().Caption, "&Finish");
    EXPECT_FALSE(session_.Project().Modified());
}

TEST_F(FrmGenCode, AnotherFolderIsStoredWhenThePageIsLeft)
{
    Next(1);
    Wizard().treFolder_Change("/other");
    Wizard().cmdBack_Click();
    Next(1);
    EXPECT_EQ(session_.Project().OutputPath, "/out");
    EXPECT_EQ(Wizard().treFolder(), "/out");
    Wizard().treFolder_Change("/other");
    Next(1);
    EXPECT_EQ(session_.Project().OutputPath, "/other");
    EXPECT_TRUE(session_.Project().Modified());
}

TEST_F(FrmGenCode, APathThatIsNotQualifiedIsToldAndMayBeUsed)
{
    Next(1);
    Wizard().treFolder_Change("C:\\Shop");
    Next(1);
    ASSERT_THAT(world_.Messages.Asked(), SizeIs(1));
    EXPECT_EQ(world_.Messages.Asked()[0].Title, "Invalid Folder Name");
    EXPECT_EQ(world_.Messages.Asked()[0].Text,
              "The folder named: C:\\Shop you selected is not valid. \r\nThe Code Generation wizard requires a fully "
              "qualified path. You can continue, however errors may occur code generation.");
    EXPECT_EQ(world_.Messages.Asked()[0].Icon, MessageIcon::Warning);
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kOptions);
    EXPECT_EQ(session_.Project().OutputPath, "C:\\Shop");
    Next(1);
    EXPECT_TRUE(Wizard().tmrStart());
}

TEST_F(FrmGenCode, APathThatIsNotQualifiedIsGeneratedInto)
{
    Next(1);
    Wizard().treFolder_Change("C:\\Shop");
    Next(2);
    Wizard().tmrStart_Timer();
    EXPECT_EQ(Wizard().txtWarnings(),
              "Unable to write to destination directory. C:\\Shop/Shop.vbp: No such file or directory");
    wizard_.reset();
    world_.Files.Folders.insert("C:\\Shop");
    Run();
    EXPECT_TRUE(world_.Files.Files.contains("C:\\Shop/Shop.vbp"));
    EXPECT_TRUE(Wizard().CanOpenProject());
}

TEST_F(FrmGenCode, BehindItsPageTheFolderStaysAsItWasChosen)
{
    world_.Files.Folders.insert("/other");
    for (int page = 2; page <= 3; ++page) {
        Next(page == 2 ? 2 : 1);
        Wizard().treFolder_Change("/other");
        EXPECT_EQ(Wizard().treFolder(), "/out");
    }
    Wizard().tmrStart_Timer();
    Wizard().treFolder_Change("/other");
    EXPECT_EQ(Wizard().treFolder(), "/out");
    EXPECT_THAT(world_.Files.List("/other"), IsEmpty());
    EXPECT_TRUE(world_.Files.Files.contains("/out/Shop.vbp"));
}

TEST_F(FrmGenCode, WithoutAFolderItStaysOnThePage)
{
    Next(1);
    Wizard().treFolder_Change("");
    EXPECT_FALSE(Wizard().cmdNext().Enabled);
    Next(1);
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kFolder);
    EXPECT_THAT(world_.Messages.Asked(), IsEmpty());
    dialogs_.FolderName = "code";
    Wizard().NewFolder();
    EXPECT_EQ(Wizard().treFolder(), "");
    EXPECT_EQ(world_.Files.Folders.count("/code"), 0U);
    Wizard().treFolder_Change("/other");
    EXPECT_TRUE(Wizard().cmdNext().Enabled);
    Next(1);
    EXPECT_EQ(session_.Project().OutputPath, "/other");
}

TEST_F(FrmGenCode, WithoutAFolderToBeginAtItStaysOnThePageAndGoesBack)
{
    session_.Project().OutputPath = "";
    dialogs_.Home = "";
    Next(2);
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kFolder);
    Wizard().cmdBack_Click();
    EXPECT_TRUE(Wizard().cmdNext().Enabled);
}

TEST_F(FrmGenCode, GoesBackPageByPage)
{
    Next(2);
    Wizard().cmdBack_Click();
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kFolder);
    EXPECT_EQ(Wizard().cmdNext().Caption, "&Next >");
    EXPECT_TRUE(Wizard().cmdBack().Enabled);
    Wizard().cmdBack_Click();
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kIntroduction);
    EXPECT_FALSE(Wizard().cmdBack().Enabled);
    Wizard().cmdBack_Click();
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kIntroduction);
}

TEST_F(FrmGenCode, FinishStoresTheSettingsAndStartsTheRun)
{
    world_.State.Generation.VisualBasicCommand = "vb6";
    Next(2);
    Wizard().opt_Click(overwrite_mode::kBackupAndOverwrite);
    Wizard().chkCompile_Click(false);
    Next(1);
    EXPECT_EQ(Wizard().tabMain(), wizard_page::kProgress);
    EXPECT_FALSE(Wizard().cmdBack().Enabled);
    EXPECT_FALSE(Wizard().cmdNext().Enabled);
    EXPECT_TRUE(Wizard().tmrStart());
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair("Prompt", "False"), Pair("Leave", "False"),
                                               Pair("Overwrite", "True"), Pair("AutoCompile", "0")));
    EXPECT_THAT(world_.Files.List("/out"), IsEmpty());
}

TEST_F(FrmGenCode, SettingsThatCanNotBeStoredAreReportedAndTheRunStarts)
{
    world_.UserSettings.Fails = true;
    Run();
    EXPECT_THAT(world_.Errors.Reported, SizeIs(1));
    EXPECT_TRUE(Wizard().CanOpenProject());
}

TEST_F(FrmGenCode, TheRunWritesTheProject)
{
    Run();
    EXPECT_TRUE(world_.Files.Files.contains("/out/TestShop.vbg"));
    EXPECT_FALSE(Wizard().tmrStart());
    EXPECT_TRUE(Wizard().HasEnded());
    EXPECT_TRUE(Wizard().CanOpenProject());
    EXPECT_EQ(Wizard().Progress(), 100);
    EXPECT_EQ(Wizard().lblInst(), "Code Generation Complete!");
    EXPECT_EQ(Wizard().lblWarnings(), "");
    EXPECT_EQ(Wizard().txtWarnings(), "The operation completed successfully.");
    EXPECT_FALSE(Wizard().cmdNext().Visible);
    EXPECT_FALSE(Wizard().cmdBack().Visible);
    EXPECT_EQ(Wizard().cmdCancel().Caption, "&Close");
    EXPECT_TRUE(Wizard().cmdCancel().Enabled);
    EXPECT_THAT(Wizard().Files(), Contains(SettledFile{"Shop.vbp", FileOutcome::New}));
}

TEST_F(FrmGenCode, ARunHappensOnce)
{
    Run();
    world_.Files.Files.clear();
    Wizard().tmrStart_Timer();
    Wizard().cmdNext_Click();
    EXPECT_THAT(world_.Files.Files, IsEmpty());
}

TEST_F(FrmGenCode, AMessageOfTheRunIsShownAsItStands)
{
    session_.Project().ProjectDescription = "\xE2\x98\x83";
    session_.Project().VBProjectDescription = "\xE2\x98\x83";
    Run();
    EXPECT_EQ(Wizard().lblWarnings(), "The operation completed with the following messages:");
    EXPECT_THAT(Wizard().txtWarnings(), HasSubstr("Some characters were written as \"?\" in "));
}

TEST_F(FrmGenCode, AFolderThatIsGoneEndsTheRun)
{
    Next(3);
    world_.Files.Folders.erase("/out");
    Wizard().tmrStart_Timer();
    EXPECT_EQ(Wizard().lblInst(), "Code Generation Incomplete...");
    EXPECT_EQ(Wizard().lblWarnings(), "The operation completed with the following warnings:");
    EXPECT_EQ(Wizard().txtWarnings(),
              "Unable to write to destination directory. /out/Shop.vbp: No such file or directory");
    EXPECT_FALSE(Wizard().CanOpenProject());
    EXPECT_THAT(Wizard().Files(), IsEmpty());
}

TEST_F(FrmGenCode, AFolderThatGoesWhileTheQuestionStandsEndsTheRun)
{
    world_.Files.Files["/out/Shop.vbp"] = "mine";
    dialogs_.InConflict = [&](frmFile& dialog) {
        world_.Files.Folders.erase("/out");
        world_.Files.Files.clear();
        dialog.opt_Click(ConflictAnswer::Overwrite);
        dialog.cmdOK_Click();
    };
    Run();
    EXPECT_EQ(Wizard().txtWarnings(),
              "Unable to write to destination directory. /out/Shop.vbp: No such file or directory");
    EXPECT_THAT(Wizard().Files(), IsEmpty());
    EXPECT_THAT(world_.Files.Files, IsEmpty());
}

TEST_F(FrmGenCode, AFolderUnderTheFirstFilesNameEndsTheRunInEveryMode)
{
    world_.Files.Folders.insert("/out/Shop.vbp");
    for (const std::int32_t mode :
         {overwrite_mode::kPrompt, overwrite_mode::kLeave, overwrite_mode::kBackupAndOverwrite}) {
        wizard_.reset();
        Wizard().opt_Click(mode);
        Run();
        EXPECT_THAT(dialogs_.Opened, IsEmpty());
        EXPECT_EQ(Wizard().txtWarnings(), "Unable to write to destination directory. /out/Shop.vbp: Is a directory");
        EXPECT_THAT(world_.Files.Files, IsEmpty());
    }
}

TEST_F(FrmGenCode, ALaterFileThatCanNotBeWrittenIsReportedAndEndsTheRunInEveryMode)
{
    const std::string path = "/out/TestShop.vbg";
    for (const std::int32_t mode :
         {overwrite_mode::kPrompt, overwrite_mode::kLeave, overwrite_mode::kBackupAndOverwrite})
        for (const bool isFolder : {true, false}) {
            world_.Files.Files.clear();
            world_.Files.Folders = {"/", "/out"};
            world_.Files.Reason = "Permission denied";
            world_.Files.FailingPaths = isFolder ? std::set<std::string>{} : std::set<std::string>{path};
            if (isFolder)
                world_.Files.Folders.insert(path);
            world_.Errors.Reported.clear();
            wizard_.reset();
            Wizard().opt_Click(mode);
            Run();
            ASSERT_THAT(world_.Errors.Reported, Not(IsEmpty()));
            EXPECT_EQ(world_.Errors.Reported[0].Error.Description(),
                      path + (isFolder ? ": Is a directory" : ": Permission denied"));
            EXPECT_EQ(Wizard().txtWarnings(), "The operation did not complete successfully.");
            EXPECT_EQ(Wizard().lblWarnings(), "");
        }
}

TEST_F(FrmGenCode, AFileThatCouldNotBeBackedUpIsNamedAtTheEnd)
{
    world_.Files.Files["/out/Shop.vbp"] = "mine";
    world_.Files.Folders.insert("/out/Shop.vbp.BAK");
    Wizard().opt_Click(overwrite_mode::kBackupAndOverwrite);
    Run();
    EXPECT_EQ(Wizard().lblInst(), "Code Generation Complete!");
    EXPECT_EQ(Wizard().txtWarnings(), "No backup could be made of Shop.vbp.");
    EXPECT_THAT(Wizard().Files(), Contains(SettledFile{"Shop.vbp", FileOutcome::Overwritten}));
}

TEST_F(FrmGenCode, AFullDiskEndsTheRunAndTellsWhichFilesAreThere)
{
    Next(3);
    world_.Files.FailAtCall = world_.Files.Calls + 3;
    Wizard().tmrStart_Timer();
    EXPECT_EQ(Wizard().txtWarnings(), "The operation did not complete successfully.");
    EXPECT_THAT(world_.Errors.Reported, SizeIs(1));
    EXPECT_THAT(Wizard().Files(),
                ElementsAre(SettledFile{"Shop.vbp", FileOutcome::New}, SettledFile{"TestShop.vbp", FileOutcome::New}));
}

TEST_F(FrmGenCode, AsksAboutAFileThatExistsWithAPointerToPointWith)
{
    world_.Files.Files["/out/Shop.vbp"] = "mine";
    PointerShape shown = PointerShape::Hourglass;
    dialogs_.InConflict = [&](frmFile& dialog) {
        shown = world_.Pointer.Current;
        EXPECT_EQ(dialog.Option(), ConflictAnswer::BackupAndOverwrite);
        dialog.opt_Click(ConflictAnswer::Leave);
        dialog.cmdOK_Click();
    };
    Run();
    EXPECT_THAT(dialogs_.Opened, ElementsAre("File Conflict on Shop.vbp"));
    EXPECT_EQ(shown, PointerShape::Default);
    EXPECT_EQ(world_.Pointer.Current, PointerShape::Default);
    EXPECT_EQ(world_.Files.Files["/out/Shop.vbp"], "mine");
    EXPECT_THAT(Wizard().Files(), Contains(SettledFile{"Shop.vbp", FileOutcome::Left}));
}

TEST_F(FrmGenCode, TheNextQuestionSuggestsTheLastAnswer)
{
    world_.Files.Files["/out/Shop.vbp"] = "mine";
    world_.Files.Files["/out/TestShop.vbp"] = "mine";
    std::vector<ConflictAnswer> suggested;
    dialogs_.InConflict = [&](frmFile& dialog) {
        suggested.push_back(dialog.Option());
        dialog.opt_Click(ConflictAnswer::Overwrite);
        dialog.cmdOK_Click();
    };
    Run();
    EXPECT_THAT(suggested, ElementsAre(ConflictAnswer::BackupAndOverwrite, ConflictAnswer::Overwrite));
}

TEST_F(FrmGenCode, CancellingTheQuestionEndsTheRun)
{
    world_.Files.Files["/out/TestShop.vbp"] = "mine";
    Run();
    EXPECT_EQ(Wizard().txtWarnings(), "User Cancelled Operation");
    EXPECT_THAT(Wizard().Files(), ElementsAre(SettledFile{"Shop.vbp", FileOutcome::New}));
    EXPECT_EQ(world_.Files.Files["/out/TestShop.vbp"], "mine");
}

TEST_F(FrmGenCode, CancelGivesUpTheRunBeforeItsNextFile)
{
    Next(3);
    const Connection pressing = Wizard().Process.StatusChanged.Connect([&](int, const std::string& message) {
        if (message.find("Test Project Group") != std::string::npos)
            Wizard().cmdCancel_Click();
    });
    Wizard().tmrStart_Timer();
    EXPECT_THAT(dialogs_.Opened, IsEmpty());
    EXPECT_EQ(Wizard().txtWarnings(), "User Cancelled Operation");
    EXPECT_THAT(Wizard().Files(),
                ElementsAre(SettledFile{"Shop.vbp", FileOutcome::New}, SettledFile{"TestShop.vbp", FileOutcome::New}));
    Wizard().cmdCancel_Click();
    EXPECT_THAT(dialogs_.Opened, ElementsAre("end"));
}

TEST_F(FrmGenCode, ServesThePersonBetweenFiles)
{
    Next(3);
    world_.Clock.OnWait = [&](std::chrono::milliseconds) {
        if (Wizard().Steps()[0].lblProgress == "Creates the Test Project Group...")
            Wizard().cmdCancel_Click();
    };
    Wizard().tmrStart_Timer();
    EXPECT_EQ(Wizard().txtWarnings(), "User Cancelled Operation");
    EXPECT_THAT(Wizard().Files(),
                ElementsAre(SettledFile{"Shop.vbp", FileOutcome::New}, SettledFile{"TestShop.vbp", FileOutcome::New}));
}

TEST_F(FrmGenCode, WhatWasMeantForTheRunDoesNotCloseItsOutcome)
{
    Next(3);
    int presses = 0;
    world_.Clock.OnWait = [&](std::chrono::milliseconds) {
        if (!Wizard().HasEnded())
            return;
        ++presses;
        EXPECT_FALSE(Wizard().cmdCancel().Enabled);
        EXPECT_EQ(world_.Pointer.Current, PointerShape::Default);
        Wizard().cmdCancel_Click();
    };
    Wizard().tmrStart_Timer();
    EXPECT_EQ(presses, 1);
    EXPECT_THAT(dialogs_.Opened, IsEmpty());
    Wizard().cmdCancel_Click();
    EXPECT_THAT(dialogs_.Opened, ElementsAre("end"));
}

TEST_F(FrmGenCode, TheBarIsNearItsEndWhileTheCompilerWorks)
{
    world_.State.Generation.VisualBasicCommand = "vb6";
    int shown = 0;
    int duringCompiler = 0;
    const Connection showing = Wizard().Changed.Connect([&] { shown = Wizard().Progress(); });
    world_.Clock.OnWait = [&](std::chrono::milliseconds duration) {
        if (duration >= std::chrono::seconds(2))
            duringCompiler = shown;
    };
    Run();
    EXPECT_EQ(duringCompiler, 99);
    EXPECT_EQ(shown, 100);
}

TEST_F(FrmGenCode, CancelAfterTheLastFileKeepsTheCompilerFromStarting)
{
    world_.State.Generation.VisualBasicCommand = "vb6";
    Next(3);
    const Connection pressing = Wizard().Process.StatusChanged.Connect([&](int, const std::string& message) {
        if (message == "Code Generation Complete.")
            Wizard().cmdCancel_Click();
    });
    Wizard().tmrStart_Timer();
    EXPECT_THAT(world_.Processes.Started, IsEmpty());
    EXPECT_EQ(Wizard().lblInst(), "Code Generation Complete!");
    EXPECT_EQ(Wizard().txtWarnings(), "Cancelled: the project was written, not compiled.");
}

TEST_F(FrmGenCode, OnceTheCompilerIsAtWorkThereIsNothingToCancel)
{
    world_.State.Generation.VisualBasicCommand = "vb6";
    world_.Processes.OnStart = [&](const std::vector<std::string>&) {
        EXPECT_FALSE(Wizard().cmdCancel().Enabled);
        Wizard().cmdCancel_Click();
    };
    Run();
    EXPECT_THAT(world_.Processes.Started, SizeIs(1));
    EXPECT_THAT(dialogs_.Opened, IsEmpty());
    EXPECT_TRUE(Wizard().cmdCancel().Enabled);
}

TEST_F(FrmGenCode, CancelClosesTheWizardOtherwise)
{
    Next(2);
    Wizard().cmdCancel_Click();
    EXPECT_THAT(dialogs_.Opened, ElementsAre("end"));
}

TEST_F(FrmGenCode, CancelBeforeTheRunHasBegunTakesItBack)
{
    Next(3);
    Wizard().cmdCancel_Click();
    EXPECT_FALSE(Wizard().tmrStart());
    Wizard().tmrStart_Timer();
    EXPECT_THAT(dialogs_.Opened, ElementsAre("end"));
    EXPECT_THAT(world_.Files.Files, IsEmpty());
}

TEST_F(FrmGenCode, ChecksWhatIsDoneAndSetsOffWhatIsUnderWay)
{
    Next(3);
    Wizard().Process.StatusChanged.Raise(1, "one");
    EXPECT_TRUE(Wizard().Steps()[0].Bold);
    EXPECT_FALSE(Wizard().Steps()[0].imgStep);
    Wizard().Process.StatusChanged.Raise(3, "three");
    EXPECT_FALSE(Wizard().Steps()[0].Bold);
    EXPECT_TRUE(Wizard().Steps()[2].Bold);
    EXPECT_EQ(Wizard().Steps()[2].lblProgress, "three");
    EXPECT_TRUE(Wizard().Steps()[1].imgStep);
    EXPECT_FALSE(Wizard().Steps()[2].imgStep);
    for (const int stage : {4, 5}) {
        Wizard().Process.StatusChanged.Raise(stage, "late");
        EXPECT_THAT(Wizard().Steps(), Each(Field(&WizardStep::Bold, false)));
    }
    EXPECT_THAT(Wizard().Steps(), Each(Field(&WizardStep::imgStep, true)));
}

TEST_F(FrmGenCode, MakesAFolderAndGoesThere)
{
    Next(1);
    dialogs_.FolderName = "code";
    Wizard().NewFolder();
    EXPECT_EQ(Wizard().treFolder(), "/out/code");
    EXPECT_TRUE(world_.Files.Folders.contains("/out/code"));
}

TEST_F(FrmGenCode, WithoutANameItMakesNoFolder)
{
    Next(1);
    Wizard().NewFolder();
    EXPECT_EQ(Wizard().treFolder(), "/out");
}

TEST_F(FrmGenCode, AFolderThatExistsIsTold)
{
    world_.Files.Folders.insert("/out/code");
    Next(1);
    dialogs_.FolderName = "code";
    Wizard().NewFolder();
    EXPECT_EQ(world_.Messages.Asked().at(0).Text, "The folder name already exists in this directory.");
    EXPECT_EQ(Wizard().treFolder(), "/out");
}

TEST_F(FrmGenCode, AFolderThatCanNotBeMadeIsReported)
{
    Next(1);
    dialogs_.FolderName = "code";
    dialogs_.MayMakeFolders = false;
    Wizard().NewFolder();
    ASSERT_THAT(world_.Errors.Reported, SizeIs(1));
    EXPECT_EQ(world_.Errors.Reported[0].Place.ModuleName, "frmGenCode");
    EXPECT_EQ(world_.Errors.Reported[0].Place.RoutineName, "CreateFolder");
    EXPECT_EQ(Wizard().treFolder(), "/out");
}

TEST_F(FrmGenCode, OpensTheGeneratedGroup)
{
    Run();
    Wizard().lblOpenProject_Click();
    EXPECT_THAT(world_.Processes.Started, ElementsAre(ElementsAre("xdg-open", "/out/TestShop.vbg")));
}

TEST_F(FrmGenCode, SaysWhatToThinkWhereNothingOpens)
{
    Run();
    EXPECT_EQ(Wizard().lblOpened(), "");
    Wizard().lblOpenProject_Click();
    EXPECT_EQ(Wizard().lblOpened(),
              "The desktop was asked to open TestShop.vbg. If nothing opens, it knows no program for such files.");
}

TEST_F(FrmGenCode, AGroupThatCanNotBeHandedOnIsReported)
{
    world_.Processes.OnStart = [](const std::vector<std::string>& command) {
        throw RuntimeError(error_number::kFileNotFound, "ProcessStarter", command[0] + ": No such file or directory");
    };
    Run();
    Wizard().lblOpenProject_Click();
    EXPECT_THAT(world_.Errors.Reported, SizeIs(1));
    EXPECT_EQ(Wizard().lblOpened(), "");
}

TEST_F(FrmGenCode, ShowsEachStep)
{
    int shown = 0;
    const Connection showing = Wizard().Changed.Connect([&] { ++shown; });
    Next(3);
    shown = 0;
    Wizard().tmrStart_Timer();
    EXPECT_GT(shown, 6);
}

} // namespace
} // namespace veldrane
