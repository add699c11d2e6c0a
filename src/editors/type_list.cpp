#include "editors/type_list.h"

#include "datasource/type_table.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace veldrane {
namespace {

constexpr auto kOffered = std::to_array<std::int32_t>(
    {vb_type::kByte, vb_type::kBoolean, vb_type::kCurrency, vb_type::kDate, vb_type::kDouble, vb_type::kInteger,
     vb_type::kString, vb_type::kLong, vb_type::kObject, vb_type::kSingle, vb_type::kVariant});

TypeItem ItemFor(std::string_view type)
{
    return {.Key = TypeKey(type), .Text = type.empty() ? "(None)" : std::string(type), .Type = std::string(type)};
}

bool Holds(const std::vector<TypeItem>& items, std::string_view type)
{
    return std::any_of(items.begin(), items.end(), [&](const TypeItem& item) { return item.Type == type; });
}

} // namespace

std::vector<TypeItem> TypeList(const TypeListOptions& options)
{
    std::vector<TypeItem> items;
    if (options.None)
        items.push_back(ItemFor(""));
    for (const std::int32_t type : kOffered)
        items.push_back(ItemFor(VBTypeName(type)));
    if (options.ClassAndCollection) {
        items.push_back(ItemFor("Class"));
        items.push_back(ItemFor("Collection"));
    }
    if (!options.Present.empty() && !Holds(items, options.Present))
        items.push_back(ItemFor(options.Present));
    return items;
}

std::string TypeKey(std::string_view type)
{
    if (type.empty())
        return std::string(kNoTypeKey);
    const auto number = std::find_if(kOffered.begin(), kOffered.end(),
                                     [&](std::int32_t offered) { return VBTypeName(offered) == type; });
    return ":" + (number == kOffered.end() ? std::string(type) : std::to_string(*number));
}

std::string TypeOfKey(std::string_view key)
{
    if (key.empty() || key == kNoTypeKey)
        return {};
    const auto number = std::find_if(kOffered.begin(), kOffered.end(),
                                     [&](std::int32_t offered) { return key.substr(1) == std::to_string(offered); });
    return std::string(number == kOffered.end() ? key.substr(1) : VBTypeName(*number));
}

} // namespace veldrane
