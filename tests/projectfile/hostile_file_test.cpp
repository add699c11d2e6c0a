#include "projectfile/file_management.h"
#include "random_model.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

// What no program of ours has written. The reader may refuse, report and drop, but it comes to an end, and what it
// leaves can be saved and read again.
namespace veldrane {
namespace {

using veldrane::testing::FillAtRandom;
using veldrane::testing::MemoryFileSystem;
using veldrane::testing::RecordedErrors;
using veldrane::testing::ScriptedMessages;

const std::string kPath = "/p.kzm";
const std::string kHeader = "Veldrane Professional 2000 Data File\r\n";
const std::string kProject = kHeader + "Begin Project\r\nAuthor\2A\r\nEnd Project\r\n";
constexpr std::size_t kLarge = 20'000'000;

class HostileFile : public ::testing::Test
{
  protected:
    HostileFile() { project_.Clear(); }

    bool OpenBytes(std::string bytes)
    {
        files_.Files[kPath] = std::move(bytes);
        return management_.OpenProject(project_, classes_, kPath);
    }

    // Opens the file with a model of its own and saves that; false if the file is refused.
    bool Turn()
    {
        TTCProject project;
        KZMClasses classes;
        if (!management_.OpenProject(project, classes, kPath))
            return false;
        EXPECT_FALSE(classes.LoadingProject);
        EXPECT_TRUE(management_.SaveProject(project, classes));
        return true;
    }

    // Refused, or a model that files carry from turn to turn. A separator within a name takes one turn to go.
    void ExpectSaneModel(const std::string& bytes)
    {
        files_.Files[kPath] = bytes;
        if (!Turn())
            return;
        EXPECT_TRUE(Turn());
        const std::string settled = files_.Files[kPath];
        EXPECT_TRUE(Turn());
        EXPECT_TRUE(files_.Files[kPath] == settled);
    }

    std::string WholeFile(unsigned seed)
    {
        TTCProject project;
        KZMClasses classes;
        FillAtRandom(project, classes, seed);
        project.FullPath = kPath;
        EXPECT_TRUE(management_.SaveProject(project, classes));
        return files_.Files[kPath];
    }

    MemoryFileSystem files_;
    ScriptedMessages messages_;
    RecordedErrors errors_;
    text::CodePage codePage_;
    NoFileWindows windows_;
    TTCFileManagement management_{files_, messages_, errors_, codePage_, windows_.Windows()};
    TTCProject project_;
    KZMClasses classes_;
};

TEST_F(HostileFile, IsReadOrRefusedWhereverItIsCut)
{
    const std::string whole = WholeFile(7);
    for (std::size_t size = 0; size < whole.size(); ++size)
        ExpectSaneModel(whole.substr(0, size));
}

TEST_F(HostileFile, IsReadOrRefusedWhicheverLineIsMissing)
{
    const std::string whole = WholeFile(11);
    for (std::size_t begin = 0; begin < whole.size();) {
        const std::size_t end = whole.find("\r\n", begin) + 2;
        ExpectSaneModel(whole.substr(0, begin) + whole.substr(end));
        begin = end;
    }
}

TEST_F(HostileFile, IsReadOrRefusedWithBytesChangedAtRandom)
{
    std::mt19937 engine(3);
    const std::string whole = WholeFile(5);
    for (int round = 0; round < 300; ++round) {
        std::string bytes = whole;
        for (int i = 0; i < 20; ++i)
            bytes[kHeader.size() + engine() % (bytes.size() - kHeader.size())] = static_cast<char>(engine() % 256);
        ExpectSaneModel(bytes);
    }
}

TEST_F(HostileFile, MayBeNoise)
{
    std::mt19937 engine(1);
    std::string noise;
    for (int i = 0; i < 1'000'000; ++i)
        noise.push_back(static_cast<char>(engine() % 256));
    EXPECT_FALSE(OpenBytes(noise));
    EXPECT_FALSE(OpenBytes(kHeader + noise));
    EXPECT_TRUE(OpenBytes(kProject + "Begin Classes\r\n" + noise + "\r\nEnd Classes\r\n"));
    EXPECT_EQ(classes_.Count(), 0U);
}

TEST_F(HostileFile, MayBeOneLongLine)
{
    EXPECT_FALSE(OpenBytes(std::string(kLarge, 'x')));
    EXPECT_FALSE(OpenBytes(kHeader + std::string(kLarge, 'x')));
    ASSERT_TRUE(OpenBytes(kHeader + "Begin Project\r\nAuthor\2" + std::string(kLarge, 'x') +
                          "\r\nEnd Project\r\nBegin Classes\r\nEnd Classes\r\n"));
    EXPECT_EQ(project_.Author.size(), kLarge);
    EXPECT_TRUE(OpenBytes(kProject + "Begin Classes\r\nBegin Class A\r\nTableName\2" + std::string(kLarge, '\2') +
                          "B\r\nEnd Class A\r\nEnd Classes\r\n"));
    EXPECT_EQ(classes_.Item("A")->TableName, "B");
    EXPECT_FALSE(OpenBytes(kHeader + "Begin Project\r\nLoggingLevel\2" + std::string(kLarge, '9') + "\r\n"));
    EXPECT_LT(errors_.Reported.back().Error.Description().size(), 200U);
}

TEST_F(HostileFile, MayConsistOfEmptyLinesAndSeparators)
{
    std::string empty;
    for (std::size_t i = 0; i < kLarge / 10; ++i)
        empty += "\r\n\2";
    EXPECT_TRUE(OpenBytes(kHeader + "Begin Project" + empty + "\r\nEnd Project\r\nBegin Classes" + empty +
                          "\r\nEnd Classes\r\n"));
    EXPECT_EQ(project_.AttachedTables.Count(), 0U);
    EXPECT_EQ(classes_.Count(), 0U);
}

TEST_F(HostileFile, MayHoldManyClassesMembersAndDuplicates)
{
    constexpr int kMany = 20'000;
    std::string text = kProject + "Begin Classes\r\nBegin Class Big\r\n";
    for (int i = 0; i < kMany; ++i) {
        const std::string name = std::to_string(i % (kMany / 2));
        text += "Begin Property P" + name + "\r\nEnd Property\r\n";
        text += "Begin Key " + name + "\r\nEnd Key \r\n";
    }
    text += "End Class Big\r\n";
    for (int i = 0; i < kMany; ++i)
        text += "Begin Class C" + std::to_string(i) + "\r\nEnd Class \r\n";
    ASSERT_TRUE(OpenBytes(text + "Begin Class big\r\nEnd Class big\r\nEnd Classes\r\n"));
    EXPECT_EQ(classes_.Item("Big")->TTCProperties.Count(), kMany / 2U);
    EXPECT_EQ(classes_.Item("Big")->TTCKeys.Count(), kMany / 2U);
    EXPECT_EQ(classes_.Count(), kMany + 1U);
    EXPECT_EQ(errors_.Reported.size(), 1U);
}

TEST_F(HostileFile, MayOpenBlocksThatNeverEnd)
{
    std::string text = kProject + "Begin Classes\r\n";
    for (const auto* opening :
         {"Begin Class A", "Begin Key 1", "Begin KeyColumns", "Begin Method M", "Begin Arguments", "Begin Property P",
          "Begin Lookup Field", "Begin StoredProcedure", "Begin Event E", "Begin Relationship R"})
        for (int i = 0; i < 1000; ++i)
            text += std::string(opening) + " \r\n";
    EXPECT_TRUE(OpenBytes(text + "End Classes\r\n"));
    EXPECT_EQ(classes_.Count(), 0U);
    EXPECT_EQ(errors_.Reported.size(), 1U);
}

TEST_F(HostileFile, HasNoClassesWithoutTheirSection)
{
    for (const auto* rest : {"", "Begin Classes\r\n", "Begin Classes\r\nBegin Class A\r\nEnd Class A\r\n",
                             "End Classes\r\nBegin Classes\r\nBegin Class A\r\nEnd Class A\r\n"}) {
        errors_.Reported.clear();
        EXPECT_TRUE(OpenBytes(kProject + rest));
        EXPECT_EQ(classes_.Count(), 0U);
        ASSERT_EQ(errors_.Reported.size(), 1U);
        EXPECT_EQ(errors_.Reported[0].Place.RoutineName, "ReadClassInfo");
    }
}

TEST_F(HostileFile, ThatDoesNotEndAClassHasLostIt)
{
    const std::string one = "Begin Class One\r\nTableName\2Ones\r\nBegin Events\r\nEnd Events\r\n";
    const std::string two = "Begin Class Two\r\nTableName\2Twos\r\nEnd Class Two\r\n";
    for (const std::string& classes : {one + two, two + one}) {
        files_.Files[kPath] = kProject + "\r\nBegin Classes\r\n" + classes + "End Classes\r\n";
        TTCProject project;
        KZMClasses read;
        EXPECT_TRUE(management_.OpenProject(project, read, kPath));
        EXPECT_TRUE(management_.LostClasses());
        EXPECT_EQ(read.Count(), 1U);
        EXPECT_NE(read.Item("Two"), nullptr);
    }
}

TEST_F(HostileFile, IsReportedBehindItsLastClassWhenTheEndLineIsNotExact)
{
    EXPECT_TRUE(OpenBytes(kProject + "Begin Classes\r\nBegin Class A\r\nEnd Class A\r\nEND CLASSES\r\n"));
    EXPECT_EQ(classes_.Count(), 1U);
    EXPECT_EQ(errors_.Reported.size(), 1U);
}

} // namespace
} // namespace veldrane
