#pragma once

#include "datasource/odbc/catalog_source.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace veldrane {

// Reads a catalog through the driver's own catalog functions: the way for every driver that has no better one.
class DriverCatalogSource : public CatalogSource
{
  public:
    explicit DriverCatalogSource(const OdbcSession& session);

    // What the driver finds by bare names comes first, under them; the others follow as "schema.table".
    [[nodiscard]] std::vector<SourceTable> Tables() override;
    [[nodiscard]] CatalogField FieldOf(const OdbcColumn& column) override;

    // The primary key, named "PrimaryKey" where the driver has no name for it, then the others.
    [[nodiscard]] std::vector<CatalogIndex> Indexes(const SourceTable& table) override;
    [[nodiscard]] std::vector<CatalogKey> Keys(const SourceTable& table) override;
    [[nodiscard]] std::vector<std::string> Procedures() override;

  private:
    [[nodiscard]] std::vector<SourceTable> TablesOf(const OdbcName& schema) const;
    [[nodiscard]] std::vector<CatalogIndex> PrimaryKeyOf(const SourceTable& table) const;
    [[nodiscard]] std::vector<CatalogIndex> StatisticsOf(const SourceTable& table) const;

    const OdbcSession& session_;
    OdbcName catalog_;
    bool hasSchemas_ = false;
    std::map<std::pair<std::string, std::string>, std::string> shown_; // by schema and name
};

} // namespace veldrane
