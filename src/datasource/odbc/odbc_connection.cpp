#include "datasource/odbc/odbc_connection.h"

#include "datasource/odbc/installed_drivers.h"
#include "datasource/odbc/odbc_catalog.h"

#include <filesystem>

namespace veldrane {
namespace {

// A folder, a pipe or a device behind the name of a database file would be read for ever, or not at all.
void RefuseOtherThanFile(const OdbcLogon& logon)
{
    if (!logon.Profile->DatabaseIsFile || logon.Database.empty())
        return;
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(logon.Database, ignored);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        throw DataSourceError(data_source_error::kFailed, "ODBC", "\"" + logon.Database + "\" is not a file.");
}

void Run(const OdbcSession& session, const std::string& statement)
{
    OdbcStatement(session).Execute(statement);
}

// A server that does not know such a limit goes without.
void LimitStatements(const OdbcSession& session)
{
    if (session.Profile().LimitStatements == nullptr)
        return;
    try {
        Run(session, session.Profile().LimitStatements(session.StatementTimeout()));
    } catch (const DataSourceError& error) {
        if (error.Number == data_source_error::kNoOpenConnection)
            throw;
    }
}

} // namespace

OdbcConnection::OdbcConnection(const OdbcConnectionOptions& options)
    : options_(options), errors_(std::make_shared<std::vector<ADOError>>())
{}

OdbcConnection::~OdbcConnection()
{
    OdbcConnection::Close();
}

std::shared_ptr<OdbcSession> OdbcConnection::Connect(const std::string& connectionString) const
{
    const OdbcLogon logon = BuildOdbcLogon(
        veldrane::ConnectionString(connectionString), OdbcInstalledDrivers(),
        {.Origin = options_.Origin, .ConnectTimeout = options_.ConnectTimeout, .TdsDriver = options_.TdsDriver});
    RefuseOtherThanFile(logon);
    auto session = std::make_shared<OdbcSession>(logon,
                                                 SessionOptions{.ConnectTimeout = options_.ConnectTimeout,
                                                                .StatementTimeout = options_.StatementTimeout,
                                                                .Watch = options_.Watch},
                                                 errors_);
    if (!logon.Profile->Probe.empty())
        Run(*session, std::string(logon.Profile->Probe));
    LimitStatements(*session);
    return session;
}

void OdbcConnection::Open(const std::string& connectionString)
{
    Close();
    errors_->clear();
    try {
        session_ = Connect(connectionString);
    } catch (const DataSourceError& error) {
        // Whatever the driver calls it: a connection that was never there has not been lost.
        throw DataSourceError(data_source_error::kFailed, error.Source, error.Description(), error.Errors);
    }
    errors_->clear();
    connectionString_ = connectionString;
}

void OdbcConnection::Close()
{
    if (session_)
        session_->Disconnect();
    session_.reset();
    connectionString_.clear();
}

std::shared_ptr<OdbcSession> OdbcConnection::OpenSession() const
{
    if (!session_)
        throw DataSourceError(data_source_error::kNoOpenConnection, "ODBC", "No data source is open.");
    return session_;
}

std::unique_ptr<Catalog> OdbcConnection::OpenCatalog()
{
    const auto session = OpenSession();
    return std::make_unique<OdbcCatalog>(session, MakeCatalogSource(*session));
}

void OdbcConnection::Execute(const std::string& statement)
{
    Run(*OpenSession(), statement);
}

} // namespace veldrane
