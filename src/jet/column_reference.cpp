#include "jet/column_reference.h"

#include "text/strings.h"

#include <algorithm>
#include <cctype>

namespace veldrane::jet {
namespace {

// Every byte of a letter beyond ASCII belongs to a word.
bool IsWordPart(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 || std::isalnum(byte) != 0 || c == '_' || c == '$';
}

// Cuts a name off the expression, in brackets or a plain word; none if it does not begin with one.
std::optional<std::string> TakeName(std::string_view& expression)
{
    const bool isBracketed = expression.starts_with('[');
    const std::size_t begin = isBracketed ? 1 : 0;
    const auto* const wordEnd = std::find_if_not(expression.begin(), expression.end(), IsWordPart);
    const std::size_t end = isBracketed ? expression.find(']') : static_cast<std::size_t>(wordEnd - expression.begin());
    if (end == std::string_view::npos || end == begin)
        return std::nullopt;
    const std::string name(expression.substr(begin, end - begin));
    expression.remove_prefix(end + begin);
    return name;
}

bool TakeSeparator(std::string_view& expression)
{
    if (!expression.starts_with('.') && !expression.starts_with('!'))
        return false;
    expression.remove_prefix(1);
    return true;
}

// What stands behind the name of a table: a column, or all of them.
std::optional<ColumnReference> ReadColumn(std::string_view expression)
{
    if (expression == "*")
        return ColumnReference{.AllColumns = true};
    const auto name = TakeName(expression);
    if (!name || !expression.empty())
        return std::nullopt;
    return ColumnReference{.Name = *name};
}

} // namespace

std::optional<ColumnReference> ReadColumnReference(std::string_view expression)
{
    std::string_view rest = text::Trim(expression);
    const std::string_view whole = rest;
    const auto source = TakeName(rest);
    if (!source || !TakeSeparator(rest))
        return ReadColumn(whole);
    auto column = ReadColumn(rest);
    if (column)
        column->Source = *source;
    return column;
}

} // namespace veldrane::jet
