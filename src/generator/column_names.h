#pragma once

#include <string>
#include <string_view>

// How generated code writes the names of tables and columns. A backtick stands for a double quote: the line that takes
// such a text converts its quotes.
namespace veldrane {

// Whether a name can't stand bare in SQL: it holds a blank or begins with a digit.
[[nodiscard]] bool NeedsBrackets(std::string_view name);

// Appends the name as SQL has it: in square brackets if it needs them.
void AppendBracketed(std::string& text, std::string_view name);

// Appends a column of the recordset `adoRS` as it stands within `With adoRS`: !City, adoRS(`Post Code`).
void AppendColumnReference(std::string& text, std::string_view name);

// Whether a field of a recordset, which may have a name of its own, can't be reached by `!` and the name: that needs
// brackets or holds a point.
[[nodiscard]] bool NeedsFieldByText(std::string_view name);

// Appends a field of the recordset as it stands within `With adoRS`.
void AppendFieldReference(std::string& text, std::string_view name);

// The same where no With serves: adoRS!City, adoRS(`Post Code`).
void AppendQualifiedFieldReference(std::string& text, std::string_view name);

} // namespace veldrane
