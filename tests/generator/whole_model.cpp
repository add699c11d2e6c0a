#include "whole_model.h"

#include "model_text.h"

namespace veldrane::testing {
namespace {

template <class Value>
void Append(std::string& text, std::string_view name, const Value& value)
{
    text.append(name).append(" ");
    if constexpr (std::is_arithmetic_v<Value>)
        text += std::to_string(value);
    else
        text += value;
    text += '\n';
}

void AppendSessionValues(std::string& text, const TTCProject& project)
{
    Append(text, "FullPath", project.FullPath);
    Append(text, "Modified", project.Modified());
    Append(text, "AutosaveProjectInterval", project.AutosaveProjectInterval);
    Append(text, "AutosaveCurrentInterval", project.AutosaveCurrentInterval);
    Append(text, "TempFileName", project.TempFileName);
    Append(text, "Recovered", project.Recovered);
    Append(text, "DataSourcePassword", project.DataSourcePassword);
    Append(text, "DataSourceDatabasePassword", project.DataSourceDatabasePassword);
    for (const TTCClassCollectionName& name : project.ClassCollectionNames)
        Append(text, "ClassCollectionName", name.ClassCollectionName);
    for (const KZMSP& procedure : project.AttachedSPs)
        Append(text, "AttachedSP", procedure.SPName);
}

void AppendSessionValues(std::string& text, const KZMClass& owner)
{
    Append(text, "Class", owner.ClassName);
    for (const TTCMember& member : owner.TTCMembers)
        Append(text, "Member", member.MemberName);
    for (const TTCEnum& enumeration : owner.Enumerations)
        Append(text, "Enumeration", enumeration.EnumName);
    for (const TTCKey& key : owner.TTCKeys)
        for (const TTCColumn& column : key.TTCColumns)
            Append(text, "JoinColumnName", column.JoinColumnName);
    for (const TTCProperty& property : owner.TTCProperties)
        Append(text, "Include", property.Include);
    for (const TTCMethod& method : owner.TTCMethods) {
        Append(text, "SPReturnValuesOnly", method.SPReturnValuesOnly);
        Append(text, "StoredProcedure", method.StoredProcedure != nullptr);
    }
}

} // namespace

std::string WholeModelText(const TTCProject& project, const KZMClasses& classes)
{
    std::string text = ModelText(project, classes);
    AppendSessionValues(text, project);
    for (const KZMClass& owner : classes)
        AppendSessionValues(text, owner);
    return text;
}

} // namespace veldrane::testing
