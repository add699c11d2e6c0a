#include "generator/writers.h"

namespace veldrane {

TTCOutputs GenerateTestProjectGroup(const ProjectScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ProjectEmitter emit(lines, scope);
    emit("VBGROUP 5.0", LineClass::Hidden);
    emit("Project={VBProjectName}.vbp", LineClass::Hidden);
    emit("StartupProject=Test{VBProjectName}.vbp", LineClass::Hidden);
    return lines;
}

} // namespace veldrane
