#include "editors/method_parts.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace veldrane {
namespace {

constexpr MethodParts kAll{.Scope = true, .ReturnDataType = true, .Arguments = true};

struct BuiltInParts
{
    std::string_view MethodName;
    MethodParts Followed;
};

// The other built-in methods have a first line of their own.
constexpr auto kBuiltIn = std::to_array<BuiltInParts>({
    {"Add", {.Scope = true, .ReturnDataType = true}},
    {"Delete", kAll},
    {"Retrieve", kAll},
});

} // namespace

MethodParts FollowedParts(const TTCMethod& method)
{
    if (!method.PlusMethod)
        return method.MethodIsSP ? MethodParts{} : kAll;
    const auto* const found = std::find_if(
        kBuiltIn.begin(), kBuiltIn.end(), [&](const BuiltInParts& row) { return row.MethodName == method.MethodName; });
    return found == kBuiltIn.end() ? MethodParts{} : found->Followed;
}

} // namespace veldrane
