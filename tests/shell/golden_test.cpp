// Whole projects, byte for byte. With VELDRANE_RENEW_GOLDEN set, the folders are rewritten instead, and the run fails.

#include "golden_projects.h"
#include "program.h"

#include "text/case_folding.h"
#include "text/strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace veldrane::testing {
namespace {

namespace fs = std::filesystem;

using FilesByName = std::map<std::string, std::string>;

FilesByName FilesIn(const fs::path& folder)
{
    FilesByName files;
    if (fs::exists(folder))
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            files[entry.path().filename().string()] = BytesOf(entry.path());
    return files;
}

void Define(const Program& program, const GoldenProject& golden)
{
    std::vector<std::string> define{"define", program.Path(golden.ProjectFile()), "--connection", program.MakeShop()};
    for (const std::string& argument : golden.LinesOf("define.txt"))
        define.push_back(argument);
    const Ended defined = program.Run(define);
    EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
}

void Generate(const Program& program, const GoldenProject& golden)
{
    std::vector<std::string> words = golden.LinesOf("switches.txt");
    words.insert(words.begin(), words.empty() ? "generate" : "/C");
    words.push_back(program.Path(golden.ProjectFile()));
    words.push_back(program.Path("generated"));
    fs::create_directory(program.Path("generated"));
    const Ended generated = program.Run(words);
    EXPECT_EQ(generated.ExitCode, 0) << generated.ErrorOutput;
}

// Generates in a folder of its own; where that lies must not show in the golden files.
FilesByName Made(const GoldenProject& golden)
{
    const Program program;
    if (golden.IsDefined())
        Define(program, golden);
    else
        program.WriteFile(golden.ProjectFile(), BytesOf(golden.Path(golden.ProjectFile())));
    Generate(program, golden);
    FilesByName made = FilesIn(program.Path("generated"));
    made[golden.ProjectFile()] = program.ReadFile(golden.ProjectFile());
    for (auto& [name, bytes] : made)
        bytes = text::ReplaceAll(bytes, program.Path(""), "FOLDER/");
    return made;
}

FilesByName Kept(const GoldenProject& golden)
{
    FilesByName kept = FilesIn(golden.Path("generated"));
    if (fs::exists(golden.Path(golden.ProjectFile())))
        kept[golden.ProjectFile()] = BytesOf(golden.Path(golden.ProjectFile()));
    return kept;
}

void Renew(const GoldenProject& golden, const FilesByName& made)
{
    fs::remove_all(golden.Path("generated"));
    fs::create_directory(golden.Path("generated"));
    for (const auto& [name, bytes] : made) {
        const fs::path path = golden.Path(name == golden.ProjectFile() ? name : "generated/" + name);
        std::ofstream(path, std::ios::binary) << bytes;
        ADD_FAILURE() << "rewrote " << path;
    }
}

// Blanks and line ends made visible, so that a difference in them can be seen.
std::string Shown(const std::string& line)
{
    return text::ReplaceAll(text::ReplaceAll(line, " ", "·"), "\r", "␍");
}

std::string FirstDifference(const std::string& kept, const std::string& made)
{
    const std::vector<std::string> keptLines = Lines(kept);
    const std::vector<std::string> madeLines = Lines(made);
    const auto at = std::mismatch(keptLines.begin(), keptLines.end(), madeLines.begin(), madeLines.end());
    const auto shown = [](const std::vector<std::string>& lines, auto line) {
        return line == lines.end() ? std::string("(end of file)") : Shown(*line);
    };
    std::ostringstream text;
    text << "line " << at.first - keptLines.begin() + 1 << "\n-" << shown(keptLines, at.first) << "\n+"
         << shown(madeLines, at.second);
    return text.str();
}

// The file of the generated project that a line of a project or a group names; "" for a line that names none.
std::string FileNamedBy(std::string line)
{
    if (line.ends_with('\r'))
        line.pop_back();
    for (const std::string_view key : {"Form=", "Reference=*\\A", "Project=", "StartupProject="})
        if (line.starts_with(key))
            return line.substr(key.size());
    if (line.starts_with("Module=") || line.starts_with("Class="))
        return line.substr(line.find("; ") + 2);
    return {};
}

class Golden : public ::testing::TestWithParam<std::string>
{};

TEST_P(Golden, IsMadeAgainByteForByte)
{
    const GoldenProject golden(GetParam());
    const FilesByName made = Made(golden);
    if (std::getenv("VELDRANE_RENEW_GOLDEN") != nullptr)
        return Renew(golden, made);
    const FilesByName kept = Kept(golden);
    for (const auto& [name, bytes] : kept)
        EXPECT_TRUE(made.contains(name)) << name << " is not made any more";
    for (const auto& [name, bytes] : made) {
        ASSERT_TRUE(kept.contains(name)) << name << " is new";
        EXPECT_TRUE(bytes == kept.at(name)) << name << ", " << FirstDifference(kept.at(name), bytes);
    }
}

// Letter case does not count where the project is opened.
TEST_P(Golden, NamesEachOfItsFilesAndNoneThatIsMissing)
{
    std::set<std::string> named;
    std::set<std::string> there;
    for (const auto& [name, bytes] : FilesIn(GoldenProject(GetParam()).Path("generated"))) {
        if (!name.ends_with(".vbg")) // the group is what a person opens
            there.insert(text::Fold(name));
        if (name.ends_with(".vbp") || name.ends_with(".vbg"))
            for (const std::string& line : Lines(bytes))
                named.insert(text::Fold(FileNamedBy(line)));
    }
    named.erase("");
    EXPECT_EQ(named, there);
}

INSTANTIATE_TEST_SUITE_P(Projects, Golden, ::testing::ValuesIn(GoldenNames()), TestNameOf);

} // namespace
} // namespace veldrane::testing
