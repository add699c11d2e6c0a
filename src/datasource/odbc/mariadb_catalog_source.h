#pragma once

#include "datasource/odbc/catalog_source.h"

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace veldrane {

// Reads the catalog of a MariaDB database by queries over information_schema, one each for tables, columns and keys.
// The driver's functions report a unique column as the primary key where there is none, give the columns of a key in
// the wrong order, and know no foreign key to a unique column.
class MariaDbCatalogSource : public CatalogSource
{
  public:
    explicit MariaDbCatalogSource(const OdbcSession& session) : session_(session) {}

    // What the login may see of the database, by name. Throws kFailed if the connection has chosen no database.
    [[nodiscard]] std::vector<SourceTable> Tables() override;

    // After ReadTogether those of tables all of whose columns the login may read. Views are opened: information_schema
    // does not tell what the server fills in through them.
    [[nodiscard]] std::optional<std::vector<CatalogField>> FieldsOf(const SourceTable& table) override;
    [[nodiscard]] CatalogField FieldOf(const OdbcColumn& column) override;

    // The primary key and the unique ones. Indexes that are no keys are left out: to read them takes a question more.
    [[nodiscard]] std::vector<CatalogIndex> Indexes(const SourceTable& table) override;

    // The keys by name. A table of another database is called "database.table".
    [[nodiscard]] std::vector<CatalogKey> Keys(const SourceTable& table) override;

    [[nodiscard]] std::vector<std::string> Procedures() override;
    [[nodiscard]] std::vector<CatalogParameter> Parameters() override;
    void ReadTogether() override;

  private:
    struct TableKeys
    {
        std::vector<CatalogIndex> Indexes;
        std::vector<CatalogKey> Foreign;
    };
    struct TableColumns
    {
        std::vector<CatalogField> Fields;
        bool OpeningTells = false; // more than information_schema does
    };

    void RequireDatabase() const;
    [[nodiscard]] bool HoldsColumnGrants() const;
    void ReadColumns();
    void AddColumn(OdbcStatement& row);
    void ReadKeys(const std::string& condition);
    void AddKeyColumn(OdbcStatement& row);
    [[nodiscard]] const TableKeys& KeysOf(const std::string& table);
    [[nodiscard]] std::string RelatedName(const std::string& database, const std::string& table) const;

    const OdbcSession& session_;
    std::set<std::string> names_; // of the tables
    bool together_ = false;
    std::unordered_map<std::string, TableColumns> columns_; // by table
    std::unordered_map<std::string, TableKeys> keys_;       // by table
};

} // namespace veldrane
