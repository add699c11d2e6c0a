#include "shell/attentive_catalog.h"

#include <utility>

namespace veldrane {
namespace {

template <class Question>
decltype(auto) Ask(Question&& question)
{
    try {
        return std::forward<Question>(question)();
    } catch (const DataSourceError& error) {
        if (error.Number == data_source_error::kNoOpenConnection)
            throw ConnectionLost{error};
        throw;
    }
}

} // namespace

const std::vector<CatalogTable>& AttentiveCatalog::Tables()
{
    return Ask([&]() -> const std::vector<CatalogTable>& { return catalog_->Tables(); });
}

std::vector<CatalogField> AttentiveCatalog::Fields(const std::string& statement)
{
    return Ask([&] { return catalog_->Fields(statement); });
}

std::vector<CatalogColumn> AttentiveCatalog::Columns(const std::string& table)
{
    return Ask([&] { return catalog_->Columns(table); });
}

std::vector<CatalogIndex> AttentiveCatalog::Indexes(const std::string& table)
{
    return Ask([&] { return catalog_->Indexes(table); });
}

std::vector<CatalogKey> AttentiveCatalog::Keys(const std::string& table)
{
    return Ask([&] { return catalog_->Keys(table); });
}

std::vector<std::string> AttentiveCatalog::HiddenTables()
{
    return Ask([&] { return catalog_->HiddenTables(); });
}

std::vector<std::string> AttentiveCatalog::Procedures()
{
    return Ask([&] { return catalog_->Procedures(); });
}

std::vector<CatalogParameter> AttentiveCatalog::ProcedureParameters()
{
    return Ask([&] { return catalog_->ProcedureParameters(); });
}

void AttentiveCatalog::ExpectManyTables()
{
    Ask([&] { catalog_->ExpectManyTables(); });
}

} // namespace veldrane
