#pragma once

#include "model/project.h"

#include <string>

namespace veldrane {

// A connection as a project keeps it: the string, and what it tells of the data source. Passwords stay in the string
// alone.
struct Logon
{
    std::string ConnectionString;
    std::string DataSourceName; // "" without a DSN
    std::string DataSourceDriver;
    std::string DataSourceDatabaseName;
    std::string DataSourceLogin;
    bool ConnectSameDirectory = false; // the file is looked for beside the component; for Jet files alone
};

// Gives it to the project, the string last: whoever hears of the new string finds the facts that belong to it.
void StoreLogon(TTCProject& project, const Logon& logon);

} // namespace veldrane
