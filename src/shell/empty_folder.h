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
// project's file, it can't be listed, or it holds files and no VBProjectName.vbp among them. Nothing if they may.
[[nodiscard]] std::optional<std::string> ReasonAgainstEmptying(const FileSystem& files, const FolderOfProject& project);

// Removes the plain files of the folder, VBProjectName.vbp last, so that a run that was killed on its way can be made
// again. Folders, links, whatever else is in it and files that a run is writing stay. False if some could not be
// removed: one report names the first of them and tells how many more there are.
[[nodiscard]] bool EmptyFolder(FileSystem& files, ErrorReport& report, const FolderOfProject& project);

} // namespace veldrane
