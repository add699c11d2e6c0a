#include "generator/argument_list.h"

#include <algorithm>

namespace veldrane {
namespace {

void AppendArgument(std::string& list, const TTCParameter& parameter)
{
    if (parameter.OptionalIndicator)
        list += "Optional ";
    list += parameter.ByValIndicator ? "ByVal " : "ByRef ";
    list += parameter.VariableName;
    if (parameter.IsArray)
        list += "()";
    list += " as ";
    list += parameter.ParameterDataType;
    if (!parameter.DefaultValue.empty()) {
        list += '=';
        std::replace_copy(parameter.DefaultValue.begin(), parameter.DefaultValue.end(), std::back_inserter(list), '"', '`');
    }
    list += ", ";
}

template <class Parameters>
std::vector<const TTCParameter*> InOrder(const Parameters& parameters)
{
    std::vector<const TTCParameter*> ordered;
    for (const TTCParameter& parameter : parameters)
        if (parameter.Index >= 1 && static_cast<std::size_t>(parameter.Index) <= parameters.Count())
            ordered.push_back(&parameter);
    std::stable_sort(ordered.begin(), ordered.end(), [](const TTCParameter* left, const TTCParameter* right) { return left->Index < right->Index; });
    return ordered;
}

template <class Parameters>
std::string Format(const Parameters& parameters)
{
    std::string list;
    for (const TTCParameter* parameter : InOrder(parameters))
        AppendArgument(list, *parameter);
    constexpr std::size_t kSeparator = 2;
    if (list.size() > kSeparator)
        list.resize(list.size() - kSeparator);
    return list;
}

} // namespace

std::string FormatArguments(const KZMArguments& arguments)
{
    return Format(arguments);
}

std::string FormatArguments(const TTCEventParameters& parameters)
{
    return Format(parameters);
}

std::vector<const TTCParameter*> ArgumentsInOrder(const KZMArguments& arguments)
{
    return InOrder(arguments);
}

} // namespace veldrane
