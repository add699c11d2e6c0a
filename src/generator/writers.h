#pragma once

#include "generator/scopes.h"

// The writers: each gives one file or one section of a file, as new lines.
namespace veldrane {

[[nodiscard]] TTCOutputs GenerateProjectFile(const ProjectScope& scope, const KZMClasses& classes);
[[nodiscard]] TTCOutputs GenerateTestProjectFile(const ProjectScope& scope, const KZMClasses& classes);
[[nodiscard]] TTCOutputs GenerateTestProjectGroup(const ProjectScope& scope);
[[nodiscard]] TTCOutputs GenerateGlobalsBasFile(const ProjectScope& scope);

// The four sections of a class module, in their order.
[[nodiscard]] TTCOutputs WriteClassHeader(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteClassDeclarations(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteClassProperties(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteClassMethods(const ClassScope& scope);

// The text of built-in methods.
void WriteClearMethod(const ClassEmitter& emit);
void WriteCloneMethod(const ClassEmitter& emit);

} // namespace veldrane
