#include "generator/project_file_parts.h"

namespace veldrane {

void WriteCompilerSettings(const ProjectEmitter& emit)
{
    emit("CompilationType=0", LineClass::Hidden);
    emit("OptimizationType=0", LineClass::Hidden);
    emit("FavorPentiumPro(tm)=0", LineClass::Hidden);
    emit("CodeViewDebugInfo=0", LineClass::Hidden);
    emit("NoAliasing=0", LineClass::Hidden);
    emit("BoundsCheck=0", LineClass::Hidden);
    emit("OverflowCheck=0", LineClass::Hidden);
    emit("FlPointCheck=0", LineClass::Hidden);
    emit("FDIVCheck=0", LineClass::Hidden);
    emit("UnroundedFP=0", LineClass::Hidden);
}

} // namespace veldrane
