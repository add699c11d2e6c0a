#include "model/relationships.h"

namespace veldrane {

std::shared_ptr<TTCColumn> Columns::Add(std::string_view columnName, std::string_view columnDataType,
                                        std::string_view joinColumnName, std::string_view key)
{
    return Insert(std::make_shared<TTCColumn>(TTCColumn{.ColumnName = std::string(columnName),
                                                        .ColumnDataType = std::string(columnDataType),
                                                        .JoinColumnName = std::string(joinColumnName)}),
                  key);
}

std::shared_ptr<TTCRelationship> TTCRelationships::Add(std::string_view keyName, std::string_view parentTableName,
                                                       Columns columns, std::string_view key)
{
    auto relationship = std::make_shared<TTCRelationship>();
    relationship->KeyName = keyName;
    relationship->ParentTableName = parentTableName;
    relationship->Columns = std::move(columns);
    return Insert(std::move(relationship), key);
}

} // namespace veldrane
