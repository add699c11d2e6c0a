#include "fuzz_input.h"

#include <cstdio>
#include <cstdlib>

namespace veldrane::testing {

std::string_view TextOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

std::string_view TakeField(std::string_view& input)
{
    const std::string_view field = input.substr(0, input.find('\0'));
    input.remove_prefix(field.size() == input.size() ? field.size() : field.size() + 1);
    return field;
}

void Require(bool holds, std::string_view property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %.*s\n", static_cast<int>(property.size()), property.data());
    std::abort();
}

} // namespace veldrane::testing
