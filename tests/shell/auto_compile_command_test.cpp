#include "program.h"

#include "support/child_process.h"
#include "text/strings.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <unistd.h>

namespace veldrane {
namespace {

namespace fs = std::filesystem;

using testing::Ended;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::Program;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

struct AutoCompile : ::testing::Test
{
    AutoCompile()
    {
        fs::create_directories(Workspace.Path("work"));
        fs::create_directory(Workspace.Path("out"));
        const Ended defined =
            Workspace.Run({"define", Project, "--connection", Workspace.MakeShop(), "--table", "Customers"});
        EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    }

    void SetOutputPath(const std::string& folder)
    {
        EXPECT_EQ(Workspace.Run({"define", Project, "--set", "OutputPath=" + folder}).ExitCode, 0);
    }

    std::vector<std::string> In(const std::string& folder)
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(Workspace.Path(folder)))
            names.push_back(entry.path().filename().string());
        return names;
    }

    // A run with /DELETE on a folder that must not be emptied: nothing is touched, and the reason is told.
    void ExpectRefused(const std::string& folder, const std::string& reason)
    {
        const Ended ended = Workspace.Run({"/C", "/DELETE", Project, folder});
        EXPECT_EQ(ended.ExitCode, 1) << folder;
        EXPECT_THAT(ended.ErrorOutput, HasSubstr("/DELETE is refused: " + reason)) << folder;
    }

    Program Workspace;
    std::string Project = Workspace.Path("work/Shop.kzm");
    std::string Out = Workspace.Path("out");
};

TEST_F(AutoCompile, WritesTheProjectIntoTheFolderGivenWithoutAQuestion)
{
    const Ended ended = Workspace.Run({"/C", Project, Out});
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    EXPECT_THAT(ended.ErrorOutput, Not(HasSubstr("Answer:")));
    EXPECT_THAT(In("out"), UnorderedElementsAre("Shop.vbp", "TestShop.vbp", "TestShop.vbg", "frmTest.frm",
                                                "Globals.Bas", "Auto.cls", "Customer.cls", "xmlAssist.cls"));
}

TEST_F(AutoCompile, WritesIntoTheOutputPathOfTheProjectUnlessAFolderIsGiven)
{
    SetOutputPath(Out);
    EXPECT_EQ(Workspace.Run({"/C", Project}).ExitCode, 0);
    EXPECT_TRUE(fs::exists(Workspace.Path("out/Shop.vbp")));
}

TEST_F(AutoCompile, TakesAFolderWithASlashAtItsEnd)
{
    EXPECT_EQ(Workspace.Run({"/C", Project, Out + "/"}).ExitCode, 0);
    EXPECT_TRUE(fs::exists(Workspace.Path("out/Shop.vbp")));
}

TEST_F(AutoCompile, WritesWhereTheSystemFindsAFolderBehindALink)
{
    fs::create_directories(Workspace.Path("far/away"));
    fs::create_directory_symlink(Workspace.Path("far/away"), Workspace.Path("out/door"));
    Workspace.WriteFile("out/Shop.vbp", "mine");
    EXPECT_EQ(Workspace.Run({"/C", "/DELETE", Project, Workspace.Path("out/door/..")}).ExitCode, 0);
    EXPECT_EQ(Workspace.ReadFile("out/Shop.vbp"), "mine");
    EXPECT_TRUE(fs::exists(Workspace.Path("far/Shop.vbp")));
}

TEST_F(AutoCompile, NeedsAFolderFromSomewhere)
{
    const Ended ended = Workspace.Run({"/C", Project});
    EXPECT_EQ(ended.ExitCode, 2);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("No folder was given, and the project has no OutputPath."));
}

TEST_F(AutoCompile, RefusesAFolderThatIsNone)
{
    Workspace.WriteFile("plain.txt", "x");
    for (const std::string& folder : {Workspace.Path("nowhere"), std::string("nowhere"), Workspace.Path("out/a\\b")}) {
        const Ended ended = Workspace.Run({"/C", Project, folder});
        EXPECT_EQ(ended.ExitCode, 2) << folder;
        EXPECT_THAT(ended.ErrorOutput,
                    HasSubstr("Invalid Command Line Parameter: Invalid Auto Compile Path in command line. \n    " +
                              folder + " is not a valid path."));
    }
    EXPECT_THAT(In("out"), IsEmpty());
}

TEST_F(AutoCompile, AbortsWhereTheOutputPathIsGone)
{
    SetOutputPath(Workspace.Path("nowhere"));
    const Ended ended = Workspace.Run({"/C", Project});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("Errors Occurred: Unable to write to destination directory. "));
}

TEST_F(AutoCompile, BacksUpWhatItOverwrites)
{
    Workspace.WriteFile("out/Customer.cls", "mine");
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    EXPECT_EQ(Workspace.ReadFile("out/Customer.cls.BAK"), "mine");
}

TEST_F(AutoCompile, LeavesTheProjectFileAndTheSettingsAsTheyAre)
{
    const std::string before = Workspace.ReadFile("work/Shop.kzm");
    const bool hadSettings = fs::exists(Workspace.Path("settings.ini"));
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    EXPECT_EQ(Workspace.ReadFile("work/Shop.kzm"), before);
    EXPECT_EQ(fs::exists(Workspace.Path("settings.ini")), hadSettings);
}

TEST_F(AutoCompile, CompilesUnlessTheSettingsSayOtherwise)
{
    const std::string note = "No Visual Basic command is set: the project was written, not compiled.";
    EXPECT_THAT(
        Workspace.Run({"/C", Project, Out}).ErrorOutput,
        HasSubstr("Code Generation Complete!: The operation completed with the following messages:\n    " + note));
    Workspace.WriteFile("settings.ini", "[GenerateCodeSettings]\nAutoCompile=0\n");
    EXPECT_THAT(Workspace.Run({"/C", Project, Out}).ErrorOutput, Not(HasSubstr(note)));
}

TEST_F(AutoCompile, MakesTheFolderThatTheCompilerWritesItsLogInto)
{
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    EXPECT_FALSE(fs::exists(Workspace.Path("state"))) << "without a compiler there is no log";
    Workspace.WriteFile("settings.ini", "[Platform]\nVisualBasicCommand=/nowhere/VB6.EXE\n");
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    EXPECT_TRUE(fs::is_directory(Workspace.Path("state/veldrane")));
}

TEST_F(AutoCompile, GivesRoutinesTimingLinesWhenAskedTo)
{
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    EXPECT_THAT(Workspace.ReadFile("out/Globals.Bas"), Not(HasSubstr("Public StartTime as Single")));
    EXPECT_EQ(Workspace.Run({"/C", "/DEBUG", "/NOSPLASH", Project, Out}).ExitCode, 0);
    EXPECT_THAT(Workspace.ReadFile("out/Globals.Bas"), HasSubstr("Public StartTime as Single"));
}

TEST_F(AutoCompile, FailsOnAProjectThatCanNotBeOpened)
{
    EXPECT_EQ(Workspace.Run({"/C", Workspace.Path("gone.kzm"), Out}).ExitCode, 1);
    Workspace.WriteFile("text.kzm", "Dear diary\r\n");
    const Ended ended = Workspace.Run({"/C", Workspace.Path("text.kzm"), Out});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_EQ(
        ended.ErrorOutput,
        "Invalid File: This file is not a Veldrane Professional 2000 Data File. Unable to open file.\nveldrane: " +
            Workspace.Path("text.kzm") + " was not opened, and nothing was written.\n");
    EXPECT_THAT(In("out"), IsEmpty());
}

TEST_F(AutoCompile, IsWrongUsageWithoutAProjectOrWithTooManyWords)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"/C"}, "veldrane: /C needs a project file.\nUsage: "},
        {{"/C", Out}, "veldrane: /C needs a project file.\nUsage: "},
        {{"/C", Project, Out, "more"}, "veldrane: 'more' is one word too many.\nUsage: "},
        {{"/DELETE", Project}, "veldrane: '/DELETE' goes with /C alone.\nUsage: "},
    };
    for (const auto& [words, text] : cases) {
        const Ended ended = Workspace.Run(words);
        EXPECT_EQ(ended.ExitCode, 2) << text;
        EXPECT_THAT(ended.ErrorOutput, StartsWith(text));
        EXPECT_THAT(ended.ErrorOutput, HasSubstr("veldrane /C [/DEBUG] [/DELETE] [/NOSPLASH] FILE.kzm [FOLDER]\n"));
    }
}

TEST_F(AutoCompile, TakesNoOtherFolderForAWordThatIsEmpty)
{
    SetOutputPath(Out);
    const std::vector<std::vector<std::string>> lines{
        {"/C", "/DELETE", Project, ""}, {"/C", "", Project}, {"", "/C", Project}};
    for (const std::vector<std::string>& words : lines) {
        const Ended ended = Workspace.Run(words);
        EXPECT_EQ(ended.ExitCode, 2);
        EXPECT_THAT(ended.ErrorOutput, StartsWith("veldrane: one of the words is empty.\nUsage: "));
    }
    EXPECT_THAT(In("out"), IsEmpty());
}

TEST_F(AutoCompile, DeletesThePlainFilesOfAFolderItGeneratedInto)
{
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    Workspace.WriteFile("out/OldClass.cls", "of an earlier run");
    Workspace.WriteFile("out/.hidden", "as well");
    Workspace.WriteFile("elsewhere.txt", "mine");
    fs::create_directory(Workspace.Path("out/folder"));
    fs::create_symlink(Workspace.Path("elsewhere.txt"), Workspace.Path("out/link"));
    EXPECT_EQ(Workspace.Run({"/C", "/DELETE", Project, Out}).ExitCode, 0);
    EXPECT_THAT(In("out"),
                UnorderedElementsAre("Shop.vbp", "TestShop.vbp", "TestShop.vbg", "frmTest.frm", "Globals.Bas",
                                     "Auto.cls", "Customer.cls", "xmlAssist.cls", "folder", "link"));
    EXPECT_EQ(Workspace.ReadFile("elsewhere.txt"), "mine");
}

TEST_F(AutoCompile, DeletesInAFolderWithoutPlainFiles)
{
    fs::create_directory(Workspace.Path("out/folder"));
    EXPECT_EQ(Workspace.Run({"/C", "/DELETE", Project, Out}).ExitCode, 0);
    EXPECT_TRUE(fs::exists(Workspace.Path("out/folder")));
}

TEST_F(AutoCompile, DeletesNothingAmongSomebodyElsesFiles)
{
    Workspace.WriteFile("out/diary.txt", "mine");
    ExpectRefused(Out, Out + " holds files, but no Shop.vbp: they are none of this project's.");
    EXPECT_THAT(In("out"), UnorderedElementsAre("diary.txt"));
    SetOutputPath(Out);
    EXPECT_EQ(Workspace.Run({"/C", "/DELETE", Project}).ExitCode, 1);
    EXPECT_THAT(In("out"), UnorderedElementsAre("diary.txt"));
}

TEST_F(AutoCompile, DeletesNothingInAFolderThatCanNotBeListed)
{
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    fs::permissions(Workspace.Path(""), fs::perms::all);
    fs::permissions(Out, fs::perms::others_write | fs::perms::others_exec);
    const std::string refusal = "/DELETE is refused: " + Out + ": Permission denied. Nothing was removed";
    const auto isRefused = [&] {
        const Ended ended = Workspace.Run({"/C", "/DELETE", Project, Out});
        return ended.ExitCode == 1 && ended.ErrorOutput.starts_with(refusal) ? 0 : 1;
    };
    EXPECT_EQ(testing::ExitCodeUnprivileged(isRefused), 0);
    fs::permissions(Out, fs::perms::owner_all);
    EXPECT_TRUE(fs::exists(Workspace.Path("out/Auto.cls")));
}

TEST_F(AutoCompile, FailsWhereAFileCouldNotBeRemoved)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can make files of two users";
    constexpr uid_t kNobody = 65534;
    fs::permissions(Workspace.Path(""), fs::perms::all);
    fs::permissions(Out, fs::perms::all | fs::perms::sticky_bit); // everybody removes their own files alone
    Workspace.WriteFile("out/Shop.vbp", "of an earlier run");
    ASSERT_EQ(chown(Workspace.Path("out/Shop.vbp").c_str(), kNobody, kNobody), 0);
    Workspace.WriteFile("out/OldClass.cls", "of somebody else");
    EXPECT_EQ(testing::ExitCodeUnprivileged([&] {
                  return Workspace.Run({"/C", "/DELETE", Project, Out}).ExitCode;
              }),
              1);
    EXPECT_TRUE(fs::exists(Workspace.Path("out/OldClass.cls")));
    EXPECT_TRUE(fs::exists(Workspace.Path("out/Customer.cls")));
}

TEST_F(AutoCompile, DeletesNothingBesideTheProjectFile)
{
    Workspace.WriteFile("work/Shop.vbp", "mine");
    fs::create_directory_symlink(Workspace.Path("work"), Workspace.Path("door"));
    fs::create_directory(Workspace.Path("linked"));
    fs::create_symlink(Project, Workspace.Path("linked/Shop.kzm"));
    for (const std::string& folder :
         {Workspace.Path("work"), Workspace.Path("work/."), Workspace.Path("out/../work"), Workspace.Path("door")})
        EXPECT_EQ(Workspace.Run({"/C", "/DELETE", Project, folder}).ExitCode, 1) << folder;
    EXPECT_EQ(Workspace.Run({"/C", "/DELETE", Workspace.Path("linked/Shop.kzm"), Workspace.Path("work")}).ExitCode, 1);
    EXPECT_EQ(Workspace.ReadFile("work/Shop.vbp"), "mine");
    EXPECT_TRUE(fs::exists(Project));
}

TEST_F(AutoCompile, DeletesNothingInARootOrHomeFolder)
{
    const char* home = std::getenv("HOME");
    const std::string before = home == nullptr ? "" : home;
    setenv("HOME", Out.c_str(), 1);
    Workspace.WriteFile("out/Shop.vbp", "mine");
    ExpectRefused(Out, Out + " is the root of the file system or somebody's home folder.");
    setenv("HOME", before.c_str(), 1);
    ExpectRefused("/", "/ is the root of the file system or somebody's home folder.");
    ExpectRefused("/root/..", "/");
    EXPECT_EQ(Workspace.ReadFile("out/Shop.vbp"), "mine");
}

// What could not be generated anew is not given up.
TEST_F(AutoCompile, DeletesNothingForAProjectThatCanNotBeGeneratedWhole)
{
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    const std::string good = Workspace.ReadFile("work/Shop.kzm");
    const std::vector<std::pair<std::string, std::string>> damages{
        {"\r\nClassPrefix\2", "\r\nClassPrefix\2../"},
        {"Begin Properties\r\n", "Begin Properties\r\nBegin Key 0\r\nKeyType\2none\r\nEnd Key 0\r\n"},
    };
    for (const auto& [find, replacement] : damages) {
        Workspace.WriteFile("work/Shop.kzm", text::ReplaceAll(good, find, replacement));
        EXPECT_EQ(Workspace.Run({"/C", "/DELETE", Project, Out}).ExitCode, 1) << replacement;
        EXPECT_TRUE(fs::exists(Workspace.Path("out/Customer.cls"))) << replacement;
    }
}

TEST_F(AutoCompile, RemovesTheLeftoverOfTheCompileStep)
{
    fs::create_directories(Workspace.Path("state/veldrane"));
    Workspace.WriteFile("state/veldrane/tmpVELDRANE.EXE", "x");
    fs::permissions(Workspace.Path("state/veldrane/tmpVELDRANE.EXE"), fs::perms::owner_read);
    EXPECT_EQ(Workspace.Run({"/C", Project, Out}).ExitCode, 0);
    EXPECT_FALSE(fs::exists(Workspace.Path("state/veldrane/tmpVELDRANE.EXE")));
}

TEST_F(AutoCompile, FailsWhereTwoFilesShareAName)
{
    EXPECT_EQ(Workspace.Run({"define", Project, "--set", "WrapperClassName=CUSTOMER"}).ExitCode, 0);
    const Ended ended = Workspace.Run({"/C", Project, Out});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(
        ended.ErrorOutput,
        HasSubstr("ClassName \"Customer\" gives a second file Customer.cls: WrapperClassName \"CUSTOMER\" gives "
                  "one already. Give one of them another name."));
}

} // namespace
} // namespace veldrane
