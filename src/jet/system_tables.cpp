#include "jet/system_tables.h"

#include "jet/record.h"
#include "jet/refusal.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>

namespace veldrane::jet {
namespace {

constexpr std::uint32_t kObjectsPage = 2;

// The attributes of a query's parts go from where it begins to the order of its rows, and one marks its end.
constexpr int kOrderOfRows = 11;
constexpr int kEndOfQuery = 255;

constexpr std::int32_t kNotEnforced = 0x02;
constexpr std::string_view kSystemPrefix = "MSys";

struct RelationshipRow
{
    std::string Name;
    std::int32_t Place = 0; // among the relationship's columns
    std::string Table;
    std::string RelatedTable;
    RelationshipColumn Columns;
};

std::vector<RelationshipRow> ReadRelationshipRows(JetFile& file, std::uint32_t definitionPage)
{
    std::vector<RelationshipRow> rows;
    ForEachRecord(file, definitionPage, [&](const Record& record) {
        RelationshipRow row{
            .Name = record.Text("szRelationship"),
            .Place = record.Number("icolumn"),
            .Table = record.Text("szObject"),
            .RelatedTable = record.Text("szReferencedObject"),
            .Columns = {.Column = record.Text("szColumn"), .RelatedColumn = record.Text("szReferencedColumn")}};
        const bool isSystem = row.Table.starts_with(kSystemPrefix) && row.RelatedTable.starts_with(kSystemPrefix);
        if (!isSystem && (record.Number("grbit") & kNotEnforced) == 0)
            rows.push_back(std::move(row));
    });
    std::stable_sort(rows.begin(), rows.end(),
                     [](const RelationshipRow& a, const RelationshipRow& b) { return a.Place < b.Place; });
    return rows;
}

// Types below zero are those of the program on top of the engine, which are left to it. A link has no page.
void CheckType(const Object& object)
{
    const bool mayHavePage =
        object.Type == kTableObject || object.Type == kOdbcLinkObject || object.Type == kLinkObject;
    if (object.Type >= 0 && !mayHavePage && (static_cast<std::uint32_t>(object.Id) >> 24U) == 0)
        throw Damaged("something is listed as what it is not");
}

int AttributeOf(const Record& queryPart)
{
    const int attribute = queryPart.Number("Attribute");
    if (attribute < 0 || (attribute > kOrderOfRows && attribute != kEndOfQuery))
        throw Damaged("a query has a part of no known kind");
    return attribute;
}

} // namespace

std::vector<Object> ReadObjects(JetFile& file)
{
    std::vector<Object> objects;
    ForEachRecord(file, kObjectsPage, [&](const Record& record) {
        Object object{.Name = record.Text("Name"),
                      .Id = record.Number("Id"),
                      .Type = record.Number("Type"),
                      .Flags = static_cast<std::uint32_t>(record.Number("Flags"))};
        CheckType(object);
        if (object.Type == kTableObject)
            object.Properties = record.LongBinary("LvProp");
        objects.push_back(std::move(object));
    });
    if (SystemTablePage(objects, "MSysObjects") != kObjectsPage)
        throw Damaged("the list of objects is not where it says it is");
    return objects;
}

std::uint32_t SystemTablePage(const std::vector<Object>& objects, std::string_view name)
{
    const auto found = std::find_if(objects.begin(), objects.end(), [&](const Object& object) {
        return object.Type == kTableObject && object.Name == name;
    });
    if (found == objects.end())
        throw Damaged("the list of objects lacks " + std::string(name));
    return found->DefinitionPage();
}

std::map<std::int32_t, std::vector<QueryPart>> ReadQueryParts(JetFile& file, std::uint32_t definitionPage)
{
    std::map<std::int32_t, std::vector<QueryPart>> parts;
    ForEachRecord(file, definitionPage, [&](const Record& record) {
        parts[record.Number("ObjectId")].push_back({.Attribute = AttributeOf(record),
                                                    .Flag = record.Number("Flag"),
                                                    .Order = record.Binary("Order"),
                                                    .Name1 = record.Text("Name1"),
                                                    .Name2 = record.Text("Name2"),
                                                    .Expression = record.Memo("Expression")});
    });
    for (auto& [id, ofOne] : parts)
        std::stable_sort(ofOne.begin(), ofOne.end(), [](const QueryPart& a, const QueryPart& b) {
            return std::tie(a.Attribute, a.Order) < std::tie(b.Attribute, b.Order);
        });
    return parts;
}

std::vector<Relationship> ReadRelationships(JetFile& file, std::uint32_t definitionPage)
{
    std::vector<Relationship> relationships;
    std::map<std::string, std::size_t> places;
    for (RelationshipRow& row : ReadRelationshipRows(file, definitionPage)) {
        const auto [place, isNew] = places.try_emplace(row.Name, relationships.size());
        if (isNew)
            relationships.push_back({.Name = std::move(row.Name),
                                     .Table = std::move(row.Table),
                                     .RelatedTable = std::move(row.RelatedTable)});
        relationships[place->second].Columns.push_back(std::move(row.Columns));
    }
    return relationships;
}

} // namespace veldrane::jet
