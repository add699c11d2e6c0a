#pragma once

#include "datasource/odbc/catalog_source.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace veldrane {

// Reads the catalog of a SQLite file by queries over the file's own catalog, a handful for all tables together. The
// driver's functions give the columns of a key in the wrong order, no names, and nothing for a column that a foreign
// key leaves out.
class SqliteCatalogSource : public CatalogSource
{
  public:
    explicit SqliteCatalogSource(const OdbcSession& session) : session_(session) {}

    [[nodiscard]] std::vector<SourceTable> Tables() override;
    [[nodiscard]] CatalogField FieldOf(const OdbcColumn& column) override;

    // The column that stands for the row's number counts as auto-increment: SQLite fills it. Names come from the
    // definition, for the driver takes what stands before a dot for a table.
    void CompleteFields(const SourceTable& table, std::vector<CatalogField>& fields) override;

    [[nodiscard]] std::vector<CatalogIndex> Indexes(const SourceTable& table) override;

    // The keys in the order of the definition. A key that names no column of the other table means its primary key.
    [[nodiscard]] std::vector<CatalogKey> Keys(const SourceTable& table) override;

    [[nodiscard]] std::vector<std::string> Procedures() override { return {}; }
    [[nodiscard]] std::vector<CatalogParameter> Parameters() override { return {}; }
    void ReadTogether() override;

  private:
    // What the definition of one table holds.
    struct Definition
    {
        std::vector<std::string> Names; // of the columns that the table opens with; none for a virtual table or a view
        std::unordered_map<std::string, std::string> Columns; // by their folded form
        std::string PrimaryKeyName;
        std::vector<std::string> PrimaryKey; // in the key's order
        bool HasKeyIndex = false;            // the primary key has an index: no column of it is the row's number
        std::vector<CatalogIndex> Indexes;   // the primary key's own left out
        std::vector<CatalogKey> Keys;        // nameless; as written
    };
    using Definitions = std::unordered_map<std::string, Definition>;

    void RestoreNames(const SourceTable& table, std::vector<CatalogField>& fields);
    [[nodiscard]] std::vector<std::string> ReadNames(const std::string& table) const;
    void Read(Definitions& definitions, const std::string& condition) const;
    void ReadColumns(Definitions& definitions, const std::string& condition) const;
    void ReadIndexes(Definitions& definitions, const std::string& condition) const;
    void ReadForeignKeys(Definitions& definitions, const std::string& condition) const;
    [[nodiscard]] const Definition& DefinitionOf(const std::string& table);
    [[nodiscard]] std::string NameOfTable(const std::string& written) const;

    const OdbcSession& session_;
    Definitions definitions_;
    std::unordered_map<std::string, std::string> names_; // of tables, by their folded form
};

} // namespace veldrane
