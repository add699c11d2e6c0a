#include "jet/answer_writer.h"

#include "datasource/jet/answer_format.h"

#include <initializer_list>
#include <string_view>

namespace veldrane::jet {
namespace {

using namespace jet_answer;

void AppendField(std::string& answer, std::string_view field)
{
    for (const char c : field)
        switch (c) {
        case '\t':
            answer += "\\t";
            break;
        case '\n':
            answer += "\\n";
            break;
        case '\r':
            answer += "\\r";
            break;
        case '\\':
            answer += "\\\\";
            break;
        default:
            answer += c;
        }
}

void AppendRecord(std::string& answer, std::string_view word, std::initializer_list<std::string_view> fields = {})
{
    answer += word;
    for (const std::string_view field : fields) {
        answer += '\t';
        AppendField(answer, field);
    }
    answer += '\n';
}

// The name, if the format can hold it.
std::string_view Checked(std::string_view name)
{
    if (name.empty() || name.size() > kMostNameBytes || name.find('\0') != std::string_view::npos)
        throw Damaged("a name is empty or too long");
    return name;
}

std::string_view WordIf(bool holds, std::string_view word)
{
    return holds ? word : kNot;
}

void AppendColumns(std::string& answer, const std::vector<Column>& columns)
{
    for (const Column& column : columns)
        AppendRecord(answer, kColumn,
                     {Checked(column.Name), std::to_string(column.AdoType), std::to_string(column.DefinedSize),
                      std::to_string(column.Attributes), WordIf(column.AutoNumber, kAuto)});
}

void AppendTable(std::string& answer, const Table& table)
{
    AppendRecord(answer, kTable, {Checked(table.Name), table.Type});
    AppendColumns(answer, table.Columns);
    for (const Index& index : table.Indexes) {
        AppendRecord(answer, kIndex,
                     {Checked(index.Name), WordIf(index.Primary, kPrimary), WordIf(index.Unique, kUnique)});
        for (const std::string& column : index.Columns)
            AppendRecord(answer, kIndexColumn, {Checked(column)});
    }
}

void AppendQuery(std::string& answer, const Query& query)
{
    AppendRecord(answer, kQuery, {Checked(query.Name), query.Kind == QueryKind::View ? kView : kProcedure});
    AppendColumns(answer, query.Columns);
}

void AppendRelationship(std::string& answer, const Relationship& relationship)
{
    AppendRecord(answer, kRelationship,
                 {Checked(relationship.Name), Checked(relationship.Table), Checked(relationship.RelatedTable)});
    for (const RelationshipColumn& pair : relationship.Columns)
        AppendRecord(answer, kRelationshipColumn, {Checked(pair.Column), Checked(pair.RelatedColumn)});
}

} // namespace

std::string AnswerOf(const Database& database)
{
    std::string answer;
    AppendRecord(answer, kFirstLine);
    for (const Table& table : database.Tables)
        AppendTable(answer, table);
    for (const Query& query : database.Queries)
        AppendQuery(answer, query);
    for (const Relationship& relationship : database.Relationships)
        AppendRelationship(answer, relationship);
    AppendRecord(answer, kEnd);
    return answer;
}

std::string AnswerOf(const Refusal& refusal)
{
    std::string answer;
    AppendRecord(answer, kFirstLine);
    AppendRecord(answer, kRefused, {refusal.Reason(), refusal.what()});
    AppendRecord(answer, kEnd);
    return answer;
}

} // namespace veldrane::jet
