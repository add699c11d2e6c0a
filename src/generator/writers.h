#pragma once

#include "generator/code_generation.h"
#include "generator/scopes.h"

#include <array>

// The writers: each gives one file or one section of a file, as new lines.
namespace veldrane {

[[nodiscard]] TTCOutputs GenerateProjectFile(const ProjectScope& scope, const KZMClasses& classes);
[[nodiscard]] TTCOutputs GenerateTestProjectFile(const ProjectScope& scope, const KZMClasses& classes);
[[nodiscard]] TTCOutputs GenerateTestProjectGroup(const ProjectScope& scope);
[[nodiscard]] TTCOutputs GenerateTestForm(const ProjectScope& scope, const KZMClasses& classes);
[[nodiscard]] TTCOutputs GenerateGlobalsBasFile(const ProjectScope& scope);

// Throws RuntimeError 1001 if the database file is to be looked for beside the component and the project has no
// connection string.
[[nodiscard]] TTCOutputs GenerateWrapperClass(const ProjectScope& scope, const KZMClasses& classes);

// The four sections of a class module, in their order.
[[nodiscard]] TTCOutputs WriteClassHeader(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteClassDeclarations(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteClassProperties(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteClassMethods(const ClassScope& scope);

// The four sections of a class's collection module, in their order.
[[nodiscard]] TTCOutputs WriteCollectionHeader(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteCollectionDeclarations(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteCollectionProperties(const ClassScope& scope);
[[nodiscard]] TTCOutputs WriteCollectionMethods(const ClassScope& scope);

// The sections of a module, in their order: what a file of it is written of, and its preview too.
inline constexpr std::array<SectionWriter, 4> kClassSections{WriteClassHeader, WriteClassDeclarations, WriteClassProperties, WriteClassMethods};
inline constexpr std::array<SectionWriter, 4> kCollectionSections{WriteCollectionHeader, WriteCollectionDeclarations, WriteCollectionProperties, WriteCollectionMethods};

// What the sections have for a single method or event.
void WriteMethod(const ClassEmitter& emit, const TTCMethod& method);
void WriteEvent(const ClassEmitter& emit, const ttcEvent& event);

// The text of built-in methods.
void WriteAddMethod(const MethodEmitter& emit);
void WriteUpdateMethod(const ClassEmitter& emit);
void WriteDeleteMethod(const MethodEmitter& emit);
void WriteRetrieveMethod(const MethodEmitter& emit);
void WriteClearMethod(const ClassEmitter& emit);
void WriteCloneMethod(const ClassEmitter& emit);
void WriteRetrieveListMethod(const ClassEmitter& emit);
void WriteRetrieveListToTreeViewMethod(const ClassEmitter& emit);
void WriteRetrieveIdentityMethod(const ClassEmitter& emit); // nothing without an identity column
void WriteAddAttributeMethod(const ClassEmitter& emit);
void WriteAddElementMethod(const ClassEmitter& emit);

// The routine by which a child takes the values that the component has returned.
void WriteStoreReturnValues(const ClassEmitter& emit);

// The function that calls the stored procedure.
void VBSourceCode(const ClassEmitter& emit, const SP& procedure);

// The parameter list of the columns that join a child class to its parent.
[[nodiscard]] std::string GetRelationshipArguments(const ClassEmitter& emit);

// The method by which a child collection reads its rows; nothing for a class without a parent or a table.
void GenerateRetrieveRelatedMethod(const ClassEmitter& emit);

} // namespace veldrane
