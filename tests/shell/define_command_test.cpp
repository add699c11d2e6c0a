#include "program.h"

#include "shell/entry.h"
#include "text/strings.h"

#include <gmock/gmock.h>

#include <sstream>

namespace veldrane {
namespace {

using testing::Ended;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::Program;
using ::testing::StartsWith;

constexpr char kNotes[] =
    "CREATE TABLE Notes (NoteID INTEGER PRIMARY KEY AUTOINCREMENT, Title VARCHAR(50) NOT NULL, Body TEXT);"
    "CREATE TABLE Tags (Tag VARCHAR(20) NOT NULL PRIMARY KEY, NoteID INTEGER REFERENCES Notes (NoteID));"
    "CREATE VIEW Recent AS SELECT NoteID, Title FROM Notes;";

struct Define : ::testing::Test
{
    Ended Run(const std::vector<std::string>& more)
    {
        std::vector<std::string> arguments{"define", Workspace.Path("Desk.kzm")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Workspace.Run(arguments);
    }

    // The value line of a project file.
    static std::string Line(const std::string& key, const std::string& value)
    {
        return "\r\n" + key + "\2" + value + "\r\n";
    }

    std::string File() { return Workspace.ReadFile("Desk.kzm"); }

    // The lines of one class in the file.
    std::string ClassBlock(const std::string& className)
    {
        const std::string file = File();
        const std::size_t begin = file.find("Begin Class " + className + "\r\n");
        const std::size_t end = file.find("End Class " + className + "\r\n");
        return begin == std::string::npos ? "" : file.substr(begin, end - begin);
    }

    Program Workspace;
    std::string Notes = Workspace.MakeDatabase("notes.db", kNotes);
};

TEST_F(Define, ShowsItsStagesOnATerminalAndNothingInAPipe)
{
    const std::vector<std::string> words{"define", Workspace.Path("Desk.kzm"), "--connection", Notes, "--all"};
    std::ostringstream output;
    std::ostringstream watched;
    EXPECT_EQ(RunProgram(words, {.Output = output, .ErrorOutput = watched, .ErrorOutputIsTerminal = true}), 0);
    EXPECT_THAT(watched.str(), StartsWith("[  0%] Connecting to the data source\n[  0%] Reading the catalog\n"));
    EXPECT_THAT(watched.str(), ::testing::EndsWith("[100%] The project is in " + Workspace.Path("Desk.kzm") + "\n"));
    EXPECT_EQ(Workspace.Run(words).ErrorOutput, "");
}

TEST_F(Define, MakesAProjectFromEveryTable)
{
    const Ended ended = Run({"--connection", Notes, "--all"});
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    EXPECT_EQ(ended.Output, "");
    EXPECT_THAT(File(), StartsWith("Veldrane Professional 2000 Data File\r\n\r\nBegin Project\r\n"));
    EXPECT_THAT(File(), HasSubstr(Line("VBProjectName", "Desk")));
    EXPECT_THAT(File(), HasSubstr(Line("FileName", "Desk.kzm")));
    EXPECT_THAT(File(), HasSubstr(Line("FullPath", Workspace.Path("Desk.kzm"))));
    EXPECT_THAT(ClassBlock("Note"), HasSubstr(Line("TableName", "Notes")));
    EXPECT_THAT(ClassBlock("Tag"), HasSubstr(Line("ParentClassName", "Note")));
    EXPECT_EQ(ClassBlock("Recent"), "") << "--all takes tables alone";
}

TEST_F(Define, GivesANewProjectTheClassForComponentServices)
{
    EXPECT_EQ(Run({}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("xmlAssist"), HasSubstr("IsMTSRequiredClass\2True"));
    EXPECT_EQ(Run({"--set", "MTSEnabled=False"}).ExitCode, 0);
    EXPECT_EQ(ClassBlock("xmlAssist"), "");
    EXPECT_EQ(Run({"--set", "MTSEnabled=True"}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("xmlAssist"), HasSubstr("Begin Property Document\r\n"));
}

TEST_F(Define, SaysWhenAClassHasTheNameThatComponentServicesNeed)
{
    const std::string connection = Workspace.MakeDatabase("own.db", "CREATE TABLE xmlAssist (ID INTEGER PRIMARY KEY);");
    EXPECT_EQ(Run({"--connection", connection, "--set", "MTSEnabled=False", "--all"}).ExitCode, 0);
    const std::string before = File();
    const Ended ended = Run({"--set", "MTSEnabled=True"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("component services need the name xmlAssist"));
    EXPECT_EQ(File(), before);
}

TEST_F(Define, KeepsTheFactsOfTheConnection)
{
    EXPECT_EQ(Run({"--connection", text::ReplaceAll(Notes, "PROVIDER=MSDASQL;", "")}).ExitCode, 0);
    EXPECT_THAT(File(), HasSubstr(Line("ConnectionString", Notes)));
    EXPECT_THAT(File(), HasSubstr(Line("DataSourceDriver", "SQLite3")));
    EXPECT_THAT(File(), HasSubstr(Line("DataSourceDatabaseName", Workspace.Path("notes.db"))));
}

TEST_F(Define, MakesAReadOnlyClassFromAView)
{
    EXPECT_EQ(Run({"--connection", Notes, "--table", "Recent"}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("Recent"), HasSubstr("ReadOnly\2True"));
    EXPECT_THAT(ClassBlock("Recent"), Not(HasSubstr("Begin Method Update")));
}

TEST_F(Define, PutsLookupsAndChildrenWhereItIsTold)
{
    EXPECT_EQ(Run({"--connection", Notes, "--lookup", "Notes", "--table", "Tags"}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("IsDomainTable\2True"));
    EXPECT_THAT(ClassBlock("Tag"), HasSubstr(Line("ParentClassName", "")));
}

TEST_F(Define, GivesRootClassesACollectionOnlyIfAsked)
{
    EXPECT_EQ(Run({"--connection", Notes, "--table", "Notes"}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("Note"), Not(HasSubstr("CreateCollection")));
    std::filesystem::remove(Workspace.Path("Desk.kzm"));
    EXPECT_EQ(Run({"--connection", Notes, "--table", "Notes", "--collections"}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("CreateCollection\2True"));
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("Begin Method RetrieveList\r\n"));
}

TEST_F(Define, TellsTheRowIdentifierFromTheCommandLine)
{
    EXPECT_EQ(Run({"--connection", Notes, "--table", "Notes"}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("RetrieveByIdentityCol\2True"));
    EXPECT_THAT(ClassBlock("Note"), Not(HasSubstr("RetrieveByPrimaryKey")));
    std::filesystem::remove(Workspace.Path("Desk.kzm"));
    EXPECT_EQ(Run({"--connection", Notes, "--table", "Notes", "--by", "primary-key"}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("RetrieveByPrimaryKey\2True"));
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("DeleteByPrimaryKey\2True"));
}

TEST_F(Define, IsSilentWhereTheCommandLineHasTheAnswers)
{
    const Ended ended = Run({"--connection", Notes, "--table", "Notes"});
    EXPECT_EQ(ended.Output + ended.ErrorOutput, "");
}

TEST_F(Define, ShowsOnATerminalWhatItDoesFromTheFirstStepOn)
{
    ASSERT_EQ(Run({"--connection", Notes, "--all"}).ExitCode, 0);
    const std::string path = Workspace.Path("Desk.kzm");
    const Ended ended = Workspace.RunOnTerminal({"define", path});
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_THAT(ended.ErrorOutput, StartsWith("[  0%] Reading the project " + path +
                                              "\n[  0%] Connecting to the data source\n[  0%] Reading the catalog\n"));
    EXPECT_THAT(ended.ErrorOutput, EndsWith("[100%] The project is in " + path + "\n"));
    EXPECT_EQ(ended.Output, "");
}

TEST_F(Define, PrintsAQuestionWithTheAnswerTaken)
{
    Run({"--connection", Notes, "--table", "Tags"});
    Workspace.MakeDatabase("notes.db", "DROP TABLE Tags;");
    const Ended ended = Run({});
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("Table Missing: The table named 'Tags' cannot be found."));
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("Answer: Cancel"));
}

TEST_F(Define, RunAgainChangesNothing)
{
    Run({"--connection", Notes, "--all", "--collections"});
    const std::string first = File();
    const Ended ended = Run({"--all", "--collections"});
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    EXPECT_EQ(File(), first);
    EXPECT_EQ(Workspace.ReadFile("Desk.bak"), first);
}

TEST_F(Define, FollowsTheTableAndKeepsWhatTheUserChanged)
{
    Run({"--connection", Notes, "--table", "Notes"});
    const std::string edited = text::ReplaceAll(File(), "Begin Property Title\r\nAddToClass\2True\r\nDataType\2String",
                                                "Begin Property Title\r\nAddToClass\2True\r\nDataType\2Variant");
    ASSERT_NE(edited, File());
    Workspace.WriteFile("Desk.kzm", edited);
    Workspace.MakeDatabase(
        "notes.db",
        "ALTER TABLE Notes ADD COLUMN Pinned BOOLEAN; DROP VIEW Recent; ALTER TABLE Notes DROP COLUMN Body;");
    EXPECT_EQ(Run({}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("Begin Property Pinned\r\n"));
    EXPECT_THAT(ClassBlock("Note"), Not(HasSubstr("Begin Property Body\r\n")));
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("DataType\2Variant"));
    EXPECT_EQ(Workspace.ReadFile("Desk.bak"), edited);
}

TEST_F(Define, LeavesAClassWhoseTableIsGoneAsItWas)
{
    Run({"--connection", Notes, "--all"});
    const std::string before = ClassBlock("Tag");
    Workspace.MakeDatabase("notes.db", "DROP TABLE Tags; ALTER TABLE Notes ADD COLUMN Pinned BOOLEAN;");
    const Ended ended = Run({});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("Tags"));
    EXPECT_EQ(ClassBlock("Tag"), before);
    EXPECT_THAT(ClassBlock("Note"), HasSubstr("Begin Property Pinned\r\n"));
}

TEST_F(Define, ShowsNothingOfAFileThatWouldSteerTheTerminal)
{
    Run({"--connection", Notes, "--all"});
    Workspace.WriteFile("Desk.kzm", text::ReplaceAll(File(), "TableName\2Tags", "TableName\2Ta\x1B[31mgs"));
    const Ended ended = Run({});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("its table 'Ta?[31mgs' could not be read."));
    EXPECT_THAT(ended.ErrorOutput, Not(HasSubstr("\x1B")));
}

TEST_F(Define, LeavesOutANameThatTheChecksRefuseAndSavesTheRest)
{
    const std::string connection = Workspace.MakeDatabase(
        "long.db",
        "CREATE TABLE AVeryLongTableNameThatNoProgramIdentifierHolds (ID INTEGER PRIMARY KEY); CREATE TABLE Short (ID INTEGER);");
    const Ended ended = Run({"--connection", connection, "--all"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("exceeds 39 characters"));
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("'AVeryLongTableNameThatNoProgramIdentifierHolds' is left out."));
    EXPECT_NE(ClassBlock("Short"), "");
}

TEST_F(Define, LeavesOutATableThatCannotBeOpenedAndSavesTheRest)
{
    const std::string connection = Workspace.MakeDatabase(
        "strange.db",
        "CREATE TABLE Short (ID INTEGER); PRAGMA writable_schema = 1; INSERT INTO sqlite_master VALUES ('table', 'Strange', 'Strange', 0, 'CREATE VIRTUAL TABLE Strange USING nomodule(x)');");
    const Ended ended = Run({"--connection", connection, "--all"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("no such module: nomodule"));
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("'Strange' is left out."));
    EXPECT_NE(ClassBlock("Short"), "");
}

TEST_F(Define, LeavesOutAChildWhoseParentIsNowhere)
{
    const Ended ended = Run({"--connection", Notes, "--table", "Tags=Nobody"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput,
                HasSubstr("there is no class or table 'Nobody' in the project to stand above: 'Tags' is left out."));
    EXPECT_EQ(ClassBlock("Tag"), "");
}

TEST_F(Define, NamesATableThatTheDataSourceDoesNotHave)
{
    const Ended ended = Run({"--connection", Notes, "--table", "Nothing", "--table", "Notes"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("the data source has no table or view named 'Nothing'."));
    EXPECT_NE(ClassBlock("Note"), "");
}

TEST_F(Define, FindsAParentByItsClassAndByItsTable)
{
    Run({"--connection", Notes, "--table", "Notes"});
    EXPECT_EQ(Run({"--table", "Tags=note"}).ExitCode, 0);
    EXPECT_THAT(ClassBlock("Tag"), HasSubstr(Line("ParentClassName", "Note")));
}

TEST_F(Define, NeedsADataSourceForClasses)
{
    const Ended ended = Run({"--all"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("the project has no data source: give one with --connection."));
    EXPECT_FALSE(std::filesystem::exists(Workspace.Path("Desk.kzm")));
}

TEST_F(Define, NeedsADataSourceForProcedures)
{
    const Ended ended = Run({"--procedure", "Ping"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("the project has no data source: give one with --connection."));
    EXPECT_FALSE(std::filesystem::exists(Workspace.Path("Desk.kzm")));
}

TEST_F(Define, NamesAProcedureThatTheDataSourceDoesNotHaveAndSavesTheRest)
{
    const Ended ended = Run({"--connection", Notes, "--table", "Notes", "--procedure", "Ping=Note"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("the data source has no stored procedure named 'Ping'"));
    EXPECT_NE(ClassBlock("Note"), "");
    EXPECT_EQ(ClassBlock("StoredProcedures"), "");
}

TEST_F(Define, SaysThatAnotherConnectionReplacesTheProjects)
{
    Run({"--connection", Notes, "--table", "Notes"});
    const std::string other = Workspace.MakeDatabase("other.db", kNotes);
    const Ended ended = Run({"--connection", other});
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("the data source given replaces that of the project."));
    EXPECT_THAT(File(), HasSubstr(Line("ConnectionString", other)));
}

TEST_F(Define, ChangesNothingWhenTheConnectionFails)
{
    Run({"--connection", Notes, "--table", "Notes"});
    const std::string before = File();
    const Ended ended =
        Run({"--connection", "PROVIDER=MSDASQL;Driver=SQLite3;Database=" + Workspace.Path("missing.db") + ";"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_FALSE(std::filesystem::exists(Workspace.Path("missing.db")));
    EXPECT_EQ(File(), before);
}

TEST_F(Define, RefusesSettingsThatAFileCannotHold)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {"Nonsense=1", "project files have no setting of this name."},
        {"FullPath=/x", "this line of a project file is written only"},
        {"AutosaveProjectInterval=9", "this line of a project file is written only"},
        {"ConnectionString=DSN=x;", "the connection is given with --connection."},
        {"Author=a\nb", "can't hold a value with a line break"},
        {"MTSEnabled=perhaps", "neither True nor False"},
        {"VBVersion=six", "is not a number"},
    };
    for (const auto& [setting, text] : cases) {
        const Ended ended = Run({"--set", setting});
        EXPECT_EQ(ended.ExitCode, 1) << setting;
        EXPECT_THAT(ended.ErrorOutput, HasSubstr(text)) << setting;
        EXPECT_FALSE(std::filesystem::exists(Workspace.Path("Desk.kzm"))) << setting;
    }
}

TEST_F(Define, WantsAFileOfItsOwnKind)
{
    const Ended ended = Workspace.Run({"define", Workspace.Path("Notes.txt")});
    EXPECT_EQ(ended.ExitCode, 2);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("Notes.txt' does not end in .kzm."));
}

TEST_F(Define, RefusesAProjectNameThatTheCodePageLacks)
{
    const Ended named = Workspace.Run({"define", Workspace.Path("Łódź.kzm")});
    EXPECT_EQ(named.ExitCode, 1);
    EXPECT_THAT(named.ErrorOutput, HasSubstr("The name 'Łódź' has letters that code page 1252 lacks"));
    EXPECT_FALSE(std::filesystem::exists(Workspace.Path("Łódź.kzm")));
    const Ended set = Run({"--set", "VBProjectName=Łódź"});
    EXPECT_EQ(set.ExitCode, 1);
    EXPECT_FALSE(std::filesystem::exists(Workspace.Path("Desk.kzm")));
}

TEST_F(Define, TakesAFileOfAnyNameOnceTheProjectHasANameOfItsOwn)
{
    const Ended ended = Workspace.Run({"define", Workspace.Path("Łódź.kzm"), "--set", "VBProjectName=Lodz"});
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    EXPECT_THAT(Workspace.ReadFile("Łódź.kzm"), HasSubstr(Line("VBProjectName", "Lodz")));
}

TEST_F(Define, FailsWhereAColumnIsLeftOutAndSavesTheRest)
{
    const std::string connection =
        Workspace.MakeDatabase("columns.db", "CREATE TABLE Towns (ID INTEGER PRIMARY KEY, Łódź TEXT, Name TEXT);"
                                             "CREATE TABLE Twins (ID INTEGER PRIMARY KEY, [a b] TEXT, a_b TEXT);");
    for (const char* table : {"Towns", "Twins"}) {
        const Ended ended = Run({"--connection", connection, "--table", table});
        EXPECT_EQ(ended.ExitCode, 1) << table;
    }
    EXPECT_THAT(ClassBlock("Town"), HasSubstr("Begin Property Name\r\n"));
    EXPECT_THAT(ClassBlock("Twin"), HasSubstr("Begin Property ab\r\n"));
    EXPECT_EQ(Run({}).ExitCode, 1) << "the columns are still left out";
}

TEST_F(Define, LeavesAFileThatIsNoProjectAlone)
{
    Workspace.WriteFile("Desk.kzm", "something else\r\n");
    const Ended ended = Run({"--connection", Notes, "--all"});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput,
                HasSubstr("This file is not a Veldrane Professional 2000 Data File. Unable to open file."));
    EXPECT_EQ(File(), "something else\r\n");
}

TEST_F(Define, LeavesAFileWhoseClassesCannotAllBeReadAlone)
{
    ASSERT_EQ(Run({"--connection", Notes, "--all"}).ExitCode, 0);
    const std::string whole = File();
    const std::string damaged = text::ReplaceAll(whole, "FieldIsIdentityCol\2True", "FieldIsIdentityCol\2Perhaps");
    for (const std::string& bytes : {damaged, whole.substr(0, whole.size() / 2)}) {
        ASSERT_NE(bytes, whole);
        Workspace.WriteFile("Desk.kzm", bytes);
        const Ended ended = Run({"--set", "Author=Ann"});
        EXPECT_EQ(ended.ExitCode, 1);
        EXPECT_THAT(ended.ErrorOutput,
                    HasSubstr("Desk.kzm stays as it is: not all of its classes can be read, and saving would drop the "
                              "others."));
        EXPECT_EQ(File(), bytes);
        EXPECT_FALSE(std::filesystem::exists(Workspace.Path("Desk.bak")));
    }
}

TEST_F(Define, NamesAProjectAfterItsFile)
{
    EXPECT_EQ(Workspace.Run({"define", Workspace.Path("2 my-shop.kzm")}).ExitCode, 0);
    EXPECT_THAT(Workspace.ReadFile("2 my-shop.kzm"), HasSubstr(Line("VBProjectName", "A2_my_shop")));
}

} // namespace
} // namespace veldrane
