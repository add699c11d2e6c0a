#pragma once

#include "collections/keyed_collection.h"

#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// A table that the user has named by hand, beside those that the data source shows.
struct KZMTable
{
    std::string TableName;
};

// A stored procedure that the user has named by hand. It lives as long as the session: no file stores it.
struct KZMSP
{
    std::string SPName;
};

class AttachedTables : public KeyedCollection<KZMTable, CollectionRules{}>
{
  public:
    // Returns nothing if the key is in use: that is how a caller learns that the table is attached already.
    std::shared_ptr<KZMTable> Add(std::string_view tableName, std::string_view key);
};

class AttachedSPs : public KeyedCollection<KZMSP, CollectionRules{}>
{
  public:
    // Returns nothing if the key is in use.
    std::shared_ptr<KZMSP> Add(std::string_view spName, std::string_view key);
};

} // namespace veldrane
