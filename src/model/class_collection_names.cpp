#include "model/class_collection_names.h"

namespace veldrane {

std::shared_ptr<TTCClassCollectionName> TTCClassCollectionNames::Add(std::string_view classCollectionName,
                                                                     std::string_view key)
{
    auto name = std::make_shared<TTCClassCollectionName>();
    name->ClassCollectionName = classCollectionName;
    return Insert(std::move(name), key);
}

} // namespace veldrane
