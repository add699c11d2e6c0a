#include "model_paths.h"
#include "projectfile/file_management.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"
#include "text/strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Each folder of handwritten/ is one case: a file as it stands on disk, the file that opening and saving makes of it,
// and facts about the model in between. In them "␂" stands for the separator, "␊" for a lone LF, "␤" for a line break
// of a message and "{path}" for where the file lies; why.txt says what the case shows.
namespace veldrane {
namespace {

using veldrane::testing::MemoryFileSystem;
using veldrane::testing::RecordedErrors;
using veldrane::testing::ScriptedMessages;
using veldrane::testing::ValueAt;
namespace fs = std::filesystem;

const std::string kPath = "/projects/project.kzm";

fs::path CasesFolder()
{
    return fs::path(VELDRANE_SOURCE_DIR) / "tests/projectfile/handwritten";
}

std::vector<std::string> CaseNames()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(CasesFolder()))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadCaseFile(const std::string& name, const std::string& file)
{
    std::ifstream stream(CasesFolder() / name / file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return text::ReplaceAll(text, "{path}", kPath);
}

// The bytes that the readable form stands for.
std::string FileBytes(const std::string& readable, std::string_view lineEnd)
{
    std::string text = text::ReplaceAll(readable, "\n", lineEnd);
    text = text::ReplaceAll(text, "␊", "\n");
    return text::CodePage().Encode(text::ReplaceAll(text, "␂", "\2")).Bytes;
}

class Handwritten : public ::testing::TestWithParam<std::string>
{
  protected:
    Handwritten()
    {
        files_.Folders.insert("/projects");
        project_.Clear();
        if (fs::exists(CasesFolder() / GetParam() / "input.kzm")) {
            const bool lineFeedsAlone = ReadCaseFile(GetParam(), "options.txt").find("input line ends = LF") == 0;
            files_.Files[kPath] = FileBytes(ReadCaseFile(GetParam(), "input.kzm"), lineFeedsAlone ? "\n" : "\r\n");
        }
    }

    void ExpectFact(std::string_view path, const std::string& expected)
    {
        SCOPED_TRACE(path);
        if (path == "opened")
            EXPECT_EQ(opened_ ? "True" : "False", expected);
        else if (path == "error")
            EXPECT_EQ(Reported(), expected);
        else if (path == "message.caption")
            EXPECT_EQ(messages_.Asked().at(0).Title, expected);
        else if (path == "message.text")
            EXPECT_EQ(messages_.Asked().at(0).Text, text::ReplaceAll(expected, "␤", "\r\n"));
        else
            EXPECT_EQ(ValueAt(project_, classes_, path), text::ReplaceAll(expected, "␊", "\n"));
    }

    [[nodiscard]] std::string Reported() const
    {
        std::string reported;
        for (const auto& error : errors_.Reported)
            reported += (reported.empty() ? "" : ", ") + error.Place.ModuleName + "." + error.Place.RoutineName;
        return reported.empty() ? "none" : reported;
    }

    MemoryFileSystem files_;
    ScriptedMessages messages_;
    RecordedErrors errors_;
    text::CodePage codePage_;
    NoFileWindows windows_;
    TTCFileManagement management_{files_, messages_, errors_, codePage_, windows_.Windows()};
    TTCProject project_;
    KZMClasses classes_;
    bool opened_ = false;
};

TEST_P(Handwritten, OpensToTheModelAndSavesToTheFile)
{
    SCOPED_TRACE(ReadCaseFile(GetParam(), "why.txt"));
    opened_ = management_.OpenProject(project_, classes_, kPath);
    const std::string facts = ReadCaseFile(GetParam(), "model.txt");
    for (const std::string_view fact : text::Split(facts, "\n")) {
        if (fact.empty())
            continue;
        const std::size_t sign = fact.find(" = ");
        ASSERT_NE(sign, std::string_view::npos) << fact;
        ExpectFact(fact.substr(0, sign), std::string(fact.substr(sign + 3)));
    }
    const std::string expected = FileBytes(ReadCaseFile(GetParam(), "expected.kzm"), "\r\n");
    EXPECT_EQ(opened_, !expected.empty());
    if (!opened_)
        return;
    EXPECT_TRUE(management_.SaveProject(project_, classes_));
    EXPECT_EQ(files_.Files[kPath], expected);
}

TEST_P(Handwritten, IsTheSameFileWhenReadAndSavedAgain)
{
    if (!management_.OpenProject(project_, classes_, kPath))
        return;
    ASSERT_TRUE(management_.SaveProject(project_, classes_));
    const std::string once = files_.Files[kPath];
    TTCProject again;
    KZMClasses classesAgain;
    again.Clear();
    ASSERT_TRUE(management_.OpenProject(again, classesAgain, kPath));
    ASSERT_TRUE(management_.SaveProject(again, classesAgain));
    EXPECT_EQ(files_.Files[kPath], once);
}

INSTANTIATE_TEST_SUITE_P(Cases, Handwritten, ::testing::ValuesIn(CaseNames()), [](const auto& parameter) {
    std::string name = parameter.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace
} // namespace veldrane
