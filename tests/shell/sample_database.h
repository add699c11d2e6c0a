#pragma once

#include "program.h"
#include "support/server_database.h"
#include "support/tds_server.h"

#include <memory>
#include <string>
#include <vector>

namespace veldrane::testing {

enum class SampleServer
{
    Sqlite,
    PostgreSql,
    MariaDb,
    SqlServer, // a stand-in that holds the tables of the script
};

// A sample database that does not come with the project: files of SQL below the folder of VELDRANE_SAMPLE_DATA.
struct SampleSource
{
    SampleServer Server;
    std::vector<std::string> Files;
};

// Tests of sample databases: they skip where there are none, and where no servers run that could hold them.
class SampleDatabaseTest : public DatabaseServerTest
{
  protected:
    void SetUp() override;

    // Makes a database of the sample, and answers a connection string for it.
    std::string Load(const SampleSource& source);

    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog(const std::string& connection);

    Program Workspace;

  private:
    std::unique_ptr<ServerDatabase> database_;
    std::unique_ptr<TdsServer> standIn_;
    OdbcConnection connection_{OdbcConnectionOptions{}};
};

} // namespace veldrane::testing
