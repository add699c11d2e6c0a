#include "program.h"

#include "text/strings.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldrane {
namespace {

namespace fs = std::filesystem;

using testing::Ended;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::Program;

struct Generate : ::testing::Test
{
    Generate()
    {
        fs::create_directory(Workspace.Path("out"));
        const Ended defined =
            Workspace.Run({"define", Workspace.Path("Shop.kzm"), "--connection", Workspace.MakeShop(), "--all"});
        EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    }

    Ended Run(const std::vector<std::string>& more = {})
    {
        std::vector<std::string> arguments{"generate", Workspace.Path("Shop.kzm"), Workspace.Path("out")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Workspace.Run(arguments);
    }

    std::vector<std::string> Written()
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(Workspace.Path("out")))
            names.push_back(entry.path().filename().string());
        return names;
    }

    // Changes the project file as a hand with an editor would.
    void Edit(const std::string& find, const std::string& replacement)
    {
        const std::string before = Workspace.ReadFile("Shop.kzm");
        const std::string after = text::ReplaceAll(before, find, replacement);
        ASSERT_NE(before, after);
        Workspace.WriteFile("Shop.kzm", after);
    }

    Program Workspace;
};

TEST_F(Generate, WritesTheProjectAndSaysNothing)
{
    const Ended ended = Run();
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_EQ(ended.Output, "");
    for (const char* name :
         {"Shop.vbp", "TestShop.vbp", "TestShop.vbg", "Globals.Bas", "Customer.cls", "Order.cls", "xmlAssist.cls"})
        EXPECT_TRUE(fs::exists(Workspace.Path("out/" + std::string(name)))) << name;
}

TEST_F(Generate, GivesTheSameBytesEachTime)
{
    Run();
    const std::string first = Workspace.ReadFile("out/Customer.cls");
    Run({"--overwrite", "backup"});
    EXPECT_EQ(Workspace.ReadFile("out/Customer.cls"), first);
    EXPECT_EQ(Workspace.ReadFile("out/Customer.cls.BAK"), first);
}

TEST_F(Generate, LeavesTheProjectFileAlone)
{
    const std::string before = Workspace.ReadFile("Shop.kzm");
    Run();
    EXPECT_EQ(Workspace.ReadFile("Shop.kzm"), before);
    EXPECT_FALSE(fs::exists(Workspace.Path("Shop.bak")));
}

TEST_F(Generate, LeavesFilesThatExistWhenToldSo)
{
    Workspace.WriteFile("out/Customer.cls", "mine");
    EXPECT_EQ(Run({"--overwrite", "leave"}).ExitCode, 0);
    EXPECT_EQ(Workspace.ReadFile("out/Customer.cls"), "mine");
    EXPECT_FALSE(fs::exists(Workspace.Path("out/Customer.cls.BAK")));
    EXPECT_TRUE(fs::exists(Workspace.Path("out/Order.cls")));
}

TEST_F(Generate, LeavesFilesThatExistWhenThereIsNobodyToAsk)
{
    Workspace.WriteFile("out/Customer.cls", "mine");
    const Ended ended = Run({"--overwrite", "prompt"});
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("File Conflict on Customer.cls"));
    EXPECT_EQ(Workspace.ReadFile("out/Customer.cls"), "mine");
}

TEST_F(Generate, FailsWhereABackupCouldNotBeMade)
{
    Workspace.WriteFile("out/Customer.cls", "mine");
    fs::create_directories(Workspace.Path("out/Customer.cls.BAK/in the way"));
    const Ended ended = Run();
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("Customer.cls.BAK"));
    EXPECT_TRUE(fs::exists(Workspace.Path("out/xmlAssist.cls"))) << "the run goes on";
}

TEST_F(Generate, NamesAProjectFileThatIsMissing)
{
    const Ended ended = Workspace.Run({"generate", Workspace.Path("nothing.kzm"), Workspace.Path("out")});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("Unable to open file: " + Workspace.Path("nothing.kzm")));
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("File no longer exists."));
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(Generate, RefusesWhatIsNoProjectFile)
{
    Workspace.WriteFile("text.kzm", "Dear diary\r\n");
    Workspace.WriteFile("empty.kzm", "");
    fs::create_directory(Workspace.Path("folder.kzm"));
    for (const char* name : {"text.kzm", "empty.kzm", "folder.kzm"}) {
        const Ended ended = Workspace.Run({"generate", Workspace.Path(name), Workspace.Path("out")});
        EXPECT_EQ(ended.ExitCode, 1) << name;
        EXPECT_THAT(ended.ErrorOutput,
                    EndsWith("veldrane: " + Workspace.Path(name) + " was not opened, and nothing was written.\n"));
        EXPECT_THAT(Written(), IsEmpty()) << name;
    }
}

TEST_F(Generate, NeedsAFolderThatIsThere)
{
    const Ended missing = Workspace.Run({"generate", Workspace.Path("Shop.kzm"), Workspace.Path("nowhere")});
    EXPECT_EQ(missing.ExitCode, 1);
    EXPECT_THAT(missing.ErrorOutput, HasSubstr("Unable to write to destination directory. "));
    EXPECT_FALSE(fs::exists(Workspace.Path("nowhere")));
    Workspace.WriteFile("plain", "x");
    const Ended plain = Workspace.Run({"generate", Workspace.Path("Shop.kzm"), Workspace.Path("plain")});
    EXPECT_EQ(plain.ExitCode, 1);
    EXPECT_EQ(Workspace.ReadFile("plain"), "x");
}

TEST_F(Generate, RefusesNamesThatLeadOutOfTheFolder)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {"\r\nClassPrefix\2", "\r\nClassPrefix\2../"},
        {"\r\nModulePrefix\2", "\r\nModulePrefix\2/etc/"},
        {"\r\nVBProjectName\2Shop", "\r\nVBProjectName\2..\\Shop"},
        {"Class Customer\r\n", std::string("Class Custo\0mer\r\n", 17)},
    };
    const std::string good = Workspace.ReadFile("Shop.kzm");
    for (const auto& [find, replacement] : cases) {
        Workspace.WriteFile("Shop.kzm", good);
        Edit(find, replacement);
        const Ended ended = Run();
        EXPECT_EQ(ended.ExitCode, 1) << replacement;
        EXPECT_NE(ended.ErrorOutput, "") << replacement;
        EXPECT_THAT(Written(), IsEmpty()) << replacement;
    }
}

TEST_F(Generate, GoesOnWithoutADataSource)
{
    const std::string good = Workspace.ReadFile("Shop.kzm");
    Workspace.WriteFile("text.db", "this is no database, but long enough to have been one if it had wanted to");
    const std::vector<std::pair<std::string, std::string>> cases{
        {Workspace.Path("gone.db"), "ADO SQL State: "},
        {Workspace.Path("text.db"), "file is not a database"},
        {Workspace.Path("out"), "is not a file"},
    };
    for (const auto& [database, words] : cases) {
        Workspace.WriteFile("Shop.kzm", text::ReplaceAll(good, Workspace.Path("shop.db"), database));
        const Ended ended = Run();
        EXPECT_EQ(ended.ExitCode, 0) << database;
        EXPECT_THAT(ended.ErrorOutput, HasSubstr("Routine: Open Datasource")) << database;
        EXPECT_THAT(ended.ErrorOutput, HasSubstr(words)) << database;
        EXPECT_TRUE(fs::exists(Workspace.Path("out/Customer.cls"))) << database;
    }
    EXPECT_FALSE(fs::exists(Workspace.Path("gone.db")));
}

TEST_F(Generate, GivesADriverNothingThatCouldRunOrWrite)
{
    const std::string good = Workspace.ReadFile("Shop.kzm");
    const std::vector<std::pair<std::string, std::string>> cases{
        {"LoadExt", "Driver=SQLite3;LoadExt=/tmp/evil.so;"},
        {"Tracefile", "Driver=SQLite3;Tracefile=" + Workspace.Path("trace") + ";"},
        {"A project may not name a library as its \"Driver\".", "Driver=/tmp/evil.so;"},
        {"FILEDSN", "Driver=SQLite3;FILEDSN=" + Workspace.Path("evil.dsn") + ";"},
        {"SAVEFILE", "Driver=SQLite3;SAVEFILE=" + Workspace.Path("trace") + ";"},
    };
    for (const auto& [named, replacement] : cases) {
        Workspace.WriteFile("Shop.kzm", text::ReplaceAll(good, "Driver=SQLite3;", replacement));
        const Ended ended = Run();
        EXPECT_EQ(ended.ExitCode, 0) << replacement;
        EXPECT_THAT(ended.ErrorOutput, HasSubstr(named)) << replacement;
        EXPECT_FALSE(fs::exists(Workspace.Path("trace")));
    }
}

TEST_F(Generate, SurvivesAProjectFileThatIsCutAnywhere)
{
    const std::string whole = Workspace.ReadFile("Shop.kzm");
    constexpr std::size_t kCuts = 60;
    for (std::size_t i = 0; i <= kCuts; ++i) {
        Workspace.WriteFile("Shop.kzm", whole.substr(0, whole.size() * i / kCuts));
        const Ended ended = Run({"--overwrite", "leave"});
        EXPECT_TRUE(ended.ExitCode == 0 || ended.ExitCode == 1) << i;
    }
}

TEST_F(Generate, WritesTheClassesBeforeADamagedOneAndFails)
{
    Edit("Begin Class OrderLine\r\n", "Begin Class OrderLine\r\nBegin Key 0\r\nKeyType\2none\r\nEnd Key 0\r\n");
    const Ended ended = Run();
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("class 'OrderLine': KeyType: Type mismatch: 'none' is not a number."));
    EXPECT_TRUE(fs::exists(Workspace.Path("out/Order.cls")));
    EXPECT_FALSE(fs::exists(Workspace.Path("out/OrderLine.cls")));
}

TEST_F(Generate, SaysThatNothingWasCompiledWithoutACompiler)
{
    const Ended ended = Run({"--compile"});
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("No Visual Basic command is set: the project was written, not compiled."));
}

// A disk that fills up: no file may grow beyond a limit, in a process of its own.
TEST_F(Generate, LeavesNoHalfFileOnAFullDisk)
{
    Run();
    const std::string whole = Workspace.ReadFile("out/Customer.cls");
    Workspace.WriteFile("out/Customer.cls", "the former one");
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{.rlim_cur = whole.size() - 1, .rlim_max = whole.size() - 1};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(Run({"--overwrite", "backup"}).ExitCode);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(Workspace.ReadFile("out/Customer.cls"), "the former one");
    for (const std::string& name : Written())
        EXPECT_THAT(name, Not(HasSubstr(".tmp")));
}

} // namespace
} // namespace veldrane
