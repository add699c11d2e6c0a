#include "shell/switch_line.h"
#include "support/memory_file_system.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(SwitchLine, TakesSwitchesAnywhere)
{
    const SwitchLine line =
        ReadSwitchLine({"/DELETE", "Shop.kzm", "/DEBUG", "out", "/NOSPLASH", "/C"}, testing::MemoryFileSystem());
    EXPECT_TRUE(line.AutoCompileMode);
    EXPECT_TRUE(line.DebugTiming);
    EXPECT_TRUE(line.DeleteAfterCompile);
    EXPECT_TRUE(line.NoSplash);
    EXPECT_EQ(line.File, "Shop.kzm");
    EXPECT_EQ(line.Folder, "out");
    EXPECT_EQ(line.Surplus, "");
}

TEST(SwitchLine, TakesExactWordsInCapitalsAlone)
{
    for (const char* word : {"/c", "/Debug", "/CC", "/C/", "/DELETE ", " /C", "C", "-C"}) {
        const SwitchLine line = ReadSwitchLine({word}, testing::MemoryFileSystem());
        EXPECT_FALSE(line.AutoCompileMode || line.DebugTiming || line.DeleteAfterCompile || line.NoSplash) << word;
        EXPECT_EQ(line.Folder, word);
    }
}

TEST(SwitchLine, TakesAPathThatBeginsWithASlashAsAPath)
{
    const SwitchLine line = ReadSwitchLine({"/srv/Shop.kzm", "/CLASSES"}, testing::MemoryFileSystem());
    EXPECT_EQ(line.File, "/srv/Shop.kzm");
    EXPECT_EQ(line.Folder, "/CLASSES");
}

TEST(SwitchLine, TakesAFileOfAnyNameAsTheProject)
{
    testing::MemoryFileSystem files;
    files.Files["/SHOP.KZM"] = "";
    files.Folders.insert("/out");
    const SwitchLine line = ReadSwitchLine({"/out", "/SHOP.KZM"}, files);
    EXPECT_EQ(line.File, "/SHOP.KZM");
    EXPECT_EQ(line.Folder, "/out");
}

TEST(SwitchLine, NamesTheFirstWordTooMany)
{
    const testing::MemoryFileSystem files;
    EXPECT_EQ(ReadSwitchLine({"a.kzm", "b.kzm", "c.kzm"}, files).Surplus, "b.kzm");
    EXPECT_EQ(ReadSwitchLine({"/C", "a.kzm", "out", "more"}, files).Surplus, "more");
}

} // namespace
} // namespace veldrane
