#include "shell/data_sources.h"

#include "datasource/jet/jet_connection.h"
#include "datasource/odbc/odbc_connection.h"

namespace veldrane {

std::unique_ptr<DataSourceConnection> ConnectionFor(const std::string& text, StringOrigin origin,
                                                    const DataSourceAccess& access)
{
    // A stranger's string is as good as the user's own here: all that it can make the program do is read a file.
    if (AsksForJet(ConnectionString(text)))
        return std::make_unique<JetConnection>(
            access.Runner,
            JetReaderOptions{.Folder = access.ProgramFolder, .Timeout = access.ConnectTimeout, .Watch = access.Watch});
    return std::make_unique<OdbcConnection>(OdbcConnectionOptions{.Origin = origin,
                                                                  .ConnectTimeout = access.ConnectTimeout,
                                                                  .StatementTimeout = access.StatementTimeout,
                                                                  .TdsDriver = access.TdsDriver,
                                                                  .Watch = access.Watch});
}

} // namespace veldrane
