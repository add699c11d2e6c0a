#include "shell/platform/detached_process_starter.h"

#include "support/system_calls.h"
#include "temporary_folder.h"
#include "text/runtime_error.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldrane::testing {
namespace {

class StartingPrograms : public ::testing::Test
{
  protected:
    StartingPrograms() { mkfifo(pipe_.c_str(), 0666); }

    RuntimeError FailureOf(const std::vector<std::string>& command)
    {
        try {
            starter_.Start(command);
        } catch (const RuntimeError& error) {
            return error;
        }
        return {0, "", ""};
    }

    TemporaryFolder folder_;
    const std::string pipe_ = folder_ / "pipe"; // reading it waits until the program has written and closed it
    DetachedProcessStarter starter_;
};

TEST_F(StartingPrograms, ArgumentsArriveWordByWordWithoutAShell)
{
    starter_.Start({"sh", "-c", "printf '%s|' \"$@\" > \"$0\"", pipe_, "a b", "$HOME", "\"*\"", ""});
    EXPECT_EQ(ContentOf(pipe_), "a b|$HOME|\"*\"||");
}

TEST_F(StartingPrograms, StandardInputIsEmpty)
{
    starter_.Start({"sh", "-c", "{ cat; echo end; } > \"$0\"", pipe_});
    EXPECT_EQ(ContentOf(pipe_), "end\n");
}

TEST_F(StartingPrograms, ASignalThatThisProgramIgnoresIsNotIgnoredThere)
{
    const auto former = signal(SIGPIPE, SIG_IGN);
    starter_.Start({"sh", "-c", "{ sh -c 'kill -PIPE $$'; echo $?; } > \"$0\"", pipe_});
    signal(SIGPIPE, former);
    EXPECT_EQ(ContentOf(pipe_), std::to_string(128 + SIGPIPE) + "\n");
}

TEST_F(StartingPrograms, NoChildIsLeftToBeWaitedFor)
{
    starter_.Start({"sh", "-c", "echo > \"$0\"", pipe_});
    EXPECT_EQ(waitpid(-1, nullptr, 0), -1);
    EXPECT_EQ(errno, ECHILD);
    EXPECT_EQ(ContentOf(pipe_), "\n");
}

TEST_F(StartingPrograms, AMissingProgramIsNamed)
{
    const RuntimeError error = FailureOf({folder_ / "VB6.EXE", "/make"});
    EXPECT_EQ(error.Number, error_number::kFileNotFound);
    EXPECT_EQ(error.Description(), folder_ / "VB6.EXE" + ": No such file or directory");
}

TEST_F(StartingPrograms, AMissingProgramOnThePathIsNamed)
{
    const RuntimeError error = FailureOf({"veldrane-no-such-program"});
    EXPECT_EQ(error.Number, error_number::kFileNotFound);
    EXPECT_EQ(error.Description(), "veldrane-no-such-program: No such file or directory");
}

TEST_F(StartingPrograms, AFileThatCannotBeRunIsNamed)
{
    Put(folder_ / "VB6.EXE", "text");
    const RuntimeError error = FailureOf({folder_ / "VB6.EXE"});
    EXPECT_EQ(error.Number, error_number::kPathAccess);
    EXPECT_EQ(error.Description(), folder_ / "VB6.EXE" + ": Permission denied");
}

TEST_F(StartingPrograms, AnEmptyCommandIsRefused)
{
    EXPECT_EQ(FailureOf({}).Number, error_number::kFileNotFound);
    EXPECT_EQ(FailureOf({""}).Number, error_number::kFileNotFound);
}

TEST_F(StartingPrograms, ASystemWithoutRoomForAProcessIsReported)
{
    const FailingCall failing(SystemCall::Fork, EAGAIN);
    const RuntimeError error = FailureOf({"true"});
    EXPECT_EQ(error.Number, error_number::kPathAccess);
    EXPECT_EQ(error.Description(), std::string("true: ") + std::strerror(EAGAIN));
}

} // namespace
} // namespace veldrane::testing
