#include "datasource/odbc/key_names.h"

#include "text/case_folding.h"

#include <set>

namespace veldrane {

void NameUnnamedKeys(std::vector<CatalogKey>& keys, const std::string& table)
{
    std::set<std::string> taken;
    for (const CatalogKey& key : keys)
        taken.insert(text::Fold(key.Name));
    for (CatalogKey& key : keys) {
        if (!key.Name.empty())
            continue;
        const std::string stem = key.RelatedTable + table;
        key.Name = stem;
        for (int number = 2; !taken.insert(text::Fold(key.Name)).second; ++number)
            key.Name = stem + std::to_string(number);
    }
}

} // namespace veldrane
