#include "datasource/connection_string.h"

#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>

namespace veldrane {
namespace {

[[noreturn]] void Refuse(const std::string& reason)
{
    throw DataSourceError(data_source_error::kFailed, "ConnectionString", reason);
}

bool IsBeyondAscii(char c)
{
    return static_cast<unsigned char>(c) >= 0x80;
}

bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

void RefuseUnreadable(std::string_view text)
{
    if (text.size() > ConnectionString::kMaxBytes)
        Refuse("The connection string is longer than " + std::to_string(ConnectionString::kMaxBytes) + " bytes.");
    if (std::any_of(text.begin(), text.end(), IsControl))
        Refuse("The connection string holds a control character, such as a line break.");
}

// Takes the text before the first of the `ends` off the front of `rest`; the end itself stays.
std::string_view TakeUntil(std::string_view& rest, std::string_view ends)
{
    const std::string_view taken = rest.substr(0, rest.find_first_of(ends));
    rest.remove_prefix(taken.size());
    return taken;
}

std::string TakeBraced(std::string_view& rest, const std::string& key)
{
    std::string value;
    for (rest.remove_prefix(1); !rest.empty(); rest.remove_prefix(1)) {
        if (rest.front() == '}') {
            rest.remove_prefix(1);
            if (!rest.starts_with('}'))
                return value;
        }
        value.push_back(rest.front());
    }
    Refuse("The connection string opens a brace at \"" + key + "\" and does not close it.");
}

std::string TakeValue(std::string_view& rest, const std::string& key)
{
    rest = text::TrimLeft(rest);
    if (!rest.starts_with('{'))
        return std::string(text::Trim(TakeUntil(rest, ";")));
    std::string value = TakeBraced(rest, key);
    if (!text::Trim(TakeUntil(rest, ";")).empty())
        Refuse("The connection string goes on behind the brace that closes the value of \"" + key + "\".");
    return value;
}

} // namespace

std::string Braced(std::string_view value)
{
    std::string braced = "{";
    for (const char c : value)
        braced.append(c == '}' ? 2 : 1, c);
    return braced + "}";
}

ConnectionString::ConnectionString(std::string_view text)
{
    RefuseUnreadable(text);
    for (std::string_view rest = text; !rest.empty();) {
        ConnectionEntry entry{.Key = std::string(text::Trim(TakeUntil(rest, "=;"))), .Value = {}};
        if (rest.starts_with('=')) {
            rest.remove_prefix(1);
            if (entry.Key.empty())
                Refuse("The connection string holds a value without a key.");
            entry.Value = TakeValue(rest, entry.Key);
        }
        // Such a letter may equal a plain one without regard to case, for us and not for a driver.
        if (std::any_of(entry.Key.begin(), entry.Key.end(), IsBeyondAscii))
            Refuse("The connection string holds the key \"" + entry.Key + "\", which no driver knows.");
        if (!entry.Key.empty())
            entries_.push_back(std::move(entry));
        if (!rest.empty())
            rest.remove_prefix(1);
    }
}

bool ConnectionString::Contains(std::string_view key) const
{
    return std::any_of(entries_.begin(), entries_.end(),
                       [&](const ConnectionEntry& entry) { return text::EqualFolded(entry.Key, key); });
}

std::string ConnectionString::Value(std::string_view key) const
{
    const auto found = std::find_if(entries_.rbegin(), entries_.rend(),
                                    [&](const ConnectionEntry& entry) { return text::EqualFolded(entry.Key, key); });
    return found == entries_.rend() ? std::string() : found->Value;
}

} // namespace veldrane
