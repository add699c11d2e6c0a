#include "program.h"

#include "shell/entry.h"
#include "text/strings.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

namespace veldrane {
namespace {

namespace fs = std::filesystem;

using testing::Ended;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::Program;
using ::testing::StartsWith;

struct Preview : ::testing::Test
{
    Preview()
    {
        const std::string connection =
            Workspace.MakeDatabase("clinic.db", "CREATE TABLE Ärzte (ArztID INTEGER PRIMARY KEY, Name VARCHAR(40));"
                                                "CREATE TABLE Termine (TerminID INTEGER PRIMARY KEY);"
                                                "CREATE TABLE Länder (Code VARCHAR(2) PRIMARY KEY);");
        const Ended defined =
            Workspace.Run({"define", Workspace.Path("Clinic.kzm"), "--connection", connection, "--table", "Ärzte",
                           "--table", "Termine", "--lookup", "Länder", "--collections"});
        EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    }

    Ended Show(const std::string& node) const { return Workspace.Run({"preview", Workspace.Path("Clinic.kzm"), node}); }

    // What is shown for a node that shows without a word on standard error.
    std::string Shown(const std::string& node) const
    {
        const Ended ended = Show(node);
        EXPECT_EQ(ended.ExitCode, 0) << node;
        EXPECT_EQ(ended.ErrorOutput, "") << node;
        return ended.Output;
    }

    void Generate() const
    {
        fs::create_directory(Workspace.Path("out"));
        ASSERT_EQ(Workspace.Run({"generate", Workspace.Path("Clinic.kzm"), Workspace.Path("out")}).ExitCode, 0);
    }

    // The text of a generated file, as the preview would print it.
    std::string Written(const std::string& file) const
    {
        std::string written = text::ReplaceAll(Workspace.ReadFile("out/" + file), "\r\n", "\n");
        written = text::ReplaceAll(written, "\xE4", "ä");
        return text::ReplaceAll(written, "\xC4", "Ä");
    }

    // The preview has no empty line between the sections of a module.
    static std::string WithoutEmptyLines(std::string text)
    {
        while (text.find("\n\n") != std::string::npos)
            text = text::ReplaceAll(text, "\n\n", "\n");
        return text;
    }

    // Changes the project file as a hand with an editor would.
    void Edit(const std::string& find, const std::string& replacement) const
    {
        const std::string before = Workspace.ReadFile("Clinic.kzm");
        const std::string after = text::ReplaceAll(before, find, replacement);
        ASSERT_TRUE(before != after) << find;
        Workspace.WriteFile("Clinic.kzm", after);
    }

    Program Workspace;
};

TEST_F(Preview, ShowsEveryNodeOfTheTree)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {"Root", "Project Summary\nProject Name:  "},
        {"KZMParent", "Parent/Children Classes Summary\n\nClass Name:  Ärzte\n"},
        {"TypeOf", "Lookup/Domain Classes Summary\n\nClass Name:  Länder\n    Source Table Name: Länder\n"},
        {"Class", "Additional Classes/Collections Summary\n\nTotal Number of Classes in this category: 0\n"},
        {"KZMRequired", "Required Files Summary\n\nThe files listed below "},
        {"KZMRequiredProjects", "Required Projects\n    Clinic (Clinic.vbp)\n"},
        {"VBProjectFile", "Required Visual Basic Project: Clinic\nFileName: Clinic.vbp\n\nType=OleDll\n"},
        {"VBProjectTestFile", "Required Visual Basic Test Project\nFileName: TestClinic.vbp\n\nType=Exe\n"},
        {"VBProjectGroupFile", "Required Visual Basic Test Project Group\nFileName: TestClinic.vbg\n\nVBGROUP 5.0\n"},
        {"KZMRequiredModules", "Required Modules:\n    Globals (Globals.bas)\n"},
        {"KZMGlobals", "Required: Global Module\nGlobals File Name: Globals.bas\nAttribute VB_Name = \"Globals\"\n"},
        {"KZMRequiredClassModules", "Required Classes:\n    Auto (Auto.cls)\n"},
        {"KZMWRAPPER", "Required Wrapper Class: Auto\nFile Name: Auto.cls\nVERSION 1.0 CLASS\n"},
        {"xmlAssist", "Required Class: xmlAssist\nFileName: xmlAssist.cls\nVERSION 1.0 CLASS\n"},
        {"Termine", "Preview Class Module Code\nClass Name: Termine\nFileName: Termine.cls\nVERSION 1.0 CLASS\n"},
        {"Termines", "Preview Collection Module Code\nCollection Name: Termines\nFileName: Termines.cls\nVERSION 1.0 "},
    };
    for (const auto& [node, beginning] : cases)
        EXPECT_THAT(Shown(node), StartsWith(beginning)) << node;
}

TEST_F(Preview, NamesNodesWithoutRegardToCase)
{
    EXPECT_EQ(Shown("kzmwrapper"), Shown("KZMWRAPPER"));
    EXPECT_EQ(Shown("länder"), Shown("LÄNDER"));
    EXPECT_THAT(Shown("LÄNDER"), HasSubstr("Name: Länder\n"));
}

TEST_F(Preview, ShowsTheVeryTextThatIsGenerated)
{
    Generate();
    const std::vector<std::pair<std::string, std::string>> cases{
        {"VBProjectFile", "Clinic.vbp"},
        {"VBProjectTestFile", "TestClinic.vbp"},
        {"VBProjectGroupFile", "TestClinic.vbg"},
        {"KZMGlobals", "Globals.Bas"},
        {"KZMWRAPPER", "Auto.cls"},
    };
    for (const auto& [node, file] : cases) {
        std::string written = Written(file);
        written.pop_back(); // a file has one more line end behind each of its sections
        EXPECT_TRUE(Shown(node).ends_with("\n" + written)) << node;
    }
}

TEST_F(Preview, ShowsTheVeryModulesThatAreGenerated)
{
    Generate();
    for (const std::string node : {"Termine", "Termines", "Ärzte", "Länder", "xmlAssist"}) {
        const std::string written = WithoutEmptyLines(Written(node + ".cls"));
        EXPECT_THAT(written, HasSubstr("\nEnd ")) << node;
        EXPECT_TRUE(WithoutEmptyLines(Shown(node)).ends_with("FileName: " + node + ".cls\n" + written)) << node;
    }
}

TEST_F(Preview, NeedsNoDataSource)
{
    fs::remove(Workspace.Path("clinic.db"));
    EXPECT_THAT(Shown("Root"), HasSubstr("\nDataSource Driver:  SQLite3\n"));
    EXPECT_FALSE(fs::exists(Workspace.Path("clinic.db")));
}

TEST_F(Preview, WritesNoFile)
{
    const std::string before = Workspace.ReadFile("Clinic.kzm");
    fs::remove(Workspace.Path("Clinic.bak"));
    Shown("Root");
    Shown("Termine");
    EXPECT_EQ(Workspace.ReadFile("Clinic.kzm"), before);
    EXPECT_FALSE(fs::exists(Workspace.Path("Clinic.bak")));
}

TEST_F(Preview, TellsTheFullPathOfAProject)
{
    const fs::path before = fs::current_path();
    fs::current_path(Workspace.Path(""));
    const Ended ended = Workspace.Run({"preview", "Clinic.kzm", "Root"});
    const fs::path folder = fs::current_path();
    fs::current_path(before);
    EXPECT_THAT(ended.Output, HasSubstr("\nProject Full Path: " + (folder / "Clinic.kzm").string() + "\n"));
}

TEST_F(Preview, SaysInOneLineWhatCanBeNamed)
{
    for (const std::string node : {"Nobody", "KZM", "two\nlines"}) {
        const Ended ended = Show(node);
        EXPECT_EQ(ended.ExitCode, 1) << node;
        EXPECT_EQ(ended.Output, "") << node;
        EXPECT_EQ(ended.ErrorOutput,
                  "veldrane: '" + text::ReplaceAll(node, "\n", " ") + "' is neither a class nor a collection of " +
                      Workspace.Path("Clinic.kzm") +
                      ", nor one of Root, KZMParent, TypeOf, Class, KZMRequired, KZMRequiredProjects, VBProjectFile, "
                      "VBProjectTestFile, VBProjectGroupFile, KZMRequiredModules, KZMGlobals, "
                      "KZMRequiredClassModules, KZMWRAPPER.\n");
    }
}

TEST_F(Preview, NamesAProjectFileThatIsMissingOrIsNone)
{
    Workspace.WriteFile("text.kzm", "Dear diary\r\n");
    for (const char* name : {"nothing.kzm", "text.kzm"}) {
        const Ended ended = Workspace.Run({"preview", Workspace.Path(name), "Root"});
        EXPECT_EQ(ended.ExitCode, 1) << name;
        EXPECT_EQ(ended.Output, "") << name;
        EXPECT_THAT(ended.ErrorOutput, HasSubstr("veldrane: " + Workspace.Path(name) + " was not opened")) << name;
    }
}

TEST_F(Preview, ShowsWhatIsThereOfADamagedProjectAndFails)
{
    Edit("Begin Class Termine\r\n", "Begin Class Termine\r\nBegin Key 0\r\nKeyType\2none\r\nEnd Key 0\r\n");
    const Ended before = Show("Ärzte");
    EXPECT_EQ(before.ExitCode, 1);
    EXPECT_THAT(before.Output, HasSubstr("Name: Ärzte\n"));
    EXPECT_THAT(before.ErrorOutput, HasSubstr("class 'Termine': KeyType: Type mismatch: 'none' is not a number."));
    const Ended lost = Show("Termine");
    EXPECT_EQ(lost.ExitCode, 1);
    EXPECT_EQ(lost.Output, "");
    EXPECT_THAT(lost.ErrorOutput, HasSubstr("veldrane: 'Termine' is neither"));
}

TEST_F(Preview, SurvivesAProjectFileThatIsCutAnywhere)
{
    const std::string whole = Workspace.ReadFile("Clinic.kzm");
    constexpr std::size_t kCuts = 60;
    for (std::size_t i = 0; i <= kCuts; ++i) {
        Workspace.WriteFile("Clinic.kzm", whole.substr(0, whole.size() * i / kCuts));
        const Ended ended = Show("Termine");
        EXPECT_TRUE(ended.ExitCode == 0 || ended.ExitCode == 1) << i;
    }
}

TEST_F(Preview, ShowsTheHeadingOfATextThatFailsAndFails)
{
    Edit("\r\nMTSEnabled\2True", "\r\nMTSEnabled\2False\r\nConnectSameDirectory\2True");
    const std::string file = Workspace.ReadFile("Clinic.kzm");
    const std::size_t connection = file.find("\r\nConnectionString\2");
    ASSERT_NE(connection, std::string::npos);
    Workspace.WriteFile("Clinic.kzm", file.substr(0, connection) + "\r\nConnectionString\2" +
                                          file.substr(file.find("\r\n", connection + 2)));
    const Ended ended = Show("KZMWRAPPER");
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_EQ(ended.Output, "Required Wrapper Class: Auto\nFile Name: Auto.cls\n");
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("Routine: DisplayPreview"));
}

TEST_F(Preview, PassesOnWhatAWriterHasToSay)
{
    Edit("Method Clear\r\n", "Method Wipe\r\n");
    Edit("MethodName\2Clear\r\n", "MethodName\2Wipe\r\n");
    const Ended ended = Show("Termine");
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_THAT(ended.Output, Not(HasSubstr("clear method")));
    EXPECT_THAT(
        ended.ErrorOutput,
        StartsWith(
            "veldrane: The Delete Method requires the clear method which was not included in the class definition. It has been added."));
}

TEST_F(Preview, KeepsAValueOnItsLineAndOffTheTerminal)
{
    Edit("\r\nAuthor\2", "\r\nAuthor\2red\x1b[31m\nblue");
    EXPECT_THAT(Show("Root").Output, HasSubstr("\nProject Author:  red?[31m blue\nProject File Name: "));
}

TEST_F(Preview, FailsWhereItsOutputCanNotBeWritten)
{
    std::ofstream full("/dev/full");
    std::ostringstream errors;
    const std::vector<std::string> arguments{"preview", Workspace.Path("Clinic.kzm"), "Root"};
    EXPECT_EQ(RunProgram(arguments, {.Output = full, .ErrorOutput = errors}), 1);
    EXPECT_EQ(errors.str(), "veldrane: the output could not be written.\n");
}

} // namespace
} // namespace veldrane
