#include "shell/platform/disk_file_system.h"

#include "support/child_process.h"
#include "support/system_calls.h"
#include "temporary_folder.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class DiskFiles : public ::testing::Test
{
  protected:
    // The text of the failure that the call ends with, "" without one.
    template <class Call>
    std::string FailureOf(Call&& call)
    {
        try {
            call();
        } catch (const RuntimeError& error) {
            return error.Description();
        }
        return "";
    }

    TemporaryFolder folder_;
    DiskFileSystem files_;
    const std::string target_ = folder_ / "target.txt";
};

mode_t PermissionsOf(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST_F(DiskFiles, ANewFileHasWhatTheUmaskLeaves)
{
    const mode_t former = umask(027);
    files_.Write(target_, "a");
    umask(former);
    EXPECT_EQ(PermissionsOf(target_), 0640U);
}

TEST_F(DiskFiles, AReplacedFileKeepsItsPermissions)
{
    for (const mode_t mode : {0600U, 0660U, 0777U}) {
        Put(target_, "old");
        chmod(target_.c_str(), mode);
        files_.Write(target_, "new");
        EXPECT_EQ(PermissionsOf(target_), mode);
    }
}

TEST_F(DiskFiles, AReplacedFileKeepsItsOwnerWhereThatIsAllowed)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can give files away";
    Put(target_, "old");
    ASSERT_EQ(chown(target_.c_str(), 65534, 65534), 0);
    files_.Write(target_, "new");
    struct stat status = {};
    ASSERT_EQ(stat(target_.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534U);
    EXPECT_EQ(status.st_gid, 65534U);
}

TEST_F(DiskFiles, ACopyMadeAnewIsNoMoreOpenThanItsSource)
{
    Put(target_, "secret");
    chmod(target_.c_str(), 0600);
    files_.Copy(target_, folder_ / "copy.txt");
    EXPECT_EQ(PermissionsOf(folder_ / "copy.txt"), 0600U);
}

TEST_F(DiskFiles, TheFileBehindALinkIsReplacedAndTheLinkStays)
{
    mkdir((folder_ / "far").c_str(), 0777);
    Put(folder_ / "far/real.txt", "old");
    ASSERT_EQ(symlink("far/middle.txt", (folder_ / "link.txt").c_str()), 0);
    ASSERT_EQ(symlink((folder_ / "far/real.txt").c_str(), (folder_ / "far/middle.txt").c_str()), 0);
    files_.Write(folder_ / "link.txt", "new");
    EXPECT_EQ(ContentOf(folder_ / "far/real.txt"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "link.txt"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "far/middle.txt"));
}

TEST_F(DiskFiles, ALinkToNothingGetsItsFile)
{
    ASSERT_EQ(symlink("real.txt", (folder_ / "link.txt").c_str()), 0);
    files_.Write(folder_ / "link.txt", "new");
    EXPECT_EQ(ContentOf(folder_ / "real.txt"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "link.txt"));
}

TEST_F(DiskFiles, LinksInACircleAreRefused)
{
    ASSERT_EQ(symlink("two", (folder_ / "one").c_str()), 0);
    ASSERT_EQ(symlink("one", (folder_ / "two").c_str()), 0);
    EXPECT_THAT(FailureOf([&] { files_.Write(folder_ / "one", "a"); }), HasSubstr(std::strerror(ELOOP)));
}

TEST_F(DiskFiles, OneFileUnderTwoNamesIsNotCopiedOntoItself)
{
    Put(target_, "a");
    ASSERT_EQ(symlink("target.txt", (folder_ / "soft").c_str()), 0);
    ASSERT_EQ(link(target_.c_str(), (folder_ / "hard").c_str()), 0);
    for (const char* name : {"soft", "hard", "./target.txt"})
        EXPECT_THAT(FailureOf([&] { files_.Copy(target_, folder_ / name); }), HasSubstr("copied onto itself")) << name;
    EXPECT_EQ(ContentOf(target_), "a");
}

TEST_F(DiskFiles, WhatIsNoPlainFileIsNotReplaced)
{
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0666), 0);
    EXPECT_EQ(files_.Kind(folder_ / "pipe"), FileKind::Other);
    EXPECT_THAT(FailureOf([&] { files_.Write(folder_ / "pipe", "a"); }), HasSubstr(folder_ / "pipe"));
    EXPECT_EQ(files_.Kind(folder_ / "pipe"), FileKind::Other);
}

TEST_F(DiskFiles, WhatIsNoPlainFileIsNotCopied)
{
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0666), 0);
    Put(target_, "a");
    EXPECT_EQ(FailureOf([&] { files_.Copy(folder_ / "pipe", target_); }), folder_ / "pipe: It is no plain file");
    EXPECT_EQ(ContentOf(target_), "a");
}

TEST_F(DiskFiles, ANameThatHoldsANulNamesNoFile)
{
    const std::string name = folder_ / std::string("a\0b", 3);
    EXPECT_THAT(FailureOf([&] { files_.Write(name, "a"); }), HasSubstr(std::strerror(EINVAL)));
    EXPECT_THAT(FailureOf([&] { static_cast<void>(files_.Read(name)); }), HasSubstr(std::strerror(EINVAL)));
    EXPECT_THAT(FailureOf([&] { files_.Remove(name); }), HasSubstr(std::strerror(EINVAL)));
    EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
}

TEST_F(DiskFiles, ARelativePathStartsAtTheCurrentFolder)
{
    EXPECT_EQ(ExitCodeOf([&] {
                  if (chdir(folder_.Path().c_str()) != 0)
                      return 1;
                  files_.Write("relative.txt", "a");
                  return 0;
              }),
              0);
    EXPECT_EQ(ContentOf(folder_ / "relative.txt"), "a");
}

TEST_F(DiskFiles, ShortAndInterruptedWritesGoOn)
{
    {
        const HaltingWrites halting;
        files_.Write(target_, "one byte at a time");
    }
    EXPECT_EQ(ContentOf(target_), "one byte at a time");
}

TEST_F(DiskFiles, AFailedSyncDropsTheFileAndKeepsTheOldOne)
{
    Put(target_, "old");
    const FailingCall failing(SystemCall::Fsync, EIO);
    EXPECT_EQ(FailureOf([&] { files_.Write(target_, "new"); }), target_ + ": " + std::strerror(EIO));
    EXPECT_EQ(ContentOf(target_), "old");
    EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("target.txt"));
}

TEST_F(DiskFiles, AFailedSyncOfTheFolderIsReported)
{
    const FailingCall failing(SystemCall::Fsync, EIO, 1);
    EXPECT_THAT(FailureOf([&] { files_.Write(target_, "new"); }), HasSubstr(folder_.Path()));
}

TEST_F(DiskFiles, AFileSystemThatCanNotSyncFoldersIsWrittenToAllTheSame)
{
    const FailingCall refused(SystemCall::Fsync, EINVAL, 1);
    files_.Write(target_, "new");
    EXPECT_EQ(ContentOf(target_), "new");
}

TEST_F(DiskFiles, AFailedRenameDropsTheFile)
{
    const FailingCall failing(SystemCall::Renameat, EDQUOT);
    EXPECT_EQ(FailureOf([&] { files_.Write(target_, "new"); }), target_ + ": " + std::strerror(EDQUOT));
    EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
}

TEST_F(DiskFiles, AFailedRenameInABatchKeepsWhatIsInPlaceAndDropsTheRest)
{
    const auto batch = files_.StartBatch();
    for (const char* name : {"a", "b", "c"})
        batch->Add(folder_ / name, name);
    const FailingCall failing(SystemCall::Renameat, EIO, 1);
    EXPECT_EQ(FailureOf([&] { batch->Commit(); }), folder_ / "b" + ": " + std::strerror(EIO));
    EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("a"));
    EXPECT_THAT(batch->InPlace(), ElementsAre(folder_ / "a"));
}

TEST_F(DiskFiles, FilesWhoseNamesCanNotBeSyncedAreToldToBeInPlace)
{
    const auto batch = files_.StartBatch();
    for (const char* name : {"a", "b"})
        batch->Add(folder_ / name, name);
    const FailingCall failing(SystemCall::Fsync, EIO, 2); // of the folder, behind both files
    EXPECT_THAT(FailureOf([&] { batch->Commit(); }), HasSubstr(std::strerror(EIO)));
    EXPECT_THAT(batch->InPlace(), ElementsAre(folder_ / "a", folder_ / "b"));
    EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("a", "b"));
}

TEST_F(DiskFiles, AFailedSyncOfManyFilesDropsThemAll)
{
    const auto batch = files_.StartBatch();
    for (int number = 0; number < 40; ++number)
        batch->Add(folder_ / std::to_string(number), "a");
    const FailingCall failing(SystemCall::Syncfs, ENOSPC);
    EXPECT_THAT(FailureOf([&] { batch->Commit(); }), HasSubstr(std::strerror(ENOSPC)));
    EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
}

TEST_F(DiskFiles, ABatchIsSyncedWholeBeforeItsFirstRename)
{
    const auto batch = files_.StartBatch();
    for (const char* name : {"a", "b", "c"})
        batch->Add(folder_ / name, name);
    const CallLog log;
    batch->Commit();
    EXPECT_THAT(log.Calls(), ElementsAre("fsync", "fsync", "fsync", "rename", "rename", "rename", "fsync"));
}

TEST_F(DiskFiles, ManyFilesAreSyncedAtOnce)
{
    const auto batch = files_.StartBatch();
    for (int number = 0; number < 17; ++number)
        batch->Add(folder_ / std::to_string(number), "a");
    const CallLog log;
    batch->Commit();
    EXPECT_EQ(log.Calls().front(), "syncfs");
    EXPECT_EQ(log.Calls().size(), 19U);
    EXPECT_EQ(log.Calls().back(), "fsync");
}

TEST_F(DiskFiles, ABatchHoldsMoreFilesThanAProcessMayOpen)
{
    EXPECT_EQ(ExitCodeOf([&] {
                  const rlimit few{64, 64};
                  setrlimit(RLIMIT_NOFILE, &few);
                  const auto batch = files_.StartBatch();
                  for (int number = 0; number < 200; ++number)
                      batch->Add(folder_ / std::to_string(number), "a");
                  batch->Commit();
                  return 0;
              }),
              0);
    EXPECT_EQ(files_.List(folder_.Path()).size(), 200U);
}

// A limit of the file size stands for a disk that is full after some bytes.
TEST_F(DiskFiles, AFullDiskKeepsTheOldFileAndLeavesNothingBehind)
{
    Put(target_, "old");
    const int code = ExitCodeOf([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        return FailureOf([&] { files_.Write(target_, std::string(100'000, 'x')); }) ==
                       target_ + ": " + std::strerror(EFBIG)
                   ? 0
                   : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(ContentOf(target_), "old");
    EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("target.txt"));
}

TEST_F(DiskFiles, AFullDiskLeavesTheRestOfABatchReady)
{
    const int code = ExitCodeOf([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        const auto batch = files_.StartBatch();
        batch->Add(target_, "small");
        const bool refused = !FailureOf([&] { batch->Add(folder_ / "big", std::string(100'000, 'x')); }).empty();
        batch->Commit();
        return refused ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(ContentOf(target_), "small");
    EXPECT_THAT(files_.List(folder_.Path()), ElementsAre("target.txt"));
}

TEST_F(DiskFiles, AFolderWithoutRightsIsNamed)
{
    mkdir((folder_ / "closed").c_str(), 0755);
    chmod((folder_ / "closed").c_str(), 0555);
    EXPECT_EQ(ExitCodeUnprivileged([&] {
                  return FailureOf([&] { files_.Write(folder_ / "closed/a", "a"); }) ==
                                 folder_ / "closed/a" + ": " + std::strerror(EACCES)
                             ? 0
                             : 1;
              }),
              0);
}

TEST_F(DiskFiles, AWriteProtectedFileIsNotReplaced)
{
    Put(target_, "old");
    chmod(target_.c_str(), 0444);
    EXPECT_EQ(ExitCodeUnprivileged([&] {
                  return FailureOf([&] { files_.Write(target_, "new"); }) == target_ + ": " + std::strerror(EACCES) ? 0
                                                                                                                    : 1;
              }),
              0);
    EXPECT_EQ(ContentOf(target_), "old");
}

TEST_F(DiskFiles, AFileWithoutRightsIsNotRead)
{
    Put(target_, "secret");
    chmod(target_.c_str(), 0000);
    EXPECT_EQ(ExitCodeUnprivileged([&] {
                  try {
                      static_cast<void>(files_.Read(target_));
                  } catch (const RuntimeError& error) {
                      return error.Number == error_number::kPathAccess ? 0 : 1;
                  }
                  return 2;
              }),
              0);
}

TEST_F(DiskFiles, ACopyOfAnUnreadableFileLeavesTheTarget)
{
    Put(target_, "secret");
    chmod(target_.c_str(), 0000);
    Put(folder_ / "backup", "old");
    chmod((folder_ / "backup").c_str(), 0666);
    EXPECT_EQ(ExitCodeUnprivileged(
                  [&] { return FailureOf([&] { files_.Copy(target_, folder_ / "backup"); }).empty() ? 1 : 0; }),
              0);
    EXPECT_EQ(ContentOf(folder_ / "backup"), "old");
}

} // namespace
} // namespace veldrane::testing
