#include "model/methods.h"

namespace veldrane {

std::shared_ptr<TTCMethod> TTCMethod::Clone() const
{
    auto clone = std::make_shared<TTCMethod>();
    clone->Scope = Scope;
    clone->DefaultMethod = DefaultMethod;
    clone->MethodName = MethodName;
    clone->PlusMethod = PlusMethod;
    clone->ReturnDataType = ReturnDataType;
    clone->MethodIsSP = MethodIsSP;
    clone->SPReturnValuesOnly = SPReturnValuesOnly;
    clone->StoredProcedure = StoredProcedure;
    for (const TTCParameter& argument : Arguments)
        clone->Arguments.Add(argument.ColumnName, argument.Index, argument.ByValIndicator, argument.VariableName,
                             argument.ParameterDataType, argument.OptionalIndicator, argument.DefaultValue,
                             argument.IsArray, argument.VariableName);
    return clone;
}

std::shared_ptr<TTCMethod> TTCMethods::Add(std::string_view methodName, bool plusMethod, KZMArguments arguments,
                                           std::string_view returnDataType, std::string_view scope, bool defaultMethod,
                                           std::string_view key)
{
    auto method = std::make_shared<TTCMethod>();
    method->MethodName = methodName;
    method->PlusMethod = plusMethod;
    method->Arguments = std::move(arguments);
    method->ReturnDataType = returnDataType;
    method->Scope = scope;
    method->DefaultMethod = defaultMethod;
    return Insert(std::move(method), key);
}

} // namespace veldrane
