#pragma once

#include "jet/database.h"
#include "jet/jet_file.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// What the engine's own tables say. All of it throws Refusal(kDamaged) for tables that are not as they should be.
namespace veldrane::jet {

// A row of MSysObjects: a table, a query, a link, or something else that the file holds.
struct Object
{
    std::string Name;
    std::int32_t Id = 0; // of a table: the page of its definition
    int Type = 0;        // of kTableObject and its like
    std::uint32_t Flags = 0;
    std::string Properties; // the property block, of tables alone

    [[nodiscard]] std::uint32_t DefinitionPage() const { return static_cast<std::uint32_t>(Id) & 0x00FFFFFFU; }
};

inline constexpr int kTableObject = 1;
inline constexpr int kOdbcLinkObject = 4;
inline constexpr int kQueryObject = 5;
inline constexpr int kLinkObject = 6;

// All objects, in the order of the rows. The id of a table is a page, so that one of the engine's other objects whose
// id may be a page was a table before it was damaged. Every file has its MSysObjects at the same page, and lists it
// there: a table of which this is not so has lost more than a row.
[[nodiscard]] std::vector<Object> ReadObjects(JetFile& file);

// The page at which one of the engine's own tables is defined. Every file has those that are read here.
[[nodiscard]] std::uint32_t SystemTablePage(const std::vector<Object>& objects, std::string_view name);

// A row of MSysQueries: a part of a query. What the members mean hangs on `Attribute`.
struct QueryPart
{
    int Attribute = 0;
    int Flag = 0;
    std::string Order; // compared byte by byte among parts of one attribute
    std::string Name1;
    std::string Name2;
    std::string Expression;
};

// The parts of all queries by the id of the object, sorted by attribute and order. An attribute that the engine gives
// to no part is damage: what it marks would be lost.
[[nodiscard]] std::map<std::int32_t, std::vector<QueryPart>> ReadQueryParts(JetFile& file,
                                                                            std::uint32_t definitionPage);

// The relationships from MSysRelationships that the engine enforces, but for those among its own tables, in the order
// in which their names first come.
[[nodiscard]] std::vector<Relationship> ReadRelationships(JetFile& file, std::uint32_t definitionPage);

} // namespace veldrane::jet
