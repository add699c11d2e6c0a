#include "jet/database_reader.h"

#include "datasource/jet/answer_format.h"
#include "jet/column_types.h"
#include "jet/definition.h"
#include "jet/properties.h"
#include "jet/query_columns.h"
#include "jet/refusal.h"
#include "jet/system_tables.h"

#include <algorithm>
#include <map>
#include <vector>

namespace veldrane::jet {
namespace {

// Flags of a table's object.
constexpr std::uint32_t kSystemTable = 0x80000000;
constexpr std::uint32_t kProgramTable = 0x02; // made by the program on top of the engine, for itself

std::string_view TypeWord(const Object& object)
{
    if (object.Type != kTableObject)
        return jet_answer::kLinkedTable;
    if ((object.Flags & kSystemTable) != 0)
        return jet_answer::kSystemTable;
    return (object.Flags & kProgramTable) != 0 ? jet_answer::kProgramTable : jet_answer::kPlainTable;
}

const std::string& ColumnName(const TableDefinition& definition, int id)
{
    const auto found = std::find_if(definition.Columns.begin(), definition.Columns.end(),
                                    [&](const ColumnDefinition& column) { return column.Id == id; });
    if (found == definition.Columns.end())
        throw Damaged("an index has a column that its table lacks");
    return found->Name;
}

Index DescribeIndex(const IndexDefinition& index, const TableDefinition& definition)
{
    Index described{.Name = index.Name, .Primary = index.Primary, .Unique = index.Unique};
    for (const int id : index.ColumnIds)
        described.Columns.push_back(ColumnName(definition, id));
    return described;
}

Table DescribeTable(JetFile& file, const Object& object)
{
    Table table{.Name = object.Name, .Type = TypeWord(object)};
    if (object.Type != kTableObject)
        return table;
    const TableDefinition definition = ReadDefinition(file, object.DefinitionPage());
    const auto required = RequiredColumns(object.Properties, file.Text());
    for (const ColumnDefinition& column : definition.Columns)
        table.Columns.push_back(DescribeColumn(
            column, file.FileVersion(), required.contains(column.Name) ? Presence::Required : Presence::Optional));
    for (const IndexDefinition& index : definition.Indexes)
        table.Indexes.push_back(DescribeIndex(index, definition));
    return table;
}

bool IsTable(const Object& object)
{
    return object.Type == kTableObject || object.Type == kOdbcLinkObject || object.Type == kLinkObject;
}

// Parts of a query that is gone may be left; those of something else tell that it was a query.
void CheckOwners(const std::map<std::int32_t, std::vector<QueryPart>>& parts, const std::vector<Object>& objects)
{
    for (const Object& object : objects)
        if (object.Type != kQueryObject && parts.contains(object.Id))
            throw Damaged("something is listed as what it is not");
}

} // namespace

Database ReadDatabase(JetFile& file)
{
    Database database;
    const std::vector<Object> objects = ReadObjects(file);
    for (const Object& object : objects)
        if (IsTable(object))
            database.Tables.push_back(DescribeTable(file, object));
    const auto parts = ReadQueryParts(file, SystemTablePage(objects, "MSysQueries"));
    CheckOwners(parts, objects);
    database.Queries = DescribeQueries(objects, parts, database.Tables);
    database.Relationships = ReadRelationships(file, SystemTablePage(objects, "MSysRelationships"));
    return database;
}

} // namespace veldrane::jet
