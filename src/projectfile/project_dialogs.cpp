#include "projectfile/project_dialogs.h"

namespace veldrane {
namespace {

constexpr char kProjectFilter[] = "Veldrane Project|*.kzm|All Files|*.*";
constexpr std::string_view kSlashes = "/\\";

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of(kSlashes);
    if (slash == std::string::npos)
        return {};
    return slash == 0 ? path.substr(0, 1) : path.substr(0, slash);
}

// A project without a file is proposed the name of its Visual Basic project.
std::string ProposedName(const TTCProject& project)
{
    if (!project.FileName.empty() || project.VBProjectName.empty())
        return project.FileName;
    return LastPart(project.VBProjectName) + ".kzm";
}

} // namespace

std::string LastPart(std::string_view path)
{
    return std::string(path.substr(path.find_last_of(kSlashes) + 1));
}

FileDialogRequest OpenProjectRequest(const std::string& fullPath)
{
    return {.Title = "Open Project",
            .Filter = kProjectFilter,
            .StartFolder = FolderOf(fullPath),
            .DefaultExtension = "kzm"};
}

// "hir" is no slip: a name that is typed without an extension gets this one.
FileDialogRequest SaveProjectRequest(const TTCProject& project, OwnFile ownFile)
{
    FileDialogRequest request{.Title = "Save Project As", .Filter = kProjectFilter, .DefaultExtension = "hir"};
    if (ownFile == OwnFile::Yes) {
        request.DefaultName = ProposedName(project);
        request.StartFolder = FolderOf(project.FullPath);
    }
    return request;
}

} // namespace veldrane
