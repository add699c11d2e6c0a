#pragma once

#include "datasource/catalog.h"
#include "datasource/connection_policy.h"
#include "ports/program_runner.h"
#include "ports/reading_watch.h"

#include <chrono>
#include <memory>
#include <string>

namespace veldrane {

// What reaches data sources, whatever their kind.
struct DataSourceAccess
{
    std::chrono::seconds ConnectTimeout{15};
    std::chrono::seconds StatementTimeout{60};
    std::string TdsDriver;     // the driver that stands in for SQL Server's own, by its name
    std::string ProgramFolder; // where the programs lie that belong to this one
    ProgramRunner& Runner;
    ReadingWatch* Watch = nullptr; // told what is read of them; nothing for nobody
};

// A connection of the kind that the string's provider asks for, not open yet; one through ODBC for any that is not
// known. Throws DataSourceError for a string that can't be taken apart.
[[nodiscard]] std::unique_ptr<DataSourceConnection> ConnectionFor(const std::string& text, StringOrigin origin,
                                                                  const DataSourceAccess& access);

} // namespace veldrane
