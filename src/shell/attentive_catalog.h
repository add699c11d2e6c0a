#pragma once

#include "datasource/catalog.h"

#include <memory>
#include <string>
#include <vector>

namespace veldrane {

// The connection is gone in the middle of a run. No std::exception, so that nothing which traps the failure of one
// table, and goes on to the next, traps this.
struct ConnectionLost
{
    DataSourceError Reason;
};

// A catalog for a run that reads one table after the other: it throws ConnectionLost in place of kNoOpenConnection.
class AttentiveCatalog : public Catalog
{
  public:
    explicit AttentiveCatalog(std::unique_ptr<Catalog> catalog) : catalog_(std::move(catalog)) {}

    [[nodiscard]] const std::vector<CatalogTable>& Tables() override;
    [[nodiscard]] std::vector<CatalogField> Fields(const std::string& statement) override;
    [[nodiscard]] std::vector<CatalogColumn> Columns(const std::string& table) override;
    [[nodiscard]] std::vector<CatalogIndex> Indexes(const std::string& table) override;
    [[nodiscard]] std::vector<CatalogKey> Keys(const std::string& table) override;
    [[nodiscard]] std::vector<std::string> HiddenTables() override;
    [[nodiscard]] std::vector<std::string> Procedures() override;
    [[nodiscard]] std::vector<CatalogParameter> ProcedureParameters() override;
    void ExpectManyTables() override;

  private:
    std::unique_ptr<Catalog> catalog_;
};

} // namespace veldrane
