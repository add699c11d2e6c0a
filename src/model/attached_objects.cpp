#include "model/attached_objects.h"

namespace veldrane {

std::shared_ptr<KZMTable> AttachedTables::Add(std::string_view tableName, std::string_view key)
{
    if (Contains(key))
        return nullptr;
    return Insert(std::make_shared<KZMTable>(KZMTable{.TableName = std::string(tableName)}), key);
}

std::shared_ptr<KZMSP> AttachedSPs::Add(std::string_view spName, std::string_view key)
{
    if (Contains(key))
        return nullptr;
    return Insert(std::make_shared<KZMSP>(KZMSP{.SPName = std::string(spName)}), key);
}

} // namespace veldrane
