#include "model/keys.h"

namespace veldrane {

std::shared_ptr<TTCColumn> TTCColumns::Add(std::string_view columnName, std::string_view columnDataType,
                                           std::string_view joinColumnName, std::string_view key)
{
    return Insert(std::make_shared<TTCColumn>(TTCColumn{.ColumnName = std::string(columnName),
                                                        .ColumnDataType = std::string(columnDataType),
                                                        .JoinColumnName = std::string(joinColumnName)}),
                  key);
}

std::string KeyTypeText(std::int32_t keyType)
{
    return std::to_string(keyType);
}

std::shared_ptr<TTCKey> TTCKeys::Add(std::int32_t keyType, TTCColumns columns, std::string_view key)
{
    auto item = std::make_shared<TTCKey>();
    item->KeyType = keyType;
    item->TTCColumns = std::move(columns);
    return Insert(std::move(item), key);
}

} // namespace veldrane
