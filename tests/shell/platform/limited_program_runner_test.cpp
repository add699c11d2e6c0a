#include "shell/platform/limited_program_runner.h"

#include "shell/platform/descriptor.h"
#include "shell/platform/temporary_registry.h"
#include "support/child_process.h"
#include "support/recorded_watch.h"
#include "temporary_folder.h"
#include "text/runtime_error.h"

#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldrane::testing {
namespace {

using namespace std::chrono_literals;

constexpr ProgramLimits kAmple{.Time = 60s, .OutputBytes = 1U << 24};
constexpr ProgramLimits kBrief{.Time = 50ms, .OutputBytes = 1U << 24};

int OpenFiles()
{
    int count = 0;
    DIR* folder = opendir("/proc/self/fd");
    while (readdir(folder) != nullptr)
        ++count;
    closedir(folder);
    return count;
}

// Whatever happened: no child is left, no file is left open.
class RunningPrograms : public ::testing::Test
{
  protected:
    void TearDown() override
    {
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
        EXPECT_EQ(errno, ECHILD);
        EXPECT_EQ(OpenFiles(), openFiles_);
    }

    ProgramOutcome RunShell(const std::string& script, std::string_view input = "",
                            const ProgramLimits& limits = kAmple)
    {
        return runner_.Run({"sh", "-c", script, folder_ / "pipe"}, input, limits);
    }

    RuntimeError FailureOf(const std::vector<std::string>& command)
    {
        try {
            static_cast<void>(runner_.Run(command, "", kAmple));
        } catch (const RuntimeError& error) {
            return error;
        }
        return {0, "", ""};
    }

    TemporaryFolder folder_;
    LimitedProgramRunner runner_;

  private:
    const int openFiles_ = OpenFiles();
};

TEST_F(RunningPrograms, WordsArriveOneByOneWithoutAShell)
{
    const ProgramOutcome outcome = runner_.Run({"printf", "%s|", "a b", "$HOME", "\"*\"", ""}, "", kAmple);
    EXPECT_EQ(outcome.End, ProgramEnd::Exited);
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Output, "a b|$HOME|\"*\"||");
}

TEST_F(RunningPrograms, TheWatchIsToldHowManyLinesWereSaid)
{
    RecordedWatch watch;
    const ProgramOutcome outcome =
        RunShell("echo a; echo b; printf c", "", {.Time = 60s, .OutputBytes = 100, .Watch = &watch});
    EXPECT_EQ(outcome.Output, "a\nb\nc");
    EXPECT_EQ(watch.Told.front(), 0U);
    EXPECT_EQ(watch.Told.back(), 2U);
}

TEST_F(RunningPrograms, TheWatchEndsAProgramThatSaysNothingMore)
{
    RecordedWatch watch;
    watch.CancelAt = 1;
    EXPECT_THROW(static_cast<void>(
                     RunShell("echo begun; exec sleep 600", "", {.Time = 60s, .OutputBytes = 100, .Watch = &watch})),
                 ReadingCancelled);
}

// The watch hears from a silent program too: a person may cancel at any time.
TEST_F(RunningPrograms, TheWatchIsAskedWhileAProgramIsSilent)
{
    class Impatient : public ReadingWatch
    {
      public:
        void Read(std::size_t /*rows*/) override
        {
            if (++asked_ == 3)
                throw ReadingCancelled();
        }

      private:
        int asked_ = 0;
    };
    Impatient watch;
    EXPECT_THROW(static_cast<void>(RunShell("exec sleep 600", "", {.Time = 60s, .OutputBytes = 100, .Watch = &watch})),
                 ReadingCancelled);
}

TEST_F(RunningPrograms, TheExitCodeIsTold)
{
    EXPECT_EQ(RunShell("echo x; exit 7").Code, 7);
    EXPECT_EQ(RunShell("exit 7").End, ProgramEnd::Exited);
}

TEST_F(RunningPrograms, InputAndOutputLargerThanAnyBufferGoThrough)
{
    std::string input;
    for (int line = 0; line < 500000; ++line)
        input += std::to_string(line) + '\n';
    EXPECT_EQ(RunShell("cat", input).Output, input);
}

TEST_F(RunningPrograms, ABinaryInputArrivesAsItIs)
{
    const std::string input("\0a\xFF\n", 4);
    EXPECT_EQ(RunShell("cat", input).Output, input);
}

TEST_F(RunningPrograms, AnInputThatNobodyReadsDoesNoHarm)
{
    const std::string input(1U << 22, 'x');
    const ProgramOutcome outcome = RunShell("exec <&-; echo done", input);
    EXPECT_EQ(outcome.End, ProgramEnd::Exited);
    EXPECT_EQ(outcome.Output, "done\n");
}

TEST_F(RunningPrograms, StandardErrorGoesNowhere)
{
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(RunShell("echo noise >&2; echo word").Output, "word\n");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(RunningPrograms, AProgramThatHangsIsKilledAtTheLimitOfTime)
{
    const ProgramOutcome outcome = RunShell("echo begun; exec sleep 600", "", kBrief);
    EXPECT_EQ(outcome.End, ProgramEnd::OutOfTime);
    EXPECT_EQ(outcome.Code, SIGKILL);
}

TEST_F(RunningPrograms, OneThatClosesItsOutputAndHangsIsKilledToo)
{
    EXPECT_EQ(RunShell("exec >&-; exec sleep 600", "", kBrief).End, ProgramEnd::OutOfTime);
}

TEST_F(RunningPrograms, OneThatTalksWithoutEndIsKilledAtTheLimitOfOutput)
{
    const ProgramOutcome outcome = RunShell("exec yes", "", {.Time = 60s, .OutputBytes = 100000});
    EXPECT_EQ(outcome.End, ProgramEnd::TooMuchOutput);
    EXPECT_EQ(outcome.Output.size(), 100000U);
}

TEST_F(RunningPrograms, AnOutputOfJustTheLimitIsWhole)
{
    const ProgramOutcome outcome = RunShell("printf 12345", "", {.Time = 60s, .OutputBytes = 5});
    EXPECT_EQ(outcome.End, ProgramEnd::Exited);
    EXPECT_EQ(outcome.Output, "12345");
    EXPECT_EQ(RunShell("printf 123456", "", {.Time = 60s, .OutputBytes = 5}).End, ProgramEnd::TooMuchOutput);
}

TEST_F(RunningPrograms, WhatAProgramHasStartedIsKilledWithIt)
{
    const std::string pipe = folder_ / "pipe";
    mkfifo(pipe.c_str(), 0666);
    const Descriptor told(open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    // Reading waits until nobody is left who could write.
    const auto whenAlone = [&] {
        pollfd file{.fd = told.Number(), .events = POLLIN, .revents = 0};
        poll(&file, 1, 30000);
        return file.revents;
    };
    EXPECT_EQ(RunShell("exec 3>\"$0\"; sleep 600 & exit 0").End, ProgramEnd::Exited);
    EXPECT_EQ(whenAlone(), POLLHUP);
    EXPECT_EQ(RunShell("exec 3>\"$0\"; sleep 600 & exec sleep 600", "", kBrief).End, ProgramEnd::OutOfTime);
    EXPECT_EQ(whenAlone(), POLLHUP);
}

TEST_F(RunningPrograms, AProgramThatIsKilledSaysByWhatSignal)
{
    const ProgramOutcome outcome = RunShell("echo x; kill -ABRT $$");
    EXPECT_EQ(outcome.End, ProgramEnd::Signalled);
    EXPECT_EQ(outcome.Code, SIGABRT);
    EXPECT_EQ(outcome.Output, "x\n");
}

TEST_F(RunningPrograms, ASignalThatThisProgramIgnoresOrBlocksIsNeitherThere)
{
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, &before);
    const auto former = signal(SIGINT, SIG_IGN);
    EXPECT_EQ(RunShell("kill -INT $$; echo alive").Code, SIGINT);
    EXPECT_EQ(RunShell("kill -TERM $$; echo alive").Code, SIGTERM);
    signal(SIGINT, former);
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(RunningPrograms, AMissingProgramIsNamed)
{
    const RuntimeError error = FailureOf({folder_ / "reader", "x"});
    EXPECT_EQ(error.Number, error_number::kFileNotFound);
    EXPECT_EQ(error.Source, "ProgramRunner");
    EXPECT_EQ(error.Description(), folder_ / "reader" + ": No such file or directory");
}

TEST_F(RunningPrograms, AFileThatCannotBeRunIsNamed)
{
    Put(folder_ / "reader", "text");
    const RuntimeError error = FailureOf({folder_ / "reader"});
    EXPECT_EQ(error.Number, error_number::kPathAccess);
    EXPECT_EQ(error.Description(), folder_ / "reader" + ": Permission denied");
}

TEST_F(RunningPrograms, AnEmptyCommandIsRefused)
{
    EXPECT_EQ(FailureOf({}).Number, error_number::kFileNotFound);
    EXPECT_EQ(FailureOf({""}).Number, error_number::kFileNotFound);
}

TEST_F(RunningPrograms, AnInterruptEndsThisProgramAndTheOtherAtOnce)
{
    const std::string pipe = folder_ / "pipe";
    mkfifo(pipe.c_str(), 0666);
    const pid_t child = StartChild([&] {
        RemoveTemporariesOnSignal();
        static_cast<void>(RunShell("exec 3>\"$0\"; echo begun >&3; sleep 600"));
        return 0;
    });
    std::ifstream told(pipe);
    std::string line;
    std::getline(told, line);
    EXPECT_EQ(line, "begun");
    kill(child, SIGINT);
    EXPECT_EQ(EndOf(child), 128 + SIGINT);
    EXPECT_FALSE(std::getline(told, line)); // comes to its end when nobody holds the pipe any more
}

} // namespace
} // namespace veldrane::testing
