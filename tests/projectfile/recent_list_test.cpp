#include "projectfile/recent_list.h"
#include "support/failing_file_system.h"
#include "support/failing_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace veldrane {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::Pair;

class RecentList : public ::testing::Test
{
  protected:
    void WriteProject(const std::string& path, const std::string& name)
    {
        files_.Files[path] =
            "Veldrane Professional 2000 Data File\r\n\r\nBegin Project\r\nProjectName\2" + name + "\r\nEnd Project\r\n";
    }

    void Remember(const std::string& name, const std::string& path)
    {
        settings_.SaveSetting(settings_section::kMRU, name, path);
    }

    [[nodiscard]] auto Entries() const { return settings_.GetAllSettings(settings_section::kMRU); }

    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const RecentProject& project : RecentProjects(settings_, files_, codePage_))
            names.push_back(project.ProjectName);
        return names;
    }

    testing::FailingSettings settings_;
    testing::FailingFileSystem files_;
    text::CodePage codePage_;
};

TEST_F(RecentList, BeginsWithThePathAlone)
{
    UpdateRecentList(settings_, "/a.kzm");
    EXPECT_THAT(Entries(), ElementsAre(Pair("1", "/a.kzm")));
    EXPECT_EQ(settings_.GetKeyValue(settings_section::kOptions, "RecentFileCount"), "10");
}

TEST_F(RecentList, ThatIsWrittenInPartHasEveryOtherPath)
{
    for (const char* chosen : {"/c.kzm", "/b.kzm", "/new.kzm"})
        for (int write = 1; write <= 4; ++write) {
            testing::FailingSettings settings;
            for (const char* path : {"/c.kzm", "/b.kzm", "/a.kzm"})
                UpdateRecentList(settings, path);
            settings.FailAtWrite = settings.Writes + write;
            try {
                UpdateRecentList(settings, chosen);
            } catch (const RuntimeError&) {
            }
            for (const char* path : {"/a.kzm", "/b.kzm", "/c.kzm"})
                EXPECT_TRUE(path == std::string(chosen) ||
                            ::testing::Value(settings.GetAllSettings(settings_section::kMRU),
                                             ::testing::Contains(Pair(::testing::_, path))))
                    << path << ", where " << chosen << " is chosen and write " << write << " fails";
        }
}

TEST_F(RecentList, IgnoresAnEmptyPath)
{
    UpdateRecentList(settings_, "");
    EXPECT_THAT(Entries(), IsEmpty());
    EXPECT_EQ(settings_.Writes, 0);
}

TEST_F(RecentList, PutsThePathOnTop)
{
    for (const char* path : {"/a.kzm", "/b.kzm", "/c.kzm", "/a.kzm"})
        UpdateRecentList(settings_, path);
    EXPECT_THAT(Entries(), ElementsAre(Pair("1", "/a.kzm"), Pair("2", "/c.kzm"), Pair("3", "/b.kzm")));
}

TEST_F(RecentList, TellsPathsApartByTheirLetters)
{
    UpdateRecentList(settings_, "/a.kzm");
    UpdateRecentList(settings_, "/A.kzm");
    EXPECT_THAT(Entries(), ElementsAre(Pair("1", "/A.kzm"), Pair("2", "/a.kzm")));
}

TEST_F(RecentList, KeepsAsManyAsTheSettingSays)
{
    settings_.SaveSetting(settings_section::kOptions, "RecentFileCount", "2");
    for (const char* path : {"/a.kzm", "/b.kzm", "/c.kzm"})
        UpdateRecentList(settings_, path);
    EXPECT_THAT(Entries(), ElementsAre(Pair("1", "/c.kzm"), Pair("2", "/b.kzm")));
}

TEST_F(RecentList, DropsWhatASmallerSettingLeavesNoRoomFor)
{
    for (const char* path : {"/a.kzm", "/b.kzm", "/c.kzm"})
        UpdateRecentList(settings_, path);
    settings_.SaveSetting(settings_section::kOptions, "RecentFileCount", "1");
    UpdateRecentList(settings_, "/c.kzm");
    EXPECT_THAT(Entries(), ElementsAre(Pair("1", "/c.kzm")));
}

TEST_F(RecentList, TakesASettingThatIsNoCountForTen)
{
    for (const char* count : {"none", "0", "-3"}) {
        settings_.SaveSetting(settings_section::kOptions, "RecentFileCount", count);
        for (int i = 0; i < 12; ++i)
            UpdateRecentList(settings_, "/" + std::to_string(i) + ".kzm");
        EXPECT_EQ(Entries().size(), 10U) << count;
        EXPECT_EQ(settings_.GetKeyValue(settings_section::kOptions, "RecentFileCount"), count);
    }
}

TEST_F(RecentList, WritesNothingForTheProjectThatIsOnTop)
{
    UpdateRecentList(settings_, "/a.kzm");
    settings_.Writes = 0;
    UpdateRecentList(settings_, "/a.kzm");
    EXPECT_EQ(settings_.Writes, 0);
}

TEST_F(RecentList, ThrowsWhatKeepsTheSettingsFromBeingWritten)
{
    settings_.Fails = true;
    EXPECT_THROW(UpdateRecentList(settings_, "/a.kzm"), RuntimeError);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(RecentList, GoesByTheNumbersAndNotByTheOrderOfTheStore)
{
    for (const auto& [name, path] : {std::pair{"10", "/j.kzm"}, {"2", "/b.kzm"}, {"1", "/a.kzm"}}) {
        Remember(name, path);
        WriteProject(path, path);
    }
    EXPECT_THAT(Names(), ElementsAre("/a.kzm", "/b.kzm", "/j.kzm"));
    UpdateRecentList(settings_, "/j.kzm");
    EXPECT_THAT(Names(), ElementsAre("/j.kzm", "/a.kzm", "/b.kzm"));
    EXPECT_EQ(Entries().size(), 3U);
}

TEST_F(RecentList, MendsEntriesThatAreEmptyOrTwiceThere)
{
    for (const auto& [name, path] : {std::pair{"1", "/a.kzm"}, {"2", " "}, {"3", "/a.kzm"}, {"x", "/b.kzm"}})
        Remember(name, path);
    UpdateRecentList(settings_, "/c.kzm");
    EXPECT_THAT(Entries(), ElementsAre(Pair("1", "/c.kzm"), Pair("2", "/b.kzm"), Pair("3", "/a.kzm")));
}

TEST_F(RecentList, ShowsProjectsByTheNamesInTheirFiles)
{
    WriteProject("/a.kzm", "Order Desk");
    Remember("1", "/a.kzm");
    EXPECT_THAT(
        RecentProjects(settings_, files_, codePage_),
        ElementsAre(AllOf(Field(&RecentProject::Path, "/a.kzm"), Field(&RecentProject::ProjectName, "Order Desk"))));
}

TEST_F(RecentList, LeavesOutWhatIsNoFileAnyMore)
{
    WriteProject("/b.kzm", "B");
    files_.Folders.insert("/folder");
    Remember("1", "/gone.kzm");
    Remember("2", "/folder");
    Remember("3", "/b.kzm");
    EXPECT_THAT(Names(), ElementsAre("B"));
}

TEST_F(RecentList, ShowsTenProjectsAtMost)
{
    for (int i = 1; i <= 12; ++i) {
        const std::string path = "/" + std::to_string(i) + ".kzm";
        WriteProject(path, std::to_string(i));
        Remember(std::to_string(i), path);
    }
    EXPECT_EQ(Names().size(), 10U);
}

TEST_F(RecentList, NamesAFileThatIsNoProjectAfterItself)
{
    WriteProject("/nameless.kzm", "");
    files_.Files["/picture.kzm"] = std::string("\x89PNG\0\1", 6);
    files_.Files["/empty.kzm"] = "";
    files_.Files["/secret.kzm"] = "x";
    files_.UnreadablePaths.insert("/secret.kzm");
    Remember("1", "/nameless.kzm");
    Remember("2", "/picture.kzm");
    Remember("3", "/empty.kzm");
    Remember("4", "/secret.kzm");
    EXPECT_THAT(Names(), ElementsAre("nameless.kzm", "picture.kzm", "empty.kzm", "secret.kzm"));
}

TEST_F(RecentList, FindsTheNameInFrontOfWhatIsBrokenOrVeryLong)
{
    WriteProject("/broken.kzm", "Broken\r\nMTSEnabled\2perhaps");
    WriteProject("/long.kzm", "Long");
    files_.Files["/long.kzm"] += std::string(1'000'000, 'x');
    WriteProject("/boasting.kzm", std::string(90'000, 'B'));
    Remember("1", "/broken.kzm");
    Remember("2", "/long.kzm");
    Remember("3", "/boasting.kzm");
    EXPECT_THAT(Names(), ElementsAre("Broken", "Long", std::string(80, 'B')));
}

TEST_F(RecentList, ReadsNamesInTheCodePageOfTheSettings)
{
    WriteProject("/a.kzm", "Gr\xF6\xDF"
                           "e");
    Remember("1", "/a.kzm");
    EXPECT_THAT(Names(), ElementsAre("Größe"));
}

} // namespace
} // namespace veldrane
