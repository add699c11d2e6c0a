#pragma once

#include "generator/emitter.h"

namespace veldrane {

struct GreetingScope
{
    std::string Name;
};

template <>
inline constexpr auto Vocabulary<GreetingScope> = std::to_array<Placeholder<GreetingScope>>({
    {"Name", [](std::string& line, const GreetingScope& s) { line += s.Name; }},
});

} // namespace veldrane
