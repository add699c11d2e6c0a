#pragma once

#include "datasource/catalog.h"
#include "datasource/connection_policy.h"
#include "ports/reading_watch.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace veldrane {

class OdbcSession;

struct OdbcConnectionOptions
{
    StringOrigin Origin = StringOrigin::ProjectFile;
    std::chrono::seconds ConnectTimeout{15};
    std::chrono::seconds StatementTimeout{60};
    std::string TdsDriver{kTdsDriver}; // the driver that stands in for SQL Server's own
    ReadingWatch* Watch = nullptr;     // told of the rows that are fetched; nothing for nobody
};

// A connection through the driver manager, to whatever drivers the machine has.
class OdbcConnection : public DataSourceConnection
{
  public:
    explicit OdbcConnection(const OdbcConnectionOptions& options);
    ~OdbcConnection() override;

    void Open(const std::string& connectionString) override;

    // Catalogs that were opened over the connection fail from then on.
    void Close() override;

    [[nodiscard]] bool IsOpen() const override { return session_ != nullptr; }
    [[nodiscard]] const std::string& ConnectionString() const override { return connectionString_; }
    [[nodiscard]] const std::vector<ADOError>& Errors() const override { return *errors_; }
    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog() override;
    void Execute(const std::string& statement) override;

    // Whose word the next string is: a project's own, or one that stood on the command line.
    void SetOrigin(StringOrigin origin) { options_.Origin = origin; }

  private:
    [[nodiscard]] std::shared_ptr<OdbcSession> Connect(const std::string& connectionString) const;
    [[nodiscard]] std::shared_ptr<OdbcSession> OpenSession() const;

    OdbcConnectionOptions options_;
    std::shared_ptr<std::vector<ADOError>> errors_;
    std::shared_ptr<OdbcSession> session_;
    std::string connectionString_;
};

} // namespace veldrane
