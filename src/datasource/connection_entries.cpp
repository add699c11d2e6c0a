#include "datasource/connection_entries.h"

#include "text/case_folding.h"

#include <algorithm>

namespace veldrane {

void RefuseConnection(const std::string& reason)
{
    throw DataSourceError(data_source_error::kFailed, "ConnectionString", reason);
}

bool IsOneOf(std::string_view word, std::span<const std::string_view> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view each) { return text::EqualFolded(each, word); });
}

bool HasKey(const ConnectionEntries& entries, std::string_view key)
{
    return std::any_of(entries.begin(), entries.end(),
                       [&](const ConnectionEntry& entry) { return text::EqualFolded(entry.Key, key); });
}

void RemoveKey(ConnectionEntries& entries, std::string_view key)
{
    std::erase_if(entries, [&](const ConnectionEntry& entry) { return text::EqualFolded(entry.Key, key); });
}

} // namespace veldrane
