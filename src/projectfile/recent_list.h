#pragma once

#include "ports/file_system.h"
#include "ports/settings.h"
#include "text/code_page.h"

#include <cstddef>
#include <string>
#include <vector>

// The project files that were used last: the section MRU of the settings, "1" the latest.
namespace veldrane {

inline constexpr std::size_t kMostRecentProjects = 10; // in the File menu and in the start-up dialog

// Puts the path on top of the list, which keeps as many as `RecentFileCount` of the options says; that is written as
// "10" where it is empty, and one that is no positive number counts as 10. An empty path changes nothing. Throws
// RuntimeError (75) if the settings can't be written; the list is then short of the path, or has part of its order, and
// no other path is lost.
void UpdateRecentList(Settings& settings, const std::string& path);

struct RecentProject
{
    std::string Path;
    std::string ProjectName; // as the file has it, cut short if it is very long
};

// Those of the list whose file exists, ten at most. One that is no project or can't be read goes by the name of its
// file. Of each file only the beginning is read, so a huge one costs no more than any other.
[[nodiscard]] std::vector<RecentProject> RecentProjects(const Settings& settings, const FileSystem& files,
                                                        const text::CodePage& codePage);

} // namespace veldrane
