#pragma once

#include <functional>
#include <string>

namespace veldrane {

// A word of the command line of the form NAME[=PLACE].
struct NamedArgument
{
    std::string Name;
    std::string Place; // "" for none
};

// Parts the word. One that is a known name as a whole is that name, whatever is in it; otherwise the first "=" behind a
// known name parts it, and where there is none such, the first "=".
[[nodiscard]] NamedArgument SplitAtName(const std::string& word,
                                        const std::function<bool(const std::string& name)>& isKnown);

} // namespace veldrane
