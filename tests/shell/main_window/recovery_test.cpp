#include "frm_main_fixture.h"

#include "shell/main_window/recovery.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class RecoveryTest : public testing::FrmMainTest
{
  protected:
    // What a program that was killed has left of a project of that name.
    void Crash(const std::string& name)
    {
        ProjectSession session(World.World);
        session.New(DataSourceOnOpen::LeaveClosed);
        session.Project().SetProjectName(name);
        ASSERT_TRUE(session.Autosave());
    }

    // The same, and its copy is damaged.
    void CrashBadly()
    {
        Crash("Lost");
        for (auto& [path, content] : World.Files.Files)
            content = "no project";
    }

    void LetAutosaveComeDue()
    {
        for (int tick = 0; tick < 2 * Form.Project().AutosaveProjectInterval; ++tick)
            Form.tmrAutosave_Timer();
    }

    [[nodiscard]] auto Entries() const { return World.UserSettings.GetAllSettings(settings_section::kTempFiles); }

    [[nodiscard]] auto MRU() const { return World.UserSettings.GetAllSettings(settings_section::kMRU); }
};

TEST_F(RecoveryTest, WithoutEntriesNothingHappens)
{
    EXPECT_TRUE(Form.Load({}));
    EXPECT_FALSE(Form.Project().Recovered);
    EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(RecoveryTest, AfterACrashTheProjectComesBackModified)
{
    Crash("Desk");
    EXPECT_FALSE(Form.Load({}));
    EXPECT_EQ(Form.Project().ProjectName(), "Desk");
    EXPECT_TRUE(Form.Project().Recovered);
    EXPECT_TRUE(Form.Project().Modified());
    EXPECT_EQ(Form.Project().FullPath, "/recovery/copy1.kzm");
    EXPECT_EQ(Form.Status().Status(), "File Recovered");
    EXPECT_EQ(Form.treMain().Nodes()[0].Caption, "Desk");
    EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(RecoveryTest, TheEntryGoesAndTheWorkHasACopyAllTheSame)
{
    Crash("Desk");
    static_cast<void>(Form.Load({}));
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy2.kzm", "/recovery/copy2.kzm")));
    // The next crash loses nothing either.
    frmMain next(World.World, Windows, Reading);
    static_cast<void>(next.Load({}));
    EXPECT_EQ(next.Project().ProjectName(), "Desk");
}

TEST_F(RecoveryTest, WhereNoNewCopyCanBeMadeTheEntryStaysUntilTheWorkIsSettled)
{
    Crash("Desk");
    World.Files.FailingPaths.insert("/recovery/copy2.kzm");
    static_cast<void>(Form.Load({}));
    EXPECT_TRUE(Form.Project().Recovered);
    EXPECT_THAT(World.Errors.Reported, SizeIs(1));
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm")));
    World.Messages.Add(Answer::No);
    EXPECT_TRUE(Form.QueryUnload());
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(RecoveryTest, TheCopyIsNoFileThatWasUsed)
{
    Crash("Desk");
    static_cast<void>(Form.Load({}));
    EXPECT_THAT(MRU(), IsEmpty());
}

TEST_F(RecoveryTest, TheFirstSaveAsksForAName)
{
    Crash("Desk");
    static_cast<void>(Form.Load({}));
    World.Dialogs.Add("/desk.kzm");
    Form.actbar_Click("Save");
    EXPECT_EQ(Form.Project().FullPath, "/desk.kzm");
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_TRUE(World.Files.Files.contains("/desk.kzm"));
}

TEST_F(RecoveryTest, LeavingItAsksForARecoveredProject)
{
    Crash("Desk");
    static_cast<void>(Form.Load({}));
    World.Messages.Add(Answer::Cancel);
    EXPECT_FALSE(Form.QueryUnload());
    EXPECT_EQ(World.Messages.Asked().back().Text,
              "This recovered project has been modified and changes have not been saved.\r\n"
              "Do you want to save Desk first?");
    EXPECT_THAT(Entries(), SizeIs(1));
    World.Messages.Add(Answer::No);
    EXPECT_TRUE(Form.QueryUnload());
    EXPECT_THAT(Entries(), IsEmpty());
    EXPECT_TRUE(World.Files.Files.contains("/recovery/copy1.kzm"));
}

TEST_F(RecoveryTest, ThePreviewSaysSo)
{
    Crash("Desk");
    static_cast<void>(Form.Load({}));
    EXPECT_TRUE(PreviewHas("Project Has Been Recovered: "));
}

TEST_F(RecoveryTest, OfSeveralCopiesTheFirstComesAndTheOthersWait)
{
    Crash("One");
    Crash("Two");
    static_cast<void>(Form.Load({}));
    EXPECT_EQ(Form.Project().ProjectName(), "One");
    EXPECT_THAT(Entries(), UnorderedElementsAre(Pair("copy2.kzm", "/recovery/copy2.kzm"),
                                                Pair("copy3.kzm", "/recovery/copy3.kzm")));
}

TEST_F(RecoveryTest, ADamagedCopyIsToldLosesItsEntryAndGivesWay)
{
    CrashBadly();
    Crash("Desk");
    static_cast<void>(Form.Load({}));
    EXPECT_EQ(World.Messages.Asked()[0].Text,
              "This file is not a Veldrane Professional 2000 Data File. Unable to open file.");
    EXPECT_EQ(World.Messages.Asked()[1].Title, "Recovery Failed");
    EXPECT_EQ(World.Messages.Asked()[1].Text, "Unable to recover lost file. It stays as /recovery/copy1.kzm.");
    EXPECT_EQ(Form.Project().ProjectName(), "Desk");
    EXPECT_TRUE(World.Files.Files.contains("/recovery/copy1.kzm"));
    EXPECT_THAT(World.Recovery.Started, Contains("/recovery/copy1.kzm"));
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy3.kzm", "/recovery/copy3.kzm")));
}

TEST_F(RecoveryTest, WhereNothingCanBeRecoveredTheProgramStartsAsEver)
{
    CrashBadly();
    EXPECT_TRUE(Form.Load({}));
    EXPECT_FALSE(Form.Project().Recovered);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(RecoveryTest, ACopyThatAnotherProgramHoldsIsLeftToIt)
{
    Crash("Desk");
    World.Recovery.HeldByOthers.insert("/recovery/copy1.kzm");
    EXPECT_TRUE(Form.Load({}));
    EXPECT_FALSE(Form.Project().Recovered);
    EXPECT_THAT(Entries(), SizeIs(1));
}

TEST_F(RecoveryTest, BesideAFileThePersonIsAskedAndYesRecovers)
{
    WriteProject("/other.kzm", "Other");
    Crash("Desk");
    World.Messages.Add(Answer::Yes);
    EXPECT_FALSE(Form.Load({.File = "/other.kzm"}));
    ASSERT_THAT(World.Messages.Asked(), SizeIs(1));
    const Question& question = World.Messages.Asked()[0];
    EXPECT_EQ(question.Title, "Recoverable File Detected");
    EXPECT_EQ(question.Text, "There is a file that is able to be recovered from a previous session.\r\n"
                             "You have also chosen to open an existing file.\r\n"
                             "Click 'Yes' to recover the file from the previous session, OR \r\n"
                             "Click 'No' to open the existing file (THE RECOVERABLE FILE WILL BE LOST)\r\n"
                             "Click 'Cancel' to end this application. (The recoverable file will remain intact.)");
    EXPECT_EQ(question.Offered, Buttons::YesNoCancel);
    EXPECT_EQ(Form.Project().ProjectName(), "Desk");
    EXPECT_TRUE(Form.Project().Recovered);
}

TEST_F(RecoveryTest, NoOpensTheFileAndTheEntryGoesInTheEnd)
{
    WriteProject("/other.kzm", "Other");
    Crash("Desk");
    World.Messages.Add(Answer::No);
    EXPECT_FALSE(Form.Load({.File = "/other.kzm"}));
    EXPECT_EQ(Form.Project().ProjectName(), "Other");
    EXPECT_FALSE(Form.Project().Recovered);
    EXPECT_TRUE(Form.QueryUnload());
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(RecoveryTest, CancelEndsTheProgramAndTheEntryStays)
{
    WriteProject("/other.kzm", "Other");
    Crash("Desk");
    World.Messages.Add(Answer::Cancel);
    EXPECT_FALSE(Form.Load({.File = "/other.kzm"}));
    EXPECT_THAT(Windows.Opened, ElementsAre("end"));
    EXPECT_TRUE(Form.QueryUnload());
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm")));
}

TEST_F(RecoveryTest, WhereItFailsThePersonIsAskedForTheFile)
{
    CrashBadly();
    WriteProject("/other.kzm", "Other");
    World.Messages.Add(Answer::Yes); // recover
    World.Messages.Add(Answer::Yes); // that the copy is no project
    World.Messages.Add(Answer::Yes); // open the other
    EXPECT_FALSE(Form.Load({.File = "/other.kzm"}));
    EXPECT_EQ(World.Messages.Asked().back().Title, "Recovery Failed");
    EXPECT_EQ(World.Messages.Asked().back().Text,
              "Unable to recover lost file. Do you want to open the other file you originally wanted?");
    EXPECT_EQ(World.Messages.Asked().back().Offered, Buttons::YesNoCancel);
    EXPECT_EQ(Form.Project().ProjectName(), "Other");
}

TEST_F(RecoveryTest, WhereItFailsTheFileMayBeLeftAlone)
{
    CrashBadly();
    WriteProject("/other.kzm", "Other");
    World.Messages.Add(Answer::Yes);
    World.Messages.Add(Answer::Yes);
    World.Messages.Add(Answer::No);
    EXPECT_TRUE(Form.Load({.File = "/other.kzm"}));
    EXPECT_NE(Form.Project().ProjectName(), "Other");
}

TEST_F(RecoveryTest, WhereItFailsTheProgramMayEnd)
{
    CrashBadly();
    WriteProject("/other.kzm", "Other");
    World.Messages.Add(Answer::Yes);
    World.Messages.Add(Answer::Yes);
    World.Messages.Add(Answer::Cancel);
    EXPECT_FALSE(Form.Load({.File = "/other.kzm"}));
    EXPECT_THAT(Windows.Opened, ElementsAre("end"));
    EXPECT_THAT(Entries(), SizeIs(1));
}

TEST_F(RecoveryTest, ACommandLineThatNamesNoFileIsToldAndTheCopyWaits)
{
    Crash("Desk");
    for (const StartCommand& start : {StartCommand{.File = "/gone.kzm"}, StartCommand{.DebugTiming = true},
                                      StartCommand{.InvalidPath = "/no/where"}}) {
        World.Messages.Forget();
        frmMain form(World.World, Windows, Reading);
        static_cast<void>(form.Load(start));
        EXPECT_EQ(World.Messages.Asked()[0].Text, "The file does not exist. Please restart application.");
        EXPECT_THAT(Entries(), SizeIs(1));
    }
}

TEST_F(RecoveryTest, WithoutASplashFormItIsRecoveredToo)
{
    Crash("Desk");
    EXPECT_FALSE(Form.Load({.NoSplash = true}));
    EXPECT_TRUE(Form.Project().Recovered);
}

TEST_F(RecoveryTest, AnEntryThatCanNotBeDeletedHoldsNothingUp)
{
    Crash("Gone");
    Crash("Desk");
    World.Files.Files.erase("/recovery/copy1.kzm");
    World.UserSettings.Fails = true;
    EXPECT_FALSE(Form.Load({}));
    EXPECT_EQ(Form.Project().ProjectName(), "Desk");
    World.UserSettings.Fails = false;
    Form.Project().SetModified(false);
    EXPECT_TRUE(Form.QueryUnload());
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm")));
}

TEST_F(RecoveryTest, ACopyWhoseOwnerCanNotBeFoundOutIsReportedAndStays)
{
    Crash("Desk");
    World.Recovery.Fails = true;
    EXPECT_TRUE(Form.Load({}));
    EXPECT_FALSE(Form.Project().Recovered);
    EXPECT_THAT(World.Errors.Reported, SizeIs(1));
    EXPECT_THAT(Entries(), SizeIs(1));
}

TEST_F(RecoveryTest, ACopyThatCouldNotBeReadToItsEndLeavesNoProgress)
{
    Crash("Desk");
    std::string& copy = World.Files.Files["/recovery/copy1.kzm"];
    copy.insert(copy.find("End Project"), "MTSEnabled\2perhaps\r\n");
    EXPECT_TRUE(Form.Load({}));
    EXPECT_FALSE(Form.Status().Progress().Visible);
    EXPECT_EQ(Form.Status().Icon(), "");
}

TEST_F(RecoveryTest, WorkThatWasGivenUpHasACopyAgainIfItStaysOpen)
{
    StartOnShop();
    Form.Project().SetModified(true);
    LetAutosaveComeDue();
    World.Messages.Add(Answer::No);
    Form.actbar_Click("Open"); // and Cancel
    EXPECT_THAT(Entries(), IsEmpty());
    Form.tmrAutosave_Timer();
    Form.tmrAutosave_Timer();
    EXPECT_THAT(Entries(), SizeIs(1));
}

TEST_F(RecoveryTest, ACopyMadeOfWorkThatWasGivenUpGoesWithIt)
{
    WriteProject("/other.kzm", "Other");
    StartOnShop();
    Form.Project().SetModified(true);
    World.Messages.Add(Answer::No);
    World.Dialogs.WhileOpen = [this] { LetAutosaveComeDue(); };
    World.Dialogs.Add("/other.kzm");
    Form.actbar_Click("Open");
    EXPECT_EQ(Form.Project().ProjectName(), "Other");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(RecoveryTest, AProjectThatIsLeftTakesItsEntryAlong)
{
    WriteProject("/other.kzm", "Other");
    StartOnShop();
    Form.Project().SetModified(true);
    LetAutosaveComeDue();
    ASSERT_THAT(Entries(), SizeIs(1));
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    World.Dialogs.Add("/other.kzm");
    Form.actbar_Click("Open");
    EXPECT_EQ(Form.Project().ProjectName(), "Other");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(RecoveryTest, ACopyThatCanBeReadInPartAloneKeepsItsEntry)
{
    Crash("Desk");
    std::string& copy = World.Files.Files["/recovery/copy1.kzm"];
    copy.insert(copy.find("End Classes"), "Begin Class Cut\r\nTableName\2Cuts\r\n");
    const std::string before = copy;
    EXPECT_FALSE(Form.Load({}));
    EXPECT_TRUE(Form.Project().Recovered);
    EXPECT_THAT(Entries(),
                ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm"), Pair("copy2.kzm", "/recovery/copy2.kzm")));
    EXPECT_EQ(World.Files.Files["/recovery/copy1.kzm"], before);
}

TEST_F(RecoveryTest, DialogsDoNotBeginInTheFolderOfTheCopies)
{
    Crash("Desk");
    static_cast<void>(Form.Load({}));
    Form.Project().SetModified(false);
    Form.actbar_Click("Open");
    Form.actbar_Click("Save");
    ASSERT_THAT(World.Dialogs.AskedToOpen(), SizeIs(1));
    ASSERT_THAT(World.Dialogs.AskedToSave(), SizeIs(1));
    EXPECT_EQ(World.Dialogs.AskedToOpen()[0].StartFolder, "");
    EXPECT_EQ(World.Dialogs.AskedToSave()[0].StartFolder, "");
    World.Dialogs.Add("/mine/desk.kzm");
    World.Files.Folders.insert("/mine");
    Form.actbar_Click("Save");
    Form.actbar_Click("SaveAs");
    EXPECT_EQ(World.Dialogs.AskedToSave().back().StartFolder, "/mine");
    EXPECT_EQ(World.Dialogs.AskedToSave().back().DefaultName, "desk.kzm");
}

} // namespace
} // namespace veldrane
