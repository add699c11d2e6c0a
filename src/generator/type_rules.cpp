#include "generator/type_rules.h"

#include "text/case_folding.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

struct TypePrefix
{
    std::string_view TypeName;
    std::string TTCProject::*Prefix;
};

constexpr auto kPrefixes = std::to_array<TypePrefix>({
    {"Boolean", &TTCProject::PrefixBoolean},
    {"Byte", &TTCProject::PrefixByte},
    {"Collection", &TTCProject::PrefixCollection},
    {"Currency", &TTCProject::PrefixCurrency},
    {"Date", &TTCProject::PrefixDate},
    {"Double", &TTCProject::PrefixDouble},
    {"Integer", &TTCProject::PrefixInteger},
    {"Long", &TTCProject::PrefixLong},
    {"Object", &TTCProject::PrefixObject},
    {"Single", &TTCProject::PrefixSingle},
    {"String", &TTCProject::PrefixString},
    {"Variant", &TTCProject::PrefixVariant},
});

struct TypeDefault
{
    std::string_view TypeName;
    std::string_view Value;
};

constexpr auto kDefaults = std::to_array<TypeDefault>({
    {"String", R"("")"},
    {"Boolean", "False"},
    {"Long", "0"},
    {"Integer", "0"},
    {"Byte", "0"},
    {"Single", "0"},
    {"Double", "0"},
    {"Currency", "0"},
    {"Date", R"("12:00:00AM")"},
    {"Variant", "Null"},
});

constexpr std::string_view kEmptyGuid = R"("{00000000-0000-0000-0000-000000000000}")";

constexpr auto kValueTypes = std::to_array<std::string_view>({"BYTE", "BOOLEAN", "CURRENCY", "DATE", "DOUBLE", "INTEGER", "STRING", "LONG", "SINGLE"});

const std::string& PrefixOf(const TTCProject& project, std::string_view typeName)
{
    const auto row = std::find_if(kPrefixes.begin(), kPrefixes.end(), [&](const TypePrefix& prefix) { return prefix.TypeName == typeName; });
    return row == kPrefixes.end() ? project.PrefixOther : project.*(row->Prefix);
}

} // namespace

std::string VariablePrefix(const TTCProject& project, std::string_view typeName, VariableKind kind)
{
    std::string prefix;
    AppendVariablePrefix(prefix, project, typeName, kind);
    return prefix;
}

void AppendVariablePrefix(std::string& line, const TTCProject& project, std::string_view typeName, VariableKind kind)
{
    line += kind == VariableKind::Member ? 'm' : 'g';
    const std::string& prefix = PrefixOf(project, typeName);
    line += prefix.empty() ? "var" : prefix;
}

std::string_view DefaultValueForType(std::string_view typeName, bool isGuid)
{
    if (isGuid && typeName == "String")
        return kEmptyGuid;
    const auto row = std::find_if(kDefaults.begin(), kDefaults.end(), [&](const TypeDefault& entry) { return entry.TypeName == typeName; });
    return row == kDefaults.end() ? kObjectMark : row->Value;
}

bool IsObjectType(std::string_view typeName)
{
    return std::none_of(kValueTypes.begin(), kValueTypes.end(), [&](std::string_view valueType) { return text::EqualFolded(valueType, typeName); });
}

} // namespace veldrane
