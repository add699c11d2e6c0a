#include "projectfile/temp_files.h"
#include "support/failing_file_system.h"
#include "support/failing_settings.h"
#include "support/memory_recovery_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class TempFilesTest : public ::testing::Test
{
  protected:
    TempFilesTest() { files_.Folders.insert("/recovery"); }

    // A copy that some program has left behind.
    void Leave(const std::string& name)
    {
        files_.Files["/recovery/" + name] = "unsaved";
        settings_.SaveSetting(settings_section::kTempFiles, name, "/recovery/" + name);
    }

    using Names = std::vector<std::string>;

    // What can be taken over of all that was left behind.
    static Names Taken(TempFiles& files)
    {
        Names taken;
        for (const TempFile& copy : files.Recoverable())
            if (files.Take(copy))
                taken.push_back(copy.Name);
        return taken;
    }

    [[nodiscard]] auto Entries() const { return settings_.GetAllSettings(settings_section::kTempFiles); }

    testing::FailingSettings settings_;
    testing::FailingFileSystem files_;
    testing::MemoryRecoveryStore store_{files_};
    TempFiles tempFiles_{settings_, files_, store_};
};

TEST_F(TempFilesTest, AnEntryIsTheBareNameWithThePath)
{
    const std::string path = tempFiles_.NewCopy();
    EXPECT_THAT(Entries(), IsEmpty());
    tempFiles_.Add(path);
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm")));
}

TEST_F(TempFilesTest, AnEntryIsWrittenOnce)
{
    const std::string path = tempFiles_.NewCopy();
    tempFiles_.Add(path);
    const int writes = settings_.Writes;
    tempFiles_.Add(path);
    EXPECT_EQ(settings_.Writes, writes);
}

TEST_F(TempFilesTest, AnEntryThatCouldNotBeWrittenIsTriedAgain)
{
    const std::string path = tempFiles_.NewCopy();
    settings_.Fails = true;
    EXPECT_THROW(tempFiles_.Add(path), RuntimeError);
    settings_.Fails = false;
    tempFiles_.Add(path);
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", path)));
}

TEST_F(TempFilesTest, WhatWasLeftBehindIsRecoverableInTheOrderOfItsEntries)
{
    Leave("b.kzm");
    Leave("a.kzm");
    EXPECT_THAT(tempFiles_.Recoverable(),
                ElementsAre(TempFile{"b.kzm", "/recovery/b.kzm"}, TempFile{"a.kzm", "/recovery/a.kzm"}));
    EXPECT_THAT(store_.Kept, ElementsAre("/recovery/b.kzm", "/recovery/a.kzm"));
}

TEST_F(TempFilesTest, AnEntryWhoseFileIsGoneIsDeleted)
{
    Leave("a.kzm");
    Leave("b.kzm");
    files_.Files.erase("/recovery/a.kzm");
    EXPECT_THAT(tempFiles_.Recoverable(), ElementsAre(TempFile{"b.kzm", "/recovery/b.kzm"}));
    EXPECT_THAT(Entries(), ElementsAre(Pair("b.kzm", "/recovery/b.kzm")));
}

TEST_F(TempFilesTest, TheEntryOfAProgramThatRunsStaysThoughItsFileIsGone)
{
    Leave("a.kzm");
    files_.Files.erase("/recovery/a.kzm");
    store_.HeldByOthers.insert("/recovery/a.kzm");
    EXPECT_THAT(tempFiles_.Recoverable(), IsEmpty());
    EXPECT_THAT(Entries(), ElementsAre(Pair("a.kzm", "/recovery/a.kzm")));
}

TEST_F(TempFilesTest, AnEntryWhoseFolderIsGoneStaysForItMayComeBack)
{
    Leave("a.kzm");
    files_.Files.clear();
    files_.Folders.clear();
    EXPECT_THAT(tempFiles_.Recoverable(), IsEmpty());
    EXPECT_THAT(Entries(), ElementsAre(Pair("a.kzm", "/recovery/a.kzm")));
}

TEST_F(TempFilesTest, AnEntryThatCanNotBeDeletedHidesNoCopy)
{
    Leave("gone.kzm");
    Leave("a.kzm");
    files_.Files.erase("/recovery/gone.kzm");
    settings_.Fails = true;
    EXPECT_THAT(tempFiles_.Recoverable(), ElementsAre(TempFile{"a.kzm", "/recovery/a.kzm"}));
}

TEST_F(TempFilesTest, AnEntryThatCouldNotBeDeletedGoesWithTheSection)
{
    Leave("a.kzm");
    settings_.Fails = true;
    EXPECT_THROW(tempFiles_.Delete({"a.kzm", "/recovery/a.kzm"}), RuntimeError);
    settings_.Fails = false;
    tempFiles_.DeleteSection();
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TempFilesTest, AnEntryWithoutANameIsPassedOver)
{
    Leave("a.kzm");
    settings_.SaveSetting(settings_section::kTempFiles, "", "/recovery/b.kzm");
    EXPECT_THAT(tempFiles_.Recoverable(), ElementsAre(TempFile{"a.kzm", "/recovery/a.kzm"}));
    EXPECT_THAT(Entries(), ::testing::SizeIs(2));
}

TEST_F(TempFilesTest, WhatAnotherProgramHoldsIsLeftToIt)
{
    Leave("a.kzm");
    Leave("b.kzm");
    store_.HeldByOthers.insert("/recovery/a.kzm");
    EXPECT_EQ(Taken(tempFiles_), Names{"b.kzm"});
    EXPECT_THAT(Entries(), ElementsAre(Pair("a.kzm", "/recovery/a.kzm"), Pair("b.kzm", "/recovery/b.kzm")));
    EXPECT_THAT(store_.Kept, ElementsAre("/recovery/a.kzm", "/recovery/b.kzm"));
}

TEST_F(TempFilesTest, WhatAnotherProgramRecoversMeanwhileIsPassedOver)
{
    Leave("a.kzm");
    // It recovers the copy, deletes the entry and ends, just before the copy is held here.
    class LateStore : public testing::MemoryRecoveryStore
    {
      public:
        LateStore(testing::MemoryFileSystem& files, Settings& settings)
            : MemoryRecoveryStore(files), settings_(settings)
        {}
        [[nodiscard]] bool Hold(const std::string& /*path*/) override
        {
            settings_.DeleteSetting(settings_section::kTempFiles, "a.kzm");
            return true;
        }

      private:
        Settings& settings_;
    } store(files_, settings_);
    TempFiles late(settings_, files_, store);
    EXPECT_EQ(Taken(late), Names{});
}

TEST_F(TempFilesTest, TheSectionGoesButForTheEntriesOfOthers)
{
    Leave("theirs.kzm");
    Leave("given-up.kzm");
    tempFiles_.Add(tempFiles_.NewCopy());
    tempFiles_.GiveUp({"given-up.kzm", "/recovery/given-up.kzm"});
    tempFiles_.DeleteSection();
    EXPECT_THAT(Entries(), ElementsAre(Pair("theirs.kzm", "/recovery/theirs.kzm")));
    EXPECT_TRUE(files_.Files.contains("/recovery/copy1.kzm"));
    EXPECT_TRUE(files_.Files.contains("/recovery/given-up.kzm"));
}

TEST_F(TempFilesTest, ASectionThatCouldNotBeDeletedGoesTheNextTime)
{
    tempFiles_.Add(tempFiles_.NewCopy());
    settings_.Fails = true;
    EXPECT_THROW(tempFiles_.DeleteSection(), RuntimeError);
    settings_.Fails = false;
    tempFiles_.DeleteSection();
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TempFilesTest, AnEntryIsKnownByItsNameWhereverItsPathLeads)
{
    files_.Files["/elsewhere/x.kzm"] = "unsaved";
    settings_.SaveSetting(settings_section::kTempFiles, "odd", "/elsewhere/x.kzm");
    Leave("a.kzm");
    ASSERT_THAT(tempFiles_.Recoverable(),
                ElementsAre(TempFile{"odd", "/elsewhere/x.kzm"}, TempFile{"a.kzm", "/recovery/a.kzm"}));
    tempFiles_.Delete({"odd", "/elsewhere/x.kzm"});
    EXPECT_THAT(Entries(), ElementsAre(Pair("a.kzm", "/recovery/a.kzm")));
}

TEST_F(TempFilesTest, AnEntryThatNamesAFolderIsDeletedAloneAsOneWithoutAFile)
{
    settings_.SaveSetting(settings_section::kTempFiles, "odd", "/recovery/");
    Leave("a.kzm");
    EXPECT_THAT(tempFiles_.Recoverable(), ElementsAre(TempFile{"a.kzm", "/recovery/a.kzm"}));
    EXPECT_THAT(Entries(), ElementsAre(Pair("a.kzm", "/recovery/a.kzm")));
}

} // namespace
} // namespace veldrane
