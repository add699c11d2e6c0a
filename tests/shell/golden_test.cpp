// Whole projects, byte for byte: tests/golden/NAME holds the arguments with which the sample database is defined, and
// what comes of it. With VELDRANE_RENEW_GOLDEN set, the folders are rewritten instead, and the run fails.

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

namespace veldrane {
namespace {

namespace fs = std::filesystem;

using FilesByName = std::map<std::string, std::string>;

fs::path GoldenRoot()
{
    return fs::path(VELDRANE_SOURCE_DIR) / "tests" / "golden";
}

std::vector<std::string> GoldenNames()
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(GoldenRoot()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

FilesByName FilesIn(const fs::path& folder)
{
    FilesByName files;
    if (fs::exists(folder))
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            files[entry.path().filename().string()] = testing::BytesOf(entry.path());
    return files;
}

// Defines and generates in a folder of its own; where that lies must not show in the golden files.
FilesByName Made(const fs::path& golden)
{
    const testing::Program program;
    const std::string connection = program.MakeShop();
    fs::create_directory(program.Path("generated"));
    std::vector<std::string> define{"define", program.Path("Shop.kzm"), "--connection", connection};
    for (const std::string& argument : Lines(testing::BytesOf(golden / "define.txt")))
        define.push_back(argument);
    const testing::Ended defined = program.Run(define);
    EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    const testing::Ended generated = program.Run({"generate", program.Path("Shop.kzm"), program.Path("generated")});
    EXPECT_EQ(generated.ExitCode, 0) << generated.ErrorOutput;
    FilesByName made = FilesIn(program.Path("generated"));
    made["Shop.kzm"] = program.ReadFile("Shop.kzm");
    for (auto& [name, bytes] : made)
        bytes = text::ReplaceAll(bytes, program.Path(""), "FOLDER/");
    return made;
}

FilesByName Kept(const fs::path& golden)
{
    FilesByName kept = FilesIn(golden / "generated");
    if (fs::exists(golden / "Shop.kzm"))
        kept["Shop.kzm"] = testing::BytesOf(golden / "Shop.kzm");
    return kept;
}

void Renew(const fs::path& golden, const FilesByName& made)
{
    fs::remove_all(golden / "generated");
    fs::create_directory(golden / "generated");
    for (const auto& [name, bytes] : made) {
        const fs::path path = name == "Shop.kzm" ? golden / name : golden / "generated" / name;
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
    const fs::path golden = GoldenRoot() / GetParam();
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
    for (const auto& [name, bytes] : FilesIn(GoldenRoot() / GetParam() / "generated")) {
        if (!name.ends_with(".vbg")) // the group is what a person opens
            there.insert(text::Fold(name));
        if (name.ends_with(".vbp") || name.ends_with(".vbg"))
            for (const std::string& line : Lines(bytes))
                named.insert(text::Fold(FileNamedBy(line)));
    }
    named.erase("");
    EXPECT_EQ(named, there);
}

std::string TestName(const ::testing::TestParamInfo<std::string>& golden)
{
    return text::ReplaceAll(golden.param, "-", "_");
}

INSTANTIATE_TEST_SUITE_P(Projects, Golden, ::testing::ValuesIn(GoldenNames()), TestName);

} // namespace
} // namespace veldrane
