#include "generator/project_file_parts.h"

namespace veldrane {

void ReferToOleAutomation(const ProjectEmitter& emit)
{
    emit(Verbatim(R"(Reference=*\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\..\..\..\..\..\WINNT\System32\StdOle2.tlb#OLE Automation)"), LineClass::Hidden);
}

void ReferToAdoLibrary(const ProjectEmitter& emit)
{
    emit(Verbatim(R"(Reference=*\G{00000201-0000-0010-8000-00AA006D2EA4}#2.1#0#..\..\..\..\..\..\Program Files\Common Files\System\ADO\msado15.dll#Microsoft ActiveX Data Objects 2.1 Library)"),
         LineClass::Hidden);
}

void ReferToAdorLibrary(const ProjectEmitter& emit)
{
    emit(Verbatim(
             R"(Reference=*\G{00000300-0000-0010-8000-00AA006D2EA4}#2.1#0#..\..\..\..\..\..\Program Files\Common Files\System\ADO\msador15.dll#Microsoft ActiveX Data Objects Recordset 2.1 Library)"),
         LineClass::Hidden);
}

// One step more up the folders than the libraries above: on purpose.
void ReferToXmlLibrary(const ProjectEmitter& emit)
{
    emit(Verbatim(R"(Reference=*\G{D63E0CE2-A0A2-11D0-9C02-00C04FC99C8E}#2.0#0#..\..\..\..\..\..\..\WINNT\System32\msxml.dll#Microsoft XML, version 2.0)"), LineClass::Hidden);
}

void ReferToComponentLibrary(const ProjectEmitter& emit)
{
    emit(Verbatim(R"(Reference=*\G{7E3B19C4-5A60-4D21-8F7A-1C2D3E4F5A6B}#1.0#3#..\..\..\..\..\..\..\KZMCSX.dll#Quillmere Component Services Manager)"), LineClass::Hidden);
}

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
