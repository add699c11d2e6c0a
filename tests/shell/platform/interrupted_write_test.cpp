#include "shell/platform/disk_file_system.h"
#include "shell/platform/temporary_registry.h"
#include "support/child_process.h"
#include "temporary_folder.h"

#include <atomic>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <sys/resource.h>
#include <unistd.h>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Interrupted : public ::testing::Test
{
  protected:
    TemporaryFolder folder_;
    TemporaryFolder other_;
    DiskFileSystem files_;
};

TEST_F(Interrupted, ASignalRemovesTheTemporaryFilesAndEndsWithItsCode)
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        const int end = ExitCodeOf([&] {
            RemoveTemporariesOnSignal();
            const auto batch = files_.StartBatch();
            for (int file = 0; file < 40; ++file)
                batch->Add((file % 2 == 0 ? folder_ : other_) / std::to_string(file), "a");
            return raise(number);
        });
        EXPECT_EQ(end, 128 + number);
        EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
        EXPECT_THAT(files_.List(other_.Path()), IsEmpty());
    }
}

TEST_F(Interrupted, ASignalKeepsWhatIsInPlace)
{
    const int end = ExitCodeOf([&] {
        RemoveTemporariesOnSignal();
        const auto batch = files_.StartBatch();
        batch->Add(folder_ / "a", "a");
        batch->Commit();
        batch->Add(folder_ / "b", "b");
        return raise(SIGINT);
    });
    EXPECT_EQ(end, 130);
    EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("a"));
}

TEST_F(Interrupted, ASignalThatWasIgnoredStaysIgnored)
{
    EXPECT_EQ(ExitCodeOf([&] {
                  signal(SIGHUP, SIG_IGN);
                  RemoveTemporariesOnSignal();
                  raise(SIGHUP);
                  return 7;
              }),
              7);
}

TEST_F(Interrupted, ALimitOfTheFileSizeIsAFailureAndNoEnd)
{
    EXPECT_EQ(ExitCodeOf([&] {
                  RemoveTemporariesOnSignal();
                  const rlimit limit{1000, 1000};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  try {
                      files_.Write(folder_ / "a", std::string(100'000, 'x'));
                  } catch (const RuntimeError&) {
                      return 7;
                  }
                  return 0;
              }),
              7);
    EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
}

TEST_F(Interrupted, AForkedProcessLeavesTheFilesOfTheOther)
{
    const auto batch = files_.StartBatch();
    batch->Add(folder_ / "a", "a");
    EXPECT_EQ(ExitCodeOf([&] {
                  RemoveTemporariesOnSignal();
                  return raise(SIGTERM);
              }),
              128 + SIGTERM);
    batch->Commit();
    EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("a"));
}

TEST_F(Interrupted, MoreWritersThanTheTableHoldsStillWrite)
{
    std::vector<std::unique_ptr<FileBatch>> batches;
    for (int number = 0; number < 100; ++number) {
        batches.push_back(files_.StartBatch());
        batches.back()->Add(folder_ / std::to_string(number), "a");
    }
    for (const auto& batch : batches)
        batch->Commit();
    batches.clear();
    EXPECT_EQ(files_.List(folder_.Path()).size(), 100U);
}

std::string ContentNumber(int number)
{
    return std::string(20'000, static_cast<char>('a' + number % 26));
}

// Writes without end, and says after each write that it is done.
int WriteForever(FileSystem& files, const std::string& path, int done)
{
    for (int number = 0;; ++number) {
        files.Write(path, ContentNumber(number));
        if (write(done, "x", 1) != 1)
            return 1;
    }
}

// Lets the writer go on for a while that differs from round to round.
void LetPass(int writes, int turns, int done)
{
    char byte = 0;
    for (int count = 0; count < writes; ++count)
        if (read(done, &byte, 1) != 1)
            return;
    std::atomic<int> turn{0};
    while (++turn < turns) {
    }
}

TEST_F(Interrupted, AKilledWriterLeavesTheOldOrTheNewFileWhole)
{
    const std::string target = folder_ / "target";
    std::set<std::string> whole;
    for (int number = 0; number < 26; ++number)
        whole.insert(ContentNumber(number));
    std::mt19937 random(1); // NOLINT: the same rounds on every run
    for (int round = 0; round < 48; ++round) {
        int done[2] = {};
        ASSERT_EQ(pipe(done), 0);
        files_.Write(target, ContentNumber(0));
        const pid_t writer = StartChild([&] { return WriteForever(files_, target, done[1]); });
        close(done[1]);
        LetPass(static_cast<int>(random() % 4), static_cast<int>(random() % 2'000'000), done[0]);
        kill(writer, SIGKILL);
        EXPECT_EQ(EndOf(writer), kKilled + SIGKILL);
        close(done[0]);
        EXPECT_TRUE(whole.contains(ContentOf(target))) << "round " << round;
        files_.RemoveAbandoned(folder_.Path());
        EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("target"));
    }
}

} // namespace
} // namespace veldrane::testing
