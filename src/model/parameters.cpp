#include "model/parameters.h"

namespace veldrane {

std::shared_ptr<TTCParameter> TTCParameter::Clone() const
{
    auto clone = std::make_shared<TTCParameter>(*this);
    clone->ColumnName.clear();
    return clone;
}

std::shared_ptr<TTCParameter> KZMArguments::Add(std::string_view columnName, std::int16_t index, bool byValIndicator,
                                                std::string_view variableName, std::string_view parameterDataType,
                                                bool optionalIndicator, std::string_view defaultValue, bool isArray,
                                                std::string_view key)
{
    return Insert(std::make_shared<TTCParameter>(TTCParameter{.ByValIndicator = byValIndicator,
                                                              .VariableName = std::string(variableName),
                                                              .ParameterDataType = std::string(parameterDataType),
                                                              .OptionalIndicator = optionalIndicator,
                                                              .DefaultValue = std::string(defaultValue),
                                                              .IsArray = isArray,
                                                              .Index = index,
                                                              .ColumnName = std::string(columnName)}),
                  key);
}

std::shared_ptr<TTCParameter> TTCEventParameters::Add(std::int16_t index, bool byValIndicator,
                                                      std::string_view variableName, std::string_view parameterDataType,
                                                      bool optionalIndicator, std::string_view defaultValue,
                                                      bool isArray, std::string_view key)
{
    return Insert(std::make_shared<TTCParameter>(TTCParameter{.ByValIndicator = byValIndicator,
                                                              .VariableName = std::string(variableName),
                                                              .ParameterDataType = std::string(parameterDataType),
                                                              .OptionalIndicator = optionalIndicator,
                                                              .DefaultValue = std::string(defaultValue),
                                                              .IsArray = isArray,
                                                              .Index = index,
                                                              .ColumnName = {}}),
                  key);
}

} // namespace veldrane
