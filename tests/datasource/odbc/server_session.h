#pragma once

#include "datasource/odbc/statement.h"
#include "support/server_database.h"

#include <memory>
#include <string>

namespace veldrane::testing {

// The database through the driver's calls, as the program makes them for a library of that name.
inline std::shared_ptr<OdbcSession> OpenSession(const ServerDatabase& database, const std::string& library,
                                                const SessionOptions& options = {})
{
    return std::make_shared<OdbcSession>(
        OdbcLogon{.Text = database.ConnectionString(), .Profile = &ProfileOf(library), .Database = {}}, options,
        std::make_shared<OdbcErrors>());
}

} // namespace veldrane::testing
