#pragma once

#include "generator/scopes.h"

// What the project files have in common.
namespace veldrane {

// The type library references. Visual Basic resolves them; the generator only knows the lines.
void ReferToOleAutomation(const ProjectEmitter& emit);
void ReferToAdoLibrary(const ProjectEmitter& emit);
void ReferToAdorLibrary(const ProjectEmitter& emit);
void ReferToXmlLibrary(const ProjectEmitter& emit);
void ReferToComponentLibrary(const ProjectEmitter& emit); // the server component, which offers CSProcess

// The settings of the compiler itself, all at their defaults.
void WriteCompilerSettings(const ProjectEmitter& emit);

} // namespace veldrane
