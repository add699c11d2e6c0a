#include "datasource/connection_entries.h"

#include "text/case_folding.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace veldrane {

void RefuseConnection(const std::string& reason)
{
    throw DataSourceError(data_source_error::kFailed, "ConnectionString", reason);
}

void RefuseSecond(const std::string& key)
{
    RefuseConnection("The connection string sets the key \"" + key + "\" twice.");
}

void RequirePort(const std::string& key, std::string_view port)
{
    constexpr unsigned kLast = 65535;
    unsigned number = 0;
    const auto [end, error] = std::from_chars(port.data(), port.data() + port.size(), number);
    if (error != std::errc() || end != port.data() + port.size() || number == 0 || number > kLast)
        RefuseConnection("The port in the \"" + key + "\" of the connection string is not a number from 1 to 65535.");
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
