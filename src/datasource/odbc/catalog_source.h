#pragma once

#include "datasource/catalog.h"
#include "datasource/odbc/statement.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// A table-like object and how the data source reaches it.
struct SourceTable
{
    CatalogTable Shown;
    OdbcName Catalog;
    OdbcName Schema;  // none where the data source finds the bare name
    std::string Name; // without catalog and schema
};

// One way of reading a catalog. A kind of database whose catalog can be asked better than through the driver's own
// functions has a source of its own; OdbcCatalog does the rest: looking names up, opening tables, keeping the answers.
class CatalogSource
{
  public:
    virtual ~CatalogSource() = default;

    // In the data source's own order; asked once.
    [[nodiscard]] virtual std::vector<SourceTable> Tables() = 0;

    // Names, as they would be shown, of tables that are there and that the login may not read.
    [[nodiscard]] virtual std::vector<std::string> HiddenTables() { return {}; }

    // The fields of a table, where the database's own catalog tells them just as the opened table would; none where it
    // has to be opened.
    [[nodiscard]] virtual std::optional<std::vector<CatalogField>> FieldsOf(const SourceTable&) { return std::nullopt; }

    // The field that a column of an opened table stands for.
    [[nodiscard]] virtual CatalogField FieldOf(const OdbcColumn& column) = 0;

    // Puts right what the opened table does not tell of its fields.
    virtual void CompleteFields(const SourceTable&, std::vector<CatalogField>&) {}

    [[nodiscard]] virtual std::vector<CatalogIndex> Indexes(const SourceTable& table) = 0;
    [[nodiscard]] virtual std::vector<CatalogKey> Keys(const SourceTable& table) = 0;
    [[nodiscard]] virtual std::vector<std::string> Procedures() = 0;
    [[nodiscard]] virtual std::vector<CatalogParameter> Parameters() = 0;

    // Facts of many tables will be asked for: whatever can be read together may be read now.
    virtual void ReadTogether() {}
};

// The source that suits the connection's driver.
[[nodiscard]] std::unique_ptr<CatalogSource> MakeCatalogSource(const OdbcSession& session);

} // namespace veldrane
