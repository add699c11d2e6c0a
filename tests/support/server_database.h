#pragma once

#include "datasource/odbc/odbc_connection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane::testing {

// How a test reaches one of the servers that scripts/database-servers starts.
struct DatabaseServer
{
    std::string Target;     // the part of a connection string that says where it is: "Driver=...;...;"
    std::string Client;     // its own client as a shell command, up to the name of a database
    std::string ClientFile; // what stands between that name and a file of SQL
    std::string Home;       // a database that is always there
    std::string CutScript;  // ends the connections to the database NAME, but for the one that runs it
};

// A database of a test's own, empty at first. It goes with the object, whoever is still connected. The SQL is run by
// the server's own client as the administrator "veldrane", so a file may hold commands of the client.
//
// Every member throws std::runtime_error with the client's words when the SQL fails.
class ServerDatabase
{
  public:
    explicit ServerDatabase(DatabaseServer server);
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;
    ~ServerDatabase();

    void Run(std::string_view sql) const;
    void RunFile(const std::filesystem::path& file) const;

    // Ends every connection to the database, as a server that goes down does.
    void CutConnections() const;

    // No other database has had it, nor will: a role or an account that begins with it meets no other test's.
    [[nodiscard]] const std::string& Name() const { return name_; }

    // The project's string for the database, with which the administrator logs on unless another name is given.
    [[nodiscard]] std::string ConnectionString(const std::string& user = "veldrane",
                                               const std::string& password = "") const;

    // A catalog over a connection of the administrator, or of another; the connection lives until the next call.
    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog();
    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog(const std::string& user, const std::string& password);

  private:
    void RunIn(const std::string& database, std::string_view sql) const;
    void RunFileIn(const std::string& database, const std::filesystem::path& file) const;

    DatabaseServer server_;
    std::string name_;
    OdbcConnection connection_{OdbcConnectionOptions{}};
};

class PostgreSqlDatabase : public ServerDatabase
{
  public:
    PostgreSqlDatabase();
};

class MariaDbDatabase : public ServerDatabase
{
  public:
    MariaDbDatabase();
};

// Tests that make such databases: they skip where the servers do not run. A suite of them is
// `using SuiteName = testing::DatabaseServerTest;`, or a class that derives from it and calls its SetUp first.
class DatabaseServerTest : public ::testing::Test
{
  protected:
    void SetUp() override;
};

} // namespace veldrane::testing
