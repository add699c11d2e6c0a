#include "shell/command_line.h"
#include "support/memory_file_system.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::StartsWith;

template <class Expected>
Expected Parsed(const std::vector<std::string>& arguments, const testing::MemoryFileSystem& files = {})
{
    const Command command = ParseCommandLine(arguments, files);
    if (const auto* print = std::get_if<PrintAndExit>(&command);
        print != nullptr && !std::is_same_v<Expected, PrintAndExit>)
        ADD_FAILURE() << print->Text;
    return std::get<Expected>(command);
}

TEST(CommandLine, DefineTakesItsOptionsAsTheyStand)
{
    const auto command = Parsed<DefineCommand>({"define",       "a b.kzm",
                                                "--connection", "PROVIDER=MSDASQL;DSN=x;",
                                                "--table",      "Order Lines=Orders",
                                                "--table",      "[odd], name",
                                                "--lookup",     "Countries",
                                                "--procedure",  "GetOrders;1=Order",
                                                "--procedure",  "a b",
                                                "--all",        "--collections",
                                                "--by",         "primary-key",
                                                "--set",        "ProjectName=a=b, c",
                                                "--set",        "Author="});
    EXPECT_EQ(command.File, "a b.kzm");
    EXPECT_EQ(command.Connection, "PROVIDER=MSDASQL;DSN=x;");
    EXPECT_THAT(command.Request.Tables, ElementsAre("Order Lines=Orders", "[odd], name"));
    EXPECT_THAT(command.Request.Lookups, ElementsAre("Countries"));
    EXPECT_THAT(command.Procedures, ElementsAre("GetOrders;1=Order", "a b"));
    EXPECT_TRUE(command.Request.All);
    EXPECT_TRUE(command.Collections);
    EXPECT_EQ(command.By, RowIdentifier::PrimaryKey);
    EXPECT_THAT(command.Settings, ElementsAre(Pair("ProjectName", "a=b, c"), Pair("Author", "")));
}

TEST(CommandLine, DefineNeedsNothingButAFile)
{
    const auto command = Parsed<DefineCommand>({"define", "x.kzm"});
    EXPECT_EQ(command.Connection, "");
    EXPECT_THAT(command.Request.Tables, IsEmpty());
    EXPECT_THAT(command.Procedures, IsEmpty());
    EXPECT_FALSE(command.Request.All);
    EXPECT_EQ(command.By, RowIdentifier::Identity);
}

TEST(CommandLine, GenerateBacksUpUnlessToldOtherwise)
{
    EXPECT_EQ(Parsed<GenerateCommand>({"generate", "x.kzm", "out"}).Existing, Overwrite::Backup);
    EXPECT_EQ(Parsed<GenerateCommand>({"generate", "x.kzm", "out", "--overwrite", "leave"}).Existing, Overwrite::Leave);
    EXPECT_EQ(Parsed<GenerateCommand>({"generate", "x.kzm", "out", "--overwrite=prompt"}).Existing, Overwrite::Prompt);
    EXPECT_TRUE(Parsed<GenerateCommand>({"generate", "x.kzm", "out", "--compile"}).Compile);
}

TEST(CommandLine, PreviewTakesAFileAndANode)
{
    const auto command = Parsed<PreviewCommand>({"preview", "a b.kzm", "Order Lines"});
    EXPECT_EQ(command.File, "a b.kzm");
    EXPECT_EQ(command.Node, "Order Lines");
}

TEST(CommandLine, PreviewSaysWhichNodesThereAre)
{
    const std::string help = Parsed<PrintAndExit>({"preview", "--help"}).Text;
    EXPECT_THAT(help, HasSubstr("Usage: veldrane preview FILE.kzm NODE\n"));
    EXPECT_THAT(help, HasSubstr("\n  KZMWRAPPER               the text of the wrapper class\n"));
}

TEST(CommandLine, AConnectionStringCanStandInAFile)
{
    testing::MemoryFileSystem files;
    files.Files["/secret"] = "PROVIDER=MSDASQL;DSN=x;PWD=secret;\r\n";
    EXPECT_EQ(Parsed<TablesCommand>({"tables", "--connection", "@/secret"}, files).Connection,
              "PROVIDER=MSDASQL;DSN=x;PWD=secret;");
    EXPECT_EQ(Parsed<DefineCommand>({"define", "x.kzm", "--connection", "@/secret"}, files).Connection,
              "PROVIDER=MSDASQL;DSN=x;PWD=secret;");
}

TEST(CommandLine, AConnectionFileThatIsMissingOrEmptyIsNamed)
{
    testing::MemoryFileSystem files;
    files.Files["/empty"] = "\n";
    const auto missing = Parsed<PrintAndExit>({"tables", "--connection", "@/nowhere"}, files);
    EXPECT_EQ(missing.ExitCode, 2);
    EXPECT_THAT(missing.Text, StartsWith("veldrane: --connection: /nowhere: No such file or directory.\nUsage"));
    EXPECT_THAT(Parsed<PrintAndExit>({"tables", "--connection", "@/empty"}, files).Text,
                StartsWith("veldrane: --connection: the file '/empty' holds no connection string.\nUsage"));
}

TEST(CommandLine, HelpAndVersionAreAnswersAndNoErrors)
{
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"--help"}, {"--version"}, {"define", "--help"}, {"generate", "--help"}, {"preview", "--help"}}) {
        const auto print = Parsed<PrintAndExit>(arguments);
        EXPECT_EQ(print.ExitCode, 0);
        EXPECT_FALSE(print.OnStandardError);
        EXPECT_FALSE(print.Text.empty());
    }
    EXPECT_THAT(Parsed<PrintAndExit>({"--version"}).Text, StartsWith("veldrane "));
}

TEST(CommandLine, ALineWithoutACommandOpensTheWindows)
{
    const auto bare = Parsed<StartCommand>({});
    EXPECT_EQ(bare.File + bare.Folder + bare.InvalidPath, "");
    EXPECT_FALSE(bare.AutoCompileMode || bare.DebugTiming || bare.DeleteAfterCompile || bare.NoSplash);
    const auto named = Parsed<StartCommand>({"/NOSPLASH", "/shop/Shop.kzm", "/DEBUG"});
    EXPECT_EQ(named.File, "/shop/Shop.kzm");
    EXPECT_TRUE(named.NoSplash);
    EXPECT_TRUE(named.DebugTiming);
    EXPECT_FALSE(named.AutoCompileMode);
}

TEST(CommandLine, TheWindowsGetThePathOfTheProjectFromTheRoot)
{
    EXPECT_THAT(Parsed<StartCommand>({"Shop.kzm"}).File, AllOf(StartsWith("/"), EndsWith("/Shop.kzm")));
}

TEST(CommandLine, TheWindowsAreToldOfAPathThatLeadsNowhere)
{
    testing::MemoryFileSystem files;
    files.Folders.insert("/out");
    EXPECT_EQ(Parsed<StartCommand>({"/nowhere"}, files).InvalidPath, "/nowhere");
    EXPECT_EQ(Parsed<StartCommand>({"/shop.kzm", "/c"}, files).InvalidPath, "/c");
    EXPECT_EQ(Parsed<StartCommand>({"/shop.kzm", "/out"}, files).InvalidPath, "");
}

TEST(CommandLine, AutoCompileModeNamesAProjectAndAFolder)
{
    const auto command = Parsed<StartCommand>({"/C", "/DEBUG", "Shop.kzm", "out", "/DELETE"});
    EXPECT_TRUE(command.AutoCompileMode);
    EXPECT_TRUE(command.DebugTiming);
    EXPECT_TRUE(command.DeleteAfterCompile);
    EXPECT_EQ(command.File, "Shop.kzm");
    EXPECT_EQ(command.Folder, "out");
    EXPECT_EQ(command.InvalidPath, "");
}

// What is wrong in one line, then the usage in another.
TEST(CommandLine, WrongUsageIsOneLineAndTheUsage)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"nonsense"}, "veldrane: 'nonsense' is no command.\nUsage: veldrane tables"},
        {{"--frobnicate"}, "veldrane: '--frobnicate' is no command.\nUsage: veldrane tables"},
        {{"--file=/x.kz"}, "veldrane: '--file=/x.kz' is no command.\nUsage: veldrane tables"},
        {{"x.kzm", "nonsense"}, "veldrane: 'nonsense' is no command.\nUsage: veldrane tables"},
        {{"x.kzm", "y.kzm"}, "veldrane: 'y.kzm' is one word too many.\nUsage: veldrane tables"},
        {{"/DELETE", "x.kzm"}, "veldrane: '/DELETE' goes with /C alone.\nUsage: veldrane tables"},
        {{"x.kzm", ""}, "veldrane: one of the words is empty.\nUsage: veldrane tables"},
        {{""}, "veldrane: one of the words is empty.\nUsage: veldrane tables"},
        {{"tables"}, "veldrane: --connection is required.\nUsage: veldrane tables --connection STRING"},
        {{"define"}, "veldrane: file is required.\nUsage: veldrane define FILE.kzm"},
        {{"generate", "x.kzm"}, "veldrane: folder is required.\nUsage: veldrane generate FILE.kzm FOLDER"},
        {{"generate", "x.kzm", ""}, "veldrane: folder is required.\nUsage: veldrane generate FILE.kzm FOLDER"},
        {{"generate", "", "out"}, "veldrane: file is required.\nUsage: veldrane generate FILE.kzm FOLDER"},
        {{"preview", "x.kzm"}, "veldrane: node is required.\nUsage: veldrane preview FILE.kzm NODE"},
        {{"preview", "x.kzm", ""}, "veldrane: node is required.\nUsage: veldrane preview FILE.kzm NODE"},
        {{"preview", "", "Root"}, "veldrane: file is required.\nUsage: veldrane preview FILE.kzm NODE"},
        {{"preview", "x.kzm", "Root", "more"},
         "veldrane: The following argument was not expected: more.\nUsage: veldrane preview"},
        {{"define", ""}, "veldrane: file is required.\nUsage: veldrane define FILE.kzm"},
        {{"define", "Shop.txt"}, "veldrane: 'Shop.txt' does not end in .kzm.\nUsage: veldrane define FILE.kzm"},
        {{"tables", "--connection", "@"}, "veldrane: --connection: '@' names no file.\nUsage: veldrane tables"},
        {{"generate", "x.kzm", "out", "more"},
         "veldrane: The following argument was not expected: more.\nUsage: veldrane generate"},
        {{"generate", "x.kzm", "out", "--overwrite", "always"},
         "veldrane: --overwrite: 'always' is none of prompt|leave|backup.\nUsage"},
        {{"define", "x.kzm", "--by", "luck"}, "veldrane: --by: 'luck' is none of identity|primary-key.\nUsage"},
        {{"define", "x.kzm", "--set", "Author"}, "veldrane: --set: 'Author' is not of the form NAME=VALUE.\nUsage"},
        {{"define", "x.kzm", "--set", "=x"}, "veldrane: --set: '=x' is not of the form NAME=VALUE.\nUsage"},
    };
    for (const auto& [arguments, text] : cases) {
        const auto print = Parsed<PrintAndExit>(arguments);
        EXPECT_THAT(print.Text, StartsWith(text));
        EXPECT_TRUE(print.OnStandardError);
        EXPECT_EQ(print.ExitCode, 2);
    }
}

} // namespace
} // namespace veldrane
