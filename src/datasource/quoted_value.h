#pragma once

#include <optional>
#include <string>

// Values in quotes, as providers of OLE DB read and give back their strings. ODBC has braces instead.
namespace veldrane {

// The value without the quotes around it, double or single, of which two within stand for one; as it is if it begins
// with none. None if they don't close at its end.
[[nodiscard]] std::optional<std::string> Unquoted(const std::string& value);

// The value as it has to be written for Unquoted to give it back: in quotes if it begins with one, else as it is.
[[nodiscard]] std::string QuotedIfNeeded(const std::string& value);

} // namespace veldrane
