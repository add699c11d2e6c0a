#include "shell/switch_line.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

struct Switch
{
    std::string_view Word;
    bool SwitchLine::*Member;
};

constexpr auto kSwitches = std::to_array<Switch>({
    {"/C", &SwitchLine::AutoCompileMode},
    {"/DEBUG", &SwitchLine::DebugTiming},
    {"/DELETE", &SwitchLine::DeleteAfterCompile},
    {"/NOSPLASH", &SwitchLine::NoSplash},
});

bool NamesProject(const std::string& word, const FileSystem& files)
{
    return word.ends_with(kProjectExtension) || files.Kind(word) == FileKind::File;
}

} // namespace

SwitchLine ReadSwitchLine(const std::vector<std::string>& words, const FileSystem& files)
{
    SwitchLine line;
    for (const std::string& word : words) {
        const auto known =
            std::find_if(kSwitches.begin(), kSwitches.end(), [&](const Switch& entry) { return entry.Word == word; });
        if (known != kSwitches.end()) {
            line.*known->Member = true;
            continue;
        }
        std::string& place = NamesProject(word, files) ? line.File : line.Folder;
        if (place.empty())
            place = word;
        else if (line.Surplus.empty())
            line.Surplus = word;
    }
    return line;
}

} // namespace veldrane
