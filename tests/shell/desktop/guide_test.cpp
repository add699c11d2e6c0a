#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

namespace veldrane::testing {
namespace {

const std::string kDocs = VELDRANE_SOURCE_DIR "/docs/";

std::string Guide()
{
    std::ifstream file(kDocs + "guide.md");
    return {std::istreambuf_iterator<char>(file), {}};
}

std::set<std::string> FoundIn(const std::string& text, const std::regex& pattern)
{
    std::set<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
        found.insert((*match)[1]);
    return found;
}

TEST(TheGuide, HasEachPictureInBothShadesAndNoOther)
{
    std::set<std::string> shown;
    for (const std::string& name : FoundIn(Guide(), std::regex("\\]\\(pictures/([A-Za-z-]+)-light\\.png\\)")))
        for (const char* shade : {"-light.png", "-dark.png"})
            shown.insert(name + shade);
    std::set<std::string> kept;
    for (const auto& entry : std::filesystem::directory_iterator(kDocs + "pictures"))
        kept.insert(entry.path().filename().string());
    EXPECT_THAT(shown, ::testing::Not(::testing::IsEmpty()));
    EXPECT_EQ(shown, kept) << "scripts/guide-pictures makes them";
}

TEST(TheGuide, LeadsToChaptersThatAreThere)
{
    const std::string guide = Guide();
    std::set<std::string> chapters;
    for (const std::string& name : FoundIn(guide, std::regex("\n## ([^\n]+)"))) {
        std::string anchor;
        for (const char letter : name)
            if (std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == ' ' || letter == '-')
                anchor += letter == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        chapters.insert(anchor);
    }
    const std::set<std::string> links = FoundIn(guide, std::regex("\\]\\(#([^)]+)\\)"));
    EXPECT_EQ(links, chapters);
}

} // namespace
} // namespace veldrane::testing
