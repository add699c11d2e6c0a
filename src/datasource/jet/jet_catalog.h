#pragma once

#include "datasource/catalog.h"
#include "datasource/jet/jet_file.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace veldrane {

// The catalog of a Jet file, which is read at the first question: its tables, and its saved queries as views and
// procedures. Linked tables are not among them, for what they show lies elsewhere.
class JetCatalog : public Catalog
{
  public:
    // When nobody else holds the file any more, every question throws kNoOpenConnection.
    explicit JetCatalog(std::weak_ptr<const JetFile> file) : file_(std::move(file)) {}

    [[nodiscard]] const std::vector<CatalogTable>& Tables() override;

    // Throws kFailed for a view whose columns can't be told without running it, and for a table that has none.
    [[nodiscard]] std::vector<CatalogField> Fields(const std::string& statement) override;
    [[nodiscard]] std::vector<CatalogColumn> Columns(const std::string& table) override;

    [[nodiscard]] std::vector<CatalogIndex> Indexes(const std::string& table) override;
    [[nodiscard]] std::vector<CatalogKey> Keys(const std::string& table) override;
    [[nodiscard]] std::vector<std::string> Procedures() override;

    // Throws kNotSupported: the provider has no such list.
    [[nodiscard]] std::vector<CatalogParameter> ProcedureParameters() override;

  private:
    struct Entry
    {
        bool IsView = false;
        std::vector<CatalogField> Fields;
        std::vector<CatalogIndex> Indexes;
        std::vector<CatalogKey> Keys;
    };

    // Throws kNoOpenConnection when the file is closed, and whatever reading it throws.
    void RequireRead();
    void Add(JetDatabase database);
    void AddEntry(const CatalogTable& shown, Entry entry);
    // By the name, then without regard to case. Throws kTableUnknown.
    [[nodiscard]] const Entry& Find(const std::string& table);
    [[nodiscard]] const std::vector<CatalogField>& FieldsOf(const std::string& table);

    std::weak_ptr<const JetFile> file_;
    bool read_ = false;
    std::vector<CatalogTable> tables_;
    std::vector<Entry> entries_; // one a table
    std::unordered_map<std::string, std::size_t> byName_;
    std::unordered_map<std::string, std::size_t> byFoldedName_;
    std::vector<std::string> procedures_;
};

} // namespace veldrane
