#pragma once

#include "datasource/catalog.h"
#include "datasource/odbc/catalog_source.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace veldrane {

// A catalog over one connection: it looks names up, opens tables for their fields and keeps every answer; what is
// particular to a kind of database comes from its source.
class OdbcCatalog : public Catalog
{
  public:
    OdbcCatalog(std::shared_ptr<OdbcSession> session, std::unique_ptr<CatalogSource> source);

    [[nodiscard]] const std::vector<CatalogTable>& Tables() override;

    // A name that the catalog does not know is sent on, so that the driver's own words tell what is wrong.
    [[nodiscard]] std::vector<CatalogField> Fields(const std::string& statement) override;

    [[nodiscard]] std::vector<CatalogColumn> Columns(const std::string& table) override;
    [[nodiscard]] std::vector<CatalogIndex> Indexes(const std::string& table) override;
    [[nodiscard]] std::vector<CatalogKey> Keys(const std::string& table) override;
    [[nodiscard]] std::vector<std::string> HiddenTables() override;
    [[nodiscard]] std::vector<std::string> Procedures() override;
    [[nodiscard]] std::vector<CatalogParameter> ProcedureParameters() override;
    void ExpectManyTables() override;

  private:
    struct Entry
    {
        SourceTable Table;
        std::optional<std::vector<CatalogField>> Fields;
        std::optional<std::vector<CatalogIndex>> Indexes;
        std::optional<std::vector<CatalogKey>> Keys;
    };

    void ReadTables();
    // By the name that is shown, then by "schema.table", then without regard to case. Throws kPermissionDenied for one
    // that the login may not read.
    [[nodiscard]] Entry* Find(const std::string& table);
    [[nodiscard]] Entry& FindOrThrow(const std::string& table);
    [[nodiscard]] const std::vector<CatalogField>& FieldsOf(Entry& entry);
    [[nodiscard]] std::vector<CatalogField> Open(const std::string& reference) const;
    [[nodiscard]] std::string Quoted(const std::string& name) const;
    [[nodiscard]] std::string ReferenceTo(const SourceTable& table) const;

    std::shared_ptr<OdbcSession> session_;
    std::unique_ptr<CatalogSource> source_;
    std::string quote_;
    bool tablesRead_ = false;
    std::vector<CatalogTable> tables_;
    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> byName_;
    std::unordered_map<std::string, std::size_t> byFoldedName_;
    std::optional<std::vector<std::string>> procedures_;
    std::optional<std::vector<CatalogParameter>> parameters_;
};

} // namespace veldrane
