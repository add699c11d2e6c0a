#include "datasource/quoted_value.h"

#include "text/strings.h"

#include <cstddef>

namespace veldrane {
namespace {

bool BeginsWithQuote(const std::string& value)
{
    return value.starts_with('"') || value.starts_with('\'');
}

} // namespace

std::optional<std::string> Unquoted(const std::string& value)
{
    if (!BeginsWithQuote(value))
        return value;
    const char quote = value.front();
    std::string inner;
    for (std::size_t at = 1; at < value.size(); ++at) {
        if (value[at] != quote)
            inner += value[at];
        else if (++at == value.size())
            return inner;
        else if (value[at] != quote)
            break;
        else
            inner += quote;
    }
    return std::nullopt;
}

std::string QuotedIfNeeded(const std::string& value)
{
    return BeginsWithQuote(value) ? "\"" + text::ReplaceAll(value, "\"", "\"\"") + "\"" : value;
}

} // namespace veldrane
