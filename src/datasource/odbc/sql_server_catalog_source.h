#pragma once

#include "datasource/odbc/driver_catalog_source.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace veldrane {

// Reads a catalog of SQL Server through the driver's calls, which are its own catalog procedures. Every schema comes
// with each answer. What the login finds by bare names is shown so: the objects of its default schema, and those of
// "dbo" that no object there hides. The server's own schemas hold system objects.
class SqlServerCatalogSource : public DriverCatalogSource
{
  public:
    // Asks for the login's default schema; a server that does not know the question has "dbo".
    explicit SqlServerCatalogSource(const OdbcSession& session);

    [[nodiscard]] std::vector<SourceTable> Tables() override;

    // By the published types of the provider, as the server's names for its types tell them.
    [[nodiscard]] CatalogField FieldOf(const OdbcColumn& column) override;

  protected:
    [[nodiscard]] std::set<TableId> BareTablesAmong(const std::vector<SourceTable>& tables) const override;

    // Names have their number behind them: "GetOrders;1".
    [[nodiscard]] std::vector<DriverProcedure> ListProcedures() const override;

  private:
    std::string schema_;
};

} // namespace veldrane
