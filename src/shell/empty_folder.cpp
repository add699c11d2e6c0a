#include "shell/empty_folder.h"

#include "generator/target_files.h"
#include "shell/platform/paths.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace veldrane {
namespace {

std::vector<std::string> PlainFilesIn(const FileSystem& files, const std::string& folder)
{
    std::vector<std::string> names = files.List(folder);
    std::erase_if(names, [&](const std::string& name) {
        const std::string path = PathIn(folder, name);
        return files.Kind(path) != FileKind::File || files.IsLink(path);
    });
    return names;
}

// A link to the project's file stands in one folder, the file in another.
bool IsFolderOf(const std::string& folder, const std::string& projectFile)
{
    std::error_code error;
    const std::filesystem::path named = std::filesystem::absolute(projectFile, error);
    const std::filesystem::path real = std::filesystem::canonical(projectFile, error);
    return IsSameFolder(folder, named.parent_path().string()) || IsSameFolder(folder, real.parent_path().string());
}

} // namespace

std::optional<std::string> ReasonAgainstEmptying(const FileSystem& files, const FolderOfProject& project)
{
    const std::string& folder = project.Folder;
    if (files.Kind(folder) != FileKind::Folder)
        return folder + " is no folder.";
    if (IsRootOrHomeFolder(folder))
        return folder + " is the root of the file system or somebody's home folder.";
    if (IsFolderOf(folder, project.ProjectFile))
        return folder + " holds the project file itself.";
    const std::vector<std::string> names = PlainFilesIn(files, folder);
    const std::string generated = project.VBProjectName + ".vbp";
    if (!names.empty() && std::find(names.begin(), names.end(), generated) == names.end())
        return folder + " holds files, but no " + generated + ": they are none of this project's.";
    return std::nullopt;
}

void EmptyFolder(FileSystem& files, ErrorReport& report, const std::string& folder)
{
    for (const std::string& name : PlainFilesIn(files, folder))
        Guarded(report, "frmGenCode", "EmptyFolder", [&] { files.Remove(PathIn(folder, name)); });
}

} // namespace veldrane
