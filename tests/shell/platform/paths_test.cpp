#include "shell/platform/paths.h"

#include "temporary_folder.h"
#include "text/runtime_error.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <sys/stat.h>

namespace veldrane::testing {
namespace {

// The environment is put back after each case.
class OwnPaths : public ::testing::Test
{
  public:
    OwnPaths()
    {
        for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "VELDRANE_SETTINGS"}) {
            const char* value = std::getenv(name);
            former_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
            unsetenv(name);
        }
        setenv("HOME", "/home/ann", 1);
    }
    ~OwnPaths() override
    {
        for (const auto& [name, value] : former_)
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }

  private:
    std::map<std::string, std::optional<std::string>> former_;
};

TEST_F(OwnPaths, WithoutVariablesTheyLieBelowTheHomeFolder)
{
    EXPECT_EQ(ConfigFolder(), "/home/ann/.config/veldrane");
    EXPECT_EQ(SettingsPath(), "/home/ann/.config/veldrane/settings.ini");
    EXPECT_EQ(StateFolder(), "/home/ann/.local/state/veldrane");
    EXPECT_EQ(RecoveryFolder(), "/home/ann/.local/state/veldrane/recovery");
}

TEST_F(OwnPaths, VariablesNameOtherFolders)
{
    setenv("XDG_CONFIG_HOME", "/etc/ann/", 1);
    setenv("XDG_STATE_HOME", "/var/ann", 1);
    EXPECT_EQ(SettingsPath(), "/etc/ann/veldrane/settings.ini");
    EXPECT_EQ(StateFolder(), "/var/ann/veldrane");
}

TEST_F(OwnPaths, EmptyAndRelativeVariablesArePassedOver)
{
    setenv("XDG_CONFIG_HOME", "", 1);
    setenv("XDG_STATE_HOME", "state", 1);
    setenv("VELDRANE_SETTINGS", "", 1);
    EXPECT_EQ(SettingsPath(), "/home/ann/.config/veldrane/settings.ini");
    EXPECT_EQ(StateFolder(), "/home/ann/.local/state/veldrane");
}

TEST_F(OwnPaths, AnotherSettingsFileMayBeNamed)
{
    setenv("VELDRANE_SETTINGS", "mine.ini", 1);
    EXPECT_EQ(SettingsPath(), "mine.ini");
}

TEST_F(OwnPaths, WithoutAHomeVariableTheUsersEntryCounts)
{
    unsetenv("HOME");
    EXPECT_TRUE(ConfigFolder().starts_with("/"));
    EXPECT_TRUE(ConfigFolder().ends_with("/.config/veldrane"));
}

TEST(ProgramFolder, IsWhereTheRunningProgramLies)
{
    EXPECT_TRUE(std::filesystem::exists(ProgramFolder() + "/platform_tests"));
}

TEST(PathsFromTheRoot, AreReadableWhereThatLeadsToTheSamePlace)
{
    const TemporaryFolder folder;
    MakeFolder(folder / "far/away");
    MakeFolder(folder / "near");
    std::filesystem::create_directory_symlink(folder / "far/away", folder / "near/door");
    EXPECT_EQ(PathFromRoot(folder / "far/../near"), folder / "near");
    EXPECT_EQ(PathFromRoot(folder / "far/../near/."), folder / "near/");
    EXPECT_EQ(PathFromRoot(folder / "far/../near/new.kzm"), folder / "near/new.kzm");
    EXPECT_EQ(PathFromRoot(folder / "near/door"), folder / "near/door");
    EXPECT_EQ(PathFromRoot(folder / "near/door/.."), folder / "near/door/..");
    EXPECT_EQ(PathFromRoot(folder / "near/door/../new.kzm"), folder / "near/door/../new.kzm");
    EXPECT_EQ(PathFromRoot("new.kzm"), (std::filesystem::current_path() / "new.kzm").string());
}

TEST(MakingFolders, MissingOnesAreMadeForTheUserAlone)
{
    const TemporaryFolder folder;
    MakeFolder(folder / "a/b/c");
    for (const char* name : {"a", "a/b", "a/b/c"}) {
        struct stat status = {};
        ASSERT_EQ(stat((folder / name).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0700U) << name;
    }
}

TEST(MakingFolders, OneThatStandsKeepsItsRights)
{
    const TemporaryFolder folder;
    MakeFolder(folder.Path());
    struct stat status = {};
    ASSERT_EQ(stat(folder.Path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0777U);
}

TEST(MakingFolders, AFileInTheWayIsNamed)
{
    const TemporaryFolder folder;
    Put(folder / "file", "x");
    for (const char* name : {"file", "file/inner"}) {
        try {
            MakeFolder(folder / name);
            ADD_FAILURE() << name;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, error_number::kPathAccess);
            EXPECT_TRUE(error.Description().starts_with(folder / name + ": ")) << error.Description();
        }
    }
}

} // namespace
} // namespace veldrane::testing
