#pragma once

#include <string>
#include <string_view>
#include <vector>

// The types that the dialogs of members offer.
namespace veldrane {

// An item of a list of types. Its key is ":" and the type's number (VBTypeName), or the type's name if it has none.
struct TypeItem
{
    std::string Key;
    std::string Text;
    std::string Type; // "" for "(None)"
};

// The key of "(None)".
inline constexpr std::string_view kNoTypeKey = ":0";

// What a list offers beside the types of the language.
struct TypeListOptions
{
    bool None = false;               // "(None)", before all others
    bool ClassAndCollection = false; // "Class" and "Collection", behind them
    std::string_view Present{};      // the type that the member has, at the end unless it is in the list
};

[[nodiscard]] std::vector<TypeItem> TypeList(const TypeListOptions& options);

// The key of the item for a type, in the list or not; names are compared exactly. "(None)" stands for "".
[[nodiscard]] std::string TypeKey(std::string_view type);

// The type of the item with this key.
[[nodiscard]] std::string TypeOfKey(std::string_view key);

} // namespace veldrane
