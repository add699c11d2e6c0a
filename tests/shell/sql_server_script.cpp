#include "sql_server_script.h"

#include "text/strings.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

namespace veldrane::testing {
namespace {

using Names = std::vector<std::string>;

bool Holds(std::string_view line, std::string_view words)
{
    return line.find(words) != std::string_view::npos;
}

Names NamesInBrackets(std::string_view line)
{
    Names names;
    for (std::size_t at = line.find('['); at != std::string_view::npos; at = line.find('[', at)) {
        const std::size_t end = line.find(']', at);
        names.emplace_back(line.substr(at + 1, end - at - 1));
        at = end;
    }
    return names;
}

TdsColumn ColumnOf(std::string_view line)
{
    const std::vector<std::string_view> words = text::Split(text::Trim(line), " ");
    std::string type(words.at(1));
    if (type.ends_with(','))
        type.pop_back();
    std::transform(type.begin(), type.end(), type.begin(), [](unsigned char c) { return std::tolower(c); });
    const TdsNull refused = Holds(line, "IDENTITY") ? TdsNull::RefusedAndCounted : TdsNull::Refused;
    return {NamesInBrackets(line).at(0), type, Holds(line, "NOT NULL") ? refused : TdsNull::Allowed};
}

TdsForeignKey ForeignKeyOf(const std::string& name, std::string_view line)
{
    const std::size_t middle = line.find("REFERENCES");
    const Names related = NamesInBrackets(line.substr(middle));
    return {name,
            NamesInBrackets(line.substr(0, middle)),
            related.at(1),
            {related.begin() + 2, related.end()},
            related.at(0)};
}

} // namespace

TdsContents ReadSqlServerScript(std::string_view script)
{
    TdsContents contents;
    Names altered; // schema, table, key
    for (std::string_view line : text::Split(script, "\n")) {
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const Names names = NamesInBrackets(line);
        std::vector<TdsTable>& tables = contents.Tables;
        if (line.starts_with("CREATE TABLE "))
            tables.push_back({.Name = names.at(1), .Owner = names.at(0)});
        else if (Holds(line, " PRIMARY KEY "))
            tables.back().PrimaryKey = TdsPrimaryKey{names.at(0), {names.begin() + 1, names.end()}};
        else if (line.starts_with("    ["))
            tables.back().Columns.push_back(ColumnOf(line));
        else if (line.starts_with("ALTER TABLE "))
            altered = names;
        else if (Holds(line, "FOREIGN KEY "))
            std::find_if(tables.begin(), tables.end(), [&](const TdsTable& table) {
                return table.Name == altered.at(1);
            })->ForeignKeys.push_back(ForeignKeyOf(altered.at(2), line));
    }
    return contents;
}

} // namespace veldrane::testing
