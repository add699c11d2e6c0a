#include "datasource/logon/store_logon.h"

namespace veldrane {

void StoreLogon(TTCProject& project, const Logon& logon)
{
    project.DataSourceName = logon.DataSourceName;
    project.DataSourceDriver = logon.DataSourceDriver;
    project.DataSourceDatabaseName = logon.DataSourceDatabaseName;
    project.DataSourceLogin = logon.DataSourceLogin;
    project.ConnectSameDirectory = logon.ConnectSameDirectory;
    project.SetConnectionString(logon.ConnectionString);
}

} // namespace veldrane
