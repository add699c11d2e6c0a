#pragma once

#include "jet/database.h"
#include "jet/system_tables.h"

#include <cstdint>
#include <map>
#include <vector>

namespace veldrane::jet {

// The saved queries among the objects, but for the engine's own, whose names begin with "~".
//
// A select or union query without parameters is a view; the flags of its object tell the kind. A select query's columns
// are told: one that is a plain column of a table or of another view is that column; anything else is the column of an
// expression, Expr1000 and so on where it has no name; those of one name are told apart by the table before it, as the
// engine does. A query that takes all columns of something unknown (a link, a union, a query within, a table of another
// file) has none, nor has one whose columns are told apart by names of more than kMostNameBytes, as views upon views
// may have them, nor one that the engine doesn't open: of more than 255 columns, on top of more than 50 levels of
// queries, itself among them, or one that stands on itself. The order of the objects doesn't count.
//
// Throws Refusal(kDamaged) for a query whose parts tell another kind than its object does.
[[nodiscard]] std::vector<Query> DescribeQueries(const std::vector<Object>& objects,
                                                 const std::map<std::int32_t, std::vector<QueryPart>>& parts,
                                                 const std::vector<Table>& tables);

} // namespace veldrane::jet
