#include "shell/platform/recovery_files.h"

#include "shell/platform/disk_file_system.h"
#include "shell/platform/system_clock.h"
#include "support/child_process.h"
#include "temporary_folder.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace veldrane {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class RecoveryFilesTest : public ::testing::Test
{
  protected:
    [[nodiscard]] std::string Recovery() const { return folder_ / "state/recovery"; }

    [[nodiscard]] static unsigned ModeOf(const std::string& path)
    {
        struct stat status = {};
        return stat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
    }

    // A copy of a program that ended as many days ago.
    std::string Left(const std::string& name, int days)
    {
        std::filesystem::create_directories(Recovery());
        std::string path = Recovery() + "/" + name;
        testing::Put(path, "unsaved");
        testing::Put(path + ".lock", "");
        std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - std::chrono::days(days));
        return path;
    }

    static bool IsThere(const std::string& path) { return std::filesystem::exists(path); }

    testing::TemporaryFolder folder_;
    SystemClock clock_;
    RecoveryFiles files_{Recovery(), clock_};
};

TEST_F(RecoveryFilesTest, ACopyIsItsUsersAlone)
{
    const std::string path = files_.GetTempName();
    EXPECT_THAT(path, MatchesRegex(Recovery() + "/[0-9]+-[0-9a-f]+\\.kzm"));
    EXPECT_EQ(ModeOf(Recovery()), 0700U);
    EXPECT_EQ(ModeOf(path), 0600U);
    DiskFileSystem().Write(path, "text");
    EXPECT_EQ(ModeOf(path), 0600U);
    EXPECT_NE(files_.GetTempName(), path);
}

TEST_F(RecoveryFilesTest, WhereNoFolderCanBeMadeTheErrorNamesIt)
{
    testing::Put(folder_ / "state", "a file");
    const std::vector<std::function<void()>> calls{
        [&] { static_cast<void>(files_.GetTempName()); },
        [&] { static_cast<void>(files_.Hold(Recovery() + "/1.kzm")); },
    };
    for (const std::function<void()>& call : calls) {
        try {
            call();
            ADD_FAILURE();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, error_number::kPathAccess);
            EXPECT_THAT(error.Description(), HasSubstr(Recovery()));
        }
    }
}

TEST_F(RecoveryFilesTest, ALockThatCanNotBeHadIsNoneThatIsHeld)
{
    std::filesystem::create_directories(Recovery() + "/1.kzm.lock");
    EXPECT_THROW(static_cast<void>(files_.Hold(Recovery() + "/1.kzm")), RuntimeError);
}

TEST_F(RecoveryFilesTest, TheLockNamesItsOwner)
{
    const std::string path = files_.GetTempName();
    EXPECT_EQ(DiskFileSystem().Read(path + ".lock"), std::to_string(getpid()) + "\n");
    EXPECT_TRUE(files_.Hold(path));
}

TEST_F(RecoveryFilesTest, WhereTheFolderTakesNoFileEachTryFailsAlike)
{
    RecoveryFiles nowhere("/proc/self", clock_);
    const auto failure = [&] {
        try {
            return nowhere.GetTempName();
        } catch (const RuntimeError& error) {
            return error.Description();
        }
    };
    EXPECT_THAT(failure(), MatchesRegex("/proc/self: .*"));
    EXPECT_EQ(failure(), failure());
}

TEST_F(RecoveryFilesTest, WhatOneProgramHoldsNoOtherTakes)
{
    const std::string path = files_.GetTempName();
    EXPECT_TRUE(files_.Hold(path));
    RecoveryFiles other(Recovery(), clock_);
    EXPECT_FALSE(other.Hold(path));
    other.RemoveOld({});
    EXPECT_TRUE(IsThere(path));
}

TEST_F(RecoveryFilesTest, WhatAKilledProgramHeldIsFree)
{
    const int end = testing::ExitCodeOf([&] {
        RecoveryFiles killed(Recovery(), clock_);
        static_cast<void>(killed.GetTempName());
        return raise(SIGKILL);
    });
    EXPECT_EQ(end, testing::kKilled + SIGKILL);
    const std::vector<std::string> names = DiskFileSystem().List(Recovery());
    ASSERT_EQ(names.size(), 2U);
    EXPECT_TRUE(files_.Hold(Recovery() + "/" + names[0])) << names[0];
}

TEST_F(RecoveryFilesTest, ACopyThatLiesElsewhereIsHeldTheSameWay)
{
    testing::Put(folder_ / "elsewhere.kzm", "unsaved");
    EXPECT_TRUE(files_.Hold(folder_ / "elsewhere.kzm"));
    EXPECT_FALSE(RecoveryFiles(Recovery(), clock_).Hold(folder_ / "elsewhere.kzm"));
    EXPECT_FALSE(IsThere(folder_ / "elsewhere.kzm.lock"));
}

TEST_F(RecoveryFilesTest, WhatHasHadNoEntryForThirtyDaysIsRemovedWithItsLock)
{
    const std::string old = Left("1-a.kzm", 31);
    const std::string kept = Left("2-b.kzm", 31);
    const std::string young = Left("3-c.kzm", 29);
    testing::Put(Recovery() + "/notes.txt", "of somebody");
    const std::string own = Left("Shop.kzm", 400);
    files_.RemoveOld({kept});
    EXPECT_FALSE(IsThere(old));
    EXPECT_FALSE(IsThere(old + ".lock"));
    EXPECT_TRUE(IsThere(kept));
    EXPECT_TRUE(IsThere(young));
    EXPECT_TRUE(IsThere(Recovery() + "/notes.txt"));
    EXPECT_TRUE(IsThere(own));
}

TEST_F(RecoveryFilesTest, TheDaysOfACopyCanBeginAnew)
{
    const std::string path = Left("1-a.kzm", 31);
    files_.StartDays(path);
    files_.StartDays(Recovery() + "/gone.kzm");
    files_.RemoveOld({});
    EXPECT_TRUE(IsThere(path));
    EXPECT_FALSE(IsThere(Recovery() + "/gone.kzm"));
}

TEST_F(RecoveryFilesTest, ALockWithoutACopyIsRemoved)
{
    std::filesystem::create_directories(Recovery());
    testing::Put(Recovery() + "/1-a.kzm.lock", "");
    files_.RemoveOld({});
    EXPECT_FALSE(IsThere(Recovery() + "/1-a.kzm.lock"));
}

TEST_F(RecoveryFilesTest, WithoutAFolderNothingIsRemoved)
{
    files_.RemoveOld({});
    EXPECT_FALSE(IsThere(Recovery()));
}

} // namespace
} // namespace veldrane
