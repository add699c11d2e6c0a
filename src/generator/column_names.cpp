#include "generator/column_names.h"

#include "text/strings.h"

namespace veldrane {
namespace {

void AppendReference(std::string& text, std::string_view bang, std::string_view name, bool byText)
{
    text += byText ? "adoRS(`" : bang;
    text += name;
    text += byText ? "`)" : "";
}

} // namespace

bool NeedsBrackets(std::string_view name)
{
    return name.find(' ') != std::string_view::npos || text::StartsWithDigit(name);
}

void AppendBracketed(std::string& text, std::string_view name)
{
    const bool inBrackets = NeedsBrackets(name);
    if (inBrackets)
        text += '[';
    text += name;
    if (inBrackets)
        text += ']';
}

void AppendColumnReference(std::string& text, std::string_view name)
{
    AppendReference(text, "!", name, NeedsBrackets(name));
}

bool NeedsFieldByText(std::string_view name)
{
    return NeedsBrackets(name) || name.find('.') != std::string_view::npos;
}

void AppendFieldReference(std::string& text, std::string_view name)
{
    AppendReference(text, "!", name, NeedsFieldByText(name));
}

void AppendQualifiedFieldReference(std::string& text, std::string_view name)
{
    AppendReference(text, "adoRS!", name, NeedsFieldByText(name));
}

} // namespace veldrane
