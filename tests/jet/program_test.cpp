#include "header_bytes.h"
#include "veldrane_jet.h"

#include "support/child_process.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <sched.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane {
namespace {

using testing::ContentOf;
using ::testing::HasSubstr;
using testing::ReasonOf;
using testing::RunReader;
using testing::ScratchFolder;

TEST(JetProgram, RefusesWhatIsNoFile)
{
    const ScratchFolder folder;
    EXPECT_EQ(ReasonOf(RunReader(folder.Path("missing.mdb"))), "missing");
    EXPECT_EQ(ReasonOf(RunReader(folder.Write("text", "x") + "/under.mdb")), "missing");
    EXPECT_EQ(ReasonOf(RunReader(folder.Path(""))), "not-a-file");
    EXPECT_EQ(ReasonOf(RunReader("/dev/zero")), "not-a-file");
}

TEST(JetProgram, RefusesAPathThatLeadsNowhere)
{
    const ScratchFolder folder;
    ASSERT_EQ(symlink("itself.mdb", folder.Path("itself.mdb").c_str()), 0);
    EXPECT_EQ(ReasonOf(RunReader(folder.Path("itself.mdb"))), "unreachable");
    EXPECT_EQ(ReasonOf(RunReader(folder.Path(std::string(300, 'x')))), "unreachable");
}

TEST(JetProgram, SaysOfAFileWhoseBytesDoNotComeThatItFails)
{
    EXPECT_THAT(RunReader("/proc/self/mem").Answer, HasSubstr("refused\tfailing\tInput/output error\n"));
}

TEST(JetProgram, DoesNotWaitForTheOtherEndOfAPipe)
{
    const ScratchFolder folder;
    ASSERT_EQ(mkfifo(folder.Path("pipe.mdb").c_str(), 0600), 0);
    EXPECT_EQ(ReasonOf(RunReader(folder.Path("pipe.mdb"))), "not-a-file");
}

TEST(JetProgram, RefusesWhatIsNoDatabase)
{
    const ScratchFolder folder;
    EXPECT_EQ(ReasonOf(RunReader(folder.Write("empty.mdb", ""))), "not-jet");
    EXPECT_EQ(ReasonOf(RunReader(folder.Write("text.mdb", "Nothing but words.\n"))), "not-jet");
    EXPECT_EQ(ReasonOf(RunReader(folder.Write("zeros.mdb", std::string(65536, '\0')))), "not-jet");
}

TEST(JetProgram, SaysDamagedOfAHeaderWithNothingBehindIt)
{
    const ScratchFolder folder;
    std::string header(4096, '\0');
    header.replace(4, 15, "Standard Jet DB");
    header[0x14] = 0;
    const std::string reason = ReasonOf(RunReader(folder.Write("header.mdb", header)));
    EXPECT_TRUE(reason == "damaged" || reason == "password") << reason;
}

std::string HeaderOfCodePage(int codePage)
{
    return testing::HeaderBytes({.FileVersion = jet::Version::Jet3, .CodePage = codePage});
}

TEST(JetProgram, FindsTheConvertersOfCodePagesWithinItsLimits)
{
    const ScratchFolder folder;
    for (const int codePage : {932, 936, 949, 950, 1251, 1252})
        EXPECT_EQ(ReasonOf(RunReader(folder.Write("header.mdb", HeaderOfCodePage(codePage)))), "damaged") << codePage;
}

TEST(JetProgram, NamesTheCodePageThatItHasNoConverterFor)
{
    const ScratchFolder folder;
    EXPECT_EQ(RunReader(folder.Write("header.mdb", HeaderOfCodePage(10001))).Answer,
              "veldrane-jet 1\nrefused\tcode-page\t10001\nend\n");
}

TEST(JetProgram, RefusesAFileThatItMayNotRead)
{
    const ScratchFolder folder;
    const std::string path = folder.Write("secret.mdb", "x");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    ASSERT_EQ(chmod(folder.Path("").c_str(), 0755), 0);
    const int output = memfd_create("answer", 0);
    ASSERT_GE(output, 0);
    const int program = open(VELDRANE_JET, O_RDONLY); // a stranger may have no way to the folder
    ASSERT_GE(program, 0);
    EXPECT_EQ(testing::ExitCodeUnprivileged([&] {
                  dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
                  dup2(output, STDOUT_FILENO);
                  std::string name = "veldrane-jet";
                  std::string file = path;
                  const std::array<char*, 3> arguments{name.data(), file.data(), nullptr};
                  fexecve(program, arguments.data(), environ);
                  return testing::kThrew;
              }),
              0);
    EXPECT_THAT(ContentOf("/proc/self/fd/" + std::to_string(output)), HasSubstr("refused\tunreadable\t"));
    close(program);
    close(output);
}

TEST(JetProgram, WantsOneFile)
{
    EXPECT_EQ(testing::ExitCodeOf([] {
                  execl(VELDRANE_JET, VELDRANE_JET, nullptr);
                  return testing::kThrew;
              }),
              2);
}

TEST(JetProgram, FailsIfItsAnswerCantBeWritten)
{
    EXPECT_EQ(testing::ExitCodeOf([] {
                  dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
                  dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO);
                  execl(VELDRANE_JET, VELDRANE_JET, "/dev/null", nullptr);
                  return testing::kThrew;
              }),
              1);
}

// The program while it waits for the end of the password.
class WaitingProgram : public ::testing::Test
{
  protected:
    void SetUp() override
    {
        ASSERT_EQ(pipe2(password_.data(), O_CLOEXEC), 0);
        ASSERT_EQ(pipe2(answer_.data(), O_CLOEXEC), 0);
    }

    void TearDown() override
    {
        for (const int descriptor : {password_[0], password_[1], answer_[0], answer_[1]})
            if (descriptor >= 0)
                close(descriptor);
    }

    [[nodiscard]] pid_t Start() const
    {
        return testing::StartChild([this] {
            dup2(password_[0], STDIN_FILENO);
            dup2(answer_[1], STDOUT_FILENO);
            execl(VELDRANE_JET, VELDRANE_JET, "/dev/null", nullptr);
            return testing::kThrew;
        });
    }

    // Returns once the program has taken a byte of the password; a minute of trying is too long.
    void LetItRead() const
    {
        ASSERT_EQ(write(password_[1], "x", 1), 1);
        const time_t giveUp = time(nullptr) + 60;
        int waiting = 1;
        while (waiting > 0 && time(nullptr) < giveUp) {
            sched_yield();
            ASSERT_EQ(ioctl(password_[0], FIONREAD, &waiting), 0);
        }
        ASSERT_EQ(waiting, 0);
    }

    std::array<int, 2> password_{-1, -1};
    std::array<int, 2> answer_{-1, -1};
};

TEST_F(WaitingProgram, IsBoundedBeforeItReadsAByte)
{
    const pid_t program = Start();
    LetItRead();
    const std::string limits = ContentOf("/proc/" + std::to_string(program) + "/limits");
    EXPECT_THAT(limits, ::testing::ContainsRegex("Max address space +536870912 +536870912"));
    EXPECT_THAT(limits, ::testing::ContainsRegex("Max cpu time +5 +5"));
    EXPECT_THAT(limits, ::testing::ContainsRegex("Max core file size +0 +0"));
    EXPECT_THAT(limits, ::testing::ContainsRegex("Max file size +67108864 +67108864"));
    EXPECT_THAT(limits, ::testing::ContainsRegex("Max processes +0 +0"));
    kill(program, SIGKILL);
    EXPECT_EQ(testing::EndOf(program), testing::kKilled + SIGKILL);
}

TEST_F(WaitingProgram, EndsWithItsParent)
{
    const pid_t parent = testing::StartChild([this] {
        close(answer_[0]);
        static_cast<void>(Start());
        LetItRead();
        return 0;
    });
    EXPECT_EQ(testing::EndOf(parent), 0);
    close(answer_[1]);
    answer_[1] = -1;
    char nothing = 0;
    EXPECT_EQ(read(answer_[0], &nothing, 1), 0) << "nobody holds the other end any more";
}

} // namespace
} // namespace veldrane
