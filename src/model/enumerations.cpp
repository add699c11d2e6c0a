#include "model/enumerations.h"

namespace veldrane {

std::shared_ptr<TTCEnumValue> TTCEnumValues::Add(std::string_view variableName, EnumValueContent value,
                                                 std::string_view key)
{
    auto enumValue = std::make_shared<TTCEnumValue>();
    enumValue->VariableName = variableName;
    enumValue->Value = std::move(value);
    return Insert(std::move(enumValue), key);
}

std::shared_ptr<TTCEnum> TTCEnumerations::Add(std::string_view enumName, std::string_view key)
{
    auto enumeration = std::make_shared<TTCEnum>();
    enumeration->EnumName = enumName;
    return Insert(std::move(enumeration), key);
}

} // namespace veldrane
