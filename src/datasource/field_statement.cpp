#include "datasource/field_statement.h"

#include "generator/column_names.h"
#include "text/case_folding.h"

namespace veldrane {
namespace {

constexpr std::string_view kOpening = "SELECT * FROM ";
constexpr std::string_view kClosing = " WHERE 1=0";

} // namespace

std::string FieldStatement(std::string_view tableName)
{
    std::string reference;
    AppendBracketed(reference, tableName);
    return FieldStatementOf(reference);
}

std::string FieldStatementOf(std::string_view reference)
{
    return std::string(kOpening).append(reference).append(kClosing);
}

std::optional<std::string> TableOfStatement(std::string_view statement)
{
    if (statement.size() < kOpening.size() + kClosing.size() ||
        !text::EqualFolded(statement.substr(0, kOpening.size()), kOpening) ||
        !text::EqualFolded(statement.substr(statement.size() - kClosing.size()), kClosing))
        return std::nullopt;
    statement.remove_prefix(kOpening.size());
    statement.remove_suffix(kClosing.size());
    if (statement.size() >= 2 && statement.starts_with('[') && statement.ends_with(']'))
        statement = statement.substr(1, statement.size() - 2);
    return std::string(statement);
}

} // namespace veldrane
