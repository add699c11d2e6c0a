#include "program.h"

#include "shell/entry.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

namespace veldrane {
namespace {

using testing::Ended;
using ::testing::HasSubstr;
using testing::Program;

TEST(Tables, ListsTypeAndNameOnALineEach)
{
    const Program workspace;
    const Ended ended = workspace.Run({"tables", "--connection", workspace.MakeShop()});
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_EQ(ended.ErrorOutput, "");
    EXPECT_THAT(ended.Output, HasSubstr("TABLE\tOrder Lines\n"));
    EXPECT_THAT(ended.Output, HasSubstr("VIEW\tOpen Orders\n"));
}

TEST(Tables, KeepsANameOnItsLineAndOffTheTerminal)
{
    const Program workspace;
    const std::string connection =
        workspace.MakeDatabase("odd.db", "CREATE TABLE [two\nlines] (a); CREATE TABLE [red\x1b[31m] (a);");
    EXPECT_EQ(workspace.Run({"tables", "--connection", connection}).Output, "TABLE\ttwo lines\nTABLE\tred?[31m\n");
}

// The list is all that the command is for: who keeps it in a file has to hear that it is not whole.
TEST(Tables, FailsWhereItsOutputCanNotBeWritten)
{
    const Program workspace;
    const std::string connection = workspace.MakeShop();
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"tables", "--connection", connection}, {"--help"}}) {
        std::ofstream full("/dev/full");
        std::ostringstream errors;
        EXPECT_EQ(RunProgram(arguments, {.Output = full, .ErrorOutput = errors}), 1);
        EXPECT_THAT(errors.str(), HasSubstr("veldrane: the output could not be written."));
    }
}

} // namespace
} // namespace veldrane
