#include "shell/entry.h"

#include "program.h"
#include "shell/command_line.h"
#include "text/runtime_error.h"

#include <gtest/gtest.h>

#include <sstream>

namespace veldrane::testing {
namespace {

class EntryTest : public ::testing::Test
{
  protected:
    int Run(const std::vector<std::string>& arguments, DesktopOpener openDesktop)
    {
        return RunProgram(arguments, {.Output = Output,
                                      .ErrorOutput = ErrorOutput,
                                      .Folder = "/program",
                                      .OpenDesktop = std::move(openDesktop)});
    }

    Program Workspace;
    std::ostringstream Output;
    std::ostringstream ErrorOutput;
};

TEST_F(EntryTest, ALineWithoutACommandIsLeftToTheWindows)
{
    StartCommand opened;
    std::string folder;
    EXPECT_EQ(Run({"/NOSPLASH", "/shop.kzm"},
                  [&](const StartCommand& start, const ProgramStreams& streams) {
                      opened = start;
                      folder = streams.Folder;
                      return 3;
                  }),
              3);
    EXPECT_EQ(opened.File, "/shop.kzm");
    EXPECT_TRUE(opened.NoSplash);
    EXPECT_EQ(folder, "/program");
    EXPECT_EQ(Output.str() + ErrorOutput.str(), "");
}

TEST_F(EntryTest, WhatKeepsTheWindowsFromOpeningIsSaid)
{
    EXPECT_EQ(Run({},
                  [](const StartCommand&, const ProgramStreams&) -> int {
                      throw RuntimeError(error_number::kFileNotFound, "Veldrane", "There is no display.");
                  }),
              1);
    EXPECT_EQ(ErrorOutput.str(), "veldrane: There is no display.\n");
}

TEST_F(EntryTest, AProgramWithoutWindowsSaysSo)
{
    EXPECT_EQ(Run({}, {}), 1);
    EXPECT_EQ(ErrorOutput.str(), "veldrane: this program was built without windows. What it does without them, "
                                 "veldrane --help tells.\n");
}

TEST_F(EntryTest, CommandsOpenNoWindow)
{
    const auto refuse = [](const StartCommand&, const ProgramStreams&) -> int {
        ADD_FAILURE() << "a window was opened";
        return 0;
    };
    EXPECT_EQ(Run({"--version"}, refuse), 0);
    EXPECT_EQ(Run({"/C"}, refuse), 2);
    EXPECT_EQ(Run({"/C", "/gone.kzm", "/"}, refuse), 1);
    EXPECT_EQ(Run({"nonsense"}, refuse), 2);
}

} // namespace
} // namespace veldrane::testing
