#include "shell/platform/settings_file.h"

#include "shell/platform/disk_file_system.h"
#include "support/child_process.h"
#include "support/scripted_messages.h"
#include "support/system_calls.h"
#include "temporary_folder.h"

#include <cerrno>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

class SettingsOnDisk : public ::testing::Test
{
  protected:
    std::string FailureOfStoring()
    {
        try {
            settings_.UpdateKey("Options", "Author", "Ann");
        } catch (const RuntimeError& error) {
            return error.Number == error_number::kPathAccess ? error.Description() : "another number";
        }
        return "";
    }

    TemporaryFolder folder_;
    DiskFileSystem files_;
    ScriptedMessages messages_;
    const std::string path_ = folder_ / "settings.ini";
    SettingsFile settings_{path_, files_, messages_};
};

TEST_F(SettingsOnDisk, ReadingMakesNothing)
{
    EXPECT_EQ(settings_.GetKeyValue("Options", "Author"), "");
    EXPECT_THAT(files_.List(folder_.Path()), IsEmpty());
    EXPECT_THAT(messages_.Asked(), IsEmpty());
}

TEST_F(SettingsOnDisk, TheFirstValueMakesTheFolderForItsUserAlone)
{
    SettingsFile settings(folder_ / "config/veldrane/settings.ini", files_, messages_);
    settings.UpdateKey("Options", "Author", "Ann");
    EXPECT_EQ(ContentOf(folder_ / "config/veldrane/settings.ini"), "[Options]\nAuthor=Ann\n");
    struct stat status = {};
    ASSERT_EQ(stat((folder_ / "config/veldrane").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(SettingsOnDisk, TwoStoresOfOneFileSeeEachOthersValues)
{
    SettingsFile other(path_, files_, messages_);
    settings_.UpdateKey("Options", "Author", "Ann");
    EXPECT_EQ(other.GetKeyValue("Options", "Author"), "Ann");
    other.UpdateKey("Options", "ClassPrefix", "cls");
    settings_.UpdateKey("Options", "ModulePrefix", "bas");
    EXPECT_EQ(settings_.GetAllSettings("Options").size(), 3U);
}

TEST_F(SettingsOnDisk, ProcessesThatWriteAtOnceLoseNothing)
{
    EXPECT_TRUE(AllEndWell(4, [&](int process) {
        for (int number = 0; number < 25; ++number)
            settings_.UpdateKey("Options", std::to_string(process) + "-" + std::to_string(number), "x");
    }));
    EXPECT_THAT(settings_.GetAllSettings("Options"), SizeIs(100));
}

TEST_F(SettingsOnDisk, ProcessesThatMeetABrokenFileAtOnceSetItAsideOnce)
{
    Put(path_, "nonsense");
    EXPECT_TRUE(AllEndWell(6, [&](int process) {
        static_cast<void>(settings_.GetKeyValue("Options", "Author"));
        settings_.UpdateKey("Options", std::to_string(process), "x");
    }));
    EXPECT_THAT(settings_.GetAllSettings("Options"), SizeIs(6));
    EXPECT_EQ(ContentOf(path_ + ".broken"), "nonsense");
    EXPECT_THAT(files_.List(folder_.Path()), Not(Contains("settings.ini.broken-2")));
}

TEST_F(SettingsOnDisk, ABrokenFileIsSetAsideWithANoteWhenItIsRead)
{
    Put(path_, "[Options]\nnonsense\n");
    EXPECT_EQ(settings_.GetKeyValue("Options", "Author"), "");
    EXPECT_EQ(settings_.GetKeyValue("Options", "Author"), "");
    EXPECT_EQ(ContentOf(path_ + ".broken"), "[Options]\nnonsense\n");
    EXPECT_EQ(files_.Kind(path_), FileKind::Missing);
    ASSERT_THAT(messages_.Asked(), SizeIs(1));
    EXPECT_EQ(messages_.Asked()[0].Text, "The settings in " + path_ +
                                             " can't be understood: line 2 is no section and no value.\r\n"
                                             "They were set aside as " +
                                             path_ + ".broken, and the defaults are used.");
}

TEST_F(SettingsOnDisk, ABrokenFileIsSetAsideWhenAValueIsStored)
{
    Put(path_, "\xFF\xFE noise");
    settings_.UpdateKey("Options", "Author", "Ann");
    EXPECT_EQ(ContentOf(path_), "[Options]\nAuthor=Ann\n");
    EXPECT_EQ(ContentOf(path_ + ".broken"), "\xFF\xFE noise");
    EXPECT_THAT(messages_.Asked(), SizeIs(1));
}

TEST_F(SettingsOnDisk, AFileThatWasSetAsideIsNeverReplaced)
{
    for (const char* content : {"first", "second", "third"}) {
        Put(path_, content);
        static_cast<void>(settings_.GetKeyValue("Options", "Author"));
    }
    EXPECT_EQ(ContentOf(path_ + ".broken"), "first");
    EXPECT_EQ(ContentOf(path_ + ".broken-2"), "second");
    EXPECT_EQ(ContentOf(path_ + ".broken-3"), "third");
}

TEST_F(SettingsOnDisk, AFolderInItsPlaceStays)
{
    mkdir(path_.c_str(), 0777);
    Put(path_ + "/inside", "x");
    EXPECT_EQ(settings_.GetKeyValue("Options", "Author"), "");
    EXPECT_THAT(messages_.Asked(), SizeIs(1));
    EXPECT_THAT(FailureOfStoring(), HasSubstr(path_));
    EXPECT_EQ(ContentOf(path_ + "/inside"), "x");
}

TEST_F(SettingsOnDisk, ADeviceInItsPlaceStays)
{
    ASSERT_EQ(mkfifo(path_.c_str(), 0666), 0);
    EXPECT_EQ(settings_.GetKeyValue("Options", "Author"), "");
    EXPECT_THAT(messages_.Asked(), SizeIs(1));
    EXPECT_THAT(FailureOfStoring(), HasSubstr(path_));
    EXPECT_EQ(files_.Kind(path_), FileKind::Other);
}

TEST_F(SettingsOnDisk, AFileWithoutRightsGivesDefaultsOneNoteAndNoStoring)
{
    Put(path_, "[Options]\nAuthor=Ann\n");
    chmod(path_.c_str(), 0000);
    EXPECT_EQ(ExitCodeUnprivileged([&] {
                  const bool empty =
                      settings_.GetKeyValue("Options", "Author").empty() && settings_.GetAllSettings("Options").empty();
                  const bool named = FailureOfStoring().starts_with(path_ + ": Permission denied");
                  return empty && named && messages_.Asked().size() == 1 ? 0 : 1;
              }),
              0);
    EXPECT_EQ(ContentOf(path_), geteuid() == 0 ? "[Options]\nAuthor=Ann\n" : "");
    EXPECT_THAT(files_.List(folder_.Path()), Not(Contains("settings.ini.broken")));
}

TEST_F(SettingsOnDisk, ABrokenFileInAClosedFolderGivesDefaultsAndANote)
{
    Put(path_, "nonsense");
    chmod(folder_.Path().c_str(), 0555);
    EXPECT_EQ(ExitCodeUnprivileged([&] {
                  const bool empty = settings_.GetKeyValue("Options", "Author").empty();
                  return empty && messages_.Asked().size() == 1 && !FailureOfStoring().empty() ? 0 : 1;
              }),
              0);
    chmod(folder_.Path().c_str(), 0777);
    EXPECT_EQ(ContentOf(path_), "nonsense");
}

TEST_F(SettingsOnDisk, AFailedWriteLeavesTheStoreAsItWas)
{
    settings_.UpdateKey("Options", "Author", "Ben");
    {
        const FailingCall failing(SystemCall::Fsync, ENOSPC);
        EXPECT_THAT(FailureOfStoring(), HasSubstr(path_));
    }
    EXPECT_EQ(settings_.GetKeyValue("Options", "Author"), "Ben");
    EXPECT_EQ(FailureOfStoring(), "");
}

TEST_F(SettingsOnDisk, AFileThatIsALinkStaysOne)
{
    Put(folder_ / "real.ini", "[Options]\n");
    ASSERT_EQ(symlink("real.ini", path_.c_str()), 0);
    settings_.UpdateKey("Options", "Author", "Ann");
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
    EXPECT_EQ(ContentOf(folder_ / "real.ini"), "[Options]\nAuthor=Ann\n");
}

TEST_F(SettingsOnDisk, ANumberIsReadAsDecimalText)
{
    Put(path_, "[Options]\nPreviewBackgroundColor=dword:00fef8f3\n");
    EXPECT_EQ(settings_.GetKeyValue("Options", "PreviewBackgroundColor"), "16709875");
}

TEST_F(SettingsOnDisk, TheFilesOfAKilledWriterAreRemovedByTheNextWrite)
{
    Put(folder_ / ".veldrane-4711-0123456789abcdef-1.tmp", "x");
    settings_.UpdateKey("Options", "Author", "Ann");
    EXPECT_THAT(files_.List(folder_.Path()), Not(Contains(HasSubstr(".tmp"))));
}

} // namespace
} // namespace veldrane::testing
