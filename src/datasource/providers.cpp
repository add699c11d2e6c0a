#include "datasource/providers.h"

#include "text/case_folding.h"

namespace veldrane {

bool NamesProvider(std::string_view name, std::string_view provider)
{
    constexpr std::string_view kVersion = ".1";
    return text::EqualFolded(name, provider) ||
           (name.ends_with(kVersion) && text::EqualFolded(name.substr(0, name.size() - kVersion.size()), provider));
}

} // namespace veldrane
