#include "projectfile/file_management.h"
#include "projectfile/project_dialogs.h"
#include "support/failing_file_system.h"
#include "support/recorded_errors.h"
#include "support/recorded_loading_form.h"
#include "support/recorded_pointer.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kPath = "/projects/Orders.kzm";

// A project that a person chooses the files of.
class ChosenFiles : public ::testing::Test
{
  protected:
    ChosenFiles()
    {
        files_.Folders.insert({"/projects", "/other"});
        project_.Clear();
        project_.VBProjectName = "OrderDesk";
        project_.SetModified(true);
    }

    void Choose(const std::vector<std::optional<std::string>>& choices)
    {
        for (const auto& choice : choices)
            dialogs_.Add(choice);
    }

    bool Save(SaveKind kind = SaveKind::Normal) { return management_.SaveProject(project_, classes_, kind); }

    void Listen()
    {
        connections_.push_back(management_.ProjectSavedSuccessfully.Connect([&] { events_.emplace_back("saved"); }));
        connections_.push_back(
            management_.SavingProject.Connect([&](int value) { events_.push_back(std::to_string(value)); }));
        connections_.push_back(
            management_.ProjectSaveFailed.Connect([&](const std::string& text) { events_.push_back(text); }));
        connections_.push_back(
            management_.SetMinMaxProgress.Connect([&](int, int, int) { events_.emplace_back("range"); }));
    }

    testing::FailingFileSystem files_;
    testing::ScriptedMessages messages_;
    testing::RecordedErrors errors_;
    text::CodePage codePage_;
    testing::ScriptedFileDialogs dialogs_;
    testing::RecordedPointer pointer_;
    testing::RecordedLoadingForm loading_;
    TTCFileManagement management_{
        files_, messages_, errors_, codePage_, {.Dialogs = dialogs_, .Pointer = pointer_, .Loading = loading_}};
    TTCProject project_;
    KZMClasses classes_;
    std::vector<std::string> events_;
    std::vector<Connection> connections_;
};

TEST_F(ChosenFiles, AProjectWithoutAFileAsksForOne)
{
    Choose({kPath});
    Listen();
    EXPECT_TRUE(Save());
    ASSERT_EQ(dialogs_.AskedToSave().size(), 1U);
    const FileDialogRequest& asked = dialogs_.AskedToSave().front();
    EXPECT_EQ(asked.Title, "Save Project As");
    EXPECT_EQ(asked.Filter, "Veldrane Project|*.kzm|All Files|*.*");
    EXPECT_EQ(asked.DefaultExtension, "hir");
    EXPECT_EQ(asked.StartFolder, "");
    EXPECT_EQ(asked.DefaultName, "OrderDesk.kzm");
    EXPECT_EQ(project_.FullPath, kPath);
    EXPECT_EQ(project_.FileName, "Orders.kzm");
    EXPECT_FALSE(project_.Modified());
    EXPECT_TRUE(files_.Files.contains(kPath));
    EXPECT_THAT(events_, ElementsAre("0", "1", "10", "100", "saved"));
}

TEST_F(ChosenFiles, SaveAsStartsWhereTheProjectLies)
{
    project_.FullPath = kPath;
    project_.FileName = "Orders.kzm";
    Choose({"/other/Copy.kzm"});
    EXPECT_TRUE(Save(SaveKind::SaveAs));
    const FileDialogRequest& asked = dialogs_.AskedToSave().front();
    EXPECT_EQ(asked.StartFolder, "/projects");
    EXPECT_EQ(asked.DefaultName, "Orders.kzm");
    EXPECT_EQ(project_.FullPath, "/other/Copy.kzm");
    EXPECT_EQ(project_.FileName, "Copy.kzm");
}

TEST_F(ChosenFiles, SaveAsMakesNoBackup)
{
    files_.Files[kPath] = "former";
    Choose({kPath});
    EXPECT_TRUE(Save(SaveKind::SaveAs));
    EXPECT_NE(files_.Files[kPath], "former");
    EXPECT_FALSE(files_.Files.contains("/projects/Orders.bak"));
}

TEST_F(ChosenFiles, ANameOfAnyEndingIsTaken)
{
    Choose({"/projects/Orders.hir"});
    EXPECT_TRUE(Save());
    EXPECT_TRUE(files_.Files.contains("/projects/Orders.hir"));
}

TEST_F(ChosenFiles, ACancelledSaveAsKeepsTheNamesAndTheFlag)
{
    project_.FullPath = kPath;
    project_.FileName = "Orders.kzm";
    Listen();
    EXPECT_FALSE(Save(SaveKind::SaveAs));
    EXPECT_EQ(project_.FullPath, kPath);
    EXPECT_EQ(project_.FileName, "Orders.kzm");
    EXPECT_TRUE(project_.Modified());
    EXPECT_THAT(files_.Files, IsEmpty());
    EXPECT_THAT(events_, IsEmpty());
    EXPECT_THAT(errors_.Reported, IsEmpty());
}

TEST_F(ChosenFiles, AFailedSaveAsKeepsTheNamesAndTheFlag)
{
    project_.FullPath = kPath;
    project_.FileName = "Orders.kzm";
    files_.FailAtCall = 1;
    Choose({"/other/Copy.kzm"});
    Listen();
    EXPECT_FALSE(Save(SaveKind::SaveAs));
    EXPECT_EQ(project_.FullPath, kPath);
    EXPECT_EQ(project_.FileName, "Orders.kzm");
    EXPECT_TRUE(project_.Modified());
    EXPECT_THAT(events_, ElementsAre("0", "1", "10", "Unable to save file. Please try again."));
    ASSERT_EQ(errors_.Reported.size(), 1U);
    EXPECT_EQ(errors_.Reported[0].Place.ModuleName, "TTCFileManagement");
    EXPECT_EQ(errors_.Reported[0].Place.RoutineName, "SaveProject");
    EXPECT_THAT(errors_.Reported[0].Error.Description(), HasSubstr("/other/Copy.kzm"));
}

TEST_F(ChosenFiles, AProjectThatGotItsFileIsSavedOverItFromThenOn)
{
    Choose({kPath});
    ASSERT_TRUE(Save());
    EXPECT_TRUE(Save());
    EXPECT_EQ(dialogs_.AskedToSave().size(), 1U);
    EXPECT_TRUE(files_.Files.contains("/projects/Orders.bak"));
}

TEST_F(ChosenFiles, TheFirstSaveOfARecoveredProjectAsksForAName)
{
    project_.Recovered = true;
    project_.FullPath = "/recovery/1-abc.kzm";
    project_.FileName = "1-abc.kzm";
    Choose({std::nullopt, kPath});
    EXPECT_FALSE(Save());
    EXPECT_TRUE(Save());
    EXPECT_TRUE(Save());
    ASSERT_EQ(dialogs_.AskedToSave().size(), 2U);
    EXPECT_EQ(dialogs_.AskedToSave().front().StartFolder, "");
    EXPECT_EQ(dialogs_.AskedToSave().front().DefaultName, "");
    EXPECT_EQ(project_.FullPath, kPath);
    EXPECT_TRUE(project_.Recovered);
}

TEST_F(ChosenFiles, ThePointerIsAnHourglassWhileAFileIsReadOrWritten)
{
    Choose({kPath});
    ASSERT_TRUE(Save());
    EXPECT_THAT(pointer_.Shown, ElementsAre(PointerShape::Hourglass, PointerShape::Default));
    ASSERT_TRUE(management_.OpenProject(project_, classes_, kPath));
    files_.FailingPaths.insert(kPath);
    EXPECT_FALSE(Save());
    EXPECT_EQ(pointer_.Shown.size(), 6U);
    EXPECT_EQ(pointer_.Current, PointerShape::Default);
}

TEST_F(ChosenFiles, OpeningWithoutANameAsksForAFile)
{
    Choose({kPath, kPath});
    ASSERT_TRUE(Save());
    TTCProject opened;
    opened.FullPath = "/other/Former.kzm";
    EXPECT_TRUE(management_.OpenProject(opened, classes_, ""));
    ASSERT_EQ(dialogs_.AskedToOpen().size(), 1U);
    const FileDialogRequest& asked = dialogs_.AskedToOpen().front();
    EXPECT_EQ(asked.Title, "Open Project");
    EXPECT_EQ(asked.Filter, "Veldrane Project|*.kzm|All Files|*.*");
    EXPECT_EQ(asked.DefaultExtension, "kzm");
    EXPECT_EQ(asked.StartFolder, "/other");
    EXPECT_EQ(opened.FullPath, kPath);
    EXPECT_EQ(opened.FileName, "Orders.kzm");
}

TEST_F(ChosenFiles, OpeningThatIsCancelledSaysNothing)
{
    EXPECT_FALSE(management_.OpenProject(project_, classes_, ""));
    EXPECT_EQ(dialogs_.AskedToOpen().front().StartFolder, "");
    EXPECT_THAT(messages_.Asked(), IsEmpty());
    EXPECT_THAT(errors_.Reported, IsEmpty());
    EXPECT_THAT(loading_.Log, IsEmpty());
}

TEST_F(ChosenFiles, TheLoadingFormSaysWhatIsBeingOpened)
{
    Choose({kPath});
    ASSERT_TRUE(Save());
    ASSERT_TRUE(management_.OpenProject(project_, classes_, kPath));
    EXPECT_THAT(loading_.Log,
                ElementsAre("Opening Datasource Connection...Please wait", "shown", "Opening Project...", "hidden"));
}

TEST_F(ChosenFiles, TheLoadingFormGoesAwayWhenOpeningFails)
{
    files_.Files[kPath] = "Veldrane Professional 2000 Data File\r\n";
    EXPECT_FALSE(management_.OpenProject(project_, classes_, kPath));
    EXPECT_EQ(loading_.Current, Visibility::Hidden);
    loading_.Log.clear();
    files_.Files[kPath] = "something else";
    EXPECT_FALSE(management_.OpenProject(project_, classes_, kPath));
    EXPECT_THAT(loading_.Log, IsEmpty());
}

TEST(ProjectDialogs, StartInTheFolderOfAPath)
{
    EXPECT_EQ(OpenProjectRequest("/a.kzm").StartFolder, "/");
    EXPECT_EQ(OpenProjectRequest("a.kzm").StartFolder, "");
    EXPECT_EQ(OpenProjectRequest("/p/C:\\x\\a.kzm").StartFolder, "/p/C:\\x");
}

TEST(ProjectDialogs, ProposeNoOtherFolderByName)
{
    TTCProject project;
    project.VBProjectName = "../../etc/passwd";
    EXPECT_EQ(SaveProjectRequest(project).DefaultName, "passwd.kzm");
    project.VBProjectName = "";
    EXPECT_EQ(SaveProjectRequest(project).DefaultName, "");
}

} // namespace
} // namespace veldrane
