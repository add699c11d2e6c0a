#include "shell/platform/disk_file_system.h"
#include "support/memory_file_system.h"
#include "temporary_folder.h"

#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// What both have in common: an empty folder to work in.
struct OnDisk
{
    TemporaryFolder Place;
    DiskFileSystem Files;

    std::string Folder() const { return Place.Path(); }
    void MakeFolder(const std::string& path) { std::filesystem::create_directory(path); }
};

struct InMemory
{
    MemoryFileSystem Files;

    InMemory() { Files.Folders.insert(Folder()); }
    std::string Folder() const { return "/work"; }
    void MakeFolder(const std::string& path) { Files.Folders.insert(path); }
};

template <class Place>
class FileSystemContract : public ::testing::Test
{
  protected:
    std::string At(const std::string& name) const { return place_.Folder() + "/" + name; }

    // The call fails with this number and a text that names the path and says why.
    void ExpectFailure(long number, const std::string& path, const std::string& reason,
                       const std::function<void()>& call)
    {
        try {
            call();
            ADD_FAILURE() << "no failure for " << path;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, number) << error.what();
            EXPECT_THAT(error.Description(), HasSubstr(path));
            EXPECT_THAT(error.Description(), HasSubstr(reason));
        }
    }

    Place place_;
    FileSystem& files_ = place_.Files;
};

using Places = ::testing::Types<InMemory, OnDisk>;
TYPED_TEST_SUITE(FileSystemContract, Places);

TYPED_TEST(FileSystemContract, WhatWasWrittenIsReadByteForByte)
{
    const std::string bytes("a\0b\r\n\xFF\n", 7);
    this->files_.Write(this->At("a.txt"), bytes);
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), bytes);
}

TYPED_TEST(FileSystemContract, AnEmptyFileIsWrittenAndRead)
{
    this->files_.Write(this->At("a.txt"), "");
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), "");
    EXPECT_EQ(this->files_.Kind(this->At("a.txt")), FileKind::File);
}

TYPED_TEST(FileSystemContract, OfAFileNoMoreThanItsBeginningIsReadOnRequest)
{
    this->files_.Write(this->At("a.txt"), "abc");
    EXPECT_EQ(this->files_.ReadBeginning(this->At("a.txt"), 2), "ab");
    EXPECT_EQ(this->files_.ReadBeginning(this->At("a.txt"), 0), "");
    EXPECT_EQ(this->files_.ReadBeginning(this->At("a.txt"), 4), "abc");
    this->ExpectFailure(error_number::kFileNotFound, this->At("gone.txt"), "No such file or directory",
                        [&] { static_cast<void>(this->files_.ReadBeginning(this->At("gone.txt"), 2)); });
}

TYPED_TEST(FileSystemContract, ALargeFileIsWrittenWhole)
{
    const std::string bytes(3'000'001, 'x');
    this->files_.Write(this->At("a.txt"), bytes);
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), bytes);
}

TYPED_TEST(FileSystemContract, WritingReplacesTheWholeFile)
{
    this->files_.Write(this->At("a.txt"), "something long");
    this->files_.Write(this->At("a.txt"), "short");
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), "short");
}

TYPED_TEST(FileSystemContract, KindTellsFilesFoldersAndNothing)
{
    this->files_.Write(this->At("a.txt"), "a");
    EXPECT_EQ(this->files_.Kind(this->At("a.txt")), FileKind::File);
    EXPECT_EQ(this->files_.Kind(this->place_.Folder()), FileKind::Folder);
    EXPECT_EQ(this->files_.Kind(this->At("b.txt")), FileKind::Missing);
    EXPECT_EQ(this->files_.Kind(""), FileKind::Missing);
    EXPECT_EQ(this->files_.Kind(std::string("/\0x", 3)), FileKind::Missing);
}

TYPED_TEST(FileSystemContract, ReadingWhatIsMissingFails)
{
    this->ExpectFailure(error_number::kFileNotFound, this->At("a.txt"), "No such file or directory",
                        [&] { static_cast<void>(this->files_.Read(this->At("a.txt"))); });
}

TYPED_TEST(FileSystemContract, ReadingAFolderFails)
{
    this->ExpectFailure(error_number::kPathAccess, this->place_.Folder(), "Is a directory",
                        [&] { static_cast<void>(this->files_.Read(this->place_.Folder())); });
}

TYPED_TEST(FileSystemContract, WritingOverAFolderFails)
{
    this->place_.MakeFolder(this->At("inner"));
    this->ExpectFailure(error_number::kPathAccess, this->At("inner"), "Is a directory",
                        [&] { this->files_.Write(this->At("inner"), "a"); });
    EXPECT_EQ(this->files_.Kind(this->At("inner")), FileKind::Folder);
}

TYPED_TEST(FileSystemContract, WritingIntoAMissingFolderFails)
{
    this->ExpectFailure(error_number::kPathAccess, this->At("none/a.txt"), "No such file or directory",
                        [&] { this->files_.Write(this->At("none/a.txt"), "a"); });
}

TYPED_TEST(FileSystemContract, RemovingTakesTheFileAway)
{
    this->files_.Write(this->At("a.txt"), "a");
    this->files_.Remove(this->At("a.txt"));
    EXPECT_EQ(this->files_.Kind(this->At("a.txt")), FileKind::Missing);
}

TYPED_TEST(FileSystemContract, RemovingWhatIsMissingFails)
{
    this->ExpectFailure(error_number::kFileNotFound, this->At("a.txt"), "No such file or directory",
                        [&] { this->files_.Remove(this->At("a.txt")); });
}

TYPED_TEST(FileSystemContract, RemovingAFolderFails)
{
    this->ExpectFailure(error_number::kPathAccess, this->place_.Folder(), "Is a directory",
                        [&] { this->files_.Remove(this->place_.Folder()); });
}

TYPED_TEST(FileSystemContract, ListingIsSortedByBytesAndHoldsFolders)
{
    for (const char* name : {"b.txt", "a.txt", "\xC3\xA4.txt", "B.txt", ".hidden"})
        this->files_.Write(this->At(name), "");
    this->place_.MakeFolder(this->At("inner"));
    this->files_.Write(this->At("inner/deep.txt"), "");
    EXPECT_THAT(this->files_.List(this->place_.Folder()),
                ElementsAre(".hidden", "B.txt", "a.txt", "b.txt", "inner", "\xC3\xA4.txt"));
}

TYPED_TEST(FileSystemContract, AnEmptyFolderListsNothing)
{
    EXPECT_THAT(this->files_.List(this->place_.Folder()), IsEmpty());
}

TYPED_TEST(FileSystemContract, ListingWhatIsMissingFails)
{
    this->ExpectFailure(error_number::kFileNotFound, this->At("none"), "No such file or directory",
                        [&] { static_cast<void>(this->files_.List(this->At("none"))); });
}

TYPED_TEST(FileSystemContract, ListingAFileFails)
{
    this->files_.Write(this->At("a.txt"), "");
    this->ExpectFailure(error_number::kPathAccess, this->At("a.txt"), "Not a directory",
                        [&] { static_cast<void>(this->files_.List(this->At("a.txt"))); });
}

TYPED_TEST(FileSystemContract, ACopyHoldsTheSameBytesAndLeavesItsSource)
{
    this->files_.Write(this->At("a.kzm"), "new");
    this->files_.Write(this->At("a.bak"), "something old");
    this->files_.Copy(this->At("a.kzm"), this->At("a.bak"));
    EXPECT_EQ(this->files_.Read(this->At("a.bak")), "new");
    EXPECT_EQ(this->files_.Read(this->At("a.kzm")), "new");
}

TYPED_TEST(FileSystemContract, AFileIsNotCopiedOntoItself)
{
    this->files_.Write(this->At("a.txt"), "a");
    this->ExpectFailure(error_number::kPathAccess, this->At("a.txt"), "copied onto itself",
                        [&] { this->files_.Copy(this->At("a.txt"), this->At("a.txt")); });
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), "a");
}

TYPED_TEST(FileSystemContract, CopyingWhatIsMissingLeavesTheTarget)
{
    this->files_.Write(this->At("a.bak"), "old");
    this->ExpectFailure(error_number::kFileNotFound, this->At("a.kzm"), "No such file or directory",
                        [&] { this->files_.Copy(this->At("a.kzm"), this->At("a.bak")); });
    EXPECT_EQ(this->files_.Read(this->At("a.bak")), "old");
}

TYPED_TEST(FileSystemContract, CopyingAFolderLeavesTheTarget)
{
    this->place_.MakeFolder(this->At("inner"));
    this->files_.Write(this->At("a.bak"), "old");
    this->ExpectFailure(error_number::kPathAccess, this->At("inner"), "Is a directory",
                        [&] { this->files_.Copy(this->At("inner"), this->At("a.bak")); });
    EXPECT_EQ(this->files_.Read(this->At("a.bak")), "old");
}

TYPED_TEST(FileSystemContract, ABatchShowsNothingBeforeItIsCommitted)
{
    this->files_.Write(this->At("a.txt"), "old");
    const auto batch = this->files_.StartBatch();
    batch->Add(this->At("a.txt"), "new");
    batch->Add(this->At("b.txt"), "new");
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), "old");
    EXPECT_EQ(this->files_.Kind(this->At("b.txt")), FileKind::Missing);
    batch->Commit();
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), "new");
    EXPECT_EQ(this->files_.Read(this->At("b.txt")), "new");
}

TYPED_TEST(FileSystemContract, ACommittedBatchLeavesNothingElse)
{
    {
        const auto batch = this->files_.StartBatch();
        batch->Add(this->At("a.txt"), "a");
        batch->Commit();
    }
    EXPECT_THAT(this->files_.List(this->place_.Folder()), ElementsAre("a.txt"));
}

TYPED_TEST(FileSystemContract, ADroppedBatchLeavesNothing)
{
    {
        const auto batch = this->files_.StartBatch();
        batch->Add(this->At("a.txt"), "a");
    }
    EXPECT_THAT(this->files_.List(this->place_.Folder()), IsEmpty());
}

TYPED_TEST(FileSystemContract, ABatchGoesOnAfterACommit)
{
    const auto batch = this->files_.StartBatch();
    batch->Add(this->At("a.txt"), "a");
    batch->Commit();
    batch->Commit();
    batch->Add(this->At("b.txt"), "b");
    batch->Commit();
    EXPECT_EQ(this->files_.Read(this->At("b.txt")), "b");
}

TYPED_TEST(FileSystemContract, OfTwoContentsOfOneBatchTheLastCounts)
{
    const auto batch = this->files_.StartBatch();
    batch->Add(this->At("a.txt"), "first");
    batch->Add(this->At("a.txt"), "second");
    batch->Commit();
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), "second");
}

TYPED_TEST(FileSystemContract, ARefusedFileLeavesTheRestOfABatchReady)
{
    const auto batch = this->files_.StartBatch();
    batch->Add(this->At("a.txt"), "a");
    this->ExpectFailure(error_number::kPathAccess, this->At("none/b.txt"), "No such file or directory",
                        [&] { batch->Add(this->At("none/b.txt"), "b"); });
    batch->Commit();
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), "a");
}

TYPED_TEST(FileSystemContract, ABatchTellsHowFarItsCommitCame)
{
    const auto batch = this->files_.StartBatch();
    EXPECT_THAT(batch->InPlace(), IsEmpty());
    for (const char* name : {"a.txt", "b.txt", "c.txt"})
        batch->Add(this->At(name), "new");
    this->place_.MakeFolder(this->At("b.txt"));
    this->ExpectFailure(error_number::kPathAccess, this->At("b.txt"), "Is a directory", [&] { batch->Commit(); });
    EXPECT_THAT(batch->InPlace(), ElementsAre(this->At("a.txt")));
    EXPECT_EQ(this->files_.Read(this->At("a.txt")), "new");
    EXPECT_EQ(this->files_.Kind(this->At("c.txt")), FileKind::Missing);
    batch->Add(this->At("d.txt"), "new");
    batch->Commit();
    EXPECT_THAT(batch->InPlace(), ElementsAre(this->At("d.txt")));
}

TYPED_TEST(FileSystemContract, ABatchOfManyFilesInSeveralFoldersIsWrittenWhole)
{
    this->place_.MakeFolder(this->At("one"));
    this->place_.MakeFolder(this->At("two"));
    const auto batch = this->files_.StartBatch();
    for (int number = 0; number < 300; ++number)
        batch->Add(this->At((number % 2 == 0 ? "one/" : "two/") + std::to_string(number)), std::to_string(number));
    batch->Commit();
    EXPECT_EQ(this->files_.List(this->At("one")).size(), 150U);
    EXPECT_EQ(this->files_.List(this->At("two")).size(), 150U);
    EXPECT_EQ(this->files_.Read(this->At("two/299")), "299");
}

TYPED_TEST(FileSystemContract, SweepingLeavesOtherFiles)
{
    this->files_.Write(this->At("a.txt"), "a");
    this->files_.RemoveAbandoned(this->place_.Folder());
    EXPECT_THAT(this->files_.List(this->place_.Folder()), ElementsAre("a.txt"));
}

} // namespace
} // namespace veldrane::testing
