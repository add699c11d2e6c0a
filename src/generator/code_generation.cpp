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

template <class Write>
auto CodeGeneration::WithClass(KZMClass& owner, const KZMClasses& classes, Write&& write)
{
    const ChildIndex children(classes);
    const GenerationContext context{{project_, Settings}, classes, children, ports_.Asking, ErrorText};
    return write(ClassScope{context, owner});
}

TTCOutputs CodeGeneration::WriteClassHeader(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, veldrane::WriteClassHeader);
}

TTCOutputs CodeGeneration::WriteClassDeclarations(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, veldrane::WriteClassDeclarations);
}

TTCOutputs CodeGeneration::WriteClassProperties(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, veldrane::WriteClassProperties);
}

TTCOutputs CodeGeneration::WriteClassMethods(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, veldrane::WriteClassMethods);
}

TTCOutputs CodeGeneration::WriteCollectionHeader(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, veldrane::WriteCollectionHeader);
}

TTCOutputs CodeGeneration::WriteCollectionDeclarations(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, veldrane::WriteCollectionDeclarations);
}

TTCOutputs CodeGeneration::WriteCollectionProperties(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, veldrane::WriteCollectionProperties);
}

TTCOutputs CodeGeneration::WriteCollectionMethods(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, veldrane::WriteCollectionMethods);
}

std::span<const SectionWriter> CodeGeneration::ClassSections()
{
    return kClassSections;
}

std::span<const SectionWriter> CodeGeneration::CollectionSections()
{
    return kCollectionSections;
}

TTCOutputs CodeGeneration::WriteSection(SectionWriter section, KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, section);
}

std::string CodeGeneration::GetRelationshipArguments(KZMClass& owner, const KZMClasses& classes)
{
    return WithClass(owner, classes, [&](const ClassScope& scope) {
        TTCOutputs none(Settings.Colors);
        return veldrane::GetRelationshipArguments(ClassEmitter(none, scope));
    });
}

void CodeGeneration::GenerateRetrieveRelatedMethod(TTCOutputs& lines, KZMClass& owner, const KZMClasses& classes)
{
    WithClass(owner, classes, [&](const ClassScope& scope) { veldrane::GenerateRetrieveRelatedMethod(ClassEmitter(lines, scope)); });
}

} // namespace veldrane
