#include "projectfile/file_management.h"

#include "projectfile/project_reader.h"
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
using veldrane::testing::FailingFileSystem;
using veldrane::testing::RecordedErrors;
using veldrane::testing::ScriptedMessages;

const std::string kPath = "/projects/Orders.kzm";
const std::string kHeader = "Veldrane Professional 2000 Data File\r\n";

class FileManagement : public ::testing::Test
{
  protected:
    FileManagement()
    {
        files_.Folders.insert("/projects");
        project_.Clear();
    }

    bool OpenBytes(const std::string& bytes)
    {
        files_.Files[kPath] = bytes;
        return management_.OpenProject(project_, classes_, kPath);
    }

    bool Save()
    {
        project_.FullPath = kPath;
        return management_.SaveProject(project_, classes_);
    }

    void AddClass(const std::string& name)
    {
        const auto item = std::make_shared<KZMClass>();
        item->ClassName = name;
        classes_.AddExisting(item, name);
    }

    // Writes down every event of the file manager and the project, in their order.
    void Listen()
    {
        connections_.push_back(management_.ProjectSavedSuccessfully.Connect([&] { events_.emplace_back("saved"); }));
        connections_.push_back(
            management_.SavingProject.Connect([&](int value) { events_.push_back(std::to_string(value)); }));
        connections_.push_back(
            management_.ProjectSaveFailed.Connect([&](const std::string& text) { events_.push_back(text); }));
        connections_.push_back(management_.SetMinMaxProgress.Connect([&](int minimum, int maximum, int value) {
            events_.push_back(std::to_string(minimum) + "-" + std::to_string(maximum) + "@" + std::to_string(value));
        }));
        connections_.push_back(classes_.NewClassAdded.Connect([&](const auto& name) { events_.push_back(name); }));
        connections_.push_back(project_.ProjectModified.Connect([&] { events_.emplace_back("modified"); }));
    }

    FailingFileSystem files_;
    ScriptedMessages messages_;
    RecordedErrors errors_;
    text::CodePage codePage_;
    testing::ScriptedFileDialogs dialogs_;
    testing::RecordedPointer pointer_;
    testing::RecordedLoadingForm loading_;
    FileWindows windows_{.Dialogs = dialogs_, .Pointer = pointer_, .Loading = loading_};
    TTCFileManagement management_{files_, messages_, errors_, codePage_, windows_};
    TTCProject project_;
    KZMClasses classes_;
    std::vector<std::string> events_;
    std::vector<Connection> connections_;
};

TEST_F(FileManagement, TellsOfAMissingFile)
{
    EXPECT_FALSE(management_.OpenProject(project_, classes_, "/projects/gone.kzm"));
    ASSERT_EQ(messages_.Asked().size(), 1U);
    EXPECT_EQ(messages_.Asked()[0].Title, "Unable to open file");
    EXPECT_EQ(messages_.Asked()[0].Text, "Unable to open file: /projects/gone.kzm\r\nFile no longer exists.");
    EXPECT_THAT(errors_.Reported, IsEmpty());
    EXPECT_EQ(project_.FullPath, "");
}

TEST_F(FileManagement, RefusesAFileOfAnotherKindAndChangesNothing)
{
    for (const std::string& bytes :
         {std::string(), std::string("\r\n") + kHeader, std::string("veldrane professional 2000 data file\r\n"),
          std::string("\xEF\xBB\xBF") + kHeader, std::string("MZ\0\0\2", 5)}) {
        Listen();
        EXPECT_FALSE(OpenBytes(bytes));
        EXPECT_EQ(messages_.Asked().back().Title, "Invalid File");
        EXPECT_EQ(messages_.Asked().back().Text,
                  "This file is not a Veldrane Professional 2000 Data File. Unable to open file.");
    }
    EXPECT_EQ(messages_.Asked().size(), 5U);
    EXPECT_THAT(errors_.Reported, IsEmpty());
    EXPECT_THAT(events_, IsEmpty());
    EXPECT_EQ(project_.FullPath + project_.FileName, "");
}

TEST_F(FileManagement, ReportsAFileThatCanNotBeReadAndChangesNothing)
{
    files_.Files[kPath] = kHeader;
    files_.UnreadablePaths.insert(kPath);
    for (const std::string& path : {kPath, std::string("/projects")}) {
        EXPECT_FALSE(management_.OpenProject(project_, classes_, path));
        ASSERT_FALSE(errors_.Reported.empty());
        EXPECT_EQ(errors_.Reported.back().Place.ModuleName, "TTCFileManagement");
        EXPECT_EQ(errors_.Reported.back().Place.RoutineName, "OpenProject");
        EXPECT_THAT(errors_.Reported.back().Error.Description(), HasSubstr(path));
    }
    EXPECT_EQ(errors_.Reported.size(), 2U);
    EXPECT_THAT(messages_.Asked(), IsEmpty());
    EXPECT_EQ(project_.FullPath + project_.FileName, "");
    EXPECT_FALSE(classes_.LoadingProject);
}

TEST_F(FileManagement, RaisesTheEventsOfOpeningInOrder)
{
    AddClass("Order");
    AddClass("Customer");
    ASSERT_TRUE(Save());
    classes_.Clear();
    project_.SetModified(true);
    Listen();
    ASSERT_TRUE(management_.OpenProject(project_, classes_, kPath));
    // Of 26 lines the classes end at the 13th and the 25th. No class is announced while a file is read.
    EXPECT_THAT(events_,
                ElementsAre("1-100@1", "0", "1", "10", "25", "50", "1-52@26", "39", "51", "1-100@1", "100", "saved"));
    EXPECT_FALSE(project_.Modified());
}

TEST_F(FileManagement, MarksTheClassesAsLoadingWhileItReads)
{
    AddClass("Order");
    ASSERT_TRUE(Save());
    classes_.Clear();
    std::vector<bool> loading;
    const Connection progress =
        management_.SavingProject.Connect([&](int) { loading.push_back(classes_.LoadingProject); });
    const Connection end =
        management_.ProjectSavedSuccessfully.Connect([&] { loading.push_back(classes_.LoadingProject); });
    ASSERT_TRUE(management_.OpenProject(project_, classes_, kPath));
    EXPECT_THAT(loading, ElementsAre(false, false, true, true, true, true, true, false));
}

TEST_F(FileManagement, AssignsTheConnectionStringLast)
{
    std::vector<std::string> seen;
    const Connection listener = project_.ProjectConnectionChanged.Connect([&](const std::string& text) {
        seen = {text, project_.DataSourceLogin, project_.UseADOR ? "ADOR" : ""};
    });
    EXPECT_TRUE(OpenBytes(kHeader + "\r\nBegin Project\r\nConnectionString\2DSN=A;\r\nDataSourceLogin\2reader\r\n"
                                    "ConnectionString\2DSN=B;\r\nUseADOR\2True\r\nEnd Project\r\n\r\n"
                                    "Begin Classes\r\nEnd Classes\r\n"));
    EXPECT_THAT(seen, ElementsAre("DSN=B;", "reader", "ADOR"));
}

TEST_F(FileManagement, EndsWithAReportAtABadValueOfTheProject)
{
    for (const std::string& line : {std::string("LoggingLevel\2many"), std::string("VBVersion\2"),
                                    std::string("UseADOR\2perhaps"), std::string("LoggingLevel\2") + "99999999999"}) {
        EXPECT_FALSE(OpenBytes(kHeader + "Begin Project\r\nConnectionString\2DSN=A;\r\n" + line +
                               "\r\nEnd Project\r\nBegin Classes\r\nBegin Class A\r\nEnd Class A\r\nEnd Classes\r\n"));
        EXPECT_EQ(errors_.Reported.back().Place.RoutineName, "OpenProject");
        EXPECT_FALSE(classes_.LoadingProject);
    }
    EXPECT_EQ(errors_.Reported.size(), 4U);
    EXPECT_EQ(project_.ConnectionString(), "");
    EXPECT_EQ(classes_.Count(), 0U);
}

TEST_F(FileManagement, KeepsTheClassesBeforeAFailureAmongThem)
{
    const std::string project = kHeader + "Begin Project\r\nAuthor\2A\r\nEnd Project\r\nBegin Classes\r\n";
    EXPECT_TRUE(OpenBytes(project + "Begin Class A\r\nEnd Class A\r\n"
                                    "Begin Class B\r\nBegin Property P\r\nMaxLength\2x\r\nEnd Property P\r\n"
                                    "End Class B\r\nBegin Class C\r\nEnd Class C\r\nEnd Classes\r\n"));
    ASSERT_EQ(errors_.Reported.size(), 1U);
    EXPECT_EQ(errors_.Reported[0].Place.ModuleName, "TTCFileManagement");
    EXPECT_EQ(errors_.Reported[0].Place.RoutineName, "ReadClassInfo");
    EXPECT_EQ(classes_.Count(), 1U);
    EXPECT_EQ(classes_.Item(1)->ClassName, "A");
}

TEST_F(FileManagement, NamesTheFileTheClassAndTheKeyOfABadValue)
{
    EXPECT_FALSE(OpenBytes(kHeader + "Begin Project\r\nUseADOR\2perhaps\r\nEnd Project\r\n"));
    EXPECT_EQ(errors_.Reported.back().Error.Description(),
              "/projects/Orders.kzm: UseADOR: Type mismatch: 'perhaps' is neither True nor False.");
    EXPECT_EQ(errors_.Reported.back().Error.Number, error_number::kTypeMismatch);

    const std::string classes = kHeader + "Begin Project\r\nAuthor\2A\r\nEnd Project\r\nBegin Classes\r\n"
                                          "Begin Class Order\r\nBegin Property P\r\n";
    EXPECT_TRUE(OpenBytes(classes + "MaxLength\2x\r\nEnd Property P\r\nEnd Class Order\r\nEnd Classes\r\n"));
    EXPECT_EQ(errors_.Reported.back().Error.Description(),
              "/projects/Orders.kzm: class 'Order': MaxLength: Type mismatch: 'x' is not a number.");
    EXPECT_TRUE(OpenBytes(classes + "End Classes\r\n"));
    EXPECT_EQ(errors_.Reported.back().Error.Description(),
              "/projects/Orders.kzm: class 'Order': The section of classes ends in the middle of a block.");
}

TEST_F(FileManagement, TellsWhetherClassesOfTheFileAreMissing)
{
    const std::string project = kHeader + "Begin Project\r\nAuthor\2A\r\nEnd Project\r\nBegin Classes\r\n";
    EXPECT_TRUE(OpenBytes(project + "Begin Class A\r\nEnd Class A\r\nEnd Classes\r\n"));
    EXPECT_FALSE(management_.LostClasses());
    EXPECT_TRUE(OpenBytes(project + "Begin Class B\r\nEnd Classes\r\n"));
    EXPECT_TRUE(management_.LostClasses());
    EXPECT_TRUE(OpenBytes(project + "End Classes\r\n"));
    EXPECT_FALSE(management_.LostClasses());
}

TEST_F(FileManagement, GivesAMethodThatIsAStoredProcedureOne)
{
    ASSERT_TRUE(OpenBytes(kHeader + "Begin Project\r\nAuthor\2A\r\nEnd Project\r\nBegin Classes\r\nBegin Class A\r\n"
                                    "Begin Method M\r\nMethodIsSP\2True\r\nEnd Method M\r\n"
                                    "End Class A\r\nEnd Classes\r\n"));
    EXPECT_NE(classes_.Item("A")->TTCMethods.Item("M")->StoredProcedure, nullptr);
}

TEST_F(FileManagement, ReadsTheProjectAloneFromAText)
{
    LineStream stream(kHeader + "Begin Project\r\nProjectName\2Order Desk\r\nEnd Project\r\nbehind\r\n");
    TTCProject scratch;
    TTCFileManagement::ReadProjectInfo(stream, scratch);
    EXPECT_EQ(scratch.ProjectName(), "Order Desk");
    EXPECT_EQ(stream.ReadLine(), "behind");
}

TEST_F(FileManagement, WritesTheSmallestProject)
{
    TTCProject project;
    project.FullPath = kPath;
    project.SetProjectName("P");
    ASSERT_TRUE(management_.SaveProject(project, classes_));
    const std::string& bytes = files_.Files[kPath];
    EXPECT_TRUE(bytes.starts_with(kHeader + "\r\nBegin Project\r\nProjectName\2P\r\nProjectDescription\2\r\n"));
    EXPECT_TRUE(bytes.ends_with("PrefixVariant\2\r\nEnd Project\r\n\r\nBegin Classes\r\nEnd Classes\r\n"));
}

TEST_F(FileManagement, NeverWritesAPassword)
{
    project_.DataSourcePassword = "hidden";
    project_.DataSourceDatabasePassword = "hidden";
    project_.AttachedSPs.Add("hidden", "hidden");
    project_.TempFileName = "hidden";
    ASSERT_TRUE(Save());
    EXPECT_EQ(files_.Files[kPath].find("hidden"), std::string::npos);
}

TEST_F(FileManagement, RaisesTheEventsOfSavingInOrder)
{
    project_.SetModified(true);
    Listen();
    ASSERT_TRUE(Save());
    EXPECT_THAT(events_, ElementsAre("0", "1-100@1", "1", "10", "100", "saved"));
    EXPECT_FALSE(project_.Modified());
}

TEST_F(FileManagement, KeepsTheFormerFileBesideTheNewOne)
{
    ASSERT_TRUE(Save());
    EXPECT_FALSE(files_.Files.contains("/projects/Orders.bak"));
    const std::string former = files_.Files[kPath];
    project_.Author = "Somebody";
    ASSERT_TRUE(Save());
    EXPECT_EQ(files_.Files["/projects/Orders.bak"], former);
    EXPECT_NE(files_.Files[kPath], former);
}

TEST_F(FileManagement, SweepsUpBesideTheFileThatItWrites)
{
    ASSERT_TRUE(Save());
    EXPECT_THAT(files_.Swept, ElementsAre("/projects/"));
}

TEST_F(FileManagement, ReplacesTheEndingWhereverItStandsInThePath)
{
    files_.Folders.insert("/a.kzm");
    files_.Folders.insert("/a.bak");
    project_.FullPath = "/a.kzm/b.kzm";
    ASSERT_TRUE(management_.SaveProject(project_, classes_));
    ASSERT_TRUE(management_.SaveProject(project_, classes_));
    EXPECT_TRUE(files_.Files.contains("/a.bak/b.bak"));
}

TEST_F(FileManagement, CanNotSaveOverAFileWithoutTheEnding)
{
    for (const std::string path : {"/projects/Orders.txt", "/projects/Orders.KZM"}) {
        files_.Files[path] = "former";
        project_.FullPath = path;
        project_.SetModified(true);
        EXPECT_FALSE(management_.SaveProject(project_, classes_));
        EXPECT_EQ(files_.Files[path], "former");
        EXPECT_EQ(errors_.Reported.back().Place.RoutineName, "SaveProject");
    }
    EXPECT_TRUE(project_.Modified());
}

TEST_F(FileManagement, LeavesFileAndFlagWhenItCanNotWrite)
{
    ASSERT_TRUE(Save());
    const std::string former = files_.Files[kPath];
    for (const int failingCall : {1, 2}) { // the backup, the file
        project_.Author = "Somebody";
        project_.SetModified(true);
        events_.clear();
        connections_.clear();
        Listen();
        files_.Calls = 0;
        files_.FailAtCall = failingCall;
        EXPECT_FALSE(Save());
        EXPECT_EQ(files_.Files[kPath], former);
        EXPECT_TRUE(project_.Modified());
        EXPECT_EQ(events_.back(), "Unable to save file. Please try again.");
        EXPECT_EQ(errors_.Reported.back().Place.ModuleName, "TTCFileManagement");
        EXPECT_EQ(errors_.Reported.back().Place.RoutineName, "SaveProject");
    }
    EXPECT_EQ(errors_.Reported.size(), 2U);
}

TEST_F(FileManagement, LeavesTheBackupWhenTheFormerFileCanNotBeRead)
{
    ASSERT_TRUE(Save());
    files_.Files["/projects/Orders.bak"] = "older";
    files_.UnreadablePaths.insert(kPath);
    EXPECT_FALSE(Save());
    EXPECT_EQ(files_.Files["/projects/Orders.bak"], "older");
}

TEST_F(FileManagement, TellsOnceOfCharactersThatTheCodePageLacks)
{
    project_.Author = "Жук";
    project_.ProjectDescription = "Größe";
    AddClass("Łódź");
    ASSERT_TRUE(Save());
    EXPECT_THAT(files_.Files[kPath], HasSubstr("Author\2???\r\n"));
    EXPECT_THAT(files_.Files[kPath], HasSubstr("ProjectDescription\2Gr\xF6\xDF"
                                               "e\r\n"));
    ASSERT_EQ(messages_.Asked().size(), 1U);
    EXPECT_EQ(messages_.Asked()[0].Text,
              "/projects/Orders.kzm was saved, but code page 1252 lacks characters that were written as \"?\":\r\n"
              "Author: Жук\r\nBegin Class Łódź\r\nEnd Class Łódź");
}

TEST_F(FileManagement, NamesTenOfManyLinesThatLost)
{
    for (int i = 0; i < 20; ++i)
        project_.AttachedTables.Add("Ж" + std::to_string(i), std::to_string(i));
    project_.Author = "Ж" + std::string(1000, 'x');
    ASSERT_TRUE(Save());
    const std::string told = messages_.Asked().at(0).Text;
    EXPECT_TRUE(told.ends_with("Table: Ж8\r\nand 11 more")) << told;
    EXPECT_THAT(told, HasSubstr("Author: Ж" + std::string(71, 'x') + "\r\n"));
}

TEST_F(FileManagement, ReadsAndWritesInTheCodePageItIsGiven)
{
    const text::CodePage cyrillic(1251);
    TTCFileManagement management(files_, messages_, errors_, cyrillic, windows_);
    project_.Author = "Жук";
    project_.FullPath = kPath;
    ASSERT_TRUE(management.SaveProject(project_, classes_));
    EXPECT_THAT(files_.Files[kPath], HasSubstr("Author\2\xC6\xF3\xEA\r\n"));
    TTCProject read;
    ASSERT_TRUE(management.OpenProject(read, classes_, kPath));
    EXPECT_EQ(read.Author, "Жук");
    EXPECT_THAT(messages_.Asked(), IsEmpty());
}

TEST_F(FileManagement, TakesTheNameBehindTheLastSlashOfEitherKind)
{
    for (const std::string path : {"/projects/a.kzm", "/projects/C:\\x\\a.kzm"}) {
        files_.Files[path] = kHeader + "Begin Project\r\nAuthor\2A\r\nEnd Project\r\nBegin Classes\r\nEnd Classes\r\n";
        TTCProject project;
        ASSERT_TRUE(management_.OpenProject(project, classes_, path));
        EXPECT_EQ(project.FileName, "a.kzm");
        EXPECT_EQ(project.FullPath, path);
    }
}

TEST_F(FileManagement, DoesNotSaveEnumerations)
{
    AddClass("Order");
    classes_.Item("Order")->Enumerations.Add("Kind", "Kind")->EnumValues.Add("Small", std::int64_t{1}, "Small");
    ASSERT_TRUE(Save());
    classes_.Clear();
    TTCProject read;
    ASSERT_TRUE(management_.OpenProject(read, classes_, kPath));
    EXPECT_EQ(classes_.Item("Order")->Enumerations.Count(), 0U);
}

} // namespace
} // namespace veldrane
