#include "generator/code_generation.h"

#include "generator/type_rules.h"
#include "generator/writers.h"

#include <utility>

namespace veldrane {

CodeGeneration::CodeGeneration(const TTCProject& project, const GenerationPorts& ports, GenerationSettings settings) : Settings(std::move(settings)), project_(project), ports_(ports) {}

std::string CodeGeneration::VariablePrefix(std::string_view typeName, bool isMember) const
{
    return veldrane::VariablePrefix(project_, typeName, isMember ? VariableKind::Member : VariableKind::Global);
}

TTCOutputs CodeGeneration::GenerateWrapperClass(const KZMClasses& classes) const
{
    return veldrane::GenerateWrapperClass({project_, Settings}, classes);
}

TTCOutputs CodeGeneration::GenerateTestForm(const KZMClasses& classes) const
{
    return veldrane::GenerateTestForm({project_, Settings}, classes);
}

TTCOutputs CodeGeneration::GenerateGlobalsBasFile() const
{
    return veldrane::GenerateGlobalsBasFile({project_, Settings});
}

TTCOutputs CodeGeneration::GenerateTestProjectGroup() const
{
    return veldrane::GenerateTestProjectGroup({project_, Settings});
}

TTCOutputs CodeGeneration::GenerateTestProjectFile(const KZMClasses& classes) const
{
    return veldrane::GenerateTestProjectFile({project_, Settings}, classes);
}

TTCOutputs CodeGeneration::GenerateProjectFile(const KZMClasses& classes) const
{
    return veldrane::GenerateProjectFile({project_, Settings}, classes);
}

std::string CodeGeneration::GeneratedClassModuleText(KZMClass& owner, const KZMClasses& classes)
{
    return OutputsToText(WriteClassHeader(owner, classes)) + OutputsToText(WriteClassDeclarations(owner, classes)) + OutputsToText(WriteClassProperties(owner, classes));
}

TTCOutputs CodeGeneration::WriteClassHeader(KZMClass& owner, const KZMClasses& classes)
{
    return WriteSection(veldrane::WriteClassHeader, owner, classes);
}

TTCOutputs CodeGeneration::WriteClassDeclarations(KZMClass& owner, const KZMClasses& classes)
{
    return WriteSection(veldrane::WriteClassDeclarations, owner, classes);
}

TTCOutputs CodeGeneration::WriteClassProperties(KZMClass& owner, const KZMClasses& classes)
{
    return WriteSection(veldrane::WriteClassProperties, owner, classes);
}

TTCOutputs CodeGeneration::WriteClassMethods(KZMClass& owner, const KZMClasses& classes)
{
    return WriteSection(veldrane::WriteClassMethods, owner, classes);
}

TTCOutputs CodeGeneration::WriteCollectionHeader(KZMClass& owner, const KZMClasses& classes)
{
    return WriteSection(veldrane::WriteCollectionHeader, owner, classes);
}

TTCOutputs CodeGeneration::WriteCollectionDeclarations(KZMClass& owner, const KZMClasses& classes)
{
    return WriteSection(veldrane::WriteCollectionDeclarations, owner, classes);
}

TTCOutputs CodeGeneration::WriteCollectionProperties(KZMClass& owner, const KZMClasses& classes)
{
    return WriteSection(veldrane::WriteCollectionProperties, owner, classes);
}

TTCOutputs CodeGeneration::WriteCollectionMethods(KZMClass& owner, const KZMClasses& classes)
{
    return WriteSection(veldrane::WriteCollectionMethods, owner, classes);
}

TTCOutputs CodeGeneration::WriteSection(TTCOutputs (*write)(const ClassScope&), KZMClass& owner, const KZMClasses& classes)
{
    const ChildIndex children(classes);
    const GenerationContext context{{project_, Settings}, classes, children, ports_.Asking, ErrorText};
    return write({context, owner});
}

} // namespace veldrane
