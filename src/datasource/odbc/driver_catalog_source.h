#pragma once

#include "datasource/odbc/catalog_source.h"
#include "datasource/odbc/driver_procedures.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace veldrane {

using TableId = std::pair<std::string, std::string>; // schema and name

[[nodiscard]] TableId IdOf(const SourceTable& table);

// Reads a catalog through the driver's own catalog functions: the way for every driver that has no better one. Each
// call takes its time at the server, so none is made that nobody asked for, and none twice.
class DriverCatalogSource : public CatalogSource
{
  public:
    explicit DriverCatalogSource(const OdbcSession& session);

    // What the driver finds by bare names comes first, under them; the others follow as "schema.table". A bare name
    // that would be that of another has its schema too.
    [[nodiscard]] std::vector<SourceTable> Tables() override;
    [[nodiscard]] CatalogField FieldOf(const OdbcColumn& column) override;

    // The primary key alone, named "PrimaryKey" where the driver has no name for it. Whoever reads a table's keys
    // passes over every other index, and to ask for them would cost another call a table.
    [[nodiscard]] std::vector<CatalogIndex> Indexes(const SourceTable& table) override;
    [[nodiscard]] std::vector<CatalogKey> Keys(const SourceTable& table) override;

    // Those that the driver finds without a schema first, under their bare names, then those of every schema with a
    // table, as "schema.procedure".
    [[nodiscard]] std::vector<std::string> Procedures() override;
    [[nodiscard]] std::vector<CatalogParameter> Parameters() override;

  protected:
    // Those of the tables, each of another name, that are found without their schema.
    [[nodiscard]] virtual std::set<TableId> BareTablesAmong(const std::vector<SourceTable>& tables) const;

    // Every procedure under the name that is shown; asked once.
    [[nodiscard]] virtual std::vector<DriverProcedure> ListProcedures() const;

    [[nodiscard]] const OdbcSession& Session() const { return session_; }
    [[nodiscard]] const OdbcName& CurrentCatalog() const { return catalog_; }

  private:
    [[nodiscard]] std::vector<SourceTable> TablesOf(const OdbcName& schema, const std::string& pattern) const;
    [[nodiscard]] bool FindsBare(const SourceTable& table) const;
    [[nodiscard]] std::set<std::string> Schemas() const;
    [[nodiscard]] const std::vector<DriverProcedure>& ReadProcedures();

    const OdbcSession& session_;
    OdbcName catalog_;
    bool hasSchemas_ = false;
    std::map<TableId, std::string> shown_;
    std::optional<std::vector<DriverProcedure>> procedures_;
};

} // namespace veldrane
