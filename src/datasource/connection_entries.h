#pragma once

#include "datasource/connection_string.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

// What the units that judge and rewrite connection strings share. Keys are compared without regard to case.
namespace veldrane {

using ConnectionEntries = std::vector<ConnectionEntry>;

// Throws DataSourceError kFailed with this reason, which never repeats a password.
[[noreturn]] void RefuseConnection(const std::string& reason);

// The same for a key that may stand once alone.
[[noreturn]] void RefuseSecond(const std::string& key);

// Throws as RefuseConnection does, with the key that names it, unless this is the number of a TCP port, from 1 to
// 65535.
void RequirePort(const std::string& key, std::string_view port);

// Whether the word is one of these, without regard to case.
[[nodiscard]] bool IsOneOf(std::string_view word, std::span<const std::string_view> words);

[[nodiscard]] bool HasKey(const ConnectionEntries& entries, std::string_view key);

// Removes every entry with the key.
void RemoveKey(ConnectionEntries& entries, std::string_view key);

} // namespace veldrane
