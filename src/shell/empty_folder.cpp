#include "shell/empty_folder.h"

#include "generator/target_files.h"
#include "shell/platform/paths.h"
#include "shell/platform/temporary_registry.h"

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
        return files.Kind(path) != FileKind::File || files.IsLink(path) || !temporary_name::OwnerOf(name).empty();
    });
    return names;
}

// What tells a folder that was generated into.
std::string MarkOf(const FolderOfProject& project)
{
    return project.VBProjectName + ".vbp";
}

std::optional<std::string> ReasonAgainstFilesIn(const FileSystem& files, const FolderOfProject& project)
{
    const std::vector<std::string> names = PlainFilesIn(files, project.Folder);
    if (!names.empty() && std::find(names.begin(), names.end(), MarkOf(project)) == names.end())
        return project.Folder + " holds files, but no " + MarkOf(project) + ": they are none of this project's.";
    return std::nullopt;
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
    try {
        return ReasonAgainstFilesIn(files, project);
    } catch (const RuntimeError& error) {
        return error.Description() + ".";
    }
}

bool EmptyFolder(FileSystem& files, ErrorReport& report, const FolderOfProject& project)
{
    std::vector<std::string> names = PlainFilesIn(files, project.Folder);
    std::stable_partition(names.begin(), names.end(), [&](const std::string& name) { return name != MarkOf(project); });
    std::vector<RuntimeError> failures;
    for (const std::string& name : names)
        try {
            files.Remove(PathIn(project.Folder, name));
        } catch (const RuntimeError& error) {
            failures.push_back(error);
        }
    if (failures.empty())
        return true;
    ErrorPlace place{.ModuleName = "frmGenCode", .RoutineName = "EmptyFolder"};
    if (const std::size_t more = failures.size() - 1; more > 0)
        place.Hint = "Files that could not be removed either: " + std::to_string(more) + ".";
    report.ReportError(failures.front(), place);
    return false;
}

} // namespace veldrane
