#pragma once

#include "datasource/catalog.h"
#include "datasource/class_names.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// The class of the procedures that are asked for without one.
inline constexpr std::string_view kProceduresClass = "StoredProcedures";

// What the stored procedures of a `define` run meet.
struct ProcedureRun
{
    Catalog& Source;
    ProjectNames Names;
    std::function<std::string(const std::string& name)> ClassCalled; // the class of this name or table, "" for none
    std::function<void(const std::string& line)> Refuse;             // what was left out, and what to do
};

// Brings the procedures that are methods of the project's classes up to the data source: their parameters are read
// again, the methods keep their names. Then makes methods of the procedures asked for, each of the form NAME[=CLASS];
// one that is a method of its class already stays that. Without CLASS the method goes into the class StoredProcedures,
// which has no table and is made for the first. What can't be done is refused, one line each, and the rest is done.
// Throws DataSourceError.
void DefineProcedures(const ProcedureRun& run, const std::vector<std::string>& requests);

} // namespace veldrane
