#include "shell/platform/abandoned_files.h"

#include "shell/platform/disk_file_system.h"
#include "shell/platform/temporary_registry.h"
#include "support/child_process.h"
#include "temporary_folder.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kGone = ".veldrane-4711-0123456789abcdef-";

class AbandonedFiles : public ::testing::Test
{
  protected:
    std::string Gone(const std::string& number) const { return folder_ / kGone + number + ".tmp"; }

    TemporaryFolder folder_;
    DiskFileSystem files_;
};

TEST_F(AbandonedFiles, FilesWhoseLockIsFreeAreRemoved)
{
    for (const char* number : {"0", "1", "17"})
        Put(Gone(number), "x");
    RemoveAbandonedFiles(folder_.Path());
    EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
}

TEST_F(AbandonedFiles, FilesWithoutALockAreRemoved)
{
    Put(Gone("3"), "x");
    RemoveAbandonedFiles(folder_.Path());
    EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
}

TEST_F(AbandonedFiles, FilesOfAKilledWriterAreRemoved)
{
    const int end = ExitCodeOf([&] {
        const auto batch = files_.StartBatch();
        batch->Add(folder_ / "a", "a");
        batch->Add(folder_ / "b", "b");
        return raise(SIGKILL);
    });
    EXPECT_EQ(end, kKilled + SIGKILL);
    EXPECT_THAT(files_.List(folder_.Path()), SizeIs(3));
    RemoveAbandonedFiles(folder_.Path());
    EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
}

TEST_F(AbandonedFiles, FilesOfARunningWriterStay)
{
    const auto batch = files_.StartBatch();
    batch->Add(folder_ / "a", "a");
    Put(Gone("1"), "x");
    RemoveAbandonedFiles(folder_.Path());
    EXPECT_EQ(ExitCodeOf([&] {
                  RemoveAbandonedFiles(folder_.Path());
                  return 0;
              }),
              0);
    batch->Commit();
    EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("a"));
}

TEST_F(AbandonedFiles, NamesThatAreNotExactlyOursStay)
{
    const std::vector<std::string> names{
        ".veldrane-4711-0123456789abcdef-1.tmp.bak",
        ".veldrane-4711-0123456789abcdef-.tmp",
        ".veldrane-4711-0123456789abcdef-01.tmp",
        ".veldrane-4711-0123456789ABCDEF-1.tmp",
        ".veldrane-4711-0123456789abcde-1.tmp",
        ".veldrane-x-0123456789abcdef-1.tmp",
        ".veldrane.tmp",
        "veldrane-4711-0123456789abcdef-1.tmp",
    };
    for (const std::string& name : names)
        Put(folder_ / name, "x");
    RemoveAbandonedFiles(folder_.Path());
    EXPECT_THAT(files_.List(folder_.Path()), SizeIs(names.size()));
}

TEST_F(AbandonedFiles, LinksAndFoldersOfOurNameStayAndAreNotFollowed)
{
    Put(folder_ / "precious", "x");
    ASSERT_EQ(symlink("precious", Gone("0").c_str()), 0);
    ASSERT_EQ(symlink("precious", (folder_ / ".veldrane-4711-fedcba9876543210-1.tmp").c_str()), 0);
    ASSERT_EQ(mkdir((folder_ / ".veldrane-4711-aaaaaaaaaaaaaaaa-1.tmp").c_str(), 0777), 0);
    RemoveAbandonedFiles(folder_.Path());
    EXPECT_THAT(files_.List(folder_.Path()), SizeIs(4));
    EXPECT_EQ(ContentOf(folder_ / "precious"), "x");
}

TEST_F(AbandonedFiles, FilesOfAnotherUserStay)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can give files away";
    Put(Gone("0"), "x");
    Put(Gone("1"), "x");
    chmod(Gone("0").c_str(), 0666);
    EXPECT_EQ(ExitCodeUnprivileged([&] {
                  RemoveAbandonedFiles(folder_.Path());
                  return 0;
              }),
              0);
    EXPECT_THAT(files_.List(folder_.Path()), SizeIs(2));
}

TEST_F(AbandonedFiles, AMissingFolderIsAFailure)
{
    EXPECT_THROW(RemoveAbandonedFiles(folder_ / "none"), RuntimeError);
}

TEST(TemporaryName, ANewNameIsOfTheFormThatIsSweptAndShowsItsOwner)
{
    const std::string owner = temporary_name::NewOwner();
    EXPECT_EQ(temporary_name::OwnerOf(temporary_name::Of(owner, 0)), owner);
    EXPECT_EQ(temporary_name::OwnerOf(temporary_name::Of(owner, 10'000)), owner);
    EXPECT_LT(owner.size(), temporary_name::kOwnerSize);
    EXPECT_NE(temporary_name::NewOwner(), owner);
}

} // namespace
} // namespace veldrane::testing
