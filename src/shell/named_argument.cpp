#include "shell/named_argument.h"

namespace veldrane {

NamedArgument SplitAtName(const std::string& word, const std::function<bool(const std::string& name)>& isKnown)
{
    const std::size_t first = word.find('=');
    if (first == std::string::npos || isKnown(word))
        return {.Name = word, .Place = {}};
    for (std::size_t at = first; at != std::string::npos; at = word.find('=', at + 1))
        if (isKnown(word.substr(0, at)))
            return {.Name = word.substr(0, at), .Place = word.substr(at + 1)};
    return {.Name = word.substr(0, first), .Place = word.substr(first + 1)};
}

} // namespace veldrane
