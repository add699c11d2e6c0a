#pragma once

#include "datasource/catalog.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldrane {

// Runs a reading of the data source where the person sees that it lasts and can end it. What it throws goes on to the
// caller.
using WatchReading = std::function<void(const std::function<void()>& read)>;

// A catalog for a dialog that stays open between its questions: each of them is a reading of its own, so that nothing
// is shown as being read while the person thinks or answers. The first of them opens what it is asked of.
class WatchedCatalog : public Catalog
{
  public:
    WatchedCatalog(std::function<std::unique_ptr<Catalog>()> open, WatchReading watch)
        : open_(std::move(open)), watch_(std::move(watch))
    {}

    // Opens it before any question. Throws what opening throws.
    void Open();

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
    template <class Question>
    auto Watched(const Question& question);

    std::function<std::unique_ptr<Catalog>()> open_;
    std::unique_ptr<Catalog> catalog_;
    WatchReading watch_;
};

} // namespace veldrane
