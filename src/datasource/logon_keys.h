#pragma once

#include "datasource/connection_string.h"

#include <string>

namespace veldrane {

// The keys of a connection string that a person may have to put right. The defaults are those of ODBC.
struct LogonKeys
{
    std::string Server = "Server";
    std::string Port = "Port"; // "" where the server's value has the port
    std::string Database = "Database";
    std::string User = "UID";
    std::string Password = "PWD";
    std::string Trust = "Trusted_Connection";
};

// By their published names, as the string for SQL Server's own provider has them, or would have to.
[[nodiscard]] LogonKeys SqlServerLogonKeys(const ConnectionString& given);

} // namespace veldrane
