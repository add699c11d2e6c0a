#include "shell/new_project.h"

#include "shell/product.h"
#include "shell/project_defaults.h"

namespace veldrane {

void NewProject(TTCProject& project, const Settings& settings, ErrorReport& report)
{
    project.Clear();
    project.SetProjectName("New Project");
    project.ProjectDescription = "This is a brand new project";
    project.VBProjectName = "NewProject";
    project.VBProjectDescription = "NewProject Object";
    try {
        ReadProjectDefaults(project, settings, DefaultsOf::WholeProject);
    } catch (const RuntimeError& error) {
        report.ReportError(
            error,
            {.ModuleName = "frmMain",
             .RoutineName = "NewProject",
             .Hint = std::string("The registry settings for Veldrane are invalid, please contact ") + kSupportAddress});
    }
    project.WrapClasses = true;
    project.UseGlobalADOObject = true;
    project.IncludeGlobalsBas = true;
    project.FormsEnabled = true;
    project.FullPath.clear();
    project.SetModified(false);
}

} // namespace veldrane
