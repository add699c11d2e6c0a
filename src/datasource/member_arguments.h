#pragma once

#include "datasource/row_identifier.h"
#include "model/parameters.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace veldrane {

// Appends an argument to those of a method or an event and numbers it. One whose name is there already is passed over:
// two columns whose names are cleaned to the same text need but one.
template <class Arguments>
void AddArgument(Arguments& arguments, TTCParameter argument)
{
    argument.Index = static_cast<std::int16_t>(arguments.Count() + 1);
    const auto added = std::make_shared<TTCParameter>(std::move(argument));
    arguments.AddExisting(added, added->VariableName);
}

// The argument that takes a column's value.
inline TTCParameter ParameterFor(const ColumnArgument& column)
{
    TTCParameter parameter;
    parameter.ByValIndicator = true;
    parameter.VariableName = column.VariableName;
    parameter.ParameterDataType = column.DataType;
    parameter.ColumnName = column.ColumnName;
    return parameter;
}

// A plain argument, handed over by reference.
inline TTCParameter PlainParameter(std::string variableName, std::string dataType)
{
    TTCParameter parameter;
    parameter.VariableName = std::move(variableName);
    parameter.ParameterDataType = std::move(dataType);
    return parameter;
}

} // namespace veldrane
