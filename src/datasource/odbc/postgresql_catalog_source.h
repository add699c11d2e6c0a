#pragma once

#include "datasource/odbc/catalog_source.h"
#include "datasource/odbc/postgresql_types.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace veldrane {

// Reads the catalog of a PostgreSQL database by queries over pg_catalog, a handful for all tables together. A table is
// opened through the driver only when the catalog has lost sight of it, so that the driver's words tell why.
class PostgreSqlCatalogSource : public CatalogSource
{
  public:
    explicit PostgreSqlCatalogSource(const OdbcSession& session) : session_(session), types_(session) {}

    // Those that a bare name finds come first, under it; the others follow as "schema.table", the system's at the end.
    [[nodiscard]] std::vector<SourceTable> Tables() override;

    // Only the user's own: the system keeps some of its tables from everybody.
    [[nodiscard]] std::vector<std::string> HiddenTables() override { return hidden_; }

    // The columns that the login may read, where it may not read all.
    [[nodiscard]] std::optional<std::vector<CatalogField>> FieldsOf(const SourceTable& table) override;
    [[nodiscard]] CatalogField FieldOf(const OdbcColumn& column) override;

    // The primary key first, the others by name.
    [[nodiscard]] std::vector<CatalogIndex> Indexes(const SourceTable& table) override;

    // By name. A partition has copies of the keys of its parent, as it has the columns; of a key to a partitioned table
    // the copies for its partitions are left out.
    [[nodiscard]] std::vector<CatalogKey> Keys(const SourceTable& table) override;

    [[nodiscard]] std::vector<std::string> Procedures() override;
    [[nodiscard]] std::vector<CatalogParameter> Parameters() override;

    // System tables and views stay out.
    void ReadTogether() override;

  private:
    struct Column
    {
        int Number = 0; // the place in the definition, which dropped columns keep
        std::string Name;
        PostgreSqlTypeId Type;
        bool IsRequired = false;
        bool IsCounted = false; // filled from a sequence, if it is an integer
    };
    template <class Fact>
    using Facts = std::unordered_map<PostgreSqlOid, std::vector<Fact>>; // by table; complete for each that is there

    // A key by the numbers of its columns.
    struct NumberedKey
    {
        PostgreSqlOid Table = 0;
        PostgreSqlOid Related = 0;
        std::string Name;
        std::vector<int> Columns;
        std::vector<int> RelatedColumns;
    };

    void ReadColumns(const std::string& tables);
    void ReadIndexes(const std::string& tables);
    void ReadKeys(const std::string& tables);
    void RequireColumns(std::vector<PostgreSqlOid> tables);
    [[nodiscard]] std::vector<NumberedKey> NumberedKeys(const std::string& tables) const;
    [[nodiscard]] std::string NameOf(PostgreSqlOid table, int column) const;
    [[nodiscard]] CatalogField FieldOf(const Column& column, const SourceTable& table) const;

    const OdbcSession& session_;
    PostgreSqlTypes types_;
    std::unordered_map<std::string, PostgreSqlOid> oids_;  // by schema and name
    std::unordered_map<PostgreSqlOid, std::string> shown_; // of hidden tables too
    std::vector<PostgreSqlOid> userTables_;
    std::vector<std::string> hidden_;
    Facts<Column> columns_;
    Facts<CatalogIndex> indexes_;
    Facts<CatalogKey> keys_;
};

} // namespace veldrane
