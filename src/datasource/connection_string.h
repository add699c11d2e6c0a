#pragma once

#include "datasource/data_source_error.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrane {

struct ConnectionEntry
{
    std::string Key; // without the blanks around it, in its own letters
    std::string Value;
};

// A connection string taken apart:
//
//   PROVIDER=MSDASQL;Driver=PostgreSQL Unicode;PWD={a;b}}c};
//
// Entries end at a semicolon. Blanks around keys and values do not count. A value that begins with a brace goes to the
// brace that closes it, "}}" standing for one brace within. Keys are compared without regard to case.
class ConnectionString
{
  public:
    // Longer strings are refused: drivers copy them into buffers of fixed size.
    static constexpr std::size_t kMaxBytes = 4096;

    // Throws DataSourceError for a text that no driver could be trusted to read as we do: too long, with a control
    // character, with an entry that has no key or one beyond ASCII, or with a brace that is not closed or closed before
    // the value's end.
    // The message never repeats a value, for it may be a password.
    explicit ConnectionString(std::string_view text);

    // A string of these entries, which come from another.
    explicit ConnectionString(std::vector<ConnectionEntry> entries) : entries_(std::move(entries)) {}

    [[nodiscard]] const std::vector<ConnectionEntry>& Entries() const { return entries_; }

    [[nodiscard]] bool Contains(std::string_view key) const;

    // The value of the last entry with the key, "" if there is none.
    [[nodiscard]] std::string Value(std::string_view key) const;

  private:
    std::vector<ConnectionEntry> entries_;
};

// The value in braces, so that whatever it holds is read as part of it.
[[nodiscard]] std::string Braced(std::string_view value);

} // namespace veldrane
