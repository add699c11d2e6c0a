#include "editors/arguments.h"

#include <algorithm>

namespace veldrane {
namespace {

bool IsOptional(const TTCParameter& argument)
{
    return argument.OptionalIndicator;
}

} // namespace

std::string ArgumentSignature(const TTCParameter& argument)
{
    std::string signature;
    if (argument.OptionalIndicator)
        signature += "Optional ";
    if (argument.ByValIndicator)
        signature += "ByVal ";
    signature += argument.VariableName;
    if (argument.IsArray)
        signature += "()";
    return signature + " as " + argument.ParameterDataType;
}

bool HasRequiredAfter(const Arguments& arguments, std::size_t position)
{
    return std::any_of(arguments.begin() + static_cast<std::ptrdiff_t>(position) + 1, arguments.end(),
                       [](const TTCParameter& argument) { return !IsOptional(argument); });
}

bool HasOptionalBefore(const Arguments& arguments, std::size_t position)
{
    return std::any_of(arguments.begin(), arguments.begin() + static_cast<std::ptrdiff_t>(position), IsOptional);
}

void SortByIndex(Arguments& arguments)
{
    const auto place = [&](const TTCParameter& argument) {
        const auto index = static_cast<std::size_t>(argument.Index);
        return argument.Index >= 1 && index <= arguments.size() ? index : arguments.size() + 1;
    };
    std::stable_sort(arguments.begin(), arguments.end(),
                     [&](const TTCParameter& left, const TTCParameter& right) { return place(left) < place(right); });
}

} // namespace veldrane
