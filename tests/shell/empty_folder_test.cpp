#include "shell/empty_folder.h"
#include "support/failing_file_system.h"
#include "support/recorded_errors.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct EmptiedFolder : ::testing::Test
{
    EmptiedFolder()
    {
        Files.Folders.insert("/out");
        for (const char* name : {"Auto.cls", "Shop.vbp", "TestShop.vbp"})
            Files.Files[std::string("/out/") + name] = "";
    }

    [[nodiscard]] bool Empty() { return EmptyFolder(Files, Errors, Shop); }
    [[nodiscard]] std::string Refusal() const { return ReasonAgainstEmptying(Files, Shop).value_or(""); }

    testing::FailingFileSystem Files;
    testing::RecordedErrors Errors;
    FolderOfProject Shop{.Folder = "/out", .ProjectFile = "/projects/Shop.kzm", .VBProjectName = "Shop"};
};

// Without it nobody could tell that the rest may go as well.
TEST_F(EmptiedFolder, KeepsTheProjectUntilAllElseIsGone)
{
    Files.FailingPaths = {"/out/Shop.vbp"};
    EXPECT_FALSE(Empty());
    EXPECT_THAT(Files.List("/out"), ElementsAre("Shop.vbp"));
    EXPECT_EQ(Refusal(), "");
}

TEST_F(EmptiedFolder, ReportsOnceWhateverCouldNotBeRemovedAndGoesOn)
{
    Files.FailingPaths = {"/out/Auto.cls", "/out/Shop.vbp"};
    EXPECT_FALSE(Empty());
    EXPECT_THAT(Files.List("/out"), ElementsAre("Auto.cls", "Shop.vbp"));
    ASSERT_EQ(Errors.Reported.size(), 1U);
    EXPECT_EQ(Errors.Reported[0].Error.Description(), "/out/Auto.cls: No space left on device");
    EXPECT_EQ(Errors.Reported[0].Place.Hint, "Files that could not be removed either: 1.");
}

TEST_F(EmptiedFolder, HasNoReportWhereAllWereRemoved)
{
    EXPECT_TRUE(Empty());
    EXPECT_THAT(Files.List("/out"), IsEmpty());
    EXPECT_THAT(Errors.Reported, IsEmpty());
}

TEST_F(EmptiedFolder, KeepsWhatAnotherRunIsWriting)
{
    const std::string name = ".veldrane-4711-0123456789abcdef-1.tmp";
    Files.Files["/out/" + name] = "";
    EXPECT_TRUE(Empty());
    EXPECT_THAT(Files.List("/out"), ElementsAre(name));
    EXPECT_EQ(Refusal(), "") << "what a killed run left must not hold up the next one";
}

} // namespace
} // namespace veldrane
