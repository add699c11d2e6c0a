#pragma once

#include "shell/application.h"

#include <optional>
#include <string>

namespace veldrane {

// Whose folder is to be emptied.
struct FolderOfProject
{
    std::string Folder;
    std::string ProjectFile;   // the .kzm
    std::string VBProjectName; // tells a folder that was generated into
};

// Why the folder's files may not be removed, as one sentence: it is none, it is "/", a home folder or that of the
// project's file, or it holds files and no VBProjectName.vbp among them. Nothing if they may.
[[nodiscard]] std::optional<std::string> ReasonAgainstEmptying(const FileSystem& files, const FolderOfProject& project);

// Removes the plain files of the folder; folders, links and whatever else is in it stay. Each that can't be removed is
// reported.
void EmptyFolder(FileSystem& files, ErrorReport& report, const std::string& folder);

} // namespace veldrane
