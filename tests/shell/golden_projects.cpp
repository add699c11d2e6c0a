#include "golden_projects.h"

#include "program.h"

#include "text/strings.h"

#include <algorithm>
#include <sstream>

namespace veldrane::testing {
namespace {

namespace fs = std::filesystem;

fs::path GoldenRoot()
{
    return fs::path(VELDRANE_SOURCE_DIR) / "tests" / "golden";
}

// A project that is made from the sample need not be there before its first run.
std::string ProjectFileIn(const fs::path& folder)
{
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".kzm")
            return entry.path().filename().string();
    return "Shop.kzm";
}

} // namespace

GoldenProject::GoldenProject(const std::string& name)
    : folder_(GoldenRoot() / name), projectFile_(ProjectFileIn(folder_))
{}

std::vector<std::string> GoldenProject::LinesOf(const std::string& file) const
{
    return fs::exists(Path(file)) ? Lines(BytesOf(Path(file))) : std::vector<std::string>();
}

std::vector<std::string> GoldenNames()
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(GoldenRoot()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string TestNameOf(const ::testing::TestParamInfo<std::string>& golden)
{
    return text::ReplaceAll(golden.param, "-", "_");
}

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

} // namespace veldrane::testing
