#include "projectfile/recent_list.h"

#include "projectfile/format.h"
#include "projectfile/line_stream.h"
#include "projectfile/project_dialogs.h"
#include "projectfile/project_reader.h"
#include "text/characters.h"
#include "text/conversion.h"
#include "text/strings.h"

#include <algorithm>
#include <cstdint>

namespace veldrane {
namespace {

constexpr std::string_view kCountName = "RecentFileCount";
constexpr std::int32_t kUsualCount = 10;
constexpr std::size_t kReadBytes = 65536;     // the name stands near the beginning of a file
constexpr std::size_t kLongestShownName = 80; // characters

using Paths = std::vector<std::string>;

// Names in their order as numbers, which need not be that of the store.
Paths RecentPaths(const Settings& settings)
{
    auto entries = settings.GetAllSettings(settings_section::kMRU);
    std::stable_sort(entries.begin(), entries.end(), [](const auto& left, const auto& right) {
        return text::LeadingNumber(left.first) < text::LeadingNumber(right.first);
    });
    Paths paths;
    for (auto& [name, path] : entries)
        if (!text::Trim(path).empty() && std::find(paths.begin(), paths.end(), path) == paths.end())
            paths.push_back(std::move(path));
    return paths;
}

std::size_t ReadCount(Settings& settings)
{
    const std::string value = settings.GetKeyValue(settings_section::kOptions, kCountName);
    if (text::Trim(value).empty())
        settings.UpdateKey(settings_section::kOptions, kCountName, std::to_string(kUsualCount));
    const std::int32_t count = text::LeadingNumber(value);
    return static_cast<std::size_t>(count > 0 ? count : kUsualCount);
}

// Each entry that is written costs a write of the settings, so those that stay are left alone. From the end: a path is
// written one place further down before another takes its place, and none is lost where it ends half way.
void Store(Settings& settings, const Paths& paths)
{
    const auto stored = settings.GetAllSettings(settings_section::kMRU);
    const auto isName = [](std::size_t number) {
        return [name = std::to_string(number)](const auto& entry) { return entry.first == name; };
    };
    for (std::size_t place = paths.size(); place > 0; --place) {
        const auto found = std::find_if(stored.begin(), stored.end(), isName(place));
        if (found == stored.end() || found->second != paths[place - 1])
            settings.SaveSetting(settings_section::kMRU, std::to_string(place), paths[place - 1]);
    }
    for (const auto& [name, path] : stored)
        if (const std::int32_t number = text::LeadingNumber(name);
            number < 1 || static_cast<std::size_t>(number) > paths.size() || name != std::to_string(number))
            settings.DeleteSetting(settings_section::kMRU, name);
}

// "" for a file that is no project.
std::string NameIn(const FileSystem& files, const text::CodePage& codePage, const std::string& path)
{
    TTCProject scratch;
    try {
        LineStream stream(codePage.DecodeInPlace(files.ReadBeginning(path, kReadBytes)));
        if (stream.ReadLine() == project_format::kHeader)
            ReadProjectInfo(stream, scratch);
    } catch (const RuntimeError&) {
        // The name stands in front of what was not understood, or was cut off with the rest of the file.
    }
    return std::string(text::Left(scratch.ProjectName(), kLongestShownName));
}

} // namespace

void UpdateRecentList(Settings& settings, const std::string& path)
{
    if (path.empty())
        return;
    const std::size_t count = ReadCount(settings);
    Paths paths = RecentPaths(settings);
    paths.erase(std::remove(paths.begin(), paths.end(), path), paths.end());
    paths.insert(paths.begin(), path);
    paths.resize(std::min(paths.size(), count));
    Store(settings, paths);
}

std::vector<RecentProject> RecentProjects(const Settings& settings, const FileSystem& files,
                                          const text::CodePage& codePage)
{
    std::vector<RecentProject> projects;
    for (const std::string& path : RecentPaths(settings)) {
        if (projects.size() == kMostRecentProjects)
            break;
        if (files.Kind(path) != FileKind::File)
            continue;
        const std::string name = NameIn(files, codePage, path);
        projects.push_back({.Path = path, .ProjectName = name.empty() ? LastPart(path) : name});
    }
    return projects;
}

} // namespace veldrane
