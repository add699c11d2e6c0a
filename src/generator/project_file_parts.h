#pragma once

#include "generator/scopes.h"

// What the project files have in common.
namespace veldrane {

// The type library references. Visual Basic resolves them; the generator only knows the lines. The XML library stands one
// step more up the folders than those before it: on purpose.
inline constexpr Verbatim OleAutomation(R"(Reference=*\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\..\..\..\..\..\WINNT\System32\StdOle2.tlb#OLE Automation)");
inline constexpr Verbatim
    AdoLibrary(R"(Reference=*\G{00000201-0000-0010-8000-00AA006D2EA4}#2.1#0#..\..\..\..\..\..\Program Files\Common Files\System\ADO\msado15.dll#Microsoft ActiveX Data Objects 2.1 Library)");
inline constexpr Verbatim AdorLibrary(
    R"(Reference=*\G{00000300-0000-0010-8000-00AA006D2EA4}#2.1#0#..\..\..\..\..\..\Program Files\Common Files\System\ADO\msador15.dll#Microsoft ActiveX Data Objects Recordset 2.1 Library)");
inline constexpr Verbatim XmlLibrary(R"(Reference=*\G{D63E0CE2-A0A2-11D0-9C02-00C04FC99C8E}#2.0#0#..\..\..\..\..\..\..\WINNT\System32\msxml.dll#Microsoft XML, version 2.0)");

// The server component, which offers CSProcess.
inline constexpr Verbatim ComponentLibrary(R"(Reference=*\G{7E3B19C4-5A60-4D21-8F7A-1C2D3E4F5A6B}#1.0#3#..\..\..\..\..\..\..\KZMCSX.dll#Quillmere Component Services Manager)");

// The settings of the compiler itself, all at their defaults.
void WriteCompilerSettings(const ProjectEmitter& emit);

} // namespace veldrane
