#include "model/stored_procedures.h"

#include "text/case_folding.h"
#include "text/strings.h"

#include <array>
#include <utility>

namespace veldrane {
namespace {

// Cut before the version tail, without the punctuation that no Visual Basic name holds.
std::string CleanName(std::string_view name)
{
    constexpr std::string_view kUnwanted = ",.;:<>/?'[]{}\\|`~!@#$%^&*()-=+\"";
    return text::Without(name.substr(0, name.find(';')), kUnwanted);
}

using TypePair = std::pair<std::string_view, std::string_view>;

// The entry "Float" has a capital and is compared with a lower-case text, so a float comes out as Variant: on purpose.
constexpr auto kVisualBasicTypes = std::to_array<TypePair>({
    {"binary", "Variant"},
    {"image", "Variant"},
    {"timestamp", "Variant"},
    {"varbinary", "Variant"},
    {"datetime", "Date"},
    {"smalldatetime", "Date"},
    {"decimal", "Double"},
    {"numeric", "Double"},
    {"real", "Double"},
    {"Float", "Double"},
    {"int", "Long"},
    {"tinyint", "Byte"},
    {"nvarchar", "String"},
    {"varchar", "String"},
    {"char", "String"},
    {"nchar", "String"},
    {"ntext", "String"},
    {"text", "String"},
    {"uniqueidentifier", "String"},
    {"money", "Currency"},
    {"smallmoney", "Currency"},
    {"smallint", "Integer"},
});

} // namespace

std::string SPParameter::ParameterCleanName() const
{
    return CleanName(ParameterName);
}

std::string SPParameter::VBDataType() const
{
    if (IsNullable)
        return "Variant";
    const std::string lower = text::Fold(DataType);
    for (const auto& [dataType, visualBasicType] : kVisualBasicTypes)
        if (dataType == lower)
            return std::string(visualBasicType);
    return "Variant";
}

std::shared_ptr<SPParameter> SPParameters::Add(std::string_view parameterName, std::string_view dataType,
                                               std::int16_t dataTypeNumber, std::string_view key)
{
    auto parameter = std::make_shared<SPParameter>();
    parameter->ParameterName = parameterName;
    parameter->DataType = dataType;
    parameter->DataTypeNumber = dataTypeNumber;
    return Insert(std::move(parameter), key);
}

std::string SP::SPCleanName() const
{
    return CleanName(SPName);
}

std::shared_ptr<SP> SPs::Add(std::string_view spName, std::string_view key)
{
    auto procedure = std::make_shared<SP>();
    procedure->SPName = spName;
    return Insert(std::move(procedure), key);
}

} // namespace veldrane
