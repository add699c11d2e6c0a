#include "preview/preview_emitter.h"
#include "preview/views.h"

namespace veldrane {
namespace {

using RequiredEmitter = PreviewEmitter<ProjectScope>;

void ListProjects(const RequiredEmitter& emit)
{
    emit("    {VBProjectName} ({VBProjectName}.vbp)");
    emit("            {VBProjectName}.vbp is the main COM object project file.", LineClass::Note);
    emit("    Test{VBProjectName} (Test{VBProjectName}.vbp)  Test Project");
    emit("            Test{VBProjectName}.vbp is a test project that you can use to try out your new COM Object once it has been generated.", LineClass::Note);
    emit("    Test{VBProjectName} (Test{VBProjectName}.vbg)  Project Group");
    emit("            Test{VBProjectName}.vbg is the project group that contains your COM object project file and your test project file.", LineClass::Note);
}

void ListModules(const RequiredEmitter& emit)
{
    emit("    Globals ({ModulePrefix}Globals.bas)");
    emit("            {ModulePrefix}Globals.bas is a required module that contains centralized error handling and global variable declarations.", LineClass::Note);
    emit("");
}

// Without the empty line that ends the list where it stands alone.
void ListClasses(const RequiredEmitter& emit)
{
    emit("    {WrapperClassName} ({ClassPrefix}{WrapperClassName}.cls)");
    emit("            {ClassPrefix}{WrapperClassName}.cls is a required class that functions as the central entry point into your COM Object.", LineClass::Note);
    emit("");
    if (!emit.Scope().Project.MTSEnabled)
        return;
    emit("    xmlAssist.cls ({ClassPrefix}xmlAssist.cls)");
    emit("            {ClassPrefix}xmlAssist.cls is a required class that is used to assist in the creation of an XML document for use with Component Services.", LineClass::Note);
}

} // namespace

void ShowRequiredProjects(const View& view)
{
    const ProjectScope scope = view.Scope();
    const RequiredEmitter emit(view.AddBlock(), scope);
    emit("Required Projects", LineClass::Head, preview_icon::kRoot);
    ListProjects(emit);
}

void ShowRequiredModules(const View& view)
{
    const ProjectScope scope = view.Scope();
    const RequiredEmitter emit(view.AddBlock(), scope);
    emit("Required Modules:", LineClass::Head, preview_icon::kModule);
    ListModules(emit);
}

void ShowRequiredClasses(const View& view)
{
    const ProjectScope scope = view.Scope();
    const RequiredEmitter emit(view.AddBlock(), scope);
    emit("Required Classes:", LineClass::Head, preview_icon::kClass);
    ListClasses(emit);
    emit("");
}

void ShowRequiredFiles(const View& view)
{
    const ProjectScope scope = view.Scope();
    const RequiredEmitter emit(view.AddBlock(), scope);
    emit("Required Files Summary", LineClass::Head, preview_icon::kProject);
    emit("");
    emit("The files listed below represent the required files that support", LineClass::Note);
    emit("the creation, operation, and testing of your COM Object.", LineClass::Note);
    emit("");
    emit("Required Projects:", preview_icon::kClosedFolder);
    ListProjects(emit);
    emit("");
    emit("Required Modules:", preview_icon::kClosedFolder);
    ListModules(emit);
    emit("Required Classes:", preview_icon::kClosedFolder);
    ListClasses(emit);
}

} // namespace veldrane
