#include "datasource/jet/jet_connection.h"

#include "datasource/jet/jet_catalog.h"

#include <utility>

namespace veldrane {

JetConnection::JetConnection(ProgramRunner& programs, JetReaderOptions options)
    : programs_(programs), options_(std::move(options))
{}

void JetConnection::Open(const std::string& connectionString)
{
    Close();
    auto file =
        std::make_shared<JetFile>(programs_, options_, BuildJetLogon(veldrane::ConnectionString(connectionString)));
    static_cast<void>(file->Read());
    file_ = std::move(file);
    connectionString_ = connectionString;
}

void JetConnection::Close()
{
    file_.reset();
    connectionString_.clear();
}

std::unique_ptr<Catalog> JetConnection::OpenCatalog()
{
    if (!file_)
        throw DataSourceError(data_source_error::kNoOpenConnection, "Jet", "No data source is open.");
    return std::make_unique<JetCatalog>(file_);
}

void JetConnection::Execute(const std::string& /*statement*/)
{
    throw DataSourceError(data_source_error::kNotSupported, "Jet", "A Jet file is only read, not changed.");
}

} // namespace veldrane
