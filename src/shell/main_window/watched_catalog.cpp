#include "shell/main_window/watched_catalog.h"

#include <type_traits>

namespace veldrane {

void WatchedCatalog::Open()
{
    if (!catalog_)
        watch_([&] { catalog_ = open_(); });
}

template <class Question>
auto WatchedCatalog::Watched(const Question& question)
{
    Open();
    std::invoke_result_t<Question> answer{};
    watch_([&] { answer = question(); });
    return answer;
}

const std::vector<CatalogTable>& WatchedCatalog::Tables()
{
    return *Watched([&] { return &catalog_->Tables(); });
}

std::vector<CatalogField> WatchedCatalog::Fields(const std::string& statement)
{
    return Watched([&] { return catalog_->Fields(statement); });
}

std::vector<CatalogColumn> WatchedCatalog::Columns(const std::string& table)
{
    return Watched([&] { return catalog_->Columns(table); });
}

std::vector<CatalogIndex> WatchedCatalog::Indexes(const std::string& table)
{
    return Watched([&] { return catalog_->Indexes(table); });
}

std::vector<CatalogKey> WatchedCatalog::Keys(const std::string& table)
{
    return Watched([&] { return catalog_->Keys(table); });
}

std::vector<std::string> WatchedCatalog::HiddenTables()
{
    return Watched([&] { return catalog_->HiddenTables(); });
}

std::vector<std::string> WatchedCatalog::Procedures()
{
    return Watched([&] { return catalog_->Procedures(); });
}

std::vector<CatalogParameter> WatchedCatalog::ProcedureParameters()
{
    return Watched([&] { return catalog_->ProcedureParameters(); });
}

void WatchedCatalog::ExpectManyTables()
{
    Open();
    catalog_->ExpectManyTables();
}

} // namespace veldrane
