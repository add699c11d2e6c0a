// Cases written by hand from what the writers are to do: a project as a readable .kzm, and the lines that come of it.
// Listing the folders finds the cases; each says in why.txt what it is there for.

#include "generation_fixture.h"
#include "projectfile/file_management.h"
#include "text/strings.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace veldrane::testing {
namespace {

namespace fs = std::filesystem;

fs::path CasesFolder(const char* kind)
{
    return fs::path(VELDRANE_SOURCE_DIR) / "tests/generator/handwritten" / kind;
}

std::vector<std::string> CasesIn(const char* kind)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(CasesFolder(kind)))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadWhole(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << path;
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::string TestName(const ::testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class WriterCase : public GenerationTest, public ::testing::WithParamInterface<std::string>
{
  protected:
    // The case's files show the separator of the format as the symbol for it.
    void Open(const fs::path& folder)
    {
        const text::CodePage codePage;
        files.Files["/case.kzm"] = codePage.Encode(text::ReplaceAll(ReadWhole(folder / "project.kzm"), "\u2402", "\x02")).Bytes;
        NoFileWindows windows;
        TTCFileManagement management(files, messages, errors, codePage, windows.Windows());
        ASSERT_TRUE(management.OpenProject(project, classes, "/case.kzm"));
        ASSERT_TRUE(errors.Reported.empty()) << errors.Reported.front().Error.Description();
        generation.Settings.DebugTiming = fs::exists(folder / "switches") && ReadWhole(folder / "switches").find("/DEBUG") != std::string::npos;
    }

    // What the writer named by the file gives: "WriteClassHeader.Customer.txt", "GenerateProjectFile.txt".
    TTCOutputs Write(const std::string& fileName)
    {
        using ClassWriter = TTCOutputs (CodeGeneration::*)(KZMClass&, const KZMClasses&);
        static const std::map<std::string, ClassWriter> kClassWriters{
            {"WriteClassHeader", &CodeGeneration::WriteClassHeader},
            {"WriteClassDeclarations", &CodeGeneration::WriteClassDeclarations},
            {"WriteClassProperties", &CodeGeneration::WriteClassProperties},
            {"WriteClassMethods", &CodeGeneration::WriteClassMethods},
            {"WriteCollectionHeader", &CodeGeneration::WriteCollectionHeader},
            {"WriteCollectionDeclarations", &CodeGeneration::WriteCollectionDeclarations},
            {"WriteCollectionProperties", &CodeGeneration::WriteCollectionProperties},
            {"WriteCollectionMethods", &CodeGeneration::WriteCollectionMethods},
        };
        using ProjectWriter = TTCOutputs (*)(const CodeGeneration&, const KZMClasses&);
        static const std::map<std::string, ProjectWriter> kProjectWriters{
            {"GenerateGlobalsBasFile", [](const CodeGeneration& about, const KZMClasses&) { return about.GenerateGlobalsBasFile(); }},
            {"GenerateProjectFile", [](const CodeGeneration& about, const KZMClasses& all) { return about.GenerateProjectFile(all); }},
            {"GenerateTestForm", [](const CodeGeneration& about, const KZMClasses& all) { return about.GenerateTestForm(all); }},
            {"GenerateTestProjectFile", [](const CodeGeneration& about, const KZMClasses& all) { return about.GenerateTestProjectFile(all); }},
            {"GenerateTestProjectGroup", [](const CodeGeneration& about, const KZMClasses&) { return about.GenerateTestProjectGroup(); }},
            {"GenerateWrapperClass", [](const CodeGeneration& about, const KZMClasses& all) { return about.GenerateWrapperClass(all); }},
        };
        const auto parts = text::Split(fileName, ".");
        const std::string writer(parts.front());
        if (const auto found = kClassWriters.find(writer); found != kClassWriters.end())
            return (generation.*(found->second))(*classes.Item(parts.at(1)), classes);
        return kProjectWriters.at(writer)(generation, classes);
    }
};

TEST_P(WriterCase, GivesTheLines)
{
    const fs::path folder = CasesFolder("writers") / GetParam();
    Open(folder);
    int compared = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string fileName = entry.path().filename();
        if (fileName.ends_with(".txt") && fileName != "why.txt") {
            EXPECT_EQ(Lines(Write(fileName)), "\n" + ReadWhole(entry.path())) << fileName;
            ++compared;
        }
    }
    EXPECT_GT(compared, 0);
}

INSTANTIATE_TEST_SUITE_P(Handwritten, WriterCase, ::testing::ValuesIn(CasesIn("writers")), TestName);

class SplitLineCase : public ::testing::TestWithParam<std::string>
{};

TEST_P(SplitLineCase, GivesTheLines)
{
    const fs::path folder = CasesFolder("split_line") / GetParam();
    TTCOutputs lines;
    ScriptedMessages messages;
    AddSplitLine(ReadWhole(folder / "input.txt"), lines, LineClass::Code, messages);
    EXPECT_EQ(Lines(lines), fs::exists(folder / "expected.txt") ? "\n" + ReadWhole(folder / "expected.txt") : "\n");
    if (fs::exists(folder / "message.txt")) {
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(messages.Asked().front().Text, ReadWhole(folder / "message.txt"));
    } else {
        EXPECT_TRUE(messages.Asked().empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Handwritten, SplitLineCase, ::testing::ValuesIn(CasesIn("split_line")), TestName);

} // namespace
} // namespace veldrane::testing
